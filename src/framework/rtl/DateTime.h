#pragma once
// TDateTime: days since 30 December 1899 as a double, the fraction being the time of
// day. Before that day the whole part counts back and the fraction's absolute value
// is still the time: -1.25 is 29 December 1899, 06:00. Every conversion goes through
// whole milliseconds, rounded to the nearest, so that 23:59:59.999 stays on its day.

#include <cstdint>

namespace quil {

using TDateTime = double;

constexpr int HoursPerDay = 24;
constexpr int MinsPerHour = 60;
constexpr int SecsPerMin = 60;
constexpr int MSecsPerSec = 1000;
constexpr int MinsPerDay = HoursPerDay * MinsPerHour;
constexpr int SecsPerDay = MinsPerDay * SecsPerMin;
constexpr int MSecsPerDay = SecsPerDay * MSecsPerSec;
// Time-stamp day number of 30 December 1899, day 0 of TDateTime.
constexpr int DateDelta = 693594;

// A moment as whole days and milliseconds. Date counts days with 1 January 0001 as 1.
struct TTimeStamp {
  int Time = 0;  // milliseconds since midnight
  int Date = 0;
};

TTimeStamp DateTimeToTimeStamp(TDateTime value);
TDateTime TimeStampToDateTime(const TTimeStamp& stamp);
// Milliseconds since the start of 1 January 0001 less one day: a count that rises
// with time on both sides of 1899, for exact arithmetic and comparison.
int64_t DateTimeToMilliseconds(TDateTime value);
TDateTime MillisecondsToDateTime(int64_t milliseconds);

bool IsLeapYear(int year);
int DaysInAMonth(int year, int month);

// Years 1 to 9999. Invalid parts make Try... return false and Encode... raise
// EConvertError.
bool TryEncodeDate(int year, int month, int day, TDateTime& date);
TDateTime EncodeDate(int year, int month, int day);
void DecodeDate(TDateTime value, int& year, int& month, int& day);
bool TryEncodeTime(int hour, int minute, int second, int millisecond, TDateTime& time);
TDateTime EncodeTime(int hour, int minute, int second, int millisecond);
void DecodeTime(TDateTime value, int& hour, int& minute, int& second, int& millisecond);
// A date plus a time of day, by the rule for dates before 1899.
TDateTime ComposeDateTime(TDateTime date, TDateTime time);
// Gives value the day of newDate and keeps its time of day.
void ReplaceDate(TDateTime& value, TDateTime newDate);
// Gives value the time of day of newTime and keeps its day.
void ReplaceTime(TDateTime& value, TDateTime newTime);

// 1 for Sunday to 7 for Saturday.
int DayOfWeek(TDateTime value);

// The machine's local clock.
TDateTime Now();
TDateTime Date();
TDateTime Time();

}  // namespace quil
