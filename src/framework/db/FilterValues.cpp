#include "framework/db/FilterValues.h"

#include "framework/rtl/Conversions.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/Exceptions.h"

namespace quil {

namespace {

template <typename T>
int Sign(T a, T b) {
  return a < b ? -1 : (b < a ? 1 : 0);
}

bool IsAbsent(const Variant& value) { return VarIsNull(value) || VarIsEmpty(value) || VarIsArray(value); }

bool IsIntegral(TVarType type) { return type == varSmallint || type == varInteger || type == varInt64; }

// Digits as written in a filter are read with "." first, so that a text stored by one
// locale still compares under another; the locale's own separator comes second.
std::optional<Variant> TextToNumber(const QString& text) {
  const QString trimmed = text.trimmed();
  bool ok = false;
  const qlonglong integral = trimmed.toLongLong(&ok);
  if (ok) return Variant(integral);
  const double real = trimmed.toDouble(&ok);
  if (ok) return Variant(real);
  double localeReal = 0;
  if (TryStrToFloat(trimmed, localeReal)) return Variant(localeReal);
  return std::nullopt;
}

std::optional<Variant> TextToDateTime(const QString& text) {
  TDateTime value = 0;
  if (!TryStrToDateTime(text.trimmed(), value)) return std::nullopt;
  return Variant::FromDateTime(value);
}

std::optional<Variant> TextToBoolean(const QString& text) {
  bool value = false;
  if (!TryStrToBool(text.trimmed(), value)) return std::nullopt;
  return Variant(value);
}

// Text against another kind is read as that kind.
std::optional<Variant> TextAsKindOf(const QString& text, TVarType otherType) {
  if (otherType == varBoolean) return TextToBoolean(text);
  if (otherType == varDate) return TextToDateTime(text);
  return TextToNumber(text);
}

bool Truth(const Variant& value) {
  return value.Type() == varBoolean ? value.AsBoolean() : value.AsDouble() != 0;
}

TDateTime DateValue(const Variant& value) {
  return value.Type() == varDate ? value.AsDateTime() : value.AsDouble();
}

}  // namespace

std::optional<int> CompareFilterValues(const Variant& a, const Variant& b, TFilterCase textCase) {
  if (IsAbsent(a) || IsAbsent(b)) return std::nullopt;
  const TVarType typeA = a.Type();
  const TVarType typeB = b.Type();
  if (typeA == varString && typeB == varString) {
    const auto sensitivity = textCase == TFilterCase::Sensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    return Sign(QString::compare(a.AsString(), b.AsString(), sensitivity), 0);
  }
  if (typeA == varString || typeB == varString) {
    const bool textFirst = typeA == varString;
    const std::optional<Variant> converted = TextAsKindOf((textFirst ? a : b).AsString(), textFirst ? typeB : typeA);
    if (!converted) return std::nullopt;
    return textFirst ? CompareFilterValues(*converted, b, textCase) : CompareFilterValues(a, *converted, textCase);
  }
  if (typeA == varBoolean || typeB == varBoolean) return Sign(int(Truth(a)), int(Truth(b)));
  if (typeA == varDate || typeB == varDate)
    return Sign(DateTimeToMilliseconds(DateValue(a)), DateTimeToMilliseconds(DateValue(b)));
  if (IsIntegral(typeA) && IsIntegral(typeB)) return Sign(a.AsInt64(), b.AsInt64());
  if (typeA == varCurrency && typeB == varCurrency) return Sign(a.AsCurrency().scaled, b.AsCurrency().scaled);
  return Sign(a.AsDouble(), b.AsDouble());
}

bool ApplyCompareOp(TFilterCompareOp op, int sign) {
  switch (op) {
    case TFilterCompareOp::Equal: return sign == 0;
    case TFilterCompareOp::NotEqual: return sign != 0;
    case TFilterCompareOp::Less: return sign < 0;
    case TFilterCompareOp::LessEqual: return sign <= 0;
    case TFilterCompareOp::Greater: return sign > 0;
    case TFilterCompareOp::GreaterEqual: return sign >= 0;
  }
  return false;
}

Variant ConvertLiteralForField(const Variant& literal, TFilterFieldKind kind, const QString& fieldName,
                               int position) {
  const auto orFail = [&](const std::optional<Variant>& converted, const char* kindName) {
    if (!converted)
      DatabaseError(QStringLiteral("'%1' at position %2 is not a valid %3 for field '%4'")
                        .arg(literal.AsString())
                        .arg(position)
                        .arg(QLatin1String(kindName), fieldName));
    return *converted;
  };
  if (literal.Type() != varString) {
    const bool numberForBoolean = kind == TFilterFieldKind::Boolean && VarIsNumeric(literal);
    return numberForBoolean ? Variant(Truth(literal)) : literal;
  }
  const QString text = literal.AsString();
  switch (kind) {
    case TFilterFieldKind::Text:
    case TFilterFieldKind::Other: return literal;
    case TFilterFieldKind::Boolean: return orFail(TextToBoolean(text), "Boolean");
    case TFilterFieldKind::Integer:
    case TFilterFieldKind::Real: return orFail(TextToNumber(text), "number");
    case TFilterFieldKind::Date: return orFail(TextToDateTime(text), "date");
    case TFilterFieldKind::Time: return orFail(TextToDateTime(text), "time");
    case TFilterFieldKind::DateTime: return orFail(TextToDateTime(text), "date and time");
  }
  return literal;
}

}  // namespace quil
