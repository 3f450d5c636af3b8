#include "framework/db/StringFields.h"

#include "framework/rtl/Conversions.h"
#include "framework/rtl/DateFormat.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TStringField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TStringField", &TField::StaticClass())
      .Creates<TStringField>()
      .Published(IntProp("Size", &TStringField::Size, &TStringField::SetSize).Default(20));
  return meta;
}

const TMetaClass& TStringField::ClassType() const { return StaticClass(); }

TStringField::TStringField(TComponent* owner) : TField(owner) {
  SetDataType(ftString);
  SetSize(20);
}

QString TStringField::GetAsString() const {
  QString value;
  GetData(&value);
  return value;
}

void TStringField::SetAsStringValue(const QString& value) {
  QString stored = Size() > 0 ? value.left(Size()) : value;
  if (FixedChar() && Size() > 0) stored = stored.leftJustified(Size(), QLatin1Char(' '));
  SetData(&stored);
}

int TStringField::GetAsInteger() const { return StrToInt(GetAsString()); }
void TStringField::SetAsIntegerValue(int value) { SetAsString(IntToStr(value)); }
int64_t TStringField::GetAsLargeInt() const { return StrToInt64(GetAsString()); }
void TStringField::SetAsLargeIntValue(int64_t value) { SetAsString(IntToStr(value)); }
double TStringField::GetAsFloat() const { return StrToFloat(GetAsString()); }
void TStringField::SetAsFloatValue(double value) { SetAsString(FloatToStr(value)); }

bool TStringField::GetAsBoolean() const {
  const QString text = GetAsString();
  return !text.isEmpty() && QStringLiteral("TtYy").contains(text[0]);
}

void TStringField::SetAsBooleanValue(bool value) {
  SetAsString(value ? QStringLiteral("T") : QStringLiteral("F"));
}

TDateTime TStringField::GetAsDateTime() const { return StrToDateTime(GetAsString()); }
void TStringField::SetAsDateTimeValue(TDateTime value) { SetAsString(DateTimeToStr(value)); }

const TMetaClass& TWideStringField::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TWideStringField", &TStringField::StaticClass()).Creates<TWideStringField>();
  return meta;
}

const TMetaClass& TWideStringField::ClassType() const { return StaticClass(); }

TWideStringField::TWideStringField(TComponent* owner) : TStringField(owner) {
  SetDataType(ftWideString);
}

const TMetaClass& TGuidField::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TGuidField", &TStringField::StaticClass()).Creates<TGuidField>();
  return meta;
}

const TMetaClass& TGuidField::ClassType() const { return StaticClass(); }

TGuidField::TGuidField(TComponent* owner) : TStringField(owner) {
  SetDataType(ftGuid);
  SetSize(38);
}

void TGuidField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  CheckGuidText(value);
  TStringField::SetAsStringValue(value);
}

}  // namespace quil
