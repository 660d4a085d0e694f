#ifndef TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace tessaly {

// A file system held in memory, for tests. Paths are model paths; adding a
// file adds the folders above it. It records what the program did, and has
// switches that make the next operation fail the ways a disk can.
class MemoryFileSystem : public FileSystem {
 public:
  enum class LetterCase { kIgnore, kExact };

  struct RenameRecord {
    std::string source;
    std::string target;
    friend bool operator==(const RenameRecord&, const RenameRecord&) = default;
  };

  // How paths are shown to a person: as they are, or in POSIX form, where
  // new names also lose trailing periods and blanks as PosixFileSystem's do.
  enum class ShownForm { kModel, kPosix };

  explicit MemoryFileSystem(LetterCase letterCase = LetterCase::kIgnore,
                            ShownForm shown = ShownForm::kModel)
      : letterCase_(letterCase), shown_(shown) {}

  // Setting the scene: these change the entries directly and record nothing.
  void AddFile(std::string_view path, std::uint32_t attributes = attr::kArchive);
  void AddDirectory(std::string_view path);
  void Remove(std::string_view path);
  // A second name for the file `existing`, as a hard link: one identity.
  void AddLink(std::string_view existing, std::string_view path);
  // Gives the file `path` the text `contents`, adding the file if missing;
  // an existing file keeps its identity and gets a new version.
  void SetContents(std::string_view path, std::string contents);
  // The text of the file `path`, or nothing if there is no such file.
  std::optional<std::string> Contents(std::string_view path) const;
  // Every entry's path as it was last written, in key order.
  std::vector<std::string> Paths() const;
  // Every file as "path=contents", in key order.
  std::vector<std::string> FilesAndContents() const;

  std::optional<std::uint32_t> GetAttributes(std::string_view path) override;
  bool Rename(std::string_view source, std::string_view target) override;
  // A file copied where moved (CopyInsteadOfMoving) answers kMoved.
  RenameAnswer RenameIfFree(std::string_view source, std::string_view target) override;
  bool DeleteIfUnchanged(std::string_view path, const FileVersion& expected) override;
  std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) override;
  std::optional<FileIdentity> IdentityOf(std::string_view path) override;
  std::optional<FileVersion> VersionOf(std::string_view path) override;
  bool OneEntry(std::string_view a, std::string_view b) override;
  std::string SameNameKey(std::string_view path) const override { return Key(path); }
  std::string PathOnDisk(std::string_view path) override { return MatchFolders(path); }
  std::string Shown(std::string_view path) const override;
  void ForgetAnswers() override { ++forgets_; }

  // Faults. Each of the first two is used up by the operation it fails.
  void FailNextRename() { failNextRename_ = true; }
  void FailNextDelete() { failNextDelete_ = true; }
  // Sets the read-only bit of `path`. As on the desktop platform, a
  // read-only file can be renamed but not deleted.
  void MakeReadOnly(std::string_view path);
  // Neither deleting nor renaming `path` works from now on, as for a file
  // that another program holds open.
  void Lock(std::string_view path) { locked_.insert(Key(path)); }
  // Renaming `source` leaves it in place beside the new copy from now on,
  // as a move to another disk whose last step failed.
  void CopyInsteadOfMoving(std::string_view source) { copied_.insert(Key(source)); }
  // A search of `folder` gives nothing from now on.
  void MakeUnreadable(std::string_view folder) { unreadable_.insert(Key(folder)); }
  // Runs `hook` once, at the start of the next Rename, before it looks at
  // either path: the way another program slips in between a check and a move.
  void BeforeNextRename(std::function<void()> hook) { beforeNextRename_ = std::move(hook); }

  // What the program did: the renames and deletes that succeeded, in order.
  const std::vector<RenameRecord>& renames() const { return renames_; }
  const std::vector<std::string>& deletes() const { return deletes_; }
  // How often the program said that time had passed.
  int forgets() const { return forgets_; }

 private:
  struct Entry {
    std::string path;  // as last written, without a closing backslash
    std::uint32_t attributes = attr::kArchive;
    std::string contents;
    std::uint64_t node = 0;  // its identity, kept across renames
    std::int64_t writes = 0;  // its version, raised by every write
  };

  std::string Key(std::string_view path) const;
  Entry* Find(std::string_view path);
  const Entry* Find(std::string_view path) const;
  bool IsFolder(std::string_view path) const;
  // Where letter case counts: `path` with each folder missing in its own
  // spelling replaced by the one folder that matches it ignoring case, as
  // far as there is exactly one.
  std::string MatchFolders(std::string_view path) const;
  std::string MatchFolder(std::string_view folder) const;
  bool IsFolderExactly(std::string_view path) const;
  void AddParentsOf(std::string_view path);
  bool CanRename(std::string_view source, std::string_view target) const;
  // Rename, or with `caseChangeOfItself` false, RenameIfFree.
  RenameAnswer Move(std::string_view source, std::string_view target, bool caseChangeOfItself);

  Entry NewEntry(std::string_view path, std::uint32_t attributes);

  LetterCase letterCase_;
  ShownForm shown_;
  std::uint64_t lastNode_ = 0;
  int forgets_ = 0;
  std::map<std::string, Entry> entries_;  // by Key(path)
  std::set<std::string> unreadable_;      // folder keys
  std::set<std::string> locked_;          // entry keys
  std::set<std::string> copied_;          // entry keys
  bool failNextRename_ = false;
  bool failNextDelete_ = false;
  std::function<void()> beforeNextRename_;
  std::vector<RenameRecord> renames_;
  std::vector<std::string> deletes_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_MEMORY_FILE_SYSTEM_H_
