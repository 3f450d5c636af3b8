#pragma once
// Pixel operations shared by bitmaps and image lists.

#include <QImage>
#include <utility>
#include <vector>

#include "framework/graphics/Colors.h"

namespace quil {

// Opaque pixels of each pair's first RGB color take its second; the first pair that
// matches wins.
QImage MapColors(const QImage& image, const std::vector<std::pair<TColor, TColor>>& pairs);
// Opaque pixels of color become fully transparent.
QImage MaskColor(const QImage& image, TColor color);
// Pixels where mask is light become fully transparent.
QImage ApplyMask(const QImage& image, const QImage& mask);
// The washed-out gray form of a disabled image; alpha stays.
QImage GrayedImage(const QImage& image);
// Mixes color into every opaque part of image; percent is color's share.
QImage BlendImage(const QImage& image, TColor color, int percent);

}  // namespace quil
