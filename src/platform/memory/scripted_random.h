#ifndef TESSALY_PLATFORM_MEMORY_SCRIPTED_RANDOM_H_
#define TESSALY_PLATFORM_MEMORY_SCRIPTED_RANDOM_H_

#include <cstdint>
#include <deque>
#include <vector>

#include "platform/random.h"

namespace tessaly {

// A generator whose fractions the test lays down in advance. With none
// queued it falls back on a fixed sequence that the seed restarts, so an
// unscripted test still sees the same draws on every run.
class ScriptedRandom : public RandomGenerator {
 public:
  void QueueFraction(double fraction) { queued_.push_back(fraction); }

  void Randomize(std::int64_t seed) override {
    seeds_.push_back(seed);
    state_ = static_cast<std::uint64_t>(seed) * 2654435761u + 1;
  }
  double Rnd() override {
    if (!queued_.empty()) {
      const double next = queued_.front();
      queued_.pop_front();
      return next;
    }
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(state_ >> 11) * 0x1.0p-53;
  }

  // Every seed given, in order.
  const std::vector<std::int64_t>& seeds() const { return seeds_; }

 private:
  std::deque<double> queued_;
  std::vector<std::int64_t> seeds_;
  std::uint64_t state_ = 1;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_SCRIPTED_RANDOM_H_
