#include "framework/rtl/DateTime.h"

#include <QDateTime>
#include <cmath>
#include <cstdlib>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {
namespace {

// Days from 1 March of year 0 in the proleptic Gregorian calendar, the count in which
// leap days fall at the end of each year's cycle.
constexpr int64_t DaysFromCivil(int64_t year, int month, int day) {
  year -= month <= 2;
  const int64_t era = (year >= 0 ? year : year - 399) / 400;
  const int64_t yearOfEra = year - era * 400;
  const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra;
}

void CivilFromDays(int64_t days, int& year, int& month, int& day) {
  const int64_t era = (days >= 0 ? days : days - 146096) / 146097;
  const int64_t dayOfEra = days - era * 146097;
  const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
  day = int(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
  month = int(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
  year = int(yearOfEra + era * 400 + (month <= 2));
}

// Time-stamp day number of 1 March of year 0.
constexpr int64_t CivilEpoch = 1 - DaysFromCivil(1, 1, 1);

}  // namespace

TTimeStamp DateTimeToTimeStamp(TDateTime value) {
  const int64_t total = std::llround(value * MSecsPerDay);
  return TTimeStamp{int(std::llabs(total) % MSecsPerDay), int(DateDelta + total / MSecsPerDay)};
}

TDateTime TimeStampToDateTime(const TTimeStamp& stamp) {
  return ComposeDateTime(stamp.Date - DateDelta, double(stamp.Time) / MSecsPerDay);
}

int64_t DateTimeToMilliseconds(TDateTime value) {
  const TTimeStamp stamp = DateTimeToTimeStamp(value);
  return int64_t(stamp.Date) * MSecsPerDay + stamp.Time;
}

TDateTime MillisecondsToDateTime(int64_t milliseconds) {
  int64_t days = milliseconds / MSecsPerDay;
  int64_t time = milliseconds % MSecsPerDay;
  if (time < 0) {
    --days;
    time += MSecsPerDay;
  }
  return TimeStampToDateTime(TTimeStamp{int(time), int(days)});
}

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInAMonth(int year, int month) {
  static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

bool TryEncodeDate(int year, int month, int day, TDateTime& date) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > DaysInAMonth(year, month))
    return false;
  date = double(DaysFromCivil(year, month, day) + CivilEpoch - DateDelta);
  return true;
}

TDateTime EncodeDate(int year, int month, int day) {
  TDateTime date;
  if (!TryEncodeDate(year, month, day, date)) throw EConvertError(SDateEncodeError);
  return date;
}

void DecodeDate(TDateTime value, int& year, int& month, int& day) {
  const TTimeStamp stamp = DateTimeToTimeStamp(value);
  if (stamp.Date <= 0) {
    year = month = day = 0;
    return;
  }
  CivilFromDays(stamp.Date - CivilEpoch, year, month, day);
}

bool TryEncodeTime(int hour, int minute, int second, int millisecond, TDateTime& time) {
  if (hour < 0 || hour >= HoursPerDay || minute < 0 || minute >= MinsPerHour || second < 0 ||
      second >= SecsPerMin || millisecond < 0 || millisecond >= MSecsPerSec)
    return false;
  const int total = ((hour * MinsPerHour + minute) * SecsPerMin + second) * MSecsPerSec + millisecond;
  time = double(total) / MSecsPerDay;
  return true;
}

TDateTime EncodeTime(int hour, int minute, int second, int millisecond) {
  TDateTime time;
  if (!TryEncodeTime(hour, minute, second, millisecond, time)) throw EConvertError(STimeEncodeError);
  return time;
}

void DecodeTime(TDateTime value, int& hour, int& minute, int& second, int& millisecond) {
  int rest = DateTimeToTimeStamp(value).Time;
  millisecond = rest % MSecsPerSec;
  rest /= MSecsPerSec;
  second = rest % SecsPerMin;
  rest /= SecsPerMin;
  minute = rest % MinsPerHour;
  hour = rest / MinsPerHour;
}

TDateTime ComposeDateTime(TDateTime date, TDateTime time) {
  return date < 0 ? date - std::fabs(time) : date + std::fabs(time);
}

void ReplaceDate(TDateTime& value, TDateTime newDate) {
  TDateTime result = newDate;
  ReplaceTime(result, value);
  value = result;
}

void ReplaceTime(TDateTime& value, TDateTime newTime) {
  value = TimeStampToDateTime({DateTimeToTimeStamp(newTime).Time, DateTimeToTimeStamp(value).Date});
}

int DayOfWeek(TDateTime value) { return (DateTimeToTimeStamp(value).Date % 7 + 7) % 7 + 1; }

TDateTime Now() {
  const QDateTime now = QDateTime::currentDateTime();
  const QDate date = now.date();
  const QTime time = now.time();
  return ComposeDateTime(EncodeDate(date.year(), date.month(), date.day()),
                         EncodeTime(time.hour(), time.minute(), time.second(), time.msec()));
}

TDateTime Date() { return std::trunc(Now()); }

TDateTime Time() { return DateTimeToTimeStamp(Now()).Time / double(MSecsPerDay); }

}  // namespace quil
