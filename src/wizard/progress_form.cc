#include "wizard/progress_form.h"

#include <charconv>
#include <cmath>

namespace tessaly {

namespace {

// The tags hold whole numbers written by start and setvalue.
double TagValue(const Label& label) {
  const std::string& tag = label.tag();
  double value = 0;
  std::from_chars(tag.data(), tag.data() + tag.size(), value);
  return value;
}

}  // namespace

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
  lTotal.SetTag(std::to_string(lMax));
  lCur.SetTag(std::to_string(intval));
  DrawValue();
}

void fProgress::setvalue(std::int32_t intval) {
  lCur.SetTag(std::to_string(intval));
  DrawValue();
}

void fProgress::DrawValue() {
  const double current = TagValue(lCur);
  const double total = TagValue(lTotal);
  // A total of 0 draws an empty bar rather than dividing by zero.
  const double done = total != 0 ? current / total : 0;
  lCur.SetWidth(std::lround(done * static_cast<double>(lTotal.width())));
  lCaption.SetCaption(PercentText(current, total, locale_.DecimalSeparator()));
  ui_.LetPendingEventsRun();
}

}  // namespace tessaly
