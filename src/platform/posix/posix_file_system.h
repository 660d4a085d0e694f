#ifndef TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_

#include "platform/file_system.h"

namespace tessaly {

// The real file system of a POSIX machine, seen through model paths.
class PosixFileSystem : public FileSystem {
 public:
  std::optional<std::uint32_t> GetAttributes(std::string_view path) override;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_
