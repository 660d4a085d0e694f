#include "platform/win32/win32_file_system.h"

#include <windows.h>

#include <utility>

#include "platform/search_pattern.h"
#include "platform/win32/utf16.h"

namespace tessaly {

namespace {

using win32::Narrow;
using win32::Widen;

// A path that can name a file: not empty and not ending in a separator.
bool NamesFile(std::string_view path) { return !path.empty() && path.back() != '\\'; }

bool HasDotFolder(std::string_view path) {
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('\\', start), path.size());
    const std::string_view part = path.substr(start, end - start);
    if (part == "." || part == "..") return true;
    start = end + 1;
  }
  return false;
}

// `path` as the system must be given it to reach exactly that name: an
// absolute path goes in the "\\?\" form, which Windows takes as it is
// written, so a name that ends in a period or a blank is not cut to
// another file's name. Relative paths and paths with "." or ".." parts
// need the system's reading and keep their form.
std::wstring Exact(std::string_view path) {
  if (HasDotFolder(path) || path.starts_with("\\\\?\\")) return Widen(path);
  if (path.size() >= 3 && path[1] == ':' && path[2] == '\\') return L"\\\\?\\" + Widen(path);
  if (path.starts_with("\\\\")) return L"\\\\?\\UNC\\" + Widen(path.substr(2));
  return Widen(path);
}

// A colon in a folder's name, behind any drive: no Windows file system
// takes such a path (a colon in a name only ever marks a stream of a
// file), so it names nothing and the system need not be asked. Under Wine
// the question would cost a search of the working folder.
bool ColonInFolderName(std::string_view path) {
  if (path.starts_with("\\\\?\\")) path.remove_prefix(4);
  if (path.size() >= 2 && path[1] == ':') path.remove_prefix(2);
  const std::size_t lastSlash = path.find_last_of('\\');
  return lastSlash != std::string_view::npos &&
         path.substr(0, lastSlash).find(':') != std::string_view::npos;
}

