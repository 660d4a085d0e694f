#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

#include "platform/posix/folder_search.h"
#include "platform/posix/native_path.h"
#include "platform/posix/no_replace_rename.h"
#include "platform/posix/posix_attributes.h"
#include "platform/search_pattern.h"

namespace tessaly {

namespace {

using State = ResolvedPath::State;

// A path that can name a file: not empty and not ending in a separator.
bool NamesFile(std::string_view modelPath) {
  return !modelPath.empty() && modelPath.back() != '\\';
}

std::string NameOf(const std::string& native) {
  const std::size_t slash = native.find_last_of('/');
  return slash == std::string::npos ? native : native.substr(slash + 1);
}

bool SameEntry(const ResolvedPath& a, const ResolvedPath& b) {
  return a.info.st_dev == b.info.st_dev && a.info.st_ino == b.info.st_ino;
}

std::uint32_t AttributesOfFound(const ResolvedPath& found) {
  return AttributesOf(found.Name(), FollowLink(AT_FDCWD, found.native.c_str(), found.info));
}

}  // namespace

std::optional<std::uint32_t> PosixFileSystem::GetAttributes(std::string_view path) {
  if (path.empty()) return std::nullopt;
  const ResolvedPath found = resolver_.Resolve(ToNativePath(path));
  if (!found.Exists()) return std::nullopt;
  return AttributesOfFound(found);
}

bool PosixFileSystem::TargetFor(const ResolvedPath& source, const std::string& target,
                                std::string& native) {
  const ResolvedPath resolved = resolver_.ResolveNew(target);
  if (resolved.state == State::kMissing) {
    native = resolved.native;
    return true;
  }
  // Only the source itself may stand under the target's name: that is a
  // change of letter case (or none), and the name takes the target's spelling.
  if (resolved.state != State::kFound || !SameEntry(resolved, source)) return false;
  const std::string name = NameOf(target);
  native = name == source.Name() ? source.native : resolved.Folder() + "/" + name;
  return true;
}

bool PosixFileSystem::Move(const std::string& from, const std::string& to) {
  switch (RenameWithoutReplacing(from, to)) {
    case PlaceResult::kDone:
      return true;
    case PlaceResult::kCrossDevice:
      return MoveAcrossFileSystems(from, to, moveFault_);
    default:
      return false;
  }
}

bool PosixFileSystem::Rename(std::string_view source, std::string_view target) {
  if (!NamesFile(source) || !NamesFile(target)) return false;
  const ResolvedPath from = resolver_.Resolve(ToNativePath(source));
  if (from.state != State::kFound || S_ISDIR(from.info.st_mode)) return false;
  std::string to;
  if (!TargetFor(from, ToNativePath(target), to)) return false;
  if (to == from.native) return true;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  if (!Move(from.native, to)) return false;
  const ResolvedPath moved{State::kFound, to, {}};
  resolver_.index().NoteMoved(from.Folder(), from.Name(), moved.Folder(), moved.Name());
  return true;
}

bool PosixFileSystem::Delete(std::string_view path) {
  if (!NamesFile(path)) return false;
  const ResolvedPath found = resolver_.Resolve(ToNativePath(path));
  if (found.state != State::kFound || S_ISDIR(found.info.st_mode)) return false;
  // A read-only file is protected from deletion, as on the desktop platform.
  if ((AttributesOfFound(found) & attr::kReadOnly) != 0) return false;
  if (unlink(found.native.c_str()) != 0) return false;
  resolver_.index().NoteRemoved(found.Folder(), found.Name());
  return true;
}

std::vector<DirectoryEntry> PosixFileSystem::Search(std::string_view pattern,
                                                    std::uint32_t include) {
  const search_pattern::Parts parts = search_pattern::Split(pattern);
  const ResolvedPath folder =
      resolver_.Resolve(parts.folder.empty() ? std::string(".") : ToNativePath(parts.folder));
  if (folder.state != State::kFound) return {};
  return SearchFolder(folder.native, parts.name, include);
}

std::optional<FileIdentity> PosixFileSystem::IdentityOf(std::string_view path) {
  struct stat info {};
  if (path.empty() || stat(ToNativePath(path).c_str(), &info) != 0) return std::nullopt;
  return FileIdentity{static_cast<std::uint64_t>(info.st_dev), static_cast<std::uint64_t>(info.st_ino)};
}

}  // namespace tessaly
