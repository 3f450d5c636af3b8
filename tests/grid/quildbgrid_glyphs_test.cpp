// The glyph strips: the resolution picked for a pixels-per-inch value, rescaling to
// whole images, the recoloring of the key colors for each marker style, the grid's
// cache of its built-in lists, and image drawing on a mirrored canvas.
#include <QImage>
#include <gtest/gtest.h>
#include <set>

#include "../framework/graphics/PixelProbe.h"
#include "GridTestKit.h"
#include "framework/controls/Application.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrids.h"

using namespace quil;
using gridtest::TPixelsPerInch;

namespace {

struct StripCase {
  QString name;
  int images;
  int sizes[5];  // at 96, 120, 144, 168, 192
};

const StripCase kStrips[] = {
    {SCheckBoxesResource, 9, {13, 16, 20, 23, 26}},
    {SExpandBoxesResource, 9, {13, 16, 20, 23, 26}},
    {SIndicatorsResource, 27, {16, 20, 24, 28, 32}},
    {SMarkersResource, 20, {16, 20, 24, 28, 32}},
};

const TColor kKeyColors[] = {clAqua, clTeal, clBlue, clNavy, clLime, clBlack, GlyphTransparentColor};

std::set<TColor> ColorsOf(TBitmap& bitmap) {
  std::set<TColor> colors;
  for (int y = 0; y < bitmap.Height(); ++y)
    for (int x = 0; x < bitmap.Width(); ++x) colors.insert(test::PixelAt(bitmap, x, y));
  return colors;
}

}  // namespace

TEST(GlyphStrips, EveryResourceHasTheTableSizeAndOnlyKeyColors) {
  const char* const suffixes[] = {"", "_125", "_150", "_175", "_200"};
  const int made[] = {96, 120, 144, 168, 192};
  for (const StripCase& strip : kStrips)
    for (int resolution = 0; resolution < 5; ++resolution) {
      SCOPED_TRACE((strip.name + QLatin1String(suffixes[resolution])).toStdString());
      TBitmap bitmap;
      LoadGlyphStrip(&bitmap, strip.name, made[resolution]);
      EXPECT_EQ(bitmap.Height(), strip.sizes[resolution]);
      EXPECT_EQ(bitmap.Width(), strip.images * strip.sizes[resolution]);
      for (TColor color : ColorsOf(bitmap))
        EXPECT_NE(std::find(std::begin(kKeyColors), std::end(kKeyColors), color), std::end(kKeyColors))
            << "color " << color;
    }
}

struct PickCase {
  int ppi;
  int madeFor;  // the resolution whose strip is taken
};

class GlyphStripPick : public ::testing::TestWithParam<PickCase> {};

// Each strip is taken from the resolution made for at most the pixels per inch and
// stretched from there: its image size is the table's size for that resolution,
// scaled by ppi / made-for.
TEST_P(GlyphStripPick, TakesTheLargestResolutionAtOrBelowAndScalesFromIt) {
  const PickCase pick = GetParam();
  const int index = pick.madeFor == 96 ? 0 : (pick.madeFor - 96) / 24;
  for (const StripCase& strip : kStrips) {
    TBitmap bitmap;
    LoadGlyphStrip(&bitmap, strip.name, pick.ppi);
    const int expected = MulDiv(strip.sizes[index], pick.ppi, pick.madeFor);
    EXPECT_EQ(bitmap.Height(), expected) << strip.name.toStdString() << " at " << pick.ppi;
  }
}

INSTANTIATE_TEST_SUITE_P(Table, GlyphStripPick,
                         ::testing::Values(PickCase{96, 96}, PickCase{110, 96}, PickCase{119, 96},
                                           PickCase{120, 120}, PickCase{130, 120}, PickCase{144, 144},
                                           PickCase{160, 144}, PickCase{168, 168}, PickCase{192, 192},
                                           PickCase{200, 192}, PickCase{288, 192}, PickCase{72, 96}),
                         [](const auto& info) { return "ppi" + std::to_string(info.param.ppi); });

