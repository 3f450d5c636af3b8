// Composition of the base grid's rows: title rows, data rows, the blank row and the
// total rows, with and without records and totals.
#include "GridTestKit.h"
#include "grid/QuilDBGridColumnTitle.h"
#include "grid/QuilDBGridTotalCells.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

class RowComposition : public GridFixture {
protected:
  int Line() const { return grid->GridLineWidth(); }
  // Height of the last `count` rows with their lines.
  int BottomRowsHeight(int count) const {
    int height = 0;
    for (int row = grid->RowCount() - count; row < grid->RowCount(); ++row) height += grid->RowHeights(row) + Line();
    return height;
  }
};

TEST_F(RowComposition, WithoutTotalsRowsAreTitlesAndBufferedRecords) {
  Open(500);
  EXPECT_EQ(grid->TotalRows(), 0);
  EXPECT_EQ(grid->RowCount(), 1 + grid->DataLink()->RecordCount());
  EXPECT_EQ(grid->FixedRows(), 1);
  EXPECT_EQ(grid->GetTotalRowCount(), 0);
}

TEST_F(RowComposition, TotalRowsStandBelowABlankRowThatFillsTheRest) {
  Open(500);
  grid->SetOptionsEx(grid->OptionsEx() + dgTotalHeader + dgTotalFooter);
  ASSERT_EQ(grid->TotalRows(), 3);
  EXPECT_EQ(grid->GetTotalRowCount(), 2);
  EXPECT_EQ(grid->GetTotalFieldsRowCount(), 0);
  EXPECT_EQ(grid->TotalHeaderRows(), 1);
  EXPECT_EQ(grid->TotalFooterRows(), 1);
  const int records = grid->DataLink()->RecordCount();
  EXPECT_EQ(grid->RowCount(), 1 + records + 3);
  // The records that fit above the two total rows.
  const int totalsHeight = 2 * (grid->TotalRowHeight() + Line());
  EXPECT_EQ(records, RowsThatFit(totalsHeight));
  EXPECT_EQ(grid->RowHeights(grid->RowCount() - 1), grid->TotalRowHeight());
  EXPECT_EQ(grid->RowHeights(grid->RowCount() - 2), grid->TotalRowHeight());
  const int blank = grid->RowHeights(grid->RowCount() - 3);
  EXPECT_EQ(blank, std::max(0, grid->GetBlankHeight()) - Line());
  // Titles, data, blank and totals fill the client height exactly.
  const int dataRows = records * (grid->DefaultRowHeight() + Line());
  EXPECT_EQ(grid->RowHeights(0) + Line() + dataRows + blank + Line() + totalsHeight, grid->ClientHeight());
  EXPECT_EQ(grid->GetTotalHeight(), BottomRowsHeight(2));
}

// The totals meet the window's edge where no raised frame or theme gives an edge of
// its own; there the blank row takes the pixel that the missing line leaves.
TEST_F(RowComposition, TotalsAlignToTheBorderOnlyOnAnUnthemedGridWithoutARaisedFrame) {
  Open(500);
  grid->SwitchOptionsEx({dgTotalFooter}, true);
  grid->SetBorderStyle(bsNone);
  ASSERT_TRUE(grid->IsGridThemed(false));
  EXPECT_FALSE(grid->GetAlignTotalsToBorder());
  const int themedBlank = grid->GetBlankHeight();
  grid->SetFixedTheme(ftNone);
  EXPECT_TRUE(grid->GetAlignTotalsToBorder());
  EXPECT_EQ(grid->GetBlankHeight(), themedBlank + 1);
  grid->SetBorderStyle(bsSingle);
  grid->SetCtl3D(true);
  EXPECT_FALSE(grid->GetAlignTotalsToBorder());
  grid->SetCtl3D(false);
  EXPECT_TRUE(grid->GetAlignTotalsToBorder());
}

TEST_F(RowComposition, WithoutRecordsOneEmptyDataRowStaysAboveTheTotals) {
  Open(0);
  grid->SetOptionsEx(grid->OptionsEx() + dgTotalHeader + dgTotalFooter);
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 4);
  EXPECT_EQ(grid->DataLink()->RecordCount(), 0);
  EXPECT_EQ(grid->GetDataRowCount(), 0);
  EXPECT_EQ(grid->RowHeights(grid->RowCount() - 3), std::max(0, grid->GetBlankHeight()) - Line());
  EXPECT_EQ(grid->GetDataRowsHeight(), grid->GetRowHeight());
  grid->Invalidate();
  Paint();
  EXPECT_TRUE(grid->DrawnRows().count(grid->TitleOffset()));
}

