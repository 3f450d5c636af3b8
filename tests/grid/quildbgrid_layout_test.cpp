// The frame: defaults, the layout transaction with its nesting and deferral, and the
// constraints that the option setters and the layout keep.
#include <stdexcept>

#include "GridTestKit.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StreamTextProbe.h"

using namespace quil;
using gridtest::GridFixture;
using gridtest::TProbeGrid;

namespace {

// A grid whose layout can be made to fail half way.
class TFailingGrid : public TQuilDBGrid {
public:
  using TQuilDBGrid::TQuilDBGrid;
  bool fail = false;

protected:
  void SetColumnAttributes() override {
    if (fail) throw std::runtime_error("layout failed");
    TQuilDBGrid::SetColumnAttributes();
  }
};

TEST(GridFrame, StartsWithDefaultOptionsOneEmptyColumnAndOneEmptyRow) {
  TQuilDBGrid grid(nullptr);
  EXPECT_EQ(grid.Options().ToInt() & ~(1u << dgAlwaysShowEditor), 169864445u);
  EXPECT_EQ(grid.OptionsEx(), DefaultGridOptionsEx);
  EXPECT_EQ(grid.OptionsExt(), DefaultGridOptionsExt);
  EXPECT_EQ(grid.DrawingOptions(), DefaultDrawingOptions);
  EXPECT_EQ(grid.MultiSelectOptions(), DefaultMultiSelectOptions);
  grid.LayoutChanged();
  EXPECT_EQ(grid.Columns()->Count(), 1);
  EXPECT_EQ(grid.Columns()->State(), csDefault);
  EXPECT_EQ(grid.ColCount(), 2);
  EXPECT_EQ(grid.TCustomGrid::FixedCols(), 1);
  EXPECT_EQ(grid.TitleOffset(), 1);
  EXPECT_EQ(grid.RowCount(), 2);
  EXPECT_EQ(grid.ColWidths(0), grid.IndicatorWidth());
  const TGridOptions base = grid.TCustomGrid::Options();
  EXPECT_TRUE(base.Contains(goEditing));
  EXPECT_TRUE(base.Contains(goColSizing));
  EXPECT_TRUE(base.Contains(goTabs));
  EXPECT_FALSE(base.Contains(goRowSelect));
}

TEST(GridLayout, NestedTransactionsLayOutOnceAtTheOutermostEnd) {
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  grid.BeginLayout();
  grid.BeginLayout();
  grid.SwitchOptions({dgIndicator}, false);
  grid.EndLayout();
  EXPECT_EQ(grid.ColCount(), 2) << "the inner end lays nothing out";
  EXPECT_EQ(grid.LayoutLock(), 1);
  grid.EndLayout();
  EXPECT_EQ(grid.ColCount(), 1);
  EXPECT_EQ(grid.LayoutLock(), 0);
  EXPECT_EQ(grid.UpdateLock(), 0);
  EXPECT_EQ(grid.Columns()->UpdateCount(), 0);
  grid.EndLayout();
  EXPECT_EQ(grid.LayoutLock(), 0) << "an unmatched end does nothing";
}

TEST(GridLayout, AChangeDuringAnUpdateIsDroppedNotRemembered) {
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  grid.BeginUpdate();
  EXPECT_FALSE(grid.AcquireLayoutLock());
  grid.SwitchOptions({dgIndicator}, false);
  grid.EndUpdate();
  EXPECT_EQ(grid.ColCount(), 2);
  grid.LayoutChanged();
  EXPECT_EQ(grid.ColCount(), 1);
}

TEST(GridLayout, CancelLayoutEndsTheTransactionWithoutLayingOut) {
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  ASSERT_TRUE(grid.AcquireLayoutLock());
  grid.SwitchOptions({dgIndicator}, false);
  grid.CancelLayout();
  EXPECT_EQ(grid.ColCount(), 2);
  EXPECT_EQ(grid.LayoutLock(), 0);
  EXPECT_EQ(grid.UpdateLock(), 0);
  EXPECT_EQ(grid.Columns()->UpdateCount(), 0);
}

TEST(GridLayout, AFailingLayoutStillLowersTheLocks) {
  TFailingGrid grid(nullptr);
  grid.fail = true;
  EXPECT_THROW(grid.LayoutChanged(), std::runtime_error);
  EXPECT_EQ(grid.LayoutLock(), 0);
  EXPECT_EQ(grid.UpdateLock(), 0);
  EXPECT_EQ(grid.Columns()->UpdateCount(), 0);
  grid.fail = false;
  grid.SwitchOptions({dgIndicator}, false);
  EXPECT_EQ(grid.ColCount(), 1);
}

class GridDeferral : public GridFixture {
protected:
  bool LayoutQueued() { return PeekMessage(nullptr, grid, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE); }
};

TEST_F(GridDeferral, DeferredLayoutRunsOnceWhenMessage1124ArrivesAndIsPostedOnce) {
  Open(20);
  EXPECT_EQ(CM_DEFERLAYOUT, 1124u);
  ASSERT_TRUE(grid->AcquireLayoutLock());
  grid->SetIndicatorWidth(40);
  grid->DeferLayout();
  EXPECT_EQ(grid->LayoutLock(), 0);
  EXPECT_TRUE(LayoutQueued());
  EXPECT_EQ(grid->ColWidths(0), 20);
  grid->BeginLayout();
  grid->DeferLayout();
  TMessage first{};
  ASSERT_TRUE(PeekMessage(&first, grid, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_REMOVE));
  EXPECT_FALSE(LayoutQueued()) << "a second deferral posts no second message";
  PostMessage(grid, CM_DEFERLAYOUT, 0, 0);
  DeliverPostedMessages();
  EXPECT_EQ(grid->ColWidths(0), 40);
  EXPECT_FALSE(LayoutQueued());
}

TEST_F(GridDeferral, ABusyLockPostsTheMessageAgainAndALayoutTakesItOut) {
  Open(20);
  grid->BeginLayout();
  grid->SetIndicatorWidth(30);
  PostMessage(grid, CM_DEFERLAYOUT, 0, 0);
  DeliverPostedMessages();
  EXPECT_TRUE(LayoutQueued()) << "the message waits for the lock";
  EXPECT_EQ(grid->LayoutLock(), 1);
  grid->EndLayout();
  EXPECT_EQ(grid->ColWidths(0), 30);
  EXPECT_FALSE(LayoutQueued()) << "the layout did the deferred work";
}

TEST_F(GridDeferral, AFieldFreedWhileControlsAreDisabledLeavesItsColumnAtOnceAndRelaysOutLater) {
  Open(20);
  ASSERT_EQ(grid->Columns()->Count(), 4);
  TField* city = dataSet->FieldByName("City");
  TQuilColumn* cityColumn = grid->Columns()->Items(2);
  ASSERT_EQ(cityColumn->Field(), city);
  dataSet->DisableControls();
  delete city;
  EXPECT_TRUE(LayoutQueued());
  EXPECT_EQ(grid->Columns()->Count(), 4) << "the relayout waits";
  EXPECT_EQ(grid->LayoutLock(), 0);
  EXPECT_EQ(grid->UpdateLock(), 0);
  DeliverPostedMessages();
  EXPECT_EQ(grid->Columns()->Count(), 3);
  EXPECT_EQ(grid->Columns()->Items(2)->FieldName(), QStringLiteral("Amount"));
  dataSet->EnableControls();
  EXPECT_EQ(grid->ColCount(), 4);
}

TEST_F(GridDeferral, AFieldFreedWithControlsEnabledRelaysOutAtOnce) {
  Open(20);
  delete dataSet->FieldByName("Name");
  EXPECT_FALSE(LayoutQueued());
  EXPECT_EQ(grid->Columns()->Count(), 3);
  EXPECT_EQ(grid->Columns()->Items(1)->FieldName(), QStringLiteral("City"));
}

class GridUpdateLock : public GridFixture {};

// Under an update the row window keeps its size; the layout that follows sizes it.
TEST_F(GridUpdateLock, AResizeDuringAnUpdateLeavesTheRowWindowAlone) {
  Open(1000);
  const int rowCount = grid->RowCount();
  const int bufferCount = grid->DataLink()->BufferCount();
  grid->BeginUpdate();
  grid->SetHeight(120);
  EXPECT_EQ(grid->RowCount(), rowCount);
  EXPECT_EQ(grid->DataLink()->BufferCount(), bufferCount);
  grid->EndUpdate();
  static_cast<TQuilCustomDBGrid*>(grid)->LayoutChanged();
  EXPECT_EQ(grid->DataLink()->BufferCount(), RowsThatFit());
  EXPECT_LT(grid->RowCount(), rowCount);
}

// Rows that fill the client height exactly put the last row's bottom line outside it;
// painted straight to the screen, the last row is painted again so that it ends clean.
TEST_F(GridUpdateLock, RowsFillingTheWindowExactlyRepaintTheLastRow) {
  Open(1000);
  grid->SetDoubleBuffered(false);
  const int pitch = grid->GetRowHeight();
  const int frame = grid->Height() - grid->ClientHeight();
  for (int spare : {0, 1}) {
    grid->SetHeight(frame + grid->GetTitleHeight() + 7 * pitch + spare);
    ASSERT_EQ(grid->RowCount(), grid->TitleOffset() + 7);
    Settle();
    grid->UpdateRowCount();
    Paint();
    const std::set<int> expected = spare == 0 ? std::set<int>{grid->RowCount() - 1} : std::set<int>{};
    EXPECT_EQ(grid->DrawnRows(), expected) << "spare pixels " << spare;
  }
}

// --- Option constraints

TEST(GridOptionConstraints, RowSelectTurnsEditingOff) {
  TQuilDBGrid grid(nullptr);
  grid.SwitchOptions({dgAlwaysShowEditor}, true);
  grid.SwitchOptions({dgRowSelect}, true);
  EXPECT_FALSE(grid.Options().Contains(dgEditing));
  EXPECT_FALSE(grid.Options().Contains(dgAlwaysShowEditor));
  EXPECT_TRUE(grid.TCustomGrid::Options().Contains(goRowSelect));
  EXPECT_FALSE(grid.TCustomGrid::Options().Contains(goEditing));
  grid.SwitchOptions({dgEditing}, true);
  EXPECT_FALSE(grid.Options().Contains(dgEditing)) << "not while rows are selected";
}

struct OptionsExCase {
  TQuilDBGridOptionsEx given;
  TQuilDBGridOptionsEx reads;
};

class GridOptionsExConstraints : public ::testing::TestWithParam<OptionsExCase> {};

TEST_P(GridOptionsExConstraints, SetterKeepsTheTotalRowRules) {
  TQuilDBGrid grid(nullptr);
  grid.SetOptionsEx(GetParam().given);
  EXPECT_EQ(grid.OptionsEx().ToInt(), GetParam().reads.ToInt());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GridOptionsExConstraints,
    ::testing::Values(
        OptionsExCase{{dgTotalFooter}, {dgBlankRow, dgTotalFooter}},
        OptionsExCase{{dgTotalHeader, dgTotalValues}, {dgBlankRow, dgTotalHeader, dgTotalValues}},
        OptionsExCase{{dgTotalFields}, {dgBlankRow, dgTotalFields}},
        OptionsExCase{{dgBlankRow}, {dgBlankRow}},
        OptionsExCase{{dgCalcSelectedRows, dgTotalFooterSelected}, {dgTotalFooterSelected}},
        // Without a selection the rows that show it hide.
        OptionsExCase{{dgSelectedAutoHidden, dgTotalHeader, dgTotalHeaderSelected, dgTotalFooter},
                      {dgSelectedAutoHidden, dgTotalHeaderSelected, dgBlankRow, dgTotalFooter}},
        OptionsExCase{{}, {}}));

TEST(GridOptionConstraints, IndicatorWidthHasAFloor) {
  TQuilDBGrid grid(nullptr);
  grid.SetIndicatorWidth(5);
  EXPECT_EQ(grid.IndicatorWidth(), 11);
  grid.SetIndicatorWidth(12);
  EXPECT_EQ(grid.IndicatorWidth(), 12);
  EXPECT_EQ(grid.ColWidths(0), 12);
}

TEST(GridOptionConstraints, SmallSetsDropWhatTheyCannotHold) {
  TQuilDBGrid grid(nullptr);
  grid.SetMultiSelectOptions({msNone, msCols});
  EXPECT_EQ(grid.MultiSelectOptions(), TMultiSelectOptions{msCols});
  grid.SwitchResizeOptions({roColumnResize}, false);
  EXPECT_EQ(grid.ResizeOptions(), TQuilResizeOptions{roColumnMoving});
  grid.SwitchHintOptions({hoDataHints}, true);
  EXPECT_TRUE(grid.HintOptions().Contains(hoDataHints));
}

class GridFixedCols : public GridFixture {};

TEST_F(GridFixedCols, LayoutKeepsOneColumnScrollable) {
  Open(10);
  struct Case { int given, reads; };
  for (Case c : {Case{1, 1}, Case{3, 3}, Case{4, 3}, Case{9, 3}, Case{-2, 0}}) {
    grid->SetFixedCols(c.given);
    EXPECT_EQ(grid->FixedCols(), c.reads) << "given " << c.given;
    EXPECT_EQ(grid->TCustomGrid::FixedCols(), c.reads + 1) << "given " << c.given;
  }
}

TEST_F(GridFixedCols, ThreeOnThreeColumnsFreezesTwo) {
  Open(10);
  grid->Columns()->Items(3)->SetVisible(false);
  delete dataSet->FieldByName("Amount");
  ASSERT_EQ(grid->Columns()->Count(), 3);
  grid->SetFixedCols(3);
  EXPECT_EQ(grid->FixedCols(), 2);
  EXPECT_EQ(grid->TCustomGrid::FixedCols(), 3);
}

// --- Columns and the field map

class GridColumns : public GridFixture {};

TEST_F(GridColumns, DefaultColumnsFollowTheVisibleFields) {
  Open(10);
  ASSERT_EQ(grid->Columns()->Count(), 4);
  EXPECT_EQ(grid->ColCount(), 5);
  dataSet->FieldByName("City")->SetVisible(false);
  EXPECT_EQ(grid->Columns()->Count(), 3);
  EXPECT_EQ(grid->GetFieldCount(), 3);
  EXPECT_EQ(grid->GetFields(2)->FieldName(), QStringLiteral("Amount"));
  EXPECT_FALSE(grid->DataLink()->SparseMap());
}

TEST_F(GridColumns, APersistentColumnAfterDefaultOnesReplacesThemAtTheNextLayout) {
  Open(10);
  TQuilColumn* added = grid->Columns()->Add();
  added->SetFieldName("Name");
  EXPECT_EQ(grid->Columns()->Count(), 1);
  EXPECT_EQ(grid->Columns()->State(), csCustomized);
  EXPECT_EQ(grid->ColCount(), 2);
  EXPECT_EQ(grid->Columns()->Items(0)->Field(), dataSet->FieldByName("Name"));
  EXPECT_TRUE(grid->DataLink()->SparseMap());
}

TEST_F(GridColumns, ACustomizedColumnWithoutAFieldMapsToNothing) {
  Open(10);
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Add()->SetFieldName("Missing");
  ASSERT_EQ(grid->GetFieldCount(), 5);
  EXPECT_EQ(grid->DataLink()->GetMappedIndex(4), -1);
  EXPECT_EQ(grid->GetFields(4), nullptr);
  EXPECT_FALSE(grid->ValidFieldIndex(4));
  EXPECT_TRUE(grid->ValidFieldIndex(0));
  EXPECT_EQ(grid->GetColField(4), nullptr);
  EXPECT_EQ(grid->GetFieldValue(4), QString());
  EXPECT_FALSE(grid->DataLink()->GetDefaultFields());
}

TEST_F(GridColumns, ColumnAttributesGiveWidthsAndTabStops) {
  Open(10);
  dataSet->FieldByName("ID")->SetReadOnly(true);
  grid->Columns()->Items(1)->SetWidth(77);
  EXPECT_EQ(grid->ColWidths(2), 77);
  EXPECT_FALSE(grid->TabStops(1));
  EXPECT_TRUE(grid->TabStops(2));
  grid->Columns()->Items(1)->SetVisible(false);
  EXPECT_EQ(grid->ColWidths(2), -grid->GetColLineWidth()) << "a hidden column takes no room with its line";
  EXPECT_FALSE(grid->TabStops(2));
}

TEST_F(GridColumns, MoveColSkipsHiddenColumnsOnlyWhenStepping) {
  Open(10);
  grid->Columns()->Items(2)->SetVisible(false);
  grid->MoveCol(3, 0);
  EXPECT_EQ(grid->Col(), 3) << "a direct move lands on the hidden column";
  grid->MoveCol(1, 0);
  grid->MoveCol(3, 1);
  EXPECT_EQ(grid->Col(), 4);
  grid->MoveCol(99, 0);
  EXPECT_EQ(grid->Col(), 4);
  EXPECT_EQ(grid->SelectedIndex(), 3);
  EXPECT_EQ(grid->SelectedField(), dataSet->FieldByName("Amount"));
  grid->SetSelectedField(dataSet->FieldByName("ID"));
  EXPECT_EQ(grid->Col(), 1);
}

TEST_F(GridColumns, AnExitHandlerThatMovesTheColumnStopsTheMove) {
  Open(10);
  grid->exitMovesTo = 2;
  grid->MoveCol(4, 0);
  EXPECT_EQ(grid->Col(), 2);
  EXPECT_EQ(grid->colExits, 1);
}

// The column left hears of it before the cursor moves, the column entered after.
TEST_F(GridColumns, MovingTheCursorFiresColExitThenColEnter) {
  Open(10);
  QStringList heard;
  auto note = [&](const char* what) {
    return TNotifyEvent([&heard, what, this](TObject* sender) {
      EXPECT_EQ(sender, grid);
      heard << QStringLiteral("%1 %2").arg(what).arg(grid->SelectedIndex());
    });
  };
  grid->OnColExit = note("exit");
  grid->OnColEnter = note("enter");
  grid->SetSelectedIndex(2);
  EXPECT_EQ(heard, QStringList({"exit 0", "enter 2"}));
  heard.clear();
  grid->SetSelectedIndex(2);
  EXPECT_TRUE(heard.isEmpty()) << "the cursor stays";
  grid->exitMovesTo = 2;
  grid->SetSelectedIndex(3);
  EXPECT_EQ(heard, QStringList({"exit 2"})) << "an exit that moves the cursor itself enters nothing";
  EXPECT_EQ(grid->SelectedIndex(), 1);
}

}  // namespace

