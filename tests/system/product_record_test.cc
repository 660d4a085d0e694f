#include "system/product_record.h"

#include <gtest/gtest.h>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_program.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/memory_short_paths.h"
#include "system/product_site.h"
#include "system/shared_keys.h"
#include "system/short_path_of.h"

namespace tessaly {
namespace {

constexpr const char* kFullPath = "C:\\Program Files\\Tessaly\\Tessaly.exe";
constexpr const char* kShortPath = "C:\\PROGRA~1\\Tessaly\\Tessaly.exe";
constexpr const char* kAppPath =
    "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Tessaly.exe";
constexpr const char* kUninstallKey =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tessaly_is1";

SettingValue Text(const char* text) { return SettingValue::FromText(text); }

class RecordProductTest : public ::testing::Test {
 protected:
  RecordProductTest() { shortPaths_.Set(kFullPath, kShortPath); }

  void Record() { RecordProduct(store_, program_, shortPaths_, clock_); }
  SettingValue Shared(std::string_view key, std::string_view name) {
    return store_.GetSharedSetting(key, name);
  }
  SettingValue Machine(std::string_view key, std::string_view name) {
    return store_.ReadRegistryValue(Hive::kLocalMachine, key, name);
  }
  // Rows 1 to 10, by key and value name, with what a fresh system gets.
  struct Row {
    std::string_view key;
    const char* name;
    const char* value;
  };
  std::vector<Row> UserRows(const char* path, const char* shortPath) {
    return {
        {kFileSupportKey, "Tessaly", "*.*"},
        {kAssoPathsKey, "Tessaly", path},
        {kWebSitesKey, "Tessaly", kBuiltInSiteAddress.data()},
        {kProductRecordKey, "Tessaly site", kBuiltInSiteAddress.data()},
        {kProductRecordKey, "Tessaly ver", "1.0.14"},
        {kProductRecordKey, "Tessaly date", "April 2nd, 2003"},
        {kProductRecordKey, "Tessaly path", path},
        {kProductRecordKey, "Tessaly install", "March 05, 2024"},
        {kShortPathsKey, "Tessaly", shortPath},
        {kProgramPathsKey, "Tessaly", path},
    };
  }
  void ExpectUserRows(const char* path, const char* shortPath) {
    for (const Row& row : UserRows(path, shortPath)) {
      SCOPED_TRACE(std::string(row.key) + " / " + row.name);
      EXPECT_EQ(Shared(row.key, row.name), Text(row.value));
    }
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  MemoryShortPaths shortPaths_;
  FixedClock clock_{CivilDate{2024, 3, 5}};
  FixedProgram program_;
};

TEST_F(RecordProductTest, AFreshSystemGetsTheWholeRecordWithItsKeys) {
  Record();
  EXPECT_TRUE(registry_.KeyExists(Hive::kCurrentUser, "Software\\Ostrelle\\Common\\ProductRecord"));
  ExpectUserRows(kFullPath, kShortPath);
  EXPECT_EQ(Machine(kAppPath, ""), Text(kFullPath));
  EXPECT_EQ(Machine(kUninstallKey, "Inno Setup: App Path"), Text("C:\\Program Files\\Tessaly"));
  EXPECT_EQ(registry_.OpenKeyCount(), 0u);
}

TEST_F(RecordProductTest, ALaterStartInAnotherFolderKeepsSiteAndInstallDate) {
  Record();
  store_.SaveSharedSetting(kWebSitesKey, "Tessaly", Text("https://example.org/tessaly"));
  program_.folder = "D:\\Apps";
  program_.version = {1, 1, 0};
  clock_.Set({{2025, 1, 9}, 8, 0, 0});
  Record();
  constexpr const char* kMoved = "D:\\Apps\\Tessaly.exe";
  EXPECT_EQ(Shared(kAssoPathsKey, "Tessaly"), Text(kMoved));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly path"), Text(kMoved));
  EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text(kMoved));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly ver"), Text("1.1.0"));
  // The new file has no short form yet: the record says so with no text.
  EXPECT_EQ(Shared(kShortPathsKey, "Tessaly").AsText(), "");
  EXPECT_EQ(Machine(kAppPath, ""), Text(kMoved));
  EXPECT_EQ(Machine(kUninstallKey, "Inno Setup: App Path"), Text("D:\\Apps"));
  // The site follows "Web Sites"; the first start's site and date stay.
  EXPECT_EQ(Shared(kWebSitesKey, "Tessaly"), Text("https://example.org/tessaly"));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly site"), Text(kBuiltInSiteAddress.data()));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly install"), Text("March 05, 2024"));
}

