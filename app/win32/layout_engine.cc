#include "layout_engine.h"

#include <algorithm>
#include <numeric>
#include <string>

namespace tessaly::win32 {

namespace {

using layout::Align;
using layout::Arrange;
using layout::Kind;
using layout::Look;

bool IsContainer(const layout::Item& item) {
  return item.kind == Kind::kBox || item.kind == Kind::kFrame || item.kind == Kind::kPanel;
}

std::wstring ShownText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  const bool marks = (GetWindowLongW(window, GWL_STYLE) & SS_NOPREFIX) == 0;
  if (const auto mark = text.find(L'&'); marks && mark != std::wstring::npos) text.erase(mark, 1);
  return text;
}

// The size `text` takes in `window`'s font; wrapped at `width` unless 0.
SIZE TextSize(HWND window, int width) {
  const std::wstring text = ShownText(window);
  // A memory DC of its own: a window's DC costs Wine a server call for its
  // visible region, and a layout measures every text several times.
  static const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
  RECT box{0, 0, std::max(width, 1), 0};
  const std::wstring measured = text.empty() ? L" " : text;
  DrawTextW(dc, measured.c_str(), static_cast<int>(measured.size()), &box,
            DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : 0));
  SelectObject(dc, old);
  return {box.right - box.left, box.bottom - box.top};
}

// Shares of `room` by `weights`, rounded so that together they give it all.
std::vector<int> Shares(int room, const std::vector<int>& weights) {
  std::vector<int> shares(weights.size(), 0);
  const int total = std::accumulate(weights.begin(), weights.end(), 0);
  if (room <= 0 || total <= 0) return shares;
  int given = 0;
  int seen = 0;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    seen += weights[i];
    shares[i] = MulDiv(room, seen, total) - given;
    given += shares[i];
  }
  return shares;
}

// Moves only what is not in place already: every move costs a window
// several messages and repaints, and a layout runs again on each resize.
void Move(HWND window, RECT area, int extraDown = 0) {
  area.bottom += extraDown;
  RECT now;
  GetWindowRect(window, &now);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&now), 2);
  if (EqualRect(&now, &area)) return;
  const UINT unseen = IsWindowVisible(window) ? 0 : SWP_NOREDRAW;
  SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
               SWP_NOZORDER | SWP_NOACTIVATE | unseen);
}

int GridColumns(const Node& node) {
  int columns = 0;
  for (const Node& child : node.children) {
    columns = std::max(columns, child.item->cell.column + child.item->cell.columnSpan);
  }
  return columns;
}

int GridRows(const Node& node) {
  int rows = static_cast<int>(node.item->rowMinimum.size());
  for (const Node& child : node.children) {
    rows = std::max(rows, child.item->cell.row + child.item->cell.rowSpan);
  }
  return rows;
}

}  // namespace

bool Expands(const layout::Item& item) {
  switch (item.kind) {
    case Kind::kFileList:
    case Kind::kCheckList:
    case Kind::kRichText:
      return true;
    default:
      return IsContainer(item) &&
             std::any_of(item.children.begin(), item.children.end(), [](const layout::Item& child) {
               return child.stretch > 0 && Expands(child);
             });
  }
}

int LayoutEngine::Across(const layout::Item& item) const {
  return font_.X(item.spacing.width >= 0 ? item.spacing.width : 4);
}

int LayoutEngine::Down(const layout::Item& item) const {
  return font_.Y(item.spacing.height >= 0 ? item.spacing.height : 3);
}

RECT LayoutEngine::Inner(const Node& node, RECT area) const {
  const layout::Item& item = *node.item;
  layout::Margins margins = item.margins;
  if (!item.hasMargins) {
    const int side = item.kind == Kind::kFrame ? 5 : 0;
    margins = {side, side, side, side};
  }
  area.left += font_.X(margins.left);
  area.right -= font_.X(margins.right);
  area.top += font_.Y(margins.top);
  area.bottom -= font_.Y(margins.bottom);
  if (item.kind == Kind::kFrame) {
    // Room for the group box's edge and caption.
    area.left += font_.X(2);
    area.right -= font_.X(2);
    area.top += font_.Y(8);
    area.bottom -= font_.Y(2);
  }
  return area;
}

