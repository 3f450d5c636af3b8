// The column: construction, its owned parts, the values that follow a default until
// assigned, RestoreDefaults and Assign, and the setters that only store and repaint.
#include "grid/QuilDBGridColumn.h"

#include "framework/controls/Menus.h"
#include "framework/db/Field.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/ScopeExit.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/UpdateGuard.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn_p.h"

namespace quil {

TQuilColumn::TQuilColumn() : font_(std::make_unique<TFont>()) {
  font_->SetOnChange(TNotifyEvent(this, &TQuilColumn::FontChanged));
}

// The title and the totals go before the font, in the reverse of their making.
TQuilColumn::~TQuilColumn() {
  if (TQuilDBGridColumns* columns = Columns()) columns->RemoveFromOrder(this);
  totalFooter_.reset();
  totalFields_.reset();
  totalValues_.reset();
  totalHeader_.reset();
  title_.reset();
  font_.reset();
  FreeLists();
}

TQuilDBGridColumns* TQuilColumn::Columns() const { return dynamic_cast<TQuilDBGridColumns*>(Collection()); }

TQuilCustomDBGrid* TQuilColumn::Grid() const {
  TQuilDBGridColumns* columns = Columns();
  return columns ? columns->Grid() : nullptr;
}

TQuilCustomDBGrid* TQuilColumn::ShowingGrid() const {
  TQuilDBGridColumns* columns = Columns();
  return columns && columns->ShownByGrid() ? columns->Grid() : nullptr;
}

// --- Owned parts

TQuilColumnTitle* TQuilColumn::CreateTitle() { return new TQuilColumnTitle(this); }
TQuilColumnTotalHeader* TQuilColumn::CreateTotalHeader() { return new TQuilColumnTotalHeader(this); }
TQuilColumnTotalValues* TQuilColumn::CreateTotalValues() { return new TQuilColumnTotalValues(this); }
TQuilColumnTotalFields* TQuilColumn::CreateTotalFields() { return new TQuilColumnTotalFields(this); }
TQuilColumnTotalFooter* TQuilColumn::CreateTotalFooter() { return new TQuilColumnTotalFooter(this); }

TQuilColumnTitle* TQuilColumn::Title() const {
  if (!title_) title_.reset(const_cast<TQuilColumn*>(this)->CreateTitle());
  return title_.get();
}

void TQuilColumn::MakeTotals() const {
  if (totalHeader_) return;
  auto* self = const_cast<TQuilColumn*>(this);
  totalHeader_.reset(self->CreateTotalHeader());
  totalValues_.reset(self->CreateTotalValues());
  totalFields_.reset(self->CreateTotalFields());
  totalFooter_.reset(self->CreateTotalFooter());
}

TQuilColumnTotalHeader* TQuilColumn::TotalHeader() const {
  MakeTotals();
  return totalHeader_.get();
}

TQuilColumnTotalValues* TQuilColumn::TotalValues() const {
  MakeTotals();
  return totalValues_.get();
}

TQuilColumnTotalFields* TQuilColumn::TotalFields() const {
  MakeTotals();
  return totalFields_.get();
}

TQuilColumnTotalFooter* TQuilColumn::TotalFooter() const {
  MakeTotals();
  return totalFooter_.get();
}

void TQuilColumn::SetTitle(TQuilColumnTitle* value) { Title()->Assign(value); }
void TQuilColumn::SetTotalHeader(TQuilColumnTotalHeader* value) { TotalHeader()->Assign(value); }
void TQuilColumn::SetTotalValues(TQuilColumnTotalValues* value) { TotalValues()->Assign(value); }
void TQuilColumn::SetTotalFields(TQuilColumnTotalFields* value) { TotalFields()->Assign(value); }
void TQuilColumn::SetTotalFooter(TQuilColumnTotalFooter* value) { TotalFooter()->Assign(value); }

bool TQuilColumn::IsTotalValuesStored() const { return totalValues_ && totalValues_->Count() > 0; }

// FIXME: totals recalculate and repaint their rows here.
void TQuilColumn::TotalChanged() {}

// The lists are made on first read, so that a column without them carries nothing.
TStrings* TQuilColumn::FilterList() const {
  if (!filterList_) filterList_ = std::make_unique<TStringList>();
  return filterList_.get();
}

TStrings* TQuilColumn::PickList() const {
  if (!pickList_) pickList_ = std::make_unique<TStringList>();
  return pickList_.get();
}

TStrings* TQuilColumn::PickText() const {
  if (!pickText_) pickText_ = std::make_unique<TStringList>();
  return pickText_.get();
}

void TQuilColumn::SetFilterList(TStrings* value) {
  FilterList()->Assign(value);
  FilterChanged();
}

void TQuilColumn::SetPickList(TStrings* value) {
  PickList()->Assign(value);
  PickDataChanged();
}

void TQuilColumn::SetPickText(TStrings* value) {
  PickText()->Assign(value);
  PickDataChanged();
}

bool TQuilColumn::IsFilterListStored() const { return filterList_ && filterList_->Count() > 0; }
bool TQuilColumn::IsPickListStored() const { return pickList_ && pickList_->Count() > 0; }
bool TQuilColumn::IsPickTextStored() const { return pickText_ && pickText_->Count() > 0; }

void TQuilColumn::FreeLists() {
  filterList_.reset();
  pickList_.reset();
  pickText_.reset();
}

// --- Values that follow a default until assigned

bool TQuilColumn::WritesToField() const {
  TQuilCustomDBGrid* grid = Grid();
  return !stored_ && grid && grid->DataLink()->Active() && Field();
}

TAlignment TQuilColumn::DefaultAlignment() const {
  TField* field = MeasureField();
  return field ? field->Alignment() : taLeftJustify;
}

TColor TQuilColumn::DefaultColor() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->Color() : clWindow;
}

