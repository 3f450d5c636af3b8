#include "framework/graphics/Brush.h"

namespace quil {

const TMetaClass& TBrush::StaticClass() {
  static const TMetaClass meta = TMetaClass("TBrush", &TGraphicsObject::StaticClass()).Creates<TBrush>();
  return meta;
}

const TMetaClass& TBrush::ClassType() const { return StaticClass(); }

void TBrush::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TBrush*>(source);
  if (!other) return TGraphicsObject::Assign(source);
  color_ = other->color_;
  style_ = other->style_;
  Changed();
}

void TBrush::SetColor(TColor color) {
  if (color_ == color && style_ != bsClear) return;
  color_ = color;
  if (style_ == bsClear) style_ = bsSolid;
  Changed();
}

void TBrush::SetStyle(TBrushStyle style) {
  if (style_ == style) return;
  style_ = style;
  Changed();
}

}  // namespace quil
