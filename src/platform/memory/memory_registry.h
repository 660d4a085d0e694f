#ifndef TESSALY_PLATFORM_MEMORY_MEMORY_REGISTRY_H_
#define TESSALY_PLATFORM_MEMORY_MEMORY_REGISTRY_H_

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "platform/registry_rules.h"

namespace tessaly {

// A registry held in memory, for tests, with switches that make calls fail
// and counters that show what the caller did.
class MemoryRegistry : public Registry {
 public:
  // What a hive allows: everything, reading only (a normal user's view of
  // the machine's hive), or nothing at all.
  enum class Access { kFull, kReadOnly, kNone };

  long OpenKey(Hive hive, std::string_view path, std::uint32_t access, RegistryKey* key) override;
  long QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type, std::uint8_t* data,
                  std::uint32_t* size) override;
  long SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                const std::uint8_t* data, std::uint32_t size) override;
  long CreateKey(Hive hive, std::string_view path, std::string_view keyClass, std::uint32_t options,
                 std::uint32_t access, RegistryKey* key, std::uint32_t* disposition) override;
  long CloseKey(RegistryKey key) override;

  // Fault switches.
  void SetHiveAccess(Hive hive, Access access) { hives_[Index(hive)].access = access; }
  // The next `count` SetValue calls fail with `code` and change nothing.
  void FailNextSets(int count, long code = reg::kIoFailed);
  // The next `count` CreateKey calls fail with `code` and create nothing.
  void FailNextCreates(int count, long code = reg::kAccessDenied);

  // What the caller did.
  std::size_t OpenKeyCount() const { return handles_.OpenCount(); }
  int SetCount() const { return setCount_; }
  int QueryCount() const { return queryCount_; }
  bool KeyExists(Hive hive, std::string_view path) const;

 private:
  struct Value {
    std::string name;
    std::uint32_t type = reg::kNone;
    std::vector<std::uint8_t> bytes;
  };
  struct Key {
    std::string name;
    std::map<std::string, Value> values;  // by folded name
  };
  struct HiveData {
    Access access = Access::kFull;
    std::map<std::string, Key> keys;  // by folded path; "" is the root
    HiveData() { keys.emplace("", Key{}); }
  };
  struct Fault {
    int count = 0;
    long code = reg::kSuccess;
    // Whether this call is to fail, using up one count.
    bool Fires();
  };

  static int Index(Hive hive) { return hive == Hive::kCurrentUser ? 0 : 1; }
  Key* FindKey(const registry_rules::KeyHandleTable::OpenKey& open);

  HiveData hives_[2];
  registry_rules::KeyHandleTable handles_;
  Fault setFault_;
  Fault createFault_;
  int setCount_ = 0;
  int queryCount_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_MEMORY_REGISTRY_H_
