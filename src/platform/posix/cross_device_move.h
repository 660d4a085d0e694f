#ifndef TESSALY_PLATFORM_POSIX_CROSS_DEVICE_MOVE_H_
#define TESSALY_PLATFORM_POSIX_CROSS_DEVICE_MOVE_H_

#include <functional>
#include <string>

namespace tessaly {

// The points of a move between file systems where a test may make it fail.
enum class MoveStage {
  kCopy,   // after each block of data written to the copy
  kSync,   // before the copy is flushed to disk
  kPlace,  // before the copy is linked in under the target name
};

// Answers true to make the move fail at that stage. It may also change the
// disk, say to put a file under the target name.
using MoveFault = std::function<bool(MoveStage)>;

// Moves the regular file `source` to `target` on another file system: copies
// data, owner (where permitted), permissions, extended attributes and times
// into an unnamed file in the target's folder, flushes it, links it in under
// `target` without replacing anything, then removes the source if it is
// still the file that was copied (same inode, size and times as at the
// open). On failure the source is untouched and no copy is left behind. If
// the source has changed meanwhile or cannot be removed, the move still
// counts as done and both files remain, as the desktop platform does. Anything but a regular file fails at
// once without being opened.
bool MoveAcrossFileSystems(const std::string& source, const std::string& target,
                           const MoveFault& fault = nullptr);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_CROSS_DEVICE_MOVE_H_
