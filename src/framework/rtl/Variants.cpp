#include "framework/rtl/Variants.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "framework/rtl/Conversions.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {
namespace {

int64_t RoundToInt64(double value) {
  const double rounded = std::nearbyint(value);
  if (!(std::fabs(rounded) < 9.2233720368547758e18)) throw EVariantError(SOverflow);
  return int64_t(rounded);
}

bool IsIntegral(TVarType type) { return type == varSmallint || type == varInteger || type == varInt64; }

}  // namespace

Variant Variant::FromDateTime(TDateTime value) { return Variant(varDate, value); }

Variant Variant::MakeNull() {
  Variant result;
  result.type_ = varNull;
  return result;
}

Variant Variant::MakeArray(int low, int high) {
  Variant result;
  result.type_ = varArray | varVariant;
  auto array = std::make_shared<Array>();
  array->low = low;
  array->items.resize(size_t(std::max(high - low + 1, 0)));
  result.data_ = std::move(array);
  return result;
}

void Variant::CastError() const { throw EVariantError(SInvalidVarCast); }

const Variant::Array& Variant::Elements() const {
  const auto* array = std::get_if<std::shared_ptr<Array>>(&data_);
  if (!array) throw EVariantError(SVarNotArray);
  return **array;
}

int64_t Variant::StringToInt64() const {
  int64_t integer;
  double real;
  bool boolean;
  if (TryStrToInt64(Text(), integer)) return integer;
  if (TryStrToFloat(Text(), real)) return RoundToInt64(real);
  if (TryStrToBool(Text(), boolean)) return boolean ? -1 : 0;
  CastError();
}

double Variant::StringToDouble() const {
  double real;
  bool boolean;
  if (TryStrToFloat(Text(), real)) return real;
  if (TryStrToBool(Text(), boolean)) return boolean ? -1 : 0;
  CastError();
}

int64_t Variant::AsInt64() const {
  switch (type_) {
    case varEmpty: return 0;
    case varSmallint: case varInteger: case varInt64: return Integral();
    case varBoolean: return Integral() ? -1 : 0;
    case varDouble: case varDate: return RoundToInt64(Real());
    case varCurrency: return RoundToInt64(AsDouble());
    case varString: return StringToInt64();
    default: CastError();
  }
}

int Variant::AsInteger() const {
  const int64_t value = AsInt64();
  if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max())
    throw EVariantError(SOverflow);
  return int(value);
}

double Variant::AsDouble() const {
  switch (type_) {
    case varEmpty: return 0;
    case varSmallint: case varInteger: case varInt64: case varBoolean: return double(AsInt64());
    case varDouble: case varDate: return Real();
    case varCurrency: return Currency::FromScaled(Integral()).ToDouble();
    case varString: return StringToDouble();
    default: CastError();
  }
}

Currency Variant::AsCurrency() const {
  if (type_ == varCurrency) return Currency::FromScaled(Integral());
  if (IsIntegral(type_) || type_ == varBoolean) {
    const int64_t value = AsInt64();
    if (value > INT64_MAX / Currency::Scale || value < INT64_MIN / Currency::Scale) throw EVariantError(SOverflow);
    return Currency::FromScaled(value * Currency::Scale);
  }
  const double value = AsDouble();
  if (!(std::fabs(value) < 9.2233720368547758e14)) throw EVariantError(SOverflow);
  return Currency::FromDouble(value);
}

bool Variant::AsBoolean() const {
  bool boolean;
  switch (type_) {
    case varEmpty: return false;
    case varSmallint: case varInteger: case varInt64: case varBoolean: case varCurrency: return Integral() != 0;
    case varDouble: case varDate: return Real() != 0;
    case varString:
      if (!TryStrToBool(Text(), boolean)) CastError();
      return boolean;
    default: CastError();
  }
}

