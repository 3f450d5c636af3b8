#include "framework/graphics/ImageTools_p.h"

#include "framework/graphics/Colors_p.h"

namespace quil {

namespace {
constexpr QImage::Format kPremultiplied = QImage::Format_ARGB32_Premultiplied;

// Runs change over every pixel of an unpremultiplied copy of image.
template <typename Change>
QImage MapPixels(const QImage& image, Change change) {
  QImage result = image.convertToFormat(QImage::Format_ARGB32);
  for (int row = 0; row < result.height(); ++row) {
    auto* pixels = reinterpret_cast<QRgb*>(result.scanLine(row));
    for (int column = 0; column < result.width(); ++column) pixels[column] = change(pixels[column], column, row);
  }
  return result.convertToFormat(kPremultiplied);
}

int Mix(int a, int b, int percentOfB) { return (a * (100 - percentOfB) + b * percentOfB + 50) / 100; }
}  // namespace

QImage MapColors(const QImage& image, const std::vector<std::pair<TColor, TColor>>& pairs) {
  std::vector<std::pair<QRgb, QRgb>> keys;
  for (const auto& [from, to] : pairs) keys.emplace_back(ToQRgb(from) & RGB_MASK, ToQRgb(to) & RGB_MASK);
  return MapPixels(image, [&keys](QRgb pixel, int, int) {
    if (qAlpha(pixel) != 255) return pixel;
    for (const auto& [from, to] : keys)
      if ((pixel & RGB_MASK) == from) return to | 0xFF000000u;
    return pixel;
  });
}

QImage MaskColor(const QImage& image, TColor color) {
  const QRgb key = ToQRgb(color) & RGB_MASK;
  return MapPixels(image, [key](QRgb pixel, int, int) {
    return qAlpha(pixel) == 255 && (pixel & RGB_MASK) == key ? QRgb(0) : pixel;
  });
}

QImage ApplyMask(const QImage& image, const QImage& mask) {
  return MapPixels(image, [&mask](QRgb pixel, int column, int row) {
    const bool hidden = column < mask.width() && row < mask.height() && qGray(mask.pixel(column, row)) >= 128;
    return hidden ? QRgb(0) : pixel;
  });
}

QImage GrayedImage(const QImage& image) {
  return MapPixels(image, [](QRgb pixel, int, int) {
    const int gray = Mix(qGray(pixel), 255, 45);
    return qRgba(gray, gray, gray, qAlpha(pixel));
  });
}

QImage BlendImage(const QImage& image, TColor color, int percent) {
  const QColor blend = ToQColor(color);
  return MapPixels(image, [&](QRgb pixel, int, int) {
    return qRgba(Mix(qRed(pixel), blend.red(), percent), Mix(qGreen(pixel), blend.green(), percent),
                 Mix(qBlue(pixel), blend.blue(), percent), qAlpha(pixel));
  });
}

}  // namespace quil
