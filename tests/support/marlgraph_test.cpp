#include <gtest/gtest.h>

#include <QImage>
#include <functional>
#include <string>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/GraphUtil.h"
#include "framework/graphics/StyleServices.h"
#include "framework/rtl/TypInfo.h"
#include "support/MarlGraph.h"

namespace quil {
namespace {

constexpr TColor Start = RGB(255, 0, 0);
constexpr TColor End = RGB(0, 0, 255);

class MarlGraphTest : public ::testing::Test {
protected:
  void SetUp() override {
    bitmap.SetSize(100, 40);
    bitmap.Canvas()->Brush()->SetColor(clWhite);
    bitmap.Canvas()->FillRect(Rect(0, 0, 100, 40));
  }
  void TearDown() override {
    GradientEnabled = true;
    TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  }
  TCanvas* canvas() { return bitmap.Canvas(); }
  TColor Pixel(int x, int y) {
    const QRgb pixel = bitmap.ToImage().pixel(x, y);
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
  }
  void Snapshot(const char* name) {
    const QString folder = qEnvironmentVariable("QUIL_GRAPHICS_SNAPSHOTS");
    if (!folder.isEmpty()) bitmap.ToImage().save(folder + QLatin1Char('/') + QLatin1String(name) + ".png");
  }
  static void ExpectNear(TColor actual, TColor expected, int tolerance = 3) {
    EXPECT_NEAR(GetRValue(actual), GetRValue(expected), tolerance) << std::hex << actual << " vs " << expected;
    EXPECT_NEAR(GetGValue(actual), GetGValue(expected), tolerance) << std::hex << actual << " vs " << expected;
    EXPECT_NEAR(GetBValue(actual), GetBValue(expected), tolerance) << std::hex << actual << " vs " << expected;
  }

