// The platform and theme questions of MarlGraph, and the helpers for controls that
// paint over their parent.
#include <gtest/gtest.h>

#include <QImage>

#include "framework/controls/Controls.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/StyleServices.h"
#include "framework/rtl/TypInfo.h"
#include "support/MarlGraph.h"

namespace quil {
namespace {

// A control that publishes the properties ControlNeedsInvalidate looks for.
class TSeeThroughControl : public TWinControl {
public:
  using TWinControl::TWinControl;
  static const TMetaClass& StaticClass() {
    using C = TSeeThroughControl;
    static const TMetaClass meta = TMetaClass("TSeeThroughControl", &TWinControl::StaticClass())
                                       .Published(BoolProp("Transparent", &C::Transparent, &C::SetTransparent));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }
  bool Transparent() const { return transparent_; }
  void SetTransparent(bool value) { transparent_ = value; }

private:
  bool transparent_ = true;
};

TEST(MarlGraphPlatform, VersionQuestions) {
  EXPECT_FALSE(IsWin11Version(10, 19045));
  EXPECT_TRUE(IsWin11Version(10, 22000));
  EXPECT_TRUE(IsWin08Version(10, 0));
  EXPECT_TRUE(IsWin08Version(6, 2));
  EXPECT_FALSE(IsWin08Version(6, 1));
  // The framework draws in the newest manner.
  EXPECT_TRUE(IsVista());
  EXPECT_TRUE(IsWin08());
  EXPECT_TRUE(IsWin11());
}

TEST(MarlGraphPlatform, StylesEnabledFollowsTheCustomStyle) {
  EXPECT_FALSE(StylesEnabled());
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_TRUE(StylesEnabled());
  TStyleManager::SetStyle(TStyleManager::SystemStyleName());
}

// The framework's themes are always on, so a control never needs repainting for what
// lies behind it, whatever it publishes.
TEST(MarlGraphPlatform, UnderThemesNoControlNeedsInvalidate) {
  ASSERT_TRUE(ThemesEnabled());
  TSeeThroughControl control(nullptr);
  ASSERT_TRUE(GetOrdProp(&control, QStringLiteral("Transparent")));
  EXPECT_FALSE(ControlNeedsInvalidate(&control));
  EXPECT_FALSE(ControlNeedsInvalidate(nullptr));
  EXPECT_EQ(NeedsInvalidate, &ControlNeedsInvalidate);
}

TEST(MarlGraphPlatform, SetupParentBackgroundSwitchesTheControlStyle) {
  TWinControl control(nullptr);
  SetupParentBackground(&control, true);
  EXPECT_TRUE(control.ControlStyle().Contains(csParentBackground));
  SetupParentBackground(&control, false);
  EXPECT_FALSE(control.ControlStyle().Contains(csParentBackground));
}

TEST(MarlGraphPlatform, ClearBackgroundFillsTheClientAreaWithTheParentsColor) {
  TBitmap bitmap(60, 40);
  bitmap.Canvas()->Brush()->SetColor(clWhite);
  bitmap.Canvas()->FillRect(Rect(0, 0, 60, 40));
  TWinControl parent(nullptr);
  parent.SetColor(clTeal);
  TWinControl control(nullptr);
  control.SetBounds(0, 0, 30, 20);
  ClearBackground(&control, bitmap.Canvas());
  EXPECT_EQ(bitmap.ToImage().pixel(5, 5), QColor(Qt::white).rgb()) << "no parent: nothing";
  control.SetParent(&parent);
  bitmap.Canvas()->Brush()->SetColor(clRed);
  ClearBackground(&control, bitmap.Canvas());
  const QImage image = bitmap.ToImage();
  EXPECT_EQ(image.pixel(29, 19), QColor(0, 128, 128).rgb());
  EXPECT_EQ(image.pixel(30, 19), QColor(Qt::white).rgb());
  EXPECT_EQ(bitmap.Canvas()->Brush()->Color(), clRed) << "the brush is restored";
  control.SetParent(nullptr);
}

}  // namespace
}  // namespace quil
