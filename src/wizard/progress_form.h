#ifndef TESSALY_WIZARD_PROGRESS_FORM_H_
#define TESSALY_WIZARD_PROGRESS_FORM_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "controls/buttons.h"
#include "controls/form.h"
#include "platform/locale.h"
#include "platform/ui.h"

namespace tessaly {

// The percentage a progress window writes: current / total * 100 rounded
// to two places (half to even), shortest form, the locale's decimal
// separator, then "%".
std::string PercentText(double current, double total, std::string_view decimalSeparator);

// The small window that follows a loop over the file list. Its state is
// the two tags, whose numbers it also keeps as numbers, so that an update
// for every file reads no text back; each update is also where the loop
// lets pending window events run.
class fProgress : public Form {
 public:
  static constexpr long kTroughWidth = 6135;  // twips, the width of lTotal

  fProgress(Ui& ui, const Locale& locale);

  void start(std::int32_t intval, std::int32_t lMax);
  void setvalue(std::int32_t intval);
  void DrawValue();

  Label lTotal;    // the trough; its tag holds the total
  Label lCur;      // the bar; its tag holds the current value
  Label lCaption;  // the percentage

 protected:
  void Form_Load() override {}
  void Form_QueryUnload() override {}

 private:
  Ui& ui_;
  const Locale& locale_;
  std::int32_t current_ = 0;
  std::int32_t total_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_WIZARD_PROGRESS_FORM_H_
