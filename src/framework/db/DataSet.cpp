#include "framework/db/DataSet.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_set>

#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/Fields.h"
#include "framework/rtl/ExceptionHandler.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TDataSet::StaticClass() {
  static const TMetaClass meta = TMetaClass("TDataSet", &TComponent::StaticClass())
      .Published(BoolProp("Active", &TDataSet::Active, &TDataSet::SetActive).Default(false))
      .Published(BoolProp("AutoCalcFields", &TDataSet::AutoCalcFields, &TDataSet::SetAutoCalcFields).Default(true))
      .Published(StrProp("Filter", &TDataSet::Filter, &TDataSet::SetFilter))
      .Published(BoolProp("Filtered", &TDataSet::Filtered, &TDataSet::SetFiltered).Default(false))
      .Published(SetProp("FilterOptions", &TDataSet::FilterOptions, &TDataSet::SetFilterOptions)
                     .Default(TFilterOptions()))
      .Published(ObjectProp("FieldDefs", &TDataSet::FieldDefs));
  return meta;
}

const TMetaClass& TDataSet::ClassType() const { return StaticClass(); }

TDataSet::TDataSet(TComponent* owner)
    : TComponent(owner),
      fields_(std::make_unique<TFields>(this)),
      fieldList_(std::make_unique<TFieldList>(this)),
      fieldDefs_(std::make_unique<TFieldDefs>(this)) {}

TDataSet::~TDataSet() {
  Destroying();
  try {
    SetActive(false);
  } catch (...) {
    // A destructor cannot report a failed close; the buffers are gone all the same.
  }
  while (!dataSources_.empty()) dataSources_.back()->SetDataSet(nullptr);
  // Fields belong to the data set whoever owns them: they cannot outlive it.
  while (fields_->Count() > 0) delete fields_->Fields(fields_->Count() - 1);
}

// --- Opening and closing --------------------------------------------------------------

void TDataSet::SetActive(bool active) {
  if (ComponentState().Contains(csLoading)) {
    streamedActive_ = active;
    return;
  }
  if (active == Active()) return;
  if (active) {
    Fire(BeforeOpen);
    OpenCursor();
    SetState(dsBrowse);
    Fire(AfterOpen);
    if (!IsEmpty()) DoAfterScroll();
    return;
  }
  if (!ComponentState().Contains(csDestroying)) Fire(BeforeClose);
  SetState(dsInactive);
  CloseCursor();
  if (!ComponentState().Contains(csDestroying)) Fire(AfterClose);
}

void TDataSet::Loaded() {
  TComponent::Loaded();
  if (streamedActive_) SetActive(true);
}

void TDataSet::OpenCursor() {
  state_ = dsOpening;
  try {
    defaultFields_ = fields_->Count() == 0;
    InternalOpen();
    UpdateBufferCount();
    bof_ = true;
  } catch (...) {
    state_ = dsInactive;
    CloseCursor();
    throw;
  }
}

void TDataSet::CloseCursor() {
  ClearBuffers();
  SetBufListSize(0);
  if (IsCursorOpen()) InternalClose();
  defaultFields_ = false;
}

void TDataSet::CheckActive() const {
  if (!Active()) DatabaseError(SDataSetClosed, this);
}

void TDataSet::CheckInactive() const {
  if (Active()) DatabaseError(SDataSetOpen, this);
}

void TDataSet::CheckBiDirectional() const {
  if (uniDirectional_) DatabaseError(SDataSetUnidirectional, this);
}

void TDataSet::CheckCanModify() const {
  if (!CanModify()) DatabaseError(SDataSetReadOnly, this);
}

// --- State and notification -----------------------------------------------------------

TDataSet::TStateScope::TStateScope(TDataSet& dataSet, TDataSetState state)
    : dataSet_(dataSet), saved_(dataSet.state_), savedModified_(dataSet.modified_) {
  dataSet_.state_ = state;
  ++dataSet_.disableCount_;
}

TDataSet::TStateScope::~TStateScope() {
  dataSet_.state_ = saved_;
  dataSet_.modified_ = savedModified_;
  --dataSet_.disableCount_;
}

void TDataSet::SetState(TDataSetState state) {
  if (state == state_) return;
  state_ = state;
  modified_ = false;
  DataEvent(deUpdateState, 0);
}

void TDataSet::DisableControls() {
  if (disableCount_ == 0) {
    disableState_ = state_;
    enableEvent_ = deDataSetChange;
  }
  ++disableCount_;
}

void TDataSet::EnableControls() {
  if (disableCount_ == 0) return;
  if (--disableCount_ != 0) return;
  if (disableState_ != state_) DataEvent(deUpdateState, 0);
  if (disableState_ != dsInactive && state_ != dsInactive) DataEvent(enableEvent_, 0);
}

