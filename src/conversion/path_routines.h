#ifndef TESSALY_CONVERSION_PATH_ROUTINES_H_
#define TESSALY_CONVERSION_PATH_ROUTINES_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/ui.h"

namespace tessaly {

// The backslash is the only separator; paths are texts and need not exist.

// Everything up to and including the last backslash; empty without one.
std::string_view FolderPart(std::string_view path);
// Everything behind the last backslash; all of `path` without one.
std::string_view NamePart(std::string_view path);

// Part 1 is FolderPart, part 2 NamePart. Any other part is a wrong call: it
// shows the error message through `ui` and gives the empty text.
std::string FileNameOf(std::string_view path, std::int16_t part, Ui& ui);

// The text behind the last period, if no ":" or backslash stands behind it.
std::string_view FileExtensionOf(std::string_view path);

// `path` with one backslash added unless it already ends in one.
std::string WithTrailingBackslash(std::string_view path);

// A network path ("\\" first) always counts as a folder; anything else
// must exist with the directory attribute. Every failure gives false.
bool DirectoryExists(std::string_view path, FileSystem& fileSystem);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_PATH_ROUTINES_H_
