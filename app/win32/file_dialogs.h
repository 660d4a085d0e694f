#ifndef TESSALY_APP_WIN32_FILE_DIALOGS_H_
#define TESSALY_APP_WIN32_FILE_DIALOGS_H_

#include "windows_h.h"

#include <string>
#include <string_view>

#include "platform/ui.h"

namespace tessaly::win32 {

// The system's open dialog, several files at once, its answer shaped as
// the core reads it.
OpenFileAnswer AskForFiles(HWND owner, const OpenFileRequest& request);

// The system's folder browser, opening on `startFolder` unless it is
// empty; the folder chosen, or the empty text.
std::string AskForFolder(HWND owner, std::string_view title, std::string_view startFolder);

// The desktop filter's "description|pattern|..." as the open dialog takes
// it: pairs of texts, each ending with a zero character, and one more.
std::wstring FilterPairs(std::string_view filter);

// The open dialog's buffer, read: one path, or a folder and its names.
OpenFileAnswer ShapeAnswer(std::wstring_view buffer);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_FILE_DIALOGS_H_
