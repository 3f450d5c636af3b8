// The rows of data and the blank row below them: the colors in the order of their rules,
// the record's text, and the default drawing with its image, text and style.
//
// A data cell travels: FirstColors (column color, stripes) -> the record is made active
// -> GetDisplayText, HighlightCell, Selections -> ChooseDataBrush (selection colors)
// -> lines -> DefaultDrawCell (image, PaintColumnCell, style font and background, the
// fill, image and text) -> OnDrawDataCell, OnDrawColumnCell -> the focus frame.
#include <memory>

#include "framework/db/Field.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridCellDraw.h"
#include "grid/QuilDBGridPaint_p.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

constexpr TColor StripeSilverShade = 15263976;  // RGB 232, 232, 232

// Under a custom style a white row takes the style's alternate row colors, the second
// only while the first is still white.
void StyleAlternateRow(TBrush* brush) {
  const TThemedElementDetails details = TCustomStyleServices::GetElementDetails(tgCellNormal);
  for (TElementColor which : {ecGradientColor1, ecGradientColor2}) {
    if (ColorToRGB(brush->Color()) != clWhite) return;
    TColor color = clNone;
    if (StyleServices()->GetElementColor(details, which, color) && color != clNone) brush->SetColor(color);
  }
}

}  // namespace

TDataCellBrush ChooseDataCellBrush(TColor brush, bool highlight, TSelections selections, bool fixed, bool activeRow,
                                   const TSelectionColors& colors) {
  TDataCellBrush result{brush, false};
  if (highlight && selections.Contains(slMultiSelected) && colors.selection != clNone) result.brush = colors.selection;
  if (!fixed && colors.selectRow != clNone && activeRow) result.brush = colors.selectRow;
  if (highlight && selections.Contains(slCellSelected)) {
    if (colors.selectCell != clNone) result.brush = colors.selectCell;
    else if (!selections.Contains(slMultiSelected)) result.columnFontColor = true;
  }
  return result;
}

void TQuilCustomDBGrid::DrawRowCell(TRect rect, TQuilColumn* column, TGridDrawState state, TCellLook& look) {
  FirstColors(rect, column, look);
  if (look.themed || look.gradient) FixedBackground(rect, column, false, look);
  const bool buffered = dataLink_->Active() && look.dataRow < dataLink_->RecordCount();
  if (buffered && look.dataRow < look.lastRow) return DrawDataRowCell(rect, column, state, look);
  // The blank row and the one empty row of an inactive grid have no text.
  if (!look.themed && !look.gradient && !look.gradientFlag) Canvas()->FillRect(rect);
  if (!look.gradientFlag) DrawColLine(rect, look);
}

void TQuilCustomDBGrid::FirstColors(const TRect& rect, TQuilColumn* column, TCellLook& look) {
  TCanvas* canvas = Canvas();
  TBrush* brush = canvas->Brush();
  canvas->SetFont(column->GetFont());
  const bool blankUnderSelectedCol = look.dataRow == look.lastRow && MultiSelect() == msCols &&
                                     IsColMultiSelected(look.dataCol) && selectionColor_ != clNone;
  const TColor selection = GetTrueColor(selectionColor_, DefaultSelectionColor(), clDefault);
  if (look.fixed) {
    brush->SetColor(FixedColor());
    if (multiSelectOptions_.Contains(msFixed) && blankUnderSelectedCol)
      brush->SetColor(look.systemStyle && IsThemeTransparent() ? clGradientInactiveCaption : selection);
    return;
  }
  if (!look.styled && IsSystemTheme()) {
    // The base grid's black line must not show through the system theme's light one.
    const int width = GridLineWidth();
    brush->SetColor(clBtnFace);
    canvas->FillRect(Rect(rect.Right, rect.Top, rect.Right + width, rect.Bottom + width));
    canvas->FillRect(Rect(rect.Left, rect.Bottom, rect.Right + width, rect.Bottom + width));
  }
  brush->SetColor(look.styledClient ? StyleServices()->GetStyleColor(scGrid) : column->Color());
  if (blankUnderSelectedCol) {
    if (look.styled) {
      if (look.systemStyle) brush->SetColor(clWindow);
      look.elementFill = true;
      look.gradientFlag = true;
    } else {
      brush->SetColor(selection);
      look.gradientFlag = gradient_->IsActive(true) && gradient_->Cells().Contains(gcMultiSelected);
    }
  } else if (stripeColor_ != clNone) {
    StripeBrush(look);
  }
  if (look.gradientFlag) {
    DrawColLine(rect, look);
    SelectionFill(rect, look);
  }
}

