#include "system_font.h"

namespace tessaly::win32 {

namespace {

LOGFONTW MessageFontAt(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (!SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, dpi)) {
    // Older systems know only the system DPI's metrics.
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    metrics.lfMessageFont.lfHeight =
        MulDiv(metrics.lfMessageFont.lfHeight, static_cast<int>(dpi), GetDpiForSystem());
  }
  return metrics.lfMessageFont;
}

// One device context for measuring, released when done.
class ScreenDc {
 public:
  explicit ScreenDc(HFONT font) : dc_(GetDC(nullptr)), old_(SelectObject(dc_, font)) {}
  ~ScreenDc() {
    SelectObject(dc_, old_);
    ReleaseDC(nullptr, dc_);
  }
  HDC get() const { return dc_; }

 private:
  HDC dc_;
  HGDIOBJ old_;
};

}  // namespace

SystemFont::SystemFont(UINT dpi) : dpi_(dpi) {
  LOGFONTW font = MessageFontAt(dpi);
  normal_ = CreateFontIndirectW(&font);
  font.lfWeight = FW_BOLD;
  bold_ = CreateFontIndirectW(&font);
  font.lfHeight = font.lfHeight * 4 / 3;
  heading_ = CreateFontIndirectW(&font);

  ScreenDc dc(normal_);
  TEXTMETRICW text{};
  GetTextMetricsW(dc.get(), &text);
  SIZE alphabet{};
  constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  GetTextExtentPoint32W(dc.get(), kLetters.data(), static_cast<int>(kLetters.size()), &alphabet);
  if (alphabet.cx > 0) baseWidth_ = static_cast<int>((alphabet.cx / 26 + 1) / 2);
  if (text.tmHeight > 0) baseHeight_ = text.tmHeight;
}

SystemFont::~SystemFont() {
  DeleteObject(normal_);
  DeleteObject(bold_);
  DeleteObject(heading_);
}

int SystemFont::TextWidth(std::wstring_view text, HFONT font) const {
  ScreenDc dc(font);
  RECT box{0, 0, 0, 0};
  DrawTextW(dc.get(), text.data(), static_cast<int>(text.size()), &box,
            DT_CALCRECT | DT_SINGLELINE);
  return box.right - box.left;
}

}  // namespace tessaly::win32
