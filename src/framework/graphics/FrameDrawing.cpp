#include "framework/graphics/FrameDrawing.h"

#include <QPainterPath>
#include <vector>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"

namespace quil {

namespace {
struct Ring {
  TColor topLeft;
  TColor bottomRight;
};

void Fill(TCanvasPrivate* d, const TRect& rect, TColor color) {
  if (!rect.IsEmpty()) d->Painter()->fillRect(d->Map(rect), ToQColor(color));
}

// The rings of an edge from the outside in; a lone inner edge is drawn outermost.
std::vector<Ring> EdgeRings(unsigned edge, unsigned flags) {
  std::vector<Ring> rings;
  const bool soft = flags & BF_SOFT;
  const bool mono = flags & BF_MONO;
  const bool flat = flags & BF_FLAT;
  if (edge & BDR_OUTER) {
    if (mono) rings.push_back({clWindowFrame, clWindowFrame});
    else if (flat) rings.push_back({clBtnShadow, clBtnShadow});
    else if (edge & BDR_RAISEDOUTER) rings.push_back({soft ? clBtnHighlight : cl3DLight, cl3DDkShadow});
    else rings.push_back({soft ? cl3DDkShadow : clBtnShadow, clBtnHighlight});
  }
  if (edge & BDR_INNER) {
    if (mono) rings.push_back({clWindow, clWindow});
    else if (flat) rings.push_back({clBtnFace, clBtnFace});
    else if (edge & BDR_RAISEDINNER) rings.push_back({soft ? cl3DLight : clBtnHighlight, clBtnShadow});
    else rings.push_back({soft ? clBtnShadow : cl3DDkShadow, cl3DLight});
  }
  return rings;
}

// Top and left first, so that the corners they share with right and bottom take the
// darker color, as a lit button has it.
void DrawRing(TCanvasPrivate* d, TRect& rect, const Ring& ring, unsigned flags) {
  if (flags & BF_TOP) Fill(d, Rect(rect.Left, rect.Top, rect.Right, rect.Top + 1), ring.topLeft);
  if (flags & BF_LEFT) Fill(d, Rect(rect.Left, rect.Top, rect.Left + 1, rect.Bottom), ring.topLeft);
  if (flags & BF_RIGHT) Fill(d, Rect(rect.Right - 1, rect.Top, rect.Right, rect.Bottom), ring.bottomRight);
  if (flags & BF_BOTTOM) Fill(d, Rect(rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom), ring.bottomRight);
  if (flags & BF_LEFT) ++rect.Left;
  if (flags & BF_TOP) ++rect.Top;
  if (flags & BF_RIGHT) --rect.Right;
  if (flags & BF_BOTTOM) --rect.Bottom;
}

TRect CenteredSquare(const TRect& rect) {
  const int side = std::min(rect.Width(), rect.Height());
  return Bounds(rect.Left + (rect.Width() - side) / 2, rect.Top + (rect.Height() - side) / 2, side, side);
}

void DrawCheckMark(TCanvasPrivate* d, const TRect& box, TColor color) {
  const QRect area = d->Map(box);
  const qreal stroke = std::max(1.5, area.width() / 6.0);
  QPainterPath mark;
  mark.moveTo(area.left() + area.width() * 0.22, area.top() + area.height() * 0.50);
  mark.lineTo(area.left() + area.width() * 0.42, area.top() + area.height() * 0.72);
  mark.lineTo(area.left() + area.width() * 0.78, area.top() + area.height() * 0.28);
  QPainter* painter = d->Painter();
  painter->save();
  painter->setPen(QPen(ToQColor(color), stroke, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter->setBrush(Qt::NoBrush);
  painter->drawPath(mark);
  painter->restore();
}

bool DrawCheckBox(TCanvasPrivate* d, const TRect& rect, unsigned state) {
  TRect box = CenteredSquare(rect);
  TRect edge = box;
  const unsigned edgeFlags = BF_RECT | ((state & DFCS_FLAT) ? (BF_FLAT | BF_MONO) : 0);
  for (const Ring& ring : EdgeRings((state & DFCS_FLAT) ? BDR_SUNKENOUTER : EDGE_SUNKEN, edgeFlags))
    DrawRing(d, edge, ring, BF_RECT);
  const bool mixed = (state & DFCS_BUTTON3STATE) && (state & DFCS_CHECKED);
  const bool dimmed = state & (DFCS_INACTIVE | DFCS_PUSHED);
  Fill(d, edge, dimmed || mixed ? clBtnFace : clWindow);
  if (state & DFCS_CHECKED)
    DrawCheckMark(d, edge, (state & DFCS_INACTIVE) || mixed ? clBtnShadow : clWindowText);
  return true;
}

bool DrawRadioButton(TCanvasPrivate* d, const TRect& rect, unsigned state) {
  const QRect area = d->Map(CenteredSquare(rect)).adjusted(0, 0, -1, -1);
  QPainter* painter = d->Painter();
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(ToQColor(clBtnShadow), 1));
  painter->setBrush(ToQColor(state & (DFCS_INACTIVE | DFCS_PUSHED) ? clBtnFace : clWindow));
  painter->drawEllipse(area);
  if (state & DFCS_CHECKED) {
    const int inset = std::max(2, area.width() / 3);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ToQColor(state & DFCS_INACTIVE ? clBtnShadow : clWindowText));
    painter->drawEllipse(area.adjusted(inset, inset, -inset, -inset));
  }
  painter->restore();
  return true;
}

// The raised face of a push button or scroll arrow; returns the face inside the edge.
TRect DrawButtonFace(TCanvasPrivate* d, const TRect& rect, unsigned state) {
  TRect face = rect;
  unsigned flags = BF_RECT | ((state & DFCS_FLAT) ? BF_FLAT : 0) | ((state & DFCS_MONO) ? BF_MONO : 0);
  const unsigned edge = (state & DFCS_PUSHED) ? EDGE_SUNKEN : EDGE_RAISED;
  if (!(state & DFCS_PUSHED)) flags |= BF_SOFT;
  for (const Ring& ring : EdgeRings(edge, flags)) DrawRing(d, face, ring, BF_RECT);
  if (!(state & DFCS_TRANSPARENT)) Fill(d, face, clBtnFace);
  return face;
}

void DrawArrow(TCanvasPrivate* d, const TRect& face, unsigned direction, TColor color) {
  const QRect area = d->Map(face);
  const int size = std::max(2, std::min(area.width(), area.height()) / 3);
  const QPoint center = area.center();
  QPolygon triangle;
  switch (direction) {
    case DFCS_SCROLLUP: triangle << center + QPoint(-size, size / 2) << center + QPoint(size, size / 2) << center + QPoint(0, -size / 2 - 1); break;
    case DFCS_SCROLLLEFT: triangle << center + QPoint(size / 2, -size) << center + QPoint(size / 2, size) << center + QPoint(-size / 2 - 1, 0); break;
    case DFCS_SCROLLRIGHT: triangle << center + QPoint(-size / 2, -size) << center + QPoint(-size / 2, size) << center + QPoint(size / 2 + 1, 0); break;
    default: triangle << center + QPoint(-size, -size / 2) << center + QPoint(size, -size / 2) << center + QPoint(0, size / 2 + 1); break;
  }
  QPainter* painter = d->Painter();
  painter->save();
  painter->setPen(Qt::NoPen);
  painter->setBrush(ToQColor(color));
  painter->drawPolygon(triangle);
  painter->restore();
}
}  // namespace

bool DrawEdge(HDC dc, TRect& rect, unsigned edge, unsigned flags) {
  TCanvasPrivate* d = dc ? TCanvasPrivate::Get(dc) : nullptr;
  if (!d || !d->Painter()) return false;
  TRect inner = rect;
  for (const Ring& ring : EdgeRings(edge, flags)) DrawRing(d, inner, ring, flags);
  if (flags & BF_MIDDLE) Fill(d, inner, (flags & BF_MONO) ? clWindow : clBtnFace);
  if (flags & BF_ADJUST) rect = inner;
  return true;
}

bool DrawFrameControl(HDC dc, TRect& rect, unsigned kind, unsigned state) {
  TCanvasPrivate* d = dc ? TCanvasPrivate::Get(dc) : nullptr;
  if (!d || !d->Painter()) return false;
  if (kind == DFC_BUTTON) {
    if (state & DFCS_BUTTONPUSH) {
      const TRect face = DrawButtonFace(d, rect, state);
      if (state & DFCS_ADJUSTRECT) rect = face;
      return true;
    }
    if (state & DFCS_BUTTONRADIO) return DrawRadioButton(d, rect, state);
    return DrawCheckBox(d, rect, state);
  }
  if (kind == DFC_SCROLL) {
    const TRect face = DrawButtonFace(d, rect, state);
    const unsigned direction = (state & 0xFF) == DFCS_SCROLLCOMBOBOX ? DFCS_SCROLLDOWN : (state & 0x03);
    DrawArrow(d, face, direction, (state & DFCS_INACTIVE) ? clBtnShadow : clBtnText);
    return true;
  }
  return false;
}

}  // namespace quil
