#include "file_system_backends.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/memory/memory_file_system.h"

namespace tessaly::testing {

namespace {

class MemoryBackend : public FileSystemBackend {
 public:
  explicit MemoryBackend(bool ignoreCase)
      : fs_(ignoreCase ? MemoryFileSystem::LetterCase::kIgnore
                       : MemoryFileSystem::LetterCase::kExact),
        ignoreCase_(ignoreCase) {
    fs_.AddDirectory(Root());
  }
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return "C:\\Work"; }
  bool IgnoresCase() const override { return ignoreCase_; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    const std::size_t slash = path.find_last_of('\\');
    if (path.substr(slash + 1).starts_with('.')) attributes |= attr::kHidden;
    const std::uint32_t bits = attributes == 0 ? attr::kArchive : attributes;
    fs_.AddFile(path, bits);
    fs_.SetContents(path, std::string(contents));
  }
  void MakeFolder(std::string_view path) override {
    const bool hidden = path.substr(path.find_last_of('\\') + 1).starts_with('.');
    fs_.AddFile(path, attr::kDirectory | (hidden ? attr::kHidden : 0));
  }
  std::optional<std::string> Read(std::string_view path) override {
    return std::ranges::count(fs_.Paths(), path) == 0 ? std::nullopt : fs_.Contents(path);
  }
  std::vector<std::string> Names(std::string_view folder) override {
    const std::string prefix = std::string(folder) + "\\";
    std::vector<std::string> names;
    for (const std::string& path : fs_.Paths()) {
      if (!path.starts_with(prefix)) continue;
      const std::string name = path.substr(prefix.size());
      if (name.find('\\') == std::string::npos) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  void BeforeNextRename(std::function<void()> hook) override {
    fs_.BeforeNextRename(std::move(hook));
  }

 private:
  MemoryFileSystem fs_;
  bool ignoreCase_;
};

}  // namespace

std::optional<std::string> ReadNative(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

void WriteNative(const std::string& path, std::string_view contents) {
  std::ofstream(path, std::ios::binary).write(contents.data(),
                                              static_cast<std::streamsize>(contents.size()));
}

std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::unique_ptr<FileSystemBackend> MakeMemoryBackend(bool ignoreCase) {
  return std::make_unique<MemoryBackend>(ignoreCase);
}

}  // namespace tessaly::testing
