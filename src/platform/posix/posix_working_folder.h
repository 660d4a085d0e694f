#ifndef TESSALY_PLATFORM_POSIX_POSIX_WORKING_FOLDER_H_
#define TESSALY_PLATFORM_POSIX_POSIX_WORKING_FOLDER_H_

#include <string>
#include <string_view>

#include "platform/working_folder.h"

namespace tessaly {

// This process's working folder, or nothing when it cannot be had (then
// relative names stay relative and name no file the wizard finds).
std::string CurrentFolder();

// Names as a POSIX shell hands them over, read against `folder`, a native
// absolute path.
class PosixWorkingFolder : public WorkingFolder {
 public:
  explicit PosixWorkingFolder(std::string folder = CurrentFolder()) : folder_(std::move(folder)) {}
  std::string Absolute(std::string_view name) const override;
  bool Holds(std::string_view name) const override;

 private:
  std::string NativeAbsolute(std::string_view name) const;

  std::string folder_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_WORKING_FOLDER_H_
