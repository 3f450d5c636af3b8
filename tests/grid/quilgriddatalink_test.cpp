// The data link's events while the data set scrolls, edits and changes, and what the
// grid repaints for each.
#include <stdexcept>

#include "GridTestKit.h"
#include "framework/db/StringFields.h"

using namespace quil;
using gridtest::GridFixture;
using gridtest::TProbeGrid;

namespace {

class TOneWayDataSet : public TClientDataSet {
public:
  using TClientDataSet::TClientDataSet;
  using TClientDataSet::SetUniDirectional;
};

class GridDataLink : public GridFixture {
protected:
  int CurrentRow() const { return grid->Row(); }
};

TEST_F(GridDataLink, IsAVisualLinkThatTheGridOwns) {
  Open(5);
  EXPECT_TRUE(grid->DataLink()->VisualControl());
  EXPECT_EQ(grid->DataLink()->Grid(), grid);
  EXPECT_EQ(grid->DataSource(), source);
  EXPECT_EQ(grid->DataSet(), dataSet);
}

// Edit tells of a changed record (the data rows) and of editing (the indicator); the
// titles stay as they are.
TEST_F(GridDataLink, EditingRepaintsTheDataRowsAndTheIndicatorButNotTheTitles) {
  Open(50);
  grid->MoveBy(2);
  Settle();
  dataSet->Edit();
  Paint();
  EXPECT_EQ(grid->drawn.count({CurrentRow(), 0}), 1u);
  EXPECT_FALSE(grid->DrawnRows().count(0));
  EXPECT_EQ(grid->LastDrawnCurrentRow(), CurrentRow());
}

TEST_F(GridDataLink, AChangedFieldRepaintsOnlyItsColumn) {
  Open(50);
  dataSet->Edit();
  Settle();
  dataSet->FieldByName("City")->SetAsString("Rome");
  Paint();
  EXPECT_EQ(grid->DrawnCols(), std::set<int>{grid->DataToRawColumn(2)});
  EXPECT_TRUE(grid->DrawnRows().count(CurrentRow()));
  EXPECT_EQ(grid->GetFieldValue(2), QStringLiteral("Rome"));
}

// Totals hear of each column whose field changed, and of the whole record or a scroll
// without a field.
TEST_F(GridDataLink, TotalsHearWhichFieldChanged) {
  Open(50);
  using TChange = std::pair<TTotalResult, TField*>;
  TField* city = dataSet->FieldByName("City");
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Add()->SetFieldName("City");
  dataSet->Edit();
  grid->totalsChanges.clear();
  city->SetAsString("Rome");
  EXPECT_EQ(grid->totalsChanges, (std::vector<TChange>{{trDataField, city}, {trDataField, city}}));
  grid->Columns()->Items(2)->SetVisible(false);
  grid->totalsChanges.clear();
  city->SetAsString("Lima");
  EXPECT_EQ(grid->totalsChanges, (std::vector<TChange>{{trDataField, city}})) << "a hidden column is left out";
  grid->Columns()->Items(4)->SetVisible(false);
  grid->totalsChanges.clear();
  city->SetAsString("Kyiv");
  EXPECT_TRUE(grid->totalsChanges.empty()) << "no column shows the field";
  dataSet->Cancel();
  grid->totalsChanges.clear();
  dataSet->Next();
  EXPECT_EQ(grid->totalsChanges, (std::vector<TChange>{{trDataField, nullptr}}));
}

TEST_F(GridDataLink, ADataChangePaintsEveryCellOnce) {
  Open(50);
  dataSet->Edit();
  dataSet->FieldByName("Name")->SetAsString("Changed");
  Settle();
  dataSet->Post();
  grid->Invalidate();  // a second request before the paint must not paint twice
  Paint();
  const int cells = grid->RowCount() * grid->ColCount();
  EXPECT_EQ(grid->DrawnCount(), cells);
  EXPECT_EQ(int(grid->drawn.size()), cells);
  EXPECT_EQ(grid->GetFieldValue(1), QStringLiteral("Changed"));
}

TEST_F(GridDataLink, RowsFollowAppendsAndDeletesWhileTheyFit) {
  Open(3);
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 3);
  dataSet->Last();
  dataSet->Append();
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 4);
  EXPECT_EQ(CurrentRow(), grid->TitleOffset() + 3);
  dataSet->FieldByName("ID")->SetAsInteger(4);
  dataSet->Post();
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 4);
  dataSet->First();
  dataSet->Delete();
  dataSet->Delete();
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 2);
  EXPECT_EQ(CurrentRow(), grid->TitleOffset() + grid->DataLink()->ActiveRecord());
  dataSet->CheckConsistency();
}

