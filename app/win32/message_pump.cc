#include "message_pump.h"

#include <cwchar>

#include "host_window.h"

namespace tessaly::win32 {

namespace {

bool PersonActs(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_DROPFILES:
      return true;
    default:
      return false;
  }
}

bool IsMouse(UINT message) { return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST; }

// The program's own windows take dialog keys; others (a common dialog's
// window has its own loop) are left alone.
bool IsOwnWindow(HWND window) {
  wchar_t name[32] = {};
  GetClassNameW(window, name, 32);
  return std::wcscmp(name, L"TessalyWindow") == 0;
}

}  // namespace

void MessagePump::Dispatch(MSG& message) {
  if (PersonActs(message.message) && onPersonActs) onPersonActs();
  const HWND root = message.hwnd != nullptr ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
  if (root != nullptr && IsOwnWindow(root)) {
    if (IsMouse(message.message)) HostWindow::RelayToTips(root, message);
    if (IsDialogMessageW(root, &message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int MessagePump::Run() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) Dispatch(message);
  return static_cast<int>(message.wParam);
}

bool MessagePump::RunUntil(const std::function<bool()>& done) {
  MSG message;
  while (!done()) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    Dispatch(message);
  }
  return true;
}

void MessagePump::RunWaiting() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
}

}  // namespace tessaly::win32
