#ifndef TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
#define TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_

#include <algorithm>
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
    std::string shown;
    AppendShown(path, shown);
    return shown;
  }

  void AppendShown(std::string_view path, std::string& out) const override {
    const std::size_t from = out.size();
    real().AppendShown(path, out);
    // Printable ASCII without a backslash shows as itself either way.
    if (std::all_of(out.begin() + static_cast<std::ptrdiff_t>(from), out.end(),
                    [](char c) { return c >= 0x20 && c < 0x7f && c != '\\'; })) {
      return;
    }
    const std::string shown = out.substr(from);
    out.resize(from);
    if (!machine::NamesMayHoldBackslash() &&
        text::Visible(shown, text::Layout::kLineEnds) == shown) {
      out += shown;
    } else {
      text::AppendVisible(shown, text::Layout::kNone, out);
    }
  }
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_VISIBLE_PATHS_FILE_SYSTEM_H_
