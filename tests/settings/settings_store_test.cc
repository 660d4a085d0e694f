#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_registry.h"

namespace tessaly {
namespace {

constexpr std::string_view kSettingsKey = "Software\\Ostrelle\\Tessaly\\Settings";

class SettingsStoreTest : public ::testing::Test {
 protected:
  // No call may leave a key open.
  void TearDown() override { EXPECT_EQ(registry_.OpenKeyCount(), 0u); }

  // Stores raw bytes of `type` as another program might have.
  void Plant(std::string_view keyPath, std::string_view name, std::uint32_t type,
             const std::string& bytes) {
    RegistryKey key = 0;
    ASSERT_EQ(registry_.CreateKey(Hive::kCurrentUser, keyPath, "", 0, reg::kWrite, &key, nullptr),
              reg::kSuccess);
    registry_.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                       static_cast<std::uint32_t>(bytes.size()));
    registry_.CloseKey(key);
  }

  MemoryRegistry registry_;
  SettingsStore store_{registry_};
  const SettingValue fallback_ = SettingValue::FromText("fallback");
};

TEST_F(SettingsStoreTest, ValuesReadBackAsTheirStoredType) {
  struct Case {
    const char* name;
    SettingValue written;
    SettingValue readBack;
  };
  const Case cases[] = {
      {"Int16", SettingValue::FromInt16(-1), SettingValue::FromInt32(-1)},
      {"Int16Max", SettingValue::FromInt16(32767), SettingValue::FromInt32(32767)},
      {"Int32", SettingValue::FromInt32(-2147483647 - 1), SettingValue::FromInt32(-2147483647 - 1)},
      {"Text", SettingValue::FromText("a|b%%c"), SettingValue::FromText("a|b%%c")},
      {"Text1023", SettingValue::FromText(std::string(1023, 'a')),
       SettingValue::FromText(std::string(1023, 'a'))},
      {"Text1024", SettingValue::FromText(std::string(1024, 'b')),
       SettingValue::FromText(std::string(1024, 'b'))},
      {"Text100k", SettingValue::FromText(std::string(100000, 'c')),
       SettingValue::FromText(std::string(100000, 'c'))},
      {"Bytes", SettingValue::FromBytes({0, 255, 0}), SettingValue::FromBytes({0, 255, 0})},
      {"NoBytes", SettingValue::FromBytes({}), SettingValue::FromBytes({})},
      // The registry reports size 0 for it, which reads as the default.
      {"EmptyText", SettingValue::FromText(""), SettingValue::FromText("fallback")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_TRUE(store_.SaveProgramSetting("Settings", c.name, c.written).value);
    EXPECT_EQ(store_.GetProgramSetting("Settings", c.name, fallback_), c.readBack);
  }
}

TEST_F(SettingsStoreTest, ReadsTakeOneQueryUpToTheFirstBufferAndTwoBeyond) {
  store_.SaveProgramSetting("Settings", "Fits", SettingValue::FromText(std::string(1023, 'a')));
  store_.SaveProgramSetting("Settings", "Over", SettingValue::FromText(std::string(1024, 'a')));
  int before = registry_.QueryCount();
  store_.GetProgramSetting("Settings", "Fits");
  EXPECT_EQ(registry_.QueryCount() - before, 1);
  before = registry_.QueryCount();
  store_.GetProgramSetting("Settings", "Over");
  EXPECT_EQ(registry_.QueryCount() - before, 2);
}

TEST_F(SettingsStoreTest, ValuesOfOtherProgramsAreReadByType) {
  struct Case {
    const char* name;
    std::uint32_t type;
    std::string stored;
    SettingValue readBack;
  };
  const Case cases[] = {
      {"NumberAsText", reg::kText, std::string("1\0", 2), SettingValue::FromText("1")},
      {"Expandable", reg::kExpandText, std::string("%HOME%\\x\0", 9),
       SettingValue::FromText("%HOME%\\x")},
      {"Multi", reg::kMultiText, std::string("a\0b\0\0", 5),
       SettingValue::FromText(std::string("a\0b", 3))},
      {"TooShortMulti", reg::kMultiText, std::string("\0", 1), SettingValue::FromText("fallback")},
      {"TextWithZeros", reg::kText, std::string("a\0b\0", 4),
       SettingValue::FromText(std::string("a\0b", 3))},
      {"Dword", reg::kDword, std::string("\xff\xff\xff\xff", 4), SettingValue::FromInt32(-1)},
      // Hand-edited: the bytes that are there, the rest zero.
      {"ShortDword", reg::kDword, std::string("\5\1", 2), SettingValue::FromInt32(261)},
      {"EmptyDword", reg::kDword, "", SettingValue::FromInt32(0)},
      {"BigEndian", reg::kDwordBigEndian, std::string("\0\0\0\1", 4),
       SettingValue::FromText("fallback")},
      {"Qword", reg::kQword, std::string(8, '\1'), SettingValue::FromText("fallback")},
      {"NoType", reg::kNone, "x", SettingValue::FromText("fallback")},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Plant(kSettingsKey, c.name, c.type, c.stored);
    EXPECT_EQ(store_.GetProgramSetting("Settings", c.name, fallback_), c.readBack);
  }
}

TEST_F(SettingsStoreTest, MissingKeysGiveTheDefaultAndCreateNothing) {
  EXPECT_EQ(store_.GetProgramSetting("Settings", "chkX", fallback_), fallback_);
  EXPECT_TRUE(store_.GetSharedSetting("Common\\ProgramPaths", "Tessaly").IsNothing());
  EXPECT_FALSE(registry_.KeyExists(Hive::kCurrentUser, "Software"));
}

TEST_F(SettingsStoreTest, FirstSaveCreatesTheKeyWithItsParents) {
  EXPECT_TRUE(store_.SaveProgramSetting("Settings", "chkX", SettingValue::FromInt16(1)).value);
  for (const char* key : {"Software", "Software\\Ostrelle", "Software\\Ostrelle\\Tessaly",
                          "software\\ostrelle\\tessaly\\settings"}) {
    EXPECT_TRUE(registry_.KeyExists(Hive::kCurrentUser, key)) << key;
  }
  // Program and shared scopes meet in one tree.
  EXPECT_EQ(store_.GetSharedSetting("Tessaly\\Settings", "CHKX"), SettingValue::FromInt32(1));
}

TEST_F(SettingsStoreTest, CreateRegistryKeyTellsWhetherTheKeyExisted) {
  EXPECT_FALSE(store_.CreateRegistryKey(Hive::kCurrentUser, "A\\B").value);
  EXPECT_TRUE(store_.CreateRegistryKey(Hive::kCurrentUser, "a\\b").value);
  EXPECT_TRUE(store_.CreateRegistryKey(Hive::kCurrentUser, "A").value);
}

TEST_F(SettingsStoreTest, NothingWritesNothingButStillMakesTheKey) {
  const auto written = store_.SaveSharedSetting("Common\\X", "v", SettingValue());
  EXPECT_FALSE(written.value);
  EXPECT_FALSE(written.raised);
  EXPECT_EQ(registry_.SetCount(), 0);
  EXPECT_TRUE(registry_.KeyExists(Hive::kCurrentUser, "Software\\Ostrelle\\Common\\X"));
}

TEST_F(SettingsStoreTest, KeyThatCannotBeCreatedRaises1001AndWritesNothing) {
  registry_.FailNextCreates(1);
  const auto written = store_.SaveProgramSetting("Settings", "chkX", SettingValue::FromInt16(1));
  EXPECT_FALSE(written.value);
  ASSERT_TRUE(written.raised);
  EXPECT_EQ(written.raised->number, 1001);
  EXPECT_EQ(written.raised->description, "Unable to create the registry key");
  EXPECT_EQ(registry_.SetCount(), 0);
}

TEST_F(SettingsStoreTest, FailedSetReturnsFalseWithoutRaising) {
  registry_.FailNextSets(1);
  const auto written = store_.SaveProgramSetting("Settings", "chkX", SettingValue::FromInt16(1));
  EXPECT_FALSE(written.value);
  EXPECT_FALSE(written.raised);
  EXPECT_EQ(store_.GetProgramSetting("Settings", "chkX", fallback_), fallback_);
}

TEST_F(SettingsStoreTest, AppPathGoesToTheMachineHive) {
  EXPECT_TRUE(store_.RegisterAppPath("tessaly.exe", "C:\\Tools\\tessaly.exe").value);
  EXPECT_EQ(store_.ReadRegistryValue(
                Hive::kLocalMachine,
                "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\TESSALY.EXE", ""),
            SettingValue::FromText("C:\\Tools\\tessaly.exe"));
  EXPECT_FALSE(registry_.KeyExists(Hive::kCurrentUser, "Software\\Microsoft"));
}

TEST_F(SettingsStoreTest, ReadOnlyMachineHiveRefusesOrRaises) {
  store_.RegisterAppPath("old.exe", "C:\\old.exe");
  registry_.SetHiveAccess(Hive::kLocalMachine, MemoryRegistry::Access::kReadOnly);
  // The key is there but cannot be opened for writing: plain false.
  const auto existing = store_.RegisterAppPath("old.exe", "C:\\new.exe");
  EXPECT_FALSE(existing.value);
  EXPECT_FALSE(existing.raised);
  // The key would have to be made: the creation error.
  const auto missing = store_.RegisterAppPath("tessaly.exe", "C:\\tessaly.exe");
  ASSERT_TRUE(missing.raised);
  EXPECT_EQ(missing.raised->number, 1001);
  // Reading is still allowed.
  EXPECT_EQ(store_.ReadRegistryValue(
                Hive::kLocalMachine,
                "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\old.exe", ""),
            SettingValue::FromText("C:\\old.exe"));
}

TEST_F(SettingsStoreTest, UnreadableHiveGivesTheDefault) {
  store_.SaveProgramSetting("Settings", "chkX", SettingValue::FromInt16(1));
  registry_.SetHiveAccess(Hive::kCurrentUser, MemoryRegistry::Access::kNone);
  EXPECT_EQ(store_.GetProgramSetting("Settings", "chkX", fallback_), fallback_);
}

}  // namespace
}  // namespace tessaly
