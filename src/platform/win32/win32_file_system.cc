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
  if (path.empty()) return std::nullopt;
  const DWORD bits = GetFileAttributesW(Widen(path).c_str());
  if (bits == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  return static_cast<std::uint32_t>(bits);
}

bool Win32FileSystem::Rename(std::string_view source, std::string_view target) {
  if (!NamesFile(source) || !NamesFile(target)) return false;
  const std::wstring from = Widen(source);
  if (!IsFile(from)) return false;
  if (source == target) return true;
  if (beforeNextRename_) std::exchange(beforeNextRename_, nullptr)();
  const std::wstring to = Widen(target);
  if (SameNameKey(source) == SameNameKey(target)) return ChangeLetterCase(from, to);
  // Without MOVEFILE_REPLACE_EXISTING the move fails on any existing target,
  // also one that appeared after the check.
  return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_COPY_ALLOWED) != 0;
}

bool Win32FileSystem::Delete(std::string_view path) {
  if (!NamesFile(path)) return false;
  // DeleteFileW refuses folders and read-only files by itself.
  return DeleteFileW(Widen(path).c_str()) != 0;
}

std::vector<DirectoryEntry> Win32FileSystem::Search(std::string_view pattern,
                                                    std::uint32_t include) {
  const search_pattern::Parts parts = search_pattern::Split(pattern);
  WIN32_FIND_DATAW found{};
  // FindExInfoBasic leaves the short names out of the answer, but Windows
  // still matches the pattern against them; the project's own matching
  // below drops a name that only its short form matched.
  const FindHandle search(FindFirstFileExW(Widen(pattern).c_str(), FindExInfoBasic, &found,
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
  const HANDLE file = CreateFileW(Widen(path).c_str(), 0,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION info{};
  const bool known = GetFileInformationByHandle(file, &info) != 0;
  CloseHandle(file);
  if (!known) return std::nullopt;
  return FileIdentity{info.dwVolumeSerialNumber,
                      (static_cast<std::uint64_t>(info.nFileIndexHigh) << 32) | info.nFileIndexLow};
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
