#ifndef TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_
#define TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_

#include <string>

namespace tessaly {

enum class PlaceResult {
  kDone,         // the entry now stands under the new name only
  kTaken,        // the new name was taken; nothing changed
  kCrossDevice,  // the two names lie on different file systems; nothing changed
  kFailed,       // any other failure; nothing changed
};

// Renames native `from` to `to` without ever replacing an entry that stands
// under `to`, even one that appears while this runs. Uses the kernel's
// no-replace rename, and a link-and-unlink where the file system lacks it.
PlaceResult RenameWithoutReplacing(const std::string& from, const std::string& to);
// The same, each name relative to a folder handle (or AT_FDCWD).
PlaceResult RenameWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to);

// The fallback on its own: a hard link under `to` (which fails if `to` is
// taken), then the unlink of `from`. If the unlink fails, the link is
// taken back.
PlaceResult LinkThenUnlink(const std::string& from, const std::string& to);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_
