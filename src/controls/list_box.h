#ifndef TESSALY_CONTROLS_LIST_BOX_H_
#define TESSALY_CONTROLS_LIST_BOX_H_

#include <cstddef>
#include <string>
#include <vector>

#include "controls/control.h"

namespace tessaly {

// A list of texts, optionally kept sorted (ignoring case), with a current
// row, a selection mark per row and, for check-box lists, a check mark per
// row. Indexes count from 0; the current row is -1 when there is none.
class ListBox : public Control {
 public:
  explicit ListBox(bool sorted = false) : sorted_(sorted) {}

  std::size_t ListCount() const { return rows_.size(); }
  const std::string& List(std::size_t index) const { return rows_.at(index).text; }
  void SetList(std::size_t index, std::string text);

  // Appends, or with a sorted list inserts at the sorted place; returns the
  // index the row got.
  std::size_t AddItem(std::string text);
  // Inserts at `index` (at most ListCount()); ignored on a sorted list.
  void AddItemAt(std::string text, std::size_t index);
  void RemoveItem(std::size_t index);
  void Clear();

  bool Checked(std::size_t index) const { return rows_.at(index).checked; }
  void SetChecked(std::size_t index, bool checked);
  bool Selected(std::size_t index) const { return rows_.at(index).selected; }
  void SetSelected(std::size_t index, bool selected);

  int ListIndex() const { return listIndex_; }
  // Makes `index` the current row (-1: none) and runs the click rule.
  void SetListIndex(int index);
  // A click on the check box of row `index`: toggles it, makes the row
  // current and runs the click rule.
  void ClickCheckBox(std::size_t index);

  EventRule onClick;

 private:
  struct Row {
    std::string text;
    bool checked = false;
    bool selected = false;
  };

  std::vector<Row> rows_;
  bool sorted_;
  int listIndex_ = -1;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_LIST_BOX_H_
