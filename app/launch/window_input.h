#ifndef TESSALY_APP_LAUNCH_WINDOW_INPUT_H_
#define TESSALY_APP_LAUNCH_WINDOW_INPUT_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "machine_wizard.h"

namespace tessaly::launch {

// What a window program's command line asks for.
struct WindowRequest {
  enum class Kind { kRun, kHelp, kVersion, kError };
  Kind kind = Kind::kRun;
  WizardInput input;  // kRun: what the wizard is given
  std::string error;  // kError: what was wrong
};

// How many words a toolkit's own option takes at `word` (itself and its
// value, if any); 0 when `word` is none of them.
using ToolkitOption = std::function<int(std::string_view word)>;

// Reads a window program's command line. Where the system keeps it as one
// text (Windows), that text taken apart as FromCommandLineText does.
// Elsewhere `words`, the shell's words behind the program's name: before
// "--", "-h" or "--help" and "--version" ask for those texts, and
// "--command-line TEXT", alone, hands TEXT over unchanged, for exact
// control. Any other word that begins with "-" is an unknown option unless
// it names an entry (then it is a file) or `toolkit` takes it; a word that
// names an entry and is also an option is refused, since either reading
// could be a trap. The rest are sorted into files and switches against the
// working folder; a word written as a switch that is none, and names
// nothing, is an error too.
WindowRequest ReadWindowWords(const std::vector<std::string>& words,
                              const ToolkitOption& toolkit = {});

// What --help prints for the window program.
std::string WindowUsageText();

}  // namespace tessaly::launch

#endif  // TESSALY_APP_LAUNCH_WINDOW_INPUT_H_
