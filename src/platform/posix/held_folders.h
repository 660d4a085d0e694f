#ifndef TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_
#define TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_

#include <array>
#include <string>
#include <string_view>

namespace tessaly {

// Open handles on the folders a run works in. A look or a rename through
// one names the entry alone, so the kernel walks one name instead of every
// folder of the path, several times for each file. A folder is held once
// it is asked about twice in a row, so paths scattered over many folders
// cost no opening; at most two are held (a move's source and target
// folders). A held folder stands for the one that was there when it was
// opened, so the owner releases them whenever the disk may have changed
// under it. For one thread.
class HeldFolders {
 public:
  HeldFolders() = default;
  HeldFolders(const HeldFolders&) = delete;
  HeldFolders& operator=(const HeldFolders&) = delete;
  ~HeldFolders() { Release(); }

  // How the *at calls reach `native`: a held folder and the name in it, or
  // AT_FDCWD and the whole path. `name` points into `native`.
  struct Place {
    int folder;
    const char* name;
  };
  Place Reach(const std::string& native);

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
  std::string lastAsked_;  // the folder asked about last, while not held
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_HELD_FOLDERS_H_
