#include "platform/posix/posix_file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "platform/path_forms.h"
#include "platform/posix/folder_search.h"
#include "platform/posix/native_path.h"
#include "platform/posix/no_replace_rename.h"
#include "platform/posix/posix_attributes.h"
#include "platform/search_pattern.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

using State = ResolvedPath::State;

// A path that can name a file: not empty and not ending in a separator.
bool NamesFile(std::string_view modelPath) {
  return !modelPath.empty() && modelPath.back() != '\\';
}

std::uint32_t AttributesOfFound(const ResolvedPath& found) {
  const std::size_t slash = found.native.find_last_of('/');
  const std::string_view name =
      std::string_view(found.native).substr(slash == std::string::npos ? 0 : slash + 1);
  return AttributesOf(name, FollowLink(AT_FDCWD, found.native.c_str(), found.info));
}

bool SameInode(const EntryFacts& one, const EntryFacts& other) {
  return one.version.identity == other.version.identity;
}

bool FolderListsName(const std::string& folder, std::string_view name) {
  const std::unique_ptr<DIR, int (*)(DIR*)> dir(opendir(folder.c_str()), closedir);
  if (!dir) return false;
  while (const dirent* entry = readdir(dir.get())) {
    if (name == entry->d_name) return true;
  }
  return false;
}

// `one` and `other`, two native paths found to lead to the inode `info`,
// are spellings of a single directory entry that the disk folds together,
// not two hard links. A file with one link has one entry; with more, two
// names are two entries when the folder lists them both.
bool OtherSpellingOfEntry(const std::string& one, const std::string& other,
                          const EntryFacts& info) {
  if (text::CompareIgnoreCase(ToModelPath(one), ToModelPath(other)) != 0) return false;
  if (info.st_nlink <= 1) return true;
  const std::size_t slash = other.find_last_of('/');
  const std::string folder = slash == std::string::npos ? "." : other.substr(0, slash + 1);
  return !(FolderListsName(folder, one.substr(one.find_last_of('/') + 1)) &&
           FolderListsName(folder, other.substr(slash + 1)));
}

// `target` holds the entry `source` names under a spelling that differs in
// letter case only: the disk folds case, and the move is a change of case.
bool IsCaseChangeOfItself(const ResolvedPath& source, const std::string& target) {
  struct stat info {};
  return lstat(target.c_str(), &info) == 0 && SameInode(info, source.info) &&
         OtherSpellingOfEntry(source.native, target, info);
}

}  // namespace

std::optional<std::uint32_t> PosixFileSystem::GetAttributes(std::string_view path) {
  if (path.empty()) return std::nullopt;
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  if (found.state != State::kFound) return std::nullopt;
  return AttributesOfFound(found);
}

RenameAnswer PosixFileSystem::Move(const ResolvedPath& from, const std::string& to,
                                   bool caseChangeOfItself) {
  const HeldFolders::Place source = resolver_.Reach(from.native);
  const HeldFolders::Place target = resolver_.Reach(to);
  switch (RenameWithoutReplacing(source.folder, source.name, target.folder, target.name)) {
    case PlaceResult::kRenamed:
      return RenameAnswer::kRenamed;
    case PlaceResult::kDone:
      return RenameAnswer::kMoved;
    case PlaceResult::kCrossDevice:
      return MoveAcrossFileSystems(from.native, to, moveFault_) ? RenameAnswer::kMoved
                                                                 : RenameAnswer::kFailed;
    case PlaceResult::kTaken:
      // Only the source itself may stand under the target's name.
      if (!caseChangeOfItself || !IsCaseChangeOfItself(from, to)) return RenameAnswer::kTaken;
      return rename(from.native.c_str(), to.c_str()) == 0 ? RenameAnswer::kRenamed
                                                          : RenameAnswer::kFailed;
    default:
      return RenameAnswer::kFailed;
  }
}

bool PosixFileSystem::Rename(std::string_view source, std::string_view target) {
  return Moved(Place(source, target, true));
}

RenameAnswer PosixFileSystem::RenameIfFree(std::string_view source, std::string_view target) {
  return Place(source, target, false);
}

