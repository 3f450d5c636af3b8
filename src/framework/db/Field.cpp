#include "framework/db/Field.h"

#include "framework/db/DataSet.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/Fields.h"
#include "framework/db/ObjectFields.h"
#include "framework/rtl/Conversions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TField::StaticClass() {
  static const TMetaClass meta = TMetaClass("TField", &TComponent::StaticClass())
      .Published(EnumProp("Alignment", &TField::Alignment, &TField::SetAlignment).Default(taLeftJustify))
      .Published(StrProp("DisplayLabel", &TField::DisplayLabel, &TField::SetDisplayLabel)
                     .StoredBy(&TField::IsDisplayLabelStored))
      .Published(IntProp("DisplayWidth", &TField::DisplayWidth, &TField::SetDisplayWidth)
                     .StoredBy(&TField::IsDisplayWidthStored))
      .Published(StrProp("EditMask", &TField::EditMask, &TField::SetEditMask))
      .Published(EnumProp("FieldKind", &TField::FieldKind, &TField::SetFieldKind).Default(fkData))
      .Published(StrProp("FieldName", &TField::FieldName, &TField::SetFieldName))
      .Published(IntProp("Index", &TField::Index, &TField::SetIndex).Stored(false))
      .Published(StrProp("KeyFields", &TField::KeyFields, &TField::SetKeyFields))
      .Published(BoolProp("LookupCache", &TField::LookupCache, &TField::SetLookupCache).Default(false))
      .Published(ObjectProp("LookupDataSet", &TField::LookupDataSet, &TField::SetLookupDataSet))
      .Published(StrProp("LookupKeyFields", &TField::LookupKeyFields, &TField::SetLookupKeyFields))
      .Published(StrProp("LookupResultField", &TField::LookupResultField, &TField::SetLookupResultField))
      .Published(BoolProp("ReadOnly", &TField::ReadOnly, &TField::SetReadOnly).Default(false))
      .Published(BoolProp("Required", &TField::Required, &TField::SetRequired).Default(false))
      .Published(BoolProp("Visible", &TField::Visible, &TField::SetVisible).Default(true));
  return meta;
}

const TMetaClass& TField::ClassType() const { return StaticClass(); }

TField::TField(TComponent* owner) : TComponent(owner) {}

TField::~TField() {
  Destroying();
  Detach();
  // Controls that show the field tell it by its class, so they hear of it as a field.
  NotifyFreeing();
}

// --- Identity -------------------------------------------------------------------------

void TField::CheckInactive() const {
  if (dataSet_) dataSet_->CheckInactive();
}

void TField::AppendDescendants(std::vector<TField*>& list) const {
  const auto* objectField = dynamic_cast<const TObjectField*>(this);
  if (!objectField) return;
  for (TField* child : *objectField->Fields()) {
    list.push_back(child);
    child->AppendDescendants(list);
  }
}

void TField::AssignDataSet(TDataSet* dataSet) {
  dataSet_ = dataSet;
  if (auto* objectField = dynamic_cast<TObjectField*>(this)) {
    objectField->Fields()->dataSet_ = dataSet;
    for (TField* child : *objectField->Fields()) child->AssignDataSet(dataSet);
  }
}

void TField::Detach() {
  if (parentField_) parentField_->Fields()->Remove(this);
  if (!dataSet_) return;
  std::vector<TField*> tree{this};
  AppendDescendants(tree);
  for (TField* field : tree) dataSet_->fields_->Remove(field);
}

void TField::Attach() {
  if (parentField_) parentField_->Fields()->Add(this);
  if (!dataSet_) return;
  std::vector<TField*> tree{this};
  if (!dataSet_->ObjectView()) AppendDescendants(tree);
  if (parentField_ && dataSet_->ObjectView()) return;
  // Shown flat, a child stands behind its parent's last descendant.
  int at = dataSet_->fields_->Count();
  if (parentField_) {
    std::vector<TField*> before{parentField_};
    parentField_->AppendDescendants(before);
    before.pop_back();  // this field, just added to its parent
    at = dataSet_->fields_->IndexOf(before.back()) + 1;
  }
  for (TField* field : tree) dataSet_->fields_->Insert(at++, field);
}

void TField::SetDataSet(TDataSet* dataSet) {
  if (dataSet == dataSet_ && !parentField_) return;
  CheckInactive();
  if (dataSet) {
    dataSet->CheckInactive();
    dataSet->fields_->CheckFieldName(fieldName_, this);
  }
  Detach();
  parentField_ = nullptr;
  AssignDataSet(dataSet);
  Attach();
}