// --- Streaming

namespace {

TEST(GridStreaming, CustomizedColumnsAreStoredAndReadBack) {
  TQuilDBGrid grid(nullptr);
  TQuilColumn* name = grid.Columns()->Add();
  name->SetFieldName("Name");
  name->SetWidth(80);
  grid.Columns()->Add()->SetFieldName("City");
  TMemoryStream stream;
  stream.WriteComponent(&grid);
  EXPECT_TRUE(test::ObjectText(stream).contains("Columns = <"));
  TQuilDBGrid copy(nullptr);
  stream.ReadComponent(&copy);
  ASSERT_EQ(copy.Columns()->Count(), 2);
  EXPECT_EQ(copy.Columns()->State(), csCustomized);
  EXPECT_EQ(copy.Columns()->Items(0)->FieldName(), QStringLiteral("Name"));
  EXPECT_EQ(copy.Columns()->Items(0)->Width(), 80);
  EXPECT_EQ(copy.Columns()->Items(1)->FieldName(), QStringLiteral("City"));
  EXPECT_EQ(copy.ColCount(), 3);
}

TEST(GridStreaming, DefaultColumnsAreNotStored) {
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  TMemoryStream stream;
  stream.WriteComponent(&grid);
  EXPECT_FALSE(test::ObjectText(stream).contains("Columns"));
}

}  // namespace
