// The SQLite registry's own promises: where its files live, who may write
// them, and what a damaged, read-only or locked file does.
#include "platform/posix/sqlite_registry.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>

#include "registry_test_support.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;
using testing::Query;
using testing::SetText;

// Runs `body` in a child process without an administrator's rights and
// returns its exit status: 0 when all its checks held.
int RunUnprivileged(const std::function<int()>& body) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(100);
    _exit(body());
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 200;
}

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  stat(path.c_str(), &info);
  return info.st_mode & 07777;
}

std::string FileBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class SqliteRegistryTest : public ::testing::Test {
 protected:
  SqliteRegistryTest() : location_(RegistryLocationIn(folder_.path() + "/config/tessaly")) {}

  // Writes `text` as value `name` of key `path` in the user's hive.
  static long Write(Registry& registry, std::string_view path, std::string_view name,
                    const std::string& text) {
    RegistryKey key = 0;
    const long created =
        registry.CreateKey(Hive::kCurrentUser, path, "0", 0, reg::kWrite, &key, nullptr);
    if (created != reg::kSuccess) return created;
    const long written = SetText(registry, key, name, text);
    registry.CloseKey(key);
    return written;
  }
  // The text of value `name` of key `path`, or the answer that stopped the read.
  static std::string Read(Registry& registry, std::string_view path, std::string_view name) {
    RegistryKey key = 0;
    const long opened = registry.OpenKey(Hive::kCurrentUser, path, reg::kRead, &key);
    if (opened != reg::kSuccess) return "error " + std::to_string(opened);
    const auto read = Query(registry, key, name);
    registry.CloseKey(key);
    if (read.answer != reg::kSuccess) return "error " + std::to_string(read.answer);
    return read.bytes.substr(0, read.bytes.size() - 1);
  }

  testing::TempFolder folder_;
  RegistryLocation location_;
};

TEST(RegistryLocationTest, FollowsTheEnvironment) {
  const struct {
    const char *registryDir, *xdgConfigHome, *home, *userFile, *machineFile;
  } cases[] = {
      {"/tmp/r", "/x", "/home/ann", "/tmp/r/user.db", "/tmp/r/machine.db"},
      {nullptr, "/x", "/home/ann", "/x/tessaly/user.db", "/var/lib/tessaly/machine.db"},
      {"", "", "/home/ann", "/home/ann/.config/tessaly/user.db", "/var/lib/tessaly/machine.db"},
      {nullptr, "relative", "/home/ann", "/home/ann/.config/tessaly/user.db",
       "/var/lib/tessaly/machine.db"},
  };
  for (const auto& c : cases) {
    const RegistryLocation location =
        DefaultRegistryLocation(c.registryDir, c.xdgConfigHome, c.home);
    EXPECT_EQ(location.user.path, c.userFile);
    EXPECT_EQ(location.machine.path, c.machineFile);
  }
  const RegistryLocation system = DefaultRegistryLocation(nullptr, nullptr, "/home/ann");
  EXPECT_EQ(system.user.fileMode, 0600u);
  EXPECT_EQ(system.machine.folderMode, 0755u);  // readable by all, writable by an administrator
}

TEST_F(SqliteRegistryTest, ReadsCreateNothingAndWritesMakeOwnerOnlyFiles) {
  SqliteRegistry registry(location_);
  EXPECT_EQ(Read(registry, "Software", "v"), "error 2");
  EXPECT_FALSE(fs::exists(location_.user.folder));
  ASSERT_EQ(Write(registry, "Software", "v", "1"), reg::kSuccess);
  EXPECT_EQ(ModeOf(location_.user.folder), 0700u);
  EXPECT_EQ(ModeOf(location_.user.path), 0600u);
  EXPECT_FALSE(fs::exists(location_.machine.path));
}