void TDataSet::DataEvent(TDataEvent event, intptr_t info) {
  bool notify = !ControlsDisabled() && state_ != dsBlockRead;
  switch (event) {
    case deFieldChange: HandleFieldChange(reinterpret_cast<TField*>(info)); break;
    case deFieldListChange:
      fieldList_->SetUpdated(false);
      // The links miss the change while disabled: the deferred event must redo layouts.
      if (ControlsDisabled()) enableEvent_ = deLayoutChange;
      break;
    case dePropertyChange: fieldDefs_->SetUpdated(false); break;
    case deLayoutChange:
      fieldList_->SetUpdated(false);
      if (ControlsDisabled()) enableEvent_ = deLayoutChange;
      break;
    case deUpdateState:
      // Disabled controls still learn whether the data set is open at all.
      if (ControlsDisabled()) {
        event = deDisabledStateChange;
        info = state_ != dsInactive;
        notify = true;
        if (state_ == dsInactive) enableEvent_ = deLayoutChange;
      }
      break;
    default: break;
  }
  if (!notify) return;
  const std::vector<TDataSource*> sources = dataSources_;
  for (TDataSource* source : sources) source->DataEvent(event, info);
}

void TDataSet::HandleFieldChange(TField* field) {
  if (field->FieldKind() == fkData || field->FieldKind() == fkInternalCalc) modified_ = true;
  if (state_ == dsSetKey) return;
  if (field->FieldKind() == fkData && autoCalcFields_) GetCalcFields(ActiveBuffer());
  field->Change();
}

void TDataSet::RegisterDataSource(TDataSource* dataSource) {
  dataSources_.push_back(dataSource);
  UpdateBufferCount();
}

void TDataSet::UnRegisterDataSource(TDataSource* dataSource) {
  dataSources_.erase(std::remove(dataSources_.begin(), dataSources_.end(), dataSource), dataSources_.end());
  // Its links may have held the window open wider than the others need.
  if (!ComponentState().Contains(csDestroying)) UpdateBufferCount();
}

std::vector<TDataLink*> TDataSet::DataLinks() const {
  std::vector<TDataLink*> links;
  for (const TDataSource* source : dataSources_)
    for (int index = 0; index < source->DataLinkCount(); ++index) links.push_back(source->DataLinks(index));
  return links;
}

bool TDataSet::IsLinkedTo(const TDataSource* dataSource) const {
  for (const TDataSet* dataSet = this; dataSet;) {
    const TDataSource* master = dataSet->GetDataSource();
    if (!master) return false;
    if (master == dataSource) return true;
    dataSet = master->DataSet();
  }
  return false;
}

void TDataSet::Notification(TComponent* component, TOperation operation) {
  TComponent::Notification(component, operation);
}

void TDataSet::InternalHandleException() {
  if (!ApplicationHandleException()) throw;
  ApplicationHandleException()(this);
}

// --- Consistency ----------------------------------------------------------------------

namespace {
void Require(bool condition, const char* what) {
  if (!condition) throw std::logic_error(what);
}
}  // namespace

void TDataSet::CheckConsistency() const {
  if (!Active()) {
    Require(recordCount_ == 0 && buffers_.empty(), "a closed data set keeps buffers");
    return;
  }
  Require(int(RingSize()) == bufferCount_ + 1 && buffers_.size() == 2 * RingSize(),
          "the window must have BufferCount + 1 buffers");
  Require(std::equal(buffers_.begin(), buffers_.begin() + std::ptrdiff_t(RingSize()),
                     buffers_.begin() + std::ptrdiff_t(RingSize())),
          "the ring's two copies differ");
  Require(recordCount_ >= 0 && recordCount_ <= bufferCount_, "more records than buffers");
  Require(recordCount_ == 0 ? activeRecord_ == 0 : activeRecord_ >= 0 && activeRecord_ < recordCount_,
          "the active record lies outside the window");
  Require(currentRecord_ >= -1 && currentRecord_ < std::max(recordCount_, 1),
          "the cursor's buffer lies outside the window");
  Require(!(recordCount_ > 0 && state_ == dsBrowse && (bof_ && eof_)), "records in an empty data set");
  std::unordered_set<TRecordBuffer> distinct(buffers_.begin(), buffers_.begin() + std::ptrdiff_t(RingSize()));
  Require(distinct.size() == RingSize() && !distinct.count(nullptr), "buffers repeat or are missing");
  if (state_ == dsBrowse)
    for (int index = 0; index < recordCount_; ++index)
      Require(GetBookmarkFlag(Slot(index)) == bfCurrent, "a browsed buffer holds no record");
  CheckLinksConsistency();
}

}  // namespace quil
