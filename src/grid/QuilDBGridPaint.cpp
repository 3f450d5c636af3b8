// A plain rendering of the cells: titles show their caption, data cells the field's
// display text of their buffered record.
// FIXME: cell painting, fixed cell painting and glyphs replace this with the full
// pipeline (colors, alignment, multi-line text, images, indicator marks, totals).
#include "framework/db/Field.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"

namespace quil {

namespace {
constexpr int TextMargin = 2;
}

void TQuilCustomDBGrid::DrawCell(int col, int row, const TRect& rect, TGridDrawState state) {
  if (ComponentState().Contains(csLoading)) {
    Canvas()->Brush()->SetColor(Color());
    Canvas()->FillRect(rect);
    return;
  }
  if (row == Row()) lastDrawnCurrentRow_ = row;
  const int dataCol = RawToDataColumn(col);
  if (dataCol < 0 || dataCol >= columns_->Count()) return;
  if (row < titleOffset_) DrawTitleCell(dataCol, rect);
  else if (row < RowCount() - totalRows_) DrawDataCell(dataCol, row - titleOffset_, rect);
}

void TQuilCustomDBGrid::DrawTitleCell(int dataCol, const TRect& rect) {
  Canvas()->SetFont(titleFont_.get());
  Canvas()->TextRect(rect, rect.Left + TextMargin, rect.Top + TextMargin, columns_->Items(dataCol)->Title()->Caption());
}

void TQuilCustomDBGrid::DrawDataCell(int dataCol, int bufferRow, const TRect& rect) {
  if (!dataLink_->Active() || bufferRow >= dataLink_->RecordCount()) return;
  TField* field = columns_->Items(dataCol)->Field();
  if (!field) return;
  const int saved = dataLink_->ActiveRecord();
  dataLink_->SetActiveRecord(bufferRow);
  TScopeExit restore([this, saved] { dataLink_->SetActiveRecord(saved); });
  const QString text = field->DisplayText();
  const TColor textColor = Canvas()->Font()->Color();
  Canvas()->SetFont(Font());
  Canvas()->Font()->SetColor(textColor);
  int x = rect.Left + TextMargin;
  if (field->Alignment() == taRightJustify) x = rect.Right - TextMargin - Canvas()->TextWidth(text);
  Canvas()->TextRect(rect, x, rect.Top + TextMargin, text);
}

}  // namespace quil
