#pragma once
// Text fields. Their native form is QString; Size is the most characters they keep.

#include "framework/db/Field.h"

namespace quil {

class TStringField : public TField {
public:
  explicit TStringField(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Blank-padded to Size, as a CHAR column.
  bool FixedChar() const { return DataType() == ftFixedChar || DataType() == ftFixedWideChar; }

protected:
  int DefaultWidth() const override { return Size(); }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  int GetAsInteger() const override;
  void SetAsIntegerValue(int value) override;
  int64_t GetAsLargeInt() const override;
  void SetAsLargeIntValue(int64_t value) override;
  double GetAsFloat() const override;
  void SetAsFloatValue(double value) override;
  bool GetAsBoolean() const override;
  void SetAsBooleanValue(bool value) override;
  TDateTime GetAsDateTime() const override;
  void SetAsDateTimeValue(TDateTime value) override;
  void SetVarValue(const Variant& value) override { SetAsString(value.AsString()); }
};

class TWideStringField : public TStringField {
public:
  explicit TWideStringField(TComponent* owner);
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// A GUID in its braced text form, 38 characters. Any other text raises EConvertError
// and changes nothing; an empty text clears the field, as a GUID has no empty value.
class TGuidField : public TStringField {
public:
  explicit TGuidField(TComponent* owner);
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

protected:
  void SetAsStringValue(const QString& value) override;
};

}  // namespace quil
