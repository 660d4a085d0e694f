#include "conversion/date_format.h"

#include <cctype>

namespace tessaly {

namespace {

// Days from 1970-01-01 to `date` in the proleptic Gregorian calendar.
long DaysFromEpoch(const CivilDate& date) {
  const int y = date.year - (date.month <= 2 ? 1 : 0);
  const long era = (y >= 0 ? y : y - 399) / 400;
  const long yearOfEra = y - era * 400;
  const int monthFromMarch = date.month + (date.month > 2 ? -3 : 9);
  const long dayOfYear = (153 * monthFromMarch + 2) / 5 + date.day - 1;
  const long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468;
}

std::string ZeroFilled(long value, std::size_t width) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return value < 0 ? "-" + digits : digits;
}

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

std::size_t RunLength(std::string_view pattern, std::size_t pos) {
  std::size_t end = pos;
  while (end < pattern.size() && Lower(pattern[end]) == Lower(pattern[pos])) ++end;
  return end - pos;
}

struct Formatter {
  const CivilDate& date;
  const DateNames& names;
  std::string out;
  bool afterHour = false;
  bool twelveHour = false;  // a half-day marker makes midnight 12

  void Day(std::size_t count) {
    switch (count) {
      case 1: out += std::to_string(date.day); break;
      case 2: out += ZeroFilled(date.day, 2); break;
      case 3: out += names.weekdaysShort[WeekdayOf(date) - 1]; break;
      default: out += names.weekdays[WeekdayOf(date) - 1]; break;
    }
  }
  void Month(std::size_t count) {
    if (afterHour) {  // minutes of midnight
      out += count == 1 ? "0" : "00";
      return;
    }
    switch (count) {
      case 1: out += std::to_string(date.month); break;
      case 2: out += ZeroFilled(date.month, 2); break;
      case 3: out += names.monthsShort[date.month - 1]; break;
      default: out += names.months[date.month - 1]; break;
    }
  }
  void Year(std::size_t count) {
    switch (count) {
      case 1: out += std::to_string(DayOfYear(date)); break;
      case 2: out += ZeroFilled(date.year % 100, 2); break;
      default: out += ZeroFilled(date.year, 4); break;
    }
  }
  void Week(std::size_t count) {
    if (count == 1) {
      out += std::to_string(WeekdayOf(date));
      return;
    }
    const int firstWeekday = WeekdayOf({date.year, 1, 1});
    out += std::to_string((DayOfYear(date) - 1 + firstWeekday - 1) / 7 + 1);
  }
};

// Longest run of one letter that a token takes, so "yyy" reads as yy + y.
std::size_t TokenLength(char letter, std::size_t run) {
  switch (letter) {
    case 'd':
    case 'm': return run < 4 ? run : 4;
    case 'y': return run >= 4 ? 4 : (run >= 2 ? 2 : 1);
    case 'w':
    case 'h':
    case 'n':
    case 's': return run < 2 ? run : 2;
    default: return 1;
  }
}

constexpr std::string_view kHalfDayMarkers[] = {"AM/PM", "am/pm", "A/P", "a/p"};

}  // namespace

int WeekdayOf(const CivilDate& date) {
  const long days = DaysFromEpoch(date);  // 1970-01-01 was a Thursday
  return static_cast<int>(((days % 7) + 7 + 4) % 7) + 1;
}

int DayOfYear(const CivilDate& date) {
  return static_cast<int>(DaysFromEpoch(date) - DaysFromEpoch({date.year, 1, 1})) + 1;
}

std::string FormatDate(std::string_view pattern, const CivilDate& date, const DateNames& names) {
  if (pattern.empty()) pattern = "mm-dd-yyyy";
  Formatter f{date, names, {}};
  for (std::string_view half : kHalfDayMarkers) {
    if (pattern.find(half) != std::string_view::npos) f.twelveHour = true;
  }
  for (std::size_t pos = 0; pos < pattern.size();) {
    if (pattern[pos] == '"') {
      const std::size_t close = pattern.find('"', pos + 1);
      const std::size_t end = close == std::string_view::npos ? pattern.size() : close;
      f.out.append(pattern.substr(pos + 1, end - pos - 1));
      pos = end + 1;
      continue;
    }
    bool marker = false;
    for (std::string_view half : kHalfDayMarkers) {
      if (pattern.substr(pos, half.size()) == half) {
        f.out.append(half.substr(0, half.find('/')));  // midnight is in the first half
        pos += half.size();
        marker = true;
        break;
      }
    }
    if (marker) continue;

    const char letter = Lower(pattern[pos]);
    const std::size_t length = TokenLength(letter, RunLength(pattern, pos));
    bool hour = false;
    switch (letter) {
      case 'd': f.Day(length); break;
      case 'm': f.Month(length); break;
      case 'y': f.Year(length); break;
      case 'w': f.Week(length); break;
      case 'q': f.out += std::to_string((date.month - 1) / 3 + 1); break;
      case 'h':
        hour = true;
        f.out += f.twelveHour ? "12" : (length == 1 ? "0" : "00");
        break;
      case 'n':
      case 's': f.out += length == 1 ? "0" : "00"; break;
      default: f.out.push_back(pattern[pos]); break;
    }
    if (std::isalpha(static_cast<unsigned char>(letter))) f.afterHour = hour;
    pos += length;
  }
  return f.out;
}

}  // namespace tessaly
