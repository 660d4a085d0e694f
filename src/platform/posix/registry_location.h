#ifndef TESSALY_PLATFORM_POSIX_REGISTRY_LOCATION_H_
#define TESSALY_PLATFORM_POSIX_REGISTRY_LOCATION_H_

#include <sys/types.h>

#include <chrono>
#include <string>

namespace tessaly {

// Where one hive's database lives, and the permissions it is made with.
struct HiveFile {
  std::string folder;
  std::string path;  // the database file inside `folder`
  mode_t folderMode = 0700;
  mode_t fileMode = 0600;
  // How long a call waits for another process's write to end: short
  // enough that nobody takes the program for hung.
  int busyTimeoutMs = 2000;
  // How long a read may trust the cache without asking whether another
  // process has written since; this process's own writes are seen at once.
  std::chrono::microseconds freshness{1000};
};

struct RegistryLocation {
  HiveFile user;
  HiveFile machine;
};

// Environment variable that, when set, names one folder for both hives.
inline constexpr const char* kRegistryDirVariable = "TESSALY_REGISTRY_DIR";

// Both hives in `folder`, owner-only.
RegistryLocation RegistryLocationIn(const std::string& folder);

// The user's hive in the XDG configuration folder (`xdgConfigHome` when it is
// an absolute path, else `home`/.config), subfolder "tessaly", owner-only;
// the machine's in /var/lib/tessaly, which only an administrator can write.
// A non-empty `registryDir` overrides both. Null arguments count as unset.
RegistryLocation DefaultRegistryLocation(const char* registryDir, const char* xdgConfigHome,
                                         const char* home);

// DefaultRegistryLocation from this process's environment.
RegistryLocation RegistryLocationFromEnvironment();

// Where the journals of rename runs are kept: "runs" in `registryDir` when
// it is set (tests, portable use); else "tessaly/runs" in the XDG state
// folder (`xdgStateHome` when it is an absolute path, else
// `home`/.local/state). Null arguments count as unset.
std::string RunJournalFolder(const char* registryDir, const char* xdgStateHome, const char* home);

// RunJournalFolder from this process's environment.
std::string RunJournalFolderFromEnvironment();

// Creates `folder` and any missing parents with `mode`. Returns 0 or the
// errno of the first failure.
int EnsureFolder(const std::string& folder, mode_t mode);

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_REGISTRY_LOCATION_H_
