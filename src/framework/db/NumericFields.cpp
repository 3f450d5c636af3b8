#include "framework/db/NumericFields.h"

#include <cmath>

#include "framework/db/DataSet.h"
#include "framework/db/NumberFormat.h"

#include "framework/rtl/Conversions.h"
#include "framework/rtl/FormatSettings.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

// --- TNumericField --------------------------------------------------------------------

const TMetaClass& TNumericField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TNumericField", &TField::StaticClass())
      .Published(StrProp("DisplayFormat", &TNumericField::DisplayFormat, &TNumericField::SetDisplayFormat))
      .Published(StrProp("EditFormat", &TNumericField::EditFormat, &TNumericField::SetEditFormat));
  return meta;
}

const TMetaClass& TNumericField::ClassType() const { return StaticClass(); }

TNumericField::TNumericField(TComponent* owner) : TField(owner) { SetAlignment(taRightJustify); }

void TNumericField::SetDisplayFormat(const QString& format) {
  if (format == displayFormat_) return;
  displayFormat_ = format;
  PropertyChanged(false);
}

void TNumericField::SetEditFormat(const QString& format) {
  if (format == editFormat_) return;
  editFormat_ = format;
  PropertyChanged(false);
}

bool TNumericField::IsValidChar(QChar ch) const {
  if (ch.isDigit() || ch == QLatin1Char('+') || ch == QLatin1Char('-')) return true;
  return AcceptsReal() && (ch == FormatSettings.DecimalSeparator || ch == QLatin1Char('E') ||
                           ch == QLatin1Char('e'));
}

void TNumericField::InvalidText(const QString& text, const QString& message) const {
  DatabaseError(Format(message, {text, DisplayName()}), DataSet());
}

void TNumericField::SetIntegerText(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  int64_t number = 0;
  if (!TryStrToInt64(value, number)) InvalidText(value, SInvalidIntegerValue);
  SetAsLargeInt(number);
}

// --- Integers -------------------------------------------------------------------------

const TMetaClass& TIntegerField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TIntegerField", &TNumericField::StaticClass()).Creates<TIntegerField>();
  return meta;
}

const TMetaClass& TIntegerField::ClassType() const { return StaticClass(); }

TIntegerField::TIntegerField(TComponent* owner, TFieldType type, int minValue, int maxValue)
    : TNumericField(owner), minValue_(minValue), maxValue_(maxValue) {
  SetDataType(type);
}

void TIntegerField::CheckRange(int64_t value) const {
  if (value < minValue_ || value > maxValue_) RangeError(double(value), minValue_, maxValue_);
}

QString TIntegerField::GetAsString() const {
  int32_t value = 0;
  return GetData(&value) ? IntToStr(value) : QString();
}

void TIntegerField::SetAsStringValue(const QString& value) { SetIntegerText(value); }

int TIntegerField::GetAsInteger() const {
  return NativeValue<int32_t>();
}

void TIntegerField::SetAsIntegerValue(int value) {
  CheckRange(value);
  const int32_t stored = value;
  SetData(&stored);
}

void TIntegerField::SetAsLargeIntValue(int64_t value) {
  CheckRange(value);
  SetAsInteger(int(value));
}

void TIntegerField::SetAsFloatValue(double value) { SetAsLargeInt(int64_t(std::nearbyint(value))); }

const TMetaClass& TSmallintField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TSmallintField", &TIntegerField::StaticClass()).Creates<TSmallintField>();
  return meta;
}

const TMetaClass& TSmallintField::ClassType() const { return StaticClass(); }
const TMetaClass& TWordField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TWordField", &TIntegerField::StaticClass()).Creates<TWordField>();
  return meta;
}

const TMetaClass& TWordField::ClassType() const { return StaticClass(); }
const TMetaClass& TAutoIncField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TAutoIncField", &TIntegerField::StaticClass()).Creates<TAutoIncField>();
  return meta;
}

