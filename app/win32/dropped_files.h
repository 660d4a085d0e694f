#ifndef TESSALY_APP_WIN32_DROPPED_FILES_H_
#define TESSALY_APP_WIN32_DROPPED_FILES_H_

#include "windows_h.h"
#include <shellapi.h>

#include "files/drop_data.h"

namespace tessaly::win32 {

// The files and folders of a WM_DROPFILES, as the core takes a drop. The
// drop is let go.
DropData ReadDrop(HDROP drop);

// Whether a drop at its point lands on a control of `target` that takes no
// drops itself (a button, a box): then it does nothing.
bool LandsOnControl(HWND target, HDROP drop);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_DROPPED_FILES_H_
