#include <gtest/gtest.h>

#include "PixelProbe.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/StyleServices.h"

using namespace quil;

namespace {

// One pixel of each color, left to right, on a 1-pixel-high bitmap.
void Row(TBitmap& bitmap, const std::vector<TColor>& colors) {
  bitmap.SetSize(int(colors.size()), 1);
  for (size_t x = 0; x < colors.size(); ++x) bitmap.Canvas()->SetPixel(int(x), 0, colors[x]);
}

}  // namespace

TEST(CreateMappedBmp, MapsEachOldColorAndLeavesTheRest) {
  TBitmap source;
  Row(source, {clRed, clLime, clBlue, clYellow});
  auto mapped = CreateMappedBmp(&source, {clRed, clBlue}, {clNavy, clWhite});
  ASSERT_EQ(mapped->Width(), 4);
  EXPECT_EQ(test::PixelAt(*mapped, 0, 0), clNavy);
  EXPECT_EQ(test::PixelAt(*mapped, 1, 0), clLime);
  EXPECT_EQ(test::PixelAt(*mapped, 2, 0), clWhite);
  EXPECT_EQ(test::PixelAt(*mapped, 3, 0), clYellow);
  // The source keeps its pixels.
  EXPECT_EQ(test::PixelAt(source, 0, 0), clRed);
}

TEST(CreateMappedBmp, MapsEachPixelOnceEvenWhenANewColorIsAlsoAnOldOne) {
  TBitmap source;
  Row(source, {clRed, clGreen});
  auto mapped = CreateMappedBmp(&source, {clRed, clGreen}, {clGreen, clRed});
  EXPECT_EQ(test::PixelAt(*mapped, 0, 0), clGreen);
  EXPECT_EQ(test::PixelAt(*mapped, 1, 0), clRed);
}

TEST(CreateMappedBmp, ResolvesSystemColorsThroughTheActiveStyle) {
  TBitmap source;
  Row(source, {clRed});
  auto mapped = CreateMappedBmp(&source, {clRed}, {clBtnShadow});
  EXPECT_EQ(test::PixelAt(*mapped, 0, 0), ColorToRGB(clBtnShadow));
  TStyleManager::SetStyle(QStringLiteral("Quil Dark"));
  auto dark = CreateMappedBmp(&source, {clRed}, {clBtnShadow});
  const TColor darkShadow = ColorToRGB(clBtnShadow);
  TStyleManager::SetStyle(TStyleManager::SystemStyleName());
  EXPECT_EQ(test::PixelAt(*dark, 0, 0), darkShadow);
}

TEST(CreateMappedBmp, KeepsSizeAndTransparencySettings) {
  TBitmap source(3, 2);
  source.SetTransparentColor(clOlive);
  source.SetTransparent(true);
  auto mapped = CreateMappedBmp(&source, {clWhite}, {clBlack});
  EXPECT_EQ(mapped->Width(), 3);
  EXPECT_EQ(mapped->Height(), 2);
  EXPECT_TRUE(mapped->Transparent());
  EXPECT_EQ(mapped->TransparentMode(), tmFixed);
  EXPECT_EQ(mapped->TransparentColor(), clOlive);
}

TEST(CreateMappedBmp, NullOrEmptySourceGivesAnEmptyBitmap) {
  EXPECT_TRUE(CreateMappedBmp(nullptr, {clRed}, {clBlue})->Empty());
  TBitmap empty;
  EXPECT_TRUE(CreateMappedBmp(&empty, {clRed}, {clBlue})->Empty());
}