TEST_F(RowComposition, AnInactiveLinkKeepsTitlesOneRowAndTotals) {
  Open(50);
  grid->SetOptionsEx(grid->OptionsEx() + dgTotalFooter);
  dataSet->Close();
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 2 + 1);
  EXPECT_EQ(grid->Row(), grid->TitleOffset());
  EXPECT_EQ(grid->GetDataRowCount(), 0);
  dataSet->Open();
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + grid->DataLink()->RecordCount() + 2);
}

TEST_F(RowComposition, DataRowsFillingTheAreaLeaveABlankRowOfNoHeight) {
  Open(500);
  grid->SetOptionsEx(grid->OptionsEx() + dgBlankRow);
  ASSERT_EQ(grid->TotalRows(), 1);
  // Make the data area a whole number of rows: the blank height computes as 0 or less.
  const int rowHeight = grid->DefaultRowHeight() + Line();
  const int border = grid->Height() - grid->ClientHeight();
  grid->SetHeight(border + grid->RowHeights(0) + Line() + 6 * rowHeight);
  QCoreApplication::processEvents();
  EXPECT_EQ(grid->DataLink()->RecordCount(), 6);
  EXPECT_LE(grid->GetBlankHeight(), 0);
  EXPECT_EQ(grid->RowHeights(grid->RowCount() - 1), -Line());
}

TEST_F(RowComposition, AGridShorterThanItsTitlesAndTotalsStillShowsOneRecord) {
  Open(50);
  grid->SetOptionsEx(grid->OptionsEx() + dgTotalHeader + dgTotalFooter);
  grid->SetHeight(20);
  QCoreApplication::processEvents();
  EXPECT_EQ(grid->GetVisibleRowCount(), 1);
  EXPECT_EQ(grid->DataLink()->BufferCount(), 1);
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 1 + 3);
}

TEST_F(RowComposition, WithoutTitlesTheDataStartsAtRowZero) {
  Open(50);
  grid->SwitchOptions({dgTitles}, false);
  EXPECT_EQ(grid->TitleOffset(), 0);
  EXPECT_EQ(grid->FixedRows(), 0);
  EXPECT_EQ(grid->Row(), 0);
  EXPECT_EQ(grid->RowCount(), grid->DataLink()->RecordCount());
  // A window exactly seven rows high, then two pixels short of it.
  const int pitch = grid->DefaultRowHeight() + Line();
  const int frame = grid->Height() - grid->ClientHeight();
  grid->SetHeight(frame + 7 * pitch);
  EXPECT_EQ(grid->DataLink()->BufferCount(), 7);
  EXPECT_EQ(grid->RowCount(), 7);
  grid->SetHeight(frame + 7 * pitch - 2);
  EXPECT_EQ(grid->DataLink()->BufferCount(), 6);
}

TEST_F(RowComposition, LinesCountMakesTallerRowsAndFewerRecords) {
  Open(500);
  const int oneLine = grid->DataLink()->BufferCount();
  const int rowHeight = grid->DefaultRowHeight();
  grid->SetLinesCount(2);
  EXPECT_EQ(grid->DefaultRowHeight(), rowHeight + grid->DataLineHeight());
  EXPECT_LT(grid->DataLink()->BufferCount(), oneLine);
  EXPECT_EQ(grid->DataLink()->BufferCount(), RowsThatFit());
}

TEST_F(RowComposition, LineWidthAndBorderChangeTheRowsThatFit) {
  Open(500);
  grid->SetGridLineWidth(0);
  EXPECT_EQ(grid->GridLineWidth(), 1);
  grid->SetGridLineWidth(4);
  EXPECT_EQ(grid->GetRowHeight(), grid->DefaultRowHeight() + 4);
  EXPECT_EQ(grid->DataLink()->BufferCount(), RowsThatFit());
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goFixedHorzLine));
  const int clientHeight = grid->ClientHeight();
  grid->SetBorderStyle(bsNone);
  ASSERT_GT(grid->ClientHeight(), clientHeight);
  EXPECT_EQ(grid->DataLink()->BufferCount(), RowsThatFit());
}

