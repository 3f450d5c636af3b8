#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

struct Parts {
  int year, month, day, hour, minute, second, millisecond;
  friend bool operator==(const Parts&, const Parts&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Parts& p) {
    return out << p.year << '-' << p.month << '-' << p.day << ' ' << p.hour << ':' << p.minute << ':' << p.second
               << '.' << p.millisecond;
  }
};

Parts Decode(TDateTime value) {
  Parts p;
  DecodeDateTime(value, p.year, p.month, p.day, p.hour, p.minute, p.second, p.millisecond);
  return p;
}

TDateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int millisecond = 0) {
  return EncodeDateTime(year, month, day, hour, minute, second, millisecond);
}

struct SerialRow {
  int year, month, day;
  double serial;
};

class EncodeDateTable : public testing::TestWithParam<SerialRow> {};

TEST_P(EncodeDateTable, CountsDaysFromTheEpoch) {
  const SerialRow& row = GetParam();
  EXPECT_EQ(EncodeDate(row.year, row.month, row.day), row.serial);
  EXPECT_EQ(Decode(row.serial), (Parts{row.year, row.month, row.day, 0, 0, 0, 0}));
}

INSTANTIATE_TEST_SUITE_P(Dates, EncodeDateTable,
                         testing::Values(SerialRow{1899, 12, 30, 0}, SerialRow{1899, 12, 31, 1},
                                         SerialRow{1899, 12, 29, -1}, SerialRow{1900, 1, 1, 2},
                                         SerialRow{1900, 2, 28, 60}, SerialRow{1900, 3, 1, 61},
                                         SerialRow{2000, 1, 1, 36526}, SerialRow{2000, 2, 29, 36585},
                                         SerialRow{2024, 2, 29, 45351}, SerialRow{1, 1, 1, -693593},
                                         SerialRow{9999, 12, 31, 2958465}));

struct BadDate {
  int year, month, day;
};

class InvalidDates : public testing::TestWithParam<BadDate> {};

TEST_P(InvalidDates, AreRefused) {
  const BadDate& row = GetParam();
  TDateTime value = 7;
  EXPECT_FALSE(TryEncodeDate(row.year, row.month, row.day, value));
  EXPECT_EQ(value, 7);
  EXPECT_THROW(EncodeDate(row.year, row.month, row.day), EConvertError);
}

INSTANTIATE_TEST_SUITE_P(Dates, InvalidDates,
                         testing::Values(BadDate{1900, 2, 29}, BadDate{2023, 2, 29}, BadDate{2100, 2, 29},
                                         BadDate{2000, 13, 1}, BadDate{2000, 0, 1}, BadDate{2000, 4, 31},
                                         BadDate{0, 1, 1}, BadDate{10000, 1, 1}, BadDate{2000, 1, 0}));

TEST(Calendar, LeapYearsFollowTheGregorianRule) {
  for (int year : {1600, 2000, 2004, 2024, 2400}) EXPECT_TRUE(IsLeapYear(year)) << year;
  for (int year : {1700, 1800, 1900, 2023, 2100}) EXPECT_FALSE(IsLeapYear(year)) << year;
  EXPECT_EQ(DaysInAMonth(1900, 2), 28);
  EXPECT_EQ(DaysInAMonth(2000, 2), 29);
  EXPECT_EQ(DaysInAMonth(2023, 4), 30);
  EXPECT_EQ(DaysInMonth(EncodeDate(2024, 2, 10)), 29);
}

// Walks day by day over four centuries, counting the calendar by hand.
TEST(Calendar, ConsecutiveSerialsAreConsecutiveDays) {
  int year = 1800, month = 1, day = 1;
  const int monthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (double serial = EncodeDate(1800, 1, 1); year < 2201; ++serial) {
    ASSERT_EQ(Decode(serial), (Parts{year, month, day, 0, 0, 0, 0}));
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    if (++day > monthDays[month - 1] + (month == 2 && leap ? 1 : 0)) {
      day = 1;
      if (++month > 12) {
        month = 1;
        ++year;
      }
    }
  }
}

