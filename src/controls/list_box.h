#ifndef TESSALY_CONTROLS_LIST_BOX_H_
#define TESSALY_CONTROLS_LIST_BOX_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/control.h"

namespace tessaly {

// A list of texts, optionally kept sorted (ignoring case), with a current
// row, a selection mark per row and, for check-box lists, a check mark per
// row. Indexes count from 0; the current row is -1 when there is none.
//
// A sorted list takes tens of thousands of adds in a row, each checked for
// a duplicate first. So adds to a sorted list wait unsorted until anything
// asks for an index, and are merged in then; a duplicate check that misses
// needs no merge.
class ListBox : public Control {
 public:
  explicit ListBox(bool sorted = false) : sorted_(sorted) {}

  std::size_t ListCount() const { return rows_.size(); }
  const std::string& List(std::size_t index) const { return Settled().at(index).text; }
  void SetList(std::size_t index, std::string text);

  // Appends, or with a sorted list puts the row at its sorted place (after
  // rows equal to it ignoring case).
  void AddItem(std::string text);
  // The index the last added row has now.
  std::size_t NewIndex() const;
  // Inserts at `index` (at most ListCount()); ignored on a sorted list.
  void AddItemAt(std::string text, std::size_t index);
  void RemoveItem(std::size_t index);
  void Clear();

  // The first row equal to `key` ignoring case, or -1.
  int FindExact(std::string_view key) const;

  bool Checked(std::size_t index) const { return Settled().at(index).checked; }
  void SetChecked(std::size_t index, bool checked);
  bool Selected(std::size_t index) const { return Settled().at(index).selected; }
  void SetSelected(std::size_t index, bool selected);
  std::size_t SelCount() const;

  int ListIndex() const {
    Settle();
    return listIndex_;
  }
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
    std::uint64_t arrival = 0;  // order of adding, to find a row after a merge
  };

  const std::vector<Row>& Settled() const {
    Settle();
    return rows_;
  }
  std::vector<Row>& Settled() {
    Settle();
    return rows_;
  }
  // Merges the rows added since the last merge into their sorted places.
  void Settle() const;
  std::size_t IndexOfArrival(std::uint64_t arrival) const;
  void Index(const std::string& text);
  void Unindex(const std::string& text);

  mutable std::vector<Row> rows_;
  mutable std::size_t settled_ = 0;  // rows_[0, settled_) are in place
  mutable int listIndex_ = -1;
  bool sorted_;
  std::uint64_t arrivals_ = 0;
  std::size_t lastAddedIndex_ = 0;  // for unsorted lists
  // Folded texts of a sorted list's rows, with their counts.
  std::unordered_map<std::u32string, int> folded_;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_LIST_BOX_H_
