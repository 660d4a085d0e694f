#ifndef TESSALY_FILES_FOLDER_BROWSER_H_
#define TESSALY_FILES_FOLDER_BROWSER_H_

#include <string>
#include <string_view>

#include "platform/ui.h"

namespace tessaly {

// Asks for a folder, opening on `startFolder` (empty: the browser's own
// choice). The chosen folder's path, or the empty text if cancelled.
std::string BrowseForFolder(Ui& ui, std::string_view title, std::string_view startFolder);

}  // namespace tessaly

#endif  // TESSALY_FILES_FOLDER_BROWSER_H_
