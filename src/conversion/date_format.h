#ifndef TESSALY_CONVERSION_DATE_FORMAT_H_
#define TESSALY_CONVERSION_DATE_FORMAT_H_

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/date_names.h"

namespace tessaly {

// Writes `date` (at midnight) in `pattern`. Pattern letters, in any case:
//   d dd ddd dddd   day, zero-filled day, short and long weekday name
//   m mm mmm mmmm   month, zero-filled month, short and long month name
//   y yy yyyy       day of the year, two- and four-digit year
//   w ww            weekday (1 = Sunday), week of the year (weeks start on
//                   Sunday; week 1 holds 1 January)
//   q               quarter
//   h hh n nn s ss  hour, minute, second of the day: all zero
//   m mm right behind an hour are minutes
//   AM/PM am/pm A/P a/p   the half of the day
// Text in double quotes and every other character stand for themselves.
// An empty pattern gives the date as mm-dd-yyyy.
std::string FormatDate(std::string_view pattern, const CivilDate& date,
                       const DateNames& names = EnglishDateNames());

// 1 = Sunday to 7 = Saturday.
int WeekdayOf(const CivilDate& date);
// 1 for 1 January.
int DayOfYear(const CivilDate& date);

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_DATE_FORMAT_H_