// 110 and 130 can land on the same size from two resolutions; the pixels tell them apart:
// a stretch by 110/96 doubles every eighth row or so of the plain strip.
TEST(GlyphStrips, ScaledStripIsTheCandidateStretchedPixelForPixel) {
  for (const auto& [ppi, suffix, made] : {std::tuple{110, "", 96}, std::tuple{130, "_125", 120},
                                          std::tuple{200, "_200", 192}}) {
    TBitmap loaded;
    LoadGlyphStrip(&loaded, SCheckBoxesResource, ppi);
    TBitmap candidate;
    candidate.LoadFromResourceName(SCheckBoxesResource + QLatin1String(suffix));
    const QImage expected = candidate.ToImage().scaled(loaded.Width(), loaded.Height(), Qt::IgnoreAspectRatio,
                                                       Qt::FastTransformation);
    int differing = 0;
    for (int y = 0; y < loaded.Height(); ++y)
      for (int x = 0; x < loaded.Width(); ++x)
        if (loaded.ToImage().pixel(x, y) != expected.pixel(x, y)) ++differing;
    // Nearest-neighbour sampling may round a boundary row differently, never more.
    EXPECT_LT(differing, loaded.Width() * 2) << ppi;
  }
}

TEST(GlyphStrips, RescalingKeepsAWholeNumberOfImagesAndTheKeyColors) {
  for (const StripCase& strip : kStrips)
    for (int ppi = 97; ppi <= 260; ppi += 7) {
      TBitmap bitmap;
      LoadGlyphStrip(&bitmap, strip.name, ppi);
      ASSERT_GT(bitmap.Height(), 0);
      EXPECT_EQ(bitmap.Width() % bitmap.Height(), 0) << strip.name.toStdString() << " at " << ppi;
      EXPECT_EQ(bitmap.Width() / bitmap.Height(), strip.images) << strip.name.toStdString() << " at " << ppi;
      for (TColor color : ColorsOf(bitmap))
        EXPECT_NE(std::find(std::begin(kKeyColors), std::end(kKeyColors), color), std::end(kKeyColors));
    }
}

struct ResolveCase {
  TMarkerStyle style;
  bool themed;
  int fixedStyle;
  TMarkerStyle resolved;
};

class MarkerStyleResolution : public ::testing::TestWithParam<ResolveCase> {};

TEST_P(MarkerStyleResolution, FollowsTheFixedStyleOrTheTheme) {
  const ResolveCase c = GetParam();
  EXPECT_EQ(ResolveMarkerStyle(c.style, c.themed, c.fixedStyle), c.resolved);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MarkerStyleResolution,
    ::testing::Values(ResolveCase{msAuto, false, 0, msDefault}, ResolveCase{msAuto, false, 1, msSoft},
                      ResolveCase{msAuto, false, 2, msRaisedDark}, ResolveCase{msAuto, false, 3, msFlat},
                      ResolveCase{msAuto, false, 4, msRaisedGray}, ResolveCase{msAuto, false, 5, msGray},
                      ResolveCase{msAuto, false, 6, msRaisedMild}, ResolveCase{msAuto, false, 7, msMild},
                      ResolveCase{msAutoGray, false, 0, msSoft}, ResolveCase{msAutoGray, false, 1, msSoft},
                      ResolveCase{msAutoGray, false, 2, msRaisedGray}, ResolveCase{msAutoGray, false, 3, msGray},
                      ResolveCase{msAutoGray, false, 4, msRaisedGray}, ResolveCase{msAutoGray, false, 5, msGray},
                      ResolveCase{msAutoGray, false, 6, msRaisedGray}, ResolveCase{msAutoGray, false, 7, msGray},
                      ResolveCase{msAuto, true, 3, msRaisedMild}, ResolveCase{msAutoGray, true, 0, msRaisedGray},
                      ResolveCase{msLoweredGray, true, 0, msLoweredGray}, ResolveCase{msMild, false, 2, msMild}),
    [](const auto& info) {
      return TypeInfo(TMarkerStyle()).NameOf(info.param.style).toStdString() + (info.param.themed ? "Themed" : "") +
             "Fixed" + std::to_string(info.param.fixedStyle);
    });

