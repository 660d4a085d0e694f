#ifndef TESSALY_PLATFORM_DATE_NAMES_H_
#define TESSALY_PLATFORM_DATE_NAMES_H_

#include <array>
#include <string>

namespace tessaly {

// The names a date pattern writes, in UTF-8.
struct DateNames {
  std::array<std::string, 12> months;  // January first
  std::array<std::string, 12> monthsShort;
  std::array<std::string, 7> weekdays;  // Sunday first
  std::array<std::string, 7> weekdaysShort;
};

// The names of the C locale.
inline const DateNames& EnglishDateNames() {
  static const DateNames names{
      {"January", "February", "March", "April", "May", "June", "July", "August", "September",
       "October", "November", "December"},
      {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
      {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
      {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}};
  return names;
}

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_DATE_NAMES_H_
