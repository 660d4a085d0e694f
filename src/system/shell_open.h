#ifndef TESSALY_SYSTEM_SHELL_OPEN_H_
#define TESSALY_SYSTEM_SHELL_OPEN_H_

#include <cstdint>
#include <string_view>

#include "platform/program_info.h"
#include "platform/shell.h"
#include "system/shell_failure.h"

namespace tessaly {

// Show commands of the new window, as the desktop platform numbers them.
namespace show {
inline constexpr std::int32_t kHide = 0;
inline constexpr std::int32_t kNormal = 1;
inline constexpr std::int32_t kDefault = 10;
}  // namespace show

// Asks `shell` to apply `operation` to `file` (a program or a document) and
// does not wait for what it starts. A file whose path holds ".exe" in any
// case starts hidden; with neither parameters nor a directory the request
// always shows normally. True when the shell accepted the request;
// otherwise false, and `failure` (when given) receives the report, sourced
// from `program`'s file name. Shows nothing.
bool ShellOpen(Shell& shell, const RunningProgram& program, std::string_view file,
               std::int32_t showCommand, std::string_view parameters, std::string_view directory,
               std::string_view operation, std::uintptr_t ownerWindow,
               ShellFailure* failure = nullptr);

}  // namespace tessaly

#endif  // TESSALY_SYSTEM_SHELL_OPEN_H_
