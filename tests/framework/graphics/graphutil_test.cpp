#include <gtest/gtest.h>

#include "framework/graphics/GraphUtil.h"
#include "framework/graphics/StyleServices.h"

namespace quil {
namespace {

int Luminance(TColor color) {
  int hue = 0, luminance = 0, saturation = 0;
  ColorRGBToHLS(color, hue, luminance, saturation);
  return luminance;
}

TEST(GraphUtil, HlsRoundTripKeepsPlainColors) {
  for (TColor color : {clRed, clLime, clBlue, clTeal, clSilver, TColor(0x3C7A19), TColor(0xD2E4F5)}) {
    int hue = 0, luminance = 0, saturation = 0;
    ColorRGBToHLS(color, hue, luminance, saturation);
    const TColor back = ColorHLSToRGB(hue, luminance, saturation);
    // The 240-step scale loses at most a step of each channel.
    EXPECT_NEAR(GetRValue(back), GetRValue(color), 2) << std::hex << color;
    EXPECT_NEAR(GetGValue(back), GetGValue(color), 2) << std::hex << color;
    EXPECT_NEAR(GetBValue(back), GetBValue(color), 2) << std::hex << color;
  }
}

TEST(GraphUtil, HlsScaleRunsFromBlackToWhite) {
  int hue = 0, luminance = 0, saturation = 0;
  ColorRGBToHLS(clWhite, hue, luminance, saturation);
  EXPECT_EQ(luminance, HLSMAX);
  EXPECT_EQ(saturation, 0);
  ColorRGBToHLS(clBlack, hue, luminance, saturation);
  EXPECT_EQ(luminance, 0);
  ColorRGBToHLS(clRed, hue, luminance, saturation);
  EXPECT_EQ(hue, 0);
  EXPECT_EQ(luminance, HLSMAX / 2);
  EXPECT_EQ(saturation, HLSMAX);
}

TEST(GraphUtil, ShadowColorMovesLuminanceOnlyAndStopsAtTheEnds) {
  const TColor base = RGB(40, 90, 160);
  const TColor lighter = GetShadowColor(base, 30);
  const TColor darker = GetShadowColor(base, -30);
  EXPECT_NEAR(Luminance(lighter), Luminance(base) + 30, 1);
  EXPECT_NEAR(Luminance(darker), Luminance(base) - 30, 1);
  // Blue stays the strongest channel: the hue is kept.
  EXPECT_GT(GetBValue(lighter), GetRValue(lighter));
  EXPECT_GT(GetBValue(darker), GetRValue(darker));
  EXPECT_EQ(GetShadowColor(base, 1000), clWhite);
  EXPECT_EQ(GetShadowColor(base, -1000), clBlack);
  EXPECT_EQ(GetShadowColor(clWhite, 10), clWhite);
  const TColor gray = GetShadowColor(clWhite, -24);
  EXPECT_EQ(GetRValue(gray), GetGValue(gray));
  EXPECT_EQ(GetGValue(gray), GetBValue(gray));
  EXPECT_LT(GetRValue(gray), 255);
}

TEST(GraphUtil, ShadowColorResolvesSystemColorsInTheActiveStyle) {
  const TColor window = ColorToRGB(clWindow);
  EXPECT_EQ(GetShadowColor(clWindow, -40), GetShadowColor(window, -40));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_EQ(GetShadowColor(clWindow, 40), GetShadowColor(ColorToRGB(clWindow), 40));
  EXPECT_LT(Luminance(GetShadowColor(clWindow, 0)), Luminance(window));
  TStyleManager::SetStyle(TStyleManager::SystemStyleName());
}

}  // namespace
}  // namespace quil
