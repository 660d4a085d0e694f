#ifndef TESSALY_PLATFORM_LOCALE_H_
#define TESSALY_PLATFORM_LOCALE_H_

#include <string>
#include <utility>

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

// Regional settings held as values: read once by a platform, or chosen by
// a test; by default those of the United States.
class SettledLocale : public Locale {
 public:
  SettledLocale() = default;
  SettledLocale(std::string date, std::string time, std::string decimal,
                DateNames names = EnglishDateNames())
      : date_(std::move(date)),
        time_(std::move(time)),
        decimal_(std::move(decimal)),
        names_(std::move(names)) {}

  std::string DateSeparator() const override { return date_; }
  std::string TimeSeparator() const override { return time_; }
  std::string DecimalSeparator() const override { return decimal_; }
  const DateNames& MonthAndWeekdayNames() const override { return names_; }

 private:
  std::string date_ = "/";
  std::string time_ = ":";
  std::string decimal_ = ".";
  DateNames names_ = EnglishDateNames();
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_LOCALE_H_
