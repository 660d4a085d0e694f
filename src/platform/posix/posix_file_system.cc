#include "platform/posix/posix_file_system.h"

#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "platform/posix/native_path.h"

namespace tessaly {

namespace {

std::uint32_t AttributesOf(const std::string& nativePath, const struct stat& info) {
  std::uint32_t bits = 0;
  if (S_ISDIR(info.st_mode)) {
    bits |= attr::kDirectory;
  } else if (!S_ISREG(info.st_mode)) {
    bits |= attr::kSystem;
  }
  const std::size_t slash = nativePath.find_last_of('/');
  const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
  if (nameStart < nativePath.size() && nativePath[nameStart] == '.') bits |= attr::kHidden;
  if ((info.st_mode & S_IWUSR) == 0) bits |= attr::kReadOnly;
  if (bits == 0) bits = attr::kArchive;
  return bits;
}

}  // namespace

std::optional<std::uint32_t> PosixFileSystem::GetAttributes(std::string_view path) {
  if (path.empty()) return std::nullopt;
  std::string native = ToNativePath(path);
  while (native.size() > 1 && native.back() == '/') native.pop_back();
  struct stat info {};
  if (stat(native.c_str(), &info) != 0) return std::nullopt;
  return AttributesOf(native, info);
}

}  // namespace tessaly
