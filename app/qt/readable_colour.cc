#include "readable_colour.h"

namespace tessaly::qt {

QColor ReadableOn(const QPalette& palette, Rgb colour) {
  const QColor wanted(colour.red, colour.green, colour.blue);
  if (palette.color(QPalette::Base).lightnessF() >= 0.5) return wanted;
  if (wanted.hsvSaturationF() == 0) return palette.color(QPalette::Text);
  return QColor((wanted.red() + 255 + 1) / 2, (wanted.green() + 255 + 1) / 2,
                (wanted.blue() + 255 + 1) / 2);
}

QColor FillUnderText(const QPalette& palette, QColor fill) {
  return palette.color(QPalette::WindowText).lightnessF() > 0.5 ? fill.darker(200) : fill;
}

}  // namespace tessaly::qt
