#ifndef TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_

#include <string>

#include "platform/locale.h"

namespace tessaly {

// Regional settings chosen by the test; by default those of the United
// States.
class FixedLocale : public Locale {
 public:
  FixedLocale() = default;
  FixedLocale(std::string date, std::string time, std::string decimal,
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

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
