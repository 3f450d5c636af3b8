#pragma once
// Converters between TColor and QColor. System colors resolve through the active
// style on the way to Qt; clNone becomes a transparent color.

#include <QColor>

#include "framework/graphics/Colors.h"

namespace quil {

inline QColor ToQColor(TColor color) {
  if (color == clNone) return QColor(Qt::transparent);
  const TColor rgb = ColorToRGB(color);
  return QColor(GetRValue(rgb), GetGValue(rgb), GetBValue(rgb));
}

inline TColor FromQColor(const QColor& color) {
  return RGB(color.red(), color.green(), color.blue());
}

inline QRgb ToQRgb(TColor color) { return ToQColor(color).rgba(); }

}  // namespace quil
