#include "framework/db/FieldDataLink.h"

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"

namespace quil {

const TMetaClass& TFieldDataLink::StaticClass() {
  static const TMetaClass meta("TFieldDataLink", &TDataLink::StaticClass());
  return meta;
}

const TMetaClass& TFieldDataLink::ClassType() const { return StaticClass(); }

void TFieldDataLink::SetFieldName(const QString& name) {
  if (name == fieldName_) return;
  fieldName_ = name;
  UpdateField();
}

void TFieldDataLink::UpdateField() {
  if (Active() && !fieldName_.isEmpty()) {
    field_ = nullptr;
    SetField(DataSet()->FieldByName(fieldName_));
  } else {
    SetField(nullptr);
  }
}

void TFieldDataLink::SetField(TField* field) {
  if (field == field_) return;
  field_ = field;
  EditingChanged();
  RecordChanged(nullptr);
}

bool TFieldDataLink::CanModify() const { return !ReadOnly() && field_ && field_->CanModify(); }

bool TFieldDataLink::Edit() {
  if (CanModify()) TDataLink::Edit();
  return editing_;
}

void TFieldDataLink::ActiveChanged() {
  UpdateField();
  if (OnActiveChange) OnActiveChange(this);
}

void TFieldDataLink::FocusControl(TField*& field) {
  if (!field || field != field_ || !OnFocusControl) return;
  if (OnFocusControl(this)) field = nullptr;
}

void TFieldDataLink::EditingChanged() { SetFieldEditing(Editing() && CanModify()); }

void TFieldDataLink::SetFieldEditing(bool editing) {
  if (editing == editing_) return;
  editing_ = editing;
  modified_ = false;
  if (OnEditingChange) OnEditingChange(this);
}

void TFieldDataLink::RecordChanged(TField* field) {
  if (field && field != field_) return;
  if (OnDataChange) OnDataChange(this);
  modified_ = false;
}

void TFieldDataLink::UpdateData() {
  if (!modified_) return;
  if (field_ && OnUpdateData) OnUpdateData(this);
  modified_ = false;
}

}  // namespace quil
