// The SQLite registry's own promises: where its files live, who may write
// them, what a damaged, read-only or locked file does, and what two
// processes writing one hive at once leave in it.
#include "platform/posix/sqlite_registry.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "registry_test_support.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

// Runs `body` in a child process, without an administrator's rights when
// `unprivileged`; the child's exit status is `body`'s answer.
pid_t Spawn(const std::function<int()>& body, bool unprivileged = false) {
  const pid_t child = fork();
  if (child == 0) {
    if (unprivileged && geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(100);
    _exit(body());
  }
  return child;
}

// 0 when all of the child's checks held.
int ExitStatusOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) return 300;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 200;
}

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  stat(path.c_str(), &info);
  return info.st_mode & 07777;
}

// Every entry under `folder`: a link's target, a hash of a file's bytes.
std::map<std::string, std::string> Contents(const std::string& folder) {
  std::map<std::string, std::string> found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    std::string& seen = found[entry.path().string()];
    if (entry.is_symlink()) {
      seen = "-> " + fs::read_symlink(entry.path()).string();
    } else if (entry.is_regular_file()) {
      std::ifstream in(entry.path(), std::ios::binary);
      seen = std::to_string(std::hash<std::string>{}({std::istreambuf_iterator<char>(in), {}}));
    }
  }
  return found;
}

class SqliteRegistryTest : public ::testing::Test {
 protected:
  SqliteRegistryTest() : location_(RegistryLocationIn(folder_.path() + "/config/tessaly")) {}

  // Writes `text` as value `name` of key `path` in the user's hive.
  static long Write(auto&& registry, std::string_view path, std::string_view name,
                    const std::string& text) {
    RegistryKey key = 0;
    long answer = registry.CreateKey(Hive::kCurrentUser, path, "0", 0, reg::kWrite, &key, nullptr);
    if (answer == reg::kSuccess) answer = testing::Set(registry, key, name, text);
    registry.CloseKey(key);
    return answer;
  }
  // The text of value `name` of key `path`, or the answer that stopped the read.
  static std::string Read(auto&& registry, std::string_view path, std::string_view name) {
    RegistryKey key = 0;
    testing::ReadBack read{registry.OpenKey(Hive::kCurrentUser, path, reg::kRead, &key), 0, {}};
    if (read.answer == reg::kSuccess) read = testing::Query(registry, key, name);
    registry.CloseKey(key);
    if (read.answer != reg::kSuccess) return "error " + std::to_string(read.answer);
    return read.bytes.substr(0, read.bytes.size() - 1);
  }

  testing::TempFolder folder_;
  RegistryLocation location_;
};

TEST(RegistryLocationTest, FollowsTheEnvironment) {
  const char* const kMachine = "/var/lib/tessaly/machine.db";
  const char* const kHomeUser = "/home/ann/.config/tessaly/user.db";
  // The registry folder, XDG_CONFIG_HOME, HOME; the user's file and the machine's.
  const std::array<const char*, 5> cases[] = {
      {"/tmp/r", "/x", "/home/ann", "/tmp/r/user.db", "/tmp/r/machine.db"},
      {nullptr, "/x", "/home/ann", "/x/tessaly/user.db", kMachine},
      {"", "", "/home/ann", kHomeUser, kMachine},
      {nullptr, "relative", "/home/ann", kHomeUser, kMachine},
  };
  for (const auto& [registryDir, xdgConfigHome, home, user, machine] : cases) {
    const RegistryLocation location = DefaultRegistryLocation(registryDir, xdgConfigHome, home);
    EXPECT_EQ(location.user.path + " " + location.machine.path, std::string(user) + " " + machine);
  }
  const RegistryLocation system = DefaultRegistryLocation(nullptr, nullptr, "/home/ann");
  EXPECT_EQ(system.user.fileMode, 0600u);
  EXPECT_EQ(system.machine.folderMode, 0755u);  // readable by all, writable by an administrator
  // The run journals: beside the registry folder when it is set, else in XDG_STATE_HOME.
  const std::array<const char*, 4> runs[] = {
      {"/tmp/r", "/s", "/home/ann", "/tmp/r/runs"},
      {nullptr, "/s", "/home/ann", "/s/tessaly/runs"},
      {"", "relative", "/home/ann", "/home/ann/.local/state/tessaly/runs"},
  };
  for (const auto& [registryDir, xdgStateHome, home, folder] : runs) {
    EXPECT_EQ(RunJournalFolder(registryDir, xdgStateHome, home), folder);
  }
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
  EXPECT_EQ(Read(first, "K", "v") + Read(first, "New", "v"), "twonew");
}

