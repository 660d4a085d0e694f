#ifndef TESSALY_PLATFORM_WIN32_WIN32_CLOCK_H_
#define TESSALY_PLATFORM_WIN32_WIN32_CLOCK_H_

#include "platform/clock.h"

namespace tessaly {

// The system clock in local time.
class Win32Clock : public Clock {
 public:
  CivilDate Today() const override { return Now().date; }
  CivilDateTime Now() const override;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_CLOCK_H_