TEST_F(GridDataLink, AppendingToAFullWindowMovesTheWindowNotTheRowCount) {
  Open(100);
  dataSet->Last();
  const int rows = grid->RowCount();
  dataSet->Append();
  EXPECT_EQ(grid->RowCount(), rows);
  EXPECT_EQ(CurrentRow(), rows - 1);
  EXPECT_EQ(grid->GetFieldValue(0), QString());
  dataSet->Cancel();
  EXPECT_EQ(grid->GetFieldValue(0), QStringLiteral("100"));
  EXPECT_EQ(CurrentRow(), rows - 1);
  dataSet->CheckConsistency();
}

TEST_F(GridDataLink, CursorRowAlwaysMatchesTheActiveRecord) {
  Open(300);
  const int moves[] = {1, 1, 5, -3, 40, -2, 100, -150, 7, -1};
  for (int distance : moves) {
    dataSet->MoveBy(distance);
    EXPECT_EQ(CurrentRow(), grid->TitleOffset() + grid->DataLink()->ActiveRecord()) << "after " << distance;
    EXPECT_EQ(grid->GetPosition(), grid->DataLink()->ActiveRecord());
  }
  grid->SetPosition(0);
  EXPECT_EQ(CurrentRow(), grid->TitleOffset());
  grid->SetPosition(1000);
  EXPECT_EQ(grid->GetPosition(), grid->DataLink()->RecordCount() - 1);
  dataSet->CheckConsistency();
}

TEST_F(GridDataLink, RecordNumbersComeFromTheDataSet) {
  Open(40);
  grid->MoveBy(6);
  EXPECT_EQ(grid->GetRecNumber(), 7);
  EXPECT_EQ(grid->GetRecCount(), 40);
  grid->SetRecNumber(30);
  EXPECT_EQ(dataSet->RecNo(), 30);
  EXPECT_EQ(CurrentRow(), grid->TitleOffset() + grid->DataLink()->ActiveRecord());
}

TEST_F(GridDataLink, ClosingLeavesOneEmptyRowAndReopeningRefillsTheWindow) {
  Open(100);
  grid->MoveBy(5);
  dataSet->Close();
  EXPECT_FALSE(grid->DataLink()->Active());
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 1);
  EXPECT_EQ(CurrentRow(), grid->TitleOffset());
  EXPECT_EQ(grid->GetPosition(), 0);
  EXPECT_EQ(grid->GetFieldValue(0), QString());
  dataSet->Open();
  EXPECT_EQ(grid->DataLink()->BufferCount(), RowsThatFit());
  EXPECT_EQ(grid->Columns()->Count(), 4);
}

TEST_F(GridDataLink, CancelRunsUnderThePositionLockAndRestoresIt) {
  Open(10);
  int lockDuringCancel = -1;
  dataSet->BeforeCancel = [&](TDataSet*) { lockDuringCancel = grid->PositionLock(); };
  dataSet->Insert();
  grid->DataLink()->Cancel();
  EXPECT_EQ(lockDuringCancel, 1);
  EXPECT_EQ(dataSet->State(), dsBrowse);
  EXPECT_EQ(grid->PositionLock(), 0);
  dataSet->BeforeCancel = [&](TDataSet*) { throw std::runtime_error("refused"); };
  dataSet->Insert();
  EXPECT_THROW(grid->DataLink()->Cancel(), std::runtime_error);
  EXPECT_EQ(grid->PositionLock(), 0) << "also on failure";
  dataSet->BeforeCancel = nullptr;
  dataSet->Cancel();
  dataSet->Insert();
  dataSet->FieldByName("ID")->SetAsInteger(11);
  dataSet->FieldByName("ID")->SetRequired(true);
  grid->DataLink()->Reset();
  EXPECT_EQ(dataSet->State(), dsBrowse);
}

