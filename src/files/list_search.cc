#include "files/list_search.h"

#include "text/text_ops.h"

namespace tessaly {

namespace {

bool Matches(std::string_view entry, std::string_view key, bool exact) {
  if (exact) return text::CompareIgnoreCase(entry, key) == 0;
  return text::Fold(entry).starts_with(text::Fold(key));
}

template <typename Entry>
int Search(std::size_t count, Entry entry, std::string_view key, int startIndex, bool exact) {
  if (count == 0) return -1;
  const std::size_t first =
      (startIndex < 0 || static_cast<std::size_t>(startIndex) >= count) ? 0 : startIndex + 1;
  for (std::size_t n = 0; n < count; ++n) {
    const std::size_t i = (first + n) % count;
    if (Matches(entry(i), key, exact)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

int FindListEntry(const ListBox& control, std::string_view key, int startIndex, bool exact) {
  // The common question, a whole text from the top, has a quick answer.
  if (exact && startIndex < 0) return control.FindExact(key);
  return Search(
      control.ListCount(), [&](std::size_t i) -> std::string_view { return control.List(i); }, key,
      startIndex, exact);
}

int FindListEntry(const ComboBox& control, std::string_view key, int startIndex, bool exact) {
  const auto& items = control.items();
  return Search(
      items.size(), [&](std::size_t i) -> std::string_view { return items[i]; }, key, startIndex,
      exact);
}

int findInListBox(const ListBox& searchList, std::string_view searchKey) {
  return FindListEntry(searchList, searchKey, -1, true);
}

}  // namespace tessaly
