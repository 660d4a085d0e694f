#include "platform/win32/win32_services.h"

#include <windows.h>
#include <shellapi.h>
#include <wininet.h>

#include <vector>

#include "platform/win32/command_line_text.h"
#include "platform/win32/utf16.h"

namespace tessaly {

namespace {

using win32::Narrow;
using win32::Widen;

// Null for an empty text, which the shell reads as "none given".
const wchar_t* OrNull(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

std::wstring OwnFile() {
  std::vector<wchar_t> buffer(MAX_PATH);
  while (true) {
    const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), buffer.size());
    if (length == 0) return {};
    if (length < buffer.size()) return std::wstring(buffer.data(), length);
    buffer.resize(buffer.size() * 2);
  }
}

}  // namespace

std::int32_t Win32Shell::Execute(const ShellRequest& request) {
  const std::wstring verb = Widen(request.operation);
  const std::wstring file = Widen(request.file);
  const std::wstring parameters = Widen(request.parameters);
  const std::wstring directory = Widen(request.directory);
  const HINSTANCE answer =
      ShellExecuteW(reinterpret_cast<HWND>(request.ownerWindow), OrNull(verb), file.c_str(),
                    OrNull(parameters), OrNull(directory), request.showCommand);
  return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(answer));
}

std::optional<std::uint32_t> Win32NetworkStatus::ConnectedState() {
  DWORD flags = 0;
  if (!InternetGetConnectedState(&flags, 0)) return std::nullopt;
  return static_cast<std::uint32_t>(flags);
}

std::string Win32ShortPaths::ShortPathOf(std::string_view path) {
  const std::wstring wide = Widen(path);
  const DWORD needed = GetShortPathNameW(wide.c_str(), nullptr, 0);
  if (needed == 0) return {};
  std::wstring shortPath(needed, L'\0');
  const DWORD length = GetShortPathNameW(wide.c_str(), shortPath.data(), needed);
  if (length == 0 || length >= needed) return {};
  shortPath.resize(length);
  return Narrow(shortPath);
}

Win32Program::Win32Program(std::string commandLine) : commandLine_(std::move(commandLine)) {
  const std::string file = Narrow(OwnFile());
  const std::size_t slash = file.find_last_of('\\');
  std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
  const std::size_t period = name.find_last_of('.');
  if (period != std::string::npos && period > 0) name.erase(period);
  fileName_ = std::move(name);
  if (slash != std::string::npos) {
    // A root keeps its backslash ("C:\"), any other folder loses it.
    const bool root = slash == 2 && file[1] == ':';
    folder_ = file.substr(0, root ? slash + 1 : slash);
  }
}

std::string FullPathOf(std::string_view path) {
  const std::wstring wide = Widen(path);
  const DWORD needed = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
  if (needed == 0) return std::string(path);
  std::wstring full(needed, L'\0');
  const DWORD length = GetFullPathNameW(wide.c_str(), needed, full.data(), nullptr);
  if (length == 0 || length >= needed) return std::string(path);
  full.resize(length);
  return Narrow(full);
}

std::string CommandLineBehindProgramName() {
  return std::string(TextBehindProgramName(Narrow(GetCommandLineW())));
}

}  // namespace tessaly
