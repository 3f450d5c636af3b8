#pragma once
// A base grid that records what reaches its virtual operations, on a form that is shown
// and active, with helpers that send real Qt mouse events at client points.

#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "framework/controls/Application.h"
#include "framework/controls/Forms.h"
#include "framework/controls/Grids.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Types_p.h"

namespace quil::test {

// An in-place editor that records the clipboard and undo messages that reach it.
class EditProbe : public TInplaceEdit {
public:
  explicit EditProbe(TComponent* owner) : TInplaceEdit(owner) {}
  std::vector<UINT> commands;
  int boundsChanges = 0;
  std::vector<std::pair<UINT, LPARAM>> imeMessages;

protected:
  void BoundsChanged() override { ++boundsChanges; TInplaceEdit::BoundsChanged(); }
  void WMCut(TMessage& m) override { commands.push_back(WM_CUT); TInplaceEdit::WMCut(m); }
  void WMPaste(TMessage& m) override { commands.push_back(WM_PASTE); TInplaceEdit::WMPaste(m); }
  void WMClear(TMessage& m) override { commands.push_back(WM_CLEAR); TInplaceEdit::WMClear(m); }
  void WMUndo(TMessage& m) override { commands.push_back(WM_UNDO); TInplaceEdit::WMUndo(m); }
  void WMImeStartComposition(TMessage& m) override { imeMessages.emplace_back(m.Msg, m.LParam); }
  void WMImeComposition(TMessage& m) override { imeMessages.emplace_back(m.Msg, m.LParam); }
  void WMImeEndComposition(TMessage& m) override { imeMessages.emplace_back(m.Msg, m.LParam); }
};

class GridProbe : public TCustomGrid {
public:
  explicit GridProbe(TComponent* owner) : TCustomGrid(owner) {}

  struct Key { uint16_t key; TShiftState shift; };
  std::vector<Key> keysDown;
  std::set<std::pair<int, int>> drawn;
  std::map<std::pair<int, int>, TGridDrawState> states;  // the last state of each cell drawn  // (col, row) of each DrawCell since the last clear
  std::vector<std::pair<int, int>> moves;  // ColumnMoved(from, to)
  std::vector<std::pair<int, int>> rowMoves;  // RowMoved(from, to)
  std::vector<std::pair<std::pair<int, int>, QString>> edits;  // SetEditText(col, row)
  std::vector<std::pair<UINT, WPARAM>> focusMessages;  // WM_SETFOCUS/WM_KILLFOCUS, other window
  int colWidthsChanges = 0, rowHeightsChanges = 0, topLeftChanges = 0;
  QString editText = QStringLiteral("before");
  QString editMask;
  int editLimit = 0;
  bool modifiable = true;
  bool editShow = true;  // false: CanEditShow refuses whatever the base says
  QString pressed;       // the characters that reached KeyPress
  std::vector<std::pair<int, int>> selected;  // SelectCell(col, row)
  int clicks = 0;
  QString refused;  // characters CanEditAcceptKey refuses  // false: CanEditModify refuses whatever the base says
  TColor ink = clNone;  // when set, DrawCell writes "c,r" in this color
  bool editOnComposition = false;  // a composition on the grid opens the editor
  int imeStarts = 0;

