#include "framework/db/SqlTypes.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSqlField>

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

QDateTime ParseMoment(const QVariant& value) {
  if (value.typeId() == QMetaType::QDateTime) return value.toDateTime();
  if (value.typeId() == QMetaType::QDate) return QDateTime(value.toDate(), QTime(0, 0));
  if (value.typeId() == QMetaType::QTime) return QDateTime(kDayZero, value.toTime());
  const QString text = value.toString().trimmed();
  QDateTime moment = QDateTime::fromString(text, Qt::ISODateWithMs);
  if (!moment.isValid()) moment = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
  if (!moment.isValid()) moment = QDateTime::fromString(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  if (!moment.isValid()) moment = QDateTime(QDate::fromString(text, Qt::ISODate), QTime(0, 0));
  if (!moment.isValid()) moment = QDateTime(kDayZero, QTime::fromString(text, Qt::ISODateWithMs));
  if (!moment.isValid()) DatabaseError(QStringLiteral("'%1' is not a valid date and time").arg(text), nullptr);
  return moment;
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
  switch (NativeKindOf(type)) {
    case TNativeKind::Int32: return Variant(value.toInt());
    case TNativeKind::Int64: return Variant(value.toLongLong());
    case TNativeKind::Currency: return Variant(Currency::FromDouble(value.toDouble()));
    case TNativeKind::Boolean:
      return Variant(value.typeId() == QMetaType::QString ? value.toString() == QLatin1String("true") ||
                                                                value.toString() == QLatin1String("1")
                                                          : value.toBool());
    case TNativeKind::Double:
      if (type == ftDate || type == ftTime || type == ftDateTime || type == ftTimeStamp)
        return VarFromDateTime(ToDateTime(ParseMoment(value)));
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
