#ifndef TESSALY_PLATFORM_STANDARD_RANDOM_H_
#define TESSALY_PLATFORM_STANDARD_RANDOM_H_

#include <cstdint>
#include <random>

#include "platform/random.h"

namespace tessaly {

// The standard library's 64-bit Mersenne Twister; until seeded, each start
// of the program draws a different sequence.
class StandardRandom : public RandomGenerator {
 public:
  StandardRandom() : engine_(std::random_device{}()) {}

  void Randomize(std::int64_t seed) override {
    engine_.seed(static_cast<std::uint64_t>(seed));
  }
  // 53 random bits scaled into [0, 1), so 1 itself never comes out.
  double Rnd() override { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }

 private:
  std::mt19937_64 engine_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_STANDARD_RANDOM_H_
