// The base grid's window: made again with its state, rows moved by the mouse, the view
// scrolled while a title or row is dragged past the edge, and right-to-left drawing.
#include <gtest/gtest.h>

#include <QImage>
#include <QScrollBar>

#include "GridProbe.h"
#include "framework/controls/MessageQueue.h"
#include "framework/controls/ScrollBars.h"

using namespace quil;
using quil::test::Center;
using quil::test::Drag;
using quil::test::GridTest;
using quil::test::SendMouse;

namespace {

// Keeps the picture for a look by eye when QUIL_GRAPHICS_SNAPSHOTS names a folder.
void Snapshot(const QImage& image, const QString& name) {
  const QString folder = qEnvironmentVariable("QUIL_GRAPHICS_SNAPSHOTS");
  if (!folder.isEmpty()) image.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

QScrollBar* ShownBar(TWinControl* control, Qt::Orientation orientation) {
  for (QScrollBar* bar : control->Handle()->findChildren<QScrollBar*>())
    if (bar->orientation() == orientation && bar->isVisible()) return bar;
  return nullptr;
}

TEST_F(GridTest, RecreatedWindowKeepsScrollBarsAndTopLeft) {
  grid->SetTopRow(50);
  const int clientWidth = grid->ClientWidth();
  QWidget* before = grid->Handle();
  grid->RecreateWnd();
  ASSERT_TRUE(grid->HandleAllocated());
  EXPECT_NE(grid->Handle(), before);
  QScrollBar* vertical = ShownBar(grid, Qt::Vertical);
  ASSERT_NE(vertical, nullptr);
  EXPECT_EQ(vertical->value(), grid->TopRow() - 1);
  TScrollInfo info;
  info.fMask = SIF_ALL;
  ASSERT_TRUE(GetScrollInfo(grid, SB_VERT, info));
  EXPECT_EQ(info.nPos, 49);
  // The new window scrolls, sizes its client area round the bars and paints.
  grid->Perform(WM_VSCROLL, SB_LINEDOWN, 0);
  EXPECT_EQ(grid->TopRow(), 51);
  EXPECT_EQ(grid->ClientWidth(), clientWidth);
  grid->drawn.clear();
  grid->Repaint();
  EXPECT_TRUE(grid->drawn.count({1, 51}));
  grid->RecreateWnd();
  EXPECT_NE(ShownBar(grid, Qt::Vertical), nullptr);
}

TEST_F(GridTest, DraggingAFixedRowCellMovesTheRow) {
  grid->SetOptions(grid->Options() + goRowMoving);
  grid->SetRowHeights(3, 30);
  grid->MoveColRow(2, 3, true, true);
  Drag(grid, CellCenter(0, 3), CellCenter(0, 6));
  ASSERT_EQ(grid->rowMoves.size(), 1u);
  EXPECT_EQ(grid->rowMoves[0], std::make_pair(3, 6));
  // The height and the current cell go along with the row; the rows between close up.
  EXPECT_EQ(grid->RowHeights(6), 30);
  EXPECT_EQ(grid->RowHeights(3), 24);
  EXPECT_EQ(grid->Row(), 6);
  // Without the option the same drag moves nothing.
  grid->SetOptions(grid->Options() - goRowMoving);
  Drag(grid, CellCenter(0, 4), CellCenter(0, 7));
  EXPECT_EQ(grid->rowMoves.size(), 1u);
}

TEST_F(GridTest, TitleHeldPastTheRightEdgeScrollsTheColumnsAndDropsThere) {
  grid->SetOptions(grid->Options() + goColMoving);
  const int y = CellCenter(2, 0).Y;
  SendMouse(grid, QEvent::MouseButtonPress, CellCenter(2, 0), Qt::LeftButton);
  SendMouse(grid, QEvent::MouseMove, Point(grid->ClientWidth() + 20, y), Qt::LeftButton, Qt::NoButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return grid->LeftCol() > 3; }));
  // Back over a column that scrolled into view: the title goes there.
  const int target = grid->LeftCol() + 1;
  SendMouse(grid, QEvent::MouseMove, CellCenter(target, 0), Qt::LeftButton, Qt::NoButton);
  SendMouse(grid, QEvent::MouseButtonRelease, CellCenter(target, 0), Qt::NoButton);
  ASSERT_EQ(grid->moves.size(), 1u);
  EXPECT_EQ(grid->moves[0], std::make_pair(2, target));
  EXPECT_EQ(grid->TopRow(), 1) << "a column drag scrolls sideways only";
}

