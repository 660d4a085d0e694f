#ifndef TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_
#define TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_

#include <string>

namespace tessaly {

enum class PlaceResult {
  kRenamed,      // by the kernel's no-replace rename: in one atomic step, the
                 // entry stood under the new name only
  kDone,         // by a fallback of several steps; the entry now stands under the new name only
  kTaken,        // the new name was taken; nothing changed
  kCrossDevice,  // the two names lie on different file systems; nothing changed
  kFailed,       // any other failure; nothing changed
};

// The kernel calls a placement makes, each answering as the kernel does (0,
// or -1 with errno set). A test stands in for a disk that refuses some.
struct PlacementCalls {
  int (*renameNoReplace)(int fromFolder, const char* from, int toFolder, const char* to);
  int (*link)(int fromFolder, const char* from, int toFolder, const char* to);
};
extern const PlacementCalls kKernelPlacementCalls;

// Renames native `from` to `to` without replacing an entry that stands
// under `to`. Uses the kernel's no-replace rename; where the file system
// lacks it, a hard link under `to` and the unlink of `from`, which cannot
// replace anything either. Where the file system refuses hard links too
// (several FUSE and network file systems), it tests that `to` is free and
// then renames, as `mv -n` does: a file that another program puts under
// `to` between the two calls would then be replaced, a gap this one kind
// of disk leaves open.
PlaceResult RenameWithoutReplacing(const std::string& from, const std::string& to);
// The same, each name relative to a folder handle (or AT_FDCWD).
PlaceResult RenameWithoutReplacing(int fromFolder, const char* from, int toFolder, const char* to,
                                   const PlacementCalls& calls = kKernelPlacementCalls);

// The link-and-unlink way on its own: a hard link under `to` (which fails
// if `to` is taken), then the unlink of `from`. If the unlink fails, the
// link is taken back.
PlaceResult LinkThenUnlink(const std::string& from, const std::string& to);

// Whether a placement moved the entry, either way.
inline bool Placed(PlaceResult result) {
  return result == PlaceResult::kRenamed || result == PlaceResult::kDone;
}

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_NO_REPLACE_RENAME_H_
