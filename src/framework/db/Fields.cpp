#include "framework/db/Fields.h"

#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/ObjectFields.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

const TMetaClass& TFields::StaticClass() {
  static const TMetaClass meta("TFields", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TFields::ClassType() const { return StaticClass(); }

TField* TFields::Fields(int index) const {
  if (index < 0 || index >= Count()) DatabaseError(SFieldIndexError, dataSet_);
  return list_[size_t(index)];
}

int TFields::IndexOf(const TField* field) const {
  auto found = std::find(list_.begin(), list_.end(), field);
  return found == list_.end() ? -1 : int(found - list_.begin());
}

TField* TFields::FindField(const QString& fieldName) const {
  for (TField* field : list_)
    if (field->FieldName().compare(fieldName, Qt::CaseInsensitive) == 0) return field;
  return nullptr;
}

TField* TFields::FieldByName(const QString& fieldName) const {
  TField* field = FindField(fieldName);
  if (!field) DatabaseError(Format(SFieldNotFound, {fieldName}), dataSet_);
  return field;
}

TField* TFields::FieldByNumber(int fieldNo) const {
  for (TField* field : list_)
    if (field->FieldNo() == fieldNo) return field;
  return nullptr;
}

TFieldLifeCycles TFields::LifeCycles() const {
  TFieldLifeCycles cycles;
  for (const TField* field : list_) cycles.Include(field->LifeCycle());
  return cycles;
}

void TFields::CheckFieldName(const QString& fieldName, const TField* except) const {
  if (fieldName.isEmpty()) DatabaseError(SFieldNameMissing, dataSet_);
  for (const TField* other : list_)
    if (other != except && other->ParentField() == parentField_ &&
        other->FieldName().compare(fieldName, Qt::CaseInsensitive) == 0)
      DatabaseError(Format(SDuplicateFieldName, {fieldName}), dataSet_);
}

void TFields::Add(TField* field) {
  list_.push_back(field);
  Changed();
}

void TFields::Insert(int index, TField* field) {
  list_.insert(list_.begin() + std::clamp(index, 0, Count()), field);
  Changed();
}

void TFields::Remove(TField* field) {
  auto found = std::find(list_.begin(), list_.end(), field);
  if (found == list_.end()) return;
  list_.erase(found);
  Changed();
}

void TFields::SetFieldIndex(TField* field, int index) {
  const int current = IndexOf(field);
  if (current < 0) return;
  index = std::clamp(index, 0, Count() - 1);
  if (index == current) return;
  list_.erase(list_.begin() + current);
  list_.insert(list_.begin() + index, field);
  Changed();
}

void TFields::Changed() {
  if (dataSet_ && !dataSet_->ComponentState().Contains(csDestroying))
    dataSet_->DataEvent(deFieldListChange, 0);
  if (OnChange) OnChange(this);
}

// --- TFieldList -----------------------------------------------------------------------

const TMetaClass& TFieldList::StaticClass() {
  static const TMetaClass meta("TFieldList", &TObject::StaticClass());
  return meta;
}

const TMetaClass& TFieldList::ClassType() const { return StaticClass(); }

void TFieldList::Update() const {
  if (updated_) return;
  list_.clear();
  for (TField* field : *dataSet_->Fields()) {
    list_.push_back(field);
    if (dataSet_->ObjectView()) field->AppendDescendants(list_);
  }
  updated_ = true;
}

int TFieldList::Count() const {
  Update();
  return int(list_.size());
}

TField* TFieldList::Fields(int index) const {
  Update();
  if (index < 0 || index >= int(list_.size())) DatabaseError(SFieldIndexError, dataSet_);
  return list_[size_t(index)];
}

int TFieldList::IndexOf(const TField* field) const {
  Update();
  auto found = std::find(list_.begin(), list_.end(), field);
  return found == list_.end() ? -1 : int(found - list_.begin());
}

TField* TFieldList::Find(const QString& fieldName) const {
  Update();
  for (TField* field : list_)
    if (field->FullName().compare(fieldName, Qt::CaseInsensitive) == 0) return field;
  return nullptr;
}

TField* TFieldList::FieldByName(const QString& fieldName) const {
  TField* field = Find(fieldName);
  if (!field) DatabaseError(Format(SFieldNotFound, {fieldName}), dataSet_);
  return field;
}

}  // namespace quil