SIZE LayoutEngine::OwnSize(const Node& node, int width) const {
  const layout::Item& item = *node.item;
  SIZE size{0, 0};
  switch (item.kind) {
    case Kind::kText:
    case Kind::kCaption:
      if (item.wrap) {
        size = {font_.X(std::max(item.minimum.width, 60)),
                width > 0 ? TextSize(node.window, width).cy : font_.Y(8)};
      } else {
        size = TextSize(node.window, 0);
      }
      if (item.look == Look::kBand) size = {size.cx + font_.X(8), size.cy + font_.Y(5)};
      if (item.look == Look::kStep) {
        // Bold or not, the strip keeps its width.
        const HFONT shown = reinterpret_cast<HFONT>(SendMessageW(node.window, WM_GETFONT, 0, 0));
        SendMessageW(node.window, WM_SETFONT, reinterpret_cast<WPARAM>(font_.bold()), FALSE);
        size = TextSize(node.window, 0);
        SendMessageW(node.window, WM_SETFONT, reinterpret_cast<WPARAM>(shown), FALSE);
      }
      break;
    case Kind::kPathText:
      size = {font_.X(60), TextSize(node.window, 0).cy};
      break;
    case Kind::kButton:
      size = {std::max<LONG>(TextSize(node.window, 0).cx + font_.X(10), font_.X(24)), font_.Y(14)};
      break;
    case Kind::kCheckBox:
    case Kind::kOption:
      size = {TextSize(node.window, 0).cx + font_.X(14), font_.Y(10)};
      break;
    case Kind::kComboBox:
      size = {font_.X(4 * (item.columns > 0 ? item.columns : 12) + 12), font_.Y(12)};
      break;
    case Kind::kTextBox:
      size = {font_.X(4 * (item.columns > 0 ? item.columns : 15)), font_.Y(12)};
      break;
    case Kind::kExample:
      // Its lines, and under them the bar that scrolls a long name.
      size = {font_.X(100), font_.Y(8 * std::max(item.rows, 1) + 5) +
                                GetSystemMetricsForDpi(SM_CYHSCROLL, font_.dpi())};
      break;
    case Kind::kFileList:
    case Kind::kCheckList:
    case Kind::kRichText:
      size = {font_.X(80), font_.Y(40)};
      break;
    case Kind::kProgress:
      // The bar, with room for the percentage on it.
      size = {font_.X(100), font_.Y(14)};
      break;
    case Kind::kLine:
      size = {0, 2};
      break;
    case Kind::kSpace:
      size = {font_.X(item.fixed.width), font_.Y(item.fixed.height)};
      return size;
    default:
      break;
  }
  if (item.fixed.width > 0) size.cx = font_.X(item.fixed.width);
  if (item.fixed.height > 0) size.cy = font_.Y(item.fixed.height);
  size.cx = std::max<LONG>(size.cx, font_.X(item.minimum.width));
  size.cy = std::max<LONG>(size.cy, font_.Y(item.minimum.height));
  return size;
}

std::vector<int> LayoutEngine::RowWidths(const Node& node, int width) const {
  std::vector<int> widths;
  std::vector<int> weights;
  int used = 0;
  for (const Node& child : node.children) {
    widths.push_back(MinWidth(child));
    weights.push_back(child.item->stretch);
    used += widths.back();
  }
  used += Across(*node.item) * std::max<int>(0, static_cast<int>(node.children.size()) - 1);
  const std::vector<int> extra = Shares(width - used, weights);
  for (std::size_t i = 0; i < widths.size(); ++i) widths[i] += extra[i];
  return widths;
}