const TMetaClass& TAutoIncField::ClassType() const { return StaticClass(); }
const TMetaClass& TShortintField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TShortintField", &TIntegerField::StaticClass()).Creates<TShortintField>();
  return meta;
}

const TMetaClass& TShortintField::ClassType() const { return StaticClass(); }
const TMetaClass& TByteField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TByteField", &TIntegerField::StaticClass()).Creates<TByteField>();
  return meta;
}

const TMetaClass& TByteField::ClassType() const { return StaticClass(); }
const TMetaClass& TLargeintField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TLargeintField", &TNumericField::StaticClass()).Creates<TLargeintField>();
  return meta;
}

const TMetaClass& TLargeintField::ClassType() const { return StaticClass(); }

TLargeintField::TLargeintField(TComponent* owner, TFieldType type, int64_t minValue, int64_t maxValue)
    : TNumericField(owner), minValue_(minValue), maxValue_(maxValue) {
  SetDataType(type);
}

QString TLargeintField::GetAsString() const {
  int64_t value = 0;
  return GetData(&value) ? IntToStr(value) : QString();
}

void TLargeintField::SetAsStringValue(const QString& value) { SetIntegerText(value); }

int64_t TLargeintField::GetAsLargeInt() const {
  return NativeValue<int64_t>();
}

void TLargeintField::SetAsLargeIntValue(int64_t value) {
  if (value < minValue_ || value > maxValue_) RangeError(double(value), double(minValue_), double(maxValue_));
  SetData(&value);
}

void TLargeintField::SetAsFloatValue(double value) { SetAsLargeInt(int64_t(std::nearbyint(value))); }

const TMetaClass& TLongWordField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TLongWordField", &TLargeintField::StaticClass()).Creates<TLongWordField>();
  return meta;
}

const TMetaClass& TLongWordField::ClassType() const { return StaticClass(); }

// --- Reals ----------------------------------------------------------------------------

const TMetaClass& TFloatField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TFloatField", &TNumericField::StaticClass())
      .Creates<TFloatField>()
      .Published(BoolProp("Currency", &TFloatField::Currency, &TFloatField::SetCurrency).Default(false))
      .Published(IntProp("Precision", &TFloatField::Precision, &TFloatField::SetPrecision).Default(15))
      .Published(FloatProp("MinValue", &TFloatField::MinValue, &TFloatField::SetMinValue))
      .Published(FloatProp("MaxValue", &TFloatField::MaxValue, &TFloatField::SetMaxValue));
  return meta;
}

const TMetaClass& TFloatField::ClassType() const { return StaticClass(); }

TFloatField::TFloatField(TComponent* owner, TFieldType type, int precision)
    : TNumericField(owner), precision_(precision) {
  SetDataType(type);
}

void TFloatField::SetCurrency(bool value) {
  if (value == currency_) return;
  currency_ = value;
  PropertyChanged(false);
}

void TFloatField::SetPrecision(int value) {
  value = qBound(2, value, 18);
  if (value == precision_) return;
  precision_ = value;
  PropertyChanged(false);
}

double TFloatField::GetAsFloat() const {
  return NativeValue<double>();
}

void TFloatField::SetAsFloatValue(double value) {
  if ((minValue_ != 0 || maxValue_ != 0) && (value < minValue_ || value > maxValue_))
    RangeError(value, minValue_, maxValue_);
  SetData(&value);
}

int TFloatField::GetAsInteger() const { return int(std::nearbyint(GetAsFloat())); }
int64_t TFloatField::GetAsLargeInt() const { return int64_t(std::nearbyint(GetAsFloat())); }

QString TFloatField::GetAsString() const {
  double value = 0;
  return GetData(&value) ? FloatToStr(value) : QString();
}

void TFloatField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  double number = 0;
  if (!TryStrToFloat(value, number)) InvalidText(value, SInvalidFloatValue);
  SetAsFloat(number);
}

