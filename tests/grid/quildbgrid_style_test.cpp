#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <utility>

#include "GridTestKit.h"
#include "framework/graphics/GraphUtil.h"
#include "framework/graphics/StyleServices.h"
#include "support/MarlGraph.h"

namespace quil {
namespace {

// A grid on no form: the style questions need no window. Every test leaves the system
// style active.
class GridStyleTest : public ::testing::Test {
protected:
  void SetUp() override { grid = std::make_unique<TQuilDBGrid>(nullptr); }
  void TearDown() override {
    grid.reset();
    TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  }
  std::unique_ptr<TQuilDBGrid> grid;
};

// --- GetTrueColor, in its order: clDefault, clNone, any other color

struct TrueColorCase {
  TColor color, defaultColor, alternate, expected;
};

class GetTrueColorTest : public ::testing::TestWithParam<TrueColorCase> {};

TEST_P(GetTrueColorTest, ResolvesInOrder) {
  const TrueColorCase& row = GetParam();
  EXPECT_EQ(GetTrueColor(row.color, row.defaultColor, row.alternate), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GetTrueColorTest,
    ::testing::Values(TrueColorCase{clDefault, clRed, clBlue, clRed}, TrueColorCase{clDefault, clRed, clNone, clRed},
                      TrueColorCase{clNone, clRed, clDefault, clRed}, TrueColorCase{clNone, clRed, clBlue, clBlue},
                      TrueColorCase{clNone, clRed, clNone, clNone}, TrueColorCase{clYellow, clRed, clBlue, clYellow},
                      TrueColorCase{clHighlight, clRed, clBlue, clHighlight}));

TEST_F(GridStyleTest, DefaultColorsFollowTheActiveStyle) {
  EXPECT_EQ(grid->DefaultSelectionColor(), clHighlight);
  const TColor systemCell = ColorToRGB(grid->DefaultSelectCellColor());
  EXPECT_EQ(systemCell, GetShadowColor(clHighlight, -10));
  EXPECT_EQ(grid->DefaultSelectRowColor(), GetShadowColor(clHighlight, 20));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_NE(ColorToRGB(grid->DefaultSelectCellColor()), systemCell);
  EXPECT_EQ(ColorToRGB(grid->DefaultSelectCellColor()), GetShadowColor(ColorToRGB(clHighlight), -10));
  EXPECT_EQ(grid->DefaultHighlightText(), clHighlightText);
  EXPECT_EQ(grid->DefaultStripeColor(), cl3DLight);
  EXPECT_EQ(grid->DefaultEditorColor(), clInfoBk);
}

struct GenerationCase {
  const char* name;
  TSystemGeneration generation;
  bool gradientActive;
  TColor selectCell, selectRow, selection;
};

class DefaultSelectionColorsTest : public ::testing::TestWithParam<GenerationCase> {};

TEST_P(DefaultSelectionColorsTest, FollowTheSystemGeneration) {
  const GenerationCase& row = GetParam();
  const TSelectionColors colors =
      TQuilCustomDBGrid::DefaultSelectionColors(row.generation, row.gradientActive);
  EXPECT_EQ(colors.selectCell, row.selectCell);
  EXPECT_EQ(colors.selectRow, row.selectRow);
  EXPECT_EQ(colors.selection, row.selection);
}

INSTANTIATE_TEST_SUITE_P(
    Table, DefaultSelectionColorsTest,
    ::testing::Values(
        GenerationCase{"Win11", sgWin11, false, TMarlGradient::ShadowColor(clHighlight, -10),
                       TMarlGradient::ShadowColor(clHighlight, 20), clHighlight},
        GenerationCase{"Win11WithGradient", sgWin11, true, TMarlGradient::ShadowColor(clHighlight, -10),
                       TMarlGradient::ShadowColor(clHighlight, 20), clHighlight},
        GenerationCase{"VistaWithGradient", sgVista, true, 15230976, 14982776, 16743699},
        GenerationCase{"Vista", sgVista, false, 16743699, 15448477, 16749885},
        GenerationCase{"BeforeVista", sgBeforeVista, true, clHighlight, clGradientInactiveCaption,
                       clGradientActiveCaption}),
    [](const ::testing::TestParamInfo<GenerationCase>& info) { return std::string(info.param.name); });

TEST_F(GridStyleTest, TheDefaultsAreThoseOfTheRunningSystem) {
  ASSERT_EQ(SystemGeneration(), sgWin11);
  const TSelectionColors win11 = TQuilCustomDBGrid::DefaultSelectionColors(sgWin11, false);
  EXPECT_EQ(grid->DefaultSelectCellColor(), win11.selectCell);
  EXPECT_EQ(grid->DefaultSelectRowColor(), win11.selectRow);
  EXPECT_EQ(grid->DefaultSelectionColor(), win11.selection);
}

TEST_F(GridStyleTest, DataLinesStandOutFromASilverBackground) {
  EXPECT_EQ(grid->DefaultDataLineColor(), 12632256);
  grid->SetColor(clSilver);
  EXPECT_EQ(grid->DefaultDataLineColor(), 8421504);
}

TEST_F(GridStyleTest, ColorPropertiesStartAtTheirDefaults) {
  EXPECT_EQ(grid->HighlightText(), clDefault);
  EXPECT_EQ(grid->SelectCellColor(), clDefault);
  EXPECT_EQ(grid->SelectRowColor(), clDefault);
  EXPECT_EQ(grid->SelectionColor(), clDefault);
  EXPECT_EQ(grid->StripeColor(), clNone);
  EXPECT_EQ(grid->EditorColor(), clNone);
  EXPECT_EQ(grid->DataColLineColor(), clDefault);
  EXPECT_EQ(grid->DataRowLineColor(), clDefault);
  EXPECT_EQ(grid->DrawingOptions().ToInt(), 127u);
  EXPECT_EQ(grid->FixedStyle(), fsDefault);
  EXPECT_EQ(grid->FixedTheme(), ftDefault);
  EXPECT_EQ(grid->FocusRect(), frAuto);
  EXPECT_EQ(grid->HotButtons(), hbAuto);
  EXPECT_EQ(grid->ListBorder(), lbAuto);
}

TEST_F(GridStyleTest, DrawingOptionsAndColorsStayInStep) {
  grid->SetStripeColor(clYellow);
  EXPECT_TRUE(grid->DrawingOptions().Contains(gdoStripedRows));
  grid->SetSelectCellColor(clNone);
  EXPECT_FALSE(grid->DrawingOptions().Contains(gdoSelectedCell));
  grid->SwitchDrawingOptions({gdoSelectedCell, gdoEditorColor}, true);
  EXPECT_EQ(grid->SelectCellColor(), clDefault);
  EXPECT_EQ(grid->EditorColor(), clDefault);
  grid->SwitchDrawingOptions({gdoStripedRows, gdoDataRowLines}, false);
  EXPECT_EQ(grid->StripeColor(), clNone);
  EXPECT_EQ(grid->DataRowLineColor(), clNone);
  // A member that does not change leaves its color as it was set.
  grid->SetHighlightText(clRed);
  grid->SwitchDrawingOptions({gdoHighlightText}, true);
  EXPECT_EQ(grid->HighlightText(), clRed);
  grid->SetEditorColor(clNone);
  EXPECT_FALSE(grid->DrawingOptions().Contains(gdoEditorColor));
}

TEST_F(GridStyleTest, FixedColorCarriesTheColorsThatStillFollowIt) {
  grid->SetHeaderColor(clYellow);
  grid->SetFixedColor(clAqua);
  EXPECT_EQ(grid->FixedColor(), clAqua);
  EXPECT_EQ(grid->HeaderColor(), clYellow);
  EXPECT_EQ(grid->FillerColor(), clAqua);
  EXPECT_EQ(grid->Totals()->Color(), clAqua);
  EXPECT_FALSE(grid->IsFillerColorStored());
  grid->SetFillerColor(clRed);
  grid->SetFixedColor(clLime);
  EXPECT_EQ(grid->FillerColor(), clRed);
  EXPECT_TRUE(grid->IsFillerColorStored());
  EXPECT_EQ(grid->Totals()->Color(), clLime);
}

// --- TQuilGridStyle

TEST_F(GridStyleTest, GridStyleStartsWithTheXpTable) {
  TQuilGridStyle* style = grid->GridStyle();
  EXPECT_EQ(style->VisualStyle(), vsXPStyle);
  EXPECT_EQ(style->DataRowSpace(), 4);
  EXPECT_EQ(style->HeaderRowSpace(), 8);
  EXPECT_EQ(style->TitleColMargin(), 1);
  EXPECT_EQ(style->TitleRowSpace(), 8);
  EXPECT_EQ(style->TotalColMargin(), 0);
  EXPECT_EQ(style->TotalRowSpace(), 8);
  EXPECT_FALSE(style->IsStyleStored());
  style->SetVisualStyle(vsStandard);
  EXPECT_EQ(style->DataRowSpace(), 3);
  EXPECT_EQ(style->HeaderRowSpace(), 4);
  EXPECT_EQ(style->TitleColMargin(), 0);
  EXPECT_EQ(style->TitleRowSpace(), 4);
  EXPECT_EQ(style->TotalRowSpace(), 4);
}

TEST_F(GridStyleTest, ANumberSetByHandMakesTheStyleCustomAndDefaultRestoresTheTable) {
  TQuilGridStyle* style = grid->GridStyle();
  style->SetTitleRowSpace(12);
  EXPECT_EQ(style->VisualStyle(), vsCustom);
  EXPECT_TRUE(style->IsStyleStored());
  EXPECT_EQ(style->TitleRowSpace(), 12);
  style->SetVisualStyle(vsDefault);
  EXPECT_EQ(style->VisualStyle(), vsDefault);
  EXPECT_EQ(style->TitleRowSpace(), 8);  // themed: the XP table
  // vsDefault follows the theme: off, it resolves to the standard table.
  grid->SetFixedTheme(ftNone);
  EXPECT_EQ(style->VisualStyle(), vsDefault);
  EXPECT_EQ(style->TitleRowSpace(), 4);
  grid->SetFixedTheme(ftButtons);
  EXPECT_EQ(style->TitleRowSpace(), 8);
  // vsCustom itself changes no number.
  style->SetVisualStyle(vsCustom);
  EXPECT_EQ(style->TitleRowSpace(), 8);
}

TEST_F(GridStyleTest, GridStyleAssignCopiesNumbersAndKind) {
  TQuilGridStyle other(nullptr);
  other.SetDataRowSpace(9);
  grid->GridStyle()->Assign(&other);
  EXPECT_EQ(grid->GridStyle()->DataRowSpace(), 9);
  EXPECT_EQ(grid->GridStyle()->VisualStyle(), vsCustom);
}

TEST_F(GridStyleTest, GridStyleNumbersReachTheRowHeights) {
  grid->GridStyle()->SetDataRowSpace(2);
  const int before = grid->DefaultRowHeight();
  grid->GridStyle()->SetDataRowSpace(8);
  EXPECT_EQ(grid->DefaultRowHeight(), before + 6);
}

// --- Drawing style and the style questions

TEST_F(GridStyleTest, AtDesignTimeTheDrawingStyleAlsoSetsTheFixedStyleAndTheGradientsOptions) {
  grid->SetDesigning(true);
  grid->SetDrawingStyle(gdsGradient);
  EXPECT_EQ(grid->FixedStyle(), fsGray);
  EXPECT_EQ(grid->Gradient()->Options(), (TMarlGradientOptions{goGradient, goHotButton, goHotTrack, goHotColor}));
  grid->SetDrawingStyle(gdsClassic);
  EXPECT_EQ(grid->FixedStyle(), fsDefault);
  EXPECT_EQ(grid->Gradient()->Options(), (TMarlGradientOptions{goGradient, goHotButton}));
  grid->SetFixedStyle(fsMild);
  grid->SetDrawingStyle(gdsThemed);
  EXPECT_EQ(grid->FixedStyle(), fsDefault);
}

TEST_F(GridStyleTest, DrawingStyleFollowsThemeAndGradient) {
  EXPECT_EQ(grid->DrawingStyle(), gdsThemed);
  grid->SetDrawingStyle(gdsClassic);
  EXPECT_EQ(grid->FixedTheme(), ftNone);
  EXPECT_FALSE(grid->Gradient()->Active());
  EXPECT_EQ(grid->DrawingStyle(), gdsClassic);
  grid->SetDrawingStyle(gdsGradient);
  EXPECT_EQ(grid->FixedTheme(), ftNone);
  EXPECT_TRUE(grid->Gradient()->Active());
  EXPECT_EQ(grid->DrawingStyle(), gdsGradient);
  // Outside design time the fixed style and the gradient's options stay.
  EXPECT_EQ(grid->FixedStyle(), fsDefault);
  EXPECT_EQ(grid->Gradient()->Options(), (TMarlGradientOptions{goGradient, goHotButton}));
  grid->SetFixedStyle(fsMild);
  grid->SetDrawingStyle(gdsThemed);
  EXPECT_EQ(grid->FixedTheme(), ftDefault);
  EXPECT_EQ(grid->FixedStyle(), fsMild);
}

TEST_F(GridStyleTest, ThemedGridAndCustomStyleQuestions) {
  EXPECT_TRUE(grid->IsGridThemed(false));
  EXPECT_TRUE(grid->IsSystemStyle({sseData}));
  EXPECT_TRUE(grid->IsSystemTheme());
  EXPECT_FALSE(grid->IsThemeTransparent());
  EXPECT_FALSE(grid->IsCustomStyle({seFont}));
  grid->SetFixedTheme(ftNone);
  EXPECT_FALSE(grid->IsGridThemed(false));
  EXPECT_TRUE(grid->IsGridThemed(true));
  EXPECT_FALSE(grid->IsSystemStyle({sseData}));
  EXPECT_FALSE(grid->IsSystemTheme());
  grid->SwitchOptionsExt({dgForceSystemTheme}, true);
  EXPECT_TRUE(grid->IsSystemTheme());

  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_TRUE(grid->IsGridThemed(false));
  EXPECT_FALSE(grid->IsSystemStyle({}));
  EXPECT_TRUE(grid->IsCustomStyle({seFont, seClient}));
  grid->SetStyleElements({seClient});
  EXPECT_FALSE(grid->IsCustomStyle({seFont, seClient}));
  EXPECT_TRUE(grid->IsCustomStyle({seClient}));
}

TEST_F(GridStyleTest, SystemStyleNeedsEveryElementAskedAndCanBeSwitchedOff) {
  EXPECT_TRUE(grid->IsSystemStyle({sseFixed, sseText}));
  EXPECT_FALSE(grid->IsSystemStyle({sseFixed, sseFont}));
  grid->SwitchSystemStyleElements({sseFont}, true);
  EXPECT_TRUE(grid->IsSystemStyle({sseFixed, sseFont}));
  TQuilCustomDBGrid::SetSystemStyleEnabled(false);
  EXPECT_FALSE(grid->IsSystemStyle({sseFixed}));
  TQuilCustomDBGrid::SetSystemStyleEnabled(true);
}

struct FixedStyleCase {
  TFixedStyle fixedStyle;
  THotButtons hot;
  TListBorder listBorder;
  TColor lineColor;
};

class FixedStyleTableTest : public ::testing::TestWithParam<FixedStyleCase> {};

TEST_P(FixedStyleTableTest, ResolvesHotButtonsListBorderAndLineColor) {
  TQuilDBGrid grid(nullptr);
  grid.SetFixedTheme(ftNone);
  grid.SetFixedStyle(GetParam().fixedStyle);
  EXPECT_EQ(grid.HotButtonsStyle(), GetParam().hot);
  EXPECT_EQ(grid.ListBorderStyle(), GetParam().listBorder);
  EXPECT_EQ(grid.GetFixedLineColor(), GetParam().lineColor);
}

INSTANTIATE_TEST_SUITE_P(Table, FixedStyleTableTest,
                         ::testing::Values(FixedStyleCase{fsDefault, hbBump, lbDefault, clBlack},
                                           FixedStyleCase{fsSoft, hbBump, lbGray, cl3DDkShadow},
                                           FixedStyleCase{fsNice, hbRaised, lbDefault, clBlack},
                                           FixedStyleCase{fsFlat, hbRaised, lbDefault, clBlack},
                                           FixedStyleCase{fsGreat, hbLowered, lbGray, cl3DDkShadow},
                                           FixedStyleCase{fsGray, hbLowered, lbGray, cl3DDkShadow},
                                           FixedStyleCase{fsFine, hbTile, lbMild, clBtnShadow},
                                           FixedStyleCase{fsMild, hbTile, lbMild, clBtnShadow}));

struct CheckBoxCase {
  TFixedStyle fixedStyle;
  TCheckBoxStyle automatic, automaticGray, automaticLowered;
};

class CheckBoxStyleTableTest : public ::testing::TestWithParam<CheckBoxCase> {};

TEST_P(CheckBoxStyleTableTest, ResolvesTheAutomaticMembersAndKeepsTheOthers) {
  TQuilDBGrid grid(nullptr);
  grid.SetFixedStyle(GetParam().fixedStyle);
  EXPECT_EQ(grid.CheckBoxStyle(cbAuto), GetParam().automatic);
  EXPECT_EQ(grid.CheckBoxStyle(cbAutoGray), GetParam().automaticGray);
  EXPECT_EQ(grid.CheckBoxStyle(cbAutoLowered), GetParam().automaticLowered);
  for (TCheckBoxStyle style : {cbDefault, cbSoft, cbLoweredDark, cbLoweredGray, cbLoweredMild, cbFlat, cbGray, cbMild})
    EXPECT_EQ(grid.CheckBoxStyle(style), style);
}

INSTANTIATE_TEST_SUITE_P(Table, CheckBoxStyleTableTest,
                         ::testing::Values(CheckBoxCase{fsDefault, cbDefault, cbSoft, cbDefault},
                                           CheckBoxCase{fsSoft, cbSoft, cbSoft, cbSoft},
                                           CheckBoxCase{fsNice, cbLoweredDark, cbLoweredGray, cbLoweredDark},
                                           CheckBoxCase{fsFlat, cbFlat, cbGray, cbLoweredDark},
                                           CheckBoxCase{fsGreat, cbLoweredGray, cbLoweredGray, cbLoweredGray},
                                           CheckBoxCase{fsGray, cbGray, cbGray, cbLoweredGray},
                                           CheckBoxCase{fsFine, cbLoweredMild, cbLoweredGray, cbLoweredMild},
                                           CheckBoxCase{fsMild, cbMild, cbGray, cbLoweredMild}));

TEST_F(GridStyleTest, ResolvedStylesGiveWayToWhatIsSet) {
  grid->SetHotButtons(hbNone);
  EXPECT_EQ(grid->HotButtonsStyle(), hbNone);
  EXPECT_EQ(grid->FocusRectStyle(), frDefault);
  grid->SetFocusRect(frMild);
  EXPECT_EQ(grid->FocusRectStyle(), frMild);
  // Themed, the list border is mild; without lines it is the default; a custom style
  // wins over all.
  EXPECT_EQ(grid->ListBorderStyle(), lbMild);
  grid->SwitchOptions({dgRowLines}, false);
  EXPECT_EQ(grid->ListBorderStyle(), lbDefault);
  grid->SetListBorder(lbGray);
  EXPECT_EQ(grid->ListBorderStyle(), lbGray);
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_EQ(grid->ListBorderStyle(), lbDefault);
}

// The fixed cell element gives the face's text; the root element gives no text color,
// and the style's font stands in.
TEST_F(GridStyleTest, StyleFontColorTakesTheElementsTextBeforeTheStylesFont) {
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  const TCustomStyleServices* style = StyleServices();
  ASSERT_NE(style->GetStyleFontColor(sfButtonTextDisabled), style->GetSystemColor(clBtnText));
  EXPECT_EQ(grid->GetStyleFontColor(sfButtonTextDisabled, tgFixedCellNormal), style->GetSystemColor(clBtnText));
  EXPECT_EQ(grid->GetStyleFontColor(sfButtonTextDisabled, tgRoot), style->GetStyleFontColor(sfButtonTextDisabled));
}

// Each of these changes what a cell looks like, and so lays the grid out; the editor's
// color shows only when it opens.
TEST(GridStyleSetters, LookSettersLayOutAndTheEditorColorDoesNot) {
  gridtest::TProbeGrid grid(nullptr);
  const std::pair<const char*, std::function<void()>> setters[] = {
      {"HighlightText", [&] { grid.SetHighlightText(clRed); }},
      {"SelectCellColor", [&] { grid.SetSelectCellColor(clRed); }},
      {"SelectRowColor", [&] { grid.SetSelectRowColor(clRed); }},
      {"SelectionColor", [&] { grid.SetSelectionColor(clRed); }},
      {"StripeColor", [&] { grid.SetStripeColor(clRed); }},
      {"DataColLineColor", [&] { grid.SetDataColLineColor(clRed); }},
      {"DataRowLineColor", [&] { grid.SetDataRowLineColor(clRed); }},
      {"FocusRect", [&] { grid.SetFocusRect(frGray); }},
      {"HotButtons", [&] { grid.SetHotButtons(hbTile); }},
      {"ListBorder", [&] { grid.SetListBorder(lbMild); }}};
  for (const auto& [name, set] : setters) {
    grid.layoutSources.clear();
    set();
    EXPECT_FALSE(grid.layoutSources.empty()) << name;
    grid.layoutSources.clear();
    set();
    EXPECT_TRUE(grid.layoutSources.empty()) << name << " set again";
  }
  grid.layoutSources.clear();
  grid.SetEditorColor(clRed);
  EXPECT_TRUE(grid.layoutSources.empty());
  EXPECT_EQ(grid.EditorColor(), clRed);
}

TEST_F(GridStyleTest, FixedLinesUnderAThemeFollowTheSystemTheme) {
  EXPECT_EQ(grid->GetFixedLineColor(), clBtnFace);
  grid->SetFixedTheme(ftTabs);
  EXPECT_EQ(grid->GetFixedLineColor(), grid->DefaultDataLineColor());
}

// --- The named style tables

TEST_F(GridStyleTest, StyleTablesAnswerForTheNamesTheyHold) {
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextStyle(QStringLiteral("Sterling")), -120);
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextStyle(QStringLiteral("Madison Dark")), 60);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowStyle(QStringLiteral("Amakrits")), -110);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowStyle(QStringLiteral("Puerto Rico")), 25);
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameStyle(QStringLiteral("Amakrits")), 2);
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameStyle(QStringLiteral("Glossy 2")), 1);
  EXPECT_TRUE(TQuilCustomDBGrid::GetFlatStyle(QStringLiteral("Zodiac LE")));
  EXPECT_FALSE(TQuilCustomDBGrid::GetFlatStyle(QStringLiteral("Sterling")));
  // The desktop's own style takes the entries of the newest system.
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameStyle(QStringLiteral("Windows")), 4);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowStyle(QStringLiteral("Windows")), 20);
  EXPECT_TRUE(TQuilCustomDBGrid::GetFlatStyle(QStringLiteral("Windows")));
}

