#include "settings/settings_store.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/program_info.h"

namespace tessaly {

namespace {

// The size of the first read; a larger value takes a second read.
constexpr std::uint32_t kFirstReadSize = 1024;

// Closes a key at the end of the scope, whatever way the call ends.
class KeyCloser {
 public:
  KeyCloser(Registry& registry, RegistryKey key) : registry_(registry), key_(key) {}
  KeyCloser(const KeyCloser&) = delete;
  KeyCloser& operator=(const KeyCloser&) = delete;
  ~KeyCloser() { registry_.CloseKey(key_); }

 private:
  Registry& registry_;
  RegistryKey key_;
};

SettingValue TextOf(std::span<const std::uint8_t> buffer, std::uint32_t length) {
  return SettingValue::FromText(std::string(buffer.begin(), buffer.begin() + length));
}

// The number in the first four of `size` bytes, low byte first. A value
// written shorter by hand or by another program has only the bytes it has;
// the rest count as zero, never as what the buffer held before.
std::uint32_t LittleEndian32(std::span<const std::uint8_t> buffer, std::uint32_t size) {
  std::uint32_t bits = 0;
  for (std::uint32_t i = 0; i < 4 && i < size; ++i) {
    bits |= static_cast<std::uint32_t>(buffer[i]) << (8 * i);
  }
  return bits;
}

// The value that a successful query of `type` and `size` left in `buffer`.
SettingValue Decode(std::uint32_t type, std::span<const std::uint8_t> buffer, std::uint32_t size,
                    const SettingValue& result) {
  switch (type) {
    case reg::kText:
    case reg::kExpandText:
      // The size counts one terminator, which is dropped.
      return size == 0 ? result : TextOf(buffer, size - 1);
    case reg::kBinary:
      return SettingValue::FromBytes({buffer.begin(), buffer.begin() + size});
    case reg::kDword:
      return SettingValue::FromInt32(static_cast<std::int32_t>(LittleEndian32(buffer, size)));
    case reg::kMultiText:
      // Less its final two terminators; too short to hold them is no text.
      return size < 2 ? result : TextOf(buffer, size - 2);
    default:
      return result;
  }
}

OrRaised<bool> Stored(bool stored) { return {stored, std::nullopt}; }

}  // namespace

std::string SettingsStore::ProgramKeyPath(std::string_view section) {
  std::string path(kOwnRegistryRoot);
  path.append(kProgramTitle).append("\\").append(section);
  return path;
}

std::string SettingsStore::SharedKeyPath(std::string_view path) {
  return std::string(kOwnRegistryRoot).append(path);
}

SettingValue SettingsStore::GetProgramSetting(std::string_view section, std::string_view name,
                                              const SettingValue& defaultValue) {
  return ReadRegistryValue(Hive::kCurrentUser, ProgramKeyPath(section), name, defaultValue);
}

OrRaised<bool> SettingsStore::SaveProgramSetting(std::string_view section, std::string_view name,
                                                 const SettingValue& value) {
  return WriteRegistryValue(Hive::kCurrentUser, ProgramKeyPath(section), name, value);
}

SettingValue SettingsStore::GetSharedSetting(std::string_view path, std::string_view name,
                                             const SettingValue& defaultValue) {
  return ReadRegistryValue(Hive::kCurrentUser, SharedKeyPath(path), name, defaultValue);
}

OrRaised<bool> SettingsStore::SaveSharedSetting(std::string_view path, std::string_view name,
                                                const SettingValue& value) {
  return WriteRegistryValue(Hive::kCurrentUser, SharedKeyPath(path), name, value);
}

SettingValue SettingsStore::ReadRegistryValue(Hive hive, std::string_view keyPath,
                                              std::string_view name,
                                              const SettingValue& defaultValue) {
  RegistryKey key = 0;
  // A missing key is no error.
  if (registry_.OpenKey(hive, keyPath, reg::kRead, &key) != reg::kSuccess) return defaultValue;
  const KeyCloser closer(registry_, key);
  std::array<std::uint8_t, kFirstReadSize> firstBuffer;
  std::vector<std::uint8_t> secondBuffer;
  std::span<std::uint8_t> buffer(firstBuffer);
  std::uint32_t type = reg::kNone;
  std::uint32_t size = kFirstReadSize;
  long answer = registry_.QueryValue(key, name, &type, buffer.data(), &size);
  if (answer == reg::kMoreData) {
    // One more try at exactly the size reported; there is no third.
    secondBuffer.assign(size, 0);
    buffer = secondBuffer;
    answer = registry_.QueryValue(key, name, &type, buffer.data(), &size);
  }
  // A failed query reports no type, so it ends with the default.
  if (answer != reg::kSuccess || size > buffer.size()) return defaultValue;
  return Decode(type, buffer, size, defaultValue);
}

OrRaised<bool> SettingsStore::WriteRegistryValue(Hive hive, std::string_view keyPath,
                                                 std::string_view name, const SettingValue& value) {
  RegistryKey key = 0;
  if (registry_.OpenKey(hive, keyPath, reg::kWrite, &key) != reg::kSuccess) {
    if (auto created = CreateRegistryKey(hive, keyPath); created.raised) {
      return {false, created.raised};
    }
    if (registry_.OpenKey(hive, keyPath, reg::kWrite, &key) != reg::kSuccess) {
      return Stored(false);
    }
  }
  const KeyCloser closer(registry_, key);
  return Stored(SetTypedValue(key, name, value) == reg::kSuccess);
}

long SettingsStore::SetTypedValue(RegistryKey key, std::string_view name,
                                  const SettingValue& value) {
  if (value.IsWholeNumber()) {
    const auto bits = static_cast<std::uint32_t>(value.AsWholeNumber());
    const std::uint8_t bytes[4] = {
        static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
        static_cast<std::uint8_t>(bits >> 16), static_cast<std::uint8_t>(bits >> 24)};
    return registry_.SetValue(key, name, reg::kDword, bytes, sizeof bytes);
  }
  if (value.IsText()) {
    // The size leaves the terminator out; the string keeps one behind it.
    const std::string& text = value.AsText();
    return registry_.SetValue(key, name, reg::kText,
                              reinterpret_cast<const std::uint8_t*>(text.c_str()),
                              static_cast<std::uint32_t>(text.size()));
  }
  if (value.IsBytes()) {
    const auto& bytes = value.AsBytes();
    return registry_.SetValue(key, name, reg::kBinary, bytes.data(),
                              static_cast<std::uint32_t>(bytes.size()));
  }
  return reg::kNotFound;  // nothing: no call, so no success
}

OrRaised<bool> SettingsStore::CreateRegistryKey(Hive hive, std::string_view keyPath) {
  RegistryKey key = 0;
  std::uint32_t disposition = 0;
  if (registry_.CreateKey(hive, keyPath, "0", 0, 0, &key, &disposition) != reg::kSuccess) {
    return {false, RaisedError{kKeyCreationErrorNumber, std::string(kKeyCreationErrorText)}};
  }
  registry_.CloseKey(key);
  return Stored(disposition == reg::kOpenedExistingKey);
}

OrRaised<bool> SettingsStore::RegisterAppPath(std::string_view exeFileName,
                                              std::string_view fullPath) {
  const std::string keyPath = std::string(kAppPathsKey).append(exeFileName);
  return WriteRegistryValue(Hive::kLocalMachine, keyPath, "",
                            SettingValue::FromText(std::string(fullPath)));
}

}  // namespace tessaly
