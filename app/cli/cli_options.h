#ifndef TESSALY_APP_CLI_CLI_OPTIONS_H_
#define TESSALY_APP_CLI_CLI_OPTIONS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tessaly::cli {

// What the words behind the program's name ask for.
struct Request {
  enum class Kind { kRun, kHelp, kError };
  Kind kind = Kind::kRun;
  std::string commandLine;  // for kRun: the text the wizard is given
  std::string error;        // for kError: what was wrong
};

// Reads the words: "--help" (or "-h") asks for the usage; "--command-line
// TEXT", alone, passes TEXT through unchanged; "--" ends the options, so
// that a file whose name begins with "--" can still be given. Any other
// word beginning with "--" before that is an error. The rest is rebuilt
// into one command-line text against `currentFolder`.
Request ReadArguments(const std::vector<std::string>& words, std::string_view currentFolder);

// The short usage that --help prints.
std::string UsageText();

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_CLI_OPTIONS_H_
