// The behaviour every registry backend shares, run against each of them.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/memory/memory_registry.h"
#include "registry_test_support.h"
#ifdef _WIN32
#include "platform/win32/win32_registry.h"
#else
#include "platform/posix/sqlite_registry.h"
#endif

namespace tessaly {
namespace {

using testing::Query;
using testing::ReadBack;
using testing::Set;

struct Backend {
  const char* name;
  std::function<std::unique_ptr<Registry>(const std::string& folder)> make;
};

void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }

class RegistryContract : public ::testing::TestWithParam<Backend> {
 protected:
  void SetUp() override { registry_ = GetParam().make(folder_.path()); }

  // CreateKey's answer; the handle goes to key_ and the disposition to disposition_.
  long Create(std::string_view path, std::uint32_t access = reg::kRead | reg::kWrite,
              Hive hive = Hive::kCurrentUser) {
    return registry_->CreateKey(hive, path, "0", 0, access, &key_, &disposition_);
  }
  long Open(std::string_view path, Hive hive = Hive::kCurrentUser) {
    RegistryKey key = 0;
    const long answer = registry_->OpenKey(hive, path, reg::kRead, &key);
    if (answer == reg::kSuccess) registry_->CloseKey(key);
    return answer;
  }
  ReadBack Query(std::string_view name) { return testing::Query(*registry_, key_, name); }

