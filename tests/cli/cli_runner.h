#ifndef TESSALY_TESTS_CLI_CLI_RUNNER_H_
#define TESSALY_TESTS_CLI_CLI_RUNNER_H_

#include <sys/types.h>

#include <string>
#include <vector>

namespace tessaly::cli {

struct CliResult {
  int exitCode = -1;  // -1 when it did not end by itself
  std::string out;
  std::string err;
};

// Runs the built tessaly-cli with `args` in `folder`, with no terminal
// (a new session, input from /dev/null), the C locale and
// TESSALY_REGISTRY_DIR set to `registryDir`. Kills it after a minute.
// `wrapper`, if given, is a command (absolute path first) that runs it.
CliResult RunCli(const std::vector<std::string>& args, const std::string& folder,
                 const std::string& registryDir, const std::vector<std::string>& wrapper = {});

// Starts tessaly-cli as RunCli does, its output into files in
// `registryDir`, and returns its process id without waiting.
pid_t StartCli(const std::vector<std::string>& args, const std::string& folder,
               const std::string& registryDir, const std::vector<std::string>& wrapper = {});

}  // namespace tessaly::cli

#endif  // TESSALY_TESTS_CLI_CLI_RUNNER_H_
