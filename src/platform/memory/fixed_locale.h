#ifndef TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
#define TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_

#include <string>

#include "platform/locale.h"

namespace tessaly {

// Regional separators chosen by the test; by default those of the United
// States.
class FixedLocale : public Locale {
 public:
  FixedLocale() = default;
  FixedLocale(std::string date, std::string time, std::string decimal)
      : date_(std::move(date)), time_(std::move(time)), decimal_(std::move(decimal)) {}

  std::string DateSeparator() const override { return date_; }
  std::string TimeSeparator() const override { return time_; }
  std::string DecimalSeparator() const override { return decimal_; }

 private:
  std::string date_ = "/";
  std::string time_ = ":";
  std::string decimal_ = ".";
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_FIXED_LOCALE_H_
