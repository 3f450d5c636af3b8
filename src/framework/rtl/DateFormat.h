#pragma once
// Date and time texts by the format settings.
//
// FormatDateTime letters, in either case:
//   c       ShortDateFormat, then a blank and LongTimeFormat unless the time is 00:00
//   d dd    day; ddd dddd short and long day name; ddddd dddddd short and long date
//   m mm    month; mmm mmmm short and long month name; right after an h or hh (other
//           characters between them apart from letters) m and mm are minutes
//   yy yyyy two- and four-digit year     h hh  hour   n nn  minute   s ss  second
//   z zzz   millisecond                  t tt  ShortTimeFormat, LongTimeFormat
//   am/pm a/p  the letters as written, for the hour; ampm TimeAMString or TimePMString;
//           any of the three after an h makes that hour count on a 12-hour clock
//   aaa aaaa  short and long day name    /  DateSeparator   :  TimeSeparator
//   '...' "..."  literal text; any other character stands for itself.
// An empty format means "c".
//
// Reading: a date is two or three numbers separated by DateSeparator, in the order of
// ShortDateFormat; without a year, the current year; a year of one or two digits lands
// in the window of TwoDigitYearCenturyWindow. A time is hours, and optionally minutes,
// seconds and, after DecimalSeparator, milliseconds, separated by TimeSeparator, with
// an AM or PM (or TimeAMString, TimePMString) before or after it. Blanks around the
// parts are allowed; anything else fails.

#include <QString>

#include "framework/rtl/DateTime.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

QString FormatDateTime(const QString& format, TDateTime value, const TFormatSettings& settings = FormatSettings);
void DateTimeToString(QString& result, const QString& format, TDateTime value,
                      const TFormatSettings& settings = FormatSettings);
QString DateToStr(TDateTime value, const TFormatSettings& settings = FormatSettings);
QString TimeToStr(TDateTime value, const TFormatSettings& settings = FormatSettings);
QString DateTimeToStr(TDateTime value, const TFormatSettings& settings = FormatSettings);

bool TryStrToDate(const QString& text, TDateTime& value, const TFormatSettings& settings = FormatSettings);
TDateTime StrToDate(const QString& text, const TFormatSettings& settings = FormatSettings);
TDateTime StrToDateDef(const QString& text, TDateTime defaultValue, const TFormatSettings& settings = FormatSettings);
bool TryStrToTime(const QString& text, TDateTime& value, const TFormatSettings& settings = FormatSettings);
TDateTime StrToTime(const QString& text, const TFormatSettings& settings = FormatSettings);
TDateTime StrToTimeDef(const QString& text, TDateTime defaultValue, const TFormatSettings& settings = FormatSettings);
// A date, a date followed by a time, or a time alone.
bool TryStrToDateTime(const QString& text, TDateTime& value, const TFormatSettings& settings = FormatSettings);
TDateTime StrToDateTime(const QString& text, const TFormatSettings& settings = FormatSettings);
TDateTime StrToDateTimeDef(const QString& text, TDateTime defaultValue,
                           const TFormatSettings& settings = FormatSettings);

}  // namespace quil
