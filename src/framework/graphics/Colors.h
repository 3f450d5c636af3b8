#pragma once
// TColor: the framework's 32-bit color. An RGB color is 0x00BBGGRR; a system color is
// 0xFF0000nn with the framework's index nn, resolved through the active style by
// ColorToRGB; clNone and clDefault stand outside both ranges.

#include <QString>
#include <cstdint>

namespace quil {

using TColor = int32_t;

constexpr TColor clSystemColor = TColor(0xFF000000);
constexpr TColor SystemColor(int index) { return clSystemColor | index; }

constexpr TColor clScrollBar = SystemColor(0);
constexpr TColor clBackground = SystemColor(1);
constexpr TColor clActiveCaption = SystemColor(2);
constexpr TColor clInactiveCaption = SystemColor(3);
constexpr TColor clMenu = SystemColor(4);
constexpr TColor clWindow = SystemColor(5);
constexpr TColor clWindowFrame = SystemColor(6);
constexpr TColor clMenuText = SystemColor(7);
constexpr TColor clWindowText = SystemColor(8);
constexpr TColor clCaptionText = SystemColor(9);
constexpr TColor clActiveBorder = SystemColor(10);
constexpr TColor clInactiveBorder = SystemColor(11);
constexpr TColor clAppWorkSpace = SystemColor(12);
constexpr TColor clHighlight = SystemColor(13);
constexpr TColor clHighlightText = SystemColor(14);
constexpr TColor clBtnFace = SystemColor(15);
constexpr TColor clBtnShadow = SystemColor(16);
constexpr TColor clGrayText = SystemColor(17);
constexpr TColor clBtnText = SystemColor(18);
constexpr TColor clInactiveCaptionText = SystemColor(19);
constexpr TColor clBtnHighlight = SystemColor(20);
constexpr TColor cl3DDkShadow = SystemColor(21);
constexpr TColor cl3DLight = SystemColor(22);
constexpr TColor clInfoText = SystemColor(23);
constexpr TColor clInfoBk = SystemColor(24);
constexpr TColor clHotLight = SystemColor(26);
constexpr TColor clGradientActiveCaption = SystemColor(27);
constexpr TColor clGradientInactiveCaption = SystemColor(28);
constexpr TColor clMenuHighlight = SystemColor(29);
constexpr TColor clMenuBar = SystemColor(30);
// One past the highest system color index.
constexpr int SystemColorCount = 31;

constexpr TColor clBlack = 0x000000;
constexpr TColor clMaroon = 0x000080;
constexpr TColor clGreen = 0x008000;
constexpr TColor clOlive = 0x008080;
constexpr TColor clNavy = 0x800000;
constexpr TColor clPurple = 0x800080;
constexpr TColor clTeal = 0x808000;
constexpr TColor clGray = 0x808080;
constexpr TColor clSilver = 0xC0C0C0;
constexpr TColor clRed = 0x0000FF;
constexpr TColor clLime = 0x00FF00;
constexpr TColor clYellow = 0x00FFFF;
constexpr TColor clBlue = 0xFF0000;
constexpr TColor clFuchsia = 0xFF00FF;
constexpr TColor clAqua = 0xFFFF00;
constexpr TColor clWhite = 0xFFFFFF;
constexpr TColor clLtGray = clSilver;
constexpr TColor clDkGray = clGray;
constexpr TColor clMoneyGreen = 0xC0DCC0;
constexpr TColor clSkyBlue = 0xF0CAA6;
constexpr TColor clCream = 0xF0FBFF;
constexpr TColor clMedGray = 0xA4A0A0;

constexpr TColor clNone = 0x1FFFFFFF;
constexpr TColor clDefault = 0x20000000;

constexpr TColor RGB(int red, int green, int blue) {
  return TColor((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}
constexpr int GetRValue(TColor color) { return color & 0xFF; }
constexpr int GetGValue(TColor color) { return (color >> 8) & 0xFF; }
constexpr int GetBValue(TColor color) { return (color >> 16) & 0xFF; }
constexpr bool IsSystemColor(TColor color) { return color < 0; }

// A system color becomes the active style's RGB value; any other color stays as it is.
TColor ColorToRGB(TColor color);
// The active style's RGB value of a system color index (COLOR_WINDOW = 5 ...).
TColor GetSysColor(int index);

// "clRed" for a named color, otherwise "$" and eight hexadecimal digits.
QString ColorToString(TColor color);
// A color name, "$hex" or a decimal number; raises EConvertError for anything else.
TColor StringToColor(const QString& text);
bool IdentToColor(const QString& ident, TColor& color);
bool ColorToIdent(TColor color, QString& ident);

class TIntegerTypeInfo;
// The type of published color properties: streams write a named color by its name.
const TIntegerTypeInfo& ColorTypeInfo();

}  // namespace quil
