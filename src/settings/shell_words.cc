#include "settings/shell_words.h"

#include "settings/switch_words.h"

namespace tessaly {

ShellWords SortShellWords(const std::vector<std::string>& words, const WorkingFolder& here) {
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
    if (kind == WordKind::kPath || here.Holds(word)) {
      sorted.files.push_back(here.Absolute(word));
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