void TField::SetParentField(TObjectField* field) {
  if (field == parentField_) return;
  if (!field) {
    SetDataSet(dataSet_);
    return;
  }
  CheckInactive();
  if (field->DataSet()) field->DataSet()->CheckInactive();
  for (const TField* ancestor = field; ancestor; ancestor = ancestor->ParentField())
    if (ancestor == this) DatabaseError(QStringLiteral("Field '%1' cannot hold itself").arg(DisplayName()), dataSet_);
  field->Fields()->CheckFieldName(fieldName_, this);
  Detach();
  parentField_ = field;
  AssignDataSet(field->DataSet());
  Attach();
}

void TField::SetFieldName(const QString& name) {
  if (name == fieldName_) return;
  if (parentField_) {
    CheckInactive();
    parentField_->Fields()->CheckFieldName(name, this);
  } else if (dataSet_) {
    dataSet_->CheckInactive();
    dataSet_->fields_->CheckFieldName(name, this);
  }
  fieldName_ = name;
  if (displayLabel_ == name) displayLabel_.clear();
}

QString TField::FullName() const {
  if (!parentField_) return fieldName_;
  return ChildFullName(parentField_->FullName(), parentField_->FieldName(), parentField_->DataType(), fieldName_);
}

void TField::SetFieldKind(TFieldKind kind) {
  if (kind == fieldKind_) return;
  CheckInactive();
  fieldKind_ = kind;
}

int TField::Index() const {
  if (parentField_) return parentField_->Fields()->IndexOf(this);
  return dataSet_ ? dataSet_->fields_->IndexOf(this) : -1;
}

// Controls show the fields in this order, so a move changes their layout.
void TField::SetIndex(int index) {
  TFields* fields = parentField_ ? parentField_->Fields() : dataSet_ ? dataSet_->Fields() : nullptr;
  if (!fields) return;
  const int before = fields->IndexOf(this);
  fields->SetFieldIndex(this, index);
  if (fields->IndexOf(this) != before) PropertyChanged(true);
}

void TField::SetSize(int size) {
  if (size == size_) return;
  CheckInactive();
  size_ = size;
}

// --- Display --------------------------------------------------------------------------

void TField::PropertyChanged(bool layoutAffected) {
  if (dataSet_ && dataSet_->Active())
    dataSet_->DataEvent(layoutAffected ? deLayoutChange : deDataSetChange, 0);
}

void TField::SetDisplayLabel(const QString& label) {
  const QString stored = label == fieldName_ ? QString() : label;
  if (stored == displayLabel_) return;
  displayLabel_ = stored;
  PropertyChanged(true);
}

void TField::SetDisplayWidth(int width) {
  if (width == displayWidth_) return;
  displayWidth_ = width;
  PropertyChanged(true);
}

void TField::SetEditMask(const QString& mask) {
  if (mask == editMask_) return;
  editMask_ = mask;
  PropertyChanged(false);
}

void TField::SetAlignment(TAlignment alignment) {
  if (alignment == alignment_) return;
  alignment_ = alignment;
  PropertyChanged(false);
}

void TField::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  PropertyChanged(true);
}

void TField::SetReadOnly(bool readOnly) {
  if (readOnly == readOnly_) return;
  readOnly_ = readOnly;
  PropertyChanged(true);
}

QString TField::DisplayText() const {
  QString text;
  if (OnGetText) OnGetText(const_cast<TField*>(this), text, true);
  else GetText(text, true);
  return text;
}

QString TField::Text() const {
  QString text;
  if (OnGetText) OnGetText(const_cast<TField*>(this), text, false);
  else GetText(text, false);
  return text;
}

void TField::SetText(const QString& text) {
  if (OnSetText) OnSetText(this, text);
  else ApplyText(text);
}

void TField::GetText(QString& text, bool displayText) const { text = GetAsString(); }

bool TField::CanModify() const {
  return fieldNo_ > 0 && !readOnly_ && dataSet_ && dataSet_->CanModify();
}

bool TField::IsValidChar(QChar ch) const { return true; }

// --- Values ---------------------------------------------------------------------------

bool TField::GetDataAside(void* buffer) const {
  if (!dataSet_) DatabaseError(Format(SDataSetMissing, {DisplayName()}), this);
  if (!validating_) return false;
  if (buffer) CopyNative(NativeKind(), validating_, buffer);
  return true;
}

void TField::SetData(const void* buffer) {
  if (!dataSet_) DatabaseError(Format(SDataSetMissing, {DisplayName()}), this);
  dataSet_->SetFieldData(this, buffer);
}

