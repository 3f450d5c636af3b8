#pragma once
// Shared pieces of the glyph tests: a custom style held for the length of a test, beside
// the grid kit's resolution.

#include "GridTestKit.h"
#include "framework/graphics/StyleServices.h"

namespace gridtest {

// Makes a dark scheme with the two alternate row colors active, registered under name
// the first time.
class TTestStyle {
public:
  TTestStyle(const QString& name, quil::TColor alternate1, quil::TColor alternate2) {
    if (!quil::TStyleManager::StyleNames().contains(name)) {
      quil::TStyleScheme scheme = quil::DarkStyleScheme();
      scheme.Name = name;
      scheme[quil::srAlternateRow1] = alternate1;
      scheme[quil::srAlternateRow2] = alternate2;
      quil::TStyleManager::RegisterStyle(scheme);
    }
    quil::TStyleManager::SetStyle(name);
  }
  ~TTestStyle() { quil::TStyleManager::SetStyle(quil::TStyleManager::SystemStyleName()); }
};

}  // namespace gridtest
