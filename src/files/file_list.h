#ifndef TESSALY_FILES_FILE_LIST_H_
#define TESSALY_FILES_FILE_LIST_H_

#include <cstddef>
#include <string>
#include <vector>

#include "controls/list_box.h"
#include "files/drop_data.h"

namespace tessaly {

// The file list's count is a signed 16-bit number.
inline constexpr std::size_t kMaxListEntries = 32767;

enum class AddResult { kAdded, kDuplicate, kListFull };

// The one add rule of every source of paths: a path goes in unless the
// list holds the same entry already (see ListBox::SetSameEntryKey), or is
// full. Nothing normalises it.
// A duplicate of a listed path counts as a duplicate even in a full list.
AddResult AddToFileList(ListBox& list, std::string path);

// What a batch of adds came to, so a front-end can say how many paths the
// limit kept out.
struct AddTally {
  std::size_t added = 0;
  std::size_t duplicates = 0;
  std::size_t overLimit = 0;

  void Count(AddResult result);
  friend bool operator==(const AddTally&, const AddTally&) = default;
};

// Applies the add rule to each path in order; a refused path is passed over
// and the next one tried.
AddTally AddAllToFileList(ListBox& list, std::vector<std::string> paths);

// The same for every path a drop carries, whatever each path is (a dropped
// folder becomes an entry of its own, it is not walked). A drop without a
// file list adds nothing. The caller refreshes the count afterwards, once.
AddTally AddDroppedFiles(ListBox& list, const DropData& data);

// Removes every selected entry, from the last one up, and stops as soon as
// no selected entry is left.
void removeSelected(ListBox& removeList);

}  // namespace tessaly

#endif  // TESSALY_FILES_FILE_LIST_H_
