#ifndef TESSALY_APP_WIN32_WIN32_UI_H_
#define TESSALY_APP_WIN32_WIN32_UI_H_

#include "windows_h.h"

#include <memory>
#include <vector>

#include "message_pump.h"
#include "platform/ui.h"
#include "dialog_window.h"
#include "controls/signal.h"
#include "progress_window.h"
#include "wizard_window.h"

namespace tessaly::win32 {

// What the core asks of the person, answered with Win32 windows: message
// boxes, the list dialogs (modal), the wizard and progress windows (not
// modal), the folder and file pickers, and a pass of the message queue.
class Win32Ui : public Ui {
 public:
  Win32Ui() = default;
  ~Win32Ui() override { DropViews(); }

  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;
  void ShowModal(Form& dialog) override;
  void Show(Form& form) override;
  std::string BrowseForFolder(std::string_view title, std::string_view startFolder) override;
  OpenFileAnswer ShowOpenFileDialog(const OpenFileRequest& request) override;
  // A loop calls in after every file. Drawing the windows costs far more
  // than a file, so the waiting events run at most every few hundredths
  // of a second: often enough to stay painted and hear a Cancel.
  void LetPendingEventsRun() override;

  MessagePump& pump() { return pump_; }
  // Closes every window at once; they must go before the forms they draw.
  void DropViews();

  // The windows on show, or null.
  WizardWindow* wizardWindow() const { return wizard_.get(); }
  ProgressWindow* progressWindow() const { return progress_.get(); }
  // The modal dialog open now, or null.
  DialogWindow* modalWindow() const { return modal_; }

 protected:
  // The window dialogs belong to: the wizard's, while it is on show.
  HWND Owner() const;

 private:
  // A window whose form is unloaded is hidden at once and destroyed later:
  // the unload may come from inside one of its own handlers.
  template <typename Window>
  void Retire(std::unique_ptr<Window>& window);

  MessagePump pump_;
  std::unique_ptr<WizardWindow> wizard_;
  std::unique_ptr<ProgressWindow> progress_;
  // Each window goes when its form is unloaded.
  Connection wizardUnloaded_, progressUnloaded_;
  std::vector<std::unique_ptr<HostWindow>> retired_;
  DialogWindow* modal_ = nullptr;
  ULONGLONG lastEventsRun_ = 0;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_WIN32_UI_H_
