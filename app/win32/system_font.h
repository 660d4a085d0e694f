#ifndef TESSALY_APP_WIN32_SYSTEM_FONT_H_
#define TESSALY_APP_WIN32_SYSTEM_FONT_H_

#include "windows_h.h"

#include <string_view>

namespace tessaly::win32 {

// The system's message font at one DPI, in the three weights the windows
// use, and the dialog units it gives: every size in the windows is counted
// in these units, so the layout grows with the font and the DPI alike.
class SystemFont {
 public:
  explicit SystemFont(UINT dpi);
  ~SystemFont();
  SystemFont(const SystemFont&) = delete;
  SystemFont& operator=(const SystemFont&) = delete;

  HFONT normal() const { return normal_; }
  HFONT bold() const { return bold_; }
  // The page headings': bold and a third larger.
  HFONT heading() const { return heading_; }
  UINT dpi() const { return dpi_; }

  // Dialog units in pixels: a quarter of the average character's width,
  // an eighth of the font's height.
  int X(int units) const { return MulDiv(units, baseWidth_, 4); }
  int Y(int units) const { return MulDiv(units, baseHeight_, 8); }
  // Pixels in horizontal dialog units, rounded up.
  int UnitsOfWidth(int pixels) const { return (pixels * 4 + baseWidth_ - 1) / baseWidth_; }

  // The width of `text` in pixels, in `font` (one of the three above).
  int TextWidth(std::wstring_view text, HFONT font) const;

 private:
  UINT dpi_;
  HFONT normal_;
  HFONT bold_;
  HFONT heading_;
  int baseWidth_ = 6;
  int baseHeight_ = 13;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_SYSTEM_FONT_H_
