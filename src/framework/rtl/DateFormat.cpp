#include "framework/rtl/DateFormat.h"

#include "framework/rtl/DateUtils.h"

namespace quil {
namespace {

// Writes one moment by a format. Nested formats (c, ddddd, t ...) go at most two
// levels deep, so a format that names itself cannot loop.
class DateTimeWriter {
public:
  DateTimeWriter(TDateTime value, const TFormatSettings& settings) : settings_(settings) {
    DecodeDateTime(value, year_, month_, day_, hour_, minute_, second_, millisecond_);
    dayOfWeek_ = DayOfWeek(value);
  }

  QString Write(const QString& format) {
    Append(format.isEmpty() ? QStringLiteral("C") : format, 0);
    return out_;
  }

private:
  void Append(const QString& format, int level) {
    if (level >= 2) return;
    char lastToken = ' ';
    for (qsizetype pos = 0; pos < format.size();) {
      const QChar starter = format[pos++];
      char token = starter.unicode() < 0x80 ? char(QChar::toUpper(starter.unicode())) : 0;
      if (token >= 'A' && token <= 'Z') {
        if (token == 'M' && lastToken == 'H') token = 'N';
        lastToken = token;
      }
      AppendToken(token, starter, format, pos, level);
    }
  }

  void AppendToken(char token, QChar starter, const QString& format, qsizetype& pos, int level) {
    switch (token) {
      case 'Y': {
        const int count = Count(format, pos, starter);
        return Number(count <= 2 ? year_ % 100 : year_, count <= 2 ? 2 : 4);
      }
      case 'M': return Month(Count(format, pos, starter));
      case 'D': return Day(Count(format, pos, starter), level);
      case 'H': return Hour(Count(format, pos, starter), format, pos);
      case 'N': return Number(minute_, qMin(Count(format, pos, starter), 2));
      case 'S': return Number(second_, qMin(Count(format, pos, starter), 2));
      case 'Z': return Number(millisecond_, qMin(Count(format, pos, starter), 3));
      case 'T':
        return Append(Count(format, pos, starter) == 1 ? settings_.ShortTimeFormat : settings_.LongTimeFormat,
                      level + 1);
      case 'C': return Complete(format, pos, starter, level);
      case 'A': return AmPm(starter, format, pos);
      case '/': return Separator(settings_.DateSeparator);
      case ':': return Separator(settings_.TimeSeparator);
      case '\'': case '"': return Quoted(starter, format, pos);
      default: out_ += starter;
    }
  }

  // How many times `starter` stands here, the one just read included.
  static int Count(const QString& format, qsizetype& pos, QChar starter) {
    int count = 1;
    for (; pos < format.size() && format[pos] == starter; ++pos) ++count;
    return count;
  }

  void Number(int value, int digits) { out_ += QString::number(value).rightJustified(digits, u'0'); }

  void Separator(QChar separator) {
    if (!separator.isNull()) out_ += separator;
  }

  void Month(int count) {
    if (count <= 2) Number(month_, count);
    else if (month_ >= 1) out_ += count == 3 ? settings_.ShortMonthNames[month_ - 1] : settings_.LongMonthNames[month_ - 1];
  }

  void Day(int count, int level) {
    if (count <= 2) Number(day_, count);
    else if (count == 3) out_ += settings_.ShortDayNames[dayOfWeek_ - 1];
    else if (count == 4) out_ += settings_.LongDayNames[dayOfWeek_ - 1];
    else Append(count == 5 ? settings_.ShortDateFormat : settings_.LongDateFormat, level + 1);
  }

  void Hour(int count, const QString& format, qsizetype pos) {
    if (!twelveHour_) twelveHour_ = AmPmFollows(format, pos);
    int hour = hour_;
    if (twelveHour_) hour = hour == 0 ? 12 : hour > 12 ? hour - 12 : hour;
    Number(hour, qMin(count, 2));
  }

