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

class QuilColumnBoxes : public gridtest::ColumnFixture {
protected:
  // Adds a 4 x 4 image, red on its left half and masked out on its right.
  static void AddHalfRed(TImageList& images) {
    images.SetWidth(4);
    images.SetHeight(4);
    TBitmap halfRed(4, 4);
    halfRed.Canvas()->Brush()->SetColor(clWhite);
    halfRed.Canvas()->FillRect(TRect(0, 0, 4, 4));
    halfRed.Canvas()->Brush()->SetColor(clRed);
    halfRed.Canvas()->FillRect(TRect(0, 0, 2, 4));
    images.AddMasked(&halfRed, clWhite);
  }
};

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

TEST_F(QuilColumnBoxes, ImagesGiveCopiesAndMakeTheColumnTransparentAtDesignTime) {
  Open(5);
  TImageList images(nullptr);
  AddHalfRed(images);
  TQuilColumn* name = ColumnOf("Name");
  grid->SetDesigning(true);
  grid->Loading();
  name->SetImages(&images);
  EXPECT_FALSE(name->Transparent()) << "a column being read takes Transparent from the stream";
  name->SetImages(nullptr);
  static_cast<TComponent*>(grid)->Loaded();
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

TEST_F(QuilColumnBoxes, ADisabledGridGreysItsImagesOverTheFixedColor) {
  Open(5);
  TImageList images(nullptr);
  AddHalfRed(images);
  TQuilColumn* name = ColumnOf("Name");
  name->SetImages(&images);
  grid->SetFixedColor(clYellow);
  grid->SetEnabled(false);
  const QImage disabled = name->GetImage(0)->ToImage();
  EXPECT_EQ(disabled.pixelColor(3, 1), QColor(Qt::yellow)) << "the fixed color shows through";
  const QColor grey = disabled.pixelColor(0, 1);
  EXPECT_TRUE(grey.red() == grey.green() && grey.green() == grey.blue()) << grey.name().toStdString();
  grid->SetEnabled(true);
  const QImage enabled = name->GetImage(0)->ToImage();
  EXPECT_EQ(enabled.pixelColor(0, 1), QColor(Qt::red));
  EXPECT_EQ(enabled.pixelColor(3, 1).alpha(), 0);
}

// --- The values of a Boolean and a long text field

// A grid, not shown, over one record of a Boolean Done and a long Note.
class QuilColumnNotes : public ::testing::Test {
protected:
  void SetUp() override {
    notes.FieldDefs()->Add("Done", ftBoolean);
    notes.FieldDefs()->Add("Note", ftString, 300);
    notes.CreateDataSet();
    notes.AppendRecord({true, "No"});
    source.SetDataSet(&notes);
    grid.SetDataSource(&source);
    grid.Columns()->SetState(csCustomized);
  }
  TQuilColumn* Done() { return grid.Columns()->Items(0); }
  TQuilColumn* Note() { return grid.Columns()->Items(1); }
  void SetNote(const QString& text) {
    notes.Edit();
    notes.FieldByName("Note")->SetAsString(text);
    notes.Post();
  }

  dbtest::TWindowCheckedDataSet notes{nullptr};
  TDataSource source{nullptr};
  TQuilDBGrid grid{nullptr};
};

TEST_F(QuilColumnNotes, ABooleanFieldGivesImageOneForTrueAndZeroForFalse) {
  EXPECT_EQ(Done()->GetImageIndex(), 1);
  notes.Edit();
  notes.FieldByName("Done")->SetAsBoolean(false);
  notes.Post();
  EXPECT_EQ(Done()->GetImageIndex(), 0);
}

struct ImageTextCase {
  const char* text;
  int index;
};

class QuilColumnImageText : public QuilColumnNotes, public ::testing::WithParamInterface<ImageTextCase> {};

TEST_P(QuilColumnImageText, NamesTheImageByTheTruthTextsOrANumber) {
  SetNote(GetParam().text);
  EXPECT_EQ(Note()->GetImageIndex(), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(Table, QuilColumnImageText,
                         ::testing::Values(ImageTextCase{"True", 1}, ImageTextCase{"False", 0},
                                           ImageTextCase{"7", 7}, ImageTextCase{"true", -1},
                                           ImageTextCase{"seven", -1}, ImageTextCase{"", -1}),
                         [](const auto& info) { return "Text" + std::to_string(info.index); });

TEST_F(QuilColumnNotes, CheckBoxTextsCompareInAnyCaseAndTheFalseTextEndsAt255) {
  Note()->SetCheckBoxValues("Yes;" + QString(300, 'N'));
  SetNote("yES");
  EXPECT_TRUE(Note()->IsCheckBoxValue(true));
  SetNote(QString(255, 'n'));
  EXPECT_TRUE(Note()->IsCheckBoxValue(false));
  SetNote(QString(300, 'N'));
  EXPECT_FALSE(Note()->IsCheckBoxValue(false));
}

struct ToggleCase {
  const char* name;
  void (*prepare)(TDataSet& notes, TDataSource& source);
};

class QuilColumnToggle : public QuilColumnNotes, public ::testing::WithParamInterface<ToggleCase> {};

TEST_P(QuilColumnToggle, LeavesARecordThatCannotChange) {
  Note()->SetCheckBox(true);
  Note()->SetCheckBoxValues("Yes;No");
  GetParam().prepare(notes, source);
  const int records = notes.RecordCount();
  Note()->ToggleCheckBoxValue();
  EXPECT_EQ(notes.State(), dsBrowse);
  EXPECT_EQ(notes.RecordCount(), records);
  if (records > 0) {
    EXPECT_EQ(notes.FieldByName("Note")->AsString(), QStringLiteral("No"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuilColumnToggle,
    ::testing::Values(ToggleCase{"InactiveLink", [](TDataSet&, TDataSource& source) { source.SetEnabled(false); }},
                      ToggleCase{"EmptyDataSet", [](TDataSet& notes, TDataSource&) { notes.Delete(); }},
                      ToggleCase{"ReadOnlyField",
                                 [](TDataSet& notes, TDataSource&) { notes.FieldByName("Note")->SetReadOnly(true); }}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
