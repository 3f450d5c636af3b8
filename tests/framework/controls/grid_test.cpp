#include <gtest/gtest.h>

#include <QImage>
#include <QScreen>
#include <QScrollBar>

#include "GridProbe.h"
#include "framework/controls/MessageQueue.h"
#include "framework/controls/VirtualKeys.h"
#include "framework/graphics/Colors_p.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;
using quil::test::Center;
using quil::test::Drag;
using quil::test::GridProbe;

using quil::test::GridTest;

TEST_F(GridTest, KeyPressReachesKeyDownWithVirtualKeyAndShift) {
  Key(Qt::Key_Down, Qt::ShiftModifier);
  ASSERT_FALSE(grid->keysDown.empty());
  EXPECT_EQ(grid->keysDown.back().key, VK_DOWN);
  EXPECT_EQ(grid->keysDown.back().shift, TShiftState{ssShift});
  // Shift extends the selection from where it was.
  EXPECT_EQ(grid->Row(), 2);
  EXPECT_EQ(grid->Selection(), (TGridRect{1, 1, 1, 2}));
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid->keysDown.back().key, VK_END);
  EXPECT_EQ(grid->keysDown.back().shift, TShiftState{ssCtrl});
  EXPECT_EQ(grid->Col(), 19);
  EXPECT_EQ(grid->Row(), 199);
}

struct KeyMove {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  TGridCoord expected;  // Col, Row after the key, starting at (5, 50) with (5, 50) on top
};

class GridKeyMoveTest : public GridTest, public ::testing::WithParamInterface<KeyMove> {};

