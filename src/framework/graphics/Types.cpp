#include "framework/graphics/Types.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace quil {

bool IsRectEmpty(const TRect& rect) { return rect.IsEmpty(); }

bool EqualRect(const TRect& a, const TRect& b) { return a == b; }

bool PtInRect(const TRect& rect, TPoint point) { return rect.Contains(point); }

bool InflateRect(TRect& rect, int dx, int dy) {
  rect.Inflate(dx, dy);
  return true;
}

bool OffsetRect(TRect& rect, int dx, int dy) {
  rect.Offset(dx, dy);
  return true;
}

bool IntersectRect(TRect& dest, const TRect& a, const TRect& b) {
  TRect result{std::max(a.Left, b.Left), std::max(a.Top, b.Top),
               std::min(a.Right, b.Right), std::min(a.Bottom, b.Bottom)};
  if (result.IsEmpty()) result = TRect{};
  dest = result;
  return !dest.IsEmpty();
}

bool UnionRect(TRect& dest, const TRect& a, const TRect& b) {
  if (a.IsEmpty()) dest = b;
  else if (b.IsEmpty()) dest = a;
  else
    dest = TRect{std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right),
                 std::max(a.Bottom, b.Bottom)};
  if (dest.IsEmpty()) dest = TRect{};
  return !dest.IsEmpty();
}

int MulDiv(int number, int numerator, int denominator) {
  if (denominator == 0) return -1;
  const int64_t product = int64_t(number) * numerator;
  const bool negative = (product < 0) != (denominator < 0);
  const int64_t magnitude = std::llabs(product);
  const int64_t divisor = std::llabs(int64_t(denominator));
  const int64_t quotient = (magnitude + divisor / 2) / divisor;
  if (quotient > std::numeric_limits<int>::max()) return -1;
  return int(negative ? -quotient : quotient);
}

}  // namespace quil
