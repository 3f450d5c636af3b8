#include "grid/QuilDBGridColumns.h"

#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/graphics/Canvas.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrid.h"

namespace quil {

const TMetaClass& TQuilColumn::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TQuilColumn", &TCollectionItem::StaticClass())
          .Creates<TQuilColumn>()
          .Published(StrProp("FieldName", &TQuilColumn::FieldName, &TQuilColumn::SetFieldName))
          .Published(IntProp("Width", &TQuilColumn::Width, &TQuilColumn::SetWidth).Default(-1))
          .Published(BoolProp("Visible", &TQuilColumn::Visible, &TQuilColumn::SetVisible).Default(true));
  return meta;
}

const TMetaClass& TQuilColumn::ClassType() const { return StaticClass(); }

TQuilColumn::~TQuilColumn() = default;

TQuilDBGridColumns* TQuilColumn::Columns() const { return static_cast<TQuilDBGridColumns*>(Collection()); }

TQuilCustomDBGrid* TQuilColumn::Grid() const { return Columns() ? Columns()->Grid() : nullptr; }

void TQuilColumn::SetFieldName(const QString& name) {
  if (name == fieldName_) return;
  fieldName_ = name;
  field_ = nullptr;
  Changed(false);
}

TField* TQuilColumn::Field() const {
  TQuilCustomDBGrid* grid = Grid();
  if (field_ || fieldName_.isEmpty() || !grid || !grid->DataLink()->Active()) return field_;
  field_ = grid->DataSet()->FindField(fieldName_);
  if (field_) field_->FreeNotification(grid);
  return field_;
}

void TQuilColumn::SetField(TField* field) {
  if (field == field_) return;
  TQuilCustomDBGrid* grid = Grid();
  // Another column may still show the old field; then the grid must still hear of it.
  if (field_ && grid && !grid->NeedsNotification(field_)) field_->RemoveFreeNotification(grid);
  field_ = field;
  if (!field) return;
  fieldName_ = field->FullName();
  if (grid) field->FreeNotification(grid);
}

void TQuilColumn::SetWidth(int width) {
  width = std::max(width, -1);
  if (width == width_) return;
  width_ = width;
  Changed(false);
}

// FIXME: column sizing measures titles, limits and stretch; until then a column is as
// wide as its field's display width in digits of the grid's font.
int TQuilColumn::GetWidth() const {
  if (!GetShowing()) return 0;
  if (width_ >= 0) return width_;
  TQuilCustomDBGrid* grid = Grid();
  TField* field = Field();
  if (!grid || !field) return 64;
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(grid->Font());
  return field->DisplayWidth() * canvas->TextWidth(QStringLiteral("0")) + 4;
}

void TQuilColumn::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed(false);
}

void TQuilColumn::SetLookupDataSet(TDataSet* dataSet) {
  lookupDataSet_ = dataSet;
  if (dataSet && Grid()) dataSet->FreeNotification(Grid());
}

TQuilLookupColumn TQuilColumn::GetLookupColumn() const {
  TField* field = Field();
  if (!field) return lcNotDefined;
  if (field->FieldKind() == fkLookup) return lcLookupField;
  if (!lookupDataSet_ || lookupKeyField_.isEmpty()) return lcNotDefined;
  if (keyField_.compare(fieldName_, Qt::CaseInsensitive) == 0)
    return lookupResultField_ != lookupKeyField_ ? lcLookupValueField : lcLookupKeyField;
  return lookupResultField_.isEmpty() ? lcNotDefined : lcLookupResultField;
}

QString TQuilColumn::GetDisplayName() const { return fieldName_.isEmpty() ? TCollectionItem::GetDisplayName() : fieldName_; }

QString TQuilColumn::TitleCaption() const {
  if (TField* field = Field()) return field->DisplayLabel();
  return fieldName_;
}

const TMetaClass& TQuilDBGridColumns::StaticClass() {
  static const TMetaClass meta("TQuilDBGridColumns", &TOwnedCollection::StaticClass());
  return meta;
}

const TMetaClass& TQuilDBGridColumns::ClassType() const { return StaticClass(); }

TQuilDBGridColumns::TQuilDBGridColumns(TQuilCustomDBGrid* grid)
    : TOwnedCollection(grid, TQuilColumn::StaticClass()), grid_(grid) {}

TCollectionItem* TQuilDBGridColumns::CreateItem() const { return new TQuilColumn(); }

TQuilColumn* TQuilDBGridColumns::InternalAdd() {
  auto* column = new TQuilColumn();
  column->SetStored(false);
  column->SetCollection(this);
  return column;
}

TQuilDBGridColumnsState TQuilDBGridColumns::State() const {
  return Count() > 0 && Items(0)->Stored() ? csCustomized : csDefault;
}

void TQuilDBGridColumns::SetState(TQuilDBGridColumnsState state) {
  if (state == State()) return;
  if (state == csDefault) {
    Clear();
    return;
  }
  BeginUpdate();
  for (int index = 0; index < Count(); ++index) Items(index)->SetStored(true);
  EndUpdate();
}

bool TQuilDBGridColumns::Equals(const TQuilDBGridColumns* other) const {
  if (!other || other->Count() != Count()) return false;
  for (int index = 0; index < Count(); ++index) {
    const TQuilColumn* mine = Items(index);
    const TQuilColumn* theirs = other->Items(index);
    if (mine->FieldName() != theirs->FieldName() || mine->Width() != theirs->Width() ||
        mine->Visible() != theirs->Visible())
      return false;
  }
  return true;
}

void TQuilDBGridColumns::Update(TCollectionItem* item) {
  if (grid_ && !grid_->ComponentState().Contains(csLoading)) grid_->LayoutChanged();
}

}  // namespace quil
