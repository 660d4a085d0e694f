#include "settings/command_line.h"

#include "text/text_ops.h"

namespace tessaly::command_line {

std::optional<std::vector<std::string>> FilePaths(std::string_view commandLine) {
  const std::string_view part = text::TrimBlanks(commandLine.substr(0, commandLine.find('/')));
  if (part.empty()) return std::nullopt;
  const std::string unquoted = text::ReplaceAll(part, "\"", "");
  std::vector<std::string> paths;
  for (std::string_view piece : text::Split(unquoted, ";")) paths.emplace_back(piece);
  return paths;
}

std::optional<std::string> PlacementValue(std::string_view commandLine, int number) {
  const std::string opening = "/placement" + std::to_string(number) + ":\"";
  const std::size_t found = commandLine.find(opening);
  if (found == std::string_view::npos) return std::nullopt;
  const std::string_view rest = commandLine.substr(found + opening.size());
  return std::string(rest.substr(0, rest.find('"')));
}

int StepCount(std::string_view commandLine) {
  constexpr std::string_view kStep = "/step:";
  const std::size_t found = commandLine.find(kStep);
  if (found == std::string_view::npos) return 0;
  const std::size_t digit = found + kStep.size();
  if (digit >= commandLine.size()) return 0;
  const char c = commandLine[digit];
  return (c >= '0' && c <= '9') ? c - '0' : 0;
}

}  // namespace tessaly::command_line
