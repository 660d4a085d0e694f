#include "platform/posix/hive_read_cache.h"

namespace tessaly {

void HiveReadCache::Validate(std::optional<std::uint64_t> version) {
  if (version.has_value() && version == version_) return;
  Clear();
  version_ = version;
}

void HiveReadCache::Clear() {
  version_.reset();
  keys_.clear();
  values_.clear();
}

std::optional<long> HiveReadCache::FindKey(const std::string& foldedKey) const {
  const auto found = keys_.find(foldedKey);
  if (found == keys_.end()) return std::nullopt;
  return found->second;
}

void HiveReadCache::RememberKey(const std::string& foldedKey, long answer) {
  if (version_.has_value()) keys_[foldedKey] = answer;
}

const HiveReadCache::Value* HiveReadCache::FindValue(const std::string& foldedKey,
                                                     const std::string& foldedName) const {
  const auto key = values_.find(foldedKey);
  if (key == values_.end()) return nullptr;
  const auto found = key->second.find(foldedName);
  return found == key->second.end() ? nullptr : &found->second;
}

void HiveReadCache::RememberValue(const std::string& foldedKey, const std::string& foldedName,
                                  Value value) {
  if (version_.has_value()) values_[foldedKey][foldedName] = std::move(value);
}

}  // namespace tessaly
