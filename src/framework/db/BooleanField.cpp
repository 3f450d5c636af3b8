#include "framework/db/BooleanField.h"

#include "framework/db/DataSet.h"

#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TBooleanField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBooleanField", &TField::StaticClass())
      .Creates<TBooleanField>()
      .Published(StrProp("DisplayValues", &TBooleanField::DisplayValues, &TBooleanField::SetDisplayValues));
  return meta;
}

const TMetaClass& TBooleanField::ClassType() const { return StaticClass(); }

TBooleanField::TBooleanField(TComponent* owner) : TField(owner) {
  SetDataType(ftBoolean);
  SetDisplayValues(STextTrue + QLatin1Char(';') + STextFalse);
}

void TBooleanField::SetDisplayValues(const QString& values) {
  displayValues_ = values;
  const int separator = values.indexOf(QLatin1Char(';'));
  trueText_ = separator < 0 ? values : values.left(separator);
  falseText_ = separator < 0 ? QString() : values.mid(separator + 1);
  PropertyChanged(true);
}

int TBooleanField::DefaultWidth() const { return qMax(trueText_.size(), falseText_.size()); }

bool TBooleanField::GetAsBoolean() const {
  return NativeValue<bool>();
}

QString TBooleanField::GetAsString() const {
  bool value = false;
  if (!GetData(&value)) return QString();
  return value ? trueText_ : falseText_;
}

void TBooleanField::SetAsStringValue(const QString& value) {
  if (value.isEmpty()) {
    Clear();
    return;
  }
  // The false text is tried first, so that with "Yes;" an entered "N..." is refused.
  auto begins = [&](const QString& text) { return AnsiSameText(value, text.left(value.size())); };
  if (!falseText_.isEmpty() && begins(falseText_)) SetAsBoolean(false);
  else if (!trueText_.isEmpty() && begins(trueText_)) SetAsBoolean(true);
  else DatabaseError(Format(SInvalidBoolValue, {value, DisplayName()}), DataSet());
}

}  // namespace quil
