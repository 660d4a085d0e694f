#include "extra_procedure.h"

#include <utility>

namespace tessaly::win32 {

namespace {

struct Added {
  WNDPROC own;
  ExtraProcedure extra;
};

Added* AddedTo(HWND control) { return reinterpret_cast<Added*>(GetWindowLongPtrW(control, GWLP_USERDATA)); }

LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  Added* added = AddedTo(control);
  const WNDPROC own = added->own;
  if (message == WM_NCDESTROY) {
    added->extra(message, wParam, lParam);
    SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own));
    SetWindowLongPtrW(control, GWLP_USERDATA, 0);
    delete added;
    return CallWindowProcW(own, control, message, wParam, lParam);
  }
  if (const std::optional<LRESULT> answer = added->extra(message, wParam, lParam)) return *answer;
  return CallWindowProcW(own, control, message, wParam, lParam);
}

}  // namespace

void AddToProcedure(HWND control, ExtraProcedure extra) {
  auto* added = new Added{nullptr, std::move(extra)};
  SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(added));
  added->own = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
}

LRESULT OwnProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcW(AddedTo(control)->own, control, message, wParam, lParam);
}

}  // namespace tessaly::win32
