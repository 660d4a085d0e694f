// The system services: product record, update check, shell open, connection state.
#include <gtest/gtest.h>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_network_status.h"
#include "platform/memory/fixed_program.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/memory_short_paths.h"
#include "platform/memory/recording_shell.h"
#include "system/product_record.h"
#include "system/product_site.h"
#include "system/shared_keys.h"
#include "system/shell_open.h"
#include "system/short_path_of.h"
#include "system/update_check.h"

namespace tessaly {
namespace {

constexpr const char* kFullPath = "C:\\Program Files\\Tessaly\\Tessaly.exe";
constexpr const char* kAppPath =
    "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Tessaly.exe";
constexpr const char* kUninstallKey =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tessaly_is1";
constexpr std::string_view kUpdater = "C:\\Program Files\\Updater\\Updater.exe";

SettingValue Text(std::string_view text) { return SettingValue::FromText(std::string(text)); }

class RecordProductTest : public ::testing::Test {
 protected:
  RecordProductTest() { shortPaths_.Set(kFullPath, "C:\\PROGRA~1\\Tessaly\\Tessaly.exe"); }
  void Record() { RecordProduct(store_, program_, shortPaths_, clock_); }
  SettingValue Shared(std::string_view key, std::string_view name) {
    return store_.GetSharedSetting(key, name);
  }
  SettingValue Machine(std::string_view key, std::string_view name) {
    return store_.ReadRegistryValue(Hive::kLocalMachine, key, name);
  }
  // The rows of the user's record a fresh system gets that come from elsewhere.
  void ExpectUserRows() {
    EXPECT_EQ(Shared(kProductRecordKey, "Tessaly install"), Text("March 05, 2024"));
    EXPECT_EQ(Shared(kShortPathsKey, "Tessaly"), Text("C:\\PROGRA~1\\Tessaly\\Tessaly.exe"));
    EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text(kFullPath));
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  MemoryShortPaths shortPaths_;
  FixedClock clock_{CivilDate{2024, 3, 5}};
  FixedProgram program_;
};

TEST_F(RecordProductTest, AFreshSystemGetsTheWholeRecord) {
  Record();
  ExpectUserRows();
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
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly ver"), Text("1.1.0"));
  EXPECT_EQ(Machine(kUninstallKey, "Inno Setup: App Path"), Text("D:\\Apps"));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly site"), Text(kBuiltInSiteAddress));
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly install"), Text("March 05, 2024"));
}

TEST_F(RecordProductTest, AReadOnlyMachineHiveOrAFailedStepStopsNothingElse) {
  registry_.SetHiveAccess(Hive::kLocalMachine, MemoryRegistry::Access::kReadOnly);
  Record();
  ExpectUserRows();
  EXPECT_TRUE(Machine(kAppPath, "").IsNothing());

  MemoryRegistry registry;
  SettingsStore store(registry);
  registry.FailNextCreates(1);  // the first key cannot be made
  registry.FailNextSets(1);     // nor the first value of the second set
  RecordProduct(store, program_, shortPaths_, clock_);
  EXPECT_TRUE(store.GetSharedSetting(kFileSupportKey, "Tessaly").IsNothing());
  EXPECT_TRUE(store.GetSharedSetting(kAssoPathsKey, "Tessaly").IsNothing());
  EXPECT_EQ(store.GetSharedSetting(kProgramPathsKey, "Tessaly"), Text(kFullPath));
}

TEST(ProductSiteTest, TitleValueThenDefaultValueThenBuiltIn) {
  const std::string builtIn(kBuiltInSiteAddress);
  const struct {
    std::optional<SettingValue> titleValue, defaultValue;
    std::string site;
  } cases[] = {
      {{}, {}, builtIn},
      {Text("http://t.example"), Text("http://d.example"), "http://t.example"},
      {{}, Text("http://d.example"), "http://d.example"},
      {Text("  "), Text("http://d.example"), builtIn},
      {Text(" http://t.example "), {}, " http://t.example "},
      {SettingValue::FromInt32(5), Text("http://d.example"), "http://d.example"},
  };
  for (const auto& c : cases) {
    MemoryRegistry registry;
    SettingsStore store(registry);
    if (c.titleValue) store.SaveSharedSetting(kWebSitesKey, "Tessaly", *c.titleValue);
    if (c.defaultValue) store.SaveSharedSetting(kWebSitesKey, "", *c.defaultValue);
    EXPECT_EQ(ProductSite(store, "Tessaly"), c.site);
  }
}

TEST(ShortPathOfTest, GivesTheShortFormThatFitsOrNothing) {
  MemoryShortPaths shortPaths;
  const std::string fits = "C:\\" + std::string(296, 'a');  // 299 characters
  shortPaths.Set("fits", fits);
  shortPaths.Set("long", fits + "a");
  EXPECT_EQ(ShortPathOf(shortPaths, "C:\\gone.exe"), "");
  EXPECT_EQ(ShortPathOf(shortPaths, "fits"), fits);
  EXPECT_EQ(ShortPathOf(shortPaths, "long"), "");
}

class CheckForUpdatesTest : public ::testing::Test {
 protected:
  CheckForUpdatesTest() {
    files_.AddFile(kUpdater);
    store_.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(kUpdater));
    network_.Set(connection::kLan);
  }
  void Check() { CheckForUpdates(store_, network_, shell_, clock_, program_, files_); }
  SettingValue LastCheck() { return store_.GetProgramSetting("SettingsNet", "LastCheck"); }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  MemoryFileSystem files_;
  FixedNetworkStatus network_;
  RecordingShell shell_;
  FixedClock clock_{CivilDate{2024, 3, 10}};
  FixedProgram program_;
};

TEST_F(CheckForUpdatesTest, StartsTheUpdaterOnceAWeekEvenWhenItFails) {
  shell_.SetAnswer(2);
  Check();
  EXPECT_EQ(LastCheck(), Text("112024"));
  // The updater's ".exe" makes the shell start it hidden.
  ASSERT_EQ(shell_.requests().size(), 1u);
  EXPECT_EQ(shell_.requests()[0], (ShellRequest{0, "open", std::string(kUpdater), "Tessaly,1.0.14", "", 0}));
  clock_.Set({{2024, 3, 16}, 23, 59, 0});  // Saturday, same week
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
  store_.SaveProgramSetting("SettingsNet", "LastCheck", Text("12023"));  // a new year
  clock_.Set({{2024, 1, 2}, 9, 0, 0});
  Check();
  EXPECT_EQ(shell_.requests().size(), 2u);
  EXPECT_EQ(LastCheck(), Text("12024"));
}

TEST_F(CheckForUpdatesTest, OnlySwitchValueOneAndAPlainConnectionAllowTheCheck) {
  using namespace connection;
  const struct {
    SettingValue value;
    std::optional<std::uint32_t> flags;
    bool runs;
  } cases[] = {
      {SettingValue::FromInt32(1), kLan, true},  {Text("1"), kModem, true},
      {SettingValue::FromInt32(2), kLan, false}, {SettingValue::FromBytes({1}), kLan, false},
      {Text("1"), kLan | kProxy, false},         {Text("1"), kModemBusy, false},
      {Text("1"), std::nullopt, false},          {Text("yes"), kLan, false},
  };
  for (const auto& c : cases) {
    MemoryRegistry registry;
    SettingsStore store(registry);
    store.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(kUpdater));
    store.SaveProgramSetting("SettingsNet", "AutoUpdate", c.value);
    network_.Set(c.flags);
    RecordingShell shell;
    CheckForUpdates(store, network_, shell, clock_, program_, files_);
    EXPECT_EQ(shell.requests().size(), c.runs ? 1u : 0u) << c.value.AsText();
    EXPECT_EQ(store.GetProgramSetting("SettingsNet", "LastCheck").IsNothing(), !c.runs);
  }
}

