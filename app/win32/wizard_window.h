#ifndef TESSALY_APP_WIN32_WIZARD_WINDOW_H_
#define TESSALY_APP_WIN32_WIZARD_WINDOW_H_

#include <functional>
#include <map>
#include <string>

#include "host_window.h"
#include "realise.h"
#include "wizard/layout/windows.h"
#include "wizard/tessaly_form.h"

namespace tessaly::win32 {

// The wizard's window as the core describes it: the strip of steps on the
// left, the page of the step on show beside it, the buttons below. All it
// shows comes from the form; all a person does goes to the form's
// handlers. Return that no control takes is the default button, Escape is
// Cancel, and the close box ends the program as Cancel does.
class WizardWindow : public HostWindow {
 public:
  explicit WizardWindow(fTessaly& form);

  // The window made for a described item, by its name ("lstFiles").
  HWND Named(const std::string& name) const { return named_.at(name); }

 protected:
  std::optional<LRESULT> Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // Makes each page's controls when the page first comes on show, and
  // makes the window larger if that page needs more room.
  void RealisePagesWhenShown();
  void TakeDrops(HWND target, HDROP drop);
  void PaintEmblem(HWND strip);

  fTessaly& form_;
  layout::WizardWindow description_;
  layout::Item whole_;
  std::map<std::string, HWND> named_;
  Realiser realiser_{*this, named_};
  std::map<HWND, std::function<void(const DropData&)>> drops_;
  HWND strip_ = nullptr;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_WIZARD_WINDOW_H_
