// A cell's content drawn on a bitmap: line breaks, cutting to width, the lines that fit,
// alignment, the place of a search match, and pictures placed, stretched and tiled.
#include <gtest/gtest.h>

#include <utility>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "grid/QuilDBGridCellDraw.h"

using namespace quil;

namespace {

class CellDraw : public ::testing::Test {
protected:
  void SetUp() override {
    canvas = bitmap.Canvas();
    canvas->Brush()->SetColor(clWhite);
    canvas->FillRect(Rect(0, 0, bitmap.Width(), bitmap.Height()));
    canvas->Font()->SetColor(clBlack);
    lineHeight = canvas->TextHeight(QStringLiteral("Wg"));
  }
  // Whether a band of rows holds dark pixels: written text.
  bool InkIn(int left, int top, int right, int bottom) {
    for (int y = top; y < bottom; ++y)
      for (int x = left; x < right; ++x)
        if (GetRValue(canvas->Pixel(x, y)) < 128) return true;
    return false;
  }
  int Width(const char* text) { return canvas->TextWidth(QString::fromUtf8(text)); }

  TBitmap bitmap{240, 120};
  TCanvas* canvas = nullptr;
  int lineHeight = 0;
};

// --- Breaking and cutting

TEST_F(CellDraw, ABlankWhereTheLineGrowsTooWideBecomesALineEnd) {
  EXPECT_EQ(BreakTextLines(canvas, "alpha beta gamma", Width("alpha beta"), -1), QStringLiteral("alpha beta\rgamma"));
  EXPECT_EQ(BreakTextLines(canvas, "alpha beta gamma", Width("alpha"), -1), QStringLiteral("alpha\rbeta\rgamma"));
}

TEST_F(CellDraw, ALongWordWithNoBlankIsNotBroken) {
  EXPECT_EQ(BreakTextLines(canvas, "Supercalifragilistic", 10, -1), QStringLiteral("Supercalifragilistic"));
}

TEST_F(CellDraw, AnIdeographicRunBreaksBehindAnyCharacter) {
  const QString run = QString::fromUtf8("漢字漢字漢字");
  EXPECT_EQ(BreakTextLines(canvas, run, Width("漢字"), -1), QString::fromUtf8("漢字\r漢字\r漢字"));
}

TEST_F(CellDraw, TheLimitCountsTheBreaksAndExistingLinesAreKept) {
  EXPECT_EQ(BreakTextLines(canvas, "a b c d", 1, 1), QStringLiteral("a\rb c d"));
  EXPECT_EQ(BreakTextLines(canvas, "a b\r\nc d", 1, -1), QStringLiteral("a\rb\r\nc\rd"));
  EXPECT_EQ(BreakTextLines(canvas, "a b c", 1, 0), QStringLiteral("a b c"));
}

TEST_F(CellDraw, ATextTooWideIsCutWithAnEllipsis) {
  EXPECT_EQ(CutTextToWidth(canvas, "short", Width("short")), QStringLiteral("short"));
  const QString cut = CutTextToWidth(canvas, "a rather long text", Width("a rather"));
  EXPECT_TRUE(cut.endsWith(QStringLiteral("...")));
  EXPECT_TRUE(QStringLiteral("a rather long text").startsWith(cut.chopped(3)));
  EXPECT_LE(canvas->TextWidth(cut), Width("a rather"));
  EXPECT_EQ(CutTextToWidth(canvas, "abc", 0), QStringLiteral("a...")) << "one character at least";
}

// --- Writing into the cell

TEST_F(CellDraw, ARowTooLowForItsTextShowsOneLineFromTheTop) {
  const TRect cell = Rect(0, 0, 200, lineHeight - 2);
  CellTextOut(canvas, cell, 2, 2, "first\nsecond", taLeftJustify, false, false, false, tvBottomJustify, {}, {});
  EXPECT_TRUE(InkIn(0, 0, 200, cell.Bottom));
  EXPECT_FALSE(InkIn(0, cell.Bottom, 200, bitmap.Height())) << "the text is clipped to its cell";
}

TEST_F(CellDraw, WrapWithEllipsisBreaksTheFirstLineAndCutsTheSecond) {
  const TRect cell = Rect(0, 0, Width("alpha beta") + 2, 2 * lineHeight + 4);
  CellTextOut(canvas, cell, 2, 2, "alpha beta gamma delta epsilon", taLeftJustify, false, true, true, tvTopJustify, {},
              {});
  EXPECT_TRUE(InkIn(0, 2, cell.Right, 2 + lineHeight));
  EXPECT_TRUE(InkIn(0, 2 + lineHeight, cell.Right, 2 + 2 * lineHeight));
  // The second line keeps the rest, cut: "gamma delta..." ends before the cell does.
  const QString second = CutTextToWidth(canvas, "gamma delta epsilon", cell.Width() - 2);
  EXPECT_TRUE(second.endsWith(QStringLiteral("...")));
  EXPECT_FALSE(InkIn(2 + canvas->TextWidth(second) + 1, 2 + lineHeight, cell.Right, cell.Bottom));
}

TEST_F(CellDraw, LinesAreCenteredInTheRoomTheyLeave) {
  const TRect cell = Rect(0, 0, 200, 3 * lineHeight + 4);
  CellTextOut(canvas, cell, 2, 2, "middle", taLeftJustify, false, false, false, tvCenter, {}, {});
  EXPECT_FALSE(InkIn(0, 0, 200, 2 + lineHeight));
  EXPECT_TRUE(InkIn(0, 2 + lineHeight, 200, 2 + 2 * lineHeight));
  EXPECT_FALSE(InkIn(0, 2 + 2 * lineHeight, 200, cell.Bottom));
}

// Where a line lands, read from the search match on it: its rectangle starts at the
// line's X and Y. The cell is 200 wide and three lines and 4 high, with margins of 2.
struct PlacementCase {
  const char* name;
  const char* text;
  TAlignment alignment;
  TVAlignment vAlignment;
  int (*x)(int width);
  int (*y)(int lineHeight);
};

void PrintTo(const PlacementCase& placement, std::ostream* out) { *out << placement.name; }

class LinePlacement : public CellDraw, public ::testing::WithParamInterface<PlacementCase> {};

TEST_P(LinePlacement, PutsTheLineByItsAlignments) {
  const PlacementCase& placement = GetParam();
  const TRect cell = Rect(0, 0, 200, 3 * lineHeight + 4);
  const TCellTextMatch match = CellTextOut(canvas, cell, 2, 2, QString::fromUtf8(placement.text), placement.alignment,
                                           false, false, false, placement.vAlignment, QStringLiteral("Wg"), {});
  EXPECT_EQ(match.rect.Left, placement.x(Width("Wg")));
  EXPECT_EQ(match.rect.Top, placement.y(lineHeight));
}

INSTANTIATE_TEST_SUITE_P(
    CellDraw, LinePlacement,
    ::testing::Values(
        PlacementCase{"TopLeft", "Wg", taLeftJustify, tvTopJustify, [](int) { return 2; }, [](int) { return 2; }},
        PlacementCase{"Bottom", "Wg", taLeftJustify, tvBottomJustify, [](int) { return 2; },
                      [](int height) { return 2 + 2 * height; }},
        PlacementCase{"CenterX", "Wg", taCenter, tvTopJustify, [](int width) { return 100 - width / 2; },
                      [](int) { return 2; }},
        PlacementCase{"CrLfEndsOneLine", "a\r\nWg", taLeftJustify, tvTopJustify, [](int) { return 2; },
                      [](int height) { return 2 + height; }},
        PlacementCase{"CrLfBottom", "a\r\nWg", taLeftJustify, tvBottomJustify, [](int) { return 2; },
                      [](int height) { return 2 + 2 * height; }}),
    [](const ::testing::TestParamInfo<PlacementCase>& info) { return std::string(info.param.name); });

TEST_F(CellDraw, RightAlignedTextEndsAMarginAndAPixelBeforeTheEdge) {
  const TRect cell = Rect(0, 0, 200, lineHeight + 4);
  CellTextOut(canvas, cell, 2, 2, "1234", taRightJustify, false, false, false, tvCenter, {}, {});
  EXPECT_FALSE(InkIn(0, 0, 200 - 3 - Width("1234"), cell.Bottom));
  EXPECT_TRUE(InkIn(200 - 3 - Width("1234"), 0, 200, cell.Bottom));
  EXPECT_FALSE(InkIn(200 - 3, 0, 200, cell.Bottom));
}

// A mirrored canvas swaps left and right for a text that does not read right to left
// itself. The X is logical: the canvas mirrors it.
struct MirrorCase {
  const char* name;
  bool mirrored;
  bool rightToLeft;
  TAlignment alignment;
  bool endsRight;
};

void PrintTo(const MirrorCase& mirror, std::ostream* out) { *out << mirror.name; }

class TextMirror : public CellDraw, public ::testing::WithParamInterface<MirrorCase> {};

TEST_P(TextMirror, SwapsTheSidesOnlyForATextNotRightToLeft) {
  const MirrorCase& mirror = GetParam();
  if (mirror.mirrored) canvas->SetCanvasOrientation(coRightToLeft);
  const TRect cell = Rect(0, 0, 200, lineHeight + 4);
  const TCellTextMatch match =
      CellTextOut(canvas, cell, 2, 2, "Wg", mirror.alignment, mirror.rightToLeft, false, false, tvCenter, "Wg", {});
  EXPECT_EQ(match.rect.Left, mirror.endsRight ? 200 - Width("Wg") - 3 : 2);
}

INSTANTIATE_TEST_SUITE_P(
    CellDraw, TextMirror,
    ::testing::Values(MirrorCase{"Plain", false, false, taLeftJustify, false},
                      MirrorCase{"PlainRightToLeft", false, true, taLeftJustify, false},
                      MirrorCase{"MirroredLeft", true, false, taLeftJustify, true},
                      MirrorCase{"MirroredRight", true, false, taRightJustify, false},
                      MirrorCase{"MirroredRightToLeft", true, true, taLeftJustify, false}),
    [](const ::testing::TestParamInfo<MirrorCase>& info) { return std::string(info.param.name); });

TEST_F(CellDraw, TheBrushFillsTheCellUnlessClear) {
  const TRect cell = Rect(10, 10, 60, 30);
  canvas->Brush()->SetColor(clYellow);
  CellTextOut(canvas, cell, 2, 2, "", taLeftJustify, false, true, true, tvCenter, {}, {});
  EXPECT_EQ(canvas->Pixel(12, 12), clYellow) << "an empty text still fills";
  canvas->Brush()->SetColor(clRed);
  canvas->Brush()->SetStyle(bsClear);
  CellTextOut(canvas, cell, 2, 2, "x", taLeftJustify, false, true, true, tvCenter, {}, {});
  EXPECT_EQ(canvas->Pixel(58, 28), clYellow);
}

TEST_F(CellDraw, TheFirstSearchMatchIsMeasuredInItsLine) {
  const TRect cell = Rect(10, 0, 200, 2 * lineHeight + 4);
  const TCellTextMatch match = CellTextOut(canvas, cell, 2, 2, "one two\nthree two", taLeftJustify, false, false, false,
                                           tvTopJustify, "TWO", {});
  EXPECT_EQ(match.text, QStringLiteral("two"));
  const int left = 12 + Width("one ");
  EXPECT_EQ(match.rect, Rect(left, 2, left + Width("two") - 1, 2 + lineHeight));
  const TCellTextMatch none =
      CellTextOut(canvas, cell, 2, 2, "one two", taLeftJustify, false, false, false, tvTopJustify, "TWO",
                  {soCaseSensitive});
  EXPECT_TRUE(none.rect.IsEmpty());
}

TEST(SearchTextPos, FindsWithOrWithoutCaseAndOnlyWholeWordsWhenAsked) {
  EXPECT_EQ(SearchTextPos("ber", "Berlin", {}), 1);
  EXPECT_EQ(SearchTextPos("ber", "Berlin", {soCaseSensitive}), 0);
  EXPECT_EQ(SearchTextPos("lin", "Berlin lin", {soWholeWords}), 8) << "a refused match searches on";
  EXPECT_EQ(SearchTextPos("lin", "Berlin", {soWholeWords}), 0);
  EXPECT_EQ(SearchTextPos("", "Berlin", {}), 0);
}

// --- Where text and image go

TEST(CellRects, AnImageMarginSplitsTheCellByTreeLevel) {
  const TRect cell = Rect(0, 0, 100, 20);
  EXPECT_EQ(CellTextRect(cell, 0, 3, false), cell);
  EXPECT_EQ(CellImageRect(cell, 0, 3, false), cell);
  EXPECT_EQ(CellTextRect(cell, 20, 1, false), Rect(41, 0, 100, 20));
  EXPECT_EQ(CellImageRect(cell, 20, 1, false), Rect(20, 0, 40, 20));
  EXPECT_EQ(CellTextRect(cell, 20, 1, true), Rect(0, 0, 59, 20));
  EXPECT_EQ(CellImageRect(cell, 20, 1, true), Rect(60, 0, 80, 20));
  EXPECT_EQ(CellTextRect(Rect(0, 0, 30, 20), 20, 1, false), Rect(30, 0, 30, 20)) << "never past the edge";
  EXPECT_EQ(CellImageRect(Rect(0, 0, 30, 20), 20, 1, false), Rect(20, 0, 30, 20));
}

// --- Pictures

class CellImage : public CellDraw {
protected:
  // A 4 x 2 picture: red on the left half, blue on the right.
  void SetUp() override {
    CellDraw::SetUp();
    picture.Canvas()->Brush()->SetColor(clRed);
    picture.Canvas()->FillRect(Rect(0, 0, 2, 2));
    picture.Canvas()->Brush()->SetColor(clBlue);
    picture.Canvas()->FillRect(Rect(2, 0, 4, 2));
  }
  TBitmap picture{4, 2};
};

TEST_F(CellImage, CenteredKeepsItsSizeAndTheBrushFillsAround) {
  TCellImageLayout layout;
  layout.imageDraw = idCenter;
  canvas->Brush()->SetColor(clYellow);
  CellDrawImage(canvas, Rect(10, 10, 30, 20), &picture, layout);
  EXPECT_EQ(canvas->Pixel(18, 14), clRed);
  EXPECT_EQ(canvas->Pixel(21, 15), clBlue);
  EXPECT_EQ(canvas->Pixel(11, 11), clYellow);
  EXPECT_EQ(canvas->Pixel(9, 9), clWhite) << "nothing outside the rectangle";
}

TEST_F(CellImage, AlignmentPlacesItByTheOffsetsAndOppositeSwapsTheSides) {
  TCellImageLayout layout;
  layout.imageDraw = idAlignment;
  layout.alignment = taRightJustify;
  layout.vAlignment = tvTopJustify;
  layout.offsetX = 1;
  CellDrawImage(canvas, Rect(10, 10, 30, 20), &picture, layout);
  EXPECT_EQ(canvas->Pixel(25, 10), clRed);
  EXPECT_EQ(canvas->Pixel(28, 11), clBlue);
  layout.imageDraw = idOpposite;
  CellDrawImage(canvas, Rect(40, 10, 60, 20), &picture, layout);
  EXPECT_EQ(canvas->Pixel(41, 19), clRed) << "left and bottom";
}

TEST_F(CellImage, StretchFillsAndScaledKeepsTheRatio) {
  TCellImageLayout layout;
  layout.imageDraw = idStretch;
  CellDrawImage(canvas, Rect(0, 0, 40, 40), &picture, layout);
  EXPECT_EQ(canvas->Pixel(5, 35), clRed);
  EXPECT_EQ(canvas->Pixel(35, 5), clBlue);
  canvas->Brush()->SetColor(clWhite);
  layout.imageDraw = idScaled;
  CellDrawImage(canvas, Rect(50, 0, 90, 40), &picture, layout);
  EXPECT_EQ(canvas->Pixel(52, 20), clRed);
  EXPECT_EQ(canvas->Pixel(70, 5), clWhite) << "the 2:1 picture leaves room above";
}

TEST_F(CellImage, TilesRunFromTheCellOrFromTheGrid) {
  TCellImageLayout layout;
  layout.imageDraw = idTileCell;
  CellDrawImage(canvas, Rect(6, 0, 14, 4), &picture, layout);
  EXPECT_EQ(canvas->Pixel(6, 0), clRed);
  EXPECT_EQ(canvas->Pixel(8, 3), clBlue);
  layout.imageDraw = idTileGrid;
  CellDrawImage(canvas, Rect(6, 10, 14, 14), &picture, layout);
  EXPECT_EQ(canvas->Pixel(6, 10), clBlue) << "x 6 is column 2 of the grid's pattern";
  EXPECT_EQ(canvas->Pixel(8, 13), clRed);
  layout.offsetX = 2;
  CellDrawImage(canvas, Rect(6, 20, 14, 24), &picture, layout);
  EXPECT_EQ(canvas->Pixel(6, 20), clRed) << "the offset moves the pattern";
}

TEST_F(CellImage, ScaledKeepsTheRatioInsideTheOffsets) {
  TCellImageLayout layout;
  layout.imageDraw = idScaled;
  layout.offsetX = 4;
  layout.offsetY = 10;
  // Room 32 x 20 for a 4 x 2 picture: scaled 8 times, 32 x 16, centered 2 lower.
  CellDrawImage(canvas, Rect(50, 0, 90, 40), &picture, layout);
  EXPECT_EQ(canvas->Pixel(54, 12), clRed);
  EXPECT_EQ(canvas->Pixel(85, 27), clBlue);
  EXPECT_EQ(canvas->Pixel(53, 20), clWhite);
  EXPECT_EQ(canvas->Pixel(86, 20), clWhite);
  EXPECT_EQ(canvas->Pixel(70, 11), clWhite);
  EXPECT_EQ(canvas->Pixel(70, 28), clWhite);
}

// A 4 x 4 picture in quarters: red, blue above; lime, yellow below.
class CellTile : public CellDraw {
protected:
  void SetUp() override {
    CellDraw::SetUp();
    const std::pair<TRect, TColor> quarters[] = {{Rect(0, 0, 2, 2), clRed},
                                                 {Rect(2, 0, 4, 2), clBlue},
                                                 {Rect(0, 2, 2, 4), clLime},
                                                 {Rect(2, 2, 4, 4), clYellow}};
    for (const auto& [rect, color] : quarters) {
      picture.Canvas()->Brush()->SetColor(color);
      picture.Canvas()->FillRect(rect);
    }
  }
  TBitmap picture{4, 4};
};

// The cell starts at 6, 2 in the grid: half a picture across and down from the pattern's
// grid origin, so that each axis tells whether it runs from the cell or from the grid.
TEST_F(CellTile, AColumnRunsAcrossFromTheCellAndDownFromTheGrid) {
  TCellImageLayout layout;
  layout.imageDraw = idTileCol;
  CellDrawImage(canvas, Rect(6, 2, 14, 10), &picture, layout);
  EXPECT_EQ(canvas->Pixel(6, 2), clLime);
  EXPECT_EQ(canvas->Pixel(8, 2), clYellow);
  EXPECT_EQ(canvas->Pixel(6, 4), clRed);
}

TEST_F(CellTile, ARowRunsAcrossFromTheGridAndDownFromTheCell) {
  TCellImageLayout layout;
  layout.imageDraw = idTileRow;
  CellDrawImage(canvas, Rect(6, 2, 14, 10), &picture, layout);
  EXPECT_EQ(canvas->Pixel(6, 2), clBlue);
  EXPECT_EQ(canvas->Pixel(8, 2), clRed);
  EXPECT_EQ(canvas->Pixel(6, 4), clYellow);
}

TEST_F(CellTile, OffsetsMoveBothKindsOfOrigin) {
  TCellImageLayout layout;
  layout.imageDraw = idTileCol;
  layout.offsetX = 2;
  layout.offsetY = 2;
  CellDrawImage(canvas, Rect(6, 2, 14, 10), &picture, layout);
  // Half a picture across from the cell gives the right half; half down from the grid's
  // half-way start gives the top.
  EXPECT_EQ(canvas->Pixel(6, 2), clBlue);
  EXPECT_EQ(canvas->Pixel(8, 2), clRed);
  EXPECT_EQ(canvas->Pixel(6, 4), clYellow);
}

// On a mirrored canvas every picture shows mirrored, tiles too, and their pattern runs
// from the right edge: the cell's for its own tiles, the canvas' for the grid's. Read in
// the device's own pixels; the cells are 7 wide, so that a pattern from the left edge
// would not meet the right one.
class MirroredTile : public CellTile {
protected:
  void Draw(TImageDraw kind, const TRect& cell) {
    TCellImageLayout layout;
    layout.imageDraw = kind;
    canvas->SetCanvasOrientation(coRightToLeft);
    CellDrawImage(canvas, cell, &picture, layout);
    canvas->SetCanvasOrientation(coLeftToRight);
  }
  // The top row of the picture's column, seen mirrored.
  static TColor TopOf(int column) { return column % 4 < 2 ? clRed : clBlue; }
  int FromRight(int deviceX) const { return bitmap.Width() - 1 - deviceX; }
  // The device pixels of a logical cell.
  TRect Device(const TRect& cell) const {
    return Rect(bitmap.Width() - cell.Right, cell.Top, bitmap.Width() - cell.Left, cell.Bottom);
  }
};

TEST_F(MirroredTile, ACellsTilesRunFromItsRightEdge) {
  const TRect cell = Device(Rect(6, 0, 13, 4));
  Draw(idTileCell, Rect(6, 0, 13, 4));
  for (int x = cell.Left; x < cell.Right; ++x) EXPECT_EQ(canvas->Pixel(x, 0), TopOf(cell.Right - 1 - x)) << x;
}

TEST_F(MirroredTile, TheGridsTilesRunFromTheCanvasRightEdgeAcrossTheCells) {
  const TRect first = Rect(6, 12, 13, 20), next = Rect(13, 12, 20, 20);
  Draw(idTileGrid, first);
  Draw(idTileRow, next);
  for (int x = Device(next).Left; x < Device(first).Right; ++x)
    EXPECT_EQ(canvas->Pixel(x, 12), TopOf(FromRight(x))) << x;
  EXPECT_EQ(canvas->Pixel(Device(first).Left, 14), clLime) << "the grid's tiles run down from the canvas' top";
}

// On a mirrored canvas a picture that reads right to left swaps its sides; X is logical.
TEST_F(CellImage, AMirroredCanvasSwapsTheSidesOfARightToLeftPicture) {
  canvas->SetCanvasOrientation(coRightToLeft);
  TCellImageLayout layout;
  layout.imageDraw = idAlignment;
  layout.alignment = taLeftJustify;
  layout.vAlignment = tvTopJustify;
  CellDrawImage(canvas, Rect(10, 10, 30, 20), &picture, layout);
  EXPECT_NE(canvas->Pixel(11, 10), clWhite);
  EXPECT_EQ(canvas->Pixel(28, 10), clWhite);
  layout.rightToLeft = true;
  CellDrawImage(canvas, Rect(40, 10, 60, 20), &picture, layout);
  EXPECT_EQ(canvas->Pixel(41, 10), clWhite);
  EXPECT_NE(canvas->Pixel(58, 10), clWhite);
}

}  // namespace