  // Looks ahead, outside quotes, to the next hour or 'a'; only an am/pm marker there
  // puts the hour on a 12-hour clock.
  static bool AmPmFollows(const QString& format, qsizetype pos) {
    bool quoted = false;
    for (; pos < format.size(); ++pos) {
      const char16_t ch = format[pos].unicode();
      if ((ch == u'a' || ch == u'A') && !quoted) {
        if (IsAmPmMarker(format, pos)) return true;
        if (!StartsWith(format, pos, QLatin1StringView("aaa"))) return false;
        pos += StartsWith(format, pos, QLatin1StringView("aaaa")) ? 3 : 2;  // a day name: look on past it
        continue;
      }
      if ((ch == u'h' || ch == u'H') && !quoted) return false;
      if (ch == u'\'' || ch == u'"') quoted = !quoted;
    }
    return false;
  }

  static bool StartsWith(const QString& format, qsizetype pos, QLatin1StringView word) {
    return QStringView(format).mid(pos).startsWith(word, Qt::CaseInsensitive);
  }

  static bool IsAmPmMarker(const QString& format, qsizetype pos) {
    return StartsWith(format, pos, QLatin1StringView("am/pm")) || StartsWith(format, pos, QLatin1StringView("a/p")) ||
           StartsWith(format, pos, QLatin1StringView("ampm"));
  }

  // `pos` is just past the 'a'.
  void AmPm(QChar starter, const QString& format, qsizetype& pos) {
    const qsizetype at = pos - 1;
    const bool afternoon = hour_ >= 12;
    if (StartsWith(format, at, QLatin1StringView("am/pm"))) {
      out_ += format.mid(afternoon ? at + 3 : at, 2);
      pos = at + 5;
    } else if (StartsWith(format, at, QLatin1StringView("a/p"))) {
      out_ += format[afternoon ? at + 2 : at];
      pos = at + 3;
    } else if (StartsWith(format, at, QLatin1StringView("ampm"))) {
      out_ += afternoon ? settings_.TimePMString : settings_.TimeAMString;
      pos = at + 4;
    } else {
      return DayName(starter, format, pos);
    }
    twelveHour_ = true;
  }

  // Day names share the 'a' but leave the clock as it is. `pos` is just past the 'a'.
  void DayName(QChar starter, const QString& format, qsizetype& pos) {
    const qsizetype at = pos - 1;
    if (StartsWith(format, at, QLatin1StringView("aaaa"))) {
      out_ += settings_.LongDayNames[dayOfWeek_ - 1];
      pos = at + 4;
    } else if (StartsWith(format, at, QLatin1StringView("aaa"))) {
      out_ += settings_.ShortDayNames[dayOfWeek_ - 1];
      pos = at + 3;
    } else {
      out_ += starter;
    }
  }

  void Complete(const QString& format, qsizetype& pos, QChar starter, int level) {
    Count(format, pos, starter);
    Append(settings_.ShortDateFormat, level + 1);
    if (hour_ != 0 || minute_ != 0 || second_ != 0 || millisecond_ != 0) {
      out_ += u' ';
      Append(settings_.LongTimeFormat, level + 1);
    }
  }

  void Quoted(QChar quote, const QString& format, qsizetype& pos) {
    const qsizetype end = format.indexOf(quote, pos);
    out_ += QStringView(format).mid(pos, (end < 0 ? format.size() : end) - pos);
    pos = end < 0 ? format.size() : end + 1;
  }

  const TFormatSettings& settings_;
  int year_, month_, day_, hour_, minute_, second_, millisecond_, dayOfWeek_;
  bool twelveHour_ = false;
  QString out_;
};

}  // namespace

QString FormatDateTime(const QString& format, TDateTime value, const TFormatSettings& settings) {
  return DateTimeWriter(value, settings).Write(format);
}

void DateTimeToString(QString& result, const QString& format, TDateTime value, const TFormatSettings& settings) {
  result = FormatDateTime(format, value, settings);
}

QString DateToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(QStringLiteral("ddddd"), value, settings);
}

QString TimeToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(QStringLiteral("tt"), value, settings);
}

QString DateTimeToStr(TDateTime value, const TFormatSettings& settings) {
  return FormatDateTime(QString(), value, settings);
}

}  // namespace quil
