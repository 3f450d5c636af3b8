#include <QPainter>
#include <QWidget>

#include "framework/controls/Controls.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Canvas_p.h"

namespace quil {

namespace {
// A control's canvas starts each paint with the control's font and color.
void PrepareCanvas(TCanvas* canvas, const TControl* control) {
  canvas->SetFont(control->Font());
  canvas->Brush()->SetColor(control->Color());
}
}  // namespace

const TMetaClass& TCustomControl::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomControl", &TWinControl::StaticClass());
  return meta;
}

const TMetaClass& TCustomControl::ClassType() const { return StaticClass(); }

TCustomControl::TCustomControl(TComponent* owner)
    : TWinControl(owner), canvas_(std::make_unique<TCanvas>()) {}

TCustomControl::~TCustomControl() = default;

void TCustomControl::WMPaint(TMessage& message) {
  IncludeControlState(csCustomPaint);
  TWinControl::WMPaint(message);
  ExcludeControlState(csCustomPaint);
}

void TCustomControl::PaintWindow(TCanvas* canvas) {
  QPainter* painter = TCanvasPrivate::Get(canvas)->Painter();
  if (!painter) return;
  TCanvasPaintScope scope(canvas_.get(), painter, ClientWidth());
  canvas_->Lock();
  PrepareCanvas(canvas_.get(), this);
  Paint();
  canvas_->Unlock();
}

const TMetaClass& TGraphicControl::StaticClass() {
  static const TMetaClass meta = TMetaClass("TGraphicControl", &TControl::StaticClass());
  return meta;
}

const TMetaClass& TGraphicControl::ClassType() const { return StaticClass(); }

TGraphicControl::TGraphicControl(TComponent* owner)
    : TControl(owner), canvas_(std::make_unique<TCanvas>()) {}

TGraphicControl::~TGraphicControl() = default;

void TGraphicControl::PaintWithParent() {
  PrepareCanvas(canvas_.get(), this);
  Paint();
}

}  // namespace quil
