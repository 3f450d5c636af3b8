// TShape.

#include <algorithm>

#include "framework/controls/ExtCtrls.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Pen.h"

namespace quil {

const TMetaClass& TShape::StaticClass() {
  static const TMetaClass meta = TMetaClass("TShape", &TGraphicControl::StaticClass());
  return meta;
}

const TMetaClass& TShape::ClassType() const { return StaticClass(); }

TShape::TShape(TComponent* owner)
    : TGraphicControl(owner), pen_(std::make_unique<TPen>()), brush_(std::make_unique<TBrush>()) {
  SetBounds(0, 0, 65, 65);
  pen_->SetOnChange(TNotifyEvent(this, &TShape::StyleChanged));
  brush_->SetOnChange(TNotifyEvent(this, &TShape::StyleChanged));
}

TShape::~TShape() = default;

void TShape::SetShape(TShapeType shape) {
  if (shape == shape_) return;
  shape_ = shape;
  Invalidate();
}

void TShape::StyleChanged(TObject*) { Invalidate(); }

void TShape::Paint() {
  Canvas()->SetPen(pen_.get());
  Canvas()->SetBrush(brush_.get());
  // The pen's width stays inside the control.
  int penWidth = pen_->Width();
  int inset = penWidth / 2;
  int width = Width() - penWidth + (penWidth == 0 ? 0 : 1);
  int height = Height() - penWidth + (penWidth == 0 ? 0 : 1);
  TRect rect = Bounds(inset, inset, width, height);
  if (shape_ == stSquare || shape_ == stRoundSquare || shape_ == stCircle) {
    int side = std::min(rect.Width(), rect.Height());
    rect = Bounds(rect.Left + (rect.Width() - side) / 2, rect.Top + (rect.Height() - side) / 2, side, side);
  }
  switch (shape_) {
    case stRectangle:
    case stSquare: Canvas()->Rectangle(rect); break;
    case stRoundRect:
    case stRoundSquare: {
      int corner = std::min(rect.Width(), rect.Height()) / 4;
      Canvas()->RoundRect(rect, corner, corner);
      break;
    }
    case stEllipse:
    case stCircle: Canvas()->Ellipse(rect); break;
  }
}

}  // namespace quil
