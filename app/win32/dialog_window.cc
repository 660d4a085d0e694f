#include "dialog_window.h"

#include "bindings.h"
#include "platform/win32/utf16.h"
#include "realise.h"

namespace tessaly::win32 {

DialogWindow::DialogWindow(Form& form, layout::Dialog description, HWND owner)
    : HostWindow(Widen(form.caption()), WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, owner),
      description_(std::move(description)) {
  Realiser realiser(*this, named_);
  // A window's edge keeps the toolkit's margins unless the body sets its own.
  if (!description_.body.hasMargins) description_.body = std::move(description_.body).Margined(7, 7, 7, 7);
  SetLayout(realiser.Realise(description_.body, hwnd()));
  realiser.PlaceCaptionsBeforeBuddies();
  if (!description_.defaultButton.empty()) SetDefaultButton(named_.at(description_.defaultButton));
  onCancel = [closed = closed_] { *closed = true; };
  onClose = onCancel;
  Hold(form.unloaded.Connect([closed = closed_] { *closed = true; }));
  Follow(form.changed, *this, [this, &form] { SetWindowTextIfOther(hwnd(), Widen(form.caption())); });

  const SIZE size = MinimumWindowSize(description_.size);
  RECT around{};
  GetWindowRect(owner != nullptr ? owner : GetDesktopWindow(), &around);
  SetWindowPos(hwnd(), nullptr, (around.left + around.right - size.cx) / 2,
               (around.top + around.bottom - size.cy) / 2, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  Relayout();  // when the size was already the one asked for
}

}  // namespace tessaly::win32
