#ifndef TESSALY_PLATFORM_POSIX_FOLDER_INDEX_H_
#define TESSALY_PLATFORM_POSIX_FOLDER_INDEX_H_

#include <sys/stat.h>
#include <time.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessaly {

// The names of a folder that equal a wanted name ignoring letter case.
struct CaseVariants {
  std::vector<std::string> names;  // native names as the folder holds them
};

// Remembers, per folder, its names by their case-folded form, so that a
// lookup ignoring case costs a hash probe instead of a read of the folder.
// An index is reread when the folder's modification time or identity
// differs from the one it was read at. The owner's own changes are applied
// to it directly (NoteMoved, NoteRemoved), and the new modification time
// they cause is taken as the owner's, without a reread, when the index was
// confirmed against the disk just before and the new time is no later than
// the change itself.
//
// A change made by someone else within the same tick of the file system's
// clock as one the index has seen can go unnoticed until the folder changes
// again. That can only hide a case variant, never invent one: callers
// confirm a found name on disk before they trust it.
class FolderIndex {
 public:
  // The names in `folder` (a native path, whose stat is `info`) that equal
  // `name` ignoring case. Empty if there are none or the folder cannot be
  // read.
  CaseVariants Lookup(const std::string& folder, const struct stat& info, std::string_view name);

  // Records changes this program has just made.
  void NoteMoved(const std::string& fromFolder, std::string_view fromName,
                 const std::string& toFolder, std::string_view toName);
  void NoteRemoved(const std::string& folder, std::string_view name);

  // Forgets what is known of `folder`; the next lookup rereads it.
  void Forget(const std::string& folder);

 private:
  // A folder is known by its identity on disk, not by the text of its path:
  // "." and the current folder's full path share one index, and so do the
  // program's own changes noted under either name.
  struct FolderId {
    dev_t device = 0;
    ino_t inode = 0;
    friend bool operator==(const FolderId&, const FolderId&) = default;
  };
  struct FolderIdHash {
    std::size_t operator()(const FolderId& id) const {
      return std::hash<unsigned long long>()(static_cast<unsigned long long>(id.inode) * 31 +
                                             static_cast<unsigned long long>(id.device));
    }
  };

  struct Stamp {
    dev_t device = 0;
    ino_t inode = 0;
    struct timespec modified {};
  };
  struct Folder {
    Stamp stamp;
    struct timespec checkedAt {};  // when the stamp was last seen to match
    bool ownChanges = false;       // changed by the owner since then
    struct timespec ownChangesUntil {};
    std::unordered_map<std::string, std::vector<std::string>> byFolded;
  };

  Folder* Fresh(const std::string& folder, const struct stat& info);
  Folder* ForOwnChange(const std::string& folder);
  Folder* Known(const std::string& folder);

  std::unordered_map<FolderId, Folder, FolderIdHash> folders_;
  std::unordered_map<std::string, FolderId> ids_;  // by the paths they were looked up as
};

// The form two native names share when they are equal ignoring case.
std::string FoldName(std::string_view name);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_FOLDER_INDEX_H_
