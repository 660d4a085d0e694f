#include "wizard/progress_form.h"

#include <cmath>

namespace tessaly {

std::string PercentText(double current, double total, std::string_view decimalSeparator) {
  // nearbyint rounds half to even in the default rounding mode.
  const double hundredths = std::nearbyint(current / total * 100.0 * 100.0);
  if (!std::isfinite(hundredths)) return "0%";
  const auto whole = static_cast<long long>(std::fabs(hundredths));
  std::string text = std::to_string(whole / 100);
  const long long fraction = whole % 100;
  if (fraction != 0) {
    text += decimalSeparator;
    text += static_cast<char>('0' + fraction / 10);
    if (fraction % 10 != 0) text += static_cast<char>('0' + fraction % 10);
  }
  return text + "%";
}

fProgress::fProgress(Ui& ui, const Locale& locale)
    : Form("fProgress", " Progress"), ui_(ui), locale_(locale) {
  lTotal.SetWidth(kTroughWidth);
  lCaption.SetCaption("0%");
}

void fProgress::start(std::int32_t intval, std::int32_t lMax) {
  total_ = lMax;
  lTotal.SetTag(std::to_string(lMax));
  setvalue(intval);
}

void fProgress::setvalue(std::int32_t intval) {
  current_ = intval;
  lCur.SetTag(std::to_string(intval));
  DrawValue();
}

void fProgress::DrawValue() {
  const auto current = static_cast<double>(current_);
  const auto total = static_cast<double>(total_);
  // A total of 0 draws an empty bar rather than dividing by zero.
  const double done = total != 0 ? current / total : 0;
  lCur.SetWidth(std::lround(done * static_cast<double>(lTotal.width())));
  lCaption.SetCaption(PercentText(current, total, locale_.DecimalSeparator()));
  ui_.LetPendingEventsRun();
}

}  // namespace tessaly
