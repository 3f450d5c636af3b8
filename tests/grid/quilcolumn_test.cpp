// The column: values that follow a default until assigned, the field binding, the
// title buttons, and restore/assign.
#include "ColumnTestKit.h"
#include "framework/controls/Menus.h"
#include "framework/graphics/Font.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Strings.h"

using namespace quil;

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

TEST(QuilColumnAlone, OutsideAColumnCollectionAColumnMovesAsAnyItem) {
  TQuilColumn loose;
  loose.SetIndex(0);
  EXPECT_EQ(loose.Index(), -1);
  TCollection plain(TQuilColumn::StaticClass());
  TCollectionItem* first = plain.Add();
  TCollectionItem* second = plain.Add();
  static_cast<TQuilColumn*>(second)->SetIndex(0);
  EXPECT_EQ(plain.Items(0), second);
  EXPECT_EQ(plain.Items(1), first);
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

TEST(QuilColumnAlone, AFilterListOrAFilterTextFilters) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  EXPECT_FALSE(column->GetFiltered());
  column->FilterList()->Add("Oslo");
  EXPECT_TRUE(column->GetFiltered());
  column->FilterList()->Clear();
  column->SetFilterText("City = 'Oslo'");
  EXPECT_TRUE(column->GetFiltered());
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

class QuilColumn : public gridtest::ColumnFixture {};

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

TEST_F(QuilColumn, InputMethodsFollowTheGridUntilSet) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  grid->SetImeMode(imClose);
  grid->SetImeName("Kana");
  EXPECT_EQ(name->ImeMode(), imClose);
  EXPECT_EQ(name->ImeName(), QStringLiteral("Kana"));
  name->SetImeMode(imOpen);
  name->SetImeName("Hangul");
  grid->SetImeMode(imDisable);
  grid->SetImeName("Pinyin");
  EXPECT_EQ(name->ImeMode(), imOpen);
  EXPECT_EQ(name->ImeName(), QStringLiteral("Hangul"));
  EXPECT_TRUE(name->IsImeModeStored());
  EXPECT_TRUE(name->IsImeNameStored());
}

TEST_F(QuilColumn, ANewFontRefreshesTheOpenEditor) {
  Open(5);
  grid->SwitchOptions({dgEditing}, true);
  grid->SetSelectedIndex(1);
  grid->SetFocus();
  grid->ShowEditor();
  ASSERT_NE(grid->InplaceEditor(), nullptr);
  grid->InplaceEditor()->SetText("stale");
  TFont font;
  font.SetSize(14);
  ColumnOf("Name")->SetFont(&font);
  EXPECT_EQ(grid->InplaceEditor()->Text(), dataSet->FieldByName("Name")->Text());
}

TEST_F(QuilColumn, AnAutomaticColumnOfAnActiveGridWritesAlignmentReadOnlyAndCaptionToItsField) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  ASSERT_FALSE(name->Stored());
  name->SetAlignment(taCenter);
  EXPECT_EQ(dataSet->FieldByName("Name")->Alignment(), taCenter);
  EXPECT_TRUE(name->AssignedValues().Empty());
  EXPECT_EQ(name->Alignment(), taCenter);
  name->SetReadOnly(true);
  EXPECT_TRUE(dataSet->FieldByName("Name")->ReadOnly());
  EXPECT_TRUE(name->AssignedValues().Empty());
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

TEST_F(QuilColumn, RestoreDefaultsLetsGoOfMenusAndFiltersAndLaysOutAfterAnOwnFont) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  TPopupMenu menu(nullptr);
  name->Title()->SetDropDownMenu(&menu);
  name->Title()->SetPopupMenu(&menu);
  name->FilterList()->Add("Name001");
  name->Font()->SetSize(20);
  grid->layoutSources.clear();
  name->RestoreDefaults();
  EXPECT_FALSE(grid->layoutSources.empty()) << "the font was the column's own";
  EXPECT_EQ(name->Title()->DropDownMenu(), nullptr);
  EXPECT_EQ(name->Title()->PopupMenu(), nullptr);
  EXPECT_FALSE(name->HasDropDownButton());
  EXPECT_FALSE(name->GetFiltered());
  name->SetColor(clRed);
  grid->layoutSources.clear();
  name->RestoreDefaults();
  EXPECT_TRUE(grid->layoutSources.empty()) << "the column only repaints";
}

TEST_F(QuilColumn, MenusAndImagesThatGoAreLetGo) {
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  auto* menu = new TPopupMenu(nullptr);
  auto* dropDown = new TPopupMenu(nullptr);
  auto* images = new TImageList(nullptr);
  name->SetPopupMenu(menu);
  name->SetDropDownMenu(dropDown);
  name->SetImages(images);
  name->Title()->SetPopupMenu(menu);
  name->Title()->SetDropDownMenu(dropDown);
  delete menu;
  delete dropDown;
  delete images;
  EXPECT_EQ(name->PopupMenu(), nullptr);
  EXPECT_EQ(name->DropDownMenu(), nullptr);
  EXPECT_EQ(name->ButtonStyle(), cbsAuto);
  EXPECT_EQ(name->Images(), nullptr);
  EXPECT_EQ(name->Title()->PopupMenu(), nullptr);
  EXPECT_EQ(name->Title()->DropDownMenu(), nullptr);
  EXPECT_EQ(name->ExpandStyle(), cesAuto);
}

TEST_F(QuilColumn, AFieldFreedLeavesAnAutomaticColumnWithoutNameOrValues) {
  Open(5);
  TQuilColumn* city = ColumnOf("City");
  city->SetHint("kept until the field goes");
  city->SetField(nullptr);
  EXPECT_EQ(city->FieldName(), QString());
  EXPECT_EQ(city->Field(), nullptr);
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
