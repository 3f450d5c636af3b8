// The lists a column's value is picked from: pick options and multi-select lists.
#include "ColumnTestKit.h"
#include "framework/rtl/Strings.h"

using namespace quil;

namespace {

TEST(QuilColumnAlone, PickOptionsKeepTheirPairs) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SwitchPickOptions({poAutoLoadList}, true);
  EXPECT_FALSE(column->PickOptions().Contains(poSelectPickText)) << "a loaded list holds values only";
  column->SwitchPickOptions({poStoreItemIndex}, true);
  EXPECT_TRUE(column->PickOptions().Contains(poAcceptItemIndex));
}

TEST(QuilColumnAlone, PickTextServesOnlyWhileItMayBeSelected) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  EXPECT_FALSE(column->GetPickTextActive());
  column->PickText()->Add("Oslo");
  EXPECT_TRUE(column->GetPickTextActive());
  column->SwitchPickOptions({poSelectPickText}, false);
  EXPECT_FALSE(column->GetPickTextActive());
}

TEST(QuilColumnAlone, TheCalendarServesDatesAndTimes) {
  dbtest::TWindowCheckedDataSet times(nullptr);
  const std::pair<const char*, TFieldType> kinds[] = {
      {"Day", ftDate}, {"Moment", ftDateTime}, {"Stamp", ftTimeStamp}, {"Hour", ftTime}, {"Text", ftString}};
  for (auto [name, type] : kinds) times.FieldDefs()->Add(name, type);
  times.CreateDataSet();
  TDataSource source(nullptr);
  source.SetDataSet(&times);
  TQuilDBGrid grid(nullptr);
  grid.SetDataSource(&source);
  grid.Columns()->SetState(csCustomized);
  QStringList calendars;
  for (TQuilColumn* column : *grid.Columns())
    if (column->GetCalendarActive()) calendars << column->FieldName();
  EXPECT_EQ(calendars, QStringList({"Day", "Moment", "Stamp"}));
}

// A descendant that decides for itself which cells hold a multi-select list.
class TAlwaysListColumn : public TQuilColumn {
public:
  bool GetMultiSelectList() const override { return true; }
};

TEST(QuilColumnAlone, ADescendantDecidesWhatIsAMultiSelectList) {
  TAlwaysListColumn column;
  EXPECT_TRUE(column.MultiSelectList());
  EXPECT_EQ(column.FormatText("a,b"), QStringLiteral("a ..."));
}

class QuilColumnLists : public gridtest::ColumnFixture {};

TEST_F(QuilColumnLists, MultiSelectListsShowTheirFirstItemAndAnEllipsis) {
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
  name->SetDelimiterLine(true);
  EXPECT_EQ(name->FormatText("a\r\nb"), QStringLiteral("a ..."));
  EXPECT_EQ(name->FormatText("a\nb,c"), QStringLiteral("a\nb,c")) << "only a whole line break divides the items";
  EXPECT_FALSE(ColumnOf("ID")->GetMultiSelectList()) << "numbers hold no lists";
}

// --- Which list settings repaint the column

struct RepaintCase {
  const char* name;
  bool multiSelect;  // the column holds a multi-select list before the change
  void (*change)(TQuilColumn* column);
  bool repaints;
};

class QuilColumnListRepaint : public gridtest::ColumnFixture, public ::testing::WithParamInterface<RepaintCase> {};

// The delimiter and the ellipsis show only in the cells of a multi-select list.
TEST_P(QuilColumnListRepaint, OnlyWhatTheCellsShow) {
  const RepaintCase& row = GetParam();
  Open(5);
  TQuilColumn* name = ColumnOf("Name");
  name->PickList()->Add("a");
  name->SwitchListOptions({loMultiSelectList}, row.multiSelect);
  Settle();
  row.change(name);
  Paint();
  EXPECT_EQ(grid->DrawnCols().count(grid->DataToRawColumn(name->Index())) == 1, row.repaints);
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuilColumnListRepaint,
    ::testing::Values(
        RepaintCase{"DelimiterCharOfAList", true, [](TQuilColumn* c) { c->SetDelimiterChar(';'); }, true},
        RepaintCase{"DelimiterCharOfText", false, [](TQuilColumn* c) { c->SetDelimiterChar(';'); }, false},
        RepaintCase{"DelimiterLineOfAList", true, [](TQuilColumn* c) { c->SetDelimiterLine(true); }, true},
        RepaintCase{"DelimiterLineOfText", false, [](TQuilColumn* c) { c->SetDelimiterLine(true); }, false},
        RepaintCase{"MultiSelectTextOfAList", true, [](TQuilColumn* c) { c->SetMultiSelectText(mstDefault); }, true},
        RepaintCase{"MultiSelectTextOfText", false, [](TQuilColumn* c) { c->SetMultiSelectText(mstDefault); }, false},
        RepaintCase{"ListOptionsKeepingAList", true, [](TQuilColumn* c) { c->SwitchListOptions({loShowToday}, false); },
                    false},
        RepaintCase{"ListOptionsMakingAList", false,
                    [](TQuilColumn* c) { c->SwitchListOptions({loMultiSelectList}, true); }, true},
        RepaintCase{"ListOptionsEndingAList", true,
                    [](TQuilColumn* c) { c->SwitchListOptions({loMultiSelectList}, false); }, true}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
