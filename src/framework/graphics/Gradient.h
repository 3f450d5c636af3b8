#pragma once
// Two-color gradients over rectangles, with the framework's GradientFill call shape: the
// vertices carry 16-bit color channels (the color's byte shifted left by 8) and each
// rectangle of the mesh joins an upper-left and a lower-right vertex.

#include <cstdint>

#include "framework/graphics/Canvas.h"

namespace quil {

struct TTriVertex {
  int32_t x = 0;
  int32_t y = 0;
  uint16_t Red = 0;
  uint16_t Green = 0;
  uint16_t Blue = 0;
  uint16_t Alpha = 0;
};

struct TGradientRect {
  uint32_t UpperLeft = 0;
  uint32_t LowerRight = 0;
};

constexpr uint32_t GRADIENT_FILL_RECT_H = 0;
constexpr uint32_t GRADIENT_FILL_RECT_V = 1;

enum TGradientDirection { gdHorizontal, gdVertical };
class TEnumTypeInfo;
const TEnumTypeInfo& TypeInfo(TGradientDirection);

// The first pixel column (or row) takes the upper-left vertex' color, the last one
// the lower-right's. Only the two rectangle modes are known; others answer false.
bool GradientFill(HDC dc, const TTriVertex* vertices, uint32_t vertexCount, const TGradientRect* mesh,
                  uint32_t meshCount, uint32_t mode);
// The same for one rectangle and two colors; system colors are resolved first.
void GradientFillCanvas(TCanvas* canvas, TColor startColor, TColor endColor, const TRect& rect,
                        TGradientDirection direction);

}  // namespace quil
