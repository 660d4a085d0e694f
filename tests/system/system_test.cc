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
#include "system/update_check.h"

namespace tessaly {
namespace {

constexpr const char* kFullPath = "C:\\Program Files\\Tessaly\\Tessaly.exe";
constexpr const char* kUninstallKey =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tessaly_is1";
constexpr std::string_view kUpdater = "C:\\Program Files\\Updater\\Updater.exe";

SettingValue Text(std::string_view text) { return SettingValue::FromText(std::string(text)); }

// A machine as the start-up services see it: the program installed, an
// updater on disk and a plain network connection.
class SystemTest : public ::testing::Test {
 protected:
  SystemTest() {
    shortPaths_.Set(kFullPath, "C:\\PROGRA~1\\Tessaly\\Tessaly.exe");
    files_.AddFile(kUpdater);
    network_.Set(connection::kLan);
    store_.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(kUpdater));
  }
  void Record() { RecordProduct(store_, program_, shortPaths_, clock_); }
  void Check() { CheckForUpdates(store_, network_, shell_, clock_, program_, files_); }
  SettingValue Shared(std::string_view key, std::string_view name) {
    return store_.GetSharedSetting(key, name);
  }
  SettingValue Machine(std::string_view key, std::string_view name) {
    return store_.ReadRegistryValue(Hive::kLocalMachine, key, name);
  }
  SettingValue LastCheck() { return store_.GetProgramSetting("SettingsNet", "LastCheck"); }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  MemoryShortPaths shortPaths_;
  FixedClock clock_{CivilDate{2024, 3, 5}};
  FixedProgram program_;
  MemoryFileSystem files_;
  FixedNetworkStatus network_;
  RecordingShell shell_;
};

// The rows checked are those that come from elsewhere than the program's facts.
TEST_F(SystemTest, AFreshSystemGetsTheWholeRecord) {
  Record();
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly install"), Text("March 05, 2024"));
  EXPECT_EQ(Shared(kShortPathsKey, "Tessaly"), Text("C:\\PROGRA~1\\Tessaly\\Tessaly.exe"));
  EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text(kFullPath));
  EXPECT_EQ(Machine("Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Tessaly.exe", ""),
            Text(kFullPath));
  EXPECT_EQ(Machine(kUninstallKey, "Inno Setup: App Path"), Text("C:\\Program Files\\Tessaly"));
  EXPECT_EQ(registry_.OpenKeyCount(), 0u);
  // A short form the system call's buffer of 300 characters (its end
  // included) cannot hold is none.
  for (const std::size_t length : {299, 300}) {
    shortPaths_.Set(kFullPath, std::string(length, 'a'));
    Record();
    EXPECT_EQ(Shared(kShortPathsKey, "Tessaly").AsText().size(), length == 299 ? 299u : 0u);
  }
}

// The rows that name the program's file give it the platform's extension,
// and the short form is that of the file.
TEST_F(SystemTest, ThePathsOfTheProgramsFileCarryThePlatformsExtension) {
  for (const std::string extension : {".exe", ""}) {
    program_.fileExtension = extension;
    Record();
    const SettingValue path = Text("C:\\Program Files\\Tessaly\\Tessaly" + extension);
    EXPECT_EQ(Shared(kAssoPathsKey, "Tessaly"), path) << extension;
    EXPECT_EQ(Shared(kProductRecordKey, "Tessaly path"), path) << extension;
    EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), path) << extension;
    EXPECT_EQ(Machine("Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Tessaly" + extension, ""),
              path) << extension;
    EXPECT_EQ(Shared(kShortPathsKey, "Tessaly").AsText(),
              extension.empty() ? "" : "C:\\PROGRA~1\\Tessaly\\Tessaly.exe") << extension;
  }
}

