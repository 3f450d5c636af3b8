#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

// Tuesday, 5 March 2024, 14:07:09.045.
const TDateTime Moment = EncodeDateTime(2024, 3, 5, 14, 7, 9, 45);

struct FormatRow {
  const char* format;
  const char* expected;
};

class FormatDateTimeTable : public testing::TestWithParam<FormatRow> {};

TEST_P(FormatDateTimeTable, WritesEachLetterGroup) {
  EXPECT_EQ(FormatDateTime(GetParam().format, Moment), GetParam().expected) << GetParam().format;
}

INSTANTIATE_TEST_SUITE_P(
    Letters, FormatDateTimeTable,
    testing::Values(
        FormatRow{"d", "5"}, FormatRow{"dd", "05"}, FormatRow{"ddd", "Tue"}, FormatRow{"dddd", "Tuesday"},
        FormatRow{"ddddd", "3/5/2024"}, FormatRow{"dddddd", "Tuesday, March 5, 2024"}, FormatRow{"m", "3"},
        FormatRow{"mm", "03"}, FormatRow{"mmm", "Mar"}, FormatRow{"mmmm", "March"}, FormatRow{"MMMM yyyy", "March 2024"},
        FormatRow{"y", "24"}, FormatRow{"yy", "24"}, FormatRow{"yyyy", "2024"}, FormatRow{"h", "14"},
        FormatRow{"hh", "14"}, FormatRow{"n", "7"}, FormatRow{"nn", "07"}, FormatRow{"s", "9"}, FormatRow{"ss", "09"},
        FormatRow{"z", "45"}, FormatRow{"zzz", "045"}, FormatRow{"h:m", "14:7"}, FormatRow{"hh:mm:ss", "14:07:09"},
        FormatRow{"h 'x' m", "14 x 7"}, FormatRow{"d m", "5 3"}, FormatRow{"hh d m", "14 5 3"},
        FormatRow{"dd'x'm", "05x3"}, FormatRow{"h:nn am/pm", "2:07 pm"}, FormatRow{"H:NN AM/PM", "2:07 PM"},
        FormatRow{"h:nn Am/pM", "2:07 pM"}, FormatRow{"h a/p", "2 p"}, FormatRow{"h A/P", "2 P"},
        FormatRow{"h ampm", "2 PM"}, FormatRow{"h 'a' ampm", "2 a PM"}, FormatRow{"h aaa", "14 Tue"},
        FormatRow{"aaaa", "Tuesday"}, FormatRow{"ampm", "PM"}, FormatRow{"t", "2:07 PM"},
        FormatRow{"tt", "2:07:09 PM"}, FormatRow{"c", "3/5/2024 2:07:09 PM"}, FormatRow{"", "3/5/2024 2:07:09 PM"},
        FormatRow{"yyyy/mm/dd", "2024/03/05"}, FormatRow{"'Day' d", "Day 5"}, FormatRow{"\"h\" h", "h 14"},
        FormatRow{"'unclosed", "unclosed"}, FormatRow{"x-q#", "x-q#"},
        FormatRow{"yyyymmddhhnnsszzz", "20240305140709045"}, FormatRow{"h ampm h", "2 PM 2"},
        FormatRow{"aaaa h", "Tuesday 14"}, FormatRow{"aaa hh:nn", "Tue 14:07"}, FormatRow{"aaaa h ampm", "Tuesday 2 PM"},
        FormatRow{"h aaaa ampm", "2 Tuesday PM"}, FormatRow{"h aaa h", "14 Tue 14"}));

