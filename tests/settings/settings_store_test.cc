#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_registry.h"

namespace tessaly {
namespace {

constexpr std::string_view kAppPaths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

class SettingsStoreTest : public ::testing::Test {
 protected:
  // No call may leave a key open.
  void TearDown() override { EXPECT_EQ(registry_.OpenKeyCount(), 0u); }

  SettingValue Get(std::string_view name) { return store_.GetProgramSetting("Settings", name, fallback_); }
  OrRaised<bool> Save(std::string_view name, const SettingValue& value) {
    return store_.SaveProgramSetting("Settings", name, value);
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  const SettingValue fallback_ = SettingValue::FromText("fallback");
};

TEST_F(SettingsStoreTest, ValuesReadBackAsTheirStoredType) {
  const std::tuple<const char*, SettingValue, SettingValue> cases[] = {
      {"Int16", SettingValue::FromInt16(-1), SettingValue::FromInt32(-1)},
      {"Int32", SettingValue::FromInt32(-2147483647 - 1), SettingValue::FromInt32(-2147483647 - 1)},
      {"Text", SettingValue::FromText("a|b%%c"), SettingValue::FromText("a|b%%c")},
      {"Text1024", SettingValue::FromText(std::string(1024, 'b')), SettingValue::FromText(std::string(1024, 'b'))},
      {"Text100k", SettingValue::FromText(std::string(100000, 'c')), SettingValue::FromText(std::string(100000, 'c'))},
      {"Bytes", SettingValue::FromBytes({0, 255, 0}), SettingValue::FromBytes({0, 255, 0})},
      {"NoBytes", SettingValue::FromBytes({}), SettingValue::FromBytes({})},
      // The registry reports size 0 for it, which reads as the default.
      {"EmptyText", SettingValue::FromText(""), SettingValue::FromText("fallback")},
  };
  for (const auto& [name, written, readBack] : cases) {
    EXPECT_TRUE(Save(name, written).value) << name;
    EXPECT_EQ(Get(name), readBack) << name;
  }
  // One query up to the first buffer's size, two beyond.
  Save("Fits", SettingValue::FromText(std::string(1023, 'a')));
  int before = registry_.QueryCount();
  Get("Fits");
  EXPECT_EQ(registry_.QueryCount() - before, 1);
  before = registry_.QueryCount();
  Get("Text1024");
  EXPECT_EQ(registry_.QueryCount() - before, 2);
}

TEST_F(SettingsStoreTest, ValuesOfOtherProgramsAreReadByType) {
  const std::tuple<std::uint32_t, std::string, SettingValue> cases[] = {
      {reg::kText, std::string("1\0", 2), SettingValue::FromText("1")},
      {reg::kExpandText, std::string("%HOME%\\x\0", 9), SettingValue::FromText("%HOME%\\x")},
      {reg::kMultiText, std::string("a\0b\0\0", 5), SettingValue::FromText(std::string("a\0b", 3))},
      {reg::kMultiText, std::string("\0", 1), SettingValue::FromText("fallback")},  // too short
      {reg::kText, std::string("a\0b\0", 4), SettingValue::FromText(std::string("a\0b", 3))},
      {reg::kDword, std::string("\xff\xff\xff\xff", 4), SettingValue::FromInt32(-1)},
      // Hand-edited: the bytes that are there, the rest zero.
      {reg::kDword, std::string("\5\1", 2), SettingValue::FromInt32(261)},
      {reg::kDword, "", SettingValue::FromInt32(0)},
      {reg::kDwordBigEndian, std::string("\0\0\0\1", 4), SettingValue::FromText("fallback")},
      {reg::kQword, std::string(8, '\1'), SettingValue::FromText("fallback")},
      {reg::kNone, "x", SettingValue::FromText("fallback")},
  };
  RegistryKey key = 0;
  ASSERT_EQ(registry_.CreateKey(Hive::kCurrentUser, "Software\\Ostrelle\\Tessaly\\Settings", "", 0,
                                reg::kWrite, &key, nullptr),
            reg::kSuccess);
  int i = 0;
  for (const auto& [type, stored, readBack] : cases) {
    const std::string name = "v" + std::to_string(i++);
    registry_.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(stored.data()),
                       static_cast<std::uint32_t>(stored.size()));
    EXPECT_EQ(Get(name), readBack) << name;
  }
  registry_.CloseKey(key);
}

TEST_F(SettingsStoreTest, KeysAreMadeByTheFirstSaveAndNeverByAReading) {
  EXPECT_EQ(Get("chkX"), fallback_);
  EXPECT_TRUE(store_.GetSharedSetting("Common\\ProgramPaths", "Tessaly").IsNothing());
  EXPECT_FALSE(registry_.KeyExists(Hive::kCurrentUser, "Software"));
  EXPECT_TRUE(Save("chkX", SettingValue::FromInt16(1)).value);
  EXPECT_TRUE(registry_.KeyExists(Hive::kCurrentUser, "software\\ostrelle\\tessaly\\settings"));
  // Program and shared scopes meet in one tree.
  EXPECT_EQ(store_.GetSharedSetting("Tessaly\\Settings", "CHKX"), SettingValue::FromInt32(1));
  EXPECT_FALSE(store_.CreateRegistryKey(Hive::kCurrentUser, "A\\B").value);  // did not exist
  EXPECT_TRUE(store_.CreateRegistryKey(Hive::kCurrentUser, "a\\b").value);
  // Nothing writes nothing, but still makes the key.
  const auto nothing = store_.SaveSharedSetting("Common\\X", "v", SettingValue());
  EXPECT_FALSE(nothing.value || nothing.raised);
  EXPECT_EQ(registry_.SetCount(), 1);
  EXPECT_TRUE(registry_.KeyExists(Hive::kCurrentUser, "Software\\Ostrelle\\Common\\X"));
  registry_.SetHiveAccess(Hive::kCurrentUser, MemoryRegistry::Access::kNone);
  EXPECT_EQ(Get("chkX"), fallback_);  // an unreadable hive gives the default
}

TEST_F(SettingsStoreTest, AKeyThatCannotBeMadeRaises1001AFailedSetOnlyFails) {
  registry_.FailNextCreates(1);
  const auto created = Save("chkX", SettingValue::FromInt16(1));
  EXPECT_FALSE(created.value);
  ASSERT_TRUE(created.raised);
  EXPECT_EQ(created.raised->number, 1001);
  EXPECT_EQ(created.raised->description, "Unable to create the registry key");
  EXPECT_EQ(registry_.SetCount(), 0);
  registry_.FailNextSets(1);
  const auto set = Save("chkX", SettingValue::FromInt16(1));
  EXPECT_FALSE(set.value || set.raised);
  EXPECT_EQ(Get("chkX"), fallback_);
}

TEST_F(SettingsStoreTest, AppPathGoesToTheMachineHiveWhileItMayBeWritten) {
  EXPECT_TRUE(store_.RegisterAppPath("old.exe", "C:\\old.exe").value);
  EXPECT_FALSE(registry_.KeyExists(Hive::kCurrentUser, "Software\\Microsoft"));
  registry_.SetHiveAccess(Hive::kLocalMachine, MemoryRegistry::Access::kReadOnly);
  // The key is there but cannot be opened for writing: plain false.
  const auto existing = store_.RegisterAppPath("old.exe", "C:\\new.exe");
  EXPECT_FALSE(existing.value || existing.raised);
  // The key would have to be made: the creation error.
  const auto missing = store_.RegisterAppPath("tessaly.exe", "C:\\tessaly.exe");
  ASSERT_TRUE(missing.raised);
  EXPECT_EQ(missing.raised->number, 1001);
  EXPECT_EQ(store_.ReadRegistryValue(Hive::kLocalMachine, std::string(kAppPaths) + "OLD.EXE", ""),
            SettingValue::FromText("C:\\old.exe"));
}

}  // namespace
}  // namespace tessaly
