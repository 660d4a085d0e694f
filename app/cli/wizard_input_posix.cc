// A POSIX shell has split the command line into words: each word that is
// not a switch is a file, put into the list as it is, so no file name
// travels through the command-line text.
#include <fstream>
#include <iostream>

#include "platform/machine.h"
#include "settings/shell_words.h"
#include "usage_text.h"
#include "wizard_input.h"

namespace tessaly::cli {

namespace {

// Adds the names of --files-from; false when the list cannot be read.
bool AddFilesFrom(const Request& request, const WorkingFolder& here, WizardInput& input) {
  std::ifstream file;
  if (*request.filesFrom != "-") {
    file.open(*request.filesFrom, std::ios::binary);
    if (!file) return false;
  }
  std::istream& in = *request.filesFrom == "-" ? std::cin : file;
  for (const std::string& name : ReadFileNames(in, request.nulSeparated)) {
    input.files.push_back(here.Absolute(name));
  }
  return !in.bad();
}

}  // namespace

std::string CommandLineUsage() { return UsageText(); }

std::optional<Request> ReadRequest(int argc, char** argv) {
  // The bytes as given, not decoded: a name need not be in the locale's
  // encoding.
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (words.empty()) return std::nullopt;
  return ReadArguments(words);
}

std::optional<WizardInput> InputFor(const Request& request, std::string& refusal) {
  WizardInput input;
  if (request.commandLine) {
    input.raw = true;
    input.commandLine = *request.commandLine;
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
    if (request.filesFrom && !AddFilesFrom(request, *here, input)) {
      refusal = "cannot read the list of files '" + *request.filesFrom + "'";
      return std::nullopt;
    }
  }
  KeepDryRunToPreview(request, input);
  return input;
}

}  // namespace tessaly::cli