// Stripes count the rows on screen, so that they stay where they are when the data
// scrolls; the column's own color gives way in every row.
void TQuilCustomDBGrid::StripeBrush(TCellLook& look) {
  TBrush* brush = Canvas()->Brush();
  const bool tallBlank = look.dataRow == look.lastRow && GetBlankHeight() > GetRowHeight();
  if (look.dataRow % 2 == 1 && !tallBlank) {
    if (look.styledClient) {
      StyleAlternateRow(brush);
      look.gradientFlag = look.dataRow == look.lastRow;
    } else {
      brush->SetColor(GetTrueColor(stripeColor_, DefaultStripeColor(), clDefault));
      look.gradientFlag = look.dataRow == look.lastRow && gradient_->IsActive(true) &&
                          gradient_->Cells().Contains(gcStripedRows);
    }
  } else if (!look.styledClient) {
    brush->SetColor(Color());
  }
  if (ColorToRGB(brush->Color()) == clSilver) brush->SetColor(StripeSilverShade);
}

void TQuilCustomDBGrid::DrawDataRowCell(TRect rect, TQuilColumn* column, TGridDrawState state, TCellLook& look) {
  TCanvas* canvas = Canvas();
  // The lines and the focus frame keep to the grid's direction when the content does not.
  const TRect gridRect = rect;
  const bool unmirror = column->SuppressRTL() && canvas->CanvasOrientation() == coRightToLeft;
  const int textFlags = canvas->TextFlags();
  if (unmirror) {
    ChangeGridOrientation(false);
    canvas->SetTextFlags(textFlags & ~ETO_RTLREADING);
    rect = Rect(ClientWidth() - rect.Right, rect.Top, ClientWidth() - rect.Left, rect.Bottom);
  }
  {
    dataLink_->SetActiveRecord(look.dataRow);
    paint_.rowOffset = look.dataRow - look.activeRow;
    TScopeExit putBack([&] {
      dataLink_->SetActiveRecord(look.activeRow);
      paint_.rowOffset = 0;
      if (!unmirror) return;
      ChangeGridOrientation(true);
      canvas->SetTextFlags(textFlags);
    });
    const QString text = column->GetDisplayText();
    paint_.highlight = HighlightCell(look.dataCol, look.dataRow, text, state);
    if (paint_.highlight)
      canvas->Font()->SetColor(GetTrueColor(highlightText_, DefaultHighlightText(), canvas->Font()->Color()));
    if (!Enabled()) canvas->Font()->SetColor(clGrayText);
    TSelections& selections = paint_.selections;
    selections = {};
    if (state.Contains(gdSelected) &&
        (options_.Contains(dgAlwaysShowSelection) || search_->GetVisible() || Focused()) &&
        (updateLock_ == 0 || options_.Contains(dgRowSelect)))
      selections += slCellSelected;
    if (look.dataRow == look.activeRow) selections += slRowSelected;
    if (IsCellMultiSelected(look.dataCol)) selections += slMultiSelected;
    if (state.Contains(gdFixed)) selections += slCellFixed;
    if (stripeColor_ != clNone && look.dataRow % 2 == 1) selections += slRowStriped;
    ChooseDataBrush(look, column);
    FrozenSelectionColors(rect, look);
    look.gradientFlag = DataGradientFlag(look);
    if (unmirror) ChangeGridOrientation(true);
    DrawRowLine(gridRect, look);
    DrawColLine(gridRect, look);
    if (unmirror) ChangeGridOrientation(false);
    if (DefaultDrawing()) DefaultDrawCell(rect, column, text, look);
    if (columns_->State() == csDefault) DrawDataCell(rect, column->Field(), state);
    DrawColumnCell(rect, look.dataCol, column, state);
  }
  if (DefaultDrawing() && FocusTest(state)) DrawCellFocus(gridRect, look);
}

