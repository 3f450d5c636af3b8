#include "grid/QuilDBGridColumns.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/db/ObjectFields.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Filer.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"
#include "grid/QuilDBGrid.h"

namespace quil {

QString DefAutoNumberTitle = QStringLiteral("No.");
int DefAutoNumberWidth = 48;
QString DefAutoSelectTitle = QStringLiteral("Select");
int DefAutoSelectWidth = 48;
QString DefAutoExpandTitle = QStringLiteral("Expand");
int DefAutoExpandWidth = 48;

TQuilColumn* TQuilDBGridColumnsEnumerator::GetCurrent() const { return columns_->Columns(index_); }

bool TQuilDBGridColumnsEnumerator::MoveNext() {
  if (index_ >= columns_->Count() - 1) return false;
  ++index_;
  return true;
}

const TMetaClass& TQuilDBGridColumns::StaticClass() {
  static const TMetaClass meta("TQuilDBGridColumns", &TCollection::StaticClass());
  return meta;
}

const TMetaClass& TQuilDBGridColumns::ClassType() const { return StaticClass(); }

TQuilDBGridColumns::TQuilDBGridColumns(TQuilCustomDBGrid* grid, const TMetaClass& columnClass)
    : TCollection(columnClass), grid_(grid) {}

// The columns go while the order list is still there for them to leave.
TQuilDBGridColumns::~TQuilDBGridColumns() {
  BeginUpdate();
  Clear();
}

TPersistent* TQuilDBGridColumns::GetOwner() const { return grid_; }

// Made outside and put in whole, so that no layout sees it as a stored column.
TQuilColumn* TQuilDBGridColumns::InternalAdd() {
  auto* column = static_cast<TQuilColumn*>(CreateItem());
  column->SetStored(false);
  column->SetCollection(this);
  return column;
}

void TQuilDBGridColumns::SetAutoColumn(TQuilColumn* column, TAlignment alignment, const QString& title, int width) {
  column->SetAlignment(alignment);
  column->SetSuppressRTL(true);
  column->Title()->SetAlignment(alignment);
  column->Title()->SetCaption(title);
  column->SetWidth(grid_ && grid_->DataLink()->Active() ? width : column->DefaultWidth());
  column->SetIndex(0);
}

TQuilColumn* TQuilDBGridColumns::AddAutoExpand() {
  TQuilColumn* column = Add();
  column->SetExpandBox(true);
  column->SetExpandBoxSize(ebLarge);
  column->SetTransparent(true);
  SetAutoColumn(column, taCenter, DefAutoExpandTitle, DefAutoExpandWidth);
  return column;
}

TQuilColumn* TQuilDBGridColumns::AddAutoSelect() {
  TQuilColumn* column = Add();
  column->SetCheckBox(true);
  SetAutoColumn(column, taCenter, DefAutoSelectTitle, DefAutoSelectWidth);
  return column;
}

TQuilColumn* TQuilDBGridColumns::AddAutoNumber() {
  TQuilColumn* column = Add();
  column->SetAutoNumber(true);
  SetAutoColumn(column, taRightJustify, DefAutoNumberTitle, DefAutoNumberWidth);
  return column;
}

// The copy does not stretch column by column; the grid stretches once at the end.
void TQuilDBGridColumns::Assign(const TPersistent* source) {
  if (!grid_ || !dynamic_cast<const TCollection*>(source)) {
    TCollection::Assign(source);
    return;
  }
  grid_->BeginLayout();
  TScopeExit endLayout([this] { grid_->EndLayout(); });
  const bool stretchMode = grid_->StretchMode();
  grid_->SetStretchMode(false);
  TScopeExit restoreStretch([this, stretchMode] { grid_->SetStretchMode(stretchMode); });
  TCollection::Assign(source);
}

void TQuilDBGridColumns::BeginDesignUpdate() {
  ++designUpdateCount_;
  BeginUpdate();
}

// An unmatched end does nothing, so that it cannot end someone else's update.
void TQuilDBGridColumns::EndDesignUpdate() {
  if (designUpdateCount_ == 0) return;
  EndUpdate();
  --designUpdateCount_;
}

// The automatic columns stand in front, so the last column tells who made the set.
TDBGridColumnsState TQuilDBGridColumns::State() const {
  if (Count() == 0) return csDefault;
  return Columns(Count() - 1)->Stored() ? csCustomized : csDefault;
}

void TQuilDBGridColumns::SetState(TDBGridColumnsState value) {
  if (value == State()) return;
  if (value == csCustomized) RebuildColumns();
  else Clear();
}

// A structured field's children stand right behind it; a nested data set's fields are
// edited apart, in a grid of their own.
void TQuilDBGridColumns::AddFieldColumns(const TFields* fields) {
  for (TField* field : *fields) {
    Add()->SetFieldName(field->FullName());
    if (field->DataType() == ftADT || field->DataType() == ftArray)
      AddFieldColumns(static_cast<const TObjectField*>(field)->Fields());
  }
}

// Without a data set there is nothing to build from, and the columns only go. The
// layout that a laid-out grid runs next gives it back one default column, as every grid
// without fields has one to show; so the collection stays empty only where no layout
// follows.
void TQuilDBGridColumns::RebuildColumns() {
  TDataSet* dataSet = grid_ ? grid_->DataSet() : nullptr;
  if (!dataSet) {
    Clear();
    return;
  }
  grid_->BeginLayout();
  TScopeExit endLayout([this] { grid_->EndLayout(); });
  Clear();
  AddFieldColumns(dataSet->Fields());
  if (Count() == 0) return;
  const TQuilDBGridOptionsExt options = grid_->OptionsExt();
  if (options.Contains(dgAutoExpandColumn)) AddAutoExpand();
  if (options.Contains(dgAutoSelectColumn)) AddAutoSelect();
  if (options.Contains(dgAutoNumberColumn)) AddAutoNumber();
}

void TQuilDBGridColumns::RestoreDefaults() {
  TUpdateGuard<TCollection> update(*this);
  for (TQuilColumn* column : *this) column->RestoreDefaults();
}

// --- Order markers

void TQuilDBGridColumns::RemoveFromOrder(TQuilColumn* column) {
  orderList_.erase(std::remove(orderList_.begin(), orderList_.end(), column), orderList_.end());
}

// FIXME: ordering brackets this in an order update, so that the order applies once.
void TQuilDBGridColumns::RemoveMarkers() {
  for (TQuilColumn* column : *this) column->Title()->SetMarker(tmNone);
}

// --- Tree of expandable columns

void TQuilDBGridColumns::UpdateParentColumns() {
  for (int index = 0; index < Count(); ++index) Columns(index)->SetParentColumn(Columns(index)->GetParentColumn(index));
}

bool TQuilDBGridColumns::AnyExpandable() const {
  return std::any_of(begin(), end(), [](const TQuilColumn* column) { return column->GetExpandable(); });
}

void TQuilDBGridColumns::CheckConsistency() const {
  TCollection::CheckConsistency();
  auto fail = [](const char* why) { throw std::logic_error(why); };
  for (int index = 0; index < Count(); ++index) {
    const TQuilColumn* column = Columns(index);
    if (column->ExpandCols() < 0 || column->ExpandCols() > Count() - 1 - index) fail("a group past the last column");
    const TQuilColumn* parent = column->ParentColumn();
    if (!parent) continue;
    if (parent->Collection() != this) fail("a parent column of another collection");
    if (parent->Index() >= index) fail("a parent column behind its child");
    if (parent->GetExpandIndex() < index) fail("a child outside its parent's group");
  }
}

// Compared as a column stream writes them, so that what is not stored does not count.
bool TQuilDBGridColumns::Equals(const TQuilDBGridColumns* other) const {
  if (!other || other->Count() != Count()) return false;
  TMemoryStream mine, theirs;
  SaveToStream(mine);
  other->SaveToStream(theirs);
  return mine.Size() == theirs.Size() && std::memcmp(mine.Memory(), theirs.Memory(), size_t(mine.Size())) == 0;
}

// --- Collection hooks

// Nothing may keep pointing at a column that goes.
void TQuilDBGridColumns::Notify(TCollectionItem* item, TCollectionNotification action) {
  if (action == cnAdded) return;
  auto* column = static_cast<TQuilColumn*>(item);
  RemoveFromOrder(column);
  for (TQuilColumn* other : *this)
    if (other->ParentColumn() == column) other->SetParentColumn(nullptr);
  if (ShownByGrid()) grid_->ForgetColumn(column);
}

bool TQuilDBGridColumns::ShownByGrid() const { return grid_ && grid_->OwnsColumns(this); }

void TQuilDBGridColumns::Update(TCollectionItem* item) {
  if (!ShownByGrid() || grid_->ComponentState().Contains(csLoading)) return;
  if (!item) {
    grid_->LayoutChanged();
    return;
  }
  auto* column = static_cast<TQuilColumn*>(item);
  const int rawCol = grid_->DataToRawColumn(column->Index());
  if (rawCol < 0 || rawCol >= grid_->ColCount()) return;
  grid_->InvalidateCol(rawCol);
  grid_->SetColWidths(rawCol, column->GetWidth());
}

// --- The grid's look-up by field name

TQuilColumn* TQuilCustomDBGrid::FindColumn(const QString& fieldName, int startIndex) const {
  for (int index = std::max(startIndex, 0); index < columns_->Count(); ++index)
    if (columns_->Columns(index)->FieldName().compare(fieldName, Qt::CaseInsensitive) == 0)
      return columns_->Columns(index);
  return nullptr;
}

TQuilColumn* TQuilCustomDBGrid::ColumnByName(const QString& fieldName, int startIndex) const {
  TQuilColumn* column = FindColumn(fieldName, startIndex);
  if (!column) throw EInvalidGridOperation(Format(SFieldNotFound, {fieldName}));
  return column;
}

}  // namespace quil