bool IsFile(const std::wstring& path) {
  const DWORD bits = GetFileAttributesW(path.c_str());
  return bits != INVALID_FILE_ATTRIBUTES && (bits & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// The name of the entry `path` leads to, spelled as the disk keeps it.
std::wstring StoredName(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return {};
  FindClose(search);
  return found.cFileName;
}

std::wstring NameOf(const std::wstring& path) {
  const std::size_t slash = path.find_last_of(L'\\');
  return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

// Moves `from` to `to`, which differs from it in letter case alone. Some
// file systems (Wine's among them) take that for a move onto itself and
// keep the old spelling; the file then goes through a free name.
bool ChangeLetterCase(const std::wstring& from, const std::wstring& to) {
  if (MoveFileExW(from.c_str(), to.c_str(), 0) == 0) return false;
  if (StoredName(to) == NameOf(to)) return true;
  std::wstring aside = from + L".case";
  for (int n = 0; GetFileAttributesW(aside.c_str()) != INVALID_FILE_ATTRIBUTES; ++n) {
    aside = from + L".case" + std::to_wstring(n);
  }
  if (MoveFileExW(from.c_str(), aside.c_str(), 0) == 0) return false;
  if (MoveFileExW(aside.c_str(), to.c_str(), 0) != 0) return true;
  MoveFileExW(aside.c_str(), from.c_str(), 0);
  return false;
}

class FileHandle {
 public:
  explicit FileHandle(HANDLE handle) : handle_(handle) {}
  ~FileHandle() {
    if (valid()) CloseHandle(handle_);
  }
  FileHandle(const FileHandle&) = delete;
  FileHandle& operator=(const FileHandle&) = delete;
  bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// The entry `path` names itself (a link is not followed), opened for
// `access` and shared with every other program.
HANDLE Open(std::string_view path, DWORD access) {
  return CreateFileW(Exact(path).c_str(), access,
                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                     FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

std::optional<FileVersion> VersionBehind(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION info{};
  FILE_BASIC_INFO basic{};
  if (file == INVALID_HANDLE_VALUE || GetFileInformationByHandle(file, &info) == 0) {
    return std::nullopt;
  }
  // Not every file system keeps the time of the last change; then it reads 0.
  GetFileInformationByHandleEx(file, FileBasicInfo, &basic, sizeof basic);
  const auto wide = [](DWORD high, DWORD low) { return (static_cast<std::uint64_t>(high) << 32) | low; };
  return FileVersion{{info.dwVolumeSerialNumber, wide(info.nFileIndexHigh, info.nFileIndexLow)},
                     wide(info.nFileSizeHigh, info.nFileSizeLow),
                     static_cast<std::int64_t>(wide(info.ftLastWriteTime.dwHighDateTime,
                                                    info.ftLastWriteTime.dwLowDateTime)),
                     basic.ChangeTime.QuadPart};
}

class FindHandle {
 public:
  explicit FindHandle(HANDLE handle) : handle_(handle) {}
  ~FindHandle() {
    if (handle_ != INVALID_HANDLE_VALUE) FindClose(handle_);
  }
  FindHandle(const FindHandle&) = delete;
  FindHandle& operator=(const FindHandle&) = delete;
  bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

std::optional<std::uint32_t> Win32FileSystem::GetAttributes(std::string_view path) {
  if (path.empty() || ColonInFolderName(path)) return std::nullopt;
  const DWORD bits = GetFileAttributesW(Exact(path).c_str());
  if (bits == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return static_cast<std::uint32_t>(bits);
}

bool Win32FileSystem::Rename(std::string_view source, std::string_view target) {
  if (!NamesFile(source) || !NamesFile(target)) return false;
  const std::wstring from = Exact(source);
  if (!IsFile(from)) return false;
  if (source == target) return true;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  const std::wstring to = Exact(target);
  if (SameNameKey(source) == SameNameKey(target)) return ChangeLetterCase(from, to);
  // Without MOVEFILE_REPLACE_EXISTING the move fails on any existing target,
  // also one that appeared after the check.
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_COPY_ALLOWED) != 0;
}

RenameAnswer Win32FileSystem::RenameIfFree(std::string_view source, std::string_view target) {
  if (!NamesFile(source) || !NamesFile(target)) return RenameAnswer::kFailed;
  const std::wstring from = Exact(source);
  if (!IsFile(from)) return RenameAnswer::kFailed;
  // The file itself stands under a name Windows takes for its own.
  if (SameNameKey(source) == SameNameKey(target)) return RenameAnswer::kTaken;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  const std::wstring to = Exact(target);
  // Within a volume a move is one rename, which asks nothing more of a
  // folder (a look at a missing name costs a scan of it under Wine).
  if (MoveFileExW(from.c_str(), to.c_str(), 0) != 0) return RenameAnswer::kRenamed;
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) return RenameAnswer::kTaken;
  if (error != ERROR_NOT_SAME_DEVICE) return RenameAnswer::kFailed;
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_COPY_ALLOWED) != 0 ? RenameAnswer::kMoved
                                                                           : RenameAnswer::kFailed;
}

bool Win32FileSystem::DeleteIfUnchanged(std::string_view path, const FileVersion& expected) {
  if (!NamesFile(path)) return false;
  // The file is opened, checked and marked for deletion through one
  // handle, so the file deleted is the file checked.
  const FileHandle file(Open(path, DELETE | FILE_READ_ATTRIBUTES));
  if (!file.valid()) return false;
  const std::optional<FileVersion> now = VersionBehind(file.get());
  BY_HANDLE_FILE_INFORMATION info{};
  if (!now || *now != expected || GetFileInformationByHandle(file.get(), &info) == 0) return false;
  if ((info.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
    return false;
  }
  FILE_DISPOSITION_INFO dispose{TRUE};
  return SetFileInformationByHandle(file.get(), FileDispositionInfo, &dispose, sizeof dispose) != 0;
}

std::vector<DirectoryEntry> Win32FileSystem::Search(std::string_view pattern,
                                                    std::uint32_t include) {
  const search_pattern::Parts parts = search_pattern::Split(pattern);
  WIN32_FIND_DATAW found{};
  // FindExInfoBasic leaves the short names out of the answer, but Windows
  // still matches the pattern against them; the project's own matching
  // below drops a name that only its short form matched.
  const FindHandle search(FindFirstFileExW(Exact(pattern).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr,
                                           FIND_FIRST_EX_LARGE_FETCH));
  std::vector<DirectoryEntry> entries;
  if (!search.valid()) return entries;
  do {
    const std::wstring_view wide(found.cFileName);
    if (wide == L"." || wide == L"..") continue;
    std::string name = Narrow(wide);
    const auto attributes = static_cast<std::uint32_t>(found.dwFileAttributes);
    if (!search_pattern::Matches(name, parts.name) || !PassesSearchFilter(attributes, include)) {
      continue;
    }
    entries.push_back({std::move(name), attributes});
  } while (FindNextFileW(search.get(), &found) != 0);
  return entries;
}

std::optional<FileIdentity> Win32FileSystem::IdentityOf(std::string_view path) {
  if (path.empty()) return std::nullopt;
  // No access asked for: the handle only reads the file's facts, and
  // FILE_FLAG_BACKUP_SEMANTICS lets it open a folder too.
  const FileHandle file(CreateFileW(Exact(path).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  const std::optional<FileVersion> version = VersionBehind(file.get());
  if (!version) return std::nullopt;
  return version->identity;
}

std::optional<FileVersion> Win32FileSystem::VersionOf(std::string_view path) {
  if (path.empty()) return std::nullopt;
  const FileHandle file(Open(path, FILE_READ_ATTRIBUTES));
  return VersionBehind(file.get());
}

bool Win32FileSystem::OneEntry(std::string_view a, std::string_view b) {
  if (a == b) return true;
  // Names that differ in letter case alone are one name to Windows, but a
  // disk shared with another system may still hold them as two files.
  if (SameNameKey(a) != SameNameKey(b)) return false;
  const auto one = IdentityOf(a);
  return one && one == IdentityOf(b);
}

std::string Win32FileSystem::SameNameKey(std::string_view path) const {
  if (!path.empty() && path.back() == '\\') path.remove_suffix(1);
  std::wstring wide = Widen(path);
  if (wide.empty()) return {};
  // The system's own upper-casing, the one its file names are compared by.
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, wide.data(), static_cast<int>(wide.size()),
                wide.data(), static_cast<int>(wide.size()), nullptr, nullptr, 0);
  return Narrow(wide);
}

}  // namespace tessaly
