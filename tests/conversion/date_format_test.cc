#include "conversion/date_format.h"

#include <gtest/gtest.h>

namespace tessaly {
namespace {

TEST(FormatDate, PatternLanguage) {
  const CivilDate day{2026, 11, 18};  // a Wednesday
  const std::pair<std::string, std::string> cases[] = {
      {"mmddyy", "111826"},
      {"dd-mm-yy", "18-11-26"},
      {"MM-DD-YYYY", "11-18-2026"},
      {"yyy", "26322"},  // two-digit year, then the day of the year
      {"d/m", "18/11"},
      {"ddd dddd", "Wed Wednesday"},
      {"mmm mmmm", "Nov November"},
      {"w ww q", "4 47 4"},
      {"hh:mm:ss", "00:00:00"},  // no time of day; m behind an hour is minutes
      {"h AM/PM", "12 AM"},
      {"\"dd\" dd", "dd 18"},
      {"yyyy\\mm", "2026\\11"},
      {"Ü€-dd", "Ü€-18"},
      {"", "11-18-2026"},
  };
  for (const auto& [pattern, expected] : cases) {
    EXPECT_EQ(FormatDate(pattern, day), expected) << pattern;
  }
}

TEST(FormatDate, WeeksStartOnSundayAndWeekOneHoldsTheFirstOfJanuary) {
  // 2026-01-01 is a Thursday, so Sunday 4 January opens week 2.
  const std::pair<CivilDate, std::string> cases[] = {
      {{2026, 1, 1}, "1 5"}, {{2026, 1, 3}, "1 7"}, {{2026, 1, 4}, "2 1"},
      {{2026, 12, 31}, "53 5"}, {{2023, 1, 1}, "1 1"}, {{2024, 12, 31}, "53 3"},
  };
  for (const auto& [date, expected] : cases) EXPECT_EQ(FormatDate("ww w", date), expected);
}

TEST(DayOfYear, CountsLeapYears) {
  EXPECT_EQ(DayOfYear({2024, 12, 31}), 366);
  EXPECT_EQ(DayOfYear({2100, 3, 1}), 60);
  EXPECT_EQ(DayOfYear({2000, 3, 1}), 61);
}

}  // namespace
}  // namespace tessaly
