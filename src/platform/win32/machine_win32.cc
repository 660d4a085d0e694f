// The machine is a Windows one.
#include "platform/machine.h"

#include <windows.h>

#include "platform/standard_random.h"
#include "platform/win32/console_stop_requests.h"
#include "platform/win32/utf16.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/win32_run_journals.h"
#include "platform/win32/win32_services.h"

namespace tessaly::machine {

namespace {

// Windows hands the program one text, not words; names in it still count
// against the working folder.
class Win32WorkingFolder : public WorkingFolder {
 public:
  std::string Absolute(std::string_view name) const override { return FullPathOf(name); }
  bool Holds(std::string_view name) const override {
    return Win32FileSystem().GetAttributes(FullPathOf(name)).has_value();
  }
};

}  // namespace

Services MakeServices() {
  return {std::make_unique<Win32FileSystem>(), std::make_unique<Win32Registry>(),
          std::make_unique<Win32Clock>(),      std::make_unique<Win32Locale>(),
          std::make_unique<StandardRandom>(),  std::make_unique<Win32Shell>(),
          std::make_unique<Win32NetworkStatus>(),
          std::make_unique<Win32RunJournals>()};
}

std::unique_ptr<RunningProgram> MakeProgram(std::string commandLine) {
  return std::make_unique<Win32Program>(std::move(commandLine));
}

std::unique_ptr<ShortPaths> MakeShortPaths(FileSystem&) {
  return std::make_unique<Win32ShortPaths>();
}

std::unique_ptr<StopRequests> ListenForStops() { return std::make_unique<ConsoleStopRequests>(); }

std::unique_ptr<WorkingFolder> MakeWorkingFolder() {
  return std::make_unique<Win32WorkingFolder>();
}

std::string NativePath(std::string_view modelPath) { return std::string(modelPath); }

std::string ModelPath(std::string_view nativePath) { return std::string(nativePath); }

std::string AbsolutePath(std::string_view name) { return FullPathOf(name); }

// 32,767 UTF-16 units, each at most three bytes of UTF-8.
// The Windows heap hands large blocks back to the system by itself.
void ReturnLargeBlocksWhenFreed() {}

std::size_t LongestPath() { return 3 * 32767; }

bool PathTooLong(std::string_view modelPath) {
  const std::wstring wide = win32::Widen(modelPath);
  if (wide.size() < MAX_PATH) return false;
  return GetFileAttributesW(wide.c_str()) == INVALID_FILE_ATTRIBUTES &&
         GetLastError() == ERROR_FILENAME_EXCED_RANGE;
}

bool NamesMayHoldBackslash() { return false; }

std::optional<std::string> WholeCommandLine() { return CommandLineBehindProgramName(); }

}  // namespace tessaly::machine
