// The Windows file system as a contract-suite backend: a temporary folder,
// where names are compared ignoring case.
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "file_system_backends.h"
#include "platform/win32/utf16.h"
#include "platform/win32/win32_file_system.h"

namespace tessaly::testing {

namespace {

namespace fs = std::filesystem;
using win32::Narrow;
using win32::Widen;

std::string NameOf(std::string_view path) { return std::string(path.substr(path.find_last_of('\\') + 1)); }

class Win32Backend : public FileSystemBackend {
 public:
  ~Win32Backend() override {
    // A read-only file would stop the folder's removal.
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(Widen(Root()), error)) {
      SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
  }
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return folder_.path(); }
  bool IgnoresCase() const override { return true; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    // The "\\?\" form, so a name may end in a period or a blank.
    std::ofstream(fs::path(L"\\\\?\\" + Widen(path)), std::ios::binary)
        .write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (NameOf(path).starts_with('.')) attributes |= attr::kHidden;
    if (attributes != 0) SetFileAttributesW((L"\\\\?\\" + Widen(path)).c_str(), attributes);
  }
  void MakeFolder(std::string_view path) override {
    CreateDirectoryW(Widen(path).c_str(), nullptr);
    if (NameOf(path).starts_with('.')) {
      SetFileAttributesW(Widen(path).c_str(), FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN);
    }
  }
  void MakeLink(std::string_view existing, std::string_view path) override {
    CreateHardLinkW(Widen(path).c_str(), Widen(existing).c_str(), nullptr);
  }
  std::optional<std::string> Read(std::string_view path) override {
    const std::string folder(path.substr(0, path.find_last_of('\\')));
    const auto names = Names(folder);
    if (std::find(names.begin(), names.end(), NameOf(path)) == names.end()) return std::nullopt;
    std::ifstream in(fs::path(L"\\\\?\\" + Widen(path)), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  std::vector<std::string> Names(std::string_view folder) override {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(Widen(folder), error)) {
      names.push_back(Narrow(entry.path().filename().wstring()));
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void BeforeNextRename(std::function<void()> hook) override {
    fs_.SetBeforeNextRenameForTesting(std::move(hook));
  }

 private:
  TempFolder folder_;
  Win32FileSystem fs_;
};

}  // namespace

std::unique_ptr<FileSystemBackend> MakeWin32Backend() { return std::make_unique<Win32Backend>(); }

}  // namespace tessaly::testing