RenameAnswer PosixFileSystem::Place(std::string_view source, std::string_view target,
                                    bool caseChangeOfItself) {
  if (!NamesFile(source) || !NamesFile(target)) return RenameAnswer::kFailed;
  // Stays valid: placing the target resolves folders only.
  const ResolvedPath& from = resolver_.Resolve(NativeOf(source));
  if (from.state != State::kFound || S_ISDIR(from.info.st_mode)) return RenameAnswer::kFailed;
  std::string to;
  if (!PlaceOnDisk(NativeOf(target), to)) return RenameAnswer::kFailed;
  if (to == from.native) return caseChangeOfItself ? RenameAnswer::kRenamed : RenameAnswer::kTaken;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  const RenameAnswer answer = Move(from, to, caseChangeOfItself);
  // Whatever was kept about either name is out of date: the file's change
  // time moved with it, and another entry may stand under the old name.
  resolver_.NoteChanged(from.native);
  resolver_.NoteChanged(to);
  return answer;
}

bool PosixFileSystem::PlaceOnDisk(const std::string& native, std::string& placed) {
  const std::size_t slash = native.find_last_of('/');
  if (slash == std::string::npos) {
    placed = native;
    return true;
  }
  const std::string_view folder = std::string_view(native).substr(0, slash == 0 ? 1 : slash);
  if (!resolver_.ResolveFolder(folder, placed)) return false;
  if (placed.back() != '/') placed.push_back('/');
  placed.append(native, slash + 1);
  return true;
}

std::string PosixFileSystem::PathOnDisk(std::string_view path) {
  std::string placed;
  if (!PlaceOnDisk(NativeOf(path), placed)) return std::string(path);
  return ToModelPath(placed);
}

const std::string& PosixFileSystem::NativeOf(std::string_view modelPath) {
  SwapSlashesInto(modelPath, native_);
  return native_;
}

void PosixFileSystem::AppendShown(std::string_view path, std::string& out) const {
  const std::size_t from = out.size();
  out += path;
  SwapSlashesIn(out, from);
}

bool PosixFileSystem::DeleteIfUnchanged(std::string_view path, const FileVersion& expected) {
  if (!NamesFile(path)) return false;
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  if (found.state != State::kFound) return false;
  const std::string native = found.native;
  // Looked at afresh, through the folder's handle, right before the unlink:
  // a kept answer may be older than the file now under the name. The kernel
  // has no unlink by identity, so a file put in place between these two
  // calls is the one narrow gap left.
  const HeldFolders::Place place = resolver_.Reach(native);
  struct stat now {};
  const bool removed =
      fstatat(place.folder, place.name, &now, AT_SYMLINK_NOFOLLOW) == 0 && !S_ISDIR(now.st_mode) &&
      VersionFrom(now) == expected &&
      // A read-only file is protected from deletion, as on the desktop platform.
      (AttributesOf(place.name, FollowLink(place.folder, place.name, now)) & attr::kReadOnly) == 0 &&
      unlinkat(place.folder, place.name, 0) == 0;
  resolver_.NoteChanged(native);
  return removed;
}

std::vector<DirectoryEntry> PosixFileSystem::Search(std::string_view pattern,
                                                    std::uint32_t include) {
  const search_pattern::Parts parts = search_pattern::Split(pattern);
  std::string folder;
  if (!resolver_.ResolveFolder(parts.folder.empty() ? std::string(".") : ToNativePath(parts.folder),
                               folder)) {
    return {};
  }
  return SearchFolder(folder, parts.name, include);
}

std::optional<FileIdentity> PosixFileSystem::IdentityOf(std::string_view path) {
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  struct stat info {};
  if (found.state != State::kFound || stat(found.native.c_str(), &info) != 0) return std::nullopt;
  return FileIdentity{static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)};
}

std::optional<FileVersion> PosixFileSystem::VersionOf(std::string_view path) {
  if (!NamesFile(path)) return std::nullopt;
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  if (found.state != State::kFound) return std::nullopt;
  return VersionFrom(found.info);
}

bool PosixFileSystem::OneEntry(std::string_view a, std::string_view b) {
  if (a == b) return true;
  const ResolvedPath& first = resolver_.Resolve(NativeOf(a));
  if (first.state != State::kFound) return false;
  const std::string one = first.native;
  const EntryFacts info = first.info;
  const ResolvedPath& second = resolver_.Resolve(NativeOf(b));
  if (second.state != State::kFound || !SameInode(second.info, info)) return false;
  return second.native == one || OtherSpellingOfEntry(one, second.native, info);
}

}  // namespace tessaly
