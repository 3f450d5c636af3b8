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
  // The current row's node: it has children, it is open, its level from 0.
  bool RowExpandable() const { return false; }
  bool RowExpanded() const { return false; }
  int RowLevel() const { return 0; }
  void FocusRow() {}
  void ToggleRow(bool) {}
};

}  // namespace quil
