#include "framework/db/DataSource.h"

#include <algorithm>
#include <cassert>

#include "framework/db/DataSet.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

// --- TDataSource ----------------------------------------------------------------------

const TMetaClass& TDataSource::StaticClass() {
  static const TMetaClass meta = TMetaClass("TDataSource", &TComponent::StaticClass())
      .Creates<TDataSource>()
      .Published(BoolProp("AutoEdit", &TDataSource::AutoEdit, &TDataSource::SetAutoEdit).Default(true))
      .Published(ObjectProp("DataSet", &TDataSource::DataSet, &TDataSource::SetDataSet))
      .Published(BoolProp("Enabled", &TDataSource::Enabled, &TDataSource::SetEnabled).Default(true));
  return meta;
}

const TMetaClass& TDataSource::ClassType() const { return StaticClass(); }

TDataSource::TDataSource(TComponent* owner) : TComponent(owner) {}

TDataSource::~TDataSource() {
  Destroying();
  SetDataSet(nullptr);
  while (!dataLinks_.empty()) dataLinks_.back()->SetDataSource(nullptr);
}

void TDataSource::SetDataSet(TDataSet* dataSet) {
  if (dataSet == dataSet_) return;
  if (IsLinkedTo(dataSet)) DatabaseError(SCircularDataLink, this);
  // The links hear the old data set go before the new one comes, even when both are
  // open: their rows, fields and buffers belonged to the old one.
  if (TDataSet* old = dataSet_) {
    old->UnRegisterDataSource(this);
    RemoveFreeNotification(old);
    dataSet_ = nullptr;
    UpdateState();
  }
  dataSet_ = dataSet;
  if (dataSet_) {
    FreeNotification(dataSet_);
    dataSet_->RegisterDataSource(this);
  }
  UpdateState();
}

bool TDataSource::IsLinkedTo(const TDataSet* dataSet) const {
  while (dataSet) {
    const TDataSource* master = dataSet->GetDataSource();
    if (!master) return false;
    if (master == this) return true;
    dataSet = master->DataSet();
  }
  return false;
}

void TDataSource::SetEnabled(bool enabled) {
  enabled_ = enabled;
  UpdateState();
}

void TDataSource::Edit() {
  if (autoEdit_ && state_ == dsBrowse) dataSet_->Edit();
}

void TDataSource::AddDataLink(TDataLink* link) {
  dataLinks_.push_back(link);
  link->dataSource_ = this;
  if (dataSet_) dataSet_->UpdateBufferCount();
  link->UpdateState();
}

void TDataSource::RemoveDataLink(TDataLink* link) {
  link->dataSource_ = nullptr;
  dataLinks_.erase(std::remove(dataLinks_.begin(), dataLinks_.end(), link), dataLinks_.end());
  link->UpdateState();
  if (dataSet_) dataSet_->UpdateBufferCount();
}

void TDataSource::DataEvent(TDataEvent event, intptr_t info) {
  if (event == deUpdateState) {
    UpdateState();
    return;
  }
  // With controls disabled the links learn only that the data set opened or closed;
  // a change between open states waits for EnableControls.
  if (event == deDisabledStateChange) {
    if (!info) SetState(dsInactive);
    else if (state_ == dsInactive) UpdateState();
    return;
  }
  if (state_ == dsInactive) return;
  NotifyDataLinks(event, info);
  switch (event) {
    case deFieldChange:
      if (OnDataChange) OnDataChange(this, reinterpret_cast<TField*>(info));
      break;
    case deRecordChange: case deDataSetChange: case deDataSetScroll: case deLayoutChange:
      if (OnDataChange) OnDataChange(this, nullptr);
      break;
    case deUpdateRecord:
      if (OnUpdateData) OnUpdateData(this);
      break;
    default: break;
  }
}

void TDataSource::NotifyDataLinks(TDataEvent event, intptr_t info) {
  const std::vector<TDataLink*> links = dataLinks_;
  for (TDataLink* link : links)
    if (std::find(dataLinks_.begin(), dataLinks_.end(), link) != dataLinks_.end()) link->DataEvent(event, info);
}

void TDataSource::UpdateState() {
  SetState(enabled_ && dataSet_ ? dataSet_->State() : dsInactive);
}

void TDataSource::SetState(TDataSetState state) {
  if (state == state_) return;
  const TDataSetState prior = state_;
  state_ = state;
  NotifyDataLinks(deUpdateState, 0);
  if (ComponentState().Contains(csDestroying)) return;
  if (OnStateChange) OnStateChange(this);
  if (prior == dsInactive && OnDataChange) OnDataChange(this, nullptr);
}

void TDataSource::Notification(TComponent* component, TOperation operation) {
  TComponent::Notification(component, operation);
  if (operation == opRemove && component == dataSet_) SetDataSet(nullptr);
}

