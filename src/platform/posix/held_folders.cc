#include "platform/posix/held_folders.h"

#include <fcntl.h>
#include <string.h>
#include <unistd.h>

namespace tessaly {

HeldFolders::Place HeldFolders::Reach(const std::string& native) {
  const void* slash = memrchr(native.data(), '/', native.size());
  // The root's entries and names without a folder gain nothing.
  if (slash == nullptr || slash == native.data()) return {AT_FDCWD, native.c_str()};
  const auto length = static_cast<std::size_t>(static_cast<const char*>(slash) - native.data());
  const std::string_view folder(native.data(), length);
  const char* name = native.c_str() + length + 1;
  for (std::size_t i = 0; i < held_.size(); ++i) {
    if (held_[i].fd >= 0 && held_[i].folder == folder) {
      lastGiven_ = i;
      return {held_[i].fd, name};
    }
  }
  std::string path(folder);
  const int fd = open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return {AT_FDCWD, native.c_str()};
  struct stat info {};
  if (fstat(fd, &info) != 0 || !IsFolderFirstMet(path, info)) {
    close(fd);
    return {kReplacedFolder, name};
  }
  lastGiven_ = (lastGiven_ + 1) % held_.size();
  Held& slot = held_[lastGiven_];
  if (slot.fd >= 0) close(slot.fd);
  slot.fd = fd;
  slot.folder = std::move(path);
  return {fd, name};
}

bool HeldFolders::IsFolderFirstMet(const std::string& native, const struct stat& info) {
  const FileIdentity identity{static_cast<std::uint64_t>(info.st_dev),
                              static_cast<std::uint64_t>(info.st_ino)};
  return firstMet_.try_emplace(native, identity).first->second == identity;
}

void HeldFolders::Release() {
  for (Held& held : held_) {
    if (held.fd >= 0) close(held.fd);
    held.fd = -1;
    held.folder.clear();
  }
}

}  // namespace tessaly
