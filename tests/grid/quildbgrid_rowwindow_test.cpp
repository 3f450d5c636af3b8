// The row window: the link buffers exactly the rows that fit, the base grid's rows map
// onto the buffer, and scrolling by a row paints only the row it exposes.
#include "GridTestKit.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

class RowWindow : public GridFixture {};

TEST_F(RowWindow, BuffersExactlyTheRowsThatFitOverALargeDataSet) {
  Open(100000);
  const int fit = RowsThatFit();
  ASSERT_GT(fit, 3);
  EXPECT_EQ(grid->DataLink()->BufferCount(), fit);
  EXPECT_EQ(grid->DataLink()->RecordCount(), fit);
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + fit);
  EXPECT_EQ(grid->TitleOffset(), 1);
  EXPECT_EQ(grid->Row(), grid->TitleOffset());
  EXPECT_EQ(grid->GetVisibleRowCount(), fit);
  dataSet->CheckConsistency();
}

TEST_F(RowWindow, FollowsNextAndPriorWithinTheWindowAndPastItsEdge) {
  Open(1000);
  const int fit = grid->DataLink()->BufferCount();
  for (int step = 1; step < fit; ++step) {
    dataSet->Next();
    EXPECT_EQ(grid->Row(), grid->TitleOffset() + step);
  }
  // Past the last row the window moves and the cursor stays on the last row.
  dataSet->Next();
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + fit - 1);
  EXPECT_EQ(dataSet->RecNo(), fit + 1);
  EXPECT_EQ(grid->GetFieldValue(0), QString::number(fit + 1));
  for (int step = 0; step < fit - 1; ++step) dataSet->Prior();
  EXPECT_EQ(grid->Row(), grid->TitleOffset());
  dataSet->Prior();
  EXPECT_EQ(grid->Row(), grid->TitleOffset());
  EXPECT_EQ(dataSet->RecNo(), 1);
  dataSet->CheckConsistency();
}

TEST_F(RowWindow, MoveByMovesTheCursorAndTheWindow) {
  Open(100000);
  const int fit = grid->DataLink()->BufferCount();
  EXPECT_EQ(grid->MoveBy(2), 2);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + 2);
  EXPECT_EQ(grid->MoveBy(5000), 5000);
  EXPECT_EQ(dataSet->RecNo(), 5003);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + fit - 1);
  EXPECT_EQ(grid->MoveBy(-(fit - 1)), -(fit - 1));
  EXPECT_EQ(grid->Row(), grid->TitleOffset());
  dataSet->Last();
  EXPECT_EQ(grid->MoveBy(10), 0);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + fit - 1);
  EXPECT_EQ(grid->GetFieldValue(0), QStringLiteral("100000"));
  dataSet->CheckConsistency();
}

TEST_F(RowWindow, InGridModeMoveByKeepsTheWindowInsideTheData) {
  Open(50);
  grid->SwitchOptionsExt({dgScrollGridMode}, true);
  const int fit = grid->DataLink()->BufferCount();
  // From record 1 on row 0 the window may move until it ends at record 50.
  EXPECT_EQ(grid->MoveBy(100), 50 - fit);
  EXPECT_EQ(dataSet->RecNo(), 50 - fit + 1);
  // Backwards it may move until the window starts at record 1.
  const int limit = grid->DataLink()->ActiveRecord() - dataSet->RecNo() + 1;
  EXPECT_EQ(grid->MoveBy(-100), limit);
  EXPECT_EQ(grid->MoveBy(-100), -(dataSet->RecNo() - 1));
  EXPECT_EQ(dataSet->RecNo(), 1);
  EXPECT_EQ(grid->MoveBy(-1), 0);
  EXPECT_EQ(grid->PositionLock(), 0);
  // A forced move is kept inside the data as well.
  EXPECT_EQ(grid->MoveBy(100, true), 50 - fit);
  EXPECT_EQ(grid->MoveBy(-100, true), limit);
  dataSet->CheckConsistency();
}

TEST_F(RowWindow, BufferCountFollowsTheHeightOfTheWindow) {
  Open(1000);
  for (int height : {120, 400, 60, 240, 15}) {
    grid->SetHeight(height);
    QCoreApplication::processEvents();
    const int fit = RowsThatFit();
    EXPECT_EQ(grid->DataLink()->BufferCount(), fit) << "height " << height;
    EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + grid->DataLink()->RecordCount()) << "height " << height;
    dataSet->CheckConsistency();
  }
}

TEST_F(RowWindow, ShrinkingKeepsTheCurrentRecordInTheWindow) {
  Open(1000);
  grid->MoveBy(grid->DataLink()->BufferCount() - 1);
  const int recNo = dataSet->RecNo();
  grid->SetHeight(80);
  QCoreApplication::processEvents();
  EXPECT_EQ(dataSet->RecNo(), recNo);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + grid->DataLink()->ActiveRecord());
  EXPECT_LT(grid->Row(), grid->RowCount());
  dataSet->CheckConsistency();
}

