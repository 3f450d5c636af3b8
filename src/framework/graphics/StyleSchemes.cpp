#include <QGuiApplication>
#include <QPalette>

#include "framework/graphics/Colors_p.h"
#include "framework/graphics/StyleScheme.h"

namespace quil {

namespace {
// weight is the share of a, from 0 to 100.
TColor Mix(TColor a, TColor b, int weight) {
  auto channel = [&](int (*get)(TColor)) { return (get(a) * weight + get(b) * (100 - weight) + 50) / 100; };
  return RGB(channel(GetRValue), channel(GetGValue), channel(GetBValue));
}

TColor Of(const QPalette& palette, QPalette::ColorRole role,
          QPalette::ColorGroup group = QPalette::Active) {
  return FromQColor(palette.color(group, role));
}
}  // namespace

TStyleScheme SystemStyleScheme() {
  const QPalette palette = QGuiApplication::palette();
  TStyleScheme scheme{QStringLiteral("Windows"), {}};
  scheme[srWindow] = Of(palette, QPalette::Base);
  scheme[srWindowText] = Of(palette, QPalette::Text);
  scheme[srFace] = Of(palette, QPalette::Button);
  scheme[srFaceText] = Of(palette, QPalette::ButtonText);
  scheme[srLight] = Of(palette, QPalette::Light);
  scheme[srMidlight] = Of(palette, QPalette::Midlight);
  scheme[srShadow] = Of(palette, QPalette::Dark);
  scheme[srDarkShadow] = Of(palette, QPalette::Shadow);
  scheme[srHighlight] = Of(palette, QPalette::Highlight);
  scheme[srHighlightText] = Of(palette, QPalette::HighlightedText);
  scheme[srGrayText] = Of(palette, QPalette::Text, QPalette::Disabled);
  scheme[srInfoBk] = Of(palette, QPalette::ToolTipBase);
  scheme[srInfoText] = Of(palette, QPalette::ToolTipText);
  scheme[srHotLight] = Of(palette, QPalette::Link);
  scheme[srActiveCaption] = scheme[srHighlight];
  scheme[srCaptionText] = scheme[srHighlightText];
  scheme[srInactiveCaption] = scheme[srMidlight];
  scheme[srInactiveCaptionText] = Of(palette, QPalette::WindowText);
  scheme[srAppWorkSpace] = Of(palette, QPalette::Mid);
  scheme[srBorder] = Of(palette, QPalette::Mid);
  scheme[srGridLine] = Mix(scheme[srFace], scheme[srShadow], 60);
  scheme[srHeaderGradientBase] = Mix(scheme[srLight], scheme[srFace], 50);
  scheme[srHeaderGradientEnd] = scheme[srFace];
  scheme[srAlternateRow1] = Of(palette, QPalette::AlternateBase);
  scheme[srAlternateRow2] = Mix(scheme[srAlternateRow1], scheme[srFace], 50);
  scheme[srRowSelected] = Mix(scheme[srHighlight], scheme[srWindow], 30);
  scheme[srButtonHot] = Mix(scheme[srHighlight], scheme[srFace], 15);
  scheme[srButtonPressed] = Mix(scheme[srHighlight], scheme[srFace], 30);
  return scheme;
}

TStyleScheme LightStyleScheme() {
  TStyleScheme scheme{QStringLiteral("Quil Light"), {}};
  scheme[srWindow] = RGB(255, 255, 255);
  scheme[srWindowText] = RGB(30, 30, 36);
  scheme[srFace] = RGB(240, 241, 245);
  scheme[srFaceText] = RGB(20, 22, 30);
  scheme[srLight] = RGB(255, 255, 255);
  scheme[srMidlight] = RGB(226, 228, 234);
  scheme[srShadow] = RGB(158, 162, 172);
  scheme[srDarkShadow] = RGB(102, 106, 116);
  scheme[srHighlight] = RGB(38, 117, 191);
  scheme[srHighlightText] = RGB(255, 255, 255);
  scheme[srGrayText] = RGB(141, 144, 153);
  scheme[srInfoBk] = RGB(255, 253, 228);
  scheme[srInfoText] = RGB(40, 40, 40);
  scheme[srHotLight] = RGB(0, 102, 204);
  scheme[srActiveCaption] = RGB(38, 117, 191);
  scheme[srCaptionText] = RGB(255, 255, 255);
  scheme[srInactiveCaption] = RGB(214, 220, 230);
  scheme[srInactiveCaptionText] = RGB(72, 76, 86);
  scheme[srAppWorkSpace] = RGB(171, 174, 182);
  scheme[srBorder] = RGB(173, 178, 188);
  scheme[srGridLine] = RGB(218, 221, 226);
  scheme[srHeaderGradientBase] = RGB(251, 251, 253);
  scheme[srHeaderGradientEnd] = RGB(228, 231, 238);
  scheme[srAlternateRow1] = RGB(246, 248, 251);
  scheme[srAlternateRow2] = RGB(237, 241, 247);
  scheme[srRowSelected] = RGB(204, 226, 247);
  scheme[srButtonHot] = RGB(229, 241, 251);
  scheme[srButtonPressed] = RGB(196, 222, 245);
  return scheme;
}

TStyleScheme DarkStyleScheme() {
  TStyleScheme scheme{QStringLiteral("Quil Dark"), {}};
  scheme[srWindow] = RGB(37, 37, 40);
  scheme[srWindowText] = RGB(230, 230, 232);
  scheme[srFace] = RGB(51, 52, 56);
  scheme[srFaceText] = RGB(236, 236, 238);
  scheme[srLight] = RGB(92, 93, 99);
  scheme[srMidlight] = RGB(72, 73, 78);
  scheme[srShadow] = RGB(28, 28, 31);
  scheme[srDarkShadow] = RGB(12, 12, 14);
  scheme[srHighlight] = RGB(9, 90, 150);
  scheme[srHighlightText] = RGB(242, 246, 250);
  scheme[srGrayText] = RGB(124, 125, 130);
  scheme[srInfoBk] = RGB(62, 62, 66);
  scheme[srInfoText] = RGB(230, 230, 230);
  scheme[srHotLight] = RGB(86, 156, 214);
  scheme[srActiveCaption] = RGB(0, 110, 190);
  scheme[srCaptionText] = RGB(240, 244, 248);
  scheme[srInactiveCaption] = RGB(63, 63, 70);
  scheme[srInactiveCaptionText] = RGB(160, 160, 164);
  scheme[srAppWorkSpace] = RGB(30, 30, 32);
  scheme[srBorder] = RGB(78, 79, 84);
  scheme[srGridLine] = RGB(64, 65, 70);
  scheme[srHeaderGradientBase] = RGB(66, 67, 72);
  scheme[srHeaderGradientEnd] = RGB(46, 47, 51);
  scheme[srAlternateRow1] = RGB(44, 44, 48);
  scheme[srAlternateRow2] = RGB(52, 53, 57);
  scheme[srRowSelected] = RGB(38, 66, 96);
  scheme[srButtonHot] = RGB(64, 66, 72);
  scheme[srButtonPressed] = RGB(0, 96, 168);
  return scheme;
}

}  // namespace quil
