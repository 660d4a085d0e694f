#ifndef TESSALY_LISTS_REPLACE_ADVANCED_H_
#define TESSALY_LISTS_REPLACE_ADVANCED_H_

#include <array>
#include <vector>

#include "controls/buttons.h"
#include "controls/combo_box.h"
#include "controls/form.h"
#include "controls/list_box.h"
#include "conversion/conversion_options.h"
#include "platform/ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// The "Advanced Replace" dialog: a list of find-and-replace pairs with
// check marks, stored as "ReplaceList". `lNorm` (find texts and check
// marks) and `lNew` (replacements) are the record; `lstReplace` shows them.
class fReplaceAdvanced : public Form {
 public:
  fReplaceAdvanced(SettingsStore& store, Ui& ui);

  // Rebuilds `lstReplace` from `lNorm` and `lNew`.
  void LoadPreviewList();
  // Empties the three lists and fills `lNorm` and `lNew` from the store.
  void LoadValues();

  // Every row of the record, in order, as the conversion applies them.
  std::vector<ReplaceEntry> Rows() const;

  std::array<ComboBox, 2> cboBatch;  // "Replace:" and "With" of the row to add
  CommandButton cmdAdd;
  ListBox lstReplace;
  CommandButton cmdClear;
  CommandButton cmdRemoveSelected;
  CommandButton cmdAccept;
  ListBox lNorm;
  ListBox lNew;

 protected:
  void Form_Load() override;
  void Form_QueryUnload() override;

 private:
  void SaveValues();
  void cmdAdd_Click();
  void cmdClear_Click();
  void cmdRemoveSelected_Click();
  void lstReplace_Click();

  SettingsStore& store_;
  Ui& ui_;
};

}  // namespace tessaly

#endif  // TESSALY_LISTS_REPLACE_ADVANCED_H_
