#ifndef TESSALY_PLATFORM_FILE_SYSTEM_H_
#define TESSALY_PLATFORM_FILE_SYSTEM_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/path_forms.h"

namespace tessaly {

// Attribute bits of a path, as the desktop platform reports them.
namespace attr {
inline constexpr std::uint32_t kReadOnly = 1;
inline constexpr std::uint32_t kHidden = 2;
inline constexpr std::uint32_t kSystem = 4;
inline constexpr std::uint32_t kDirectory = 16;
inline constexpr std::uint32_t kArchive = 32;
inline constexpr std::uint32_t kNormal = 128;
}  // namespace attr

// One entry found by a directory search: its name (no folder) and attributes.
struct DirectoryEntry {
  std::string name;
  std::uint32_t attributes = 0;
  friend bool operator==(const DirectoryEntry&, const DirectoryEntry&) = default;
};

// Who an entry is, whatever path names it: two paths with the same
// identity lead to one entry (through links, or other spellings).
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t node = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// What an entry is at one moment: who it is, and the facts that change
// when it is written to. Two equal versions are the same file, unchanged.
struct FileVersion {
  FileIdentity identity;
  std::uint64_t size = 0;
  std::int64_t modified = 0;  // in the platform's own units
  std::int64_t changed = 0;   // the last change of data or facts, where kept
  friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

// What a rename that replaces nothing answered of itself.
enum class RenameAnswer {
  kFailed,   // nothing moved
  kTaken,    // nothing moved: an entry stands under the target's name
  kRenamed,  // one atomic step: at that instant the file stood under the target's
             // name and the source's name was gone, which is all a look would say
  kMoved,    // moved in several steps (a copy to another disk, a link and an
             // unlink): what stands under either name is still to be asked
};

inline bool Moved(RenameAnswer answer) {
  return answer == RenameAnswer::kRenamed || answer == RenameAnswer::kMoved;
}

// A search leaves out an entry that is hidden, system or a directory unless
// each of those bits it has is in `include`; read-only and archive entries
// always come back.
inline bool PassesSearchFilter(std::uint32_t attributes, std::uint32_t include) {
  constexpr std::uint32_t kFiltered = attr::kHidden | attr::kSystem | attr::kDirectory;
  return (attributes & kFiltered & ~include) == 0;
}

// The file operations the program needs. Paths are in model form: the
// backslash is the only separator. Nothing here creates a directory.
// Abstract so it can be replaced in tests; the real one is PosixFileSystem.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The attribute bits of `path`, or nothing if it does not exist or cannot
  // be looked at.
  virtual std::optional<std::uint32_t> GetAttributes(std::string_view path) = 0;

  // Moves the file `source` to `target`, in the same folder, another folder
  // or another drive. Never replaces an existing target; a change of letter
  // case alone is allowed. Returns false on any failure, and then both paths
  // are as they were.
  virtual bool Rename(std::string_view source, std::string_view target) = 0;

  // Moves the file `source` to `target` as Rename does, but only while no
  // entry at all stands under the target's name, not even the source under
  // another spelling, and says how it went. Lets a caller that would look
  // whether the target is free, then rename, then look again make one call.
  virtual RenameAnswer RenameIfFree(std::string_view source, std::string_view target) {
    if (GetAttributes(target)) return RenameAnswer::kTaken;
    return Rename(source, target) ? RenameAnswer::kMoved : RenameAnswer::kFailed;
  }

  // Deletes the file `path` only while it is still `expected`: another
  // program may have put its own file under that name meanwhile. Returns
  // false if it is missing, has changed, is a directory, is read-only or
  // cannot be deleted. There is no delete by name alone.
  virtual bool DeleteIfUnchanged(std::string_view path, const FileVersion& expected) = 0;

  // The entries of a folder whose names match a pattern: `pattern` is the
  // folder, a backslash and a name with the wildcards "*" and "?", matched
  // ignoring case ("*.*" also matches a name without a period). Entries
  // come in the order the file system gives, "." and ".." never, and
  // filtered as PassesSearchFilter says. A folder that is missing or cannot
  // be read gives an empty list.
  virtual std::vector<DirectoryEntry> Search(std::string_view pattern, std::uint32_t include) = 0;

  // The identity of the entry `path` leads to, links followed; nothing if
  // it cannot be looked at.
  virtual std::optional<FileIdentity> IdentityOf(std::string_view path) = 0;

  // The version of the entry `path` names itself (a link is not followed);
  // nothing if it cannot be looked at.
  virtual std::optional<FileVersion> VersionOf(std::string_view path) = 0;

  // Whether `a` and `b` name one directory entry: the same path, or two
  // spellings that the file system folds together. Two hard links to one
  // file are two entries.
  virtual bool OneEntry(std::string_view a, std::string_view b) = 0;

  // A text that two paths share exactly when this file system takes them
  // for the same name: the path itself where names are exact, a folded form
  // where the file system ignores letter case.
  virtual std::string SameNameKey(std::string_view path) const = 0;

  // `path` with its folders spelled as on the disk, where the folder rule
  // found one under another letter case; as given where that is how the
  // disk spells them, where a folder is missing, or where the disk itself
  // folds case and so reaches the file under `path` already.
  virtual std::string PathOnDisk(std::string_view path) { return std::string(path); }

  // `path`, a new path for a file, with its name as Windows stores it: a
  // name loses its trailing periods and blanks there. The disks reached by
  // exact paths (POSIX, and Windows' own "\\?\" form) would keep them, and
  // a name like "README." then becomes one that Windows programs cannot
  // open; so every platform gives a new file the stored name.
  std::string StoredPath(std::string_view path) const { return WithNameEndAsStored(path); }

  // `path` as a person on this platform writes it. Every path that is put
  // into a text a person reads goes through here.
  virtual std::string Shown(std::string_view path) const = 0;
  // The same, added to the end of `out`: a long loop writes a line a file.
  virtual void AppendShown(std::string_view path, std::string& out) const { out += Shown(path); }

  // Whether this file system takes `a` and `b` for the same name, as
  // SameNameKey tells.
  virtual bool SameName(std::string_view a, std::string_view b) const {
    return SameNameKey(a) == SameNameKey(b);
  }

  // Drops every answer kept for reuse. The program calls it whenever time
  // has passed in which a person or another program may have changed the
  // disk: a question, a dialog, window events.
  virtual void ForgetAnswers() {}
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_FILE_SYSTEM_H_
