// Movement of the cursor: every move of the record or the column ends here; and the
// grid's answer to a new left column.
#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"

namespace quil {

int TQuilCustomDBGrid::MoveBy(int distance, bool force) {
  if (!dataLink_->Active()) return 0;
  if (GetScrollGridMode()) {
    if (GetRecNumber() < 0) DataSet()->CheckBrowseMode();
    const int recNumber = GetRecNumber();
    if ((recNumber == 1 && distance < 0) || (recNumber == GetRecCount() && distance > 0))
      return dataLink_->MoveBy(distance);
    if (distance == 0) return 0;
    // The window must not run past either end of the data set.
    const int offset = dataLink_->ActiveRecord() - recNumber + 1;
    distance = distance < 0 ? std::max(distance, offset) : std::min(distance, GetRecCount() - GetVisibleRowCount() + offset);
    if (distance == 0) return 0;
    force = true;
  }
  if (!force) return dataLink_->MoveBy(distance);
  TDataSet* dataSet = DataSet();
  dataSet->CheckBrowseMode();
  HideEditor();
  int moved = 0;
  {
    ++positionLock_;
    TScopeExit lower([this] { --positionLock_; });
    DisablePosition();
    bool bof = false, eof = false;
    {
      TScopeExit enable([this] { EnablePosition(true); });
      moved = dataLink_->MoveBy(distance);
      SetupRecNumber(GetRecNumber() + moved);
      bof = dataLink_->Bof();
      eof = dataLink_->Eof();
    }
    if (bof) dataSet->Prior();
    if (eof) dataSet->Next();
  }
  AlwaysShowEditor();
  return moved;
}

void TQuilCustomDBGrid::MoveCol(int rawCol, int direction) {
  dataLink_->UpdateRecord();
  rawCol = std::clamp(rawCol, indicatorOffset_ + fixedCols_, std::max(ColCount() - 1, indicatorOffset_ + fixedCols_));
  if (direction != 0) {
    while (rawCol >= 0 && rawCol < ColCount() && ColWidths(rawCol) <= 0) rawCol += direction;
    if (rawCol < indicatorOffset_ + fixedCols_ || rawCol >= ColCount()) return;
  }
  if (rawCol == Col()) return;
  if (!inColExit_) {
    inColExit_ = true;
    const int before = Col();
    {
      TScopeExit clear([this] { inColExit_ = false; });
      ColExit();
    }
    if (Col() != before) return;
  }
  if (!options_.Contains(dgAlwaysShowEditor)) HideEditor();
  SetCol(rawCol);
  ColEnter();
}

int TQuilCustomDBGrid::GetPosition() const { return dataLink_->Active() ? dataLink_->ActiveRecord() : 0; }

void TQuilCustomDBGrid::SetPosition(int index) {
  if (!dataLink_->Active()) return;
  const int target = std::clamp(index, 0, std::max(dataLink_->RecordCount() - 1, 0));
  dataLink_->MoveBy(target - dataLink_->ActiveRecord());
}

// FIXME: row numbers keep the grid's own sequence under dgForceSequence, and grid mode
// counts on it; until then a data set whose numbers answer at once stands in for it.
bool TQuilCustomDBGrid::GetScrollGridMode() const {
  return optionsExt_.Contains(dgScrollGridMode) && dataLink_->Active() && DataSet()->IsSequenced();
}

// FIXME: row numbers keep their own counters under dgForceSequence.
// An SQL data set that has not counted its rows would count them all, and make the
// scroll or the paint that asked wait for it: such a data set gives no number and no
// count, and MoveBy moves it without grid mode, which needs both.
int TQuilCustomDBGrid::GetRecNumber() const {
  return dataLink_->Active() && DataSet()->IsSequenced() ? DataSet()->RecNo() : -1;
}

void TQuilCustomDBGrid::SetRecNumber(int value) {
  if (dataLink_->Active()) DataSet()->SetRecNo(value);
}

int TQuilCustomDBGrid::GetRecCount() const {
  return dataLink_->Active() && DataSet()->IsSequenced() ? DataSet()->RecordCount() : 0;
}

// FIXME: row numbers store these under dgForceSequence; without it the data set counts.
void TQuilCustomDBGrid::SetupRecNumber(int) {}
void TQuilCustomDBGrid::SetupRecCount(int) {}

// A tile that runs along the rows moves with the columns. The base moves the editor.
void TQuilCustomDBGrid::TopLeftChanged() {
  // FIXME: the horizontal flat scroll bar follows the left column here.
  InvalidateTile(idTileRow);
  if (HandleAllocated()) TCustomGrid::TopLeftChanged();
  // FIXME: a detail grid moves its master grid's left column along here.
  if (LeftCol() == lastLeftCol_) return;
  lastLeftCol_ = LeftCol();
  ColumnScroll(RawToDataColumn(lastLeftCol_));
}

void TQuilCustomDBGrid::ColumnScroll(int dataCol) {
  if (OnColumnScroll) OnColumnScroll(dataCol);
}

// FIXME: row selection keeps the selection and the position across the walk.
void TQuilCustomDBGrid::DisablePosition() {
  if (DataSet()) DataSet()->DisableControls();
}

void TQuilCustomDBGrid::EnablePosition(bool) {
  if (DataSet()) DataSet()->EnableControls();
}

// FIXME: the grid editor opens itself again here with dgAlwaysShowEditor.
void TQuilCustomDBGrid::AlwaysShowEditor() {}

int TQuilCustomDBGrid::GetFieldCount() const { return dataLink_->FieldCount(); }

TField* TQuilCustomDBGrid::GetFields(int index) const { return dataLink_->GetFields(index); }

bool TQuilCustomDBGrid::ValidFieldIndex(int index) const { return dataLink_->GetMappedIndex(index) >= 0; }

TField* TQuilCustomDBGrid::GetColField(int dataCol) const {
  if (dataCol < 0 || dataCol >= columns_->Count() || !dataLink_->Active()) return nullptr;
  return columns_->Items(dataCol)->Field();
}

}  // namespace quil
