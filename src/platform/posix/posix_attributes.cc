#include "platform/posix/posix_attributes.h"

#include <fcntl.h>

#include "platform/file_system.h"

namespace tessaly {

std::uint32_t AttributesOf(std::string_view name, const EntryFacts& info) {
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

EntryFacts::EntryFacts(const struct stat& info)
    : st_mode(info.st_mode), st_nlink(static_cast<std::uint32_t>(info.st_nlink)) {
  constexpr std::int64_t kBillion = 1'000'000'000;
  version = {{static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)},
             static_cast<std::uint64_t>(info.st_size),
             info.st_mtim.tv_sec * kBillion + info.st_mtim.tv_nsec,
             info.st_ctim.tv_sec * kBillion + info.st_ctim.tv_nsec};
}

EntryFacts FollowLink(int dirFd, const char* name, const EntryFacts& own) {
  if (!S_ISLNK(own.st_mode)) return own;
  struct stat target {};
  return fstatat(dirFd, name, &target, 0) == 0 ? EntryFacts(target) : own;
}

}  // namespace tessaly
