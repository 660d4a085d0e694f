#include "platform/win32/win32_registry.h"

#include <optional>
#include <span>
#include <vector>

#include "platform/registry_rules.h"
#include "platform/win32/utf16.h"

namespace tessaly {

namespace {

using win32::Narrow;
using win32::Widen;

// `path` as the registry takes it, without a closing backslash; nothing
// for a path with an empty key name in it, which the interface refuses
// alike on every platform.
std::optional<std::wstring> KeyPath(std::string_view path) {
  if (!registry_rules::SplitKeyPath(path)) return std::nullopt;
  if (!path.empty() && path.back() == '\\') path.remove_suffix(1);
  return Widen(path);
}

// The stored bytes of a value with its type, or the registry's failure.
long ReadValue(HKEY key, const std::wstring& name, DWORD& type, std::vector<BYTE>& bytes) {
  DWORD size = 0;
  long answer = RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size);
  // Another program may grow the value between the two calls.
  while (answer == ERROR_SUCCESS) {
    bytes.resize(size);
    answer = RegQueryValueExW(key, name.c_str(), nullptr, &type, bytes.data(), &size);
    if (answer == ERROR_SUCCESS) bytes.resize(size);
    if (answer != ERROR_MORE_DATA) break;
    answer = ERROR_SUCCESS;
  }
  return answer;
}

// The value as the core sees it: texts in UTF-8, anything else as stored.
std::vector<std::uint8_t> AsCoreBytes(DWORD type, std::vector<BYTE> stored) {
  if (!registry_rules::IsTextType(type)) return stored;
  const std::wstring wide(reinterpret_cast<const wchar_t*>(stored.data()), stored.size() / 2);
  const std::string utf8 = Narrow(wide);
  return std::vector<std::uint8_t>(utf8.begin(), utf8.end());
}

}  // namespace

Win32Registry::~Win32Registry() {
  for (const auto& [key, handle] : open_) RegCloseKey(handle);
}

HKEY Win32Registry::Find(RegistryKey key) const {
  const auto found = open_.find(key);
  return found == open_.end() ? nullptr : found->second;
}

RegistryKey Win32Registry::Add(HKEY handle) {
  const RegistryKey key = next_++;
  open_.emplace(key, handle);
  return key;
}

long Win32Registry::OpenKey(Hive hive, std::string_view path, std::uint32_t access,
                            RegistryKey* key) {
  const std::optional<std::wstring> wide = KeyPath(path);
  if (!wide) return reg::kBadPathname;
  HKEY handle = nullptr;
  const long answer = RegOpenKeyExW(Root(hive), wide->c_str(), 0, access, &handle);
  if (answer == ERROR_SUCCESS) *key = Add(handle);
  return answer;
}

long Win32Registry::QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type,
                               std::uint8_t* data, std::uint32_t* size) {
  const HKEY handle = Find(key);
  if (handle == nullptr) return reg::kInvalidHandle;
  DWORD storedType = REG_NONE;
  std::vector<BYTE> stored;
  const long answer = ReadValue(handle, Widen(name), storedType, stored);
  if (answer != ERROR_SUCCESS) return answer;
  const std::vector<std::uint8_t> bytes = AsCoreBytes(storedType, std::move(stored));
  return registry_rules::AnswerQuery(storedType, std::span(bytes), type, data, size);
}

long Win32Registry::SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                             const std::uint8_t* data, std::uint32_t size) {
  const HKEY handle = Find(key);
  if (handle == nullptr) return reg::kInvalidHandle;
  const std::wstring wideName = Widen(name);
  if (!registry_rules::IsTextType(type)) {
    return RegSetValueExW(handle, wideName.c_str(), 0, type, data, size);
  }
  const std::uint32_t kept = registry_rules::KeptSize(type, data, size);
  const std::wstring text =
      Widen(std::string_view(reinterpret_cast<const char*>(data), data == nullptr ? 0 : kept));
  return RegSetValueExW(handle, wideName.c_str(), 0, type,
                        reinterpret_cast<const BYTE*>(text.data()),
                        static_cast<DWORD>(text.size() * sizeof(wchar_t)));
}

long Win32Registry::CreateKey(Hive hive, std::string_view path, std::string_view keyClass,
                              std::uint32_t options, std::uint32_t access, RegistryKey* key,
                              std::uint32_t* disposition) {
  const std::optional<std::wstring> wide = KeyPath(path);
  if (!wide) return reg::kBadPathname;
  if (wide->empty()) {
    // The hive's own key always exists; Wine would report it created.
    const long answer = OpenKey(hive, path, access, key);
    if (answer == ERROR_SUCCESS && disposition != nullptr) *disposition = reg::kOpenedExistingKey;
    return answer;
  }
  std::wstring wideClass = Widen(keyClass);
  HKEY handle = nullptr;
  DWORD made = 0;
  const long answer = RegCreateKeyExW(Root(hive), wide->c_str(), 0, wideClass.data(), options,
                                      access, nullptr, &handle, &made);
  if (answer != ERROR_SUCCESS) return answer;
  *key = Add(handle);
  if (disposition != nullptr) *disposition = made;
  return answer;
}

long Win32Registry::CloseKey(RegistryKey key) {
  const HKEY handle = Find(key);
  if (handle == nullptr) return reg::kInvalidHandle;
  open_.erase(key);
  return RegCloseKey(handle);
}

}  // namespace tessaly
