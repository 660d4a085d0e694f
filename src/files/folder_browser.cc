#include "files/folder_browser.h"

namespace tessaly {

namespace {

// The shell hands a path over in a buffer of this many characters.
constexpr std::size_t kPathBuffer = 260;

}  // namespace

std::string BrowseForFolder(Ui& ui, std::string_view title, std::string_view startFolder) {
  std::string chosen = ui.BrowseForFolder(title, startFolder);
  // The buffer ends at its first zero character and cannot hold more.
  chosen = chosen.substr(0, chosen.find('\0'));
  if (chosen.size() >= kPathBuffer) return "";
  return chosen;
}

}  // namespace tessaly
