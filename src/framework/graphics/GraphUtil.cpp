#include "framework/graphics/GraphUtil.h"

#include <algorithm>

namespace quil {

namespace {
constexpr int RGBMAX = 255;
// The hue of a gray, which has none.
constexpr int UndefinedHue = HLSMAX * 2 / 3;

int HueToRGB(int low, int high, int hue) {
  if (hue < 0) hue += HLSMAX;
  if (hue > HLSMAX) hue -= HLSMAX;
  if (hue < HLSMAX / 6) return low + ((high - low) * hue + HLSMAX / 12) / (HLSMAX / 6);
  if (hue < HLSMAX / 2) return high;
  if (hue < HLSMAX * 2 / 3) return low + ((high - low) * (HLSMAX * 2 / 3 - hue) + HLSMAX / 12) / (HLSMAX / 6);
  return low;
}

int ToChannel(int value) { return std::clamp((value * RGBMAX + HLSMAX / 2) / HLSMAX, 0, RGBMAX); }
}  // namespace

void ColorRGBToHLS(TColor color, int& hue, int& luminance, int& saturation) {
  const TColor rgb = ColorToRGB(color);
  const int red = GetRValue(rgb), green = GetGValue(rgb), blue = GetBValue(rgb);
  const int high = std::max({red, green, blue}), low = std::min({red, green, blue});
  luminance = ((high + low) * HLSMAX + RGBMAX) / (2 * RGBMAX);
  if (high == low) {
    saturation = 0;
    hue = UndefinedHue;
    return;
  }
  const int spread = high - low;
  if (luminance <= HLSMAX / 2)
    saturation = (spread * HLSMAX + (high + low) / 2) / (high + low);
  else
    saturation = (spread * HLSMAX + (2 * RGBMAX - high - low) / 2) / (2 * RGBMAX - high - low);
  auto delta = [&](int channel) { return ((high - channel) * (HLSMAX / 6) + spread / 2) / spread; };
  if (red == high) hue = delta(blue) - delta(green);
  else if (green == high) hue = HLSMAX / 3 + delta(red) - delta(blue);
  else hue = 2 * HLSMAX / 3 + delta(green) - delta(red);
  if (hue < 0) hue += HLSMAX;
  if (hue > HLSMAX) hue -= HLSMAX;
}

TColor ColorHLSToRGB(int hue, int luminance, int saturation) {
  if (saturation == 0) {
    const int gray = ToChannel(luminance);
    return RGB(gray, gray, gray);
  }
  const int high = luminance <= HLSMAX / 2 ? (luminance * (HLSMAX + saturation) + HLSMAX / 2) / HLSMAX
                                          : luminance + saturation - (luminance * saturation + HLSMAX / 2) / HLSMAX;
  const int low = 2 * luminance - high;
  return RGB(ToChannel(HueToRGB(low, high, hue + HLSMAX / 3)), ToChannel(HueToRGB(low, high, hue)),
             ToChannel(HueToRGB(low, high, hue - HLSMAX / 3)));
}

TColor GetShadowColor(TColor color, int luminance) {
  int hue = 0, light = 0, saturation = 0;
  ColorRGBToHLS(color, hue, light, saturation);
  return ColorHLSToRGB(hue, std::clamp(light + luminance, 0, HLSMAX), saturation);
}

}  // namespace quil
