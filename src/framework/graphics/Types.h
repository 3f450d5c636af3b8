#pragma once
// Plain geometry of the framework: rectangles exclude Right and Bottom, so a
// rectangle's Width is Right - Left. Converters to Qt's types live in Types_p.h.

#include <cstdint>

namespace quil {

struct TPoint {
  int X = 0;
  int Y = 0;
  friend constexpr bool operator==(const TPoint&, const TPoint&) = default;
};

struct TSize {
  int cx = 0;
  int cy = 0;
  friend constexpr bool operator==(const TSize&, const TSize&) = default;
};

struct TRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;

  constexpr int Width() const { return Right - Left; }
  constexpr int Height() const { return Bottom - Top; }
  constexpr TPoint TopLeft() const { return {Left, Top}; }
  constexpr TPoint BottomRight() const { return {Right, Bottom}; }
  constexpr TSize Size() const { return {Width(), Height()}; }
  constexpr TPoint CenterPoint() const { return {(Left + Right) / 2, (Top + Bottom) / 2}; }
  // Empty when it covers no pixel, also when inverted.
  constexpr bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
  constexpr bool Contains(TPoint point) const {
    return point.X >= Left && point.X < Right && point.Y >= Top && point.Y < Bottom;
  }
  constexpr void Inflate(int dx, int dy) { Left -= dx; Top -= dy; Right += dx; Bottom += dy; }
  constexpr void Offset(int dx, int dy) { Left += dx; Top += dy; Right += dx; Bottom += dy; }
  void SetWidth(int width) { Right = Left + width; }
  void SetHeight(int height) { Bottom = Top + height; }
  friend constexpr bool operator==(const TRect&, const TRect&) = default;
};

constexpr TPoint Point(int x, int y) { return {x, y}; }
constexpr TRect Rect(int left, int top, int right, int bottom) { return {left, top, right, bottom}; }
constexpr TRect Bounds(int left, int top, int width, int height) {
  return {left, top, left + width, top + height};
}

bool IsRectEmpty(const TRect& rect);
bool EqualRect(const TRect& a, const TRect& b);
bool PtInRect(const TRect& rect, TPoint point);
// The in-place forms answer false when the result is empty, as the framework's calls do.
bool InflateRect(TRect& rect, int dx, int dy);
bool OffsetRect(TRect& rect, int dx, int dy);
bool IntersectRect(TRect& dest, const TRect& a, const TRect& b);
bool UnionRect(TRect& dest, const TRect& a, const TRect& b);

// number * numerator / denominator through 64 bits, rounded half away from zero;
// -1 when the denominator is 0 or the result does not fit 32 bits.
int MulDiv(int number, int numerator, int denominator);

}  // namespace quil
