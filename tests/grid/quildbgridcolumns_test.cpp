// The column collection: default and customized columns, the automatic service
// columns, groups of expandable columns, and the column stream with its text form.
#include <QTemporaryDir>

#include "GridTestKit.h"
#include "framework/db/ObjectFields.h"
#include "framework/db/StringFields.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/StreamTextProbe.h"
#include "framework/rtl/Strings.h"
#include "grid/QuilColumnsWrapper.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

QStringList FieldNames(const TQuilDBGridColumns* columns) {
  QStringList names;
  for (TQuilColumn* column : *columns) names << column->FieldName();
  return names;
}

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
  TQuilDBGrid grid(nullptr);
  grid.Columns()->SetState(csCustomized);
  EXPECT_EQ(grid.Columns()->Count(), 0);
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

class QuilDBGridColumns : public GridFixture {};

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

TEST_F(QuilDBGridColumns, MovingAnAutomaticColumnMovesItsField) {
  Open(5);
  grid->Columns()->Items(3)->SetIndex(1);
  EXPECT_EQ(dataSet->FieldByName("Amount")->Index(), 1);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Amount", "Name", "City"}));
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

// --- Groups

class QuilDBGridColumnGroups : public GridFixture {
protected:
  // Customized columns ID, Name (owns City and Amount).
  void OpenGroup() {
    Open(5);
    grid->Columns()->SetState(csCustomized);
    group = grid->Columns()->Items(1);
    group->SetExpandCols(2);
  }
  TQuilColumn* Column(int index) { return grid->Columns()->Items(index); }
  void TearDown() override {
    if (grid) grid->Columns()->CheckConsistency();
    GridFixture::TearDown();
  }
  TQuilColumn* group = nullptr;
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
  group->SetExpanded(false);
  struct Counter {
    int count = 0;
    void OnColExpand(TQuilColumn*) { ++count; }
  } counter;
  grid->OnColExpand = TDBGridClickEvent(&counter, &Counter::OnColExpand);
  grid->SetSelectedIndex(1);
  group->SetExpanded(true);
  EXPECT_EQ(counter.count, 1);
  EXPECT_TRUE(grid->SelectedColumn()->GetShowing());
  EXPECT_EQ(grid->SelectedIndex(), 2) << "expanding steps right into the group";
  grid->SetSelectedIndex(3);
  group->SetExpanded(false);
  EXPECT_EQ(grid->SelectedColumn(), group) << "collapsing steps left onto the group";
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

TEST_F(QuilDBGridColumnGroups, ObjectFieldsOwnTheColumnsOfTheirChildren) {
  form = new TForm(nullptr);
  auto* people = new dbtest::TWindowCheckedDataSet(form);
  auto* name = new TStringField(people);
  name->SetFieldName("Name");
  name->SetDataSet(people);
  auto* address = new TADTField(people);
  address->SetFieldName("Address");
  address->SetDataSet(people);
  auto* street = new TStringField(people);
  street->SetFieldName("Street");
  street->SetParentField(address);
  auto* town = new TStringField(people);
  town->SetFieldName("Town");
  town->SetParentField(address);
  source = new TDataSource(form);
  source->SetDataSet(people);
  grid = new gridtest::TProbeGrid(form);
  grid->SetDataSource(source);
  grid->Columns()->RebuildColumns();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Name", "Address", "Address.Street", "Address.Town"}));
  TQuilColumn* group = grid->Columns()->Items(1);
  EXPECT_TRUE(group->GetExpandable());
  EXPECT_EQ(grid->Columns()->Items(3)->ParentColumn(), group);
  EXPECT_EQ(grid->Columns()->Items(3)->Depth(), 1);
  EXPECT_EQ(grid->Columns()->Items(3)->GetDisplayName(), QStringLiteral("Address.Town"));
  EXPECT_EQ(group->GetExpandIndex(), 3);
  EXPECT_EQ(grid->Columns()->Items(0)->ParentColumn(), nullptr);
}

// --- The column stream

class QuilDBGridColumnStream : public GridFixture {
protected:
  // Customized columns with some values set away from their defaults.
  void Customize() {
    Open(5);
    grid->Columns()->SetState(csCustomized);
    TQuilColumn* name = grid->Columns()->Items(1);
    name->SetWidth(120);
    name->SetColor(clYellow);
    name->SetCheckBoxValues("Y;N");
    name->SetDelimiterChar(';');
    name->Title()->SetCaption("Person");
    name->Title()->SetHeader("Who|");
    name->PickList()->Add("Anna");
    name->PickList()->Add("Bo");
    name->SetListOptions({loAutoComplete});
    name->Font()->SetStyle({fsBold});
    TQuilColumn* city = grid->Columns()->Items(2);
    city->SetVisible(false);
    city->SetExpandCols(1);
    city->SetExpanded(false);
  }
};

TEST_F(QuilDBGridColumnStream, ARoundTripGivesAnEqualCollection) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  gridtest::TProbeGrid other(form);
  other.SetDataSource(source);
  stream.Seek(0, soBeginning);
  other.Columns()->LoadFromStream(stream);
  EXPECT_TRUE(other.Columns()->Equals(grid->Columns()));
  TQuilColumn* name = other.Columns()->Items(1);
  EXPECT_EQ(name->Width(), 120);
  EXPECT_EQ(name->Color(), clYellow);
  EXPECT_EQ(name->CheckBoxValues(), QStringLiteral("Y;N"));
  EXPECT_EQ(name->DelimiterChar(), QChar(';'));
  EXPECT_EQ(name->Title()->Caption(), QStringLiteral("Person"));
  EXPECT_EQ(name->Title()->Header(), QStringLiteral("Who|"));
  EXPECT_EQ(name->PickList()->Count(), 2);
  EXPECT_EQ(name->ListOptions(), TQuilListOptions{loAutoComplete});
  EXPECT_TRUE(name->Font()->Style().Contains(fsBold));
  EXPECT_TRUE(name->AssignedValues().Contains(cvFont));
  TQuilColumn* city = other.Columns()->Items(2);
  EXPECT_FALSE(city->GetVisibility());
  EXPECT_FALSE(city->Expanded());
  EXPECT_EQ(city->ExpandCols(), 1);
  EXPECT_TRUE(other.StreamingState().Empty());
  EXPECT_TRUE(grid->StreamingState().Empty());
}

TEST_F(QuilDBGridColumnStream, TheTextFormShowsOnlyWhatDiffersFromTheDefaults) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  const QString text = test::ObjectText(stream);
  EXPECT_TRUE(text.startsWith("object TQuilColumnsWrapper\n")) << text.toStdString();
  const QString expected = QStringLiteral(
      "object TQuilColumnsWrapper\n"
      "  Columns = <\n"
      "    item\n"
      "      FieldName = 'ID'\n"
      "    end\n"
      "    item\n"
      "      CheckBoxValues = 'Y;N'\n"
      "      DelimiterChar = ';'\n"
      "      Color = clYellow\n"
      "      FieldName = 'Name'\n"
      "      Font.Charset = DEFAULT_CHARSET\n"
      "      Font.Color = clWindowText\n"
      "      Font.Height = %1\n"
      "      Font.Name = '%2'\n"
      "      Font.Style = [fsBold]\n"
      "      ListOptions = [loAutoComplete]\n"
      "      PickList.Strings = (\n"
      "        'Anna'\n"
      "        'Bo')\n"
      "      Title.Caption = 'Person'\n"
      "      Title.Header = 'Who|'\n"
      "      Width = 120\n"
      "    end\n"
      "    item\n"
      "      ExpandCols = 1\n"
      "      Expanded = False\n"
      "      FieldName = 'City'\n"
      "      Visible = False\n"
      "    end\n"
      "    item\n"
      "      FieldName = 'Amount'\n"
      "    end>\n"
      "end\n")
      .arg(grid->Font()->Height())
      .arg(grid->Font()->Name());
  EXPECT_EQ(text, expected);
}

