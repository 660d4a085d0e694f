#include "files/file_list.h"

#include "files/list_search.h"

namespace tessaly {

AddResult AddToFileList(ListBox& list, std::string path) {
  if (findInListBox(list, path) != -1) return AddResult::kDuplicate;
  if (list.ListCount() >= kMaxListEntries) return AddResult::kListFull;
  list.AddItem(std::move(path));
  return AddResult::kAdded;
}

void removeSelected(ListBox& removeList) {
  for (std::size_t i = removeList.ListCount(); i-- > 0;) {
    if (!removeList.Selected(i)) continue;
    removeList.RemoveItem(i);
    if (removeList.SelCount() == 0) return;
  }
}

}  // namespace tessaly