void TField::Validate(const void* buffer) {
  if (!OnValidate) return;
  inValidate_ = true;
  validating_ = buffer;
  TFinally restore([this] {
    inValidate_ = false;
    validating_ = nullptr;
  });
  OnValidate(this);
}

void TField::Change() {
  if (OnChange) OnChange(this);
}

void TField::FocusControl() {
  if (!dataSet_ || !dataSet_->Active()) return;
  TField* field = this;
  dataSet_->DataEvent(deFocusControl, reinterpret_cast<intptr_t>(&field));
}

void TField::SetAsVariant(const Variant& value) {
  if (VarIsNull(value) || VarIsEmpty(value)) Clear();
  else SetVarValue(value);
}

Variant TField::GetAsVariant() const {
  const TNativeKind kind = NativeKind();
  if (kind == TNativeKind::None) AccessError("Variant");
  TNativeValue value(kind);
  if (!GetData(value.Data())) return Null();
  return NativeToVariant(kind, value.Data());
}

void TField::SetVarValue(const Variant& value) {
  const TNativeKind kind = NativeKind();
  if (kind == TNativeKind::None) AccessError("Variant");
  TNativeValue native(kind);
  VariantToNative(kind, value, native.Data());
  SetData(native.Data());
}

void TField::AccessError(const char* typeName) const {
  DatabaseError(Format(SFieldAccessError, {DisplayName(), QString::fromLatin1(typeName)}), dataSet_);
}

void TField::RangeError(double value, double minValue, double maxValue) const {
  DatabaseError(Format(SFieldRangeError, {FloatToStr(value), DisplayName(), FloatToStr(minValue),
                                          FloatToStr(maxValue)}),
                dataSet_);
}

void TField::RaiseRequired() const {
  DatabaseError(Format(SFieldRequired, {DisplayName()}), dataSet_);
}

QString TField::GetAsString() const { AccessError("String"); }
void TField::SetAsStringValue(const QString&) { AccessError("String"); }
int TField::GetAsInteger() const { AccessError("Integer"); }
void TField::SetAsIntegerValue(int) { AccessError("Integer"); }
void TField::SetAsLargeIntValue(int64_t) { AccessError("LargeInt"); }
double TField::GetAsFloat() const { AccessError("Float"); }
void TField::SetAsFloatValue(double) { AccessError("Float"); }
bool TField::GetAsBoolean() const { AccessError("Boolean"); }
void TField::SetAsBooleanValue(bool) { AccessError("Boolean"); }
TDateTime TField::GetAsDateTime() const { AccessError("DateTime"); }
void TField::SetAsDateTimeValue(TDateTime) { AccessError("DateTime"); }

// --- Lookup ---------------------------------------------------------------------------

void TField::SetKeyFields(const QString& fields) {
  CheckInactive();
  keyFields_ = fields;
}

void TField::SetLookupDataSet(TDataSet* dataSet) {
  if (dataSet == lookupDataSet_) return;
  CheckInactive();
  if (lookupDataSet_) RemoveFreeNotification(lookupDataSet_);
  lookupDataSet_ = dataSet;
  if (lookupDataSet_) FreeNotification(lookupDataSet_);
  RefreshLookupList();
}

void TField::SetLookupKeyFields(const QString& fields) {
  CheckInactive();
  lookupKeyFields_ = fields;
  RefreshLookupList();
}

void TField::SetLookupResultField(const QString& field) {
  CheckInactive();
  lookupResultField_ = field;
  RefreshLookupList();
}

void TField::SetLookupCache(bool cache) {
  lookupCache_ = cache;
  RefreshLookupList();
}

void TField::RefreshLookupList() { lookupList_.clear(); }

void TField::CalcLookupValue() {
  const Variant keys = dataSet_->FieldValues(keyFields_);
  auto lookup = [&] {
    if (!lookupDataSet_ || !lookupDataSet_->Active()) return Null();
    return lookupDataSet_->Lookup(lookupKeyFields_, keys, lookupResultField_);
  };
  if (!lookupCache_) {
    SetAsVariant(lookup());
    return;
  }
  for (const auto& [cachedKeys, result] : lookupList_) {
    if (cachedKeys == keys) {
      SetAsVariant(result);
      return;
    }
  }
  const Variant result = lookup();
  lookupList_.emplace_back(keys, result);
  SetAsVariant(result);
}

void TField::Notification(TComponent* component, TOperation operation) {
  TComponent::Notification(component, operation);
  if (operation == opRemove && component == lookupDataSet_) {
    lookupDataSet_ = nullptr;
    lookupList_.clear();
  }
}

}  // namespace quil
