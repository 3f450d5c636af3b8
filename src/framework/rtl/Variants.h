#pragma once
// Variant: a value whose type is chosen at run time, with the framework's rules. It may be
// Unassigned (varEmpty, the state of a fresh variant), Null (no value, as a database
// field without one), a number, a currency, a boolean, a string, a date-time, or an
// array of variants.
//
// Conversions raise EVariantError (SInvalidVarCast) where the framework does:
// Null converts to nothing but text through VarToStr, arrays convert to nothing, and a
// string only to what it spells. Unassigned converts to 0, false or "". Booleans are
// -1 and 0 as numbers and STextTrue and STextFalse as text. Reals round to integers
// half to even.
//
// Comparison (VarCompareValue, ==): Unassigned equals only Unassigned and Null only
// Null; otherwise strings compare as strings, and with a number or a date as that;
// numbers compare by value; arrays are equal when their bounds and all elements are.
// Arithmetic: Null in, Null out; Unassigned counts as 0 (or "" for "+" on strings);
// "+" joins two strings; a string with a number is read as a real. Integers stay
// integers, widening to 64 bits on overflow; currency stays exact with integers and
// currency; a date plus or minus a number stays a date; "/" gives a real unless
// currency is divided by an integer or currency.

#include <QString>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <variant>
#include <vector>

#include "framework/rtl/Currency.h"
#include "framework/rtl/DateTime.h"

namespace quil {

using TVarType = uint16_t;
constexpr TVarType varEmpty = 0x0000;
constexpr TVarType varNull = 0x0001;
constexpr TVarType varSmallint = 0x0002;
constexpr TVarType varInteger = 0x0003;
constexpr TVarType varDouble = 0x0005;
constexpr TVarType varCurrency = 0x0006;
constexpr TVarType varDate = 0x0007;
constexpr TVarType varBoolean = 0x000B;
constexpr TVarType varVariant = 0x000C;
constexpr TVarType varInt64 = 0x0014;
constexpr TVarType varString = 0x0100;
constexpr TVarType varTypeMask = 0x0FFF;
constexpr TVarType varArray = 0x2000;

enum TVariantRelationship { vrEqual, vrLessThan, vrGreaterThan, vrNotEqual };

class Variant {
public:
  Variant() = default;
  Variant(short value) : type_(varSmallint), data_(int64_t(value)) {}
  Variant(int value) : type_(varInteger), data_(int64_t(value)) {}
  Variant(long value) : type_(varInt64), data_(int64_t(value)) {}
  Variant(long long value) : type_(varInt64), data_(int64_t(value)) {}
  Variant(unsigned value) : type_(varInt64), data_(int64_t(value)) {}
  Variant(unsigned long value) : type_(varInt64), data_(int64_t(value)) {}
  Variant(unsigned long long value) : type_(varInt64), data_(int64_t(value)) {}
  Variant(double value) : type_(varDouble), data_(value) {}
  Variant(bool value) : type_(varBoolean), data_(int64_t(value)) {}
  Variant(Currency value) : type_(varCurrency), data_(value.scaled) {}
  Variant(const QString& value) : type_(varString), data_(value) {}
  Variant(const char* value) : type_(varString), data_(QString::fromUtf8(value)) {}

  static Variant FromDateTime(TDateTime value);
  static Variant MakeNull();
  // An array of `high - low + 1` Unassigned elements indexed from `low`.
  static Variant MakeArray(int low, int high);

  // The type with varArray added for an array.
  TVarType Type() const { return type_; }

  int AsInteger() const;
  int64_t AsInt64() const;
  double AsDouble() const;
  Currency AsCurrency() const;
  bool AsBoolean() const;
  QString AsString() const;
  TDateTime AsDateTime() const;

  // Array bounds and elements; an index outside the bounds, or a variant that is no
  // array, raises EVariantError.
  int LowBound() const;
  int HighBound() const;
  const Variant& operator[](int index) const;
  Variant& operator[](int index);

  friend bool operator==(const Variant& a, const Variant& b);
  friend Variant operator+(const Variant& a, const Variant& b);
  friend Variant operator-(const Variant& a, const Variant& b);
  friend Variant operator*(const Variant& a, const Variant& b);
  friend Variant operator/(const Variant& a, const Variant& b);
  friend Variant operator-(const Variant& a);
  Variant& operator+=(const Variant& other) { return *this = *this + other; }
  Variant& operator-=(const Variant& other) { return *this = *this - other; }
  Variant& operator*=(const Variant& other) { return *this = *this * other; }
  Variant& operator/=(const Variant& other) { return *this = *this / other; }

private:
  struct Array {
    int low = 0;
    std::vector<Variant> items;
  };

  Variant(TVarType type, int64_t value) : type_(type), data_(value) {}
  Variant(TVarType type, double value) : type_(type), data_(value) {}

  int64_t Integral() const { return std::get<int64_t>(data_); }
  double Real() const { return std::get<double>(data_); }
  const QString& Text() const { return std::get<QString>(data_); }
  const Array& Elements() const;
  size_t Offset(int index) const;
  [[noreturn]] void CastError() const;
  int64_t StringToInt64() const;
  double StringToDouble() const;

  friend Variant VarAsType(const Variant& value, TVarType type);

  TVarType type_ = varEmpty;
  std::variant<std::monostate, int64_t, double, QString, std::shared_ptr<Array>> data_;
};

Variant Unassigned();
Variant Null();
Variant VarFromDateTime(TDateTime value);
Variant VarArrayOf(std::initializer_list<Variant> values);
Variant VarArrayOf(const std::vector<Variant>& values);
Variant VarArrayCreate(int low, int high);

inline TVarType VarType(const Variant& value) { return value.Type(); }
inline bool VarIsType(const Variant& value, TVarType type) { return value.Type() == type; }
inline bool VarIsEmpty(const Variant& value) { return value.Type() == varEmpty; }
inline bool VarIsNull(const Variant& value) { return value.Type() == varNull; }
inline bool VarIsClear(const Variant& value) { return value.Type() == varEmpty; }
inline bool VarIsArray(const Variant& value) { return (value.Type() & varArray) != 0; }
inline bool VarIsStr(const Variant& value) { return value.Type() == varString; }
// Booleans count as ordinal; dates are neither.
bool VarIsOrdinal(const Variant& value);
bool VarIsFloat(const Variant& value);
bool VarIsNumeric(const Variant& value);

int VarArrayDimCount(const Variant& value);
int VarArrayLowBound(const Variant& value, int dimension = 1);
int VarArrayHighBound(const Variant& value, int dimension = 1);

// Null gives the empty string; all else converts as AsString.
QString VarToStr(const Variant& value);
// Null gives `defaultValue`.
QString VarToStrDef(const Variant& value, const QString& defaultValue);
TDateTime VarToDateTime(const Variant& value);
// Converts to one of the types above (varVariant keeps the value as it is).
Variant VarAsType(const Variant& value, TVarType type);

TVariantRelationship VarCompareValue(const Variant& a, const Variant& b);
inline bool VarSameValue(const Variant& a, const Variant& b) { return VarCompareValue(a, b) == vrEqual; }

}  // namespace quil
