#include "platform/posix/posix_attributes.h"

#include <fcntl.h>

#include "platform/file_system.h"

namespace tessaly {

std::uint32_t AttributesOf(std::string_view name, const struct stat& info) {
  std::uint32_t bits = 0;
  if (S_ISDIR(info.st_mode)) {
    bits |= attr::kDirectory;
  } else if (!S_ISREG(info.st_mode)) {
    bits |= attr::kSystem;
  }
  const bool selfOrParent = name == "." || name == "..";
  if (name.starts_with('.') && !selfOrParent) bits |= attr::kHidden;
  if ((info.st_mode & S_IWUSR) == 0) bits |= attr::kReadOnly;
  if (bits == 0) bits = attr::kArchive;
  return bits;
}

struct stat FollowLink(int dirFd, const char* name, const struct stat& own) {
  if (!S_ISLNK(own.st_mode)) return own;
  struct stat target {};
  return fstatat(dirFd, name, &target, 0) == 0 ? target : own;
}

}  // namespace tessaly
