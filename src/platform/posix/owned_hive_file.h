#ifndef TESSALY_PLATFORM_POSIX_OWNED_HIVE_FILE_H_
#define TESSALY_PLATFORM_POSIX_OWNED_HIVE_FILE_H_

#include <sys/stat.h>
#include <sys/types.h>

#include <functional>
#include <string>
#include <string_view>

#include "platform/posix/registry_location.h"
#include "platform/registry.h"

namespace tessaly {

// Told why storage (settings, run journals) is not used.
using StorageNotice = std::function<void(const std::string& why)>;

// Writes `why` on standard error behind the program's name.
void SayOnStandardError(const std::string& why);

// Why a folder or file with `info` may not hold what the program keeps, as
// ssh reasons about ~/.ssh: it belongs to another user (an administrator
// counts as the user), or users other than its owner may write to it.
// Empty when only its owner controls it.
std::string_view Distrust(const struct stat& info);

// `folder` with every link in its path resolved, made first with `mode`
// (and its missing parents) when missing and `create`. 0 or an errno.
int ResolvedFolder(const std::string& folder, mode_t mode, bool create, std::string& resolved);

// A hive's database file, found to be one that only its owner controls.
struct OwnedHiveFile {
  long code = reg::kSuccess;  // or kNotFound, or a failure
  // Why the folder or file is not used (a planted link, another user's,
  // writable by others), as RefusalText says it; empty unless refused.
  std::string refusal;
  std::string path;  // the file's path with no symbolic link in it
  dev_t device = 0;
  ino_t inode = 0;
};

// Checks `file`'s folder and its database file: a folder or file that
// another user owns (an administrator counts as the user) or that its group
// or others may write is refused, as is anything but a regular file under
// the file's name, a symbolic link included. With `create`, missing ones
// are made, the file only as a new one. kNotFound when the file is missing
// and not to be made.
OwnedHiveFile OpenOwnedHiveFile(const HiveFile& file, bool create);

// What a person is told when the settings at `path` are not used because of `why`.
std::string RefusalText(std::string_view path, std::string_view why);

// Whether `path` names, without a link, the file that `owned` found.
bool IsSameFile(const std::string& path, const OwnedHiveFile& owned);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_OWNED_HIVE_FILE_H_