TEST_F(SqliteRegistryTest, OpenRegistriesSeeEachOthersWrites) {
  location_.user.freshness = std::chrono::microseconds(0);  // ask at every read
  SqliteRegistry first(location_);
  SqliteRegistry second(location_);
  ASSERT_EQ(Write(first, "K", "v", "one"), reg::kSuccess);
  // Reads that each registry may remember: a value, a missing key.
  EXPECT_EQ(Read(first, "K", "v"), "one");
  EXPECT_EQ(Read(first, "New", "v"), "error 2");
  ASSERT_EQ(Write(second, "K", "v", "two"), reg::kSuccess);
  ASSERT_EQ(Write(second, "New", "v", "new"), reg::kSuccess);
  EXPECT_EQ(Read(first, "K", "v"), "two");
  EXPECT_EQ(Read(first, "New", "v"), "new");
}

TEST_F(SqliteRegistryTest, DamagedFilesFailEveryCallWithoutCrashing) {
  {
    SqliteRegistry registry(location_);
    for (int i = 0; i < 40; ++i) {
      ASSERT_EQ(Write(registry, "K" + std::to_string(i), "v", std::string(3000, 'x')),
                reg::kSuccess);
    }
  }
  const std::string good = FileBytes(location_.user.path);
  // Garbage, cut in half.
  for (const std::string& bytes :
       {std::string(good.size(), '\x5a'), good.substr(0, good.size() / 2)}) {
    std::ofstream(location_.user.path, std::ios::binary | std::ios::trunc) << bytes;
    SqliteRegistry registry(location_);
    EXPECT_NE(Read(registry, "K30", "v"), std::string(3000, 'x'));
    EXPECT_NE(Write(registry, "New", "v", "1"), reg::kSuccess);
  }
}

TEST_F(SqliteRegistryTest, LockedFileCostsOneWaitThenTheHiveIsUnavailable) {
  constexpr auto kWait = std::chrono::milliseconds(300);
  location_.user.busyTimeoutMs = static_cast<int>(kWait.count());
  {
    SqliteRegistry registry(location_);
    ASSERT_EQ(Write(registry, "K", "v", "1"), reg::kSuccess);
  }
  SqliteRegistry registry(location_);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(location_.user.path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(Read(registry, "K", "v"), "error 1016");
    EXPECT_EQ(Write(registry, "K", "v", "2"), reg::kIoFailed);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * kWait);
  sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  // Unavailable for good: a hive that came back could be locked again at any call.
  EXPECT_EQ(Read(registry, "K", "v"), "error 1016");
  SqliteRegistry nextProcess(location_);
  EXPECT_EQ(Read(nextProcess, "K", "v"), "1");
}

TEST_F(SqliteRegistryTest, ReadOnlyFileAndAdministratorsFolderRefuseWrites) {
  {
    SqliteRegistry registry(location_);
    ASSERT_EQ(Write(registry, "K", "v", "kept"), reg::kSuccess);
  }
  // Only the owner (or an administrator) may write; the child is neither.
  chmod(folder_.path().c_str(), 0755);
  chmod((folder_.path() + "/config").c_str(), 0755);
  chmod(location_.user.folder.c_str(), 0555);
  chmod(location_.user.path.c_str(), 0444);
  location_.machine = location_.user;
  location_.machine.folder = folder_.path() + "/system";
  location_.machine.path = location_.machine.folder + "/machine.db";
  fs::create_directory(location_.machine.folder);
  chmod(location_.machine.folder.c_str(), 0555);
  const int failed = RunUnprivileged([this] {
    SqliteRegistry registry(location_);
    RegistryKey key = 0;
    const bool refused =
        Write(registry, "K", "v", "changed") == reg::kAccessDenied &&
        Write(registry, "New", "v", "1") == reg::kAccessDenied &&
        registry.OpenKey(Hive::kCurrentUser, "K", reg::kWrite, &key) == reg::kAccessDenied &&
        registry.CreateKey(Hive::kLocalMachine, "K", "0", 0, 0, &key, nullptr) ==
            reg::kAccessDenied;
    return refused && Read(registry, "K", "v") == "kept" ? 0 : 1;
  });
  EXPECT_EQ(failed, 0);
  chmod(location_.user.folder.c_str(), 0700);
  chmod(location_.machine.folder.c_str(), 0700);
}

}  // namespace
}  // namespace tessaly