TEST(FormatDateTime, CountsHoursOnTheTwelveHourClock) {
  EXPECT_EQ(FormatDateTime("h:nn ampm", EncodeTime(0, 30, 0, 0)), "12:30 AM");
  EXPECT_EQ(FormatDateTime("h:nn ampm", EncodeTime(12, 0, 0, 0)), "12:00 PM");
  EXPECT_EQ(FormatDateTime("h:nn ampm", EncodeTime(13, 5, 0, 0)), "1:05 PM");
  EXPECT_EQ(FormatDateTime("hh:nn a/p", EncodeTime(9, 5, 0, 0)), "09:05 a");
  EXPECT_EQ(FormatDateTime("h 'am/pm'", EncodeTime(13, 0, 0, 0)), "13 am/pm") << "quoted markers do not count";
  EXPECT_EQ(FormatDateTime("h h:nn ampm", EncodeTime(13, 0, 0, 0)), "13 1:00 PM") << "another hour ends the look-ahead";
}

TEST(FormatDateTime, LeavesTheTimeOutOfCAtMidnight) {
  EXPECT_EQ(FormatDateTime("c", EncodeDate(2024, 3, 5)), "3/5/2024");
  EXPECT_EQ(DateTimeToStr(EncodeDate(2024, 3, 5)), "3/5/2024");
  EXPECT_EQ(DateTimeToStr(EncodeDateTime(2024, 3, 5, 0, 0, 0, 1)), "3/5/2024 12:00:00 AM");
}

TEST(FormatDateTime, UsesTheSeparatorsAndNamesOfTheSettings) {
  TFormatSettings settings;
  settings.DateSeparator = u'-';
  settings.TimeSeparator = u'.';
  settings.ShortDateFormat = "dd/mm/yyyy";
  settings.LongTimeFormat = "hh:nn:ss";
  settings.LongMonthNames[2] = "März";
  EXPECT_EQ(FormatDateTime("yyyy/mm/dd hh:nn", Moment, settings), "2024-03-05 14.07");
  EXPECT_EQ(FormatDateTime("c", Moment, settings), "05-03-2024 14.07.09");
  EXPECT_EQ(FormatDateTime("mmmm", Moment, settings), QStringLiteral("März"));
  EXPECT_EQ(DateToStr(Moment, settings), "05-03-2024");
  EXPECT_EQ(TimeToStr(Moment, settings), "14.07.09");
}

TEST(FormatDateTime, NestedFormatsCannotLoop) {
  TFormatSettings settings;
  settings.ShortDateFormat = "ddddd";
  EXPECT_EQ(FormatDateTime("ddddd|", Moment, settings), "|");
}

TEST(FormatDateTime, WritesEarlyYearsAndDatesBefore1899) {
  EXPECT_EQ(FormatDateTime("yyyy yy", EncodeDate(5, 1, 2)), "0005 05");
  EXPECT_EQ(DateTimeToStr(-1.25), "12/29/1899 6:00:00 AM");
  EXPECT_EQ(FormatDateTime("dd mmm yyyy hh:nn:ss.zzz", EncodeDateTime(1999, 12, 31, 23, 59, 59, 999)),
            "31 Dec 1999 23:59:59.999");
}

TEST(StrToDate, ReadsInTheOrderOfTheShortDateFormat) {
  EXPECT_EQ(StrToDate("3/5/2024"), EncodeDate(2024, 3, 5));
  EXPECT_EQ(StrToDate(" 3 / 5 / 2024 "), EncodeDate(2024, 3, 5));
  EXPECT_EQ(StrToDate("12/31/1899"), 1);
  EXPECT_EQ(StrToDate("3/5"), EncodeDate(YearOf(Today()), 3, 5));
  TFormatSettings german;
  german.ShortDateFormat = "dd.mm.yyyy";
  german.DateSeparator = u'.';
  EXPECT_EQ(StrToDate("5.3.2024", german), EncodeDate(2024, 3, 5));
  TFormatSettings iso;
  iso.ShortDateFormat = "yyyy-mm-dd";
  iso.DateSeparator = u'-';
  EXPECT_EQ(StrToDate("2024-03-05", iso), EncodeDate(2024, 3, 5));
}

