#include "platform/posix/shell_words.h"

#include <filesystem>

#include "platform/posix/native_path.h"
#include "settings/switch_words.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

fs::path Absolute(std::string_view name, std::string_view currentFolder) {
  fs::path path{std::string(name)};
  if (!path.is_absolute()) path = fs::path(std::string(currentFolder)) / path;
  return path.lexically_normal();
}

// Anything at all under that name, a dangling link included.
bool Exists(std::string_view name, std::string_view currentFolder) {
  std::error_code error;
  return fs::symlink_status(Absolute(name, currentFolder), error).type() !=
         fs::file_type::not_found;
}

}  // namespace

std::string AbsoluteModelPath(std::string_view name, std::string_view currentFolder) {
  return ToModelPath(Absolute(name, currentFolder).native());
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
