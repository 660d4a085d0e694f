#ifndef TESSALY_FILES_LIST_SEARCH_H_
#define TESSALY_FILES_LIST_SEARCH_H_

#include <string_view>

#include "controls/combo_box.h"
#include "controls/list_box.h"

namespace tessaly {

// Searches a list as the desktop list controls do, ignoring case: `exact`
// wants the whole text, otherwise the first entry that begins with `key`.
// The search starts behind `startIndex` (-1: at the top) and wraps around.
// The index found, or -1.
int FindListEntry(const ListBox& control, std::string_view key, int startIndex, bool exact);
int FindListEntry(const ComboBox& control, std::string_view key, int startIndex, bool exact);

// The entry equal to `searchKey` ignoring case, or -1.
int findInListBox(const ListBox& searchList, std::string_view searchKey);

}  // namespace tessaly

#endif  // TESSALY_FILES_LIST_SEARCH_H_
