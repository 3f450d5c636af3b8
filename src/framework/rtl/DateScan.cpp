#include "framework/rtl/DateFormat.h"

#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {
namespace {

enum TDateOrder { doMDY, doDMY, doYMD };

// The order of day, month and year is that of the first of them in the format.
TDateOrder DateOrder(const QString& format) {
  for (QChar ch : format) {
    switch (QChar::toUpper(ch.unicode())) {
      case u'E': case u'Y': return doYMD;
      case u'M': return doMDY;
      case u'D': return doDMY;
      default: break;
    }
  }
  return doMDY;
}

// Reads dates and times from the front of a text.
class DateTimeScanner {
public:
  DateTimeScanner(const QString& text, const TFormatSettings& settings) : text_(text), settings_(settings) {}

  bool AtEnd() const { return pos_ >= text_.size(); }
  void Restart() { pos_ = 0; }

  bool Date(TDateTime& date) {
    int first, second, third, firstLength, secondLength, thirdLength;
    if (!Number(first, firstLength) || !Char(settings_.DateSeparator) || !Number(second, secondLength)) return false;
    const TDateOrder order = DateOrder(settings_.ShortDateFormat);
    int year, month, day;
    if (Char(settings_.DateSeparator)) {
      if (!Number(third, thirdLength)) return false;
      year = order == doYMD ? first : third;
      month = order == doMDY ? first : second;
      day = order == doMDY ? second : order == doDMY ? first : third;
      if ((order == doYMD ? firstLength : thirdLength) <= 2) year = FullYear(year);
    } else {
      year = YearOf(quil::Date());
      month = order == doDMY ? second : first;
      day = order == doDMY ? first : second;
    }
    Char(settings_.DateSeparator);
    Blanks();
    return TryEncodeDate(year, month, day, date);
  }

  bool Time(TDateTime& time) {
    int baseHour = Meridiem();
    if (baseHour >= 0) Blanks();
    int hour, minute = 0, second = 0, millisecond = 0, length;
    if (!Number(hour, length)) return false;
    if (Char(settings_.TimeSeparator)) {
      if (!Number(minute, length)) return false;
      if (Char(settings_.TimeSeparator)) {
        if (!Number(second, length)) return false;
        if (Char(settings_.DecimalSeparator) && !Number(millisecond, length)) return false;
      }
    }
    if (baseHour < 0) baseHour = Meridiem();
    if (baseHour >= 0) {
      if (hour == 0 || hour > 12) return false;
      hour = hour % 12 + baseHour;
    }
    Blanks();
    return TryEncodeTime(hour, minute, second, millisecond, time);
  }

private:
  void Blanks() {
    while (pos_ < text_.size() && text_[pos_] == u' ') ++pos_;
  }

  // At most four digits are read: the scan stops at 1000.
  bool Number(int& value, int& length) {
    Blanks();
    const qsizetype start = pos_;
    value = 0;
    while (pos_ < text_.size() && text_[pos_] >= u'0' && text_[pos_] <= u'9' && value < 1000)
      value = value * 10 + (text_[pos_++].unicode() - u'0');
    length = int(pos_ - start);
    return length > 0;
  }

  bool Char(QChar ch) {
    Blanks();
    if (pos_ >= text_.size() || text_[pos_] != ch) return false;
    ++pos_;
    return true;
  }

  bool Word(const QString& word) {
    if (word.isEmpty()) return false;
    Blanks();
    if (!QStringView(text_).mid(pos_).startsWith(word, Qt::CaseInsensitive)) return false;
    pos_ += word.size();
    return true;
  }

  // 0 after an AM marker, 12 after a PM marker, -1 without one.
  int Meridiem() {
    if (Word(settings_.TimeAMString) || Word(QStringLiteral("AM"))) return 0;
    if (Word(settings_.TimePMString) || Word(QStringLiteral("PM"))) return 12;
    return -1;
  }

  int FullYear(int year) const {
    const int centuryBase = YearOf(quil::Date()) - settings_.TwoDigitYearCenturyWindow;
    year += centuryBase / 100 * 100;
    if (settings_.TwoDigitYearCenturyWindow > 0 && year < centuryBase) year += 100;
    return year;
  }

  const QString& text_;
  const TFormatSettings& settings_;
  qsizetype pos_ = 0;
};

template <typename Try>
TDateTime OrRaise(const QString& text, const QString& message, Try tryConvert) {
  TDateTime value;
  if (!tryConvert(value)) throw EConvertError(Format(message, {text}));
  return value;
}

}  // namespace

bool TryStrToDate(const QString& text, TDateTime& value, const TFormatSettings& settings) {
  DateTimeScanner scanner(text, settings);
  TDateTime date;
  if (!scanner.Date(date) || !scanner.AtEnd()) return false;
  value = date;
  return true;
}

TDateTime StrToDate(const QString& text, const TFormatSettings& settings) {
  return OrRaise(text, SInvalidDate, [&](TDateTime& value) { return TryStrToDate(text, value, settings); });
}

TDateTime StrToDateDef(const QString& text, TDateTime defaultValue, const TFormatSettings& settings) {
  TDateTime value;
  return TryStrToDate(text, value, settings) ? value : defaultValue;
}

bool TryStrToTime(const QString& text, TDateTime& value, const TFormatSettings& settings) {
  DateTimeScanner scanner(text, settings);
  TDateTime time;
  if (!scanner.Time(time) || !scanner.AtEnd()) return false;
  value = time;
  return true;
}

TDateTime StrToTime(const QString& text, const TFormatSettings& settings) {
  return OrRaise(text, SInvalidTime, [&](TDateTime& value) { return TryStrToTime(text, value, settings); });
}

TDateTime StrToTimeDef(const QString& text, TDateTime defaultValue, const TFormatSettings& settings) {
  TDateTime value;
  return TryStrToTime(text, value, settings) ? value : defaultValue;
}

bool TryStrToDateTime(const QString& text, TDateTime& value, const TFormatSettings& settings) {
  DateTimeScanner scanner(text, settings);
  TDateTime date, time = 0;
  if (scanner.Date(date) && (scanner.AtEnd() || scanner.Time(time)) && scanner.AtEnd()) {
    value = ComposeDateTime(date, time);
    return true;
  }
  scanner.Restart();
  if (!scanner.Time(time) || !scanner.AtEnd()) return false;
  value = time;
  return true;
}

TDateTime StrToDateTime(const QString& text, const TFormatSettings& settings) {
  return OrRaise(text, SInvalidDateTime, [&](TDateTime& value) { return TryStrToDateTime(text, value, settings); });
}

TDateTime StrToDateTimeDef(const QString& text, TDateTime defaultValue, const TFormatSettings& settings) {
  TDateTime value;
  return TryStrToDateTime(text, value, settings) ? value : defaultValue;
}

}  // namespace quil
