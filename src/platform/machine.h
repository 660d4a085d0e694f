#ifndef TESSALY_PLATFORM_MACHINE_H_
#define TESSALY_PLATFORM_MACHINE_H_

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/network_status.h"
#include "platform/program_info.h"
#include "platform/random.h"
#include "platform/registry.h"
#include "platform/run_journals.h"
#include "platform/shell.h"
#include "platform/short_path.h"
#include "platform/stop_requests.h"
#include "platform/working_folder.h"

// The real backends of the machine the program is built for. Front-ends
// make them here and nowhere else; CMake compiles the one machine_*.cc of
// the platform (posix/ or win32/).
namespace tessaly::machine {

// What the wizard needs of the machine besides the person's Ui, the
// program facts and the short paths, which depend on what the front-end
// makes of these.
struct Services {
  std::unique_ptr<FileSystem> fileSystem;
  std::unique_ptr<Registry> registry;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<Locale> locale;
  std::unique_ptr<RandomGenerator> random;
  std::unique_ptr<Shell> shell;
  std::unique_ptr<NetworkStatus> network;
  std::unique_ptr<RunJournals> journals;
};
Services MakeServices();

// The running program, with the command line the wizard is given.
std::unique_ptr<RunningProgram> MakeProgram(std::string commandLine);

// Short paths of `fileSystem`, which must outlive them.
std::unique_ptr<ShortPaths> MakeShortPaths(FileSystem& fileSystem);

// Ctrl+C and the other requests to stop that a console program gets, noted
// for as long as the answer lives instead of ending the program; a second
// one ends it at once. One at a time.
std::unique_ptr<StopRequests> ListenForStops();

// The folder relative names given to the program count against, as it is
// now.
std::unique_ptr<WorkingFolder> MakeWorkingFolder();

// A model path as the system's own programs write it, and back: the model
// form itself on Windows.
std::string NativePath(std::string_view modelPath);
std::string ModelPath(std::string_view nativePath);

// `name`, a path as the system's own programs write it, made absolute
// against the current folder, in model form.
std::string AbsolutePath(std::string_view name);

// Lets blocks of memory past a modest size go back to the system as soon
// as they are freed, for a program that holds a few buffers of megabytes,
// each made and freed about once. (glibc otherwise raises that size past
// each large block freed, and keeps the next ones in its heap for reuse,
// resident long after.) Call it first, before anything is allocated.
void ReturnLargeBlocksWhenFreed();

// The longest path the system takes, in bytes (PATH_MAX on POSIX): no
// name in a list of files can be longer.
std::size_t LongestPath();

// Whether the system refuses `modelPath` for its length, the whole path or
// a name in it: no file can be reached under it.
bool PathTooLong(std::string_view modelPath);

// Whether a file name may hold a backslash (POSIX). Where it may not
// (Windows), every backslash in a path is a separator.
bool NamesMayHoldBackslash();

// The command line as the one text the system keeps behind the program's
// name, where it keeps one (Windows): that text is the wizard's command
// line. Nothing where a shell hands the program separate words (POSIX).
std::optional<std::string> WholeCommandLine();

}  // namespace tessaly::machine

#endif  // TESSALY_PLATFORM_MACHINE_H_
