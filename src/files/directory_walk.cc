#include "files/directory_walk.h"

#include <unordered_set>

#include "text/text_ops.h"

namespace tessaly {

namespace {

// An ordered collection keyed by the path ignoring case, where adding a
// key that is there already fails quietly.
class PathCollection {
 public:
  void Add(std::string path) {
    if (keys_.insert(text::Fold(path)).second) paths_.push_back(std::move(path));
  }
  std::vector<std::string> Take() { return std::move(paths_); }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  std::vector<std::string> paths_;
  std::unordered_set<std::u32string> keys_;
};

void Walk(FileSystem& fileSystem, std::string path, std::string_view patterns, bool recursive,
          PathCollection& found) {
  if (path.empty() || path.back() != '\\') path += '\\';
  for (std::string_view pattern : text::Split(patterns, ";")) {
    for (DirectoryEntry& entry : fileSystem.Search(path + std::string(pattern), 0)) {
      found.Add(path + entry.name);
    }
  }
  if (!recursive) return;
  // All subfolders are known before the first is entered.
  PathCollection folders;
  for (const DirectoryEntry& entry : fileSystem.Search(path + "*.*", attr::kDirectory)) {
    if (entry.name == "." || entry.name == "..") continue;
    if ((entry.attributes & attr::kDirectory) != 0) folders.Add(path + entry.name);
  }
  for (const std::string& folder : folders.paths()) {
    Walk(fileSystem, folder, patterns, true, found);
  }
}

}  // namespace

std::vector<std::string> ListFiles(FileSystem& fileSystem, std::string path,
                                   std::string_view patterns, bool recursive) {
  PathCollection found;
  Walk(fileSystem, std::move(path), patterns, recursive, found);
  return found.Take();
}

}  // namespace tessaly
