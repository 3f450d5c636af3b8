#pragma once
// A base grid that records what reaches its virtual operations, on a form that is shown
// and active, with helpers that send real Qt mouse events at client points.

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <set>
#include <utility>
#include <vector>

#include "framework/controls/Application.h"
#include "framework/controls/Forms.h"
#include "framework/controls/Grids.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Types_p.h"

namespace quil::test {

class GridProbe : public TCustomGrid {
public:
  explicit GridProbe(TComponent* owner) : TCustomGrid(owner) {}

  struct Key { uint16_t key; TShiftState shift; };
  std::vector<Key> keysDown;
  std::set<std::pair<int, int>> drawn;  // (col, row) of each DrawCell since the last clear
  std::vector<std::pair<int, int>> moves;  // ColumnMoved(from, to)
  std::vector<std::pair<std::pair<int, int>, QString>> edits;  // SetEditText(col, row)
  int colWidthsChanges = 0, rowHeightsChanges = 0, topLeftChanges = 0;
  QString editText = QStringLiteral("before");
  QString editMask;
  int editLimit = 0;
  TColor ink = clNone;  // when set, DrawCell writes "c,r" in this color

  using TCustomGrid::Canvas;

protected:
  void KeyDown(uint16_t& key, TShiftState shift) override {
    keysDown.push_back({key, shift});
    TCustomGrid::KeyDown(key, shift);
  }
  void DrawCell(int col, int row, const TRect& rect, TGridDrawState state) override {
    drawn.insert({col, row});
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
  void ColumnMoved(int fromIndex, int toIndex) override { moves.emplace_back(fromIndex, toIndex); }
  void ColWidthsChanged() override { ++colWidthsChanges; TCustomGrid::ColWidthsChanged(); }
  void RowHeightsChanged() override { ++rowHeightsChanges; TCustomGrid::RowHeightsChanged(); }
  void TopLeftChanged() override { ++topLeftChanges; TCustomGrid::TopLeftChanged(); }
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

}  // namespace quil::test
