// A POSIX shell has split the command line into words: each word that is
// not a switch is a file, put into the list as it is, so no file name
// travels through the command-line text.
#include <filesystem>
#include <fstream>

#include "platform/machine.h"
#include "settings/shell_words.h"
#include "usage_text.h"
#include "wizard_input.h"

namespace tessaly::cli {

namespace {

// Anything under that name in the current folder, a dangling link included.
bool NamesAnything(const std::string& name) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::symlink_status(name, error));
}

// Adds the names of --files-from; false, with the reason, when the list
// cannot be read or is none.
bool AddFilesFrom(const Request& request, const WorkingFolder& here, WizardInput& input,
                  std::string& refusal) {
  const auto names = ReadList(request, refusal);
  if (!names) return false;
  for (const std::string& name : *names) input.files.push_back(here.Absolute(name));
  return true;
}

}  // namespace

std::ifstream OpenList(const std::string& name) { return std::ifstream(name, std::ios::binary); }

std::string CommandLineUsage() { return UsageText(); }

std::optional<Request> ReadRequest(int argc, char** argv) {
  // The bytes as given, not decoded: a name need not be in the locale's
  // encoding.
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty()) return std::nullopt;
  return ReadArguments(words, NamesAnything);
}

std::optional<WizardInput> InputFor(const Request& request, std::string& refusal) {
  WizardInput input;
  if (request.commandLine) {
    TakeFilePartApart(*request.commandLine, input);
  } else {
    const std::unique_ptr<WorkingFolder> here = machine::MakeWorkingFolder();
    ShellWords sorted = SortShellWords(request.words, *here);
    if (!sorted.badSwitch.empty()) {
      refusal = "'" + sorted.badSwitch +
                "' is not a switch (see --help), and no file or folder of that name exists";
      return std::nullopt;
    }
    input.files = std::move(sorted.files);
    input.commandLine = std::move(sorted.switches);
    if (request.filesFrom && !AddFilesFrom(request, *here, input, refusal)) return std::nullopt;
  }
  LeaveOutWhatNamesNoFile(input);
  return input;
}

}  // namespace tessaly::cli
