#ifndef TESSALY_APP_WIN32_TEXT_VIEW_H_
#define TESSALY_APP_WIN32_TEXT_VIEW_H_

#include "windows_h.h"

#include "controls/rich_text_box.h"
#include "host_window.h"

namespace tessaly::win32 {

// A read-only view of a RichTextBox: its text with each coloured run. The
// preview and the log grow line by line to 32,767 lines, and a RichEdit
// lays out all of its text again as it grows; this view indexes only what
// was added behind the end and draws only the rows on show, so its cost
// follows the lines added, not the lines held. Without a right margin in
// the box long lines wrap at the view's width; with one they run on to the
// right. The box's insertion point is kept in sight, as a text box keeps
// its caret.
//
// A person reads it as a text box: scroll bars, wheel and keys scroll it;
// the mouse, Shift and Ctrl+A select; Ctrl+C and the context menu copy.
// Programs read it with the messages of an edit control, in UTF-16 units
// of its whole text with CR LF line ends: WM_GETTEXT, EM_GETLINECOUNT,
// EM_GETSEL, EM_SETSEL, EM_SCROLLCARET, EM_POSFROMCHAR, WM_COPY; and
// WM_PRINTCLIENT draws it.
HWND NewTextView(HostWindow& host, HWND parent, RichTextBox& box);

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_TEXT_VIEW_H_
