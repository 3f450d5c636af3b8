// The column collection: default and customized columns, the automatic service
// columns, and finding columns by field name.
#include "ColumnTestKit.h"
#include "framework/db/NumericFields.h"

using namespace quil;
using gridtest::FieldNames;

namespace {

// --- State

TEST(QuilDBGridColumnsState, TheLastColumnDecides) {
  TQuilDBGridColumns columns(nullptr);
  EXPECT_EQ(columns.State(), csDefault);
  columns.Add();
  EXPECT_EQ(columns.State(), csCustomized);
  columns.InternalAdd();
  EXPECT_EQ(columns.State(), csDefault) << "a stored column in front does not customize";
}

TEST(QuilDBGridColumnsState, CustomizingWithoutADataSetLeavesNoColumns) {
  TQuilDBGridColumns columns(nullptr);
  columns.InternalAdd();
  columns.SetState(csCustomized);
  EXPECT_EQ(columns.Count(), 0);
  TQuilDBGrid grid(nullptr);
  grid.Columns()->SetState(csCustomized);
  EXPECT_EQ(grid.Columns()->Count(), 0) << "a grid not laid out yet";
}

// The columns go, and the layout gives the grid back the one column that any grid
// without fields shows.
TEST(QuilDBGridColumnsState, CustomizingALaidOutGridWithoutADataSetKeepsItsOneDefaultColumn) {
  TForm form(nullptr);
  auto* grid = new TQuilDBGrid(&form);
  grid->SetParent(&form);
  grid->LayoutChanged();
  grid->Columns()->Items(0)->SetHint("dropped");
  grid->Columns()->SetState(csCustomized);
  ASSERT_EQ(grid->Columns()->Count(), 1);
  EXPECT_EQ(grid->Columns()->Items(0)->Hint(), QString()) << "a column made anew";
  EXPECT_EQ(grid->Columns()->State(), csDefault);
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), QString());
}

TEST(QuilDBGridColumnsState, TheEnumeratorWalksEveryColumnOnce) {
  TQuilDBGridColumns columns(nullptr);
  columns.Add()->SetFieldName("A");
  columns.Add()->SetFieldName("B");
  TQuilDBGridColumnsEnumerator walk = columns.GetEnumerator();
  QStringList seen;
  while (walk.MoveNext()) seen << walk.GetCurrent()->FieldName();
  EXPECT_EQ(seen, QStringList({"A", "B"}));
  EXPECT_FALSE(walk.MoveNext());
  walk.Restart();
  ASSERT_TRUE(walk.MoveNext());
  EXPECT_EQ(walk.GetCurrent()->FieldName(), QStringLiteral("A"));
}

class QuilDBGridColumns : public gridtest::ColumnFixture {};

TEST_F(QuilDBGridColumns, DefaultColumnsFollowTheFieldsOfTheDataSet) {
  Open(5);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  TQuilColumn* name = grid->Columns()->Items(1);
  dataSet->FieldByName("ID")->SetVisible(false);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Name", "City", "Amount"}));
  EXPECT_EQ(grid->Columns()->Items(0), name) << "the column of a field that stays is kept";
  dataSet->FieldByName("ID")->SetVisible(true);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  EXPECT_EQ(grid->Columns()->State(), csDefault);
  for (TQuilColumn* column : *grid->Columns()) EXPECT_FALSE(column->Stored());
}

TEST_F(QuilDBGridColumns, DefaultColumnsFollowAFieldMoved) {
  Open(5);
  TQuilColumn* amount = ColumnOf("Amount");
  dataSet->FieldByName("Amount")->SetIndex(1);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Amount", "Name", "City"}));
  EXPECT_EQ(grid->Columns()->Items(1), amount) << "the column moves with its field";
}

TEST_F(QuilDBGridColumns, DefaultColumnsFollowFieldsAddedAndFreed) {
  Open(5);
  dataSet->Close();
  for (auto [name, type] : {std::pair{"ID", ftInteger}, {"Name", ftString}, {"City", ftString}}) {
    auto* field = static_cast<TField*>(DefaultFieldClass(type)->Create(dataSet));
    field->SetFieldName(name);
    field->SetDataSet(dataSet);
  }
  dataSet->Open();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City"}));
  dataSet->Close();
  auto* amount = new TFloatField(dataSet);
  amount->SetFieldName("Amount");
  amount->SetDataSet(dataSet);
  dataSet->Open();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  TQuilColumn* city = ColumnOf("City");
  delete dataSet->FieldByName("Name");
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "City", "Amount"}));
  EXPECT_EQ(grid->Columns()->Items(1), city);
  EXPECT_EQ(grid->Columns()->State(), csDefault);
}

