#include "grid/QuilDBGridGradient.h"

#include "grid/QuilDBGrid.h"

namespace quil {

const TMetaClass& TQuilDBGridGradient::StaticClass() {
  static const TMetaClass meta("TQuilDBGridGradient", &TMarlGradientButton::StaticClass());
  return meta;
}

const TMetaClass& TQuilDBGridGradient::ClassType() const { return StaticClass(); }

TQuilDBGridGradient::TQuilDBGridGradient(TQuilCustomDBGrid* grid) : TMarlGradientButton(grid) {}

}  // namespace quil
