#pragma once
// The framework's device-context calls on clipping and state, for code written against
// them; each is the canvas member of the same name.

#include "framework/graphics/Canvas.h"

namespace quil {

// Region kinds that the clip calls answer with.
constexpr int NULLREGION = 1;
constexpr int SIMPLEREGION = 2;

inline int IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
  return dc->IntersectClipRect(Rect(left, top, right, bottom)) ? SIMPLEREGION : NULLREGION;
}
// A null rect removes the canvas' own clip.
inline int SelectClipRgn(HDC dc, const TRect* rect) {
  dc->SelectClipRect(rect);
  return dc->ClipRect().IsEmpty() ? NULLREGION : SIMPLEREGION;
}
inline int GetClipBox(HDC dc, TRect& rect) {
  rect = dc->ClipRect();
  return rect.IsEmpty() ? NULLREGION : SIMPLEREGION;
}
// Raster operations of BitBlt; the canvas' CopyMode values.
constexpr uint32_t SRCCOPY = cmSrcCopy;
constexpr uint32_t SRCPAINT = cmSrcPaint;
constexpr uint32_t SRCAND = cmSrcAnd;
constexpr uint32_t SRCINVERT = cmSrcInvert;

// Copies width x height pixels of source at xSource, ySource to x, y of dest with the
// raster operation; dest keeps its CopyMode. False when a canvas is missing.
inline bool BitBlt(HDC dest, int x, int y, int width, int height, HDC source, int xSource, int ySource,
                   uint32_t rop) {
  if (!dest || !source) return false;
  const int mode = dest->CopyMode();
  dest->SetCopyMode(int(rop));
  dest->CopyRect(Bounds(x, y, width, height), source, Bounds(xSource, ySource, width, height));
  dest->SetCopyMode(mode);
  return true;
}

inline int SaveDC(HDC dc) { return dc->SaveDC(); }
inline bool RestoreDC(HDC dc, int savedState) { return dc->RestoreDC(savedState); }

}  // namespace quil
