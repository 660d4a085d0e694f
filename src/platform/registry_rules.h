#ifndef TESSALY_PLATFORM_REGISTRY_RULES_H_
#define TESSALY_PLATFORM_REGISTRY_RULES_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/registry.h"

// What a registry that emulates the desktop one must reproduce, shared by
// the memory and SQLite backends so that both behave alike.
namespace tessaly::registry_rules {

// The form two key or value names share when they are equal ignoring case.
std::string FoldName(std::string_view name);

// One name of a key path, as written and folded.
struct KeyName {
  std::string written;
  std::string folded;
};

// The names of `path`, parents first; the empty path is the hive's root and
// has none. One closing backslash is allowed. Nothing for a path with an
// empty name in it (a leading or doubled backslash).
std::optional<std::vector<KeyName>> SplitKeyPath(std::string_view path);

// The folded path of the key made of the first `count` names: the one key a
// backend files that key under.
std::string FoldedPath(const std::vector<KeyName>& names, std::size_t count);

bool IsTextType(std::uint32_t type);

// How many bytes a value written with `size` bytes of `data` keeps: for a
// text whose last counted byte is not zero and whose next byte is, the
// terminator is counted in, as the desktop platform does for callers that
// left it out.
std::uint32_t KeptSize(std::uint32_t type, const std::uint8_t* data, std::uint32_t size);

// Answers a query of the stored value (`storedType`, `stored`) through the
// caller's out-parameters, the way the desktop platform does.
long AnswerQuery(std::uint32_t storedType, std::span<const std::uint8_t> stored,
                 std::uint32_t* type, std::uint8_t* data, std::uint32_t* size);

inline bool MayQuery(std::uint32_t access) { return (access & reg::kQueryValue) != 0; }
inline bool MaySet(std::uint32_t access) { return (access & reg::kSetValue) != 0; }
inline bool WantsWrite(std::uint32_t access) {
  return (access & (reg::kSetValue | reg::kCreateSubKey)) != 0;
}

// The keys a backend has open, by handle.
class KeyHandleTable {
 public:
  struct OpenKey {
    Hive hive;
    std::string folded;  // FoldedPath of the key
    std::uint32_t access;
  };

  RegistryKey Add(OpenKey key);
  // The open key behind `key`, or null if it is not open.
  const OpenKey* Find(RegistryKey key) const;
  // Whether `key` was open.
  bool Remove(RegistryKey key);
  std::size_t OpenCount() const { return keys_.size(); }

 private:
  std::unordered_map<RegistryKey, OpenKey> keys_;
  RegistryKey next_ = 1;
};

}  // namespace tessaly::registry_rules

#endif  // TESSALY_PLATFORM_REGISTRY_RULES_H_
