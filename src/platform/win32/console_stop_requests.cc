#include "platform/win32/console_stop_requests.h"

#include <windows.h>

#include <atomic>

namespace tessaly {

namespace {

constexpr int kInterrupted = 128 + 2;  // SIGINT
constexpr int kHungUp = 128 + 1;       // SIGHUP

std::atomic<int> gExitStatus{0};

// Runs on a thread of its own that the system starts for each event.
BOOL WINAPI OnConsoleEvent(DWORD event) {
  const bool closing = event == CTRL_CLOSE_EVENT;
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT && !closing) return FALSE;
  int none = 0;
  if (!gExitStatus.compare_exchange_strong(none, closing ? kHungUp : kInterrupted)) {
    // A second request: no clean-up that could wait on the busy main thread.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(gExitStatus.load()));
  }
  // The process ends as soon as this returns from a closing: wait for the
  // main thread to finish its file and leave, until the system's patience
  // ends.
  if (closing) Sleep(INFINITE);
  return TRUE;
}

}  // namespace

ConsoleStopRequests::ConsoleStopRequests() {
  gExitStatus = 0;
  SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
}

ConsoleStopRequests::~ConsoleStopRequests() { SetConsoleCtrlHandler(OnConsoleEvent, FALSE); }

bool ConsoleStopRequests::Requested() const { return gExitStatus != 0; }

int ConsoleStopRequests::ExitStatus() const { return gExitStatus; }

}  // namespace tessaly
