#include "platform/posix/path_resolver.h"

#include <time.h>

#include <cerrno>

namespace tessaly {

namespace {

using State = ResolvedPath::State;

// How long a look at a folder stands for the folder's state.
constexpr long long kRecentNanos = 1'000'000;

long long MonotonicNanos() {
  struct timespec now {};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<long long>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

std::string Join(const std::string& folder, std::string_view name) {
  if (folder == ".") return std::string(name);
  std::string path = folder;
  if (path.empty() || path.back() != '/') path.push_back('/');
  path.append(name);
  return path;
}

// The folder part of `native`, whose last "/" stands at `slash`.
std::string FolderOf(std::string_view native, std::size_t slash) {
  if (slash == std::string_view::npos) return ".";
  if (slash == 0) return "/";
  return std::string(native.substr(0, slash));
}

std::string_view WithoutClosingSlashes(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return path;
}

}  // namespace

std::string ResolvedPath::Folder() const {
  const std::size_t slash = native.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : native.substr(0, slash);
}

std::string ResolvedPath::Name() const {
  const std::size_t slash = native.find_last_of('/');
  return slash == std::string::npos ? native : native.substr(slash + 1);
}

ResolvedPath PathResolver::Resolve(std::string_view native) {
  native = WithoutClosingSlashes(native);
  if (native.empty()) return {};
  ResolvedPath exact{State::kFound, std::string(native), {}};
  if (lstat(exact.native.c_str(), &exact.info) == 0) return exact;
  // Only a missing name is looked for in other letter case; a path through
  // a file, or one that may not be looked at, is not.
  if (errno != ENOENT) return {};
  return ResolveNew(native);
}

ResolvedPath PathResolver::ResolveNew(std::string_view native) {
  native = WithoutClosingSlashes(native);
  if (native.empty()) return {};
  const std::size_t slash = native.find_last_of('/');
  const std::string_view name = slash == std::string_view::npos ? native : native.substr(slash + 1);
  if (name.empty() || name == "." || name == "..") return {};
  return ResolveIn(FolderOf(native, slash), name);
}

bool PathResolver::OpenFolder(std::string_view native, std::string& resolved, struct stat& info) {
  const long long now = MonotonicNanos();
  for (const RecentFolder& recent : recent_) {
    if (native == recent.given && now - recent.checkedAt < kRecentNanos) {
      resolved = recent.resolved;
      info = recent.info;
      return recent.usable;
    }
  }
  const ResolvedPath folder = Resolve(native);
  bool usable = folder.state == State::kFound;
  resolved = folder.native;
  info = folder.info;
  // A link to a folder is a folder; its index goes by the folder's stamp.
  if (usable && S_ISLNK(info.st_mode) && stat(resolved.c_str(), &info) != 0) usable = false;
  usable = usable && S_ISDIR(info.st_mode);
  recent_[nextRecent_] = {std::string(native), usable, resolved, info, now};
  nextRecent_ = (nextRecent_ + 1) % recent_.size();
  return usable;
}

ResolvedPath PathResolver::ResolveIn(const std::string& folder, std::string_view name) {
  std::string resolvedFolder;
  struct stat folderInfo {};
  if (!OpenFolder(folder, resolvedFolder, folderInfo)) return {};
  const CaseVariants variants = index_.Lookup(resolvedFolder, folderInfo, name);
  ResolvedPath result = FromVariants(resolvedFolder, name, variants);
  if (result.state != State::kUnusable) return result;
  // The index named an entry that is gone: read the folder again, once.
  index_.Forget(resolvedFolder);
  return FromVariants(resolvedFolder, name, index_.Lookup(resolvedFolder, folderInfo, name));
}

ResolvedPath PathResolver::FromVariants(const std::string& folder, std::string_view name,
                                        const CaseVariants& variants) {
  if (variants.names.empty()) return {State::kMissing, Join(folder, name), {}};
  ResolvedPath result{variants.names.size() == 1 ? State::kFound : State::kAmbiguous,
                      Join(folder, variants.names.front()), {}};
  if (lstat(result.native.c_str(), &result.info) != 0) return {};
  return result;
}

}  // namespace tessaly

