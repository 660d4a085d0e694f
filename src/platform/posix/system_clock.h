#ifndef TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_
#define TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_

#include <time.h>

#include "platform/clock.h"

namespace tessaly {

// The system clock in the local time zone. A run asks the time for every
// file: the local time is worked out once a second.
class SystemClock : public Clock {
 public:
  CivilDate Today() const override { return Now().date; }
  CivilDateTime Now() const override;

 private:
  mutable time_t second_ = -1;
  mutable CivilDateTime local_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_