TEST_F(QuilDBGridColumns, MovingAnAutomaticColumnMovesItsField) {
  Open(5);
  grid->Columns()->Items(3)->SetIndex(1);
  EXPECT_EQ(dataSet->FieldByName("Amount")->Index(), 1);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Amount", "Name", "City"}));
}

TEST_F(QuilDBGridColumns, AnAutomaticColumnWithoutAFieldStaysWhereTheFieldsPutIt) {
  Open(5);
  ColumnOf("Name")->SetField(nullptr);
  grid->Columns()->Items(1)->SetIndex(3);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  EXPECT_EQ(dataSet->FieldByName("Name")->Index(), 1);
}

TEST_F(QuilDBGridColumns, APersistentColumnAddedAfterDefaultOnesTakesTheirPlace) {
  Open(5);
  grid->Columns()->Add()->SetFieldName("City");
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"City"}));
  EXPECT_EQ(grid->Columns()->State(), csCustomized);
}

TEST_F(QuilDBGridColumns, RebuildMakesStoredColumnsWithTheAutomaticOnesInFront) {
  Open(5);
  grid->SwitchOptionsExt({dgAutoNumberColumn, dgAutoSelectColumn, dgAutoExpandColumn}, true);
  grid->Columns()->RebuildColumns();
  TQuilDBGridColumns* columns = grid->Columns();
  ASSERT_EQ(columns->Count(), 7);
  EXPECT_TRUE(columns->Items(0)->AutoNumber());
  EXPECT_TRUE(columns->Items(1)->CheckBox());
  EXPECT_TRUE(columns->Items(2)->ExpandBox());
  EXPECT_EQ(FieldNames(columns).mid(3), QStringList({"ID", "Name", "City", "Amount"}));
  for (TQuilColumn* column : *columns) EXPECT_TRUE(column->Stored());
  EXPECT_EQ(columns->State(), csCustomized);
  EXPECT_EQ(columns->Items(0)->Title()->Caption(), DefAutoNumberTitle);
  EXPECT_EQ(columns->Items(0)->Alignment(), taRightJustify);
  EXPECT_EQ(columns->Items(0)->Width(), DefAutoNumberWidth);
  EXPECT_EQ(columns->Items(1)->Title()->Caption(), DefAutoSelectTitle);
  EXPECT_EQ(columns->Items(2)->Title()->Caption(), DefAutoExpandTitle);
  EXPECT_EQ(columns->Items(2)->Title()->Alignment(), taCenter);
  EXPECT_TRUE(columns->Items(2)->SuppressRTL());
}

TEST_F(QuilDBGridColumns, DefaultColumnsGetTheAutomaticOnesAtEachLayout) {
  Open(5);
  grid->SwitchOptionsExt({dgAutoNumberColumn, dgAutoSelectColumn}, true);
  TQuilDBGridColumns* columns = grid->Columns();
  ASSERT_EQ(columns->Count(), 6);
  EXPECT_TRUE(columns->Items(0)->AutoNumber());
  EXPECT_TRUE(columns->Items(1)->CheckBox());
  EXPECT_EQ(columns->State(), csDefault);
  static_cast<TQuilCustomDBGrid*>(grid)->LayoutChanged();
  EXPECT_EQ(columns->Count(), 6) << "rebuilt, not piled up";
  grid->SwitchOptionsExt({dgAutoSelectColumn}, false);
  EXPECT_EQ(columns->Count(), 5);
}

// --- The automatic service columns

struct AutoColumnCase {
  const char* name;
  TQuilColumn* (TQuilDBGridColumns::*add)();
  bool (TQuilColumn::*kind)() const;
  TAlignment alignment;
  QString* title;
  int* width;
  bool transparent;
};

class QuilDBGridAutoColumn : public gridtest::ColumnFixture, public ::testing::WithParamInterface<AutoColumnCase> {
protected:
  // The title and width the application chose, put back after the test.
  void ChooseTitleAndWidth(const QString& title, int width) {
    *GetParam().title = title;
    *GetParam().width = width;
  }
  void TearDown() override {
    *GetParam().title = savedTitle_;
    *GetParam().width = savedWidth_;
    ColumnFixture::TearDown();
  }

private:
  QString savedTitle_ = *GetParam().title;
  int savedWidth_ = *GetParam().width;
};