TEST_F(GridDataLink, LeavingTheGridCancelsAnUntouchedInsert) {
  Open(10);
  dataSet->Insert();
  grid->Perform(CM_EXIT, 0, 0);
  EXPECT_EQ(dataSet->State(), dsBrowse);
  EXPECT_EQ(dataSet->RecordCount(), 10);
  dataSet->Insert();
  dataSet->FieldByName("ID")->SetAsInteger(11);
  grid->Perform(CM_EXIT, 0, 0);
  EXPECT_EQ(dataSet->State(), dsInsert) << "a typed record stays";
  dataSet->Cancel();
}

TEST_F(GridDataLink, PerformDelayedPostsThePendingEditFirst) {
  Open(10);
  dataSet->Edit();
  dataSet->FieldByName("Name")->SetAsString("Posted");
  grid->PerformDelayed();
  EXPECT_EQ(dataSet->State(), dsBrowse);
  EXPECT_EQ(grid->GetFieldValue(1), QStringLiteral("Posted"));
}

TEST_F(GridDataLink, ALayoutChangeOfTheDataSetIsMarkedWhileItRuns) {
  Open(10);
  grid->layoutSources.clear();
  grid->SetLinesCount(2);
  dataSet->FieldByName("ID")->SetVisible(false);
  ASSERT_FALSE(grid->layoutSources.empty());
  EXPECT_FALSE(grid->layoutSources.front()) << "the grid's own change";
  EXPECT_TRUE(grid->layoutSources.back()) << "the data set's change";
  EXPECT_FALSE(grid->LayoutFromDataSet());
  EXPECT_EQ(grid->Columns()->Count(), 3);
}

TEST_F(GridDataLink, AUnidirectionalDataSetIsRefused) {
  Open(3);
  TOneWayDataSet oneWay(nullptr);
  dbtest::FillPeople(oneWay, 3);
  oneWay.SetUniDirectional(true);
  TDataSource oneWaySource(nullptr);
  oneWaySource.SetDataSet(&oneWay);
  EXPECT_THROW(grid->SetDataSource(&oneWaySource), EDatabaseError);
  EXPECT_EQ(grid->DataSource(), source);
}

TEST_F(GridDataLink, FreeingTheDataSourceUnbindsTheGrid) {
  Open(3);
  delete source;
  source = nullptr;
  EXPECT_EQ(grid->DataSource(), nullptr);
  EXPECT_FALSE(grid->DataLink()->Active());
  EXPECT_EQ(grid->RowCount(), grid->TitleOffset() + 1);
}

TEST_F(GridDataLink, AddMappingRaisesForAMissingFieldUnlessTheMapIsSparse) {
  Open(3);
  TQuilGridDataLink* link = grid->DataLink();
  link->ClearMapping();
  link->SetSparseMap(false);
  EXPECT_THROW(link->AddMapping("Nowhere"), EDatabaseError);
  link->SetSparseMap(true);
  EXPECT_TRUE(link->AddMapping("Nowhere"));
  for (int index = 0; index < 20; ++index) link->AddMapping("City");
  EXPECT_EQ(link->FieldCount(), 21);
  EXPECT_EQ(link->GetMappedIndex(0), -1);
  EXPECT_EQ(link->GetFields(20), dataSet->FieldByName("City"));
  EXPECT_EQ(link->GetFields(21), nullptr);
  EXPECT_EQ(link->GetMappedIndex(-1), -1);
}

