#include "settings/shell_words.h"

#include <filesystem>

#include "platform/path_forms.h"
#include "settings/switch_words.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

// Whether `path` holds a "." or ".." part or an empty one, which the
// absolute form leaves out.
bool HasDotOrEmptyParts(std::string_view path) {
  for (std::size_t start = 0; start <= path.size();) {
    std::size_t end = path.find('/', start);
    if (end == std::string_view::npos) end = path.size();
    const std::string_view part = path.substr(start, end - start);
    if ((part.empty() && start > 0 && end < path.size()) || part == "." || part == "..") return true;
    start = end + 1;
  }
  return false;
}

std::string Absolute(std::string_view name, std::string_view currentFolder) {
  // A shell's glob gives many words like "./name": the common forms are
  // joined by hand, the rest normalised by the library.
  while (name.starts_with("./")) name.remove_prefix(2);
  std::string joined;
  if (!name.starts_with('/')) {
    joined.reserve(currentFolder.size() + 1 + name.size());
    joined = currentFolder;
    if (joined.empty() || joined.back() != '/') joined += '/';
  }
  joined += name;
  if (!HasDotOrEmptyParts(joined)) return joined;
  return fs::path(std::move(joined)).lexically_normal().native();
}

// Anything at all under that name, a dangling link included.
bool Exists(std::string_view name, std::string_view currentFolder) {
  std::error_code error;
  return fs::symlink_status(fs::path(Absolute(name, currentFolder)), error).type() !=
         fs::file_type::not_found;
}

}  // namespace

std::string AbsoluteModelPath(std::string_view name, std::string_view currentFolder) {
  return SwapSlashes(Absolute(name, currentFolder));
}

std::string CurrentFolder() {
  std::error_code error;
  const fs::path here = fs::current_path(error);
  return error ? std::string() : here.native();
}

ShellWords SortShellWords(const std::vector<std::string>& words, std::string_view currentFolder) {
  using command_line::WordKind;
  ShellWords sorted;
  std::vector<std::string> switches;
  bool switchesEnded = false;
  for (const std::string& word : words) {
    if (word.empty()) continue;
    if (!switchesEnded && word == "--") {
      switchesEnded = true;
      continue;
    }
    const WordKind kind = switchesEnded ? WordKind::kPath : command_line::KindOfWord(word);
    if (kind == WordKind::kPath || Exists(word, currentFolder)) {
      sorted.files.push_back(AbsoluteModelPath(word, currentFolder));
    } else if (kind == WordKind::kSwitch) {
      switches.push_back(word);
    } else {
      return {{}, {}, word};
    }
  }
  sorted.switches = command_line::SwitchText(switches);
  return sorted;
}

}  // namespace tessaly
