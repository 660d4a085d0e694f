#include "platform/posix/system_clock.h"

#include <time.h>

namespace tessaly {

CivilDateTime SystemClock::Now() const {
  const time_t now = time(nullptr);
  if (now == second_) return local_;
  struct tm local {};
  localtime_r(&now, &local);
  second_ = now;
  local_ = {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
            local.tm_hour,
            local.tm_min,
            local.tm_sec};
  return local_;
}

}  // namespace tessaly
