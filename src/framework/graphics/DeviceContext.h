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
inline int SaveDC(HDC dc) { return dc->SaveDC(); }
inline bool RestoreDC(HDC dc, int savedState) { return dc->RestoreDC(savedState); }

}  // namespace quil
