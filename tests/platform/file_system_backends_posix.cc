// The POSIX file system as a contract-suite backend, in a temporary folder,
// and the native file helpers the POSIX tests share.
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "file_system_backends.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"

namespace tessaly::testing {

std::optional<std::string> ReadNative(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteNative(const std::string& path, std::string_view contents) {
  std::ofstream(path, std::ios::binary) << contents;
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

namespace {

class PosixBackend : public FileSystemBackend {
 public:
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return ToModelPath(folder_.path()); }
  bool IgnoresCase() const override { return false; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    const std::string native = ToNativePath(path);
    // A FIFO stands for a file that is neither regular nor a folder.
    if ((attributes & attr::kSystem) != 0) {
      mkfifo(native.c_str(), 0644);
      return;
    }
    WriteNative(native, contents);
    if ((attributes & attr::kReadOnly) != 0) chmod(native.c_str(), 0444);
  }
  void MakeFolder(std::string_view path) override {
    std::filesystem::create_directory(ToNativePath(path));
  }
  std::optional<std::string> Read(std::string_view path) override {
    const std::string native = ToNativePath(path);
    const auto names = NamesIn(native.substr(0, native.find_last_of('/')));
    if (!std::ranges::binary_search(names, native.substr(native.find_last_of('/') + 1))) {
      return std::nullopt;
    }
    return ReadNative(native);
  }
  std::vector<std::string> Names(std::string_view folder) override {
    std::vector<std::string> names = NamesIn(ToNativePath(folder));
    for (std::string& name : names) name = ToModelPath(name);
    return names;
  }
  void BeforeNextRename(std::function<void()> hook) override {
    fs_.SetBeforeNextRenameForTesting(std::move(hook));
  }

 private:
  TempFolder folder_;
  PosixFileSystem fs_;
};

}  // namespace

std::unique_ptr<FileSystemBackend> MakePosixBackend() { return std::make_unique<PosixBackend>(); }

}  // namespace tessaly::testing