TEST_F(QuilDBGridColumnStream, TheStreamIsTheFrameworksComponentFormat) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  TQuilColumnsWrapper wrapper(nullptr);
  TQuilDBGridColumns columns(nullptr);
  wrapper.Attach(&columns);
  stream.Seek(0, soBeginning);
  stream.ReadComponent(&wrapper);
  EXPECT_EQ(FieldNames(&columns), QStringList({"ID", "Name", "City", "Amount"}));
  // The same bytes as a plain component write of a wrapper while the grid streams: its
  // hidden group writes the flags as set, not as inherited from the parent.
  TMemoryStream again;
  TQuilColumnsWrapper writer(nullptr);
  writer.Attach(grid->Columns());
  grid->SetStreamingState({gsWriting});
  again.WriteComponent(&writer);
  grid->SetStreamingState({});
  EXPECT_EQ(QByteArray(static_cast<const char*>(again.Memory()), qsizetype(again.Size())),
            QByteArray(static_cast<const char*>(stream.Memory()), qsizetype(stream.Size())));
}

TEST_F(QuilDBGridColumnStream, AFileKeepsTheColumns) {
  Customize();
  QTemporaryDir dir;
  const QString file = dir.filePath("columns.bin");
  grid->Columns()->SaveToFile(file);
  grid->Columns()->RestoreDefaults();
  EXPECT_EQ(grid->Columns()->Items(1)->Color(), grid->Color());
  grid->Columns()->LoadFromFile(file);
  EXPECT_EQ(grid->Columns()->Items(1)->Color(), clYellow);
  EXPECT_THROW(grid->Columns()->LoadFromFile(dir.filePath("missing.bin")), Exception);
}

TEST_F(QuilDBGridColumnStream, ADamagedStreamLeavesTheColumnsAndTheStateAlone) {
  Customize();
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  TMemoryStream damaged;
  damaged.WriteBuffer(stream.Memory(), stream.Size() / 2);
  damaged.Seek(0, soBeginning);
  EXPECT_THROW(grid->Columns()->LoadFromStream(damaged), Exception);
  EXPECT_EQ(grid->Columns()->Count(), 4);
  EXPECT_EQ(grid->Columns()->Items(1)->Width(), 120);
  EXPECT_TRUE(grid->StreamingState().Empty());
}

TEST_F(QuilDBGridColumnStream, AnAssignedValueEqualToItsDefaultIsNotWritten) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = grid->Columns()->Items(1);
  name->SetColor(grid->Color());
  name->SetAlignment(taLeftJustify);
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  const QString text = test::ObjectText(stream);
  EXPECT_FALSE(text.contains("Color")) << text.toStdString();
  EXPECT_FALSE(text.contains("Alignment"));
}

TEST_F(QuilDBGridColumnStream, AWidthOf64IsWrittenEvenWhenItIsTheDefault) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* empty = grid->Columns()->Add();
  grid->SetDefaultColWidth(64);
  empty->SetWidth(64);
  EXPECT_FALSE(empty->AssignedValues().Contains(cvWidth)) << "the default width assigns nothing";
  empty->SetWidth(100);
  empty->SetWidth(64);
  TMemoryStream stream;
  grid->Columns()->SaveToStream(stream);
  EXPECT_TRUE(test::ObjectText(stream).contains("Width = 64"));
}

}  // namespace
