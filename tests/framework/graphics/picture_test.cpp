#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QTemporaryDir>

#include "PixelProbe.h"
#include "framework/graphics/Images.h"
#include "framework/graphics/Picture.h"

using namespace quil;

namespace {

// A 20 x 10 picture: red on the left half, blue on the right, encoded as format.
QByteArray Encoded(const char* format) {
  QImage image(20, 10, QImage::Format_RGB32);
  image.fill(Qt::red);
  for (int y = 0; y < 10; ++y)
    for (int x = 10; x < 20; ++x) image.setPixelColor(x, y, Qt::blue);
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return data;
}

struct FormatCase {
  const char* format;
  const char* className;
  const char* extension;
};

class PictureFormatTest : public ::testing::TestWithParam<FormatCase> {};

}  // namespace

TEST_P(PictureFormatTest, DecodesByContentAndByExtensionInTheRightClass) {
  TPicture picture;
  picture.LoadFromData(Encoded(GetParam().format));
  ASSERT_NE(picture.Graphic(), nullptr);
  EXPECT_EQ(picture.Graphic()->ClassType().ClassName(), QLatin1String(GetParam().className));
  EXPECT_EQ(picture.Width(), 20);
  EXPECT_EQ(picture.Height(), 10);
  // Drawn on a canvas, the two halves keep their colors (JPEG only near them).
  TBitmap target;
  test::WhiteBitmap(target, 20, 10);
  target.Canvas()->Draw(0, 0, picture.Graphic());
  TColor left = test::PixelAt(target, 3, 5), right = test::PixelAt(target, 16, 5);
  EXPECT_GT(GetRValue(left), 200);
  EXPECT_LT(GetBValue(left), 60);
  EXPECT_GT(GetBValue(right), 200);
  EXPECT_LT(GetRValue(right), 60);
  // The same bytes in a file of that extension.
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("picture.") + QLatin1String(GetParam().extension));
  picture.SaveToFile(file);
  TPicture reloaded;
  reloaded.LoadFromFile(file);
  EXPECT_EQ(reloaded.Graphic()->ClassType().ClassName(), QLatin1String(GetParam().className));
  EXPECT_EQ(reloaded.Width(), 20);
}

INSTANTIATE_TEST_SUITE_P(Formats, PictureFormatTest, ::testing::Values(
    FormatCase{"PNG", "TPngImage", "png"}, FormatCase{"JPEG", "TJPEGImage", "jpg"},
    FormatCase{"BMP", "TBitmap", "bmp"}, FormatCase{"ICO", "TIcon", "ico"}));

// Qt reads GIF but does not write it: a one-pixel red GIF, byte by byte.
TEST(Picture, DecodesAGifInItsClass) {
  const QByteArray gif = QByteArray::fromHex(
      "474946383961" "01000100" "800000" "ff0000" "000000"  // header, screen, two colors
      "2c00000000010001000000" "02024401003b");             // image, LZW data, trailer
  TPicture picture;
  picture.LoadFromData(gif);
  EXPECT_EQ(picture.Graphic()->ClassType().ClassName(), QLatin1String("TGIFImage"));
  TBitmap target;
  test::WhiteBitmap(target, 3, 3);
  target.Canvas()->Draw(1, 1, picture.Graphic());
  EXPECT_EQ(test::PixelAt(target, 1, 1), clRed);
  EXPECT_EQ(test::PixelAt(target, 0, 0), clWhite);
}

TEST(Picture, DamagedOrUnknownDataIsRefusedAndTheOldGraphicStays) {
  TPicture picture;
  picture.LoadFromData(Encoded("PNG"));
  EXPECT_THROW(picture.LoadFromData(QByteArray("not a picture at all")), EInvalidGraphic);
  QByteArray truncated = Encoded("PNG").left(30);
  EXPECT_THROW(picture.LoadFromData(truncated), EInvalidGraphic);
  ASSERT_NE(picture.Graphic(), nullptr);
  EXPECT_EQ(picture.Width(), 20);
  QTemporaryDir dir;
  EXPECT_THROW(picture.LoadFromFile(dir.filePath(QStringLiteral("x.unknown"))), EInvalidGraphic);
}

TEST(Picture, StretchDrawScalesToTheRectangle) {
  TPngImage png;
  png.LoadFromData(Encoded("PNG"));
  TBitmap target;
  test::WhiteBitmap(target, 100, 50);
  target.Canvas()->StretchDraw(Rect(10, 10, 90, 40), &png);
  EXPECT_EQ(test::InkBounds(target), Rect(10, 10, 90, 40));
  EXPECT_EQ(test::PixelAt(target, 20, 25), clRed);
  EXPECT_EQ(test::PixelAt(target, 80, 25), clBlue);
}
