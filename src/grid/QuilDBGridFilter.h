#pragma once
#include "grid/QuilDBGridColumnTypes.h"
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
  // Titles get filter buttons; the kinds they offer; filtering is allowed at all.
  bool AutoFilter() const { return false; }
  TFilterStyles AutoFilters() const { return {fsFilterList, fsFilterForm}; }
  bool Filtered() const { return false; }
};

}  // namespace quil
