#include <gtest/gtest.h>

#include <QImage>
#include <QRegion>
#include <QWidget>

#include "GridTestKit.h"
#include "framework/graphics/StyleServices.h"
#include "framework/graphics/Types_p.h"

namespace gridtest {
namespace {

using quil::Rect;

// Each Invalidate... operation is read back from the window's update region right after
// it runs, on a grid that has painted everything before.
class GridInvalidateTest : public GridFixture {
protected:
  void TearDown() override {
    GridFixture::TearDown();
    quil::TStyleManager::SetStyle(quil::TStyleManager::SystemStyleName());
  }
  QRegion Pending() const {
    QRegion region;
    for (const TRect& rect : grid->UpdateRects()) region += quil::ToQRect(rect);
    return region;
  }
  static QRegion Region(const TRect& rect) { return QRegion(quil::ToQRect(rect)); }
  int LastRow() const { return grid->RowCount() - 1; }
  int LastCol() const { return grid->ColCount() - 1; }
  void OpenWithFooter(int rows = 30) {
    Open(rows);
    grid->SwitchOptionsEx({quil::dgTotalFooter}, true);
    Settle();
  }
  // A client point in the pixels of the grid's window, frame included.
  quil::TPoint ClientToWidget(quil::TPoint point) const {
    const quil::TPoint screen = grid->ClientToScreen(point);
    const QPoint local = grid->Handle()->mapFromGlobal(QPoint(screen.X, screen.Y));
    return quil::Point(local.x(), local.y());
  }
};

TEST_F(GridInvalidateTest, NothingIsPendingAfterSettling) {
  Open(30);
  EXPECT_TRUE(grid->UpdateRects().empty());
}

TEST_F(GridInvalidateTest, InvalidateBoxIsOneCell) {
  Open(30);
  grid->InvalidateBox(2, 3);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(2, 3, 2, 3)));
}

TEST_F(GridInvalidateTest, AMergedTotalCellTakesTheLineOnItsLeft) {
  OpenWithFooter();
  const int totalRow = LastRow();
  TRect expected = grid->BoxRect(2, totalRow, 2, totalRow);
  --expected.Left;
  grid->InvalidateBox(2, totalRow);
  EXPECT_EQ(Pending(), Region(expected));
  Settle();
  // The first data column has no merged neighbour on its left, nor does a data row.
  grid->InvalidateBox(1, totalRow);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(1, totalRow, 1, totalRow)));
  Settle();
  grid->InvalidateBox(2, 3);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(2, 3, 2, 3)));
  Settle();
  // With lines between total cells they do not merge.
  grid->SwitchOptionsEx({quil::dgTotalColLines}, true);
  Settle();
  grid->InvalidateBox(2, totalRow);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(2, totalRow, 2, totalRow)));
}

TEST_F(GridInvalidateTest, RightToLeftAMergedTotalCellTakesTheLineOnItsRight) {
  OpenWithFooter();
  grid->SetBiDiMode(quil::bdRightToLeft);
  Settle();
  const int totalRow = LastRow();
  TRect expected = grid->BoxRect(2, totalRow, 2, totalRow);
  ++expected.Right;
  grid->InvalidateBox(2, totalRow);
  EXPECT_EQ(Pending(), Region(expected));
}

TEST_F(GridInvalidateTest, InvalidateColCoversTheColumnFromTitleToLastRow) {
  OpenWithFooter();
  grid->InvalidateRect(grid->BoxRect(1, 2, 1, 2));
  grid->InvalidateCol(2);
  const TRect column = grid->BoxRect(2, 0, 2, LastRow());
  EXPECT_EQ(column.Top, 0);
  EXPECT_EQ(Pending(), Region(column) + Region(grid->BoxRect(1, 2, 1, 2)));
}

TEST_F(GridInvalidateTest, InvalidateRowStartsAtTheIndicatorOrTheFirstShownColumn) {
  Open(30);
  grid->InvalidateRow(4);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(0, 4, LastCol(), 4)));
  Settle();
  grid->SwitchOptions({quil::dgIndicator}, false);
  grid->Columns()->Items(0)->SetVisible(false);
  Settle();
  grid->InvalidateRow(4);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(1, 4, LastCol(), 4)));
}

TEST_F(GridInvalidateTest, InvalidateDataCoversTheDataRowsAndTheBlankRowOnly) {
  OpenWithFooter();
  const int blankRow = grid->RowCount() - grid->TotalRows();
  grid->InvalidateData();
  EXPECT_EQ(Pending(), Region(grid->BoxRect(0, grid->TitleOffset(), LastCol(), blankRow)));
  Settle();
  grid->SwitchOptionsEx({quil::dgTotalFooter, quil::dgBlankRow}, false);
  Settle();
  ASSERT_EQ(grid->TotalRows(), 0);
  grid->InvalidateData();
  EXPECT_EQ(Pending(), Region(grid->BoxRect(0, grid->TitleOffset(), LastCol(), LastRow())));
}

