// Runs the built tessaly-cli for the tests that drive the whole program.
#ifndef TESSALY_TESTS_CLI_CLI_RUNNER_H_
#define TESSALY_TESTS_CLI_CLI_RUNNER_H_

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tessaly::cli {

struct CliResult {
  int exitCode = -1;  // -1 when a signal ended it (137: killed for running over a minute)
  std::string out, err;
};

// Starts tessaly-cli with `args` in `folder`, with no terminal (a new
// session, input from /dev/null), the C locale, TESSALY_REGISTRY_DIR set to
// `registryDir` and its output into files there; returns its process id.
// `wrapper`, if given, is a command (absolute path first) that runs it.
inline pid_t StartCli(const std::vector<std::string>& args, const std::string& folder,
                      const std::string& registryDir, const std::vector<std::string>& wrapper = {}) {
  std::vector<std::string> argStrings = wrapper;
  argStrings.push_back(TESSALY_CLI_PATH);
  argStrings.insert(argStrings.end(), args.begin(), args.end());
  std::vector<std::string> envStrings = {"TESSALY_REGISTRY_DIR=" + registryDir, "LC_ALL=C",
                                         "PATH=/usr/bin:/bin", "HOME=" + registryDir};
  std::vector<char*> argv, envp;
  for (std::string& arg : argStrings) argv.push_back(arg.data());
  for (std::string& entry : envStrings) envp.push_back(entry.data());
  argv.push_back(nullptr);
  envp.push_back(nullptr);
  const std::string outPath = registryDir + "/.stdout", errPath = registryDir + "/.stderr";
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

// Runs it as StartCli does and waits; kills it after a minute, so that a
// run that hangs fails its test instead of holding up the rest.
inline CliResult RunCli(const std::vector<std::string>& args, const std::string& folder,
                        const std::string& registryDir, const std::vector<std::string>& wrapper = {}) {
  std::vector<std::string> timed = {"/usr/bin/timeout", "-s", "KILL", "60"};
  timed.insert(timed.end(), wrapper.begin(), wrapper.end());
  int status = 0;
  if (waitpid(StartCli(args, folder, registryDir, timed), &status, 0) < 0) return {};
  CliResult result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", ""};
  for (auto [text, name] : {std::pair{&result.out, "/.stdout"}, {&result.err, "/.stderr"}}) {
    std::ifstream in(registryDir + name, std::ios::binary);
    text->assign(std::istreambuf_iterator<char>(in), {});
    unlink((registryDir + name).c_str());
  }
  return result;
}

}  // namespace tessaly::cli

#endif  // TESSALY_TESTS_CLI_CLI_RUNNER_H_
