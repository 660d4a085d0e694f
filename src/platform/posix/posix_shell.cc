#include "platform/posix/posix_shell.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <vector>

#include "platform/posix/detached_start.h"
#include "platform/posix/native_path.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

// The shell's answers, as the desktop platform numbers them.
namespace answer {
constexpr std::int32_t kStarted = 42;  // any value above 32 means accepted
constexpr std::int32_t kOutOfResources = 0;
constexpr std::int32_t kOtherFailure = 1;
constexpr std::int32_t kFileNotFound = 2;
constexpr std::int32_t kPathNotFound = 3;
constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kOutOfMemory = 8;
constexpr std::int32_t kBadProgramFile = 11;
constexpr std::int32_t kSharingViolation = 26;
constexpr std::int32_t kNoAssociation = 31;
}  // namespace answer

std::int32_t AnswerForError(int error) {
  switch (error) {
    case ENOENT: return answer::kFileNotFound;
    case ENOTDIR:
    case ELOOP:
    case ENAMETOOLONG: return answer::kPathNotFound;
    case EACCES:
    case EPERM: return answer::kAccessDenied;
    case ENOMEM:
    case E2BIG: return answer::kOutOfMemory;
    case EAGAIN:
    case EMFILE:
    case ENFILE: return answer::kOutOfResources;
    case ENOEXEC:
    case ELIBBAD: return answer::kBadProgramFile;
    case ETXTBSY: return answer::kSharingViolation;
    default: return answer::kOtherFailure;
  }
}

enum class Verb { kOpen, kExplore, kUnknown };

Verb VerbOf(std::string_view operation) {
  if (operation.empty() || text::CompareIgnoreCase(operation, "open") == 0) return Verb::kOpen;
  if (text::CompareIgnoreCase(operation, "explore") == 0) return Verb::kExplore;
  return Verb::kUnknown;
}

// The started program may run in another folder, so every path it is
// given must stand on its own.
std::string Absolute(const std::string& native) {
  if (!native.empty() && native.front() == '/') return native;
  char buffer[PATH_MAX];
  if (getcwd(buffer, sizeof buffer) == nullptr) return native;
  return std::string(buffer) + "/" + native;
}

bool IsProgramFile(const struct stat& info) {
  return S_ISREG(info.st_mode) && (info.st_mode & (S_IXUSR | S_IXGRP | S_IXOTH)) != 0;
}

// A path that exists, followed through links, or the answer for why not.
struct Located {
  std::int32_t failure = -1;  // -1: found
  std::string native;
  struct stat info {};
};

Located Locate(PathResolver& resolver, const std::string& native) {
  Located found{-1, native, {}};
  if (native.empty()) return {answer::kFileNotFound, {}, {}};
  if (stat(native.c_str(), &found.info) == 0) return found;
  if (errno != ENOENT) return {AnswerForError(errno), {}, {}};
  const ResolvedPath resolved = resolver.Resolve(native);
  switch (resolved.state) {
    case ResolvedPath::State::kFound:
      found.native = resolved.native;
      if (stat(found.native.c_str(), &found.info) != 0) return {AnswerForError(errno), {}, {}};
      return found;
    case ResolvedPath::State::kUnusable: return {answer::kPathNotFound, {}, {}};
    default: return {answer::kFileNotFound, {}, {}};  // missing, or no telling which
  }
}

// A bare program name is looked for where a command shell would look.
Located LocateFile(PathResolver& resolver, const std::string& native) {
  if (!native.empty() && native.find('/') == std::string::npos) {
    if (auto program = FindInSearchPath(native)) return Locate(resolver, *program);
  }
  return Locate(resolver, native);
}

}  // namespace

std::int32_t PosixShell::Execute(const ShellRequest& request) {
  const Verb verb = VerbOf(request.operation);
  if (verb == Verb::kUnknown) return answer::kNoAssociation;
  // A fresh look each time: a shell request is rare, and answers kept from
  // an earlier one could be stale by now.
  PathResolver resolver;
  const Located target = LocateFile(resolver, ToNativePath(request.file));
  if (target.failure >= 0) return target.failure;
  std::string directory;
  if (!request.directory.empty()) {
    const Located folder = Locate(resolver, ToNativePath(request.directory));
    if (folder.failure >= 0 || !S_ISDIR(folder.info.st_mode)) return answer::kPathNotFound;
    directory = Absolute(folder.native);
  }
  if (verb == Verb::kOpen && IsProgramFile(target.info)) {
    return Start(Absolute(target.native), request.parameters, directory);
  }
  if (verb == Verb::kExplore && !S_ISDIR(target.info.st_mode)) return answer::kNoAssociation;
  // A document's opener is not told the parameters, as on the desktop.
  const std::optional<std::string> opener =
      opener_.find('/') != std::string::npos ? std::optional(opener_) : FindInSearchPath(opener_);
  if (!opener || access(opener->c_str(), X_OK) != 0) return answer::kNoAssociation;
  return Start(*opener, Absolute(target.native), directory);
}

std::int32_t PosixShell::Start(const std::string& program, const std::string& argument,
                               const std::string& directory) {
  std::vector<std::string> arguments;
  if (!argument.empty()) arguments.push_back(argument);
  const int error = StartDetached(program, arguments, directory);
  if (error == 0) return answer::kStarted;
  // The folder was there a moment ago; a failure to enter it is still a
  // missing path to the caller.
  return error == ENOTDIR ? answer::kPathNotFound : AnswerForError(error);
}

}  // namespace tessaly
