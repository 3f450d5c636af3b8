#include "framework/graphics/Canvas.h"

#include <QImage>
#include <QPaintEngine>
#include <QWidget>
#include <cassert>
#include <cstdlib>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/Font_p.h"
#include "framework/graphics/Graphic.h"
#include "framework/graphics/Types_p.h"

namespace quil {

namespace {
// The last pixel of a line is not drawn; step back one pixel along the line.
QPoint EndBefore(QPoint from, QPoint to) {
  const int dx = to.x() - from.x();
  const int dy = to.y() - from.y();
  const int steps = std::max(std::abs(dx), std::abs(dy));
  if (steps == 0) return to;
  return QPoint(from.x() + dx * (steps - 1) / steps, from.y() + dy * (steps - 1) / steps);
}

// The pen's raster operation for the time of one drawing call.
class PenOperation {
public:
  explicit PenOperation(TCanvasPrivate* d) : painter_(d->Painter()) {
    if (!painter_) return;
    painter_->setCompositionMode(d->PenComposition());
    painter_->setPen(d->QtPen());
  }
  ~PenOperation() {
    if (painter_) painter_->setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
  QPainter* painter() const { return painter_; }

private:
  QPainter* painter_;
};
}  // namespace

const TMetaClass& TCanvas::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCanvas", &TPersistent::StaticClass()).Creates<TCanvas>();
  return meta;
}

const TMetaClass& TCanvas::ClassType() const { return StaticClass(); }

TCanvas::TCanvas()
    : font_(std::make_unique<TFont>()), brush_(std::make_unique<TBrush>()),
      pen_(std::make_unique<TPen>()), d_(new TCanvasPrivate(this)) {
  const TNotifyEvent handler(this, &TCanvas::ObjectChanged);
  font_->SetOnChange(handler);
  brush_->SetOnChange(handler);
  pen_->SetOnChange(handler);
}

TCanvas::~TCanvas() { d_->Unbind(); }

void TCanvas::ObjectChanged(TObject*) { d_->Invalidate(); }

void TCanvas::Changed() {
  if (onChange_) onChange_(this);
}

TCanvasOrientation TCanvas::CanvasOrientation() const { return d_->orientation; }

void TCanvas::SetCanvasOrientation(TCanvasOrientation orientation) { d_->orientation = orientation; }

bool TCanvas::HandleAllocated() const { return d_->Bound(); }

void TCanvas::FillRect(const TRect& rect) {
  QPainter* painter = d_->Painter();
  if (!painter || brush_->Style() == bsClear) return;
  painter->fillRect(d_->Map(rect), d_->QtBrush());
  Changed();
}

void TCanvas::FrameRect(const TRect& rect) {
  QPainter* painter = d_->Painter();
  if (!painter || brush_->Style() == bsClear || rect.IsEmpty()) return;
  const QBrush& brush = d_->QtBrush();
  const TRect edges[] = {Rect(rect.Left, rect.Top, rect.Right, rect.Top + 1),
                         Rect(rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom),
                         Rect(rect.Left, rect.Top, rect.Left + 1, rect.Bottom),
                         Rect(rect.Right - 1, rect.Top, rect.Right, rect.Bottom)};
  for (const TRect& edge : edges) painter->fillRect(d_->Map(edge), brush);
  Changed();
}

void TCanvas::Rectangle(const TRect& rect) {
  QPainter* painter = d_->Painter();
  if (!painter || rect.IsEmpty()) return;
  const bool outline = d_->PenDraws() && pen_->Style() != psClear;
  if (brush_->Style() != bsClear) {
    // Without an outline the framework's call fills one pixel less at right and bottom.
    const TRect inner = outline ? Rect(rect.Left + 1, rect.Top + 1, rect.Right - 1, rect.Bottom - 1)
                                : Rect(rect.Left, rect.Top, rect.Right - 1, rect.Bottom - 1);
    painter->fillRect(d_->Map(inner), d_->QtBrush());
  }
  if (outline) {
    PenOperation operation(d_.get());
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(d_->Map(rect).adjusted(0, 0, -1, -1));
  }
  Changed();
}

void TCanvas::RoundRect(const TRect& rect, int cornerWidth, int cornerHeight) {
  if (rect.IsEmpty() || !d_->Painter()) return;
  PenOperation operation(d_.get());
  operation.painter()->setBrush(d_->QtBrush());
  operation.painter()->drawRoundedRect(d_->Map(rect).adjusted(0, 0, -1, -1), cornerWidth / 2.0,
                                       cornerHeight / 2.0);
  Changed();
}

void TCanvas::Ellipse(const TRect& rect) {
  if (rect.IsEmpty() || !d_->Painter()) return;
  PenOperation operation(d_.get());
  operation.painter()->setBrush(d_->QtBrush());
  operation.painter()->drawEllipse(d_->Map(rect).adjusted(0, 0, -1, -1));
  Changed();
}

void TCanvas::LineTo(int x, int y) {
  const TPoint from = penPos_;
  penPos_ = Point(x, y);
  if (!d_->PenDraws() || !d_->Painter()) return;
  PenOperation operation(d_.get());
  const QPoint start = d_->Map(from);
  const QPoint end = d_->Map(penPos_);
  if (start != end) operation.painter()->drawLine(start, EndBefore(start, end));
  Changed();
}

void TCanvas::Polyline(const std::vector<TPoint>& points) {
  if (points.size() < 2 || !d_->PenDraws() || !d_->Painter()) return;
  QPolygon polygon;
  for (TPoint point : points) polygon << d_->Map(point);
  const int last = polygon.size() - 1;
  polygon[last] = EndBefore(polygon[last - 1], polygon[last]);
  PenOperation operation(d_.get());
  operation.painter()->drawPolyline(polygon);
  Changed();
}

void TCanvas::Polygon(const std::vector<TPoint>& points) {
  if (points.size() < 2 || !d_->Painter()) return;
  QPolygon polygon;
  for (TPoint point : points) polygon << d_->Map(point);
  PenOperation operation(d_.get());
  if (!d_->PenDraws()) operation.painter()->setPen(Qt::NoPen);
  operation.painter()->setBrush(d_->QtBrush());
  operation.painter()->drawPolygon(polygon);
  Changed();
}

void TCanvas::DrawFocusRect(const TRect& rect) {
  QPainter* painter = d_->Painter();
  if (!painter || rect.IsEmpty()) return;
  const QRect area = d_->Map(rect);
  // The framework's dotted frame is a checkerboard brush: pixels whose x + y is even.
  QPolygon dots;
  auto dot = [&](int x, int y) {
    if ((x + y) % 2 == 0) dots << QPoint(x, y);
  };
  for (int x = area.left(); x <= area.right(); ++x) {
    dot(x, area.top());
    if (area.bottom() != area.top()) dot(x, area.bottom());
  }
  for (int y = area.top() + 1; y < area.bottom(); ++y) {
    dot(area.left(), y);
    if (area.right() != area.left()) dot(area.right(), y);
  }
  painter->save();
  painter->setCompositionMode(QPainter::RasterOp_SourceXorDestination);
  painter->setPen(QPen(Qt::white, 1));
  painter->drawPoints(dots);
  painter->restore();
  Changed();
}

void TCanvas::CopyRect(const TRect& destRect, TCanvas* source, const TRect& sourceRect) {
  QPainter* painter = d_->Painter();
  if (!painter || !source || destRect.IsEmpty()) return;
  const QRect target = d_->Map(destRect);
  QPainter::CompositionMode mode = QPainter::CompositionMode_Source;
  QColor fill;
  switch (copyMode_) {
    case cmBlackness: fill = Qt::black; break;
    case cmWhiteness: fill = Qt::white; break;
    case cmDstInvert: fill = Qt::white; mode = QPainter::RasterOp_SourceXorDestination; break;
    case cmSrcAnd: mode = QPainter::RasterOp_SourceAndDestination; break;
    case cmSrcPaint: mode = QPainter::RasterOp_SourceOrDestination; break;
    case cmSrcInvert: mode = QPainter::RasterOp_SourceXorDestination; break;
    case cmMergePaint: mode = QPainter::RasterOp_NotSourceOrDestination; break;
    default: break;
  }
  painter->save();
  painter->setCompositionMode(mode);
  if (fill.isValid()) {
    painter->fillRect(target, fill);
  } else {
    TCanvasPrivate* from = TCanvasPrivate::Get(source);
    QImage pixels = from->Grab(from->Map(sourceRect));
    if (CanvasOrientation() != source->CanvasOrientation()) pixels = pixels.mirrored(true, false);
    if (!pixels.isNull()) painter->drawImage(target, pixels);
  }
  painter->restore();
  Changed();
}

void TCanvas::Draw(int x, int y, TGraphic* graphic) {
  if (!graphic || graphic->Empty()) return;
  graphic->Draw(this, Bounds(x, y, graphic->Width(), graphic->Height()));
  Changed();
}

void TCanvas::StretchDraw(const TRect& rect, TGraphic* graphic) {
  if (!graphic || graphic->Empty()) return;
  graphic->Draw(this, rect);
  Changed();
}

TColor TCanvas::Pixel(int x, int y) {
  const QImage pixel = d_->Grab(d_->Map(Bounds(x, y, 1, 1)));
  if (pixel.isNull()) return clNone;
  return FromQColor(pixel.pixelColor(0, 0));
}

void TCanvas::SetPixel(int x, int y, TColor color) {
  QPainter* painter = d_->Painter();
  if (!painter) return;
  painter->save();
  painter->setCompositionMode(QPainter::CompositionMode_Source);
  painter->fillRect(d_->Map(Bounds(x, y, 1, 1)), ToQColor(color));
  painter->restore();
  Changed();
}

TRect TCanvas::ClipRect() {
  QPainter* painter = d_->Painter();
  if (!painter) return TRect{};
  QRect visible(0, 0, painter->device()->width(), painter->device()->height());
  // The paint event's region is the system clip, in device pixels.
  const QRegion system = painter->paintEngine() ? painter->paintEngine()->systemClip() : QRegion();
  if (!system.isEmpty()) visible &= painter->deviceTransform().inverted().mapRect(system.boundingRect());
  if (painter->hasClipping()) visible &= painter->clipBoundingRect().toAlignedRect();
  return d_->Unmap(visible);
}

bool TCanvas::IntersectClipRect(const TRect& rect) {
  QPainter* painter = d_->Painter();
  if (!painter) return false;
  painter->setClipRect(d_->Map(rect), painter->hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
  return !ClipRect().IsEmpty();
}

void TCanvas::SelectClipRect(const TRect* rect) {
  QPainter* painter = d_->Painter();
  if (!painter) return;
  if (rect) painter->setClipRect(d_->Map(*rect));
  else painter->setClipping(false);
}

int TCanvas::SaveDC() {
  QPainter* painter = d_->Painter();
  if (!painter) return 0;
  painter->save();
  return ++d_->saveDepth_;
}

bool TCanvas::RestoreDC(int savedState) {
  QPainter* painter = d_->Painter();
  const int target = savedState < 0 ? d_->saveDepth_ + savedState : savedState - 1;
  if (!painter || target < 0 || target >= d_->saveDepth_) return false;
  while (d_->saveDepth_ > target) {
    painter->restore();
    --d_->saveDepth_;
  }
  d_->Invalidate();
  return true;
}

void BindCanvas(TCanvas* canvas, QPainter* painter) { TCanvasPrivate::Get(canvas)->Bind(painter); }

void UnbindCanvas(TCanvas* canvas) { TCanvasPrivate::Get(canvas)->Unbind(); }

}  // namespace quil
