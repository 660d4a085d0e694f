#ifndef TESSALY_PLATFORM_MEMORY_FIXED_CLOCK_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_CLOCK_H_

#include "platform/clock.h"

namespace tessaly {

// A clock that stands still at a given moment until told otherwise.
class FixedClock : public Clock {
 public:
  explicit FixedClock(CivilDateTime now) : now_(now) {}
  explicit FixedClock(CivilDate today) : now_{today, 0, 0, 0} {}

  CivilDate Today() const override { return now_.date; }
  CivilDateTime Now() const override { return now_; }
  void Set(CivilDateTime now) { now_ = now; }

 private:
  CivilDateTime now_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_CLOCK_H_
