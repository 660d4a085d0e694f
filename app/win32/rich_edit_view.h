#ifndef TESSALY_APP_WIN32_RICH_EDIT_VIEW_H_
#define TESSALY_APP_WIN32_RICH_EDIT_VIEW_H_

#include "windows_h.h"

#include "controls/rich_text_box.h"
#include "host_window.h"

namespace tessaly::win32 {

// A read-only RichEdit that shows a RichTextBox: its text with each
// coloured run. The log and the preview grow line by line to 32,767 lines,
// each line several edits of the box, so an edit only marks the view stale;
// a refresh follows when the waiting messages next run, at most every few
// tens of milliseconds while lines keep coming. A refresh streams what was
// written behind the end in one piece of RTF; only an edit before the end
// (the box's `rewrites`) draws the whole text anew.
HWND NewRichEditView(HostWindow& host, HWND parent, RichTextBox& box);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_RICH_EDIT_VIEW_H_
