#include "platform/posix/command_line_text.h"

#include <array>
#include <filesystem>

#include "platform/posix/native_path.h"

namespace tessaly {

namespace {

constexpr std::array<std::string_view, 12> kSwitchLiterals = {
    "/settings:",    "/placement1:", "/placement2:", "/placement3:",
    "/placement4:",  "/placement5:", "/placement6:", "/DefineUnwantedFormatting",
    "/show",         "/step:",       "/exit",        "/hide",
};

// "/placement1:" to "/placement6:" are all this long.
constexpr std::size_t kPlacementLiteralLength = 12;

bool IsPlacementWord(std::string_view word) {
  return word.starts_with("/placement") && word.size() >= kPlacementLiteralLength &&
         word[10] >= '1' && word[10] <= '6' && word[11] == ':';
}

// The shell has taken the quotes of `/placement2:"(none)"` away; the wizard
// reads a value only behind a quote, so it gets them back. A value that
// still begins with a quote was escaped through the shell and stays as is.
std::string QuotedPlacement(std::string_view word) {
  const std::string_view value = word.substr(kPlacementLiteralLength);
  if (value.starts_with('"')) return std::string(word);
  std::string out(word.substr(0, kPlacementLiteralLength));
  out += '"';
  out += value;
  out += '"';
  return out;
}

std::string AbsoluteModelPath(std::string_view word, std::string_view currentFolder) {
  std::filesystem::path path{std::string(word)};
  if (!path.is_absolute()) path = std::filesystem::path(std::string(currentFolder)) / path;
  return ToModelPath(path.lexically_normal().string());
}

}  // namespace

bool IsSwitchWord(std::string_view word) {
  for (std::string_view literal : kSwitchLiterals) {
    if (word.starts_with(literal)) return true;
  }
  return false;
}

std::string CommandLineText(const std::vector<std::string>& words, std::string_view currentFolder) {
  std::string files;
  std::string switches;
  for (const std::string& word : words) {
    if (word.empty()) continue;
    if (IsSwitchWord(word)) {
      if (!switches.empty()) switches += ' ';
      switches += IsPlacementWord(word) ? QuotedPlacement(word) : word;
    } else {
      if (!files.empty()) files += ';';
      files += AbsoluteModelPath(word, currentFolder);
    }
  }
  if (files.empty()) return switches;
  if (switches.empty()) return files;
  return files + ' ' + switches;
}

std::string CommandLineTextHere(const std::vector<std::string>& words) {
  std::error_code error;
  const std::filesystem::path here = std::filesystem::current_path(error);
  // Without a working folder relative paths stay relative and are dropped
  // by the wizard as paths that do not exist.
  return CommandLineText(words, error ? std::string_view() : std::string_view(here.native()));
}

}  // namespace tessaly
