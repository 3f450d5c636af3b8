// The grid's side of the cell text: one pipeline between a field's value and what a
// cell, the editor, a list or the clipboard shows, told apart by the text kind.
//
// Reading: field (Column.GetDisplayText / GetEditText) -> ColGetText: each item of a
// multi-select value, or the whole text, through ColGetItem (record number, lookup,
// pick list) -> FormatText for a cell -> OnColGetText. Writing goes the other way:
// OnColSetText -> ColSetText: each item through ColSetItem -> the field.
#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/rtl/Conversions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/StringUtils.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/Variants.h"
#include "grid/QuilDBGrid.h"
#include "order/OrderText.h"

namespace quil {

namespace {

bool IsMemoType(TFieldType type) { return type == ftMemo || type == ftFmtMemo || type == ftWideMemo; }

// Types whose text the grid cannot write without the field's OnSetText.
bool IsNonTextType(TFieldType type) {
  switch (type) {
    case ftBytes: case ftVarBytes: case ftBlob: case ftMemo: case ftGraphic: case ftFmtMemo: case ftParadoxOle:
    case ftDBaseOle: case ftTypedBinary: case ftCursor: case ftADT: case ftArray: case ftReference:
    case ftDataSet: case ftWideMemo:
      return true;
    default:
      return false;
  }
}

// Maps each non-empty item of a multi-select value and joins the non-empty results.
template <typename MapItem>
QString MapListItems(const TQuilColumn* column, const QString& text, MapItem mapItem) {
  const QString delimiter = column->DelimiterLine() ? QStringLiteral("\r\n") : QString(column->DelimiterChar());
  QString rest = text;
  QString joined;
  bool first = true;
  while (!rest.isEmpty()) {
    const QString item = ScanStr(rest, delimiter);
    if (item.isEmpty()) continue;
    const QString mapped = mapItem(item);
    if (mapped.isEmpty()) continue;
    if (!first) joined += delimiter;
    joined += mapped;
    first = false;
  }
  return joined;
}

// A stored item index: trimmed and read as a number, -1 when it is none. Only a number
// replaces the text, by its plain decimal form; any other text stays as it stands.
int ReadItemIndex(QString& text) {
  const int index = StrToIntDef(text.trimmed(), -1);
  if (index >= 0) text = QString::number(index);
  return index;
}

// An item index as the field stores it: right-aligned in the width of a string field.
QString StoredItemIndex(const TQuilColumn* column, int index) {
  const TField* field = column->Field();
  if (!field || field->DataType() != ftString) return QString::number(index);
  return Format(QStringLiteral("%") + QString::number(field->Size()) + QStringLiteral("d"), {index});
}

// The position of text among the formatted pick rows, which the popup shows.
int IndexOfPickRow(const TQuilColumn* column, const QString& text) {
  for (int index = 0; index < column->PickText()->Count(); ++index)
    if (column->FormatPickText(index).compare(text, Qt::CaseInsensitive) == 0) return index;
  return -1;
}

QString LookupValueText(const TQuilColumn* column, const QString& key, TTextKind textKind) {
  TDataSet* lookup = column->LookupDataSet();
  lookup->Open();
  if (!lookup->Locate(column->LookupKeyField(), Variant(key), {})) return QString();
  const TField* result = lookup->FieldByName(column->LookupResultField());
  return textKind == tkEdit ? result->Text() : result->DisplayText();
}

QString PickTextItem(const TQuilColumn* column, QString text) {
  const TQuilPickOptions options = column->PickOptions();
  const TStrings* pickText = column->PickText();
  int index = column->GetPickListActive() ? column->PickList()->IndexOf(text) : pickText->IndexOf(text);
  if (index < 0 && options.Contains(poStoreItemIndex)) index = ReadItemIndex(text);
  if (index >= 0 && index < pickText->Count()) {
    if (options.Contains(poFormatPickText) && !options.Contains(poFormatListOnly)) return column->FormatPickText(index);
    return pickText->Strings(index);
  }
  return options.Contains(poListItemsOnly) ? QString() : text;
}

QString PickListItem(const TQuilColumn* column, QString text) {
  const TQuilPickOptions options = column->PickOptions();
  const TStrings* pickList = column->PickList();
  int index = pickList->IndexOf(text);
  if (index < 0 && options.Contains(poStoreItemIndex)) index = ReadItemIndex(text);
  if (index >= 0 && index < pickList->Count()) return pickList->Strings(index);
  return options.Contains(poListItemsOnly) ? QString() : text;
}

QString StorePickTextItem(const TQuilColumn* column, const QString& text) {
  const TQuilPickOptions options = column->PickOptions();
  const TStrings* pickText = column->PickText();
  int index = options.Contains(poFormatPickText) ? IndexOfPickRow(column, text) : -1;
  if (index < 0) index = pickText->IndexOf(text);
  if (index < 0 && options.Contains(poAcceptPickList) && column->GetPickListActive())
    index = column->PickList()->IndexOf(text);
  if (index < 0 && options.Contains(poAcceptItemIndex)) index = StrToIntDef(text, -1);
  if (index >= pickText->Count()) index = -1;
  if (index >= 0 && options.Contains(poStoreItemIndex)) return StoredItemIndex(column, index);
  if (index >= 0 && !column->GetPickListActive()) return pickText->Strings(index);
  if (index >= 0 && index < column->PickList()->Count()) return column->PickList()->Strings(index);
  return options.Contains(poListItemsOnly) ? QString() : text;
}

QString StorePickListItem(const TQuilColumn* column, const QString& text) {
  const TQuilPickOptions options = column->PickOptions();
  const TStrings* pickList = column->PickList();
  int index = pickList->IndexOf(text);
  if (index < 0 && options.Contains(poAcceptItemIndex)) index = StrToIntDef(text, -1);
  if (index >= 0 && options.Contains(poStoreItemIndex)) return StoredItemIndex(column, index);
  if (index >= 0 && index < pickList->Count()) return pickList->Strings(index);
  return options.Contains(poListItemsOnly) ? QString() : text;
}

}  // namespace

QString TQuilCustomDBGrid::ColGetText(TQuilColumn* column, const QString& text, TTextKind textKind) {
  if (!column) return text;
  QString result;
  if (column->GetMultiSelectList() && column->GetPickDataActive())
    result = MapListItems(column, text, [&](const QString& item) { return ColGetItem(column, item, textKind); });
  else
    result = ColGetItem(column, text, textKind);
  if (textKind == tkDisplay) result = column->FormatText(result);
  if (OnColGetText) OnColGetText(column, result, textKind);
  return result;
}

QString TQuilCustomDBGrid::ColSetText(TQuilColumn* column, const QString& text) {
  if (!column) return text;
  QString given = text;
  if (OnColSetText) OnColSetText(column, given);
  if (column->GetMultiSelectList() && column->GetPickDataActive())
    return MapListItems(column, given, [&](const QString& item) { return ColSetItem(column, item); });
  return ColSetItem(column, given);
}

QString TQuilCustomDBGrid::ColGetItem(TQuilColumn* column, const QString& text, TTextKind textKind) {
  if (!column) return text;
  if (column->AutoNumber() && textKind != tkReport) return AutoNumberStr(GetRecNumber());
  if (column->GetLookupColumn() == lcLookupValueField)
    return text.isEmpty() ? text : LookupValueText(column, text, textKind);
  if (column->GetPickTextActive()) return PickTextItem(column, text);
  if (column->GetPickListActive()) return PickListItem(column, text);
  return text;
}

QString TQuilCustomDBGrid::ColSetItem(TQuilColumn* column, const QString& text) {
  if (!column) return text;
  if (column->GetPickTextActive()) return StorePickTextItem(column, text);
  if (column->GetPickListActive()) return StorePickListItem(column, text);
  return text;
}

void TQuilCustomDBGrid::ColTextChanged(TQuilColumn* column) {
  if (OnColTextChanged) OnColTextChanged(column);
}

QString TQuilCustomDBGrid::GetFieldValue(int dataCol) const {
  return GetColField(dataCol) ? columns_->Items(dataCol)->GetDisplayText() : QString();
}

// --- Editing

bool TQuilCustomDBGrid::CanColumnModify(TQuilColumn* column) {
  if (!column || readOnly_ || !dataLink_->Active() || dataLink_->ReadOnly()) return false;
  TField* field = column->Field();
  if (column->ReadOnly() || !field || !field->CanModify()) return false;
  if (IsNonTextType(field->DataType()) && !field->OnSetText) return false;
  if (!dataLink_->Edit() || !dataLink_->Editing()) return false;
  dataLink_->Modified();
  return true;
}

// As CanColumnModify, but a memo that the column edits as text passes without OnSetText.
bool TQuilCustomDBGrid::CanEditModify() {
  TQuilColumn* column = SelectedColumn();
  if (!column || readOnly_ || !dataLink_->Active() || dataLink_->ReadOnly()) return false;
  TField* field = column->Field();
  if (column->ReadOnly() || !field || !field->CanModify()) return false;
  const bool memoAsText = column->EditMemo() && IsMemoType(field->DataType());
  if (IsNonTextType(field->DataType()) && !field->OnSetText && !memoAsText) return false;
  if (!dataLink_->Edit() || !dataLink_->Editing()) return false;
  dataLink_->Modified();
  return true;
}

// FIXME: the grid editor takes the editor color here before the tests.
bool TQuilCustomDBGrid::CanEditShow() {
  if (layoutLock_ != 0 || !TCustomGrid::CanEditShow()) return false;
  TQuilColumn* column = SelectedColumn();
  return column && column->CanEditShow();
}

QString TQuilCustomDBGrid::GetEditText(int col, int) {
  if (!dataLink_->Active()) return QString();
  const int dataCol = RawToDataColumn(col);
  editText_ = dataCol >= 0 && dataCol < columns_->Count() ? columns_->Items(dataCol)->GetEditText() : QString();
  return editText_;
}

void TQuilCustomDBGrid::SetEditText(int, int, const QString& value) { editText_ = value; }

int TQuilCustomDBGrid::GetEditLimit() {
  TField* field = SelectedField();
  TQuilColumn* column = SelectedColumn();
  if (!field || !column || column->GetPickTextActive()) return 0;
  return field->DataType() == ftString || field->DataType() == ftWideString ? field->Size() : 0;
}

QString TQuilCustomDBGrid::GetEditMask(int col, int) {
  const int dataCol = RawToDataColumn(col);
  if (!dataLink_->Active() || dataCol < 0 || dataCol >= columns_->Count()) return QString();
  TQuilColumn* column = columns_->Items(dataCol);
  if (column->GetPickTextActive() || !column->Field()) return QString();
  return column->Field()->EditMask();
}

void TQuilCustomDBGrid::ColEnter() {
  if (options_.Contains(dgAlwaysShowEditor)) {
    TQuilColumn* column = SelectedColumn();
    if (column && !column->CanEditShow()) HideEditor();
    ShowEditor();
  }
  if (OnColEnter) OnColEnter(this);
}

void TQuilCustomDBGrid::ColExit() {
  if (search_->GetVisible() && search_->Options().Contains(soCurrentCol)) {
    search_->SetText(QString());
    InvalidateCol(Col());
  }
  if (OnColExit) OnColExit(this);
}

}  // namespace quil
