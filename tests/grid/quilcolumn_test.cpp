// The column: values that follow a default until assigned, the field binding and the
// lookup kinds, check and expand boxes, the record number column, and restore/assign.
#include "GridTestKit.h"
#include "framework/controls/Menus.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/ImageList.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Strings.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

// --- Without a grid

TEST(QuilColumnAlone, FollowsTheBuiltInDefaultsWithoutAGrid) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  EXPECT_EQ(column->DefaultWidth(), 64);
  EXPECT_EQ(column->Width(), 64);
  EXPECT_EQ(column->Color(), clWindow);
  EXPECT_EQ(column->Alignment(), taLeftJustify);
  EXPECT_EQ(column->Title()->Color(), clBtnFace);
  EXPECT_EQ(column->CheckBoxValues(), STextTrue + ";" + STextFalse);
  EXPECT_EQ(column->ListOptions().ToInt(), 24637u);
  EXPECT_EQ(column->PickOptions(), (TQuilPickOptions{poSelectPickText, poAcceptPickList}));
  EXPECT_TRUE(column->AssignedValues().Empty());
  EXPECT_TRUE(column->Stored());
}

TEST(QuilColumnAlone, AValueEqualToItsDefaultStillCountsAsAssigned) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetColor(clWindow);
  column->SetAlignment(taLeftJustify);
  column->SetReadOnly(false);
  EXPECT_EQ(column->AssignedValues(), (TQuilColumnValues{cvColor, cvAlignment, cvReadOnly}));
  EXPECT_FALSE(column->IsColorStored()) << "stored only while it differs from the default";
  column->SetColor(clRed);
  EXPECT_TRUE(column->IsColorStored());
}

TEST(QuilColumnAlone, NegativeCountsAndMarginsReadBackAsZero) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetImageMargin(-5);
  EXPECT_EQ(column->ImageMargin(), 0);
  column->SetExpandCols(-2);
  EXPECT_EQ(column->ExpandCols(), 0);
}

TEST(QuilColumnAlone, ABoxKeepsOnlyTheAlignedImageDraws) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetImageDraw(idTileGrid);
  column->SetCheckBox(true);
  EXPECT_EQ(column->ImageDraw(), idCenter);
  column->SetImageDraw(idOpposite);
  EXPECT_EQ(column->ImageDraw(), idOpposite);
  column->SetImageDraw(idStretch);
  EXPECT_EQ(column->ImageDraw(), idCenter);
}

TEST(QuilColumnAlone, CheckBoxAndExpandBoxExcludeEachOther) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetExpandBoxTree(true);
  EXPECT_TRUE(column->ExpandBox());
  EXPECT_TRUE(column->Transparent());
  EXPECT_EQ(column->ImageMargin(), 20);
  column->SetCheckBox(true);
  EXPECT_FALSE(column->ExpandBox());
  EXPECT_FALSE(column->ExpandBoxTree());
  column->SetExpandBox(true);
  EXPECT_FALSE(column->CheckBox());
  column->SetExpandBoxTree(true);
  column->SetImageMargin(0);
  EXPECT_FALSE(column->ExpandBoxTree()) << "a margin of 0 leaves no room for the tree box";
  column->SetExpandBoxTree(true);
  column->SetExpandBox(false);
  EXPECT_FALSE(column->ExpandBoxTree());
}

TEST(QuilColumnAlone, EditorShowsOnlyOnPlainTextCells) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  EXPECT_TRUE(column->CanEditShow());
  column->SetAutoNumber(true);
  EXPECT_FALSE(column->CanEditShow());
  column->SetAutoNumber(false);
  column->SetCheckBox(true);
  EXPECT_FALSE(column->CanEditShow());
  EXPECT_TRUE(column->CanCellTrack());
  column->SetExpandBox(true);
  EXPECT_FALSE(column->CanEditShow()) << "an expand box fills the cell";
  column->SetImageMargin(16);
  EXPECT_TRUE(column->CanEditShow()) << "a box in the margin leaves the text editable";
  column->SetShowEdit(false);
  EXPECT_FALSE(column->CanEditShow());
}

