// The column's width: measured from the field and the title, kept on the field for an
// automatic column, limited and refused.
#include "ColumnTestKit.h"
#include "framework/graphics/Canvas.h"

using namespace quil;

namespace {

class QuilColumnWidth : public gridtest::ColumnFixture {};

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
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(grid->Font());
  const int digit = canvas->TextWidth("0");
  ColumnOf("City")->SetWidth(8 * digit + 4);
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

}  // namespace
