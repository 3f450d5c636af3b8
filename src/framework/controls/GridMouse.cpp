// TCustomGrid: the mouse: selecting, sizing columns and rows, moving them.

#include <algorithm>

#include "framework/controls/Grids.h"
#include "framework/controls/KeyMapping.h"

namespace quil {

namespace {

// Half the width of the zone around a line where the mouse takes it to size.
constexpr int kSizingSlack = 3;

// The cell whose far line lies within the slack of pos, with that line's position.
bool HitLine(const TGridAxisDrawInfo& axis, int pos, int& index, int& linePos) {
  int line = axis.FixedBoundary;
  for (int cell = axis.FirstGridCell; cell < axis.GridCellCount; ++cell) {
    line += axis.GetExtent(cell);
    if (line > axis.GridBoundary) return false;
    if (pos >= line - kSizingSlack && pos <= line + axis.EffectiveLineWidth + kSizingSlack) {
      index = cell;
      linePos = line;
      return true;
    }
    line += axis.EffectiveLineWidth;
  }
  return false;
}

}  // namespace

TGridOptions TCustomGrid::SizingOptions() const {
  return ComponentState().Contains(csDesigning) ? options_ + designOptionsBoost_ : options_;
}

void TCustomGrid::CalcSizingState(int x, int y, TGridState& state, int& index, int& sizingPos,
                                  int& sizingOfs, const TGridDrawInfo& fixedInfo) {
  state = gsNormal;
  index = -1;
  x = MirrorX(x);
  const TGridOptions options = SizingOptions();
  // Sizing starts in the fixed area only: a column at the title, a row at the indicator.
  if (options.Contains(goColSizing) && y < fixedInfo.Vert.FixedBoundary && x > fixedInfo.Horz.FixedBoundary) {
    if (HitLine(fixedInfo.Horz, x, index, sizingPos)) state = gsColSizing;
    sizingOfs = sizingPos - x;
  } else if (options.Contains(goRowSizing) && x < fixedInfo.Horz.FixedBoundary && y > fixedInfo.Vert.FixedBoundary) {
    if (HitLine(fixedInfo.Vert, y, index, sizingPos)) state = gsRowSizing;
    sizingOfs = sizingPos - y;
  }
}

bool TCustomGrid::Sizing(int x, int y) {
  TGridState state = gridState_;
  if (state == gsNormal) {
    TGridDrawInfo info;
    CalcDrawInfo(info);
    int index = -1, pos = 0, ofs = 0;
    CalcSizingState(x, y, state, index, pos, ofs, info);
  }
  return state == gsColSizing || state == gsRowSizing;
}

void TCustomGrid::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
  // A press that cannot bring the focus here (a handler kept it elsewhere) does nothing.
  if (CanFocus() && !IsActiveControl()) {
    SetFocus();
    if (!IsActiveControl()) {
      SetMouseCapture(false);
      return;
    }
  }
  lastMouse_ = Point(x, y);
  if (button == mbLeft && shift.Contains(ssDouble)) {
    DblClick();
  } else if (button == mbLeft) {
    TGridDrawInfo info;
    CalcDrawInfo(info);
    StartSizing(info, x, y);
    if (gridState_ == gsNormal) {
      TGridCoord cell = CalcCoordFromPoint(x, y, info);
      if (cell.X >= fixedCols_ && cell.Y >= fixedRows_) {
        if (options_.Contains(goEditing) && cell == current_ && !shift.Contains(ssShift)) {
          ShowEditor();
        } else {
          if (shift.Contains(ssShift)) {
            MoveAnchor(cell);
          } else {
            MoveCurrent(cell.X, cell.Y, true, true);
            UpdateEdit();
          }
          gridState_ = gsSelecting;
          scrollTimer_->SetEnabled(true);
        }
        Click();
      } else if (cell.X >= 0 && cell.Y >= 0) {
        StartMoving(cell, x, y);
      }
    }
  }
  TCustomControl::MouseDown(button, shift, x, y);
}

void TCustomGrid::StartSizing(const TGridDrawInfo& info, int x, int y) {
  CalcSizingState(x, y, gridState_, sizingIndex_, sizingPos_, sizingOfs_, info);
  if (gridState_ == gsNormal) return;
  HideEditor();
  InvalidateRect(MirrorRect(SizingLineRect()));
}

bool TCustomGrid::StartMoving(const TGridCoord& cell, int x, int y) {
  TPoint mouse = Point(x, y);
  if (options_.Contains(goColMoving) && cell.Y < fixedRows_ && cell.X >= fixedCols_) {
    moveIndex_ = movePos_ = cell.X;
    if (!BeginColumnDrag(moveIndex_, movePos_, mouse)) return false;
    gridState_ = gsColMoving;
  } else if (options_.Contains(goRowMoving) && cell.X < fixedCols_ && cell.Y >= fixedRows_) {
    moveIndex_ = movePos_ = cell.Y;
    if (!BeginRowDrag(moveIndex_, movePos_, mouse)) return false;
    gridState_ = gsRowMoving;
  } else {
    return false;
  }
  HideEditor();
  scrollTimer_->SetEnabled(true);
  InvalidateRect(MirrorRect(MoveMarkRect()));
  return true;
}

