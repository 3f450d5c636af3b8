// The tree of expandable columns: parents, depth, visibility and expansion, moving a
// column with its group, and the buttons a title has.
#include <algorithm>

#include "framework/db/Field.h"
#include "framework/db/ObjectFields.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"
#include "grid/QuilDBGridColumn_p.h"

namespace quil {

int TQuilColumn::Depth() const {
  int depth = 0;
  for (const TQuilColumn* parent = parentColumn_; parent; parent = parent->parentColumn_) ++depth;
  return depth;
}

// An object field's column owns the columns of its child fields; any other column is
// owned by the nearest column before it whose ExpandCols reaches it. A top-level column
// that does not reach it ends the search: an owner further back would own that one too.
TQuilColumn* TQuilColumn::GetParentColumn(int index) const {
  TQuilDBGridColumns* columns = Columns();
  if (!columns || index <= 0) return nullptr;
  TField* field = Field();
  if (field && field->ParentField()) {
    for (int before = index - 1; before >= 0; --before)
      if (columns->Items(before)->Field() == field->ParentField()) return columns->Items(before);
    return nullptr;
  }
  for (int before = index - 1; before >= 0; --before) {
    TQuilColumn* candidate = columns->Items(before);
    if (candidate->ExpandCols() >= index - before) return candidate;
    if (!candidate->ParentColumn()) return nullptr;
  }
  return nullptr;
}

bool TQuilColumn::GetExpandable() const {
  TField* field = Field();
  return (field && (field->DataType() == ftADT || field->DataType() == ftArray)) || p_.expandCols >= 1;
}

bool TQuilColumn::GetExpanded() const { return p_.expanded && GetExpandable(); }

bool TQuilColumn::GetVisible() const {
  if (GridStreaming()) return p_.visible;
  return p_.visible && (!parentColumn_ || parentColumn_->GetVisible());
}

// An expanded column gives its room to its children and is itself not shown.
bool TQuilColumn::GetShowing() const {
  if (GridStreaming()) return p_.visible;
  if (GetExpanded() || !GetVisible()) return false;
  for (const TQuilColumn* parent = parentColumn_; parent; parent = parent->parentColumn_)
    if (!parent->GetExpanded()) return false;
  return true;
}

bool TQuilColumn::Visible() const { return GetVisible(); }

// A stream keeps the flag as set, whether or not the column can expand now.
bool TQuilColumn::Expanded() const { return GridStreaming() ? p_.expanded : GetExpanded(); }

int TQuilColumn::GetExpandIndex() const {
  TQuilDBGridColumns* columns = Columns();
  int last = Index();
  if (!columns) return last;
  for (int after = last + 1; after < columns->Count(); ++after) {
    const TQuilColumn* column = columns->Items(after);
    if (column->parentColumn_ == this) last = std::max(last, column->GetExpandIndex());
  }
  return last;
}

int TQuilColumn::GetExpandWidth() const {
  if (!GetVisible()) return 0;
  TQuilCustomDBGrid* grid = Grid();
  if (!GetExpanded()) return GetTrueWidth() + (grid ? grid->GetColLineWidth() : 0);
  int width = 0;
  TQuilDBGridColumns* columns = Columns();
  for (int after = Index() + 1; after <= GetExpandIndex(); ++after)
    if (columns->Items(after)->parentColumn_ == this) width += columns->Items(after)->GetExpandWidth();
  return width;
}

void TQuilColumn::SetExpandCols(int value) {
  if (Store(p_.expandCols, std::max(value, 0))) Changed(true);
}

void TQuilColumn::SetExpandStyle(TQuilColumnExpandStyle value) {
  if (Store(p_.expandStyle, value)) Changed(true);
}

void TQuilColumn::SetVisible(bool value) {
  if (!Store(p_.visible, value)) return;
  TQuilCustomDBGrid* grid = ShowingGrid();
  if (grid) {
    // The master copies the flag without stretching on its own.
    const bool holdStretch = grid->StretchActive() && !grid->StretchRunning();
    if (holdStretch) grid->SetStretchRunning(true);
    TScopeExit release([grid, holdStretch] {
      if (holdStretch) grid->SetStretchRunning(false);
    });
    Synchronize();
  }
  Changed(true);
  if (grid) grid->StretchGrid();
}

void TQuilColumn::SetExpanded(bool value) {
  if (p_.expanded == value) return;
  TQuilCustomDBGrid* grid = ShowingGrid();
  // Inside a layout transaction the grid's own steps would work on the old layout; the
  // layout that ends the transaction puts the cursor on a shown column.
  if (!grid || grid->ComponentState().Contains(csLoading) || grid->LayoutLock() > 0) {
    p_.expanded = value;
    Changed(true);
    return;
  }
  ExpandWithGrid(value);
}

// The cursor stays on its column when that still shows, else it steps the way the
// group opened or closed.
void TQuilColumn::ExpandWithGrid(bool value) {
  TQuilCustomDBGrid* grid = Grid();
  const int oldCol = grid->Col();
  TQuilColumn* selected = grid->SelectedColumn();
  const bool selectedShowing = selected && selected->GetShowing();
  const bool editorMode = grid->EditorMode();
  grid->HideEditor();
  const bool pauseStretch = grid->StretchMode() && !grid->ScrollProp()->AutoStretch();
  if (pauseStretch) grid->SetStretchMode(false);
  p_.expanded = value;
  Synchronize();
  Changed(true);
  if (selectedShowing) {
    const int dataCol = grid->RawToDataColumn(oldCol);
    TQuilDBGridColumns* columns = Columns();
    if (dataCol >= 0 && dataCol < columns->Count() && columns->Items(dataCol)->GetShowing())
      grid->MoveCol(oldCol, 0);
    else
      grid->MoveCol(oldCol, value ? 1 : -1);
  }
  if (pauseStretch) grid->SetStretchMode(true);
  grid->SetEditorMode(editorMode);
  grid->UpdateDesigner();
  grid->StretchGrid();
  grid->Synchronize();
  // FIXME: flat scroll bars follow the new width of the columns here.
  if (GetExpandable()) grid->ColExpand(this);
}

// --- Moving

void TQuilColumn::SetIndex(int value) {
  TQuilDBGridColumns* columns = Columns();
  // Groups and automatic columns exist only in a column collection.
  if (!columns) {
    TCollectionItem::SetIndex(value);
    return;
  }
  TQuilCustomDBGrid* grid = Grid();
  if (grid && grid->ComponentState().Contains(csDesigning) &&
      !grid->ComponentState().Contains(csLoading) && grid->LayoutLock() == 0 && columns->DesignUpdateCount() == 0 &&
      columns->AnyExpandable())
    return;
  if (value < 0 || value == Index()) return;
  if (stored_) {
    MoveGroup(value);
  } else if (grid && grid->DataLink()->Active() && grid->AcquireLayoutLock()) {
    MoveByField(value);
  } else {
    TCollectionItem::SetIndex(value);
  }
}

// The group moves as a block: moving right its last column lands on the target, moving
// left its first one does.
void TQuilColumn::MoveGroup(int target) {
  TQuilCustomDBGrid* grid = Grid();
  TQuilDBGridColumns* columns = Columns();
  if (grid) grid->BeginLayout();
  TScopeExit endLayout([grid] {
    if (grid) grid->EndLayout();
  });
  target = std::min(target, columns->Count() - 1);
  const int first = Index();
  const int last = GetExpandIndex();
  if (target >= first && target <= last) return;
  const int size = last - first + 1;
  for (int moved = 0; moved < size; ++moved) {
    if (target > last) columns->Items(first)->TCollectionItem::SetIndex(target);
    else columns->Items(first + moved)->TCollectionItem::SetIndex(target + moved);
  }
}

// An automatic column moves its field: the data set's field order stays the truth, and
// the layout that the move of the field brings puts the column in place.
void TQuilColumn::MoveByField(int target) {
  TQuilCustomDBGrid* grid = Grid();
  bool moved = false;
  {
    TScopeExit endLayout([grid] { grid->EndLayout(); });
    TQuilDBGridColumns* columns = Columns();
    TQuilColumn* there = grid->ColumnAtDepth(columns->Items(std::min(target, columns->Count() - 1)), Depth());
    TField* theirs = there ? there->Field() : nullptr;
    TField* mine = Field();
    if (theirs && mine) {
      mine->SetIndex(theirs->Index());
      moved = true;
    }
  }
  if (moved && Collection()) TCollectionItem::SetIndex(std::min(target, Collection()->Count() - 1));
}

// FIXME: master and detail grids copy Expanded, Visible and Width to the master's
// column of the same index here.
void TQuilColumn::Synchronize() {}

// FIXME: master and detail grids move the master's column of the old index as well.
void TQuilColumn::MoveTo(int index) { SetIndex(index); }

// --- Title buttons

bool TQuilColumn::HasExpandableButton() const { return GetExpandable() && p_.expandStyle == cesAuto; }

bool TQuilColumn::HasDropDownButton() const {
  return p_.expandStyle == cesDropDown || p_.expandStyle == cesDropDownMenu;
}

bool TQuilColumn::HasAutoFilterButton() const {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || HasExpandableButton()) return false;
  const TQuilDBGridFilter* filter = grid->FilterGrid();
  if (!filter->AutoFilter() || !Title()->AutoFilter()) return false;
  const TFilterStyles common = filter->AutoFilters() * Title()->AutoFilters();
  if (common.Empty()) return false;
  TField* field = Field();
  if (!field) return false;
  switch (field->DataType()) {
    case ftBytes: case ftVarBytes: case ftBlob: case ftMemo: case ftGraphic: case ftFmtMemo:
    case ftParadoxOle: case ftDBaseOle: case ftTypedBinary: case ftCursor: case ftADT: case ftArray:
    case ftReference: case ftDataSet: case ftWideMemo:
      return false;
    default:
      break;
  }
  // The filter form builds an expression, which only stored and looked-up values take.
  if (common == TFilterStyles{fsFilterForm})
    return field->FieldKind() == fkData || field->FieldKind() == fkLookup || field->FieldKind() == fkInternalCalc;
  return true;
}

bool TQuilColumn::HasFilterButton() const {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || !grid->FilterGrid()->Filtered()) return false;
  return p_.expandStyle == cesFilterList || p_.expandStyle == cesFilterForm || HasAutoFilterButton();
}

bool TQuilColumn::HasExpandButton() const {
  return HasExpandableButton() || HasDropDownButton() || HasFilterButton();
}

}  // namespace quil
