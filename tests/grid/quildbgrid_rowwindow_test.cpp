// The row window: the link buffers exactly the rows that fit, the base grid's rows map
// onto the buffer, and scrolling by a row paints only the row it exposes.
#include <QTemporaryDir>

#include "GridTestKit.h"
#include "framework/db/SqlTable.h"

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
  Open(100000, 247);
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

TEST(RowWindowUnbound, MoveByWithoutAnActiveLinkMovesNothing) {
  TQuilDBGrid grid(nullptr);
  EXPECT_EQ(grid.MoveBy(1), 0);
  EXPECT_EQ(grid.MoveBy(3, true), 0);
  grid.SwitchOptionsExt({dgScrollGridMode}, true);
  EXPECT_FALSE(grid.GetScrollGridMode());
  EXPECT_EQ(grid.MoveBy(1), 0);
  TClientDataSet closed(nullptr);
  TDataSource source(nullptr);
  source.SetDataSet(&closed);
  grid.SetDataSource(&source);
  EXPECT_EQ(grid.MoveBy(-1), 0);
  EXPECT_EQ(grid.GetRecNumber(), -1);
  EXPECT_EQ(grid.GetRecCount(), 0);
}

// An SQL table that has not counted its rows: the grid asks for no record number or
// count, either of which would count the whole table, and moves without grid mode.
class RowWindowOverSql : public RowWindow {
protected:
  void OpenTable() {
    Open(0);
    ASSERT_TRUE(folder.isValid());
    auto* connection = new TSQLConnection(form);
    connection->SetDatabaseName(folder.filePath(QStringLiteral("rows.sqlite")));
    connection->ExecuteDirect(QStringLiteral("CREATE TABLE items (id INTEGER PRIMARY KEY, name TEXT)"));
    connection->ExecuteDirect(QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                                             "WHERE i < 1000) INSERT INTO items SELECT i, 'Item' || i FROM n"));
    table = new TSQLTable(form);
    table->SetConnection(connection);
    table->SetTableName(QStringLiteral("items"));
    table->SetFetchSize(20);
    source->SetDataSet(table);
    table->Open();
    Settle();
  }

  QTemporaryDir folder;
  TSQLTable* table = nullptr;
};

TEST_F(RowWindowOverSql, ATableWithoutItsCountIsMovedWithoutRecordNumbers) {
  OpenTable();
  grid->SwitchOptionsExt({dgScrollGridMode}, true);
  ASSERT_FALSE(table->IsSequenced());
  EXPECT_FALSE(grid->GetScrollGridMode());
  EXPECT_EQ(grid->GetRecNumber(), -1);
  EXPECT_EQ(grid->GetRecCount(), 0);
  // Grid mode would hold the cursor on the top row; the link moves it down the window.
  EXPECT_EQ(grid->MoveBy(2), 2);
  EXPECT_EQ(grid->Row(), grid->TitleOffset() + 2);
  EXPECT_EQ(grid->MoveBy(500), 500);
  EXPECT_EQ(table->FieldByName("id")->AsInteger(), 503);
  grid->Invalidate();
  grid->Update();
  EXPECT_FALSE(table->RecordCountKnown()) << "nothing counted the table";
}

TEST_F(RowWindow, BufferCountFollowsTheHeightOfTheWindow) {
  Open(100000);
  for (int height : {120, 400, 60, 247, 15, 240}) {
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
// previous current record moved to, which loses its cursor. Painted straight to the
// screen, each cell paints once, whether or not the height is a whole number of rows:
// the row counts that sizing the buffer passes through repaint nothing.
class RowWindowHeights : public RowWindow, public ::testing::WithParamInterface<int> {};

TEST_P(RowWindowHeights, ScrollingByOneRepaintsOnlyTheExposedRow) {
  Open(100000, GetParam());
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

INSTANTIATE_TEST_SUITE_P(WholeAndPartRows, RowWindowHeights, ::testing::Values(240, 247));

// A scroll by one on the screen, painted straight to it: the grid's height (247 and 251
// leave part of a row below the last one), total rows below the data, and the indicator
// off with the first columns scrolled out of view.
struct TScrollCase {
  int height;
  bool totals;
  bool scrolledSideways;
};

void PrintTo(const TScrollCase& scroll, std::ostream* out) {
  *out << "height " << scroll.height << (scroll.totals ? ", totals" : "")
       << (scroll.scrolledSideways ? ", scrolled sideways" : "");
}

class RowWindowScrollPixels : public RowWindow, public ::testing::WithParamInterface<TScrollCase> {
protected:
  void ExpectRepaintShowsTheSame(const char* step) {
    const QImage scrolled = OnScreen();
    grid->Invalidate();
    EXPECT_EQ(scrolled, OnScreen()) << step;
  }
};

TEST_P(RowWindowScrollPixels, ScrolledPixelsMatchAFullRepaint) {
  const TScrollCase scroll = GetParam();
  Open(1000, scroll.height);
  grid->SetDoubleBuffered(false);
  if (scroll.totals) grid->SwitchOptionsEx({dgTotalFooter}, true);
  if (scroll.scrolledSideways) {
    grid->SwitchOptions({dgIndicator}, false);
    for (TQuilColumn* column : *grid->Columns()) column->SetWidth(200);
    grid->SetLeftCol(2);
  }
  const int fit = grid->DataLink()->BufferCount();
  grid->MoveBy(fit - 1);
  Settle();
  dataSet->Next();
  ExpectRepaintShowsTheSame("down past the last row");
  grid->MoveBy(-(fit - 1));
  Settle();
  dataSet->Prior();
  ExpectRepaintShowsTheSame("up past the top row");
  if (scroll.scrolledSideways) {
    EXPECT_EQ(grid->LeftCol(), 2);
  }
}

INSTANTIATE_TEST_SUITE_P(Heights, RowWindowScrollPixels,
                         ::testing::Values(TScrollCase{240, false, false}, TScrollCase{247, false, false},
                                           TScrollCase{251, true, false}, TScrollCase{247, false, true},
                                           TScrollCase{251, true, true}));

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
