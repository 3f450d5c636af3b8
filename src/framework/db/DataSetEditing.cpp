// The edit cycle of TDataSet: entering dsEdit and dsInsert, posting, cancelling and
// deleting, with their Before and After events.

#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

void TDataSet::CheckBrowseMode() {
  CheckActive();
  // Every move asks this first: the event is not sent where no control would hear it.
  if (!ControlsDisabled() && !dataSources_.empty()) DataEvent(deCheckBrowseMode, 0);
  switch (state_) {
    case dsEdit: case dsInsert:
      UpdateRecord();
      if (modified_) Post();
      else Cancel();
      break;
    case dsSetKey: Post(); break;
    default: break;
  }
}

void TDataSet::UpdateRecord() {
  if (!IsEditState(state_)) DatabaseError(SNotEditing, this);
  DataEvent(deUpdateRecord, 0);
}

void TDataSet::InitRecord(TRecordBuffer buffer) {
  InternalInitRecord(buffer);
  ClearCalcFields(buffer);
  SetBookmarkFlag(buffer, bfInserted);
}

void TDataSet::Edit() {
  if (state_ == dsEdit || state_ == dsInsert) return;
  if (recordCount_ == 0) {
    Insert();
    return;
  }
  CheckBrowseMode();
  CheckCanModify();
  Fire(BeforeEdit);
  UpdateCursorPos();
  InternalEdit();
  GetCalcFields(ActiveBuffer());
  SetState(dsEdit);
  DataEvent(deRecordChange, 0);
  Fire(AfterEdit);
}

void TDataSet::BeginInsertAppend() {
  CheckBrowseMode();
  CheckCanModify();
  Fire(BeforeInsert);
  DoBeforeScroll();
}

void TDataSet::EndInsertAppend() {
  SetState(dsInsert);
  try {
    DoOnNewRecord();
  } catch (...) {
    UpdateCursorPos();
    SetState(dsBrowse);
    Resync({});
    throw;
  }
  modified_ = false;
  DataEvent(deDataSetChange, 0);
  Fire(AfterInsert);
  DoAfterScroll();
}

void TDataSet::Insert() {
  BeginInsertAppend();
  const TBookmark before = GetBookmark();
  // The spare buffer takes the active place; the window's last record may drop out.
  MoveBuffer(recordCount_, activeRecord_);
  TRecordBuffer buffer = ActiveBuffer();
  InitRecord(buffer);
  if (recordCount_ == 0) SetBookmarkFlag(buffer, bfBOF);
  else SetBookmarkData(buffer, before.data());
  if (recordCount_ < bufferCount_) ++recordCount_;
  CursorPosChanged();
  InternalInsert();
  EndInsertAppend();
}

void TDataSet::Append() {
  BeginInsertAppend();
  ClearBuffers();
  TRecordBuffer buffer = Slot(0);
  InitRecord(buffer);
  SetBookmarkFlag(buffer, bfEOF);
  recordCount_ = 1;
  bof_ = false;
  GetPriorRecords();
  InternalLast();
  EndInsertAppend();
}

void TDataSet::InternalPost() {
  for (TField* field : *fields_)
    if (field->Required() && !field->ReadOnly() && field->FieldKind() == fkData && field->IsNull()) {
      field->FocusControl();
      field->RaiseRequired();
    }
}

void TDataSet::Post() {
  UpdateRecord();
  if (state_ != dsEdit && state_ != dsInsert) return;
  DataEvent(deCheckBrowseMode, 0);
  Fire(BeforePost);
  InternalPost();
  SetState(dsBrowse);
  Resync({});
  Fire(AfterPost);
}

void TDataSet::Cancel() {
  if (state_ != dsEdit && state_ != dsInsert) return;
  DataEvent(deCheckBrowseMode, 0);
  Fire(BeforeCancel);
  const bool scrolls = state_ == dsInsert;
  if (scrolls) DoBeforeScroll();
  UpdateCursorPos();
  InternalCancel();
  SetState(dsBrowse);
  Resync({});
  Fire(AfterCancel);
  if (scrolls) DoAfterScroll();
}

void TDataSet::Delete() {
  CheckActive();
  if (state_ == dsInsert || state_ == dsSetKey) {
    Cancel();
    return;
  }
  if (recordCount_ == 0) DatabaseError(SDataSetEmpty, this);
  CheckCanModify();
  DataEvent(deCheckBrowseMode, 0);
  Fire(BeforeDelete);
  DoBeforeScroll();
  UpdateCursorPos();
  InternalDelete();
  SetState(dsBrowse);
  Resync({});
  Fire(AfterDelete);
  DoAfterScroll();
}

void TDataSet::ClearFields() {
  if (!IsEditState(state_)) DatabaseError(SNotEditing, this);
  DataEvent(deCheckBrowseMode, 0);
  InternalInitRecord(ActiveBuffer());
  if (state_ != dsSetKey) GetCalcFields(ActiveBuffer());
  DataEvent(deRecordChange, 0);
}

void TDataSet::SetFields(const std::vector<Variant>& values) {
  if (!IsEditState(state_)) DatabaseError(SNotEditing, this);
  for (size_t index = 0; index < values.size(); ++index)
    if (!VarIsEmpty(values[index])) fields_->Fields(int(index))->SetAsVariant(values[index]);
}

void TDataSet::DoInsertAppendRecord(const std::vector<Variant>& values, bool append) {
  if (append) Append();
  else Insert();
  try {
    SetFields(values);
  } catch (...) {
    Cancel();
    throw;
  }
  Post();
}

void TDataSet::AppendRecord(const std::vector<Variant>& values) { DoInsertAppendRecord(values, true); }
void TDataSet::InsertRecord(const std::vector<Variant>& values) { DoInsertAppendRecord(values, false); }

void TDataSet::CheckFieldWrite(TField* field, const void* buffer) {
  static constexpr TDataSetState writable[] = {dsEdit, dsInsert, dsSetKey, dsCalcFields,
                                               dsFilter, dsNewValue, dsInternalCalc};
  if (std::find(std::begin(writable), std::end(writable), state_) == std::end(writable))
    DatabaseError(SNotEditing, this);
  if (field->FieldNo() <= 0) return;
  if (state_ == dsCalcFields) DatabaseError(SNotEditing, this);
  if (field->ReadOnly() && state_ != dsSetKey && state_ != dsFilter)
    DatabaseError(Format(SFieldReadOnly, {field->DisplayName()}), this);
  field->Validate(buffer);
}

void TDataSet::FieldWritten(TField* field) {
  if (state_ != dsCalcFields && state_ != dsFilter && state_ != dsNewValue && state_ != dsInternalCalc)
    DataEvent(deFieldChange, reinterpret_cast<intptr_t>(field));
}

}  // namespace quil
