// How the grid follows its data link: binding, activation, data and record changes,
// and scrolling of the record window.
#include <cstdlib>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "grid/QuilDBGrid.h"

namespace quil {

TDataSource* TQuilCustomDBGrid::DataSource() const { return dataLink_->DataSource(); }

TDataSet* TQuilCustomDBGrid::DataSet() const { return dataLink_->DataSet(); }

void TQuilCustomDBGrid::SetDataSource(TDataSource* value) {
  if (value == dataLink_->DataSource()) return;
  // FIXME: totals refuse the totals' own data source here as a circular link.
  if (value && value->DataSet() && value->DataSet()->IsUniDirectional())
    DatabaseError(SDataSetUnidirectional, value->DataSet());
  ClearSelection();
  dataLink_->SetDataSource(value);
  if (value) value->FreeNotification(this);
}

void TQuilCustomDBGrid::LinkActive(bool value) {
  if (ComponentState().Contains(csDestroying)) return;
  if (value && !ComponentState().Contains(csDesigning) && columns_->State() == csDefault &&
      optionsExt_.Contains(dgForceCustomized))
    columns_->SetState(csCustomized);
  if (!value) {
    HideEditor();
    SetRow(titleOffset_);
  }
  ClearSelection();
  LayoutChanged();
  // FIXME: drop-down lists built for the old data are freed here, column filters take
  // over the data set's filter, and stretching starts.
  UpdateListItems(false);
  UpdateSequence(false);
  UpdateScrollBar();
  UpdateRowCount();
  // FIXME: ordering loads or applies the order, the tree view checks its state, master
  // grids synchronize, and layout persistence loads the stored layout once.
  if (value) AlwaysShowEditor();
  UpdateTotals(true);
}

void TQuilCustomDBGrid::DataChanged() {
  if (!HandleAllocated() || GetUpdateInProgress()) return;
  // FIXME: the end of a pending selection also holds these back.
  if (DataSet()->State() == dsBrowse && positionLock_ == 0) {
    // FIXME: the tree view hears of the change here.
    UpdateListItems(true);
    UpdateSequence(true);
    UpdateTotals(true);
  }
  UpdateRowCount();
  UpdateScrollBar();
  UpdateActive();
  InvalidateEditor();
  // Whatever was queued is covered by the whole invalidation: the change paints once.
  ValidateRect(ClientRect());
  Invalidate();
}

void TQuilCustomDBGrid::RecordChanged(TField* field) {
  if (!HandleAllocated()) return;
  if (field) {
    // FIXME: the tree view hears of the change here.
    for (int dataCol = 0; dataCol < columns_->Count(); ++dataCol) {
      TQuilColumn* column = columns_->Items(dataCol);
      TField* shown = column->Field();
      if (!column->GetShowing() || !shown) continue;
      bool depends = shown == field || (shown->FieldKind() == fkLookup &&
                                        shown->KeyFields().compare(field->FieldName(), Qt::CaseInsensitive) == 0);
      if (depends) InvalidateCol(DataToRawColumn(dataCol));
    }
  } else {
    InvalidateData();
  }
  TotalsChanged();
  if (!field || field == SelectedField()) {
    if (InplaceEditor() && EditorMode() && GetEditText(Col(), Row()) != InplaceEditor()->Text()) {
      InvalidateEditor();
      InplaceEditor()->Deselect();
    }
  }
  // FIXME: the column model copies lookup results into their fields when a key changes.
}

void TQuilCustomDBGrid::EditingChanged() {
  if (options_.Contains(dgIndicator) && lastDrawnCurrentRow_ >= 0) InvalidateCell(0, lastDrawnCurrentRow_);
}

void TQuilCustomDBGrid::UpdateActive() {
  if (!dataLink_->Active() || !HandleAllocated() || ComponentState().Contains(csLoading)) return;
  const int newRow = dataLink_->ActiveRecord() + titleOffset_;
  if (Row() != newRow) {
    if (!options_.Contains(dgAlwaysShowEditor)) HideEditor();
    MoveColRow(Col(), newRow, false, false);
    InvalidateEditor();
  }
  if (options_.Contains(dgEditing) && options_.Contains(dgAllowInsertOff)) {
    TGridOptions base = TCustomGrid::Options();
    TCustomGrid::SetOptions(base.Switch(goEditing, !DataSet()->IsEmpty()));
  }
  // FIXME: scrolling resets the vertical scroll bar of an inactive link.
}

// FIXME: the grid editor writes its text into the selected field here.
void TQuilCustomDBGrid::UpdateData() {}

void TQuilCustomDBGrid::Scroll(int distance) {
  if (!HandleAllocated()) return;
  const int oldRow = Row();
  const int lineExtra = options_.Contains(dgRowLines) && stripeColor_ == clNone ? GridLineWidth() : 0;
  auto currentBox = [this, lineExtra] {
    TRect box = RowBox(Row());
    box.Bottom += lineExtra;
    return box;
  };
  const TRect oldBox = currentBox();
  // A record that came in below the last data row needs its row first.
  if (dataLink_->ActiveRecord() >= RowCount() - titleOffset_ - totalRows_) UpdateRowCount();
  UpdateActive();
  SetupRecNumber(GetRecNumber() + distance + Row() - oldRow);
  UpdateScrollBar();
  const TRect newBox = currentBox();
  ValidateRect(oldBox);
  InvalidateRect(oldBox);
  InvalidateRect(newBox);
  if (distance != 0) {
    HideEditor();
    // FIXME: gradients invalidate the whole grid when a tile moves with the data.
    if (std::abs(distance) > GetVisibleRowCount() || stripeColor_ != clNone) {
      InvalidateData();
    } else {
      if (options_.Contains(dgIndicator)) InvalidateCell(0, oldRow);
      ScrollDataRows(distance);
      if (options_.Contains(dgIndicator)) InvalidateRect(newBox);
    }
    AlwaysShowEditor();
  }
  TotalsChanged();
  if (updateLock_ == 0) Update();
}

// Moves the pixels of the data rows and paints only the rows that come into view.
void TQuilCustomDBGrid::ScrollDataRows(int distance) {
  const int lastDataRow = totalRows_ > 0 ? RowCount() - totalRows_ - 1 : RowCount() - 1;
  TRect area = CellRect(0, titleOffset_);
  area.Left = 0;
  area.Right = ClientWidth();
  area.Bottom = totalRows_ > 0 ? BoxRect(0, lastDataRow, 0, lastDataRow).Bottom + GetRowLineWidth() : ClientHeight();
  if (area.IsEmpty()) return;
  const int shift = -distance * GetRowHeight();
  ScrollWindowEx(0, shift, &area, &area);
  TRect exposed = area;
  if (shift < 0) exposed.Top = std::max(area.Top, area.Bottom + shift);
  else exposed.Bottom = std::min(area.Bottom, area.Top + shift);
  InvalidateRect(exposed);
}

void TQuilCustomDBGrid::WMSize(TMessage& message) {
  TCustomGrid::WMSize(message);
  dataLink_->UpdateRecord();
  if (updateLock_ == 0) UpdateRowCount();
  UpdateScrollBar();
  // FIXME: the search panel, borders, corner, totals and stretching follow the size.
  InvalidateEditor();
}

void TQuilCustomDBGrid::CMExit(TMessage& message) {
  TDataSet* dataSet = DataSet();
  if (dataLink_->Active() && options_.Contains(dgCancelOnExit) && dataSet->State() == dsInsert &&
      !dataSet->Modified() && !dataLink_->IsModified())
    dataLink_->Cancel();
  else if (dataLink_->Active())
    dataLink_->UpdateRecord();
  TCustomGrid::CMExit(message);
}

}  // namespace quil
