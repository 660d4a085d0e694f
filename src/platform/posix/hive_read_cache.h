#ifndef TESSALY_PLATFORM_POSIX_HIVE_READ_CACHE_H_
#define TESSALY_PLATFORM_POSIX_HIVE_READ_CACHE_H_

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tessaly {

// What was read from one hive's database, kept only while the database's
// version stays the one it was read under. Every committed write anywhere
// changes the version, so an answer from here is one the database would
// give at that moment; it only saves the locking round trip.
class HiveReadCache {
 public:
  struct Value {
    long answer;  // kSuccess or kNotFound
    std::uint32_t type;
    std::vector<std::uint8_t> bytes;
  };

  // Keeps the entries if `version` is the one they were read under; drops
  // them otherwise. Nothing (version unknown) drops them and keeps none.
  void Validate(std::optional<std::uint64_t> version);
  void Clear();
  // Whether the entries belong to a known version.
  bool HasVersion() const { return version_.has_value(); }

  // The remembered answer for a key (kSuccess or kNotFound), if any.
  std::optional<long> FindKey(const std::string& foldedKey) const;
  void RememberKey(const std::string& foldedKey, long answer);
  // The remembered value, if any.
  const Value* FindValue(const std::string& foldedKey, const std::string& foldedName) const;
  void RememberValue(const std::string& foldedKey, const std::string& foldedName, Value value);

 private:
  std::optional<std::uint64_t> version_;
  std::map<std::string, long, std::less<>> keys_;
  // Values by folded key, then folded name; looked up without copying.
  std::map<std::string, std::map<std::string, Value, std::less<>>, std::less<>> values_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_HIVE_READ_CACHE_H_