  using TCustomGrid::Canvas;
  using TCustomGrid::Sizing;
  using TCustomGrid::ChangeScale;
  bool CanEditModify() override { return modifiable && TCustomGrid::CanEditModify(); }
  bool CanEditAcceptKey(QChar key) override { return !refused.contains(key); }
  bool CanEditShow() override { return editShow && TCustomGrid::CanEditShow(); }
  EditProbe* Editor() const { return static_cast<EditProbe*>(InplaceEditor()); }

protected:
  void KeyDown(uint16_t& key, TShiftState shift) override {
    keysDown.push_back({key, shift});
    TCustomGrid::KeyDown(key, shift);
  }
  bool SelectCell(int col, int row) override {
    selected.emplace_back(col, row);
    return TCustomGrid::SelectCell(col, row);
  }
  void Click() override { ++clicks; TCustomGrid::Click(); }
  void KeyPress(QChar& key) override {
    pressed += key;
    TCustomGrid::KeyPress(key);
  }
  void DrawCell(int col, int row, const TRect& rect, TGridDrawState state) override {
    drawn.insert({col, row});
    states[{col, row}] = state;
    if (ink == clNone) return;
    Canvas()->Font()->SetColor(ink);
    Canvas()->Brush()->SetStyle(bsClear);
    Canvas()->TextRect(rect, rect.Left + 2, rect.Top + 2, QStringLiteral("%1,%2").arg(col).arg(row));
    Canvas()->Brush()->SetStyle(bsSolid);
  }
  QString GetEditText(int col, int row) override { return editText; }
  void SetEditText(int col, int row, const QString& value) override { edits.push_back({{col, row}, value}); }
  QString GetEditMask(int col, int row) override { return editMask; }
  int GetEditLimit() override { return editLimit; }
  TInplaceEdit* CreateEditor() override { return new EditProbe(this); }
  void ColumnMoved(int fromIndex, int toIndex) override { moves.emplace_back(fromIndex, toIndex); }
  void RowMoved(int fromIndex, int toIndex) override { rowMoves.emplace_back(fromIndex, toIndex); }
  void ColWidthsChanged() override { ++colWidthsChanges; TCustomGrid::ColWidthsChanged(); }
  void RowHeightsChanged() override { ++rowHeightsChanges; TCustomGrid::RowHeightsChanged(); }
  void WMSetFocus(TMessage& m) override { focusMessages.emplace_back(WM_SETFOCUS, m.WParam); TCustomGrid::WMSetFocus(m); }
  void WMKillFocus(TMessage& m) override { focusMessages.emplace_back(WM_KILLFOCUS, m.WParam); TCustomGrid::WMKillFocus(m); }
  void TopLeftChanged() override { ++topLeftChanges; TCustomGrid::TopLeftChanged(); }
  void WMImeStartComposition(TMessage& m) override {
    ++imeStarts;
    if (editOnComposition) ShowEditor();
  }
};

// The widget point of a client point of a window control.
inline QPoint WidgetPoint(TWinControl* control, TPoint client) {
  return control->Handle()->mapFromGlobal(ToQPoint(control->ClientToScreen(client)));
}

inline TPoint Center(const TRect& rect) { return Point((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2); }

inline void SendMouse(TWinControl* control, QEvent::Type type, TPoint client, Qt::MouseButtons buttons,
                      Qt::MouseButton button = Qt::LeftButton) {
  QWidget* widget = control->Handle();
  const QPoint local = WidgetPoint(control, client);
  QMouseEvent event(type, QPointF(local), QPointF(widget->mapToGlobal(local)), button, buttons, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

// Presses the left button at from, moves in a few steps to to and lets go there.
inline void Drag(TWinControl* control, TPoint from, TPoint to) {
  SendMouse(control, QEvent::MouseButtonPress, from, Qt::LeftButton);
  for (int step = 1; step <= 4; ++step) {
    TPoint at = Point(from.X + (to.X - from.X) * step / 4, from.Y + (to.Y - from.Y) * step / 4);
    SendMouse(control, QEvent::MouseMove, at, Qt::LeftButton, Qt::NoButton);
  }
  SendMouse(control, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

inline void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  Application->ProcessMessages();
}

// A 20 x 200 grid with a fixed row and column, 64 x 24 cells, on a shown, active form.
class GridTest : public ::testing::Test {
protected:
  void SetUp() override {
    form = new TForm(nullptr);
    form->SetBounds(0, 0, 400, 300);
    grid = new GridProbe(form);
    grid->SetParent(form);
    grid->SetBounds(0, 0, 400, 300);
    grid->SetColCount(20);
    grid->SetRowCount(200);
    form->Show();
    QWidget* window = form->Handle();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    grid->SetFocus();
    ASSERT_TRUE(grid->Focused());
  }
  void TearDown() override { delete form; }

  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) { test::Key(key, modifiers); }
  TPoint CellCenter(int col, int row) const { return Center(grid->CellRect(col, row)); }
  // What the window shows after the pending paints, from the screen's backing store
  // (a grab would paint the widget anew and hide what scrolling left there).
  QImage OnScreen() {
    grid->Update();
    QWidget* window = form->Handle();
    return window->screen()->grabWindow(window->winId()).toImage();
  }

  TForm* form = nullptr;
  GridProbe* grid = nullptr;
};

}  // namespace quil::test