void TQuilCustomDBGrid::ChooseDataBrush(const TCellLook& look, TQuilColumn* column) {
  TSelectionColors colors;
  if (selectionColor_ != clNone) colors.selection = GetTrueColor(selectionColor_, DefaultSelectionColor(), clDefault);
  if (selectRowColor_ != clNone) colors.selectRow = GetTrueColor(selectRowColor_, DefaultSelectRowColor(), clDefault);
  if (selectCellColor_ != clNone)
    colors.selectCell = GetTrueColor(selectCellColor_, DefaultSelectCellColor(), clDefault);
  const TDataCellBrush chosen = ChooseDataCellBrush(Canvas()->Brush()->Color(), paint_.highlight, paint_.selections,
                                                    look.fixed, look.dataRow == look.activeRow, colors);
  Canvas()->Brush()->SetColor(chosen.brush);
  // A disabled grid keeps its gray text under the highlight too.
  if (chosen.columnFontColor) Canvas()->Font()->SetColor(Enabled() ? column->GetFont()->Color() : clGrayText);
}

// A frozen cell in a column selection.
void TQuilCustomDBGrid::FrozenSelectionColors(const TRect& rect, const TCellLook& look) {
  const TSelections selections = paint_.selections;
  if (!multiSelectOptions_.Contains(msFixed) || !selections.Contains(slMultiSelected) ||
      !selections.Contains(slCellFixed))
    return;
  TCanvas* canvas = Canvas();
  if (look.systemStyle && IsThemeTransparent()) canvas->Brush()->SetColor(clGradientInactiveCaption);
  if (look.themed && (!IsThemeTransparent() || IsSystemStyle({sseFixed})) && Enabled() && selectionColor_ != clNone) {
    canvas->Font()->SetColor(canvas->Brush()->Color());
    return;
  }
  if (look.themed || look.gradient) FixedBackground(rect, nullptr, false, look);
}

bool TQuilCustomDBGrid::DataGradientFlag(const TCellLook& look) const {
  if (look.fixed) return false;
  if (!look.styled && !gradient_->IsActive(true)) return false;
  const TMarlGradientCells cells = look.styled ? AllGradientCells : gradient_->Cells();
  const TSelections selections = paint_.selections;
  return (selections.Contains(slCellSelected) && selectCellColor_ != clNone && cells.Contains(gcSelectedCell)) ||
         (selections.Contains(slRowSelected) && selectRowColor_ != clNone && cells.Contains(gcSelectedRow)) ||
         (selections.Contains(slMultiSelected) && selectionColor_ != clNone && cells.Contains(gcMultiSelected)) ||
         (selections.Contains(slRowStriped) && stripeColor_ != clNone && cells.Contains(gcStripedRows));
}

void TQuilCustomDBGrid::DefaultDrawColumnCell(const TRect& rect, int dataCol, TQuilColumn* column,
                                              TGridDrawState state) {
  if (!column) return;
  TCellLook look = MakeCellLook(state);
  look.dataCol = dataCol;
  look.dataRow = paint_.rawRow - titleOffset_;
  look.gradientFlag = DataGradientFlag(look);
  DefaultDrawCell(rect, column, column->GetDisplayText(), look);
}

// The image: one of the column's Images, else the box glyph of a box column, else the
// picture of a graphic field.
void TQuilCustomDBGrid::DefaultDrawCell(const TRect& rect, TQuilColumn* column, const QString& text,
                                        TCellLook& look) {
  std::unique_ptr<TBitmap> made;
  if (column->Images()) {
    int index = column->GetImageIndex();
    CalcImageIndex(column, index);
    made = column->GetImage(index);
  }
  if (!made && column->CheckBox()) made = column->GetCheckBoxImage();
  else if (!made && column->ExpandBox()) made = column->GetExpandBoxImage();
  TPersistent* image = made.get();
  if (!image && !column->CheckBox() && !column->ExpandBox() && column->ShowBlob()) image = column->GetGraphicImage();
  paint_.styleLock = false;
  TColor color = Canvas()->Brush()->Color();
  PaintColumnCell(rect, look.dataCol, column, paint_.highlight, paint_.selections, color, Canvas()->Font(), image);
  Canvas()->Brush()->SetColor(color);
  if (look.styled && !paint_.styleLock) StyleFontColor(look);
  if (look.styled && !look.fixed) StyleBackground(look);
  DrawCellContent(rect, column, text, image, look);
}

