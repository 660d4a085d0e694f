#ifndef TESSALY_APP_LAUNCH_COMMAND_LINE_INPUT_H_
#define TESSALY_APP_LAUNCH_COMMAND_LINE_INPUT_H_

#include <string_view>

#include "machine_wizard.h"

namespace tessaly::launch {

// A whole command-line text taken apart the way the wizard reads it: the
// paths of its file part (the text before its first "/"), each relative
// one made absolute against the current folder as a shell word is, and
// the rest as the switches. A file part of quotes alone still counts as
// given (an empty path, which names no file).
WizardInput FromCommandLineText(std::string_view text);

}  // namespace tessaly::launch

#endif  // TESSALY_APP_LAUNCH_COMMAND_LINE_INPUT_H_
