#include "grid/QuilDBGridGradient.h"

#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrid.h"

namespace quil {

const TMetaClass& TQuilDBGridGradient::StaticClass() {
  using G = TQuilDBGridGradient;
  static const TMetaClass meta = TMetaClass("TQuilDBGridGradient", &TMarlGradientButton::StaticClass())
                                     .Published(SetProp("Cells", &G::Cells, &G::SetCells).Default(AllGradientCells));
  return meta;
}

const TMetaClass& TQuilDBGridGradient::ClassType() const { return StaticClass(); }

TQuilDBGridGradient::TQuilDBGridGradient(TQuilCustomDBGrid* grid) : TMarlGradientButton(grid) {}

}  // namespace quil
