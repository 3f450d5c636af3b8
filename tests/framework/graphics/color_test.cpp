#include <gtest/gtest.h>

#include "framework/graphics/Colors.h"
#include "framework/graphics/StyleServices.h"
#include "framework/rtl/Exceptions.h"

namespace quil {
namespace {

TEST(TColor, SpecialValuesHaveTheFrameworksNumbers) {
  EXPECT_EQ(clNone, 536870911);
  EXPECT_EQ(clDefault, 536870912);
  EXPECT_EQ(uint32_t(clWindow), 0xFF000005u);
  EXPECT_EQ(uint32_t(clBtnFace), 0xFF00000Fu);
  EXPECT_EQ(uint32_t(clMenuBar), 0xFF00001Eu);
  EXPECT_EQ(clOlive, 32896);
  EXPECT_EQ(clSilver, 12632256);
}

TEST(TColor, RgbPacksBlueGreenRed) {
  EXPECT_EQ(RGB(0x12, 0x34, 0x56), 0x563412);
  EXPECT_EQ(GetRValue(0x563412), 0x12);
  EXPECT_EQ(GetGValue(0x563412), 0x34);
  EXPECT_EQ(GetBValue(0x563412), 0x56);
  EXPECT_EQ(RGB(255, 0, 0), clRed);
  EXPECT_EQ(RGB(0, 0, 255), clBlue);
}

TEST(TColor, ColorToRgbLeavesPlainAndSpecialColorsAlone) {
  EXPECT_EQ(ColorToRGB(clRed), clRed);
  EXPECT_EQ(ColorToRGB(0x123456), 0x123456);
  EXPECT_EQ(ColorToRGB(clNone), clNone);
  EXPECT_EQ(ColorToRGB(clDefault), clDefault);
}

TEST(TColor, ColorToRgbResolvesSystemColorsToPlainOnes) {
  for (int index = 0; index < SystemColorCount; ++index) {
    const TColor resolved = ColorToRGB(SystemColor(index));
    EXPECT_GE(resolved, 0) << index;
    EXPECT_LE(resolved, 0xFFFFFF) << index;
    EXPECT_EQ(resolved, GetSysColor(index)) << index;
  }
}

TEST(TColor, ColorToStringNamesKnownColorsAndSpellsOthersInHex) {
  EXPECT_EQ(ColorToString(clRed), QStringLiteral("clRed"));
  EXPECT_EQ(ColorToString(clWindow), QStringLiteral("clWindow"));
  EXPECT_EQ(ColorToString(clNone), QStringLiteral("clNone"));
  EXPECT_EQ(ColorToString(clSilver), QStringLiteral("clSilver"));
  EXPECT_EQ(ColorToString(0x123456), QStringLiteral("$00123456"));
  EXPECT_EQ(ColorToString(TColor(0xFF00FFAB)), QStringLiteral("$FF00FFAB"));
}

TEST(TColor, StringToColorReadsNamesHexAndDecimal) {
  EXPECT_EQ(StringToColor(QStringLiteral("clRed")), clRed);
  EXPECT_EQ(StringToColor(QStringLiteral("CLRED")), clRed);
  EXPECT_EQ(StringToColor(QStringLiteral("clBtnFace")), clBtnFace);
  EXPECT_EQ(StringToColor(QStringLiteral("clLtGray")), clSilver);
  EXPECT_EQ(StringToColor(QStringLiteral("$00FF0000")), clBlue);
  EXPECT_EQ(StringToColor(QStringLiteral("$FF000005")), clWindow);
  EXPECT_EQ(StringToColor(QStringLiteral("255")), clRed);
  EXPECT_EQ(StringToColor(QStringLiteral("-16777211")), clWindow);
}

TEST(TColor, StringToColorRaisesOnText) {
  EXPECT_THROW(StringToColor(QStringLiteral("clReddish")), EConvertError);
  EXPECT_THROW(StringToColor(QStringLiteral("$XYZ")), EConvertError);
  EXPECT_THROW(StringToColor(QString()), EConvertError);
}

TEST(TColor, ColorStringsRoundTrip) {
  for (TColor color : {clBlack, clMoneyGreen, clHighlight, clDefault, TColor(0x00ABCDEF), TColor(0x01020304)})
    EXPECT_EQ(StringToColor(ColorToString(color)), color) << ColorToString(color).toStdString();
}

}  // namespace
}  // namespace quil