TEST(MarkerTransparency, AutoIsTransparentForTheStylesBeforeTheLoweredOnes) {
  EXPECT_TRUE(ResolveMarkerTransparent(mtAuto, msDefault));
  EXPECT_TRUE(ResolveMarkerTransparent(mtAuto, msRaisedMild));
  EXPECT_FALSE(ResolveMarkerTransparent(mtAuto, msLoweredDark));
  EXPECT_FALSE(ResolveMarkerTransparent(mtAuto, msMild));
  EXPECT_TRUE(ResolveMarkerTransparent(mtTrue, msFlat));
  EXPECT_FALSE(ResolveMarkerTransparent(mtFalse, msDefault));
}

namespace {

// A bitmap of the six key colors and the transparent color, one pixel each.
void KeyRow(TBitmap& bitmap) {
  bitmap.SetSize(7, 1);
  for (int x = 0; x < 7; ++x) bitmap.Canvas()->SetPixel(x, 0, kKeyColors[x]);
}

// What aqua, teal, blue, navy, lime and black became.
std::vector<TColor> Recolored(TMarkerStyle style, bool transparent, bool force, bool styled = false) {
  TBitmap bitmap;
  KeyRow(bitmap);
  RecolorGlyphs(&bitmap, style, transparent, force, styled);
  std::vector<TColor> colors;
  for (int x = 0; x < 7; ++x) colors.push_back(test::PixelAt(bitmap, x, 0));
  EXPECT_EQ(colors.back(), GlyphTransparentColor) << "the transparent color stays";
  colors.pop_back();
  return colors;
}

struct RecolorCase {
  TMarkerStyle style;
  int entries[4];  // palette entries of aqua, teal, blue, navy
};

// The palette of an unstyled, unforced recoloring, by entry; transparent decides P5.
TColor Entry(int entry, TMarkerStyle style, bool transparent) {
  switch (entry) {
    case 0: return clWhite;
    case 1: return (style == msDefault || style == msSoft) ? GlyphTransparentColor : ColorToRGB(cl3DLight);
    case 2: return ColorToRGB(clBtnShadow);
    case 3: return ColorToRGB(cl3DDkShadow);
    case 4: return clBlack;
    case 5: return transparent ? GlyphTransparentColor : clWhite;
  }
  return clBlack;
}

}  // namespace

class GlyphRecoloring : public ::testing::TestWithParam<RecolorCase> {};

TEST_P(GlyphRecoloring, MapsTheKeyColorsThroughTheStylesPalette) {
  const RecolorCase c = GetParam();
  for (bool transparent : {false, true}) {
    const std::vector<TColor> colors = Recolored(c.style, transparent, false);
    for (int key = 0; key < 4; ++key)
      EXPECT_EQ(colors[size_t(key)], Entry(c.entries[key], c.style, transparent)) << "key " << key;
    EXPECT_EQ(colors[4], Entry(5, c.style, transparent)) << "lime is the face";
    EXPECT_EQ(colors[5], clBlack) << "black is the ink";
  }
}

INSTANTIATE_TEST_SUITE_P(Table, GlyphRecoloring,
                         ::testing::Values(RecolorCase{msDefault, {0, 1, 2, 4}}, RecolorCase{msSoft, {0, 1, 2, 3}},
                                           RecolorCase{msRaisedDark, {1, 5, 5, 4}},
                                           RecolorCase{msRaisedGray, {1, 5, 5, 3}},
                                           RecolorCase{msRaisedMild, {1, 5, 5, 2}},
                                           RecolorCase{msLoweredDark, {4, 5, 5, 1}},
                                           RecolorCase{msLoweredGray, {3, 5, 5, 1}},
                                           RecolorCase{msLoweredMild, {2, 5, 5, 1}},
                                           RecolorCase{msFlat, {4, 5, 5, 4}}, RecolorCase{msGray, {3, 5, 5, 3}},
                                           RecolorCase{msMild, {2, 5, 5, 2}}),
                         [](const auto& info) { return TypeInfo(TMarkerStyle()).NameOf(info.param.style).toStdString(); });

TEST(GlyphRecoloring, ForceLeavesOnlyTheInk) {
  const std::vector<TColor> colors = Recolored(msSoft, false, true);
  for (int key = 0; key < 5; ++key) EXPECT_EQ(colors[size_t(key)], GlyphTransparentColor) << "key " << key;
  EXPECT_EQ(colors[5], clBlack);
}

