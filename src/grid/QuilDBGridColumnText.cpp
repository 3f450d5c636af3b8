// The column's side of the cell text: what it reads from and writes to its field, and
// the format of a pick row. The grid's ColGetText and ColSetText do the translation.
#include "framework/db/Field.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/Strings.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

QString DefPickTextFormat = QStringLiteral("%1:s - %0:s");

namespace {

bool IsMemoType(TFieldType type) { return type == ftMemo || type == ftFmtMemo || type == ftWideMemo; }

}  // namespace

QString TQuilColumn::GetDisplayText() const {
  TField* field = Field();
  QString text;
  if (field) text = p_.showBlob && IsMemoType(field->DataType()) ? field->AsString() : field->DisplayText();
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->ColGetText(const_cast<TQuilColumn*>(this), text, tkDisplay) : text;
}

QString TQuilColumn::GetEditText() const {
  TField* field = Field();
  QString text;
  if (field) {
    const bool memo = p_.editMemo && IsMemoType(field->DataType()) && !field->OnGetText;
    text = memo ? field->AsString() : field->Text();
  }
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->ColGetText(const_cast<TQuilColumn*>(this), text, tkEdit) : text;
}

void TQuilColumn::SetEditText(const QString& value) {
  TQuilCustomDBGrid* grid = Grid();
  if (!grid || value == GetEditText()) return;
  // A closing editor would write the text a second time otherwise.
  const bool applyList = GetMultiSelectList() && p_.listOptions.Contains(loAutoApplyList);
  if (grid->EditorMode() && p_.listOptions.Contains(loAutoCloseEditor) &&
      !grid->Options().Contains(dgAlwaysShowEditor) && !applyList)
    grid->SetCellEditText(value);
  const QString text = grid->ColSetText(this, value);
  if (TField* field = Field()) {
    if (p_.editMemo && IsMemoType(field->DataType()) && !field->OnSetText) field->SetAsString(text);
    else field->SetText(text);
  }
  grid->ColTextChanged(this);
}

QString TQuilColumn::FormatPickText(int index) const {
  if (index < 0) return QString();
  auto item = [index](const std::unique_ptr<TStrings>& list) {
    return list && index < list->Count() ? list->Strings(index) : QString();
  };
  const QString format = p_.pickTextFormat.isEmpty() ? DefPickTextFormat : p_.pickTextFormat;
  return Format(format, {item(pickText_), item(pickList_), index});
}

}  // namespace quil
