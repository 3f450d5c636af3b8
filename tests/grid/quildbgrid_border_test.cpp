// The grid's border: the frame the softer fixed styles draw over the base's, and when a
// change of the look recreates the window or works out the rows again.
#include <gtest/gtest.h>

#include "GridTestKit.h"
#include "framework/graphics/StyleServices.h"

using namespace quil;

namespace gridtest {
namespace {

class GridBorderTest : public GridFixture {
protected:
  void TearDown() override {
    GridFixture::TearDown();
    TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  }
  // The two outer corners of the window's frame, as painted now.
  std::pair<TColor, TColor> FrameCorners() {
    Settle();
    const QImage image = Grab();
    return {At(image, 0, 0), At(image, image.width() - 1, image.height() - 1)};
  }
  // The corners the base draws for the same window under fsDefault.
  std::pair<TColor, TColor> BaseFrameCorners() {
    const TFixedStyle fixedStyle = grid->FixedStyle();
    grid->SetFixedStyle(fsDefault);
    const std::pair<TColor, TColor> corners = FrameCorners();
    grid->SetFixedStyle(fixedStyle);
    return corners;
  }
  static std::pair<TColor, TColor> Both(TColor color) { return {ColorToRGB(color), ColorToRGB(color)}; }
  // The windows made for the grid while action runs.
  template <typename Action>
  int WindowsMadeBy(Action action) {
    grid->windowsMade = 0;
    action();
    return grid->windowsMade;
  }
};

TEST_F(GridBorderTest, SofterFixedStylesFrameTheBorderThemselves) {
  Open(30);
  grid->SetFixedTheme(ftNone);
  ASSERT_FALSE(grid->GridCtl3D());
  const std::pair<TColor, TColor> plainFrame = FrameCorners();
  EXPECT_EQ(plainFrame.first, ColorToRGB(clWindowFrame));
  grid->SetFixedStyle(fsFine);
  EXPECT_EQ(FrameCorners(), Both(clBtnShadow));
  Save(Grab(), "grid_border_mild");
  // Without row lines the base's frame stands.
  grid->SwitchOptions({dgRowLines}, false);
  EXPECT_EQ(FrameCorners(), plainFrame);
}

struct BorderCase {
  TFixedStyle fixedStyle;
  TColor corners;  // both outer corners
};

class GridBorderStyleTest : public GridBorderTest, public ::testing::WithParamInterface<BorderCase> {};

// The mild frame is the outer edge pair, whose corners are the button shadow; the other
// is the inner pair, whose corners are the darkest shadow.
TEST_P(GridBorderStyleTest, AnUnthemedFlatBorderTakesTheFrameOfTheFixedStyle) {
  Open(30);
  grid->SetFixedTheme(ftNone);
  grid->SetFixedStyle(GetParam().fixedStyle);
  ASSERT_FALSE(grid->GridCtl3D());
  EXPECT_EQ(FrameCorners(), Both(GetParam().corners));
}

INSTANTIATE_TEST_SUITE_P(Table, GridBorderStyleTest,
                         ::testing::Values(BorderCase{fsSoft, cl3DDkShadow}, BorderCase{fsGreat, cl3DDkShadow},
                                           BorderCase{fsGray, cl3DDkShadow}, BorderCase{fsFine, clBtnShadow},
                                           BorderCase{fsMild, clBtnShadow}));

TEST_F(GridBorderTest, AThemedGridWithAFlatBorderGetsTheMildFrame) {
  Open(30);
  grid->SetCtl3D(false);
  ASSERT_TRUE(grid->IsGridThemed(false));
  EXPECT_EQ(FrameCorners(), Both(clBtnShadow));
}

TEST_F(GridBorderTest, ARaisedBorderOrACustomStyleKeepsTheBasesFrame) {
  Open(30);
  grid->SetFixedTheme(ftNone);
  grid->SetCtl3D(true);
  grid->SetFixedStyle(fsSoft);
  EXPECT_EQ(FrameCorners(), BaseFrameCorners());
  EXPECT_NE(FrameCorners(), Both(cl3DDkShadow));
  // The light style's own frame has the darkest shadow's color: the mild frame differs.
  grid->SetCtl3D(false);
  grid->SetFixedStyle(fsFine);
  TStyleManager::SetStyle(QStringLiteral("Quil Light"));
  EXPECT_EQ(FrameCorners(), BaseFrameCorners());
  EXPECT_NE(FrameCorners(), Both(clBtnShadow));
}

TEST_F(GridBorderTest, EachPaintOfTheFrameReachesTheCorner) {
  Open(30);
  grid->cornerPaints = 0;
  Grab();
  EXPECT_EQ(grid->cornerPaints, 1);
}

// Only a window with a single flat border is made again: its frame is part of the
// window.
TEST_F(GridBorderTest, UpdateBorderRecreatesOnlyASingleFlatBorder) {
  Open(30);
  grid->SetCtl3D(false);
  EXPECT_EQ(WindowsMadeBy([&] { grid->UpdateBorder(false); }), 0);
  EXPECT_EQ(WindowsMadeBy([&] { grid->UpdateBorder(true); }), 1);
  EXPECT_TRUE(grid->HandleAllocated());
  grid->SetCtl3D(true);
  EXPECT_EQ(WindowsMadeBy([&] { grid->UpdateBorder(true); }), 0);
  grid->SetCtl3D(false);
  grid->SetBorderStyle(bsNone);
  EXPECT_EQ(WindowsMadeBy([&] { grid->UpdateBorder(true); }), 0);
}

// While Ctl3DAuto holds, a border that must turn is turned, and that is all.
TEST_F(GridBorderTest, UpdateBorderTurnsAnAutomaticBorderInsteadOfRecreating) {
  Open(30);
  grid->SetFixedTheme(ftNone);
  ASSERT_TRUE(grid->Ctl3DAuto());
  ASSERT_FALSE(grid->GridCtl3D());
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedTheme(ftDefault); }), 0);
  EXPECT_TRUE(grid->GridCtl3D());
}

TEST_F(GridBorderTest, AThemeChangeAcrossNoneRecreatesTheWindow) {
  Open(30);
  grid->SetCtl3D(false);
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedTheme(ftTabs); }), 0) << "both themed";
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedTheme(ftNone); }), 1);
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedTheme(ftButtons); }), 1);
}

TEST_F(GridBorderTest, AFixedStyleChangeRecreatesAnUnthemedWindowAndCountsTheRowsAgain) {
  Open(30);
  grid->SetFixedTheme(ftNone);
  grid->SetCtl3D(false);
  const int rowCount = grid->RowCount();
  grid->BeginLayout();
  grid->SetRowCount(rowCount + 5);
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedStyle(fsGray); }), 1);
  // The layout waits for the transaction; the rows are counted now.
  EXPECT_EQ(grid->RowCount(), rowCount);
  grid->EndLayout();
  // Themed, the style leaves the window.
  grid->SetFixedTheme(ftDefault);
  EXPECT_EQ(WindowsMadeBy([&] { grid->SetFixedStyle(fsSoft); }), 0);
}

}  // namespace
}  // namespace gridtest
