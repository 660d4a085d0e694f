#include "cli_runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace tessaly::cli {

namespace {

std::vector<char*> Pointers(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  for (std::string& text : strings) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// The file's bytes; the file goes.
std::string TakeFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(in), {}};
  unlink(path.c_str());
  return text;
}

}  // namespace

pid_t StartCli(const std::vector<std::string>& args, const std::string& folder,
               const std::string& registryDir, const std::vector<std::string>& wrapper) {
  std::vector<std::string> argStrings = wrapper;
  argStrings.push_back(TESSALY_CLI_PATH);
  argStrings.insert(argStrings.end(), args.begin(), args.end());
  std::vector<std::string> envStrings = {"TESSALY_REGISTRY_DIR=" + registryDir, "LC_ALL=C",
                                         "PATH=/usr/bin:/bin", "HOME=" + registryDir};
  const std::vector<char*> argv = Pointers(argStrings);
  const std::vector<char*> envp = Pointers(envStrings);
  const std::string outPath = registryDir + "/.stdout";
  const std::string errPath = registryDir + "/.stderr";
  const pid_t pid = fork();
  if (pid == 0) {
    // A new session has no controlling terminal, so /dev/tty cannot open.
    setsid();
    const int in = open("/dev/null", O_RDONLY);
    const int out = open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int err = open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (in < 0 || out < 0 || err < 0 || chdir(folder.c_str()) != 0) _exit(126);
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    execve(argv[0], argv.data(), envp.data());
    _exit(127);
  }
  return pid;
}

CliResult RunCli(const std::vector<std::string>& args, const std::string& folder,
                 const std::string& registryDir, const std::vector<std::string>& wrapper) {
  // A run that hangs is killed, and fails its test instead of holding up the rest.
  std::vector<std::string> timed = {"/usr/bin/timeout", "-s", "KILL", "60"};
  timed.insert(timed.end(), wrapper.begin(), wrapper.end());
  int status = 0;
  if (waitpid(StartCli(args, folder, registryDir, timed), &status, 0) < 0) return {};
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, TakeFile(registryDir + "/.stdout"),
          TakeFile(registryDir + "/.stderr")};
}

}  // namespace tessaly::cli