TEST_F(SystemTest, ALaterStartInAnotherFolderKeepsSiteAndInstallDate) {
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

TEST_F(SystemTest, AReadOnlyMachineHiveOrAFailedStepStopsNothingElse) {
  registry_.SetHiveAccess(Hive::kLocalMachine, MemoryRegistry::Access::kReadOnly);
  registry_.FailNextCreates(1);  // the first key cannot be made
  registry_.FailNextSets(1);     // nor the first value of the second set
  Record();
  EXPECT_TRUE(Shared(kFileSupportKey, "Tessaly").IsNothing());
  EXPECT_TRUE(Shared(kAssoPathsKey, "Tessaly").IsNothing());
  EXPECT_EQ(Shared(kProductRecordKey, "Tessaly install"), Text("March 05, 2024"));
  EXPECT_EQ(Shared(kProgramPathsKey, "Tessaly"), Text(kFullPath));
  EXPECT_TRUE(Machine(kUninstallKey, "Inno Setup: App Path").IsNothing());
}

TEST(ProductSiteTest, TitleValueThenDefaultValueThenBuiltIn) {
  const std::string builtIn(kBuiltInSiteAddress), title = "http://t.example",
                    other = "http://d.example";
  const struct {
    std::optional<SettingValue> titleValue, defaultValue;
    std::string site;
  } cases[] = {
      {{}, {}, builtIn},        {Text(title), Text(other), title},   {{}, Text(other), other},
      {Text("  "), Text(other), builtIn}, {Text(" " + title + " "), {}, " " + title + " "},
      {SettingValue::FromInt32(5), Text(other), other},
  };
  for (const auto& c : cases) {
    MemoryRegistry registry;
    SettingsStore store(registry);
    if (c.titleValue) store.SaveSharedSetting(kWebSitesKey, "Tessaly", *c.titleValue);
    if (c.defaultValue) store.SaveSharedSetting(kWebSitesKey, "", *c.defaultValue);
    EXPECT_EQ(ProductSite(store, "Tessaly"), c.site);
  }
}

TEST_F(SystemTest, UpdaterStartsOnceAWeekEvenWhenItFails) {
  clock_.Set({{2024, 3, 10}, 0, 0, 0});
  shell_.SetAnswer(2);
  Check();
  EXPECT_EQ(LastCheck(), Text("112024"));
  // The updater's ".exe" makes the shell start it hidden.
  EXPECT_EQ(shell_.requests().at(0),
            (ShellRequest{0, "open", std::string(kUpdater), "Tessaly,1.0.14", "", 0}));
  clock_.Set({{2024, 3, 16}, 23, 59, 0});  // Saturday, same week
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
  store_.SaveProgramSetting("SettingsNet", "LastCheck", Text("12023"));  // a new year
  clock_.Set({{2024, 1, 2}, 9, 0, 0});
  Check();
  EXPECT_EQ(shell_.requests().size(), 2u);
  EXPECT_EQ(LastCheck(), Text("12024"));
}

// Only the switch's value one, a plain connection and an updater that is a
// file let the check run; one that did not run is tried next time.
TEST_F(SystemTest, WhatLetsTheUpdateCheckRun) {
  using namespace connection;
  const struct {
    SettingValue value;
    std::optional<std::uint32_t> flags;
    bool runs;
    std::string_view updater = kUpdater;
  } cases[] = {
      {SettingValue::FromInt32(1), kLan, true},  {Text("1"), kModem, true},
      {SettingValue::FromInt32(2), kLan, false}, {SettingValue::FromBytes({1}), kLan, false},
      {Text("1"), kLan | kProxy, false},         {Text("1"), kModemBusy, false},
      {Text("1"), std::nullopt, false},          {Text("yes"), kLan, false},
      {Text("1"), kLan, false, "C:\\Program Files\\Updater\\Gone.exe"},
      {Text("1"), kLan, false, "C:\\Program Files\\Updater"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value.AsText() + std::string(c.updater));
    MemoryRegistry registry;
    SettingsStore store(registry);
    store.SaveSharedSetting(kShortPathsKey, "AutoUpdate", Text(c.updater));
    store.SaveProgramSetting("SettingsNet", "AutoUpdate", c.value);
    network_.Set(c.flags);
    RecordingShell shell;
    CheckForUpdates(store, network_, shell, clock_, program_, files_);
    EXPECT_EQ(shell.requests().size(), c.runs ? 1u : 0u);
    EXPECT_EQ(store.GetProgramSetting("SettingsNet", "LastCheck").IsNothing(), !c.runs);
  }
}

TEST_F(SystemTest, ARefusedMarkStillStartsTheUpdaterButAKeyErrorEndsTheCheck) {
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

// A program given parameters starts hidden, whatever case ".exe" is in and
// wherever it stands in the text; a document keeps its show command; with
// neither parameters nor directory the window always shows normally.
// Failed answers fill in a report.
TEST(ShellOpenTest, ShowCommandPartsPassedOnAndFailureReports) {
  const struct {
    const char *file, *parameters, *directory;
    std::int32_t show, expectedShow;
  } cases[] = {
      {"C:\\Tools\\Up.EXE", "a", "", show::kDefault, show::kHide},
      {"C:\\my.exe.d\\readme.txt", "", "C:\\Temp", show::kNormal, show::kHide},
      {"C:\\Docs\\letter.txt", "-p", "", 3, 3},
      {"C:\\Tools\\up.exe", "", "", show::kHide, show::kNormal},
  };
  for (const auto& c : cases) {
    RecordingShell shell;
    EXPECT_TRUE(ShellOpen(shell, FixedProgram(), c.file, c.show, c.parameters, c.directory, "open", 7));
    EXPECT_EQ(shell.requests().at(0),
              (ShellRequest{7, "open", c.file, c.parameters, c.directory, c.expectedShow}));
  }
  // Answers up to 32 fail with their report; the others leave it untouched.
  const struct {
    std::int32_t answer, number;
    const char *source, *text;
  } answers[] = {
      {0, 7, "renamer.GShell", "Out of memory"},
      {32, 48, "renamer.GShell", "The specified dynamic-link library was not found."},
      {25, -2147220456 + 25, "renamer.GShell",
       "An error occurred occurred whilst trying to open or print the selected file."},
      {33, -5, "untouched", "untouched"},
      {-1, -5, "untouched", "untouched"},
  };
  FixedProgram program;
  program.fileName = "renamer";
  RecordingShell shell;
  for (const auto& c : answers) {
    shell.SetAnswer(c.answer);
    ShellFailure failure{-5, "untouched", "untouched"};
    const bool succeeds = c.answer > 32 || c.answer < 0;
    EXPECT_EQ(ShellOpen(shell, program, "C:\\a.txt", 1, "", "", "open", 0, &failure), succeeds);
    EXPECT_EQ(failure, (ShellFailure{c.number, c.source, c.text})) << c.answer;
  }
}

}  // namespace
}  // namespace tessaly
