#include "platform/posix/folder_index.h"

#include <dirent.h>

#include <algorithm>
#include <memory>

#include "text/case_mapping.h"
#include "text/utf8.h"

namespace tessaly {

namespace {

// Folders a run works in are few; a walk that looks into many folders
// should not make the cache grow without end.
constexpr std::size_t kMaxFolders = 16;
// How soon after a check of the disk the owner's change must follow for the
// folder's next modification time to be taken as the owner's.
constexpr long long kTrustNanos = 50'000'000;

using NameMap = std::unordered_map<std::string, std::vector<std::string>>;

long long Nanos(const struct timespec& time) {
  return static_cast<long long>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

struct timespec Now() {
  struct timespec now {};
  clock_gettime(CLOCK_REALTIME, &now);
  return now;
}

bool ReadNames(const std::string& folder, NameMap& byFolded) {
  const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(folder.c_str()), closedir);
  if (!dir) return false;
  while (const dirent* entry = readdir(dir.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    byFolded[FoldName(name)].emplace_back(name);
  }
  return true;
}

void Add(NameMap& byFolded, std::string_view name) {
  byFolded[FoldName(name)].emplace_back(name);
}

void Drop(NameMap& byFolded, std::string_view name) {
  const auto variants = byFolded.find(FoldName(name));
  if (variants == byFolded.end()) return;
  std::erase(variants->second, name);
  if (variants->second.empty()) byFolded.erase(variants);
}

}  // namespace

std::string FoldName(std::string_view name) {
  std::string folded;
  folded.reserve(name.size());
  for (std::size_t pos = 0; pos < name.size();) {
    const text::DecodedChar c = text::DecodeAt(name, pos);
    text::AppendChar(folded, text::FoldChar(c.code));
    pos += c.length;
  }
  return folded;
}

FolderIndex::Folder* FolderIndex::Known(const std::string& folder) {
  const auto id = ids_.find(folder);
  if (id == ids_.end()) return nullptr;
  const auto found = folders_.find(id->second);
  return found == folders_.end() ? nullptr : &found->second;
}

void FolderIndex::Forget(const std::string& folder) {
  const auto id = ids_.find(folder);
  if (id != ids_.end()) folders_.erase(id->second);
}

FolderIndex::Folder* FolderIndex::Fresh(const std::string& folder, const struct stat& info) {
  const Stamp stamp{info.st_dev, info.st_ino, info.st_mtim};
  const FolderId id{info.st_dev, info.st_ino};
  const struct timespec now = Now();
  if (!folders_.contains(id) && (folders_.size() >= kMaxFolders || ids_.size() >= 4 * kMaxFolders)) {
    folders_.clear();
    ids_.clear();
  }
  ids_[folder] = id;
  auto found = folders_.find(id);
  if (found != folders_.end()) {
    Folder& known = found->second;
    const long long seen = Nanos(stamp.modified);
    // A look no newer than the one the index has (the same, or an earlier
    // one kept by a caller under another name for the folder) brings no
    // news; own changes whose time has not been seen yet stay pending.
    if (seen <= Nanos(known.stamp.modified)) {
      known.checkedAt = now;
      return &known;
    }
    if (known.ownChanges && seen <= Nanos(known.ownChangesUntil)) {
      known.ownChanges = false;
      known.stamp = stamp;
      known.checkedAt = now;
      return &known;
    }
  }
  Folder fresh{stamp, now, false, {}, {}};
  if (!ReadNames(folder, fresh.byFolded)) {
    folders_.erase(id);
    return nullptr;
  }
  return &(folders_[id] = std::move(fresh));
}

CaseVariants FolderIndex::Lookup(const std::string& folder, const struct stat& info,
                                 std::string_view name) {
  const Folder* index = Fresh(folder, info);
  if (index == nullptr) return {};
  const auto found = index->byFolded.find(FoldName(name));
  if (found == index->byFolded.end()) return {};
  return {found->second};
}

FolderIndex::Folder* FolderIndex::ForOwnChange(const std::string& folder) {
  Folder* known = Known(folder);
  if (known == nullptr) return nullptr;
  const struct timespec now = Now();
  const long long sinceCheck = Nanos(now) - Nanos(known->checkedAt);
  if (sinceCheck < 0 || sinceCheck > kTrustNanos) {
    // Too long since the disk was looked at to tell this change from others.
    Forget(folder);
    return nullptr;
  }
  known->ownChanges = true;
  known->ownChangesUntil = now;
  return known;
}

void FolderIndex::NoteMoved(const std::string& fromFolder, std::string_view fromName,
                            const std::string& toFolder, std::string_view toName) {
  if (Folder* from = ForOwnChange(fromFolder)) Drop(from->byFolded, fromName);
  if (Folder* to = ForOwnChange(toFolder)) Add(to->byFolded, toName);
}

void FolderIndex::NoteRemoved(const std::string& folder, std::string_view name) {
  if (Folder* known = ForOwnChange(folder)) Drop(known->byFolded, name);
}

}  // namespace tessaly
