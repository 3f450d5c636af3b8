// How the grid follows its data link: binding, activation, data and record changes,
// and scrolling of the record window.
#include <cstdlib>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/SystemInfo.h"
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
  // FIXME: row selection hears of the activation here.
  ClearSelection();
  LayoutChanged();
  FreeDockedGrids();
  UpdateFilter();
  UpdateListItems(false);
  UpdateSequence(false);
  UpdateScrollBar();
  UpdateHorzFlatSB();
  UpdateRowCount();
  SetStretchActive();
  if (value && optionsEx_.Contains(dgLoadCurrentOrder)) SetupCurrentOrder();
  treeView_->CheckState();
  if (treeView_->Active()) DataSet()->First();
  if (value) {
    // FIXME: ordering applies the stored order, or sets the markers from it, here.
    Synchronize();
    AlwaysShowEditor();
  }
  if (value && settings_->AutoLoadPending()) {
    settings_->SetAutoLoadPending(false);
    if (settings_->Active()) {
      DisablePosition();
      TScopeExit enable([this] { EnablePosition(true); });
      settings_->AutoLoadLayout();
      DataSet()->First();
      return;
    }
  }
  UpdateTotals(true);
}

// Drop-down lists are grids docked into this one for the old data; they go with it.
void TQuilCustomDBGrid::FreeDockedGrids() {
  for (int index = ComponentCount() - 1; index >= 0; --index) {
    auto* grid = dynamic_cast<TQuilCustomDBGrid*>(Components(index));
    if (grid && grid->DragKind() == dkDock) delete grid;
  }
}

void TQuilCustomDBGrid::DataChanged() {
  if (!HandleAllocated() || GetUpdateInProgress()) return;
  // FIXME: the end of a pending selection also holds these back.
  if (DataSet()->State() == dsBrowse && positionLock_ == 0) {
    treeView_->CheckUpdate(nullptr);
    UpdateListItems(true);
    UpdateSequence(true);
    UpdateTotals(true);
  }
  UpdateRowCount();
  UpdateScrollBar();
  UpdateHorzFlatSB();
  UpdateActive();
  InvalidateEditor();
  // Whatever was queued is covered by the whole invalidation: the change paints once.
  ValidateRect(ClientRect());
  Invalidate();
}

void TQuilCustomDBGrid::RecordChanged(TField* field) {
  if (!HandleAllocated()) return;
  if (field) {
    treeView_->CheckUpdate(field);
    for (int dataCol = 0; dataCol < columns_->Count(); ++dataCol) {
      TQuilColumn* column = columns_->Items(dataCol);
      TField* shown = column->Field();
      if (!column->GetShowing() || !shown) continue;
      const bool depends = shown == field || (shown->FieldKind() == fkLookup &&
                                        shown->KeyFields().compare(field->FieldName(), Qt::CaseInsensitive) == 0);
      if (!depends) continue;
      InvalidateCol(DataToRawColumn(dataCol));
      TotalsChanged(trDataField, field);
    }
  } else {
    InvalidateData();
    TotalsChanged(trDataField, nullptr);
  }
  // Taking the field's text back would end a Korean composition under way.
  const bool composing =
      SysLocale.PriLangID == LANG_KOREAN && InplaceEditor() && InplaceEditor()->ImeComposing();
  if (!composing && (!field || field == SelectedField()) && EditTextDiffers()) {
    InvalidateEditor();
    if (InplaceEditor()) InplaceEditor()->Deselect();
  }
  if (field) CopyLookupResults(field);
}

bool TQuilCustomDBGrid::EditTextDiffers() {
  const QString editorText = InplaceEditor() ? InplaceEditor()->Text() : QString();
  TQuilColumn* column = SelectedColumn();
  return column && column->GetEditText() != editorText;
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
  if (EditTextDiffers()) InvalidateEditor();
  if (options_.Contains(dgEditing) && options_.Contains(dgAllowInsertOff)) {
    TGridOptions base = TCustomGrid::Options();
    TCustomGrid::SetOptions(base.Switch(goEditing, !DataSet()->IsEmpty()));
  }
  // FIXME: scrolling resets the vertical scroll bar of an inactive link.
}

