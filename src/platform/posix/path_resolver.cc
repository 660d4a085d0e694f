#include "platform/posix/path_resolver.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <memory>
#include <optional>

#include "text/ascii_fold.h"
#include "text/case_mapping.h"
#include "text/utf8.h"

namespace tessaly {

namespace {

using State = ResolvedPath::State;

// Kept answers beyond this many are dropped together; a run asks about a
// few paths per file, a walk about many folders.
constexpr std::size_t kMaxAnswers = 1 << 17;

std::string FoldName(std::string_view name) {
  std::string folded;
  if (text::FoldAscii(name, folded)) return folded;
  folded.clear();
  folded.reserve(name.size());
  for (std::size_t pos = 0; pos < name.size();) {
    const text::DecodedChar c = text::DecodeAt(name, pos);
    text::AppendChar(folded, text::FoldChar(c.code));
    pos += c.length;
  }
  return folded;
}

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
  const std::size_t slash = native.find_last_of('/');
  return slash == std::string_view::npos ? native : native.substr(slash + 1);
}

std::string_view WithoutClosingSlashes(std::string_view path) {
  while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
  return path;
}

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
  const std::string wanted = FoldName(name);
  std::optional<std::string> match;
  while (const dirent* entry = readdir(dir.get())) {
    const std::string_view found = entry->d_name;
    if (found == "." || found == ".." || FoldName(found) != wanted) continue;
    if (!IsFolderAt(dirfd(dir.get()), *entry)) continue;
    if (match) return std::nullopt;  // several: no way to tell which is meant
    match = std::string(found);
  }
  return match;
}

}  // namespace

std::string ResolvedPath::Folder() const { return FolderOf(native); }

std::string ResolvedPath::Name() const { return std::string(NameOf(native)); }

ResolvedPath PathResolver::Resolve(std::string path) {
  path.resize(WithoutClosingSlashes(path).size());
  if (path.empty()) return {};
  std::string folded = FoldName(path);
  const auto kept = names_.find(folded);
  if (kept != names_.end()) {
    for (const NameAnswer& spelling : kept->second) {
      if (spelling.native == path) return spelling.answer;
    }
  }
  ResolvedPath answer = Look(path);
  if (answer.state != State::kFound || !S_ISLNK(answer.info.st_mode)) {
    Keep(std::move(folded), path, answer);
  }
  return answer;
}

ResolvedPath PathResolver::Look(const std::string& native) {
  ResolvedPath exact{State::kFound, native, {}};
  if (lstat(native.c_str(), &exact.info) == 0) {
    // The folder of an entry that exists exists too. A run asks about one
    // folder many times in a row, so the last one noted is not noted again.
    const std::size_t slash = native.find_last_of('/');
    if (slash == std::string::npos || native.compare(0, slash, lastFolderNoted_) != 0 ||
        lastFolderNoted_.size() != slash) {
      lastFolderNoted_ = exact.Folder();
      folders_.try_emplace(lastFolderNoted_, FolderAnswer{true, lastFolderNoted_});
    }
    return exact;
  }
  if (errno != ENOENT) return {};
  const std::string_view name = NameOf(native);
  if (name.empty() || name == "." || name == "..") return {};
  // The folder a run works in is the one noted last: no need to look it up.
  if (native.size() == lastFolderNoted_.size() + 1 + name.size() &&
      native.starts_with(lastFolderNoted_)) {
    return {State::kMissing, native, {}};
  }
  return LookIn(FolderOf(native), name);
}

ResolvedPath PathResolver::LookIn(const std::string& folder, std::string_view name) {
  std::string resolved;
  if (!ResolveFolder(folder, resolved)) return {};
  ResolvedPath result{State::kMissing, Join(resolved, name), {}};
  if (resolved == folder) return result;  // the exact look already missed
  if (lstat(result.native.c_str(), &result.info) == 0) {
    result.state = State::kFound;
  } else if (errno != ENOENT) {
    return {};
  }
  return result;
}

bool PathResolver::ResolveFolder(std::string_view native, std::string& resolved) {
  native = WithoutClosingSlashes(native);
  if (native.empty()) return false;
  const std::string path(native);
  auto kept = folders_.find(path);
  if (kept == folders_.end()) {
    if (folders_.size() >= kMaxAnswers) {
      folders_.clear();
      lastFolderNoted_.clear();
    }
    kept = folders_.emplace(path, LookForFolder(path)).first;
  }
  resolved = kept->second.resolved;
  return kept->second.usable;
}

PathResolver::FolderAnswer PathResolver::LookForFolder(const std::string& native) {
  struct stat info {};
  if (stat(native.c_str(), &info) == 0) return {S_ISDIR(info.st_mode), native};
  if (errno != ENOENT || native == "/" || native == ".") return {};
  const std::string_view name = NameOf(native);
  std::string parent;
  if (name == "." || name == ".." || !ResolveFolder(FolderOf(native), parent)) return {};
  const std::optional<std::string> match = OnlyFolderLike(parent, name);
  if (!match) return {};
  return {true, Join(parent, *match)};
}

void PathResolver::Keep(std::string folded, const std::string& native,
                        const ResolvedPath& answer) {
  if (nameCount_ >= kMaxAnswers) {
    names_.clear();
    nameCount_ = 0;
  }
  names_[std::move(folded)].push_back(NameAnswer{native, answer});
  ++nameCount_;
}

void PathResolver::NoteChanged(std::string_view native) {
  const auto spellings = names_.find(FoldName(WithoutClosingSlashes(native)));
  if (spellings == names_.end()) return;
  nameCount_ -= spellings->second.size();
  names_.erase(spellings);
}

void PathResolver::Forget() {
  names_.clear();
  nameCount_ = 0;
  folders_.clear();
  lastFolderNoted_.clear();
}

}  // namespace tessaly
