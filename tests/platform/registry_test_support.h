#ifndef TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_
#define TESSALY_TESTS_PLATFORM_REGISTRY_TEST_SUPPORT_H_

#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace tessaly::testing {

// A fresh folder under the temporary folder, removed with everything in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::random_device random;
    for (int tries = 0; tries < 100 && path_.empty(); ++tries) {
      const auto folder =
          std::filesystem::temp_directory_path() / ("tessaly-reg-" + std::to_string(random()));
      std::error_code error;
      if (std::filesystem::create_directory(folder, error)) path_ = folder.string();
    }
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// Writes `text` as REG_SZ the way the settings store does: its length as the
// size, the terminator behind it left out.
inline long SetText(Registry& registry, RegistryKey key, std::string_view name,
                    const std::string& text, std::uint32_t type = reg::kText) {
  return registry.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(text.c_str()),
                           static_cast<std::uint32_t>(text.size()));
}

inline long SetBytes(Registry& registry, RegistryKey key, std::string_view name, std::uint32_t type,
                     const std::string& bytes) {
  return registry.SetValue(key, name, type, reinterpret_cast<const std::uint8_t*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
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