TFont* TQuilColumn::DefaultFont() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->Font() : font_.get();
}

TImeMode TQuilColumn::DefaultImeMode() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->ImeMode() : p_.imeMode;
}

TImeName TQuilColumn::DefaultImeName() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->ImeName() : p_.imeName;
}

bool TQuilColumn::DefaultReadOnly() const {
  TQuilCustomDBGrid* grid = Grid();
  TField* field = Field();
  return (grid && grid->ReadOnly()) || (field && field->ReadOnly());
}

TAlignment TQuilColumn::Alignment() const { return IsAssigned(cvAlignment) ? p_.alignment : DefaultAlignment(); }
TColor TQuilColumn::Color() const { return IsAssigned(cvColor) ? p_.color : DefaultColor(); }
TImeMode TQuilColumn::ImeMode() const { return IsAssigned(cvImeMode) ? p_.imeMode : DefaultImeMode(); }
TImeName TQuilColumn::ImeName() const { return IsAssigned(cvImeName) ? p_.imeName : DefaultImeName(); }
bool TQuilColumn::ReadOnly() const { return IsAssigned(cvReadOnly) ? p_.readOnly : DefaultReadOnly(); }

bool TQuilColumn::IsAlignmentStored() const { return IsAssigned(cvAlignment) && p_.alignment != DefaultAlignment(); }
bool TQuilColumn::IsColorStored() const { return IsAssigned(cvColor) && p_.color != DefaultColor(); }
bool TQuilColumn::IsImeModeStored() const { return IsAssigned(cvImeMode) && p_.imeMode != DefaultImeMode(); }
bool TQuilColumn::IsImeNameStored() const { return IsAssigned(cvImeName) && p_.imeName != DefaultImeName(); }
bool TQuilColumn::IsReadOnlyStored() const { return IsAssigned(cvReadOnly) && p_.readOnly != DefaultReadOnly(); }

bool TQuilColumn::IsFontStored() const {
  if (!IsAssigned(cvFont)) return false;
  const TFont* defaultFont = DefaultFont();
  return defaultFont == font_.get() || !SameFont(*font_, *defaultFont);
}

// An automatic column of an active grid keeps these on its field, where the next
// automatic column made from it finds them again.
void TQuilColumn::SetAlignment(TAlignment value) {
  if (WritesToField()) {
    Field()->SetAlignment(value);
  } else {
    if (IsAssigned(cvAlignment) && p_.alignment == value) return;
    p_.alignment = value;
    MarkAssigned(cvAlignment);
  }
  Changed(false);
}

void TQuilColumn::SetReadOnly(bool value) {
  if (WritesToField()) {
    Field()->SetReadOnly(value);
  } else {
    if (IsAssigned(cvReadOnly) && p_.readOnly == value) return;
    p_.readOnly = value;
    MarkAssigned(cvReadOnly);
  }
  Changed(false);
}

