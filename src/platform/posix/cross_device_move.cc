#include "platform/posix/cross_device_move.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

#include "platform/posix/copied_metadata.h"
#include "platform/posix/no_replace_rename.h"
#include "platform/posix/posix_attributes.h"
#include "platform/posix/unique_fd.h"

namespace tessaly {

namespace {

constexpr std::size_t kBlockSize = 1 << 20;

bool Faulted(const MoveFault& fault, MoveStage stage) { return fault && fault(stage); }

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool WriteAll(int fd, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t written = write(fd, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    data += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

bool CopyData(int from, int to, const MoveFault& fault) {
  std::vector<char> block(kBlockSize);
  for (;;) {
    const ssize_t got = read(from, block.data(), block.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return false;
    if (got == 0) return true;
    if (!WriteAll(to, block.data(), static_cast<std::size_t>(got))) return false;
    if (Faulted(fault, MoveStage::kCopy)) return false;
  }
}

// Fills the copy and flushes it to disk, so that once it has a name it is whole.
bool WriteCopy(int from, int to, const struct stat& info, const MoveFault& fault) {
  if (!CopyData(from, to, fault)) return false;
  CopyMetadata(from, to, info);
  if (Faulted(fault, MoveStage::kSync) || fsync(to) != 0) return false;
  return !Faulted(fault, MoveStage::kPlace);
}

// The file the copy is written to: unnamed where the file system allows it,
// so that nothing half-written ever shows; otherwise a hidden temporary
// name, whose path goes into `tempName`.
int CreateCopyFile(const std::string& folder, std::string& tempName) {
  const int fd = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  if (fd >= 0 || (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)) return fd;
  tempName = (folder == "/" ? "" : folder) + "/.tessaly-move-XXXXXX";
  const int named = mkostemp(tempName.data(), O_CLOEXEC);
  if (named < 0) tempName.clear();
  return named;
}

bool LinkIntoPlace(int fd, const std::string& tempName, const std::string& target) {
  if (!tempName.empty()) return Placed(RenameWithoutReplacing(tempName, target));
  const std::string self = "/proc/self/fd/" + std::to_string(fd);
  if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, target.c_str(), AT_SYMLINK_FOLLOW) == 0) {
    return true;
  }
  // Without /proc, the privileged form is the only other way to name it.
  return errno == ENOENT && linkat(fd, "", AT_FDCWD, target.c_str(), AT_EMPTY_PATH) == 0;
}

void SyncFolder(const std::string& folder) {
  const UniqueFd dir(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (dir) fsync(dir.get());
}

// Opens `path` for reading only when it is a regular file, looked at before
// the open: opening a FIFO waits for a writer, and opening a device can act
// on it. The entry is checked again once open, in case it was swapped.
int OpenRegularFile(const std::string& path, struct stat& info) {
  if (lstat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return -1;
  const int fd = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  struct stat opened {};
  if (fd >= 0 && fstat(fd, &opened) == 0 && S_ISREG(opened.st_mode) &&
      opened.st_dev == info.st_dev && opened.st_ino == info.st_ino) {
    info = opened;
    return fd;
  }
  if (fd >= 0) close(fd);
  return -1;
}

}  // namespace

bool MoveAcrossFileSystems(const std::string& source, const std::string& target,
                           const MoveFault& fault) {
  struct stat info {};
  const UniqueFd in(OpenRegularFile(source, info));
  if (!in) return false;
  const std::string folder = FolderOf(target);
  std::string tempName;
  bool placed = false;
  {
    const UniqueFd out(CreateCopyFile(folder, tempName));
    if (!out) return false;
    placed = WriteCopy(in.get(), out.get(), info, fault) &&
             LinkIntoPlace(out.get(), tempName, target);
  }
  if (!placed) {
    if (!tempName.empty()) unlink(tempName.c_str());
    return false;
  }
  SyncFolder(folder);
  // The source goes only if it is still the file that was copied: another
  // program may have saved a newer version under its name meanwhile.
  struct stat now {};
  if (lstat(source.c_str(), &now) == 0 && VersionFrom(now) == VersionFrom(info)) unlink(source.c_str());
  return true;
}

}  // namespace tessaly
