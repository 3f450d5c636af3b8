// The layout transaction and InternalLayout: how the option sets and the columns become
// the base grid's rows and columns.
#include "framework/controls/Menus.h"
#include "framework/controls/MessageQueue.h"
#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"

namespace quil {

void TQuilCustomDBGrid::BeginUpdate() { ++updateLock_; }

void TQuilCustomDBGrid::EndUpdate() {
  if (updateLock_ > 0) --updateLock_;
}

void TQuilCustomDBGrid::BeginLayout() {
  BeginUpdate();
  if (layoutLock_ == 0) columns_->BeginUpdate();
  ++layoutLock_;
}

void TQuilCustomDBGrid::EndLayout() {
  if (layoutLock_ == 0) return;
  if (layoutLock_ == 1) {
    // Guards run in reverse: the columns end their update while the lock still holds,
    // so the change they report joins this layout.
    TScopeExit lower([this] {
      --layoutLock_;
      EndUpdate();
    });
    TScopeExit endColumns([this] { columns_->EndUpdate(); });
    InternalLayout();
    return;
  }
  --layoutLock_;
  EndUpdate();
}

void TQuilCustomDBGrid::CancelLayout() {
  if (layoutLock_ == 0) return;
  if (layoutLock_ == 1) columns_->EndUpdate();
  --layoutLock_;
  EndUpdate();
}

bool TQuilCustomDBGrid::AcquireLayoutLock() {
  if (updateLock_ != 0 || layoutLock_ != 0) return false;
  BeginLayout();
  return true;
}

void TQuilCustomDBGrid::LayoutChanged() {
  if (AcquireLayoutLock()) EndLayout();
}

void TQuilCustomDBGrid::DeferLayout() {
  if (HandleAllocated() && !PeekMessage(nullptr, this, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE))
    PostMessage(this, CM_DEFERLAYOUT, 0, 0);
  CancelLayout();
}

// A busy lock belongs to a running transaction, which must not be cancelled from here:
// the message only waits for the next round.
void TQuilCustomDBGrid::CMDeferLayout(TMessage&) {
  if (AcquireLayoutLock()) EndLayout();
  else if (!PeekMessage(nullptr, this, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE))
    PostMessage(this, CM_DEFERLAYOUT, 0, 0);
}

void TQuilCustomDBGrid::Dispatch(TMessage& message) {
  if (message.Msg == CM_DEFERLAYOUT) CMDeferLayout(message);
  else TCustomGrid::Dispatch(message);
}

void TQuilCustomDBGrid::InternalLayout() {
  if (ComponentState().Intersects({csLoading, csDestroying})) return;
  // This layout does the work that a deferred one would. The queue hands out only the
  // message asked for: a request to quit goes through Qt's event loop, never through it.
  if (HandleAllocated()) PeekMessage(nullptr, this, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_REMOVE);
  FreeMixedColumns();
  indicatorOffset_ = options_.Contains(dgIndicator) ? 1 : 0;
  dataLink_->ClearMapping();
  if (dataLink_->Active()) DefineFieldMap();
  BindColumns();
  ListVisibleColumns();
  SetColCount(columns_->Count() + indicatorOffset_);
  if (!dataLink_->Active() && columns_->State() == csDefault) {
    TCustomGrid::SetFixedCols(indicatorOffset_);
  } else {
    RepairExpandCols();
    RepairFixedCols();
    TCustomGrid::SetFixedCols(indicatorOffset_ + fixedCols_);
  }
  UpdateSelectionOffset();
  titleOffset_ = uint8_t(ComputeTitleOffset());
  ComputeTotalRows();
  RecreateMarkers();
  UpdateRowCount();
  MeasureRows();
  UpdateRowCount();
  TQuilColumn* current = SelectedColumn();
  if (current && !current->GetShowing()) MoveCol(Col(), 1);
  UpdateScrollBar();
  UpdateHorzFlatSB();
  SetColumnAttributes();
  UpdateActive();
  UpdateRowCount();
  Invalidate();
}

// Stored columns that follow default ones mean the application defined its own: the
// default ones go.
void TQuilCustomDBGrid::FreeMixedColumns() {
  bool sawDefault = false, mixed = false;
  for (int index = 0; index < columns_->Count() && !mixed; ++index) {
    if (!columns_->Items(index)->Stored()) sawDefault = true;
    else if (sawDefault) mixed = true;
  }
  if (!mixed) return;
  for (int index = columns_->Count() - 1; index >= 0; --index)
    if (!columns_->Items(index)->Stored()) columns_->Delete(index);
}

void TQuilCustomDBGrid::BindColumns() {
  if (columns_->State() == csCustomized) {
    for (TQuilColumn* column : *columns_) column->SetField(nullptr);
  } else {
    BindDefaultColumns();
    AddAutomaticColumns();
  }
  // The total cells find their fields again when they next need them.
  for (TQuilColumn* column : *columns_) {
    column->TotalHeader()->SetField(nullptr);
    for (int index = 0; index < column->TotalValues()->Count(); ++index)
      column->TotalValues()->Value(index)->SetField(nullptr);
    column->TotalFields()->SetField(nullptr);
    column->TotalFooter()->SetField(nullptr);
  }
}

// Each goes to the front, so that the last added stands first: number, select, expand.
void TQuilCustomDBGrid::AddAutomaticColumns() {
  if (optionsExt_.Contains(dgAutoExpandColumn)) columns_->AddAutoExpand();
  if (optionsExt_.Contains(dgAutoSelectColumn)) columns_->AddAutoSelect();
  if (optionsExt_.Contains(dgAutoNumberColumn)) columns_->AddAutoNumber();
}

void TQuilCustomDBGrid::BindDefaultColumns() {
  TDataSet* dataSet = DataSet();
  if (!dataLink_->Active() && dataSet && dataSet->DefaultFields()) {
    columns_->Clear();
  } else {
    for (int index = columns_->Count() - 1; index >= 0; --index) {
      TField* field = columns_->Items(index)->Field();
      bool linked = false;
      for (int mapped = 0; mapped < dataLink_->FieldCount() && !linked; ++mapped)
        linked = field && dataLink_->GetFields(mapped) == field;
      if (!linked) columns_->Delete(index);
    }
  }
  const int count = dataLink_->FieldCount() == 0 && columns_->Count() == 0 ? 1 : dataLink_->FieldCount();
  for (int dataCol = 0; dataCol < count; ++dataCol) {
    TField* field = dataLink_->GetFields(dataCol);
    TQuilColumn* column = nullptr;
    for (int search = dataCol; field && search < columns_->Count() && !column; ++search)
      if (columns_->Items(search)->Field() == field) column = columns_->Items(search);
    if (!column) {
      column = columns_->InternalAdd();
      column->SetField(field);
    }
    column->SetIndex(dataCol);
  }
}

void TQuilCustomDBGrid::ListVisibleColumns() {
  visibleColumns_.clear();
  columns_->UpdateParentColumns();
  for (TQuilColumn* column : *columns_)
    if (column->GetShowing()) visibleColumns_.push_back(column);
}

TQuilColumn* TQuilCustomDBGrid::ColumnAtDepth(TQuilColumn* column, int depth) const {
  while (column && column->Depth() > depth) column = column->ParentColumn();
  return column;
}

// A group reaches to the end of the group of its last column, and never past the last
// column of the grid.
void TQuilCustomDBGrid::RepairExpandCols() {
  for (int index = columns_->Count() - 1; index >= 0; --index) {
    TQuilColumn* column = columns_->Items(index);
    const int limit = columns_->Count() - 1 - index;
    if (column->ExpandCols() > limit) column->SetExpandCols(limit);
    if (!column->GetExpandable() || column->ExpandCols() == 0) continue;
    TQuilColumn* owner = ColumnAtDepth(columns_->Items(index + column->ExpandCols()), column->Depth());
    if (owner) column->SetExpandCols(owner->GetExpandIndex() - index);
  }
}

// A frozen block keeps one column scrollable and never cuts a group.
void TQuilCustomDBGrid::RepairFixedCols() {
  fixedCols_ = std::min(fixedCols_, std::max(columns_->Count() - 1, 0));
  if (fixedCols_ <= 0) return;
  TQuilColumn* topLevel = ColumnAtDepth(columns_->Items(fixedCols_ - 1), 0);
  fixedCols_ = topLevel->GetExpandIndex() + 1;
  if (fixedCols_ == columns_->Count()) fixedCols_ = topLevel->Index();
}

int TQuilCustomDBGrid::ComputeTitleOffset() const {
  if (!options_.Contains(dgTitles)) return 0;
  int depth = 0;
  for (TQuilColumn* column : visibleColumns_) depth = std::max(depth, column->Depth());
  return 1 + depth;
}

bool TQuilCustomDBGrid::ColumnReadOnly(TQuilColumn* column) const {
  if (column->ReadOnly()) return true;
  const TQuilLookupColumn lookup = column->GetLookupColumn();
  if (lookup != lcLookupField && lookup != lcLookupResultField) return false;
  TDataSet* dataSet = DataSet();
  TField* key = dataSet ? dataSet->FindField(column->KeyField()) : nullptr;
  return !key || key->ReadOnly();
}

void TQuilCustomDBGrid::SetColumnAttributes() {
  for (int dataCol = 0; dataCol < columns_->Count(); ++dataCol) {
    TQuilColumn* column = columns_->Items(dataCol);
    TField* field = column->Field();
    bool stops = column->GetShowing() && !ColumnReadOnly(column) && dataLink_->Active() && field &&
                 field->FieldKind() != fkCalculated && !field->ReadOnly();
    const int rawCol = DataToRawColumn(dataCol);
    SetTabStops(rawCol, stops);
    SetColWidths(rawCol, column->GetWidth());
  }
  if (options_.Contains(dgIndicator)) SetColWidths(0, indicatorWidth_);
}

void TQuilCustomDBGrid::DefineFieldMap() {
  if (columns_->State() == csCustomized) {
    dataLink_->SetSparseMap(true);
    for (int index = 0; index < columns_->Count(); ++index) dataLink_->AddMapping(columns_->Items(index)->FieldName());
    return;
  }
  dataLink_->SetSparseMap(false);
  TFieldList* fields = DataSet()->FieldList();
  for (int index = 0; index < fields->Count(); ++index)
    if (fields->Fields(index)->Visible()) dataLink_->AddMapping(fields->Fields(index)->FullName());
}

// --- Loading, removal of referenced components, streaming

void TQuilCustomDBGrid::Loaded() {
  TCustomGrid::Loaded();
  if (columns_->Count() > 0) SetColCount(columns_->Count());
  const bool designing = ComponentState().Contains(csDesigning);
  settings_->SetAutoLoadPending(!designing);
  if (!designing && search_->PanelVisible()) ShowSearchPanel();
  LayoutChanged();
  filterGrid_->UpdateColumns();
  UpdateFilterText();
  if (filterGrid_->Active() || search_->FilterActive() || treeView_->Active()) FilterChanged();
}

void TQuilCustomDBGrid::Notification(TComponent* component, TOperation operation) {
  TCustomGrid::Notification(component, operation);
  if (operation != opRemove || ComponentState().Contains(csDestroying)) return;
  if (dataLink_ && component == dataLink_->DataSource()) {
    SetDataSource(nullptr);
    return;
  }
  // FIXME: master grids, the totals' images, the total cells' menus and the totals' data
  // source let go of the component here once their holders exist.
  if (component == indicatorImages_) indicatorImages_ = nullptr;
  if (component == titleMarkers_) titleMarkers_ = nullptr;
  if (component == titleImages_) titleImages_ = nullptr;
  if (component == fillerPopupMenu_) fillerPopupMenu_ = nullptr;
  if (component == indicatorPopupMenu_) indicatorPopupMenu_ = nullptr;
  for (TQuilColumn* column : *columns_) {
    if (column->LookupDataSet() == component) column->SetLookupDataSet(nullptr);
    if (column->Images() == component) column->SetImages(nullptr);
    if (column->PopupMenu() == component) column->SetPopupMenu(nullptr);
    if (column->DropDownMenu() == component) column->SetDropDownMenu(nullptr);
    if (column->Title()->PopupMenu() == component) column->Title()->SetPopupMenu(nullptr);
    if (column->Title()->DropDownMenu() == component) column->Title()->SetDropDownMenu(nullptr);
  }
  if (component == static_cast<TComponent*>(PopupMenu())) SetPopupMenu(nullptr);
  auto* field = dynamic_cast<TField*>(component);
  if (!field) return;
  // FIXME: totals take the totals' data set as the one concerned when a total field
  // cell let go of the field.
  BeginLayout();
  bool bound = false;
  for (TQuilColumn* column : *columns_) {
    if (column->BoundField() == field) {
      column->SetField(nullptr);
      bound = true;
    }
    ForEachTotalCell(column, [&](TQuilColumnTotal* cell) {
      if (cell->Field() != field) return;
      cell->SetField(nullptr);
      bound = true;
    });
  }
  TDataSet* dataSet = DataSet();
  if (!bound || (dataSet && (dataSet->ControlsDisabled() || dataSet->ComponentState().Contains(csDestroying))))
    DeferLayout();
  else
    EndLayout();
}

bool TQuilCustomDBGrid::NeedsNotification(TComponent* component) const {
  auto* field = dynamic_cast<TField*>(component);
  if (!field || !columns_) return false;
  int references = 0;
  for (TQuilColumn* column : *columns_) {
    if (column->BoundField() == field) ++references;
    ForEachTotalCell(column, [&](TQuilColumnTotal* cell) {
      if (cell->Field() == field) ++references;
    });
  }
  return references > 1;
}

void TQuilCustomDBGrid::ForgetColumn(TQuilColumn* column) {
  if (pressedColumn_ == column) pressedColumn_ = nullptr;
  if (hotColumn_ == column) hotColumn_ = nullptr;
  if (filterListColumn_ == column) filterListColumn_ = nullptr;
}

void TQuilCustomDBGrid::ColExpand(TQuilColumn* column) {
  if (OnColExpand) OnColExpand(column);
}

void TQuilCustomDBGrid::CellExpand(TQuilColumn* column) {
  if (OnCellExpand) OnCellExpand(column);
}

void TQuilCustomDBGrid::ReadColumns(TReader& reader) {
  columns_->Clear();
  if (reader.NextValue() == vaNil) {
    reader.ReadValue();
    return;
  }
  reader.CheckValue(vaCollection);
  reader.ReadCollection(columns_.get());
}

void TQuilCustomDBGrid::WriteColumns(TWriter& writer) {
  if (columns_->State() == csCustomized) writer.WriteCollection(columns_.get());
  else writer.WriteValue(vaNil);
}

// An inherited grid writes its columns only where they differ from its ancestor's.
bool TQuilCustomDBGrid::ColumnsDiffer(const TFiler* filer) const {
  auto* ancestor = dynamic_cast<const TQuilCustomDBGrid*>(filer->Ancestor());
  if (!ancestor) return columns_->State() == csCustomized;
  const TQuilDBGridColumns* theirs = ancestor->Columns();
  if (theirs->State() != columns_->State()) return true;
  return columns_->State() == csCustomized && !columns_->Equals(theirs);
}

void TQuilCustomDBGrid::DefineProperties(TFiler* filer) {
  TCustomGrid::DefineProperties(filer);
  filer->DefineProperty(
      QStringLiteral("Columns"), [this](TReader& reader) { ReadColumns(reader); },
      [this](TWriter& writer) { WriteColumns(writer); }, ColumnsDiffer(filer));
  // The order comes back through each title's stored marker, so the text read is dropped.
  const QString orderFields = GetOrderFields();
  filer->DefineProperty(
      QStringLiteral("OrderFields"), [](TReader& reader) { reader.ReadString(); },
      [orderFields](TWriter& writer) { writer.WriteString(orderFields); }, !orderFields.isEmpty());
}

}  // namespace quil
