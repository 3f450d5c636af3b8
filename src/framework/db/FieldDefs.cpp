#include "framework/db/FieldDefs.h"

#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/ObjectFields.h"
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
      .Published(BoolProp("Required", &TFieldDef::Required, &TFieldDef::SetRequired).Default(false))
      .Published(ObjectProp("ChildDefs", &TFieldDef::ChildDefs).StoredBy(&TFieldDef::HasChildDefs));
  return meta;
}

const TMetaClass& TFieldDef::ClassType() const { return StaticClass(); }

TFieldDef::TFieldDef() = default;
TFieldDef::~TFieldDef() = default;

TFieldDefs* TFieldDef::ChildDefs() const {
  if (!childDefs_) childDefs_ = std::make_unique<TFieldDefs>(const_cast<TFieldDef*>(this));
  return childDefs_.get();
}

bool TFieldDef::HasChildDefs() const { return childDefs_ && childDefs_->Count() > 0; }

TFieldDef* TFieldDef::AddChild() { return ChildDefs()->AddFieldDef(); }

TFieldDef* TFieldDef::ParentDef() const {
  const auto* defs = static_cast<const TFieldDefs*>(Collection());
  return defs ? defs->ParentDef() : nullptr;
}

QString TFieldDef::FullName() const {
  const TFieldDef* parent = ParentDef();
  return parent ? ChildFullName(parent->FullName(), parent->Name(), parent->DataType(), name_) : name_;
}

int TFieldDef::FieldNo() const {
  const TFieldDef* top = this;
  while (top->ParentDef()) top = top->ParentDef();
  const auto* defs = static_cast<const TFieldDefs*>(top->Collection());
  if (!defs) return 0;
  const std::vector<TFieldDef*> list = defs->FieldDefList();
  const auto found = std::find(list.begin(), list.end(), this);
  return found == list.end() ? 0 : int(found - list.begin()) + 1;
}

QString ChildFullName(const QString& parentFullName, const QString& parentName, TFieldType parentType,
                      const QString& name) {
  if (parentType == ftArray && name.startsWith(parentName + QLatin1Char('[')))
    return parentFullName + name.mid(parentName.size());
  return parentFullName + QLatin1Char('.') + name;
}

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
  if (other->HasChildDefs()) ChildDefs()->Assign(other->ChildDefs());
  else if (childDefs_) childDefs_->Clear();
  Changed(false);
}

TField* TFieldDef::CreateField(TComponent* owner, TObjectField* parentField, const QString& fieldName) const {
  const TMetaClass* fieldClass = DefaultFieldClass(dataType_);
  auto* defs = static_cast<TFieldDefs*>(Collection());
  TDataSet* dataSet = defs ? defs->DataSet() : nullptr;
  if (!fieldClass) DatabaseError(Format(SUnknownFieldType, {name_}), dataSet);
  auto* field = static_cast<TField*>(fieldClass->Create(owner));
  try {
    field->SetDataType(dataType_);
    if (NativeKindOf(dataType_) == TNativeKind::String || dataType_ == ftBCD ||
        NativeKindOf(dataType_) == TNativeKind::Bytes || dataType_ == ftArray || dataType_ == ftReference)
      field->SetSize(dataType_ == ftArray && HasChildDefs() ? childDefs_->Count() : size_);
    field->SetFieldName(fieldName.isEmpty() ? name_ : fieldName);
    field->SetRequired(required_);
    if (parentField) field->SetParentField(parentField);
    else field->SetDataSet(dataSet);
    if (auto* objectField = dynamic_cast<TObjectField*>(field); objectField && HasChildDefs())
      for (int index = 0; index < childDefs_->Count(); ++index)
        childDefs_->Items(index)->CreateField(owner, objectField);
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

TFieldDefs::TFieldDefs(TFieldDef* parentDef)
    : TOwnedCollection(parentDef, TFieldDef::StaticClass()), parentDef_(parentDef) {}

TDataSet* TFieldDefs::DataSet() const {
  if (dataSet_ || !parentDef_) return dataSet_;
  const auto* defs = static_cast<const TFieldDefs*>(parentDef_->Collection());
  return defs ? defs->DataSet() : nullptr;
}

std::vector<TFieldDef*> TFieldDefs::FieldDefList() const {
  std::vector<TFieldDef*> list;
  for (int index = 0; index < Count(); ++index) {
    TFieldDef* def = Items(index);
    list.push_back(def);
    if (!def->HasChildDefs()) continue;
    const std::vector<TFieldDef*> children = def->ChildDefs()->FieldDefList();
    list.insert(list.end(), children.begin(), children.end());
  }
  return list;
}

TFieldDef* TFieldDefs::Add(const QString& name, TFieldType type, int size, bool required) {
  if (name.isEmpty()) DatabaseError(SFieldNameMissing, DataSet());
  if (IndexOf(name) >= 0) DatabaseError(Format(SDuplicateFieldName, {name}), DataSet());
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
  if (index < 0) DatabaseError(Format(SFieldNotFound, {name}), DataSet());
  return Items(index);
}

void TFieldDefs::Update() {
  if (!updated_ && dataSet_) dataSet_->InitFieldDefs();
}

void TFieldDefs::Update(TCollectionItem* item) {
  if (TDataSet* dataSet = DataSet()) dataSet->DefChanged(this);
}

}  // namespace quil
