#include "window_input.h"

#include "command_line_input.h"
#include "platform/machine.h"
#include "settings/shell_words.h"
#include "text/visible_text.h"

namespace tessaly::launch {

std::optional<WizardInput> WindowInput(const std::vector<std::string>& words,
                                       std::string& refusal) {
  if (std::optional<std::string> whole = machine::WholeCommandLine()) {
    return FromCommandLineText(*whole);
  }
  if (words.size() == 2 && words[0] == "--command-line") return FromCommandLineText(words[1]);
  ShellWords sorted = SortShellWords(words, *machine::MakeWorkingFolder());
  if (!sorted.badSwitch.empty()) {
    const std::string word = text::Visible(sorted.badSwitch, text::Layout::kNone);
    refusal = "'" + word + "' is not a switch, and no file or folder of that name exists";
    return std::nullopt;
  }
  return WizardInput{std::move(sorted.files), std::move(sorted.switches)};
}

}  // namespace tessaly::launch
