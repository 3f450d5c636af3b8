#include <gtest/gtest.h>

#include "PixelProbe.h"
#include "framework/graphics/StyleServices.h"

using namespace quil;

namespace {

// Every test leaves the system style active, as it found it.
class StyleServicesTest : public ::testing::Test {
protected:
  void TearDown() override { TStyleManager::SetStyle(TStyleManager::SystemStyleName()); }

  static TColor SystemColorIn(const QString& style, TColor color) {
    TStyleManager::SetStyle(style);
    return ColorToRGB(color);
  }
};

class Listener : public TObject {
public:
  std::vector<QString> heard;
  void Changed(TObject* sender) { heard.push_back(static_cast<TCustomStyleServices*>(sender)->Name()); }
};

}  // namespace

TEST_F(StyleServicesTest, ComesWithTheSystemStyleAndALightAndADarkOne) {
  EXPECT_EQ(TStyleManager::StyleNames(), (QStringList{"Windows", "Quil Light", "Quil Dark"}));
  EXPECT_FALSE(TStyleManager::IsCustomStyleActive());
  TStyleManager::SetStyle(QStringLiteral("quil dark"));
  EXPECT_TRUE(TStyleManager::IsCustomStyleActive());
  EXPECT_EQ(TStyleManager::ActiveStyle().Name(), QStringLiteral("Quil Dark"));
  EXPECT_EQ(StyleServices(), &TStyleManager::ActiveStyle());
}

TEST_F(StyleServicesTest, UnknownStyleIsRefusedAndTheActiveOneStays) {
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_FALSE(TStyleManager::TrySetStyle(QStringLiteral("Nope")));
  EXPECT_THROW(TStyleManager::SetStyle(QStringLiteral("Nope")), EStyleEngineException);
  EXPECT_EQ(TStyleManager::ActiveStyle().Name(), QStringLiteral("Quil Light"));
  TStyleScheme taken = LightStyleScheme();
  EXPECT_THROW(TStyleManager::RegisterStyle(taken), EStyleEngineException);
}

TEST_F(StyleServicesTest, DarkChangesEverySystemColorOfLight) {
  for (int index = 0; index < SystemColorCount; ++index) {
    if (index == 25) continue;  // no system color has this index
    TColor light = SystemColorIn(QStringLiteral("Quil Light"), SystemColor(index));
    TColor dark = SystemColorIn(QStringLiteral("Quil Dark"), SystemColor(index));
    EXPECT_NE(light, dark) << "system color " << index;
    EXPECT_FALSE(IsSystemColor(dark)) << "system color " << index;
  }
}

TEST_F(StyleServicesTest, DarkWindowsAreDarkerThanTheirText) {
  auto luminance = [](TColor color) { return GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color); };
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_LT(luminance(ColorToRGB(clWindow)), luminance(ColorToRGB(clWindowText)));
  EXPECT_EQ(StyleServices()->GetStyleColor(scGrid), StyleServices()->Scheme()[srWindow]);
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_GT(luminance(ColorToRGB(clWindow)), luminance(ColorToRGB(clWindowText)));
}

TEST_F(StyleServicesTest, HandlersHearEverySwitchOnce) {
  Listener listener;
  TNotifyEvent handler(&listener, &Listener::Changed);
  TStyleManager::AddStyleChangedHandler(handler);
  TStyleManager::AddStyleChangedHandler(handler);
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  TStyleManager::RemoveStyleChangedHandler(handler);
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  EXPECT_EQ(listener.heard, (std::vector<QString>{"Quil Dark", "Quil Light"}));
}

TEST_F(StyleServicesTest, CheckedAndUncheckedBoxesDrawDifferently) {
  TBitmap unchecked, checked;
  test::WhiteBitmap(unchecked, 20, 20);
  test::WhiteBitmap(checked, 20, 20);
  TCustomStyleServices* style = StyleServices();
  TSize size;
  ASSERT_TRUE(style->GetElementSize(nullptr, style->GetElementDetails(tbCheckBoxCheckedNormal), esActual, size));
  EXPECT_GT(size.cx, 8);
  ASSERT_TRUE(style->DrawElement(unchecked.Canvas(), style->GetElementDetails(tbCheckBoxUncheckedNormal), Rect(2, 2, 18, 18)));
  ASSERT_TRUE(style->DrawElement(checked.Canvas(), style->GetElementDetails(tbCheckBoxCheckedNormal), Rect(2, 2, 18, 18)));
  EXPECT_GT(test::CountInk(unchecked, Rect(0, 0, 20, 20)), 20);
  EXPECT_GT(test::CountInk(checked, Rect(0, 0, 20, 20)), test::CountInk(unchecked, Rect(0, 0, 20, 20)));
  // Nothing lands outside the rectangle.
  EXPECT_EQ(test::CountInk(checked, Rect(0, 0, 20, 2)), 0);
}
