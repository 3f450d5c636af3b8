// Deferred work: totals, record numbers, list items and the end of a selection run on
// timers made on demand, so that a run of changes gives one calculation.
#include "framework/db/DataSet.h"
#include "grid/QuilDBGrid.h"

namespace quil {

// Marks a recalculation in progress; data changes meanwhile recalculate nothing.
class TQuilCustomDBGrid::TBusyScope {
public:
  explicit TBusyScope(TQuilCustomDBGrid& grid) : grid_(grid) { ++grid_.busyCount_; }
  ~TBusyScope() { --grid_.busyCount_; }
  TBusyScope(const TBusyScope&) = delete;
  TBusyScope& operator=(const TBusyScope&) = delete;

private:
  TQuilCustomDBGrid& grid_;
};

int DelayInterval = 200;

TTimer* TQuilCustomDBGrid::CreateTimer(TQuilDelayTimer which) {
  auto* timer = new TTimer(nullptr);
  switch (which) {
    case dtEndSelect: timer->SetOnTimer(TNotifyEvent(this, &TQuilCustomDBGrid::DelayEndSelect)); break;
    case dtListItems: timer->SetOnTimer(TNotifyEvent(this, &TQuilCustomDBGrid::DelayUpdateListItems)); break;
    case dtSequence: timer->SetOnTimer(TNotifyEvent(this, &TQuilCustomDBGrid::DelayUpdateSequence)); break;
    case dtTotals: timer->SetOnTimer(TNotifyEvent(this, &TQuilCustomDBGrid::DelayUpdateTotals)); break;
  }
  return timer;
}

// Starts (or restarts) the timer when the work may wait; false when it must run now.
bool TQuilCustomDBGrid::StartDelay(TQuilDelayTimer which, bool delayed) {
  if (!delayed || ComponentState().Contains(csDesigning) || !Showing()) return false;
  if (!timers_[which]) timers_[which].reset(CreateTimer(which));
  timers_[which]->SetInterval(unsigned(DelayInterval));
  return true;
}

std::unique_ptr<TTimer> TQuilCustomDBGrid::TakeTimer(TQuilDelayTimer which) {
  std::unique_ptr<TTimer> timer = std::move(timers_[which]);
  if (timer) timer->SetEnabled(false);
  return timer;
}

void TQuilCustomDBGrid::UpdateTotals(bool automatic) {
  if (ComponentState().Contains(csLoading) || GetUpdateInProgress()) return;
  if (automatic && !optionsEx_.Contains(dgAutoUpdateTotals)) return;
  const bool rowsShow = totalHeaderRows_ + totalValuesRows_ + totalFooterRows_ + GetTotalFieldsRowCount() > 0;
  if (!totals_->CalcValues() || !(rowsShow || optionsEx_.Contains(dgCalcInvisibleRows))) return;
  if (!StartDelay(dtTotals, optionsEx_.Contains(dgDelayUpdateTotals))) RecalcTotals();
}

void TQuilCustomDBGrid::UpdateSequence(bool automatic) {
  if (ComponentState().Contains(csLoading) || GetUpdateInProgress()) return;
  if (automatic && !optionsEx_.Contains(dgAutoUpdateSequence)) return;
  // FIXME: row numbers exist only under dgForceSequence, kept by the grid itself.
  if (!options_.Contains(dgForceSequence)) return;
  if (!StartDelay(dtSequence, optionsEx_.Contains(dgDelayUpdateSequence))) RecalcSequence();
}

// FIXME: pick lists tell whether a column loads its list items automatically; none does yet.
void TQuilCustomDBGrid::UpdateListItems(bool automatic) {
  if (ComponentState().Intersects({csLoading, csDestroying}) || GetUpdateInProgress()) return;
  if (automatic && !optionsExt_.Contains(dgAutoUpdateListItems)) return;
}

void TQuilCustomDBGrid::DelayUpdateTotals(TObject*) {
  TakeTimer(dtTotals);
  RecalcTotals();
}

void TQuilCustomDBGrid::DelayUpdateSequence(TObject*) {
  TakeTimer(dtSequence);
  if (!RecalcSequence()) return;
  UpdateScrollBar();
  UpdateHorzFlatSB();
  UpdateActive();
  InvalidateEditor();
  ValidateRect(ClientRect());
  Invalidate();
}

void TQuilCustomDBGrid::DelayUpdateListItems(TObject*) {
  TakeTimer(dtListItems);
  ReloadListItems();
}

// FIXME: row selection finishes a delayed selection here.
void TQuilCustomDBGrid::DelayEndSelect(TObject*) { TakeTimer(dtEndSelect); }

// FIXME: totals calculation runs here.
void TQuilCustomDBGrid::RecalcTotals() {
  TBusyScope busy(*this);
  TotalsChanged(trCalcValue, nullptr);
}

bool TQuilCustomDBGrid::RecalcSequence() {
  TBusyScope busy(*this);
  return UpdateSequenceValues();
}

// FIXME: row numbers recompute the record number and count here.
bool TQuilCustomDBGrid::UpdateSequenceValues() { return false; }

// FIXME: pick lists reload their items here.
void TQuilCustomDBGrid::ReloadListItems() { TBusyScope busy(*this); }

void TQuilCustomDBGrid::PerformDelayed() {
  if (dataLink_->Active()) DataSet()->CheckBrowseMode();
  if (timers_[dtEndSelect]) DelayEndSelect(nullptr);
  if (timers_[dtListItems]) DelayUpdateListItems(nullptr);
  if (timers_[dtSequence]) DelayUpdateSequence(nullptr);
  if (timers_[dtTotals]) DelayUpdateTotals(nullptr);
}

// FIXME: totals repaint the cells that match, or lay out again for captions.
void TQuilCustomDBGrid::TotalsChanged(TTotalResult, TField*) {}

// FIXME: scrolling sets the vertical scroll bar from the record number and count.
void TQuilCustomDBGrid::UpdateScrollBar() {}

}  // namespace quil
