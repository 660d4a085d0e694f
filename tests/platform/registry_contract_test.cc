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
using testing::SetBytes;
using testing::SetText;

struct Backend {
  const char* name;
  std::function<std::unique_ptr<Registry>(const std::string& folder)> make;
};

void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }

class RegistryContract : public ::testing::TestWithParam<Backend> {
 protected:
  void SetUp() override { registry_ = GetParam().make(folder_.path()); }

  RegistryKey Create(std::string_view path, Hive hive = Hive::kCurrentUser) {
    RegistryKey key = 0;
    std::uint32_t disposition = 0;
    EXPECT_EQ(
        registry_->CreateKey(hive, path, "0", 0, reg::kRead | reg::kWrite, &key, &disposition),
        reg::kSuccess);
    return key;
  }
  long Open(std::string_view path, std::uint32_t access = reg::kRead,
            Hive hive = Hive::kCurrentUser) {
    RegistryKey key = 0;
    const long answer = registry_->OpenKey(hive, path, access, &key);
    if (answer == reg::kSuccess) registry_->CloseKey(key);
    return answer;
  }
  std::uint32_t CreateDisposition(std::string_view path) {
    RegistryKey key = 0;
    std::uint32_t disposition = 0;
    EXPECT_EQ(registry_->CreateKey(Hive::kCurrentUser, path, "0", 0, 0, &key, &disposition),
              reg::kSuccess);
    registry_->CloseKey(key);
    return disposition;
  }

  testing::TempFolder folder_;
  std::unique_ptr<Registry> registry_;
};

TEST_P(RegistryContract, KeysAreCreatedWithParentsAndFoundIgnoringCase) {
  EXPECT_EQ(Open("Software\\Maker"), reg::kNotFound);
  EXPECT_EQ(CreateDisposition("Software\\Maker\\App\\Settings"), reg::kCreatedNewKey);
  EXPECT_EQ(Open("SOFTWARE\\maker"), reg::kSuccess);
  EXPECT_EQ(Open("software\\MAKER\\app\\settings\\"), reg::kSuccess);
  EXPECT_EQ(CreateDisposition("software\\maker\\APP"), reg::kOpenedExistingKey);
  EXPECT_EQ(CreateDisposition(""), reg::kOpenedExistingKey);
  EXPECT_EQ(Open("Software\\Maker\\Other"), reg::kNotFound);
  EXPECT_EQ(Open("Software\\Maker\\App", reg::kRead, Hive::kLocalMachine), reg::kNotFound);
}

TEST_P(RegistryContract, MalformedPathsAreRefused) {
  for (const char* path : {"\\Software", "Software\\\\Maker", "A\\\\"}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(Open(path), reg::kBadPathname);
    RegistryKey key = 0;
    EXPECT_EQ(registry_->CreateKey(Hive::kCurrentUser, path, "0", 0, 0, &key, nullptr),
              reg::kBadPathname);
  }
}

TEST_P(RegistryContract, SizesReadBackAsTheDesktopPlatformReportsThem) {
  const RegistryKey key = Create("K");
  // Label, type, bytes written with their own size (or, for "text", as the
  // store writes texts), and the bytes read back with the size reported.
  const std::tuple<const char*, std::uint32_t, std::string, std::string> cases[] = {
      {"text", reg::kText, "abc", std::string("abc\0", 4)},
      {"text, terminator counted", reg::kText, std::string("abc\0", 4), std::string("abc\0", 4)},
      {"text", reg::kText, "", ""},
      {"text", reg::kExpandText, "%HOME%", std::string("%HOME%\0", 7)},
      {"multi text", reg::kMultiText, std::string("a\0b\0\0", 5), std::string("a\0b\0\0", 5)},
      {"binary keeps zero bytes", reg::kBinary, std::string("\0\1\0", 3), std::string("\0\1\0", 3)},
      {"empty binary", reg::kBinary, "", ""},
      {"dword", reg::kDword, "\xff\xff\xff\xff", "\xff\xff\xff\xff"},
      {"short dword kept as written", reg::kDword, std::string("\5", 1), std::string("\5", 1)},
  };
  int i = 0;
  for (const auto& [label, type, written, readBack] : cases) {
    const std::string name = label + std::to_string(i++);
    ASSERT_EQ(std::string_view(label) == "text" ? SetText(*registry_, key, name, written, type)
                                                : SetBytes(*registry_, key, name, type, written),
              reg::kSuccess);
    const auto read = Query(*registry_, key, name);
    EXPECT_EQ(read.answer, reg::kSuccess) << name;
    EXPECT_EQ(read.type, type) << name;
    EXPECT_EQ(read.bytes, readBack) << name;
  }
  registry_->CloseKey(key);
}

