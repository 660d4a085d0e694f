#include "dropped_files.h"

#include <cwchar>
#include <string>

#include "platform/win32/utf16.h"

namespace tessaly::win32 {

DropData ReadDrop(HDROP drop) {
  DropData data;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
    // A folder may come with a closing backslash; the list holds it without.
    while (path.size() > 3 && path.back() == L'\\') path.pop_back();
    data.files.push_back(Narrow(path));
  }
  DragFinish(drop);
  data.hasFiles = !data.files.empty();
  return data;
}

bool LandsOnControl(HWND target, HDROP drop) {
  POINT point{};
  DragQueryPoint(drop, &point);
  // Frames lie under the controls they hold, so every child at the point
  // counts, not only the first.
  for (HWND child = GetWindow(target, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    RECT box;
    GetWindowRect(child, &box);
    MapWindowPoints(nullptr, target, reinterpret_cast<POINT*>(&box), 2);
    if (!IsWindowVisible(child) || !PtInRect(&box, point)) continue;
    wchar_t name[32] = {};
    GetClassNameW(child, name, 32);
    // Labels, frames and the list let a drop through to the page; other
    // controls take it.
    if (std::wcscmp(name, L"Static") == 0 || std::wcscmp(name, L"SysListView32") == 0) continue;
    if (std::wcscmp(name, L"Button") == 0 &&
        (GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX) {
      continue;
    }
    return true;
  }
  return false;
}

}  // namespace tessaly::win32
