#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "PixelProbe.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/DeviceContext.h"
#include "framework/graphics/DrawText.h"

namespace quil {
namespace {

using test::CountInk;
using test::InkBounds;
using test::PixelAt;

class TCanvasTest : public ::testing::Test {
protected:
  void SetUp() override {
    test::WhiteBitmap(bitmap, 200, 100);
    canvas = bitmap.Canvas();
  }
  TBitmap bitmap;
  TCanvas* canvas = nullptr;
};

TEST_F(TCanvasTest, FillRectCoversLeftTopButNotRightBottom) {
  canvas->Brush()->SetColor(clRed);
  canvas->FillRect(Rect(10, 10, 20, 30));
  EXPECT_EQ(PixelAt(bitmap, 10, 10), clRed);
  EXPECT_EQ(PixelAt(bitmap, 19, 29), clRed);
  EXPECT_EQ(PixelAt(bitmap, 20, 15), clWhite);
  EXPECT_EQ(PixelAt(bitmap, 15, 30), clWhite);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 10 * 20);
}

TEST_F(TCanvasTest, FillRectResolvesSystemColors) {
  canvas->Brush()->SetColor(clHighlight);
  canvas->FillRect(Rect(0, 0, 5, 5));
  EXPECT_EQ(PixelAt(bitmap, 2, 2), ColorToRGB(clHighlight));
}

TEST_F(TCanvasTest, ClearBrushFillsNothing) {
  canvas->Brush()->SetStyle(bsClear);
  canvas->FillRect(Rect(0, 0, 50, 50));
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 0);
}

TEST_F(TCanvasTest, FrameRectDrawsOnePixelOfBrushAround) {
  canvas->Brush()->SetColor(clBlue);
  canvas->FrameRect(Rect(10, 10, 20, 20));
  EXPECT_EQ(PixelAt(bitmap, 10, 10), clBlue);
  EXPECT_EQ(PixelAt(bitmap, 19, 19), clBlue);
  EXPECT_EQ(PixelAt(bitmap, 15, 10), clBlue);
  EXPECT_EQ(PixelAt(bitmap, 11, 11), clWhite);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 36);
}

TEST_F(TCanvasTest, RectangleOutlinesWithPenAndFillsWithBrush) {
  canvas->Pen()->SetColor(clRed);
  canvas->Brush()->SetColor(clLime);
  canvas->Rectangle(Rect(10, 10, 20, 20));
  EXPECT_EQ(PixelAt(bitmap, 10, 10), clRed);
  EXPECT_EQ(PixelAt(bitmap, 19, 19), clRed);
  EXPECT_EQ(PixelAt(bitmap, 19, 10), clRed);
  EXPECT_EQ(PixelAt(bitmap, 15, 15), clLime);
  EXPECT_EQ(PixelAt(bitmap, 20, 20), clWhite);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 100);
}

TEST_F(TCanvasTest, LineToStopsBeforeItsEndAndMovesThePen) {
  canvas->Pen()->SetColor(clBlack);
  canvas->MoveTo(10, 50);
  canvas->LineTo(20, 50);
  EXPECT_EQ(canvas->PenPos(), Point(20, 50));
  EXPECT_EQ(PixelAt(bitmap, 10, 50), clBlack);
  EXPECT_EQ(PixelAt(bitmap, 19, 50), clBlack);
  EXPECT_EQ(PixelAt(bitmap, 20, 50), clWhite);
  canvas->LineTo(20, 60);
  EXPECT_EQ(PixelAt(bitmap, 20, 50), clBlack);
  EXPECT_EQ(PixelAt(bitmap, 20, 60), clWhite);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 20);
}

TEST_F(TCanvasTest, XorPenTwiceRestoresThePixels) {
  canvas->Brush()->SetColor(clRed);
  canvas->FillRect(Rect(0, 0, 100, 100));
  canvas->Pen()->SetMode(pmXor);
  canvas->Pen()->SetColor(clWhite);
  canvas->MoveTo(0, 5);
  canvas->LineTo(50, 5);
  EXPECT_EQ(PixelAt(bitmap, 10, 5), RGB(0, 255, 255));
  canvas->MoveTo(0, 5);
  canvas->LineTo(50, 5);
  EXPECT_EQ(PixelAt(bitmap, 10, 5), clRed);
}

