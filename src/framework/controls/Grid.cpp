// TCustomGrid: construction, counts, sizes and options.

#include <QWidget>
#include <algorithm>
#include <vector>

#include "framework/controls/Grids.h"
#include "framework/controls/ScrollBars.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TGridDrawingStyle) {
  static const TEnumTypeInfo info("TGridDrawingStyle", {"gdsClassic", "gdsThemed", "gdsGradient"});
  return info;
}

void TGridExtents::Set(int index, int size) {
  if (size == default_) custom_.erase(index);
  else custom_[index] = size;
}

void TGridExtents::SetDefault(int size) {
  default_ = size;
  custom_.clear();
}

void TGridExtents::Truncate(int count) { custom_.erase(custom_.lower_bound(count), custom_.end()); }

void TGridExtents::Move(int from, int to) {
  if (from == to) return;
  int moved = Get(from);
  int low = std::min(from, to), high = std::max(from, to);
  int shift = from < to ? -1 : 1;
  std::vector<std::pair<int, int>> between(custom_.lower_bound(low), custom_.upper_bound(high));
  custom_.erase(custom_.lower_bound(low), custom_.upper_bound(high));
  for (const auto& [index, size] : between)
    if (index != from) custom_[index + shift] = size;
  Set(to, moved);
}

void TGridExtents::Scale(int multiplier, int divider) {
  default_ = MulDiv(default_, multiplier, divider);
  for (auto& entry : custom_) entry.second = MulDiv(entry.second, multiplier, divider);
}

const TMetaClass& TCustomGrid::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomGrid", &TCustomControl::StaticClass());
  return meta;
}

const TMetaClass& TCustomGrid::ClassType() const { return StaticClass(); }

TCustomGrid::TCustomGrid(TComponent* owner) : TCustomControl(owner), scrollTimer_(std::make_unique<TTimer>(nullptr)) {
  SetControlStyle({csCaptureMouse, csOpaque, csDoubleClicks});
  SetTabStop(true);
  SetColor(clWindow);
  SetParentColor(false);
  SetBounds(0, 0, 320, 120);
  scrollTimer_->SetEnabled(false);
  scrollTimer_->SetInterval(60);
  scrollTimer_->SetOnTimer(TNotifyEvent(this, &TCustomGrid::ScrollTimerTick));
}

TCustomGrid::~TCustomGrid() {
  Destroying();
  // The editor is a child control; it goes with the window, before the grid's state.
  inplaceEdit_ = nullptr;
}

void TCustomGrid::Loaded() {
  TCustomControl::Loaded();
  UpdateScrollRange();
}

void TCustomGrid::CreateWnd() {
  TCustomControl::CreateWnd();
  UpdateScrollRange();
  if (options_.Contains(goAlwaysShowEditor)) ShowEditor();
}

void TCustomGrid::ChangeSize(int newColCount, int newRowCount) {
  int oldColCount = colCount_, oldRowCount = rowCount_;
  TGridCoord oldTopLeft = topLeft_;
  colCount_ = newColCount;
  rowCount_ = newRowCount;
  colWidths_.Truncate(newColCount);
  rowHeights_.Truncate(newRowCount);
  tabStops_.erase(tabStops_.lower_bound(newColCount), tabStops_.end());
  auto clampCoord = [&](TGridCoord& coord) {
    coord.X = std::clamp(coord.X, fixedCols_, std::max(colCount_ - 1, fixedCols_));
    coord.Y = std::clamp(coord.Y, fixedRows_, std::max(rowCount_ - 1, fixedRows_));
  };
  clampCoord(current_);
  clampCoord(anchor_);
  clampCoord(topLeft_);
  TGridCoord clamped = topLeft_;
  SizeChanged(oldColCount, oldRowCount);
  InvalidateGrid();
  if (oldColCount != newColCount) ColWidthsChanged();
  if (oldRowCount != newRowCount) RowHeightsChanged();
  TopLeftReset(oldTopLeft, clamped);
}

