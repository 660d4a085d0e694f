#include "cli_runner.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

namespace tessaly::cli {

namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Waits for `pid` at most `limit`; -1 and a killed child when it ran over.
int WaitFor(pid_t pid, std::chrono::seconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (waitpid(pid, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

pid_t StartCli(const std::vector<std::string>& args, const std::string& folder,
               const std::string& registryDir, const std::vector<std::string>& wrapper) {
  const std::string outPath = registryDir + "/.stdout";
  const std::string errPath = registryDir + "/.stderr";
  std::vector<std::string> argStrings = wrapper;
  argStrings.push_back(TESSALY_CLI_PATH);
  argStrings.insert(argStrings.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& arg : argStrings) argv.push_back(arg.data());
  argv.push_back(nullptr);
  std::vector<std::string> envStrings = {"TESSALY_REGISTRY_DIR=" + registryDir, "LC_ALL=C",
                                         "PATH=/usr/bin:/bin", "HOME=" + registryDir};
  std::vector<char*> envp;
  for (std::string& entry : envStrings) envp.push_back(entry.data());
  envp.push_back(nullptr);

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
  CliResult result;
  const pid_t pid = StartCli(args, folder, registryDir, wrapper);
  if (pid < 0) return result;
  result.exitCode = WaitFor(pid, std::chrono::seconds(60));
  const std::string outPath = registryDir + "/.stdout";
  const std::string errPath = registryDir + "/.stderr";
  result.out = ReadAll(outPath);
  result.err = ReadAll(errPath);
  unlink(outPath.c_str());
  unlink(errPath.c_str());
  return result;
}

}  // namespace tessaly::cli