namespace {

// Makes a registered scheme active for the length of a test.
class TTestStyle {
public:
  TTestStyle(const QString& name, TColor alternate1, TColor alternate2) {
    if (!TStyleManager::StyleNames().contains(name)) {
      TStyleScheme scheme = DarkStyleScheme();
      scheme.Name = name;
      scheme[srAlternateRow1] = alternate1;
      scheme[srAlternateRow2] = alternate2;
      TStyleManager::RegisterStyle(scheme);
    }
    TStyleManager::SetStyle(name);
  }
  ~TTestStyle() { TStyleManager::SetStyle(TStyleManager::SystemStyleName()); }
};

}  // namespace

TEST(GlyphRecoloring, StyledTakesTheInkAndInnerShadesFromTheStyle) {
  TTestStyle style(QStringLiteral("Glyph Plain"), RGB(90, 91, 92), RGB(40, 41, 42));
  const TColor ink = StyleServices()->GetStyleFontColor(sfGridItemFixedNormal);
  // msDefault sends teal to P1 and blue to P2, the two alternate row colors.
  const std::vector<TColor> colors = Recolored(msDefault, true, false, true);
  EXPECT_EQ(colors[1], RGB(90, 91, 92));
  EXPECT_EQ(colors[2], RGB(40, 41, 42));
  EXPECT_EQ(colors[5], ink);
  // Forced, the ink still follows the style and the rest goes.
  const std::vector<TColor> forced = Recolored(msDefault, true, true, true);
  EXPECT_EQ(forced[1], GlyphTransparentColor);
  EXPECT_EQ(forced[5], ink);
}

TEST(GlyphRecoloring, StyledDarkAlternatesAreLightened) {
  {
    TTestStyle style(QStringLiteral("Glyph Near Face"), 4079166, RGB(40, 41, 42));
    const std::vector<TColor> colors = Recolored(msDefault, true, false, true);
    EXPECT_EQ(colors[1], 7368816);
    EXPECT_EQ(colors[2], RGB(40, 41, 42));
  }
  {
    TTestStyle style(QStringLiteral("Glyph Black Shadow"), RGB(90, 91, 92), 0);
    const std::vector<TColor> colors = Recolored(msDefault, true, false, true);
    EXPECT_EQ(colors[1], 7368816);
    EXPECT_EQ(colors[2], 2105376);
  }
}

// --- The grid's built-in lists

// The system's own look of fixed cells decides the markers' look whenever it holds; a
// grid without a theme for its fixed cells leaves it to MarkerStyle.
void PaintOwnFixedCells(TQuilDBGrid& grid) {
  grid.SetFixedTheme(ftNone);
  ASSERT_FALSE(grid.IsSystemStyle({}));
}

TEST(GridGlyphs, ConstructorLoadsAllButTheMarkers) {
  TPixelsPerInch ppi(96);
  TQuilDBGrid grid(nullptr);
  ASSERT_NE(grid.Indicators(), nullptr);
  ASSERT_NE(grid.CheckBoxes(), nullptr);
  ASSERT_NE(grid.ExpandBoxes(), nullptr);
  EXPECT_EQ(grid.Markers(), nullptr);
  EXPECT_EQ(grid.Indicators()->Count(), 27);
  EXPECT_EQ(grid.Indicators()->Width(), 16);
  EXPECT_EQ(grid.CheckBoxes()->Count(), 9);
  EXPECT_EQ(grid.CheckBoxes()->Height(), 13);
  EXPECT_EQ(grid.ExpandBoxes()->BkColor(), GlyphTransparentColor);
  EXPECT_EQ(grid.CheckBoxes()->BkColor(), clNone);
  grid.LayoutChanged();
  ASSERT_NE(grid.Markers(), nullptr);
  EXPECT_EQ(grid.Markers()->Count(), 20);
}

TEST(GridGlyphs, NothingIsReloadedWhenNothingChanged) {
  TPixelsPerInch ppi(96);
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  TImageList* markers = grid.Markers();
  TImageList* indicators = grid.Indicators();
  TImageList* checkBoxes = grid.CheckBoxes();
  grid.RecreateMarkers();
  grid.LayoutChanged();
  EXPECT_EQ(grid.Markers(), markers);
  EXPECT_EQ(grid.Indicators(), indicators);
  EXPECT_EQ(grid.CheckBoxes(), checkBoxes);
}

