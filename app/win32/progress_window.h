#ifndef TESSALY_APP_WIN32_PROGRESS_WINDOW_H_
#define TESSALY_APP_WIN32_PROGRESS_WINDOW_H_

#include <map>
#include <string>

#include "host_window.h"
#include "wizard/layout/windows.h"
#include "wizard/progress_form.h"

namespace tessaly::win32 {

// The small window beside a loop: a progress bar as far as the model's bar
// reaches into its trough, and the percentage under it. Not modal, owned by
// the wizard and centred on it, no task-bar entry, no button: only the end
// of its form closes it.
class ProgressWindow : public HostWindow {
 public:
  ProgressWindow(fProgress& form, HWND owner);

  // The window made for a described item, by its name ("lTotal").
  HWND Named(const std::string& name) const { return named_.at(name); }

 private:
  void PlaceOnOwner(HWND owner);

  layout::Dialog description_;
  std::map<std::string, HWND> named_;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_PROGRESS_WINDOW_H_
