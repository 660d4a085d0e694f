#include "files/file_list.h"

#include "files/list_search.h"

namespace tessaly {

AddResult AddToFileList(ListBox& list, std::string path) {
  if (list.HoldsSameEntry(path)) return AddResult::kDuplicate;
  if (list.ListCount() >= kMaxListEntries) return AddResult::kListFull;
  list.AddItem(std::move(path));
  return AddResult::kAdded;
}

void AddTally::Count(AddResult result) {
  switch (result) {
    case AddResult::kAdded:
      ++added;
      break;
    case AddResult::kDuplicate:
      ++duplicates;
      break;
    case AddResult::kListFull:
      ++overLimit;
      break;
  }
}

AddTally AddAllToFileList(ListBox& list, std::vector<std::string> paths) {
  AddTally tally;
  for (std::string& path : paths) tally.Count(AddToFileList(list, std::move(path)));
  return tally;
}

AddTally AddDroppedFiles(ListBox& list, const DropData& data) {
  if (!data.hasFiles) return {};
  AddTally tally;
  for (const std::string& path : data.files) tally.Count(AddToFileList(list, path));
  return tally;
}

void removeSelected(ListBox& removeList) {
  for (std::size_t i = removeList.ListCount(); i-- > 0;) {
    if (!removeList.Selected(i)) continue;
    removeList.RemoveItem(i);
    if (removeList.SelCount() == 0) return;
  }
}

}  // namespace tessaly
