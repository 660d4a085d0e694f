// The console of a Windows machine.
#include <io.h>
#include <windows.h>

#include "terminal.h"

namespace tessaly::cli {

namespace {

HANDLE HandleOf(int fd) { return reinterpret_cast<HANDLE>(_get_osfhandle(fd)); }

// A console, not a file or pipe (nor the NUL device, which _isatty takes
// for a terminal).
bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode) != 0;
}

}  // namespace

bool IsTerminal(int fd) { return IsConsole(HandleOf(fd)); }

std::optional<Rgb> AskTerminalBackground() {
  CONSOLE_SCREEN_BUFFER_INFOEX info{};
  info.cbSize = sizeof info;
  if (!GetConsoleScreenBufferInfoEx(HandleOf(1), &info)) return std::nullopt;
  const COLORREF colour = info.ColorTable[(info.wAttributes >> 4) & 0xF];
  return Rgb{GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

bool PrepareForColour(int fd) {
  const HANDLE console = HandleOf(fd);
  DWORD mode = 0;
  if (console == INVALID_HANDLE_VALUE || GetConsoleMode(console, &mode) == 0) return false;
  SetConsoleOutputCP(CP_UTF8);
  return SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void TerminalPerson::Open() {
  if (opened_) return;
  opened_ = true;
  if (IsTerminal(kStandardInput)) {
    in_ = stdin;
    out_ = stderr;
    return;
  }
  // The program's console, when input is redirected; none under a service
  // or a detached start.
  std::FILE* in = std::fopen("CONIN$", "r");
  std::FILE* out = std::fopen("CONOUT$", "w");
  if (in == nullptr || out == nullptr || !IsConsole(HandleOf(_fileno(in)))) {
    if (in != nullptr) std::fclose(in);
    if (out != nullptr) std::fclose(out);
    return;
  }
  in_ = in;
  out_ = out;
  ownsTty_ = true;
}

}  // namespace tessaly::cli
