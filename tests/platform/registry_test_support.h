#ifndef TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_
#define TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "temp_folder.h"

namespace tessaly::testing {

// Writes `bytes` with their own length as the size: a text goes in the way
// the settings store writes it, the terminator behind it left out.
inline long Set(Registry& registry, RegistryKey key, std::string_view name,
                const std::string& bytes, std::uint32_t type = reg::kText) {
  return registry.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
}

// A value as read back: the answer, its type and its bytes.
struct ReadBack {
  long answer = -1;
  std::uint32_t type = reg::kNone;
  std::string bytes;
  bool operator==(const ReadBack&) const = default;
};
inline void PrintTo(const ReadBack& read, std::ostream* out) {
  *out << read.answer << " " << read.type << " " << ::testing::PrintToString(read.bytes);
}

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