void TQuilColumn::SetColor(TColor value) {
  if (IsAssigned(cvColor) && p_.color == value) return;
  p_.color = value;
  MarkAssigned(cvColor);
  Changed(false);
}

void TQuilColumn::SetImeMode(TImeMode value) {
  if (IsAssigned(cvImeMode) && p_.imeMode == value) return;
  p_.imeMode = value;
  MarkAssigned(cvImeMode);
  Changed(false);
}

void TQuilColumn::SetImeName(const TImeName& value) {
  if (IsAssigned(cvImeName) && p_.imeName == value) return;
  p_.imeName = value;
  MarkAssigned(cvImeName);
  Changed(false);
}

TFont* TQuilColumn::Font() const {
  RefreshDefaultFont();
  return font_.get();
}

void TQuilColumn::SetFont(TFont* value) {
  font_->Assign(value);
  MarkAssigned(cvFont);
  if (TQuilCustomDBGrid* grid = Grid()) grid->InvalidateEditor();
}

void TQuilColumn::FontChanged(TObject*) {
  MarkAssigned(cvFont);
  Changed(false);
}

void TQuilColumn::RefreshDefaultFont() const {
  if (IsAssigned(cvFont)) return;
  const TFont* defaultFont = DefaultFont();
  if (defaultFont == font_.get() || SameFont(*font_, *defaultFont)) return;
  CopyFontSilently(*font_, *defaultFont);
}

// --- Restore and assign

void TQuilColumn::RestoreDefaults() {
  const bool fontWasAssigned = IsAssigned(cvFont);
  p_ = TValues();
  Title()->RestoreDefaults();
  TotalHeader()->RestoreDefaults();
  TotalValues()->Clear();
  TotalFields()->RestoreDefaults();
  TotalFooter()->RestoreDefaults();
  assignedValues_ = TQuilColumnValues();
  RefreshDefaultFont();
  FreeLists();
  Changed(fontWasAssigned);
}

void TQuilColumn::Assign(const TPersistent* source) {
  const auto* column = dynamic_cast<const TQuilColumn*>(source);
  if (!column) {
    TCollectionItem::Assign(source);
    return;
  }
  TQuilDBGridColumns* columns = Columns();
  if (columns) columns->BeginUpdate();
  TScopeExit endUpdate([columns] {
    if (columns) columns->EndUpdate();
  });
  RestoreDefaults();
  SetFieldName(column->FieldName());
  const TQuilColumnValues assigned = column->AssignedValues();
  if (assigned.Contains(cvColor)) SetColor(column->Color());
  if (assigned.Contains(cvWidth)) SetWidth(column->WidthBase());
  if (assigned.Contains(cvFont)) SetFont(column->Font());
  if (assigned.Contains(cvImeMode)) SetImeMode(column->ImeMode());
  if (assigned.Contains(cvImeName)) SetImeName(column->ImeName());
  if (assigned.Contains(cvAlignment)) SetAlignment(column->Alignment());
  if (assigned.Contains(cvReadOnly)) SetReadOnly(column->ReadOnly());
  CopyMembers(*column);
}

