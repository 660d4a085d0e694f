#ifndef TESSALY_PLATFORM_POSIX_COMMAND_LINE_TEXT_H_
#define TESSALY_PLATFORM_POSIX_COMMAND_LINE_TEXT_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

// True for a word that begins with one of the wizard's switch literals
// ("/settings:", "/placement1:" to "/placement6:", "/DefineUnwantedFormatting",
// "/show", "/step:", "/exit", "/hide"), letter case counting.
bool IsSwitchWord(std::string_view word);

// Rebuilds the one command-line text the wizard reads from the words the
// shell split. Every word that is not a switch word is a path: made
// absolute against `currentFolder` (a native absolute path), cleaned of "."
// and ".." and put in model form; the paths, joined by ";", come first.
// Behind a blank follow the switch words, joined by blanks, in their order;
// a placement value the shell unquoted gets its double quotes back. Empty
// words are dropped.
std::string CommandLineText(const std::vector<std::string>& words, std::string_view currentFolder);

// The same against this process's working folder.
std::string CommandLineTextHere(const std::vector<std::string>& words);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_COMMAND_LINE_TEXT_H_