TEST(Time, AMillisecondBeforeMidnightStaysOnItsDay) {
  const TDateTime last = At(2023, 12, 31, 23, 59, 59, 999);
  EXPECT_EQ(Decode(last), (Parts{2023, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(EncodeDate(2023, 12, 31) + 86399999.0 / 86400000.0), (Parts{2023, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(IncMilliSecond(last)), (Parts{2024, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Decode(IncMilliSecond(EncodeDate(2000, 1, 1), -1)), (Parts{1999, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(MilliSecondOf(EncodeTime(0, 0, 0, 1)), 1);
}

TEST(Time, EncodeRefusesPartsOutOfRange) {
  EXPECT_EQ(EncodeTime(12, 0, 0, 0), 0.5);
  EXPECT_EQ(EncodeTime(6, 0, 0, 0), 0.25);
  EXPECT_THROW(EncodeTime(24, 0, 0, 0), EConvertError);
  EXPECT_THROW(EncodeTime(0, 60, 0, 0), EConvertError);
  EXPECT_THROW(EncodeTime(0, 0, 60, 0), EConvertError);
  EXPECT_THROW(EncodeTime(0, 0, 0, 1000), EConvertError);
}

TEST(NegativeDates, KeepTheTimeAsTheFractionsAbsoluteValue) {
  EXPECT_EQ(At(1899, 12, 29, 6), -1.25);
  EXPECT_EQ(Decode(-1.25), (Parts{1899, 12, 29, 6, 0, 0, 0}));
  EXPECT_EQ(Decode(-0.25), (Parts{1899, 12, 30, 6, 0, 0, 0}));
  EXPECT_EQ(TimeOf(-1.25), 0.25);
  EXPECT_EQ(DateOf(-1.25), -1);
  EXPECT_EQ(Decode(At(1800, 1, 1, 23, 59, 59, 999)), (Parts{1800, 1, 1, 23, 59, 59, 999}));
  EXPECT_EQ(IncDay(0.25, -2), -2.25);
  EXPECT_EQ(Decode(IncHour(At(1899, 12, 30, 1), -2)), (Parts{1899, 12, 29, 23, 0, 0, 0}));
  EXPECT_EQ(Decode(RecodeDate(-1.25, 1850, 6, 1)), (Parts{1850, 6, 1, 6, 0, 0, 0}));
}

struct WeekdayRow {
  int year, month, day;
  int dayOfWeek;     // Sunday 1
  int dayOfTheWeek;  // Monday 1
  int week, weekYear;
};

class WeekdayTable : public testing::TestWithParam<WeekdayRow> {};

TEST_P(WeekdayTable, NumbersDaysAndWeeks) {
  const WeekdayRow& row = GetParam();
  const TDateTime date = At(row.year, row.month, row.day, 13);
  EXPECT_EQ(DayOfWeek(date), row.dayOfWeek);
  EXPECT_EQ(DayOfTheWeek(date), row.dayOfTheWeek);
  int weekYear = 0;
  EXPECT_EQ(WeekOfTheYear(date, weekYear), row.week);
  EXPECT_EQ(weekYear, row.weekYear);
  EXPECT_EQ(WeekOf(date), row.week);
}

INSTANTIATE_TEST_SUITE_P(Days, WeekdayTable,
                         testing::Values(WeekdayRow{1899, 12, 30, 7, 6, 52, 1899}, WeekdayRow{1900, 1, 1, 2, 1, 1, 1900},
                                         WeekdayRow{2000, 1, 1, 7, 6, 52, 1999}, WeekdayRow{2021, 1, 3, 1, 7, 53, 2020},
                                         WeekdayRow{2024, 2, 29, 5, 4, 9, 2024}, WeekdayRow{2024, 12, 30, 2, 1, 1, 2025},
                                         WeekdayRow{2004, 12, 31, 6, 5, 53, 2004}, WeekdayRow{2026, 1, 1, 5, 4, 1, 2026},
                                         WeekdayRow{2024, 3, 10, 1, 7, 10, 2024}));

TEST(IncMonth, ClampsTheDayToTheEndOfTheMonth) {
  EXPECT_EQ(IncMonth(EncodeDate(2023, 1, 31)), EncodeDate(2023, 2, 28));
  EXPECT_EQ(IncMonth(EncodeDate(2024, 1, 31)), EncodeDate(2024, 2, 29));
  EXPECT_EQ(IncMonth(EncodeDate(1900, 1, 31)), EncodeDate(1900, 2, 28));
  EXPECT_EQ(IncMonth(EncodeDate(2024, 3, 31), -1), EncodeDate(2024, 2, 29));
  EXPECT_EQ(IncMonth(EncodeDate(2023, 12, 15)), EncodeDate(2024, 1, 15));
  EXPECT_EQ(IncMonth(EncodeDate(2024, 1, 15), -1), EncodeDate(2023, 12, 15));
  EXPECT_EQ(IncMonth(EncodeDate(2024, 3, 31), -25), EncodeDate(2022, 2, 28));
  EXPECT_EQ(IncMonth(EncodeDate(2024, 5, 31), 0), EncodeDate(2024, 5, 31));
  EXPECT_EQ(Decode(IncMonth(At(2024, 1, 31, 8, 30), 1)), (Parts{2024, 2, 29, 8, 30, 0, 0}));
  EXPECT_THROW(IncMonth(EncodeDate(9999, 12, 1)), EConvertError);
}

TEST(IncMonth, StepsByQuartersFromMonthEnds) {
  TDateTime date = EncodeDate(2023, 11, 30);
  date = IncMonth(date, 3);
  EXPECT_EQ(date, EncodeDate(2024, 2, 29));
  EXPECT_EQ(IncMonth(date, 3), EncodeDate(2024, 5, 29)) << "the day lowered once stays lowered";
  EXPECT_EQ(IncMonth(EncodeDate(2024, 3, 31), 3), EncodeDate(2024, 6, 30));
}

TEST(IncYear, MovesTheLeapDay) {
  EXPECT_EQ(IncYear(EncodeDate(2024, 2, 29)), EncodeDate(2025, 2, 28));
  EXPECT_EQ(IncYear(EncodeDate(2024, 2, 29), 4), EncodeDate(2028, 2, 29));
  EXPECT_EQ(IncYear(EncodeDate(2000, 2, 29), 100), EncodeDate(2100, 2, 28));
  EXPECT_EQ(IncYear(EncodeDate(2001, 6, 1), -1), EncodeDate(2000, 6, 1));
}

TEST(SmallSteps, CrossDaysAndCenturiesExactly) {
  EXPECT_EQ(IncDay(EncodeDate(1899, 12, 31)), EncodeDate(1900, 1, 1));
  EXPECT_EQ(IncDay(EncodeDate(2100, 2, 28)), EncodeDate(2100, 3, 1));
  EXPECT_EQ(IncWeek(EncodeDate(2024, 2, 26)), EncodeDate(2024, 3, 4));
  EXPECT_EQ(Decode(IncHour(At(2023, 12, 31, 23), 1)), (Parts{2024, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Decode(IncMinute(At(2024, 3, 1), -1)), (Parts{2024, 2, 29, 23, 59, 0, 0}));
  EXPECT_EQ(Decode(IncSecond(At(1999, 12, 31, 23, 59, 59), 1)), (Parts{2000, 1, 1, 0, 0, 0, 0}));
}

TEST(SmallSteps, RepeatedStepsDoNotDrift) {
  const TDateTime start = At(2024, 1, 1, 0, 0, 0, 1);
  TDateTime stepped = start;
  for (int step = 0; step < 100000; ++step) stepped = IncMilliSecond(stepped, 7);
  EXPECT_EQ(Decode(stepped), Decode(IncMilliSecond(start, 700000)));
  EXPECT_EQ(Decode(stepped), (Parts{2024, 1, 1, 0, 11, 40, 1}));
}

TEST(Periods, StartAndEndOfTheWeekTakeMondayFirst) {
  const TDateTime sunday = At(2024, 3, 10, 15, 30);
  EXPECT_EQ(StartOfTheWeek(sunday), EncodeDate(2024, 3, 4));
  EXPECT_EQ(Decode(EndOfTheWeek(sunday)), (Parts{2024, 3, 10, 23, 59, 59, 999}));
  EXPECT_EQ(StartOfTheWeek(EncodeDate(2024, 3, 4)), EncodeDate(2024, 3, 4));
  EXPECT_EQ(StartOfTheWeek(EncodeDate(2024, 1, 3)), EncodeDate(2024, 1, 1));
  EXPECT_EQ(StartOfTheWeek(EncodeDate(2023, 1, 1)), EncodeDate(2022, 12, 26));
}

TEST(Periods, EndOfTheMonthIsItsLastMillisecond) {
  EXPECT_EQ(Decode(EndOfTheMonth(At(2024, 2, 10, 9))), (Parts{2024, 2, 29, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(EndOfTheMonth(EncodeDate(1900, 2, 1))), (Parts{1900, 2, 28, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(EndOfTheMonth(EncodeDate(2023, 12, 31))), (Parts{2023, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(StartOfTheMonth(At(2024, 2, 29, 23, 59)), EncodeDate(2024, 2, 1));
  EXPECT_EQ(Decode(EndOfAMonth(2000, 2)), (Parts{2000, 2, 29, 23, 59, 59, 999}));
  EXPECT_EQ(StartOfAMonth(2000, 12), EncodeDate(2000, 12, 1));
  for (int quarterEnd : {3, 6, 9, 12})
    EXPECT_EQ(IncMilliSecond(EndOfAMonth(2024, quarterEnd)), StartOfAMonth(2024 + quarterEnd / 12, quarterEnd % 12 + 1));
}

TEST(Periods, DayAndYearBounds) {
  EXPECT_EQ(StartOfTheDay(At(2024, 6, 1, 18)), EncodeDate(2024, 6, 1));
  EXPECT_EQ(Decode(EndOfTheDay(EncodeDate(2024, 6, 1))), (Parts{2024, 6, 1, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(EndOfTheDay(-3.5)), (Parts{1899, 12, 27, 23, 59, 59, 999}));
  EXPECT_EQ(StartOfTheYear(At(2024, 7, 4, 12)), EncodeDate(2024, 1, 1));
  EXPECT_EQ(Decode(EndOfTheYear(EncodeDate(1999, 3, 3))), (Parts{1999, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(EndOfAYear(2000)), (Parts{2000, 12, 31, 23, 59, 59, 999}));
}

TEST(Recode, ReplacesPartsAndRefusesInvalidResults) {
  const TDateTime moment = At(2024, 1, 31, 8, 15, 30, 250);
  EXPECT_EQ(Decode(RecodeHour(0.0, 13)), (Parts{1899, 12, 30, 13, 0, 0, 0}));
  EXPECT_EQ(Decode(RecodeMonth(EncodeDate(2024, 3, 15), 2)), (Parts{2024, 2, 15, 0, 0, 0, 0}));
  EXPECT_EQ(Decode(RecodeYear(moment, 1999)), (Parts{1999, 1, 31, 8, 15, 30, 250}));
  EXPECT_EQ(Decode(RecodeDay(moment, 1)), (Parts{2024, 1, 1, 8, 15, 30, 250}));
  EXPECT_EQ(Decode(RecodeMinute(moment, 0)), (Parts{2024, 1, 31, 8, 0, 30, 250}));
  EXPECT_EQ(Decode(RecodeSecond(moment, 59)), (Parts{2024, 1, 31, 8, 15, 59, 250}));
  EXPECT_EQ(Decode(RecodeMilliSecond(moment, 999)), (Parts{2024, 1, 31, 8, 15, 30, 999}));
  EXPECT_EQ(Decode(RecodeTime(moment, 23, 59, 59, 999)), (Parts{2024, 1, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Decode(RecodeDateTime(moment, RecodeLeaveFieldAsIs, 12, RecodeLeaveFieldAsIs, 0, RecodeLeaveFieldAsIs,
                                  RecodeLeaveFieldAsIs, 0)),
            (Parts{2024, 12, 31, 0, 15, 30, 0}));
  EXPECT_THROW(RecodeMonth(moment, 2), EConvertError) << "31 February";
  EXPECT_THROW(RecodeYear(EncodeDate(2024, 2, 29), 2023), EConvertError);
  EXPECT_THROW(RecodeHour(moment, 24), EConvertError);
  TDateTime unchanged = 5;
  EXPECT_FALSE(TryRecodeDateTime(moment, 2024, 2, 30, 0, 0, 0, 0, unchanged));
  EXPECT_EQ(unchanged, 5);
}

// Before 1899 the day counts back while the time still adds: the replaced part must
// land on the other side of day 0 by that rule, not by the sign of the old value.
TEST(Replace, SwapsDayOrTimeAcrossDayZero) {
  TDateTime value = At(2024, 1, 31, 23, 59, 59, 999);
  ReplaceDate(value, At(1899, 12, 29, 6));
  EXPECT_EQ(Decode(value), (Parts{1899, 12, 29, 23, 59, 59, 999}));
  ReplaceDate(value, -0.5);  // 30 December 1899, noon
  EXPECT_EQ(Decode(value), (Parts{1899, 12, 30, 23, 59, 59, 999}));
  ReplaceTime(value, At(1800, 1, 1, 6, 30));
  EXPECT_EQ(Decode(value), (Parts{1899, 12, 30, 6, 30, 0, 0}));
  value = At(1700, 3, 1, 12);
  ReplaceTime(value, At(2000, 1, 1, 0, 0, 0, 1));
  EXPECT_EQ(Decode(value), (Parts{1700, 3, 1, 0, 0, 0, 1}));
}

TEST(Parts, ReadEachComponent) {
  const TDateTime moment = At(2024, 3, 5, 14, 7, 9, 45);
  EXPECT_EQ(YearOf(moment), 2024);
  EXPECT_EQ(MonthOf(moment), 3);
  EXPECT_EQ(DayOf(moment), 5);
  EXPECT_EQ(HourOf(moment), 14);
  EXPECT_EQ(MinuteOf(moment), 7);
  EXPECT_EQ(SecondOf(moment), 9);
  EXPECT_EQ(MilliSecondOf(moment), 45);
  EXPECT_EQ(DateOf(moment), EncodeDate(2024, 3, 5));
  EXPECT_EQ(TimeOf(moment), EncodeTime(14, 7, 9, 45));
}

TEST(Between, CountsWholeUnits) {
  const TDateTime day = EncodeDate(2024, 1, 1);
  EXPECT_EQ(DaysBetween(day, day + 1.5), 1);
  EXPECT_EQ(DaysBetween(day + 1.5, day), 1);
  EXPECT_EQ(DaysBetween(day, IncMilliSecond(day + 1, -1)), 0);
  EXPECT_EQ(DaysBetween(-1.75, 0.25), 0) << "29 Dec 18:00 to 30 Dec 06:00 is half a day";
  EXPECT_EQ(DaysBetween(EncodeDate(1900, 1, 1), EncodeDate(2000, 1, 1)), 36524);
  EXPECT_EQ(MonthsBetween(EncodeDate(2024, 1, 1), EncodeDate(2024, 2, 1)), 1);
  EXPECT_EQ(MonthsBetween(EncodeDate(2023, 1, 31), EncodeDate(2023, 2, 28)), 0);
  EXPECT_EQ(MonthsBetween(EncodeDate(2024, 12, 1), EncodeDate(2023, 12, 1)), 12);
  EXPECT_EQ(MonthsBetween(EncodeDate(2023, 2, 1), EncodeDate(2023, 3, 1)), 0) << "28 days / 30.4375";
  EXPECT_EQ(YearsBetween(EncodeDate(2000, 1, 1), EncodeDate(2010, 1, 1)), 10);
  EXPECT_EQ(YearsBetween(EncodeDate(2023, 1, 1), EncodeDate(2024, 1, 1)), 0) << "365 days / 365.25";
  EXPECT_EQ(YearsBetween(EncodeDate(2024, 1, 1), EncodeDate(2025, 1, 1)), 1);
}

TEST(Comparison, ComparesDatesTimesAndMoments) {
  const TDateTime moment = At(2024, 3, 5, 10);
  EXPECT_TRUE(SameDate(moment, EncodeDate(2024, 3, 5)));
  EXPECT_FALSE(SameDate(moment, EncodeDate(2024, 3, 6)));
  EXPECT_EQ(CompareDate(moment, IncDay(moment)), LessThanValue);
  EXPECT_EQ(CompareDate(moment, DateOf(moment) + 0.9), EqualsValue);
  EXPECT_EQ(CompareTime(moment, At(1990, 1, 1, 11)), LessThanValue);
  EXPECT_TRUE(SameTime(moment, At(1990, 1, 1, 10)));
  EXPECT_EQ(CompareDateTime(moment, moment + 0.4 / MSecsPerDay), EqualsValue);
  EXPECT_EQ(CompareDateTime(moment, IncMilliSecond(moment)), LessThanValue);
  EXPECT_EQ(CompareDateTime(IncMilliSecond(moment), moment), GreaterThanValue);
  EXPECT_EQ(CompareDateTime(-1.75, -1.25), GreaterThanValue) << "18:00 is later than 06:00 on 29 Dec 1899";
  EXPECT_TRUE(SameDateTime(moment, moment + 0.4 / MSecsPerDay));
}

TEST(Clock, TodayIsTheDateOfNow) {
  const TDateTime before = Now();
  const TDateTime today = Today();
  EXPECT_EQ(today, DateOf(today));
  EXPECT_LE(DateOf(before), today);
  EXPECT_LE(today, Now());
  EXPECT_GE(Time(), 0);
  EXPECT_LT(Time(), 1);
  EXPECT_GT(today, EncodeDate(2020, 1, 1));
}

}  // namespace
