// TCustomGrid: where cells lie. Every walk along an axis starts at a shown cell and stops
// at the client's edge, so the cost follows what is on screen, never the cell count.

#include <algorithm>

#include "framework/controls/Grids.h"

namespace quil {

namespace {

void CalcFixedAxis(TGridAxisDrawInfo& axis, int lineWidth, int fixedCount, int firstCell,
                   int cellCount, const TGridExtents& extents) {
  axis.EffectiveLineWidth = lineWidth;
  axis.Extents = &extents;
  axis.FixedBoundary = 0;
  for (int cell = 0; cell < fixedCount; ++cell) axis.FixedBoundary += axis.GetExtent(cell) + lineWidth;
  axis.FixedCellCount = fixedCount;
  axis.FirstGridCell = firstCell;
  axis.GridCellCount = cellCount;
}

void CalcAxis(TGridAxisDrawInfo& axis, int extent) {
  axis.GridExtent = extent;
  axis.GridBoundary = axis.FixedBoundary;
  axis.FullVisBoundary = axis.FixedBoundary;
  axis.LastFullVisibleCell = axis.FirstGridCell;
  for (int cell = axis.FirstGridCell; cell < axis.GridCellCount; ++cell) {
    axis.GridBoundary += axis.GetExtent(cell) + axis.EffectiveLineWidth;
    if (axis.GridBoundary > extent + axis.EffectiveLineWidth) {
      axis.GridBoundary = extent;
      break;
    }
    axis.LastFullVisibleCell = cell;
    axis.FullVisBoundary = axis.GridBoundary;
  }
}

// The client start of a cell, or -1 when it is scrolled away or past the client's edge.
int LinePos(const TGridAxisDrawInfo& axis, int line) {
  int pos = 0, start = 0;
  if (line >= axis.FixedCellCount) {
    if (line < axis.FirstGridCell) return -1;
    pos = axis.FixedBoundary;
    start = axis.FirstGridCell;
  }
  for (int cell = start; cell < line; ++cell) {
    pos += axis.GetExtent(cell) + axis.EffectiveLineWidth;
    if (pos >= axis.GridExtent) return -1;
  }
  return pos < axis.GridExtent ? pos : -1;
}

// The client span of cells first..last, clipped to what shows; false when none shows.
bool CellSpan(const TGridAxisDrawInfo& axis, int first, int last, int& start, int& end) {
  if (first >= axis.FixedCellCount && first < axis.FirstGridCell) {
    if (last < axis.FirstGridCell) return false;
    first = axis.FirstGridCell;
  }
  start = LinePos(axis, first);
  if (start < 0) return false;
  end = start;
  for (int cell = first; cell <= last; ++cell) {
    if (cell > first) end += axis.EffectiveLineWidth;
    // A fixed cell followed by scrolled-away cells: the span jumps to the first shown one.
    if (cell == axis.FixedCellCount && cell < axis.FirstGridCell) {
      cell = axis.FirstGridCell;
      end = axis.FixedBoundary;
    }
    end += axis.GetExtent(cell);
    if (end >= axis.GridExtent) {
      end = axis.GridExtent;
      break;
    }
  }
  return end > start;
}

// The cell at a client position along the axis, -1 when none is there.
int CellAt(const TGridAxisDrawInfo& axis, int pos) {
  if (pos < 0) return -1;
  int cell = 0, start = 0;
  if (pos >= axis.FixedBoundary) {
    cell = axis.FirstGridCell;
    start = axis.FixedBoundary;
  }
  for (; cell < axis.GridCellCount; ++cell) {
    start += axis.GetExtent(cell) + axis.EffectiveLineWidth;
    if (pos < start) return cell;
    if (start > axis.GridExtent) return -1;
  }
  return -1;
}

// The first cell that shows the axis' last cell whole at the client's far edge.
int MaxFirstCell(const TGridAxisDrawInfo& axis) {
  int room = axis.GridExtent - axis.FixedBoundary;
  int first = axis.GridCellCount - 1;
  for (int cell = axis.GridCellCount - 1; cell >= axis.FixedCellCount; --cell) {
    room -= axis.GetExtent(cell) + axis.EffectiveLineWidth;
    if (room < 0 && cell < axis.GridCellCount - 1) break;
    first = cell;
  }
  return std::max(first, axis.FixedCellCount);
}

}  // namespace

void TCustomGrid::CalcFixedInfo(TGridDrawInfo& drawInfo) const {
  int horzLine = options_.Intersects({goFixedVertLine, goVertLine}) ? gridLineWidth_ : 0;
  int vertLine = options_.Intersects({goFixedHorzLine, goHorzLine}) ? gridLineWidth_ : 0;
  CalcFixedAxis(drawInfo.Horz, horzLine, fixedCols_, topLeft_.X, colCount_, colWidths_);
  CalcFixedAxis(drawInfo.Vert, vertLine, fixedRows_, topLeft_.Y, rowCount_, rowHeights_);
}

void TCustomGrid::CalcDrawInfoXY(TGridDrawInfo& drawInfo, int useWidth, int useHeight) const {
  CalcFixedInfo(drawInfo);
  CalcAxis(drawInfo.Horz, useWidth);
  CalcAxis(drawInfo.Vert, useHeight);
}

void TCustomGrid::CalcDrawInfo(TGridDrawInfo& drawInfo) const {
  CalcDrawInfoXY(drawInfo, ClientWidth(), ClientHeight());
}

int TCustomGrid::VisibleColCount() const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  return std::max(info.Horz.LastFullVisibleCell - topLeft_.X + 1, 1);
}

