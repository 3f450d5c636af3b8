#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

// FIXME: search replaces this with the search panel and its row filter; until then
// there is no panel and nothing is filtered.
class TQuilDBGridSearch : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  bool PanelVisible() const { return false; }
  // The search hides the rows that do not match.
  bool FilterActive() const { return false; }
};

}  // namespace quil
