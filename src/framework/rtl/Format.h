#pragma once
// Format with the framework's directives: "%" [index ":"] ["-"] [width] ["." precision]
// type, where "*" in place of index, width or precision takes it from the arguments.
// An index moves the argument pointer, and directives without one go on from there.
//   d, u, x  an integer; precision is the least number of digits, zero-padded. A
//            32-bit argument gives 32-bit hexadecimal and unsigned forms.
//   e        scientific, precision significant digits (default 15), "E+ddd".
//   f, n     fixed with precision decimals (default 2); n groups thousands.
//   g        the shorter of fixed and scientific with precision significant digits
//            (default 15), as FloatToStr writes it.
//   m        money with precision decimals (default CurrencyDecimals), placed by
//            CurrencyFormat and NegCurrFormat.
//   s        text, at most precision characters.   p  a pointer in hexadecimal.
// "%%" is a percent sign. Reals use the separators of the format settings. Integers are
// not accepted for reals nor reals for integers; a variant is converted to what the
// directive needs. A directive that does not fit its argument raises EConvertError.

#include <QString>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <variant>

#include "framework/rtl/FormatSettings.h"

namespace quil {

class Variant;

class TVarRec {
public:
  using ValueType = std::variant<int64_t, double, QString, const void*, std::shared_ptr<const Variant>>;

  TVarRec(int value) : value_(int64_t(value)), narrow_(true) {}
  TVarRec(unsigned value) : value_(int64_t(value)), narrow_(true) {}
  TVarRec(long value) : value_(int64_t(value)) {}
  TVarRec(unsigned long value) : value_(int64_t(value)) {}
  TVarRec(long long value) : value_(int64_t(value)) {}
  TVarRec(unsigned long long value) : value_(int64_t(value)) {}
  TVarRec(double value) : value_(value) {}
  TVarRec(const QString& value) : value_(value) {}
  TVarRec(const char* value) : value_(QString::fromUtf8(value)) {}
  TVarRec(QChar value) : value_(QString(value)) {}
  TVarRec(const void* value) : value_(value) {}
  TVarRec(const Variant& value);

  const ValueType& Value() const { return value_; }
  // True for a 32-bit integer.
  bool IsNarrow() const { return narrow_; }

private:
  ValueType value_;
  bool narrow_ = false;
};

QString Format(const QString& format, std::initializer_list<TVarRec> args);
QString Format(const QString& format, std::initializer_list<TVarRec> args, const TFormatSettings& settings);

}  // namespace quil
