#pragma once
// A style scheme: the colors of one named style, by role. The system style reads its
// scheme from the application's palette; custom styles are schemes of their own, and
// an application may register more (TStyleManager::RegisterStyle).

#include <QString>
#include <array>

#include "framework/graphics/Colors.h"

namespace quil {

enum TSchemeRole {
  srWindow, srWindowText, srFace, srFaceText, srLight, srMidlight, srShadow, srDarkShadow,
  srHighlight, srHighlightText, srGrayText, srInfoBk, srInfoText, srHotLight,
  srActiveCaption, srCaptionText, srInactiveCaption, srInactiveCaptionText, srAppWorkSpace,
  srBorder, srGridLine, srHeaderGradientBase, srHeaderGradientEnd, srAlternateRow1,
  srAlternateRow2, srRowSelected, srButtonHot, srButtonPressed,
  srCount
};

struct TStyleScheme {
  QString Name;
  std::array<TColor, srCount> Colors{};  // RGB values, never system colors

  TColor operator[](TSchemeRole role) const { return Colors[size_t(role)]; }
  TColor& operator[](TSchemeRole role) { return Colors[size_t(role)]; }
};

// The scheme of the application's current palette under the name "Windows".
TStyleScheme SystemStyleScheme();
// The custom styles that come with the library: "Quil Light" and "Quil Dark".
TStyleScheme LightStyleScheme();
TStyleScheme DarkStyleScheme();

}  // namespace quil
