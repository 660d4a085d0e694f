#include "platform/posix/folder_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <memory>
#include <optional>

#include "platform/posix/native_path.h"
#include "platform/posix/posix_attributes.h"
#include "platform/search_pattern.h"

namespace tessaly {

namespace {

std::optional<std::uint32_t> AttributesAt(int dirFd, const char* name) {
  struct stat own {};
  if (fstatat(dirFd, name, &own, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
  return AttributesOf(name, FollowLink(dirFd, name, own));
}

}  // namespace

std::vector<DirectoryEntry> SearchFolder(const std::string& folder, std::string_view namePattern,
                                         std::uint32_t include) {
  const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(folder.c_str()), closedir);
  if (!dir) return {};
  const bool wantsHidden = (include & attr::kHidden) != 0;
  std::vector<DirectoryEntry> found;
  while (const dirent* entry = readdir(dir.get())) {
    const std::string_view native = entry->d_name;
    if (native == "." || native == "..") continue;
    // A hidden name is known by its spelling; no need to look it up.
    if (native.starts_with('.') && !wantsHidden) continue;
    std::string name = ToModelPath(native);
    if (!search_pattern::Matches(name, namePattern)) continue;
    const auto attributes = AttributesAt(dirfd(dir.get()), entry->d_name);
    if (!attributes || !PassesSearchFilter(*attributes, include)) continue;
    found.push_back({std::move(name), *attributes});
  }
  return found;
}

}  // namespace tessaly
