// Groups of expandable columns: parents and depth, showing and expanding, moving a
// group as a block, and the columns of object fields.
#include "ColumnTestKit.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/ObjectFields.h"
#include "framework/db/StringFields.h"

using namespace quil;
using gridtest::FieldNames;

namespace {

// A grid that counts what it tells a form designer.
class TDesignedGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  void UpdateDesigner() override { ++designerUpdates; }
  int designerUpdates = 0;
};

struct TExpandCounter {
  int count = 0;
  void OnColExpand(TQuilColumn*) { ++count; }
};

class QuilDBGridColumnGroups : public gridtest::ColumnFixture {
protected:
  // Customized columns ID, Name (owns City and Amount).
  void OpenGroup() {
    Open<TDesignedGrid>(5);
    grid->Columns()->SetState(csCustomized);
    group = grid->Columns()->Items(1);
    group->SetExpandCols(2);
  }
  TQuilColumn* Column(int index) { return grid->Columns()->Items(index); }
  // The group collapsed with the cursor on it, its expansions and the designer's
  // updates counted from here.
  void CollapseUnderTheCursor() {
    group->SetExpanded(false);
    grid->OnColExpand = TDBGridClickEvent(&expansions, &TExpandCounter::OnColExpand);
    grid->SetSelectedIndex(1);
    designerUpdatesBefore = static_cast<TDesignedGrid*>(grid)->designerUpdates;
  }
  int DesignerUpdates() const { return static_cast<TDesignedGrid*>(grid)->designerUpdates - designerUpdatesBefore; }
  // A grid over a data set that the test made on the form.
  void BindTo(TDataSet* dataSet) {
    source = new TDataSource(form);
    source->SetDataSet(dataSet);
    grid = new gridtest::TProbeGrid(form);
    grid->SetDataSource(source);
  }
  void TearDown() override {
    if (grid) grid->Columns()->CheckConsistency();
    ColumnFixture::TearDown();
  }
  TQuilColumn* group = nullptr;
  TExpandCounter expansions;
  int designerUpdatesBefore = 0;
};

TEST_F(QuilDBGridColumnGroups, ACollapsedGroupShowsAloneAndAnExpandedOneShowsItsChildren) {
  OpenGroup();
  EXPECT_TRUE(group->GetExpandable());
  EXPECT_EQ(Column(2)->ParentColumn(), group);
  EXPECT_EQ(Column(3)->ParentColumn(), group);
  EXPECT_EQ(Column(3)->Depth(), 1);
  EXPECT_EQ(group->GetExpandIndex(), 3);
  EXPECT_FALSE(group->GetShowing()) << "expanded by default, it gives its room to its children";
  group->SetExpanded(false);
  EXPECT_TRUE(group->GetShowing());
  EXPECT_FALSE(Column(2)->GetShowing());
  EXPECT_FALSE(Column(3)->GetShowing());
  EXPECT_EQ(grid->TitleOffset(), 1) << "only shown columns count for the title rows";
  group->SetExpanded(true);
  EXPECT_FALSE(group->GetShowing());
  EXPECT_TRUE(Column(2)->GetShowing());
  EXPECT_TRUE(Column(3)->GetShowing());
  EXPECT_EQ(grid->TitleOffset(), 2);
  EXPECT_EQ(grid->VisibleColumns().size(), 3u);
}

TEST_F(QuilDBGridColumnGroups, TheExpandedStartDefaultHasNoRoomBeforeTheGroupIsLaidOut) {
  OpenGroup();
  group->SetExpanded(false);
  EXPECT_EQ(grid->ColWidths(grid->DataToRawColumn(2)), -grid->GetColLineWidth());
}

TEST_F(QuilDBGridColumnGroups, ExpandingFiresOnColExpandAndKeepsTheCursorOnAShownColumn) {
  OpenGroup();
  CollapseUnderTheCursor();
  group->SetExpanded(true);
  EXPECT_EQ(expansions.count, 1);
  EXPECT_EQ(DesignerUpdates(), 1);
  EXPECT_TRUE(grid->SelectedColumn()->GetShowing());
  EXPECT_EQ(grid->SelectedIndex(), 2) << "expanding steps right into the group";
  grid->SetSelectedIndex(3);
  group->SetExpanded(false);
  EXPECT_EQ(grid->SelectedColumn(), group) << "collapsing steps left onto the group";
}

