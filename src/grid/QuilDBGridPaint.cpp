// DrawCell's frame: the per-cell look, the rectangle's corrections, and the road each
// cell takes. Title, indicator and total cells leave here for their fixed faces; the rows
// of data and the blank row go on in QuilDBGridPaintData.cpp.
#include <algorithm>

#include "framework/controls/Forms.h"
#include "framework/db/Field.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridCellDraw.h"
#include "grid/QuilDBGridPaint_p.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

// Numbers, dates and times keep their side in a right-to-left grid; so does a centered
// text without a field.
bool OkToChangeFieldAlignment(const TField* field, TAlignment alignment) {
  if (!field) return alignment != taCenter;
  switch (field->DataType()) {
    case ftSmallint: case ftInteger: case ftWord: case ftFloat: case ftCurrency: case ftBCD: case ftDate:
    case ftTime: case ftDateTime: case ftAutoInc: case ftLargeint: case ftTimeStamp: case ftFMTBcd:
    case ftLongWord: case ftShortint: case ftByte: case ftExtended: case ftSingle:
      return false;
    default:
      return true;
  }
}

}  // namespace

TCellLook TQuilCustomDBGrid::MakeCellLook(TGridDrawState state) const {
  TCellLook look;
  const bool custom = TStyleManager::IsCustomStyleActive();
  look.systemStyle = IsSystemStyle({sseData});
  look.styled = look.systemStyle || custom;
  look.styledFont = look.systemStyle ? systemStyleElements_.Contains(sseFont) : custom && StyleElements().Contains(seFont);
  look.styledClient =
      look.systemStyle ? systemStyleElements_.Contains(sseClient) : custom && StyleElements().Contains(seClient);
  look.state = state;
  look.fixed = state.Contains(gdFixed);
  const bool bothLines = options_.Contains(dgColLines) && options_.Contains(dgRowLines);
  look.textMargin = look.fixed && bothLines ? 1 : 2;
  if (look.fixed && bothLines) {
    look.themed = IsGridThemed(false);
    look.gradient = !look.themed && gradient_->IsActive(true);
    FixedLook(look);
  }
  look.lastRow = RowCount() - titleOffset_ - totalRows_;
  look.activeRow = dataLink_->Active() ? dataLink_->ActiveRecord() : -1;
  return look;
}

void TQuilCustomDBGrid::DrawCell(int col, int row, const TRect& cellRect, TGridDrawState state) {
  if (cellRect.Bottom <= cellRect.Top) return;
  const int dataRow = row - titleOffset_;
  if (dataRow > RowCount() - titleOffset_ - totalRows_) state += gdFixed;
  TCellLook look = MakeCellLook(state);
  if (ComponentState().Contains(csLoading)) {
    Canvas()->Brush()->SetColor(look.styledClient ? StyleServices()->GetStyleColor(scGrid) : Color());
    Canvas()->FillRect(cellRect);
    return;
  }
  if (row == Row()) lastDrawnCurrentRow_ = row;
  paint_.colLineSkipped = false;
  paint_.rowLineSkipped = false;
  paint_.rawCol = col;
  paint_.rawRow = row;
  TScopeExit forget([this] {
    paint_.rawCol = paint_.rawRow = -1;
    Canvas()->Brush()->SetStyle(bsSolid);
  });
  look.dataRow = dataRow;
  look.dataCol = RawToDataColumn(col);
  TRect rect = cellRect;
  FitCellRect(rect, look);
  if (look.dataRow > look.lastRow) MergeTotalCell(rect, look);
  if (look.fixed && look.dataCol < 0) return DrawIndicatorCell(rect, look);
  if (look.dataCol < 0 || look.dataCol >= columns_->Count()) return;
  TQuilColumn* column = columns_->Items(look.dataCol);
  if (!column->GetShowing()) return;
  if (look.dataRow > look.lastRow) DrawTotalCell(rect, column, look);
  else if (look.dataRow < 0) DrawTitleCell(rect, column, look);
  else DrawRowCell(rect, column, state, look);
}

// The corner over several title rows is one cell; a fixed cell with both lines leaves its
// frame to the lines; a mirrored fixed column keeps its left line.
void TQuilCustomDBGrid::FitCellRect(TRect& rect, const TCellLook& look) const {
  if (titleOffset_ >= 2 && look.dataRow < 0 && look.dataCol < 0) {
    rect.Top = 0;
    rect.Bottom = GetTitleHeight() - GetRowLineWidth();
  }
  const bool bothLines = options_.Contains(dgColLines) && options_.Contains(dgRowLines);
  if (look.fixed && bothLines) rect.Inflate(-1, -1);
  if (look.fixed && MirroredEdgeFix(look) && paint_.rawCol == 0) rect.Left += 1;
}

