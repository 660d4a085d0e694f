#ifndef TESSALY_FILES_FILE_LIST_H_
#define TESSALY_FILES_FILE_LIST_H_

#include <cstddef>
#include <string>

#include "controls/list_box.h"

namespace tessaly {

// The file list's count is a signed 16-bit number.
inline constexpr std::size_t kMaxListEntries = 32767;

enum class AddResult { kAdded, kDuplicate, kListFull };

// The one add rule of every source of paths: a path goes in unless the
// list holds it already, ignoring case, or is full. Nothing normalises it.
AddResult AddToFileList(ListBox& list, std::string path);

// Removes every selected entry, from the last one up, and stops as soon as
// no selected entry is left.
void removeSelected(ListBox& removeList);

}  // namespace tessaly

#endif  // TESSALY_FILES_FILE_LIST_H_
