#pragma once
// The framework's frame calls: 3D edges, frame controls (check boxes, push buttons, scroll
// arrows) in the unthemed look, and the dotted focus frame. Colors come from the
// active style's system colors, so a style switch changes them too.

#include "framework/graphics/Canvas.h"

namespace quil {

constexpr unsigned BDR_RAISEDOUTER = 0x0001;
constexpr unsigned BDR_SUNKENOUTER = 0x0002;
constexpr unsigned BDR_RAISEDINNER = 0x0004;
constexpr unsigned BDR_SUNKENINNER = 0x0008;
constexpr unsigned BDR_OUTER = BDR_RAISEDOUTER | BDR_SUNKENOUTER;
constexpr unsigned BDR_INNER = BDR_RAISEDINNER | BDR_SUNKENINNER;
constexpr unsigned BDR_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
constexpr unsigned BDR_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
constexpr unsigned EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
constexpr unsigned EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
constexpr unsigned EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
constexpr unsigned EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;

constexpr unsigned BF_LEFT = 0x0001;
constexpr unsigned BF_TOP = 0x0002;
constexpr unsigned BF_RIGHT = 0x0004;
constexpr unsigned BF_BOTTOM = 0x0008;
constexpr unsigned BF_TOPLEFT = BF_TOP | BF_LEFT;
constexpr unsigned BF_TOPRIGHT = BF_TOP | BF_RIGHT;
constexpr unsigned BF_BOTTOMLEFT = BF_BOTTOM | BF_LEFT;
constexpr unsigned BF_BOTTOMRIGHT = BF_BOTTOM | BF_RIGHT;
constexpr unsigned BF_RECT = BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM;
constexpr unsigned BF_MIDDLE = 0x0800;
constexpr unsigned BF_SOFT = 0x1000;
constexpr unsigned BF_ADJUST = 0x2000;
constexpr unsigned BF_FLAT = 0x4000;
constexpr unsigned BF_MONO = 0x8000;

constexpr unsigned DFC_CAPTION = 1;
constexpr unsigned DFC_MENU = 2;
constexpr unsigned DFC_SCROLL = 3;
constexpr unsigned DFC_BUTTON = 4;

constexpr unsigned DFCS_BUTTONCHECK = 0x0000;
constexpr unsigned DFCS_BUTTONRADIO = 0x0004;
constexpr unsigned DFCS_BUTTON3STATE = 0x0008;
constexpr unsigned DFCS_BUTTONPUSH = 0x0010;
constexpr unsigned DFCS_SCROLLUP = 0x0000;
constexpr unsigned DFCS_SCROLLDOWN = 0x0001;
constexpr unsigned DFCS_SCROLLLEFT = 0x0002;
constexpr unsigned DFCS_SCROLLRIGHT = 0x0003;
constexpr unsigned DFCS_SCROLLCOMBOBOX = 0x0005;
constexpr unsigned DFCS_INACTIVE = 0x0100;
constexpr unsigned DFCS_PUSHED = 0x0200;
constexpr unsigned DFCS_CHECKED = 0x0400;
constexpr unsigned DFCS_TRANSPARENT = 0x0800;
constexpr unsigned DFCS_HOT = 0x1000;
constexpr unsigned DFCS_ADJUSTRECT = 0x2000;
constexpr unsigned DFCS_FLAT = 0x4000;
constexpr unsigned DFCS_MONO = 0x8000;

// Draws the edges of rect that flags name; with BF_ADJUST rect shrinks by what was
// drawn. The canvas' brush and pen stay as they were.
bool DrawEdge(HDC dc, TRect& rect, unsigned edge, unsigned flags);
// Draws a control of kind DFC_BUTTON or DFC_SCROLL in the state that state gives;
// with DFCS_ADJUSTRECT a push button's rect shrinks to its face.
bool DrawFrameControl(HDC dc, TRect& rect, unsigned kind, unsigned state);
inline void DrawFocusRect(HDC dc, const TRect& rect) {
  if (dc) dc->DrawFocusRect(rect);
}

}  // namespace quil
