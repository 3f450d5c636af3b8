#pragma once
// Number fields: the integer kinds (native int32_t, or int64_t for the 64-bit ones),
// the real kinds (double) and BCD (Currency). A value outside MinValue..MaxValue is
// refused with EDatabaseError; for reals, both bounds 0 means no bounds.

#include <climits>

#include "framework/db/Field.h"

namespace quil {

class TNumericField : public TField {
public:
  explicit TNumericField(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& DisplayFormat() const { return displayFormat_; }
  void SetDisplayFormat(const QString& format);
  const QString& EditFormat() const { return editFormat_; }
  void SetEditFormat(const QString& format);

  // Digits and signs; reals add the decimal separator and the exponent letters.
  bool IsValidChar(QChar ch) const override;

protected:
  virtual bool AcceptsReal() const { return false; }
  // The text by EditFormat (editing) or DisplayFormat; false when neither applies.
  bool FormattedText(QString& text, bool displayText) const;
  void GetText(QString& text, bool displayText) const override;
  [[noreturn]] void InvalidText(const QString& text, const QString& message) const;
  // An integer text: empty clears, anything else must be a whole number.
  void SetIntegerText(const QString& value);

private:
  QString displayFormat_;
  QString editFormat_;
};

class TIntegerField : public TNumericField {
public:
  explicit TIntegerField(TComponent* owner) : TIntegerField(owner, ftInteger, INT_MIN, INT_MAX) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int MinValue() const { return minValue_; }
  void SetMinValue(int value) { minValue_ = value; }
  int MaxValue() const { return maxValue_; }
  void SetMaxValue(int value) { maxValue_ = value; }

protected:
  TIntegerField(TComponent* owner, TFieldType type, int minValue, int maxValue);
  void CheckRange(int64_t value) const;
  int DefaultWidth() const override { return 11; }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  int GetAsInteger() const override;
  void SetAsIntegerValue(int value) override;
  void SetAsLargeIntValue(int64_t value) override;
  double GetAsFloat() const override { return GetAsInteger(); }
  void SetAsFloatValue(double value) override;
  bool GetAsBoolean() const override { return GetAsInteger() != 0; }
  void SetAsBooleanValue(bool value) override { SetAsInteger(value ? 1 : 0); }
  void SetVarValue(const Variant& value) override { SetAsLargeInt(value.AsInt64()); }

private:
  int minValue_;
  int maxValue_;
};

class TSmallintField : public TIntegerField {
public:
  explicit TSmallintField(TComponent* owner) : TIntegerField(owner, ftSmallint, -32768, 32767) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TWordField : public TIntegerField {
public:
  explicit TWordField(TComponent* owner) : TIntegerField(owner, ftWord, 0, 65535) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TAutoIncField : public TIntegerField {
public:
  explicit TAutoIncField(TComponent* owner) : TIntegerField(owner, ftAutoInc, INT_MIN, INT_MAX) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TShortintField : public TIntegerField {
public:
  explicit TShortintField(TComponent* owner) : TIntegerField(owner, ftShortint, -128, 127) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TByteField : public TIntegerField {
public:
  explicit TByteField(TComponent* owner) : TIntegerField(owner, ftByte, 0, 255) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TLargeintField : public TNumericField {
public:
  explicit TLargeintField(TComponent* owner)
      : TLargeintField(owner, ftLargeint, INT64_MIN, INT64_MAX) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

protected:
  TLargeintField(TComponent* owner, TFieldType type, int64_t minValue, int64_t maxValue);
  int DefaultWidth() const override { return 15; }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  int GetAsInteger() const override { return int(GetAsLargeInt()); }
  void SetAsIntegerValue(int value) override { SetAsLargeInt(value); }
  int64_t GetAsLargeInt() const override;
  void SetAsLargeIntValue(int64_t value) override;
  double GetAsFloat() const override { return double(GetAsLargeInt()); }
  void SetAsFloatValue(double value) override;
  void SetVarValue(const Variant& value) override { SetAsLargeInt(value.AsInt64()); }

private:
  int64_t minValue_;
  int64_t maxValue_;
};

class TLongWordField : public TLargeintField {
public:
  explicit TLongWordField(TComponent* owner) : TLargeintField(owner, ftLongWord, 0, 4294967295LL) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TFloatField : public TNumericField {
public:
  explicit TFloatField(TComponent* owner) : TFloatField(owner, ftFloat, 15) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Money display: the currency format of the format settings.
  bool Currency() const { return currency_; }
  void SetCurrency(bool value);
  // Significant digits of the display text.
  int Precision() const { return precision_; }
  void SetPrecision(int value);
  double MinValue() const { return minValue_; }
  void SetMinValue(double value) { minValue_ = value; }
  double MaxValue() const { return maxValue_; }
  void SetMaxValue(double value) { maxValue_ = value; }

protected:
  TFloatField(TComponent* owner, TFieldType type, int precision);
  bool AcceptsReal() const override { return true; }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  int GetAsInteger() const override;
  void SetAsIntegerValue(int value) override { SetAsFloat(value); }
  int64_t GetAsLargeInt() const override;
  void SetAsLargeIntValue(int64_t value) override { SetAsFloat(double(value)); }
  double GetAsFloat() const override;
  void SetAsFloatValue(double value) override;
  void GetText(QString& text, bool displayText) const override;
  void SetVarValue(const Variant& value) override { SetAsFloat(value.AsDouble()); }

private:
  bool currency_ = false;
  int precision_;
  double minValue_ = 0;
  double maxValue_ = 0;
};

class TCurrencyField : public TFloatField {
public:
  explicit TCurrencyField(TComponent* owner);
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TSingleField : public TFloatField {
public:
  explicit TSingleField(TComponent* owner) : TFloatField(owner, ftSingle, 7) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TExtendedField : public TFloatField {
public:
  explicit TExtendedField(TComponent* owner) : TFloatField(owner, ftExtended, 18) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// Kept as a double: this library has no arbitrary-precision decimal type.
class TFMTBCDField : public TFloatField {
public:
  explicit TFMTBCDField(TComponent* owner) : TFloatField(owner, ftFMTBcd, 18) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// An exact decimal with four places, native Currency; Size is the decimals shown.
class TBCDField : public TNumericField {
public:
  explicit TBCDField(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Currency() const { return currency_; }
  void SetCurrency(bool value);
  int Precision() const { return precision_; }
  void SetPrecision(int value) { precision_ = value; }

protected:
  bool AcceptsReal() const override { return true; }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  int GetAsInteger() const override;
  void SetAsIntegerValue(int value) override { SetAsCurrency(quil::Currency::FromScaled(int64_t(value) * quil::Currency::Scale)); }
  double GetAsFloat() const override { return GetAsCurrency().ToDouble(); }
  void SetAsFloatValue(double value) override { SetAsCurrency(quil::Currency::FromDouble(value)); }
  quil::Currency GetAsCurrency() const override;
  void SetAsCurrencyValue(quil::Currency value) override { SetData(&value); }
  void GetText(QString& text, bool displayText) const override;
  void SetVarValue(const Variant& value) override { SetAsCurrency(value.AsCurrency()); }

private:
  bool currency_ = false;
  int precision_ = 18;
};

}  // namespace quil
