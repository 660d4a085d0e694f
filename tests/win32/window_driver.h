#ifndef TESSALY_TESTS_WIN32_WINDOW_DRIVER_H_
#define TESSALY_TESTS_WIN32_WINDOW_DRIVER_H_

#include "windows_h.h"

#include <functional>
#include <string>
#include <vector>

#include "win32_ui.h"

// Input as a person gives it, sent to the real controls, and their state
// read back from the controls themselves.
namespace tessaly::win32::testing {

// A Win32Ui whose questions are answered by the test (the system's message
// box would wait for a person), and that runs a test's hook each time a
// loop lets events run, which is when a person sees what the windows show.
class WatchingUi : public Win32Ui {
 public:
  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;
  // Every time, not every few tens of milliseconds: a test looks at
  // each step.
  void LetPendingEventsRun() override;

  std::function<void()> onPendingEvents;
  std::vector<MessageAnswer> answers;  // in order; Cancel when none is left
  std::vector<std::string> asked;      // "title: text"
};

// Runs the waiting messages, the refreshes they post and the timers that
// are due, until nothing more comes for a while.
void Settle();

void Click(HWND button);
// Posts a key press to `window` and lets the dialog keys act on it.
void PressKey(HWND window, UINT key);
// Selects all of a drop-down's or edit's text and types `text` over it.
void TypeOver(HWND box, const std::wstring& text);
// Drops `paths` on `target` at `where` (its client coordinates), as
// Explorer does.
void DropFiles(HWND target, const std::vector<std::wstring>& paths, POINT where);
// The centre of `control` in the client coordinates of `target`.
POINT CentreIn(HWND control, HWND target);

std::wstring TextOf(HWND window);
std::vector<std::wstring> Rows(HWND listView);
bool RowChecked(HWND listView, int row);
void SelectRow(HWND listView, int row);
// The whole text of a view of the preview or the log, CR LF line ends.
std::wstring ViewText(HWND view);
// The colour the first place `text` shows in such a view is drawn in.
COLORREF ColourOf(HWND view, const std::wstring& text);

// Runs `action` on the next modal dialog once it is open (one opened by
// the step that follows); fails the test if none opens in time.
void WhenModalOpens(WatchingUi& ui, std::function<void(DialogWindow&)> action);

// Runs `action` on the system's own dialog (the open dialog, the folder
// browser) once the step that follows has opened it on this thread.
void WhenSystemDialogOpens(std::function<void(HWND)> action);

}  // namespace tessaly::win32::testing

#endif  // TESSALY_TESTS_WIN32_WINDOW_DRIVER_H_
