#ifndef TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
#define TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

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
// Answers are kept for reuse until Forget: a name's answer until the owner
// changes that name (NoteChanged), a folder's answer until Forget, since
// the owner never makes, moves or removes a folder. Answers about links are
// not kept, as they follow another path.
// For one thread.
class PathResolver {
 public:
  // Resolves `native`; closing slashes are ignored.
  ResolvedPath Resolve(std::string native);
  // The folder `native` names, as the disk spells it, or false.
  bool ResolveFolder(std::string_view native, std::string& resolved);

  // The owner has just renamed or removed the entry `native`.
  void NoteChanged(std::string_view native);
  // Drops every kept answer.
  void Forget();

 private:
  struct NameAnswer {
    std::string native;  // the exact path asked for
    ResolvedPath answer;
  };
  struct FolderAnswer {
    bool usable = false;
    std::string resolved;
  };

  ResolvedPath Look(const std::string& native);
  ResolvedPath LookIn(const std::string& folder, std::string_view name);
  FolderAnswer LookForFolder(const std::string& native);
  void Keep(std::string folded, const std::string& native, const ResolvedPath& answer);

  // By the name folded, so that the owner's change of a name also drops the
  // answers for its other spellings, which a case-folding disk may share.
  std::unordered_map<std::string, std::vector<NameAnswer>> names_;
  std::size_t nameCount_ = 0;
  std::unordered_map<std::string, FolderAnswer> folders_;  // by the path asked for
  std::string lastFolderNoted_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
