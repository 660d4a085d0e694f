#ifndef TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_
#define TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_

#include "platform/clock.h"

namespace tessaly {

// The system clock in the local time zone.
class SystemClock : public Clock {
 public:
  CivilDate Today() const override { return Now().date; }
  CivilDateTime Now() const override;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_SYSTEM_CLOCK_H_
