#include <gtest/gtest.h>

#include "PixelProbe.h"
#include "framework/graphics/ImageList.h"

using namespace quil;

namespace {

// A strip of count 8 x 8 images on a fuchsia background, image i with a 4 x 4 square
// in colors[i] at (2, 2).
void MakeStrip(TBitmap& strip, const std::vector<TColor>& colors) {
  strip.SetSize(8 * int(colors.size()), 8);
  strip.Canvas()->Brush()->SetColor(clFuchsia);
  strip.Canvas()->FillRect(Rect(0, 0, strip.Width(), 8));
  for (size_t index = 0; index < colors.size(); ++index) {
    strip.Canvas()->Brush()->SetColor(colors[index]);
    strip.Canvas()->FillRect(Bounds(int(index) * 8 + 2, 2, 4, 4));
  }
}

}  // namespace

TEST(ImageList, AddMaskedCutsAStripAndDrawsWithoutTheMaskColor) {
  TImageList images(8, 8);
  TBitmap strip;
  MakeStrip(strip, {clRed, clLime, clBlue});
  EXPECT_EQ(images.AddMasked(&strip, clFuchsia), 0);
  EXPECT_EQ(images.Count(), 3);
  EXPECT_EQ(images.Width(), 8);
  EXPECT_EQ(images.Height(), 8);
  TBitmap target;
  test::WhiteBitmap(target, 30, 10);
  images.Draw(target.Canvas(), 10, 1, 2);
  EXPECT_EQ(test::PixelAt(target, 13, 4), clBlue);
  // The mask color is transparent: only the square has ink.
  EXPECT_EQ(test::InkBounds(target), Bounds(12, 3, 4, 4));
}

TEST(ImageList, DisabledImageIsGray) {
  TImageList images(8, 8);
  TBitmap strip;
  MakeStrip(strip, {clRed});
  images.AddMasked(&strip, clFuchsia);
  TBitmap target;
  test::WhiteBitmap(target, 10, 10);
  images.Draw(target.Canvas(), 0, 0, 0, false);
  TColor pixel = test::PixelAt(target, 3, 3);
  EXPECT_NE(pixel, clRed);
  EXPECT_EQ(GetRValue(pixel), GetGValue(pixel));
  EXPECT_EQ(GetGValue(pixel), GetBValue(pixel));
}

TEST(ImageList, GetBitmapCopiesOneImageAndDeleteShifts) {
  TImageList images(8, 8);
  TBitmap strip;
  MakeStrip(strip, {clRed, clLime, clBlue});
  images.AddMasked(&strip, clFuchsia);
  TBitmap copy;
  images.GetBitmap(1, &copy);
  EXPECT_EQ(copy.Width(), 8);
  EXPECT_EQ(test::PixelAt(copy, 3, 3), clLime);
  images.Delete(0);
  EXPECT_EQ(images.Count(), 2);
  images.GetBitmap(0, &copy);
  EXPECT_EQ(test::PixelAt(copy, 3, 3), clLime);
  images.Clear();
  EXPECT_EQ(images.Count(), 0);
}

TEST(ImageList, GetBitmapBlendsAsTheDrawingStyleDraws) {
  TImageList images(8, 8);
  TBitmap strip;
  MakeStrip(strip, {clRed});
  images.AddMasked(&strip, clFuchsia);
  images.SetBlendColor(clBlue);
  images.SetDrawingStyle(dsSelected);
  TBitmap copy;
  images.GetBitmap(0, &copy);
  // Half red, half blue where the image has color; the masked pixels stay clear.
  EXPECT_EQ(test::PixelAt(copy, 3, 3), RGB(128, 0, 128));
  EXPECT_EQ(qAlpha(copy.ToImage().pixel(0, 0)), 0);
  TBitmap drawn;
  test::WhiteBitmap(drawn, 8, 8);
  images.Draw(drawn.Canvas(), 0, 0, 0);
  EXPECT_EQ(test::PixelAt(drawn, 3, 3), test::PixelAt(copy, 3, 3));
}
