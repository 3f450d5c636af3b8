#pragma once
// Hue, luminance and saturation on the framework's scale (each 0 to 240), and the
// shades made by moving a color's luminance.

#include "framework/graphics/Colors.h"

namespace quil {

constexpr int HLSMAX = 240;

void ColorRGBToHLS(TColor color, int& hue, int& luminance, int& saturation);
TColor ColorHLSToRGB(int hue, int luminance, int saturation);
// The color with its luminance moved by luminance (positive lightens), kept inside the
// scale; system colors are resolved first.
TColor GetShadowColor(TColor color, int luminance);

}  // namespace quil
