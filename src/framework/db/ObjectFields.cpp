#include "framework/db/ObjectFields.h"

#include <QStringList>
#include <vector>

#include "framework/db/DataSet.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TObjectField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TObjectField", &TField::StaticClass())
      .Published(StrProp("ObjectType", &TObjectField::ObjectType, &TObjectField::SetObjectType));
  return meta;
}

const TMetaClass& TObjectField::ClassType() const { return StaticClass(); }

TObjectField::TObjectField(TComponent* owner, TFieldType type)
    : TField(owner), fields_(std::make_unique<TFields>(nullptr, this)) {
  SetDataType(type);
}

TObjectField::~TObjectField() {
  // The children go first, each leaving this field's list and its data set's.
  while (fields_->Count() > 0) delete fields_->Fields(fields_->Count() - 1);
}

int TObjectField::DefaultWidth() const {
  int width = 2;
  for (const TField* child : *fields_) width += child->DisplayWidth() + 2;
  return width;
}

Variant TObjectField::FieldValues(int index) const { return fields_->Fields(index)->AsVariant(); }

void TObjectField::SetFieldValues(int index, const Variant& value) { fields_->Fields(index)->SetAsVariant(value); }

bool TObjectField::GetIsNull() const {
  for (const TField* child : *fields_)
    if (!child->IsNull()) return false;
  return true;
}

QString TObjectField::GetAsString() const {
  QStringList texts;
  for (const TField* child : *fields_) texts << child->DisplayText();
  return QLatin1Char('(') + texts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

Variant TObjectField::GetAsVariant() const {
  if (IsNull()) return Null();
  std::vector<Variant> values;
  values.reserve(size_t(fields_->Count()));
  for (const TField* child : *fields_) values.push_back(child->AsVariant());
  return VarArrayOf(values);
}

void TObjectField::SetVarValue(const Variant& value) {
  if (!VarIsArray(value)) AccessError("Variant");
  const int low = value.LowBound();
  for (int index = 0; index < fields_->Count(); ++index)
    fields_->Fields(index)->SetAsVariant(low + index <= value.HighBound() ? value[low + index] : Null());
}

const TMetaClass& TADTField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TADTField", &TObjectField::StaticClass()).Creates<TADTField>();
  return meta;
}

const TMetaClass& TADTField::ClassType() const { return StaticClass(); }

const TMetaClass& TArrayField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TArrayField", &TObjectField::StaticClass())
      .Creates<TArrayField>()
      .Published(IntProp("Size", &TArrayField::Size, &TArrayField::SetSize).Default(0));
  return meta;
}

const TMetaClass& TArrayField::ClassType() const { return StaticClass(); }

// --- Nested data sets -----------------------------------------------------------------

const TMetaClass& TDataSetField::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TDataSetField", &TObjectField::StaticClass())
          .Creates<TDataSetField>()
          .Published(BoolProp("IncludeObjectField", &TDataSetField::IncludeObjectField,
                              &TDataSetField::SetIncludeObjectField)
                         .Default(false));
  return meta;
}

const TMetaClass& TDataSetField::ClassType() const { return StaticClass(); }

TDataSetField::~TDataSetField() { SetNestedDataSet(nullptr); }

void TDataSetField::SetNestedDataSet(TDataSet* dataSet) {
  if (dataSet == nestedDataSet_) return;
  if (dataSet == DataSet() && dataSet) DatabaseError(Format(SCircularDataLink, {}), DataSet());
  if (nestedDataSet_) RemoveFreeNotification(nestedDataSet_);
  nestedDataSet_ = dataSet;
  if (nestedDataSet_) FreeNotification(nestedDataSet_);
}

void TDataSetField::SetIncludeObjectField(bool value) {
  if (value == includeObjectField_) return;
  if (nestedDataSet_ && nestedDataSet_->Active()) DatabaseError(SDataSetOpen, nestedDataSet_);
  includeObjectField_ = value;
}

bool TDataSetField::GetIsNull() const {
  return !nestedDataSet_ || !nestedDataSet_->Active() || nestedDataSet_->IsEmpty();
}

QString TDataSetField::GetAsString() const { return QStringLiteral("(DATASET)"); }

Variant TDataSetField::GetAsVariant() const { return Null(); }

void TDataSetField::Notification(TComponent* component, TOperation operation) {
  TObjectField::Notification(component, operation);
  if (operation == opRemove && component == nestedDataSet_) nestedDataSet_ = nullptr;
}

const TMetaClass& TReferenceField::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TReferenceField", &TDataSetField::StaticClass())
          .Creates<TReferenceField>()
          .Published(StrProp("ReferenceTableName", &TReferenceField::ReferenceTableName,
                             &TReferenceField::SetReferenceTableName))
          .Published(IntProp("Size", &TReferenceField::Size, &TReferenceField::SetSize).Default(0));
  return meta;
}

const TMetaClass& TReferenceField::ClassType() const { return StaticClass(); }

QString TReferenceField::GetAsString() const { return QStringLiteral("(REFERENCE)"); }

}  // namespace quil
