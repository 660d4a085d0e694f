#ifndef TESSALY_APP_LAUNCH_WINDOW_INPUT_H_
#define TESSALY_APP_LAUNCH_WINDOW_INPUT_H_

#include <optional>
#include <string>
#include <vector>

#include "machine_wizard.h"

namespace tessaly::launch {

// What a window program's command line gives the wizard. Where the system
// keeps the command line as one text (Windows), that text taken apart as
// FromCommandLineText does. Elsewhere `words`, the shell's words behind the
// program's name: "--command-line TEXT", alone, hands TEXT over so, for
// exact control; any other words are sorted into files and switches against the
// working folder. Nothing, with `refusal` saying why, when a word is
// written as a switch but is none and names nothing that exists.
std::optional<WizardInput> WindowInput(const std::vector<std::string>& words, std::string& refusal);

}  // namespace tessaly::launch

#endif  // TESSALY_APP_LAUNCH_WINDOW_INPUT_H_
