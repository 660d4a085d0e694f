#include "platform/posix/detached_start.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

namespace tessaly {

namespace {

// Where PATH is not set, as the C library assumes.
constexpr std::string_view kDefaultSearchPath = "/bin:/usr/bin";

// Tells the waiting caller why the start failed and ends the helper.
[[noreturn]] void ReportAndExit(int reportFd, int error) {
  ssize_t ignored = write(reportFd, &error, sizeof error);
  (void)ignored;
  _exit(127);
}

// Runs in the child: only async-signal-safe calls from here on.
[[noreturn]] void RunDetached(const char* program, char* const* argv, const char* directory,
                              int reportFd) {
  setsid();
  const pid_t grandchild = fork();
  if (grandchild < 0) ReportAndExit(reportFd, errno);
  // The helper ends at once, so the caller can reap it; the program itself
  // is then adopted by init, which reaps it in turn.
  if (grandchild > 0) _exit(0);
  if (directory[0] != '\0' && chdir(directory) != 0) ReportAndExit(reportFd, ENOTDIR);
  // The caller's blocked and ignored signals are not the program's business.
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  execv(program, argv);
  ReportAndExit(reportFd, errno);
}

// The errno a child reported through `fd`, or 0 when the pipe closed on a
// successful exec.
int ReadReport(int fd) {
  int error = 0;
  ssize_t got;
  do {
    got = read(fd, &error, sizeof error);
  } while (got < 0 && errno == EINTR);
  return got == static_cast<ssize_t>(sizeof error) ? error : 0;
}

}  // namespace

int StartDetached(const std::string& program, const std::vector<std::string>& arguments,
                  const std::string& directory) {
  // Everything the child needs is made before the fork.
  std::vector<char*> argv;
  argv.push_back(const_cast<char*>(program.c_str()));
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);

  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) return errno;
  const pid_t child = fork();
  if (child < 0) {
    const int error = errno;
    close(report[0]);
    close(report[1]);
    return error;
  }
  if (child == 0) {
    close(report[0]);
    RunDetached(program.c_str(), argv.data(), directory.c_str(), report[1]);
  }
  close(report[1]);
  // The helper only forks and ends; a caller that ignores SIGCHLD has it
  // reaped already, which waitpid then reports as ECHILD.
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  const int error = ReadReport(report[0]);
  close(report[0]);
  return error;
}

std::optional<std::string> FindInSearchPath(const std::string& name) {
  const char* variable = std::getenv("PATH");
  std::string_view folders = variable != nullptr ? variable : kDefaultSearchPath;
  while (true) {
    const std::size_t colon = folders.find(':');
    std::string folder(folders.substr(0, colon));
    // An empty entry stands for the current folder.
    std::string candidate = (folder.empty() ? std::string(".") : folder) + "/" + name;
    struct stat info {};
    if (stat(candidate.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
        access(candidate.c_str(), X_OK) == 0) {
      return candidate;
    }
    if (colon == std::string_view::npos) return std::nullopt;
    folders.remove_prefix(colon + 1);
  }
}

}  // namespace tessaly
