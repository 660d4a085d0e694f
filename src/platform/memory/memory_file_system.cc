#include "platform/memory/memory_file_system.h"

#include <utility>

#include "platform/path_forms.h"
#include "platform/search_pattern.h"
#include "text/case_mapping.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

std::string_view WithoutClosingBackslash(std::string_view path) {
  if (path.size() > 1 && path.back() == '\\') path.remove_suffix(1);
  return path;
}

// The folder that holds `path`, or nothing for a path without a backslash.
std::optional<std::string_view> ParentOf(std::string_view path) {
  path = WithoutClosingBackslash(path);
  const std::size_t slash = path.find_last_of('\\');
  if (slash == std::string_view::npos || path.size() == 1) return std::nullopt;
  return slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
}

std::string_view NameOf(std::string_view path) {
  const std::size_t slash = path.find_last_of('\\');
  return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

bool IsUsableName(std::string_view path) { return !path.empty() && path.back() != '\\'; }

}  // namespace

std::string MemoryFileSystem::Key(std::string_view path) const {
  // A folder is the same entry with or without its closing backslash.
  path = WithoutClosingBackslash(path);
  if (letterCase_ == LetterCase::kExact) return std::string(path);
  return text::LowerCase(text::UpperCase(path));
}

MemoryFileSystem::Entry* MemoryFileSystem::Find(std::string_view path) {
  if (path.empty()) return nullptr;
  auto found = entries_.find(Key(path));
  if (found == entries_.end() && letterCase_ == LetterCase::kExact) {
    found = entries_.find(Key(MatchFolders(path)));
    if (found == entries_.end()) found = entries_.find(Key(MatchFolder(path)));
  }
  return found == entries_.end() ? nullptr : &found->second;
}

std::string MemoryFileSystem::MatchFolders(std::string_view path) const {
  path = WithoutClosingBackslash(path);
  const auto parent = ParentOf(path);
  if (!parent) return std::string(path);
  const std::string folder = MatchFolder(*parent);
  return (folder.ends_with('\\') ? folder : folder + "\\") + std::string(NameOf(path));
}

std::string MemoryFileSystem::MatchFolder(std::string_view folder) const {
  if (letterCase_ == LetterCase::kIgnore || IsFolderExactly(folder)) return std::string(folder);
  const auto parent = ParentOf(folder);
  if (!parent) return std::string(folder);
  const std::string within = MatchFolder(*parent);
  const std::u32string wanted = text::Fold(NameOf(folder));
  std::string match;
  for (const auto& [key, entry] : entries_) {
    const auto entryParent = ParentOf(entry.path);
    if ((entry.attributes & attr::kDirectory) == 0 || !entryParent || *entryParent != within ||
        text::Fold(NameOf(entry.path)) != wanted) {
      continue;
    }
    if (!match.empty()) return std::string(folder);  // several: none is meant
    match = entry.path;
  }
  return match.empty() ? std::string(folder) : match;
}

bool MemoryFileSystem::IsFolderExactly(std::string_view path) const {
  const auto found = entries_.find(Key(path));
  return found != entries_.end() && (found->second.attributes & attr::kDirectory) != 0;
}

const MemoryFileSystem::Entry* MemoryFileSystem::Find(std::string_view path) const {
  return const_cast<MemoryFileSystem*>(this)->Find(path);
}

bool MemoryFileSystem::IsFolder(std::string_view path) const {
  const Entry* entry = Find(path);
  return entry != nullptr && (entry->attributes & attr::kDirectory) != 0;
}

void MemoryFileSystem::AddParentsOf(std::string_view path) {
  for (auto parent = ParentOf(path);
       parent && parent->find_first_not_of('\\') != std::string_view::npos;
       parent = ParentOf(*parent)) {
    const std::string key = Key(*parent);
    if (!entries_.contains(key)) entries_.emplace(key, NewEntry(*parent, attr::kDirectory));
  }
}

MemoryFileSystem::Entry MemoryFileSystem::NewEntry(std::string_view path,
                                                   std::uint32_t attributes) {
  return Entry{std::string(WithoutClosingBackslash(path)), attributes, "", ++lastNode_};
}

void MemoryFileSystem::AddFile(std::string_view path, std::uint32_t attributes) {
  AddParentsOf(path);
  entries_[Key(path)] = NewEntry(path, attributes);
}

void MemoryFileSystem::AddDirectory(std::string_view path) {
  AddFile(path, attr::kDirectory);
}

void MemoryFileSystem::Remove(std::string_view path) { entries_.erase(Key(path)); }

void MemoryFileSystem::AddLink(std::string_view existing, std::string_view path) {
  Entry link = *Find(existing);
  link.path = std::string(WithoutClosingBackslash(path));
  entries_[Key(path)] = std::move(link);
}

void MemoryFileSystem::SetContents(std::string_view path, std::string contents) {
  if (Find(path) == nullptr) AddFile(path);
  Entry& entry = *Find(path);
  entry.contents = std::move(contents);
  ++entry.writes;
}

std::optional<std::string> MemoryFileSystem::Contents(std::string_view path) const {
  const Entry* entry = Find(path);
  if (entry == nullptr || (entry->attributes & attr::kDirectory) != 0) return std::nullopt;
  return entry->contents;
}

