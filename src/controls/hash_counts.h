#ifndef TESSALY_CONTROLS_HASH_COUNTS_H_
#define TESSALY_CONTROLS_HASH_COUNTS_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly {

// How many of some keys have each hash, cut to 32 bits: a filter in front
// of a look through a list's rows, whose misses end most look-ups. One flat
// table of hashes, four bytes a key at most half full, where a standard
// hash map spent some forty bytes a key on nodes and buckets.
class HashCounts {
 public:
  void Add(std::size_t hash);
  // Takes away one count of `hash`, if there is one.
  void Remove(std::size_t hash);
  bool Contains(std::size_t hash) const { return Find(Short(hash)) != kAbsent; }
  void Clear();

 private:
  static constexpr std::size_t kAbsent = SIZE_MAX;

  // 0 marks an empty slot, so no hash is cut to it.
  static std::uint32_t Short(std::size_t hash) {
    const auto cut = static_cast<std::uint32_t>(hash ^ (hash >> 32));
    return cut == 0 ? 1 : cut;
  }
  std::size_t Home(std::uint32_t hash) const { return hash & (slots_.size() - 1); }
  std::size_t Find(std::uint32_t hash) const;
  void Grow();

  std::vector<std::uint32_t> slots_;  // by linear probing from each hash's home
  std::size_t count_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_HASH_COUNTS_H_
