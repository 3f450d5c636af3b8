#include "grid/QuilGridDataLink.h"

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"

namespace quil {

namespace {
constexpr int MaxMapSize = 0xFFFFFFF;
}

const TMetaClass& TQuilGridDataLink::StaticClass() {
  static const TMetaClass meta("TQuilGridDataLink", &TDataLink::StaticClass());
  return meta;
}

const TMetaClass& TQuilGridDataLink::ClassType() const { return StaticClass(); }

TQuilGridDataLink::TQuilGridDataLink(TQuilCustomDBGrid* grid) : grid_(grid) { SetVisualControl(true); }

bool TQuilGridDataLink::AddMapping(const QString& fieldName) {
  if (fieldCount_ >= MaxMapSize) throw EInvalidGridOperation(STooManyColumns);
  TDataSet* dataSet = DataSet();
  TField* field = sparseMap_ ? dataSet->FindField(fieldName) : dataSet->FieldByName(fieldName);
  if (fieldCount_ == int(fieldMap_.size()))
    fieldMap_.resize(size_t(fieldMap_.empty() ? 8 : std::min<int64_t>(int64_t(fieldMap_.size()) * 2, MaxMapSize)));
  int mapped = -1;
  if (field) {
    mapped = dataSet->FieldList()->IndexOf(field);
    field->FreeNotification(grid_);
  }
  fieldMap_[size_t(fieldCount_++)] = mapped;
  return true;
}

void TQuilGridDataLink::ClearMapping() {
  fieldMap_.clear();
  fieldCount_ = 0;
}

int TQuilGridDataLink::GetMappedIndex(int index) const {
  return index >= 0 && index < fieldCount_ ? fieldMap_[size_t(index)] : -1;
}

TField* TQuilGridDataLink::GetFields(int index) const {
  int mapped = GetMappedIndex(index);
  return mapped < 0 ? nullptr : DataSet()->FieldList()->Fields(mapped);
}

bool TQuilGridDataLink::GetDefaultFields() const {
  if (DataSet() && !DataSet()->DefaultFields()) return false;
  if (!sparseMap_) return true;
  for (int index = 0; index < fieldCount_; ++index)
    if (fieldMap_[size_t(index)] < 0) return false;
  return true;
}

void TQuilGridDataLink::Cancel() {
  ++grid_->positionLock_;
  TScopeExit lower([this] { --grid_->positionLock_; });
  DataSet()->Cancel();
}

void TQuilGridDataLink::Reset() {
  if (modified_) RecordChanged(nullptr);
  else Cancel();
}

void TQuilGridDataLink::ActiveChanged() {
  if (Active() && DataSet()->IsUniDirectional()) DatabaseError(SDataSetUnidirectional, DataSet());
  grid_->LinkActive(Active());
  modified_ = false;
}

void TQuilGridDataLink::DataSetChanged() {
  grid_->DataChanged();
  modified_ = false;
}

void TQuilGridDataLink::DataSetScrolled(int distance) { grid_->Scroll(distance); }

void TQuilGridDataLink::EditingChanged() { grid_->EditingChanged(); }

void TQuilGridDataLink::FocusControl(TField*& field) {
  if (!field) return;
  grid_->SetSelectedField(field);
  if (grid_->SelectedField() != field || !grid_->CanFocus()) return;
  grid_->SetFocus();
  field = nullptr;
  grid_->ShowEditor();
}

void TQuilGridDataLink::LayoutChanged() {
  bool saved = grid_->layoutFromDataSet_;
  grid_->layoutFromDataSet_ = true;
  {
    TScopeExit restore([this, saved] { grid_->layoutFromDataSet_ = saved; });
    grid_->LayoutChanged();
  }
  TDataLink::LayoutChanged();
}

void TQuilGridDataLink::RecordChanged(TField* field) {
  if (modified_ && field && field->FieldKind() == fkData && field != grid_->SelectedField() && !inUpdateData_) {
    TQuilDBGridColumns* columns = grid_->Columns();
    for (int index = 0; index < columns->Count(); ++index) {
      if (columns->Items(index)->FieldName().compare(field->FieldName(), Qt::CaseInsensitive) != 0) continue;
      if (index >= grid_->FixedCols()) UpdateData();
      break;
    }
  }
  grid_->RecordChanged(field);
  modified_ = false;
}

void TQuilGridDataLink::UpdateData() {
  inUpdateData_ = true;
  TScopeExit clear([this] {
    modified_ = false;
    inUpdateData_ = false;
  });
  if (modified_) grid_->UpdateData();
}

}  // namespace quil
