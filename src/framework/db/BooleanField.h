#pragma once
// A Boolean field, native bool. DisplayValues is "true text;false text", and entered
// text is taken when it begins either text (case-insensitive).

#include "framework/db/Field.h"

namespace quil {

class TBooleanField : public TField {
public:
  explicit TBooleanField(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& DisplayValues() const { return displayValues_; }
  void SetDisplayValues(const QString& values);

protected:
  int DefaultWidth() const override;
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  bool GetAsBoolean() const override;
  void SetAsBooleanValue(bool value) override { SetData(&value); }
  int GetAsInteger() const override { return GetAsBoolean() ? 1 : 0; }
  void SetAsIntegerValue(int value) override { SetAsBoolean(value != 0); }
  void SetVarValue(const Variant& value) override { SetAsBoolean(value.AsBoolean()); }

private:
  QString displayValues_;
  QString trueText_;
  QString falseText_;
};

}  // namespace quil
