#include "platform/posix/registry_location.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace tessaly {

namespace {

constexpr const char* kUserFileName = "user.db";
constexpr const char* kMachineFileName = "machine.db";
constexpr const char* kMachineFolder = "/var/lib/tessaly";

bool IsSet(const char* value) { return value != nullptr && value[0] != '\0'; }

HiveFile MakeHiveFile(const std::string& folder, const char* name, mode_t folderMode,
                      mode_t fileMode) {
  return {folder, folder + "/" + name, folderMode, fileMode};
}

std::string HomeFolder(const char* home) {
  if (IsSet(home)) return home;
  // Without HOME, the password database still knows.
  const passwd* entry = getpwuid(getuid());
  return (entry != nullptr && entry->pw_dir != nullptr) ? entry->pw_dir : "/";
}

}  // namespace

RegistryLocation RegistryLocationIn(const std::string& folder) {
  return {MakeHiveFile(folder, kUserFileName, 0700, 0600),
          MakeHiveFile(folder, kMachineFileName, 0700, 0600)};
}

RegistryLocation DefaultRegistryLocation(const char* registryDir, const char* xdgConfigHome,
                                         const char* home) {
  if (IsSet(registryDir)) return RegistryLocationIn(registryDir);
  // The XDG rules ignore a relative configuration folder.
  const std::string config = (IsSet(xdgConfigHome) && xdgConfigHome[0] == '/')
                                 ? std::string(xdgConfigHome)
                                 : HomeFolder(home) + "/.config";
  return {MakeHiveFile(config + "/tessaly", kUserFileName, 0700, 0600),
          MakeHiveFile(kMachineFolder, kMachineFileName, 0755, 0644)};
}

RegistryLocation RegistryLocationFromEnvironment() {
  return DefaultRegistryLocation(std::getenv(kRegistryDirVariable), std::getenv("XDG_CONFIG_HOME"),
                                 std::getenv("HOME"));
}

std::string RunJournalFolder(const char* registryDir, const char* xdgStateHome, const char* home) {
  if (IsSet(registryDir)) return std::string(registryDir) + "/runs";
  const std::string state = (IsSet(xdgStateHome) && xdgStateHome[0] == '/')
                                ? std::string(xdgStateHome)
                                : HomeFolder(home) + "/.local/state";
  return state + "/tessaly/runs";
}

std::string RunJournalFolderFromEnvironment() {
  return RunJournalFolder(std::getenv(kRegistryDirVariable), std::getenv("XDG_STATE_HOME"),
                          std::getenv("HOME"));
}

int EnsureFolder(const std::string& folder, mode_t mode) {
  struct stat info;
  if (stat(folder.c_str(), &info) == 0) return S_ISDIR(info.st_mode) ? 0 : ENOTDIR;
  const std::size_t slash = folder.find_last_of('/');
  if (slash != std::string::npos && slash > 0) {
    if (const int error = EnsureFolder(folder.substr(0, slash), mode); error != 0) return error;
  }
  if (mkdir(folder.c_str(), mode) == 0 || errno == EEXIST) return 0;
  return errno;
}

}  // namespace tessaly