TEST_F(TCanvasTest, WhitePenModeIgnoresThePenColor) {
  canvas->Brush()->SetColor(clBlack);
  canvas->FillRect(Rect(0, 0, 50, 50));
  canvas->Pen()->SetColor(clRed);
  canvas->Pen()->SetMode(pmWhite);
  canvas->MoveTo(0, 10);
  canvas->LineTo(40, 10);
  EXPECT_EQ(PixelAt(bitmap, 5, 10), clWhite);
}

TEST_F(TCanvasTest, PolygonFillsItsInside) {
  canvas->Brush()->SetColor(clGreen);
  canvas->Pen()->SetColor(clGreen);
  canvas->Polygon({Point(10, 10), Point(60, 10), Point(10, 60)});
  EXPECT_EQ(PixelAt(bitmap, 20, 20), clGreen);
  EXPECT_EQ(PixelAt(bitmap, 55, 55), clWhite);
}

TEST_F(TCanvasTest, EllipseStaysInsideItsRectangle) {
  canvas->Brush()->SetColor(clNavy);
  canvas->Pen()->SetColor(clNavy);
  canvas->Ellipse(Rect(10, 10, 50, 40));
  EXPECT_EQ(PixelAt(bitmap, 30, 25), clNavy);
  EXPECT_EQ(PixelAt(bitmap, 11, 11), clWhite);
  const TRect ink = InkBounds(bitmap);
  EXPECT_GE(ink.Left, 10);
  EXPECT_LE(ink.Right, 50);
  EXPECT_LE(ink.Bottom, 40);
}

TEST_F(TCanvasTest, TextOutPutsInkInTheTextCellAndMovesThePen) {
  canvas->Brush()->SetStyle(bsClear);
  canvas->Font()->SetColor(clBlack);
  const QString text = QStringLiteral("Quil");
  canvas->TextOut(10, 20, text);
  const TRect cell = Bounds(10, 20, canvas->TextWidth(text), canvas->TextHeight(text));
  EXPECT_GT(CountInk(bitmap, cell), 20);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), CountInk(bitmap, cell));
  EXPECT_EQ(canvas->PenPos(), Point(10 + canvas->TextWidth(text), 20));
}

TEST_F(TCanvasTest, TextOutWithSolidBrushFillsTheCell) {
  canvas->Brush()->SetColor(clYellow);
  canvas->TextOut(10, 20, QStringLiteral("Quil"));
  const TRect cell = Bounds(10, 20, canvas->TextWidth(QStringLiteral("Quil")), canvas->TextHeight(QStringLiteral("Q")));
  EXPECT_EQ(InkBounds(bitmap), cell);
  EXPECT_EQ(PixelAt(bitmap, cell.Right - 1, cell.Top), clYellow);
}

TEST_F(TCanvasTest, TextRectClipsTheTextAndFillsTheRect) {
  canvas->Brush()->SetColor(clAqua);
  canvas->Font()->SetColor(clBlack);
  const TRect clip = Rect(20, 20, 60, 40);
  canvas->TextRect(clip, 25, 22, QStringLiteral("A rather long line of text that overflows"));
  EXPECT_EQ(InkBounds(bitmap), clip);
  EXPECT_GT(CountInk(bitmap, clip, clAqua), 20);
  EXPECT_EQ(canvas->ClipRect(), Rect(0, 0, 200, 100));
}

TEST_F(TCanvasTest, TextRectWithClearBrushLeavesTheBackground) {
  canvas->Brush()->SetStyle(bsClear);
  canvas->TextRect(Rect(20, 20, 60, 40), 25, 22, QStringLiteral("Wide text that overflows"));
  EXPECT_EQ(PixelAt(bitmap, 59, 39), clWhite);
  EXPECT_GT(CountInk(bitmap, Rect(20, 20, 60, 40)), 10);
  EXPECT_EQ(CountInk(bitmap, Rect(60, 0, 200, 100)), 0);
}

TEST_F(TCanvasTest, IntersectClipRectLimitsDrawingUntilRestoreDC) {
  const int saved = SaveDC(canvas);
  EXPECT_GT(saved, 0);
  EXPECT_EQ(IntersectClipRect(canvas, 10, 10, 30, 30), SIMPLEREGION);
  EXPECT_EQ(canvas->ClipRect(), Rect(10, 10, 30, 30));
  canvas->Brush()->SetColor(clRed);
  canvas->FillRect(Rect(0, 0, 200, 100));
  EXPECT_EQ(InkBounds(bitmap), Rect(10, 10, 30, 30));
  EXPECT_TRUE(RestoreDC(canvas, saved));
  EXPECT_EQ(canvas->ClipRect(), Rect(0, 0, 200, 100));
  canvas->FillRect(Rect(0, 0, 200, 100));
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 200 * 100);
  EXPECT_FALSE(RestoreDC(canvas, saved));
}