  testing::TempFolder folder_;
  std::unique_ptr<Registry> registry_;
  RegistryKey key_ = 0;
  std::uint32_t disposition_ = 0;
};

TEST_P(RegistryContract, KeysAreCreatedWithParentsFoundIgnoringCaseAndMalformedPathsRefused) {
  const auto disposition = [&](std::string_view path) {
    EXPECT_EQ(Create(path, 0), reg::kSuccess) << path;
    registry_->CloseKey(key_);
    return disposition_;
  };
  EXPECT_EQ(Open("Software\\Maker"), reg::kNotFound);
  EXPECT_EQ(disposition("Software\\Maker\\App\\Settings"), reg::kCreatedNewKey);
  EXPECT_EQ(Open("SOFTWARE\\maker"), reg::kSuccess);
  EXPECT_EQ(Open("software\\MAKER\\app\\settings\\"), reg::kSuccess);
  EXPECT_EQ(disposition("software\\maker\\APP"), reg::kOpenedExistingKey);
  EXPECT_EQ(disposition(""), reg::kOpenedExistingKey);
  EXPECT_EQ(Open("Software\\Maker\\Other"), reg::kNotFound);
  EXPECT_EQ(Open("Software\\Maker\\App", Hive::kLocalMachine), reg::kNotFound);
  for (const char* path : {"\\Software", "Software\\\\Maker", "A\\\\"}) {
    EXPECT_EQ(Open(path), reg::kBadPathname) << path;
    EXPECT_EQ(Create(path, 0), reg::kBadPathname) << path;
  }
}

TEST_P(RegistryContract, SizesReadBackAsTheDesktopPlatformReportsThem) {
  ASSERT_EQ(Create("K"), reg::kSuccess);
  // Type, bytes written with their own size, and the bytes read back with
  // the size reported.
  const std::tuple<std::uint32_t, std::string, std::string> cases[] = {
      {reg::kText, "abc", std::string("abc\0", 4)},
      {reg::kText, std::string("abc\0", 4), std::string("abc\0", 4)},  // terminator counted
      {reg::kText, "", ""},
      {reg::kExpandText, "%HOME%", std::string("%HOME%\0", 7)},
      {reg::kMultiText, std::string("a\0b\0\0", 5), std::string("a\0b\0\0", 5)},
      {reg::kBinary, std::string("\0\1\0", 3), std::string("\0\1\0", 3)},  // zero bytes kept
      {reg::kBinary, "", ""},
      {reg::kDword, "\xff\xff\xff\xff", "\xff\xff\xff\xff"},
      {reg::kDword, std::string("\5", 1), std::string("\5", 1)},  // short, kept as written
  };
  for (int i = 0; const auto& [type, written, readBack] : cases) {
    const std::string name = "v" + std::to_string(i++);
    ASSERT_EQ(Set(*registry_, key_, name, written, type), reg::kSuccess);
    EXPECT_EQ(Query(name), (ReadBack{reg::kSuccess, type, readBack})) << name;
  }
  registry_->CloseKey(key_);
}

// Also: value names ignore case, a missing value leaves type and size as
// they were, and the default value has the empty name.
TEST_P(RegistryContract, ShortBufferAnswersWithTheSizeNeededAndRewritesReplaceTypeAndBytes) {
  ASSERT_EQ(Create("K"), reg::kSuccess);
  ASSERT_EQ(Set(*registry_, key_, "Long", std::string(3000, 'x')), reg::kSuccess);
  std::uint8_t buffer[1024];
  std::uint32_t type = reg::kNone;
  std::uint32_t size = sizeof buffer;
  EXPECT_EQ(registry_->QueryValue(key_, "LONG", &type, buffer, &size), reg::kMoreData);
  EXPECT_EQ(std::tuple(type, size), std::tuple(reg::kText, 3001u));
  EXPECT_EQ(Query("long").bytes, std::string(3000, 'x') + '\0');
  type = 99;
  size = 7;
  EXPECT_EQ(registry_->QueryValue(key_, "Missing", &type, buffer, &size), reg::kNotFound);
  EXPECT_EQ(std::tuple(type, size), std::tuple(99u, 7u));
  ASSERT_EQ(Set(*registry_, key_, "Mode", "1"), reg::kSuccess);
  for (const char* name : {"MODE", "mode"}) {
    ASSERT_EQ(Set(*registry_, key_, name, std::string("\2\0\0\0", 4), reg::kDword), reg::kSuccess);
  }
  EXPECT_EQ(Query("mOdE"), (ReadBack{reg::kSuccess, reg::kDword, std::string("\2\0\0\0", 4)}));
  ASSERT_EQ(Set(*registry_, key_, "", "default value"), reg::kSuccess);
  EXPECT_EQ(Query("").bytes, std::string("default value\0", 14));
  registry_->CloseKey(key_);
}

TEST_P(RegistryContract, HandlesCarryTheirAccess) {
  ASSERT_EQ(Create("K"), reg::kSuccess);
  ASSERT_EQ(Set(*registry_, key_, "v", "user"), reg::kSuccess);
  registry_->CloseKey(key_);
  ASSERT_EQ(registry_->OpenKey(Hive::kCurrentUser, "K", reg::kRead, &key_), reg::kSuccess);
  EXPECT_EQ(Set(*registry_, key_, "x", "1"), reg::kAccessDenied);
  registry_->CloseKey(key_);
  ASSERT_EQ(Create("K", 0), reg::kSuccess);
  EXPECT_EQ(Set(*registry_, key_, "x", "1"), reg::kAccessDenied);
  EXPECT_EQ(Query("x").answer, reg::kAccessDenied);
  EXPECT_EQ(registry_->CloseKey(key_), reg::kSuccess);
  EXPECT_EQ(registry_->CloseKey(key_), reg::kInvalidHandle);
  EXPECT_EQ(Query("x").answer, reg::kInvalidHandle);
  // Hives are separate.
  ASSERT_EQ(Create("K", reg::kRead, Hive::kLocalMachine), reg::kSuccess);
  EXPECT_EQ(Query("v").answer, reg::kNotFound);
  registry_->CloseKey(key_);
}

#ifdef _WIN32
// The real registry, each hive's part under a key of the test's own, named
// after its scratch folder and removed with everything in it at the end.
class ScratchWin32Registry : public Win32Registry {
 public:
  explicit ScratchWin32Registry(const std::wstring& name)
      : ScratchWin32Registry(name, Scratch(HKEY_CURRENT_USER, name),
                             Scratch(HKEY_LOCAL_MACHINE, name)) {}
  ~ScratchWin32Registry() override {
    for (HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      RegDeleteTreeW(hive, (kParent + name_).c_str());
    }
    RegCloseKey(user_);
    RegCloseKey(machine_);
  }

 private:
  static inline const std::wstring kParent = L"Software\\Tessaly tests\\";
  ScratchWin32Registry(const std::wstring& name, HKEY user, HKEY machine)
      : Win32Registry(user, machine), name_(name), user_(user), machine_(machine) {}
  static HKEY Scratch(HKEY hive, const std::wstring& name) {
    HKEY key = nullptr;
    RegCreateKeyExW(hive, (kParent + name).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                    nullptr);
    return key;
  }

  std::wstring name_;
  HKEY user_;
  HKEY machine_;
};

const Backend kPlatformBackend{"Win32", [](const std::string& folder) -> std::unique_ptr<Registry> {
  const std::string name = std::filesystem::path(folder).filename().string();
  return std::make_unique<ScratchWin32Registry>(std::wstring(name.begin(), name.end()));
}};
#else
const Backend kPlatformBackend{"Sqlite", [](const std::string& folder) -> std::unique_ptr<Registry> {
  return std::make_unique<SqliteRegistry>(RegistryLocationIn(folder));
}};
#endif

INSTANTIATE_TEST_SUITE_P(
    Backends, RegistryContract,
    ::testing::Values(Backend{"Memory", [](const std::string&) -> std::unique_ptr<Registry> {
                        return std::make_unique<MemoryRegistry>();
                      }},
                      kPlatformBackend),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaly
