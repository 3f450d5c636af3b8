#pragma once
#include "support/MarlGraph.h"

namespace quil {

class TQuilCustomDBGrid;

// The grid's gradient: a button gradient that also says which selection states of a
// data cell it paints (Cells).
class TQuilDBGridGradient : public TMarlGradientButton {
public:
  explicit TQuilDBGridGradient(TQuilCustomDBGrid* grid);
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

}  // namespace quil
