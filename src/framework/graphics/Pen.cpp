#include "framework/graphics/Pen.h"

namespace quil {

const TMetaClass& TPen::StaticClass() {
  static const TMetaClass meta = TMetaClass("TPen", &TGraphicsObject::StaticClass()).Creates<TPen>();
  return meta;
}

const TMetaClass& TPen::ClassType() const { return StaticClass(); }

void TPen::Assign(const TPersistent* source) {
  const auto* other = dynamic_cast<const TPen*>(source);
  if (!other) return TGraphicsObject::Assign(source);
  color_ = other->color_;
  width_ = other->width_;
  style_ = other->style_;
  mode_ = other->mode_;
  Changed();
}

void TPen::SetColor(TColor color) {
  if (color_ == color) return;
  color_ = color;
  Changed();
}

void TPen::SetWidth(int width) {
  if (width < 0 || width_ == width) return;
  width_ = width;
  Changed();
}

void TPen::SetStyle(TPenStyle style) {
  if (style_ == style) return;
  style_ = style;
  Changed();
}

void TPen::SetMode(TPenMode mode) {
  if (mode_ == mode) return;
  mode_ = mode;
  Changed();
}

}  // namespace quil
