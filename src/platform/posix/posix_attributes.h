#ifndef TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_
#define TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_

#include <sys/stat.h>

#include <cstdint>
#include <string_view>

#include "platform/file_system.h"

namespace tessaly {

// The version of the entry with status `info`, times in nanoseconds.
FileVersion VersionFrom(const struct stat& info);

// The desktop attribute bits of the entry `name` with status `info`:
// directory; hidden for a name that begins with "."; system for anything
// neither a regular file nor a directory; read-only where the owner may
// not write; archive when none of these applies.
std::uint32_t AttributesOf(std::string_view name, const struct stat& info);

// The status that attributes are read from: that of what a link points to,
// or of the link itself when it points nowhere. `own` is the entry's lstat;
// `dirFd` and `name` name the entry as for fstatat.
struct stat FollowLink(int dirFd, const char* name, const struct stat& own);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_