TEST_F(CheckForUpdatesTest, AnUpdaterThatIsNoFileIsNotStartedAndTriedNextTime) {
  for (const char* path : {"C:\\Program Files\\Updater\\Gone.exe", "C:\\Program Files\\Updater"}) {
    store_.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(path));
    Check();
    EXPECT_TRUE(shell_.requests().empty()) << path;
    EXPECT_TRUE(LastCheck().IsNothing()) << path;
  }
}

TEST_F(CheckForUpdatesTest, ARefusedMarkStillStartsTheUpdaterButAKeyErrorEndsTheCheck) {
  registry_.FailNextSets(1);
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
  EXPECT_TRUE(LastCheck().IsNothing());
  MemoryRegistry registry;  // the program's key does not exist yet, and cannot be made
  SettingsStore store(registry);
  store.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(kUpdater));
  registry.FailNextCreates(1);
  RecordingShell shell;
  CheckForUpdates(store, network_, shell, clock_, program_, files_);
  EXPECT_TRUE(shell.requests().empty());
}

TEST(ShellOpenTest, ShowCommandAndPartsPassedOn) {
  const struct {
    const char *file;
    std::int32_t show;
    const char *parameters, *directory;
    std::int32_t expectedShow;
  } cases[] = {
      // A program given parameters starts hidden, whatever case ".exe" is in,
      // and wherever ".exe" stands in the text.
      {"C:\\Tools\\Up.EXE", show::kDefault, "a", "", show::kHide},
      {"C:\\my.exe.d\\readme.txt", show::kNormal, "", "C:\\Temp", show::kHide},
      {"C:\\Docs\\letter.txt", 3, "-p", "", 3},  // a document keeps its show command
      // With neither parameters nor directory the window always shows normally.
      {"C:\\Tools\\up.exe", show::kHide, "", "", show::kNormal},
  };
  for (const auto& c : cases) {
    RecordingShell shell;
    ASSERT_TRUE(ShellOpen(shell, FixedProgram(), c.file, c.show, c.parameters, c.directory, "open", 7));
    ASSERT_EQ(shell.requests().size(), 1u);
    EXPECT_EQ(shell.requests()[0], (ShellRequest{7, "open", c.file, c.parameters, c.directory, c.expectedShow}));
  }
}

TEST(ShellOpenTest, AnswersUpTo32FailWithTheirReport) {
  constexpr std::int32_t kBase = -2147220456;
  const struct {
    std::int32_t answer, number;
    const char* text;
  } failures[] = {
      {0, 7, "Out of memory"},
      {32, 48, "The specified dynamic-link library was not found."},
      {25, kBase + 25, "An error occurred occurred whilst trying to open or print the selected file."},
  };
  FixedProgram program;
  program.fileName = "renamer";
  RecordingShell shell;
  for (const auto& c : failures) {
    shell.SetAnswer(c.answer);
    ShellFailure failure;
    EXPECT_FALSE(ShellOpen(shell, program, "C:\\a.txt", 1, "", "", "open", 0, &failure));
    EXPECT_EQ(failure, (ShellFailure{c.number, "renamer.GShell", c.text})) << c.answer;
  }
  for (const std::int32_t answer : {33, -1}) {
    shell.SetAnswer(answer);
    ShellFailure failure{-5, "untouched", "untouched"};
    EXPECT_TRUE(ShellOpen(shell, program, "C:\\a.txt", 1, "", "", "open", 0, &failure));
    EXPECT_EQ(failure.source, "untouched");
  }
}

}  // namespace
}  // namespace tessaly
