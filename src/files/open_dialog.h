#ifndef TESSALY_FILES_OPEN_DIALOG_H_
#define TESSALY_FILES_OPEN_DIALOG_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/ui.h"

namespace tessaly {

// What "Add Files" asks the open dialog for: every file, one or many,
// shortcuts as themselves, long names.
inline constexpr std::string_view kAllFilesFilter = "*.*|*.*";
inline constexpr std::uint32_t kAddFilesFlags = 0x382204;

// Shows the open dialog and gives the chosen path, or the chosen paths
// joined by ";", or the empty text when it was cancelled or failed.
std::string ShowOpenDialog(Ui& ui, std::string_view filter, std::string_view defaultExtension,
                           std::string_view initialDirectory, std::uint32_t flags);

// Cuts the piece up to and including the first `separator` off `text` and
// returns it; the empty text, and `text` untouched, when there is none.
std::string NextToken(std::string& text, std::string_view separator);
// The same with a zero character, which the returned piece leaves out.
std::string NextNullPiece(std::string& text);

}  // namespace tessaly

#endif  // TESSALY_FILES_OPEN_DIALOG_H_
