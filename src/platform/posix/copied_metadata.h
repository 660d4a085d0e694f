#ifndef TESSALY_PLATFORM_POSIX_COPIED_METADATA_H_
#define TESSALY_PLATFORM_POSIX_COPIED_METADATA_H_

#include <sys/stat.h>

namespace tessaly {

// Gives the open file `to` what a move keeps of the file `from` (described
// by `info`): owner and group as far as this process may set them, then
// extended attributes, permissions and times. What the target's file system
// cannot hold is left out; nothing here fails the move.
void CopyMetadata(int from, int to, const struct stat& info);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_COPIED_METADATA_H_