TEST_P(QuilDBGridAutoColumn, StandsFirstWithTheLookAndTheTitleAndWidthChosen) {
  const AutoColumnCase& row = GetParam();
  Open(5);
  grid->Columns()->SetState(csCustomized);
  ChooseTitleAndWidth("Chosen", 33);
  TQuilColumn* column = (grid->Columns()->*row.add)();
  EXPECT_EQ(column->Index(), 0);
  EXPECT_TRUE(column->Stored());
  EXPECT_TRUE((column->*row.kind)());
  EXPECT_EQ(column->Alignment(), row.alignment);
  EXPECT_EQ(column->Title()->Alignment(), row.alignment);
  EXPECT_EQ(column->Title()->Caption(), QStringLiteral("Chosen"));
  EXPECT_EQ(column->Width(), 33);
  EXPECT_TRUE(column->SuppressRTL());
  EXPECT_EQ(column->Transparent(), row.transparent);
}

TEST_P(QuilDBGridAutoColumn, FollowsTheDefaultWidthWhileTheGridShowsNoData) {
  TQuilDBGrid grid(nullptr);
  grid.SetDefaultColWidth(70);
  TQuilColumn* column = (grid.Columns()->*GetParam().add)();
  EXPECT_EQ(column->Width(), 70);
  EXPECT_FALSE(column->AssignedValues().Contains(cvWidth));
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuilDBGridAutoColumn,
    ::testing::Values(AutoColumnCase{"Number", &TQuilDBGridColumns::AddAutoNumber, &TQuilColumn::AutoNumber,
                                     taRightJustify, &DefAutoNumberTitle, &DefAutoNumberWidth, false},
                      AutoColumnCase{"Select", &TQuilDBGridColumns::AddAutoSelect, &TQuilColumn::CheckBox, taCenter,
                                     &DefAutoSelectTitle, &DefAutoSelectWidth, false},
                      AutoColumnCase{"Expand", &TQuilDBGridColumns::AddAutoExpand, &TQuilColumn::ExpandBox, taCenter,
                                     &DefAutoExpandTitle, &DefAutoExpandWidth, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(QuilDBGridColumns, RebuildOnADataSetWithoutFieldsAddsNoAutomaticColumns) {
  Open(5);
  grid->SwitchOptionsExt({dgAutoNumberColumn}, true);
  dbtest::TWindowCheckedDataSet empty(nullptr);
  source->SetDataSet(&empty);
  // Held in a transaction, so that the layout's own default columns do not come in.
  grid->BeginLayout();
  grid->Columns()->RebuildColumns();
  EXPECT_EQ(grid->Columns()->Count(), 0);
  grid->CancelLayout();
  source->SetDataSet(dataSet);
}

TEST_F(QuilDBGridColumns, DeletingThePressedColumnLeavesNoDanglingReference) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* city = grid->Columns()->Items(2);
  grid->SetPressedColumn(city);
  grid->SetHotColumn(city);
  grid->SetFilterListColumn(grid->Columns()->Items(1));
  grid->Columns()->Delete(2);
  EXPECT_EQ(grid->PressedColumn(), nullptr);
  EXPECT_EQ(grid->HotColumn(), nullptr);
  EXPECT_NE(grid->FilterListColumn(), nullptr);
}

TEST_F(QuilDBGridColumns, RemoveMarkersClearsEveryTitlesMarker) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Items(1)->Title()->SetMarker(tmAscend);
  grid->Columns()->Items(3)->Title()->SetMarker(tmDescend);
  grid->Columns()->RemoveMarkers();
  for (TQuilColumn* column : *grid->Columns()) EXPECT_EQ(column->Title()->Marker(), tmNone);
}

TEST_F(QuilDBGridColumns, ColumnsAreFoundByFieldNameInAnyCase) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Add()->SetFieldName("City");
  EXPECT_EQ(grid->FindColumn("city"), grid->Columns()->Items(2));
  EXPECT_EQ(grid->FindColumn("CITY", 3), grid->Columns()->Items(4));
  EXPECT_EQ(grid->FindColumn("City", 5), nullptr);
  EXPECT_EQ(grid->ColumnNames("amount"), grid->Columns()->Items(3));
  try {
    grid->ColumnByName("Missing");
    FAIL() << "found a column that is not there";
  } catch (const EInvalidGridOperation& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("Field 'Missing' not found"));
  }
}

}  // namespace
