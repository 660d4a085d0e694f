#ifndef TESSALY_LISTS_UNWANTED_FORMATTING_H_
#define TESSALY_LISTS_UNWANTED_FORMATTING_H_

#include <string_view>
#include <vector>

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "controls/text_box.h"
#include "conversion/conversion_options.h"
#include "platform/ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// The list a fresh system starts with: seven rows, all unchecked.
inline constexpr std::string_view kDefaultFormattingList =
    "Copy Of%%0|Copy (##) Of%%0|Shortcut To%%0|## -%%0|-#%%0|(Radio Edit)%%0|- -%%0|";

// The "Unwanted Formatting" dialog: texts to cut out of names, each with a
// check mark, stored as "FormattingList". `lstRemove` is the record.
class fUnwantedFormatting : public Form {
 public:
  fUnwantedFormatting(SettingsStore& store, Ui& ui);

  // Empties `lstRemove` and fills it from the store.
  void LoadValues();

  // Every row, in order, as the conversion applies them.
  std::vector<FormattingEntry> Rows() const;

  Label lblHeading;
  Label lblDescription;
  Label lblCommonSettings;
  TextBox txtAdd;
  CommandButton cmdAdd;
  TextBox txtEdit;
  CommandButton cmdUpdate;
  ListBox lstRemove;
  CommandButton cmdRemove;
  CommandButton cmdExit;

 protected:
  void Form_Load() override { LoadValues(); }
  void Form_QueryUnload() override { SaveValues(); }

 private:
  void SaveValues();
  void cmdAdd_Click();
  void cmdUpdate_Click();
  void cmdRemove_Click();
  void lstRemove_Click();
  void txtEdit_GotFocus();
  // Shows the refusal and gives true if `text` cannot be stored.
  bool Refused(std::string_view text);

  SettingsStore& store_;
  Ui& ui_;
};

}  // namespace tessaly

#endif  // TESSALY_LISTS_UNWANTED_FORMATTING_H_
