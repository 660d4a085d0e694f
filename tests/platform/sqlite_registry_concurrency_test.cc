// Two real processes writing one hive at the same time.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/posix/sqlite_registry.h"
#include "registry_test_support.h"

namespace tessaly {
namespace {

using testing::Query;
using testing::SetText;

constexpr int kWrites = 150;

class SqliteConcurrencyTest : public ::testing::Test {
 protected:
  // Starts a writer process that waits for Release(); returns its id. Each
  // opens its own registry: a connection never crosses fork().
  pid_t StartWriter(const std::function<bool(Registry&)>& writes) {
    const pid_t child = fork();
    if (child == 0) {
      close(gate_[1]);
      char ignored;
      while (read(gate_[0], &ignored, 1) > 0) {
      }
      SqliteRegistry registry(Location());
      _exit(writes(registry) ? 0 : 1);
    }
    return child;
  }
  // Two writers in tight loops can keep each other waiting for seconds on a
  // busy machine; these tests are about what lands, not about how long.
  RegistryLocation Location() const {
    RegistryLocation location = RegistryLocationIn(folder_.path());
    location.user.busyTimeoutMs = 60'000;
    return location;
  }
  void Release() {
    close(gate_[0]);
    close(gate_[1]);
  }
  static bool Finished(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  // Writes value `name` of key "Shared" `kWrites` times with `text(i)`.
  static bool WriteMany(Registry& registry, const std::function<std::string(int)>& name,
                        const std::function<std::string(int)>& text) {
    for (int i = 0; i < kWrites; ++i) {
      RegistryKey key = 0;
      if (registry.CreateKey(Hive::kCurrentUser, "Shared", "0", 0, reg::kWrite, &key, nullptr) !=
          reg::kSuccess) {
        return false;
      }
      const long written = SetText(registry, key, name(i), text(i));
      registry.CloseKey(key);
      if (written != reg::kSuccess) return false;
    }
    return true;
  }

  void SetUp() override { ASSERT_EQ(pipe(gate_), 0); }

  testing::ScratchFolder folder_;
  int gate_[2] = {-1, -1};
};

TEST_F(SqliteConcurrencyTest, DifferentValuesOfOneKeyAllLand) {
  std::vector<pid_t> writers;
  for (const char* prefix : {"a", "b"}) {
    writers.push_back(StartWriter([prefix](Registry& registry) {
      return WriteMany(
          registry, [prefix](int i) { return prefix + std::to_string(i); },
          [](int i) { return std::to_string(i); });
    }));
  }
  Release();
  for (pid_t writer : writers) EXPECT_TRUE(Finished(writer));

  SqliteRegistry registry(Location());
  RegistryKey key = 0;
  ASSERT_EQ(registry.OpenKey(Hive::kCurrentUser, "Shared", reg::kRead, &key), reg::kSuccess);
  int missing = 0;
  for (const char* prefix : {"a", "b"}) {
    for (int i = 0; i < kWrites; ++i) {
      const auto read = Query(registry, key, prefix + std::to_string(i));
      if (read.bytes != std::to_string(i) + '\0') ++missing;
    }
  }
  EXPECT_EQ(missing, 0);
  registry.CloseKey(key);
}

}  // namespace
}  // namespace tessaly
