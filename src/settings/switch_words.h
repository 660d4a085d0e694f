#ifndef TESSALY_SETTINGS_SWITCH_WORDS_H_
#define TESSALY_SETTINGS_SWITCH_WORDS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessaly::command_line {

// What one word that a shell split off is to the command line's reading.
enum class WordKind {
  kSwitch,     // one of the program's switches in full, letter case counting
  kBadSwitch,  // written like one, a "/" and a name with no further "/"
               // before any ":", but none of them
  kPath,       // anything else
};

// A placement value may hold neither a double quote nor a switch's text,
// since the reading would take either for something else; such a word is a
// bad switch. "/step:" takes one digit.
WordKind KindOfWord(std::string_view word);

// The switch words as the one text the reading takes: joined by blanks, in
// their order, each placement value in the double quotes the shell took
// away (a value still in its quotes is kept as it is).
std::string SwitchText(const std::vector<std::string>& switchWords);

}  // namespace tessaly::command_line

#endif  // TESSALY_SETTINGS_SWITCH_WORDS_H_