// After the new counts moved the top-left cell to reset and the whole grid was
// invalidated: unless the new scroll range has moved it on (and said so), the scroll
// bars and TopLeftChanged follow here.
void TCustomGrid::TopLeftReset(const TGridCoord& oldTopLeft, const TGridCoord& reset) {
  if (reset == oldTopLeft || topLeft_ != reset) return;
  UpdateScrollPos();
  TopLeftChanged();
}

void TCustomGrid::Initialize() {
  topLeft_ = {fixedCols_, fixedRows_};
  current_ = topLeft_;
  anchor_ = current_;
  if (options_.Contains(goRowSelect)) anchor_.X = colCount_ - 1;
}

void TCustomGrid::SetColCount(int count) {
  count = std::max(count, 1);
  if (count == colCount_) return;
  if (count <= fixedCols_) fixedCols_ = count - 1;
  ChangeSize(count, rowCount_);
}

void TCustomGrid::SetRowCount(int count) {
  count = std::max(count, 1);
  if (count == rowCount_) return;
  if (count <= fixedRows_) fixedRows_ = count - 1;
  ChangeSize(colCount_, count);
}

void TCustomGrid::SetFixedCols(int count) {
  if (count < 0 || count >= colCount_) throw EInvalidGridOperation(QStringLiteral("Fixed column count must be less than column count"));
  if (count == fixedCols_) return;
  fixedCols_ = count;
  TGridCoord oldTopLeft = topLeft_;
  Initialize();
  TGridCoord reset = topLeft_;
  InvalidateGrid();
  ColWidthsChanged();
  TopLeftReset(oldTopLeft, reset);
}

void TCustomGrid::SetFixedRows(int count) {
  if (count < 0 || count >= rowCount_) throw EInvalidGridOperation(QStringLiteral("Fixed row count must be less than row count"));
  if (count == fixedRows_) return;
  fixedRows_ = count;
  TGridCoord oldTopLeft = topLeft_;
  Initialize();
  TGridCoord reset = topLeft_;
  InvalidateGrid();
  RowHeightsChanged();
  TopLeftReset(oldTopLeft, reset);
}

void TCustomGrid::SetCol(int col) {
  if (col != current_.X) FocusCell(col, current_.Y, true);
}

void TCustomGrid::SetRow(int row) {
  if (row != current_.Y) FocusCell(current_.X, row, true);
}

void TCustomGrid::SetLeftCol(int col) {
  if (col != topLeft_.X) MoveTopLeft(col, topLeft_.Y);
}

void TCustomGrid::SetTopRow(int row) {
  if (row != topLeft_.Y) MoveTopLeft(topLeft_.X, row);
}

void TCustomGrid::SetDefaultColWidth(int width) {
  if (width == colWidths_.Default() && !colWidths_.HasCustom()) return;
  colWidths_.SetDefault(width);
  InvalidateGrid();
  ColWidthsChanged();
}

void TCustomGrid::SetDefaultRowHeight(int height) {
  if (height == rowHeights_.Default() && !rowHeights_.HasCustom()) return;
  rowHeights_.SetDefault(height);
  InvalidateGrid();
  RowHeightsChanged();
}

void TCustomGrid::SetColWidths(int col, int width) {
  if (col < 0 || col >= colCount_) throw EInvalidGridOperation(QStringLiteral("Grid index out of range"));
  if (colWidths_.Get(col) == width) return;
  colWidths_.Set(col, width);
  InvalidateGrid();
  ColWidthsChanged();
}

void TCustomGrid::SetRowHeights(int row, int height) {
  if (row < 0 || row >= rowCount_) throw EInvalidGridOperation(QStringLiteral("Grid index out of range"));
  if (rowHeights_.Get(row) == height) return;
  rowHeights_.Set(row, height);
  InvalidateGrid();
  RowHeightsChanged();
}

bool TCustomGrid::TabStops(int col) const {
  auto found = tabStops_.find(col);
  return found == tabStops_.end();
}

void TCustomGrid::SetTabStops(int col, bool stops) {
  if (stops) tabStops_.erase(col);
  else tabStops_[col] = false;
}

