#include <cmath>
#include <limits>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/Variants.h"

namespace quil {
namespace {

enum class Op { Add, Subtract, Multiply, Divide };
enum class Kind { Integer, Currency, Real, Date };

template <typename T>
TVariantRelationship Relation(T a, T b) {
  return a < b ? vrLessThan : b < a ? vrGreaterThan : a == b ? vrEqual : vrNotEqual;
}

bool IsNarrow(TVarType type) {
  return type == varEmpty || type == varSmallint || type == varInteger || type == varBoolean;
}

bool IsTextual(const Variant& value) { return VarIsStr(value) || VarIsEmpty(value); }

// Rounds a quotient half to even, as currency arithmetic does.
int64_t DivideRounded(__int128 numerator, __int128 denominator) {
  __int128 quotient = numerator / denominator;
  const __int128 remainder = numerator % denominator;
  const __int128 twice = 2 * (remainder < 0 ? -remainder : remainder);
  const __int128 divisor = denominator < 0 ? -denominator : denominator;
  if (twice > divisor || (twice == divisor && quotient % 2 != 0))
    quotient += (numerator < 0) == (denominator < 0) ? 1 : -1;
  if (quotient > std::numeric_limits<int64_t>::max() || quotient < std::numeric_limits<int64_t>::min())
    throw EVariantError(SOverflow);
  return int64_t(quotient);
}

Kind ResultKind(const Variant& a, const Variant& b, Op op) {
  const TVarType ta = a.Type(), tb = b.Type();
  if (ta == varDate || tb == varDate) {
    if (op == Op::Add || (op == Op::Subtract && ta != tb)) return Kind::Date;
    return Kind::Real;
  }
  if (ta == varDouble || tb == varDouble || ta == varString || tb == varString) return Kind::Real;
  if (ta == varCurrency || tb == varCurrency) return Kind::Currency;
  return op == Op::Divide ? Kind::Real : Kind::Integer;
}

double RealResult(double a, double b, Op op) {
  switch (op) {
    case Op::Add: return a + b;
    case Op::Subtract: return a - b;
    case Op::Multiply: return a * b;
    case Op::Divide:
      if (b == 0) throw EVariantError(SDivByZero);
      return a / b;
  }
  return 0;
}

Variant IntegerResult(const Variant& a, const Variant& b, Op op) {
  int64_t result;
  const int64_t x = a.AsInt64(), y = b.AsInt64();
  const bool overflow = op == Op::Add        ? __builtin_add_overflow(x, y, &result)
                        : op == Op::Subtract ? __builtin_sub_overflow(x, y, &result)
                                             : __builtin_mul_overflow(x, y, &result);
  if (overflow) throw EVariantError(SOverflow);
  if (IsNarrow(a.Type()) && IsNarrow(b.Type()) && result >= std::numeric_limits<int>::min() &&
      result <= std::numeric_limits<int>::max())
    return Variant(int(result));
  return Variant(static_cast<long long>(result));
}

Variant CurrencyResult(const Variant& a, const Variant& b, Op op) {
  const __int128 x = a.AsCurrency().scaled, y = b.AsCurrency().scaled;
  switch (op) {
    case Op::Add: return Variant(Currency::FromScaled(DivideRounded(x + y, 1)));
    case Op::Subtract: return Variant(Currency::FromScaled(DivideRounded(x - y, 1)));
    case Op::Multiply: return Variant(Currency::FromScaled(DivideRounded(x * y, Currency::Scale)));
    case Op::Divide:
      if (y == 0) throw EVariantError(SDivByZero);
      return Variant(Currency::FromScaled(DivideRounded(x * Currency::Scale, y)));
  }
  return Variant();
}

Variant Apply(const Variant& a, const Variant& b, Op op) {
  if (VarIsNull(a) || VarIsNull(b)) return Null();
  if (VarIsArray(a) || VarIsArray(b)) throw EVariantError(SInvalidVarOp);
  if (VarIsEmpty(a) && VarIsEmpty(b)) return Unassigned();
  if (op == Op::Add && IsTextual(a) && IsTextual(b)) return Variant(a.AsString() + b.AsString());
  switch (ResultKind(a, b, op)) {
    case Kind::Integer: return IntegerResult(a, b, op);
    case Kind::Currency: return CurrencyResult(a, b, op);
    case Kind::Date: return Variant::FromDateTime(RealResult(a.AsDateTime(), b.AsDateTime(), op));
    case Kind::Real: break;
  }
  return Variant(RealResult(a.AsDouble(), b.AsDouble(), op));
}

bool SameArrays(const Variant& a, const Variant& b) {
  if (!VarIsArray(a) || !VarIsArray(b) || a.LowBound() != b.LowBound() || a.HighBound() != b.HighBound())
    return false;
  for (int index = a.LowBound(); index <= a.HighBound(); ++index)
    if (!VarSameValue(a[index], b[index])) return false;
  return true;
}

// Two values that are neither empty, Null nor arrays.
TVariantRelationship Order(const Variant& a, const Variant& b) {
  const TVarType ta = a.Type(), tb = b.Type();
  if (ta == varString && tb == varString) return Relation(AnsiCompareStr(a.AsString(), b.AsString()), 0);
  if (ta == varDate || tb == varDate) return Relation(a.AsDateTime(), b.AsDateTime());
  if (ta == varBoolean || tb == varBoolean) {
    if ((ta == varBoolean || ta == varString) && (tb == varBoolean || tb == varString))
      return Relation(int(a.AsBoolean()), int(b.AsBoolean()));
  }
  if (VarIsOrdinal(a) && VarIsOrdinal(b)) return Relation(a.AsInt64(), b.AsInt64());
  if (ta == varCurrency && tb == varCurrency) return Relation(a.AsCurrency().scaled, b.AsCurrency().scaled);
  return Relation(a.AsDouble(), b.AsDouble());
}

}  // namespace

TVariantRelationship VarCompareValue(const Variant& a, const Variant& b) {
  const TVarType ta = a.Type(), tb = b.Type();
  if (ta == varEmpty || ta == varNull || tb == varEmpty || tb == varNull) return ta == tb ? vrEqual : vrNotEqual;
  if (VarIsArray(a) || VarIsArray(b)) return SameArrays(a, b) ? vrEqual : vrNotEqual;
  return Order(a, b);
}

bool operator==(const Variant& a, const Variant& b) { return VarCompareValue(a, b) == vrEqual; }
Variant operator+(const Variant& a, const Variant& b) { return Apply(a, b, Op::Add); }
Variant operator-(const Variant& a, const Variant& b) { return Apply(a, b, Op::Subtract); }
Variant operator*(const Variant& a, const Variant& b) { return Apply(a, b, Op::Multiply); }
Variant operator/(const Variant& a, const Variant& b) { return Apply(a, b, Op::Divide); }
Variant operator-(const Variant& a) { return VarIsEmpty(a) ? a : Apply(Variant(0), a, Op::Subtract); }

}  // namespace quil
