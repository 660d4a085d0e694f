#ifndef TESSALY_CONTROLS_LIST_BOX_H_
#define TESSALY_CONTROLS_LIST_BOX_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/hash_counts.h"

namespace tessaly {

// A list of texts, optionally kept sorted (ignoring case), with a current
// row, a selection mark per row and, for check-box lists, a check mark per
// row. Indexes count from 0; the current row is -1 when there is none.
//
// A sorted list takes tens of thousands of adds in a row, each checked for
// a duplicate first. So adds to a sorted list wait unsorted until anything
// asks for an index, and are merged in then; a duplicate check that misses
// needs no merge. The order that comes out is the one that putting each row
// in place at once would give. Likewise removed rows are only marked, and
// dropped together when an index behind one of them is asked for, so that
// removing the selected rows from the last one up takes one pass.
//
// The rows' texts stand one after the other in one buffer, as do their sort
// keys: a list holds tens of thousands of paths, and a string of its own
// for each cost a third more memory.
class ListBox : public Control {
 public:
  explicit ListBox(bool sorted = false) : sorted_(sorted) {}

  std::size_t ListCount() const { return rows_.size() - removedCount_; }
  // Valid until the list next changes.
  std::string_view List(std::size_t index) const { return Text(At(index)); }
  // Replaces the text of row `index`; in a sorted list the row then moves to
  // its sorted place (after rows equal to it ignoring case).
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
  // Makes room for `rows` more rows with `textBytes` bytes of text in all,
  // where a caller knows what is coming: a list grown by doubling leaves
  // its old room behind.
  void Reserve(std::size_t rows, std::size_t textBytes);

  // The first row equal to `key` ignoring case, or -1.
  int FindExact(std::string_view key) const;

  // Rows are the same entry when `key` gives them the same text; until this
  // is set, when they are equal ignoring case. Set it while the list is empty.
  using SameEntryKey = std::function<std::string(std::string_view)>;
  void SetSameEntryKey(SameEntryKey key) { sameEntryKey_ = std::move(key); }
  // Whether a row is the same entry as `text`.
  bool HoldsSameEntry(std::string_view text) const;

  bool Checked(std::size_t index) const { return At(index).checked; }
  void SetChecked(std::size_t index, bool checked);
  bool Selected(std::size_t index) const { return At(index).selected; }
  void SetSelected(std::size_t index, bool selected);
  std::size_t SelCount() const { return selectedCount_; }

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
    std::uint32_t textAt = 0;  // in texts_
    std::uint32_t textLength = 0;
    // In a sorted list, where keys_ holds the row's sort key, if ownKey:
    // the text folded as CompareIgnoreCase folds it and encoded so that
    // comparing the bytes orders as CompareIgnoreCase does. A text of plain
    // ASCII, as most paths are, is its own key once its letters are folded
    // byte by byte, which comparisons do on the way.
    std::uint32_t keyAt = 0;
    std::uint32_t keyLength = 0;
    std::uint32_t arrival = 0;  // order of adding, to find a row after a merge
    bool checked = false;
    bool selected = false;
    bool removed = false;
    bool ownKey = false;
  };

  // Row `index` as the list stands, settling only as far as that needs;
  // throws std::out_of_range as vector::at does.
  const Row& At(std::size_t index) const;
  Row& At(std::size_t index) { return const_cast<Row&>(std::as_const(*this).At(index)); }
  // Drops removed rows, then merges the rows added since the last merge
  // into their sorted places. Afterwards indexes are those of the list.
  void Settle() const;
  void DropRemoved() const;
  // How many rows, merged or not, come before `key` (a sort key) in order.
  std::size_t CountBefore(std::string_view key) const;
  // Whether a row has the sort key `key`; removed rows dropped first.
  bool HoldsKey(std::string_view key) const;
  std::size_t IndexOfArrival(std::uint32_t arrival) const;
  void MoveToSortedPlace(std::size_t index);
  void Index(const Row& row);
  void Unindex(const Row& row);
  Row MakeRow(std::string_view text, bool sortKey);
  std::string_view Text(const Row& row) const {
    return std::string_view(texts_).substr(row.textAt, row.textLength);
  }
  // The row's sort key, or its text where that is its key once folded:
  // either way, compared and hashed with KeyOrder and KeyHash.
  std::string_view Key(const Row& row) const {
    return row.ownKey ? std::string_view(keys_).substr(row.keyAt, row.keyLength) : Text(row);
  }
  bool KeyLess(const Row& a, const Row& b) const;
  // Counts the sort keys of all rows, the first time a look-up needs them.
  void CountKeys() const;
  // Counts the text and key of a row that goes as dropped.
  void CountDropped(const Row& row) const;
  // Makes texts_ or keys_ anew, without the bytes of `gone` and of removed
  // rows, once more of it is dropped bytes than kept ones.
  void RepackIfWasteful(const Row* gone) const;

  // Until settled, removed rows still stand in rows_, all of them at or
  // behind firstRemoved_, and listIndex_ counts them.
  mutable std::vector<Row> rows_;
  mutable std::size_t settled_ = 0;  // rows_[0, settled_) are in place
  mutable std::size_t removedCount_ = 0;
  mutable std::size_t firstRemoved_ = 0;  // meaningful while removedCount_ > 0
  mutable int listIndex_ = -1;
  bool sorted_;
  std::uint32_t arrivals_ = 0;
  mutable std::string texts_;
  mutable std::size_t droppedTextBytes_ = 0;
  mutable std::string keys_;
  mutable std::size_t droppedKeyBytes_ = 0;
  std::size_t lastAddedIndex_ = 0;  // for unsorted lists
  std::size_t selectedCount_ = 0;
  // Hashes of the rows' sort keys (in a sorted list, once FindExact is
  // first asked) and of their same-entry keys: most look-ups miss and end
  // there; a hit is confirmed on the rows, as two keys may share a hash.
  // Hashes, not copies of the keys: a list holds tens of thousands of rows.
  mutable HashCounts keyHashes_;
  mutable bool keysCounted_ = false;
  SameEntryKey sameEntryKey_;
  HashCounts sameKeyHashes_;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_LIST_BOX_H_
