// What a column's cells show beside text: check boxes, expand boxes and images.
#include "ColumnTestKit.h"
#include "framework/controls/Application.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/ScopeExit.h"

using namespace quil;

namespace {

// --- Without a grid

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

TEST(QuilColumnAlone, TheTreeBoxIsAnExpandBoxInAMarginOfItsOwn) {
  TQuilDBGridColumns columns(nullptr);
  TQuilColumn* column = columns.Add();
  column->SetExpandBox(true);
  column->SetTransparent(false);
  column->SetImageDraw(idOpposite);
  column->SetExpandBoxTree(true);
  EXPECT_TRUE(column->Transparent()) << "also over an expand box that was on";
  EXPECT_EQ(column->ImageDraw(), idOpposite);
  EXPECT_EQ(column->ImageMargin(), 20);
  column->SetImageMargin(30);
  column->SetExpandBoxTree(false);
  EXPECT_EQ(column->ImageMargin(), 0) << "the margin was the tree box's";
  EXPECT_FALSE(column->ExpandBox());
  column->SetImageMargin(12);
  column->SetExpandBoxTree(true);
  EXPECT_EQ(column->ImageMargin(), 12) << "a margin that is there is kept";
}

TEST(QuilColumnAlone, TheTreeBoxsMarginFollowsThePixelsPerInch) {
  Screen->SetPixelsPerInchOverride(144);
  TScopeExit restore([] { Screen->SetPixelsPerInchOverride(0); });
  TQuilDBGrid grid(nullptr);
  TQuilColumn* column = grid.Columns()->Add();
  column->SetExpandBoxTree(true);
  EXPECT_EQ(column->ImageMargin(), 30);
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

// --- In a grid over the people table

class QuilColumnBoxes : public gridtest::ColumnFixture {};

TEST_F(QuilColumnBoxes, CheckBoxValueWithoutSemicolonHasAnEmptyFalseText) {
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

TEST_F(QuilColumnBoxes, ToggleCheckBoxValueWritesTheOtherText) {
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

TEST_F(QuilColumnBoxes, ToggleExpandBoxMarksOnlyItsRecordExpandedWhileTheGridHandlesIt) {
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

TEST_F(QuilColumnBoxes, ImageIndexReadsBooleanTextsAndNumbers) {
  Open(5);
  TQuilColumn* id = ColumnOf("ID");
  EXPECT_EQ(id->GetImageIndex(), 1);
  TQuilColumn* name = ColumnOf("Name");
  EXPECT_EQ(name->GetImageIndex(), -1);
}

TEST_F(QuilColumnBoxes, ImagesGiveCopiesAndMakeTheColumnTransparentAtDesignTime) {
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

}  // namespace
