#ifndef TESSALY_PLATFORM_POSIX_EXISTING_SHORT_PATHS_H_
#define TESSALY_PLATFORM_POSIX_EXISTING_SHORT_PATHS_H_

#include <string>

#include "platform/file_system.h"
#include "platform/short_path.h"

namespace tessaly {

// Where names have no short form, a path's short form is the path itself,
// provided it names something that exists.
class ExistingShortPaths : public ShortPaths {
 public:
  explicit ExistingShortPaths(FileSystem& fileSystem) : fileSystem_(fileSystem) {}

  std::string ShortPathOf(std::string_view path) override {
    return fileSystem_.GetAttributes(path) ? std::string(path) : std::string();
  }

 private:
  FileSystem& fileSystem_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_EXISTING_SHORT_PATHS_H_