void TQuilCustomDBGrid::StyleFontColor(const TCellLook& look) {
  TFont* font = Canvas()->Font();
  const TSelections selections = paint_.selections;
  if (look.fixed) {
    if (TStyleManager::IsCustomStyleActive() || paint_.highlight || IsSystemStyle({sseFixed, sseText}))
      font->SetColor(GetStyleFontColor(sfGridItemFixedNormal, GridElement(tgFixedCellNormal)));
  } else if (look.styledFont || paint_.highlight) {
    font->SetColor(paint_.highlight ? GetStyleFontColor(sfGridItemSelected, GridElement(tgCellSelected))
                                    : GetStyleFontColor(sfGridItemNormal, GridElement(tgCellNormal)));
  }
  if (multiSelectOptions_.Contains(msFixed) && selections.Contains(slMultiSelected) &&
      selections.Contains(slCellFixed) && !(look.systemStyle && IsThemeTransparent() && !IsSystemStyle({sseFixed})))
    font->SetColor(GetFixedTextSelected());
  if (!Enabled()) font->SetColor(clGrayText);
}

void TQuilCustomDBGrid::StyleBackground(TCellLook& look) {
  TBrush* brush = Canvas()->Brush();
  const TSelections selections = paint_.selections;
  look.gradientFlag = false;
  if (look.styledClient) brush->SetColor(StyleServices()->GetStyleColor(scGrid));
  if (selections.Contains(slRowSelected) && !selections.Contains(slCellSelected) && selectRowColor_ != clNone) {
    // The current row away from the cursor.
    look.elementFill = look.systemStyle && !IsWin11();
    brush->SetColor(look.elementFill ? clWindow : GetSelectRowSelected());
    look.gradientFlag = true;
  } else if (selections.Contains(slCellSelected) || selections.Contains(slMultiSelected)) {
    if (look.systemStyle && options_.Contains(dgRowSelect) && !selections.Contains(slMultiSelected))
      brush->SetColor(clWindow);
    else if (look.systemStyle)
      brush->SetColor(selections.Contains(slCellSelected) ? clGradientInactiveCaption : clInactiveBorder);
    look.elementFill = true;
    look.gradientFlag = true;
  } else if (selections.Contains(slRowStriped) && stripeColor_ != clNone) {
    if (look.styledClient) StyleAlternateRow(brush);
    look.gradientFlag = look.styledClient || (gradient_->IsActive(true) && gradient_->Cells().Contains(gcStripedRows));
  }
}

// The fill, the image and the text; the text routine fills behind its lines itself.
void TQuilCustomDBGrid::DrawCellContent(const TRect& rect, TQuilColumn* column, const QString& text,
                                        TPersistent* image, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const int margin = column->ImageMargin();
  const bool customStyle = TStyleManager::IsCustomStyleActive();
  if (look.gradientFlag) SelectionFill(rect, look);
  else if ((margin > 0 && !look.fixed) || (look.fixed && !look.gradient && !customStyle)) canvas->FillRect(rect);
  const bool mirror = UseRightToLeftAlignment() && !UseRightToLeftAlignmentForColumn(column) && !column->SuppressRTL();
  const int level = column->GetImageLevel();
  const bool copyBackground = look.themed || look.gradient || look.gradientFlag;
  if (image) {
    TCellImageLayout layout;
    layout.alignment = column->Alignment();
    layout.rightToLeft = mirror;
    layout.vAlignment = column->VAlignment();
    layout.imageDraw = column->ImageDraw();
    layout.offsetX = column->ImageOffsetX();
    layout.offsetY = column->ImageOffsetY();
    layout.quickDraw = column->QuickDraw();
    layout.transparent = column->Transparent();
    layout.copyBackground = copyBackground;
    CellDrawImage(canvas, CellImageRect(rect, margin, level, mirror), image, layout);
  }
  if ((image && column->Wallpaper() && margin == 0) || copyBackground) canvas->Brush()->SetStyle(bsClear);
  if (image && !column->Wallpaper() && margin < 1) return;
  const TCellTextMatch match = CellTextOut(
      canvas, CellTextRect(rect, margin, level, mirror), look.textMargin, look.textMargin, text, column->Alignment(),
      UseRightToLeftAlignmentForColumn(column), column->Ellipsis(), column->WordWrap(), column->VAlignment(),
      search_->GetVisible() ? search_->Text() : QString(), search_->Options());
  const bool searchedHere = !search_->Options().Contains(soCurrentCol) || look.dataCol == SelectedIndex();
  if (search_->GetVisible() && !match.rect.IsEmpty() && searchedHere) SearchHighlight(match, look);
}

}  // namespace quil
