#ifndef TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
#define TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <unordered_map>

namespace tessaly {

// A native path as the disk resolves it.
struct ResolvedPath {
  enum class State {
    kFound,     // `native` is the entry; `info` is its lstat
    kMissing,   // the folder exists; `native` is where the name would go
    kUnusable,  // empty, or the folder is missing, ambiguous or unreadable
  };
  State state = State::kUnusable;
  std::string native;
  struct stat info {};

  std::string Folder() const;  // the part of `native` before its last "/"
  std::string Name() const;    // the part of `native` behind its last "/"
};

// Looks paths up the way the disk does: a name means the entry the kernel
// finds under exactly that name, so a case-sensitive disk tells B.TXT from
// b.txt and a case-folding one folds them itself. Folders are the one
// exception, because a conversion may change a folder's letter case and the
// program never makes folders: a folder missing under its exact spelling is
// the one folder of its parent that matches ignoring case, if exactly one
// does.
//
// Answers are kept for reuse: the last few names' answers until the owner
// changes any name (NoteChanged), which on a case-folding disk may change
// the answer for other spellings too; a folder's answer until Forget, since
// the owner never makes, moves or removes a folder. Answers about links are
// not kept, as they follow another path. Names are asked again and again
// in a short stretch (a run asks about the same two or three paths of one
// file), so a small ring keeps them without allocating.
// For one thread.
class PathResolver {
 public:
  // Resolves `native`; closing slashes are ignored. The answer stays valid
  // until the next call of any member.
  const ResolvedPath& Resolve(std::string_view native);
  // The folder `native` names, as the disk spells it, or false.
  bool ResolveFolder(std::string_view native, std::string& resolved);

  // The owner has just renamed or removed an entry.
  void NoteChanged();
  // Drops every kept answer.
  void Forget();

 private:
  struct NameAnswer {
    std::string asked;  // the exact path asked for
    ResolvedPath answer;
  };
  struct FolderAnswer {
    bool usable = false;
    std::string resolved;
  };

  void Look(std::string_view native, ResolvedPath& answer);
  void LookIn(const std::string& folder, std::string_view name, ResolvedPath& answer);
  FolderAnswer LookForFolder(const std::string& native);

  static constexpr std::size_t kKeptNames = 8;
  NameAnswer names_[kKeptNames];
  std::size_t namesKept_ = 0;  // the first this many slots hold answers
  std::size_t nextSlot_ = 0;
  ResolvedPath unkept_;  // the answer about a link, not reused
  std::unordered_map<std::string, FolderAnswer> folders_;  // by the path asked for
  std::string lastFolderNoted_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