TEST_F(RecordProductTest, PatternsAndExtensionComeFromTheCaller) {
  RecordProduct(store_, program_, shortPaths_, clock_, "*.jpg;*.png", "");
  EXPECT_EQ(Shared(kFileSupportKey, "Tessaly"), Text("*.jpg;*.png"));
  EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text("C:\\Program Files\\Tessaly\\Tessaly"));
  EXPECT_EQ(Machine("Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Tessaly", ""),
            Text("C:\\Program Files\\Tessaly\\Tessaly"));
}

TEST_F(RecordProductTest, AReadOnlyMachineHiveLeavesTheUserRecordWhole) {
  registry_.SetHiveAccess(Hive::kLocalMachine, MemoryRegistry::Access::kReadOnly);
  Record();
  ExpectUserRows(kFullPath, kShortPath);
  EXPECT_TRUE(Machine(kAppPath, "").IsNothing());
  EXPECT_FALSE(registry_.KeyExists(Hive::kLocalMachine, kUninstallKey));
}

TEST_F(RecordProductTest, AFailedStepDoesNotStopTheNext) {
  // The first key cannot be made; the first value of the second cannot be set.
  registry_.FailNextCreates(1);
  registry_.FailNextSets(1);
  Record();
  EXPECT_TRUE(Shared(kFileSupportKey, "Tessaly").IsNothing());
  EXPECT_TRUE(Shared(kAssoPathsKey, "Tessaly").IsNothing());
  EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text(kFullPath));
  EXPECT_EQ(Machine(kUninstallKey, "Inno Setup: App Path"), Text("C:\\Program Files\\Tessaly"));
}

TEST(ProductSiteTest, TitleValueThenDefaultValueThenBuiltIn) {
  const std::string builtIn(kBuiltInSiteAddress);
  struct Case {
    const char* what;
    std::optional<SettingValue> titleValue;
    std::optional<SettingValue> defaultValue;
    std::string site;
  };
  const Case cases[] = {
      {"nothing stored", {}, {}, builtIn},
      {"title value", Text("http://t.example"), Text("http://d.example"), "http://t.example"},
      {"default value", {}, Text("http://d.example"), "http://d.example"},
      {"blank default value", {}, Text("   "), builtIn},
      {"blank title value", Text("  "), Text("http://d.example"), builtIn},
      {"padded value kept uncut", Text(" http://t.example "), {}, " http://t.example "},
      {"number is no address", SettingValue::FromInt32(5), Text("http://d.example"),
       "http://d.example"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    MemoryRegistry registry;
    SettingsStore store(registry);
    if (c.titleValue) store.SaveSharedSetting(kWebSitesKey, "Tessaly", *c.titleValue);
    if (c.defaultValue) store.SaveSharedSetting(kWebSitesKey, "", *c.defaultValue);
    EXPECT_EQ(ProductSite(store, "Tessaly"), c.site);
  }
}

TEST(ProductSiteTest, AStoredSiteIsTakenForAFreshRecord) {
  MemoryRegistry registry;
  SettingsStore store(registry);
  MemoryShortPaths shortPaths;
  FixedProgram program;
  store.SaveSharedSetting(kWebSitesKey, "", Text("http://d.example"));
  store.SaveSharedSetting(kWebSitesKey, "Tessaly", Text("http://t.example"));
  RecordProduct(store, program, shortPaths, FixedClock(CivilDate{2024, 3, 5}));
  EXPECT_EQ(store.GetSharedSetting(kProductRecordKey, "Tessaly site"), Text("http://t.example"));
}

TEST(ShortPathOfTest, GivesTheShortFormThatFitsOrNothing) {
  MemoryShortPaths shortPaths;
  const std::string fits = "C:\\" + std::string(296, 'a');    // 299 characters
  const std::string tooLong = "C:\\" + std::string(297, 'a');  // 300 characters
  shortPaths.Set("fits", fits);
  shortPaths.Set("long", tooLong);
  EXPECT_EQ(ShortPathOf(shortPaths, "C:\\gone.exe"), "");
  EXPECT_EQ(ShortPathOf(shortPaths, "fits"), fits);
  EXPECT_EQ(ShortPathOf(shortPaths, "long"), "");
}

}  // namespace
}  // namespace tessaly
