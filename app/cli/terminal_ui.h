#ifndef TESSALY_APP_CLI_TERMINAL_UI_H_
#define TESSALY_APP_CLI_TERMINAL_UI_H_

#include <ostream>

#include "platform/ui.h"
#include "progress_printer.h"
#include "terminal.h"

namespace tessaly::cli {

// The wizard's dialogs on a console. Questions go to `person`; with no one
// to ask, a Yes/No/Cancel question is answered No and the answer is
// reported. Progress windows become a progress line on `messages`, the
// list dialogs print their rows on `out` (they cannot be edited here), and
// the pickers are cancelled. The wizard form itself draws nothing.
class TerminalUi : public Ui {
 public:
  TerminalUi(std::ostream& out, std::ostream& messages, bool messagesToTerminal, Person& person)
      : out_(out), messages_(messages), person_(person), progress_(messages, messagesToTerminal) {}

  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;
  void ShowModal(Form& dialog) override;
  void Show(Form& form) override;
  std::string BrowseForFolder(std::string_view title, std::string_view startFolder) override;
  OpenFileAnswer ShowOpenFileDialog(const OpenFileRequest& request) override;
  void LetPendingEventsRun() override;

 private:
  MessageAnswer AskYesNoCancel(std::string_view text, std::string_view title);
  void FollowProgress(Form& form);

  std::ostream& out_;
  std::ostream& messages_;
  Person& person_;
  ProgressPrinter progress_;
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_TERMINAL_UI_H_