void TCustomGrid::SetGridLineWidth(int width) {
  if (width == gridLineWidth_) return;
  gridLineWidth_ = std::max(width, 0);
  InvalidateGrid();
  ColWidthsChanged();
  RowHeightsChanged();
}

void TCustomGrid::SetFixedColor(TColor color) {
  if (color == fixedColor_) return;
  fixedColor_ = color;
  InvalidateGrid();
}

void TCustomGrid::SetOptions(TGridOptions options) {
  if (options == options_) return;
  const bool editingChanged = options.Contains(goEditing) != options_.Contains(goEditing);
  if (options.Contains(goRowSelect)) options.Exclude(goAlwaysShowEditor);
  options_ = options;
  if (!editorMode_) {
    if (options.Contains(goAlwaysShowEditor)) ShowEditor();
  } else if (!options.Contains(goEditing) || options.Contains(goRowSelect)) {
    HideEditor();
  }
  if (options.Contains(goRowSelect)) {
    anchor_.X = colCount_ - 1;
    current_.X = fixedCols_;
  }
  InvalidateGrid();
  UpdateScrollRange();
  if (editingChanged) UpdateInputMethod();
}

void TCustomGrid::UpdateInputMethod() {
  TCustomControl::UpdateInputMethod();
  if (!HandleAllocated()) return;
  const bool off = ImeMode() == imDisable || ImeMode() == imClose;
  Handle()->setAttribute(Qt::WA_InputMethodEnabled, options_.Contains(goEditing) && !off);
}

void TCustomGrid::SetScrollBars(TScrollStyle scrollBars) {
  if (scrollBars == scrollBars_) return;
  scrollBars_ = scrollBars;
  UpdateScrollRange();
}

void TCustomGrid::SetBorderStyle(TBorderStyle style) {
  if (style == borderStyle_) return;
  borderStyle_ = style;
  Perform(CM_BORDERCHANGED, 0, 0);
}

void TCustomGrid::SetDefaultDrawing(bool defaultDrawing) {
  if (defaultDrawing == defaultDrawing_) return;
  defaultDrawing_ = defaultDrawing;
  InvalidateGrid();
}

TGridRect TCustomGrid::Selection() const {
  return {std::min(anchor_.X, current_.X), std::min(anchor_.Y, current_.Y),
          std::max(anchor_.X, current_.X), std::max(anchor_.Y, current_.Y)};
}

void TCustomGrid::SetSelection(const TGridRect& selection) {
  TGridRect oldSel = Selection();
  anchor_ = {selection.Right, selection.Bottom};
  current_ = {selection.Left, selection.Top};
  ClampInView(current_);
  SelectionMoved(oldSel);
}

void TCustomGrid::ColWidthsChanged() {
  UpdateScrollRange();
  UpdateEdit();
}

void TCustomGrid::RowHeightsChanged() {
  UpdateScrollRange();
  UpdateEdit();
}

void TCustomGrid::TopLeftChanged() {
  if (editorMode_ && inplaceEdit_) inplaceEdit_->UpdateLoc(CellRect(current_.X, current_.Y));
}

void TCustomGrid::ChangeScale(int multiplier, int divider) {
  if (multiplier != divider) {
    colWidths_.Scale(multiplier, divider);
    rowHeights_.Scale(multiplier, divider);
  }
  TCustomControl::ChangeScale(multiplier, divider);
  ColWidthsChanged();
  RowHeightsChanged();
}

void TCustomGrid::CMFontChanged(TMessage& message) {
  if (inplaceEdit_) inplaceEdit_->SetFont(Font());
  TCustomControl::CMFontChanged(message);
}

void TCustomGrid::WMNCCalcSize(TMessage& message) {
  auto* rect = reinterpret_cast<TRect*>(message.LParam);
  if (borderStyle_ == bsSingle) {
    int border = Ctl3D() ? 2 : 1;
    rect->Inflate(-border, -border);
  }
  TCustomControl::WMNCCalcSize(message);
}

void TCustomGrid::WMSize(TMessage& message) {
  TCustomControl::WMSize(message);
  UpdateScrollRange();
  InvalidateGrid();
  if (editorMode_) UpdateEdit();
}

}  // namespace quil
