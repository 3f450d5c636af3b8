#pragma once

#include <QImage>

#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"

namespace quil {

class TBitmapPrivate {
public:
  ~TBitmapPrivate();

  // The image for a change that bypasses the canvas: its painter ends first, so that
  // it does not go on painting into a buffer that the change replaces.
  QImage& Pixels();
  void ReleaseCanvas();

  std::unique_ptr<TCanvas> canvas;
  QImage image;
  // Counts changes of the pixels, so that caches know when they are stale.
  uint64_t generation = 0;
  // The transparent form of image, made for maskedColor at maskedGeneration.
  QImage masked;
  TColor maskedColor = clNone;
  uint64_t maskedGeneration = UINT64_MAX;
};

}  // namespace quil
