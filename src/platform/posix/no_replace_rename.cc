#include "platform/posix/no_replace_rename.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tessaly {

namespace {

PlaceResult FromErrno(int error) {
  switch (error) {
    case EEXIST:
    case ENOTEMPTY:
      return PlaceResult::kTaken;
    case EXDEV:
      return PlaceResult::kCrossDevice;
    default:
      return PlaceResult::kFailed;
  }
}

// The kernel or the file system does not know RENAME_NOREPLACE.
bool NoReplaceUnsupported(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

// The file system makes no hard links (FUSE exFAT answers EPERM).
bool LinksUnsupported(int error) {
  return error == EPERM || error == ENOSYS || error == EOPNOTSUPP;
}

int KernelRenameNoReplace(int fromFolder, const char* from, int toFolder, const char* to) {
  return renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE);
}

int KernelLink(int fromFolder, const char* from, int toFolder, const char* to) {
  return linkat(fromFolder, from, toFolder, to, 0);
}

PlaceResult TestThenRename(int fromFolder, const char* from, int toFolder, const char* to) {
  struct stat info {};
  if (fstatat(toFolder, to, &info, AT_SYMLINK_NOFOLLOW) == 0) return PlaceResult::kTaken;
  if (errno != ENOENT) return PlaceResult::kFailed;
  return renameat(fromFolder, from, toFolder, to) == 0 ? PlaceResult::kDone : FromErrno(errno);
}

PlaceResult LinkThenUnlink(int fromFolder, const char* from, int toFolder, const char* to,
                           const PlacementCalls& calls) {
  if (calls.link(fromFolder, from, toFolder, to) != 0) {
    const int error = errno;
    if (LinksUnsupported(error)) return TestThenRename(fromFolder, from, toFolder, to);
    return FromErrno(error);
  }
  if (unlinkat(fromFolder, from, 0) == 0) return PlaceResult::kDone;
  unlinkat(toFolder, to, 0);
  return PlaceResult::kFailed;
}

}  // namespace

const PlacementCalls kKernelPlacementCalls = {KernelRenameNoReplace, KernelLink};

PlaceResult LinkThenUnlink(const std::string& from, const std::string& to) {
  return LinkThenUnlink(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), kKernelPlacementCalls);
}

PlaceResult RenameWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to,
                                   const PlacementCalls& calls) {
  if (calls.renameNoReplace(fromFolder, from, toFolder, to) == 0) return PlaceResult::kRenamed;
  const int error = errno;
  if (NoReplaceUnsupported(error)) return LinkThenUnlink(fromFolder, from, toFolder, to, calls);
  return FromErrno(error);
}

PlaceResult RenameWithoutReplacing(const std::string& from, const std::string& to) {
  return RenameWithoutReplacing(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str());
}

}  // namespace tessaly
