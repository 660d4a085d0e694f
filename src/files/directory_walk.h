#ifndef TESSALY_FILES_DIRECTORY_WALK_H_
#define TESSALY_FILES_DIRECTORY_WALK_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tessaly {

// The plain files of folder `path` that match any of `patterns` (separated
// by ";"), in the file system's order, pattern by pattern; with `recursive`
// then the whole tree of each subfolder in turn. Hidden and system entries
// are left out, no path comes twice (as the file system tells names apart),
// each folder on disk is entered once however many links lead to it, and a
// folder that cannot be read adds nothing.
std::vector<std::string> ListFiles(FileSystem& fileSystem, std::string path,
                                   std::string_view patterns, bool recursive);

}  // namespace tessaly

#endif  // TESSALY_FILES_DIRECTORY_WALK_H_