  TBitmap bitmap;
};

class Counter : public TObject {
public:
  int changes = 0;
  void Changed(TObject*) { ++changes; }
};

TEST_F(MarlGraphTest, FillCanvasRunsFromStartToEndAcrossTheRectangle) {
  TMarlGradient::FillCanvas(canvas(), Start, End, Rect(0, 0, 100, 40), gdHorizontal);
  Snapshot("gradient_horizontal");
  ExpectNear(Pixel(0, 20), Start);
  ExpectNear(Pixel(99, 20), End);
  ExpectNear(Pixel(50, 20), RGB(127, 0, 127), 6);
  EXPECT_EQ(Pixel(0, 0), Pixel(0, 39));

  const TColor beside = Pixel(20, 20);
  TMarlGradient::FillCanvas(canvas(), clBlack, clWhite, Rect(10, 0, 20, 40), gdVertical);
  ExpectNear(Pixel(15, 0), clBlack);
  ExpectNear(Pixel(15, 39), clWhite);
  ExpectNear(Pixel(15, 20), RGB(131, 131, 131), 6);
  EXPECT_EQ(Pixel(10, 5), Pixel(19, 5));
  EXPECT_EQ(Pixel(20, 20), beside);  // the right edge is outside
}

TEST_F(MarlGraphTest, ShadowColorNeverTurnsWhiteWhenDarkeningNorBlackWhenLightening) {
  EXPECT_EQ(TMarlGradient::ShadowColor(clHighlight, 0), clHighlight);
  EXPECT_NE(TMarlGradient::ShadowColor(clWhite, -10), clWhite);
  EXPECT_NE(TMarlGradient::ShadowColor(clBlack, 10), clBlack);
  EXPECT_EQ(TMarlGradient::ShadowColor(RGB(10, 60, 200), 25), GetShadowColor(RGB(10, 60, 200), 25));
  // Shades that reach an end of the scale come out at the other.
  EXPECT_EQ(TMarlGradient::ShadowColor(clWhite, -1000), clBlack);
  EXPECT_EQ(TMarlGradient::ShadowColor(clBlack, 1000), clWhite);
}

TEST_F(MarlGraphTest, SettersTellOnlyOfChangesAndAssignTellsNothing) {
  Counter counter;
  TMarlGradient gradient(nullptr);
  gradient.SetOnChange(TNotifyEvent(&counter, &Counter::Changed));
  gradient.SetStartColor(clWindow);
  gradient.SetActive(true);
  EXPECT_EQ(counter.changes, 0);
  gradient.SetStartColor(clRed);
  gradient.SwitchOptions({goHotTrack}, true);
  gradient.SwitchOptions({goHotTrack}, true);
  EXPECT_EQ(counter.changes, 2);

  TMarlGradientButton other(nullptr);
  other.SetShadowFactor(-40);
  other.SetCells({gcSelectedRow});
  gradient.Assign(&other);
  EXPECT_EQ(counter.changes, 2);
  EXPECT_EQ(gradient.ShadowFactor(), -40);
  EXPECT_EQ(gradient.Cells(), TMarlGradientCells{gcSelectedRow});
  EXPECT_EQ(gradient.Options(), (TMarlGradientOptions{goGradient, goHotButton}));
  EXPECT_EQ(gradient.StartColor(), clWindow);
}

TEST_F(MarlGraphTest, ChangeTellsOnlyWhenSomethingDiffers) {
  Counter counter;
  TMarlGradientButton gradient(nullptr);
  gradient.SetOnChange(TNotifyEvent(&counter, &Counter::Changed));
  TMarlGradientButton same(nullptr);
  EXPECT_FALSE(gradient.Change(&same));
  EXPECT_FALSE(gradient.Change(nullptr));
  EXPECT_EQ(counter.changes, 0);
  same.SetHotColor(clYellow);
  EXPECT_TRUE(gradient.Change(&same));
  EXPECT_EQ(counter.changes, 1);
  EXPECT_EQ(gradient.HotColor(), clYellow);
}

struct SettingCase {
  const char* name;
  std::function<void(TMarlGradient&)> change;
  std::function<bool(const TMarlGradient&)> took;
};

class GradientSettingTest : public ::testing::TestWithParam<SettingCase> {};

TEST_P(GradientSettingTest, ChangeTakesAndTellsASettingThatDiffersAndAssignCopiesIt) {
  Counter counter;
  TMarlGradient gradient(nullptr);
  gradient.SetOnChange(TNotifyEvent(&counter, &Counter::Changed));
  TMarlGradient source(nullptr);
  GetParam().change(source);
  EXPECT_TRUE(gradient.Change(&source));
  EXPECT_TRUE(GetParam().took(gradient));
  EXPECT_EQ(counter.changes, 1);
  EXPECT_FALSE(gradient.Change(&source));
  EXPECT_EQ(counter.changes, 1);
  TMarlGradient copy(nullptr);
  copy.Assign(&source);
  EXPECT_TRUE(GetParam().took(copy));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, GradientSettingTest,
    ::testing::Values(
        SettingCase{"Direction", [](TMarlGradient& g) { g.SetDirection(gdHorizontal); },
                    [](const TMarlGradient& g) { return g.Direction() == gdHorizontal; }},
        SettingCase{"SwapColors", [](TMarlGradient& g) { g.SetSwapColors(true); },
                    [](const TMarlGradient& g) { return g.SwapColors(); }},
        SettingCase{"EndColor", [](TMarlGradient& g) { g.SetEndColor(clNavy); },
                    [](const TMarlGradient& g) { return g.EndColor() == clNavy; }},
        SettingCase{"StepColor", [](TMarlGradient& g) { g.SetStepColor(clOlive); },
                    [](const TMarlGradient& g) { return g.StepColor() == clOlive; }}),
    [](const ::testing::TestParamInfo<SettingCase>& info) { return std::string(info.param.name); });

TEST_F(MarlGraphTest, DefaultsOfTheSettingsAndTheButton) {
  TMarlGradient plain(nullptr);
  EXPECT_TRUE(plain.Active());
  EXPECT_EQ(plain.Direction(), gdVertical);
  EXPECT_EQ(plain.Options(), TMarlGradientOptions{goGradient});
  EXPECT_EQ(plain.StartColor(), clWindow);
  EXPECT_EQ(plain.EndColor(), clDefault);
  EXPECT_EQ(plain.HotColor(), clDefault);
  EXPECT_EQ(plain.Cells(), AllGradientCells);
  EXPECT_EQ(plain.ShadowFactor(), -25);
  EXPECT_EQ(plain.DefaultHotColor(), 15717318);
  TMarlGradientButton button(nullptr);
  EXPECT_EQ(button.Options(), (TMarlGradientOptions{goGradient, goHotButton}));
}

TEST(MarlGraphPublished, ABareGradientPublishesOnlyActive) {
  TMarlGradient plain(nullptr);
  EXPECT_NE(GetPropInfo(&plain, QStringLiteral("Active")), nullptr);
  for (const char* name : {"Direction", "Options", "StartColor", "ShadowFactor", "Cells", "StepColor"})
    EXPECT_EQ(GetPropInfo(&plain, QString::fromLatin1(name)), nullptr) << name;
}

// A button's settings are published with its own defaults, so that a fresh button
// stores nothing and each change is stored.
TEST(MarlGraphPublished, AButtonPublishesItsSettingsAtTheirDefaults) {
  TMarlGradientButton button(nullptr);
  const char* const names[] = {"Active",     "Direction", "Options",  "SwapColors",
                               "StartColor", "EndColor",  "HotColor", "ShadowFactor"};
  for (const char* name : names) {
    const TPropInfo* prop = GetPropInfo(&button, QString::fromLatin1(name));
    ASSERT_NE(prop, nullptr) << name;
    EXPECT_TRUE(IsDefaultPropertyValue(&button, prop)) << name;
  }
  EXPECT_EQ(GetPropInfo(&button, QStringLiteral("StepColor")), nullptr);
  EXPECT_EQ(GetPropInfo(&button, QStringLiteral("Cells")), nullptr);
  button.SetActive(false);
  button.SetDirection(gdHorizontal);
  button.SwitchOptions({goHotButton}, false);
  button.SetSwapColors(true);
  button.SetStartColor(clBlack);
  button.SetEndColor(clNone);
  button.SetHotColor(clRed);
  button.SetShadowFactor(-10);
  for (const char* name : names)
    EXPECT_FALSE(IsDefaultPropertyValue(&button, GetPropInfo(&button, QString::fromLatin1(name)))) << name;
}

TEST_F(MarlGraphTest, AGradientGivesWayToThemesUnlessForced) {
  TMarlGradient gradient(nullptr);
  ASSERT_TRUE(ThemesEnabled());
  EXPECT_FALSE(gradient.IsActive(false));
  EXPECT_TRUE(gradient.IsActive(true));
  EXPECT_FALSE(gradient.IsHotActive(true));
  gradient.SwitchOptions({goHotColor}, true);
  EXPECT_TRUE(gradient.IsHotActive(true));
  EXPECT_FALSE(gradient.IsHotActive(false));
  gradient.SetActive(false);
  EXPECT_FALSE(gradient.IsActive(true));
  gradient.SetActive(true);
  GradientEnabled = false;
  EXPECT_FALSE(gradient.IsActive(true));
}

TEST_F(MarlGraphTest, FillRectRunsFromStartColorToTheShadeOfTheFace) {
  TMarlGradient gradient(nullptr);
  gradient.SetStartColor(clWhite);
  const TColor face = RGB(90, 140, 200);
  gradient.FillRect(canvas(), Rect(0, 0, 20, 40), face, false, false);
  ExpectNear(Pixel(10, 0), clWhite);
  ExpectNear(Pixel(10, 39), TMarlGradient::ShadowColor(face, -25));
  // An end color set takes the place of the face the caller gives.
  gradient.SetEndColor(clBlack);
  gradient.FillRect(canvas(), Rect(20, 0, 40, 40), face, false, false);
  ExpectNear(Pixel(30, 39), TMarlGradient::ShadowColor(clBlack, -25));
  // Without goGradient the face is a plain fill.
  gradient.SetEndColor(clDefault);
  gradient.SetOptions({});
  gradient.FillRect(canvas(), Rect(40, 0, 60, 40), face, false, false);
  EXPECT_EQ(Pixel(50, 0), face);
  EXPECT_EQ(Pixel(50, 39), face);
}

TEST_F(MarlGraphTest, HotButtonReversesAndHotTrackFramesAndShadesWhenPressed) {
  TMarlGradientButton gradient(nullptr);
  gradient.SetStartColor(clWhite);
  const TColor face = RGB(90, 140, 200);
  gradient.FillRect(canvas(), Rect(0, 0, 20, 40), face, true, false);
  ExpectNear(Pixel(10, 0), TMarlGradient::ShadowColor(face, -25));
  ExpectNear(Pixel(10, 39), clWhite);

  gradient.SetOptions({goGradient, goHotTrack});
  gradient.FillRect(canvas(), Rect(20, 0, 40, 40), face, true, true);
  const TColor pressed = TMarlGradient::ShadowColor(face, -25);
  EXPECT_EQ(Pixel(20, 20), TMarlGradient::ShadowColor(face, -50));  // the frame
  EXPECT_EQ(Pixel(30, 20), pressed);                                  // the inside, plain
  EXPECT_EQ(Pixel(30, 38), pressed);

  gradient.SetOptions({goGradient, goHotColor});
  gradient.FillRect(canvas(), Rect(40, 0, 60, 40), face, true, false);
  ExpectNear(Pixel(50, 39), TMarlGradient::ShadowColor(gradient.DefaultHotColor(), -25));
  Snapshot("gradient_hot");
}

TEST_F(MarlGraphTest, HorizontalGradientOnAMirroredCanvasRunsTheOtherWayAndSwapBringsItBack) {
  TMarlGradient gradient(nullptr);
  gradient.SetDirection(gdHorizontal);
  gradient.SetStartColor(clWhite);
  const TColor shade = TMarlGradient::ShadowColor(clBlack, -25);
  gradient.FillRect(canvas(), Rect(0, 0, 100, 20), clBlack, false, false);
  ExpectNear(Pixel(0, 10), clWhite);
  ExpectNear(Pixel(99, 10), shade);

  canvas()->SetCanvasOrientation(coRightToLeft);
  gradient.FillRect(canvas(), Rect(0, 0, 100, 20), clBlack, false, false);
  // Reversed in the canvas' coordinates, whose left is the right edge on screen: the
  // screen shows the same picture as an unmirrored canvas.
  ExpectNear(Pixel(0, 10), clWhite);
  ExpectNear(Pixel(99, 10), shade);
  gradient.SetSwapColors(true);
  gradient.FillRect(canvas(), Rect(0, 0, 100, 20), clBlack, false, false);
  ExpectNear(Pixel(0, 10), shade);
  ExpectNear(Pixel(99, 10), clWhite);
  canvas()->SetCanvasOrientation(coLeftToRight);
}

TEST_F(MarlGraphTest, FillCellShadesTheColorAndKeepsVeryLightColorsFromTurningWhite) {
  TMarlGradient gradient(nullptr);
  const TColor color = RGB(51, 153, 255);
  gradient.FillCell(canvas(), Rect(0, 0, 10, 40), color, true);
  EXPECT_EQ(Pixel(5, 0), GetShadowColor(color, 20));
  EXPECT_EQ(Pixel(5, 39), GetShadowColor(color, 20));
  gradient.FillCell(canvas(), Rect(10, 0, 20, 40), color, false);
  ExpectNear(Pixel(15, 0), GetShadowColor(color, 35));
  ExpectNear(Pixel(15, 39), GetShadowColor(color, 10));
  const TColor light = RGB(250, 250, 252);
  gradient.FillCell(canvas(), Rect(20, 0, 30, 40), light, true);
  EXPECT_EQ(Pixel(25, 20), light);
  gradient.FillCell(canvas(), Rect(30, 0, 40, 40), light, false);
  ExpectNear(Pixel(35, 39), light, 1);
  // The same color a second time paints the same, from what was kept.
  gradient.FillCell(canvas(), Rect(40, 0, 50, 40), color, true);
  EXPECT_EQ(Pixel(45, 20), GetShadowColor(color, 20));
}

// What the grid passes is a system color, whose value the active style decides.
TEST_F(MarlGraphTest, FillCellWorksTheShadesOutAgainWhenAStyleSwitchMovesTheColor) {
  TMarlGradient gradient(nullptr);
  gradient.FillCell(canvas(), Rect(0, 0, 10, 40), clHighlight, true);
  gradient.FillCell(canvas(), Rect(10, 0, 20, 40), clHighlight, false);
  const TColor systemFlat = Pixel(5, 20);
  EXPECT_EQ(systemFlat, GetShadowColor(ColorToRGB(clHighlight), 20));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  const TColor dark = ColorToRGB(clHighlight);
  gradient.FillCell(canvas(), Rect(20, 0, 30, 40), clHighlight, true);
  gradient.FillCell(canvas(), Rect(30, 0, 40, 40), clHighlight, false);
  EXPECT_NE(Pixel(25, 20), systemFlat);
  EXPECT_EQ(Pixel(25, 20), GetShadowColor(dark, 20));
  ExpectNear(Pixel(35, 0), GetShadowColor(dark, 35));
  ExpectNear(Pixel(35, 39), GetShadowColor(dark, 10));
}

TEST_F(MarlGraphTest, FillBackPutsTheGradientBehindWhatIsDrawn) {
  const TColor background = RGB(200, 200, 200);
  canvas()->Brush()->SetColor(background);
  canvas()->FillRect(Rect(0, 0, 40, 40));
  canvas()->Brush()->SetColor(clBlack);
  canvas()->FillRect(Rect(15, 15, 25, 25));  // the glyph
  TMarlGradient gradient(nullptr);
  gradient.SetStartColor(clWhite);
  gradient.FillBack(canvas(), Rect(0, 0, 40, 40), background, 0, 0, false, false, false);
  Snapshot("gradient_back");
  EXPECT_EQ(Pixel(20, 20), clBlack);
  ExpectNear(Pixel(20, 0), clWhite);
  ExpectNear(Pixel(20, 39), TMarlGradient::ShadowColor(background, -25));
}

TEST_F(MarlGraphTest, FillBackWithNoRoomInsideTheMarginDoesNothing) {
  TMarlGradient gradient(nullptr);
  gradient.FillBack(canvas(), Rect(0, 0, 10, 10), clWhite, 2, 3, false, false, false);
  for (int x = 0; x < 12; ++x) EXPECT_EQ(Pixel(x, 5), clWhite) << x;
}

// The extent of the filled area is read off a plain fill in the end color, on a white
// canvas whose white is the background that FillBack lays back transparently.
class FillBackGrowthTest : public MarlGraphTest {
protected:
  // The filled rectangle, as the first and last pixels that are not white along the
  // diagonal-free middle lines of the 40 by 40 square at the origin.
  TRect Filled() {
    TRect filled = Rect(-1, -1, -1, -1);
    for (int x = 0; x < 40; ++x)
      if (Pixel(x, 20) != clWhite) {
        if (filled.Left < 0) filled.Left = x;
        filled.Right = x + 1;
      }
    for (int y = 0; y < 40; ++y)
      if (Pixel(20, y) != clWhite) {
        if (filled.Top < 0) filled.Top = y;
        filled.Bottom = y + 1;
      }
    return filled;
  }
  TRect Grown(TMarlGradient& gradient, bool hot, bool pressed, bool styled = false) {
    SetUp();
    if (styled) gradient.FillStyleBack(canvas(), Rect(0, 0, 40, 40), clWhite, 5, 0, hot, pressed, true);
    else gradient.FillBack(canvas(), Rect(0, 0, 40, 40), clWhite, 5, 0, hot, pressed, true);
    return Filled();
  }
};

TEST_F(FillBackGrowthTest, APlainButtonGrowsUpAndLeftAPressedOneDownAndRight) {
  TMarlGradient gradient(nullptr);
  gradient.SetOptions({});
  gradient.SetEndColor(clRed);
  gradient.FillBack(canvas(), Rect(0, 0, 40, 40), clWhite, 5, 0, false, false, false);
  EXPECT_EQ(Filled(), Rect(5, 5, 35, 35));
  EXPECT_EQ(Pixel(20, 20), clRed);
  EXPECT_EQ(Grown(gradient, false, false), Rect(4, 4, 35, 35));
  EXPECT_EQ(Grown(gradient, false, true), Rect(5, 5, 36, 36));
  // Hot without hot tracking grows as a plain button does.
  EXPECT_EQ(Grown(gradient, true, true), Rect(5, 5, 36, 36));
}

TEST_F(FillBackGrowthTest, AHotTrackedButtonGrowsOnAllSides) {
  TMarlGradient gradient(nullptr);
  gradient.SetOptions({goHotTrack});
  gradient.SetEndColor(clRed);
  EXPECT_EQ(Grown(gradient, true, true), Rect(4, 4, 36, 36));
  EXPECT_EQ(Grown(gradient, true, false), Rect(4, 4, 36, 36));
}

TEST_F(FillBackGrowthTest, AStyledButtonGrowsOnAllSidesOnlyWhenHot) {
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  TMarlGradient gradient(nullptr);
  gradient.SetOptions({});
  EXPECT_EQ(Grown(gradient, false, false, true), Rect(5, 5, 35, 35));
  EXPECT_EQ(Grown(gradient, false, true, true), Rect(5, 5, 35, 35));
  EXPECT_EQ(Grown(gradient, true, false, true), Rect(4, 4, 36, 36));
}

TEST_F(MarlGraphTest, FillStepEndsInTheStepColorAndPutsTheEndColorBack) {
  TMarlGradient gradient(nullptr);
  gradient.SetStartColor(clWhite);
  gradient.SetEndColor(clRed);
  gradient.SetStepColor(clBlue);
  canvas()->Brush()->SetColor(clSilver);
  canvas()->FillRect(Rect(0, 0, 20, 40));
  gradient.FillStep(canvas(), Rect(0, 0, 20, 40), clSilver, 0, 0, false, false, false);
  ExpectNear(Pixel(10, 39), TMarlGradient::ShadowColor(clBlue, -25));
  EXPECT_EQ(gradient.EndColor(), clRed);
}

TEST_F(MarlGraphTest, FillStyleRectRunsFromLighterToDarkerAndPlainWithoutGradients) {
  TMarlGradient gradient(nullptr);
  const TColor color = RGB(100, 150, 90);
  gradient.FillStyleRect(canvas(), Rect(0, 0, 20, 40), color);
  ExpectNear(Pixel(10, 0), TMarlGradient::ShadowColor(color, 12));
  ExpectNear(Pixel(10, 39), TMarlGradient::ShadowColor(color, -12));
  gradient.SetSwapColors(true);
  gradient.FillStyleRect(canvas(), Rect(20, 0, 40, 40), color);
  ExpectNear(Pixel(30, 0), TMarlGradient::ShadowColor(color, -12));
  GradientEnabled = false;
  gradient.FillStyleRect(canvas(), Rect(40, 0, 60, 40), color);
  EXPECT_EQ(Pixel(50, 0), color);
}

struct StyleBackCase {
  const char* name;
  bool hot, pressed;
  TThemedGrid gradientPart, classicPart;
};

class FillStyleBackTest : public MarlGraphTest, public ::testing::WithParamInterface<StyleBackCase> {};

// The fixed grid cell of the button's state: its gradient pair with gradients on, else
// its fill.
TEST_P(FillStyleBackTest, TakesTheColorsOfTheStylesElementForTheState) {
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  const StyleBackCase& row = GetParam();
  const TCustomStyleServices* style = StyleServices();
  const TThemedElementDetails gradientPart = TCustomStyleServices::GetElementDetails(row.gradientPart);
  TColor top = clNone, bottom = clNone, classic = clNone;
  style->GetElementColor(gradientPart, ecGradientColor1, top);
  style->GetElementColor(gradientPart, ecGradientColor2, bottom);
  style->GetElementColor(TCustomStyleServices::GetElementDetails(row.classicPart), ecFillColor, classic);
  TMarlGradient gradient(nullptr);
  gradient.FillStyleBack(canvas(), Rect(0, 0, 20, 40), clWhite, 0, 0, row.hot, row.pressed, false);
  ExpectNear(Pixel(10, 0), top);
  ExpectNear(Pixel(10, 39), bottom);
  gradient.SetOptions({});
  gradient.FillStyleBack(canvas(), Rect(20, 0, 40, 40), clWhite, 0, 0, row.hot, row.pressed, false);
  EXPECT_EQ(Pixel(30, 20), classic);
}

INSTANTIATE_TEST_SUITE_P(
    States, FillStyleBackTest,
    ::testing::Values(StyleBackCase{"Normal", false, false, tgGradientFixedCellNormal, tgClassicFixedCellNormal},
                      StyleBackCase{"Hot", true, false, tgGradientFixedCellHot, tgClassicFixedCellHot},
                      StyleBackCase{"Pressed", false, true, tgGradientFixedCellPressed, tgClassicFixedCellPressed}),
    [](const ::testing::TestParamInfo<StyleBackCase>& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace quil
