#ifndef TESSALY_SYSTEM_SHARED_KEYS_H_
#define TESSALY_SYSTEM_SHARED_KEYS_H_

#include <string_view>

namespace tessaly {

// Keys of the tree that the maker's programs share (under the maker's
// root), where each program keeps one value named by its title.
inline constexpr std::string_view kFileSupportKey = "Common\\ProgramFileSupport";
inline constexpr std::string_view kAssoPathsKey = "Common\\ProgramAssoPaths";
inline constexpr std::string_view kProductRecordKey = "Common\\ProductRecord";
inline constexpr std::string_view kShortPathsKey = "Common\\ProgramShortPaths";
inline constexpr std::string_view kProgramPathsKey = "Common\\ProgramPaths";
inline constexpr std::string_view kWebSitesKey = "Web Sites";

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_SHARED_KEYS_H_
