#include "read_only_registry.h"

namespace tessaly::cli {

namespace {

constexpr std::uint32_t kWriteRights = reg::kSetValue | reg::kCreateSubKey;

}  // namespace

long ReadOnlyRegistry::OpenKey(Hive hive, std::string_view path, std::uint32_t access,
                               RegistryKey* key) {
  if ((access & kWriteRights) != 0) return reg::kAccessDenied;
  return registry_.OpenKey(hive, path, access, key);
}

long ReadOnlyRegistry::CreateKey(Hive hive, std::string_view path, std::string_view,
                                 std::uint32_t, std::uint32_t, RegistryKey* key,
                                 std::uint32_t* disposition) {
  const long code = registry_.OpenKey(hive, path, reg::kRead, key);
  if (code == reg::kNotFound) return reg::kAccessDenied;
  if (code == reg::kSuccess && disposition != nullptr) *disposition = reg::kOpenedExistingKey;
  return code;
}

}  // namespace tessaly::cli