bool TNumericField::FormattedText(QString& text, bool displayText) const {
  const QString& format = displayText || editFormat_.isEmpty() ? displayFormat_ : editFormat_;
  if (format.isEmpty() || IsNull()) return false;
  text = FormatNumber(format, GetAsFloat());
  return true;
}

void TNumericField::GetText(QString& text, bool displayText) const {
  if (!FormattedText(text, displayText)) TField::GetText(text, displayText);
}

void TFloatField::GetText(QString& text, bool displayText) const {
  if (FormattedText(text, displayText)) return;
  double value = 0;
  if (!GetData(&value)) {
    text.clear();
    return;
  }
  if (currency_)
    text = displayText ? FloatToStrF(value, ffCurrency, precision_, FormatSettings.CurrencyDecimals)
                       : FloatToStrF(value, ffFixed, precision_, FormatSettings.CurrencyDecimals);
  else
    text = FloatToStrF(value, ffGeneral, precision_, 0);
}

const TMetaClass& TCurrencyField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCurrencyField", &TFloatField::StaticClass()).Creates<TCurrencyField>();
  return meta;
}

const TMetaClass& TCurrencyField::ClassType() const { return StaticClass(); }

TCurrencyField::TCurrencyField(TComponent* owner) : TFloatField(owner, ftCurrency, 15) {
  SetCurrency(true);
}

const TMetaClass& TSingleField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TSingleField", &TFloatField::StaticClass()).Creates<TSingleField>();
  return meta;
}

const TMetaClass& TSingleField::ClassType() const { return StaticClass(); }
const TMetaClass& TExtendedField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TExtendedField", &TFloatField::StaticClass()).Creates<TExtendedField>();
  return meta;
}

const TMetaClass& TExtendedField::ClassType() const { return StaticClass(); }
const TMetaClass& TFMTBCDField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TFMTBCDField", &TFloatField::StaticClass()).Creates<TFMTBCDField>();
  return meta;
}

const TMetaClass& TFMTBCDField::ClassType() const { return StaticClass(); }

// --- BCD ------------------------------------------------------------------------------

const TMetaClass& TBCDField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBCDField", &TNumericField::StaticClass())
      .Creates<TBCDField>()
      .Published(BoolProp("Currency", &TBCDField::Currency, &TBCDField::SetCurrency).Default(false))
      .Published(IntProp("Precision", &TBCDField::Precision, &TBCDField::SetPrecision).Default(18))
      .Published(IntProp("Size", &TBCDField::Size, &TBCDField::SetSize).Default(4));
  return meta;
}

const TMetaClass& TBCDField::ClassType() const { return StaticClass(); }

TBCDField::TBCDField(TComponent* owner) : TNumericField(owner) {
  SetDataType(ftBCD);
  SetSize(4);
}

void TBCDField::SetCurrency(bool value) {
  if (value == currency_) return;
  currency_ = value;
  PropertyChanged(false);
}

quil::Currency TBCDField::GetAsCurrency() const {
  return NativeValue<quil::Currency>();
}

int TBCDField::GetAsInteger() const { return int(std::nearbyint(GetAsFloat())); }

QString TBCDField::GetAsString() const {
  quil::Currency value;
  return GetData(&value) ? CurrToStr(value) : QString();
}

void TBCDField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  double number = 0;
  if (!TryStrToFloat(value, number)) InvalidText(value, SInvalidFloatValue);
  SetAsCurrency(quil::Currency::FromDouble(number));
}

void TBCDField::GetText(QString& text, bool displayText) const {
  if (FormattedText(text, displayText)) return;
  quil::Currency value;
  if (!GetData(&value)) {
    text.clear();
    return;
  }
  const TFloatFormat format = displayText && currency_ ? ffCurrency : ffFixed;
  text = FloatToStrF(value.ToDouble(), format, precision_, Size());
}

}  // namespace quil
