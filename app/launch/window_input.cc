#include "window_input.h"

#include "command_line_input.h"
#include "platform/machine.h"
#include "settings/shell_words.h"

namespace tessaly::launch {

namespace {

using Kind = WindowRequest::Kind;

WindowRequest Error(std::string text) { return {Kind::kError, {}, std::move(text)}; }

bool IsOwnOption(std::string_view word) {
  return word == "-h" || word == "--help" || word == "--version" || word == "--command-line";
}

// Files and switches of `words`, all of them options no more.
WindowRequest SortedWords(const std::vector<std::string>& words, const WorkingFolder& here) {
  ShellWords sorted = SortShellWords(words, here);
  if (!sorted.badSwitch.empty()) {
    return Error("'" + sorted.badSwitch +
                 "' is not a switch, and no file or folder of that name exists");
  }
  return {Kind::kRun, {std::move(sorted.files), std::move(sorted.switches)}, {}};
}

}  // namespace

WindowRequest ReadWindowWords(const std::vector<std::string>& words, const ToolkitOption& toolkit) {
  if (std::optional<std::string> whole = machine::WholeCommandLine()) {
    return {Kind::kRun, FromCommandLineText(*whole), {}};
  }
  if (words.size() == 2 && words[0] == "--command-line") {
    return {Kind::kRun, FromCommandLineText(words[1]), {}};
  }
  const std::unique_ptr<WorkingFolder> here = machine::MakeWorkingFolder();
  std::vector<std::string> rest;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--") {
      rest.insert(rest.end(), words.begin() + static_cast<long>(i), words.end());
      break;
    }
    const bool optionLike = word.size() >= 2 && word[0] == '-';
    if (!optionLike || (here->Holds(word) && !IsOwnOption(word))) {
      rest.push_back(word);
    } else if (here->Holds(word)) {
      return Error("'" + word + "' is an option and also names a file here: write ./" + word +
                   " for the file, or move it");
    } else if (word == "-h" || word == "--help") {
      return {Kind::kHelp, {}, {}};
    } else if (word == "--version") {
      return {Kind::kVersion, {}, {}};
    } else if (word == "--command-line") {
      return Error("--command-line takes the whole command line: give no files or switches beside it");
    } else if (const int taken = toolkit ? toolkit(word) : 0; taken > 0) {
      i += static_cast<std::size_t>(taken) - 1;
    } else {
      return Error("unknown option '" + word + "' (for a file of that name, write ./" + word +
                   " or put it behind --)");
    }
  }
  return SortedWords(rest, *here);
}

std::string WindowUsageText() {
  return "usage: tessaly [OPTION]... [FILE]... [SWITCH]... [-- FILE...]\n"
         "       tessaly --command-line TEXT\n"
         "\n"
         "Opens the rename wizard with each FILE in its list, on File Selection\n"
         "when no SWITCH is given. A folder brings its files (not its sub-folders');\n"
         "a path that names nothing is left out. A word is an OPTION or a SWITCH\n"
         "only when no file or folder of that name exists. The switches are those\n"
         "of tessaly-cli (see tessaly-cli --help): /settings:NAME, /placementN:VALUE,\n"
         "/step:N, /DefineUnwantedFormatting, /show, /hide and /exit.\n"
         "\n"
         "Options:\n"
         "      --command-line TEXT  hand TEXT to the wizard unchanged, as one command\n"
         "                       line: files joined by \";\" before the switches\n"
         "  --                   every word behind it is a file\n"
         "  -h, --help           this text\n"
         "      --version        the program's name and version\n"
         "Qt's own options, such as -platform NAME and -style NAME, are taken too.\n"
         "\n"
         "Exit status: 0 when the wizard ends, 2 for bad usage (then no window\n"
         "opens). Use tessaly-cli where a script needs to know the outcome.\n";
}

}  // namespace tessaly::launch
