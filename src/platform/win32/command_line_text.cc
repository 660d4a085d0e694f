#include "platform/win32/command_line_text.h"

namespace tessaly {

std::string_view TextBehindProgramName(std::string_view commandLine) {
  std::size_t end = 0;
  if (commandLine.starts_with('"')) {
    end = commandLine.find('"', 1);
    end = end == std::string_view::npos ? commandLine.size() : end + 1;
  } else {
    end = commandLine.find_first_of(" \t");
    if (end == std::string_view::npos) end = commandLine.size();
  }
  const std::size_t rest = commandLine.find_first_not_of(" \t", end);
  return rest == std::string_view::npos ? std::string_view() : commandLine.substr(rest);
}

}  // namespace tessaly