TEST(GridGlyphs, ALookOrResolutionChangeReloadsAtLayout) {
  TPixelsPerInch ppi(96);
  TQuilDBGrid grid(nullptr);
  PaintOwnFixedCells(grid);
  grid.LayoutChanged();
  TImageList* before = grid.Markers();
  grid.SetMarkerStyle(msLoweredDark);
  EXPECT_NE(grid.Markers(), before) << "a new style is a layout";
  before = grid.Markers();
  grid.SetMarkerTransparent(mtTrue);
  EXPECT_NE(grid.Markers(), before);
  before = grid.Markers();
  grid.SwitchOptionsExt({dgForceSystemMarker}, false);
  EXPECT_NE(grid.Markers(), before);
  {
    TPixelsPerInch larger(144);
    before = grid.Markers();
    grid.LayoutChanged();
    EXPECT_NE(grid.Markers(), before);
    EXPECT_EQ(grid.Markers()->Width(), 24);
    EXPECT_EQ(grid.Indicators()->Width(), 24);
    EXPECT_EQ(grid.CheckBoxes()->Width(), 20);
    EXPECT_EQ(grid.ExpandBoxes()->Width(), 20);
  }
}

TEST(GridGlyphs, MarkerStyleAndForceDecideTheMarkerColors) {
  TPixelsPerInch ppi(96);
  TQuilDBGrid grid(nullptr);
  PaintOwnFixedCells(grid);
  grid.SwitchOptionsExt({dgForceSystemMarker}, false);
  grid.SetMarkerStyle(msFlat);
  grid.LayoutChanged();
  // The flat marker is not transparent: black edges around a white face.
  TBitmap image;
  test::WhiteBitmap(image, 16, 16);
  image.Canvas()->Brush()->SetColor(clYellow);
  image.Canvas()->FillRect(Rect(0, 0, 16, 16));
  grid.Markers()->Draw(image.Canvas(), 0, 0, 0);
  std::set<TColor> colors = ColorsOf(image);
  EXPECT_EQ(colors, (std::set<TColor>{clYellow, clBlack, clWhite}));
  // Transparent, the face lets the background through.
  grid.SetMarkerTransparent(mtTrue);
  image.Canvas()->FillRect(Rect(0, 0, 16, 16));
  grid.Markers()->Draw(image.Canvas(), 0, 0, 0);
  colors = ColorsOf(image);
  EXPECT_EQ(colors, (std::set<TColor>{clYellow, clBlack}));
  // Forced, the plain markers have no ink at all: the theme's arrow stands in for them,
  // while the numbered ones keep their digit.
  grid.SwitchOptionsExt({dgForceSystemMarker}, true);
  image.Canvas()->FillRect(Rect(0, 0, 16, 16));
  grid.Markers()->Draw(image.Canvas(), 0, 0, 0);
  EXPECT_EQ(test::CountInk(image, Rect(0, 0, 16, 16), clYellow), 0);
  grid.Markers()->Draw(image.Canvas(), 0, 0, 2);
  EXPECT_GT(test::CountInk(image, Rect(0, 0, 16, 16), clYellow), 5);
}

// Every style's markers and the indicators on a fixed cell's face, at 100% and 200%
// (QUIL_GRAPHICS_SNAPSHOTS saves the sheet).
TEST(GridGlyphs, EveryMarkerStyleLeavesInkOnTheFixedFace) {
  for (int ppi : {96, 192}) {
    TPixelsPerInch scale(ppi);
    TQuilDBGrid grid(nullptr);
    PaintOwnFixedCells(grid);
    grid.SwitchOptionsExt({dgForceSystemMarker}, false);
    grid.LayoutChanged();
    const int side = grid.Indicators()->Width();
    TBitmap sheet;
    test::WhiteBitmap(sheet, side * 28, side * 12);
    sheet.Canvas()->Brush()->SetColor(clBtnFace);
    sheet.Canvas()->FillRect(Rect(0, 0, sheet.Width(), sheet.Height()));
    for (int index = 0; index < grid.Indicators()->Count(); ++index)
      grid.Indicators()->Draw(sheet.Canvas(), index * side, 0, index);
    for (int style = msDefault; style <= msMild; ++style) {
      grid.SetMarkerStyle(TMarkerStyle(style));
      const int top = (style - msDefault + 1) * side;
      for (int index = 0; index < grid.Markers()->Count(); ++index)
        grid.Markers()->Draw(sheet.Canvas(), index * side, top, index);
      EXPECT_GT(test::CountInk(sheet, Rect(0, top, side, top + side), ColorToRGB(clBtnFace)), side / 2)
          << TypeInfo(TMarkerStyle()).NameOf(style).toStdString() << " at " << ppi;
    }
    EXPECT_GT(test::CountInk(sheet, Rect(0, 0, side, side), ColorToRGB(clBtnFace)), side / 2) << "current row";
    test::Snapshot(sheet, QStringLiteral("glyph-markers-%1").arg(ppi));
  }
}

