#pragma once
// Date and time rounding beyond the framework's date library: periods of minutes,
// quarters, semesters, decades and centuries, and replacing a date's month or year.
// A start has no seconds or milliseconds; an end is the last millisecond of its day.

#include <QString>
#include <cstdint>

#include "framework/rtl/DateTime.h"

namespace quil {

TDateTime StartOfTheMinute(TDateTime value);
TDateTime StartOfThe10Mins(TDateTime value);
TDateTime StartOfThe15Mins(TDateTime value);
TDateTime StartOfThe20Mins(TDateTime value);
TDateTime StartOfThe30Mins(TDateTime value);
TDateTime StartOfTheHour(TDateTime value);

TDateTime StartOfTheQuarter(TDateTime value);
TDateTime EndOfTheQuarter(TDateTime value);
TDateTime StartOfTheSemester(TDateTime value);
TDateTime EndOfTheSemester(TDateTime value);
TDateTime StartOfTheDecade(TDateTime value);
TDateTime EndOfTheDecade(TDateTime value);
TDateTime StartOfTheCentury(TDateTime value);
TDateTime EndOfTheCentury(TDateTime value);

// A decade runs from a year ending in 0 to one ending in 9: 2021 gives 2020.
uint16_t DecadeOf(TDateTime value);
// A century runs from a year ending in 00 to one ending in 99: 1999 gives 1900.
uint16_t CenturyOf(TDateTime value);

// Year and month of newDate; the day of value, lowered to fit; the time of value.
void ReplaceMonth(TDateTime& value, TDateTime newDate);
// Year of newDate; month and day of value, the day lowered to fit; the time of value.
void ReplaceYear(TDateTime& value, TDateTime newDate);

QString ShortTimeToStr(TDateTime value);
QString ShortDateTimeToStr(TDateTime value);

}  // namespace quil
