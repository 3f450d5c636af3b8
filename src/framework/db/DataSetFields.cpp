// TDataSet's fields: making, binding and finding them, and the values of calculated
// and lookup fields, which this class keeps beside each record buffer.

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/FieldNames.h"
#include "framework/db/Fields.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

TFieldList* TDataSet::FieldList() const { return fieldList_.get(); }

int TDataSet::FieldCount() const { return fields_->Count(); }

TField* TDataSet::FindField(const QString& fieldName) const {
  if (TField* field = fields_->FindField(fieldName)) return field;
  return fieldList_->Find(fieldName);
}

TField* TDataSet::FieldByName(const QString& fieldName) const {
  TField* field = FindField(fieldName);
  if (!field) DatabaseError(Format(SFieldNotFound, {fieldName}), this);
  return field;
}

TField* TDataSet::FieldByNumber(int fieldNo) const { return fields_->FieldByNumber(fieldNo); }

std::vector<TField*> TDataSet::GetFieldList(const QString& fieldNames) const {
  std::vector<TField*> list;
  for (int pos = 1; pos <= fieldNames.size();) {
    const QString name = ExtractFieldName(fieldNames, pos);
    if (!name.isEmpty()) list.push_back(FieldByName(name));
  }
  return list;
}

Variant TDataSet::FieldValues(const QString& fieldNames) const {
  if (!fieldNames.contains(QLatin1Char(';'))) return FieldByName(fieldNames)->AsVariant();
  const std::vector<TField*> fields = GetFieldList(fieldNames);
  std::vector<Variant> values;
  values.reserve(fields.size());
  for (const TField* field : fields) values.push_back(field->AsVariant());
  return VarArrayOf(values);
}

void TDataSet::SetFieldValues(const QString& fieldNames, const Variant& value) {
  if (!fieldNames.contains(QLatin1Char(';'))) {
    FieldByName(fieldNames)->SetAsVariant(value);
    return;
  }
  const std::vector<TField*> fields = GetFieldList(fieldNames);
  for (size_t index = 0; index < fields.size(); ++index)
    fields[index]->SetAsVariant(value[value.LowBound() + int(index)]);
}

// --- Definitions and binding ----------------------------------------------------------

void TDataSet::InitFieldDefs() {
  fieldDefs_->SetUpdated(false);
  InternalInitFieldDefs();
  fieldDefs_->SetUpdated(true);
  defsChanged_ = false;
}

void TDataSet::InitFieldDefsFromFields() {
  if (fieldDefs_->Count() > 0) return;
  for (const TField* field : *fields_)
    if (field->FieldKind() == fkData)
      fieldDefs_->Add(field->FieldName(), field->DataType(), field->Size(), field->Required());
}

void TDataSet::CreateFields() {
  for (int index = 0; index < fieldDefs_->Count(); ++index) {
    TField* field = fieldDefs_->Items(index)->CreateField(this);
    field->SetLifeCycle(lcAutomatic);
  }
}

void TDataSet::DestroyFields() {
  for (int index = fields_->Count() - 1; index >= 0; --index) {
    TField* field = fields_->Fields(index);
    if (field->LifeCycle() == lcAutomatic) delete field;
  }
}

namespace {
void CheckLookupInfo(const TDataSet* dataSet, const TField* field) {
  if (!field->LookupDataSet() || field->KeyFields().isEmpty() || field->LookupKeyFields().isEmpty() ||
      field->LookupResultField().isEmpty())
    DatabaseError(Format(SLookupInfoError, {field->DisplayName()}), dataSet);
  dataSet->GetFieldList(field->KeyFields());
}
}  // namespace

void TDataSet::BindFields(bool binding) {
  calcFieldsCount_ = 0;
  for (int index = 0; index < fieldList_->Count(); ++index) {
    TField* field = fieldList_->Fields(index);
    field->calcSlot_ = -1;
    field->fieldNo_ = 0;
    if (!binding) continue;
    if (field->FieldKind() != fkData) {
      if (field->FieldKind() == fkLookup) CheckLookupInfo(this, field);
      field->fieldNo_ = -1;
      field->calcSlot_ = calcFieldsCount_++;
      continue;
    }
    const TFieldDef* def = fieldDefs_->Find(field->FieldName());
    if (NativeKindOf(def->DataType()) != field->NativeKind())
      DatabaseError(Format(SFieldTypeMismatch, {field->DisplayName(), FieldTypeName(field->DataType()),
                                                FieldTypeName(def->DataType())}),
                    this);
    field->fieldNo_ = def->FieldNo();
  }
}

// --- Calculated values ----------------------------------------------------------------

TRecordBuffer TDataSet::CreateRecordBuffer() {
  TRecordBuffer buffer = AllocRecordBuffer();
  if (calcFieldsCount_ > 0) calcValues_[buffer].assign(size_t(calcFieldsCount_), Null());
  return buffer;
}

void TDataSet::DestroyRecordBuffer(TRecordBuffer buffer) {
  calcValues_.erase(buffer);
  FreeRecordBuffer(buffer);
}

void TDataSet::CalculateFieldsIn(TRecordBuffer buffer) {
  TStateScope scope(*this, dsCalcFields);
  CalculateFields(buffer);
}

void TDataSet::CalculateFields(TRecordBuffer buffer) {
  calcBuffer_ = buffer;
  if (state_ != dsInternalCalc) {
    ClearCalcFields(buffer);
    for (TField* field : *fields_)
      if (field->FieldKind() == fkLookup) field->CalcLookupValue();
  }
  DoOnCalcFields();
}

void TDataSet::ClearCalcFields(TRecordBuffer buffer) {
  auto found = calcValues_.find(buffer);
  if (found != calcValues_.end()) std::fill(found->second.begin(), found->second.end(), Null());
}

Variant* TDataSet::CalcSlot(const TField* field) const {
  if (field->calcSlot_ < 0) return nullptr;
  auto found = calcValues_.find(StateBuffer());
  if (found == calcValues_.end() || size_t(field->calcSlot_) >= found->second.size()) return nullptr;
  return &found->second[size_t(field->calcSlot_)];
}

bool TDataSet::GetFieldData(TField* field, void* buffer) {
  const Variant* slot = CalcSlot(field);
  if (!slot || VarIsNull(*slot) || VarIsEmpty(*slot)) return false;
  if (buffer) VariantToNative(field->NativeKind(), *slot, buffer);
  return true;
}

void TDataSet::SetFieldData(TField* field, const void* buffer) {
  CheckFieldWrite(field, buffer);
  if (Variant* slot = CalcSlot(field)) *slot = buffer ? NativeToVariant(field->NativeKind(), buffer) : Null();
  FieldWritten(field);
}

}  // namespace quil