std::vector<std::string> MemoryFileSystem::Paths() const {
  std::vector<std::string> paths;
  for (const auto& [key, entry] : entries_) paths.push_back(entry.path);
  return paths;
}

std::vector<std::string> MemoryFileSystem::FilesAndContents() const {
  std::vector<std::string> files;
  for (const auto& [key, entry] : entries_) {
    if ((entry.attributes & attr::kDirectory) == 0) files.push_back(entry.path + "=" + entry.contents);
  }
  return files;
}

void MemoryFileSystem::MakeReadOnly(std::string_view path) {
  if (Entry* entry = Find(path)) entry->attributes |= attr::kReadOnly;
}

std::optional<std::uint32_t> MemoryFileSystem::GetAttributes(std::string_view path) {
  const Entry* entry = Find(path);
  if (entry == nullptr) return std::nullopt;
  return entry->attributes;
}

bool MemoryFileSystem::CanRename(std::string_view source, std::string_view target) const {
  if (!IsUsableName(source) || !IsUsableName(target)) return false;
  const Entry* from = Find(source);
  if (from == nullptr || (from->attributes & attr::kDirectory) != 0) return false;
  if (locked_.contains(Key(from->path))) return false;
  const auto folder = ParentOf(target);
  if (!folder || !IsFolder(*folder)) return false;
  // The source itself under the target's name is a change of letter case.
  const Entry* taken = Find(target);
  return taken == nullptr || taken == from;
}

bool MemoryFileSystem::Rename(std::string_view source, std::string_view target) {
  return Moved(Move(source, target, true));
}

RenameAnswer MemoryFileSystem::RenameIfFree(std::string_view source, std::string_view target) {
  return Move(source, target, false);
}

RenameAnswer MemoryFileSystem::Move(std::string_view source, std::string_view target,
                                    bool caseChangeOfItself) {
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  if (std::exchange(failNextRename_, false)) return RenameAnswer::kFailed;
  if (!CanRename(source, target)) {
    return Find(source) != nullptr && Find(target) != nullptr ? RenameAnswer::kTaken
                                                              : RenameAnswer::kFailed;
  }
  if (!caseChangeOfItself && Find(target) != nullptr) return RenameAnswer::kTaken;
  if (copied_.contains(Key(source))) {
    Entry copy = *Find(source);
    copy.path = Find(*ParentOf(target))->path + "\\" + std::string(NameOf(target));
    copy.node = ++lastNode_;
    entries_[Key(copy.path)] = std::move(copy);
    renames_.push_back({std::string(source), std::string(target)});
    return RenameAnswer::kMoved;
  }
  auto moved = entries_.extract(Key(Find(source)->path));
  // The name goes into the folder as the folder is spelled.
  const std::string placed = Find(*ParentOf(target))->path + "\\" + std::string(NameOf(target));
  moved.mapped().path = placed;
  moved.key() = Key(placed);
  entries_.insert(std::move(moved));
  renames_.push_back({std::string(source), std::string(target)});
  return RenameAnswer::kRenamed;
}

bool MemoryFileSystem::DeleteIfUnchanged(std::string_view path, const FileVersion& expected) {
  if (std::exchange(failNextDelete_, false)) return false;
  if (!IsUsableName(path) || VersionOf(path) != expected) return false;
  const Entry* entry = Find(path);
  if ((entry->attributes & (attr::kDirectory | attr::kReadOnly)) != 0) return false;
  if (locked_.contains(Key(entry->path))) return false;
  entries_.erase(Key(entry->path));
  deletes_.push_back(std::string(path));
  return true;
}

std::vector<DirectoryEntry> MemoryFileSystem::Search(std::string_view pattern,
                                                     std::uint32_t include) {
  const search_pattern::Parts parts = search_pattern::Split(pattern);
  const Entry* folder = Find(parts.folder);
  if (folder == nullptr || (folder->attributes & attr::kDirectory) == 0) return {};
  const std::string folderKey = Key(folder->path);
  if (unreadable_.contains(folderKey)) return {};
  std::vector<DirectoryEntry> found;
  for (const auto& [key, entry] : entries_) {
    const auto parent = ParentOf(entry.path);
    if (!parent || Key(*parent) != folderKey) continue;
    const std::string_view name = NameOf(entry.path);
    if (!search_pattern::Matches(name, parts.name)) continue;
    if (!PassesSearchFilter(entry.attributes, include)) continue;
    found.push_back({std::string(name), entry.attributes});
  }
  return found;
}

std::optional<FileIdentity> MemoryFileSystem::IdentityOf(std::string_view path) {
  const Entry* entry = Find(path);
  if (entry == nullptr) return std::nullopt;
  return FileIdentity{0, entry->node};
}

std::optional<FileVersion> MemoryFileSystem::VersionOf(std::string_view path) {
  const Entry* entry = Find(path);
  if (entry == nullptr) return std::nullopt;
  return FileVersion{{0, entry->node}, entry->contents.size(), entry->writes, entry->writes};
}

bool MemoryFileSystem::OneEntry(std::string_view a, std::string_view b) {
  const Entry* one = Find(a);
  return one != nullptr && one == Find(b);
}

std::string MemoryFileSystem::Shown(std::string_view path) const {
  return shown_ == ShownForm::kPosix ? SwapSlashes(path) : std::string(path);
}

}  // namespace tessaly