TEST_F(GridInvalidateTest, InvalidateTitleCoversOneTitleOrAllAndNothingWithoutTitles) {
  Open(30);
  grid->InvalidateTitle(nullptr);
  EXPECT_EQ(Pending(), Region(grid->BoxRect(0, 0, LastCol(), grid->TitleOffset() - 1)));
  Settle();
  grid->InvalidateTitle(grid->Columns()->Items(1));
  EXPECT_EQ(Pending(), Region(grid->BoxRect(2, 0, 2, grid->TitleOffset() - 1)));
  Settle();
  grid->SwitchOptions({quil::dgTitles}, false);
  Settle();
  grid->InvalidateTitle(nullptr);
  grid->InvalidateTitles();
  EXPECT_TRUE(grid->UpdateRects().empty());
}

// People's four columns in two groups: ID owns Name and stays expanded, City owns
// Amount and is collapsed. Titles stand on two rows.
class GroupedTitlesTest : public GridInvalidateTest {
protected:
  void SetUp() override {
    Open(30);
    quil::TQuilDBGridColumns* columns = grid->Columns();
    columns->SetState(quil::csCustomized);
    columns->Items(0)->SetExpandCols(1);
    columns->Items(2)->SetExpandCols(1);
    columns->Items(2)->SetExpanded(false);
    Settle();
    ASSERT_EQ(grid->TitleOffset(), 2);
  }
  quil::TQuilColumn* Column(int dataCol) const { return grid->Columns()->Items(dataCol); }
};

TEST_F(GroupedTitlesTest, AnExpandedGroupsTitleSpansTheGroupOnItsOwnRow) {
  grid->InvalidateTitle(Column(0));
  EXPECT_EQ(Pending(), Region(grid->BoxRect(1, 0, 2, 0)));
}

TEST_F(GroupedTitlesTest, AChildsTitleStandsOnItsDepthRowDownToTheLastTitleRow) {
  grid->InvalidateTitle(Column(1));
  EXPECT_EQ(Pending(), Region(grid->BoxRect(2, 1, 2, 1)));
}

TEST_F(GroupedTitlesTest, ACollapsedGroupsTitleReachesDownToTheLastTitleRow) {
  grid->InvalidateTitle(Column(2));
  EXPECT_EQ(Pending(), Region(grid->BoxRect(3, 0, 3, 1)));
}

TEST_F(GridInvalidateTest, InvalidateTitlesCoversTheWidthDownToTheFixedBoundary) {
  Open(30);
  quil::TGridDrawInfo info;
  grid->CalcFixedInfo(info);
  grid->InvalidateTitles();
  EXPECT_EQ(Pending(), Region(Rect(0, 0, grid->ClientWidth(), info.Vert.FixedBoundary)));
}

TEST_F(GridInvalidateTest, InvalidateTotalsCoversTheRowsBelowTheDataAndTheLastColumnLine) {
  Open(30);
  grid->InvalidateTotals();
  EXPECT_TRUE(grid->UpdateRects().empty());
  grid->SwitchOptionsEx({quil::dgTotalFooter}, true);
  Settle();
  const int firstTotal = grid->RowCount() - grid->TotalRows();
  TRect expected = grid->BoxRect(0, firstTotal, LastCol(), LastRow());
  // The line after the last column, as far as the client area reaches.
  expected.Right = std::min(expected.Right + grid->GridLineWidth(), grid->ClientWidth());
  grid->InvalidateTotals();
  EXPECT_EQ(Pending(), Region(expected));
  Settle();
  // Without double buffering the row above is painted again for the line it draws.
  grid->SetDoubleBuffered(false);
  expected.Top = grid->BoxRect(0, firstTotal - 1, 0, firstTotal - 1).Top;
  grid->InvalidateTotals();
  EXPECT_EQ(Pending(), Region(expected));
}

// Working out the row count passes through counts that never show. Painted straight
// to the screen they would flicker, so the grid stands still; double-buffered it
// repaints whole.
TEST_F(GridInvalidateTest, UnderTheRowCountLockOnlyADoubleBufferedGridRepaints) {
  Open(30);
  grid->SetDoubleBuffered(false);
  Settle();
  grid->UpdateRowCount();
  EXPECT_TRUE(grid->UpdateRects().empty());
  grid->SetDoubleBuffered(true);
  Settle();
  grid->UpdateRowCount();
  EXPECT_EQ(Pending(), Region(grid->ClientRect()));
}

// People's columns, customized so that their image settings stay.
class TiledColumnsTest : public GridInvalidateTest {
protected:
  void SetUp() override {
    Open(100);
    grid->Columns()->SetState(quil::csCustomized);
    Settle();
  }
  quil::TQuilColumn* Column(int dataCol) const { return grid->Columns()->Items(dataCol); }
  void Tile(int dataCol, quil::TImageDraw kind) {
    Column(dataCol)->SetImageDraw(kind);
    Settle();
  }
};

