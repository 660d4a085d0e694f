// Windows keeps the command line as one text: the program's options come
// off its front and the rest goes to the wizard unchanged, never rebuilt
// from the C runtime's argv. A list of files (--files-from) goes into the
// wizard's list apart from that text, for more files than a command line
// holds.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "platform/machine.h"
#include "usage_text.h"
#include "wizard_input.h"

namespace tessaly::cli {

namespace {

// Adds the names of --files-from; false when the list cannot be read. Text
// mode, unless names end with NUL, so a CR LF line end is a line end.
bool AddFilesFrom(const Request& request, WizardInput& input) {
  const std::string& list = *request.filesFrom;
  std::ifstream file;
  if (list != "-") {
    const auto mode = request.nulSeparated ? std::ios::binary : std::ios::in;
    file.open(std::filesystem::path(std::u8string(list.begin(), list.end())), mode);
    if (!file) return false;
  }
  std::istream& in = list == "-" ? std::cin : file;
  for (const std::string& name : ReadFileNames(in, request.nulSeparated)) {
    input.files.push_back(machine::AbsolutePath(name));
  }
  return !in.bad();
}

}  // namespace

std::string CommandLineUsage() { return WholeCommandLineUsageText(); }

std::optional<Request> ReadRequest(int, char**) {
  const std::string text = machine::WholeCommandLine().value_or("");
  if (text.find_first_not_of(" \t") == std::string::npos) return std::nullopt;
  return ReadWholeCommandLine(text);
}

std::optional<WizardInput> InputFor(const Request& request, std::string& refusal) {
  WizardInput input;
  input.commandLine = request.commandLine.value_or("");
  if (request.filesFrom) {
    if (!AddFilesFrom(request, input)) {
      refusal = "cannot read the list of files '" + *request.filesFrom + "'";
      return std::nullopt;
    }
  } else {
    input.raw = true;
  }
  KeepDryRunToPreview(request, input);
  return input;
}

}  // namespace tessaly::cli
