#ifndef TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_
#define TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "temp_folder.h"

namespace tessaly::testing {

inline long SetBytes(Registry& registry, RegistryKey key, std::string_view name, std::uint32_t type,
                     const std::string& bytes) {
  return registry.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
}

// Writes `text` as REG_SZ the way the settings store does: its length as the
// size, the terminator behind it left out.
inline long SetText(Registry& registry, RegistryKey key, std::string_view name,
                    const std::string& text, std::uint32_t type = reg::kText) {
  return SetBytes(registry, key, name, type, text);
}

// A value as read back: the answer, its type and its bytes.
struct ReadBack {
  long answer = -1;
  std::uint32_t type = reg::kNone;
  std::string bytes;
};

inline ReadBack Query(Registry& registry, RegistryKey key, std::string_view name) {
  ReadBack result;
  std::uint32_t size = 0;
  result.answer = registry.QueryValue(key, name, &result.type, nullptr, &size);
  if (result.answer != reg::kSuccess) return result;
  std::vector<std::uint8_t> buffer(size + 1);
  result.answer = registry.QueryValue(key, name, &result.type, buffer.data(), &size);
  result.bytes.assign(buffer.begin(), buffer.begin() + size);
  return result;
}

}  // namespace tessaly::testing

#endif  // TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_
