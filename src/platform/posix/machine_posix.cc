// The machine is a POSIX one.
#include "platform/machine.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_run_journals.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/shell_words.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/system_clock.h"
#include "platform/standard_random.h"

namespace tessaly::machine {

Services MakeServices() {
  return {std::make_unique<PosixFileSystem>(), std::make_unique<SqliteRegistry>(),
          std::make_unique<SystemClock>(),     std::make_unique<PosixLocale>(),
          std::make_unique<StandardRandom>(),  std::make_unique<PosixShell>(),
          std::make_unique<PosixNetworkStatus>(),
          std::make_unique<PosixRunJournals>()};
}

std::unique_ptr<RunningProgram> MakeProgram(std::string commandLine) {
  return std::make_unique<PosixProgram>(std::move(commandLine));
}

std::unique_ptr<ShortPaths> MakeShortPaths(FileSystem& fileSystem) {
  return std::make_unique<ExistingShortPaths>(fileSystem);
}

std::string NativePath(std::string_view modelPath) { return ToNativePath(modelPath); }

std::string ModelPath(std::string_view nativePath) { return ToModelPath(nativePath); }

std::string AbsolutePath(std::string_view name) { return AbsoluteModelPath(name, CurrentFolder()); }

bool NamesMayHoldBackslash() { return true; }

std::optional<std::string> WholeCommandLine() { return std::nullopt; }

}  // namespace tessaly::machine
