#pragma once
// The Qt side of a canvas. Other layers bind a painter here: the controls layer binds
// the widget's painter for each paint, a bitmap binds one on its own image.

#include <QBrush>
#include <QFontMetrics>
#include <QPainter>
#include <QPen>
#include <memory>
#include <utility>

#include "framework/graphics/Canvas.h"

namespace quil {

class TCanvasPrivate {
public:
  static TCanvasPrivate* Get(TCanvas* canvas) { return canvas->d_.get(); }

  // Borrows painter until Unbind; the painter's owner keeps it alive that long.
  void Bind(QPainter* painter);
  // Makes a painter of the canvas' own on device.
  void BindDevice(QPaintDevice* device);
  void Unbind();
  bool Bound() const { return painter_ != nullptr; }

  // The bound painter, made through CreateHandle when needed; null when there is none.
  QPainter* Painter();
  // The painter with the canvas font applied, for text; null when there is none.
  QPainter* TextPainter();
  const QBrush& QtBrush();
  const QPen& QtPen();
  // False for pmNop: lines are not drawn at all.
  bool PenDraws() const { return canvas_->Pen()->Mode() != pmNop; }
  QPainter::CompositionMode PenComposition() const;

  // Logical to device coordinates: the identity unless the canvas is mirrored.
  QRect Map(const TRect& rect) const;
  QPoint Map(TPoint point) const;
  TRect Unmap(const QRect& rect) const;

  // Metrics of the canvas font; they need no painter, so controls measure outside a paint.
  QFontMetrics Metrics() const;
  // Draws text with its cell's top left at topLeft (logical), in the font's color and
  // orientation; opaque fills the cell with the brush first.
  void PaintText(TPoint topLeft, const QString& text, bool opaque);

  // A copy of the device's pixels in rect (device coordinates); null image when the
  // device cannot be read.
  QImage Grab(const QRect& rect);

  TCanvasOrientation orientation = coLeftToRight;
  // The width a right-to-left canvas mirrors within: a window's client area, which its
  // painter starts at but which ends before the device does. 0: the device's width.
  int mirrorWidth = 0;
  // Marks font, brush and pen as not yet applied to the painter.
  void Invalidate() { fontApplied_ = false; brushValid_ = false; penValid_ = false; }

private:
  friend class TCanvas;
  explicit TCanvasPrivate(TCanvas* canvas) : canvas_(canvas) {}
  int MirrorWidth() const;

  TCanvas* canvas_;
  QPainter* painter_ = nullptr;
  std::unique_ptr<QPainter> ownPainter_;
  bool fontApplied_ = false;
  bool brushValid_ = false;
  bool penValid_ = false;
  QBrush brush_;
  QPen pen_;
  int saveDepth_ = 0;
};

// Binds canvas to painter for a paint; the controls layer calls these around Paint.
void BindCanvas(TCanvas* canvas, QPainter* painter);
void UnbindCanvas(TCanvas* canvas);

// Binds for the length of a scope, so that an exception in a paint unbinds too.
class TCanvasPaintScope {
public:
  // width: the logical width of what the painter paints (see mirrorWidth); 0 for the device's.
  TCanvasPaintScope(TCanvas* canvas, QPainter* painter, int width = 0) : canvas_(canvas) {
    BindCanvas(canvas, painter);
    previousWidth_ = std::exchange(TCanvasPrivate::Get(canvas)->mirrorWidth, width);
  }
  ~TCanvasPaintScope() {
    TCanvasPrivate::Get(canvas_)->mirrorWidth = previousWidth_;
    UnbindCanvas(canvas_);
  }
  TCanvasPaintScope(const TCanvasPaintScope&) = delete;
  TCanvasPaintScope& operator=(const TCanvasPaintScope&) = delete;

private:
  TCanvas* canvas_;
  int previousWidth_ = 0;
};

}  // namespace quil