TEST(QuilColumnAlone, CheckBoxValuesOfEmptyTextRestoreTheDefault) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetCheckBoxValues("Y;N");
  EXPECT_TRUE(column->IsCheckBoxValuesStored());
  column->SetCheckBoxValues("");
  EXPECT_EQ(column->CheckBoxValues(), TQuilColumn::DefaultCheckBoxValues());
  EXPECT_FALSE(column->IsCheckBoxValuesStored());
}

TEST(QuilColumnAlone, PickOptionsKeepTheirPairs) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SwitchPickOptions({poAutoLoadList}, true);
  EXPECT_FALSE(column->PickOptions().Contains(poSelectPickText)) << "a loaded list holds values only";
  column->SwitchPickOptions({poStoreItemIndex}, true);
  EXPECT_TRUE(column->PickOptions().Contains(poAcceptItemIndex));
}

TEST(QuilColumnAlone, AMenuTurnsTheAutomaticButtonIntoAMenuButtonAndBack) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  TPopupMenu menu(nullptr);
  column->SetDropDownMenu(&menu);
  EXPECT_EQ(column->ButtonStyle(), cbsDropDownMenu);
  column->SetDropDownMenu(nullptr);
  EXPECT_EQ(column->ButtonStyle(), cbsAuto);
  column->SetButtonStyle(cbsEllipsis);
  column->SetDropDownMenu(&menu);
  EXPECT_EQ(column->ButtonStyle(), cbsEllipsis) << "only the automatic style changes";
  column->SetDropDownMenu(nullptr);
  column->Title()->SetDropDownMenu(&menu);
  EXPECT_EQ(column->ExpandStyle(), cesDropDownMenu);
  column->Title()->SetDropDownMenu(nullptr);
  EXPECT_EQ(column->ExpandStyle(), cesAuto);
}

TEST(QuilColumnAlone, DisplayNameFallsBackToTheCaptionThenTheClass) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  EXPECT_EQ(column->GetDisplayName(), QStringLiteral("TQuilColumn"));
  column->Title()->SetCaption("A caption longer than twenty");
  EXPECT_EQ(column->GetDisplayName(), QStringLiteral("(A caption longer tha...)"));
  column->SetFieldName("Name");
  EXPECT_EQ(column->GetDisplayName(), QStringLiteral("Name"));
}

TEST(QuilColumnAlone, RestoreDefaultsClearsAssignedValuesAndTheTitle) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetFieldName("Name");
  column->SetColor(clRed);
  column->SetWidth(99);
  column->SetCheckBox(true);
  column->PickList()->Add("a");
  column->Title()->SetCaption("Caption");
  column->Title()->SetHeader("A|B");
  column->TotalValues()->Add();
  column->RestoreDefaults();
  EXPECT_TRUE(column->AssignedValues().Empty());
  EXPECT_EQ(column->Color(), clWindow);
  EXPECT_EQ(column->Width(), 64);
  EXPECT_FALSE(column->CheckBox());
  EXPECT_FALSE(column->IsPickListStored());
  EXPECT_EQ(column->Title()->Caption(), QStringLiteral("Name"));
  EXPECT_EQ(column->Title()->Header(), QString());
  EXPECT_EQ(column->TotalValues()->Count(), 0);
  EXPECT_EQ(column->FieldName(), QStringLiteral("Name")) << "the field stays";
}

TEST(QuilColumnAlone, AssignCopiesAssignedValuesOnlyAndTheRestAlways) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* source = columns.Add();
  source->SetFieldName("City");
  source->SetAlignment(taRightJustify);
  source->SetWidth(120);
  source->SetHint("hint");
  source->SetExpandCols(2);
  source->Title()->SetCaption("Town");
  source->PickList()->Add("Oslo");
  TQuilColumn* target = columns.Add();
  target->SetColor(clRed);
  target->Assign(source);
  EXPECT_EQ(target->FieldName(), QStringLiteral("City"));
  EXPECT_EQ(target->AssignedValues(), (TQuilColumnValues{cvAlignment, cvWidth, cvTitleCaption}));
  EXPECT_EQ(target->Color(), clWindow) << "the target's own color is restored away";
  EXPECT_EQ(target->GetTrueWidth(), 120) << "an expanded group shows no width of its own";
  EXPECT_EQ(target->Hint(), QStringLiteral("hint"));
  EXPECT_EQ(target->ExpandCols(), 2);
  EXPECT_EQ(target->Title()->Caption(), QStringLiteral("Town"));
  EXPECT_EQ(target->PickList()->Text(), source->PickList()->Text());
}

