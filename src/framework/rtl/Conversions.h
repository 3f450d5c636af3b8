#pragma once
// Number and boolean text conversions. Texts follow the framework's conversions: integers
// may carry leading blanks, a sign and a hexadecimal prefix ("$", "0x" or "x") but
// nothing after the digits; reals use the decimal separator of the settings and no
// thousand separators. Str... raise EConvertError, ...Def return the default, and
// TryStr... report failure.

#include <QString>
#include <concepts>
#include <cstdint>

#include "framework/rtl/Currency.h"
#include "framework/rtl/FormatSettings.h"

namespace quil {

QString IntToStr(int64_t value);

// Upper-case hexadecimal of the value's own width (a negative int gives 8 digits),
// padded with zeros to at least `digits`.
QString IntToHexBits(uint64_t bits, int digits);
template <std::integral T>
QString IntToHex(T value, int digits) {
  using Unsigned = std::make_unsigned_t<T>;
  return IntToHexBits(uint64_t(Unsigned(value)), digits);
}

int StrToInt(const QString& text);
int StrToIntDef(const QString& text, int defaultValue);
bool TryStrToInt(const QString& text, int& value);
int64_t StrToInt64(const QString& text);
int64_t StrToInt64Def(const QString& text, int64_t defaultValue);
bool TryStrToInt64(const QString& text, int64_t& value);

enum TFloatFormat { ffGeneral, ffExponent, ffFixed, ffNumber, ffCurrency };

// `precision` is the number of significant digits (at most 18); `digits` is the least
// number of exponent digits for ffGeneral and ffExponent, and the number of decimals
// for the others. Halves round away from zero; a zero result has no minus sign.
QString FloatToStrF(double value, TFloatFormat format, int precision, int digits,
                    const TFormatSettings& settings = FormatSettings);
// Fifteen significant digits, fixed notation unless the number is too large or small.
QString FloatToStr(double value, const TFormatSettings& settings = FormatSettings);
QString CurrToStr(Currency value, const TFormatSettings& settings = FormatSettings);

double StrToFloat(const QString& text, const TFormatSettings& settings = FormatSettings);
double StrToFloatDef(const QString& text, double defaultValue,
                     const TFormatSettings& settings = FormatSettings);
bool TryStrToFloat(const QString& text, double& value,
                   const TFormatSettings& settings = FormatSettings);

// STextTrue and STextFalse, or "-1" and "0" when useBoolStrs is false.
QString BoolToStr(bool value, bool useBoolStrs = false);
// Accepts STextTrue or STextFalse in any case, or a number, true when not zero.
bool StrToBool(const QString& text);
bool StrToBoolDef(const QString& text, bool defaultValue);
bool TryStrToBool(const QString& text, bool& value);

// A GUID's braced text: "{" 8-4-4-4-12 hexadecimal digits "}", either case.
bool IsGuidText(const QString& text);
// Raises EConvertError (SInvalidGUID) for a text that IsGuidText refuses.
void CheckGuidText(const QString& text);

}  // namespace quil