// Everything that has no default to follow, unconditionally and through the setters so
// that their rules hold.
void TQuilColumn::CopyMembers(const TQuilColumn& source) {
  SetAutoNumber(source.AutoNumber());
  SetButtonStyle(source.ButtonStyle());
  SetCalendarDepth(source.CalendarDepth());
  SetCharCase(source.CharCase());
  SetCheckBox(source.CheckBox());
  SetCheckBoxKind(source.CheckBoxKind());
  SetCheckBoxStyle(source.CheckBoxStyle());
  SetCheckBoxThemed(source.CheckBoxThemed());
  SetCheckBoxToggle(source.CheckBoxToggle());
  SetCheckBoxValues(source.CheckBoxValues());
  SetDelimiterChar(source.DelimiterChar());
  SetDelimiterLine(source.DelimiterLine());
  SetDialogOptions(source.DialogOptions());
  SetDropDownMenu(source.DropDownMenu());
  SetDropDownRows(source.DropDownRows());
  SetDropDownWidth(source.DropDownWidth());
  SetEditMemo(source.EditMemo());
  SetEditorHint(source.EditorHint());
  SetEllipsis(source.Ellipsis());
  SetExpandBox(source.ExpandBox());
  SetExpandBoxSize(source.ExpandBoxSize());
  SetExpandBoxThemed(source.ExpandBoxThemed());
  SetExpandBoxToggle(source.ExpandBoxToggle());
  SetExpandBoxTree(source.ExpandBoxTree());
  SetExpandCols(source.ExpandCols());
  SetExpanded(source.p_.expanded);
  SetExpandStyle(source.ExpandStyle());
  if (source.filterList_) SetFilterList(source.filterList_.get());
  SetFilterText(source.FilterText());
  SetHint(source.Hint());
  SetImageDraw(source.ImageDraw());
  SetImageMargin(source.ImageMargin());
  SetImageOffsetX(source.ImageOffsetX());
  SetImageOffsetY(source.ImageOffsetY());
  SetImages(source.Images());
  SetListOptions(source.ListOptions());
  SetLookupDataSet(source.p_.lookupDataSet);
  SetKeyField(source.p_.keyField);
  SetLookupKeyField(source.p_.lookupKeyField);
  SetLookupParentField(source.LookupParentField());
  SetLookupResultField(source.p_.lookupResultField);
  SetLookupTreeViewField(source.LookupTreeViewField());
  SetLookupListFields(source.p_.lookupListFields);
  SetLookupListTitles(source.LookupListTitles());
  SetLookupListWidths(source.LookupListWidths());
  SetMultiSelectText(source.MultiSelectText());
  if (source.pickList_) SetPickList(source.pickList_.get());
  SetPickOptions(source.PickOptions());
  if (source.pickText_) SetPickText(source.pickText_.get());
  SetPickTextFormat(source.PickTextFormat());
  SetPopupMenu(source.PopupMenu());
  SetQuickDraw(source.QuickDraw());
  SetShowBlob(source.ShowBlob());
  SetShowEdit(source.ShowEdit());
  SetSuppressRTL(source.SuppressRTL());
  SetTitle(source.Title());
  SetToolTips(source.ToolTips());
  SetToolTipsWidth(source.ToolTipsWidth());
  SetTotalHeader(source.TotalHeader());
  SetTotalValues(source.TotalValues());
  SetTotalFields(source.TotalFields());
  SetTotalFooter(source.TotalFooter());
  SetTransparent(source.Transparent());
  SetTransparentColor(source.TransparentColor());
  SetVAlignment(source.VAlignment());
  SetVisible(source.p_.visible);
  SetWallpaper(source.Wallpaper());
  SetWidthMax(source.WidthMax());
  SetWidthMin(source.WidthMin());
  SetWordWrap(source.WordWrap());
}

// --- Setters that store and repaint the column

