// The column's field: the binding by name, the lookup settings and their kind, the
// display name, and the width measured from the field.
#include <QStringList>
#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/DataTypes.h"
#include "framework/db/Field.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/RtlConsts.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"
#include "grid/QuilDBGridColumn_p.h"
#include "order/OrderText.h"

namespace quil {

namespace {

bool SameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

bool IsLookupField(const TField* field) { return field && field->FieldKind() == fkLookup; }

}  // namespace

// --- Binding

TField* TQuilColumn::Field() const {
  if (field_ || fieldName_.isEmpty()) return field_;
  TQuilCustomDBGrid* grid = Grid();
  TDataSet* dataSet = grid ? grid->DataSet() : nullptr;
  if (!dataSet || !(dataSet->Active() || !dataSet->DefaultFields())) return nullptr;
  const_cast<TQuilColumn*>(this)->SetField(dataSet->FindField(fieldName_));
  return field_;
}

void TQuilColumn::SetField(TField* value) {
  if (field_ == value) return;
  TQuilCustomDBGrid* grid = Grid();
  // Another column or total cell may still show the old field; then the grid must
  // still hear of its freeing.
  if (field_ && grid && !grid->NeedsNotification(field_)) field_->RemoveFreeNotification(grid);
  if (value && value->ComponentState().Contains(csDestroying)) value = nullptr;
  field_ = value;
  if (value) {
    if (grid) value->FreeNotification(grid);
    fieldName_ = value->FullName();
  }
  // An automatic column is its field's picture: a new field brings new defaults. The
  // name goes first, or the restore's repaint would find the old field by it again.
  if (!stored_) {
    if (!value) fieldName_.clear();
    RestoreDefaults();
  }
  SetKeyField(p_.keyField);
  SetLookupDataSet(p_.lookupDataSet);
  Changed(false);
}

void TQuilColumn::SetFieldName(const QString& value) {
  TQuilCustomDBGrid* grid = Grid();
  TField* field = nullptr;
  if (grid && !grid->ComponentState().Contains(csLoading) && grid->DataSet() && !value.isEmpty())
    field = grid->DataSet()->FindField(value);
  fieldName_ = value;
  SetField(field);
  Changed(false);
}

// --- Lookup

TDataSet* TQuilColumn::LookupDataSet() const {
  TField* field = Field();
  return IsLookupField(field) ? field->LookupDataSet() : p_.lookupDataSet;
}

QString TQuilColumn::KeyField() const {
  TField* field = Field();
  if (IsLookupField(field)) return field->KeyFields();
  return p_.keyField.isEmpty() ? fieldName_ : p_.keyField;
}

QString TQuilColumn::LookupKeyField() const {
  TField* field = Field();
  return IsLookupField(field) ? field->LookupKeyFields() : p_.lookupKeyField;
}

QString TQuilColumn::LookupResultField() const {
  TField* field = Field();
  if (IsLookupField(field)) return field->LookupResultField();
  if (p_.lookupResultField.isEmpty() && SameName(KeyField(), fieldName_)) return LookupKeyField();
  return p_.lookupResultField;
}

QString TQuilColumn::LookupListFields() const {
  return p_.lookupListFields.isEmpty() ? LookupResultField() : p_.lookupListFields;
}

bool TQuilColumn::IsLookupDataSetStored() const { return p_.lookupDataSet && !IsLookupField(Field()); }

TQuilLookupColumn TQuilColumn::GetLookupColumn() const {
  TField* field = Field();
  if (!field) return lcNotDefined;
  if (IsLookupField(field)) return lcLookupField;
  if (!LookupDataSet() || LookupKeyField().isEmpty()) return lcNotDefined;
  if (SameName(KeyField(), fieldName_))
    return LookupResultField() != LookupKeyField() ? lcLookupValueField : lcLookupKeyField;
  return LookupResultField().isEmpty() ? lcNotDefined : lcLookupResultField;
}

void TQuilColumn::SetLookupDataSet(TDataSet* value) {
  TQuilCustomDBGrid* grid = Grid();
  if (IsLookupField(Field())) value = nullptr;
  if (value && grid && value == grid->DataSet() && !grid->ComponentState().Contains(csLoading))
    DatabaseError(SCircularDataLink, grid);
  p_.lookupDataSet = value;
  if (value && grid) value->FreeNotification(grid);
  SetLookupKeyField(p_.lookupKeyField);
  SetLookupResultField(p_.lookupResultField);
  Changed(false);
}

void TQuilColumn::SetKeyField(const QString& value) {
  TField* field = Field();
  QString name = SameName(value, IsLookupField(field) ? field->KeyFields() : fieldName_) ? QString() : value;
  if (!name.isEmpty() && Grid()) name = ValidFieldNames(Grid()->DataSet(), name, true);
  p_.keyField = name;
  SetLookupResultField(p_.lookupResultField);
  Changed(false);
}

void TQuilColumn::SetLookupKeyField(const QString& value) {
  TField* field = Field();
  QString name = IsLookupField(field) && SameName(value, field->LookupKeyFields()) ? QString() : value;
  if (!name.isEmpty()) name = ValidFieldNames(LookupDataSet(), name, true);
  p_.lookupKeyField = name;
  Changed(false);
}

// The getter is asked what an empty value gives, so the value is copied first: the
// dependent setters pass the member itself.
void TQuilColumn::SetLookupResultField(const QString& value) {
  QString name = value;
  p_.lookupResultField.clear();
  if (SameName(name, LookupResultField())) name.clear();
  if (!name.isEmpty()) name = ValidFieldNames(LookupDataSet(), name, true);
  p_.lookupResultField = name;
  SetLookupListFields(p_.lookupListFields);
  Changed(false);
}

void TQuilColumn::SetLookupListFields(const QString& value) {
  QString name = SameName(value, LookupResultField()) ? QString() : value;
  if (!name.isEmpty()) name = ValidFieldNames(LookupDataSet(), name, false);
  p_.lookupListFields = name;
  Changed(false);
}

// --- Names

QString TQuilColumn::GetDisplayName() const {
  TField* field = Field();
  QString name;
  if (GetLookupColumn() == lcLookupValueField) name = QStringLiteral("%1[%2]").arg(LookupResultField(), fieldName_);
  else if (parentColumn_ && field && field->ParentField()) name = field->FieldName();
  else name = fieldName_;
  if (name.isEmpty()) {
    const QString caption = Title()->Caption();
    if (caption.isEmpty()) return TCollectionItem::GetDisplayName();
    name = QLatin1Char('(') + (caption.size() > 20 ? caption.left(20) + QStringLiteral("...") : caption) +
           QLatin1Char(')');
  }
  return parentColumn_ ? parentColumn_->GetDisplayName() + QLatin1Char('.') + name : name;
}

// --- Width

TField* TQuilColumn::MeasureField() const {
  TField* field = Field();
  if (!field || GetLookupColumn() != lcLookupValueField) return field;
  TField* result = LookupDataSet()->FindField(LookupResultField());
  return result ? result : field;
}

int TQuilColumn::MeasuredWidth(TField* field) const {
  TCanvas* canvas = Grid()->Canvas();
  canvas->SetFont(Font());
  return field->DisplayWidth() * canvas->TextWidth(QStringLiteral("0")) + 4;
}

// The widest line of the caption with its margins.
int TQuilColumn::TitleMinWidth() const {
  TQuilCustomDBGrid* grid = Grid();
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(Title()->Font());
  int widest = 0;
  for (const QString& line : Title()->Caption().split(QLatin1Char('\n')))
    widest = std::max(widest, canvas->TextWidth(line));
  return widest + 4 + 2 * grid->GridStyle()->TitleColMargin();
}

int TQuilColumn::DefaultWidth() const {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid) return 64;
  TField* field = MeasureField();
  if (!field) return grid->DefaultColWidth();
  int width = MeasuredWidth(field);
  if (grid->Options().Contains(dgTitles) && !grid->Options().Contains(dgTitleWidthOff))
    width = std::max(width, TitleMinWidth());
  if (grid->DefaultWidthMin() > -1) width = std::max(width, grid->DefaultWidthMin());
  if (grid->DefaultWidthMax() > -1) width = std::min(width, grid->DefaultWidthMax());
  return width;
}

