// Windows keeps the command line as one text: the program's options come
// off its front and the rest goes to the wizard unchanged, never rebuilt
// from the C runtime's argv.
#include "platform/machine.h"
#include "wizard_input.h"

namespace tessaly::cli {

std::optional<Request> ReadRequest(int, char**) {
  const std::string text = machine::WholeCommandLine().value_or("");
  if (text.find_first_not_of(" \t") == std::string::npos) return std::nullopt;
  return ReadWholeCommandLine(text);
}

std::optional<WizardInput> InputFor(const Request& request, std::string&) {
  WizardInput input;
  input.raw = true;
  input.commandLine = request.commandLine.value_or("");
  KeepDryRunToPreview(request, input);
  return input;
}

}  // namespace tessaly::cli
