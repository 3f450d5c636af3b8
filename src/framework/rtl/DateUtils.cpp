#include "framework/rtl/DateUtils.h"

#include <algorithm>
#include <cstdlib>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {
namespace {

constexpr int64_t MSecsPerHour = int64_t(MinsPerHour) * SecsPerMin * MSecsPerSec;
constexpr int64_t MSecsPerMin = int64_t(SecsPerMin) * MSecsPerSec;
constexpr double ApproxDaysPerMonth = 30.4375;
constexpr double ApproxDaysPerYear = 365.25;

TDateTime AddMilliseconds(TDateTime value, int64_t milliseconds) {
  return MillisecondsToDateTime(DateTimeToMilliseconds(value) + milliseconds);
}

TDateTime DayEnd(TDateTime date) { return ComposeDateTime(date, EncodeTime(23, 59, 59, 999)); }

TValueRelationship Sign(int64_t difference) {
  return difference < 0 ? LessThanValue : difference > 0 ? GreaterThanValue : EqualsValue;
}

double SpanInDays(TDateTime a, TDateTime b) {
  return double(std::llabs(DateTimeToMilliseconds(a) - DateTimeToMilliseconds(b))) / MSecsPerDay;
}

int Keep(int given, int current) { return given == RecodeLeaveFieldAsIs ? current : given; }

}  // namespace

TDateTime Today() { return Date(); }

bool TryEncodeDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond,
                       TDateTime& value) {
  TDateTime date, time;
  if (!TryEncodeDate(year, month, day, date) || !TryEncodeTime(hour, minute, second, millisecond, time))
    return false;
  value = ComposeDateTime(date, time);
  return true;
}

TDateTime EncodeDateTime(int year, int month, int day, int hour, int minute, int second, int millisecond) {
  return ComposeDateTime(EncodeDate(year, month, day), EncodeTime(hour, minute, second, millisecond));
}

void DecodeDateTime(TDateTime value, int& year, int& month, int& day, int& hour, int& minute, int& second,
                    int& millisecond) {
  DecodeDate(value, year, month, day);
  DecodeTime(value, hour, minute, second, millisecond);
}

int DaysInMonth(TDateTime value) { return DaysInAMonth(YearOf(value), MonthOf(value)); }

int DayOfTheWeek(TDateTime value) { return (DayOfWeek(value) + 5) % 7 + 1; }

int YearOf(TDateTime value) {
  int year, month, day;
  DecodeDate(value, year, month, day);
  return year;
}

int MonthOf(TDateTime value) {
  int year, month, day;
  DecodeDate(value, year, month, day);
  return month;
}

int DayOf(TDateTime value) {
  int year, month, day;
  DecodeDate(value, year, month, day);
  return day;
}

int HourOf(TDateTime value) { return DateTimeToTimeStamp(value).Time / int(MSecsPerHour); }
int MinuteOf(TDateTime value) { return DateTimeToTimeStamp(value).Time / int(MSecsPerMin) % MinsPerHour; }
int SecondOf(TDateTime value) { return DateTimeToTimeStamp(value).Time / MSecsPerSec % SecsPerMin; }
int MilliSecondOf(TDateTime value) { return DateTimeToTimeStamp(value).Time % MSecsPerSec; }

// The week belongs to the year that holds its Thursday.
int WeekOfTheYear(TDateTime value, int& year) {
  const TDateTime thursday = IncDay(DateOf(value), 4 - DayOfTheWeek(value));
  year = YearOf(thursday);
  return DaysBetween(thursday, StartOfAYear(year)) / 7 + 1;
}

int WeekOf(TDateTime value) {
  int year;
  return WeekOfTheYear(value, year);
}

TDateTime IncMonth(TDateTime value, int months) {
  int year, month, day;
  DecodeDate(value, year, month, day);
  const int64_t total = int64_t(year) * 12 + (month - 1) + months;
  const int newYear = int(total >= 0 ? total / 12 : (total - 11) / 12);
  const int newMonth = int(total - int64_t(newYear) * 12) + 1;
  const int newDay = std::min(day, DaysInAMonth(newYear, newMonth));
  return ComposeDateTime(EncodeDate(newYear, newMonth, newDay), TimeOf(value));
}

TDateTime IncYear(TDateTime value, int years) { return IncMonth(value, years * 12); }
TDateTime IncWeek(TDateTime value, int weeks) { return IncDay(value, weeks * 7); }
TDateTime IncDay(TDateTime value, int days) { return AddMilliseconds(value, int64_t(days) * MSecsPerDay); }
TDateTime IncHour(TDateTime value, int64_t hours) { return AddMilliseconds(value, hours * MSecsPerHour); }
TDateTime IncMinute(TDateTime value, int64_t minutes) { return AddMilliseconds(value, minutes * MSecsPerMin); }
TDateTime IncSecond(TDateTime value, int64_t seconds) { return AddMilliseconds(value, seconds * MSecsPerSec); }
TDateTime IncMilliSecond(TDateTime value, int64_t milliseconds) { return AddMilliseconds(value, milliseconds); }

TDateTime DateOf(TDateTime value) { return double(DateTimeToTimeStamp(value).Date - DateDelta); }
TDateTime TimeOf(TDateTime value) { return double(DateTimeToTimeStamp(value).Time) / MSecsPerDay; }