TEST(QuilColumnAlone, HeaderBandsCountTheirSeparators) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumnTitle* title = columns.Add()->Title();
  EXPECT_EQ(title->GetHeaderRowCount(), 0);
  title->SetHeader("a|b");
  EXPECT_EQ(title->GetHeaderRowCount(), 2);
  EXPECT_EQ(title->GetHeaderRows(1), QStringLiteral("b"));
  EXPECT_EQ(title->GetHeaderRows(2), QString());
  title->SetHeader("|");
  EXPECT_EQ(title->GetHeaderRowCount(), 2);
  EXPECT_EQ(title->GetHeaderRows(0), QString());
  title->SetMarkerIndex(5);
  EXPECT_EQ(title->OrderIndex(), 2);
}

// --- In a grid over the people table

class QuilColumn : public GridFixture {
protected:
  TQuilColumn* ColumnOf(const char* fieldName) { return grid->Columns()->Items(IndexOf(fieldName)); }
  int IndexOf(const char* fieldName) {
    for (int index = 0; index < grid->Columns()->Count(); ++index)
      if (grid->Columns()->Items(index)->FieldName() == QLatin1String(fieldName)) return index;
    return -1;
  }
};

TEST_F(QuilColumn, DefaultsFollowTheGridAndTheField) {
  Open(5);
  TQuilColumn* amount = ColumnOf("Amount");
  EXPECT_EQ(amount->Alignment(), taRightJustify) << "a number field aligns right";
  grid->SetColor(clYellow);
  EXPECT_EQ(amount->Color(), clYellow);
  dataSet->FieldByName("Amount")->SetReadOnly(true);
  EXPECT_TRUE(amount->ReadOnly());
  grid->SetReadOnly(true);
  EXPECT_TRUE(ColumnOf("Name")->ReadOnly());
  grid->Font()->SetSize(14);
  EXPECT_EQ(amount->Font()->Size(), 14);
  EXPECT_FALSE(amount->AssignedValues().Contains(cvFont)) << "following is no assignment";
  amount->Font()->SetSize(8);
  EXPECT_TRUE(amount->AssignedValues().Contains(cvFont));
  grid->Font()->SetSize(16);
  EXPECT_EQ(amount->Font()->Size(), 8);
}

TEST_F(QuilColumn, AnAutomaticColumnOfAnActiveGridWritesAlignmentAndCaptionToItsField) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  ASSERT_FALSE(name->Stored());
  name->SetAlignment(taCenter);
  EXPECT_EQ(dataSet->FieldByName("Name")->Alignment(), taCenter);
  EXPECT_TRUE(name->AssignedValues().Empty());
  EXPECT_EQ(name->Alignment(), taCenter);
  name->Title()->SetCaption("Person");
  EXPECT_EQ(dataSet->FieldByName("Name")->DisplayLabel(), QStringLiteral("Person"));
  EXPECT_TRUE(name->AssignedValues().Empty());
  EXPECT_EQ(ColumnOf("Name")->Title()->Caption(), QStringLiteral("Person"));
}

TEST_F(QuilColumn, AStoredColumnKeepsItsValuesToItself) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  ASSERT_TRUE(name->Stored());
  name->SetAlignment(taCenter);
  EXPECT_EQ(dataSet->FieldByName("Name")->Alignment(), taLeftJustify);
  EXPECT_EQ(name->AssignedValues(), TQuilColumnValues{cvAlignment});
}

TEST_F(QuilColumn, DefaultWidthMeasuresTheFieldAndTheTitle) {
  Open(5);
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(grid->Font());
  const int digit = canvas->TextWidth("0");
  TQuilColumn* city = ColumnOf("City");
  EXPECT_EQ(city->DefaultWidth(), 20 * digit + 4);
  grid->SetDefaultWidthMax(50);
  EXPECT_EQ(city->DefaultWidth(), 50);
  grid->SetDefaultWidthMax(-1);
  grid->SwitchOptions({dgTitleWidthOff}, false);
  dataSet->FieldByName("ID")->SetDisplayWidth(1);
  TQuilColumn* id = ColumnOf("ID");
  canvas->SetFont(grid->TitleFont());
  EXPECT_EQ(id->DefaultWidth(), std::max(digit + 4, canvas->TextWidth("ID") + 4 + 2));
}

