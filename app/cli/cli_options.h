#ifndef TESSALY_APP_CLI_CLI_OPTIONS_H_
#define TESSALY_APP_CLI_CLI_OPTIONS_H_

#include <cstddef>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly::cli {

// What the words behind the program's name ask for.
struct Request {
  enum class Kind { kRun, kHelp, kVersion, kError };
  Kind kind = Kind::kRun;
  bool dryRun = false;        // -n, --dry-run
  bool json = false;          // --json
  bool nulSeparated = false;  // -0, --null: --files-from is split at NUL bytes
  bool undo = false;          // --undo: take back a run (named by the word left)
  bool listRuns = false;      // --list-runs
  bool recursive = false;     // -r, --recursive: a folder brings its sub-folders' files too
  bool verbose = false;       // -v, --verbose: a dry run shows unchanged files too
  std::optional<std::string> filesFrom;    // --files-from FILE ("-": standard input)
  std::optional<std::string> commandLine;  // --command-line TEXT, read unchanged
  std::vector<std::string> words;          // files and switches, "--" kept
  std::string error;                       // for kError: what was wrong
};

// Whether an entry of that name exists, relative names in the current folder.
using NamesAnEntry = std::function<bool(const std::string& name)>;

// Reads the options: "--help" (or "-h") and "--version" ask for those
// texts; "--" ends the options and stays in `words` for the switches' end;
// short options may be bundled ("-n0"). A word is an option only when no
// entry of its name exists (as `exists` tells), so a name that a glob
// brings in stays a file. Any other word beginning with "-" before "--" is
// an error, so is "--command-line" beside files or switches. Every other
// word goes to `words`.
Request ReadArguments(const std::vector<std::string>& words, const NamesAnEntry& exists = {});

// Reads the options at the front of a command line that arrives as one
// text (Windows): words up to the first blank, each read as ReadArguments
// reads it, until the first word that does not begin with "-" or behind
// "--"; the value of --files-from may be quoted. The text from there on is
// the wizard's command line, unchanged; --command-line is refused, since
// the text is that command line already.
Request ReadWholeCommandLine(std::string_view text);

// The names of a --files-from list: one a line (a CR before the line end
// taken off, as a list written on Windows ends its lines), or each ended
// by a NUL byte; empty ones are skipped, every other byte is kept. Nothing
// when the list runs on for more than `longest` bytes without a name
// ending (as /dev/zero does): no path is that long.
std::optional<std::vector<std::string>> ReadFileNames(std::istream& in, bool nulSeparated,
                                                      std::size_t longest);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_CLI_OPTIONS_H_
