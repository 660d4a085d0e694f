#include "platform/posix/owned_hive_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "platform/posix/unique_fd.h"
#include "platform/registry.h"
#include "text/visible_text.h"

namespace tessaly {

namespace {

long CodeForErrno(int error) {
  if (error == ENOENT) return reg::kNotFound;
  return (error == EACCES || error == EPERM || error == EROFS) ? reg::kAccessDenied
                                                               : reg::kIoFailed;
}

OwnedHiveFile Failed(int error) {
  OwnedHiveFile failed;
  failed.code = CodeForErrno(error);
  return failed;
}

OwnedHiveFile Refused(std::string_view path, std::string_view why) {
  OwnedHiveFile refused;
  refused.code = reg::kAccessDenied;
  refused.refusal = RefusalText(path, why);
  return refused;
}

// The file `name` in `folder`, never reached through a link there: made as
// a new file with `mode` when missing and `create`. -1 with errno set.
int OpenInFolder(int folder, const char* name, bool create, mode_t mode) {
  // A fifo planted under the name must not hang the open.
  constexpr int kExisting = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  constexpr int kNew = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  for (int tries = 0; tries < 2; ++tries) {
    const int fd = openat(folder, name, kExisting);
    if (fd >= 0 || errno != ENOENT || !create) return fd;
    const int made = openat(folder, name, kNew, mode);
    // EEXIST: another process made it meanwhile; open what it made.
    if (made >= 0 || errno != EEXIST) return made;
  }
  return -1;
}

}  // namespace

void SayOnStandardError(const std::string& why) {
  std::cerr << program_invocation_short_name << ": " << text::Visible(why, text::Layout::kNone)
            << '\n';
}

std::string_view Distrust(const struct stat& info) {
  // Whoever else may change it decides what the program does (the update
  // program it starts, for one).
  if (info.st_uid != geteuid() && info.st_uid != 0) return "it belongs to another user";
  if ((info.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
    return "users other than its owner may write to it";
  }
  return {};
}

int ResolvedFolder(const std::string& folder, mode_t mode, bool create, std::string& resolved) {
  char* found = realpath(folder.c_str(), nullptr);
  if (found == nullptr && errno == ENOENT && create) {
    if (const int error = EnsureFolder(folder, mode); error != 0) return error;
    found = realpath(folder.c_str(), nullptr);
  }
  if (found == nullptr) return errno;
  resolved = found;
  std::free(found);
  return 0;
}

OwnedHiveFile OpenOwnedHiveFile(const HiveFile& file, bool create) {
  std::string folder;
  if (const int error = ResolvedFolder(file.folder, file.folderMode, create, folder); error != 0) {
    return Failed(error);
  }
  const UniqueFd folderFd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat info {};
  if (!folderFd || fstat(folderFd.get(), &info) != 0) return Failed(errno);
  if (const auto why = Distrust(info); !why.empty()) return Refused(file.folder, why);

  // The folder, now held, is the one checked; the file is looked for in it.
  const std::string name = file.path.substr(file.path.find_last_of('/') + 1);
  const UniqueFd fd(OpenInFolder(folderFd.get(), name.c_str(), create, file.fileMode));
  if (!fd && errno == ELOOP) return Refused(file.path, "it is a symbolic link");
  if (!fd || fstat(fd.get(), &info) != 0) return Failed(errno);
  if (!S_ISREG(info.st_mode)) return Refused(file.path, "it is not a regular file");
  if (const auto why = Distrust(info); !why.empty()) return Refused(file.path, why);
  OwnedHiveFile owned;
  owned.path = (folder == "/" ? "" : folder) + "/" + name;
  owned.device = info.st_dev;
  owned.inode = info.st_ino;
  return owned;
}

std::string RefusalText(std::string_view path, std::string_view why) {
  std::string text = "not using the settings in ";
  text.append(path).append(": ").append(why);
  return text.append("; running with built-in defaults, storing nothing");
}

bool IsSameFile(const std::string& path, const OwnedHiveFile& owned) {
  struct stat info {};
  return lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
         info.st_dev == owned.device && info.st_ino == owned.inode;
}

}  // namespace tessaly
