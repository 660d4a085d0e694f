#ifndef TESSALY_PLATFORM_RANDOM_H_
#define TESSALY_PLATFORM_RANDOM_H_

#include <cstdint>

namespace tessaly {

// A pseudo-random generator that can be seeded, so a draw can be repeated.
class RandomGenerator {
 public:
  virtual ~RandomGenerator() = default;
  // Starts the sequence again from `seed`.
  virtual void Randomize(std::int64_t seed) = 0;
  // The next fraction of the sequence, from 0 up to but not including 1.
  virtual double Rnd() = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_RANDOM_H_