void TCustomGrid::MouseMove(TShiftState shift, int x, int y) {
  lastMouse_ = Point(x, y);
  switch (gridState_) {
    case gsSelecting: {
      TGridCoord cell = MouseCoord(x, y);
      if (cell.X >= fixedCols_ && cell.Y >= fixedRows_ && cell != anchor_) MoveAnchor(cell);
      break;
    }
    case gsColSizing:
    case gsRowSizing: {
      InvalidateRect(MirrorRect(SizingLineRect()));
      TGridDrawInfo info;
      CalcDrawInfo(info);
      int pos = (gridState_ == gsColSizing ? MirrorX(x) : y) + sizingOfs_;
      const TGridAxisDrawInfo& axis = gridState_ == gsColSizing ? info.Horz : info.Vert;
      sizingPos_ = std::clamp(pos, axis.FixedBoundary, axis.GridExtent);
      InvalidateRect(MirrorRect(SizingLineRect()));
      break;
    }
    case gsColMoving:
    case gsRowMoving: TrackMove(x, y); break;
    default: break;
  }
  TCustomControl::MouseMove(shift, x, y);
}

void TCustomGrid::TrackMove(int x, int y) {
  TGridCoord cell = MouseCoord(x, y);
  int target = gridState_ == gsColMoving ? cell.X : cell.Y;
  int first = gridState_ == gsColMoving ? fixedCols_ : fixedRows_;
  if (target < first || target == movePos_) return;
  int origin = moveIndex_;
  bool accepted = gridState_ == gsColMoving ? CheckColumnDrag(origin, target, Point(x, y))
                                            : CheckRowDrag(origin, target, Point(x, y));
  if (!accepted) return;
  InvalidateRect(MirrorRect(MoveMarkRect()));
  moveIndex_ = origin;
  movePos_ = target;
  InvalidateRect(MirrorRect(MoveMarkRect()));
}

void TCustomGrid::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
  lastMouse_ = Point(x, y);
  scrollTimer_->SetEnabled(false);
  switch (gridState_) {
    case gsSelecting:
      MouseMove(shift, x, y);
      gridState_ = gsNormal;
      UpdateEdit();
      break;
    case gsColSizing:
    case gsRowSizing: FinishSizing(); break;
    case gsColMoving:
    case gsRowMoving: FinishMove(x, y); break;
    default: break;
  }
  TCustomControl::MouseUp(button, shift, x, y);
}

void TCustomGrid::FinishSizing() {
  InvalidateRect(MirrorRect(SizingLineRect()));
  bool columns = gridState_ == gsColSizing;
  gridState_ = gsNormal;
  // The new size is what lies between the cell's start and where its far line was let go.
  TRect cell = MirrorRect(CellRect(columns ? sizingIndex_ : 0, columns ? 0 : sizingIndex_));
  int newSize = std::max(sizingPos_ - (columns ? cell.Left : cell.Top), 1);
  if (columns) SetColWidths(sizingIndex_, newSize);
  else SetRowHeights(sizingIndex_, newSize);
  sizingIndex_ = -1;
}

void TCustomGrid::FinishMove(int x, int y) {
  InvalidateRect(MirrorRect(MoveMarkRect()));
  TGridState state = gridState_;
  gridState_ = gsNormal;
  int origin = moveIndex_, destination = movePos_;
  moveIndex_ = movePos_ = -1;
  bool accepted = state == gsColMoving ? EndColumnDrag(origin, destination, Point(x, y))
                                       : EndRowDrag(origin, destination, Point(x, y));
  if (!accepted || origin == destination) return;
  if (state == gsColMoving) MoveColumn(origin, destination);
  else MoveRow(origin, destination);
}

void TCustomGrid::MoveColumn(int fromIndex, int toIndex) {
  if (fromIndex == toIndex) return;
  colWidths_.Move(fromIndex, toIndex);
  bool fromStops = TabStops(fromIndex);
  int step = fromIndex < toIndex ? 1 : -1;
  for (int col = fromIndex; col != toIndex; col += step) SetTabStops(col, TabStops(col + step));
  SetTabStops(toIndex, fromStops);
  ColumnMoved(fromIndex, toIndex);
  if (current_.X == fromIndex) current_.X = toIndex;
  else if (std::min(fromIndex, toIndex) <= current_.X && current_.X <= std::max(fromIndex, toIndex))
    current_.X -= step;
  InvalidateGrid();
  ColWidthsChanged();
}

void TCustomGrid::MoveRow(int fromIndex, int toIndex) {
  if (fromIndex == toIndex) return;
  rowHeights_.Move(fromIndex, toIndex);
  RowMoved(fromIndex, toIndex);
  int step = fromIndex < toIndex ? 1 : -1;
  if (current_.Y == fromIndex) current_.Y = toIndex;
  else if (std::min(fromIndex, toIndex) <= current_.Y && current_.Y <= std::max(fromIndex, toIndex))
    current_.Y -= step;
  InvalidateGrid();
  RowHeightsChanged();
}

void TCustomGrid::WMSetCursor(TMessage& message) {
  if (gridState_ == gsNormal && HandleAllocated()) {
    TGridDrawInfo info;
    CalcDrawInfo(info);
    TGridState state;
    int index = -1, pos = 0, ofs = 0;
    TPoint mouse = ScreenToClient(GetMessagePos());
    CalcSizingState(mouse.X, mouse.Y, state, index, pos, ofs, info);
    if (state != gsNormal) {
      ApplyCursor(state == gsColSizing ? crHSplit : crVSplit);
      message.Result = 1;
      return;
    }
  }
  TCustomControl::WMSetCursor(message);
}

void TCustomGrid::WMCancelMode(TMessage& message) {
  scrollTimer_->SetEnabled(false);
  if (gridState_ != gsNormal) {
    Invalidate();
    gridState_ = gsNormal;
  }
  TCustomControl::WMCancelMode(message);
}

}  // namespace quil
