// Two real processes writing one hive at the same time.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "platform/posix/sqlite_registry.h"
#include "registry_test_support.h"

namespace tessaly {
namespace {

constexpr int kWrites = 150;

TEST(SqliteConcurrencyTest, DifferentValuesOfOneKeyAllLand) {
  testing::TempFolder folder;
  // Two writers in tight loops can keep each other waiting for seconds on a
  // busy machine; this test is about what lands, not about how long.
  RegistryLocation location = RegistryLocationIn(folder.path());
  location.user.busyTimeoutMs = 60'000;
  int gate[2];
  ASSERT_EQ(pipe(gate), 0);
  pid_t writers[2];
  for (const char prefix : {'a', 'b'}) {
    writers[prefix - 'a'] = fork();
    if (writers[prefix - 'a'] != 0) continue;
    // Each waits for the gate to close and opens its own registry: a
    // connection never crosses fork().
    close(gate[1]);
    char ignored;
    while (read(gate[0], &ignored, 1) > 0) {
    }
    SqliteRegistry registry(location);
    for (int i = 0; i < kWrites; ++i) {
      RegistryKey key = 0;
      if (registry.CreateKey(Hive::kCurrentUser, "Shared", "0", 0, reg::kWrite, &key, nullptr) !=
              reg::kSuccess ||
          testing::SetText(registry, key, prefix + std::to_string(i), std::to_string(i)) != reg::kSuccess) {
        _exit(1);
      }
      registry.CloseKey(key);
    }
    _exit(0);
  }
  close(gate[0]);
  close(gate[1]);
  for (const pid_t writer : writers) {
    int status = 0;
    EXPECT_TRUE(waitpid(writer, &status, 0) == writer && WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  SqliteRegistry registry(location);
  RegistryKey key = 0;
  ASSERT_EQ(registry.OpenKey(Hive::kCurrentUser, "Shared", reg::kRead, &key), reg::kSuccess);
  int missing = 0;
  for (const char prefix : {'a', 'b'}) {
    for (int i = 0; i < kWrites; ++i) {
      if (testing::Query(registry, key, prefix + std::to_string(i)).bytes != std::to_string(i) + '\0') ++missing;
    }
  }
  EXPECT_EQ(missing, 0);
  registry.CloseKey(key);
}

}  // namespace
}  // namespace tessaly