TEST_F(SqliteRegistryTest, DamagedFilesFailEveryCallWithoutCrashing) {
  const std::string big(3000, 'x');
  {
    SqliteRegistry registry(location_);
    for (int i = 0; i < 40; ++i) Write(registry, "K" + std::to_string(i), "v", big);
  }
  std::ifstream in(location_.user.path, std::ios::binary);
  const std::string db{std::istreambuf_iterator<char>(in), {}};
  ASSERT_GT(db.size(), 100'000u);
  // Garbage, cut in half.
  for (const std::string& bytes : {std::string(db.size(), 'Z'), db.substr(0, db.size() / 2)}) {
    std::ofstream(location_.user.path, std::ios::binary | std::ios::trunc) << bytes;
    SqliteRegistry registry(location_);
    EXPECT_NE(Read(registry, "K30", "v"), big);
    EXPECT_NE(Write(registry, "New", "v", "1"), reg::kSuccess);
  }
}

TEST_F(SqliteRegistryTest, LockedFileCostsOneWaitThenTheHiveIsUnavailable) {
  constexpr auto kWait = std::chrono::milliseconds(300);
  location_.user.busyTimeoutMs = static_cast<int>(kWait.count());
  SqliteRegistry registry(location_);
  ASSERT_EQ(Write(SqliteRegistry(location_), "K", "v", "1"), reg::kSuccess);
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
  EXPECT_EQ(Read(SqliteRegistry(location_), "K", "v"), "1");  // the next process's
}

// Reads create nothing; the first write makes files only their owner may
// write (or an administrator); the child here is neither.
TEST_F(SqliteRegistryTest, WritesMakeOwnerOnlyFilesAndOthersAreRefused) {
  ASSERT_EQ(Read(SqliteRegistry(location_), "Software", "v"), "error 2");
  EXPECT_FALSE(fs::exists(location_.user.folder));
  ASSERT_EQ(Write(SqliteRegistry(location_), "K", "v", "kept"), reg::kSuccess);
  EXPECT_EQ(ModeOf(location_.user.folder), 0700u);
  EXPECT_EQ(ModeOf(location_.user.path), 0600u);
  EXPECT_FALSE(fs::exists(location_.machine.path));
  location_.machine = location_.user;
  location_.machine.folder = folder_.path() + "/system";
  location_.machine.path = location_.machine.folder + "/machine.db";
  fs::create_directory(location_.machine.folder);
  const std::pair<std::string, mode_t> modes[] = {
      {folder_.path(), 0755}, {folder_.path() + "/config", 0755}, {location_.user.folder, 0555},
      {location_.user.path, 0444}, {location_.machine.folder, 0555}};
  for (const auto& [path, mode] : modes) chmod(path.c_str(), mode);
  const pid_t child = Spawn(
      [this] {
        SqliteRegistry registry(location_);
        RegistryKey key = 0;
        const bool refused =
            Write(registry, "K", "v", "changed") == reg::kAccessDenied &&
            Write(registry, "New", "v", "1") == reg::kAccessDenied &&
            registry.OpenKey(Hive::kCurrentUser, "K", reg::kWrite, &key) == reg::kAccessDenied &&
            registry.CreateKey(Hive::kLocalMachine, "K", "0", 0, 0, &key, nullptr) ==
                reg::kAccessDenied;
        return refused && Read(registry, "K", "v") == "kept" ? 0 : 1;
      },
      true);
  EXPECT_EQ(ExitStatusOf(child), 0);
  chmod(location_.user.folder.c_str(), 0700);
  chmod(location_.machine.folder.c_str(), 0700);
}

// Storage that someone else controls, or that leads elsewhere, is not used:
// said once, reads give nothing, writes fail, nothing on disk changes.
TEST_F(SqliteRegistryTest, StorageOthersControlIsNotUsed) {
  const std::string elsewhere = folder_.path() + "/elsewhere";
  const auto linkTo = [this](const std::string& target) {
    fs::remove(location_.user.path);
    fs::create_symlink(target, location_.user.path);
    return true;
  };
  const auto otherDatabase = [&] {
    sqlite3* other = nullptr;
    sqlite3_open((elsewhere + "/other.db").c_str(), &other);
    sqlite3_exec(other, "CREATE TABLE notes(text)", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    return linkTo(elsewhere + "/other.db");
  };
  const std::pair<const char*, std::function<bool()>> plants[] = {
      {"folder others may write", [&] { return chmod(location_.user.folder.c_str(), 0777) == 0; }},
      {"folder of another user",
       [&] { return chown(location_.user.folder.c_str(), 65534, 65534) == 0; }},
      {"file its group may write", [&] { return chmod(location_.user.path.c_str(), 0620) == 0; }},
      {"link to nowhere", [&] { return linkTo(elsewhere + "/made.db"); }},
      {"link to another program's database", otherDatabase},
  };
  for (const auto& [what, plant] : plants) {
    SCOPED_TRACE(what);
    fs::remove_all(location_.user.folder);
    fs::create_directories(elsewhere);
    ASSERT_EQ(Write(SqliteRegistry(location_), "K", "v", "kept"), reg::kSuccess);
    if (!plant()) continue;  // giving a folder away takes an administrator
    const auto before = Contents(folder_.path());
    std::vector<std::string> told;
    SqliteRegistry registry(location_, [&](const std::string& why) { told.push_back(why); });
    EXPECT_NE(Read(registry, "K", "v"), "kept");
    EXPECT_NE(Write(registry, "K", "v", "changed"), reg::kSuccess);
    EXPECT_NE(Write(registry, "New", "v", "1"), reg::kSuccess);
    EXPECT_EQ(Contents(folder_.path()), before);
    EXPECT_EQ(told.size(), 1u);
  }
}

TEST_F(SqliteRegistryTest, TwoProcessesWritingOneKeyAtOnceLoseNothing) {
  constexpr int kWrites = 150;
  // Two writers in tight loops can keep each other waiting for seconds on a
  // busy machine; this test is about what lands, not about how long.
  location_.user.busyTimeoutMs = 60'000;
  // Each process opens its own registry: a connection never crosses fork().
  const auto writeAll = [&](char prefix) {
    SqliteRegistry registry(location_);
    for (int i = 0; i < kWrites; ++i) {
      const std::string text = std::to_string(i);
      if (Write(registry, "Shared", prefix + text, text) != reg::kSuccess) return 1;
    }
    return 0;
  };
  const pid_t child = Spawn([&] { return writeAll('b'); });
  EXPECT_EQ(writeAll('a'), 0);
  EXPECT_EQ(ExitStatusOf(child), 0);
  SqliteRegistry registry(location_);
  for (int i = 0; i < 2 * kWrites; ++i) {
    ASSERT_EQ(Read(registry, "Shared", "ab"[i % 2] + std::to_string(i / 2)), std::to_string(i / 2));
  }
}

}  // namespace
}  // namespace tessaly
