// The framework's frame calls and gradients, painted into bitmaps and read back pixel
// by pixel. QUIL_GRAPHICS_SNAPSHOTS=<folder> keeps the pictures for a look by eye.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

#include "PixelProbe.h"
#include "framework/graphics/FrameDrawing.h"
#include "framework/graphics/Gradient.h"
#include "framework/graphics/Images.h"
#include "framework/graphics/Picture.h"

namespace quil {
namespace {

using test::CountInk;
using test::InkBounds;
using test::PixelAt;

TColor Rgb(TColor color) { return ColorToRGB(color); }

// Pixels inside rect of exactly this color.
int CountColor(TBitmap& bitmap, const TRect& rect, TColor color) {
  const int all = rect.Width() * rect.Height();
  return all - CountInk(bitmap, rect, color);
}

class FrameDrawingTest : public ::testing::Test {
protected:
  void SetUp() override { test::WhiteBitmap(bitmap, 40, 40); }
  HDC dc() { return bitmap.Canvas()->Handle(); }
  TBitmap bitmap;
};

// The colors of the outer and inner rings on the lit (top-left) and the shaded
// (bottom-right) side of a rectangle edged with BF_RECT and the given flags.
struct EdgeCase {
  const char* name;
  unsigned edge;
  unsigned flags;
  TColor outerLit, outerShade, innerLit, innerShade;
};

class DrawEdgeRings : public FrameDrawingTest, public ::testing::WithParamInterface<EdgeCase> {};

TEST_P(DrawEdgeRings, PaintsEachRingInItsColors) {
  const EdgeCase& c = GetParam();
  TRect rect = Rect(0, 0, 20, 20);
  ASSERT_TRUE(DrawEdge(dc(), rect, c.edge, BF_RECT | c.flags));
  test::Snapshot(bitmap, QStringLiteral("edge_%1").arg(QLatin1String(c.name)));
  EXPECT_EQ(PixelAt(bitmap, 0, 10), Rgb(c.outerLit));
  EXPECT_EQ(PixelAt(bitmap, 10, 0), Rgb(c.outerLit));
  EXPECT_EQ(PixelAt(bitmap, 19, 10), Rgb(c.outerShade));
  EXPECT_EQ(PixelAt(bitmap, 10, 19), Rgb(c.outerShade));
  EXPECT_EQ(PixelAt(bitmap, 1, 10), Rgb(c.innerLit));
  EXPECT_EQ(PixelAt(bitmap, 18, 10), Rgb(c.innerShade));
  // The shaded side owns the corners it shares with the lit one.
  EXPECT_EQ(PixelAt(bitmap, 19, 0), Rgb(c.outerShade));
  EXPECT_EQ(PixelAt(bitmap, 0, 19), Rgb(c.outerShade));
  EXPECT_EQ(PixelAt(bitmap, 10, 10), clWhite) << "no BF_MIDDLE: the inside stays";
  EXPECT_EQ(rect, Rect(0, 0, 20, 20)) << "no BF_ADJUST: the rectangle stays";
}

INSTANTIATE_TEST_SUITE_P(Edges, DrawEdgeRings, ::testing::Values(
    EdgeCase{"raised", EDGE_RAISED, 0, cl3DLight, cl3DDkShadow, clBtnHighlight, clBtnShadow},
    EdgeCase{"sunken", EDGE_SUNKEN, 0, clBtnShadow, clBtnHighlight, cl3DDkShadow, cl3DLight},
    EdgeCase{"etched", EDGE_ETCHED, 0, clBtnShadow, clBtnHighlight, clBtnHighlight, clBtnShadow},
    EdgeCase{"bump", EDGE_BUMP, 0, cl3DLight, cl3DDkShadow, cl3DDkShadow, cl3DLight},
    EdgeCase{"raised_soft", EDGE_RAISED, BF_SOFT, clBtnHighlight, cl3DDkShadow, cl3DLight, clBtnShadow},
    EdgeCase{"flat", EDGE_SUNKEN, BF_FLAT, clBtnShadow, clBtnShadow, clBtnFace, clBtnFace},
    EdgeCase{"mono", EDGE_RAISED, BF_MONO, clWindowFrame, clWindowFrame, clWindow, clWindow}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(FrameDrawingTest, DrawEdgeAdjustsFillsAndDrawsOnlyTheNamedSides) {
  bitmap.Canvas()->Brush()->SetColor(clRed);
  bitmap.Canvas()->Pen()->SetColor(clLime);
  TRect rect = Rect(0, 0, 20, 20);
  DrawEdge(dc(), rect, EDGE_RAISED, BF_RECT | BF_ADJUST | BF_MIDDLE);
  EXPECT_EQ(rect, Rect(2, 2, 18, 18));
  EXPECT_EQ(PixelAt(bitmap, 10, 10), Rgb(clBtnFace));
  EXPECT_EQ(bitmap.Canvas()->Brush()->Color(), clRed) << "the canvas keeps its brush";
  EXPECT_EQ(bitmap.Canvas()->Pen()->Color(), clLime);
  test::WhiteBitmap(bitmap, 40, 40);
  TRect corner = Rect(0, 0, 20, 20);
  DrawEdge(dc(), corner, BDR_SUNKENOUTER, BF_TOPLEFT | BF_ADJUST);
  EXPECT_EQ(corner, Rect(1, 1, 20, 20));
  EXPECT_EQ(InkBounds(bitmap), Rect(0, 0, 20, 20));
  EXPECT_EQ(CountInk(bitmap, Rect(19, 1, 20, 20)), 0) << "no right side";
  EXPECT_EQ(CountInk(bitmap, Rect(1, 19, 20, 20)), 0) << "no bottom side";
  TCanvas unbound;
  EXPECT_FALSE(DrawEdge(unbound.Handle(), corner, EDGE_RAISED, BF_RECT));
}

TEST_F(FrameDrawingTest, CheckBoxShowsItsMarkOnlyWhenChecked) {
  TRect box = Rect(0, 0, 16, 16);
  DrawFrameControl(dc(), box, DFC_BUTTON, DFCS_BUTTONCHECK);
  const TRect inside = Rect(3, 3, 13, 13);
  EXPECT_EQ(CountInk(bitmap, inside, Rgb(clWindow)), 0);
  EXPECT_EQ(PixelAt(bitmap, 0, 8), Rgb(clBtnShadow));
  DrawFrameControl(dc(), box, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED);
  test::Snapshot(bitmap, QStringLiteral("checkbox_checked"));
  EXPECT_GT(CountInk(bitmap, inside, Rgb(clWindow)), 10);
  // Inactive: a face-colored box whose mark is greyed.
  TRect dimmed = Rect(20, 0, 36, 16);
  DrawFrameControl(dc(), dimmed, DFC_BUTTON, DFCS_BUTTONCHECK | DFCS_CHECKED | DFCS_INACTIVE);
  EXPECT_EQ(PixelAt(bitmap, 23, 12), Rgb(clBtnFace));
  EXPECT_EQ(CountColor(bitmap, Rect(22, 2, 34, 14), Rgb(clWindowText)), 0);
  EXPECT_GT(CountColor(bitmap, Rect(22, 2, 34, 14), Rgb(clBtnShadow)), 10);
}

TEST_F(FrameDrawingTest, RadioButtonFillsItsCenterWhenChecked) {
  TRect radio = Rect(0, 0, 16, 16);
  DrawFrameControl(dc(), radio, DFC_BUTTON, DFCS_BUTTONRADIO);
  EXPECT_EQ(PixelAt(bitmap, 7, 7), Rgb(clWindow));
  DrawFrameControl(dc(), radio, DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_CHECKED);
  EXPECT_EQ(PixelAt(bitmap, 7, 7), Rgb(clWindowText));
  EXPECT_EQ(PixelAt(bitmap, 0, 0), clWhite) << "a circle leaves the corners";
}

TEST_F(FrameDrawingTest, PushButtonRaisesOrSinksAndAdjustsToItsFace) {
  TRect button = Rect(0, 0, 30, 20);
  DrawFrameControl(dc(), button, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_ADJUSTRECT);
  EXPECT_EQ(button, Rect(2, 2, 28, 18));
  EXPECT_EQ(PixelAt(bitmap, 0, 10), Rgb(clBtnHighlight));
  EXPECT_EQ(PixelAt(bitmap, 29, 10), Rgb(cl3DDkShadow));
  EXPECT_EQ(PixelAt(bitmap, 15, 10), Rgb(clBtnFace));
  TRect pushed = Rect(0, 20, 30, 40);
  DrawFrameControl(dc(), pushed, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED);
  EXPECT_EQ(pushed, Rect(0, 20, 30, 40));
  EXPECT_EQ(PixelAt(bitmap, 0, 30), Rgb(clBtnShadow));
  EXPECT_EQ(PixelAt(bitmap, 29, 30), Rgb(clBtnHighlight));
  EXPECT_FALSE(DrawFrameControl(dc(), pushed, DFC_CAPTION, 0));
}

// The ink of a scroll arrow is widest at its base and narrows to the point it shows.
struct ArrowCase {
  unsigned direction;
  bool vertical;       // the arrow points up or down
  bool pointsForward;  // down or right
};

class ScrollArrow : public FrameDrawingTest, public ::testing::WithParamInterface<ArrowCase> {};

TEST_P(ScrollArrow, PointsWhereItsStateSays) {
  TRect arrow = Rect(0, 0, 40, 40);
  DrawFrameControl(dc(), arrow, DFC_SCROLL, GetParam().direction);
  test::Snapshot(bitmap, QStringLiteral("arrow_%1").arg(GetParam().direction));
  const TColor face = Rgb(clBtnFace), ink = Rgb(clBtnText);
  const QImage image = bitmap.ToImage();
  auto inkAcross = [&](int line) {
    int count = 0;
    for (int along = 4; along < 36; ++along) {
      const QRgb pixel = GetParam().vertical ? image.pixel(along, line) : image.pixel(line, along);
      count += RGB(qRed(pixel), qGreen(pixel), qBlue(pixel)) == ink;
    }
    return count;
  };
  int first = -1, last = -1;
  for (int line = 4; line < 36; ++line)
    if (inkAcross(line) > 0) {
      if (first < 0) first = line;
      last = line;
    }
  ASSERT_GE(first, 0) << "the arrow has ink";
  const int base = GetParam().pointsForward ? first : last, point = GetParam().pointsForward ? last : first;
  EXPECT_GT(inkAcross(base), inkAcross(point) + 4);
  EXPECT_EQ(PixelAt(bitmap, 6, 6), face);
}

INSTANTIATE_TEST_SUITE_P(Directions, ScrollArrow, ::testing::Values(
    ArrowCase{DFCS_SCROLLUP, true, false}, ArrowCase{DFCS_SCROLLDOWN, true, true},
    ArrowCase{DFCS_SCROLLLEFT, false, false}, ArrowCase{DFCS_SCROLLRIGHT, false, true},
    ArrowCase{DFCS_SCROLLCOMBOBOX, true, true}));

TEST_F(FrameDrawingTest, InactiveScrollArrowIsGrey) {
  TRect arrow = Rect(0, 0, 40, 40);
  DrawFrameControl(dc(), arrow, DFC_SCROLL, DFCS_SCROLLDOWN | DFCS_INACTIVE);
  const TRect face = Rect(4, 4, 36, 36);
  EXPECT_GT(CountColor(bitmap, face, Rgb(clBtnShadow)), 10);
  EXPECT_EQ(CountColor(bitmap, face, Rgb(clBtnText)), 0);
}

// Channels within a step of the expected value: the ends are exact, the middle is
// rounded by the gradient.
void ExpectNear(TColor actual, int red, int green, int blue, int tolerance = 3) {
  EXPECT_NEAR(GetRValue(actual), red, tolerance);
  EXPECT_NEAR(GetGValue(actual), green, tolerance);
  EXPECT_NEAR(GetBValue(actual), blue, tolerance);
}

TTriVertex Vertex(int x, int y, int red, int green, int blue) {
  return TTriVertex{x, y, uint16_t(red << 8), uint16_t(green << 8), uint16_t(blue << 8), 0};
}

class GradientTest : public ::testing::Test {
protected:
  void SetUp() override { test::WhiteBitmap(bitmap, 101, 101); }
  TBitmap bitmap;
};

TEST_F(GradientTest, HorizontalRunsFromTheFirstColumnToTheLast) {
  const TTriVertex vertices[] = {Vertex(0, 0, 255, 0, 0), Vertex(101, 20, 0, 0, 255)};
  const TGradientRect mesh{0, 1};
  ASSERT_TRUE(GradientFill(bitmap.Canvas()->Handle(), vertices, 2, &mesh, 1, GRADIENT_FILL_RECT_H));
  test::Snapshot(bitmap, QStringLiteral("gradient_h"));
  ExpectNear(PixelAt(bitmap, 0, 10), 255, 0, 0, 1);
  ExpectNear(PixelAt(bitmap, 100, 10), 0, 0, 255, 1);
  ExpectNear(PixelAt(bitmap, 50, 10), 128, 0, 128);
  EXPECT_EQ(PixelAt(bitmap, 0, 5), PixelAt(bitmap, 0, 19)) << "a column is one color";
  EXPECT_EQ(PixelAt(bitmap, 50, 20), clWhite) << "nothing below the rectangle";
}

TEST_F(GradientTest, VerticalRunsFromTheTopRowToTheBottom) {
  const TTriVertex vertices[] = {Vertex(10, 0, 0, 0, 0), Vertex(30, 101, 255, 255, 255)};
  const TGradientRect mesh{0, 1};
  ASSERT_TRUE(GradientFill(bitmap.Canvas()->Handle(), vertices, 2, &mesh, 1, GRADIENT_FILL_RECT_V));
  ExpectNear(PixelAt(bitmap, 20, 0), 0, 0, 0, 1);
  ExpectNear(PixelAt(bitmap, 20, 100), 255, 255, 255, 1);
  ExpectNear(PixelAt(bitmap, 20, 50), 128, 128, 128);
  EXPECT_EQ(PixelAt(bitmap, 10, 50), PixelAt(bitmap, 29, 50)) << "a row is one color";
  EXPECT_EQ(PixelAt(bitmap, 9, 50), clWhite);
}

TEST_F(GradientTest, MeshOfTwoRectanglesAndRefusals) {
  const TTriVertex vertices[] = {Vertex(0, 0, 255, 0, 0), Vertex(50, 10, 0, 255, 0), Vertex(50, 0, 0, 255, 0),
                                 Vertex(101, 10, 0, 0, 255)};
  const TGradientRect mesh[] = {{0, 1}, {2, 3}};
  HDC dc = bitmap.Canvas()->Handle();
  ASSERT_TRUE(GradientFill(dc, vertices, 4, mesh, 2, GRADIENT_FILL_RECT_H));
  ExpectNear(PixelAt(bitmap, 49, 5), 0, 255, 0, 1);
  ExpectNear(PixelAt(bitmap, 50, 5), 0, 255, 0, 1);
  ExpectNear(PixelAt(bitmap, 100, 5), 0, 0, 255, 1);
  const TGradientRect outside{0, 7};
  EXPECT_FALSE(GradientFill(dc, vertices, 4, &outside, 1, GRADIENT_FILL_RECT_H));
  EXPECT_FALSE(GradientFill(dc, vertices, 4, mesh, 1, 2)) << "triangles are not known";
  EXPECT_FALSE(GradientFill(nullptr, vertices, 4, mesh, 1, GRADIENT_FILL_RECT_H));
}

TEST_F(GradientTest, CanvasFormResolvesSystemColorsAndMirrors) {
  TCanvas* canvas = bitmap.Canvas();
  GradientFillCanvas(canvas, clBtnFace, clBlack, Rect(0, 0, 101, 10), gdHorizontal);
  EXPECT_EQ(PixelAt(bitmap, 0, 5), Rgb(clBtnFace));
  canvas->SetCanvasOrientation(coRightToLeft);
  GradientFillCanvas(canvas, clRed, clBlue, Rect(0, 20, 101, 30), gdHorizontal);
  // The logical left edge is the device's right one.
  ExpectNear(PixelAt(bitmap, 100, 25), 255, 0, 0, 1);
  ExpectNear(PixelAt(bitmap, 0, 25), 0, 0, 255, 1);
}

QByteArray IconData(const QImage& image) {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "ICO");
  return data;
}

// An icon keeps its transparency: drawn over a canvas, its clear pixels leave what was there.
TEST(Icon, DecodesAndDrawsWithItsTransparency) {
  QImage image(16, 16, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 8; ++x) image.setPixelColor(x, y, Qt::red);
  TPicture picture;
  picture.LoadFromData(IconData(image));
  ASSERT_NE(picture.Graphic(), nullptr);
  EXPECT_EQ(picture.Graphic()->ClassName(), QStringLiteral("TIcon"));
  EXPECT_EQ(picture.Width(), 16);
  EXPECT_EQ(picture.Height(), 16);
  TBitmap target;
  test::WhiteBitmap(target, 20, 20);
  target.Canvas()->Brush()->SetColor(clLime);
  target.Canvas()->FillRect(Rect(0, 0, 20, 20));
  target.Canvas()->Draw(2, 2, picture.Graphic());
  test::Snapshot(target, QStringLiteral("icon"));
  EXPECT_EQ(PixelAt(target, 5, 10), clRed);
  EXPECT_EQ(PixelAt(target, 14, 10), clLime);
  // Saved and read again it stays an icon of the same pixels.
  TIcon copy;
  copy.LoadFromData(picture.Graphic()->SaveToData());
  EXPECT_EQ(copy.Width(), 16);
  EXPECT_EQ(copy.ToImage().pixelColor(3, 3), QColor(Qt::red));
  EXPECT_EQ(qAlpha(copy.ToImage().pixel(12, 3)), 0);
}

}  // namespace
}  // namespace quil