// Made active by name; registered once, with the colors of the light style.
void ActivateStyleNamed(const QString& name) {
  if (!TStyleManager::StyleNames().contains(name)) {
    TStyleScheme scheme = LightStyleScheme();
    scheme.Name = name;
    TStyleManager::RegisterStyle(scheme);
  }
  TStyleManager::SetStyle(name);
}

TEST_F(GridStyleTest, AStyleNameNoTableHasGivesNoShadeNoFrameAndIsNotFlat) {
  ActivateStyleNamed(QStringLiteral("Unlisted Test Style"));
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextActiveStyle(), 0);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowActiveStyle(), 0);
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameActiveStyle(), 0);
  EXPECT_FALSE(TQuilCustomDBGrid::IsFlatStyle());
  TRect rect = Rect(10, 10, 20, 20);
  TQuilCustomDBGrid::GetCellFrameRect(rect);
  EXPECT_EQ(rect, Rect(10, 10, 20, 20));
  const TColor highlight = StyleServices()->GetSystemColor(clHighlight);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowSelected(), highlight);
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextSelected(), highlight);
}

TEST_F(GridStyleTest, EntriesAddedForTheActiveStyleReachTheNextQuestion) {
  ActivateStyleNamed(QStringLiteral("Test Style With Entries"));
  TQuilCustomDBGrid::SetSelectRowActiveStyle(15);
  TQuilCustomDBGrid::SetFixedTextActiveStyle(-20);
  TQuilCustomDBGrid::SetCellFrameActiveStyle(3);
  TQuilCustomDBGrid::SetFlatActiveStyle(true);
  const TColor highlight = StyleServices()->GetSystemColor(clHighlight);
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowSelected(), TMarlGradient::ShadowColor(highlight, 15));
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextSelected(), TMarlGradient::ShadowColor(highlight, -20));
  EXPECT_TRUE(TQuilCustomDBGrid::IsFlatStyle());
  TRect rect = Rect(10, 10, 20, 20);
  TQuilCustomDBGrid::GetCellFrameRect(rect);
  EXPECT_EQ(rect, Rect(7, 7, 23, 23));
  EXPECT_EQ(TQuilCustomDBGrid::GetSelectRowStyle(QStringLiteral("test style with entries")), 15);
  TQuilCustomDBGrid::SetSelectRowActiveStyle(0);
  TQuilCustomDBGrid::SetFixedTextActiveStyle(0);
  TQuilCustomDBGrid::SetCellFrameActiveStyle(0);
  TQuilCustomDBGrid::SetFlatActiveStyle(false);
}

