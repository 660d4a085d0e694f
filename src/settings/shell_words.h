#ifndef TESSALY_SETTINGS_SHELL_WORDS_H_
#define TESSALY_SETTINGS_SHELL_WORDS_H_

#include <string>
#include <string_view>
#include <vector>

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
// dropped. Relative names count against `currentFolder`, a native absolute
// path.
ShellWords SortShellWords(const std::vector<std::string>& words, std::string_view currentFolder);

// `name` made absolute against `currentFolder`, cleaned of "." and "..",
// in model form. Every byte of the name is kept.
std::string AbsoluteModelPath(std::string_view name, std::string_view currentFolder);

// This process's working folder, or nothing when it cannot be had (then
// relative names stay relative and name no file the wizard finds).
std::string CurrentFolder();

}  // namespace tessaly

#endif  // TESSALY_SETTINGS_SHELL_WORDS_H_
