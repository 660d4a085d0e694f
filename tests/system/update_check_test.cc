#include "system/update_check.h"

#include <gtest/gtest.h>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_network_status.h"
#include "platform/memory/fixed_program.h"
#include "platform/memory/memory_file_system.h"
#include "platform/memory/memory_registry.h"
#include "platform/memory/recording_shell.h"
#include "system/shared_keys.h"

namespace tessaly {
namespace {

constexpr std::string_view kUpdater = "C:\\Program Files\\Updater\\Updater.exe";

TEST(WeekMarkTest, TheWeekNumberThenTheYear) {
  struct Case {
    CivilDate date;
    const char* mark;
  };
  const Case cases[] = {
      // The week numbers themselves are the date format's; here only the
      // mark's shape: no leading zero, and the year of the day itself.
      {{2024, 1, 6}, "12024"},
      {{2024, 3, 10}, "112024"},
      {{2021, 12, 31}, "532021"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.mark);
    EXPECT_EQ(WeekMark(c.date), c.mark);
  }
}

class CheckForUpdatesTest : public ::testing::Test {
 protected:
  CheckForUpdatesTest() {
    files_.AddFile(kUpdater);
    store_.SaveSharedSetting(kShortPathsKey, "AutoUpdate",
                             SettingValue::FromText(std::string(kUpdater)));
    network_.Set(connection::kLan);
  }

  void Check() { CheckForUpdates(store_, network_, shell_, clock_, program_, files_); }
  SettingValue LastCheck() { return store_.GetProgramSetting("SettingsNet", "LastCheck"); }
  void SetProgramSetting(std::string_view name, const SettingValue& value) {
    store_.SaveProgramSetting("SettingsNet", name, value);
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  MemoryFileSystem files_;
  FixedNetworkStatus network_;
  RecordingShell shell_;
  FixedClock clock_{CivilDate{2024, 3, 10}};
  FixedProgram program_;
};

TEST_F(CheckForUpdatesTest, AFreshSystemMarksTheWeekAndStartsTheUpdaterOnce) {
  Check();
  EXPECT_EQ(LastCheck(), SettingValue::FromText("112024"));
  ASSERT_EQ(shell_.requests().size(), 1u);
  // The updater's ".exe" makes the shell start it hidden.
  const ShellRequest expected{0, "open", std::string(kUpdater), "Tessaly,1.0.14", "", 0};
  EXPECT_EQ(shell_.requests()[0], expected);
}

TEST_F(CheckForUpdatesTest, ASecondStartInTheSameWeekDoesNothing) {
  Check();
  clock_.Set({{2024, 3, 16}, 23, 59, 0});  // Saturday, same week
  network_.Set(connection::kModem);
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
}

TEST_F(CheckForUpdatesTest, ANewWeekOrANewYearRunsAgain) {
  SetProgramSetting("LastCheck", SettingValue::FromText("102024"));
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);

  SetProgramSetting("LastCheck", SettingValue::FromText("12023"));
  clock_.Set({{2024, 1, 2}, 9, 0, 0});
  Check();
  EXPECT_EQ(shell_.requests().size(), 2u);
  EXPECT_EQ(LastCheck(), SettingValue::FromText("12024"));
}

TEST_F(CheckForUpdatesTest, OnlyTheSwitchValueOneAllowsTheCheck) {
  struct Case {
    const char* what;
    SettingValue value;
    bool runs;
  };
  const Case cases[] = {
      {"number 1", SettingValue::FromInt32(1), true},
      {"text 1", SettingValue::FromText("1"), true},
      {"number 0", SettingValue::FromInt32(0), false},
      {"number 2", SettingValue::FromInt32(2), false},
      {"text yes", SettingValue::FromText("yes"), false},
      {"bytes", SettingValue::FromBytes({1}), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    MemoryRegistry registry;
    SettingsStore store(registry);
    store.SaveSharedSetting(kShortPathsKey, "AutoUpdate",
                            SettingValue::FromText(std::string(kUpdater)));
    store.SaveProgramSetting("SettingsNet", "AutoUpdate", c.value);
    RecordingShell shell;
    CheckForUpdates(store, network_, shell, clock_, program_, files_);
    EXPECT_EQ(shell.requests().size(), c.runs ? 1u : 0u);
    EXPECT_EQ(store.GetProgramSetting("SettingsNet", "LastCheck").IsNothing(), !c.runs);
  }
}

TEST_F(CheckForUpdatesTest, OnlyAPlainModemOrLanConnectionAllowsTheCheck) {
  using namespace connection;
  struct Case {
    std::optional<std::uint32_t> flags;
    bool runs;
  };
  const Case cases[] = {
      {kLan, true},        {kModem, true}, {kLan | kProxy, false}, {kModem | kLan, false},
      {kModemBusy, false}, {0, false},     {std::nullopt, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.flags.value_or(999));
    SetProgramSetting("LastCheck", SettingValue::FromText("old"));
    network_.Set(c.flags);
    RecordingShell shell;
    CheckForUpdates(store_, network_, shell, clock_, program_, files_);
    EXPECT_EQ(shell.requests().size(), c.runs ? 1u : 0u);
    EXPECT_EQ(LastCheck() == SettingValue::FromText("old"), !c.runs);
  }
}

TEST_F(CheckForUpdatesTest, AnUpdaterThatIsNoFileIsNotStartedAndTriedNextTime) {
  const char* paths[] = {"", "C:\\Program Files\\Updater\\Gone.exe", "C:\\Program Files\\Updater"};
  for (const char* path : paths) {
    SCOPED_TRACE(path);
    store_.SaveSharedSetting(kShortPathsKey, "AutoUpdate", SettingValue::FromText(path));
    Check();
    EXPECT_TRUE(shell_.requests().empty());
    EXPECT_TRUE(LastCheck().IsNothing());
  }
}

TEST_F(CheckForUpdatesTest, AnUpdaterThatFailsToStartStillMarksTheWeek) {
  shell_.SetAnswer(2);
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
  EXPECT_EQ(LastCheck(), SettingValue::FromText("112024"));
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
}

TEST_F(CheckForUpdatesTest, ARefusedMarkStillStartsTheUpdaterButAKeyErrorEndsTheCheck) {
  registry_.FailNextSets(1);
  Check();
  EXPECT_EQ(shell_.requests().size(), 1u);
  EXPECT_TRUE(LastCheck().IsNothing());

  // The program's key does not exist yet, and cannot be made.
  MemoryRegistry registry;
  SettingsStore store(registry);
  store.SaveSharedSetting(kShortPathsKey, "AutoUpdate",
                          SettingValue::FromText(std::string(kUpdater)));
  registry.FailNextCreates(1);
  RecordingShell shell;
  CheckForUpdates(store, network_, shell, clock_, program_, files_);
  EXPECT_TRUE(shell.requests().empty());
}

}  // namespace
}  // namespace tessaly