// Under the system's look of markers the theme's arrow stands in for the plain ones;
// a change of the elements rebuilds the markers at once, without a layout.
TEST(GridGlyphs, TheSystemLookOfMarkersFollowsTheSystemStyleElements) {
  TPixelsPerInch ppi(96);
  TQuilDBGrid grid(nullptr);
  grid.SwitchOptionsExt({dgForceSystemMarker}, false);
  grid.SetMarkerStyle(msFlat);
  grid.LayoutChanged();
  ASSERT_TRUE(grid.IsSystemStyle({sseFixed, sseMarker}));
  TBitmap image;
  auto drawPlainMarker = [&] {
    test::WhiteBitmap(image, 16, 16);
    image.Canvas()->Brush()->SetColor(clYellow);
    image.Canvas()->FillRect(Rect(0, 0, 16, 16));
    grid.Markers()->Draw(image.Canvas(), 0, 0, 0);
    return ColorsOf(image);
  };
  EXPECT_EQ(drawPlainMarker(), std::set<TColor>{clYellow});
  TImageList* before = grid.Markers();
  grid.SwitchSystemStyleElements({sseMarker}, false);
  EXPECT_NE(grid.Markers(), before);
  const std::set<TColor> systemLook = drawPlainMarker();
  EXPECT_GT(test::CountInk(image, Rect(0, 0, 16, 16), clYellow), 5);
  // Without the system's look of fixed cells, MarkerStyle decides: a flat face.
  before = grid.Markers();
  grid.SwitchSystemStyleElements({sseFixed}, false);
  EXPECT_NE(grid.Markers(), before);
  EXPECT_EQ(drawPlainMarker(), (std::set<TColor>{clYellow, clBlack, clWhite}));
  EXPECT_NE(systemLook, (std::set<TColor>{clYellow, clBlack, clWhite}));
}

TEST(GridGlyphs, ApplicationListsReplaceTheBuiltInOnesUntilFreed) {
  TQuilDBGrid grid(nullptr);
  grid.LayoutChanged();
  auto* indicators = new TImageList(nullptr);
  auto* markers = new TImageList(nullptr);
  grid.SetIndicatorImages(indicators);
  grid.SetTitleMarkers(markers);
  EXPECT_EQ(grid.GetIndicators(), indicators);
  EXPECT_EQ(grid.GetMarkers(), markers);
  delete indicators;
  delete markers;
  EXPECT_EQ(grid.IndicatorImages(), nullptr);
  EXPECT_EQ(grid.TitleMarkers(), nullptr);
  EXPECT_EQ(grid.GetIndicators(), grid.Indicators());
  EXPECT_EQ(grid.GetMarkers(), grid.Markers());
}

TEST(GridGlyphs, MarkerPropertiesArePublishedWithTheirDefaults) {
  TQuilDBGrid grid(nullptr);
  EXPECT_EQ(GetEnumProp(&grid, QStringLiteral("MarkerStyle")), QStringLiteral("msAuto"));
  SetEnumProp(&grid, QStringLiteral("MarkerTransparent"), QStringLiteral("mtFalse"));
  EXPECT_EQ(grid.MarkerTransparent(), mtFalse);
}

// --- Drawing a list image

namespace {

// An 8 x 8 list of one image: red on its left half, blue on its right.
std::unique_ptr<TImageList> HalvesList() {
  auto list = std::make_unique<TImageList>(8, 8);
  TBitmap image(8, 8);
  image.Canvas()->Brush()->SetColor(clRed);
  image.Canvas()->FillRect(Rect(0, 0, 4, 8));
  image.Canvas()->Brush()->SetColor(clBlue);
  image.Canvas()->FillRect(Rect(4, 0, 8, 8));
  list->AddMasked(&image, clOlive);
  return list;
}

}  // namespace

