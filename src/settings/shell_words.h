#ifndef TESSALY_SETTINGS_SHELL_WORDS_H_
#define TESSALY_SETTINGS_SHELL_WORDS_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/working_folder.h"

namespace tessaly {

// The words behind a program's name as the shell split them, sorted into
// the files and the switch text the wizard takes apart.
struct ShellWords {
  std::vector<std::string> files;  // absolute model paths, in their order
  std::string switches;            // the switch words as one text
  std::string badSwitch;           // when set, a word written as a switch that is
                                   // none; nothing else counts then
};

// A word is a switch when it is one in full and no file or folder of that
// name exists; written like a switch but none, and naming nothing that
// exists, it is a bad switch; anything else is a file. "--" (the first
// one) ends the switches: every word behind it is a file. Empty words are
// dropped. Names are read against `here`.
ShellWords SortShellWords(const std::vector<std::string>& words, const WorkingFolder& here);

}  // namespace tessaly

#endif  // TESSALY_SETTINGS_SHELL_WORDS_H_