bool TQuilColumn::GridWriting() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid && (grid->StreamingState().Contains(gsWriting) || grid->ComponentState().Contains(csWriting));
}

bool TQuilColumn::GridStreaming() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid && (!grid->StreamingState().Empty() || grid->ComponentState().Intersects({csWriting, csReading}));
}

int TQuilColumn::GetTrueWidth() const { return IsAssigned(cvWidth) ? p_.width : DefaultWidth(); }

// Hidden columns get minus the line width, so that the base grid gives them no room;
// a stream gets the stored width, or the base a stretched grid shares out.
int TQuilColumn::GetWidth() const {
  TQuilCustomDBGrid* grid = Grid();
  if (GridWriting()) return grid->StretchActive() ? p_.widthBase : p_.width;
  if (!GetShowing()) return grid ? -grid->GetColLineWidth() : -1;
  return GetTrueWidth();
}

int TQuilColumn::WidthBase() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid && grid->StretchActive() ? p_.widthBase : GetTrueWidth();
}

void TQuilColumn::SetWidthBase(int value) {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || !grid->StretchActive()) {
    SetWidth(value);
    return;
  }
  if (value < 0 || value == p_.widthBase) return;
  p_.widthBase = value;
  grid->StretchGrid();
}

bool TQuilColumn::IsWidthStored() const {
  if (!IsAssigned(cvWidth)) return false;
  TQuilCustomDBGrid* grid = Grid();
  const int width = grid && grid->StretchActive() ? p_.widthBase : p_.width;
  return width == 64 || width != DefaultWidth();
}

void TQuilColumn::SetWidthMax(int value) {
  if (value >= -1) StoreAndRepaint(*this, p_.widthMax, value);
}

void TQuilColumn::SetWidthMin(int value) {
  if (value >= -1) StoreAndRepaint(*this, p_.widthMin, value);
}

// An automatic column keeps its width on the field as characters of the column's font:
// digits, or average characters in a font whose digit zero takes no room.
void TQuilColumn::SetWidthToField(int value) {
  TCanvas* canvas = Grid()->Canvas();
  canvas->SetFont(Font());
  const int digit = canvas->TextWidth(QStringLiteral("0"));
  if (digit > 0) {
    Field()->SetDisplayWidth((value + digit / 2 - 4) / digit);
    return;
  }
  const int average = canvas->AverageCharWidth();
  if (average > 0) Field()->SetDisplayWidth((value + average / 2 - 3) / average);
}

void TQuilColumn::SetWidth(int value) {
  TQuilCustomDBGrid* grid = Grid();
  if (!stored_ && grid && grid->HandleAllocated() && Field() && grid->UpdateFields()) SetWidthToField(value);
  if (!stored_ && grid && grid->LayoutFromDataSet() && !IsAssigned(cvWidth)) return;
  if (value > -1) {
    if (p_.widthMin != -1) value = std::max(value, p_.widthMin);
    if (p_.widthMax != -1) value = std::min(value, p_.widthMax);
  }
  const bool reading = grid && (grid->StreamingState().Contains(gsReading) ||
                                grid->ComponentState().Intersects({csReading, csLoading}));
  if (!IsAssigned(cvWidth) && !reading && value == DefaultWidth()) {
    Changed(false);
    return;
  }
  const bool colLines = !grid || grid->Options().Contains(dgColLines);
  if (value <= (colLines ? -1 : 0)) return;
  StoreWidth(value);
}

void TQuilColumn::StoreWidth(int value) {
  TQuilCustomDBGrid* grid = Grid();
  if (grid && grid->StretchActive() && !grid->StretchRunning() && value != p_.width &&
      grid->StretchPixelsLeft() >= 1 && grid->StretchBasesLeft() >= 1)
    p_.widthBase = int(int64_t(value) * grid->StretchBasesLeft() / grid->StretchPixelsLeft());
  const int shownBefore = GetWidth();
  p_.width = value;
  MarkAssigned(cvWidth);
  TQuilCustomDBGrid* shown = ShowingGrid();
  if (shown && GetWidth() != shownBefore) {
    shown->SetResizedCol(shown->DataToRawColumn(Index()));
    shown->StretchGrid();
    Synchronize();
  }
  Changed(false);
}

}  // namespace quil
