#include "readable_colour.h"

#include "controls/readable_colour.h"

namespace tessaly::qt {

QColor ReadableOn(const QPalette& palette, Rgb colour) {
  const QColor base = palette.color(QPalette::Base);
  const QColor wanted(colour.red, colour.green, colour.blue);
  if (base.lightnessF() < 0.5 && wanted.hsvSaturationF() == 0) return palette.color(QPalette::Text);
  const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
  const Rgb readable = tessaly::ReadableOn(
      colour, {channel(base.red()), channel(base.green()), channel(base.blue())});
  return QColor(readable.red, readable.green, readable.blue);
}

QColor FillUnderText(const QPalette& palette, QColor fill) {
  return palette.color(QPalette::WindowText).lightnessF() > 0.5 ? fill.darker(200) : fill;
}

}  // namespace tessaly::qt
