#include "terminal_ui.h"

#include <cctype>
#include <string>

#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"
#include "text/visible_text.h"
#include "wizard/progress_form.h"

namespace tessaly::cli {

namespace {

std::string AnswerWord(std::string_view text) {
  std::string out;
  for (char c : text) {
    if (c != ' ') out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return out;
}

const char* Mark(bool checked) { return checked ? "[x] " : "[ ] "; }

// A text of the wizard's as the terminal may show it: its line ends as
// line ends, every other control character escaped.
std::string Shown(std::string_view text) {
  std::string shown = text::Visible(text, text::Layout::kLineEnds);
  for (std::size_t cr = shown.find("\r\n"); cr != std::string::npos; cr = shown.find("\r\n", cr)) {
    shown.erase(cr, 1);
  }
  return shown;
}

}  // namespace

MessageAnswer TerminalUi::MessageBox(std::string_view text, MessageButtons buttons,
                                     std::string_view title) {
  progress_.BreakLine();
  if (buttons == MessageButtons::kOk) {
    messages_ << Shown(title) << ": " << Shown(text) << '\n' << std::flush;
    return MessageAnswer::kOk;
  }
  return AskYesNoCancel(Shown(text), Shown(title));
}

MessageAnswer TerminalUi::AskYesNoCancel(std::string_view text, std::string_view title) {
  if (!person_.Reachable()) {
    messages_ << title << ": " << text << '\n'
              << title << ": no terminal to ask, answering No\n"
              << std::flush;
    return MessageAnswer::kNo;
  }
  const std::string prompt =
      std::string(title) + ": " + std::string(text) + " [y]es, [n]o, [c]ancel? ";
  while (true) {
    const std::optional<std::string> answer = person_.Ask(prompt);
    if (!answer) {
      messages_ << '\n' << title << ": no answer, answering No\n" << std::flush;
      return MessageAnswer::kNo;
    }
    const std::string word = AnswerWord(*answer);
    if (word == "y" || word == "yes") return MessageAnswer::kYes;
    if (word == "n" || word == "no") return MessageAnswer::kNo;
    if (word == "c" || word == "cancel") return MessageAnswer::kCancel;
  }
}

void TerminalUi::ShowModal(Form& dialog) {
  progress_.BreakLine();
  out_ << Shown(dialog.caption()) << " (shown only; edit the list in the window):\n";
  if (auto* formatting = dynamic_cast<fUnwantedFormatting*>(&dialog)) {
    for (const FormattingEntry& row : formatting->Rows()) {
      out_ << "  " << Mark(row.checked) << Shown(row.text) << '\n';
    }
  } else if (auto* replace = dynamic_cast<fReplaceAdvanced*>(&dialog)) {
    for (const ReplaceEntry& row : replace->Rows()) {
      out_ << "  " << Mark(row.checked) << '"' << Shown(row.find) << "\" > \""
           << Shown(row.replacement) << "\"\n";
    }
  }
  out_ << std::flush;
}

void TerminalUi::Show(Form& form) {
  // Only the progress window has something to show on a console; the
  // wizard's own state is reported when the program ends.
  if (form.name() == "fProgress") FollowProgress(form);
}

void TerminalUi::FollowProgress(Form& form) {
  auto* progress = dynamic_cast<fProgress*>(&form);
  if (progress == nullptr) return;
  progress_.Begin();
  // The connections live in the window's own signals, so they go with it.
  auto draw = [this, progress] { progress_.Draw(progress->caption(), progress->lCaption.caption()); };
  progress->changed.Connect(draw).Release();
  progress->lCaption.changed.Connect(draw).Release();
  progress->unloaded.Connect([this] { progress_.End(); }).Release();
}

std::string TerminalUi::BrowseForFolder(std::string_view, std::string_view) { return {}; }

OpenFileAnswer TerminalUi::ShowOpenFileDialog(const OpenFileRequest&) { return {}; }

void TerminalUi::LetPendingEventsRun() {}

}  // namespace tessaly::cli
