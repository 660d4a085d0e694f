#include "command_line_input.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/machine.h"
#include "settings/command_line.h"

namespace tessaly::launch {

namespace {

// Whether a path of the file part starts from no root: neither "\" (the
// root, or a network path) nor, where backslashes separate, a drive.
bool IsRelative(std::string_view path) {
  if (path.starts_with('\\')) return false;
  const bool drive = path.size() >= 3 && path[1] == ':' && path[2] == '\\';
  return machine::NamesMayHoldBackslash() || !drive;
}

}  // namespace

WizardInput FromCommandLineText(std::string_view text) {
  WizardInput input;
  // The file part ends at the first "/", so the switches all lie behind it.
  input.commandLine = std::string(text.substr(std::min(text.find('/'), text.size())));
  const std::optional<std::vector<std::string>> paths = command_line::FilePaths(text);
  if (!paths) return input;
  if (paths->empty()) input.files.emplace_back();
  for (const std::string& path : *paths) {
    input.files.push_back(path.empty() || !IsRelative(path)
                              ? path
                              : machine::AbsolutePath(machine::NativePath(path)));
  }
  return input;
}

}  // namespace tessaly::launch
