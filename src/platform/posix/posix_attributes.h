#ifndef TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_
#define TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_

#include <sys/stat.h>

#include <cstdint>
#include <string_view>

#include "platform/file_system.h"

namespace tessaly {

// The facts of an entry's status that the program reads, a third of the
// size of a struct stat: answers about tens of thousands of entries are
// kept. The mode and link count are named as in struct stat.
struct EntryFacts {
  mode_t st_mode = 0;
  std::uint32_t st_nlink = 0;
  FileVersion version;  // times in nanoseconds

  EntryFacts() = default;
  EntryFacts(const struct stat& info);  // NOLINT: a struct stat is a fuller form of the same facts
};

// The version of the entry with status `info`.
inline FileVersion VersionFrom(const EntryFacts& info) { return info.version; }

// The desktop attribute bits of the entry `name` with status `info`:
// directory; hidden for a name that begins with "."; system for anything
// neither a regular file nor a directory; read-only where the owner may
// not write; archive when none of these applies.
std::uint32_t AttributesOf(std::string_view name, const EntryFacts& info);

// The status that attributes are read from: that of what a link points to,
// or of the link itself when it points nowhere. `own` is the entry's lstat;
// `dirFd` and `name` name the entry as for fstatat.
EntryFacts FollowLink(int dirFd, const char* name, const EntryFacts& own);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_
