#include "framework/db/SqlTypes.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSqlField>
#include <optional>

#include "framework/rtl/Currency.h"
#include "framework/rtl/DateTime.h"

namespace quil {

namespace {

const QDate kDayZero(1899, 12, 30);
constexpr double kMsPerDay = 86400000.0;

TDateTime ToDateTime(const QDateTime& moment) {
  const double days = double(kDayZero.daysTo(moment.date()));
  return days + moment.time().msecsSinceStartOfDay() / kMsPerDay;
}

QDateTime FromDateTime(TDateTime value) {
  const qint64 ms = qint64(std::llround(value * kMsPerDay));
  const qint64 day = ms >= 0 ? ms / qint64(kMsPerDay) : -((-ms + qint64(kMsPerDay) - 1) / qint64(kMsPerDay));
  return QDateTime(kDayZero.addDays(day), QTime::fromMSecsSinceStartOfDay(int(ms - day * qint64(kMsPerDay))));
}

// The stored texts use ASCII digits only; reading them so skips the Unicode tables.
bool IsAsciiDigit(QChar ch) { return ch.unicode() >= u'0' && ch.unicode() <= u'9'; }

bool Digits(QStringView text, qsizetype at, int count, int& out) {
  if (at + count > text.size()) return false;
  out = 0;
  for (qsizetype index = at; index < at + count; ++index) {
    if (!IsAsciiDigit(text[index])) return false;
    out = out * 10 + (text[index].unicode() - u'0');
  }
  return true;
}

// "HH:mm[:ss[.fff]]" from `at`, which moves past it; the milliseconds of the day.
std::optional<int> ParseClock(QStringView text, qsizetype& at) {
  int hour = 0, minute = 0, second = 0, ms = 0;
  if (!Digits(text, at, 2, hour) || at + 2 >= text.size() || text[at + 2] != QLatin1Char(':') ||
      !Digits(text, at + 3, 2, minute))
    return std::nullopt;
  at += 5;
  if (at < text.size() && text[at] == QLatin1Char(':')) {
    if (!Digits(text, at + 1, 2, second)) return std::nullopt;
    at += 3;
    if (at < text.size() && text[at] == QLatin1Char('.'))
      for (int scale = 100; ++at < text.size() && IsAsciiDigit(text[at]); scale /= 10) ms += (text[at].unicode() - u'0') * scale;
  }
  if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return ((hour * 60 + minute) * 60 + second) * 1000 + ms;
}

// The ISO texts SQLite keeps dates and times in: "yyyy-MM-dd", "yyyy-MM-dd HH:mm:ss.fff"
// (or with "T"), "HH:mm:ss". Read by hand, not through QDateTime, whose local time
// asks the system's time zone for every value. A trailing offset or "Z" leaves the
// wall clock as written, which is what the row holds.
std::optional<TDateTime> ParseIsoText(QStringView text) {
  qsizetype at = 0;
  if (text.size() >= 5 && text[2] == QLatin1Char(':')) {
    const std::optional<int> clock = ParseClock(text, at);
    if (!clock || at != text.size()) return std::nullopt;
    return *clock / kMsPerDay;
  }
  int year = 0, month = 0, day = 0;
  if (!Digits(text, 0, 4, year) || text.size() < 10 || text[4] != QLatin1Char('-') || !Digits(text, 5, 2, month) ||
      text[7] != QLatin1Char('-') || !Digits(text, 8, 2, day))
    return std::nullopt;
  const QDate date(year, month, day);
  if (!date.isValid()) return std::nullopt;
  const double days = double(kDayZero.daysTo(date));
  at = 10;
  if (at == text.size()) return days;
  if (text[at] != QLatin1Char(' ') && text[at] != QLatin1Char('T')) return std::nullopt;
  const std::optional<int> clock = ParseClock(text, ++at);
  if (!clock) return std::nullopt;
  if (at < text.size() && !QStringView(u"Z+-").contains(text[at])) return std::nullopt;
  return days + *clock / kMsPerDay;
}

TDateTime ParseMoment(const QVariant& value) {
  if (value.typeId() == QMetaType::QDateTime) return ToDateTime(value.toDateTime());
  if (value.typeId() == QMetaType::QDate) return ToDateTime(QDateTime(value.toDate(), QTime(0, 0)));
  if (value.typeId() == QMetaType::QTime) return ToDateTime(QDateTime(kDayZero, value.toTime()));
  const bool isText = value.typeId() == QMetaType::QString;
  const QString converted = isText ? QString() : value.toString();
  const QStringView text = QStringView(isText ? *static_cast<const QString*>(value.constData()) : converted).trimmed();
  const std::optional<TDateTime> moment = ParseIsoText(text);
  if (!moment) DatabaseError(QStringLiteral("'%1' is not a valid date and time").arg(text), nullptr);
  return *moment;
}

// "numeric(12,2)" gives {12, 2}; a type without a size gives {0, 0}.
std::pair<int, int> DeclaredSize(const QString& declared) {
  static const QRegularExpression sizes(QStringLiteral("\\(\\s*(\\d+)\\s*(?:,\\s*(\\d+)\\s*)?\\)"));
  const QRegularExpressionMatch match = sizes.match(declared);
  if (!match.hasMatch()) return {0, 0};
  return {match.captured(1).toInt(), match.captured(2).toInt()};
}

TSQLColumn Numeric(const QString& name, int precision, int scale) {
  if (precision > 0 && precision <= 18 && scale <= 4) return {name, ftBCD, scale};
  return {name, ftFMTBcd, scale};
}

}  // namespace

TSQLColumn ColumnForDeclaredType(const QString& name, const QString& declared) {
  const QString type = declared.toLower();
  const auto [precision, scale] = DeclaredSize(type);
  const auto has = [&](const char* part) { return type.contains(QLatin1String(part)); };
  if (has("bigint") || has("int8")) return {name, ftLargeint, 0};
  if (has("smallint") || has("int2")) return {name, ftSmallint, 0};
  if (has("int")) return {name, ftInteger, 0};
  if (has("bool")) return {name, ftBoolean, 0};
  if (has("char") || has("clob")) return {name, precision > 0 ? ftString : ftMemo, precision};
  if (has("text")) return {name, ftMemo, 0};
  if (has("real") || has("floa") || has("doub")) return {name, ftFloat, 0};
  if (has("numeric") || has("decimal")) return Numeric(name, precision, scale);
  if (has("timestamp") || has("datetime")) return {name, ftDateTime, 0};
  if (has("date")) return {name, ftDate, 0};
  if (has("time")) return {name, ftTime, 0};
  if (has("blob") || has("bytea")) return {name, ftBlob, 0};
  return {name, ftString, 255};
}

TSQLColumn ColumnForSqlField(const QSqlField& field) {
  const QString name = field.name();
  switch (field.metaType().id()) {
    case QMetaType::Short: return {name, ftSmallint, 0};
    case QMetaType::Int: case QMetaType::UInt: return {name, ftInteger, 0};
    case QMetaType::LongLong: case QMetaType::ULongLong: return {name, ftLargeint, 0};
    case QMetaType::Double:
      return field.precision() > 0 ? Numeric(name, field.length(), field.precision()) : TSQLColumn{name, ftFloat, 0};
    case QMetaType::Bool: return {name, ftBoolean, 0};
    case QMetaType::QDate: return {name, ftDate, 0};
    case QMetaType::QTime: return {name, ftTime, 0};
    case QMetaType::QDateTime: return {name, ftDateTime, 0};
    case QMetaType::QByteArray: return {name, ftBlob, 0};
    default: return field.length() > 0 ? TSQLColumn{name, ftString, field.length()} : TSQLColumn{name, ftMemo, 0};
  }
}

Variant FromSqlValue(const QVariant& value, TFieldType type) {
  if (value.isNull()) return Null();
  // SQLite's driver hands integers over as qlonglong: read in place, QVariant's
  // conversions cost more than the row's fetch.
  const qlonglong* integer = value.typeId() == QMetaType::LongLong ? static_cast<const qlonglong*>(value.constData()) : nullptr;
  switch (NativeKindOf(type)) {
    case TNativeKind::Int32: return Variant(integer ? int(*integer) : value.toInt());
    case TNativeKind::Int64: return Variant(integer ? *integer : value.toLongLong());
    case TNativeKind::Currency: return Variant(Currency::FromDouble(value.toDouble()));
    case TNativeKind::Boolean:
      if (integer) return Variant(*integer != 0);
      return Variant(value.typeId() == QMetaType::QString ? value.toString() == QLatin1String("true") ||
                                                                value.toString() == QLatin1String("1")
                                                          : value.toBool());
    case TNativeKind::Double:
      if (type == ftDate || type == ftTime || type == ftDateTime || type == ftTimeStamp)
        return VarFromDateTime(ParseMoment(value));
      return Variant(value.toDouble());
    case TNativeKind::Bytes: {
      const QByteArray bytes = value.toByteArray();
      return NativeToVariant(TNativeKind::Bytes, &bytes);
    }
    default: return Variant(value.toString());
  }
}

QVariant ToSqlValue(const Variant& value, TFieldType type, TSQLDialect dialect) {
  if (VarIsNull(value) || VarIsEmpty(value)) return QVariant(QMetaType(QMetaType::QString));
  const bool postgres = dialect == TSQLDialect::PostgreSQL;
  switch (type) {
    case ftDate: {
      const QDate date = FromDateTime(value.AsDateTime()).date();
      return postgres ? QVariant(date) : QVariant(date.toString(Qt::ISODate));
    }
    case ftTime: {
      const QTime time = FromDateTime(value.AsDateTime()).time();
      return postgres ? QVariant(time) : QVariant(time.toString(QStringLiteral("HH:mm:ss")));
    }
    case ftDateTime: case ftTimeStamp: {
      const QDateTime moment = FromDateTime(value.AsDateTime());
      return postgres ? QVariant(moment) : QVariant(moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    }
    default: break;
  }
  switch (NativeKindOf(type)) {
    case TNativeKind::Int32: case TNativeKind::Int64: return QVariant(qlonglong(value.AsInt64()));
    case TNativeKind::Boolean: return QVariant(value.AsBoolean());
    case TNativeKind::Double: case TNativeKind::Currency: return QVariant(value.AsDouble());
    case TNativeKind::Bytes: {
      QByteArray bytes;
      VariantToNative(TNativeKind::Bytes, value, &bytes);
      return QVariant(bytes);
    }
    default: return QVariant(value.AsString());
  }
}

}  // namespace quil
