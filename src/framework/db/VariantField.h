#pragma once
// A field whose value is any variant, held as it is given; the other accessors convert
// that value as a variant converts, and raise as it raises.

#include "framework/db/Field.h"

namespace quil {

class TVariantField : public TField {
public:
  explicit TVariantField(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

protected:
  QString GetAsString() const override { return VarToStr(GetAsVariant()); }
  void SetAsStringValue(const QString& value) override { SetVarValue(Variant(value)); }
  int GetAsInteger() const override { return GetAsVariant().AsInteger(); }
  void SetAsIntegerValue(int value) override { SetVarValue(Variant(value)); }
  double GetAsFloat() const override { return GetAsVariant().AsDouble(); }
  void SetAsFloatValue(double value) override { SetVarValue(Variant(value)); }
  bool GetAsBoolean() const override { return GetAsVariant().AsBoolean(); }
  void SetAsBooleanValue(bool value) override { SetVarValue(Variant(value)); }
  TDateTime GetAsDateTime() const override { return GetAsVariant().AsDateTime(); }
  void SetAsDateTimeValue(TDateTime value) override { SetVarValue(Variant::FromDateTime(value)); }
  void SetVarValue(const Variant& value) override { SetData(&value); }
};

}  // namespace quil