TEST_F(GridStyleTest, NamedStylesWithoutAShadeHaveAFixedTextColor) {
  ActivateStyleNamed(QStringLiteral("Ruby Graphite"));
  EXPECT_EQ(TQuilCustomDBGrid::GetFixedTextSelected(), 255);
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameActiveStyle(), 1);
}

// The contrast of two colors by their relative luminance, from 1 to 21.
double Contrast(TColor first, TColor second) {
  auto luminance = [](TColor color) {
    auto channel = [](int value) {
      const double share = value / 255.0;
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    const TColor rgb = ColorToRGB(color);
    return 0.2126 * channel(GetRValue(rgb)) + 0.7152 * channel(GetGValue(rgb)) + 0.0722 * channel(GetBValue(rgb));
  };
  const double a = luminance(first), b = luminance(second);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

class LibraryStyleTest : public ::testing::TestWithParam<const char*> {
protected:
  void SetUp() override { TStyleManager::SetStyle(QString::fromLatin1(GetParam())); }
  void TearDown() override { TStyleManager::SetStyle(TStyleManager::SystemStyleName()); }
};

TEST_P(LibraryStyleTest, IsFlatWithReadableSelectedTitlesAndRows) {
  EXPECT_TRUE(TQuilCustomDBGrid::IsFlatStyle());
  EXPECT_GE(Contrast(TQuilCustomDBGrid::GetFixedTextSelected(), clBtnFace), 4.5);
  EXPECT_GE(Contrast(TQuilCustomDBGrid::GetSelectRowSelected(), clHighlightText), 4.5);
  EXPECT_EQ(TQuilCustomDBGrid::GetCellFrameActiveStyle(), 0);
}

INSTANTIATE_TEST_SUITE_P(Named, LibraryStyleTest, ::testing::Values("Quil Light", "Quil Dark"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                           return QString::fromLatin1(info.param).remove(QLatin1Char(' ')).toStdString();
                         });

// --- The border

TEST_F(GridStyleTest, Ctl3DFollowsTheLookWhileCtl3DAutoHolds) {
  EXPECT_TRUE(grid->Ctl3DAuto());
  EXPECT_TRUE(grid->GridCtl3D());
  // Themes are on: an unthemed grid goes flat, whatever its fixed style.
  grid->SetFixedTheme(ftNone);
  EXPECT_FALSE(grid->GridCtl3D());
  grid->SetFixedStyle(fsSoft);
  EXPECT_FALSE(grid->GridCtl3D());
  grid->SetFixedTheme(ftDefault);
  EXPECT_TRUE(grid->GridCtl3D());
  // Set by hand, Ctl3D stays.
  grid->SetCtl3D(false);
  EXPECT_FALSE(grid->Ctl3DAuto());
  grid->SetFixedTheme(ftButtons);
  EXPECT_FALSE(grid->GridCtl3D());
  grid->SetCtl3DAuto(true);
  EXPECT_TRUE(grid->GridCtl3D());
}

TEST_F(GridStyleTest, FixedLinesShowUnderACustomStyleOrWithWideLines) {
  EXPECT_FALSE(grid->TCustomGrid::Options().Contains(goFixedVertLine));
  grid->SetGridLineWidth(2);
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goFixedVertLine));
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goFixedHorzLine));
  grid->SetGridLineWidth(1);
  EXPECT_FALSE(grid->TCustomGrid::Options().Contains(goFixedHorzLine));
  grid->SetOptions(grid->Options() - dgColLines);
  grid->SetOptions(grid->Options() + dgColLines);
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  grid->Perform(CM_STYLECHANGED, 0, 0);
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goFixedVertLine));
  EXPECT_TRUE(grid->TCustomGrid::Options().Contains(goFixedHorzLine));
}

}  // namespace
}  // namespace quil
