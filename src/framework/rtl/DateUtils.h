#pragma once
// Date arithmetic on TDateTime. Results that name a moment keep the argument's time of
// day unless they say otherwise; an end of a period is its last millisecond,
// 23:59:59.999. Weeks are ISO weeks, Monday to Sunday. Arithmetic on hours and
// smaller units runs on whole milliseconds, so repeated steps do not drift.

#include <cstdint>

#include "framework/rtl/DateTime.h"

namespace quil {

using TValueRelationship = int;
constexpr TValueRelationship LessThanValue = -1;
constexpr TValueRelationship EqualsValue = 0;
constexpr TValueRelationship GreaterThanValue = 1;

// Passed to a Recode... function for a part that keeps its value.
constexpr int RecodeLeaveFieldAsIs = 65535;

TDateTime Today();

bool TryEncodeDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond,
                       TDateTime& value);
TDateTime EncodeDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond);
void DecodeDateTime(TDateTime value, int& year, int& month, int& day, int& hour, int& minute, int& second,
                    int& millisecond);

int DaysInMonth(TDateTime value);
// 1 for Monday to 7 for Sunday.
int DayOfTheWeek(TDateTime value);
int YearOf(TDateTime value);
int MonthOf(TDateTime value);
int DayOf(TDateTime value);
int HourOf(TDateTime value);
int MinuteOf(TDateTime value);
int SecondOf(TDateTime value);
int MilliSecondOf(TDateTime value);
// ISO 8601 week number, 1 to 53; `year` receives the year the week belongs to, which
// differs from the date's own near New Year.
int WeekOfTheYear(TDateTime value, int& year);
int WeekOf(TDateTime value);

// Months and years keep the day, lowered to the last of the new month if needed.
TDateTime IncMonth(TDateTime value, int months = 1);
TDateTime IncYear(TDateTime value, int years = 1);
TDateTime IncWeek(TDateTime value, int weeks = 1);
TDateTime IncDay(TDateTime value, int days = 1);
TDateTime IncHour(TDateTime value, int64_t hours = 1);
TDateTime IncMinute(TDateTime value, int64_t minutes = 1);
TDateTime IncSecond(TDateTime value, int64_t seconds = 1);
TDateTime IncMilliSecond(TDateTime value, int64_t milliseconds = 1);

TDateTime DateOf(TDateTime value);
// The time of day, 0 <= result < 1, also for dates before 1899.
TDateTime TimeOf(TDateTime value);

TDateTime StartOfTheDay(TDateTime value);
TDateTime EndOfTheDay(TDateTime value);
TDateTime StartOfTheWeek(TDateTime value);
TDateTime EndOfTheWeek(TDateTime value);
TDateTime StartOfTheMonth(TDateTime value);
TDateTime EndOfTheMonth(TDateTime value);
TDateTime StartOfTheYear(TDateTime value);
TDateTime EndOfTheYear(TDateTime value);
TDateTime StartOfAMonth(int year, int month);
TDateTime EndOfAMonth(int year, int month);
TDateTime StartOfAYear(int year);
TDateTime EndOfAYear(int year);

// Each part given as RecodeLeaveFieldAsIs keeps its value; an invalid result raises
// EConvertError, or makes TryRecodeDateTime return false.
bool TryRecodeDateTime(TDateTime value, int year, int month, int day, int hour, int minute, int second,
                       int millisecond, TDateTime& result);
TDateTime RecodeDateTime(TDateTime value, int year, int month, int day, int hour, int minute, int second,
                         int millisecond);
TDateTime RecodeYear(TDateTime value, int year);
TDateTime RecodeMonth(TDateTime value, int month);
TDateTime RecodeDay(TDateTime value, int day);
TDateTime RecodeHour(TDateTime value, int hour);
TDateTime RecodeMinute(TDateTime value, int minute);
TDateTime RecodeSecond(TDateTime value, int second);
TDateTime RecodeMilliSecond(TDateTime value, int millisecond);
TDateTime RecodeDate(TDateTime value, int year, int month, int day);
TDateTime RecodeTime(TDateTime value, int hour, int minute, int second, int millisecond);

// Whole days between the two moments, in either order: a day and a half gives 1.
int DaysBetween(TDateTime a, TDateTime b);
// Approximations: the span divided by 30.4375 or by 365.25
// days, truncated. One calendar year between 1 January of two years counts 0 years.
int MonthsBetween(TDateTime a, TDateTime b);
int YearsBetween(TDateTime a, TDateTime b);

bool SameDate(TDateTime a, TDateTime b);
bool SameTime(TDateTime a, TDateTime b);
bool SameDateTime(TDateTime a, TDateTime b);
TValueRelationship CompareDate(TDateTime a, TDateTime b);
TValueRelationship CompareTime(TDateTime a, TDateTime b);
TValueRelationship CompareDateTime(TDateTime a, TDateTime b);

}  // namespace quil
