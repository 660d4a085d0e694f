#ifndef TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
#define TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_

#include <sys/stat.h>

#include <array>
#include <string>
#include <string_view>

#include "platform/posix/folder_index.h"

namespace tessaly {

// A native path looked up the way a desktop volume looks up names: each
// name is tried exactly first and, only on a miss, matched ignoring case
// among the folder's entries.
struct ResolvedPath {
  enum class State {
    kFound,      // `native` is the entry, with the names as the disk spells them
    kAmbiguous,  // several entries differ only in case and none matches exactly
    kMissing,    // the folder exists; `native` is where the name would go
    kUnusable,   // empty, or the folder is missing, ambiguous or unreadable
  };
  State state = State::kUnusable;
  std::string native;
  struct stat info {};  // lstat of `native` when found or ambiguous

  bool Exists() const { return state == State::kFound || state == State::kAmbiguous; }
  std::string Folder() const;  // the part of `native` before its last "/"
  std::string Name() const;    // the part of `native` behind its last "/"
};

//
// A burst of lookups in one folder, as a rename run makes, looks at the
// folder itself once per millisecond at most: a case variant that someone
// else makes there shows up that much later. Exact names are always looked
// up on disk.
class PathResolver {
 public:
  // Resolves `native`; closing slashes are ignored.
  ResolvedPath Resolve(std::string_view native);
  // Resolves a name that is about to be made, by its folder's index alone,
  // which saves a look at the disk. An exact name that the index has not
  // seen yet is left to the no-replace rename, which refuses it.
  ResolvedPath ResolveNew(std::string_view native);

  FolderIndex& index() { return index_; }

 private:
  ResolvedPath ResolveIn(const std::string& folder, std::string_view name);
  ResolvedPath FromVariants(const std::string& folder, std::string_view name,
                            const CaseVariants& variants);
  bool OpenFolder(std::string_view native, std::string& resolved, struct stat& info);

  struct RecentFolder {
    std::string given;  // as asked for
    bool usable = false;
    std::string resolved;
    struct stat info {};
    long long checkedAt = 0;  // monotonic nanoseconds
  };

  FolderIndex index_;
  // A run alternates between a few folders (the file's own, and the missing
  // one of a guard name), so several answers are kept, missing ones too.
  std::array<RecentFolder, 4> recent_;
  std::size_t nextRecent_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
