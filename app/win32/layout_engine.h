#ifndef TESSALY_APP_WIN32_LAYOUT_ENGINE_H_
#define TESSALY_APP_WIN32_LAYOUT_ENGINE_H_

#include "windows_h.h"

#include <vector>

#include "system_font.h"
#include "wizard/layout/layout.h"

namespace tessaly::win32 {

// A described item as realised: the window it made (a control, a group box
// or a panel; none for a plain box or a gap) and its children's nodes.
// The description must outlive the node.
struct Node {
  const layout::Item* item = nullptr;
  HWND window = nullptr;
  std::vector<Node> children;
};

// Sizes and places realised items the way the description says: columns,
// rows, grids and overlays with stretch, spacing and margins in dialog
// units of `font`. Heights follow widths, so a wrapped text gets the lines
// it needs at the width it is given. Controls are measured by their kind
// and current caption, so a longer caption from the model makes room.
class LayoutEngine {
 public:
  explicit LayoutEngine(const SystemFont& font) : font_(font) {}

  int MinWidth(const Node& node) const;
  int MinHeight(const Node& node, int width) const;
  // Moves the node's windows into `area`, in its parent window's pixels.
  void Place(const Node& node, RECT area) const;

 private:
  SIZE OwnSize(const Node& node, int width) const;
  RECT Inner(const Node& node, RECT area) const;
  int Across(const layout::Item& item) const;
  int Down(const layout::Item& item) const;
  // The widths of a row's children, or of a grid's columns, in `width`.
  std::vector<int> RowWidths(const Node& node, int width) const;
  std::vector<int> GridWidths(const Node& node, int width) const;
  std::vector<int> GridHeights(const Node& node, const std::vector<int>& widths) const;
  void PlaceInCell(const Node& child, RECT cell, bool fillDown) const;

  const SystemFont& font_;
};

// Whether an item takes the room it is given down, as lists do, rather
// than keeping its own height.
bool Expands(const layout::Item& item);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_LAYOUT_ENGINE_H_
