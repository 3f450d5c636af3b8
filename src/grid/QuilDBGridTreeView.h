#pragma once
#include "grid/QuilDBGridParts.h"

namespace quil {

class TField;

// FIXME: the tree view replaces this with its nodes and their expansion; until then it
// is never active and data changes concern it not.
class TQuilDBGridTreeView : public TQuilGridPart {
public:
  using TQuilGridPart::TQuilGridPart;
  bool Active() const { return false; }
  void CheckState() {}
  void CheckUpdate(TField*) {}
};

}  // namespace quil