TEST_F(QuilColumn, AColumnWithoutFieldIsAsWideAsTheGridDefault) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* empty = grid->Columns()->Add();
  EXPECT_EQ(empty->DefaultWidth(), grid->DefaultColWidth());
}

TEST_F(QuilColumn, AnAutomaticColumnsWidthGoesBackToItsFieldAsCharacters) {
  Open(5);
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(grid->Font());
  const int digit = canvas->TextWidth("0");
  ColumnOf("City")->SetWidth(8 * digit + 4);
  EXPECT_EQ(dataSet->FieldByName("City")->DisplayWidth(), 8);
}

TEST_F(QuilColumn, WidthHonoursItsLimitsAndRefusesWhatCannotShow) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  name->SetWidthMax(100);
  name->SetWidth(300);
  EXPECT_EQ(name->Width(), 100);
  name->SetWidthMin(40);
  name->SetWidth(10);
  EXPECT_EQ(name->Width(), 40);
  name->SetWidthMin(-1);
  name->SetWidth(-1);
  EXPECT_EQ(name->Width(), 40) << "with column lines a width must exceed -1";
}

TEST_F(QuilColumn, CheckBoxValueWithoutSemicolonHasAnEmptyFalseText) {
  Open(5);
  TQuilColumn* city = ColumnOf("City");
  city->SetCheckBoxValues("Berlin");
  EXPECT_TRUE(city->IsCheckBoxValue(true));
  EXPECT_FALSE(city->IsCheckBoxValue(false));
  dataSet->Next();  // Oslo
  EXPECT_FALSE(city->IsCheckBoxValue(true));
  EXPECT_FALSE(city->IsCheckBoxValue(false)) << "neither checked nor unchecked";
  dataSet->Next();
  dataSet->Next();  // no city
  EXPECT_TRUE(city->IsCheckBoxValue(false));
}

TEST_F(QuilColumn, ToggleCheckBoxValueWritesTheOtherText) {
  Open(5);
  TQuilColumn* city = ColumnOf("City");
  city->SetCheckBoxValues("Berlin;Oslo");
  city->ToggleCheckBoxValue();
  EXPECT_EQ(dataSet->FieldByName("City")->AsString(), QStringLiteral("Berlin")) << "needs CheckBox";
  city->SetCheckBox(true);
  city->ToggleCheckBoxValue();
  EXPECT_EQ(dataSet->FieldByName("City")->AsString(), QStringLiteral("Oslo"));
  city->ToggleCheckBoxValue();
  EXPECT_EQ(dataSet->FieldByName("City")->AsString(), QStringLiteral("Berlin"));
}

TEST_F(QuilColumn, ToggleExpandBoxMarksOnlyItsRecordExpandedWhileTheGridHandlesIt) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  name->SetExpandBox(true);
  int calls = 0;
  bool expandedInside = false;
  struct Probe {
    TQuilColumn* column;
    int* calls;
    bool* expandedInside;
    void OnCellExpand(TQuilColumn* expanded) {
      ++*calls;
      *expandedInside = expanded == column && column->IsExpandedBox();
    }
  } probe{name, &calls, &expandedInside};
  grid->OnCellExpand = TDBGridClickEvent(&probe, &Probe::OnCellExpand);
  name->ToggleExpandBox();
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(expandedInside);
  EXPECT_FALSE(name->IsExpandedBox());
  EXPECT_TRUE(name->IsExpandableBox());
}

TEST_F(QuilColumn, ImageIndexReadsBooleanTextsAndNumbers) {
  Open(5);
  TQuilColumn* id = ColumnOf("ID");
  EXPECT_EQ(id->GetImageIndex(), 1);
  TQuilColumn* name = ColumnOf("Name");
  EXPECT_EQ(name->GetImageIndex(), -1);
}