TEST_P(RegistryContract, ShortBufferAnswersWithTheSizeNeeded) {
  const RegistryKey key = Create("K");
  const std::string text(3000, 'x');
  ASSERT_EQ(SetText(*registry_, key, "Long", text), reg::kSuccess);
  std::uint8_t buffer[1024];
  std::uint32_t type = reg::kNone;
  std::uint32_t size = sizeof buffer;
  EXPECT_EQ(registry_->QueryValue(key, "LONG", &type, buffer, &size), reg::kMoreData);
  EXPECT_EQ(size, 3001u);
  EXPECT_EQ(type, reg::kText);
  EXPECT_EQ(Query(*registry_, key, "long").bytes, text + '\0');

  // A missing value leaves type and size as they were.
  type = 99;
  size = 7;
  EXPECT_EQ(registry_->QueryValue(key, "Missing", &type, buffer, &size), reg::kNotFound);
  EXPECT_EQ(type, 99u);
  EXPECT_EQ(size, 7u);
  registry_->CloseKey(key);
}

TEST_P(RegistryContract, ValueNamesIgnoreCaseAndRewritesReplaceTypeAndBytes) {
  const RegistryKey key = Create("K");
  ASSERT_EQ(SetText(*registry_, key, "Mode", "1"), reg::kSuccess);
  for (const char* name : {"MODE", "mode"}) {
    ASSERT_EQ(SetBytes(*registry_, key, name, reg::kDword, std::string("\2\0\0\0", 4)), reg::kSuccess);
  }
  const auto read = Query(*registry_, key, "mOdE");
  EXPECT_EQ(read.type, reg::kDword);
  EXPECT_EQ(read.bytes, std::string("\2\0\0\0", 4));
  ASSERT_EQ(SetText(*registry_, key, "", "default value"), reg::kSuccess);
  EXPECT_EQ(Query(*registry_, key, "").bytes, std::string("default value\0", 14));
  registry_->CloseKey(key);
}

TEST_P(RegistryContract, HandlesCarryTheirAccess) {
  const RegistryKey writer = Create("K");
  ASSERT_EQ(SetText(*registry_, writer, "v", "user"), reg::kSuccess);
  registry_->CloseKey(writer);
  RegistryKey reader = 0;
  ASSERT_EQ(registry_->OpenKey(Hive::kCurrentUser, "K", reg::kRead, &reader), reg::kSuccess);
  EXPECT_EQ(SetText(*registry_, reader, "x", "1"), reg::kAccessDenied);
  RegistryKey bare = 0;
  ASSERT_EQ(registry_->CreateKey(Hive::kCurrentUser, "K", "0", 0, 0, &bare, nullptr),
            reg::kSuccess);
  EXPECT_EQ(SetText(*registry_, bare, "x", "1"), reg::kAccessDenied);
  EXPECT_EQ(Query(*registry_, bare, "x").answer, reg::kAccessDenied);
  EXPECT_EQ(registry_->CloseKey(bare), reg::kSuccess);
  EXPECT_EQ(registry_->CloseKey(bare), reg::kInvalidHandle);
  EXPECT_EQ(Query(*registry_, bare, "x").answer, reg::kInvalidHandle);
  registry_->CloseKey(reader);
  // Hives are separate.
  const RegistryKey machine = Create("K", Hive::kLocalMachine);
  EXPECT_EQ(Query(*registry_, machine, "v").answer, reg::kNotFound);
  registry_->CloseKey(machine);
}

std::unique_ptr<Registry> MakeMemory(const std::string&) {
  return std::make_unique<MemoryRegistry>();
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

std::unique_ptr<Registry> MakeWin32(const std::string& folder) {
  const std::string name = std::filesystem::path(folder).filename().string();
  return std::make_unique<ScratchWin32Registry>(std::wstring(name.begin(), name.end()));
}

const Backend kPlatformBackend{"Win32", MakeWin32};
#else
std::unique_ptr<Registry> MakeSqlite(const std::string& folder) {
  return std::make_unique<SqliteRegistry>(RegistryLocationIn(folder));
}

const Backend kPlatformBackend{"Sqlite", MakeSqlite};
#endif

INSTANTIATE_TEST_SUITE_P(Backends, RegistryContract,
                         ::testing::Values(Backend{"Memory", MakeMemory}, kPlatformBackend),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tessaly
