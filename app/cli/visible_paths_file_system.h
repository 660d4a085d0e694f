#ifndef TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
#define TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_

#include <string>
#include <string_view>

#include "platform/file_system_wrapper.h"
#include "platform/machine.h"
#include "text/visible_text.h"

namespace tessaly::cli {

// The machine's file system, with every path a person reads shown so that
// no name can act on the terminal or pass for layout: control characters
// escaped, a backslash doubled so an escape in a name is told apart. Where
// names cannot hold a backslash, a path with nothing to escape shows as it
// is, its separators single.
class VisiblePathsFileSystem : public FileSystemWrapper {
 public:
  using FileSystemWrapper::FileSystemWrapper;

<<<<<<< HEAD
=======
  std::optional<std::uint32_t> GetAttributes(std::string_view path) override {
    return real_.GetAttributes(path);
  }
  bool Rename(std::string_view source, std::string_view target) override {
    return real_.Rename(source, target);
  }
  bool Delete(std::string_view path) override { return real_.Delete(path); }
  std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) override {
    return real_.Search(pattern, include);
  }
  std::optional<FileIdentity> IdentityOf(std::string_view path) override {
    return real_.IdentityOf(path);
  }
  std::string SameNameKey(std::string_view path) const override { return real_.SameNameKey(path); }
  std::string PathOnDisk(std::string_view path) override { return real_.PathOnDisk(path); }
>>>>>>> h-cli
  std::string Shown(std::string_view path) const override {
    std::string shown = real().Shown(path);
    if (!machine::NamesMayHoldBackslash() &&
        text::Visible(shown, text::Layout::kLineEnds) == shown) {
      return shown;
    }
    return text::Visible(shown, text::Layout::kNone);
  }
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
