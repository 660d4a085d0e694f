#ifndef TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_

#include <functional>
#include <string>

#include "platform/file_system.h"
#include "platform/path_forms.h"
#include "platform/posix/cross_device_move.h"
#include "platform/posix/native_path.h"
#include "platform/posix/path_resolver.h"

namespace tessaly {

// The real file system of a POSIX machine, seen through model paths. A name
// means the entry the kernel finds under exactly that name (see
// PathResolver for the one exception, folders); a rename never replaces
// anything; a read-only file is not deleted, as on the desktop platform.
// For one thread: it keeps answers for reuse until ForgetAnswers.
class PosixFileSystem : public FileSystem {
 public:
  std::optional<std::uint32_t> GetAttributes(std::string_view path) override;
  bool Rename(std::string_view source, std::string_view target) override;
  RenameAnswer RenameIfFree(std::string_view source, std::string_view target) override;
  bool DeleteIfUnchanged(std::string_view path, const FileVersion& expected) override;
  std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) override;
  std::optional<FileIdentity> IdentityOf(std::string_view path) override;
  std::optional<FileVersion> VersionOf(std::string_view path) override;
  bool OneEntry(std::string_view a, std::string_view b) override;
  std::string SameNameKey(std::string_view path) const override { return std::string(path); }
  bool SameName(std::string_view a, std::string_view b) const override { return a == b; }
  std::string PathOnDisk(std::string_view path) override;
  std::string Shown(std::string_view path) const override { return ToNativePath(path); }
  void AppendShown(std::string_view path, std::string& out) const override;
  void ForgetAnswers() override { resolver_.Forget(); }

  // Test seams. `hook` runs once, inside the next Rename, after its checks
  // and right before the file is moved.
  void SetBeforeNextRenameForTesting(std::function<void()> hook) {
    beforeNextRename_ = std::move(hook);
  }
  // Consulted by every move between file systems.
  void SetMoveFaultForTesting(MoveFault fault) { moveFault_ = std::move(fault); }

 private:
  // Rename, or with `caseChangeOfItself` false, RenameIfFree.
  RenameAnswer Place(std::string_view source, std::string_view target, bool caseChangeOfItself);
  RenameAnswer Move(const ResolvedPath& from, const std::string& to, bool caseChangeOfItself);
  // Where `native` goes: its folder as the disk spells it, its name as given.
  bool PlaceOnDisk(const std::string& native, std::string& placed);
  // `modelPath` in native form, in a buffer reused by the next call.
  const std::string& NativeOf(std::string_view modelPath);

  PathResolver resolver_;
  std::string native_;
  std::function<void()> beforeNextRename_;
  MoveFault moveFault_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_POSIX_FILE_SYSTEM_H_
