#ifndef TESSALY_PLATFORM_WIN32_WIN32_REGISTRY_H_
#define TESSALY_PLATFORM_WIN32_WIN32_REGISTRY_H_

#include <windows.h>

#include <string>
#include <unordered_map>

#include "platform/registry.h"

namespace tessaly {

// The real registry through the wide-character calls. Texts cross as UTF-8
// on this side and UTF-16 in the registry, and every size the core sees is
// in UTF-8 bytes, the short-buffer answer's included. Key paths are checked
// as the interface reads them before the registry sees them.
class Win32Registry : public Registry {
 public:
  // The keys that stand for the two hives: the real hives unless a test
  // gives keys of its own, which stay the caller's.
  explicit Win32Registry(HKEY userRoot = HKEY_CURRENT_USER,
                         HKEY machineRoot = HKEY_LOCAL_MACHINE)
      : userRoot_(userRoot), machineRoot_(machineRoot) {}
  ~Win32Registry() override;
  Win32Registry(const Win32Registry&) = delete;
  Win32Registry& operator=(const Win32Registry&) = delete;

  long OpenKey(Hive hive, std::string_view path, std::uint32_t access, RegistryKey* key) override;
  long QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type, std::uint8_t* data,
                  std::uint32_t* size) override;
  long SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                const std::uint8_t* data, std::uint32_t size) override;
  long CreateKey(Hive hive, std::string_view path, std::string_view keyClass, std::uint32_t options,
                 std::uint32_t access, RegistryKey* key, std::uint32_t* disposition) override;
  long CloseKey(RegistryKey key) override;

 private:
  HKEY Root(Hive hive) const { return hive == Hive::kCurrentUser ? userRoot_ : machineRoot_; }
  // Null when `key` is not open.
  HKEY Find(RegistryKey key) const;
  RegistryKey Add(HKEY handle);

  HKEY userRoot_;
  HKEY machineRoot_;
  // The core's handles are small numbers; the system's are pointers.
  std::unordered_map<RegistryKey, HKEY> open_;
  RegistryKey next_ = 1;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_REGISTRY_H_
