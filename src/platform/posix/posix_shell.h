#ifndef TESSALY_PLATFORM_POSIX_POSIX_SHELL_H_
#define TESSALY_PLATFORM_POSIX_POSIX_SHELL_H_

#include <cstdint>
#include <string>

#include "platform/posix/path_resolver.h"
#include "platform/shell.h"

namespace tessaly {

// The shell of a POSIX desktop. The file is a model path, looked up as the
// file system backend looks names up (exact first, then ignoring case); a
// bare name is also looked for in PATH. For the verbs "open" and "" (and
// "explore" of a folder):
// - a regular file that may be executed is started directly, never through
//   a command shell, with the parameter text as its one argument (none when
//   empty), in the request's directory when one is given;
// - anything else (a document, a folder) goes to the desktop's opener with
//   its native path as the one argument; parameters are not passed.
// Other verbs have no association here. The show command and the owner
// window cannot be honoured and are ignored. Nothing is waited for.
class PosixShell : public Shell {
 public:
  // `opener` is the program that opens documents, by name (looked for in
  // PATH) or by native path.
  explicit PosixShell(std::string opener = "xdg-open") : opener_(std::move(opener)) {}

  // 42 when what was asked for runs; otherwise 2 when the file is missing,
  // 3 when its folder or the working directory is, 5 when access is denied,
  // 8 out of memory, 0 out of other resources, 11 for a program file the
  // system cannot run, 26 for one that is being written, 31 when there is
  // no opener or no such verb, and 1 for any other failure.
  std::int32_t Execute(const ShellRequest& request) override;

 private:
  std::int32_t Start(const std::string& program, const std::string& argument,
                     const std::string& directory);

  std::string opener_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_SHELL_H_
