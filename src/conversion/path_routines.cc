#include "conversion/path_routines.h"

#include "platform/program_info.h"

namespace tessaly {

namespace {

constexpr std::string_view kWrongPartMessage =
    "There was an error, please contact Ostrelle as to reagrad a 0026 error. Thank You";

std::size_t NameStart(std::string_view path) {
  const std::size_t slash = path.rfind('\\');
  return slash == std::string_view::npos ? 0 : slash + 1;
}

}  // namespace

std::string_view FolderPart(std::string_view path) { return path.substr(0, NameStart(path)); }

std::string_view NamePart(std::string_view path) { return path.substr(NameStart(path)); }

std::string FileNameOf(std::string_view path, std::int16_t part, Ui& ui) {
  if (part == 1) return std::string(FolderPart(path));
  if (part == 2) return std::string(NamePart(path));
  ui.MessageBox(kWrongPartMessage, MessageButtons::kOk, kProgramTitle);
  return {};
}

std::string_view FileExtensionOf(std::string_view path) {
  const std::size_t decider = path.find_last_of(".:\\");
  if (decider == std::string_view::npos || path[decider] != '.') return {};
  return path.substr(decider + 1);
}

std::string WithTrailingBackslash(std::string_view path) {
  std::string out(path);
  if (out.empty() || out.back() != '\\') out.push_back('\\');
  return out;
}

bool DirectoryExists(std::string_view path, FileSystem& fileSystem) {
  if (path.starts_with("\\\\")) return true;
  if (path.empty()) return false;
  const auto attributes = fileSystem.GetAttributes(path);
  return attributes && (*attributes & attr::kDirectory) != 0;
}

}  // namespace tessaly
