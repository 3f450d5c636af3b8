#include "framework/db/DateTimeFields.h"

#include <cmath>

#include "framework/rtl/DateFormat.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TDateTimeField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TDateTimeField", &TField::StaticClass())
      .Creates<TDateTimeField>()
      .Published(StrProp("DisplayFormat", &TDateTimeField::DisplayFormat, &TDateTimeField::SetDisplayFormat));
  return meta;
}

const TMetaClass& TDateTimeField::ClassType() const { return StaticClass(); }

TDateTimeField::TDateTimeField(TComponent* owner, TFieldType type) : TField(owner) { SetDataType(type); }

void TDateTimeField::SetDisplayFormat(const QString& format) {
  if (format == displayFormat_) return;
  displayFormat_ = format;
  PropertyChanged(false);
}

TDateTime TDateTimeField::GetAsDateTime() const {
  return NativeValue<double>();
}

void TDateTimeField::SetAsDateTimeValue(TDateTime value) {
  // A date keeps no time of day and a time no day, as their columns store them.
  if (DataType() == ftDate) value = std::trunc(value);
  else if (DataType() == ftTime) value = std::fabs(value - std::trunc(value));
  SetData(&value);
}

Variant TDateTimeField::GetAsVariant() const {
  double value = 0;
  return GetData(&value) ? VarFromDateTime(value) : Null();
}

QString TDateTimeField::GetAsString() const {
  QString text;
  GetText(text, false);
  return text;
}

void TDateTimeField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  switch (DataType()) {
    case ftDate: SetAsDateTime(StrToDate(value)); break;
    case ftTime: SetAsDateTime(StrToTime(value)); break;
    default: SetAsDateTime(StrToDateTime(value)); break;
  }
}

void TDateTimeField::GetText(QString& text, bool displayText) const {
  double value = 0;
  if (!GetData(&value)) {
    text.clear();
    return;
  }
  QString format = displayText ? displayFormat_ : QString();
  if (format.isEmpty()) {
    switch (DataType()) {
      case ftDate: format = QStringLiteral("ddddd"); break;
      case ftTime: format = QStringLiteral("tt"); break;
      default: format = QStringLiteral("c"); break;
    }
  }
  text = FormatDateTime(format, value);
}

const TMetaClass& TDateField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TDateField", &TDateTimeField::StaticClass()).Creates<TDateField>();
  return meta;
}

const TMetaClass& TDateField::ClassType() const { return StaticClass(); }

const TMetaClass& TTimeField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TTimeField", &TDateTimeField::StaticClass()).Creates<TTimeField>();
  return meta;
}

const TMetaClass& TTimeField::ClassType() const { return StaticClass(); }

const TMetaClass& TSQLTimeStampField::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TSQLTimeStampField", &TDateTimeField::StaticClass()).Creates<TSQLTimeStampField>();
  return meta;
}

const TMetaClass& TSQLTimeStampField::ClassType() const { return StaticClass(); }

const TMetaClass& TSQLTimeStampOffsetField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TSQLTimeStampOffsetField", &TDateTimeField::StaticClass())
                                     .Creates<TSQLTimeStampOffsetField>();
  return meta;
}

const TMetaClass& TSQLTimeStampOffsetField::ClassType() const { return StaticClass(); }

}  // namespace quil
