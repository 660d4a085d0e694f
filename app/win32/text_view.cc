#include "text_view.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <windowsx.h>

#include "bindings.h"
#include "controls/readable_colour.h"
#include "line_index.h"
#include "text_rows.h"

namespace tessaly::win32 {

namespace {

constexpr wchar_t kClassName[] = L"TessalyText";
constexpr UINT kRefresh = WM_APP + 1;
constexpr UINT kCopy = 1;
constexpr UINT kSelectAll = 2;

Rgb RgbOf(COLORREF colour) {
  return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

class TextView {
 public:
  TextView(HWND window, RichTextBox& box) : window_(window), box_(box) {}

  void MarkStale() {
    if (stale_) return;
    stale_ = true;
    PostMessageW(window_, kRefresh, 0, 0);
  }

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  // Brings the rows in line with the box: only the lines added, unless
  // the box was written anew.
  void Refresh();
  void Restart();
  void LayFrom(std::size_t line);
  // Lays out every line again when the width lines wrap at has changed,
  // keeping the top line on top.
  void Rewrap();
  void SetFont(HFONT font);

  int Margin() const { return 2; }
  int VisibleRows() const;
  int Wrapping() const;
  void UpdateScrollBars();
  void SetScrollBars();
  void ScrollTo(std::ptrdiff_t top, int left);
  void ShowRow(std::size_t row);
  void Scroll(int bar, WORD request);

  void Paint(HDC target);
  void DrawRow(HDC dc, std::size_t row, int y);
  // The shown text of `line`, cached for the rows that follow.
  void Load(std::size_t line);
  COLORREF ColourOf(std::size_t character, std::size_t& run) const;

  std::size_t UnitAt(POINT point);
  POINT PointOf(std::size_t unit);
  std::pair<std::size_t, std::size_t> Selection() const {
    return std::minmax(anchor_, active_);
  }
  std::wstring Text(std::size_t from, std::size_t to);
  void Copy();
  void ShowMenu(POINT screen);
  bool Key(WPARAM key);

  HWND window_;
  RichTextBox& box_;
  bool stale_ = false;
  std::uint64_t rewrites_ = UINT64_MAX;
  std::size_t indexedBytes_ = 0;
  std::size_t followed_ = SIZE_MAX;
  LineIndex lines_;
  TextRows rows_;
  int wrapWidth_ = 0;
  bool updatingBars_ = false;

  HFONT font_ = nullptr;
  int rowHeight_ = 16;
  int charWidth_ = 7;

  std::size_t top_ = 0;
  int left_ = 0;
  std::size_t anchor_ = 0;
  std::size_t active_ = 0;
  bool dragging_ = false;
  int wheel_ = 0;

  std::size_t loaded_ = SIZE_MAX;
  std::wstring units_;
  std::vector<std::size_t> characters_;
  std::vector<int> extents_;
};

void TextView::Restart() {
  rewrites_ = box_.rewrites();
  indexedBytes_ = 0;
  lines_.Clear();
  rows_.Clear();
  loaded_ = SIZE_MAX;
  top_ = 0;
  left_ = 0;
  anchor_ = active_ = 0;
  followed_ = SIZE_MAX;
}

void TextView::Refresh() {
  stale_ = false;
  const std::string& text = box_.text();
  if (box_.rewrites() != rewrites_ || text.size() < indexedBytes_) Restart();
  if (text.size() != indexedBytes_) {
    const std::size_t first = lines_.Extend(text);
    indexedBytes_ = text.size();
    LayFrom(first);
  }
  Rewrap();
  UpdateScrollBars();
  if (box_.selStart() != followed_) {
    followed_ = box_.selStart();
    const std::size_t line = lines_.LineOfCharacter(followed_);
    Load(line);
    const auto unit = static_cast<std::size_t>(
        std::lower_bound(characters_.begin(), characters_.end(), followed_) - characters_.begin());
    ShowRow(rows_.RowOf(line, unit));
  }
  InvalidateRect(window_, nullptr, FALSE);
}

void TextView::LayFrom(std::size_t line) {
  HDC dc = GetDC(window_);
  const HGDIOBJ old = SelectObject(dc, font_);
  rows_.Lay(box_.text(), lines_, line, dc, wrapWidth_);
  SelectObject(dc, old);
  ReleaseDC(window_, dc);
  if (loaded_ >= line) loaded_ = SIZE_MAX;
}

void TextView::Rewrap() {
  if (Wrapping() == wrapWidth_) return;
  wrapWidth_ = Wrapping();
  const std::size_t line = rows_.Count() > 0 ? rows_.LineOfRow(top_) : 0;
  LayFrom(0);
  top_ = rows_.FirstRow(line);
}

void TextView::SetFont(HFONT font) {
  font_ = font;
  HDC dc = GetDC(window_);
  const HGDIOBJ old = SelectObject(dc, font_);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  SelectObject(dc, old);
  ReleaseDC(window_, dc);
  rowHeight_ = std::max<int>(metrics.tmHeight, 1);
  charWidth_ = std::max<int>(metrics.tmAveCharWidth, 1);
  LayFrom(0);
  UpdateScrollBars();
}

int TextView::VisibleRows() const {
  RECT client;
  GetClientRect(window_, &client);
  return std::max<int>(1, (client.bottom - client.top) / rowHeight_);
}

// The width lines wrap at, or 0 when they run on: the box's margin says.
// A view not yet given its size wraps nothing: its lines are laid out
// again once it has one.
int TextView::Wrapping() const {
  if (box_.rightMargin() != 0) return 0;
  RECT client;
  GetClientRect(window_, &client);
  const int width = client.right - 2 * Margin();
  return width >= 4 * charWidth_ ? width : 0;
}

// A bar that comes or goes changes the room, and so the other bar.
void TextView::UpdateScrollBars() {
  if (updatingBars_) return;
  updatingBars_ = true;
  for (int pass = 0; pass < 2; ++pass) {
    RECT before;
    GetClientRect(window_, &before);
    SetScrollBars();
    RECT after;
    GetClientRect(window_, &after);
    Rewrap();
    if (EqualRect(&before, &after)) break;
  }
  updatingBars_ = false;
}

void TextView::SetScrollBars() {
  RECT client;
  GetClientRect(window_, &client);
  SCROLLINFO vertical{};
  vertical.cbSize = sizeof(vertical);
  vertical.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  vertical.nMax = static_cast<int>(rows_.Count()) - 1;
  vertical.nPage = static_cast<UINT>(VisibleRows());
  vertical.nPos = static_cast<int>(top_);
  SetScrollInfo(window_, SB_VERT, &vertical, TRUE);
  SCROLLINFO horizontal{};
  horizontal.cbSize = sizeof(horizontal);
  horizontal.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  horizontal.nMax = wrapWidth_ > 0 ? 0 : rows_.Widest() + 2 * Margin();
  horizontal.nPage = static_cast<UINT>(client.right);
  horizontal.nPos = left_;
  SetScrollInfo(window_, SB_HORZ, &horizontal, TRUE);
}

void TextView::ScrollTo(std::ptrdiff_t top, int left) {
  const auto rows = static_cast<std::ptrdiff_t>(rows_.Count());
  top = std::clamp<std::ptrdiff_t>(top, 0, std::max<std::ptrdiff_t>(0, rows - VisibleRows()));
  RECT client;
  GetClientRect(window_, &client);
  left = std::clamp(left, 0, std::max(0, rows_.Widest() + 2 * Margin() - static_cast<int>(client.right)));
  if (wrapWidth_ > 0) left = 0;
  if (static_cast<std::size_t>(top) == top_ && left == left_) return;
  top_ = static_cast<std::size_t>(top);
  left_ = left;
  UpdateScrollBars();
  InvalidateRect(window_, nullptr, FALSE);
}

void TextView::ShowRow(std::size_t row) {
  const auto visible = static_cast<std::size_t>(VisibleRows());
  if (row < top_) {
    ScrollTo(static_cast<std::ptrdiff_t>(row), left_);
  } else if (row >= top_ + visible) {
    ScrollTo(static_cast<std::ptrdiff_t>(row + 1 - visible), left_);
  }
}

void TextView::Scroll(int bar, WORD request) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = SIF_ALL;
  GetScrollInfo(window_, bar, &info);
  const int page = static_cast<int>(info.nPage);
  const int line = bar == SB_VERT ? 1 : charWidth_ * 4;
  int position = info.nPos;
  switch (request) {
    case SB_LINEUP: position -= line; break;
    case SB_LINEDOWN: position += line; break;
    case SB_PAGEUP: position -= std::max(page - line, line); break;
    case SB_PAGEDOWN: position += std::max(page - line, line); break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: position = info.nTrackPos; break;
    case SB_TOP: position = 0; break;
    case SB_BOTTOM: position = info.nMax; break;
    default: return;
  }
  if (bar == SB_VERT) {
    ScrollTo(position, left_);
  } else {
    ScrollTo(static_cast<std::ptrdiff_t>(top_), position);
  }
}

void TextView::Load(std::size_t line) {
  if (line == loaded_) return;
  loaded_ = line;
  const std::string& text = box_.text();
  const std::size_t from = lines_[line].byte;
  LineIndex::Shown(std::string_view(text).substr(from, lines_.EndByte(line) - from),
                   lines_[line].character, units_, characters_);
}

// The colour of `character`; `run` walks the box's runs forward with the
// characters asked for.
COLORREF TextView::ColourOf(std::size_t character, std::size_t& run) const {
  const std::vector<ColourSpan>& runs = box_.spans();
  while (run < runs.size() && runs[run].start + runs[run].length <= character) ++run;
  const COLORREF background = GetSysColor(COLOR_WINDOW);
  if (run < runs.size() && runs[run].start <= character) {
    const Rgb shown = ReadableOn(runs[run].colour, RgbOf(background));
    return RGB(shown.red, shown.green, shown.blue);
  }
  return GetSysColor(COLOR_WINDOWTEXT);
}

void TextView::DrawRow(HDC dc, std::size_t row, int y) {
  const std::size_t line = rows_.LineOfRow(row);
  Load(line);
  const TextRows::Span span = rows_.RowSpan(lines_, line, row);
  const int count = static_cast<int>(span.to - span.from);
  const int x = Margin() - left_;
  extents_.assign(static_cast<std::size_t>(count) + 1, 0);
  SIZE size{};
  if (count > 0) {
    GetTextExtentExPointW(dc, units_.data() + span.from, count, 0, nullptr, extents_.data() + 1, &size);
  }
  const auto [selectedFrom, selectedTo] = Selection();
  const bool focused = GetFocus() == window_;
  const std::size_t lineUnit = lines_[line].unit;
  std::size_t run = static_cast<std::size_t>(
      std::partition_point(box_.spans().begin(), box_.spans().end(),
                           [&](const ColourSpan& s) {
                             return count == 0 || s.start + s.length <= characters_[span.from];
                           }) -
      box_.spans().begin());
  for (std::size_t piece = span.from; piece < span.to;) {
    const bool selected = lineUnit + piece >= selectedFrom && lineUnit + piece < selectedTo;
    const COLORREF colour = ColourOf(characters_[piece], run);
    std::size_t end = piece + 1;
    while (end < span.to && ColourOf(characters_[end], run) == colour &&
           (lineUnit + end >= selectedFrom && lineUnit + end < selectedTo) == selected) {
      ++end;
    }
    const int from = x + extents_[piece - span.from];
    const int to = x + extents_[end - span.from];
    if (selected) {
      const RECT band{from, y, to, y + rowHeight_};
      FillRect(dc, &band, GetSysColorBrush(focused ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
    }
    SetTextColor(dc, selected && focused ? GetSysColor(COLOR_HIGHLIGHTTEXT) : colour);
    ExtTextOutW(dc, from, y, 0, nullptr, units_.data() + piece, static_cast<UINT>(end - piece), nullptr);
    piece = end;
  }
  // A selected line end shows as a blank's width behind the line.
  const std::size_t lineEnd = lines_.EndUnit(line);
  if (span.to == lineEnd - lineUnit && lineEnd >= selectedFrom && lineEnd < selectedTo) {
    const RECT band{x + extents_.back(), y, x + extents_.back() + charWidth_, y + rowHeight_};
    FillRect(dc, &band, GetSysColorBrush(focused ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
  }
}

void TextView::Paint(HDC target) {
  RECT client;
  GetClientRect(window_, &client);
  HDC dc = CreateCompatibleDC(target);
  HBITMAP bitmap = CreateCompatibleBitmap(target, std::max<int>(client.right, 1), std::max<int>(client.bottom, 1));
  const HGDIOBJ oldBitmap = SelectObject(dc, bitmap);
  FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
  const HGDIOBJ oldFont = SelectObject(dc, font_);
  SetBkMode(dc, TRANSPARENT);
  const std::size_t end = std::min(rows_.Count(), top_ + static_cast<std::size_t>(VisibleRows()) + 1);
  for (std::size_t row = top_; row < end; ++row) {
    DrawRow(dc, row, static_cast<int>(row - top_) * rowHeight_);
  }
  if (GetFocus() == window_) DrawFocusRect(dc, &client);
  BitBlt(target, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
  SelectObject(dc, oldFont);
  SelectObject(dc, oldBitmap);
  DeleteObject(bitmap);
  DeleteDC(dc);
}

std::size_t TextView::UnitAt(POINT point) {
  if (rows_.Count() == 0) return 0;
  const std::ptrdiff_t shown = point.y < 0 ? -1 : point.y / rowHeight_;
  const auto row = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(
      static_cast<std::ptrdiff_t>(top_) + shown, 0, static_cast<std::ptrdiff_t>(rows_.Count()) - 1));
  const std::size_t line = rows_.LineOfRow(row);
  Load(line);
  const TextRows::Span span = rows_.RowSpan(lines_, line, row);
  HDC dc = GetDC(window_);
  const HGDIOBJ old = SelectObject(dc, font_);
  const int count = static_cast<int>(span.to - span.from);
  extents_.assign(static_cast<std::size_t>(count) + 1, 0);
  SIZE size{};
  if (count > 0) {
    GetTextExtentExPointW(dc, units_.data() + span.from, count, 0, nullptr, extents_.data() + 1, &size);
  }
  SelectObject(dc, old);
  ReleaseDC(window_, dc);
  // The nearest place between two characters.
  const int x = point.x - Margin() + left_;
  std::size_t unit = 0;
  while (unit < static_cast<std::size_t>(count) && x >= (extents_[unit] + extents_[unit + 1]) / 2) ++unit;
  return lines_[line].unit + span.from + unit;
}

POINT TextView::PointOf(std::size_t unit) {
  const std::size_t line = lines_.LineOfUnit(std::min(unit, lines_.Units()));
  const std::size_t inLine = std::min(unit - lines_[line].unit, lines_.EndUnit(line) - lines_[line].unit);
  const std::size_t row = rows_.RowOf(line, inLine);
  Load(line);
  const TextRows::Span span = rows_.RowSpan(lines_, line, row);
  HDC dc = GetDC(window_);
  const HGDIOBJ old = SelectObject(dc, font_);
  SIZE size{};
  GetTextExtentPoint32W(dc, units_.data() + span.from, static_cast<int>(inLine - span.from), &size);
  SelectObject(dc, old);
  ReleaseDC(window_, dc);
  return {Margin() - left_ + size.cx,
          static_cast<LONG>((static_cast<std::ptrdiff_t>(row) - static_cast<std::ptrdiff_t>(top_)) * rowHeight_)};
}

std::wstring TextView::Text(std::size_t from, std::size_t to) {
  std::wstring text;
  to = std::min(to, lines_.Units());
  if (from >= to) return text;
  text.reserve(to - from);
  for (std::size_t line = lines_.LineOfUnit(from); line < lines_.Count(); ++line) {
    Load(line);
    const std::size_t start = lines_[line].unit;
    if (start >= to) break;
    std::wstring whole = units_;
    if (line + 1 < lines_.Count()) whole += L"\r\n";
    const std::size_t first = from > start ? from - start : 0;
    text.append(whole, first, std::min(whole.size(), to - start) - first);
  }
  return text;
}

void TextView::Copy() {
  const auto [from, to] = Selection();
  if (from == to || !OpenClipboard(window_)) return;
  const std::wstring text = Text(from, to);
  EmptyClipboard();
  if (HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t))) {
    auto* units = static_cast<wchar_t*>(GlobalLock(memory));
    std::copy(text.c_str(), text.c_str() + text.size() + 1, units);
    GlobalUnlock(memory);
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) GlobalFree(memory);
  }
  CloseClipboard();
}

void TextView::ShowMenu(POINT screen) {
  HMENU menu = CreatePopupMenu();
  const auto [from, to] = Selection();
  AppendMenuW(menu, MF_STRING | (from == to ? MF_GRAYED : 0), kCopy, L"&Copy\tCtrl+C");
  AppendMenuW(menu, MF_STRING, kSelectAll, L"Select &All\tCtrl+A");
  if (screen.x == -1 && screen.y == -1) {  // from the keyboard
    screen = {0, 0};
    ClientToScreen(window_, &screen);
  }
  const UINT chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, screen.x, screen.y, 0, window_, nullptr);
  DestroyMenu(menu);
  if (chosen == kCopy) Copy();
  if (chosen == kSelectAll) Handle(EM_SETSEL, 0, -1);
}

bool TextView::Key(WPARAM key) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  switch (key) {
    case VK_UP: Scroll(SB_VERT, SB_LINEUP); return true;
    case VK_DOWN: Scroll(SB_VERT, SB_LINEDOWN); return true;
    case VK_PRIOR: Scroll(SB_VERT, SB_PAGEUP); return true;
    case VK_NEXT: Scroll(SB_VERT, SB_PAGEDOWN); return true;
    case VK_HOME: Scroll(control ? SB_VERT : SB_HORZ, SB_TOP); return true;
    case VK_END: Scroll(control ? SB_VERT : SB_HORZ, SB_BOTTOM); return true;
    case VK_LEFT: Scroll(SB_HORZ, SB_LINEUP); return true;
    case VK_RIGHT: Scroll(SB_HORZ, SB_LINEDOWN); return true;
    case 'A':
      if (!control) return false;
      Handle(EM_SETSEL, 0, -1);
      return true;
    case 'C':
    case VK_INSERT:
      if (!control) return false;
      Copy();
      return true;
    default:
      return false;
  }
}

LRESULT TextView::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kRefresh:
      if (stale_) Refresh();
      return 0;
    case WM_SETFONT:
      SetFont(reinterpret_cast<HFONT>(wParam));
      if (LOWORD(lParam)) InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(font_);
    case WM_SIZE:
      Rewrap();
      UpdateScrollBars();
      ScrollTo(static_cast<std::ptrdiff_t>(top_), left_);
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      PAINTSTRUCT paint;
      HDC dc = BeginPaint(window_, &paint);
      Paint(dc);
      EndPaint(window_, &paint);
      return 0;
    }
    case WM_PRINTCLIENT:
      Paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      Scroll(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL: {
      UINT perNotch = 3;
      SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &perNotch, 0);
      wheel_ += GET_WHEEL_DELTA_WPARAM(wParam);
      const int notches = wheel_ / WHEEL_DELTA;
      wheel_ -= notches * WHEEL_DELTA;
      const int rows = perNotch == WHEEL_PAGESCROLL ? VisibleRows() : static_cast<int>(perNotch);
      ScrollTo(static_cast<std::ptrdiff_t>(top_) - notches * rows, left_);
      return 0;
    }
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    case WM_KEYDOWN:
      if (Key(wParam)) return 0;
      break;
    case WM_LBUTTONDOWN: {
      SetFocus(window_);
      const std::size_t unit = UnitAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      if (!(wParam & MK_SHIFT)) anchor_ = unit;
      active_ = unit;
      dragging_ = true;
      SetCapture(window_);
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    }
    case WM_MOUSEMOVE:
      if (dragging_) {
        const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        active_ = UnitAt(point);
        ShowRow(rows_.RowOf(lines_.LineOfUnit(active_), active_ - lines_[lines_.LineOfUnit(active_)].unit));
        InvalidateRect(window_, nullptr, FALSE);
      }
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      if (dragging_) {
        dragging_ = false;
        if (message == WM_LBUTTONUP) ReleaseCapture();
      }
      return 0;
    case WM_CONTEXTMENU:
      ShowMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
      return 0;
    case WM_COPY:
      Copy();
      return 0;
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(lines_.Units());
    case WM_GETTEXT: {
      if (wParam == 0) return 0;
      const std::wstring text = Text(0, std::min<std::size_t>(lines_.Units(), wParam - 1));
      auto* out = reinterpret_cast<wchar_t*>(lParam);
      std::copy(text.c_str(), text.c_str() + text.size() + 1, out);
      return static_cast<LRESULT>(text.size());
    }
    case WM_SETTEXT:
      return FALSE;  // read-only: the box writes it
    case EM_GETLINECOUNT:
      return static_cast<LRESULT>(lines_.Count());
    case EM_GETSEL: {
      const auto [from, to] = Selection();
      if (wParam != 0) *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(from);
      if (lParam != 0) *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(to);
      return MAKELRESULT(std::min<std::size_t>(from, 0xFFFF), std::min<std::size_t>(to, 0xFFFF));
    }
    case EM_SETSEL: {
      const std::size_t units = lines_.Units();
      const auto from = static_cast<std::ptrdiff_t>(wParam);
      const auto to = static_cast<std::ptrdiff_t>(lParam);
      anchor_ = from < 0 ? units : std::min(static_cast<std::size_t>(from), units);
      active_ = to < 0 ? units : std::min(static_cast<std::size_t>(to), units);
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    }
    case EM_SCROLLCARET: {
      const std::size_t line = lines_.LineOfUnit(active_);
      ShowRow(rows_.RowOf(line, active_ - lines_[line].unit));
      return 0;
    }
    case EM_POSFROMCHAR: {
      const POINT point = PointOf(static_cast<std::size_t>(wParam));
      return MAKELRESULT(static_cast<WORD>(point.x), static_cast<WORD>(point.y));
    }
    default:
      break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* view = reinterpret_cast<TextView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (view == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    delete view;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  return view->Handle(message, wParam, lParam);
}

void RegisterOnce() {
  static const bool registered = [] {
    WNDCLASSEXW type{};
    type.cbSize = sizeof(type);
    type.style = CS_DBLCLKS;
    type.lpfnWndProc = &Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
    type.lpszClassName = kClassName;
    return RegisterClassExW(&type) != 0;
  }();
  (void)registered;
}

}  // namespace

HWND NewTextView(HostWindow& host, HWND parent, RichTextBox& box) {
  RegisterOnce();
  HWND window = host.NewControl(kClassName, WS_VSCROLL | WS_HSCROLL | WS_BORDER | WS_TABSTOP, parent);
  auto* view = new TextView(window, box);
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(view));
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(host.font().normal()), FALSE);
  Follow(box.changed, host, [view, window, &box] {
    if (ShownByStyle(window) != box.visible()) ShowWindow(window, box.visible() ? SW_SHOWNA : SW_HIDE);
    view->MarkStale();
  });
  return window;
}

}  // namespace tessaly::win32
