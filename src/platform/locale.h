#ifndef TESSALY_PLATFORM_LOCALE_H_
#define TESSALY_PLATFORM_LOCALE_H_

#include <string>

#include "platform/date_names.h"

namespace tessaly {

// The separators of the user's regional settings, as the log and the
// progress caption write dates, times and fractions, and the names of
// months and weekdays that date patterns write.
class Locale {
 public:
  virtual ~Locale() = default;
  // Between month, day and year, such as "/" or ".".
  virtual std::string DateSeparator() const = 0;
  // Between hours, minutes and seconds, such as ":".
  virtual std::string TimeSeparator() const = 0;
  // Between the whole and the fraction of a number, such as "." or ",".
  virtual std::string DecimalSeparator() const = 0;
  // In the user's language; English where none is set.
  virtual const DateNames& MonthAndWeekdayNames() const = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_LOCALE_H_
