#ifndef TESSALY_APP_WIN32_EXTRA_PROCEDURE_H_
#define TESSALY_APP_WIN32_EXTRA_PROCEDURE_H_

#include "windows_h.h"

#include <functional>
#include <optional>

namespace tessaly::win32 {

// What a view adds to a control's own window procedure: it sees each
// message first; an answer ends the message, none leaves it to the
// control. It sees WM_NCDESTROY too, its last, to let go of its state.
using ExtraProcedure = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

// Puts `extra` before `control`'s own procedure, as comctl32's
// SetWindowSubclass does, keeping its state in the control's user data:
// Wine asks its server for a window property on every message that
// SetWindowSubclass passes on, and a loop's bar and log cost a millisecond
// a file that way. One extra procedure a control.
void AddToProcedure(HWND control, ExtraProcedure extra);

// The control's own handling of a message, for an extra procedure that
// acts after it.
LRESULT OwnProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_EXTRA_PROCEDURE_H_
