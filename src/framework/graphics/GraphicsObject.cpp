#include "framework/graphics/GraphicsObject.h"

namespace quil {

const TMetaClass& TGraphicsObject::StaticClass() {
  static const TMetaClass meta("TGraphicsObject", &TPersistent::StaticClass());
  return meta;
}

const TMetaClass& TGraphicsObject::ClassType() const { return StaticClass(); }

void TGraphicsObject::Changed() {
  if (onChange_) onChange_(this);
}

}  // namespace quil
