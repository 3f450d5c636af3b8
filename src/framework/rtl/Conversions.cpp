#include "framework/rtl/Conversions.h"

#include <QByteArray>
#include <cmath>
#include <limits>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/StringUtils.h"

namespace quil {
namespace {

int DigitValue(QChar ch, int base) {
  const char16_t c = ch.unicode();
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (base == 16 && c >= u'a' && c <= u'f') return c - u'a' + 10;
  if (base == 16 && c >= u'A' && c <= u'F') return c - u'A' + 10;
  return -1;
}

// Reads an integer of `bits` width. A hexadecimal text may fill the unsigned range,
// so "$FFFFFFFF" is -1 for 32 bits.
bool ParseInteger(const QString& text, int bits, int64_t& result) {
  const int size = int(text.size());
  int pos = 0;
  while (pos < size && text[pos] == u' ') ++pos;
  bool negative = false;
  if (pos < size && (text[pos] == u'-' || text[pos] == u'+')) negative = text[pos++] == u'-';
  int base = 10;
  if (pos < size && text[pos] == u'$') {
    base = 16;
    ++pos;
  } else if (pos + 1 < size && text[pos] == u'0' && (text[pos + 1] == u'x' || text[pos + 1] == u'X')) {
    base = 16;
    pos += 2;
  } else if (pos < size && (text[pos] == u'x' || text[pos] == u'X')) {
    base = 16;
    ++pos;
  }
  if (pos >= size) return false;
  const uint64_t signedLimit = (uint64_t{1} << (bits - 1)) - (negative ? 0 : 1);
  const uint64_t limit = base == 10 ? signedLimit : (std::numeric_limits<uint64_t>::max() >> (64 - bits));
  uint64_t magnitude = 0;
  for (; pos < size; ++pos) {
    const int digit = DigitValue(text[pos], base);
    if (digit < 0 || magnitude > (limit - uint64_t(digit)) / uint64_t(base)) return false;
    magnitude = magnitude * uint64_t(base) + uint64_t(digit);
  }
  int64_t value = bits == 32 ? int64_t(int32_t(uint32_t(magnitude))) : int64_t(magnitude);
  result = negative ? int64_t(0 - uint64_t(value)) : value;
  if (bits == 32) result = int32_t(result);
  return true;
}

bool IsDigit(const QString& text, int pos) {
  return pos < text.size() && text[pos] >= u'0' && text[pos] <= u'9';
}

// Checks the format's real syntax and rewrites it with a '.' for the C reader.
bool ParseFloat(const QString& text, QChar decimalSeparator, double& result) {
  const int size = int(text.size());
  int pos = 0;
  QByteArray plain;
  while (pos < size && text[pos] == u' ') ++pos;
  if (pos < size && (text[pos] == u'-' || text[pos] == u'+')) plain += char(text[pos++].unicode());
  int mantissaDigits = 0;
  for (; IsDigit(text, pos); ++pos, ++mantissaDigits) plain += char(text[pos].unicode());
  if (pos < size && text[pos] == decimalSeparator) {
    plain += '.';
    for (++pos; IsDigit(text, pos); ++pos, ++mantissaDigits) plain += char(text[pos].unicode());
  }
  if (mantissaDigits == 0) return false;
  if (pos < size && (text[pos] == u'e' || text[pos] == u'E')) {
    plain += 'e';
    ++pos;
    if (pos < size && (text[pos] == u'-' || text[pos] == u'+')) plain += char(text[pos++].unicode());
    if (!IsDigit(text, pos)) return false;
    for (; IsDigit(text, pos); ++pos) plain += char(text[pos].unicode());
  }
  while (pos < size && text[pos] == u' ') ++pos;
  if (pos != size) return false;
  bool ok = false;
  const double value = plain.toDouble(&ok);
  if (!ok) return false;
  result = value;
  return true;
}

// A real as significant decimal digits: value = 0.d1d2d3... * 10^exponent.
struct DecimalDigits {
  bool negative = false;
  QString digits;  // without trailing zeros; empty for zero
  int exponent = 0;

  void StripZeros() {
    while (digits.endsWith(u'0')) digits.chop(1);
    if (digits.isEmpty()) exponent = 0;
  }

  // Rounds half away from zero so that at most `decimals` digits follow the point.
  void RoundDecimals(int decimals) {
    const int keep = exponent + decimals;
    if (keep >= digits.size()) return;
    if (keep < 0) {
      digits.clear();
      exponent = 0;
      return;
    }
    const bool roundUp = digits[keep] >= u'5';
    digits.truncate(keep);
    if (roundUp) {
      int index = keep - 1;
      while (index >= 0 && digits[index] == u'9') digits[index--] = u'0';
      if (index >= 0) {
        digits[index] = QChar(digits[index].unicode() + 1);
      } else {
        digits.prepend(u'1');
        ++exponent;
      }
    }
    StripZeros();
  }

