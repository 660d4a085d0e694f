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

PlaceResult LinkThenUnlink(const std::string& from, const std::string& to) {
  if (link(from.c_str(), to.c_str()) != 0) return FromErrno(errno);
  if (unlink(from.c_str()) == 0) return PlaceResult::kDone;
  unlink(to.c_str());
  return PlaceResult::kFailed;
}

PlaceResult RenameWithoutReplacing(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
    return PlaceResult::kDone;
  }
  const int error = errno;
  if (NoReplaceUnsupported(error)) return LinkThenUnlink(from, to);
  return FromErrno(error);
}

}  // namespace tessaly
