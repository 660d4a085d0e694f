#ifndef TESSALY_SETTINGS_SETTINGS_STORE_H_
#define TESSALY_SETTINGS_SETTINGS_STORE_H_

#include <string>
#include <string_view>

#include "platform/registry.h"
#include "settings/raised_error.h"
#include "settings/setting_value.h"

namespace tessaly {

// The root of every key the program owns, under its hive.
inline constexpr std::string_view kOwnRegistryRoot = "Software\\Ostrelle\\";
// The system's table by which a program is found by its file name.
inline constexpr std::string_view kAppPathsKey =
    "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

// Raised when a key cannot be created; it abandons the write.
inline constexpr int kKeyCreationErrorNumber = 1001;
inline constexpr std::string_view kKeyCreationErrorText = "Unable to create the registry key";

// The one layer that touches the registry. Holds no state: each call opens
// its key, does its one read or write and closes the key again.
class SettingsStore {
 public:
  explicit SettingsStore(Registry& registry) : registry_(registry) {}

  // Reads `name` in the program's key of `section` (current user), or
  // `defaultValue` when it is missing or cannot be read.
  SettingValue GetProgramSetting(std::string_view section, std::string_view name,
                                 const SettingValue& defaultValue = {});
  // Writes `value` there; true when stored.
  OrRaised<bool> SaveProgramSetting(std::string_view section, std::string_view name,
                                    const SettingValue& value);

  // The same in the shared key of `path`, with no program title in it.
  SettingValue GetSharedSetting(std::string_view path, std::string_view name,
                                const SettingValue& defaultValue = {});
  OrRaised<bool> SaveSharedSetting(std::string_view path, std::string_view name,
                                   const SettingValue& value);

  // Reads a value of any supported type; `defaultValue` for a missing key or
  // value, a type it does not read, or a text of size 0.
  SettingValue ReadRegistryValue(Hive hive, std::string_view keyPath, std::string_view name,
                                 const SettingValue& defaultValue = {});
  // Writes `value` (nothing writes nothing), creating a missing key first.
  // True when stored; raises 1001 when the key cannot be created.
  OrRaised<bool> WriteRegistryValue(Hive hive, std::string_view keyPath, std::string_view name,
                                    const SettingValue& value);
  // Creates the key and its missing parents; true when it existed already.
  // Raises 1001 when it cannot be created.
  OrRaised<bool> CreateRegistryKey(Hive hive, std::string_view keyPath);

  // Writes `fullPath` as the default value of the executable's "App Paths"
  // key in the machine's hive; true when stored.
  OrRaised<bool> RegisterAppPath(std::string_view exeFileName, std::string_view fullPath);

  static std::string ProgramKeyPath(std::string_view section);
  static std::string SharedKeyPath(std::string_view path);

 private:
  long SetTypedValue(RegistryKey key, std::string_view name, const SettingValue& value);

  Registry& registry_;
};

}  // namespace tessaly

#endif  // TESSALY_SETTINGS_SETTINGS_STORE_H_
