#include "platform/posix/posix_program.h"

#include <unistd.h>

#include <array>

#include "platform/posix/native_path.h"

namespace tessaly {

namespace {

std::string OwnExecutable() {
  std::array<char, 4096> buffer{};
  const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
  if (length <= 0 || static_cast<std::size_t>(length) >= buffer.size()) return {};
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace

ProgramLocation LocationOfProgram(const std::string& nativePath) {
  const std::size_t slash = nativePath.find_last_of('/');
  std::string name = slash == std::string::npos ? nativePath : nativePath.substr(slash + 1);
  const std::size_t period = name.find_last_of('.');
  if (period != std::string::npos && period > 0) name.erase(period);
  std::string folder;
  if (slash == 0) {
    folder = "/";
  } else if (slash != std::string::npos) {
    folder = nativePath.substr(0, slash);
  }
  return {ToModelPath(folder), ToModelPath(name)};
}

PosixProgram::PosixProgram(std::string commandLine) : commandLine_(std::move(commandLine)) {
  const ProgramLocation location = LocationOfProgram(OwnExecutable());
  folder_ = location.folder;
  fileName_ = location.fileName;
}

}  // namespace tessaly
