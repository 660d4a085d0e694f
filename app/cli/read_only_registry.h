#ifndef TESSALY_APP_CLI_READ_ONLY_REGISTRY_H_
#define TESSALY_APP_CLI_READ_ONLY_REGISTRY_H_

#include "platform/registry.h"

namespace tessaly::cli {

// Another registry that may be read but never written, for a dry run:
// every write is refused as a hive a normal user may not write refuses
// it, which the program already takes in its stride.
class ReadOnlyRegistry : public Registry {
 public:
  explicit ReadOnlyRegistry(Registry& registry) : registry_(registry) {}

  long OpenKey(Hive hive, std::string_view path, std::uint32_t access, RegistryKey* key) override;
  long QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type, std::uint8_t* data,
                  std::uint32_t* size) override {
    return registry_.QueryValue(key, name, type, data, size);
  }
  long SetValue(RegistryKey, std::string_view, std::uint32_t, const std::uint8_t*,
                std::uint32_t) override {
    return reg::kAccessDenied;
  }
  // An existing key opens for reading; none is made.
  long CreateKey(Hive hive, std::string_view path, std::string_view keyClass,
                 std::uint32_t options, std::uint32_t access, RegistryKey* key,
                 std::uint32_t* disposition) override;
  long CloseKey(RegistryKey key) override { return registry_.CloseKey(key); }

 private:
  Registry& registry_;
};

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_READ_ONLY_REGISTRY_H_
