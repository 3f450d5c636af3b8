// TCustomGrid: keys and the movement of the current cell.

#include <QApplication>
#include <QWidget>
#include <algorithm>

#include "framework/controls/Controls_p.h"
#include "framework/controls/Grids.h"
#include "framework/rtl/Exceptions.h"

namespace quil {

namespace {

// The next column with a tab stop, wrapping to the next or previous row; the start
// itself when no other column stops.
TGridCoord NextTabStop(const TCustomGrid& grid, TGridCoord from, bool backward) {
  TGridCoord cell = from;
  do {
    if (backward) {
      if (--cell.X < grid.FixedCols()) {
        cell.X = grid.ColCount() - 1;
        if (--cell.Y < grid.FixedRows()) cell.Y = grid.RowCount() - 1;
      }
    } else if (++cell.X >= grid.ColCount()) {
      cell.X = grid.FixedCols();
      if (++cell.Y >= grid.RowCount()) cell.Y = grid.FixedRows();
    }
  } while (!grid.TabStops(cell.X) && cell != from);
  return cell;
}

}  // namespace

bool TCustomGrid::IsActiveControl() const {
  if (!HandleAllocated()) return false;
  QWidget* focus = QApplication::focusWidget();
  QWidget* self = Private()->Widget();
  return focus && (focus == self || self->isAncestorOf(focus));
}

void TCustomGrid::KeyDown(uint16_t& key, TShiftState shift) {
  TCustomControl::KeyDown(key, shift);
  if (key == 0) return;
  if (!CanGridAcceptKey(key, shift)) {
    key = 0;
    return;
  }
  bool rowSelect = options_.Contains(goRowSelect);
  TGridDrawInfo info;
  CalcDrawInfo(info);
  int pageWidth = std::max(info.Horz.LastFullVisibleCell - topLeft_.X + 1, 1);
  int pageHeight = std::max(info.Vert.LastFullVisibleCell - topLeft_.Y + 1, 1);
  TGridCoord newTopLeft = topLeft_, newCurrent = current_;
  if (shift.Contains(ssCtrl)) {
    switch (key) {
      case VK_UP: --newTopLeft.Y; break;
      case VK_DOWN: ++newTopLeft.Y; break;
      case VK_LEFT:
        if (!rowSelect) { newCurrent.X -= pageWidth; newTopLeft.X -= pageWidth; }
        break;
      case VK_RIGHT:
        if (!rowSelect) { newCurrent.X += pageWidth; newTopLeft.X += pageWidth; }
        break;
      case VK_PRIOR: newCurrent.Y = topLeft_.Y; break;
      case VK_NEXT: newCurrent.Y = info.Vert.LastFullVisibleCell; break;
      case VK_HOME: newCurrent = {fixedCols_, fixedRows_}; break;
      case VK_END: newCurrent = {colCount_ - 1, rowCount_ - 1}; break;
      default: break;
    }
  } else {
    switch (key) {
      case VK_UP: --newCurrent.Y; break;
      case VK_DOWN: ++newCurrent.Y; break;
      case VK_LEFT: rowSelect ? --newTopLeft.X : --newCurrent.X; break;
      case VK_RIGHT: rowSelect ? ++newTopLeft.X : ++newCurrent.X; break;
      case VK_NEXT: newCurrent.Y += pageHeight; newTopLeft.Y += pageHeight; break;
      case VK_PRIOR: newCurrent.Y -= pageHeight; newTopLeft.Y -= pageHeight; break;
      case VK_HOME: rowSelect ? void(newCurrent.Y = fixedRows_) : void(newCurrent.X = fixedCols_); break;
      case VK_END: rowSelect ? void(newCurrent.Y = rowCount_ - 1) : void(newCurrent.X = colCount_ - 1); break;
      case VK_TAB:
        if (!shift.Contains(ssAlt)) newCurrent = NextTabStop(*this, current_, shift.Contains(ssShift));
        break;
      case VK_F2: SetEditorMode(true); break;
      default: break;
    }
  }
  TGridCoord maxTopLeft = CalcMaxTopLeft({colCount_ - 1, rowCount_ - 1}, info);
  newTopLeft.X = std::clamp(newTopLeft.X, fixedCols_, std::max(maxTopLeft.X, fixedCols_));
  newTopLeft.Y = std::clamp(newTopLeft.Y, fixedRows_, std::max(maxTopLeft.Y, fixedRows_));
  if (newTopLeft != topLeft_) MoveTopLeft(newTopLeft.X, newTopLeft.Y);
  newCurrent.X = std::clamp(newCurrent.X, fixedCols_, colCount_ - 1);
  newCurrent.Y = std::clamp(newCurrent.Y, fixedRows_, rowCount_ - 1);
  if (newCurrent != current_) FocusCell(newCurrent.X, newCurrent.Y, !shift.Contains(ssShift) || key == VK_TAB);
}

void TCustomGrid::KeyPress(QChar& key) {
  TCustomControl::KeyPress(key);
  if (key != QChar(0x0D) || options_.Contains(goAlwaysShowEditor)) return;
  if (editorMode_) HideEditor();
  else ShowEditor();
  key = QChar();
}

// A character that may start editing opens the editor and goes on to it; when the cell
// refuses an editor, it is an ordinary key press of the grid.
void TCustomGrid::WMChar(TMessage& message) {
  QChar ch(char16_t(message.WParam));
  if (options_.Contains(goEditing) && (ch.unicode() == 0x08 || ch.unicode() >= 0x20)) {
    ShowEditor();
    if (EditorShowing()) {
      inplaceEdit_->Perform(WM_CHAR, message.WParam, message.LParam);
      return;
    }
    HideEditor();
  }
  TCustomControl::WMChar(message);
}

void TCustomGrid::WMGetDlgCode(TMessage& message) {
  message.Result = DLGC_WANTARROWS;
  if (options_.Contains(goRowSelect)) return;
  if (options_.Contains(goTabs)) message.Result |= DLGC_WANTTAB;
  if (options_.Contains(goEditing)) message.Result |= DLGC_WANTCHARS;
}

void TCustomGrid::FocusCell(int col, int row, bool moveAnchor) {
  MoveCurrent(col, row, moveAnchor, true);
  UpdateEdit();
  Click();
}

void TCustomGrid::MoveColRow(int col, int row, bool moveAnchor, bool show) {
  MoveCurrent(col, row, moveAnchor, show);
  UpdateEdit();
  Click();
}

void TCustomGrid::MoveCurrent(int col, int row, bool moveAnchor, bool show) {
  if (col < 0 || row < 0 || col >= colCount_ || row >= rowCount_)
    throw EInvalidGridOperation(QStringLiteral("Grid index out of range"));
  if (!SelectCell(col, row)) return;
  TGridRect oldSel = Selection();
  TGridCoord oldCurrent = current_;
  current_ = {col, row};
  if (!options_.Contains(goAlwaysShowEditor)) HideEditor();
  if (moveAnchor || !options_.Contains(goRangeSelect)) {
    anchor_ = current_;
    if (options_.Contains(goRowSelect)) anchor_.X = colCount_ - 1;
  }
  if (options_.Contains(goRowSelect)) current_.X = fixedCols_;
  if (show) ClampInView(current_);
  SelectionMoved(oldSel);
  InvalidateCell(oldCurrent.X, oldCurrent.Y);
  InvalidateCell(current_.X, current_.Y);
}

// Drag- and shift-selection: the current cell stays, the far corner of the selection moves.
void TCustomGrid::MoveAnchor(const TGridCoord& cell) {
  if (!options_.Contains(goRangeSelect)) {
    MoveCurrent(cell.X, cell.Y, true, true);
    return;
  }
  TGridRect oldSel = Selection();
  anchor_ = cell;
  if (options_.Contains(goRowSelect)) anchor_.X = colCount_ - 1;
  ClampInView(cell);
  SelectionMoved(oldSel);
}

void TCustomGrid::SelectionMoved(const TGridRect& oldSel) {
  TGridRect newSel = Selection();
  if (oldSel == newSel) return;
  if (options_.Contains(goRowSelect)) {
    InvalidateGridRect({fixedCols_, oldSel.Top, colCount_ - 1, oldSel.Bottom});
    InvalidateGridRect({fixedCols_, newSel.Top, colCount_ - 1, newSel.Bottom});
    return;
  }
  InvalidateGridRect(oldSel);
  InvalidateGridRect(newSel);
}

void TCustomGrid::InvalidateGridRect(const TGridRect& rect) {
  if (!HandleAllocated()) return;
  TRect box = BoxRect(rect.Left, rect.Top, rect.Right, rect.Bottom);
  if (box.IsEmpty()) return;
  // The lines after the box belong to it too: they frame the focus.
  box.Right += gridLineWidth_;
  box.Bottom += gridLineWidth_;
  if (UseRightToLeftAlignment()) box.Left -= gridLineWidth_;
  InvalidateRect(box);
}

void TCustomGrid::InvalidateCell(int col, int row) { InvalidateGridRect({col, row, col, row}); }

void TCustomGrid::InvalidateRow(int row) { InvalidateGridRect({0, row, colCount_ - 1, row}); }

void TCustomGrid::InvalidateCol(int col) { InvalidateGridRect({col, 0, col, rowCount_ - 1}); }

}  // namespace quil
