#include "controls/list_box.h"

#include <algorithm>

#include "text/ascii_fold.h"
#include "text/text_ops.h"
#include "text/utf8.h"

namespace tessaly {

namespace {

// Two keys are equal exactly when CompareIgnoreCase calls their texts equal,
// and compare as bytes the way it compares the texts, but without decoding
// and folding at every comparison.
void SortKeyInto(std::string_view text, std::string& key) {
  if (text::FoldAscii(text, key)) return;
  key.clear();
  key.reserve(text.size());
  for (char32_t code : text::Fold(text)) text::AppendUtf8Layout(key, code);
}

std::string SortKey(std::string_view text) {
  std::string key;
  SortKeyInto(text, key);
  return key;
}

}  // namespace

const ListBox::Row& ListBox::At(std::size_t index) const {
  // Rows in front of the first removed one keep their indexes meanwhile.
  if (settled_ != rows_.size() || (removedCount_ > 0 && index >= firstRemoved_)) Settle();
  return rows_.at(index);
}

void ListBox::DropRemoved() const {
  if (removedCount_ == 0) return;
  const auto isRemoved = [](const Row& row) { return row.removed; };
  if (listIndex_ >= 0) {
    listIndex_ -=
        static_cast<int>(std::count_if(rows_.begin(), rows_.begin() + listIndex_, isRemoved));
  }
  for (const Row& row : rows_) {
    if (row.removed) DropKey(row);
  }
  rows_.erase(std::remove_if(rows_.begin(), rows_.end(), isRemoved), rows_.end());
  // A removal merges first, so every removed row stood in the merged part.
  settled_ -= removedCount_;
  removedCount_ = 0;
}

void ListBox::Settle() const {
  DropRemoved();
  if (settled_ == rows_.size()) return;
  const std::uint64_t current = listIndex_ >= 0 ? rows_[listIndex_].arrival : 0;
  const auto byKey = [this](const Row& a, const Row& b) { return Key(a) < Key(b); };
  const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  // Both steps are stable: rows equal ignoring case keep the order they came
  // in, old before new, as if each had been put after its equals when added.
  std::stable_sort(middle, rows_.end(), byKey);
  std::inplace_merge(rows_.begin(), middle, rows_.end(), byKey);
  settled_ = rows_.size();
  if (listIndex_ >= 0) listIndex_ = static_cast<int>(IndexOfArrival(current));
}

std::size_t ListBox::CountBefore(const std::string& key) const {
  const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  const auto below = std::lower_bound(rows_.begin(), settledEnd, key,
                                      [this](const Row& row, const std::string& k) { return Key(row) < k; });
  const auto waiting =
      std::count_if(settledEnd, rows_.end(), [&](const Row& row) { return Key(row) < key; });
  return static_cast<std::size_t>(below - rows_.begin()) + static_cast<std::size_t>(waiting);
}

std::size_t ListBox::IndexOfArrival(std::uint64_t arrival) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].arrival == arrival) return i;
  }
  return 0;
}

void ListBox::MoveToSortedPlace(std::size_t index) {
  const bool wasCurrent = listIndex_ == static_cast<int>(index);
  Row row = std::move(rows_[index]);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
  if (listIndex_ > static_cast<int>(index)) --listIndex_;
  const auto at = std::upper_bound(rows_.begin(), rows_.end(), Key(row),
                                   [this](std::string_view k, const Row& r) { return k < Key(r); });
  const auto place = static_cast<int>(at - rows_.begin());
  rows_.insert(at, std::move(row));
  if (wasCurrent) {
    listIndex_ = place;
  } else if (listIndex_ >= place) {
    ++listIndex_;
  }
}

namespace {

std::size_t Hash(std::string_view key) { return std::hash<std::string_view>{}(key); }

void Count(std::unordered_map<std::size_t, int>& counts, std::string_view key) { ++counts[Hash(key)]; }

void Uncount(std::unordered_map<std::size_t, int>& counts, std::string_view key) {
  const auto found = counts.find(Hash(key));
  if (found != counts.end() && --found->second == 0) counts.erase(found);
}

}  // namespace

ListBox::Row ListBox::MakeRow(std::string text, bool sortKey) {
  Row row{std::move(text), 0, 0, false, false, false, ++arrivals_};
  if (sortKey) {
    SortKeyInto(row.text, keyScratch_);
    row.keyAt = static_cast<std::uint32_t>(keys_.size());
    row.keyLength = static_cast<std::uint32_t>(keyScratch_.size());
    keys_ += keyScratch_;
  }
  return row;
}

void ListBox::DropKey(const Row& row) const {
  droppedKeyBytes_ += row.keyLength;
  if (droppedKeyBytes_ <= keys_.size() / 2) return;
  std::string kept;
  for (Row& other : rows_) {
    if (&other == &row || other.removed) continue;
    const std::string_view key = Key(other);
    other.keyAt = static_cast<std::uint32_t>(kept.size());
    kept += key;
  }
  keys_.swap(kept);
  droppedKeyBytes_ = 0;
}

void ListBox::Index(const Row& row) {
  if (sorted_) Count(keyHashes_, Key(row));
  // Made afresh rather than kept in the row: a row is indexed and
  // unindexed about once, and the key is often the text itself.
  if (sameEntryKey_) Count(sameKeyHashes_, sameEntryKey_(row.text));
}

void ListBox::Unindex(const Row& row) {
  if (sorted_) Uncount(keyHashes_, Key(row));
  if (sameEntryKey_) Uncount(sameKeyHashes_, sameEntryKey_(row.text));
}

