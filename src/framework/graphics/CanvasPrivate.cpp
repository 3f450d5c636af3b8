#include <QPaintEngine>
#include <QPixmap>

#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Colors_p.h"
#include "framework/graphics/Font_p.h"

namespace quil {

namespace {
Qt::BrushStyle QtBrushStyle(TBrushStyle style) {
  switch (style) {
    case bsClear: return Qt::NoBrush;
    case bsHorizontal: return Qt::HorPattern;
    case bsVertical: return Qt::VerPattern;
    case bsFDiagonal: return Qt::FDiagPattern;
    case bsBDiagonal: return Qt::BDiagPattern;
    case bsCross: return Qt::CrossPattern;
    case bsDiagCross: return Qt::DiagCrossPattern;
    default: return Qt::SolidPattern;
  }
}

Qt::PenStyle QtPenStyle(TPenStyle style) {
  switch (style) {
    case psDash: return Qt::DashLine;
    case psDot: return Qt::DotLine;
    case psDashDot: return Qt::DashDotLine;
    case psDashDotDot: return Qt::DashDotDotLine;
    case psClear: return Qt::NoPen;
    case psAlternate: return Qt::CustomDashLine;
    default: return Qt::SolidLine;
  }
}

QColor PenColor(const TPen& pen) {
  if (pen.Mode() == pmBlack) return Qt::black;
  if (pen.Mode() == pmWhite) return Qt::white;
  return ToQColor(pen.Color());
}
}  // namespace

void TCanvasPrivate::Bind(QPainter* painter) {
  if (painter_) Unbind();
  painter_ = painter;
  // The borrowed painter goes back to its owner as it came.
  painter_->save();
  saveDepth_ = 0;
  Invalidate();
}

void TCanvasPrivate::BindDevice(QPaintDevice* device) {
  auto own = std::make_unique<QPainter>(device);
  Bind(own.get());
  ownPainter_ = std::move(own);
}

void TCanvasPrivate::Unbind() {
  if (!painter_) return;
  for (; saveDepth_ >= 0; --saveDepth_) painter_->restore();
  saveDepth_ = 0;
  painter_ = nullptr;
  if (ownPainter_) ownPainter_->end();
  ownPainter_.reset();
}

QPainter* TCanvasPrivate::Painter() {
  if (!painter_) canvas_->CreateHandle();
  return painter_;
}

QPainter* TCanvasPrivate::TextPainter() {
  QPainter* painter = Painter();
  if (painter && !fontApplied_) {
    painter->setFont(TFontPrivate::QtFont(*canvas_->Font()));
    painter->setLayoutDirection((canvas_->TextFlags() & ETO_RTLREADING) ? Qt::RightToLeft : Qt::LeftToRight);
    fontApplied_ = true;
  }
  return painter;
}

const QBrush& TCanvasPrivate::QtBrush() {
  if (!brushValid_) {
    brush_ = QBrush(ToQColor(canvas_->Brush()->Color()), QtBrushStyle(canvas_->Brush()->Style()));
    brushValid_ = true;
  }
  return brush_;
}

const QPen& TCanvasPrivate::QtPen() {
  if (!penValid_) {
    const TPen& pen = *canvas_->Pen();
    pen_ = QPen(PenColor(pen), std::max(1, pen.Width()), QtPenStyle(pen.Style()), Qt::SquareCap,
                Qt::MiterJoin);
    if (pen.Style() == psAlternate) pen_.setDashPattern({1, 1});
    penValid_ = true;
  }
  return pen_;
}

QPainter::CompositionMode TCanvasPrivate::PenComposition() const {
  switch (canvas_->Pen()->Mode()) {
    case pmNot: return QPainter::RasterOp_NotDestination;
    case pmNotCopy: return QPainter::RasterOp_NotSource;
    case pmMergePenNot: return QPainter::RasterOp_SourceOrNotDestination;
    case pmMaskPenNot: return QPainter::RasterOp_SourceAndNotDestination;
    case pmMergeNotPen: return QPainter::RasterOp_NotSourceOrDestination;
    case pmMaskNotPen: return QPainter::RasterOp_NotSourceAndDestination;
    case pmMerge: return QPainter::RasterOp_SourceOrDestination;
    case pmNotMerge: return QPainter::RasterOp_NotSourceAndNotDestination;
    case pmMask: return QPainter::RasterOp_SourceAndDestination;
    case pmNotMask: return QPainter::RasterOp_NotSourceOrNotDestination;
    case pmXor: return QPainter::RasterOp_SourceXorDestination;
    case pmNotXor: return QPainter::RasterOp_NotSourceXorDestination;
    default: return QPainter::CompositionMode_SourceOver;
  }
}

int TCanvasPrivate::MirrorWidth() const {
  if (mirrorWidth > 0) return mirrorWidth;
  return painter_ && painter_->device() ? painter_->device()->width() : 0;
}

QRect TCanvasPrivate::Map(const TRect& rect) const {
  if (orientation == coLeftToRight) return QRect(rect.Left, rect.Top, rect.Width(), rect.Height());
  const int width = MirrorWidth();
  return QRect(width - rect.Right, rect.Top, rect.Width(), rect.Height());
}

QPoint TCanvasPrivate::Map(TPoint point) const {
  if (orientation == coLeftToRight) return QPoint(point.X, point.Y);
  return QPoint(MirrorWidth() - 1 - point.X, point.Y);
}

TRect TCanvasPrivate::Unmap(const QRect& rect) const {
  if (orientation == coLeftToRight) return Bounds(rect.x(), rect.y(), rect.width(), rect.height());
  const int width = MirrorWidth();
  return Rect(width - rect.x() - rect.width(), rect.y(), width - rect.x(), rect.y() + rect.height());
}

QImage TCanvasPrivate::Grab(const QRect& rect) {
  QPainter* painter = Painter();
  if (!painter || rect.isEmpty()) return QImage();
  // A widget paints into its window's backing store; the engine knows that image.
  QPaintDevice* device = painter->paintEngine() ? painter->paintEngine()->paintDevice() : painter->device();
  const QRect area = painter->deviceTransform().mapRect(rect);
  if (device->devType() == QInternal::Image) return static_cast<QImage*>(device)->copy(area);
  if (device->devType() == QInternal::Pixmap) return static_cast<QPixmap*>(device)->copy(area).toImage();
  return QImage();
}

}  // namespace quil
