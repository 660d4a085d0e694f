#ifndef TESSALY_SYSTEM_SHELL_FAILURE_H_
#define TESSALY_SYSTEM_SHELL_FAILURE_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly {

// What a refused shell request leaves behind for its caller: an error
// number, where it came from and a text to show if the caller wants to.
struct ShellFailure {
  std::int32_t number = 0;
  std::string source;
  std::string description;
  friend bool operator==(const ShellFailure&, const ShellFailure&) = default;
};

// The report for the shell's failure code `code` (0 to 32) of a request made
// by the program whose file is named `programName`.
ShellFailure ShellFailureFor(std::int32_t code, std::string_view programName);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_SHELL_FAILURE_H_
