#include "platform/win32/win32_clock.h"

#include <windows.h>

namespace tessaly {

CivilDateTime Win32Clock::Now() const {
  SYSTEMTIME local{};
  GetLocalTime(&local);
  return {{local.wYear, local.wMonth, local.wDay}, local.wHour, local.wMinute, local.wSecond};
}

}  // namespace tessaly
