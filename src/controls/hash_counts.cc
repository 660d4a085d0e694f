#include "controls/hash_counts.h"

namespace tessaly {

std::size_t HashCounts::Find(std::uint32_t hash) const {
  if (slots_.empty()) return kAbsent;
  for (std::size_t at = Home(hash);; at = (at + 1) & (slots_.size() - 1)) {
    if (slots_[at] == hash) return at;
    if (slots_[at] == 0) return kAbsent;
  }
}

void HashCounts::Add(std::size_t hash) {
  if ((count_ + 1) * 2 > slots_.size()) Grow();
  std::size_t at = Home(Short(hash));
  while (slots_[at] != 0) at = (at + 1) & (slots_.size() - 1);
  slots_[at] = Short(hash);
  ++count_;
}

void HashCounts::Remove(std::size_t hash) {
  std::size_t hole = Find(Short(hash));
  if (hole == kAbsent) return;
  --count_;
  // Moves back each following hash that could not be found past the hole.
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = (hole + 1) & mask; slots_[at] != 0; at = (at + 1) & mask) {
    const std::size_t home = Home(slots_[at]);
    const bool homeBeyondHole = ((at - home) & mask) < ((at - hole) & mask);
    if (homeBeyondHole) continue;
    slots_[hole] = slots_[at];
    hole = at;
  }
  slots_[hole] = 0;
}

void HashCounts::Grow() {
  std::vector<std::uint32_t> old(slots_.empty() ? 32 : slots_.size() * 2, 0);
  old.swap(slots_);
  count_ = 0;
  for (const std::uint32_t hash : old) {
    if (hash == 0) continue;
    std::size_t at = Home(hash);
    while (slots_[at] != 0) at = (at + 1) & (slots_.size() - 1);
    slots_[at] = hash;
    ++count_;
  }
}

void HashCounts::Clear() {
  std::vector<std::uint32_t>().swap(slots_);
  count_ = 0;
}

}  // namespace tessaly