// Without lines between total cells the cells of a total row run into each other.
void TQuilCustomDBGrid::MergeTotalCell(TRect& rect, TCellLook& look) const {
  if (optionsEx_.Contains(dgTotalColLines) || !options_.Contains(dgColLines) || visibleColumns_.empty()) return;
  look.merged = true;
  int first = std::max(GetDataLeftCol(), 0);
  while (first < columns_->Count() - 1 && !columns_->Items(first)->GetShowing()) ++first;
  const int last = visibleColumns_.back()->Index();
  look.mergedFirst = look.dataCol <= first;
  look.mergedLast = look.dataCol >= last;
  if (look.dataCol > first) rect.Left -= GridLineWidth();
  if (look.dataCol < last) rect.Right += 1;
}

// --- Questions and hooks of painting

bool TQuilCustomDBGrid::HighlightCell(int dataCol, int, const QString&, TGridDrawState state) {
  if ((!state.Contains(gdFixed) || multiSelectOptions_.Contains(msFixed)) && IsCellMultiSelected(dataCol)) return true;
  if (!state.Contains(gdSelected)) return false;
  if (!options_.Contains(dgAlwaysShowSelection) && !search_->GetVisible() && !Focused()) return false;
  return updateLock_ == 0 || options_.Contains(dgRowSelect);
}

bool TQuilCustomDBGrid::UseRightToLeftAlignmentForField(const TField* field, TAlignment alignment) const {
  return UseRightToLeftAlignment() && OkToChangeFieldAlignment(field, alignment);
}

bool TQuilCustomDBGrid::UseRightToLeftAlignmentForColumn(const TQuilColumn* column) const {
  return column && !column->SuppressRTL() && UseRightToLeftAlignmentForField(column->Field(), column->Alignment());
}

bool TQuilCustomDBGrid::IsColMultiSelected(int) const { return MultiSelect() != msCols && MultiSelect() != msCells; }

bool TQuilCustomDBGrid::IsCellMultiSelected(int) const { return false; }

void TQuilCustomDBGrid::CalcImageIndex(TQuilColumn* column, int& index) {
  if (OnCalcImageIndex) OnCalcImageIndex(this, column, index);
}

void TQuilCustomDBGrid::PaintColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, bool highlight,
                                        TSelections selections, TColor& color, TFont* font, TPersistent*& image) {
  if (OnPaintColumnCell) OnPaintColumnCell(this, rect, dataCol, column, highlight, selections, color, font, image);
}

void TQuilCustomDBGrid::DrawDataCell(const TRect& rect, TField* field, TGridDrawState state) {
  if (OnDrawDataCell) OnDrawDataCell(this, rect, field, state);
}

void TQuilCustomDBGrid::DrawColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, TGridDrawState state) {
  if (OnDrawColumnCell) OnDrawColumnCell(this, rect, dataCol, column, state);
}

void TQuilCustomDBGrid::DefaultDrawDataCell(const TRect& rect, TField* field, TGridDrawState) {
  if (!field) return;
  const TAlignment alignment = field->Alignment();
  CellTextOut(Canvas(), rect, 2, 2, field->DisplayText(), alignment, UseRightToLeftAlignmentForField(field, alignment),
              true, true, tvCenter, QString(), {});
}

void TQuilCustomDBGrid::DrawFocus(const TGridDrawInfo& info) {
  if (options_.Contains(dgRowSelect)) TCustomGrid::DrawFocus(info);
}

// The parent form's active control must be the grid, so that a grid on an inactive page
// of the form does not claim the focus.
bool TQuilCustomDBGrid::FocusTest(TGridDrawState state) const {
  if (!state.Contains(gdSelected) || ComponentState().Contains(csDesigning) || options_.Contains(dgRowSelect) ||
      updateLock_ != 0)
    return false;
  if (!options_.Contains(dgAlwaysShowSelection) && !search_->GetVisible() && !Focused()) return false;
  const TWinControl* form = Parent();
  while (form && !dynamic_cast<const TForm*>(form)) form = form->Parent();
  return form && static_cast<const TForm*>(form)->ActiveControl() == this;
}

}  // namespace quil
