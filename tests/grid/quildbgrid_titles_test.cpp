// Where titles and header bands lie: which neighbours share a band, the rectangles of a
// band and of a group's title when the grid scrolls, and the band under a pixel row.
#include "ColumnTestKit.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/ImageList.h"

using namespace quil;

namespace {

class QuilDBGridTitles : public gridtest::ColumnFixture {
protected:
  // Customized columns ID, Name, City, Amount.
  void OpenColumns(int width = 0) {
    Open(5);
    grid->Columns()->SetState(csCustomized);
    if (width > 0)
      for (TQuilColumn* column : *grid->Columns()) column->SetWidth(width);
  }
  TQuilColumn* Column(int index) { return grid->Columns()->Items(index); }
  void Headers(std::initializer_list<const char*> headers) {
    int index = 0;
    for (const char* header : headers) Column(index++)->Title()->SetHeader(QString::fromLatin1(header));
  }
  // Name owns City and Amount, expanded.
  TQuilColumn* MakeGroup() {
    Column(1)->SetExpandCols(2);
    return Column(1);
  }
  int Raw(int dataCol) const { return grid->DataToRawColumn(dataCol); }
};

TEST_F(QuilDBGridTitles, NeighboursShareABandWhileTheirTextsAgreeFromTheTopDown) {
  OpenColumns();
  Headers({"", "A|B", "A|C", "X|C"});
  const TQuilColumnTitle* name = Column(1)->Title();
  const TQuilColumnTitle* city = Column(2)->Title();
  EXPECT_EQ(name->HeaderRight(0), Column(2));
  EXPECT_EQ(city->HeaderLeft(0), Column(1));
  EXPECT_EQ(name->HeaderRight(1), nullptr) << "B and C differ";
  EXPECT_EQ(city->HeaderRight(1), nullptr) << "the same C under another top band";
  EXPECT_EQ(city->HeaderRight(0), nullptr);
  EXPECT_EQ(name->HeaderLeft(0), nullptr) << "ID has no band";
  EXPECT_EQ(name->HeaderRight(-1), nullptr);
  EXPECT_EQ(name->HeaderRight(2), nullptr) << "past the bands";
}

TEST_F(QuilDBGridTitles, FrozenAndScrollingColumnsNeverShareABand) {
  OpenColumns();
  Headers({"A", "A", "A", ""});
  EXPECT_EQ(Column(1)->Title()->HeaderRight(0), Column(2));
  grid->SetFixedCols(2);
  EXPECT_EQ(Column(1)->Title()->HeaderRight(0), nullptr);
  EXPECT_EQ(Column(0)->Title()->HeaderRight(0), Column(1)) << "both frozen";
  EXPECT_EQ(Column(2)->Title()->HeaderLeft(0), nullptr);
}

TEST_F(QuilDBGridTitles, AHiddenColumnLetsItsNeighboursJoinAcrossIt) {
  OpenColumns();
  Headers({"", "A", "B", "A"});
  EXPECT_EQ(Column(1)->Title()->HeaderRight(0), nullptr);
  Headers({"", "A", "A", "A"});
  Column(2)->SetVisible(false);
  EXPECT_EQ(Column(1)->Title()->HeaderRight(0), Column(3));
  EXPECT_EQ(Column(3)->Title()->HeaderLeft(0), Column(1));
}

TEST_F(QuilDBGridTitles, OnlySiblingsShareAndAGroupsBandSpansItsChildren) {
  OpenColumns(60);
  TQuilColumn* group = MakeGroup();
  Headers({"A", "A", "A", "B"});
  EXPECT_EQ(Column(0)->Title()->HeaderRight(0), group);
  EXPECT_EQ(Column(2)->Title()->HeaderLeft(0), nullptr) << "City is the group's child, not ID's sibling";
  TQuilColumn* master = nullptr;
  const TRect title = grid->FullTitleRect(Column(0), 0, master);
  ASSERT_EQ(master, Column(0));
  TRect visible;
  const TRect band = grid->HeaderRect(Column(0), 0, title, visible);
  EXPECT_EQ(band.Left, title.Left);
  EXPECT_EQ(band.Right, title.Right + group->GetExpandWidth());
  EXPECT_EQ(band.Right, grid->CellRect(Raw(3), 1).Right) << "to the end of the group's last child";
  EXPECT_EQ(band.Height(), grid->TitleLineHeight());
  EXPECT_EQ(visible, band);
}

TEST_F(QuilDBGridTitles, ABandReachesLeftOfTheScreenWhileItsVisiblePartStaysOnIt) {
  OpenColumns(200);
  Headers({"A", "A", "", ""});
  grid->SetLeftCol(Raw(1));
  ASSERT_EQ(grid->LeftCol(), Raw(1));
  TQuilColumn* master = nullptr;
  const TRect title = grid->FullTitleRect(Column(1), 0, master);
  TRect visible;
  const TRect band = grid->HeaderRect(Column(1), 0, title, visible);
  EXPECT_EQ(band.Left, title.Left - Column(0)->GetExpandWidth());
  EXPECT_EQ(visible.Left, title.Left) << "ID is out of sight";
  EXPECT_EQ(band.Right, visible.Right);
  grid->SetLeftCol(Raw(0));
  grid->HeaderRect(Column(1), 0, grid->FullTitleRect(Column(1), 0, master), visible);
  EXPECT_EQ(visible.Left, grid->CellRect(Raw(0), 0).Left) << "back in sight, ID's part shows";
}

TEST_F(QuilDBGridTitles, AGroupScrolledInPartKeepsItsWholeTitleToTheLeftOfTheScreen) {
  OpenColumns(150);
  TQuilColumn* group = MakeGroup();
  Column(3)->SetWidth(250);
  grid->SetLeftCol(Raw(3));
  ASSERT_EQ(grid->LeftCol(), Raw(3)) << "City is out of sight";
  TQuilColumn* master = nullptr;
  const TRect shown = grid->CalcTitleRect(Column(3), 0, master);
  ASSERT_EQ(master, group);
  const TRect amount = grid->CellRect(Raw(3), 1);
  EXPECT_EQ(shown.Left, amount.Left);
  EXPECT_EQ(shown.Right, amount.Right);
  EXPECT_EQ(shown.Top, 0);
  const TRect full = grid->FullTitleRect(Column(3), 0, master);
  const int line = grid->GetColLineWidth();
  EXPECT_EQ(full.Left, amount.Left - 150 - line);
  EXPECT_EQ(full.Width(), group->GetExpandWidth() - line);
  EXPECT_EQ(full.Height(), grid->RowHeights(0));
  // Scrolled back, the title starts where the hidden part was: it did not move with the
  // scroll relative to its group.
  grid->SetLeftCol(Raw(0));
  const TRect whole = grid->FullTitleRect(Column(2), 0, master);
  EXPECT_EQ(whole.Left, grid->CellRect(Raw(2), 1).Left);
  EXPECT_EQ(whole.Right - full.Right, whole.Left - full.Left);
}

TEST_F(QuilDBGridTitles, ALeafTitleReachesDownToTheLastTitleRow) {
  OpenColumns();
  MakeGroup();
  ASSERT_EQ(grid->TitleOffset(), 2);
  TQuilColumn* master = nullptr;
  const TRect id = grid->CalcTitleRect(Column(0), 1, master);
  EXPECT_EQ(master, Column(0)) << "a leaf stands for itself in the rows below it";
  EXPECT_EQ(id.Top, 0);
  EXPECT_EQ(id.Bottom, grid->GetTitleHeight() - grid->GetRowLineWidth());
  const TRect city = grid->CalcTitleRect(Column(2), 1, master);
  EXPECT_EQ(master, Column(2));
  EXPECT_EQ(city, grid->CellRect(Raw(2), 1));
  EXPECT_EQ(grid->CalcTitleRect(Column(2), 0, master), grid->CalcTitleRect(Column(3), 0, master))
      << "both children answer with the group's title";
}

TEST_F(QuilDBGridTitles, AGroupsTitleCoversItsChildrenInEitherDirection) {
  OpenColumns(60);
  MakeGroup();
  TQuilColumn* master = nullptr;
  for (TBiDiMode mode : {bdLeftToRight, bdRightToLeft}) {
    SCOPED_TRACE(mode);
    grid->SetBiDiMode(mode);
    const TRect city = grid->CellRect(Raw(2), 1);
    const TRect amount = grid->CellRect(Raw(3), 1);
    const TRect title = grid->CalcTitleRect(Column(2), 0, master);
    ASSERT_EQ(master, Column(1));
    EXPECT_EQ(title.Left, std::min(city.Left, amount.Left));
    EXPECT_EQ(title.Right, std::max(city.Right, amount.Right));
    EXPECT_EQ(title.Top, 0);
    EXPECT_EQ(grid->FullTitleRect(Column(2), 0, master), title) << "all of it shows";
  }
}

TEST_F(QuilDBGridTitles, ABandBesideAGroupShowsOnlyTheGroupsChildrenInSight) {
  OpenColumns(150);
  Column(0)->SetExpandCols(1);
  Headers({"A", "", "A", ""});
  ASSERT_TRUE(Column(0)->GetExpanded());
  ASSERT_EQ(Column(2)->Title()->HeaderLeft(0), Column(0)) << "ID's group and City are siblings";
  TQuilColumn* master = nullptr;
  TRect visible;
  const int line = grid->GetColLineWidth();
  TRect title = grid->FullTitleRect(Column(2), 0, master);
  TRect band = grid->HeaderRect(Column(2), 0, title, visible);
  EXPECT_EQ(band.Left, title.Left - Column(0)->GetExpandWidth());
  EXPECT_EQ(visible, band);
  grid->SetLeftCol(Raw(2));
  ASSERT_EQ(grid->LeftCol(), Raw(2));
  title = grid->FullTitleRect(Column(2), 0, master);
  band = grid->HeaderRect(Column(2), 0, title, visible);
  EXPECT_EQ(band.Left, title.Left - 150 - line) << "the band keeps the group's whole width";
  EXPECT_EQ(visible.Left, title.Left) << "Name is out of sight";
  EXPECT_EQ(visible.Right, band.Right);
}

TEST_F(QuilDBGridTitles, HeaderRowCountsBandsFromTheTopOfTheColumnsOwnTitleRow) {
  OpenColumns();
  MakeGroup();
  Headers({"a|b", "", "x", ""});
  const int band = grid->TitleLineHeight();
  ASSERT_GT(band, 0);
  EXPECT_EQ(grid->HeaderRow(0, Column(0)), 0);
  EXPECT_EQ(grid->HeaderRow(band - 1, Column(0)), 0);
  EXPECT_EQ(grid->HeaderRow(band, Column(0)), 1);
  EXPECT_EQ(grid->HeaderRow(2 * band - 1, Column(0)), 1);
  EXPECT_EQ(grid->HeaderRow(2 * band, Column(0)), -1) << "the caption below the bands";
  EXPECT_EQ(grid->HeaderRow(-1, Column(0)), -1);
  const int childTop = grid->RowHeights(0) + grid->GetRowLineWidth();
  EXPECT_EQ(grid->HeaderRow(childTop - 1, Column(2)), -1) << "above City's title row";
  EXPECT_EQ(grid->HeaderRow(childTop, Column(2)), 0);
  EXPECT_EQ(grid->HeaderRow(childTop + band, Column(2)), -1);
  EXPECT_EQ(grid->HeaderRow(0, nullptr), -1);
  grid->SwitchOptions({dgTitleHeaders}, false);
  EXPECT_EQ(grid->HeaderRow(0, Column(0)), -1);
}

TEST_F(QuilDBGridTitles, HeaderFontAndColorTakeEffectOnlyWhileBandsShow) {
  OpenColumns();
  EXPECT_FALSE(grid->IsHeaderColorStored());
  grid->SetHeaderColor(clYellow);
  EXPECT_EQ(grid->HeaderColor(), clYellow);
  EXPECT_TRUE(grid->IsHeaderColorStored());
  grid->SwitchOptions({dgTitleHeaders}, false);
  grid->SetHeaderColor(clRed);
  EXPECT_EQ(grid->HeaderColor(), clYellow);
  TFont large;
  large.SetSize(20);
  grid->SetHeaderFont(&large);
  EXPECT_NE(grid->HeaderFont()->Size(), 20);
  grid->SwitchOptions({dgTitleHeaders}, true);
  grid->SetHeaderFont(&large);
  EXPECT_EQ(grid->HeaderFont()->Size(), 20);
  grid->SetFixedColor(clYellow);
  EXPECT_FALSE(grid->IsHeaderColorStored()) << "the same as the fixed cells";
}

TEST_F(QuilDBGridTitles, ABandIsAsTallAsItsLinesInTheHeaderFont) {
  OpenColumns();
  Headers({"A"});
  const int one = grid->TitleLineHeight();
  grid->SetHeaderLinesCount(2);
  const int two = grid->TitleLineHeight();
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(grid->HeaderFont());
  EXPECT_EQ(two - one, canvas->TextHeight("Wg"));
  const int titleRow = grid->RowHeights(0);
  grid->HeaderFont()->SetSize(grid->HeaderFont()->Size() * 2);
  EXPECT_GT(grid->TitleLineHeight(), two) << "a new header font lays the bands out";
  EXPECT_EQ(grid->RowHeights(0) - titleRow, grid->TitleLineHeight() - two);
}

TEST_F(QuilDBGridTitles, TitleImagesAndMarkersLayOutOnlyWhileTitlesShow) {
  OpenColumns();
  auto* images = new TImageList(form);
  auto* markers = new TImageList(form);
  grid->layoutSources.clear();
  grid->SetTitleImages(images);
  EXPECT_FALSE(grid->layoutSources.empty());
  grid->layoutSources.clear();
  grid->SetTitleMarkers(markers);
  EXPECT_FALSE(grid->layoutSources.empty());
  EXPECT_EQ(grid->GetMarkers(), markers);
  grid->SwitchOptions({dgTitles}, false);
  grid->layoutSources.clear();
  grid->SetTitleImages(nullptr);
  grid->SetTitleMarkers(nullptr);
  EXPECT_TRUE(grid->layoutSources.empty());
  EXPECT_NE(grid->GetMarkers(), markers) << "the built-in markers are back";
}

TEST_F(QuilDBGridTitles, ANewTitleFontLaysOutTheTitlesAndLeavesTheParentsFont) {
  OpenColumns();
  const int before = grid->RowHeights(0);
  EXPECT_FALSE(grid->IsTitleFontStored());
  TFont large;
  large.SetSize(24);
  grid->SetTitleFont(&large);
  EXPECT_GT(grid->RowHeights(0), before);
  EXPECT_FALSE(grid->ParentFont());
  EXPECT_TRUE(grid->IsTitleFontStored());
  EXPECT_EQ(Column(0)->Title()->Font()->Size(), 24) << "titles follow it";
}

}  // namespace
