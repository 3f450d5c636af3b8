#pragma once
// Shared pieces of the glyph tests: a resolution and a custom style held for the length
// of a test.

#include "framework/controls/Application.h"
#include "framework/graphics/StyleServices.h"

namespace gridtest {

// Sets the pixels per inch that controls report.
class TPixelsPerInch {
public:
  explicit TPixelsPerInch(int ppi) { quil::Screen->SetPixelsPerInchOverride(ppi); }
  ~TPixelsPerInch() { quil::Screen->SetPixelsPerInchOverride(0); }
};

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
