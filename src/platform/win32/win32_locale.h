#ifndef TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_
#define TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_

#include <string>

#include "platform/locale.h"

namespace tessaly {

// The separators and date names of the user's regional settings, taken
// once at construction.
class Win32Locale : public Locale {
 public:
  Win32Locale();

  std::string DateSeparator() const override { return date_; }
  std::string TimeSeparator() const override { return time_; }
  std::string DecimalSeparator() const override { return decimal_; }
  const DateNames& MonthAndWeekdayNames() const override { return names_; }

 private:
  std::string date_;
  std::string time_;
  std::string decimal_;
  DateNames names_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_WIN32_WIN32_LOCALE_H_
