// The POSIX file system as a contract-suite backend: a temporary folder,
// and a case-folding mount where the machine can make one.
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "file_system_backends.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"

namespace tessaly::testing {

namespace {

// A folder on a file system that folds letter case itself: an ext4 image
// with the casefold feature, or a FAT image, mounted through a loop device
// once per process. Empty, with the reason in `whyNot`, where this machine
// cannot make one (not root, no loop devices, a kernel without the feature).
class CaseFoldingMount {
 public:
  CaseFoldingMount() {
    char pattern[] = "/tmp/tessaly-fold-XXXXXX";
    if (mkdtemp(pattern) == nullptr) return;
    base_ = pattern;
    const std::string image = base_ + "/disk.img", mount = base_ + "/mnt";
    const std::string quiet = " >/dev/null 2>&1";
    std::filesystem::create_directory(mount);
    if (Run("truncate -s 32M " + image + quiet) &&
        Run("mkfs.ext4 -q -O casefold " + image + quiet) &&
        Run("mount -o loop " + image + " " + mount + quiet)) {
      mounted_ = true;
      const std::string folded = mount + "/folded";
      if (Run("mkdir " + folded + " && chattr +F " + folded + quiet)) folder_ = folded;
    } else if (Run("rm -f " + image + " && truncate -s 32M " + image + " && mkfs.vfat " + image +
                   quiet) &&
               Run("mount -o loop " + image + " " + mount + quiet)) {
      mounted_ = true;
      folder_ = mount;
    }
  }
  ~CaseFoldingMount() {
    if (mounted_) Run("umount " + base_ + "/mnt >/dev/null 2>&1");
    std::error_code ignored;
    if (!base_.empty()) std::filesystem::remove_all(base_, ignored);
  }
  const std::string& folder() const { return folder_; }

 private:
  static bool Run(const std::string& command) { return std::system(command.c_str()) == 0; }

  std::string base_;
  bool mounted_ = false;
  std::string folder_;
};

class PosixBackend : public FileSystemBackend {
 public:
  explicit PosixBackend(const std::string& parent = "", bool ignoresCase = false)
      : folder_(parent), ignoresCase_(ignoresCase) {}
  FileSystem& fs() override { return fs_; }
  std::string Root() const override { return ToModelPath(folder_.path()); }
  bool IgnoresCase() const override { return ignoresCase_; }
  void MakeFile(std::string_view path, std::string_view contents,
                std::uint32_t attributes) override {
    const std::string native = ToNativePath(path);
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
    const std::string name = native.substr(native.find_last_of('/') + 1);
    if (std::find(names.begin(), names.end(), name) == names.end()) return std::nullopt;
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
  bool ignoresCase_;
  PosixFileSystem fs_;
};

}  // namespace

std::unique_ptr<FileSystemBackend> MakePosixBackend() { return std::make_unique<PosixBackend>(); }

std::unique_ptr<FileSystemBackend> MakeCaseFoldingPosixBackend() {
  static const CaseFoldingMount mount;
  if (mount.folder().empty()) return nullptr;
  return std::make_unique<PosixBackend>(mount.folder(), true);
}

}  // namespace tessaly::testing
