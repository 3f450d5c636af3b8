// How a change of the columns reaches the grid: a column repaints itself or lays the
// grid out, nothing reaches a loading grid, and a copy lays out once.
#include "ColumnTestKit.h"
#include "framework/controls/Menus.h"
#include "framework/rtl/Strings.h"

using namespace quil;
using gridtest::FieldNames;

namespace {

// A grid that counts the layouts that run, not only the ones asked for.
class TLayoutCountingGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  int layouts = 0;

protected:
  void SetColumnAttributes() override {
    ++layouts;
    TProbeGrid::SetColumnAttributes();
  }
};

class QuilDBGridColumnUpdate : public gridtest::ColumnFixture {
protected:
  // Customized columns, laid out and painted.
  void OpenCustomized() {
    Open<TLayoutCountingGrid>(5);
    grid->Columns()->SetState(csCustomized);
    Settle();
    grid->layoutSources.clear();
  }
  TQuilColumn* Column(int index) { return grid->Columns()->Items(index); }
  int Layouts() const { return static_cast<TLayoutCountingGrid*>(grid)->layouts; }
};

struct ChangeCase {
  const char* name;
  void (*change)(TQuilColumn* column);
  bool laysOut;
};

class QuilDBGridColumnChange : public QuilDBGridColumnUpdate, public ::testing::WithParamInterface<ChangeCase> {};

// What only a column's cells show repaints that column; what changes the columns or
// the rows lays the grid out.
TEST_P(QuilDBGridColumnChange, RepaintsTheColumnAloneOrLaysOut) {
  OpenCustomized();
  GetParam().change(Column(1));
  Paint();
  EXPECT_EQ(!grid->layoutSources.empty(), GetParam().laysOut);
  if (!GetParam().laysOut) {
    EXPECT_EQ(grid->DrawnCols(), std::set<int>{grid->DataToRawColumn(1)});
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuilDBGridColumnChange,
    ::testing::Values(
        ChangeCase{"Color", [](TQuilColumn* c) { c->SetColor(clRed); }, false},
        ChangeCase{"TitleCaption", [](TQuilColumn* c) { c->Title()->SetCaption("Who"); }, false},
        ChangeCase{"PopupMenu", [](TQuilColumn* c) { c->SetPopupMenu(new TPopupMenu(c->Grid())); }, false},
        ChangeCase{"Visible", [](TQuilColumn* c) { c->SetVisible(false); }, true},
        ChangeCase{"ExpandCols", [](TQuilColumn* c) { c->SetExpandCols(1); }, true},
        ChangeCase{"ExpandStyle", [](TQuilColumn* c) { c->SetExpandStyle(cesNone); }, true},
        ChangeCase{"CheckBox", [](TQuilColumn* c) { c->SetCheckBox(true); }, true},
        ChangeCase{"AutoNumber", [](TQuilColumn* c) { c->SetAutoNumber(true); }, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(QuilDBGridColumnUpdate, AWidthReachesTheBaseGridWithoutALayout) {
  OpenCustomized();
  Column(1)->SetWidth(150);
  EXPECT_EQ(grid->ColWidths(grid->DataToRawColumn(1)), 150);
  EXPECT_TRUE(grid->layoutSources.empty());
}

TEST_F(QuilDBGridColumnUpdate, NothingReachesALoadingGridUntilItHasLoaded) {
  OpenCustomized();
  grid->Loading();
  Column(1)->SetColor(clRed);
  Column(2)->SetVisible(false);
  Paint();
  EXPECT_TRUE(grid->layoutSources.empty());
  EXPECT_EQ(grid->DrawnCount(), 0);
  static_cast<TComponent*>(grid)->Loaded();
  EXPECT_FALSE(grid->layoutSources.empty());
  EXPECT_EQ(grid->ColWidths(grid->DataToRawColumn(2)), -grid->GetColLineWidth());
}

// --- Copies

TEST_F(QuilDBGridColumnUpdate, AColumnIsCopiedInOneLayout) {
  OpenCustomized();
  TQuilDBGridColumns others(nullptr);
  TQuilColumn* source = others.Add();
  source->SetFieldName("City");
  source->SetExpandCols(1);
  source->SetCheckBox(true);
  source->SetVisible(false);
  const int layoutsBefore = Layouts();
  grid->Columns()->SetColumn(1, source);
  EXPECT_EQ(Layouts(), layoutsBefore + 1);
  EXPECT_EQ(Column(1)->FieldName(), QStringLiteral("City"));
  EXPECT_TRUE(Column(1)->CheckBox());
  EXPECT_FALSE(Column(1)->GetVisibility());
}

TEST_F(QuilDBGridColumnUpdate, OnlyACollectionIsCopiedAsColumns) {
  OpenCustomized();
  TStringList names;
  names.Add("City");
  EXPECT_THROW(grid->Columns()->Assign(&names), EConvertError);
  Paint();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  EXPECT_EQ(grid->DrawnCount(), 0) << "no layout ran";
  EXPECT_EQ(grid->LayoutLock(), 0);
}

// FIXME: once column sizing stretches, a test shows that a collection copied into a
// grid in StretchMode stretches once, after the copy.

}  // namespace
