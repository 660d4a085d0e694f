#include "controls/list_box.h"

#include <algorithm>

#include "text/text_ops.h"

namespace tessaly {

void ListBox::SetList(std::size_t index, std::string text) {
  rows_.at(index).text = std::move(text);
  changed.Emit();
}

std::size_t ListBox::AddItem(std::string text) {
  auto at = rows_.end();
  if (sorted_) {
    at = std::upper_bound(rows_.begin(), rows_.end(), text, [](const std::string& t, const Row& row) {
      return text::CompareIgnoreCase(t, row.text) < 0;
    });
  }
  const auto index = static_cast<std::size_t>(at - rows_.begin());
  rows_.insert(at, Row{std::move(text)});
  if (listIndex_ >= static_cast<int>(index)) ++listIndex_;
  changed.Emit();
  return index;
}

void ListBox::AddItemAt(std::string text, std::size_t index) {
  if (sorted_ || index > rows_.size()) return;
  rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(index), Row{std::move(text)});
  if (listIndex_ >= static_cast<int>(index)) ++listIndex_;
  changed.Emit();
}

void ListBox::RemoveItem(std::size_t index) {
  if (index >= rows_.size()) return;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(index));
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
  listIndex_ = -1;
  changed.Emit();
}

void ListBox::SetChecked(std::size_t index, bool checked) { Update(rows_.at(index).checked, checked); }

void ListBox::SetSelected(std::size_t index, bool selected) {
  Update(rows_.at(index).selected, selected);
}

void ListBox::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(rows_.size())) return;
  listIndex_ = index;
  changed.Emit();
  Raise(onClick);
}

void ListBox::ClickCheckBox(std::size_t index) {
  if (index >= rows_.size()) return;
  rows_[index].checked = !rows_[index].checked;
  SetListIndex(static_cast<int>(index));
}

}  // namespace tessaly
