#include "framework/db/FieldDefs.h"

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TFieldDef::StaticClass() {
  static const TMetaClass meta = TMetaClass("TFieldDef", &TCollectionItem::StaticClass())
      .Creates<TFieldDef>()
      .Published(StrProp("Name", &TFieldDef::Name, &TFieldDef::SetName))
      .Published(EnumProp("DataType", &TFieldDef::DataType, &TFieldDef::SetDataType).Default(ftUnknown))
      .Published(IntProp("Precision", &TFieldDef::Precision, &TFieldDef::SetPrecision).Default(0))
      .Published(IntProp("Size", &TFieldDef::Size, &TFieldDef::SetSize).Default(0))
      .Published(BoolProp("Required", &TFieldDef::Required, &TFieldDef::SetRequired).Default(false));
  return meta;
}

const TMetaClass& TFieldDef::ClassType() const { return StaticClass(); }

void TFieldDef::SetName(const QString& name) {
  if (name == name_) return;
  name_ = name;
  Changed(false);
}

void TFieldDef::SetDataType(TFieldType type) {
  if (type == dataType_) return;
  dataType_ = type;
  Changed(false);
}

void TFieldDef::SetSize(int size) {
  if (size == size_) return;
  size_ = size;
  Changed(false);
}

void TFieldDef::SetPrecision(int precision) {
  if (precision == precision_) return;
  precision_ = precision;
  Changed(false);
}

void TFieldDef::SetRequired(bool required) {
  if (required == required_) return;
  required_ = required;
  Changed(false);
}

void TFieldDef::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TFieldDef*>(source);
  if (!other) {
    TCollectionItem::Assign(source);
    return;
  }
  name_ = other->name_;
  dataType_ = other->dataType_;
  size_ = other->size_;
  precision_ = other->precision_;
  required_ = other->required_;
  Changed(false);
}

TField* TFieldDef::CreateField(TComponent* owner) const {
  const TMetaClass* fieldClass = DefaultFieldClass(dataType_);
  auto* defs = static_cast<TFieldDefs*>(Collection());
  TDataSet* dataSet = defs ? defs->DataSet() : nullptr;
  if (!fieldClass) DatabaseError(Format(SUnknownFieldType, {name_}), dataSet);
  auto* field = static_cast<TField*>(fieldClass->Create(owner));
  try {
    field->SetDataType(dataType_);
    if (NativeKindOf(dataType_) == TNativeKind::String || dataType_ == ftBCD ||
        NativeKindOf(dataType_) == TNativeKind::Bytes)
      field->SetSize(size_);
    field->SetFieldName(name_);
    field->SetRequired(required_);
    field->SetDataSet(dataSet);
  } catch (...) {
    delete field;
    throw;
  }
  return field;
}

// --- TFieldDefs -----------------------------------------------------------------------

const TMetaClass& TFieldDefs::StaticClass() {
  static const TMetaClass meta("TFieldDefs", &TOwnedCollection::StaticClass());
  return meta;
}

const TMetaClass& TFieldDefs::ClassType() const { return StaticClass(); }

TFieldDefs::TFieldDefs(TDataSet* dataSet)
    : TOwnedCollection(dataSet, TFieldDef::StaticClass()), dataSet_(dataSet) {}

TFieldDef* TFieldDefs::Add(const QString& name, TFieldType type, int size, bool required) {
  if (name.isEmpty()) DatabaseError(SFieldNameMissing, dataSet_);
  if (IndexOf(name) >= 0) DatabaseError(Format(SDuplicateFieldName, {name}), dataSet_);
  TFieldDef* def = AddFieldDef();
  BeginUpdate();
  def->SetName(name);
  def->SetDataType(type);
  def->SetSize(size);
  def->SetRequired(required);
  EndUpdate();
  return def;
}

int TFieldDefs::IndexOf(const QString& name) const {
  for (int index = 0; index < Count(); ++index)
    if (Items(index)->Name().compare(name, Qt::CaseInsensitive) == 0) return index;
  return -1;
}

TFieldDef* TFieldDefs::Find(const QString& name) const {
  const int index = IndexOf(name);
  if (index < 0) DatabaseError(Format(SFieldNotFound, {name}), dataSet_);
  return Items(index);
}

void TFieldDefs::Update() {
  if (!updated_ && dataSet_) dataSet_->InitFieldDefs();
}

void TFieldDefs::Update(TCollectionItem* item) {
  if (dataSet_) dataSet_->DefChanged(this);
}

}  // namespace quil
