#include "files/directory_walk.h"

#include <unordered_set>

#include "text/text_ops.h"

namespace tessaly {

namespace {

// An ordered collection of paths where adding a path that is there already,
// as the file system tells names apart, fails quietly.
class PathCollection {
 public:
  explicit PathCollection(const FileSystem& fileSystem) : fileSystem_(fileSystem) {}
  void Add(std::string path) {
    if (keys_.insert(fileSystem_.SameNameKey(path)).second) paths_.push_back(std::move(path));
  }
  std::vector<std::string> Take() { return std::move(paths_); }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  const FileSystem& fileSystem_;
  std::vector<std::string> paths_;
  std::unordered_set<std::string> keys_;
};

struct IdentityHash {
  std::size_t operator()(const FileIdentity& id) const {
    return std::hash<std::uint64_t>()(id.node * 31 + id.device);
  }
};

class Walker {
 public:
  Walker(FileSystem& fileSystem, std::string_view patterns)
      : fileSystem_(fileSystem), patterns_(patterns), found_(fileSystem) {}

  void Walk(std::string path, bool recursive) {
    if (path.empty() || path.back() != '\\') path += '\\';
    // Links may lead back up the tree or twice to one folder: each folder
    // on disk is entered once, so the walk ends and lists each file once.
    const auto identity = fileSystem_.IdentityOf(path);
    if (identity && !entered_.insert(*identity).second) return;
    for (std::string_view pattern : text::Split(patterns_, ";")) {
      for (DirectoryEntry& entry : fileSystem_.Search(path + std::string(pattern), 0)) {
        found_.Add(path + entry.name);
      }
    }
    if (!recursive) return;
    // All subfolders are known before the first is entered.
    PathCollection folders(fileSystem_);
    for (const DirectoryEntry& entry : fileSystem_.Search(path + "*.*", attr::kDirectory)) {
      if (entry.name == "." || entry.name == "..") continue;
      if ((entry.attributes & attr::kDirectory) != 0) folders.Add(path + entry.name);
    }
    for (const std::string& folder : folders.paths()) Walk(folder, true);
  }

  std::vector<std::string> Take() { return found_.Take(); }

 private:
  FileSystem& fileSystem_;
  std::string_view patterns_;
  PathCollection found_;
  std::unordered_set<FileIdentity, IdentityHash> entered_;
};

}  // namespace

std::vector<std::string> ListFiles(FileSystem& fileSystem, std::string path,
                                   std::string_view patterns, bool recursive) {
  Walker walker(fileSystem, patterns);
  walker.Walk(std::move(path), recursive);
  return walker.Take();
}

}  // namespace tessaly
