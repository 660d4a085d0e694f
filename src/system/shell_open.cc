#include "system/shell_open.h"

#include <string>

#include "text/case_mapping.h"

namespace tessaly {

namespace {

// The shell's answers up to this one are failure codes.
constexpr std::int32_t kHighestFailureCode = 32;

ShellRequest RequestFor(std::string_view file, std::int32_t showCommand,
                        std::string_view parameters, std::string_view directory,
                        std::string_view operation, std::uintptr_t ownerWindow) {
  // A program is started out of sight: its work shows in its own windows.
  if (text::UpperCase(file).find(".EXE") != std::string::npos) showCommand = show::kHide;
  ShellRequest request{ownerWindow, std::string(operation), std::string(file), {}, {},
                       show::kNormal};
  if (!parameters.empty() || !directory.empty()) {
    request.parameters = std::string(parameters);
    request.directory = std::string(directory);
    request.showCommand = showCommand;
  }
  return request;
}

}  // namespace

bool ShellOpen(Shell& shell, const RunningProgram& program, std::string_view file,
               std::int32_t showCommand, std::string_view parameters, std::string_view directory,
               std::string_view operation, std::uintptr_t ownerWindow, ShellFailure* failure) {
  const std::int32_t answer = shell.Execute(
      RequestFor(file, showCommand, parameters, directory, operation, ownerWindow));
  if (answer < 0 || answer > kHighestFailureCode) return true;
  if (failure != nullptr) *failure = ShellFailureFor(answer, program.FileName());
  return false;
}

}  // namespace tessaly
