#ifndef TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
#define TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_

#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/posix/held_folders.h"
#include "platform/posix/kept_answers.h"
#include "platform/posix/posix_attributes.h"

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
  EntryFacts info;

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
// A folder that another program has replaced since the resolver first met
// it is unusable (see HeldFolders).
//
// Answers are kept for reuse: a name's answer until the owner changes that
// name or another spelling of it (NoteChanged), which a case-folding disk
// may share; a folder's answer until Forget, since the owner never makes,
// moves or removes a folder. Answers about links are not kept, as they
// follow another path.
// For one thread.
class PathResolver {
 public:
  // Resolves `native`; closing slashes are ignored. The answer stays valid
  // until the next call of any member.
  const ResolvedPath& Resolve(std::string_view native);
  // The folder `native` names, as the disk spells it, or false.
  bool ResolveFolder(std::string_view native, std::string& resolved);

  // How the *at calls reach `native` cheaply; see HeldFolders.
  HeldFolders::Place Reach(const std::string& native) { return held_.Reach(native); }

  // The owner has just renamed or removed the entry `native`.
  void NoteChanged(std::string_view native);
  // Drops every kept answer.
  void Forget();

 private:
  struct FolderAnswer {
    bool usable = false;
    std::string resolved;
  };
  void Look(std::string_view native, ResolvedPath& answer);
  void LookIn(const std::string& folder, std::string_view name, ResolvedPath& answer);
  FolderAnswer LookForFolder(const std::string& native);
  // Gives kept answer `index`, noted as recent.
  const ResolvedPath& Recall(std::uint32_t index);
  const ResolvedPath& Give(std::uint32_t index);
  void ForgetRecent() {
    recent_.fill(KeptAnswers::kNone);
    recalled_ = KeptAnswers::kNone;
  }
  void ForgetFolders();

  // By a hash of the name ignoring letter case, so that a change drops
  // every spelling of the name together, as a case-folding disk may share
  // them; each spelling keeps its own answer.
  KeptAnswers names_;
  // The last few answers given: a run asks about the same two or three
  // paths several times for each file, and a comparison is cheaper than a
  // hash and a walk through a large table. Every drop empties this.
  std::array<std::uint32_t, 4> recent_ = {KeptAnswers::kNone, KeptAnswers::kNone,
                                          KeptAnswers::kNone, KeptAnswers::kNone};
  std::size_t nextRecent_ = 0;
  // The kept answer last given, as given; kNone once it may have changed.
  ResolvedPath answer_;
  std::uint32_t recalled_ = KeptAnswers::kNone;
  ResolvedPath unkept_;  // the answer about a link, or an empty path
  std::unordered_map<std::string, FolderAnswer> folders_;  // by the path asked for
  const std::pair<const std::string, FolderAnswer>* lastFolder_ = nullptr;  // in folders_
  HeldFolders held_;  // its handles released with the folder answers
  std::string lastFolderNoted_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_PATH_RESOLVER_H_
