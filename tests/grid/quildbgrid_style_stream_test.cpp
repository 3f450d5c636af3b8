// The look of a grid in a form stream: its style and color properties, the spacing
// object and the gradient's settings, each stored only away from its default.
#include <gtest/gtest.h>

#include "framework/rtl/Filer.h"
#include "framework/rtl/StreamTextProbe.h"
#include "framework/rtl/Streams.h"
#include "grid/QuilDBGrids.h"

namespace quil {
namespace {

QString Written(TQuilDBGrid& grid) {
  TMemoryStream binary;
  binary.WriteComponent(&grid);
  return test::ObjectText(binary);
}

// A copy read from grid's stream.
std::unique_ptr<TQuilDBGrid> ReadBack(TQuilDBGrid& grid) {
  TMemoryStream binary;
  binary.WriteComponent(&grid);
  binary.Seek(0, soBeginning);
  auto copy = std::make_unique<TQuilDBGrid>(nullptr);
  binary.ReadComponent(copy.get());
  return copy;
}

constexpr const char* LookProperties[] = {
    "DrawingStyle",   "FixedStyle",      "FixedTheme",     "FixedColor",     "FillerColor",
    "SystemStyleElements", "Gradient",   "GridStyle",      "FocusRect",      "HotButtons",
    "ListBorder",     "HighlightText",   "SelectCellColor", "SelectRowColor", "SelectionColor",
    "StripeColor",    "EditorColor",     "DataColLineColor", "DataRowLineColor"};

TEST(GridStyleStream, EveryLookPropertyIsPublished) {
  TQuilDBGrid grid(nullptr);
  for (const char* name : LookProperties) EXPECT_NE(GetPropInfo(&grid, QString::fromLatin1(name)), nullptr) << name;
}

TEST(GridStyleStream, APlainGridWritesNoneOfItsLook) {
  TQuilDBGrid grid(nullptr);
  const QString text = Written(grid);
  for (const char* name : LookProperties) EXPECT_FALSE(text.contains(QString::fromLatin1(name))) << name;
}

TEST(GridStyleStream, LookPropertiesAwayFromTheirDefaultsAreReadBack) {
  TQuilDBGrid grid(nullptr);
  grid.SetFixedStyle(fsMild);
  grid.SetFixedTheme(ftTabs);
  grid.SwitchSystemStyleElements({sseData}, false);
  grid.SetFocusRect(frGray);
  grid.SetHotButtons(hbTile);
  grid.SetListBorder(lbMild);
  grid.SetHighlightText(clYellow);
  grid.SetSelectCellColor(clNone);
  grid.SetSelectRowColor(clAqua);
  grid.SetSelectionColor(clLime);
  grid.SetStripeColor(clInfoBk);
  grid.SetEditorColor(clDefault);
  grid.SetDataColLineColor(clNone);
  grid.SetDataRowLineColor(clGray);
  const QString text = Written(grid);
  EXPECT_TRUE(text.contains("FixedStyle = fsMild")) << text.toStdString();
  EXPECT_TRUE(text.contains("StripeColor = clInfoBk")) << text.toStdString();
  const auto copy = ReadBack(grid);
  EXPECT_EQ(copy->FixedStyle(), fsMild);
  EXPECT_EQ(copy->FixedTheme(), ftTabs);
  EXPECT_EQ(copy->SystemStyleElements(), (TSystemStyleElements{sseFixed, sseText, sseButton, sseMarker}));
  EXPECT_EQ(copy->FocusRect(), frGray);
  EXPECT_EQ(copy->HotButtons(), hbTile);
  EXPECT_EQ(copy->ListBorder(), lbMild);
  EXPECT_EQ(copy->HighlightText(), clYellow);
  EXPECT_EQ(copy->SelectCellColor(), clNone);
  EXPECT_EQ(copy->SelectRowColor(), clAqua);
  EXPECT_EQ(copy->SelectionColor(), clLime);
  EXPECT_EQ(copy->StripeColor(), clInfoBk);
  EXPECT_EQ(copy->EditorColor(), clDefault);
  EXPECT_EQ(copy->DataColLineColor(), clNone);
  EXPECT_EQ(copy->DataRowLineColor(), clGray);
  // The drawing options are no property of their own: they come back with the colors.
  EXPECT_EQ(copy->DrawingOptions(), grid.DrawingOptions());
}

TEST(GridStyleStream, DrawingStyleComesBackThroughTheThemeAndTheGradient) {
  TQuilDBGrid grid(nullptr);
  grid.SetDrawingStyle(gdsGradient);
  const QString text = Written(grid);
  EXPECT_FALSE(text.contains("DrawingStyle")) << text.toStdString();
  EXPECT_TRUE(text.contains("FixedTheme = ftNone")) << text.toStdString();
  EXPECT_EQ(ReadBack(grid)->DrawingStyle(), gdsGradient);
  grid.SetDrawingStyle(gdsClassic);
  EXPECT_TRUE(Written(grid).contains("Gradient.Active = False")) << Written(grid).toStdString();
  EXPECT_EQ(ReadBack(grid)->DrawingStyle(), gdsClassic);
}

TEST(GridStyleStream, FillerColorIsWrittenOnlyWhereItLeavesTheFixedColor) {
  TQuilDBGrid grid(nullptr);
  grid.SetFixedColor(clTeal);
  QString text = Written(grid);
  EXPECT_TRUE(text.contains("FixedColor = clTeal")) << text.toStdString();
  EXPECT_FALSE(text.contains("FillerColor"));
  EXPECT_EQ(ReadBack(grid)->FillerColor(), clTeal);
  grid.SetFillerColor(clMaroon);
  text = Written(grid);
  EXPECT_TRUE(text.contains("FillerColor = clMaroon")) << text.toStdString();
  const auto copy = ReadBack(grid);
  EXPECT_EQ(copy->FixedColor(), clTeal);
  EXPECT_EQ(copy->FillerColor(), clMaroon);
}

TEST(GridStyleStream, SpacingNumbersAreWrittenOnlyWithACustomStyle) {
  TQuilDBGrid grid(nullptr);
  grid.GridStyle()->SetVisualStyle(vsStandard);
  QString text = Written(grid);
  EXPECT_TRUE(text.contains("GridStyle.VisualStyle = vsStandard")) << text.toStdString();
  EXPECT_FALSE(text.contains("RowSpace")) << text.toStdString();
  EXPECT_EQ(ReadBack(grid)->GridStyle()->DataRowSpace(), 3);

  grid.GridStyle()->SetTitleRowSpace(12);
  text = Written(grid);
  EXPECT_TRUE(text.contains("GridStyle.TitleRowSpace = 12")) << text.toStdString();
  EXPECT_TRUE(text.contains("GridStyle.DataRowSpace = 3")) << text.toStdString();
  const auto copy = ReadBack(grid);
  EXPECT_EQ(copy->GridStyle()->VisualStyle(), vsCustom);
  EXPECT_EQ(copy->GridStyle()->TitleRowSpace(), 12);
  EXPECT_EQ(copy->GridStyle()->DataRowSpace(), 3);
}

TEST(GridStyleStream, GradientSettingsAreReadBackAndTheStepColorIsNotWritten) {
  TQuilDBGrid grid(nullptr);
  TQuilDBGridGradient* gradient = grid.Gradient();
  gradient->SetStepColor(clRed);
  EXPECT_FALSE(Written(grid).contains("Gradient")) << Written(grid).toStdString();
  gradient->SetDirection(gdHorizontal);
  gradient->SetOptions({goGradient, goHotTrack});
  gradient->SetSwapColors(true);
  gradient->SetStartColor(clYellow);
  gradient->SetEndColor(clNavy);
  gradient->SetHotColor(clFuchsia);
  gradient->SetShadowFactor(-40);
  gradient->SetCells({gcSelectedRow, gcStripedRows});
  const QString text = Written(grid);
  EXPECT_TRUE(text.contains("Gradient.Options = [goGradient, goHotTrack]")) << text.toStdString();
  EXPECT_FALSE(text.contains("StepColor"));
  const auto copy = ReadBack(grid);
  const TQuilDBGridGradient* read = copy->Gradient();
  EXPECT_EQ(read->Direction(), gdHorizontal);
  EXPECT_EQ(read->Options(), (TMarlGradientOptions{goGradient, goHotTrack}));
  EXPECT_TRUE(read->SwapColors());
  EXPECT_EQ(read->StartColor(), clYellow);
  EXPECT_EQ(read->EndColor(), clNavy);
  EXPECT_EQ(read->HotColor(), clFuchsia);
  EXPECT_EQ(read->ShadowFactor(), -40);
  EXPECT_EQ(read->Cells(), (TMarlGradientCells{gcSelectedRow, gcStripedRows}));
  EXPECT_EQ(read->StepColor(), clDefault);
}

}  // namespace
}  // namespace quil
