#ifndef TESSALY_APP_CLI_WIZARD_INPUT_H_
#define TESSALY_APP_CLI_WIZARD_INPUT_H_

#include <optional>
#include <string>
#include <vector>

#include "cli_options.h"

// How the command line reaches the program differs by platform: a POSIX
// shell hands over words, Windows one text. wizard_input_posix.cc and
// wizard_input_win32.cc each read it their way; CMake builds one of them.
namespace tessaly::cli {

// What the wizard is given: the files apart from the switches, or one raw
// text (--command-line, and always on Windows).
struct WizardInput {
  bool raw = false;
  std::vector<std::string> files;
  std::string commandLine;
  bool wouldRename = false;  // for a dry run: the steps were to reach the run
};

// What --help prints: how the command line is written here.
std::string CommandLineUsage();

// The program's options and what they leave for the wizard; nothing when
// the command line is empty.
std::optional<Request> ReadRequest(int argc, char** argv);

// The wizard's input, or nothing with the reason the request cannot be run.
std::optional<WizardInput> InputFor(const Request& request, std::string& refusal);

// For a dry run, stops the steps at the preview and notes whether they were
// to go further.
void KeepDryRunToPreview(const Request& request, WizardInput& input);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_WIZARD_INPUT_H_