std::vector<int> LayoutEngine::GridWidths(const Node& node, int width) const {
  const int columns = GridColumns(node);
  const int gap = Across(*node.item);
  std::vector<int> widths(columns, 0);
  for (const Node& child : node.children) {
    if (child.item->cell.columnSpan == 1) {
      widths[child.item->cell.column] = std::max(widths[child.item->cell.column], MinWidth(child));
    }
  }
  // A cell across several columns widens the last of them if it must.
  for (const Node& child : node.children) {
    const layout::Cell& cell = child.item->cell;
    if (cell.columnSpan == 1) continue;
    int spanned = gap * (cell.columnSpan - 1);
    for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) spanned += widths[c];
    const int need = MinWidth(child) - spanned;
    if (need > 0) widths[cell.column + cell.columnSpan - 1] += need;
  }
  const int used = std::accumulate(widths.begin(), widths.end(), 0) + gap * std::max(0, columns - 1);
  std::vector<int> weights(columns, 0);
  for (int c = 0; c < columns && c < static_cast<int>(node.item->columnStretch.size()); ++c) {
    weights[c] = node.item->columnStretch[c];
  }
  const std::vector<int> extra = Shares(width - used, weights);
  for (int c = 0; c < columns; ++c) widths[c] += extra[c];
  return widths;
}

std::vector<int> LayoutEngine::GridHeights(const Node& node, const std::vector<int>& widths) const {
  const int rows = GridRows(node);
  const int gap = Across(*node.item);
  std::vector<int> heights(rows, 0);
  for (int r = 0; r < static_cast<int>(node.item->rowMinimum.size()); ++r) {
    heights[r] = font_.Y(node.item->rowMinimum[r]);
  }
  for (const Node& child : node.children) {
    const layout::Cell& cell = child.item->cell;
    if (cell.rowSpan != 1) continue;
    int width = gap * (cell.columnSpan - 1);
    for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) width += widths[c];
    heights[cell.row] = std::max(heights[cell.row], MinHeight(child, width));
  }
  return heights;
}

int LayoutEngine::MinWidth(const Node& node) const {
  const layout::Item& item = *node.item;
  if (!IsContainer(item)) return OwnSize(node, 0).cx;
  int inner = 0;
  switch (item.arrange) {
    case Arrange::kRow:
      for (const Node& child : node.children) inner += MinWidth(child);
      inner += Across(item) * std::max<int>(0, static_cast<int>(node.children.size()) - 1);
      break;
    case Arrange::kGrid: {
      const std::vector<int> widths = GridWidths(node, 0);
      inner = std::accumulate(widths.begin(), widths.end(), 0) +
              Across(item) * std::max(0, static_cast<int>(widths.size()) - 1);
      break;
    }
    default:
      for (const Node& child : node.children) inner = std::max(inner, MinWidth(child));
      break;
  }
  const RECT insets = Inner(node, {0, 0, 0, 0});
  return std::max(inner + static_cast<int>(insets.left - insets.right), font_.X(item.minimum.width));
}

int LayoutEngine::MinHeight(const Node& node, int width) const {
  const layout::Item& item = *node.item;
  if (!IsContainer(item)) return OwnSize(node, width).cy;
  const RECT insets = Inner(node, {0, 0, 0, 0});
  const int innerWidth = width - static_cast<int>(insets.left - insets.right);
  int inner = 0;
  switch (item.arrange) {
    case Arrange::kColumn:
      for (const Node& child : node.children) inner += MinHeight(child, innerWidth);
      inner += Down(item) * std::max<int>(0, static_cast<int>(node.children.size()) - 1);
      break;
    case Arrange::kRow: {
      const std::vector<int> widths = RowWidths(node, innerWidth);
      for (std::size_t i = 0; i < node.children.size(); ++i) {
        inner = std::max(inner, MinHeight(node.children[i], widths[i]));
      }
      break;
    }
    case Arrange::kGrid: {
      const std::vector<int> heights = GridHeights(node, GridWidths(node, innerWidth));
      inner = std::accumulate(heights.begin(), heights.end(), 0) +
              Down(item) * std::max(0, static_cast<int>(heights.size()) - 1);
      break;
    }
    case Arrange::kOverlay:
      for (const Node& child : node.children) inner = std::max(inner, MinHeight(child, innerWidth));
      break;
  }
  return std::max(inner + static_cast<int>(insets.top - insets.bottom), font_.Y(item.minimum.height));
}

