// Where titles and their header bands lie. Two kinds of spanning meet here: the title of
// an expanded column spans the titles of its group, and a band spans the neighbours
// whose header texts agree from the top band down to it.
#include <algorithm>

#include "framework/graphics/Canvas.h"
#include "grid/QuilDBGrid.h"

namespace quil {

// --- Band sharing

namespace {

// The nearest visible sibling of column in direction (-1 left, +1 right).
TQuilColumn* VisibleSibling(const TQuilColumn* column, int direction) {
  const TQuilDBGridColumns* columns = column->Columns();
  for (int index = column->Index() + direction; index >= 0 && index < columns->Count(); index += direction) {
    TQuilColumn* other = columns->Items(index);
    if (other->GetVisible() && other->ParentColumn() == column->ParentColumn()) return other;
  }
  return nullptr;
}

// A band is shared by neighbours on the same side of the frozen columns whose texts agree
// in it and in every band above it.
bool SharesBand(const TQuilColumn* column, const TQuilColumn* other, int row, int fixedCols) {
  if (other->Title()->GetHeaderRowCount() <= row) return false;
  if ((column->Index() < fixedCols) != (other->Index() < fixedCols)) return false;
  for (int band = 0; band <= row; ++band)
    if (column->Title()->GetHeaderRows(band) != other->Title()->GetHeaderRows(band)) return false;
  return true;
}

}  // namespace

TQuilColumn* TQuilColumnTitle::HeaderNeighbour(int row, int direction) const {
  const TQuilCustomDBGrid* grid = Grid();
  if (row < 0 || row >= GetHeaderRowCount() || !grid) return nullptr;
  TQuilColumn* other = VisibleSibling(column_, direction);
  return other && SharesBand(column_, other, row, grid->FixedCols()) ? other : nullptr;
}

// --- Title rectangles

// A cell as the canvas draws it: unmirrored while a mirrored canvas paints. A column
// without width (an expanded one gives its room to its group) keeps its place: where the
// next shown column starts.
TRect TQuilCustomDBGrid::TitleCellRect(int rawCol, int row) const {
  TRect rect = CellRect(rawCol, row);
  if (rect.IsEmpty() && ColWidths(rawCol) <= 0) {
    rect = BoxRect(rawCol, row, ColCount() - 1, row);
    if (UseRightToLeftAlignment()) rect.Left = rect.Right;
    else rect.Right = rect.Left;
  }
  if (UseRightToLeftAlignment() && Canvas()->CanvasOrientation() == coRightToLeft)
    rect = Rect(ClientWidth() - rect.Right, rect.Top, ClientWidth() - rect.Left, rect.Bottom);
  return rect;
}

TRect TQuilCustomDBGrid::CalcTitleRect(TQuilColumn* column, int row, TQuilColumn*& master) const {
  master = ColumnAtDepth(column, row);
  if (!master) return TRect();
  const int rawMaster = DataToRawColumn(master->Index());
  // A group scrolled in part out of sight starts at the first scrollable column.
  const bool scrolledOut = rawMaster < LeftCol() && master->Index() >= fixedCols_;
  TRect result = scrolledOut ? TitleCellRect(LeftCol(), std::min(column->Depth(), row))
                             : TitleCellRect(rawMaster, master->Depth());
  const bool leftward = UseRightToLeftAlignment() && Canvas()->CanvasOrientation() != coRightToLeft;
  for (int dataCol = column->Index(); dataCol < columns_->Count(); ++dataCol) {
    TQuilColumn* member = columns_->Items(dataCol);
    if (ColumnAtDepth(member, row) != master) break;
    const int rawCol = DataToRawColumn(dataCol);
    if (CellRect(rawCol, row).IsEmpty()) continue;
    const TRect cell = TitleCellRect(rawCol, row);
    if (leftward) result.Left = cell.Left;
    else result.Right = std::max(result.Right, cell.Right);
  }
  // A leaf above the last title row reaches down to it.
  if (!master->GetExpanded() && column->Depth() <= row && column->Depth() < TCustomGrid::FixedRows() - 1) {
    TGridDrawInfo info;
    CalcFixedInfo(info);
    result.Bottom = info.Vert.FixedBoundary - info.Vert.EffectiveLineWidth;
  }
  return result;
}

// The text of a title is laid out in its whole extent, so that the caption of a wide
// group stays on its group while the grid scrolls; the visible part clips it.
TRect TQuilCustomDBGrid::FullTitleRect(TQuilColumn* column, int row, TQuilColumn*& master) const {
  TRect rect = CalcTitleRect(column, row, master);
  if (!master) return rect;
  if (master->GetExpanded()) {
    const int width = master->GetExpandWidth() - GetColLineWidth();
    if (rect.Width() < width) {
      if (master->Index() >= fixedCols_)
        for (int dataCol = master->Index() + 1; dataCol < GetDataLeftCol(); ++dataCol)
          rect.Left -= columns_->Items(dataCol)->GetWidth() + GetColLineWidth();
      rect.Right = rect.Left + width;
    }
  } else if (rect.Width() < master->GetWidth()) {
    rect.Right = rect.Left + master->GetWidth();
  }
  if (rect.Height() < RowHeights(row)) rect.Bottom = rect.Top + RowHeights(row);
  return rect;
}

// The band across all the columns that share it, and in visibleRect its part on the
// screen: a neighbour scrolled out of sight widens the band but not its visible part.
TRect TQuilCustomDBGrid::HeaderRect(TQuilColumn* column, int row, const TRect& titleRect, TRect& visibleRect) const {
  TRect band = titleRect;
  band.Top += row * titleLineHeight_;
  band.Bottom = band.Top + titleLineHeight_;
  visibleRect = band;
  const int firstScrolled = GetDataLeftCol();
  const bool columnScrolled = column->GetExpandIndex() >= firstScrolled;
  auto sameSide = [&](int dataCol) { return (dataCol >= firstScrolled) == columnScrolled; };
  const int lineWidth = GetColLineWidth();
  for (TQuilColumn* left = column->Title()->HeaderLeft(row); left; left = left->Title()->HeaderLeft(row)) {
    band.Left -= left->GetExpandWidth();
    if (left->GetExpanded()) {
      for (int dataCol = left->GetExpandIndex(); dataCol > left->Index(); --dataCol) {
        const TQuilColumn* member = columns_->Items(dataCol);
        if (!member->GetExpanded() && sameSide(dataCol)) visibleRect.Left -= member->GetWidth() + lineWidth;
      }
    } else if (sameSide(left->Index())) {
      visibleRect.Left -= left->GetWidth() + lineWidth;
    }
  }
  for (TQuilColumn* right = column->Title()->HeaderRight(row); right; right = right->Title()->HeaderRight(row)) {
    band.Right += right->GetExpandWidth();
    if (sameSide(right->Index())) visibleRect.Right += right->GetExpandWidth();
  }
  return band;
}

int TQuilCustomDBGrid::HeaderRow(int y, TQuilColumn* column) const {
  if (!column || !options_.Contains(dgTitleHeaders) || titleLineHeight_ <= 0) return -1;
  for (int row = 0; row < column->Depth(); ++row) y -= RowHeights(row) + GetRowLineWidth();
  if (y < 0 || y >= column->Title()->GetHeaderRowCount() * titleLineHeight_) return -1;
  return y / titleLineHeight_;
}

}  // namespace quil
