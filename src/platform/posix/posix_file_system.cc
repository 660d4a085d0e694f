#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

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

// `target` holds the entry `source` names under a spelling that differs in
// letter case only: the disk folds case, and the move is a change of case.
bool IsCaseChangeOfItself(const ResolvedPath& source, const std::string& target) {
  struct stat info {};
  if (lstat(target.c_str(), &info) != 0) return false;
  if (info.st_dev != source.info.st_dev || info.st_ino != source.info.st_ino) return false;
  return text::CompareIgnoreCase(ToModelPath(source.native), ToModelPath(target)) == 0;
}

}  // namespace

std::optional<std::uint32_t> PosixFileSystem::GetAttributes(std::string_view path) {
  if (path.empty()) return std::nullopt;
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  if (found.state != State::kFound) return std::nullopt;
  return AttributesOfFound(found);
}

bool PosixFileSystem::Move(const ResolvedPath& from, const std::string& to) {
  const HeldFolders::Place source = resolver_.Reach(from.native);
  const HeldFolders::Place target = resolver_.Reach(to);
  switch (RenameWithoutReplacing(source.folder, source.name, target.folder, target.name)) {
    case PlaceResult::kDone:
      return true;
    case PlaceResult::kCrossDevice:
      return MoveAcrossFileSystems(from.native, to, moveFault_);
    case PlaceResult::kTaken:
      // Only the source itself may stand under the target's name.
      return IsCaseChangeOfItself(from, to) && rename(from.native.c_str(), to.c_str()) == 0;
    default:
      return false;
  }
}

bool PosixFileSystem::Rename(std::string_view source, std::string_view target) {
  if (!NamesFile(source) || !NamesFile(target)) return false;
  // Stays valid: placing the target resolves folders only.
  const ResolvedPath& from = resolver_.Resolve(NativeOf(source));
  if (from.state != State::kFound || S_ISDIR(from.info.st_mode)) return false;
  std::string to;
  if (!PlaceOnDisk(NativeOf(target), to)) return false;
  if (to == from.native) return true;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  const bool moved = Move(from, to);
  resolver_.NoteChanged(from.native);
  resolver_.NoteChanged(to);
  return moved;
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

bool PosixFileSystem::Delete(std::string_view path) {
  if (!NamesFile(path)) return false;
  const ResolvedPath& found = resolver_.Resolve(NativeOf(path));
  if (found.state != State::kFound || S_ISDIR(found.info.st_mode)) return false;
  // A read-only file is protected from deletion, as on the desktop platform.
  if ((AttributesOfFound(found) & attr::kReadOnly) != 0) return false;
  const bool removed = unlink(found.native.c_str()) == 0;
  resolver_.NoteChanged(found.native);
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

}  // namespace tessaly