bool ListBox::HoldsSameEntry(std::string_view text) const {
  if (!sameEntryKey_) return FindExact(text) != -1;
  const std::string key = sameEntryKey_(text);
  if (!sameKeyHashes_.contains(Hash(key))) return false;
  DropRemoved();
  const auto same = [&](const Row& row) { return sameEntryKey_(row.text) == key; };
  if (sorted_) {
    // Where the same entry mostly stands: among the rows equal to the text
    // ignoring case, merged or waiting.
    const std::string sortKey = SortKey(text);
    const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
    const std::string_view probe = sortKey;
    const auto first = std::lower_bound(rows_.begin(), settledEnd, probe,
                                        [this](const Row& row, std::string_view k) { return Key(row) < k; });
    const auto last = std::upper_bound(first, settledEnd, probe,
                                       [this](std::string_view k, const Row& row) { return k < Key(row); });
    if (std::any_of(first, last, same)) return true;
    if (std::any_of(settledEnd, rows_.end(),
                    [&](const Row& row) { return Key(row) == probe && same(row); })) {
      return true;
    }
  }
  return std::any_of(rows_.begin(), rows_.end(), same);
}

void ListBox::SetList(std::size_t index, std::string text) {
  Settle();
  Row& row = rows_.at(index);
  Unindex(row);
  DropKey(row);  // before the new key goes in, which a tidying would not move
  Row fresh = MakeRow(std::move(text), sorted_);
  row.text = std::move(fresh.text);
  row.keyAt = fresh.keyAt;
  row.keyLength = fresh.keyLength;
  Index(row);
  // Left where it was, the row would break the order every look-up relies on.
  if (sorted_) MoveToSortedPlace(index);
  changed.Emit();
}

void ListBox::AddItem(std::string text) {
  if (!sorted_) Settle();  // so that the new row's index is final
  rows_.push_back(MakeRow(std::move(text), sorted_));
  Index(rows_.back());
  if (!sorted_) settled_ = rows_.size();
  lastAddedIndex_ = rows_.size() - 1;
  changed.Emit();
}

std::size_t ListBox::NewIndex() const {
  if (!sorted_) return lastAddedIndex_;
  Settle();
  return IndexOfArrival(arrivals_);
}

void ListBox::AddItemAt(std::string text, std::size_t index) {
  if (sorted_ || index > ListCount()) return;
  Settle();
  const auto at = rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(index),
                               MakeRow(std::move(text), false));
  Index(*at);
  settled_ = rows_.size();
  lastAddedIndex_ = index;
  if (listIndex_ >= static_cast<int>(index)) ++listIndex_;
  changed.Emit();
}

void ListBox::RemoveItem(std::size_t index) {
  if (index >= ListCount()) return;
  Row& row = At(index);  // now nothing waits to be merged, nor removed in front of it
  row.removed = true;
  Unindex(row);
  if (row.selected) --selectedCount_;
  firstRemoved_ = index;
  ++removedCount_;
  // Removing the current row leaves no current row; any other current row
  // is moved up when the removed rows are dropped.
  if (listIndex_ == static_cast<int>(index)) listIndex_ = -1;
  changed.Emit();
}

void ListBox::Clear() {
  rows_.clear();
  settled_ = 0;
  removedCount_ = 0;
  selectedCount_ = 0;
  keyHashes_.clear();
  std::string().swap(keys_);
  droppedKeyBytes_ = 0;
  sameKeyHashes_.clear();
  listIndex_ = -1;
  changed.Emit();
}

int ListBox::FindExact(std::string_view key) const {
  if (!sorted_) {
    DropRemoved();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (text::CompareIgnoreCase(rows_[i].text, key) == 0) return static_cast<int>(i);
    }
    return -1;
  }
  const std::string sortKey = SortKey(key);
  if (!keyHashes_.contains(Hash(sortKey))) return -1;
  // The first equal row stands behind every row that sorts before it, merged
  // or not. Counting the waiting rows costs a comparison each, a merge about
  // one per row of the list; with hits and misses taking turns, merging once
  // the waiting rows pass the square root of the list keeps both costs low.
  DropRemoved();
  const std::size_t waiting = rows_.size() - settled_;
  if (waiting * waiting > rows_.size()) Settle();
  if (!HoldsKey(sortKey)) return -1;
  return static_cast<int>(CountBefore(sortKey));
}

bool ListBox::HoldsKey(const std::string& key) const {
  const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  const auto below = std::lower_bound(rows_.begin(), settledEnd, key,
                                      [this](const Row& row, const std::string& k) { return Key(row) < k; });
  if (below != settledEnd && Key(*below) == key) return true;
  return std::any_of(settledEnd, rows_.end(), [&](const Row& row) { return Key(row) == key; });
}

void ListBox::SetChecked(std::size_t index, bool checked) { Update(At(index).checked, checked); }

void ListBox::SetSelected(std::size_t index, bool selected) {
  if (Update(At(index).selected, selected)) {
    selected ? ++selectedCount_ : --selectedCount_;
  }
}

void ListBox::SetListIndex(int index) {
  Settle();
  if (index < -1 || index >= static_cast<int>(rows_.size())) return;
  listIndex_ = index;
  changed.Emit();
  Raise(onClick);
}

void ListBox::ClickCheckBox(std::size_t index) {
  Settle();
  if (index >= rows_.size()) return;
  rows_[index].checked = !rows_[index].checked;
  SetListIndex(static_cast<int>(index));
}

}  // namespace tessaly
