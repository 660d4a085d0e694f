#ifndef TESSALY_APP_WIN32_LIST_VIEW_H_
#define TESSALY_APP_WIN32_LIST_VIEW_H_

#include "windows_h.h"

#include <functional>
#include <string>
#include <string_view>

#include "controls/list_box.h"
#include "host_window.h"

namespace tessaly::win32 {

enum class ListKind {
  // Rows marked by extended selection (Shift, Ctrl), the marks the model's.
  kSelectable,
  // One current row, and a check box on every row (the list dialogs).
  kCheckable,
};

// A ListBox in a virtual list view: the view holds no rows, it asks the
// model for the ones it draws, so 32,767 rows cost no more than ten. It
// shows the model's order; nothing is sorted here. A list changes
// thousands of times inside one rule, so a change only marks the view
// stale, and one refresh follows when the messages waiting are next run.
// `shown` gives a row's text as shown; the row as it stands when unset.
HWND NewListView(HostWindow& host, HWND parent, ListBox& list, ListKind kind,
                 std::function<std::string(std::string_view)> shown = {});

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_LIST_VIEW_H_
