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
  const HWND hit = ChildWindowFromPointEx(target, point, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
  if (hit == nullptr || hit == target) return false;
  wchar_t name[32] = {};
  GetClassNameW(hit, name, 32);
  // Labels, frames and the list let a drop through to the page; other
  // controls take it.
  if (std::wcscmp(name, L"Static") == 0 || std::wcscmp(name, L"SysListView32") == 0) return false;
  if (std::wcscmp(name, L"Button") == 0) {
    return (GetWindowLongW(hit, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
  }
  return true;
}

}  // namespace tessaly::win32
