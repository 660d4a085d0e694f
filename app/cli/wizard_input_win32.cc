// Windows keeps the command line as one text: the program's options come
// off its front and the rest goes to the wizard unchanged, never rebuilt
// from the C runtime's argv; only its file part is taken apart, so that
// relative paths count against the current folder. A list of files
// (--files-from) goes into the wizard's list too, for more files than a
// command line holds.
#include <filesystem>
#include <fstream>

#include "platform/machine.h"
#include "usage_text.h"
#include "wizard_input.h"

namespace tessaly::cli {

namespace {

// Adds the names of --files-from; false, with the reason, when the list
// cannot be read or is none.
bool AddFilesFrom(const Request& request, WizardInput& input, std::string& refusal) {
  const auto names = ReadList(request, refusal);
  if (!names) return false;
  for (const std::string& name : *names) input.files.push_back(machine::AbsolutePath(name));
  return true;
}

}  // namespace

// As bytes: the reading takes a CR before a line end off itself.
std::ifstream OpenList(const std::string& name) {
  return std::ifstream(std::filesystem::path(std::u8string(name.begin(), name.end())),
                       std::ios::binary);
}

std::string CommandLineUsage() { return WholeCommandLineUsageText(); }

std::optional<Request> ReadRequest(int, char**) {
  const std::string text = machine::WholeCommandLine().value_or("");
  if (text.find_first_not_of(" \t") == std::string::npos) return std::nullopt;
  return ReadWholeCommandLine(text);
}

std::optional<WizardInput> InputFor(const Request& request, std::string& refusal) {
  WizardInput input;
  TakeFilePartApart(request.commandLine.value_or(""), input);
  if (request.filesFrom && !AddFilesFrom(request, input, refusal)) return std::nullopt;
  LeaveOutWhatNamesNoFile(input);
  return input;
}

}  // namespace tessaly::cli
