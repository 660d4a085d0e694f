#include "platform/posix/no_replace_rename.h"

#include <fcntl.h>
#include <stdio.h>
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

}  // namespace

PlaceResult LinkThenUnlink(int fromFolder, const char* from, int toFolder, const char* to) {
  if (linkat(fromFolder, from, toFolder, to, 0) != 0) return FromErrno(errno);
  if (unlinkat(fromFolder, from, 0) == 0) return PlaceResult::kDone;
  unlinkat(toFolder, to, 0);
  return PlaceResult::kFailed;
}

PlaceResult LinkThenUnlink(const std::string& from, const std::string& to) {
  return LinkThenUnlink(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str());
}

PlaceResult RenameWithoutReplacing(int fromFolder, const char* from, int toFolder,
                                   const char* to) {
  if (renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) return PlaceResult::kDone;
  const int error = errno;
  if (NoReplaceUnsupported(error)) return LinkThenUnlink(fromFolder, from, toFolder, to);
  return FromErrno(error);
}

PlaceResult RenameWithoutReplacing(const std::string& from, const std::string& to) {
  return RenameWithoutReplacing(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str());
}

}  // namespace tessaly
