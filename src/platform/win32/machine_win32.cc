// The machine is a Windows one.
#include "platform/machine.h"
#include "platform/standard_random.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_locale.h"
#include "platform/win32/win32_registry.h"
#include "platform/win32/win32_run_journals.h"
#include "platform/win32/win32_services.h"

namespace tessaly::machine {

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

std::string NativePath(std::string_view modelPath) { return std::string(modelPath); }

std::string ModelPath(std::string_view nativePath) { return std::string(nativePath); }

std::string AbsolutePath(std::string_view name) { return FullPathOf(name); }

bool NamesMayHoldBackslash() { return false; }

std::optional<std::string> WholeCommandLine() { return CommandLineBehindProgramName(); }

}  // namespace tessaly::machine
