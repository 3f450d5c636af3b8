#pragma once
// The format settings that number, currency and date texts follow. The global
// FormatSettings starts with fixed US-English values rather than the machine's locale,
// so that every text the library writes or reads is the same on every machine; an
// application that wants its user's conventions assigns them at start-up.

#include <QChar>
#include <QString>
#include <array>

namespace quil {

struct TFormatSettings {
  // CurrencyFormat: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $".
  int CurrencyFormat = 0;
  // NegCurrFormat: 0 "($1)", 1 "-$1", 2 "$-1", 3 "$1-", 4 "(1$)", 5 "-1$", 6 "1-$",
  // 7 "1$-", 8 "-1 $", 9 "-$ 1", 10 "1 $-", 11 "$ 1-", 12 "$ -1", 13 "1- $",
  // 14 "($ 1)", 15 "(1 $)".
  int NegCurrFormat = 0;
  QChar ThousandSeparator = QLatin1Char(',');
  QChar DecimalSeparator = QLatin1Char('.');
  int CurrencyDecimals = 2;
  QChar DateSeparator = QLatin1Char('/');
  QChar TimeSeparator = QLatin1Char(':');
  QChar ListSeparator = QLatin1Char(',');
  QString CurrencyString = QStringLiteral("$");
  QString ShortDateFormat = QStringLiteral("M/d/yyyy");
  QString LongDateFormat = QStringLiteral("dddd, MMMM d, yyyy");
  QString TimeAMString = QStringLiteral("AM");
  QString TimePMString = QStringLiteral("PM");
  QString ShortTimeFormat = QStringLiteral("h:mm AMPM");
  QString LongTimeFormat = QStringLiteral("h:mm:ss AMPM");
  std::array<QString, 12> ShortMonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  std::array<QString, 12> LongMonthNames = {"January", "February", "March",     "April",
                                            "May",     "June",     "July",      "August",
                                            "September", "October", "November", "December"};
  // Sunday first, as DayOfWeek counts.
  std::array<QString, 7> ShortDayNames = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  std::array<QString, 7> LongDayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                         "Thursday", "Friday", "Saturday"};
  // A two-digit year read from text falls in the hundred years that start this many
  // years before the current one; 0 puts it in the current century.
  int TwoDigitYearCenturyWindow = 50;
};

extern TFormatSettings FormatSettings;

}  // namespace quil
