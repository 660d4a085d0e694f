#include "controls/list_box.h"

#include <algorithm>
#include <cstring>

#include "text/ascii_fold.h"
#include "text/text_ops.h"
#include "text/utf8.h"

namespace tessaly {

namespace {

// Two keys are equal exactly when CompareIgnoreCase calls their texts equal,
// and compare as bytes the way it compares the texts, but without decoding
// and folding at every comparison.
std::string SortKey(std::string_view text) {
  std::string key;
  if (text::FoldAscii(text, key)) return key;
  key.clear();
  key.reserve(text.size());
  for (char32_t code : text::Fold(text)) text::AppendUtf8Layout(key, code);
  return key;
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

unsigned FoldedByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return static_cast<unsigned>(byte - 'A') < 26u ? byte + 32u : byte;
}

// Orders sort keys, either of which may be a text of plain ASCII standing
// for its own key. Folding a sort key changes none of its bytes, so both
// sides are folded byte by byte, and bytes equal before folding are equal
// after it: the long common start of paths in one folder goes by eight
// bytes at a time.
int KeyOrder(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  for (std::size_t i = 0;; ++i) {
    while (i + 8 <= common && std::memcmp(a.data() + i, b.data() + i, 8) == 0) i += 8;
    while (i < common && a[i] == b[i]) ++i;
    if (i == common) break;
    const unsigned x = FoldedByte(a[i]);
    const unsigned y = FoldedByte(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

// The same for a sort key and the ASCII text that stands for it.
std::size_t KeyHash(std::string_view key) {
  std::uint64_t hash = 14695981039346656037ull;  // FNV-1a
  for (const char c : key) hash = (hash ^ FoldedByte(c)) * 1099511628211ull;
  return static_cast<std::size_t>(hash);
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
    if (row.removed) CountDropped(row);
  }
  RepackIfWasteful(nullptr);
  rows_.erase(std::remove_if(rows_.begin(), rows_.end(), isRemoved), rows_.end());
  // A removal merges first, so every removed row stood in the merged part.
  settled_ -= removedCount_;
  removedCount_ = 0;
}

void ListBox::Settle() const {
  DropRemoved();
  if (settled_ == rows_.size()) return;
  const std::uint32_t current = listIndex_ >= 0 ? rows_[listIndex_].arrival : 0;
  const auto byKey = [this](const Row& a, const Row& b) { return KeyLess(a, b); };
  const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  // Both steps are stable: rows equal ignoring case keep the order they came
  // in, old before new, as if each had been put after its equals when added.
  std::stable_sort(middle, rows_.end(), byKey);
  std::inplace_merge(rows_.begin(), middle, rows_.end(), byKey);
  settled_ = rows_.size();
  if (listIndex_ >= 0) listIndex_ = static_cast<int>(IndexOfArrival(current));
}

bool ListBox::KeyLess(const Row& a, const Row& b) const { return KeyOrder(Key(a), Key(b)) < 0; }

std::size_t ListBox::CountBefore(std::string_view key) const {
  const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  const auto before = [this](const Row& row, std::string_view k) { return KeyOrder(Key(row), k) < 0; };
  const auto below = std::lower_bound(rows_.begin(), settledEnd, key, before);
  const auto waiting = std::count_if(settledEnd, rows_.end(), [&](const Row& row) { return before(row, key); });
  return static_cast<std::size_t>(below - rows_.begin()) + static_cast<std::size_t>(waiting);
}

std::size_t ListBox::IndexOfArrival(std::uint32_t arrival) const {
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
  const auto at = std::upper_bound(rows_.begin(), rows_.end(), row,
                                   [this](const Row& a, const Row& b) { return KeyLess(a, b); });
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

}  // namespace

ListBox::Row ListBox::MakeRow(std::string_view text, bool sortKey) {
  Row row{static_cast<std::uint32_t>(texts_.size()), static_cast<std::uint32_t>(text.size()), 0, 0,
          ++arrivals_, false, false, false, false};
  texts_ += text;
  if (sortKey && !IsAscii(text)) {
    const std::string key = SortKey(text);
    row.keyAt = static_cast<std::uint32_t>(keys_.size());
    row.keyLength = static_cast<std::uint32_t>(key.size());
    row.ownKey = true;
    keys_ += key;
  }
  return row;
}

namespace {

// Copies the bytes that each row but `gone` and the removed ones has in
// `arena`, where its members `at` and `length` say, to a new arena.
template <typename Row>
void Repack(std::vector<Row>& rows, const Row* gone, std::uint32_t Row::*at,
            std::uint32_t Row::*length, std::string& arena, std::size_t& dropped) {
  const auto keeps = [gone](const Row& row) { return &row != gone && !row.removed; };
  std::size_t bytes = 0;
  for (const Row& row : rows) bytes += keeps(row) ? row.*length : 0;
  std::string kept;
  kept.reserve(bytes);
  for (Row& row : rows) {
    if (!keeps(row)) continue;
    const std::string_view bytes = std::string_view(arena).substr(row.*at, row.*length);
    row.*at = static_cast<std::uint32_t>(kept.size());
    kept += bytes;
  }
  arena.swap(kept);
  dropped = 0;
}

}  // namespace

void ListBox::CountDropped(const Row& row) const {
  droppedTextBytes_ += row.textLength;
  droppedKeyBytes_ += row.keyLength;
}

void ListBox::RepackIfWasteful(const Row* gone) const {
  if (droppedTextBytes_ > texts_.size() / 2) {
    Repack(rows_, gone, &Row::textAt, &Row::textLength, texts_, droppedTextBytes_);
  }
  if (droppedKeyBytes_ > keys_.size() / 2) {
    Repack(rows_, gone, &Row::keyAt, &Row::keyLength, keys_, droppedKeyBytes_);
  }
}

void ListBox::Reserve(std::size_t rows, std::size_t textBytes) {
  rows_.reserve(rows_.size() + rows);
  texts_.reserve(texts_.size() + textBytes);
}

void ListBox::Index(const Row& row) {
  if (keysCounted_) keyHashes_.Add(KeyHash(Key(row)));
  // Made afresh rather than kept in the row: a row is indexed and
  // unindexed about once, and the key is often the text itself.
  if (sameEntryKey_) sameKeyHashes_.Add(Hash(sameEntryKey_(Text(row))));
}

void ListBox::Unindex(const Row& row) {
  if (keysCounted_) keyHashes_.Remove(KeyHash(Key(row)));
  if (sameEntryKey_) sameKeyHashes_.Remove(Hash(sameEntryKey_(Text(row))));
}

void ListBox::CountKeys() const {
  if (keysCounted_) return;
  for (const Row& row : rows_) {
    if (!row.removed) keyHashes_.Add(KeyHash(Key(row)));
  }
  keysCounted_ = true;
}

bool ListBox::HoldsSameEntry(std::string_view text) const {
  if (!sameEntryKey_) return FindExact(text) != -1;
  const std::string key = sameEntryKey_(text);
  if (!sameKeyHashes_.Contains(Hash(key))) return false;
  DropRemoved();
  const auto same = [&](const Row& row) { return sameEntryKey_(Text(row)) == key; };
  if (sorted_) {
    // Where the same entry mostly stands: among the rows equal to the text
    // ignoring case, merged or waiting.
    const std::string sortKey = SortKey(text);
    const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
    const std::string_view probe = sortKey;
    const auto first = std::lower_bound(rows_.begin(), settledEnd, probe, [this](const Row& row, std::string_view k) {
      return KeyOrder(Key(row), k) < 0;
    });
    const auto last = std::upper_bound(first, settledEnd, probe, [this](std::string_view k, const Row& row) {
      return KeyOrder(k, Key(row)) < 0;
    });
    if (std::any_of(first, last, same)) return true;
    if (std::any_of(settledEnd, rows_.end(),
                    [&](const Row& row) { return KeyOrder(Key(row), probe) == 0 && same(row); })) {
      return true;
    }
  }
  return std::any_of(rows_.begin(), rows_.end(), same);
}

void ListBox::SetList(std::size_t index, std::string text) {
  Settle();
  Row& row = rows_.at(index);
  Unindex(row);
  // Before the new bytes go in, which a tidying would not move.
  CountDropped(row);
  RepackIfWasteful(&row);
  const Row fresh = MakeRow(text, sorted_);
  row.textAt = fresh.textAt;
  row.textLength = fresh.textLength;
  row.keyAt = fresh.keyAt;
  row.keyLength = fresh.keyLength;
  row.ownKey = fresh.ownKey;
  Index(row);
  // Left where it was, the row would break the order every look-up relies on.
  if (sorted_) MoveToSortedPlace(index);
  changed.Emit();
}

void ListBox::AddItem(std::string text) {
  if (!sorted_) Settle();  // so that the new row's index is final
  rows_.push_back(MakeRow(text, sorted_));
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
                               MakeRow(text, false));
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
  keyHashes_.Clear();
  keysCounted_ = false;
  // Its room kept, as the rows' is: a list cleared is mostly filled again
  // with about as much, as the preview is.
  texts_.clear();
  droppedTextBytes_ = 0;
  std::string().swap(keys_);
  droppedKeyBytes_ = 0;
  sameKeyHashes_.Clear();
  listIndex_ = -1;
  changed.Emit();
}

int ListBox::FindExact(std::string_view key) const {
  if (!sorted_) {
    DropRemoved();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (text::CompareIgnoreCase(Text(rows_[i]), key) == 0) return static_cast<int>(i);
    }
    return -1;
  }
  const std::string sortKey = SortKey(key);
  CountKeys();
  if (!keyHashes_.Contains(KeyHash(sortKey))) return -1;
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

bool ListBox::HoldsKey(std::string_view key) const {
  const auto settledEnd = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  const auto below = std::lower_bound(rows_.begin(), settledEnd, key, [this](const Row& row, std::string_view k) {
    return KeyOrder(Key(row), k) < 0;
  });
  if (below != settledEnd && KeyOrder(Key(*below), key) == 0) return true;
  return std::any_of(settledEnd, rows_.end(), [&](const Row& row) { return KeyOrder(Key(row), key) == 0; });
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
