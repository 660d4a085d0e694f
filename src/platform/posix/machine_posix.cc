// The machine is a POSIX one.
#include "platform/machine.h"

#include <limits.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "platform/posix/existing_short_paths.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_run_journals.h"
#include "platform/posix/posix_shell.h"
#include "platform/posix/posix_working_folder.h"
#include "platform/posix/signal_stop_requests.h"
#include "platform/posix/sqlite_registry.h"
#include "platform/posix/system_clock.h"
#include "platform/standard_random.h"

namespace tessaly::machine {

namespace {

bool HasNameLongerThan(std::string_view modelPath, std::size_t longest) {
  for (std::size_t start = 0; start < modelPath.size();) {
    const std::size_t end = std::min(modelPath.find('\\', start), modelPath.size());
    if (end - start > longest) return true;
    start = end + 1;
  }
  return false;
}

}  // namespace

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

std::unique_ptr<StopRequests> ListenForStops() { return std::make_unique<SignalStopRequests>(); }

std::unique_ptr<WorkingFolder> MakeWorkingFolder() {
  return std::make_unique<PosixWorkingFolder>();
}

std::string NativePath(std::string_view modelPath) { return ToNativePath(modelPath); }

std::string ModelPath(std::string_view nativePath) { return ToModelPath(nativePath); }

std::string AbsolutePath(std::string_view name) { return PosixWorkingFolder().Absolute(name); }

void ReturnLargeBlocksWhenFreed() {
#if defined(__GLIBC__)
  // glibc's own starting size, now fixed: setting it stops the raising.
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
#endif
}

std::size_t LongestPath() { return PATH_MAX; }

bool PathTooLong(std::string_view modelPath) {
  // The kernel has the last word, as a file system may take longer names
  // than NAME_MAX; it is asked only about a path beyond the usual limits.
  if (modelPath.size() < PATH_MAX && !HasNameLongerThan(modelPath, NAME_MAX)) return false;
  struct stat info {};
  return lstat(ToNativePath(modelPath).c_str(), &info) != 0 && errno == ENAMETOOLONG;
}

bool NamesMayHoldBackslash() { return true; }

std::optional<std::string> WholeCommandLine() { return std::nullopt; }

}  // namespace tessaly::machine