TEST_F(QuilDBGridColumnGroups, InsideALayoutTransactionTheLayoutPutsTheCursorOnAShownColumn) {
  OpenGroup();
  CollapseUnderTheCursor();
  grid->BeginLayout();
  group->SetExpanded(true);
  EXPECT_EQ(grid->SelectedIndex(), 1) << "the old layout is not worked on";
  grid->EndLayout();
  EXPECT_TRUE(grid->SelectedColumn()->GetShowing());
  EXPECT_EQ(expansions.count, 0) << "a change made with others is no user's expansion";
  EXPECT_EQ(DesignerUpdates(), 0);
}

TEST_F(QuilDBGridColumnGroups, GroupsNestAndEachLevelAddsATitleRow) {
  OpenGroup();
  Column(0)->SetExpandCols(1);
  EXPECT_EQ(Column(0)->ExpandCols(), 3) << "a group reaches to the end of its last child's group";
  EXPECT_EQ(Column(2)->ParentColumn(), group);
  EXPECT_EQ(group->ParentColumn(), Column(0));
  EXPECT_EQ(Column(3)->Depth(), 2);
  EXPECT_EQ(Column(0)->GetExpandIndex(), 3);
  EXPECT_EQ(Column(3)->GetDisplayName(), QStringLiteral("ID.Name.Amount"));
  EXPECT_EQ(grid->TitleOffset(), 3);
  EXPECT_EQ(grid->VisibleColumns(), (std::vector<TQuilColumn*>{Column(2), Column(3)}));
  group->SetExpanded(false);
  EXPECT_EQ(grid->TitleOffset(), 2);
  EXPECT_EQ(grid->VisibleColumns(), std::vector<TQuilColumn*>{group});
}

// Parents are found front to back, each from those before it: a column without a parent
// ends the search, as a group that reached past it would own it too.
TEST(QuilDBGridColumnParents, ATopLevelColumnEndsTheSearchForAParent) {
  TQuilDBGridColumns columns(nullptr);
  columns.Add()->SetExpandCols(2);
  columns.Add();
  columns.Add();
  EXPECT_EQ(columns.Items(1)->GetParentColumn(1), columns.Items(0));
  EXPECT_EQ(columns.Items(2)->GetParentColumn(2), nullptr) << "its neighbour has no parent yet";
  columns.UpdateParentColumns();
  EXPECT_EQ(columns.Items(2)->ParentColumn(), columns.Items(0));
  EXPECT_EQ(columns.Items(2)->Depth(), 1);
}

TEST_F(QuilDBGridColumnGroups, OnlyAGroupWithTheAutomaticStyleHasTheExpandButton) {
  OpenGroup();
  EXPECT_TRUE(group->HasExpandableButton());
  EXPECT_TRUE(group->HasExpandButton());
  EXPECT_FALSE(Column(0)->HasExpandableButton()) << "nothing to expand";
  group->SetExpandStyle(cesNone);
  EXPECT_FALSE(group->HasExpandButton());
  group->SetExpandStyle(cesDropDown);
  EXPECT_FALSE(group->HasExpandableButton());
  EXPECT_TRUE(group->HasDropDownButton());
}

TEST_F(QuilDBGridColumnGroups, HidingAParentHidesItsChildren) {
  OpenGroup();
  group->SetVisible(false);
  EXPECT_FALSE(Column(2)->GetVisible());
  EXPECT_TRUE(Column(2)->GetVisibility());
  EXPECT_EQ(group->GetExpandWidth(), 0);
}

TEST_F(QuilDBGridColumnGroups, ExpandWidthIsTheSumOfTheChildren) {
  OpenGroup();
  const int line = grid->GetColLineWidth();
  EXPECT_EQ(group->GetExpandWidth(), Column(2)->Width() + line + Column(3)->Width() + line);
  group->SetExpanded(false);
  EXPECT_EQ(group->GetExpandWidth(), group->Width() + line);
}

TEST_F(QuilDBGridColumnGroups, AGroupMovesWithItsChildren) {
  OpenGroup();
  group->SetExpanded(false);
  group->SetIndex(0);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Name", "City", "Amount", "ID"}));
  EXPECT_EQ(Column(0), group);
  Column(3)->SetIndex(0);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  group->SetIndex(3);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}))
      << "a move inside its own group changes nothing";
}

TEST_F(QuilDBGridColumnGroups, AGroupMovedRightEndsOnTheTarget) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Items(0)->SetExpandCols(1);
  grid->Columns()->Items(0)->SetIndex(3);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"City", "Amount", "ID", "Name"}));
}

TEST_F(QuilDBGridColumnGroups, AMovePastTheEndEndsAtTheLastColumn) {
  OpenGroup();
  Column(0)->SetIndex(99);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Name", "City", "Amount", "ID"}));
}

