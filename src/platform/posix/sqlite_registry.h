#ifndef TESSALY_PLATFORM_POSIX_SQLITE_REGISTRY_H_
#define TESSALY_PLATFORM_POSIX_SQLITE_REGISTRY_H_

#include <optional>
#include <string>

#include "platform/posix/registry_location.h"
#include "platform/posix/sqlite_hive.h"
#include "platform/registry.h"
#include "platform/registry_rules.h"

namespace tessaly {

// The registry of a POSIX machine: one SQLite database per hive, shared by
// every running copy of the program. A damaged or locked database fails the
// call with a registry code; it never ends the program. Storage that someone
// else controls is not used, and `notice` is told so once. Not to be
// carried across fork().
class SqliteRegistry : public Registry {
 public:
  explicit SqliteRegistry(const RegistryLocation& location = RegistryLocationFromEnvironment(),
                          StorageNotice notice = SayOnStandardError)
      : notice_(std::move(notice)),
        user_(location.user, [this](const std::string& why) { Tell(why); }),
        machine_(location.machine, [this](const std::string& why) { Tell(why); }) {}

  long OpenKey(Hive hive, std::string_view path, std::uint32_t access, RegistryKey* key) override;
  long QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type, std::uint8_t* data,
                  std::uint32_t* size) override;
  long SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                const std::uint8_t* data, std::uint32_t size) override;
  long CreateKey(Hive hive, std::string_view path, std::string_view keyClass, std::uint32_t options,
                 std::uint32_t access, RegistryKey* key, std::uint32_t* disposition) override;
  long CloseKey(RegistryKey key) override;

 private:
  // Both hives in one folder refused for the folder say the same: once is enough.
  void Tell(const std::string& why);
  SqliteHive& HiveFor(Hive hive) { return hive == Hive::kCurrentUser ? user_ : machine_; }
  // Null for a path with an empty key name.
  const std::string* FoldedKeyPath(std::string_view path);

  StorageNotice notice_;
  std::string lastTold_;
  SqliteHive user_;
  SqliteHive machine_;
  registry_rules::KeyHandleTable handles_;
  std::string lastPath_;
  std::optional<std::string> lastFolded_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SQLITE_REGISTRY_H_
