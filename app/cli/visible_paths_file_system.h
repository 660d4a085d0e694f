#ifndef TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
#define TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_

#include <string>
#include <string_view>

#include "platform/posix/posix_file_system.h"
#include "text/visible_text.h"

namespace tessaly::cli {

// The real file system, with every path a person reads shown so that no
// name can act on the terminal or pass for layout: control characters
// escaped, a backslash doubled so an escape in a name is told apart.
class VisiblePathsFileSystem : public PosixFileSystem {
 public:
  std::string Shown(std::string_view path) const override {
    return text::Visible(PosixFileSystem::Shown(path), text::Layout::kNone);
  }
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
