#include "win32_ui.h"

#include "dialog_window.h"
#include "file_dialogs.h"
#include "lists/replace_advanced.h"
#include "lists/unwanted_formatting.h"
#include "platform/win32/utf16.h"
#include "text/visible_text.h"
#include "wizard/progress_form.h"
#include "wizard/tessaly_form.h"

namespace tessaly::win32 {

void Win32Ui::DropViews() {
  progress_.reset();
  wizard_.reset();
  retired_.clear();
}

HWND Win32Ui::Owner() const {
  return wizard_ != nullptr && IsWindowVisible(wizard_->hwnd()) ? wizard_->hwnd() : nullptr;
}

template <typename Window>
void Win32Ui::Retire(std::unique_ptr<Window>& window) {
  if (window == nullptr) return;
  ShowWindow(window->hwnd(), SW_HIDE);
  retired_.push_back(std::move(window));
}

MessageAnswer Win32Ui::MessageBox(std::string_view text, MessageButtons buttons,
                                  std::string_view title) {
  // A file name in the text must show as it is: its control characters
  // visible instead of acting as layout.
  const std::wstring shown = Widen(text::Visible(text, text::Layout::kLineEnds));
  const std::wstring caption = Widen(text::Visible(title, text::Layout::kNone));
  if (buttons == MessageButtons::kOk) {
    ::MessageBoxW(Owner(), shown.c_str(), caption.c_str(), MB_OK);
    return MessageAnswer::kOk;
  }
  switch (::MessageBoxW(Owner(), shown.c_str(), caption.c_str(), MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
      return MessageAnswer::kYes;
    case IDNO:
      return MessageAnswer::kNo;
    default:
      return MessageAnswer::kCancel;
  }
}

void Win32Ui::ShowModal(Form& dialog) {
  std::unique_ptr<DialogWindow> view;
  if (auto* replace = dynamic_cast<fReplaceAdvanced*>(&dialog)) {
    view = std::make_unique<DialogWindow>(dialog, layout::DescribeReplaceAdvanced(*replace), Owner());
  } else if (auto* formatting = dynamic_cast<fUnwantedFormatting*>(&dialog)) {
    view = std::make_unique<DialogWindow>(dialog, layout::DescribeUnwantedFormatting(*formatting), Owner());
  } else {
    return;  // a form this front-end has no view for
  }
  const HWND owner = Owner();
  if (owner != nullptr) EnableWindow(owner, FALSE);
  ShowWindow(view->hwnd(), SW_SHOW);
  DialogWindow* outer = modal_;
  modal_ = view.get();
  pump_.RunUntil([&view] { return view->closed(); });
  modal_ = outer;
  if (owner != nullptr) {
    EnableWindow(owner, TRUE);
    SetActiveWindow(owner);
  }
}

void Win32Ui::Show(Form& form) {
  if (auto* wizard = dynamic_cast<fTessaly*>(&form)) {
    if (wizard_ == nullptr) {
      wizard_ = std::make_unique<WizardWindow>(*wizard);
      wizardUnloaded_ = wizard->unloaded.Connect([this, shown = wizard_.get()] {
        if (wizard_.get() == shown) Retire(wizard_);
      });
    }
    ShowWindow(wizard_->hwnd(), SW_SHOW);
    SetForegroundWindow(wizard_->hwnd());
  } else if (auto* progress = dynamic_cast<fProgress*>(&form)) {
    Retire(progress_);  // a new use loads a new form
    progress_ = std::make_unique<ProgressWindow>(*progress, Owner());
    progressUnloaded_ = progress->unloaded.Connect([this, shown = progress_.get()] {
      if (progress_.get() == shown) Retire(progress_);
    });
  }
}

std::string Win32Ui::BrowseForFolder(std::string_view title, std::string_view startFolder) {
  return AskForFolder(Owner(), title, startFolder);
}

OpenFileAnswer Win32Ui::ShowOpenFileDialog(const OpenFileRequest& request) {
  return AskForFiles(Owner(), request);
}

void Win32Ui::LetPendingEventsRun() {
  constexpr ULONGLONG kEventsEveryMs = 50;
  const ULONGLONG now = GetTickCount64();
  if (now - lastEventsRun_ < kEventsEveryMs) return;
  lastEventsRun_ = now;
  pump_.RunWaiting();
}

}  // namespace tessaly::win32
