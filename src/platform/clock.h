#ifndef TESSALY_PLATFORM_CLOCK_H_
#define TESSALY_PLATFORM_CLOCK_H_

namespace tessaly {

// A calendar date in the local time zone.
struct CivilDate {
  int year = 1970;
  int month = 1;  // 1 to 12
  int day = 1;    // 1 to 31
  friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

// A local date with its time of day.
struct CivilDateTime {
  CivilDate date;
  int hour = 0;
  int minute = 0;
  int second = 0;
  friend bool operator==(const CivilDateTime&, const CivilDateTime&) = default;
};

// Today's date and the time. Abstract so tests can pin the day; the real
// one reads the system clock in local time.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual CivilDate Today() const = 0;
  virtual CivilDateTime Now() const = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_CLOCK_H_
