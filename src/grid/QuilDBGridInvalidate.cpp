// What the grid repaints when its look changes, and its border. The grid keeps the base
// paint: the window system buffers every paint, right to left too, so there is no
// buffer of its own to draw through.
#include <algorithm>

#include "framework/graphics/Canvas.h"
#include "framework/graphics/FrameDrawing.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

// Sunken at left and top, raised at right and bottom: a mild frame is the outer edge
// pair, the other the inner one.
void BorderFrame(TWinControl* control, TCanvas* canvas, bool mild) {
  if (!control->HandleAllocated() || !canvas) return;
  TRect rect = Rect(0, 0, control->Width(), control->Height());
  DrawEdge(canvas, rect, mild ? BDR_SUNKENOUTER : BDR_SUNKENINNER, BF_TOPLEFT);
  DrawEdge(canvas, rect, mild ? BDR_RAISEDINNER : BDR_RAISEDOUTER, BF_BOTTOMRIGHT);
}

}  // namespace

// --- The border

bool TQuilCustomDBGrid::Ctl3DWanted() const {
  if (IsGridThemed(false)) return true;
  if (ThemesEnabled(this)) return false;
  return fixedStyle_ == fsDefault || fixedStyle_ == fsSoft;
}

void TQuilCustomDBGrid::UpdateBorder(bool recreate) {
  if (ctl3DAuto_ && Ctl3DWanted() != Ctl3D()) {
    TCustomGrid::SetCtl3D(!Ctl3D());
    return;
  }
  if (recreate && BorderStyle() == bsSingle && !Ctl3D()) RecreateWnd();
}

void TQuilCustomDBGrid::InvalidateBorder() {
  if (BorderStyle() != bsSingle || Ctl3D() || TStyleManager::IsCustomStyleActive()) return;
  if (!options_.Contains(dgColLines) || !options_.Contains(dgRowLines)) return;
  if (IsGridThemed(false) || fixedStyle_ == fsFine || fixedStyle_ == fsMild)
    BorderFrame(this, frameCanvas_, true);
  else if (fixedStyle_ == fsSoft || fixedStyle_ == fsGreat || fixedStyle_ == fsGray)
    BorderFrame(this, frameCanvas_, false);
}

// The base fills the square with the face color of the style in force, on either side
// the vertical scroll bar stands.
void TQuilCustomDBGrid::InvalidateCorner() {
  // FIXME: a search panel below the grid moves the square up by the panel's height,
  // and fills the strip beside a panel taller than the scroll bar's room.
}

void TQuilCustomDBGrid::WMNCPaint(TMessage& message) {
  TCustomGrid::WMNCPaint(message);
  frameCanvas_ = reinterpret_cast<TCanvas*>(message.WParam);
  TScopeExit release([this] { frameCanvas_ = nullptr; });
  InvalidateBorder();
  InvalidateCorner();
}

// --- Invalidation

// Painted straight to the screen, the row counts that UpdateRowCount passes through
// would each show; it invalidates what changed at its end instead.
void TQuilCustomDBGrid::Invalidate() {
  if (rowCountLock_ == 0 || DoubleBuffered()) TCustomGrid::Invalidate();
}

void TQuilCustomDBGrid::InvalidateBox(int rawCol, int rawRow) {
  if (!HandleAllocated()) return;
  TRect box = BoxRect(rawCol, rawRow, rawCol, rawRow);
  // Merged total cells share the line between them, which belongs to the left one.
  const bool totalRow = totalRows_ > 0 && rawRow > RowCount() - totalRows_;
  if (totalRow && !optionsEx_.Contains(dgTotalColLines) && options_.Contains(dgColLines) &&
      rawCol > indicatorOffset_) {
    if (BiDiMode() == bdRightToLeft) ++box.Right;
    else --box.Left;
  }
  InvalidateRect(box);
}

// Validating first lets a repaint already queued for the column merge with this one.
void TQuilCustomDBGrid::InvalidateCol(int rawCol) {
  if (!HandleAllocated()) return;
  const TRect box = BoxRect(rawCol, 0, rawCol, RowCount() - 1);
  ValidateRect(box);
  InvalidateRect(box);
}

void TQuilCustomDBGrid::InvalidateRow(int rawRow) {
  if (!HandleAllocated()) return;
  int firstCol = 0;
  if (indicatorOffset_ == 0 && !visibleColumns_.empty()) firstCol = DataToRawColumn(visibleColumns_.front()->Index());
  const TRect box = BoxRect(firstCol, rawRow, ColCount() - 1, rawRow);
  ValidateRect(box);
  InvalidateRect(box);
}

void TQuilCustomDBGrid::InvalidateData() {
  if (!HandleAllocated()) return;
  const int firstRow = titleOffset_;
  int lastRow = RowCount() - totalRows_ - 1;
  if (optionsEx_.Contains(dgBlankRow) && totalRows_ > 0) ++lastRow;
  if (lastRow >= firstRow) InvalidateRect(BoxRect(0, firstRow, ColCount() - 1, lastRow));
}

void TQuilCustomDBGrid::InvalidateTitle(TQuilColumn* column) {
  if (!HandleAllocated() || !options_.Contains(dgTitles)) return;
  if (!column) {
    InvalidateRect(BoxRect(0, 0, ColCount() - 1, titleOffset_ - 1));
    return;
  }
  const int rawCol = DataToRawColumn(column->Index());
  // An expanded group's title spans the group on its own row; any other title, a
  // collapsed group's too, reaches down to the last title row.
  if (column->GetExpanded())
    InvalidateRect(BoxRect(rawCol, column->Depth(), DataToRawColumn(column->GetExpandIndex()), column->Depth()));
  else
    InvalidateRect(BoxRect(rawCol, column->Depth(), rawCol, titleOffset_ - 1));
}

void TQuilCustomDBGrid::InvalidateTitles() {
  if (!HandleAllocated() || !options_.Contains(dgTitles)) return;
  TGridDrawInfo info;
  CalcFixedInfo(info);
  InvalidateRect(Rect(0, 0, ClientWidth(), info.Vert.FixedBoundary));
}

bool TQuilCustomDBGrid::InvalidateTile(TImageDraw kind) {
  const bool tiled = std::any_of(visibleColumns_.begin(), visibleColumns_.end(), [kind](const TQuilColumn* column) {
    return column->ImageDraw() == kind || column->ImageDraw() == idTileGrid;
  });
  if (tiled) Invalidate();
  return tiled;
}

void TQuilCustomDBGrid::InvalidateTotals() {
  if (!HandleAllocated() || totalRows_ <= 0) return;
  int firstRow = RowCount() - totalRows_;
  // Without double buffering the line above the totals is drawn by the row before.
  if (!DoubleBuffered() && options_.Contains(dgRowLines)) --firstRow;
  TRect box = BoxRect(0, std::max(firstRow, 0), ColCount() - 1, RowCount() - 1);
  box.Right += GetColLineWidth();
  InvalidateRect(box);
}

}  // namespace quil