TEST_F(TCanvasTest, NestedClipsIntersectAndRestoreByNegativeId) {
  SaveDC(canvas);
  canvas->IntersectClipRect(Rect(0, 0, 50, 50));
  SaveDC(canvas);
  EXPECT_FALSE(canvas->IntersectClipRect(Rect(60, 60, 80, 80)));
  EXPECT_TRUE(RestoreDC(canvas, -1));
  EXPECT_EQ(canvas->ClipRect(), Rect(0, 0, 50, 50));
  SelectClipRgn(canvas, nullptr);
  EXPECT_EQ(canvas->ClipRect(), Rect(0, 0, 200, 100));
}

TEST_F(TCanvasTest, PixelsReadAndWrite) {
  canvas->SetPixel(5, 6, RGB(1, 2, 3));
  EXPECT_EQ(canvas->Pixel(5, 6), RGB(1, 2, 3));
  EXPECT_EQ(canvas->Pixel(6, 6), clWhite);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 1);
}

TEST_F(TCanvasTest, CopyRectStretchesFromAnotherCanvas) {
  TBitmap source;
  test::WhiteBitmap(source, 10, 10);
  source.Canvas()->Brush()->SetColor(clRed);
  source.Canvas()->FillRect(Rect(0, 0, 5, 10));
  canvas->CopyRect(Rect(100, 0, 140, 20), source.Canvas(), Rect(0, 0, 10, 10));
  EXPECT_EQ(PixelAt(bitmap, 100, 0), clRed);
  EXPECT_EQ(PixelAt(bitmap, 119, 19), clRed);
  EXPECT_EQ(PixelAt(bitmap, 120, 0), clWhite);
  EXPECT_EQ(InkBounds(bitmap), Rect(100, 0, 120, 20));
}

TEST_F(TCanvasTest, BitBltCopiesPixelsWithTheRasterOperationAndKeepsCopyMode) {
  TBitmap source;
  test::WhiteBitmap(source, 40, 40);
  source.Canvas()->Brush()->SetColor(clBlue);
  source.Canvas()->FillRect(Rect(10, 10, 20, 20));
  canvas->SetCopyMode(cmSrcAnd);
  ASSERT_TRUE(BitBlt(canvas, 100, 50, 10, 10, source.Canvas(), 10, 10, SRCCOPY));
  EXPECT_EQ(InkBounds(bitmap), Rect(100, 50, 110, 60));
  EXPECT_EQ(PixelAt(bitmap, 105, 55), clBlue);
  EXPECT_EQ(canvas->CopyMode(), cmSrcAnd);
  // Blue inverted by blue is black, and inverted again blue.
  BitBlt(canvas, 100, 50, 10, 10, source.Canvas(), 10, 10, SRCINVERT);
  EXPECT_EQ(PixelAt(bitmap, 105, 55), clBlack);
  BitBlt(canvas, 100, 50, 10, 10, source.Canvas(), 10, 10, SRCINVERT);
  EXPECT_EQ(PixelAt(bitmap, 105, 55), clBlue);
  EXPECT_FALSE(BitBlt(canvas, 0, 0, 5, 5, nullptr, 0, 0, SRCCOPY));
}

TEST_F(TCanvasTest, DrawAndStretchDrawPlaceAGraphic) {
  TBitmap glyph;
  glyph.SetSize(4, 4);
  glyph.Canvas()->Brush()->SetColor(clBlue);
  glyph.Canvas()->FillRect(Rect(0, 0, 4, 4));
  canvas->Draw(10, 10, &glyph);
  EXPECT_EQ(InkBounds(bitmap), Rect(10, 10, 14, 14));
  canvas->StretchDraw(Rect(50, 50, 70, 60), &glyph);
  EXPECT_EQ(PixelAt(bitmap, 69, 59), clBlue);
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 16 + 200);
}

