#ifndef TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_
#define TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_

#include <sys/stat.h>

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/file_system.h"

namespace tessaly {

// Open handles on the folders the program works in. A look or a rename
// through one names the entry alone, so the kernel walks one name instead
// of every folder of the path, several times for each file; and it reaches
// the folder that was checked, not whatever another program has put under
// its path since. At most two are held (a move's source and target
// folders); the owner releases them whenever the disk may have changed.
//
// Each folder path is tied to the folder the program first met there, for
// the life of the object: a folder that another program has replaced since
// (moved away, another put in its place) is never reached again, so the
// program cannot act on files in it that nobody listed. For one thread.
class HeldFolders {
 public:
  HeldFolders() = default;
  HeldFolders(const HeldFolders&) = delete;
  HeldFolders& operator=(const HeldFolders&) = delete;
  ~HeldFolders() { Release(); }

  // The folder handle that reaches nothing: every *at call on it fails.
  static constexpr int kReplacedFolder = -1;

  // How the *at calls reach `native`: a held folder and the name in it,
  // kReplacedFolder and the name when the folder is no longer the one first
  // met, or AT_FDCWD and the whole path when the folder cannot be opened (a
  // missing folder is then missing to the call too). `name` points into
  // `native`.
  struct Place {
    int folder;
    const char* name;
  };
  Place Reach(const std::string& native);

  // Whether `info`, the status of the folder `native`, is of the folder
  // first met there; the first folder met is remembered.
  bool IsFolderFirstMet(const std::string& native, const struct stat& info);

  // Closes the handles; the folders first met stay remembered.
  void Release();

 private:
  struct Held {
    std::string folder;
    int fd = -1;
  };
  std::array<Held, 2> held_;
  // The slot handed out last is never the one replaced, so the two places
  // of one move stay valid together.
  std::size_t lastGiven_ = 0;
  std::unordered_map<std::string, FileIdentity> firstMet_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_