// Typed text of the selected column goes to its field before another field's change
// repaints the record, unless that field's column is frozen.
TEST_F(GridDataLink, ATypedTextIsSavedWhenAnotherFieldOfAScrollableColumnChanges) {
  Open(10);
  grid->SetSelectedIndex(1);
  dataSet->Edit();
  auto typeIntoName = [&](const QString& text) {
    grid->SetCellEditText(text);
    grid->DataLink()->Modified();
  };
  typeIntoName("Typed");
  dataSet->FieldByName("City")->SetAsString("Rome");
  EXPECT_EQ(dataSet->FieldByName("Name")->AsString(), QStringLiteral("Typed"));
  EXPECT_FALSE(grid->DataLink()->IsModified());
  grid->SetFixedCols(3);
  ASSERT_EQ(grid->FixedCols(), 3);
  typeIntoName("Kept back");
  dataSet->FieldByName("City")->SetAsString("Lima");
  EXPECT_EQ(dataSet->FieldByName("Name")->AsString(), QStringLiteral("Typed")) << "City's column is frozen";
  EXPECT_FALSE(grid->DataLink()->IsModified());
  dataSet->Cancel();
}

// Editing follows the data as the data set moves: an empty data set has no record
// to edit and may get none.
TEST_F(GridDataLink, WithoutInsertingAnEmptyDataSetCannotBeEdited) {
  Open(1);
  grid->SwitchOptions({dgAllowInsertOff}, true);
  dataSet->Delete();
  EXPECT_FALSE(grid->TCustomGrid::Options().Contains(goEditing));
  dataSet->AppendRecord({1, "Anna", "Oslo", 1.5});
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goEditing));
  grid->SwitchOptions({dgAllowInsertOff}, false);
  dataSet->Delete();
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goEditing)) << "inserting is allowed";
}

// Country is looked up in a table of cities by the City key: a new key repaints both
// columns.
TEST_F(GridDataLink, ANewKeyRepaintsTheColumnOfItsLookupField) {
  Open(0);
  auto* cities = new TClientDataSet(form);
  cities->FieldDefs()->Add("Code", ftString, 20);
  cities->FieldDefs()->Add("Country", ftString, 20);
  cities->CreateDataSet();
  cities->AppendRecord({"Oslo", "Norway"});
  cities->AppendRecord({"Paris", "France"});
  auto* people = new TClientDataSet(form);
  dbtest::AddDataFields(*people, {{"ID", ftInteger}, {"City", ftString}, {"Amount", ftFloat}});
  dbtest::AddLookupField(*people, "Country", "City", cities, "Code", "Country");
  source->SetDataSet(people);
  people->CreateDataSet();
  people->AppendRecord({1, "Oslo", 2.0});
  people->First();
  Settle();
  people->Edit();
  Settle();
  people->FieldByName("City")->SetAsString("Paris");
  Paint();
  EXPECT_EQ(grid->DrawnCols(), (std::set<int>{grid->DataToRawColumn(1), grid->DataToRawColumn(3)}));
  EXPECT_EQ(grid->GetFieldValue(3), QStringLiteral("France"));
  people->Cancel();
}

TEST_F(GridDataLink, ForcedCustomizedColumnsAreMadeFromTheFieldsAtActivation) {
  Open(10);
  dataSet->Close();
  grid->SwitchOptionsExt({dgForceCustomized}, true);
  EXPECT_EQ(grid->Columns()->State(), csDefault) << "nothing to make columns from while closed";
  dataSet->Open();
  ASSERT_EQ(grid->Columns()->State(), csCustomized);
  QStringList names;
  for (TQuilColumn* column : *grid->Columns()) names << column->FieldName();
  EXPECT_EQ(names, QStringList({"ID", "Name", "City", "Amount"}));
  EXPECT_EQ(grid->GetFieldValue(1), QStringLiteral("Name001"));
}

}  // namespace
