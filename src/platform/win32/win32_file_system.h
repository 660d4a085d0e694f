#ifndef TESSALY_PLATFORM_WIN32_WIN32_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_WIN32_WIN32_FILE_SYSTEM_H_

#include <functional>
#include <string>

#include "platform/file_system.h"

namespace tessaly {

// The file system of a Windows machine through the wide-character calls.
// Model paths are Windows paths already, so they are converted to UTF-16
// and nothing else; names are compared as Windows compares them. A rename
// never replaces anything; a read-only file is not deleted.
class Win32FileSystem : public FileSystem {
 public:
  std::optional<std::uint32_t> GetAttributes(std::string_view path) override;
  bool Rename(std::string_view source, std::string_view target) override;
  RenameAnswer RenameIfFree(std::string_view source, std::string_view target) override;
  bool DeleteIfUnchanged(std::string_view path, const FileVersion& expected) override;
  std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) override;
  std::optional<FileIdentity> IdentityOf(std::string_view path) override;
  std::optional<FileVersion> VersionOf(std::string_view path) override;
  bool OneEntry(std::string_view a, std::string_view b) override;
  // Upper case, as Windows compares names, without a closing backslash.
  std::string SameNameKey(std::string_view path) const override;
  std::string Shown(std::string_view path) const override { return std::string(path); }

  // Test seam: `hook` runs once, inside the next rename, after its checks
  // and right before the file is moved.
  void SetBeforeNextRenameForTesting(std::function<void()> hook) {
    beforeNextRename_ = std::move(hook);
  }

 private:
  std::function<void()> beforeNextRename_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_FILE_SYSTEM_H_
