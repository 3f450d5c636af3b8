#include "support/MarlUtils.h"

#include <algorithm>

#include "framework/rtl/DateFormat.h"
#include "framework/rtl/DateUtils.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

namespace {
// The start of the step-minute period that holds value.
TDateTime StartOfMinutes(TDateTime value, int step) {
  return RecodeTime(value, HourOf(value), MinuteOf(value) / step * step, 0, 0);
}

// The first month of the months-long period of the year that holds value.
int FirstMonthOf(TDateTime value, int months) { return (MonthOf(value) - 1) / months * months + 1; }

// The date year-month-day, the day lowered to the month's last, with value's time.
TDateTime ReplaceDay(TDateTime value, int year, int month, int day) {
  ReplaceDate(value, EncodeDate(year, month, std::min(day, DaysInAMonth(year, month))));
  return value;
}
}  // namespace

TDateTime StartOfTheMinute(TDateTime value) { return StartOfMinutes(value, 1); }
TDateTime StartOfThe10Mins(TDateTime value) { return StartOfMinutes(value, 10); }
TDateTime StartOfThe15Mins(TDateTime value) { return StartOfMinutes(value, 15); }
TDateTime StartOfThe20Mins(TDateTime value) { return StartOfMinutes(value, 20); }
TDateTime StartOfThe30Mins(TDateTime value) { return StartOfMinutes(value, 30); }
TDateTime StartOfTheHour(TDateTime value) { return StartOfMinutes(value, MinsPerHour); }

TDateTime StartOfTheQuarter(TDateTime value) { return StartOfAMonth(YearOf(value), FirstMonthOf(value, 3)); }
TDateTime EndOfTheQuarter(TDateTime value) { return EndOfAMonth(YearOf(value), FirstMonthOf(value, 3) + 2); }
TDateTime StartOfTheSemester(TDateTime value) { return StartOfAMonth(YearOf(value), FirstMonthOf(value, 6)); }
TDateTime EndOfTheSemester(TDateTime value) { return EndOfAMonth(YearOf(value), FirstMonthOf(value, 6) + 5); }

TDateTime StartOfTheDecade(TDateTime value) { return StartOfAYear(DecadeOf(value)); }
TDateTime EndOfTheDecade(TDateTime value) { return EndOfAYear(DecadeOf(value) + 9); }
TDateTime StartOfTheCentury(TDateTime value) { return StartOfAYear(CenturyOf(value)); }
TDateTime EndOfTheCentury(TDateTime value) { return EndOfAYear(CenturyOf(value) + 99); }

uint16_t DecadeOf(TDateTime value) { return uint16_t(YearOf(value) / 10 * 10); }
uint16_t CenturyOf(TDateTime value) { return uint16_t(YearOf(value) / 100 * 100); }

void ReplaceMonth(TDateTime& value, TDateTime newDate) {
  value = ReplaceDay(value, YearOf(newDate), MonthOf(newDate), DayOf(value));
}

void ReplaceYear(TDateTime& value, TDateTime newDate) {
  value = ReplaceDay(value, YearOf(newDate), MonthOf(value), DayOf(value));
}

QString ShortTimeToStr(TDateTime value) {
  QString text;
  DateTimeToString(text, FormatSettings.ShortTimeFormat, value);
  return text;
}

QString ShortDateTimeToStr(TDateTime value) {
  QString text;
  DateTimeToString(text, FormatSettings.ShortDateFormat + QLatin1Char(' ') + FormatSettings.ShortTimeFormat,
                   value);
  return text;
}

}  // namespace quil
