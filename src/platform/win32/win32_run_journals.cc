#include "platform/win32/win32_run_journals.h"

#include <windows.h>

#include <cstdlib>

#include "platform/win32/utf16.h"

namespace tessaly {

namespace {

using win32::Narrow;
using win32::Widen;

constexpr std::wstring_view kExtension = L".journal";

std::string EnvironmentFolder(const wchar_t* variable) {
  const wchar_t* value = _wgetenv(variable);
  return value != nullptr && *value != L'\0' ? Narrow(value) : std::string();
}

class HandleAppender : public JournalAppender {
 public:
  explicit HandleAppender(HANDLE handle) : handle_(handle) {}
  ~HandleAppender() override { CloseHandle(handle_); }
  bool Append(std::string_view bytes) override {
    // Written to the system at once: a killed process loses nothing of it.
    while (!bytes.empty()) {
      DWORD written = 0;
      if (WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0 ||
          written == 0) {
        return false;
      }
      bytes.remove_prefix(written);
    }
    return true;
  }

 private:
  HANDLE handle_;
};

}  // namespace

Win32RunJournals::Win32RunJournals() {
  const std::string portable = EnvironmentFolder(L"TESSALY_REGISTRY_DIR");
  const std::string local = EnvironmentFolder(L"LOCALAPPDATA");
  // Without either, runs are not journaled.
  if (!portable.empty()) folder_ = portable + "\\runs";
  if (portable.empty() && !local.empty()) folder_ = local + "\\Tessaly\\runs";
}

std::wstring Win32RunJournals::FileOf(std::string_view name) const {
  if (folder_.empty() || name.empty() || name[0] == '.' ||
      name.find_first_of("\\/:") != std::string_view::npos) {
    return {};
  }
  return Widen(folder_) + L"\\" + Widen(name) + std::wstring(kExtension);
}

std::unique_ptr<JournalAppender> Win32RunJournals::Create(std::string_view name) {
  const std::wstring file = FileOf(name);
  if (file.empty()) return nullptr;
  // The folder and its parent; the ones above exist on every Windows.
  const std::wstring folder = Widen(folder_);
  CreateDirectoryW(folder.substr(0, folder.find_last_of(L'\\')).c_str(), nullptr);
  CreateDirectoryW(folder.c_str(), nullptr);
  const HANDLE handle = CreateFileW(file.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return nullptr;
  return std::make_unique<HandleAppender>(handle);
}

std::vector<std::string> Win32RunJournals::Names() {
  std::vector<std::string> names;
  if (folder_.empty()) return names;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((Widen(folder_) + L"\\*.journal").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    const std::wstring_view file = found.cFileName;
    if ((found.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0 &&
        file.size() > kExtension.size() && file.ends_with(kExtension) && file[0] != L'.') {
      names.push_back(Narrow(file.substr(0, file.size() - kExtension.size())));
    }
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  return names;
}

std::optional<std::string> Win32RunJournals::Read(std::string_view name) {
  const std::wstring file = FileOf(name);
  if (file.empty()) return std::nullopt;
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION info{};
  std::optional<std::string> text;
  if (GetFileInformationByHandle(handle, &info) != 0 &&
      (info.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0) {
    text.emplace();
    char buffer[64 * 1024];
    DWORD got = 0;
    while (ReadFile(handle, buffer, sizeof buffer, &got, nullptr) != 0 && got > 0) {
      text->append(buffer, got);
    }
  }
  CloseHandle(handle);
  return text;
}

bool Win32RunJournals::Remove(std::string_view name) {
  const std::wstring file = FileOf(name);
  return !file.empty() && DeleteFileW(file.c_str()) != 0;
}

}  // namespace tessaly