TEST_F(RowComposition, ValueRowsAreTheMostValueCellsOfAnyColumn) {
  Open(500);
  grid->Columns()->Items(0)->TotalValues()->Add();
  grid->Columns()->Items(0)->TotalValues()->Add();
  grid->Columns()->Items(2)->TotalValues()->Add();
  grid->SwitchOptionsEx({dgTotalHeader}, true);
  EXPECT_EQ(grid->TotalValuesRows(), 0) << "value cells show only with dgTotalValues";
  grid->SwitchOptionsEx({dgTotalValues, dgTotalFooter}, true);
  EXPECT_EQ(grid->TotalValuesRows(), 2);
  ASSERT_EQ(grid->TotalRows(), 1 + 1 + 2 + 1);
  EXPECT_EQ(grid->GetTotalRowCount(), 4);
  EXPECT_EQ(grid->GetTotalFieldsRowCount(), 0);
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + grid->DataLink()->RecordCount() + 5);
  EXPECT_EQ(grid->DataLink()->RecordCount(), RowsThatFit(4 * (grid->TotalRowHeight() + Line())));
  grid->Columns()->Items(0)->TotalValues()->Delete(1);
  static_cast<TQuilCustomDBGrid*>(grid)->LayoutChanged();
  EXPECT_EQ(grid->TotalValuesRows(), 1);
  EXPECT_EQ(grid->TotalRows(), 4);
}

// --- Title rows

class TitleRows : public RowComposition {
protected:
  TQuilColumnTitle* Title(int dataCol) const { return grid->Columns()->Items(dataCol)->Title(); }
  // Customized columns ID, Name, City, Amount; Name owns City and Amount, City owns
  // Amount: three title rows.
  void OpenTwoDepths() {
    Open(50);
    grid->Columns()->SetState(csCustomized);
    grid->Columns()->Items(2)->SetExpandCols(1);
    grid->Columns()->Items(1)->SetExpandCols(2);
    ASSERT_EQ(grid->TitleOffset(), 3);
    ASSERT_EQ(grid->Columns()->Items(3)->Depth(), 2);
  }
};

TEST_F(TitleRows, ATitleInItsOwnFontIsMeasuredInIt) {
  Open(50);
  const int plain = grid->RowHeights(0);
  const int size = grid->TitleFont()->Size();
  grid->TitleFont()->SetSize(30);
  const int large = grid->RowHeights(0);
  ASSERT_GT(large, plain);
  grid->TitleFont()->SetSize(size);
  EXPECT_EQ(grid->RowHeights(0), plain);
  Title(1)->Font()->SetSize(30);
  EXPECT_EQ(grid->RowHeights(0), large) << "one title in the larger font makes the row as tall";
}

TEST_F(TitleRows, HeaderBandsStandAboveTheCaption) {
  Open(50);
  const int plain = grid->RowHeights(0);
  ASSERT_GT(grid->TitleLineHeight(), 0);
  Title(2)->SetHeader("Address|Town");
  EXPECT_EQ(grid->RowHeights(0), plain + 2 * grid->TitleLineHeight());
  grid->SwitchOptions({dgTitleHeaders}, false);
  EXPECT_EQ(grid->TitleLineHeight(), 0);
  EXPECT_EQ(grid->RowHeights(0), plain);
}

// An expanded column's title takes the row of its depth; a leaf's reaches down to the
// last title row, which takes what the rows above leave of it.
TEST_F(TitleRows, EachDepthOfExpandedColumnsHasItsRow) {
  OpenTwoDepths();
  const int plain = grid->RowHeights(0);
  const int band = grid->TitleLineHeight();
  for (int row = 0; row < 3; ++row) EXPECT_EQ(grid->RowHeights(row), plain) << "row " << row;
  Title(1)->SetHeader("Group");
  EXPECT_EQ(grid->RowHeights(0), plain + band);
  EXPECT_EQ(grid->RowHeights(1), plain);
  EXPECT_EQ(grid->RowHeights(2), plain);
  // ID stands alone over all three rows; its bands leave the last row taller.
  Title(0)->SetHeader("a|b|c|d|e|f");
  const int idLeft = plain + 6 * band - (plain + band) - plain;
  ASSERT_GT(idLeft, plain);
  EXPECT_EQ(grid->RowHeights(0), plain + band);
  EXPECT_EQ(grid->RowHeights(1), plain);
  EXPECT_EQ(grid->RowHeights(2), idLeft);
  EXPECT_EQ(grid->GetTitleHeight(), plain + band + plain + idLeft + 3 * Line());
}

}  // namespace
