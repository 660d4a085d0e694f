#ifndef TESSALY_PLATFORM_WORKING_FOLDER_H_
#define TESSALY_PLATFORM_WORKING_FOLDER_H_

#include <string>
#include <string_view>

namespace tessaly {

// The folder that relative names given to the program count against: the
// process's working folder as it was when this was made.
class WorkingFolder {
 public:
  virtual ~WorkingFolder() = default;
  // `name`, absolute or relative to this folder, as an absolute model path
  // naming the entry the kernel finds under it: "." parts dropped, ".."
  // resolved as the kernel walks it (through links); every byte of the
  // name is kept.
  virtual std::string Absolute(std::string_view name) const = 0;
  // Whether anything at all goes by `name`, a dangling link included.
  virtual bool Holds(std::string_view name) const = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WORKING_FOLDER_H_