TEST_F(QuilDBGridColumnGroups, AtDesignTimeColumnsOfGroupsMoveOnlyInADesignUpdate) {
  OpenGroup();
  grid->SetDesigning(true);
  Column(3)->SetIndex(0);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  grid->Columns()->BeginDesignUpdate();
  Column(0)->SetIndex(3);
  grid->Columns()->EndDesignUpdate();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Name", "City", "Amount", "ID"}));
  grid->Columns()->EndDesignUpdate();
  EXPECT_EQ(grid->Columns()->DesignUpdateCount(), 0) << "never below zero";
}

TEST_F(QuilDBGridColumnGroups, ExpandColsIsLimitedToTheColumnsThatFollow) {
  OpenGroup();
  group->SetExpandCols(10);
  EXPECT_EQ(group->ExpandCols(), 2);
}

TEST_F(QuilDBGridColumnGroups, FrozenColumnsNeverCutAGroup) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  grid->Columns()->Add()->SetFieldName("ID");
  grid->Columns()->Items(0)->SetExpandCols(2);
  grid->SetFixedCols(2);
  EXPECT_EQ(grid->FixedCols(), 3);
}

// Only structured fields have columns for their children: a nested data set is edited
// apart, so its fields stay out of the grid.
TEST_F(QuilDBGridColumnGroups, StructuredFieldsOwnTheColumnsOfTheirChildrenAtEveryDepth) {
  form = new TForm(nullptr);
  auto* people = new dbtest::TWindowCheckedDataSet(form);
  auto add = [people](TField* field, const char* name, TObjectField* parent) {
    field->SetFieldName(name);
    if (parent) field->SetParentField(parent);
    else field->SetDataSet(people);
  };
  add(new TStringField(people), "Name", nullptr);
  auto* address = new TADTField(people);
  add(address, "Address", nullptr);
  add(new TStringField(people), "Street", address);
  auto* geo = new TADTField(people);
  add(geo, "Geo", address);
  add(new TStringField(people), "Lat", geo);
  auto* orders = new TDataSetField(people);
  add(orders, "Orders", nullptr);
  add(new TStringField(people), "Item", orders);
  BindTo(people);
  grid->Columns()->RebuildColumns();
  EXPECT_EQ(FieldNames(grid->Columns()),
            QStringList({"Name", "Address", "Address.Street", "Address.Geo", "Address.Geo.Lat", "Orders"}));
  TQuilColumn* group = Column(1);
  EXPECT_TRUE(group->GetExpandable());
  EXPECT_EQ(Column(2)->ParentColumn(), group);
  EXPECT_EQ(Column(3)->ParentColumn(), group);
  EXPECT_EQ(Column(4)->ParentColumn(), Column(3));
  EXPECT_EQ(Column(4)->Depth(), 2);
  EXPECT_EQ(Column(4)->GetDisplayName(), QStringLiteral("Address.Geo.Lat"));
  EXPECT_EQ(group->GetExpandIndex(), 4) << "the group reaches to its grandchildren";
  EXPECT_EQ(Column(0)->ParentColumn(), nullptr);
  EXPECT_EQ(Column(5)->ParentColumn(), nullptr);
}

// An automatic column moves among the columns of its own level: onto a child of a
// structured field it moves its field in front of the structured one.
TEST_F(QuilDBGridColumnGroups, AnAutomaticColumnMovesAmongItsOwnLevel) {
  form = new TForm(nullptr);
  auto* people = new dbtest::TWindowCheckedDataSet(form);
  people->FieldDefs()->Add("ID", ftInteger);
  people->FieldDefs()->Add("Name", ftString, 20);
  TFieldDef* address = people->FieldDefs()->Add("Address", ftADT);
  address->ChildDefs()->Add("Street", ftString, 20);
  address->ChildDefs()->Add("Town", ftString, 20);
  people->FieldDefs()->Add("Amount", ftFloat);
  people->CreateDataSet();
  BindTo(people);
  ASSERT_EQ(FieldNames(grid->Columns()),
            QStringList({"ID", "Name", "Address", "Address.Street", "Address.Town", "Amount"}));
  Column(5)->SetIndex(3);
  EXPECT_EQ(FieldNames(grid->Columns()),
            QStringList({"ID", "Name", "Amount", "Address", "Address.Street", "Address.Town"}));
  EXPECT_EQ(people->FieldByName("Amount")->Index(), 2);
}

}  // namespace