QString Variant::AsString() const {
  switch (type_) {
    case varEmpty: return {};
    case varSmallint: case varInteger: case varInt64: return IntToStr(Integral());
    case varBoolean: return Integral() ? STextTrue : STextFalse;
    case varDouble: return FloatToStr(Real());
    case varDate: return DateTimeToStr(Real());
    case varCurrency: return CurrToStr(Currency::FromScaled(Integral()));
    case varString: return Text();
    default: CastError();
  }
}

TDateTime Variant::AsDateTime() const {
  if (type_ != varString) return AsDouble();
  TDateTime value;
  if (!TryStrToDateTime(Text(), value)) CastError();
  return value;
}

int Variant::LowBound() const { return Elements().low; }
int Variant::HighBound() const { return Elements().low + int(Elements().items.size()) - 1; }

size_t Variant::Offset(int index) const {
  const Array& array = Elements();
  const int64_t offset = int64_t(index) - array.low;
  if (offset < 0 || offset >= int64_t(array.items.size())) throw EVariantError(SVarArrayBounds);
  return size_t(offset);
}

const Variant& Variant::operator[](int index) const { return Elements().items[Offset(index)]; }

// Arrays are values: a shared array is copied before an element changes.
Variant& Variant::operator[](int index) {
  const size_t offset = Offset(index);
  auto& array = std::get<std::shared_ptr<Array>>(data_);
  if (array.use_count() > 1) array = std::make_shared<Array>(*array);
  return array->items[offset];
}

Variant Unassigned() { return Variant(); }
Variant Null() { return Variant::MakeNull(); }
Variant VarFromDateTime(TDateTime value) { return Variant::FromDateTime(value); }
Variant VarArrayCreate(int low, int high) { return Variant::MakeArray(low, high); }
Variant VarArrayOf(std::initializer_list<Variant> values) { return VarArrayOf(std::vector<Variant>(values)); }

Variant VarArrayOf(const std::vector<Variant>& values) {
  Variant result = Variant::MakeArray(0, int(values.size()) - 1);
  for (size_t index = 0; index < values.size(); ++index) result[int(index)] = values[index];
  return result;
}

bool VarIsOrdinal(const Variant& value) { return IsIntegral(value.Type()) || value.Type() == varBoolean; }
bool VarIsFloat(const Variant& value) { return value.Type() == varDouble || value.Type() == varCurrency; }
bool VarIsNumeric(const Variant& value) { return VarIsOrdinal(value) || VarIsFloat(value); }

int VarArrayDimCount(const Variant& value) { return VarIsArray(value) ? 1 : 0; }

int VarArrayLowBound(const Variant& value, int dimension) {
  if (dimension != 1) throw EVariantError(SVarArrayBounds);
  return value.LowBound();
}

int VarArrayHighBound(const Variant& value, int dimension) {
  if (dimension != 1) throw EVariantError(SVarArrayBounds);
  return value.HighBound();
}

QString VarToStr(const Variant& value) { return VarToStrDef(value, QString()); }

QString VarToStrDef(const Variant& value, const QString& defaultValue) {
  return VarIsNull(value) ? defaultValue : value.AsString();
}

TDateTime VarToDateTime(const Variant& value) { return value.AsDateTime(); }

Variant VarAsType(const Variant& value, TVarType type) {
  if (type == value.Type() || type == varVariant) return value;
  if (type == varEmpty) return Unassigned();
  if (type == varNull) return Null();
  switch (type) {
    case varSmallint: {
      const int64_t integer = value.AsInt64();
      if (integer < INT16_MIN || integer > INT16_MAX) throw EVariantError(SOverflow);
      return Variant(short(integer));
    }
    case varInteger: return Variant(value.AsInteger());
    case varInt64: return Variant(static_cast<long long>(value.AsInt64()));
    case varDouble: return Variant(value.AsDouble());
    case varCurrency: return Variant(value.AsCurrency());
    case varDate: return Variant::FromDateTime(value.AsDateTime());
    case varBoolean: return Variant(value.AsBoolean());
    case varString: return Variant(value.AsString());
    default: value.CastError();
  }
}

}  // namespace quil