void LayoutEngine::PlaceInCell(const Node& child, RECT cell, bool fillDown) const {
  const layout::Item& item = *child.item;
  const int width = cell.right - cell.left;
  if (item.align == Align::kLeft || item.align == Align::kRight || item.align == Align::kCentre) {
    const int own = std::min(MinWidth(child), width);
    if (item.align == Align::kLeft) cell.right = cell.left + own;
    if (item.align == Align::kRight) cell.left = cell.right - own;
    if (item.align == Align::kCentre) {
      cell.left += (width - own) / 2;
      cell.right = cell.left + own;
    }
  }
  if (!fillDown && !IsContainer(item) && !Expands(item) && item.kind != Kind::kText) {
    // A control keeps its own height, in the middle of the room.
    const int own = std::min<int>(MinHeight(child, cell.right - cell.left), cell.bottom - cell.top);
    cell.top += (cell.bottom - cell.top - own) / 2;
    cell.bottom = cell.top + own;
  }
  Place(child, cell);
}

void LayoutEngine::Place(const Node& node, RECT area) const {
  const layout::Item& item = *node.item;
  if (!IsContainer(item)) {
    if (node.window == nullptr) return;
    if (item.kind == Kind::kComboBox) {
      Move(node.window, area, font_.Y(8 * std::max(item.rows, 8)));
    } else {
      Move(node.window, area);
    }
    return;
  }
  if (node.window != nullptr) Move(node.window, area);
  if (item.kind == Kind::kPanel) area = {0, 0, area.right - area.left, area.bottom - area.top};
  const RECT inner = Inner(node, area);
  const int width = inner.right - inner.left;
  switch (item.arrange) {
    case Arrange::kOverlay:
      for (const Node& child : node.children) Place(child, inner);
      return;
    case Arrange::kRow: {
      const std::vector<int> widths = RowWidths(node, width);
      int at = inner.left;
      for (std::size_t i = 0; i < node.children.size(); ++i) {
        PlaceInCell(node.children[i], {at, inner.top, at + widths[i], inner.bottom}, false);
        at += widths[i] + Across(item);
      }
      return;
    }
    case Arrange::kColumn: {
      std::vector<int> heights;
      std::vector<int> weights;
      int used = 0;
      for (const Node& child : node.children) {
        heights.push_back(MinHeight(child, width));
        weights.push_back(child.item->stretch);
        used += heights.back();
      }
      used += Down(item) * std::max<int>(0, static_cast<int>(node.children.size()) - 1);
      const std::vector<int> extra = Shares(inner.bottom - inner.top - used, weights);
      int at = inner.top;
      for (std::size_t i = 0; i < node.children.size(); ++i) {
        const int height = heights[i] + extra[i];
        PlaceInCell(node.children[i], {inner.left, at, inner.right, at + height}, true);
        at += height + Down(item);
      }
      return;
    }
    case Arrange::kGrid: {
      const std::vector<int> widths = GridWidths(node, width);
      std::vector<int> heights = GridHeights(node, widths);
      // Room to spare down goes to the rows that hold a list.
      std::vector<int> weights(heights.size(), 0);
      for (const Node& child : node.children) {
        if (Expands(*child.item)) weights[child.item->cell.row] = 1;
      }
      const int used = std::accumulate(heights.begin(), heights.end(), 0) +
                       Down(item) * std::max(0, static_cast<int>(heights.size()) - 1);
      const std::vector<int> extra = Shares(inner.bottom - inner.top - used, weights);
      for (std::size_t r = 0; r < heights.size(); ++r) heights[r] += extra[r];
      for (const Node& child : node.children) {
        const layout::Cell& cell = child.item->cell;
        int left = inner.left;
        for (int c = 0; c < cell.column; ++c) left += widths[c] + Across(item);
        int right = left - Across(item);
        for (int c = cell.column; c < cell.column + cell.columnSpan; ++c) right += widths[c] + Across(item);
        int top = inner.top;
        for (int r = 0; r < cell.row; ++r) top += heights[r] + Down(item);
        int bottom = top - Down(item);
        for (int r = cell.row; r < cell.row + cell.rowSpan; ++r) bottom += heights[r] + Down(item);
        PlaceInCell(child, {left, top, right, bottom}, Expands(*child.item));
      }
      return;
    }
  }
}

}  // namespace tessaly::win32
