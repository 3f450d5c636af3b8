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

TEST(QuilColumnAlone, TitleAssignTakesTheSourcesAssignedLooksOnlyAndRestoreUndoesAll) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumnTitle* source = columns.Add()->Title();
  source->SetColor(clRed);
  source->SetHeader("A|B");
  source->SetHeaderHint("first|second");
  source->SetHint("hint");
  source->SetImageIndex(3);
  source->SetMarker(tmAscend);
  source->SetMarkerIndex(4);
  source->SetButton(false);
  source->SetEllipsis(false);
  source->SetWordWrap(false);
  source->SetVAlignment(tvTopJustify);
  source->SetAutoToggle(false);
  source->SetAutoFilter(false);
  source->SwitchAutoFilters({fsFilterForm}, false);
  TQuilColumn* target = columns.Add();
  target->Title()->SetAlignment(taCenter);
  target->Title()->SetCaption("Own");
  target->Title()->Assign(source);
  TQuilColumnTitle* title = target->Title();
  EXPECT_EQ(target->AssignedValues(), (TQuilColumnValues{cvTitleAlignment, cvTitleCaption, cvTitleColor}));
  EXPECT_EQ(title->Alignment(), taCenter) << "the source's alignment is only its default";
  EXPECT_EQ(title->Caption(), QStringLiteral("Own"));
  EXPECT_EQ(title->Color(), clRed);
  EXPECT_EQ(title->GetHeaderHintRows(1), QStringLiteral("second"));
  EXPECT_EQ(title->GetHeaderHintRows(2), QString());
  EXPECT_EQ(title->Hint(), QStringLiteral("hint"));
  EXPECT_EQ(title->ImageIndex(), 3);
  EXPECT_EQ(title->Marker(), tmAscend);
  EXPECT_EQ(title->OrderIndex(), 2);
  EXPECT_FALSE(title->Button() || title->Ellipsis() || title->WordWrap() || title->AutoToggle() || title->AutoFilter());
  EXPECT_EQ(title->VAlignment(), tvTopJustify);
  EXPECT_EQ(title->AutoFilters(), TFilterStyles{fsFilterList});
  EXPECT_THROW(title->Assign(target), EConvertError) << "a column is no title";

  title->RestoreDefaults();
  EXPECT_TRUE(target->AssignedValues().Empty());
  EXPECT_EQ(title->Caption(), QString());
  EXPECT_EQ(title->Color(), clBtnFace);
  EXPECT_EQ(title->GetHeaderRowCount(), 0);
  EXPECT_EQ(title->HeaderHint(), QString());
  EXPECT_EQ(title->Hint(), QString());
  EXPECT_EQ(title->ImageIndex(), -1);
  EXPECT_EQ(title->Marker(), tmNone);
  EXPECT_EQ(title->MarkerIndex(), -1);
  EXPECT_TRUE(title->Button() && title->Ellipsis() && title->WordWrap() && title->AutoToggle() && title->AutoFilter());
  EXPECT_EQ(title->VAlignment(), tvCenter);
  EXPECT_EQ(title->AutoFilters(), (TFilterStyles{fsFilterList, fsFilterForm}));
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

TEST_F(QuilColumn, ATitleFollowsTheGridsFixedColorAndTitleFontUntilItsOwnAreSet) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumnTitle* title = ColumnOf("Name")->Title();
  grid->SetFixedColor(clAqua);
  EXPECT_EQ(title->Color(), clAqua);
  title->SetColor(clAqua);
  EXPECT_FALSE(title->IsColorStored()) << "assigned, but equal to its default";
  title->SetColor(clRed);
  grid->SetFixedColor(clYellow);
  EXPECT_EQ(title->Color(), clRed);
  EXPECT_TRUE(title->IsColorStored());

  grid->TitleFont()->SetSize(15);
  EXPECT_EQ(title->Font()->Size(), 15);
  EXPECT_FALSE(title->IsFontStored());
  grid->layoutSources.clear();
  title->Font()->SetSize(9);
  EXPECT_FALSE(grid->layoutSources.empty()) << "an own font lays the titles out";
  EXPECT_TRUE(ColumnOf("Name")->AssignedValues().Contains(cvTitleFont));
  grid->TitleFont()->SetSize(18);
  EXPECT_EQ(title->Font()->Size(), 9);
  EXPECT_TRUE(title->IsFontStored());
  EXPECT_EQ(ColumnOf("City")->Title()->Font()->Size(), 18);
}

TEST_F(QuilColumn, ATitlesLookRepaintsALeafAndLaysOutAGroupWhileBandsAlwaysLayOut) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  int step = 0;
  // Each call gives a new value, so that every setter acts.
  using TTitleSetter = std::function<void(TQuilColumnTitle*)>;
  const std::vector<TTitleSetter> looks{
      [](TQuilColumnTitle* t) { t->SetColor(t->Color() == clRed ? clBlue : clRed); },
      [](TQuilColumnTitle* t) { t->SetAlignment(t->Alignment() == taCenter ? taRightJustify : taCenter); },
      [&](TQuilColumnTitle* t) { t->SetCaption(QString::number(step)); },
      [](TQuilColumnTitle* t) { t->SetEllipsis(!t->Ellipsis()); },
      [](TQuilColumnTitle* t) { t->SetImageIndex(t->ImageIndex() + 1); },
      [](TQuilColumnTitle* t) { t->SetVAlignment(t->VAlignment() == tvTopJustify ? tvBottomJustify : tvTopJustify); },
      [](TQuilColumnTitle* t) { t->SetWordWrap(!t->WordWrap()); },
  };
  const std::vector<TTitleSetter> repaints{
      [](TQuilColumnTitle* t) { t->SetButton(!t->Button()); },
      [](TQuilColumnTitle* t) { t->SetAutoFilter(!t->AutoFilter()); },
      [](TQuilColumnTitle* t) { t->SetMarker(t->Marker() == tmAscend ? tmDescend : tmAscend); },
  };
  auto laysOut = [&](const TTitleSetter& set) {
    ++step;
    grid->layoutSources.clear();
    set(name->Title());
    return !grid->layoutSources.empty();
  };
  for (const auto& set : looks) EXPECT_FALSE(laysOut(set)) << "look setter " << step << " of a leaf";
  for (const auto& set : repaints) EXPECT_FALSE(laysOut(set));
  EXPECT_TRUE(laysOut([](TQuilColumnTitle* t) { t->SetHeader("Band"); }));
  name->SetExpandCols(2);
  ASSERT_TRUE(name->GetExpanded());
  for (const auto& set : looks) EXPECT_TRUE(laysOut(set)) << "look setter " << step << " of a group";
  for (const auto& set : repaints) EXPECT_FALSE(laysOut(set));
}

TEST_F(QuilColumn, ACaptionIsStoredOnlyWhenItDiffersFromTheFieldsName) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumnTitle* title = ColumnOf("Name")->Title();
  EXPECT_FALSE(title->IsCaptionStored());
  title->SetCaption("Name");
  EXPECT_TRUE(ColumnOf("Name")->AssignedValues().Contains(cvTitleCaption));
  EXPECT_FALSE(title->IsCaptionStored());
  title->SetCaption("Person");
  EXPECT_TRUE(title->IsCaptionStored());
  dataSet->FieldByName("City")->SetDisplayLabel("Town");
  EXPECT_EQ(ColumnOf("City")->Title()->Caption(), QStringLiteral("Town"));
  TQuilColumn* missing = grid->Columns()->Add();
  missing->SetFieldName("Missing");
  EXPECT_EQ(missing->Title()->Caption(), QStringLiteral("Missing")) << "no field: its name";
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
