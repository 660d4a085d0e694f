#include "progress_window.h"

#include "bindings.h"
#include "platform/win32/utf16.h"
#include "realise.h"

namespace tessaly::win32 {

ProgressWindow::ProgressWindow(fProgress& form, HWND owner)
    : HostWindow(Widen(form.caption()), WS_POPUP | WS_CAPTION, owner),
      description_(layout::DescribeProgress(form)) {
  SetWindowLongW(hwnd(), GWL_EXSTYLE, GetWindowLongW(hwnd(), GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
  Realiser realiser(*this, named_);
  SetLayout(realiser.Realise(description_.body, hwnd()));
  Follow(form.changed, *this, [this, &form] { SetWindowTextIfOther(hwnd(), Widen(form.caption())); });
  PlaceOnOwner(owner);
  ShowWindow(hwnd(), SW_SHOWNOACTIVATE);
}

void ProgressWindow::PlaceOnOwner(HWND owner) {
  const SIZE size = MinimumWindowSize(description_.size);
  RECT around{};
  if (owner != nullptr && IsWindowVisible(owner)) {
    GetWindowRect(owner, &around);
  } else {
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  }
  const int left = (around.left + around.right - size.cx) / 2;
  const int top = (around.top + around.bottom - size.cy) / 2;
  SetWindowPos(hwnd(), nullptr, left, top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  Relayout();  // when the size was already the one asked for
}

}  // namespace tessaly::win32
