// TCustomGrid: painting. Only the cells that meet the clip region are drawn.

#include <QPainter>
#include <QRegion>

#include "framework/controls/Grids.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/StyleServices.h"
#include "framework/graphics/Types_p.h"

namespace quil {

namespace {

// The region that the paint may touch, in the canvas' coordinates.
QRegion PaintRegion(TCanvas* canvas) {
  QPainter* painter = TCanvasPrivate::Get(canvas)->Painter();
  if (!painter || !painter->hasClipping()) return QRegion(ToQRect(canvas->ClipRect()));
  return painter->clipRegion();
}

bool RectVisible(const QRegion& region, const TRect& rect) {
  return !rect.IsEmpty() && region.intersects(ToQRect(rect));
}

}  // namespace

void TCustomGrid::ChangeGridOrientation(bool rightToLeft) {
  Canvas()->SetCanvasOrientation(rightToLeft ? coRightToLeft : coLeftToRight);
}

TGridDrawState TCustomGrid::CellState(int col, int row, bool fixed, bool focused) const {
  TGridDrawState state;
  if (fixed) return {gdFixed};
  if (focused && col == current_.X && row == current_.Y) state += gdFocused;
  TGridRect sel = Selection();
  if (options_.Contains(goRowSelect)) {
    sel.Left = fixedCols_;
    sel.Right = colCount_ - 1;
  }
  if (col >= sel.Left && col <= sel.Right && row >= sel.Top && row <= sel.Bottom) state += gdSelected;
  return state;
}

void TCustomGrid::Paint() {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  bool rightToLeft = UseRightToLeftAlignment();
  if (rightToLeft) ChangeGridOrientation(true);
  const TGridAxisDrawInfo& horz = info.Horz;
  const TGridAxisDrawInfo& vert = info.Vert;
  DrawBlock(info, 0, 0, horz.FixedCellCount, 0, 0, vert.FixedCellCount, true);
  DrawBlock(info, horz.FirstGridCell, horz.FixedBoundary, horz.GridCellCount, 0, 0, vert.FixedCellCount, true);
  DrawBlock(info, 0, 0, horz.FixedCellCount, vert.FirstGridCell, vert.FixedBoundary, vert.GridCellCount, true);
  DrawBlock(info, horz.FirstGridCell, horz.FixedBoundary, horz.GridCellCount, vert.FirstGridCell,
            vert.FixedBoundary, vert.GridCellCount, false);
  // What lies beyond the last column and row.
  Canvas()->Brush()->SetColor(Color());
  Canvas()->FillRect(Rect(horz.GridBoundary, 0, ClientWidth(), vert.GridBoundary));
  Canvas()->FillRect(Rect(0, vert.GridBoundary, ClientWidth(), ClientHeight()));
  DrawFocus(info);
  DrawDragMarks(info);
  if (rightToLeft) ChangeGridOrientation(false);
}

// Draws the lines and then the cells from firstCol/firstRow on, starting at the given
// client origins, up to the limits or the client's edge, whichever comes first.
void TCustomGrid::DrawBlock(const TGridDrawInfo& info, int firstCol, int colOrigin, int colLimit,
                            int firstRow, int rowOrigin, int rowLimit, bool fixed) {
  // Lines go first: a cell may paint over the line beside it in a color of its own.
  bool fixedLines = fixed || firstCol < fixedCols_;
  // The framework's black and silver lines; a custom style has line colors of its own.
  TColor lineColor = fixedLines ? clBlack : clSilver;
  if (TStyleManager::IsCustomStyleActive()) lineColor = StyleServices()->Scheme()[fixedLines ? srBorder : srGridLine];
  if (options_.Intersects(fixedLines ? TGridOptions{goFixedVertLine, goFixedHorzLine} : TGridOptions{goVertLine, goHorzLine}))
    DrawLines(info, firstCol, colOrigin, colLimit, firstRow, rowOrigin, rowLimit, lineColor);
  QRegion region = PaintRegion(Canvas());
  TRect clip = FromQRect(region.boundingRect());
  bool focused = IsActiveControl();
  int colLine = info.Horz.EffectiveLineWidth, rowLine = info.Vert.EffectiveLineWidth;
  for (int row = firstRow, top = rowOrigin; row < rowLimit && top < info.Vert.GridBoundary && top < clip.Bottom; ++row) {
    int bottom = top + rowHeights_.Get(row);
    if (bottom > clip.Top) {
      for (int col = firstCol, left = colOrigin; col < colLimit && left < info.Horz.GridBoundary && left < clip.Right; ++col) {
        TRect where = Rect(left, top, left + colWidths_.Get(col), bottom);
        left = where.Right + colLine;
        if (!RectVisible(region, where)) continue;
        TGridDrawState state = CellState(col, row, fixed || col < fixedCols_, focused);
        if (defaultDrawing_) {
          bool highlight = state.Contains(gdSelected) &&
                           (!state.Contains(gdFocused) || options_.Intersects({goDrawFocusSelected, goRowSelect}));
          Canvas()->Brush()->SetColor(state.Contains(gdFixed) ? fixedColor_ : highlight ? clHighlight : Color());
          Canvas()->Font()->SetColor(highlight ? clHighlightText : Font()->Color());
          Canvas()->FillRect(where);
        }
        DrawCell(col, row, where, state);
      }
    }
    top = bottom + rowLine;
  }
}

void TCustomGrid::DrawLines(const TGridDrawInfo& info, int firstCol, int colOrigin, int colLimit,
                            int firstRow, int rowOrigin, int rowLimit, TColor color) {
  TRect clip = Canvas()->ClipRect();
  bool fixedBlock = firstCol < fixedCols_ || firstRow < fixedRows_;
  bool vertical = options_.Contains(fixedBlock ? goFixedVertLine : goVertLine);
  bool horizontal = options_.Contains(fixedBlock ? goFixedHorzLine : goHorzLine);
  int colLine = info.Horz.EffectiveLineWidth, rowLine = info.Vert.EffectiveLineWidth;
  int right = colOrigin, bottom = rowOrigin;
  for (int col = firstCol; col < colLimit && right < info.Horz.GridBoundary && right < clip.Right; ++col)
    right += colWidths_.Get(col) + colLine;
  for (int row = firstRow; row < rowLimit && bottom < info.Vert.GridBoundary && bottom < clip.Bottom; ++row)
    bottom += rowHeights_.Get(row) + rowLine;
  Canvas()->Brush()->SetColor(color);
  if (vertical && colLine > 0) {
    for (int col = firstCol, x = colOrigin; col < colLimit && x < right; ++col) {
      x += colWidths_.Get(col);
      Canvas()->FillRect(Rect(x, rowOrigin, x + colLine, bottom));
      x += colLine;
    }
  }
  if (horizontal && rowLine > 0) {
    for (int row = firstRow, y = rowOrigin; row < rowLimit && y < bottom; ++row) {
      y += rowHeights_.Get(row);
      Canvas()->FillRect(Rect(colOrigin, y, right, y + rowLine));
      y += rowLine;
    }
  }
}

void TCustomGrid::DrawFocus(const TGridDrawInfo& info) {
  if (!defaultDrawing_ || !IsActiveControl()) return;
  if (editorMode_ && inplaceEdit_ && inplaceEdit_->Visible()) return;
  TRect focus = options_.Contains(goRowSelect) ? BoxRect(fixedCols_, current_.Y, colCount_ - 1, current_.Y)
                                               : CellRect(current_.X, current_.Y);
  // BoxRect answers in client coordinates; the canvas may be mirrored, so map back.
  focus = MirrorRect(focus);
  if (focus.IsEmpty()) return;
  Canvas()->Brush()->SetColor(Color());
  Canvas()->DrawFocusRect(focus);
}

TRect TCustomGrid::SizingLineRect() const {
  if (gridState_ == gsColSizing) return Rect(sizingPos_ - 1, 0, sizingPos_ + 1, ClientHeight());
  if (gridState_ == gsRowSizing) return Rect(0, sizingPos_ - 1, ClientWidth(), sizingPos_ + 1);
  return TRect();
}

TRect TCustomGrid::MoveMarkRect() const {
  if (gridState_ != gsColMoving && gridState_ != gsRowMoving) return TRect();
  TRect target = gridState_ == gsColMoving ? MirrorRect(BoxRect(movePos_, 0, movePos_, fixedRows_ - 1))
                                           : BoxRect(0, movePos_, fixedCols_ - 1, movePos_);
  if (target.IsEmpty()) return TRect();
  bool after = movePos_ > moveIndex_;
  if (gridState_ == gsColMoving) {
    int x = after ? target.Right : target.Left;
    return Rect(x - 2, 0, x + 2, target.Bottom);
  }
  int y = after ? target.Bottom : target.Top;
  return Rect(0, y - 2, target.Right, y + 2);
}

// The line where a sizing ends and the place where a moved column would land.
void TCustomGrid::DrawDragMarks(const TGridDrawInfo& info) {
  TRect mark = gridState_ == gsColSizing || gridState_ == gsRowSizing ? SizingLineRect() : MoveMarkRect();
  if (mark.IsEmpty()) return;
  Canvas()->Brush()->SetColor(clBlack);
  Canvas()->FillRect(mark);
}

void TCustomGrid::WMNCPaint(TMessage& message) {
  auto* canvas = reinterpret_cast<TCanvas*>(message.WParam);
  if (canvas && borderStyle_ == bsSingle && HandleAllocated()) {
    TRect outer = Rect(0, 0, Width(), Height());
    if (Ctl3D()) {
      canvas->Brush()->SetColor(clBtnShadow);
      canvas->FrameRect(outer);
      outer.Inflate(-1, -1);
      canvas->Brush()->SetColor(cl3DDkShadow);
      canvas->FrameRect(outer);
    } else {
      canvas->Brush()->SetColor(clWindowFrame);
      canvas->FrameRect(outer);
    }
  }
  TCustomControl::WMNCPaint(message);
}

}  // namespace quil