TDateTime StartOfTheDay(TDateTime value) { return DateOf(value); }
TDateTime EndOfTheDay(TDateTime value) { return DayEnd(DateOf(value)); }
TDateTime StartOfTheWeek(TDateTime value) { return IncDay(DateOf(value), 1 - DayOfTheWeek(value)); }
TDateTime EndOfTheWeek(TDateTime value) { return DayEnd(IncDay(StartOfTheWeek(value), 6)); }
TDateTime StartOfTheMonth(TDateTime value) { return StartOfAMonth(YearOf(value), MonthOf(value)); }
TDateTime EndOfTheMonth(TDateTime value) { return EndOfAMonth(YearOf(value), MonthOf(value)); }
TDateTime StartOfTheYear(TDateTime value) { return StartOfAYear(YearOf(value)); }
TDateTime EndOfTheYear(TDateTime value) { return EndOfAYear(YearOf(value)); }
TDateTime StartOfAMonth(int year, int month) { return EncodeDate(year, month, 1); }
TDateTime EndOfAMonth(int year, int month) { return DayEnd(EncodeDate(year, month, DaysInAMonth(year, month))); }
TDateTime StartOfAYear(int year) { return EncodeDate(year, 1, 1); }
TDateTime EndOfAYear(int year) { return DayEnd(EncodeDate(year, 12, 31)); }

namespace {

struct DateTimeParts {
  int year, month, day, hour, minute, second, millisecond;
};

// The parts of `value` with each given part put in place.
DateTimeParts Recoded(TDateTime value, const DateTimeParts& given) {
  DateTimeParts parts;
  DecodeDateTime(value, parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second, parts.millisecond);
  return DateTimeParts{Keep(given.year, parts.year),     Keep(given.month, parts.month),
                       Keep(given.day, parts.day),       Keep(given.hour, parts.hour),
                       Keep(given.minute, parts.minute), Keep(given.second, parts.second),
                       Keep(given.millisecond, parts.millisecond)};
}

}  // namespace

bool TryRecodeDateTime(TDateTime value, int year, int month, int day, int hour, int minute, int second,
                       int millisecond, TDateTime& result) {
  const DateTimeParts p = Recoded(value, {year, month, day, hour, minute, second, millisecond});
  return TryEncodeDateTime(p.year, p.month, p.day, p.hour, p.minute, p.second, p.millisecond, result);
}

TDateTime RecodeDateTime(TDateTime value, int year, int month, int day, int hour, int minute, int second,
                         int millisecond) {
  TDateTime result;
  if (TryRecodeDateTime(value, year, month, day, hour, minute, second, millisecond, result)) return result;
  const DateTimeParts p = Recoded(value, {year, month, day, hour, minute, second, millisecond});
  const QString parts = Format("%d/%d/%d %d:%d:%d.%d", {p.year, p.month, p.day, p.hour, p.minute, p.second, p.millisecond});
  throw EConvertError(Format(SInvalidDateTime, {parts}));
}

constexpr int AsIs = RecodeLeaveFieldAsIs;

TDateTime RecodeYear(TDateTime value, int year) {
  return RecodeDateTime(value, year, AsIs, AsIs, AsIs, AsIs, AsIs, AsIs);
}
TDateTime RecodeMonth(TDateTime value, int month) {
  return RecodeDateTime(value, AsIs, month, AsIs, AsIs, AsIs, AsIs, AsIs);
}
TDateTime RecodeDay(TDateTime value, int day) {
  return RecodeDateTime(value, AsIs, AsIs, day, AsIs, AsIs, AsIs, AsIs);
}
TDateTime RecodeHour(TDateTime value, int hour) {
  return RecodeDateTime(value, AsIs, AsIs, AsIs, hour, AsIs, AsIs, AsIs);
}
TDateTime RecodeMinute(TDateTime value, int minute) {
  return RecodeDateTime(value, AsIs, AsIs, AsIs, AsIs, minute, AsIs, AsIs);
}
TDateTime RecodeSecond(TDateTime value, int second) {
  return RecodeDateTime(value, AsIs, AsIs, AsIs, AsIs, AsIs, second, AsIs);
}
TDateTime RecodeMilliSecond(TDateTime value, int millisecond) {
  return RecodeDateTime(value, AsIs, AsIs, AsIs, AsIs, AsIs, AsIs, millisecond);
}
TDateTime RecodeDate(TDateTime value, int year, int month, int day) {
  return RecodeDateTime(value, year, month, day, AsIs, AsIs, AsIs, AsIs);
}
TDateTime RecodeTime(TDateTime value, int hour, int minute, int second, int millisecond) {
  return RecodeDateTime(value, AsIs, AsIs, AsIs, hour, minute, second, millisecond);
}

int DaysBetween(TDateTime a, TDateTime b) {
  return int(std::llabs(DateTimeToMilliseconds(a) - DateTimeToMilliseconds(b)) / MSecsPerDay);
}
int MonthsBetween(TDateTime a, TDateTime b) { return int(SpanInDays(a, b) / ApproxDaysPerMonth); }
int YearsBetween(TDateTime a, TDateTime b) { return int(SpanInDays(a, b) / ApproxDaysPerYear); }

bool SameDate(TDateTime a, TDateTime b) { return CompareDate(a, b) == EqualsValue; }
bool SameTime(TDateTime a, TDateTime b) { return CompareTime(a, b) == EqualsValue; }
bool SameDateTime(TDateTime a, TDateTime b) { return CompareDateTime(a, b) == EqualsValue; }

TValueRelationship CompareDate(TDateTime a, TDateTime b) {
  return Sign(int64_t(DateTimeToTimeStamp(a).Date) - DateTimeToTimeStamp(b).Date);
}
TValueRelationship CompareTime(TDateTime a, TDateTime b) {
  return Sign(int64_t(DateTimeToTimeStamp(a).Time) - DateTimeToTimeStamp(b).Time);
}
TValueRelationship CompareDateTime(TDateTime a, TDateTime b) {
  return Sign(DateTimeToMilliseconds(a) - DateTimeToMilliseconds(b));
}

}  // namespace quil