int TCustomGrid::VisibleRowCount() const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  return std::max(info.Vert.LastFullVisibleCell - topLeft_.Y + 1, 1);
}

int TCustomGrid::GridWidth() const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  return info.Horz.GridBoundary;
}

int TCustomGrid::GridHeight() const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  return info.Vert.GridBoundary;
}

int TCustomGrid::MirrorX(int x) const { return UseRightToLeftAlignment() ? ClientWidth() - x : x; }

TRect TCustomGrid::MirrorRect(const TRect& rect) const {
  if (!UseRightToLeftAlignment()) return rect;
  return Rect(ClientWidth() - rect.Right, rect.Top, ClientWidth() - rect.Left, rect.Bottom);
}

TRect TCustomGrid::BoxRect(int left, int top, int right, int bottom) const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  TRect rect;
  if (!CellSpan(info.Horz, std::min(left, right), std::max(left, right), rect.Left, rect.Right) ||
      !CellSpan(info.Vert, std::min(top, bottom), std::max(top, bottom), rect.Top, rect.Bottom))
    return TRect();
  return MirrorRect(rect);
}

TRect TCustomGrid::CellRect(int col, int row) const { return BoxRect(col, row, col, row); }

TGridCoord TCustomGrid::CalcCoordFromPoint(int x, int y, const TGridDrawInfo& drawInfo) const {
  int col = CellAt(drawInfo.Horz, MirrorX(x));
  int row = CellAt(drawInfo.Vert, y);
  if (col < 0 || row < 0) return {-1, -1};
  return {col, row};
}

TGridCoord TCustomGrid::MouseCoord(int x, int y) const {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  return CalcCoordFromPoint(x, y, info);
}

TGridCoord TCustomGrid::CalcMaxTopLeft(const TGridCoord& coord, const TGridDrawInfo& drawInfo) const {
  return {std::min(coord.X, MaxFirstCell(drawInfo.Horz)), std::min(coord.Y, MaxFirstCell(drawInfo.Vert))};
}

void TCustomGrid::ClampInView(const TGridCoord& coord) {
  if (!HandleAllocated()) return;
  TGridDrawInfo info;
  CalcDrawInfo(info);
  // The first cell that shows target whole at the far edge, walking back from it.
  auto firstShowing = [](const TGridAxisDrawInfo& axis, int target) {
    int room = axis.GridExtent - axis.FixedBoundary - axis.GetExtent(target) - axis.EffectiveLineWidth;
    int first = target;
    while (first - 1 >= axis.FixedCellCount) {
      room -= axis.GetExtent(first - 1) + axis.EffectiveLineWidth;
      if (room < 0) break;
      --first;
    }
    return first;
  };
  TGridCoord topLeft = topLeft_;
  if (coord.X >= fixedCols_ && coord.X < topLeft.X) topLeft.X = coord.X;
  else if (coord.X > info.Horz.LastFullVisibleCell) topLeft.X = firstShowing(info.Horz, coord.X);
  if (coord.Y >= fixedRows_ && coord.Y < topLeft.Y) topLeft.Y = coord.Y;
  else if (coord.Y > info.Vert.LastFullVisibleCell) topLeft.Y = firstShowing(info.Vert, coord.Y);
  MoveTopLeft(topLeft.X, topLeft.Y);
}

}  // namespace quil
