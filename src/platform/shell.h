#ifndef TESSALY_PLATFORM_SHELL_H_
#define TESSALY_PLATFORM_SHELL_H_

#include <cstdint>
#include <string>

namespace tessaly {

// One request to the system shell: open a document or start a program.
struct ShellRequest {
  std::uintptr_t ownerWindow = 0;  // 0 for none
  std::string operation;           // the verb, such as "open"
  std::string file;
  std::string parameters;  // the command line for a program; may be empty
  std::string directory;   // the working folder; may be empty
  std::int32_t showCommand = 1;  // as the desktop platform numbers them: 0 hide, 1 normal
  friend bool operator==(const ShellRequest&, const ShellRequest&) = default;
};

// Hands requests to the system shell without waiting for what they start.
class Shell {
 public:
  virtual ~Shell() = default;
  // The shell's numeric answer: 0 to 32 is a failure code (2 file not
  // found, 3 path not found, 5 access denied, 31 no association, ...);
  // anything above 32 means the request was accepted.
  virtual std::int32_t Execute(const ShellRequest& request) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_SHELL_H_
