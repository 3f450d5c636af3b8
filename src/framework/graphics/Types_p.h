#pragma once
// Converters between the framework's geometry and Qt's. A QRect's right edge is the
// last pixel inside it, a TRect's the first pixel outside.

#include <QPoint>
#include <QRect>
#include <QSize>

#include "framework/graphics/Types.h"

namespace quil {

inline QRect ToQRect(const TRect& rect) {
  return QRect(QPoint(rect.Left, rect.Top), QSize(rect.Width(), rect.Height()));
}
inline TRect FromQRect(const QRect& rect) {
  return Bounds(rect.left(), rect.top(), rect.width(), rect.height());
}
inline QPoint ToQPoint(TPoint point) { return QPoint(point.X, point.Y); }
inline TPoint FromQPoint(const QPoint& point) { return Point(point.x(), point.y()); }
inline QSize ToQSize(TSize size) { return QSize(size.cx, size.cy); }
inline TSize FromQSize(const QSize& size) { return TSize{size.width(), size.height()}; }

}  // namespace quil