TEST_P(GridKeyMoveTest, MovesTheCurrentCell) {
  grid->SetLeftCol(5);
  grid->SetTopRow(50);
  grid->MoveColRow(5, 50, true, true);
  Key(GetParam().key, GetParam().modifiers);
  EXPECT_EQ((TGridCoord{grid->Col(), grid->Row()}), GetParam().expected);
  // The current cell is always scrolled into view.
  EXPECT_FALSE(grid->CellRect(grid->Col(), grid->Row()).IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Keys, GridKeyMoveTest, ::testing::Values(
    KeyMove{Qt::Key_Up, Qt::NoModifier, {5, 49}},
    KeyMove{Qt::Key_Down, Qt::NoModifier, {5, 51}},
    KeyMove{Qt::Key_Left, Qt::NoModifier, {4, 50}},
    KeyMove{Qt::Key_Right, Qt::NoModifier, {6, 50}},
    KeyMove{Qt::Key_Home, Qt::NoModifier, {1, 50}},
    KeyMove{Qt::Key_End, Qt::NoModifier, {19, 50}},
    KeyMove{Qt::Key_Home, Qt::ControlModifier, {1, 1}},
    KeyMove{Qt::Key_PageUp, Qt::ControlModifier, {5, 50}},
    // A page is the rows shown whole: (300 - 2 border - scroll bar) / 25 less the title.
    KeyMove{Qt::Key_PageDown, Qt::NoModifier, {5, 60}},
    KeyMove{Qt::Key_PageUp, Qt::NoModifier, {5, 40}}));

TEST_F(GridTest, PageDownScrollsByTheRowsShownWhole) {
  int page = grid->VisibleRowCount();
  ASSERT_GT(page, 1);
  int changes = grid->topLeftChanges;
  Key(Qt::Key_PageDown);
  EXPECT_EQ(grid->TopRow(), 1 + page);
  EXPECT_EQ(grid->Row(), 1 + page);
  EXPECT_EQ(grid->topLeftChanges, changes + 1);
}

TEST_F(GridTest, TabFollowsTheTabStops) {
  grid->SetOptions(grid->Options() + goTabs);
  grid->SetTabStops(2, false);
  Key(Qt::Key_Tab);
  EXPECT_EQ(grid->Col(), 3);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(grid->Col(), 1);
}

TEST_F(GridTest, ClickOnACellMakesItCurrent) {
  QTest::mouseClick(grid->Handle(), Qt::LeftButton, Qt::NoModifier, quil::test::WidgetPoint(grid, CellCenter(3, 4)));
  EXPECT_EQ(grid->Col(), 3);
  EXPECT_EQ(grid->Row(), 4);
  // A click on a fixed cell leaves the current cell where it is.
  QTest::mouseClick(grid->Handle(), Qt::LeftButton, Qt::NoModifier, quil::test::WidgetPoint(grid, CellCenter(0, 6)));
  EXPECT_EQ(grid->Row(), 4);
}

TEST_F(GridTest, DraggingOverCellsSelectsARangeAndKeepsTheCurrentCell) {
  grid->selected.clear();
  Drag(grid, CellCenter(4, 5), CellCenter(2, 2));
  EXPECT_EQ(grid->Selection(), (TGridRect{2, 2, 4, 5}));
  EXPECT_EQ(grid->GridState(), gsNormal);
  EXPECT_EQ(grid->Col(), 4);
  EXPECT_EQ(grid->Row(), 5);
  EXPECT_EQ(grid->selected, (std::vector<std::pair<int, int>>{{4, 5}}));
  EXPECT_EQ(grid->clicks, 1);
}

TEST_F(GridTest, PressThatCannotTakeTheFocusDoesNothing) {
  auto* other = new GridProbe(form);
  other->SetParent(form);
  other->SetBounds(0, 250, 100, 50);
  other->SetFocus();
  // The other control keeps the focus whenever it would leave.
  other->SetOnExit([other](TObject*) { other->SetFocus(); });
  int clicks = grid->clicks;
  quil::test::SendMouse(grid, QEvent::MouseButtonPress, CellCenter(3, 4), Qt::LeftButton);
  quil::test::SendMouse(grid, QEvent::MouseButtonRelease, CellCenter(3, 4), Qt::NoButton);
  Application->ProcessMessages();
  ASSERT_TRUE(other->Focused());
  EXPECT_EQ(grid->Col(), 1);
  EXPECT_EQ(grid->Row(), 1);
  EXPECT_EQ(grid->clicks, clicks);
  EXPECT_EQ(grid->GridState(), gsNormal);
}

TEST_F(GridTest, ShiftClickStretchesTheSelectionFromTheCurrentCell) {
  grid->MoveColRow(2, 3, true, true);
  grid->selected.clear();
  int clicks = grid->clicks;
  QTest::mouseClick(grid->Handle(), Qt::LeftButton, Qt::ShiftModifier,
                    quil::test::WidgetPoint(grid, CellCenter(4, 6)));
  Application->ProcessMessages();
  EXPECT_EQ(grid->Selection(), (TGridRect{2, 3, 4, 6}));
  EXPECT_EQ(grid->Col(), 2);
  EXPECT_EQ(grid->Row(), 3);
  EXPECT_TRUE(grid->selected.empty());
  EXPECT_EQ(grid->clicks, clicks + 1);
}

TEST_F(GridTest, DraggingBelowTheGridScrollsTheFarCornerOfTheSelection) {
  quil::test::SendMouse(grid, QEvent::MouseButtonPress, CellCenter(2, 2), Qt::LeftButton);
  quil::test::SendMouse(grid, QEvent::MouseMove, Point(CellCenter(2, 2).X, grid->ClientHeight() + 20),
                        Qt::LeftButton, Qt::NoButton);
  // The scroll timer moves the view while the button is held below the grid.
  EXPECT_TRUE(QTest::qWaitFor([this] { return grid->TopRow() > 2; }));
  quil::test::SendMouse(grid, QEvent::MouseButtonRelease, Point(CellCenter(2, 2).X, grid->ClientHeight() + 20),
                        Qt::NoButton);
  EXPECT_GT(grid->TopRow(), 1);
  EXPECT_EQ(grid->Row(), 2);
  EXPECT_GT(grid->Selection().Bottom, grid->TopRow());
  EXPECT_EQ(grid->Selection().Top, 2);
}

TEST_F(GridTest, DraggingAColumnBorderInTheTitleSizesTheColumn) {
  grid->SetOptions(grid->Options() + goColSizing);
  TRect title = grid->CellRect(2, 0);
  int changes = grid->colWidthsChanges;
  Drag(grid, Point(title.Right, Center(title).Y), Point(title.Right + 30, Center(title).Y));
  EXPECT_EQ(grid->ColWidths(2), 64 + 30);
  EXPECT_EQ(grid->ColWidths(3), 64);
  EXPECT_EQ(grid->colWidthsChanges, changes + 1);
  EXPECT_EQ(grid->CellRect(3, 1).Left, grid->CellRect(2, 1).Right + 1);
}

TEST_F(GridTest, SizingTellsWhetherAPointIsOnASizingLine) {
  TRect title = grid->CellRect(2, 0);
  TPoint border = Point(title.Right, Center(title).Y);
  EXPECT_FALSE(grid->Sizing(border.X, border.Y));
  grid->SetOptions(grid->Options() + goColSizing);
  EXPECT_TRUE(grid->Sizing(border.X, border.Y));
  EXPECT_FALSE(grid->Sizing(Center(title).X, border.Y));
  EXPECT_FALSE(grid->Sizing(border.X, CellCenter(2, 3).Y));
  // While a drag sizes, every point answers true.
  quil::test::SendMouse(grid, QEvent::MouseButtonPress, border, Qt::LeftButton);
  EXPECT_TRUE(grid->Sizing(CellCenter(4, 4).X, CellCenter(4, 4).Y));
  quil::test::SendMouse(grid, QEvent::MouseButtonRelease, border, Qt::NoButton);
  EXPECT_FALSE(grid->Sizing(CellCenter(4, 4).X, CellCenter(4, 4).Y));
}

TEST_F(GridTest, DraggingARowBorderInTheFixedColumnSizesTheRow) {
  grid->SetOptions(grid->Options() + goRowSizing);
  TRect number = grid->CellRect(0, 3);
  Drag(grid, Point(Center(number).X, number.Bottom), Point(Center(number).X, number.Bottom - 10));
  EXPECT_EQ(grid->RowHeights(3), 24 - 10);
  EXPECT_GT(grid->rowHeightsChanges, 0);
}

TEST_F(GridTest, ColumnBorderDoesNotSizeWithoutTheOption) {
  TRect title = grid->CellRect(2, 0);
  Drag(grid, Point(title.Right, Center(title).Y), Point(title.Right + 30, Center(title).Y));
  EXPECT_EQ(grid->ColWidths(2), 64);
}

TEST_F(GridTest, DesignOptionsBoostSizesOnlyWhileDesigning) {
  TRect title = grid->CellRect(2, 0);
  TPoint border = Point(title.Right, Center(title).Y);
  grid->SetDesignOptionsBoost({goColSizing});
  EXPECT_FALSE(grid->Sizing(border.X, border.Y));
  grid->SetDesigning(true);
  EXPECT_TRUE(grid->Sizing(border.X, border.Y));
  EXPECT_FALSE(grid->Options().Contains(goColSizing)) << "the boost is not an option";
}

TEST_F(GridTest, DraggingATitleMovesTheColumn) {
  grid->SetOptions(grid->Options() + goColMoving);
  grid->SetColWidths(2, 90);
  Drag(grid, CellCenter(2, 0), CellCenter(4, 0));
  ASSERT_EQ(grid->moves.size(), 1u);
  EXPECT_EQ(grid->moves[0], std::make_pair(2, 4));
  // The width goes along with the column.
  EXPECT_EQ(grid->ColWidths(4), 90);
  EXPECT_EQ(grid->ColWidths(2), 64);
}

TEST_F(GridTest, DrawCellRunsForExactlyTheCellsOfTheInvalidatedRectangle) {
  grid->Repaint();
  grid->drawn.clear();
  // From inside cell (2, 3) to inside cell (4, 5): nine cells.
  TRect from = grid->CellRect(2, 3), to = grid->CellRect(4, 5);
  grid->InvalidateRect(Rect(from.Left + 5, from.Top + 5, to.Left + 5, to.Top + 5));
  grid->Update();
  std::set<std::pair<int, int>> expected;
  for (int col = 2; col <= 4; ++col)
    for (int row = 3; row <= 5; ++row) expected.insert({col, row});
  EXPECT_EQ(grid->drawn, expected);
}

TEST_F(GridTest, InvalidateCellRepaintsThatCellAlone) {
  grid->Repaint();
  grid->drawn.clear();
  grid->InvalidateCell(3, 7);
  grid->Update();
  EXPECT_EQ(grid->drawn, (std::set<std::pair<int, int>>{{3, 7}}));
  // A cell scrolled out of sight paints nothing.
  grid->drawn.clear();
  grid->InvalidateCell(3, 150);
  grid->Update();
  EXPECT_TRUE(grid->drawn.empty());
}

TEST_F(GridTest, FullPaintVisitsOnlyTheCellsOnScreen) {
  grid->drawn.clear();
  grid->Repaint();
  int lastCol = grid->LeftCol() + grid->VisibleColCount();  // one more may show in part
  int lastRow = grid->TopRow() + grid->VisibleRowCount();
  for (const auto& [col, row] : grid->drawn) {
    EXPECT_LE(col, lastCol);
    EXPECT_LE(row, lastRow);
  }
  EXPECT_TRUE(grid->drawn.count({0, 0}));
  EXPECT_TRUE(grid->drawn.count({lastCol, lastRow}));
}

TEST_F(GridTest, F2OpensTheEditorWhichTakesTextAndHandsItBack) {
  grid->SetOptions(grid->Options() + goEditing);
  grid->editText = QStringLiteral("old");
  Key(Qt::Key_F2);
  ASSERT_TRUE(grid->EditorMode());
  TInplaceEdit* editor = grid->InplaceEditor();
  ASSERT_NE(editor, nullptr);
  EXPECT_TRUE(editor->Visible());
  EXPECT_EQ(editor->Text(), QStringLiteral("old"));
  EXPECT_TRUE(editor->Focused());
  // The editor lies on the current cell.
  EXPECT_EQ(editor->BoundsRect().TopLeft(), grid->CellRect(1, 1).TopLeft());
  QTest::keyClick(editor->Handle(), Qt::Key_End);
  QTest::keyClicks(editor->Handle(), "er");
  Application->ProcessMessages();
  EXPECT_EQ(editor->Text(), QStringLiteral("older"));
  ASSERT_FALSE(grid->edits.empty());
  EXPECT_EQ(grid->edits.back(), std::make_pair(std::make_pair(1, 1), QStringLiteral("older")));
  // Enter closes the editor and gives the focus back to the grid.
  Key(Qt::Key_Return);
  EXPECT_FALSE(grid->EditorMode());
  EXPECT_FALSE(editor->Visible());
  EXPECT_TRUE(grid->Focused());
  EXPECT_EQ(grid->edits.back().second, QStringLiteral("older"));
}

TEST_F(GridTest, TypingOnACellOpensTheEditorWithTheCharacter) {
  grid->SetOptions(grid->Options() + goEditing);
  Key(Qt::Key_X);
  ASSERT_TRUE(grid->EditorMode());
  EXPECT_EQ(grid->InplaceEditor()->Text(), QStringLiteral("x"));
}

TEST_F(GridTest, EditorHonoursTheLimitAndTheMask) {
  grid->SetOptions(grid->Options() + goEditing);
  grid->editText.clear();
  grid->editLimit = 3;
  Key(Qt::Key_F2);
  QTest::keyClicks(grid->InplaceEditor()->Handle(), "abcdef");
  EXPECT_EQ(grid->InplaceEditor()->Text(), QStringLiteral("abc"));
  Key(Qt::Key_Escape);
  grid->editLimit = 0;
  grid->editMask = QStringLiteral("000;0;_");
  grid->MoveColRow(2, 1, true, true);
  Key(Qt::Key_F2);
  QTest::keyClicks(grid->InplaceEditor()->Handle(), "1a23");
  EXPECT_EQ(grid->InplaceEditor()->Text(), QStringLiteral("123"));
}

TEST_F(GridTest, EditorFollowsTheCurrentCellAndIsNotShownWithoutEditing) {
  Key(Qt::Key_F2);
  EXPECT_EQ(grid->InplaceEditor(), nullptr);
  grid->SetOptions(grid->Options() + TGridOptions{goEditing, goAlwaysShowEditor});
  ASSERT_NE(grid->InplaceEditor(), nullptr);
  Key(Qt::Key_Down);
  EXPECT_TRUE(grid->InplaceEditor()->Visible());
  EXPECT_EQ(grid->InplaceEditor()->BoundsRect().TopLeft(), grid->CellRect(1, 2).TopLeft());
}

TEST_F(GridTest, WheelAndScrollBarMoveTheTopRow) {
  QWidget* widget = grid->Handle();
  QPoint local = quil::test::WidgetPoint(grid, CellCenter(2, 2));
  QWheelEvent down(local, widget->mapToGlobal(local), QPoint(), QPoint(0, -120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  // Each notch moves the current row; the top row follows once it would leave the view.
  QApplication::sendEvent(widget, &down);
  Application->ProcessMessages();
  EXPECT_EQ(grid->Row(), 2);
  EXPECT_EQ(grid->TopRow(), 1);
  int lastWhole = grid->TopRow() + grid->VisibleRowCount() - 1;
  for (int notch = grid->Row(); notch <= lastWhole; ++notch) QApplication::sendEvent(widget, &down);
  Application->ProcessMessages();
  EXPECT_EQ(grid->Row(), lastWhole + 1);
  EXPECT_EQ(grid->TopRow(), 2);
  // The user drags the vertical bar's thumb: the grid follows with goThumbTracking.
  grid->SetOptions(grid->Options() + goThumbTracking);
  QScrollBar* bar = nullptr;
  for (QScrollBar* candidate : widget->findChildren<QScrollBar*>())
    if (candidate->orientation() == Qt::Vertical) bar = candidate;
  ASSERT_NE(bar, nullptr);
  ASSERT_TRUE(bar->isVisible());
  bar->setSliderDown(true);
  bar->setSliderPosition(100);
  bar->setSliderDown(false);
  Application->ProcessMessages();
  EXPECT_EQ(grid->TopRow(), 101);
}

TEST_F(GridTest, ScrollMessagesMoveTheTopRow) {
  struct Case { int code; int position; int expectedTop; };
  for (const Case& scroll : {Case{SB_LINEDOWN, 0, 2}, Case{SB_LINEUP, 0, 1}, Case{SB_BOTTOM, 0, -1},
                             Case{SB_TOP, 0, 1}, Case{SB_THUMBPOSITION, 40, 41}}) {
    grid->Perform(WM_VSCROLL, WPARAM(scroll.code) | (WPARAM(scroll.position) << 16), 0);
    if (scroll.expectedTop > 0) EXPECT_EQ(grid->TopRow(), scroll.expectedTop) << "code " << scroll.code;
    else EXPECT_EQ(grid->TopRow() + grid->VisibleRowCount(), 200) << "code " << scroll.code;
  }
}

TEST_F(GridTest, CellRectAndMouseCoordAgree) {
  grid->SetColWidths(3, 100);
  grid->SetRowHeights(4, 40);
  for (int col = 0; col < 5; ++col)
    for (int row = 0; row < 6; ++row) {
      TRect rect = grid->CellRect(col, row);
      ASSERT_FALSE(rect.IsEmpty());
      EXPECT_EQ(rect.Width(), grid->ColWidths(col));
      EXPECT_EQ(rect.Height(), grid->RowHeights(row));
      TGridCoord coord = grid->MouseCoord(rect.Left, rect.Bottom - 1);
      EXPECT_EQ(coord, (TGridCoord{col, row}));
    }
  EXPECT_TRUE(grid->CellRect(1, 150).IsEmpty());
  EXPECT_EQ(grid->MouseCoord(-5, 10), (TGridCoord{-1, -1}));
  EXPECT_EQ(grid->BoxRect(1, 1, 2, 2), Rect(grid->CellRect(1, 1).Left, grid->CellRect(1, 1).Top,
                                            grid->CellRect(2, 2).Right, grid->CellRect(2, 2).Bottom));
}

TEST_F(GridTest, CountsAndSizesCallBackAndRefuseBadIndexes) {
  int cols = grid->colWidthsChanges, rows = grid->rowHeightsChanges;
  grid->SetColCount(30);
  grid->SetRowCount(10);
  grid->SetDefaultColWidth(50);
  EXPECT_EQ(grid->colWidthsChanges, cols + 2);
  EXPECT_EQ(grid->rowHeightsChanges, rows + 1);
  EXPECT_THROW(grid->SetColWidths(30, 10), EInvalidGridOperation);
  EXPECT_THROW(grid->SetFixedRows(10), EInvalidGridOperation);
  EXPECT_THROW(grid->MoveColRow(1, 10, true, true), EInvalidGridOperation);
  grid->MoveColRow(3, 9, true, true);
  grid->SetRowCount(5);
  EXPECT_EQ(grid->Row(), 4);
}

TEST_F(GridTest, ShrinkingCountsBelowTheTopLeftMovesItWithCallbackAndScrollBar) {
  QScrollBar* bar = nullptr;
  for (QScrollBar* candidate : grid->Handle()->findChildren<QScrollBar*>())
    if (candidate->orientation() == Qt::Vertical) bar = candidate;
  ASSERT_NE(bar, nullptr);
  grid->SetTopRow(150);
  int changes = grid->topLeftChanges;
  grid->SetRowCount(100);
  EXPECT_EQ(grid->TopRow() + grid->VisibleRowCount(), 100);
  EXPECT_EQ(grid->topLeftChanges, changes + 1);
  EXPECT_EQ(bar->value(), grid->TopRow() - 1);
  grid->SetLeftCol(10);
  changes = grid->topLeftChanges;
  grid->SetFixedCols(2);
  EXPECT_EQ(grid->LeftCol(), 2);
  EXPECT_EQ(grid->TopRow(), 1);
  EXPECT_EQ(grid->topLeftChanges, changes + 1);
  EXPECT_EQ(bar->value(), 0);
}

TEST_F(GridTest, PaintedColorsAndTextAppearInTheGrabbedImage) {
  grid->SetFixedColor(clYellow);
  grid->SetColor(clWhite);
  grid->ink = clRed;
  grid->MoveColRow(3, 3, true, true);
  grid->MoveColRow(2, 2, false, true);
  grid->Repaint();
  QImage image = grid->Handle()->grab().toImage();
  auto pixel = [&](TPoint client) { return image.pixelColor(quil::test::WidgetPoint(grid, client)); };
  auto inkIn = [&](const TRect& cell) {
    int red = 0;
    for (int y = cell.Top; y < cell.Bottom; ++y)
      for (int x = cell.Left; x < cell.Right; ++x) {
        QColor color = pixel(Point(x, y));
        red += color.red() > 160 && color.green() < 120 && color.blue() < 120;
      }
    return red;
  };
  TRect fixedCell = grid->CellRect(0, 5), plainCell = grid->CellRect(4, 5), current = grid->CellRect(2, 2);
  TRect selected = grid->CellRect(3, 3);
  EXPECT_EQ(pixel(Point(fixedCell.Right - 2, fixedCell.Bottom - 2)), QColor(Qt::yellow));
  EXPECT_EQ(pixel(Point(plainCell.Right - 2, plainCell.Bottom - 2)), QColor(Qt::white));
  // A selected cell without the focus is highlighted; the focused current cell keeps the
  // window color inside its focus rectangle.
  EXPECT_EQ(pixel(Point(selected.Right - 3, selected.Bottom - 3)), ToQColor(clHighlight));
  EXPECT_EQ(pixel(Point(current.Right - 4, current.Bottom - 4)), QColor(Qt::white));
  EXPECT_GT(inkIn(plainCell), 5);
  EXPECT_GT(inkIn(fixedCell), 5);
  // Lines: silver between plain cells, black between fixed ones.
  EXPECT_EQ(pixel(Point(plainCell.Right, plainCell.Top + 5)), ToQColor(clSilver));
  EXPECT_EQ(pixel(Point(plainCell.Left + 5, plainCell.Bottom)), ToQColor(clSilver));
  EXPECT_EQ(pixel(Point(fixedCell.Left + 5, fixedCell.Bottom)), ToQColor(clBlack));
}

TEST_F(GridTest, DrawCellGetsTheStateOfEachCell) {
  grid->MoveColRow(3, 3, true, true);
  grid->MoveColRow(2, 2, false, true);
  grid->Repaint();
  EXPECT_EQ(grid->states.at({2, 2}), (TGridDrawState{gdSelected, gdFocused}));
  EXPECT_EQ(grid->states.at({3, 3}), TGridDrawState{gdSelected});
  EXPECT_EQ(grid->states.at({0, 3}), TGridDrawState{gdFixed});
  EXPECT_EQ(grid->states.at({5, 5}), TGridDrawState{});
  // Without the focus no cell is focused; the selection stays.
  auto* other = new GridProbe(form);
  other->SetParent(form);
  other->SetBounds(0, 250, 100, 50);
  other->SetFocus();
  grid->Repaint();
  EXPECT_EQ(grid->states.at({2, 2}), TGridDrawState{gdSelected});
}

TEST_F(GridTest, RowSelectSelectsWholeRowsAndKeepsTheEditorClosed) {
  grid->SetOptions(grid->Options() + TGridOptions{goRowSelect, goEditing});
  Key(Qt::Key_Down);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(grid->Selection(), (TGridRect{1, 2, 19, 3}));
  grid->Repaint();
  EXPECT_TRUE(grid->states.at({4, 3}).Contains(gdSelected));
  Key(Qt::Key_F2);
  EXPECT_TRUE(grid->InplaceEditor() == nullptr || !grid->InplaceEditor()->Visible());
}

TEST_F(GridTest, ThumbTrackOnlyScrollsWithThumbTracking) {
  grid->Perform(WM_VSCROLL, WPARAM(SB_THUMBTRACK) | (WPARAM(40) << 16), 0);
  EXPECT_EQ(grid->TopRow(), 1);
  grid->SetOptions(grid->Options() + goThumbTracking);
  grid->Perform(WM_VSCROLL, WPARAM(SB_THUMBTRACK) | (WPARAM(40) << 16), 0);
  EXPECT_EQ(grid->TopRow(), 41);
}

TEST_F(GridTest, MoveColumnCarriesWidthAndCallsColumnMoved) {
  grid->SetColWidths(2, 90);
  grid->MoveColumn(2, 5);
  EXPECT_EQ(grid->moves, (std::vector<std::pair<int, int>>{{2, 5}}));
  EXPECT_EQ(grid->ColWidths(5), 90);
  EXPECT_EQ(grid->ColWidths(2), 64);
}

TEST_F(GridTest, HiddenCellsHaveAnEmptyRect) {
  grid->SetColWidths(3, -1);
  EXPECT_TRUE(grid->CellRect(3, 2).IsEmpty());
  EXPECT_FALSE(grid->CellRect(4, 2).IsEmpty());
  EXPECT_TRUE(grid->CellRect(2, 150).IsEmpty());  // scrolled out of view
}

TEST_F(GridTest, CancelModeEndsASizingDrag) {
  grid->SetOptions(grid->Options() + goColSizing);
  TRect title = grid->CellRect(2, 0);
  quil::test::SendMouse(grid, QEvent::MouseButtonPress, Point(title.Right, Center(title).Y), Qt::LeftButton);
  ASSERT_EQ(grid->GridState(), gsColSizing);
  grid->Perform(WM_CANCELMODE, 0, 0);
  EXPECT_EQ(grid->GridState(), gsNormal);
  EXPECT_FALSE(grid->MouseCapture());
}

TEST_F(GridTest, ChangeScaleScalesTheExtentsAndCallsBack) {
  grid->SetColWidths(2, 90);
  int cols = grid->colWidthsChanges, rows = grid->rowHeightsChanges;
  grid->ChangeScale(3, 2);
  EXPECT_EQ(grid->DefaultColWidth(), 96);
  EXPECT_EQ(grid->DefaultRowHeight(), 36);
  EXPECT_EQ(grid->ColWidths(2), 135);
  EXPECT_EQ(grid->CellRect(3, 1).Width(), 96);
  EXPECT_GT(grid->colWidthsChanges, cols);
  EXPECT_GT(grid->rowHeightsChanges, rows);
}

TEST_F(GridTest, PostedMessageIsFoundAndTakenOut) {
  constexpr UINT kDeferred = WM_USER + 7;
  PostMessage(grid, kDeferred, 3, 4);
  TMessage found;
  ASSERT_TRUE(PeekMessage(&found, grid, kDeferred, kDeferred, PM_NOREMOVE));
  EXPECT_EQ(found.WParam, 3u);
  EXPECT_TRUE(PeekMessage(nullptr, grid, kDeferred, kDeferred, PM_REMOVE));
  EXPECT_FALSE(PeekMessage(nullptr, grid, kDeferred, kDeferred, PM_NOREMOVE));
}

TEST_F(GridTest, ClickInTheEditorPlacesTheCaretThere) {
  grid->SetOptions(grid->Options() + goEditing);
  grid->editText = QStringLiteral("abcdef");
  Key(Qt::Key_F2);
  TInplaceEdit* editor = grid->InplaceEditor();
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->SelLength(), 6);
  QTest::mouseClick(editor->Handle(), Qt::LeftButton, Qt::NoModifier, QPoint(2, editor->Height() / 2));
  EXPECT_EQ(editor->SelLength(), 0);
  EXPECT_EQ(editor->SelStart(), 0);
  EXPECT_TRUE(grid->EditorMode());
}

TEST_F(GridTest, ScrolledPixelsMatchAFullRepaint) {
  grid->ink = clRed;
  grid->Repaint();
  struct Step { Qt::Key key; int times; };
  // A line down past the bottom, a page, a column right past the edge, back home.
  for (const Step& step : {Step{Qt::Key_Down, 12}, Step{Qt::Key_PageDown, 1}, Step{Qt::Key_Right, 6},
                           Step{Qt::Key_Home, 1}, Step{Qt::Key_Up, 15}}) {
    for (int count = 0; count < step.times; ++count) Key(step.key);
    QImage scrolled = OnScreen();
    grid->Invalidate();
    QImage repainted = OnScreen();
    EXPECT_EQ(scrolled, repainted) << "after key " << step.key << " top row " << grid->TopRow();
  }
  EXPECT_GT(grid->topLeftChanges, 3);
}