TEST_F(TiledColumnsTest, InvalidateTileRepaintsWholeForAShowingColumnTiledThatWay) {
  EXPECT_FALSE(grid->InvalidateTile(quil::idTileCol));
  Tile(1, quil::idTileCol);
  EXPECT_FALSE(grid->InvalidateTile(quil::idTileRow));
  EXPECT_TRUE(grid->UpdateRects().empty());
  EXPECT_TRUE(grid->InvalidateTile(quil::idTileCol));
  EXPECT_EQ(Pending(), Region(grid->ClientRect()));
  Settle();
  // A tile over the whole grid moves either way.
  Tile(1, quil::idTileGrid);
  EXPECT_TRUE(grid->InvalidateTile(quil::idTileRow));
  Settle();
  Column(1)->SetVisible(false);
  Settle();
  EXPECT_FALSE(grid->InvalidateTile(quil::idTileRow));
  EXPECT_TRUE(grid->UpdateRects().empty());
}

// Painted straight to the screen, so that the row counts repaint nothing: without the
// tile only the rows that scrolling touches paint.
TEST_F(TiledColumnsTest, ScrollingRepaintsTheWholeGridUnderATileThatMovesWithTheData) {
  grid->SetDoubleBuffered(false);
  Tile(2, quil::idTileCol);
  grid->MoveBy(grid->DataLink()->BufferCount() - 1);
  Settle();
  dataSet->Next();
  Paint();
  EXPECT_EQ(int(grid->DrawnRows().size()), grid->RowCount());
}

TEST_F(TiledColumnsTest, ANewLeftColumnRepaintsARowTileAndIsReported) {
  for (int dataCol = 0; dataCol < 4; ++dataCol) Column(dataCol)->SetWidth(200);
  Settle();
  std::vector<int> scrolledTo;
  grid->OnColumnScroll = [&](int dataCol) { scrolledTo.push_back(dataCol); };
  grid->SetLeftCol(grid->LeftCol() + 1);
  EXPECT_NE(Pending(), Region(grid->ClientRect())) << "only what the scroll exposes";
  EXPECT_EQ(scrolledTo, std::vector<int>{grid->RawToDataColumn(grid->LeftCol())});
  Settle();
  Tile(3, quil::idTileRow);
  grid->SetLeftCol(grid->LeftCol() + 1);
  EXPECT_EQ(Pending(), Region(grid->ClientRect()));
  EXPECT_EQ(scrolledTo.size(), 2u);
  Settle();
  // A move of the rows alone is no column scroll.
  grid->MoveBy(30);
  EXPECT_EQ(scrolledTo.size(), 2u);
}

TEST_F(GridInvalidateTest, WithoutAWindowNothingIsInvalidated) {
  quil::TQuilDBGrid loose(nullptr);
  loose.InvalidateBox(1, 1);
  loose.InvalidateCol(1);
  loose.InvalidateRow(1);
  loose.InvalidateData();
  loose.InvalidateTitle(nullptr);
  loose.InvalidateTitles();
  loose.InvalidateTotals();
  loose.Invalidate();
  EXPECT_FALSE(loose.HandleAllocated());
  EXPECT_TRUE(loose.UpdateRects().empty());
}

// The switch itself must leave the whole client pending: grabbing would paint anyway,
// so the pixels tell only what the repaint looks like.
TEST_F(GridInvalidateTest, SwitchingStyleAtRunTimeRepaintsWithTheNewColors) {
  Open(30);
  const TRect cell = grid->CellRect(2, 3);
  const quil::TPoint inside = ClientToWidget(quil::Point(cell.Right - 3, cell.Top + 2));
  const TRect titleCell = grid->CellRect(2, 0);
  const quil::TPoint title = ClientToWidget(quil::Point(titleCell.Right - 3, titleCell.Top + 2));
  const QImage system = Grab();
  Save(system, "grid_style_system");
  EXPECT_EQ(At(system, inside.X, inside.Y), quil::ColorToRGB(quil::clWindow));
  const quil::TImageList* markers = grid->Markers();
  const quil::TImageList* indicators = grid->Indicators();

  quil::TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_EQ(Pending(), Region(grid->ClientRect()));
  // The glyphs take the new style's colors without waiting for a layout.
  EXPECT_NE(grid->Markers(), markers);
  EXPECT_NE(grid->Indicators(), indicators);
  Settle();
  const QImage dark = Grab();
  Save(dark, "grid_style_dark");
  EXPECT_EQ(At(dark, inside.X, inside.Y), quil::ColorToRGB(quil::clWindow));
  EXPECT_NE(At(dark, inside.X, inside.Y), At(system, inside.X, inside.Y));
  EXPECT_NE(At(dark, title.X, title.Y), At(system, title.X, title.Y));
  // Under a custom style the fixed cells get their lines as well.
  EXPECT_TRUE(grid->quil::TCustomGrid::Options().Contains(quil::goFixedVertLine));

  quil::TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_EQ(Pending(), Region(grid->ClientRect()));
  Settle();
  const QImage light = Grab();
  Save(light, "grid_style_light");
  EXPECT_EQ(At(light, inside.X, inside.Y), quil::ColorToRGB(quil::clWindow));
}

}  // namespace
}  // namespace gridtest