// The pixels move; what paints is the row that comes into view and the row that the
// previous current record moved to, which loses its cursor. Painting straight to the
// screen, the row counts that sizing the buffer passes through repaint nothing, so each
// cell paints once.
TEST_F(RowWindow, ScrollingByOneRepaintsOnlyTheExposedRow) {
  Open(100000);
  grid->SetDoubleBuffered(false);
  const int fit = grid->DataLink()->BufferCount();
  grid->MoveBy(fit - 1);
  Settle();
  const int lastRow = grid->TitleOffset() + fit - 1;
  dataSet->Next();
  Paint();
  EXPECT_EQ(grid->DrawnRows(), (std::set<int>{lastRow - 1, lastRow}));
  EXPECT_EQ(grid->DrawnCount(), 2 * grid->ColCount());
  // Back up to the top row, then one more: the window moves down and row one is exposed.
  grid->MoveBy(-(fit - 1));
  Settle();
  dataSet->Prior();
  Paint();
  EXPECT_EQ(grid->DrawnRows(), (std::set<int>{grid->TitleOffset(), grid->TitleOffset() + 1}));
  EXPECT_EQ(grid->DrawnCount(), 2 * grid->ColCount());
  EXPECT_EQ(grid->GetFieldValue(0), QString::number(dataSet->RecNo()));
}

// Double-buffered, a repaint cannot flicker: the row counts that sizing the buffer
// passes through at the bottom edge repaint the whole grid. At the top edge the buffer
// keeps its size and only the exposed rows paint.
TEST_F(RowWindow, DoubleBufferedScrollingAtTheBottomRepaintsTheWholeGrid) {
  Open(100000);
  ASSERT_TRUE(grid->DoubleBuffered());
  const int fit = grid->DataLink()->BufferCount();
  grid->MoveBy(fit - 1);
  Settle();
  dataSet->Next();
  Paint();
  EXPECT_EQ(int(grid->DrawnRows().size()), grid->RowCount());
  grid->MoveBy(-(fit - 1));
  Settle();
  dataSet->Prior();
  Paint();
  EXPECT_EQ(grid->DrawnRows(), (std::set<int>{grid->TitleOffset(), grid->TitleOffset() + 1}));
}

// A change of the row count is a change of what shows: the grid repaints whole.
TEST_F(RowWindow, GrowingWindowRepaintsWhenMoreRecordsFit) {
  Open(1000);
  grid->SetHeight(120);
  Settle();
  const int fit = grid->DataLink()->BufferCount();
  grid->SetHeight(240);
  Paint();
  EXPECT_GT(grid->DataLink()->BufferCount(), fit);
  EXPECT_EQ(int(grid->DrawnRows().size()), grid->RowCount());
}

TEST_F(RowWindow, MovingInsideTheWindowRepaintsTheOldAndTheNewRow) {
  Open(100);
  grid->MoveBy(2);
  Settle();
  dataSet->Next();
  Paint();
  const int row = grid->TitleOffset() + 3;
  EXPECT_EQ(grid->DrawnRows(), (std::set<int>{row - 1, row}));
}

// Straight to the screen, so that what paints is what scrolling invalidates itself.
TEST_F(RowWindow, ScrollingFurtherThanTheWindowRepaintsAllDataRows) {
  Open(1000);
  grid->SetDoubleBuffered(false);
  const int fit = grid->DataLink()->BufferCount();
  grid->MoveBy(3 * fit);
  Paint();
  std::set<int> dataRows;
  for (int row = grid->TitleOffset(); row < grid->TitleOffset() + fit; ++row) dataRows.insert(row);
  EXPECT_EQ(grid->DrawnRows(), dataRows);
}

TEST_F(RowWindow, StripedRowsRepaintTheWholeDataAreaOnEveryScroll) {
  Open(1000);
  grid->SetDoubleBuffered(false);
  grid->SetStripeColor(clYellow);
  const int fit = grid->DataLink()->BufferCount();
  grid->MoveBy(fit - 1);
  Settle();
  dataSet->Next();
  Paint();
  EXPECT_EQ(int(grid->DrawnRows().size()), fit);
}

TEST_F(RowWindow, DrawnCellsShowTheirOwnBufferedRecord) {
  Open(1000);
  grid->MoveBy(777);
  grid->Invalidate();
  Paint();
  // The grid reads each row through ActiveRecord and puts it back.
  EXPECT_EQ(grid->GetFieldValue(0), QStringLiteral("778"));
  EXPECT_EQ(grid->DataLink()->ActiveRecord(), grid->Row() - grid->TitleOffset());
  EXPECT_GT(dataSet->reads, 0);
}

}  // namespace
