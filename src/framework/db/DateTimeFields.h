#pragma once
// Date and time fields, native TDateTime. Without DisplayFormat a date shows in the
// short date format, a time in the long time format and a date-time in both ("c").

#include "framework/db/Field.h"

namespace quil {

class TDateTimeField : public TField {
public:
  explicit TDateTimeField(TComponent* owner) : TDateTimeField(owner, ftDateTime) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& DisplayFormat() const { return displayFormat_; }
  void SetDisplayFormat(const QString& format);

protected:
  TDateTimeField(TComponent* owner, TFieldType type);
  int DefaultWidth() const override { return DataType() == ftDate || DataType() == ftTime ? 10 : 18; }
  QString GetAsString() const override;
  void SetAsStringValue(const QString& value) override;
  double GetAsFloat() const override { return GetAsDateTime(); }
  void SetAsFloatValue(double value) override { SetAsDateTime(value); }
  TDateTime GetAsDateTime() const override;
  void SetAsDateTimeValue(TDateTime value) override;
  Variant GetAsVariant() const override;
  void SetVarValue(const Variant& value) override { SetAsDateTime(VarToDateTime(value)); }
  void GetText(QString& text, bool displayText) const override;

private:
  QString displayFormat_;
};

class TDateField : public TDateTimeField {
public:
  explicit TDateField(TComponent* owner) : TDateTimeField(owner, ftDate) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TTimeField : public TDateTimeField {
public:
  explicit TTimeField(TComponent* owner) : TDateTimeField(owner, ftTime) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

class TSQLTimeStampField : public TDateTimeField {
public:
  explicit TSQLTimeStampField(TComponent* owner) : TDateTimeField(owner, ftTimeStamp) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

// A time stamp with a zone offset, as its own zone's clock shows it.
// FIXME: the offset itself is not kept; the native form has room for the moment alone.
class TSQLTimeStampOffsetField : public TDateTimeField {
public:
  explicit TSQLTimeStampOffsetField(TComponent* owner) : TDateTimeField(owner, ftTimeStampOffset) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

}  // namespace quil
