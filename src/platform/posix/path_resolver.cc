#include "platform/posix/path_resolver.h"

#include <dirent.h>
#include <fcntl.h>
#include <string.h>

#include <cerrno>
#include <memory>
#include <optional>

#include "text/text_ops.h"

namespace tessaly {

namespace {

using State = ResolvedPath::State;

// fstatat without following a link, into `facts`.
bool LookAt(const HeldFolders::Place& place, EntryFacts& facts) {
  struct stat info {};
  if (fstatat(place.folder, place.name, &info, AT_SYMLINK_NOFOLLOW) != 0) return false;
  facts = info;
  return true;
}

// Kept answers beyond this many are dropped together; a run asks about a
// few paths per file, a walk about many folders.
constexpr std::size_t kMaxAnswers = 1 << 17;

std::string Join(const std::string& folder, std::string_view name) {
  if (folder == ".") return std::string(name);
  std::string path = folder;
  if (path.back() != '/') path.push_back('/');
  path.append(name);
  return path;
}

std::string FolderOf(std::string_view native) {
  const std::size_t slash = native.find_last_of('/');
  if (slash == std::string_view::npos) return ".";
  return slash == 0 ? "/" : std::string(native.substr(0, slash));
}

std::string_view NameOf(std::string_view native) {
  // memrchr looks at many bytes at once; names are asked for on every look.
  const void* slash = memrchr(native.data(), '/', native.size());
  if (slash == nullptr) return native;
  return native.substr(static_cast<const char*>(slash) - native.data() + 1);
}

std::string_view WithoutClosingSlashes(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return path;
}

// Spellings of a path that differ in letter case have such names too; the
// name alone is quicker to hash than the path, and two folders rarely hold
// the same name in one run.
std::size_t NameHash(std::string_view native) { return text::HashIgnoringCase(NameOf(native)); }

bool IsFolderAt(int dirFd, const dirent& entry) {
  if (entry.d_type == DT_DIR) return true;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat info {};
  return fstatat(dirFd, entry.d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
}

// The one folder in `parent` whose name equals `name` ignoring case.
std::optional<std::string> OnlyFolderLike(const std::string& parent, std::string_view name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(parent.c_str()), closedir);
  if (!dir) return std::nullopt;
  std::optional<std::string> match;
  while (const dirent* entry = readdir(dir.get())) {
    const std::string_view found = entry->d_name;
    if (found == "." || found == ".." || text::CompareIgnoreCase(found, name) != 0) continue;
    if (!IsFolderAt(dirfd(dir.get()), *entry)) continue;
    if (match) return std::nullopt;  // several: no way to tell which is meant
    match = std::string(found);
  }
  return match;
}

}  // namespace

std::string ResolvedPath::Folder() const { return FolderOf(native); }

std::string ResolvedPath::Name() const { return std::string(NameOf(native)); }

const ResolvedPath& PathResolver::Resolve(std::string_view path) {
  path = WithoutClosingSlashes(path);
  if (path.empty()) {
    unkept_ = {};
    return unkept_;
  }
  for (const std::uint32_t recent : recent_) {
    if (recent != KeptAnswers::kNone && names_.Answers(recent, path)) return Give(recent);
  }
  const std::size_t hash = NameHash(path);
  const std::uint32_t kept = names_.Find(hash, path);
  if (kept != KeptAnswers::kNone) return Recall(kept);
  Look(path, unkept_);
  if (unkept_.state == State::kFound && S_ISLNK(unkept_.info.st_mode)) return unkept_;
  if (names_.size() >= kMaxAnswers) {
    names_.Clear();
    ForgetRecent();
  }
  const std::uint32_t index = names_.Keep(hash, path, unkept_);
  if (index == KeptAnswers::kNone) return unkept_;
  // The answer just made is the one to give: no need to make it again.
  std::swap(answer_, unkept_);
  recalled_ = index;
  return Recall(index);
}

const ResolvedPath& PathResolver::Recall(std::uint32_t index) {
  recent_[nextRecent_] = index;
  nextRecent_ = (nextRecent_ + 1) % recent_.size();
  return Give(index);
}

const ResolvedPath& PathResolver::Give(std::uint32_t index) {
  if (recalled_ != index) names_.Recall(index, answer_);
  recalled_ = index;
  return answer_;
}

void PathResolver::Look(std::string_view native, ResolvedPath& answer) {
  answer.native.assign(native);
  const HeldFolders::Place place = held_.Reach(answer.native);
  if (LookAt(place, answer.info)) {
    answer.state = State::kFound;
    // The folder of an entry that exists exists too. A run asks about one
    // folder many times in a row, so the last one noted is not noted again.
    const std::size_t slash = native.find_last_of('/');
    if (slash == std::string_view::npos || native.compare(0, slash, lastFolderNoted_) != 0) {
      lastFolderNoted_ = FolderOf(native);
      folders_.try_emplace(lastFolderNoted_, FolderAnswer{true, lastFolderNoted_});
    }
    return;
  }
  answer.state = State::kUnusable;
  if (errno != ENOENT) return answer.native.clear();
  const std::string_view name = NameOf(native);
  if (name.empty() || name == "." || name == "..") return answer.native.clear();
  // The folder a run works in is the one noted last: no need to look it up.
  if (native.size() == lastFolderNoted_.size() + 1 + name.size() &&
      native.starts_with(lastFolderNoted_)) {
    answer.state = State::kMissing;
    return;
  }
  LookIn(FolderOf(native), name, answer);
}

void PathResolver::LookIn(const std::string& folder, std::string_view name, ResolvedPath& answer) {
  std::string resolved;
  if (!ResolveFolder(folder, resolved)) return answer.native.clear();
  answer.state = State::kMissing;
  if (resolved == folder) return;  // the exact look already missed
  answer.native = Join(resolved, name);
  const HeldFolders::Place place = held_.Reach(answer.native);
  if (LookAt(place, answer.info)) {
    answer.state = State::kFound;
  } else if (errno != ENOENT) {
    answer.state = State::kUnusable;
    answer.native.clear();
  }
}

bool PathResolver::ResolveFolder(std::string_view native, std::string& resolved) {
  native = WithoutClosingSlashes(native);
  if (native.empty()) return false;
  // A run asks about the folder of each file in turn, mostly the same one.
  if (lastFolder_ == nullptr || lastFolder_->first != native) {
    const std::string path(native);
    auto kept = folders_.find(path);
    if (kept == folders_.end()) {
      if (folders_.size() >= kMaxAnswers) ForgetFolders();
      kept = folders_.emplace(path, LookForFolder(path)).first;
    }
    lastFolder_ = &*kept;
  }
  resolved = lastFolder_->second.resolved;
  return lastFolder_->second.usable;
}

PathResolver::FolderAnswer PathResolver::LookForFolder(const std::string& native) {
  struct stat info {};
  if (stat(native.c_str(), &info) == 0) {
    return {S_ISDIR(info.st_mode) && held_.IsFolderFirstMet(native, info), native};
  }
  if (errno != ENOENT || native == "/" || native == ".") return {};
  const std::string_view name = NameOf(native);
  std::string parent;
  if (name == "." || name == ".." || !ResolveFolder(FolderOf(native), parent)) return {};
  const std::optional<std::string> match = OnlyFolderLike(parent, name);
  if (!match) return {};
  return {true, Join(parent, *match)};
}

void PathResolver::NoteChanged(std::string_view native) {
  ForgetRecent();
  names_.Drop(NameHash(WithoutClosingSlashes(native)));
}

void PathResolver::Forget() {
  ForgetRecent();
  held_.Release();
  names_.Clear();
  ForgetFolders();
}

void PathResolver::ForgetFolders() {
  folders_.clear();
  lastFolder_ = nullptr;
  lastFolderNoted_.clear();
}

}  // namespace tessaly
