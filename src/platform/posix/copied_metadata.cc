#include "platform/posix/copied_metadata.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace tessaly {

namespace {

// Both where permitted, else the group alone (an owner may hand a file to
// any group they belong to), else the mover's own.
void CopyOwner(int to, const struct stat& info) {
  if (fchown(to, info.st_uid, info.st_gid) != 0) fchown(to, static_cast<uid_t>(-1), info.st_gid);
}

std::vector<char> AttributeNames(int from) {
  const ssize_t size = flistxattr(from, nullptr, 0);
  if (size <= 0) return {};
  std::vector<char> names(static_cast<std::size_t>(size));
  const ssize_t got = flistxattr(from, names.data(), names.size());
  names.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
  return names;
}

void CopyAttribute(int from, int to, const char* name) {
  const ssize_t size = fgetxattr(from, name, nullptr, 0);
  if (size < 0) return;
  std::vector<char> value(static_cast<std::size_t>(size));
  const ssize_t got = fgetxattr(from, name, value.data(), value.size());
  if (got >= 0) fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0);
}

void CopyAttributes(int from, int to) {
  const std::vector<char> names = AttributeNames(from);
  for (std::size_t at = 0; at < names.size(); at += std::string(names.data() + at).size() + 1) {
    CopyAttribute(from, to, names.data() + at);
  }
}

}  // namespace

void CopyMetadata(int from, int to, const struct stat& info) {
  CopyOwner(to, info);
  // After the owner, whose change clears capabilities; before the mode,
  // since a file its owner may not write takes no user attribute from them.
  CopyAttributes(from, to);
  // After the owner too: a change of owner clears the set-id bits.
  fchmod(to, info.st_mode & 07777);
  const struct timespec times[2] = {info.st_atim, info.st_mtim};
  futimens(to, times);
}

}  // namespace tessaly