TEST_F(QuilColumn, ImagesGiveCopiesAndMakeTheColumnTransparentAtDesignTime) {
  Open(5);
  TImageList images(nullptr);
  images.SetWidth(4);
  images.SetHeight(4);
  TBitmap red(4, 4);
  red.Canvas()->Brush()->SetColor(clRed);
  red.Canvas()->FillRect(TRect(0, 0, 4, 4));
  images.Add(&red, nullptr);
  TQuilColumn* name = ColumnOf("Name");
  grid->SetDesigning(true);
  name->SetImages(&images);
  EXPECT_TRUE(name->Transparent()) << "a list without background color draws transparently";
  EXPECT_EQ(name->GetImage(1), nullptr);
  std::unique_ptr<TBitmap> copy = name->GetImage(0);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->Width(), 4);
  EXPECT_EQ(copy->ToImage().pixelColor(1, 1), QColor(Qt::red));
  name->SetTransparentColor(clRed);
  EXPECT_EQ(name->GetImage(0)->TransparentMode(), tmFixed);
}

TEST_F(QuilColumn, LookupKindFollowsKeyAndResultFields) {
  Open(5);
  dbtest::TWindowCheckedDataSet cities(nullptr);
  cities.FieldDefs()->Add("Code", ftString, 20);
  cities.FieldDefs()->Add("Title", ftString, 20);
  cities.CreateDataSet();
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* city = ColumnOf("City");
  EXPECT_EQ(city->GetLookupColumn(), lcNotDefined);
  city->SetLookupDataSet(&cities);
  city->SetLookupKeyField("Code");
  EXPECT_EQ(city->GetLookupColumn(), lcLookupKeyField) << "the key field is the column's own";
  EXPECT_EQ(city->LookupResultField(), QStringLiteral("Code"));
  city->SetLookupResultField("Title");
  EXPECT_EQ(city->GetLookupColumn(), lcLookupValueField);
  EXPECT_EQ(city->GetDisplayName(), QStringLiteral("Title[City]"));
  EXPECT_EQ(city->LookupListFields(), QStringLiteral("Title"));
  city->SetKeyField("Name");
  EXPECT_EQ(city->KeyField(), QStringLiteral("Name"));
  EXPECT_EQ(city->LookupKeyField(), QStringLiteral("Code"));
  EXPECT_EQ(city->LookupResultField(), QStringLiteral("Title"));
  EXPECT_EQ(city->LookupDataSet(), &cities);
  EXPECT_EQ(city->GetLookupColumn(), lcLookupResultField);
  city->SetKeyField("City");
  EXPECT_EQ(city->KeyField(), QStringLiteral("City"));
  EXPECT_FALSE(city->IsKeyFieldStored()) << "a key equal to the column's field is not kept";
  EXPECT_THROW(city->SetLookupDataSet(dataSet), EDatabaseError);
  city->SetLookupDataSet(nullptr);
  EXPECT_EQ(city->GetLookupColumn(), lcNotDefined);
}

TEST_F(QuilColumn, MultiSelectListsShowTheirFirstItemAndAnEllipsis) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  name->PickList()->Add("a");
  EXPECT_FALSE(name->GetMultiSelectList());
  EXPECT_EQ(name->FormatText(""), QString());
  name->SwitchListOptions({loMultiSelectList}, true);
  EXPECT_TRUE(name->GetMultiSelectList());
  EXPECT_EQ(name->FormatText(""), QStringLiteral("..."));
  EXPECT_EQ(name->FormatText("a,b"), QStringLiteral("a ..."));
  EXPECT_EQ(name->FormatText("a"), QStringLiteral("a"));
  EXPECT_FALSE(ColumnOf("ID")->GetMultiSelectList()) << "numbers hold no lists";
}

TEST_F(QuilColumn, AFieldFreedLeavesAnAutomaticColumnWithoutNameOrValues) {
  Open(5);
  TQuilColumn* city = ColumnOf("City");
  city->SetHint("kept until the field goes");
  city->SetField(nullptr);
  EXPECT_EQ(city->FieldName(), QString());
  EXPECT_EQ(city->Hint(), QString());
}

TEST_F(QuilColumn, TitleButtonsFollowTheExpandStyle) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  EXPECT_FALSE(name->HasExpandButton());
  name->SetExpandStyle(cesDropDown);
  EXPECT_TRUE(name->HasDropDownButton());
  EXPECT_TRUE(name->HasExpandButton());
  name->SetExpandStyle(cesFilterList);
  EXPECT_FALSE(name->HasFilterButton()) << "nothing filters while the grid cannot";
}

}  // namespace
