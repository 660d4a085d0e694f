#include "platform/win32/utf16.h"

#include <windows.h>

namespace tessaly::win32 {

std::wstring Widen(std::string_view utf8) {
  if (utf8.empty()) return {};
  const int length = static_cast<int>(utf8.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(needed), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), needed);
  return wide;
}

std::string Narrow(std::wstring_view utf16) {
  if (utf16.empty()) return {};
  const int length = static_cast<int>(utf16.size());
  const int needed =
      WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(needed), '\0');
  WideCharToMultiByte(CP_UTF8, 0, utf16.data(), length, narrow.data(), needed, nullptr, nullptr);
  return narrow;
}

}  // namespace tessaly::win32