TEST(DrawListImage, DrawsInPlaceOnAPlainCanvas) {
  auto list = HalvesList();
  TBitmap target;
  test::WhiteBitmap(target, 40, 10);
  DrawListImage(list.get(), target.Canvas(), Rect(0, 0, 20, 10), 3, 1, 0, false, false);
  EXPECT_EQ(test::InkBounds(target), Bounds(3, 1, 8, 8));
  EXPECT_EQ(test::PixelAt(target, 3, 4), clRed);
  EXPECT_EQ(test::PixelAt(target, 10, 4), clBlue);
}

TEST(DrawListImage, DirectOnAMirroredCanvasIsMirroredAPixelOn) {
  auto list = HalvesList();
  TBitmap target;
  test::WhiteBitmap(target, 40, 10);
  target.Canvas()->SetCanvasOrientation(coRightToLeft);
  DrawListImage(list.get(), target.Canvas(), Rect(0, 0, 20, 10), 3, 1, 0, true, false);
  // Logical 4 .. 12 is device 28 .. 36, and the halves swap.
  EXPECT_EQ(test::InkBounds(target), Bounds(28, 1, 8, 8));
  EXPECT_EQ(test::PixelAt(target, 28, 4), clBlue);
  EXPECT_EQ(test::PixelAt(target, 35, 4), clRed);
}

TEST(DrawListImage, OtherGlyphsOnAMirroredCanvasKeepTheirOrientation) {
  auto list = HalvesList();
  TBitmap target;
  test::WhiteBitmap(target, 40, 10);
  target.Canvas()->SetPixel(39, 0, clLime);  // device corner of the cell, logical (0, 0)
  target.Canvas()->SetCanvasOrientation(coRightToLeft);
  DrawListImage(list.get(), target.Canvas(), Rect(0, 0, 20, 10), 3, 1, 0, false, true);
  // Logical 3 .. 11 is device 29 .. 37; red stays on the left.
  EXPECT_EQ(test::PixelAt(target, 29, 4), clRed);
  EXPECT_EQ(test::PixelAt(target, 36, 4), clBlue);
  EXPECT_EQ(test::PixelAt(target, 28, 4), clWhite);
  EXPECT_EQ(test::PixelAt(target, 37, 4), clWhite);
  EXPECT_EQ(test::PixelAt(target, 39, 0), clLime) << "the copied background comes back in place";
}

TEST(DrawListImage, WithoutCopyTheCellTakesTheBrushColor) {
  auto list = HalvesList();
  TBitmap target;
  test::WhiteBitmap(target, 40, 10);
  target.Canvas()->SetCanvasOrientation(coRightToLeft);
  target.Canvas()->Brush()->SetColor(clYellow);
  DrawListImage(list.get(), target.Canvas(), Rect(0, 0, 20, 10), 3, 1, 0, false, false);
  EXPECT_EQ(test::PixelAt(target, 39, 0), clYellow);
  EXPECT_EQ(test::PixelAt(target, 20, 0), clYellow);
  EXPECT_EQ(test::PixelAt(target, 19, 0), clWhite) << "outside the cell";
  EXPECT_EQ(test::PixelAt(target, 29, 4), clRed);
}

TEST(ThemedBitmap, DrawingItDrawsTheThemeElementInstead) {
  TThemedBitmap themed(TCustomStyleServices::GetElementDetails(tbCheckBoxCheckedNormal), 13, 13);
  themed.Canvas()->Brush()->SetColor(clWhite);
  themed.Canvas()->FillRect(Rect(0, 0, 13, 13));
  TBitmap target;
  test::WhiteBitmap(target, 20, 20);
  target.Canvas()->Draw(2, 2, &themed);
  EXPECT_GT(test::CountInk(target, Rect(2, 2, 15, 15)), 10);
  EXPECT_EQ(test::CountInk(target, Rect(15, 0, 20, 20)), 0);
  EXPECT_EQ(themed.Details(), TCustomStyleServices::GetElementDetails(tbCheckBoxCheckedNormal));
}