// A key typed into the grid brings the looked-up values of its result columns along.
void TQuilCustomDBGrid::CopyLookupResults(TField* field) {
  for (int index = 0; index < columns_->Count(); ++index) {
    TQuilColumn* column = columns_->Items(index);
    TField* target = column->Field();
    if (column->GetLookupColumn() != lcLookupResultField || !target || !target->CanModify() ||
        column->KeyField().compare(field->FieldName(), Qt::CaseInsensitive) != 0)
      continue;
    if (!dataLink_->Edit()) return;
    if (field->IsNull()) {
      target->SetValue(field->Value());
      continue;
    }
    TDataSet* lookup = column->LookupDataSet();
    const bool openedHere = !lookup->Active();
    if (openedHere) lookup->Open();
    TScopeExit close([lookup, openedHere] {
      if (openedHere) lookup->Close();
    });
    if (lookup->Locate(column->LookupKeyField(), field->Value(), {}))
      target->SetValue(lookup->FieldByName(column->LookupResultField())->Value());
    else
      target->Clear();
  }
}

void TQuilCustomDBGrid::UpdateData() {
  if (TQuilColumn* column = SelectedColumn()) column->SetEditText(editText_);
}

void TQuilCustomDBGrid::Scroll(int distance) {
  if (!HandleAllocated()) return;
  const int oldRow = Row();
  // The first column the row boxes start from.
  int firstCol = 0;
  if (!options_.Contains(dgIndicator)) {
    while (firstCol < ColCount() - 1 && ColWidths(firstCol) <= 0) ++firstCol;
  }
  const int lineExtra = options_.Contains(dgRowLines) && stripeColor_ == clNone ? GridLineWidth() : 0;
  auto currentBox = [this, lineExtra, firstCol] {
    TRect box = BoxRect(firstCol, Row(), ColCount() - 1, Row());
    box.Bottom += lineExtra;
    return box;
  };
  const TRect oldBox = currentBox();
  // The active record on the last data row may have come in below it: rows first.
  if (dataLink_->ActiveRecord() >= RowCount() - titleOffset_ - totalRows_ - 1) UpdateRowCount();
  UpdateActive();
  SetupRecNumber(GetRecNumber() + distance + Row() - oldRow);
  UpdateScrollBar();
  const TRect newBox = currentBox();
  ValidateRect(oldBox);
  InvalidateRect(oldBox);
  InvalidateRect(newBox);
  if (distance != 0) {
    HideEditor();
    if (InvalidateTile(idTileCol)) {
      // A tile that moves with the data repainted the whole grid.
    } else if (std::abs(distance) > GetVisibleRowCount() || stripeColor_ != clNone) {
      InvalidateData();
    } else {
      if (options_.Contains(dgIndicator)) InvalidateCell(0, oldRow);
      ScrollDataRows(distance);
      if (options_.Contains(dgIndicator)) InvalidateRect(newBox);
    }
    AlwaysShowEditor();
  }
  TotalsChanged(trDataField, nullptr);
  if (updateLock_ == 0) Update();
}

// Moves the pixels of the data rows and paints only the rows that come into view. The
// area ends at the last data row's line: below it lies the blank row or the strip left
// over when the height is not a whole number of rows, which no row may be moved into.
// The box spans all columns, since column 0 may be scrolled out of view.
void TQuilCustomDBGrid::ScrollDataRows(int distance) {
  const int lastDataRow = RowCount() - totalRows_ - 1;
  const TRect rows = BoxRect(0, titleOffset_, ColCount() - 1, lastDataRow);
  if (rows.IsEmpty()) return;
  const TRect area{0, rows.Top, ClientWidth(), std::min(rows.Bottom + GetRowLineWidth(), ClientHeight())};
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
  UpdateHorzFlatSB();
  UpdateSearchPanel();
  // A new size repaints the whole window, its frame too: the titles, the totals at the
  // bottom edge, the border and the corner need nothing of their own.
  StretchGrid();
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