void TQuilColumn::SetButtonStyle(TQuilColumnButtonStyle value) { StoreAndRepaint(*this, p_.buttonStyle, value); }
void TQuilColumn::SetCalendarDepth(TCalendarDepth value) { StoreAndRepaint(*this, p_.calendarDepth, value); }
void TQuilColumn::SetCharCase(TEditCharCase value) { StoreAndRepaint(*this, p_.charCase, value); }
void TQuilColumn::SetCheckBoxKind(TCheckBoxKind value) { StoreAndRepaint(*this, p_.checkBoxKind, value); }
void TQuilColumn::SetCheckBoxStyle(TCheckBoxStyle value) { StoreAndRepaint(*this, p_.checkBoxStyle, value); }
void TQuilColumn::SetCheckBoxThemed(bool value) { StoreAndRepaint(*this, p_.checkBoxThemed, value); }
void TQuilColumn::SetCheckBoxToggle(TCheckBoxToggle value) { StoreAndRepaint(*this, p_.checkBoxToggle, value); }
void TQuilColumn::SetDialogOptions(TDialogOptions value) { StoreAndRepaint(*this, p_.dialogOptions, value); }
void TQuilColumn::SetDropDownRows(int value) { StoreAndRepaint(*this, p_.dropDownRows, value); }
void TQuilColumn::SetDropDownWidth(int value) { StoreAndRepaint(*this, p_.dropDownWidth, value); }
void TQuilColumn::SetEditMemo(bool value) { StoreAndRepaint(*this, p_.editMemo, value); }
void TQuilColumn::SetEditorHint(const QString& value) { StoreAndRepaint(*this, p_.editorHint, value); }
void TQuilColumn::SetEllipsis(bool value) { StoreAndRepaint(*this, p_.ellipsis, value); }
void TQuilColumn::SetExpandBoxSize(TExpandBoxSize value) { StoreAndRepaint(*this, p_.expandBoxSize, value); }
void TQuilColumn::SetExpandBoxThemed(bool value) { StoreAndRepaint(*this, p_.expandBoxThemed, value); }
void TQuilColumn::SetExpandBoxToggle(TExpandBoxToggle value) { StoreAndRepaint(*this, p_.expandBoxToggle, value); }
void TQuilColumn::SetHint(const QString& value) { StoreAndRepaint(*this, p_.hint, value); }
void TQuilColumn::SetImageOffsetX(int value) { StoreAndRepaint(*this, p_.imageOffsetX, value); }
void TQuilColumn::SetImageOffsetY(int value) { StoreAndRepaint(*this, p_.imageOffsetY, value); }
void TQuilColumn::SetPickTextFormat(const QString& value) { StoreAndRepaint(*this, p_.pickTextFormat, value); }
void TQuilColumn::SetQuickDraw(bool value) { StoreAndRepaint(*this, p_.quickDraw, value); }
void TQuilColumn::SetShowBlob(bool value) { StoreAndRepaint(*this, p_.showBlob, value); }
void TQuilColumn::SetShowEdit(bool value) { StoreAndRepaint(*this, p_.showEdit, value); }
void TQuilColumn::SetSuppressRTL(bool value) { StoreAndRepaint(*this, p_.suppressRTL, value); }
void TQuilColumn::SetToolTips(bool value) { StoreAndRepaint(*this, p_.toolTips, value); }
void TQuilColumn::SetToolTipsWidth(TToolTipsWidth value) { StoreAndRepaint(*this, p_.toolTipsWidth, value); }
void TQuilColumn::SetTransparent(bool value) { StoreAndRepaint(*this, p_.transparent, value); }
void TQuilColumn::SetTransparentColor(TColor value) { StoreAndRepaint(*this, p_.transparentColor, value); }
void TQuilColumn::SetVAlignment(TVAlignment value) { StoreAndRepaint(*this, p_.vAlignment, value); }
void TQuilColumn::SetWallpaper(bool value) { StoreAndRepaint(*this, p_.wallpaper, value); }
void TQuilColumn::SetWordWrap(bool value) { StoreAndRepaint(*this, p_.wordWrap, value); }
void TQuilColumn::SetLookupParentField(const QString& value) { StoreAndRepaint(*this, p_.lookupParentField, value); }
void TQuilColumn::SetLookupTreeViewField(const QString& value) {
  StoreAndRepaint(*this, p_.lookupTreeViewField, value);
}
void TQuilColumn::SetLookupListTitles(const QString& value) { StoreAndRepaint(*this, p_.lookupListTitles, value); }
void TQuilColumn::SetLookupListWidths(const QString& value) { StoreAndRepaint(*this, p_.lookupListWidths, value); }

void TQuilColumn::SetFilterText(const QString& value) {
  if (p_.filterText == value) return;
  p_.filterText = value;
  FilterChanged();
}

bool TQuilColumn::GetFiltered() const { return (filterList_ && filterList_->Count() > 0) || !p_.filterText.isEmpty(); }

// FIXME: column filters apply the changed filter to the data set here.
void TQuilColumn::FilterChanged() { Changed(false); }

void TQuilColumn::SetPopupMenu(TPopupMenu* value) {
  if (p_.popupMenu == value) return;
  p_.popupMenu = value;
  if (value && Grid()) value->FreeNotification(Grid());
  Changed(false);
}

// A menu turns the automatic button into a menu button, and its loss turns it back.
void TQuilColumn::SetDropDownMenu(TPopupMenu* value) {
  if (p_.dropDownMenu == value) return;
  p_.dropDownMenu = value;
  if (value && Grid()) value->FreeNotification(Grid());
  if (value && p_.buttonStyle == cbsAuto) p_.buttonStyle = cbsDropDownMenu;
  else if (!value && p_.buttonStyle == cbsDropDownMenu) p_.buttonStyle = cbsAuto;
  Changed(false);
}

}  // namespace quil