TEST_F(TCanvasTest, DrawFocusRectInvertsDotsAndUndoesItself) {
  canvas->DrawFocusRect(Rect(10, 10, 30, 20));
  const int dots = CountInk(bitmap, Rect(0, 0, 200, 100));
  EXPECT_GT(dots, 20);
  EXPECT_LT(dots, 56);
  EXPECT_EQ(CountInk(bitmap, Rect(11, 11, 29, 19)), 0);
  EXPECT_NE(PixelAt(bitmap, 10, 10), PixelAt(bitmap, 11, 10));
  canvas->DrawFocusRect(Rect(10, 10, 30, 20));
  EXPECT_EQ(CountInk(bitmap, Rect(0, 0, 200, 100)), 0);
}

TEST_F(TCanvasTest, RightToLeftMirrorsCoordinates) {
  canvas->SetCanvasOrientation(coRightToLeft);
  canvas->Brush()->SetColor(clRed);
  canvas->FillRect(Rect(0, 0, 10, 10));
  EXPECT_EQ(InkBounds(bitmap), Rect(190, 0, 200, 10));
  EXPECT_EQ(canvas->Pixel(0, 0), clRed);
  canvas->IntersectClipRect(Rect(0, 0, 50, 50));
  EXPECT_EQ(canvas->ClipRect(), Rect(0, 0, 50, 50));
}

// A window's painter starts at its client area, which ends before the window does: the
// canvas mirrors within the width it was bound with.
TEST(TCanvasBinding, RightToLeftMirrorsWithinTheBoundWidth) {
  QImage image(200, 20, QImage::Format_RGB32);
  image.fill(Qt::white);
  {
    QPainter painter(&image);
    painter.translate(20, 0);
    TCanvas canvas;
    TCanvasPaintScope scope(&canvas, &painter, 100);
    canvas.SetCanvasOrientation(coRightToLeft);
    canvas.Brush()->SetColor(clRed);
    canvas.FillRect(Rect(0, 0, 10, 10));
  }
  EXPECT_EQ(image.pixelColor(115, 5), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(109, 5), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(195, 5), QColor(Qt::white));
}

TEST_F(TCanvasTest, RightToLeftKeepsTextReadable) {
  canvas->SetCanvasOrientation(coRightToLeft);
  canvas->Brush()->SetStyle(bsClear);
  canvas->TextOut(0, 0, QStringLiteral("Quil"));
  const TRect ink = InkBounds(bitmap);
  EXPECT_GE(ink.Left, 200 - canvas->TextWidth(QStringLiteral("Quil")));
  TBitmap plain;
  test::WhiteBitmap(plain, 200, 100);
  plain.Canvas()->Brush()->SetStyle(bsClear);
  plain.Canvas()->TextOut(200 - canvas->TextWidth(QStringLiteral("Quil")), 0, QStringLiteral("Quil"));
  EXPECT_EQ(bitmap.ToImage(), plain.ToImage());
}

TEST(TCanvasBinding, DrawsThroughABorrowedPainterAndHandsItBack) {
  QImage image(50, 50, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setPen(QPen(Qt::green, 3));
  TCanvas canvas;
  EXPECT_FALSE(canvas.HandleAllocated());
  {
    TCanvasPaintScope scope(&canvas, &painter);
    EXPECT_TRUE(canvas.HandleAllocated());
    canvas.Pen()->SetColor(clRed);
    canvas.IntersectClipRect(Rect(0, 0, 10, 10));
    canvas.Brush()->SetColor(clBlue);
    canvas.FillRect(Rect(0, 0, 50, 50));
    canvas.MoveTo(0, 0);
    canvas.LineTo(5, 0);
  }
  EXPECT_FALSE(canvas.HandleAllocated());
  EXPECT_EQ(painter.pen().color(), QColor(Qt::green));
  EXPECT_FALSE(painter.hasClipping());
  painter.end();
  EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(20, 20), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(1, 0), QColor(Qt::red));
}

TEST(TCanvasBinding, UnboundCanvasMeasuresButDoesNotDraw) {
  TCanvas canvas;
  EXPECT_GT(canvas.TextWidth(QStringLiteral("Quil")), 10);
  EXPECT_GT(canvas.TextHeight(QStringLiteral("Quil")), 8);
  canvas.FillRect(Rect(0, 0, 10, 10));
  EXPECT_EQ(canvas.ClipRect(), TRect{});
  EXPECT_EQ(canvas.Pixel(0, 0), clNone);
}

}  // namespace
}  // namespace quil
