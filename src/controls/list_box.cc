#include "controls/list_box.h"

#include <algorithm>

#include "text/text_ops.h"

namespace tessaly {

namespace {

bool Before(const std::string& a, const std::string& b) {
  return text::CompareIgnoreCase(a, b) < 0;
}

}  // namespace

void ListBox::Settle() const {
  if (settled_ == rows_.size()) return;
  const std::uint64_t current = listIndex_ >= 0 ? rows_[listIndex_].arrival : 0;
  const auto byText = [](const Row& a, const Row& b) { return Before(a.text, b.text); };
  const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(settled_);
  // Stable, so rows equal ignoring case keep the order they came in, as if
  // each had been put after its equals when it was added.
  std::stable_sort(middle, rows_.end(), byText);
  std::inplace_merge(rows_.begin(), middle, rows_.end(), byText);
  settled_ = rows_.size();
  if (listIndex_ >= 0) listIndex_ = static_cast<int>(IndexOfArrival(current));
}

std::size_t ListBox::IndexOfArrival(std::uint64_t arrival) const {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].arrival == arrival) return i;
  }
  return 0;
}

void ListBox::Index(const std::string& text) {
  if (sorted_) ++folded_[text::Fold(text)];
}

void ListBox::Unindex(const std::string& text) {
  if (!sorted_) return;
  const auto found = folded_.find(text::Fold(text));
  if (found != folded_.end() && --found->second == 0) folded_.erase(found);
}

void ListBox::SetList(std::size_t index, std::string text) {
  Row& row = Settled().at(index);
  Unindex(row.text);
  Index(text);
  row.text = std::move(text);
  changed.Emit();
}

void ListBox::AddItem(std::string text) {
  Index(text);
  rows_.push_back(Row{std::move(text), false, false, ++arrivals_});
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
  if (sorted_ || index > rows_.size()) return;
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(index),
               Row{std::move(text), false, false, ++arrivals_});
  settled_ = rows_.size();
  lastAddedIndex_ = index;
  if (listIndex_ >= static_cast<int>(index)) ++listIndex_;
  changed.Emit();
}

void ListBox::RemoveItem(std::size_t index) {
  Settle();
  if (index >= rows_.size()) return;
  Unindex(rows_[index].text);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
  settled_ = rows_.size();
  // Removing the current row leaves no current row.
  if (listIndex_ == static_cast<int>(index)) {
    listIndex_ = -1;
  } else if (listIndex_ > static_cast<int>(index)) {
    --listIndex_;
  }
  changed.Emit();
}

void ListBox::Clear() {
  rows_.clear();
  settled_ = 0;
  folded_.clear();
  listIndex_ = -1;
  changed.Emit();
}

int ListBox::FindExact(std::string_view key) const {
  if (!sorted_) {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (text::CompareIgnoreCase(rows_[i].text, key) == 0) return static_cast<int>(i);
    }
    return -1;
  }
  if (!folded_.contains(text::Fold(key))) return -1;
  Settle();
  const auto found = std::lower_bound(
      rows_.begin(), rows_.end(), key,
      [](const Row& row, std::string_view k) { return text::CompareIgnoreCase(row.text, k) < 0; });
  if (found == rows_.end() || text::CompareIgnoreCase(found->text, key) != 0) return -1;
  return static_cast<int>(found - rows_.begin());
}

void ListBox::SetChecked(std::size_t index, bool checked) {
  Update(Settled().at(index).checked, checked);
}

void ListBox::SetSelected(std::size_t index, bool selected) {
  Update(Settled().at(index).selected, selected);
}

std::size_t ListBox::SelCount() const {
  return static_cast<std::size_t>(
      std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; }));
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
