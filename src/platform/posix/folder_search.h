#ifndef TESSALY_PLATFORM_POSIX_FOLDER_SEARCH_H_
#define TESSALY_PLATFORM_POSIX_FOLDER_SEARCH_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace tessaly {

// The entries of the native folder `folder` whose model names match the
// wildcard `namePattern` and pass the search filter for `include`, in the
// order the folder gives them. Empty if the folder cannot be read.
std::vector<DirectoryEntry> SearchFolder(const std::string& folder, std::string_view namePattern,
                                         std::uint32_t include);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_FOLDER_SEARCH_H_