// --- TDataLink ------------------------------------------------------------------------

const TMetaClass& TDataLink::StaticClass() {
  static const TMetaClass meta("TDataLink", &TPersistent::StaticClass());
  return meta;
}

const TMetaClass& TDataLink::ClassType() const { return StaticClass(); }

TDataLink::~TDataLink() {
  dataSourceFixed_ = false;
  if (dataSource_) dataSource_->RemoveDataLink(this);
}

TDataSet* TDataLink::DataSet() const { return dataSource_ ? dataSource_->DataSet() : nullptr; }

void TDataLink::SetDataSource(TDataSource* dataSource) {
  if (dataSource == dataSource_) return;
  if (dataSourceFixed_) DatabaseError(SDataSourceChange, dataSource_);
  if (dataSource_) dataSource_->RemoveDataLink(this);
  if (dataSource) dataSource->AddDataLink(this);
}

void TDataLink::SetReadOnly(bool readOnly) {
  if (readOnly == readOnly_) return;
  readOnly_ = readOnly;
  UpdateState();
}

void TDataLink::UpdateState() {
  SetActive(dataSource_ && dataSource_->State() != dsInactive);
  SetEditing(dataSource_ && IsEditState(dataSource_->State()) && !readOnly_);
}

void TDataLink::SetActive(bool active) {
  if (active == active_) return;
  active_ = active;
  if (active) UpdateRange();
  else firstRecord_ = 0;
  ActiveChanged();
}

void TDataLink::SetEditing(bool editing) {
  if (editing == editing_) return;
  editing_ = editing;
  EditingChanged();
}

int TDataLink::ActiveRecord() const {
  if (!active_ || dataSource_->State() == dsSetKey) return 0;
  return DataSet()->activeRecord_ - firstRecord_;
}

void TDataLink::SetActiveRecord(int value) {
  if (!active_ || dataSource_->State() == dsSetKey) return;
  assert(value >= 0 && value < RecordCount() && "the active record must be one of the link's rows");
  DataSet()->activeRecord_ = value + firstRecord_;
}

void TDataLink::SetBufferCount(int value) {
  if (value == bufferCount_) return;
  bufferCount_ = value;
  if (!active_) return;
  DataSet()->UpdateBufferCount();
  UpdateRange();
}

int TDataLink::RecordCount() const {
  if (!active_) return 0;
  if (dataSource_->State() == dsSetKey) return 1;
  return std::clamp(DataSet()->recordCount_ - firstRecord_, 0, bufferCount_);
}

void TDataLink::UpdateRange() {
  const TDataSet* dataSet = DataSet();
  if (!dataSet) {
    firstRecord_ = 0;
    return;
  }
  const int lowest = std::max(0, dataSet->activeRecord_ - bufferCount_ + 1);
  const int highest = std::max(lowest, std::min(dataSet->activeRecord_, dataSet->recordCount_ - bufferCount_));
  firstRecord_ = std::clamp(firstRecord_, lowest, highest);
}

bool TDataLink::Edit() {
  if (!readOnly_ && dataSource_) dataSource_->Edit();
  return editing_;
}

void TDataLink::UpdateRecord() {
  updating_ = true;
  TFinally done([this] { updating_ = false; });
  UpdateData();
}

int TDataLink::MoveBy(int distance) { return DataSet()->MoveBy(distance); }
bool TDataLink::Bof() const { return DataSet()->Bof(); }
bool TDataLink::Eof() const { return DataSet()->Eof(); }

void TDataLink::DataEvent(TDataEvent event, intptr_t info) {
  if (event == deUpdateState) {
    UpdateState();
    return;
  }
  if (!active_) return;
  switch (event) {
    case deFieldChange: case deRecordChange:
      if (!updating_) RecordChanged(reinterpret_cast<TField*>(info));
      break;
    case deDataSetChange: case deDataSetScroll: case deLayoutChange: {
      int distance = 0;
      if (dataSource_->State() != dsSetKey) {
        const int active = DataSet()->activeRecord_;
        const int first = firstRecord_ + int(info);
        const int last = first + bufferCount_ - 1;
        if (active > last) distance = active - last;
        else if (active < first) distance = active - first;
        firstRecord_ = first + distance;
      }
      if (event == deDataSetScroll) {
        DataSetScrolled(distance);
        break;
      }
      UpdateRange();
      if (event == deDataSetChange) DataSetChanged();
      else LayoutChanged();
      break;
    }
    case deUpdateRecord: UpdateRecord(); break;
    case deCheckBrowseMode: CheckBrowseMode(); break;
    case deFocusControl: FocusControl(*reinterpret_cast<TField**>(info)); break;
    default: break;
  }
}

}  // namespace quil
