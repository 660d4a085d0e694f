#ifndef TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_
#define TESSALY_PLATFORM_POSIX_POSIX_ATTRIBUTES_H_

#include <sys/stat.h>

#include <cstdint>
#include <string_view>

#include "platform/file_system.h"

namespace tessaly {

// The facts of an entry's status that the program reads, half the size of
// a struct stat: answers about tens of thousands of entries are kept. The
// members are named as in struct stat, so code reads the same for both.
struct EntryFacts {
  mode_t st_mode = 0;
  nlink_t st_nlink = 0;
  dev_t st_dev = 0;
  ino_t st_ino = 0;
  off_t st_size = 0;
  struct timespec st_mtim {};
  struct timespec st_ctim {};

  EntryFacts() = default;
  EntryFacts(const struct stat& info)  // NOLINT: a struct stat is a fuller form of the same facts
      : st_mode(info.st_mode),
        st_nlink(info.st_nlink),
        st_dev(info.st_dev),
        st_ino(info.st_ino),
        st_size(info.st_size),
        st_mtim(info.st_mtim),
        st_ctim(info.st_ctim) {}
};

// The version of the entry with status `info`, times in nanoseconds.
FileVersion VersionFrom(const EntryFacts& info);

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
