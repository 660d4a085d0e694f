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
