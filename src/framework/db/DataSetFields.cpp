// TDataSet's fields: making, binding and finding them, and the values of calculated
// and lookup fields, which this class keeps beside each record buffer.

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/FieldNames.h"
#include "framework/db/Fields.h"
#include "framework/db/ObjectFields.h"
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

void TDataSet::SetObjectView(bool value) {
  if (value == objectView_) return;
  CheckInactive();
  objectView_ = value;
  std::vector<TField*> list;
  for (TField* field : *fields_) {
    if (field->ParentField()) continue;
    list.push_back(field);
    if (!objectView_) field->AppendDescendants(list);
  }
  fields_->list_ = std::move(list);
  fields_->Changed();
}

namespace {
// Definitions for fields and their children; an array's size is its element count.
void AddFieldDefs(TFieldDefs* defs, const std::vector<TField*>& fields) {
  for (const TField* field : fields) {
    if (field->FieldKind() != fkData) continue;
    TFieldDef* def = defs->Add(field->FieldName(), field->DataType(), field->Size(), field->Required());
    const auto* objectField = dynamic_cast<const TObjectField*>(field);
    if (!objectField || objectField->FieldCount() == 0) continue;
    AddFieldDefs(def->ChildDefs(), std::vector<TField*>(objectField->Fields()->begin(), objectField->Fields()->end()));
    if (def->DataType() == ftArray) def->SetSize(def->ChildDefs()->Count());
  }
}

void SetLifeCycles(TField* field, TFieldLifeCycle lifeCycle) {
  field->SetLifeCycle(lifeCycle);
  if (const auto* objectField = dynamic_cast<const TObjectField*>(field))
    for (TField* child : *objectField->Fields()) SetLifeCycles(child, lifeCycle);
}
}  // namespace

void TDataSet::InitFieldDefsFromFields() {
  if (fieldDefs_->Count() > 0) return;
  std::vector<TField*> topLevel;
  for (TField* field : *fields_)
    if (!field->ParentField()) topLevel.push_back(field);
  AddFieldDefs(fieldDefs_.get(), topLevel);
}

void TDataSet::CreateFields() {
  for (int index = 0; index < fieldDefs_->Count(); ++index)
    SetLifeCycles(fieldDefs_->Items(index)->CreateField(this), lcAutomatic);
}

void TDataSet::DestroyFields() {
  // A structured field frees its children: only the top-level fields are freed here.
  std::vector<TField*> automatic;
  for (TField* field : *fields_)
    if (!field->ParentField() && field->LifeCycle() == lcAutomatic) automatic.push_back(field);
  for (auto field = automatic.rbegin(); field != automatic.rend(); ++field) delete *field;
}

namespace {
void CheckLookupInfo(const TDataSet* dataSet, const TField* field) {
  if (!field->LookupDataSet() || field->KeyFields().isEmpty() || field->LookupKeyFields().isEmpty() ||
      field->LookupResultField().isEmpty())
    DatabaseError(Format(SLookupInfoError, {field->DisplayName()}), dataSet);
  dataSet->GetFieldList(field->KeyFields());
}
}  // namespace

const TFieldDef* TDataSet::FindFieldDef(const QString& fullName) const {
  for (const TFieldDef* def : fieldDefs_->FieldDefList())
    if (def->FullName().compare(fullName, Qt::CaseInsensitive) == 0) return def;
  DatabaseError(Format(SFieldNotFound, {fullName}), this);
}

void TDataSet::BindFields(bool binding) {
  calcFieldsCount_ = 0;
  for (int index = 0; index < fieldList_->Count(); ++index) {
    TField* field = fieldList_->Fields(index);
    field->calcSlot_ = -1;
    field->fieldNo_ = 0;
    field->store_ = nullptr;
    if (!binding) continue;
    if (field->FieldKind() != fkData) {
      if (field->FieldKind() == fkLookup) CheckLookupInfo(this, field);
      field->fieldNo_ = -1;
      field->calcSlot_ = calcFieldsCount_++;
      continue;
    }
    // Default fields stand in the order of their definitions: that place is tried first.
    const QString name = field->FullName();
    const TFieldDef* def = index < fieldDefs_->Count() ? fieldDefs_->Items(index) : nullptr;
    if (!def || def->FullName().compare(name, Qt::CaseInsensitive) != 0) def = FindFieldDef(name);
    if (NativeKindOf(def->DataType()) != field->NativeKind())
      DatabaseError(Format(SFieldTypeMismatch, {field->DisplayName(), FieldTypeName(field->DataType()),
                                                FieldTypeName(def->DataType())}),
                    this);
    field->fieldNo_ = def->FieldNo();
  }
}

void TDataSet::SetFieldStore(TField* field, const TFieldStore* store) { field->store_ = store; }

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
