#ifndef TESSALY_PLATFORM_FILE_SYSTEM_WRAPPER_H_
#define TESSALY_PLATFORM_FILE_SYSTEM_WRAPPER_H_

#include "platform/file_system.h"

namespace tessaly {

// Hands every call to another file system; a wrapper that changes one
// thing overrides that one call.
class FileSystemWrapper : public FileSystem {
 public:
  explicit FileSystemWrapper(FileSystem& real) : real_(real) {}

  std::optional<std::uint32_t> GetAttributes(std::string_view path) override {
    return real_.GetAttributes(path);
  }
  bool Rename(std::string_view source, std::string_view target) override {
    return real_.Rename(source, target);
  }
  RenameAnswer RenameIfFree(std::string_view source, std::string_view target) override {
    return real_.RenameIfFree(source, target);
  }
  bool DeleteIfUnchanged(std::string_view path, const FileVersion& expected) override {
    return real_.DeleteIfUnchanged(path, expected);
  }
  std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) override {
    return real_.Search(pattern, include);
  }
  std::optional<FileIdentity> IdentityOf(std::string_view path) override {
    return real_.IdentityOf(path);
  }
  std::optional<FileVersion> VersionOf(std::string_view path) override {
    return real_.VersionOf(path);
  }
  bool OneEntry(std::string_view a, std::string_view b) override { return real_.OneEntry(a, b); }
  std::string SameNameKey(std::string_view path) const override { return real_.SameNameKey(path); }
  std::string PathOnDisk(std::string_view path) override { return real_.PathOnDisk(path); }
  std::string Shown(std::string_view path) const override { return real_.Shown(path); }
  void AppendShown(std::string_view path, std::string& out) const override {
    real_.AppendShown(path, out);
  }
  bool SameName(std::string_view a, std::string_view b) const override {
    return real_.SameName(a, b);
  }
  void ForgetAnswers() override { real_.ForgetAnswers(); }

 protected:
  FileSystem& real() const { return real_; }

 private:
  FileSystem& real_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_FILE_SYSTEM_WRAPPER_H_
