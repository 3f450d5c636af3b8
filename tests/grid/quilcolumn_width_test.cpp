// The column's width: measured from the field and the title, kept on the field for an
// automatic column, limited and refused.
#include <functional>

#include "ColumnTestKit.h"
#include "framework/graphics/Canvas.h"

using namespace quil;

namespace {

TEST(QuilColumnWidthAlone, AHiddenColumnWithoutAGridTakesNoRoom) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetVisible(false);
  EXPECT_EQ(column->Width(), -1);
}

TEST(QuilColumnWidthAlone, WithoutADataSetAColumnIsAsWideAsTheGridDefault) {
  TQuilDBGrid grid(nullptr);
  grid.SetDefaultColWidth(70);
  TQuilColumn* column = grid.Columns()->Add();
  column->SetFieldName("Name");
  EXPECT_EQ(column->DefaultWidth(), 70);
}

// A grid that lets a test act while a layout that the data set asked for runs.
class TDataSetLayoutGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  std::function<void()> duringDataSetLayout;

protected:
  void LayoutChanged() override {
    if (LayoutFromDataSet() && duringDataSetLayout) std::exchange(duringDataSetLayout, nullptr)();
    TProbeGrid::LayoutChanged();
  }
};

class QuilColumnWidth : public gridtest::ColumnFixture {
protected:
  int DigitWidth() {
    TCanvas* canvas = grid->Canvas();
    canvas->SetFont(grid->Font());
    return canvas->TextWidth("0");
  }
};

TEST_F(QuilColumnWidth, DefaultWidthMeasuresTheFieldAndTheTitle) {
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

TEST_F(QuilColumnWidth, AColumnWithoutFieldIsAsWideAsTheGridDefault) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* empty = grid->Columns()->Add();
  EXPECT_EQ(empty->DefaultWidth(), grid->DefaultColWidth());
}

TEST_F(QuilColumnWidth, AnAutomaticColumnsWidthGoesBackToItsFieldAsCharacters) {
  Open(5);
  ColumnOf("City")->SetWidth(8 * DigitWidth() + 4);
  EXPECT_EQ(dataSet->FieldByName("City")->DisplayWidth(), 8);
}

TEST_F(QuilColumnWidth, WidthHonoursItsLimitsAndRefusesWhatCannotShow) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  name->SetWidthMax(100);
  name->SetWidthMax(-5);
  EXPECT_EQ(name->WidthMax(), 100) << "a value below the range is ignored";
  name->SetWidth(300);
  EXPECT_EQ(name->Width(), 100);
  name->SetWidthMin(40);
  name->SetWidth(10);
  EXPECT_EQ(name->Width(), 40);
  name->SetWidthMin(-1);
  name->SetWidth(-1);
  EXPECT_EQ(name->Width(), 40) << "with column lines a width must exceed -1";
}

// The data set's layout takes an automatic column's width from its field; the column
// keeps none of its own that would outlive the field's.
TEST_F(QuilColumnWidth, AnAutomaticColumnTakesNoWidthWhileTheDataSetLaysOut) {
  Open<TDataSetLayoutGrid>(5);
  const int width = 8 * DigitWidth() + 5;
  TQuilColumn* city = ColumnOf("City");
  static_cast<TDataSetLayoutGrid*>(grid)->duringDataSetLayout = [city, width] { city->SetWidth(width); };
  dataSet->FieldByName("ID")->SetDisplayLabel("Key");
  ASSERT_FALSE(static_cast<TDataSetLayoutGrid*>(grid)->duringDataSetLayout) << "no layout from the data set ran";
  EXPECT_EQ(dataSet->FieldByName("City")->DisplayWidth(), 8);
  EXPECT_FALSE(city->AssignedValues().Contains(cvWidth));
  city->SetWidth(width);
  EXPECT_TRUE(city->AssignedValues().Contains(cvWidth)) << "the grid's own change";
  EXPECT_EQ(city->Width(), width);
}

TEST_F(QuilColumnWidth, ReadingAssignsEvenTheDefaultWidth) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* name = ColumnOf("Name");
  name->SetWidth(name->DefaultWidth());
  EXPECT_FALSE(name->AssignedValues().Contains(cvWidth));
  grid->SetStreamingState({gsReading});
  name->SetWidth(name->DefaultWidth());
  grid->SetStreamingState({});
  EXPECT_TRUE(name->AssignedValues().Contains(cvWidth)) << "what the stream holds was set";
}

struct LineCase {
  bool colLines;
  int width;
  bool taken;
};

class QuilColumnWidthLines : public gridtest::ColumnFixture, public ::testing::WithParamInterface<LineCase> {};

// With column lines a width of 0 still shows the line; without them it shows nothing.
TEST_P(QuilColumnWidthLines, TakesOnlyAWidthThatShows) {
  Open(5);
  grid->Columns()->SetState(csCustomized);
  grid->SwitchOptions({dgColLines}, GetParam().colLines);
  TQuilColumn* name = ColumnOf("Name");
  name->SetWidth(40);
  name->SetWidth(GetParam().width);
  EXPECT_EQ(name->Width(), GetParam().taken ? GetParam().width : 40);
}

INSTANTIATE_TEST_SUITE_P(Table, QuilColumnWidthLines,
                         ::testing::Values(LineCase{true, 0, true}, LineCase{true, -1, false},
                                           LineCase{false, 1, true}, LineCase{false, 0, false}),
                         [](const auto& info) {
                           return std::string(info.param.colLines ? "Lines" : "NoLines") +
                                  (info.param.width < 0 ? "Minus" : "") + std::to_string(std::abs(info.param.width));
                         });

}  // namespace
