#ifndef TESSALY_APP_CLI_WIZARD_INPUT_H_
#define TESSALY_APP_CLI_WIZARD_INPUT_H_

#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli_options.h"

// How the command line reaches the program differs by platform: a POSIX
// shell hands over words, Windows one text. wizard_input_posix.cc and
// wizard_input_win32.cc each read it their way; CMake builds one of them.
namespace tessaly::cli {

// What the wizard is given: the files apart from the switches.
struct WizardInput {
  std::vector<std::string> files;  // absolute model paths, in their order
  std::string commandLine;         // the switches, as the one text the wizard reads
  std::vector<std::string> tooLong;  // paths left out: longer than the system takes
};

// What --help prints: how the command line is written here.
std::string CommandLineUsage();

// The program's options and what they leave for the wizard; nothing when
// the command line is empty.
std::optional<Request> ReadRequest(int argc, char** argv);

// The wizard's input, or nothing with the reason the request cannot be run.
std::optional<WizardInput> InputFor(const Request& request, std::string& refusal);

// Takes the file part of a raw command line (the text before its first
// "/") into `input`'s files, each relative path made absolute against the
// current folder as a word is, and leaves the rest as the command line.
// A file part of quotes alone still counts as given.
void TakeFilePartApart(std::string_view text, WizardInput& input);

// The --files-from list `name` opened to be read as bytes, by the
// platform's way of naming files.
std::ifstream OpenList(const std::string& name);

// The names of the --files-from list ("-": standard input); nothing, with
// the reason in `refusal`, when it cannot be read or is no list of names.
std::optional<std::vector<std::string>> ReadList(const Request& request, std::string& refusal);

// Leaves out of `input`'s files what can name no file: a path longer than
// the system takes, noted in `tooLong` so it is not lost without a word.
void LeaveOutWhatNamesNoFile(WizardInput& input);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_WIZARD_INPUT_H_
