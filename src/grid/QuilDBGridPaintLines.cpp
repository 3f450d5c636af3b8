// What a data cell draws around and over itself: its own row and column lines where
// they differ from the base grid's, the selection fill, a search match and the focus
// frame.
#include "framework/graphics/Canvas.h"
#include "framework/graphics/FrameDrawing.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridCellDraw.h"
#include "grid/QuilDBGridPaint_p.h"
#include "support/MarlGraph.h"

namespace quil {

namespace {

// The data element of each drawing style follows the same order from its own first.
constexpr int ClassicOffset = tgClassicCellNormal - tgCellNormal;
constexpr int GradientOffset = tgGradientCellNormal - tgCellNormal;

}  // namespace

TThemedGrid TQuilCustomDBGrid::GridElement(TThemedGrid element) const {
  switch (GetDrawingStyle()) {
    case gdsClassic: return TThemedGrid(element + ClassicOffset);
    case gdsGradient: return TThemedGrid(element + GradientOffset);
    default: return element;
  }
}

// The line along the open edge of the data, past the last row or column: a style or wide
// lines leave it to the base grid, the others draw it like the fixed lines.
TColor TQuilCustomDBGrid::OpenEdgeLineColor(const TCellLook& look) const {
  return TStyleManager::IsCustomStyleActive() || look.systemStyle || GridLineWidth() > 1 ? clDefault
                                                                                       : GetFixedLineColor();
}

// clDefault leaves the line to the base grid. clNone under a selection fill leaves its
// place to the fill, which the skipped flag tells to grow over it.
bool TQuilCustomDBGrid::LineLeftOut(TColor color, const TCellLook& look, bool& skipped) const {
  if (color == clDefault) return true;
  if (color != clNone || !look.gradientFlag) return false;
  skipped = true;
  return true;
}

// A line of the data area where its color is not the base grid's: a line past the last
// row or column where the grid is not filled, or lines of a color of their own.
void TQuilCustomDBGrid::DrawRowLine(const TRect& rect, TCellLook& look) {
  if (look.fixed || !options_.Contains(dgRowLines)) return;
  TColor color = dataRowLineColor_;
  const bool openBelow = look.dataRow == look.lastRow - 1 && GetBlankHeight() > GetRowHeight();
  if ((color == clNone || (color == clDefault && !optionsEx_.Contains(dgBlankRow))) && openBelow)
    color = OpenEdgeLineColor(look);
  if (LineLeftOut(color, look, paint_.rowLineSkipped)) return;
  const int width = GridLineWidth();
  // A row line joins the next cell's where no column line stands between them.
  const int right = dataColLineColor_ == clNone && color != clNone ? rect.Right + width : rect.Right;
  const TColor lineColor = color == clNone ? Canvas()->Brush()->Color() : color;
  DrawLineRun(lineColor, look, Point(rect.Left, rect.Bottom), Point(right, rect.Bottom), Point(0, 1), width);
}

void TQuilCustomDBGrid::DrawColLine(const TRect& rect, TCellLook& look) {
  if (look.fixed || !options_.Contains(dgColLines)) return;
  const TQuilColumn* column = look.dataCol >= 0 && look.dataCol < columns_->Count() ? columns_->Items(look.dataCol)
                                                                                    : nullptr;
  const bool lastColumn = !visibleColumns_.empty() && visibleColumns_.back() == column;
  TColor color = dataColLineColor_;
  if ((color == clNone || color == clDefault) && lastColumn) color = OpenEdgeLineColor(look);
  if (LineLeftOut(color, look, paint_.colLineSkipped)) return;
  const int width = GridLineWidth();
  int bottom = rect.Bottom;
  if (color == clNone && dataRowLineColor_ != clNone) bottom -= width;
  int below = width - 1;
  const bool noLines = dataColLineColor_ == clNone && dataRowLineColor_ == clNone;
  const bool blankRow = look.dataRow == look.lastRow;
  const bool aboveTallBlank = look.dataRow == look.lastRow - 1 && GetBlankHeight() >= GetRowHeight();
  if (noLines && (blankRow || aboveTallBlank)) below -= width;
  const TColor lineColor = color == clNone ? Canvas()->Brush()->Color() : color;
  DrawLineRun(lineColor, look, Point(rect.Right, bottom + below), Point(rect.Right, rect.Top - 1), Point(1, 0), width);
}

void DrawPenLines(TCanvas* canvas, TColor color, TPenMode mode, TPoint from, TPoint to, TPoint step, int count) {
  TPen saved;
  saved.Assign(canvas->Pen());
  TPen* pen = canvas->Pen();
  pen->SetColor(color);
  pen->SetWidth(1);
  pen->SetStyle(psSolid);
  pen->SetMode(mode);
  for (int line = 0; line < count; ++line) {
    canvas->MoveTo(from.X + line * step.X, from.Y + line * step.Y);
    canvas->LineTo(to.X + line * step.X, to.Y + line * step.Y);
  }
  canvas->SetPen(&saved);
}

// White lines under a style take the white pen mode.
void TQuilCustomDBGrid::DrawLineRun(TColor color, const TCellLook& look, TPoint from, TPoint to, TPoint step,
                                    int count) {
  DrawPenLines(Canvas(), color, look.styled && ColorToRGB(color) == clWhite ? pmWhite : pmCopy, from, to, step,
               count);
}

// A cell of a left-to-right column in a mirrored grid draws unmirrored: what follows it
// in the grid's reading order lies on its left.
bool TQuilCustomDBGrid::CellEndsLeft() const {
  return UseRightToLeftAlignment() && Canvas()->CanvasOrientation() == coLeftToRight;
}

// A fill spreads over the place of a line it kept from being drawn.
TRect TQuilCustomDBGrid::GrowOverSkippedLines(TRect rect) const {
  if (paint_.colLineSkipped) {
    if (CellEndsLeft()) rect.Left -= GridLineWidth();
    else rect.Right += GridLineWidth();
  }
  if (paint_.rowLineSkipped) rect.Bottom += GridLineWidth();
  return rect;
}

void TQuilCustomDBGrid::SelectionFill(TRect rect, const TCellLook& look) {
  rect = GrowOverSkippedLines(rect);
  if (look.elementFill) return SelectionElement(rect, look);
  GradientFill(rect, Canvas()->Brush()->Color());
}

// The classic style and a flat theme fill without the gradient's shading.
void TQuilCustomDBGrid::GradientFill(const TRect& rect, TColor color) {
  const TGridDrawingStyle style = GetDrawingStyle();
  gradient_->FillCell(Canvas(), rect, color, style == gdsClassic || (style == gdsThemed && IsFlatStyle()));
}

// A selection drawn by the style. Where the selection is a row, the row's cells draw one
// element together: each shows its part of it, wider than itself so that its ends do not
// show between the cells.
void TQuilCustomDBGrid::SelectionElement(TRect rect, const TCellLook& look) {
  const TSelections selections = paint_.selections;
  const bool rowOnly = selections.Contains(slRowSelected) && !selections.Contains(slCellSelected) &&
                       !selections.Contains(slMultiSelected);
  const bool rowShape = (look.systemStyle && rowOnly && selectRowColor_ != clNone) ||
                        options_.Contains(dgRowSelect) ||
                        (options_.Intersects({dgMultiSelect, dgInternalSelect}) && !selections.Contains(slCellSelected));
  TThemedGrid element = tgCellSelected;
  const TRect cell = rect;
  if (rowShape && !visibleColumns_.empty()) {
    // FIXME: column selection bounds the row by the selected columns next to this one.
    int first = !rowOnly && multiSelectOptions_.Contains(msFixed) ? 0 : fixedCols_;
    while (first < columns_->Count() - 1 && !columns_->Items(first)->GetShowing()) ++first;
    const int last = visibleColumns_.back()->Index();
    // The row's first cell reaches on towards its next, the last one back to its previous.
    const bool endsLeft = CellEndsLeft();
    if (look.dataCol == first && look.dataCol == last) {
      element = tgCellSelected;
    } else if (look.dataCol > first && look.dataCol < last) {
      element = tgCellRowSelectedCenter;
      rect.Inflate(4, 0);
    } else if (look.dataCol == first) {
      element = tgCellRowSelectedLeft;
      if (endsLeft) rect.Left -= 4;
      else rect.Right += 4;
    } else {
      element = tgCellRowSelectedRight;
      if (endsLeft) rect.Right += 4;
      else rect.Left -= 4;
    }
  }
  GetCellFrameRect(rect);
  DrawSelectionElement(element, rect, cell, look);
}

// The element as the drawing style in force draws it; a themed element is clipped to clip.
void TQuilCustomDBGrid::DrawSelectionElement(TThemedGrid element, const TRect& rect, const TRect& clip,
                                             const TCellLook& look) {
  TCanvas* canvas = Canvas();
  const TThemedElementDetails details = TCustomStyleServices::GetElementDetails(GridElement(element));
  TColor first = clNone;
  TColor second = clNone;
  switch (GetDrawingStyle()) {
    case gdsClassic:
      if (StyleServices()->GetElementColor(details, ecFillColor, first)) canvas->Brush()->SetColor(first);
      canvas->FillRect(rect);
      break;
    case gdsThemed:
      if (!look.systemStyle) {
        canvas->Brush()->SetColor(StyleServices()->GetStyleColor(scGrid));
        canvas->FillRect(clip);
      }
      StyleServices()->DrawElement(canvas, details, rect, &clip);
      break;
    case gdsGradient:
      StyleServices()->GetElementColor(details, ecGradientColor1, first);
      StyleServices()->GetElementColor(details, ecGradientColor2, second);
      TMarlGradient::FillCanvas(canvas, first, second, rect, gdVertical);
      break;
  }
}

void TQuilCustomDBGrid::SearchHighlight(const TCellTextMatch& match, const TCellLook& look) {
  const bool styled = TStyleManager::IsCustomStyleActive() || IsSystemStyle({sseData, sseSearch});
  if (search_->Color() == clNone || (look.state.Contains(gdSelected) && styled)) return;
  TCanvas* canvas = Canvas();
  TBrush* brush = canvas->Brush();
  const TColor savedColor = brush->Color();
  const TBrushStyle savedStyle = brush->Style();
  brush->SetStyle(bsSolid);
  TRect rect = match.rect;
  if (gridStyle_->DataRowSpace() % 2 == 0) rect.Bottom += 1;
  rect.Inflate(1, 1);
  if (styled) {
    DrawSelectionElement(tgCellSelected, rect, rect, look);
    canvas->Font()->SetColor(GetStyleFontColor(sfGridItemSelected, GridElement(tgCellSelected)));
  } else {
    brush->SetColor(GetTrueColor(search_->Color(), search_->DefaultColor(), clDefault));
    GradientFill(rect, brush->Color());
  }
  brush->SetStyle(bsClear);
  // The match's rectangle ends on its last pixel; the clip excludes its right edge.
  canvas->TextRect(Rect(match.rect.Left, match.rect.Top, match.rect.Right + 1, match.rect.Bottom), match.rect.Left,
                   match.rect.Top, match.text);
  brush->SetColor(savedColor);
  brush->SetStyle(savedStyle);
}

void TQuilCustomDBGrid::DrawCellFocus(TRect rect, const TCellLook& look) {
  TCanvas* canvas = Canvas();
  rect = GrowOverSkippedLines(rect);
  if (look.systemStyle && focusRect_ != frNone) {
    rect.Inflate(-1, -1);
    canvas->Brush()->SetStyle(bsSolid);
    canvas->DrawFocusRect(rect);
    return;
  }
  if (look.styled) return;
  switch (FocusRectStyle()) {
    case frGray: {
      TRect edge = rect;
      DrawEdge(canvas, edge, BDR_SUNKENINNER, BF_TOPLEFT);
      DrawEdge(canvas, edge, BDR_RAISEDOUTER, BF_BOTTOMRIGHT);
      break;
    }
    case frMild: {
      TRect edge = rect;
      DrawEdge(canvas, edge, BDR_SUNKENOUTER, BF_TOPLEFT);
      DrawEdge(canvas, edge, BDR_RAISEDINNER, BF_BOTTOMRIGHT);
      break;
    }
    case frNone: break;
    default: canvas->DrawFocusRect(rect);
  }
}

}  // namespace quil