TEST_F(GridTest, RowHeldBelowTheGridScrollsTheRowsDown) {
  grid->SetOptions(grid->Options() + goRowMoving);
  SendMouse(grid, QEvent::MouseButtonPress, CellCenter(0, 2), Qt::LeftButton);
  SendMouse(grid, QEvent::MouseMove, Point(CellCenter(0, 2).X, grid->ClientHeight() + 20), Qt::LeftButton,
            Qt::NoButton);
  EXPECT_TRUE(QTest::qWaitFor([this] { return grid->TopRow() > 3; }));
  EXPECT_EQ(grid->LeftCol(), 1) << "a row drag scrolls up and down only";
  SendMouse(grid, QEvent::MouseButtonRelease, Point(CellCenter(0, 2).X, grid->ClientHeight() + 20), Qt::NoButton);
  EXPECT_EQ(grid->GridState(), gsNormal);
}

// Right to left, the fixed column stands at the right edge and columns run leftwards;
// the mouse finds the cells where they are drawn.
TEST_F(GridTest, RightToLeftDrawsMirroredAndHitsWhereItDraws) {
  grid->SetFixedColor(clYellow);
  grid->SetColor(clWhite);
  grid->ink = clRed;
  grid->Repaint();
  Snapshot(grid->Handle()->grab().toImage(), QStringLiteral("grid_left_to_right"));
  grid->SetBiDiMode(bdRightToLeft);
  grid->Repaint();
  const QImage image = grid->Handle()->grab().toImage();
  Snapshot(image, QStringLiteral("grid_right_to_left"));
  auto pixel = [&](TPoint client) { return image.pixelColor(quil::test::WidgetPoint(grid, client)); };
  const TRect fixedCell = grid->CellRect(0, 5), firstCell = grid->CellRect(1, 5);
  EXPECT_GT(fixedCell.Left, firstCell.Left);
  EXPECT_EQ(fixedCell.Right, grid->ClientWidth());
  EXPECT_EQ(pixel(Point(grid->ClientWidth() - 3, Center(fixedCell).Y)), QColor(Qt::yellow));
  EXPECT_EQ(pixel(Point(firstCell.Right - 3, Center(firstCell).Y + 8)), QColor(Qt::white));
  // The mirror is the client area's: the column cut at the left edge reaches that edge.
  EXPECT_EQ(pixel(Point(1, Center(firstCell).Y + 8)), QColor(Qt::white));
  // The text of a cell is drawn inside its mirrored rectangle.
  int red = 0;
  for (int y = firstCell.Top; y < firstCell.Bottom; ++y)
    for (int x = firstCell.Left; x < firstCell.Right; ++x) {
      const QColor color = pixel(Point(x, y));
      red += color.red() > 160 && color.green() < 120 && color.blue() < 120;
    }
  EXPECT_GT(red, 5);
  EXPECT_EQ(grid->MouseCoord(Center(fixedCell).X, Center(fixedCell).Y), (TGridCoord{0, 5}));
  quil::test::SendMouse(grid, QEvent::MouseButtonPress, CellCenter(3, 4), Qt::LeftButton);
  quil::test::SendMouse(grid, QEvent::MouseButtonRelease, CellCenter(3, 4), Qt::NoButton);
  EXPECT_EQ((TGridCoord{grid->Col(), grid->Row()}), (TGridCoord{3, 4}));
}

}  // namespace
