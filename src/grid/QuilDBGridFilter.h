#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: column filters replace this with the filter row, its lists and the data set
// filter; until then no column filters.
class TQuilDBGridFilter : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  // A column filter is in force.
  bool Active() const { return false; }
  void UpdateColumns() {}
};

}  // namespace quil