  QChar Digit(int index) const { return index >= 0 && index < digits.size() ? digits[index] : QChar(u'0'); }
};

DecimalDigits ToDecimal(double value, int precision) {
  DecimalDigits result;
  result.negative = std::signbit(value);
  if (value == 0) return result;
  const QString text = QString::number(std::fabs(value), 'e', precision - 1);
  const int e = int(text.indexOf(u'e'));
  result.digits = text.left(e).remove(u'.');
  result.exponent = text.mid(e + 1).toInt() + 1;
  result.StripZeros();
  return result;
}

QString Exponent(int exponent, bool plusSign, int minDigits) {
  const QString number = QString::number(std::abs(exponent)).rightJustified(minDigits, u'0');
  return QLatin1Char('E') + (exponent < 0 ? QStringLiteral("-") : plusSign ? QStringLiteral("+") : QString()) + number;
}

QString Scientific(const DecimalDigits& decimal, int mantissaDigits, bool plusSign, int expDigits,
                   QChar separator) {
  QString text(decimal.Digit(0));
  if (mantissaDigits > 1) {
    text += separator;
    for (int index = 1; index < mantissaDigits; ++index) text += decimal.Digit(index);
  }
  const int exponent = decimal.digits.isEmpty() ? 0 : decimal.exponent - 1;
  return text + Exponent(exponent, plusSign, expDigits);
}

QString IntegerPart(const DecimalDigits& decimal, QChar thousands) {
  if (decimal.exponent <= 0) return QStringLiteral("0");
  QString text;
  for (int index = 0; index < decimal.exponent; ++index) {
    if (!thousands.isNull() && index > 0 && (decimal.exponent - index) % 3 == 0) text += thousands;
    text += decimal.Digit(index);
  }
  return text;
}

QString Fixed(const DecimalDigits& decimal, int decimals, QChar thousands, QChar separator) {
  QString text = IntegerPart(decimal, thousands);
  if (decimals > 0) {
    text += separator;
    for (int index = 0; index < decimals; ++index) text += decimal.Digit(decimal.exponent + index);
  }
  return text;
}

QString General(const DecimalDigits& decimal, int precision, int expDigits, QChar separator) {
  if (decimal.digits.isEmpty()) return QStringLiteral("0");
  if (decimal.exponent > precision || decimal.exponent < -4)
    return Scientific(decimal, int(decimal.digits.size()), false, expDigits, separator);
  return Fixed(decimal, qMax(0, int(decimal.digits.size()) - decimal.exponent), QChar(), separator);
}

QString CurrencyText(const QString& number, bool negative, const TFormatSettings& settings) {
  static const char* const positive[] = {"$1", "1$", "$ 1", "1 $"};
  static const char* const negativePatterns[] = {"($1)", "-$1", "$-1", "$1-", "(1$)", "-1$", "1-$", "1$-",
                                                 "-1 $", "-$ 1", "1 $-", "$ 1-", "$ -1", "1- $", "($ 1)", "(1 $)"};
  const char* pattern = negative ? negativePatterns[qBound(0, settings.NegCurrFormat, 15)]
                                 : positive[qBound(0, settings.CurrencyFormat, 3)];
  QString text;
  for (; *pattern; ++pattern) {
    if (*pattern == '$') text += settings.CurrencyString;
    else if (*pattern == '1') text += number;
    else text += QLatin1Char(*pattern);
  }
  return text;
}

}  // namespace

QString IntToStr(int64_t value) { return QString::number(value); }

QString IntToHexBits(uint64_t bits, int digits) {
  return QString::number(bits, 16).toUpper().rightJustified(digits, u'0');
}

bool TryStrToInt(const QString& text, int& value) {
  int64_t result;
  if (!ParseInteger(text, 32, result)) return false;
  value = int(result);
  return true;
}

int StrToInt(const QString& text) {
  int value;
  if (!TryStrToInt(text, value)) throw EConvertError(Format(SInvalidInteger, {text}));
  return value;
}

int StrToIntDef(const QString& text, int defaultValue) {
  int value;
  return TryStrToInt(text, value) ? value : defaultValue;
}

bool TryStrToInt64(const QString& text, int64_t& value) { return ParseInteger(text, 64, value); }

int64_t StrToInt64(const QString& text) {
  int64_t value;
  if (!TryStrToInt64(text, value)) throw EConvertError(Format(SInvalidInteger, {text}));
  return value;
}

int64_t StrToInt64Def(const QString& text, int64_t defaultValue) {
  int64_t value;
  return TryStrToInt64(text, value) ? value : defaultValue;
}

QString FloatToStrF(double value, TFloatFormat format, int precision, int digits,
                    const TFormatSettings& settings) {
  if (std::isnan(value)) return QStringLiteral("NAN");
  if (std::isinf(value)) return value > 0 ? QStringLiteral("INF") : QStringLiteral("-INF");
  precision = qBound(1, precision, 18);
  DecimalDigits decimal = ToDecimal(value, precision);
  QString text;
  if (format == ffGeneral || format == ffExponent || decimal.exponent > precision) {
    const int expDigits = qBound(0, digits, 4);
    text = format == ffExponent ? Scientific(decimal, precision, true, expDigits, settings.DecimalSeparator)
                                : General(decimal, precision, format == ffGeneral ? expDigits : 0,
                                          settings.DecimalSeparator);
  } else {
    const int decimals = qBound(0, digits, 18);
    decimal.RoundDecimals(decimals);
    const QChar thousands = format == ffFixed ? QChar() : settings.ThousandSeparator;
    text = Fixed(decimal, decimals, thousands, settings.DecimalSeparator);
    if (format == ffCurrency) return CurrencyText(text, decimal.negative && !decimal.digits.isEmpty(), settings);
  }
  return decimal.negative && !decimal.digits.isEmpty() ? QLatin1Char('-') + text : text;
}

QString FloatToStr(double value, const TFormatSettings& settings) {
  return FloatToStrF(value, ffGeneral, 15, 0, settings);
}

QString CurrToStr(Currency value, const TFormatSettings& settings) {
  const uint64_t magnitude = value.scaled < 0 ? 0 - uint64_t(value.scaled) : uint64_t(value.scaled);
  QString text = QString::number(magnitude / Currency::Scale);
  QString fraction = QString::number(magnitude % Currency::Scale).rightJustified(4, u'0');
  while (fraction.endsWith(u'0')) fraction.chop(1);
  if (!fraction.isEmpty()) text += settings.DecimalSeparator + fraction;
  return value.scaled < 0 ? QLatin1Char('-') + text : text;
}

Currency Currency::FromDouble(double value) {
  const double scaled = std::nearbyint(value * double(Scale));
  if (!(std::fabs(scaled) < 9.2233720368547758e18)) throw EConvertError(SOverflow);
  return Currency{int64_t(scaled)};
}

bool TryStrToFloat(const QString& text, double& value, const TFormatSettings& settings) {
  return ParseFloat(text, settings.DecimalSeparator, value);
}

double StrToFloat(const QString& text, const TFormatSettings& settings) {
  double value;
  if (!TryStrToFloat(text, value, settings)) throw EConvertError(Format(SInvalidFloat, {text}));
  return value;
}

double StrToFloatDef(const QString& text, double defaultValue, const TFormatSettings& settings) {
  double value;
  return TryStrToFloat(text, value, settings) ? value : defaultValue;
}

QString BoolToStr(bool value, bool useBoolStrs) {
  if (useBoolStrs) return value ? STextTrue : STextFalse;
  return value ? QStringLiteral("-1") : QStringLiteral("0");
}

bool TryStrToBool(const QString& text, bool& value) {
  double number;
  if (TryStrToFloat(text, number)) value = number != 0;
  else if (AnsiSameText(text, STextTrue)) value = true;
  else if (AnsiSameText(text, STextFalse)) value = false;
  else return false;
  return true;
}

bool StrToBool(const QString& text) {
  bool value;
  if (!TryStrToBool(text, value)) throw EConvertError(Format(SInvalidBoolean, {text}));
  return value;
}

bool StrToBoolDef(const QString& text, bool defaultValue) {
  bool value;
  return TryStrToBool(text, value) ? value : defaultValue;
}

bool IsGuidText(const QString& text) {
  static constexpr char kShape[] = "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}";
  if (text.size() != int(sizeof(kShape)) - 1) return false;
  for (int at = 0; at < text.size(); ++at) {
    const bool fits = kShape[at] == 'x' ? DigitValue(text[at], 16) >= 0 : text[at] == QLatin1Char(kShape[at]);
    if (!fits) return false;
  }
  return true;
}

void CheckGuidText(const QString& text) {
  if (!IsGuidText(text)) throw EConvertError(Format(SInvalidGUID, {text}));
}

}  // namespace quil