TEST(StrToDate, PlacesTwoDigitYearsInTheCenturyWindow) {
  EXPECT_EQ(YearOf(StrToDate("1/1/99")), 1999);
  EXPECT_EQ(YearOf(StrToDate("1/1/00")), 2000);
  EXPECT_EQ(YearOf(StrToDate("1/1/0099")), 99) << "a year of four digits is taken as written";
  TFormatSettings noWindow;
  noWindow.TwoDigitYearCenturyWindow = 0;
  EXPECT_EQ(YearOf(StrToDate("1/1/99", noWindow)), YearOf(Today()) / 100 * 100 + 99);
}

TEST(StrToDate, RefusesWhatIsNoDate) {
  for (const char* text : {"", "3", "13/5/2024", "2/30/2024", "2/29/2023", "3-5-2024", "3/5/2024x", "3//2024",
                           "a/b/c", "3/5/2024 10:00"}) {
    TDateTime value = 9;
    EXPECT_FALSE(TryStrToDate(text, value)) << text;
    EXPECT_EQ(value, 9);
    EXPECT_EQ(StrToDateDef(text, -7), -7);
  }
  try {
    StrToDate("x");
    FAIL() << "no exception";
  } catch (const EConvertError& error) {
    EXPECT_EQ(error.Message(), "'x' is not a valid date");
  }
}

struct TimeRow {
  const char* text;
  int hour, minute, second, millisecond;
};

class StrToTimeTable : public testing::TestWithParam<TimeRow> {};

TEST_P(StrToTimeTable, ReadsHoursToMilliseconds) {
  const TimeRow& row = GetParam();
  EXPECT_EQ(StrToTime(row.text), EncodeTime(row.hour, row.minute, row.second, row.millisecond)) << row.text;
}

INSTANTIATE_TEST_SUITE_P(Texts, StrToTimeTable,
                         testing::Values(TimeRow{"14:07", 14, 7, 0, 0}, TimeRow{"2:07 PM", 14, 7, 0, 0},
                                         TimeRow{"2:07 pm", 14, 7, 0, 0}, TimeRow{"PM 2:07", 14, 7, 0, 0},
                                         TimeRow{"12:00 AM", 0, 0, 0, 0}, TimeRow{"12:00 PM", 12, 0, 0, 0},
                                         TimeRow{"14:07:09.045", 14, 7, 9, 45}, TimeRow{"14:07:09.5", 14, 7, 9, 5},
                                         TimeRow{"14", 14, 0, 0, 0}, TimeRow{" 9 : 05 ", 9, 5, 0, 0},
                                         TimeRow{"23:59:59.999", 23, 59, 59, 999}));

TEST(StrToTime, RefusesWhatIsNoTime) {
  for (const char* text : {"", "13:00 PM", "0:00 AM", "24:00", "14:60", "14:", "14:07:", "14:07:09.", "2 PMx",
                           "1:2:3:4", "x"}) {
    TDateTime value = 9;
    EXPECT_FALSE(TryStrToTime(text, value)) << text;
    EXPECT_EQ(StrToTimeDef(text, -7), -7);
  }
  EXPECT_THROW(StrToTime("25:00"), EConvertError);
}

TEST(StrToDateTime, ReadsADateATimeOrBoth) {
  EXPECT_EQ(StrToDateTime("3/5/2024 2:07:09 PM"), EncodeDateTime(2024, 3, 5, 14, 7, 9, 0));
  EXPECT_EQ(StrToDateTime("3/5/2024"), EncodeDate(2024, 3, 5));
  EXPECT_EQ(StrToDateTime("14:07"), EncodeTime(14, 7, 0, 0));
  EXPECT_EQ(StrToDateTime("12/29/1899 6:00 AM"), -1.25);
  EXPECT_THROW(StrToDateTime("3/5/2024 junk"), EConvertError);
  EXPECT_EQ(StrToDateTimeDef("", 3), 3);
  const TDateTime moment = EncodeDateTime(2031, 10, 30, 23, 59, 58, 0);
  EXPECT_EQ(StrToDateTime(DateTimeToStr(moment)), moment);
}

}  // namespace
