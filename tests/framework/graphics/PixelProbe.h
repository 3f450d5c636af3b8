#pragma once
// Pixel questions that the graphics tests ask of a painted bitmap.

#include <QImage>
#include <QString>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Colors.h"

namespace quil::test {

// A white bitmap of the given size with its canvas ready.
inline TBitmap* WhiteBitmap(TBitmap& bitmap, int width, int height) {
  bitmap.SetSize(width, height);
  bitmap.Canvas()->Brush()->SetColor(clWhite);
  bitmap.Canvas()->FillRect(Rect(0, 0, width, height));
  return &bitmap;
}

inline TColor PixelAt(TBitmap& bitmap, int x, int y) {
  const QRgb pixel = bitmap.ToImage().pixel(x, y);
  return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

// Pixels inside rect whose color is not background.
inline int CountInk(TBitmap& bitmap, const TRect& rect, TColor background = clWhite) {
  const QImage image = bitmap.ToImage();
  int count = 0;
  for (int y = std::max(rect.Top, 0); y < std::min(rect.Bottom, image.height()); ++y)
    for (int x = std::max(rect.Left, 0); x < std::min(rect.Right, image.width()); ++x)
      if (RGB(qRed(image.pixel(x, y)), qGreen(image.pixel(x, y)), qBlue(image.pixel(x, y))) != background) ++count;
  return count;
}

// The smallest rectangle that holds every pixel that is not background; empty if none.
inline TRect InkBounds(TBitmap& bitmap, TColor background = clWhite) {
  const QImage image = bitmap.ToImage();
  TRect bounds{image.width(), image.height(), 0, 0};
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (RGB(qRed(image.pixel(x, y)), qGreen(image.pixel(x, y)), qBlue(image.pixel(x, y))) != background) {
        bounds.Left = std::min(bounds.Left, x);
        bounds.Top = std::min(bounds.Top, y);
        bounds.Right = std::max(bounds.Right, x + 1);
        bounds.Bottom = std::max(bounds.Bottom, y + 1);
      }
  return bounds.IsEmpty() ? TRect{} : bounds;
}

// Saves the bitmap for a look by eye when QUIL_GRAPHICS_SNAPSHOTS names a folder.
inline void Snapshot(TBitmap& bitmap, const QString& name) {
  const QString folder = qEnvironmentVariable("QUIL_GRAPHICS_SNAPSHOTS");
  if (!folder.isEmpty()) bitmap.ToImage().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

}  // namespace quil::test
