#include <gtest/gtest.h>

#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/FormatSettings.h"
#include "support/MarlUtils.h"

using namespace quil;

namespace {
TDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0) {
  return EncodeDateTime(year, month, day, hour, minute, second, ms);
}

// Exact comparison through whole milliseconds, the unit every conversion keeps.
::testing::AssertionResult SameMoment(TDateTime actual, TDateTime expected) {
  if (DateTimeToMilliseconds(actual) == DateTimeToMilliseconds(expected)) return ::testing::AssertionSuccess();
  int y, mo, d, h, mi, s, ms;
  DecodeDateTime(actual, y, mo, d, h, mi, s, ms);
  return ::testing::AssertionFailure() << "got " << y << "-" << mo << "-" << d << " " << h << ":" << mi
                                       << ":" << s << "." << ms;
}

using Rounding = TDateTime (*)(TDateTime);
struct RoundCase {
  const char* name;
  Rounding function;
  TDateTime input;
  TDateTime expected;
};
}  // namespace

class PeriodRounding : public ::testing::TestWithParam<RoundCase> {};

TEST_P(PeriodRounding, GivesThePeriodBoundary) {
  EXPECT_TRUE(SameMoment(GetParam().function(GetParam().input), GetParam().expected)) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(Table, PeriodRounding, ::testing::Values(
    RoundCase{"15 mins", StartOfThe15Mins, At(2024, 5, 6, 10, 59, 59, 999), At(2024, 5, 6, 10, 45)},
    RoundCase{"20 mins", StartOfThe20Mins, At(2024, 5, 6, 10, 39), At(2024, 5, 6, 10, 20)},
    RoundCase{"10 mins", StartOfThe10Mins, At(2024, 5, 6, 0, 9, 59, 999), At(2024, 5, 6)},
    RoundCase{"30 mins", StartOfThe30Mins, At(2024, 5, 6, 23, 59, 59, 999), At(2024, 5, 6, 23, 30)},
    RoundCase{"minute", StartOfTheMinute, At(2024, 5, 6, 23, 59, 59, 999), At(2024, 5, 6, 23, 59)},
    RoundCase{"hour", StartOfTheHour, At(1899, 12, 29, 6, 30, 1), At(1899, 12, 29, 6)},
    RoundCase{"quarter end", EndOfTheQuarter, At(2024, 2, 15), At(2024, 3, 31, 23, 59, 59, 999)},
    RoundCase{"quarter start", StartOfTheQuarter, At(2024, 6, 30, 23, 59, 59, 999), At(2024, 4, 1)},
    RoundCase{"Q4 end", EndOfTheQuarter, At(2023, 10, 1), At(2023, 12, 31, 23, 59, 59, 999)},
    RoundCase{"semester end", EndOfTheSemester, At(2024, 7, 1), At(2024, 12, 31, 23, 59, 59, 999)},
    RoundCase{"semester start", StartOfTheSemester, At(2024, 6, 30, 12), At(2024, 1, 1)},
    RoundCase{"first semester end", EndOfTheSemester, At(2024, 1, 1), At(2024, 6, 30, 23, 59, 59, 999)},
    RoundCase{"decade", StartOfTheDecade, At(2029, 12, 31, 23, 59, 59, 999), At(2020, 1, 1)},
    RoundCase{"decade end", EndOfTheDecade, At(2030, 1, 1), At(2039, 12, 31, 23, 59, 59, 999)},
    RoundCase{"century", StartOfTheCentury, At(1999, 12, 31), At(1900, 1, 1)},
    RoundCase{"century end", EndOfTheCentury, At(2000, 1, 1), At(2099, 12, 31, 23, 59, 59, 999)},
    RoundCase{"feb quarter leap", EndOfTheQuarter, At(2000, 1, 31), At(2000, 3, 31, 23, 59, 59, 999)},
    RoundCase{"Q2 end from a month end", EndOfTheQuarter, At(2024, 5, 31), At(2024, 6, 30, 23, 59, 59, 999)},
    RoundCase{"Q3 end", EndOfTheQuarter, At(2024, 8, 15), At(2024, 9, 30, 23, 59, 59, 999)},
    RoundCase{"Q3 start on its first day", StartOfTheQuarter, At(2024, 7, 1), At(2024, 7, 1)},
    RoundCase{"Q4 start at the year's last ms", StartOfTheQuarter, At(2023, 12, 31, 23, 59, 59, 999), At(2023, 10, 1)},
    RoundCase{"semester end on its last ms", EndOfTheSemester, At(2024, 6, 30, 23, 59, 59, 999),
              At(2024, 6, 30, 23, 59, 59, 999)},
    RoundCase{"decade start on 2000", StartOfTheDecade, At(2000, 1, 1), At(2000, 1, 1)},
    RoundCase{"decade end at its last ms", EndOfTheDecade, At(1999, 12, 31, 23, 59, 59, 999),
              At(1999, 12, 31, 23, 59, 59, 999)},
    RoundCase{"century start on 2000", StartOfTheCentury, At(2000, 1, 1, 12), At(2000, 1, 1)},
    RoundCase{"century end of 1999", EndOfTheCentury, At(1999, 12, 31, 23, 59, 59, 999),
              At(1999, 12, 31, 23, 59, 59, 999)},
    RoundCase{"last century of the calendar", EndOfTheCentury, At(9950, 6, 1), At(9999, 12, 31, 23, 59, 59, 999)},
    // Before 30 December 1899 the day counts back while the time still counts forward.
    RoundCase{"minute before 1899", StartOfTheMinute, At(1850, 6, 1, 13, 7, 42, 500), At(1850, 6, 1, 13, 7)},
    RoundCase{"30 mins on day 0", StartOfThe30Mins, At(1899, 12, 30, 0, 29, 59, 999), At(1899, 12, 30)},
    RoundCase{"quarter before 1899", EndOfTheQuarter, At(1899, 11, 30, 6), At(1899, 12, 31, 23, 59, 59, 999)}));

// The calendar has no year 0, so the decade and century of the first years cannot be
// dated; they raise rather than return a wrong date.
TEST(DecadeAndCentury, OfTheFirstYearsRaise) {
  EXPECT_EQ(DecadeOf(At(9, 1, 1)), 0);
  EXPECT_THROW(StartOfTheDecade(At(9, 1, 1)), EConvertError);
  EXPECT_THROW(StartOfTheCentury(At(99, 12, 31)), EConvertError);
  EXPECT_TRUE(SameMoment(EndOfTheDecade(At(5, 3, 1)), At(9, 12, 31, 23, 59, 59, 999)));
}

TEST(DecadeAndCentury, CountFromTheRoundYear) {
  EXPECT_EQ(DecadeOf(At(2021, 6, 1)), 2020);
  EXPECT_EQ(DecadeOf(At(2030, 1, 1)), 2030);
  EXPECT_EQ(DecadeOf(At(2000, 1, 1)), 2000);
  EXPECT_EQ(CenturyOf(At(2021, 6, 1)), 2000);
  EXPECT_EQ(CenturyOf(At(1999, 12, 31, 23, 59, 59, 999)), 1900);
  EXPECT_EQ(CenturyOf(At(2000, 1, 1)), 2000);
}

TEST(ReplaceMonth, KeepsTheTimeAndLowersTheDay) {
  TDateTime value = At(2024, 1, 31, 8);
  ReplaceMonth(value, At(2023, 2, 10, 17));
  EXPECT_TRUE(SameMoment(value, At(2023, 2, 28, 8)));
  value = At(2024, 1, 15, 23, 59, 59, 999);
  ReplaceMonth(value, At(2030, 11, 30));
  EXPECT_TRUE(SameMoment(value, At(2030, 11, 15, 23, 59, 59, 999)));
}

struct MonthCase {
  TDateTime value;
  TDateTime newDate;
  TDateTime expected;
};

class ReplaceMonthTable : public ::testing::TestWithParam<MonthCase> {};

TEST_P(ReplaceMonthTable, TakesYearAndMonthOfTheNewDate) {
  TDateTime value = GetParam().value;
  ReplaceMonth(value, GetParam().newDate);
  EXPECT_TRUE(SameMoment(value, GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(MonthEnds, ReplaceMonthTable, ::testing::Values(
    MonthCase{At(2023, 3, 31, 6), At(2024, 2, 1), At(2024, 2, 29, 6)},
    MonthCase{At(2023, 3, 31, 6), At(2100, 2, 1), At(2100, 2, 28, 6)},
    MonthCase{At(2023, 3, 31, 6), At(2000, 2, 1), At(2000, 2, 29, 6)},
    MonthCase{At(2024, 5, 31, 23, 59, 59, 999), At(2024, 6, 15, 8), At(2024, 6, 30, 23, 59, 59, 999)},
    MonthCase{At(2024, 2, 29), At(2024, 12, 31, 23, 59, 59, 999), At(2024, 12, 29)},
    MonthCase{At(1850, 1, 31, 6), At(1850, 4, 1), At(1850, 4, 30, 6)},
    MonthCase{At(2024, 1, 31, 18), At(1899, 12, 29, 6), At(1899, 12, 31, 18)},
    MonthCase{At(2024, 1, 29, 18), At(1899, 12, 31, 6), At(1899, 12, 29, 18)}));

TEST(ReplaceYear, LowersTheLeapDayOnlyWhenItMust) {
  TDateTime value = At(2024, 2, 29, 12, 30);
  ReplaceYear(value, At(2023, 7, 4));
  EXPECT_TRUE(SameMoment(value, At(2023, 2, 28, 12, 30)));
  value = At(2024, 2, 29, 12, 30);
  ReplaceYear(value, At(2028, 1, 1));
  EXPECT_TRUE(SameMoment(value, At(2028, 2, 29, 12, 30)));
  value = At(2024, 2, 29);
  ReplaceYear(value, At(1900, 1, 1));  // 1900 is no leap year
  EXPECT_TRUE(SameMoment(value, At(1900, 2, 28)));
  value = At(2023, 12, 31, 23, 59, 59, 999);
  ReplaceYear(value, At(1750, 1, 1, 12));
  EXPECT_TRUE(SameMoment(value, At(1750, 12, 31, 23, 59, 59, 999)));
}

TEST(ShortTexts, FollowTheFormatSettings) {
  const TFormatSettings saved = FormatSettings;
  FormatSettings.ShortDateFormat = "yyyy-mm-dd";
  FormatSettings.ShortTimeFormat = "hh:nn";
  EXPECT_EQ(ShortTimeToStr(At(2024, 3, 5, 7, 4, 59)), "07:04");
  EXPECT_EQ(ShortDateTimeToStr(At(2024, 3, 5, 23, 59, 59, 999)), "2024-03-05 23:59");
  FormatSettings = saved;
}
