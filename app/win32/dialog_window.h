#ifndef TESSALY_APP_WIN32_DIALOG_WINDOW_H_
#define TESSALY_APP_WIN32_DIALOG_WINDOW_H_

#include <map>
#include <string>

#include "controls/form.h"
#include "host_window.h"
#include "wizard/layout/windows.h"

namespace tessaly::win32 {

// A list dialog as the core describes it, in a window owned by `owner`.
// Its buttons close it by unloading the form; Escape and the close box
// just close it (`closed`), and the caller unloads.
class DialogWindow : public HostWindow {
 public:
  DialogWindow(Form& form, layout::Dialog description, HWND owner);

  HWND Named(const std::string& name) const { return named_.at(name); }
  bool closed() const { return *closed_; }

 private:
  layout::Dialog description_;
  std::map<std::string, HWND> named_;
  std::shared_ptr<bool> closed_ = std::make_shared<bool>(false);
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_DIALOG_WINDOW_H_
