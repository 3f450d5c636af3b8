// The indicator column with its row marks, the corner above it, and the faces of the
// total cells.
#include "framework/db/DataSet.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridPaint_p.h"

namespace quil {

namespace {

// Row marks below this index look the same both ways, and draw mirrored without a copy.
constexpr int FirstSidedIndicator = 6;
// The marks of the anchor row of a selection, unselected and selected.
constexpr int AnchorMark = 6;
constexpr int SelectedAnchorMark = 7;

}  // namespace

void TQuilCustomDBGrid::DrawIndicatorCell(const TRect& rect, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  canvas->Brush()->SetColor(look.dataRow < 0 ? fillerColor_ : FixedColor());
  if (!FixedBackground(rect, nullptr, false, look)) canvas->FillRect(rect);
  if (look.dataRow < 0) DrawFillerImage(rect, look);
  else if (dataLink_->Active() && look.dataRow < look.lastRow) DrawRowMark(rect, look);
  DrawFixedFrame(rect, nullptr, false, look);
}

// The corner shows an image of TitleImages or a built-in indicator; it sinks with a
// press of its own.
void TQuilCustomDBGrid::DrawFillerImage(TRect rect, const TCellLook& look) {
  if (titlePressed_ && !hotColumn_) rect.Offset(1, 1);
  const bool copyBackground = look.themed || look.gradient;
  if (titleImages_ && fillerIndex_ >= 0 && fillerIndex_ < titleImages_->Count()) {
    DrawCenteredImage(titleImages_, Canvas(), rect, fillerIndex_, false, copyBackground);
  } else if (fillerIndex_ < -1) {
    TImageList* indicators = GetIndicators();
    const int index = -fillerIndex_ - 2;
    if (indicators && index < indicators->Count())
      DrawCenteredImage(indicators, Canvas(), rect, index, index < FirstSidedIndicator, copyBackground);
  }
}

// The mark of a buffered row by the data set's state and the row's selection; the
// application may change it in OnCalcImageIndex, with the row's record active.
int TQuilCustomDBGrid::RowMarkIndex(const TCellLook& look) {
  dataLink_->SetActiveRecord(look.dataRow);
  TScopeExit back([&] { dataLink_->SetActiveRecord(look.activeRow); });
  const bool multiSelected = IsCellMultiSelected(look.dataCol);
  const bool anchor = IsSelectionAnchor();
  int index = multiSelected ? 3 : -1;
  if (look.dataRow == look.activeRow) {
    switch (DataSet()->State()) {
      case dsEdit: index = 1; break;
      case dsInsert: index = 2; break;
      case dsBrowse: index = multiSelected ? 4 : 0; break;
      default: index = 0; break;
    }
  }
  if (!TStyleManager::IsCustomStyleActive() && anchor) {
    if (index == -1) index = AnchorMark;
    else if (index == 3) index = SelectedAnchorMark;
  }
  CalcImageIndex(nullptr, index);
  return index;
}

// Under a custom style the built-in marks are drawn in the style's colors, and stand in
// for its own indicator elements.
void TQuilCustomDBGrid::DrawRowMark(const TRect& rect, const TCellLook& look) {
  const int index = RowMarkIndex(look);
  if (options_.Contains(dgIndicatorMarkOff)) return;
  TImageList* indicators = GetIndicators();
  if (!indicators || index < 0 || index >= indicators->Count()) return;
  DrawCenteredImage(indicators, Canvas(), rect, index, index < FirstSidedIndicator, look.themed || look.gradient);
}

// --- Total cells

// FIXME: totals give each cell its font, color, selected tint, text, image and TotalBox
// here; until then every total cell shows the totals' font and color without text, so
// that dgTotalDataBoxOnly leaves every box out.
void TQuilCustomDBGrid::DrawTotalCell(const TRect& rect, TQuilColumn* column, TCellLook& look) {
  TCanvas* canvas = Canvas();
  canvas->SetFont(totals_->Font());
  canvas->Brush()->SetColor(totals_->Color());
  const int totalRow = look.dataRow - look.lastRow - 1;
  look.hasBox = TotalRowBoxed(totalRow) && !optionsEx_.Contains(dgTotalDataBoxOnly);
  if (!FixedBackground(rect, column, false, look)) canvas->FillRect(rect);
  DrawFixedFrame(rect, column, false, look);
}

// Each kind of total row has its own box option: the header rows, the value rows, the
// rows of the totals' records and the footer row.
bool TQuilCustomDBGrid::TotalRowBoxed(int totalRow) const {
  const int header = totalHeaderRows_;
  const int values = header + totalValuesRows_;
  if (totalRow < header) return optionsEx_.Contains(dgTotalHeaderBox);
  if (totalRow < values) return optionsEx_.Contains(dgTotalValuesBox);
  if (totalRow <= totalRows_ - totalFooterRows_ - 2) return optionsEx_.Contains(dgTotalFieldsBox);
  return optionsEx_.Contains(dgTotalFooterBox);
}

}  // namespace quil
