// TCustomGrid: the scroll bars, the top left cell and the wheel.

#include <algorithm>

#include "framework/controls/Grids.h"
#include "framework/controls/ScrollBars.h"

namespace quil {

namespace {

// Pixels between the starts of two first cells, or -1 when that is more than limit:
// then the move is too far to scroll pixels and the grid paints anew.
int PixelDistance(const TGridAxisDrawInfo& axis, int from, int to, int limit) {
  int low = std::min(from, to), high = std::max(from, to), distance = 0;
  for (int cell = low; cell < high; ++cell) {
    distance += axis.GetExtent(cell) + axis.EffectiveLineWidth;
    if (distance >= limit) return -1;
  }
  return distance;
}

}  // namespace

void TCustomGrid::MoveTopLeft(int left, int top) {
  if (left == topLeft_.X && top == topLeft_.Y) return;
  TGridCoord old = topLeft_;
  topLeft_ = {left, top};
  TopLeftMoved(old);
}

void TCustomGrid::TopLeftMoved(const TGridCoord& oldTopLeft) {
  UpdateScrollPos();
  if (HandleAllocated()) {
    TGridDrawInfo info;
    CalcDrawInfo(info);
    const TGridAxisDrawInfo& horz = info.Horz;
    const TGridAxisDrawInfo& vert = info.Vert;
    int scrollWidth = horz.GridExtent - horz.FixedBoundary;
    int scrollHeight = vert.GridExtent - vert.FixedBoundary;
    int dx = PixelDistance(horz, oldTopLeft.X, topLeft_.X, scrollWidth);
    int dy = PixelDistance(vert, oldTopLeft.Y, topLeft_.Y, scrollHeight);
    if (dx < 0 || dy < 0) {
      InvalidateGrid();
    } else {
      if (dx > 0) {
        TRect area = MirrorRect(Rect(horz.FixedBoundary, 0, horz.GridExtent, ClientHeight()));
        int shift = topLeft_.X > oldTopLeft.X ? -dx : dx;
        ScrollWindowEx(UseRightToLeftAlignment() ? -shift : shift, 0, &area, &area);
      }
      if (dy > 0) {
        TRect area = Rect(0, vert.FixedBoundary, ClientWidth(), vert.GridExtent);
        ScrollWindowEx(0, topLeft_.Y > oldTopLeft.Y ? -dy : dy, &area, &area);
      }
    }
  }
  TopLeftChanged();
}

void TCustomGrid::UpdateScrollRange() {
  if (!HandleAllocated() || updatingScrollBars_) return;
  updatingScrollBars_ = true;
  // A bar that comes or goes changes the client area and so the range of the other.
  for (int pass = 0; pass < 3; ++pass) {
    TGridDrawInfo info;
    CalcDrawInfo(info);
    TGridCoord maxTopLeft = CalcMaxTopLeft({colCount_ - 1, rowCount_ - 1}, info);
    bool horzWanted = scrollBars_ == ssHorizontal || scrollBars_ == ssBoth;
    bool vertWanted = scrollBars_ == ssVertical || scrollBars_ == ssBoth;
    int visibleCols = std::max(info.Horz.LastFullVisibleCell - topLeft_.X + 1, 1);
    int visibleRows = std::max(info.Vert.LastFullVisibleCell - topLeft_.Y + 1, 1);
    TRect before = ClientRect();
    TScrollInfo scroll;
    scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    scroll.nPage = UINT(visibleCols);
    scroll.nMax = horzWanted ? maxTopLeft.X - fixedCols_ + visibleCols - 1 : 0;
    scroll.nPos = topLeft_.X - fixedCols_;
    SetScrollInfo(this, SB_HORZ, scroll, true);
    scroll.nPage = UINT(visibleRows);
    scroll.nMax = vertWanted ? maxTopLeft.Y - fixedRows_ + visibleRows - 1 : 0;
    scroll.nPos = topLeft_.Y - fixedRows_;
    SetScrollInfo(this, SB_VERT, scroll, true);
    if (ClientRect() == before) break;
  }
  updatingScrollBars_ = false;
  // A grown client area may show all: the top left cell goes back as far as it can.
  TGridDrawInfo info;
  CalcDrawInfo(info);
  TGridCoord maxTopLeft = CalcMaxTopLeft(topLeft_, info);
  if (maxTopLeft != topLeft_) MoveTopLeft(maxTopLeft.X, maxTopLeft.Y);
}

void TCustomGrid::UpdateScrollPos() {
  if (!HandleAllocated() || updatingScrollBars_) return;
  SetScrollPos(this, SB_HORZ, topLeft_.X - fixedCols_, true);
  SetScrollPos(this, SB_VERT, topLeft_.Y - fixedRows_, true);
}

// Scroll codes move the top left cell; the current cell stays where it is.
void TCustomGrid::ScrollBy(int bar, int code, int thumbPos) {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  bool horizontal = bar == SB_HORZ;
  const TGridAxisDrawInfo& axis = horizontal ? info.Horz : info.Vert;
  int first = horizontal ? topLeft_.X : topLeft_.Y;
  int fixed = axis.FixedCellCount;
  int page = std::max(axis.LastFullVisibleCell - first + 1, 1);
  TGridCoord maxTopLeft = CalcMaxTopLeft({colCount_ - 1, rowCount_ - 1}, info);
  int maxFirst = std::max(horizontal ? maxTopLeft.X : maxTopLeft.Y, fixed);
  int target = first;
  switch (code) {
    case SB_LINEUP: target = first - 1; break;
    case SB_LINEDOWN: target = first + 1; break;
    case SB_PAGEUP: target = first - page; break;
    case SB_PAGEDOWN: target = first + page; break;
    case SB_TOP: target = fixed; break;
    case SB_BOTTOM: target = maxFirst; break;
    case SB_THUMBTRACK:
      if (!options_.Contains(goThumbTracking)) return;
      [[fallthrough]];
    case SB_THUMBPOSITION: {
      // The message holds 16 bits of the thumb's place; a longer bar is asked for all of it.
      TScrollInfo scroll;
      scroll.fMask = SIF_RANGE | SIF_TRACKPOS;
      GetScrollInfo(this, bar, scroll);
      target = fixed + (scroll.nMax > 0xFFFF ? scroll.nTrackPos : thumbPos);
      break;
    }
    default: return;
  }
  target = std::clamp(target, fixed, maxFirst);
  if (horizontal) MoveTopLeft(target, topLeft_.Y);
  else MoveTopLeft(topLeft_.X, target);
  // The bar may have moved under the user's hand without the grid moving.
  UpdateScrollPos();
}

void TCustomGrid::WMHScroll(TMessage& message) {
  ScrollBy(SB_HORZ, LOWORD(message.WParam), HIWORD(message.WParam));
}

void TCustomGrid::WMVScroll(TMessage& message) {
  ScrollBy(SB_VERT, LOWORD(message.WParam), HIWORD(message.WParam));
}

void TCustomGrid::TimedScroll(TGridScrollDirection direction) {
  TGridDrawInfo info;
  CalcDrawInfo(info);
  TGridCoord maxTopLeft = CalcMaxTopLeft({colCount_ - 1, rowCount_ - 1}, info);
  TGridCoord newTopLeft = topLeft_, cell = anchor_;
  if (direction.Contains(sdLeft) && newTopLeft.X > fixedCols_) cell.X = --newTopLeft.X;
  if (direction.Contains(sdRight) && newTopLeft.X < maxTopLeft.X) {
    ++newTopLeft.X;
    cell.X = std::min(info.Horz.LastFullVisibleCell + 1, colCount_ - 1);
  }
  if (direction.Contains(sdUp) && newTopLeft.Y > fixedRows_) cell.Y = --newTopLeft.Y;
  if (direction.Contains(sdDown) && newTopLeft.Y < maxTopLeft.Y) {
    ++newTopLeft.Y;
    cell.Y = std::min(info.Vert.LastFullVisibleCell + 1, rowCount_ - 1);
  }
  if (newTopLeft == topLeft_) return;
  MoveTopLeft(newTopLeft.X, newTopLeft.Y);
  if (gridState_ == gsSelecting) MoveAnchor(cell);
}

void TCustomGrid::ScrollTimerTick(TObject*) {
  TGridScrollDirection direction;
  TGridDrawInfo info;
  CalcDrawInfo(info);
  int x = MirrorX(lastMouse_.X);
  if (gridState_ != gsRowMoving && gridState_ != gsRowSizing) {
    if (x < info.Horz.FixedBoundary) direction += UseRightToLeftAlignment() ? sdRight : sdLeft;
    else if (x > info.Horz.FullVisBoundary) direction += UseRightToLeftAlignment() ? sdLeft : sdRight;
  }
  if (gridState_ != gsColMoving && gridState_ != gsColSizing) {
    if (lastMouse_.Y < info.Vert.FixedBoundary) direction += sdUp;
    else if (lastMouse_.Y > info.Vert.FullVisBoundary) direction += sdDown;
  }
  if (!direction.Empty()) TimedScroll(direction);
}

bool TCustomGrid::DoMouseWheelDown(TShiftState shift, TPoint mousePos) {
  if (TCustomControl::DoMouseWheelDown(shift, mousePos)) return true;
  if (current_.Y < rowCount_ - 1) SetRow(current_.Y + 1);
  return true;
}

bool TCustomGrid::DoMouseWheelUp(TShiftState shift, TPoint mousePos) {
  if (TCustomControl::DoMouseWheelUp(shift, mousePos)) return true;
  if (current_.Y > fixedRows_) SetRow(current_.Y - 1);
  return true;
}

}  // namespace quil
