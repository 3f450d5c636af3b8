// What a column's cells show beside text: check boxes, expand boxes, the record
// number, images; and the list options that decide how a cell's text is picked.
#include <algorithm>

#include "framework/db/DataSet.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/ImageList.h"
#include "framework/controls/KeyMapping.h"
#include "framework/controls/VirtualKeys.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/Conversions.h"
#include "framework/rtl/ScopeExit.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"
#include "grid/QuilDBGridColumn_p.h"

namespace quil {

namespace {

// The true text left of ";" and the false text right of it, at most 255 characters.
std::pair<QString, QString> SplitCheckBoxValues(const QString& values) {
  const qsizetype semicolon = values.indexOf(QLatin1Char(';'));
  if (semicolon < 0) return {values, QString()};
  return {values.left(semicolon), values.mid(semicolon + 1, 255)};
}

bool IsStringType(TFieldType type) {
  return type == ftString || type == ftMemo || type == ftFmtMemo || type == ftWideString || type == ftWideMemo;
}

}  // namespace

// --- Check box

QString TQuilColumn::DefaultCheckBoxValues() { return STextTrue + QLatin1Char(';') + STextFalse; }

QString TQuilColumn::CheckBoxValues() const {
  return p_.checkBoxValues.isEmpty() ? DefaultCheckBoxValues() : p_.checkBoxValues;
}

void TQuilColumn::SetCheckBoxValues(const QString& value) {
  const QString stored = value == DefaultCheckBoxValues() ? QString() : value;
  StoreAndRepaint(*this, p_.checkBoxValues, stored);
}

bool TQuilColumn::IsCheckBoxValuesStored() const { return CheckBoxValues() != DefaultCheckBoxValues(); }

// The field's text as the editor would see it.
QString TQuilColumn::CheckBoxText() const {
  TField* field = Field();
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->ColGetText(const_cast<TQuilColumn*>(this), field->Text(), tkEdit) : field->Text();
}

// FIXME: row selection answers for a column without field by the row's selection; until
// then a column without field is never checked.
bool TQuilColumn::IsCheckBoxValue(bool checked) const {
  if (!Field()) return false;
  const auto [trueText, falseText] = SplitCheckBoxValues(CheckBoxValues());
  return CheckBoxText().compare(checked ? trueText : falseText, Qt::CaseInsensitive) == 0;
}

// FIXME: row selection toggles the row of a column without field.
void TQuilColumn::ToggleCheckBoxValue() {
  TQuilCustomDBGrid* grid = Grid();
  if (!p_.checkBox || !grid || !grid->DataLink()->Active() || grid->DataSet()->IsEmpty()) return;
  TField* field = Field();
  if (!field || !grid->CanColumnModify(this)) return;
  const auto [trueText, falseText] = SplitCheckBoxValues(CheckBoxValues());
  const bool checked = CheckBoxText().compare(trueText, Qt::CaseInsensitive) == 0;
  field->SetAsString(grid->ColSetText(this, checked ? falseText : trueText));
  grid->ColTextChanged(this);
}

void TQuilColumn::SetCheckBox(bool value) {
  if (p_.checkBox == value) return;
  p_.checkBox = value;
  if (value) {
    p_.expandBox = false;
    p_.expandBoxTree = false;
    SetImageDraw(p_.imageDraw);
  }
  Changed(true);
}

// --- Expand box

void TQuilColumn::SetExpandBox(bool value) {
  if (p_.expandBox == value) return;
  p_.expandBox = value;
  if (value) TakeExpandBoxLook();
  else p_.expandBoxTree = false;
  Changed(true);
}

void TQuilColumn::TakeExpandBoxLook() {
  p_.checkBox = false;
  p_.transparent = true;
  SetImageDraw(p_.imageDraw);
}

// The tree box sits in the image margin, which it makes room for.
void TQuilColumn::SetExpandBoxTree(bool value) {
  if (p_.expandBoxTree == value) return;
  p_.expandBox = value;
  p_.expandBoxTree = value;
  if (!value) {
    p_.imageMargin = 0;
  } else {
    TakeExpandBoxLook();
    TQuilCustomDBGrid* grid = Grid();
    if (p_.imageMargin == 0) p_.imageMargin = MulDiv(20, grid ? grid->GetCurrentPPI() : 96, 96);
  }
  Changed(true);
}

bool TQuilColumn::IsExpandableBox() const {
  if (p_.expandBoxTree) {
    TQuilCustomDBGrid* grid = Grid();
    return grid && grid->TreeView()->Active() && grid->TreeView()->RowExpandable();
  }
  return p_.expandBox;
}

bool TQuilColumn::IsExpandedBox() const {
  TQuilCustomDBGrid* grid = Grid();
  if (p_.expandBoxTree) return grid && grid->TreeView()->RowExpanded();
  if (!p_.expandBox || !grid || expandBookmark_.empty() || !grid->DataLink()->Active()) return false;
  TDataSet* dataSet = grid->DataSet();
  return dataSet->CompareBookmarks(dataSet->GetBookmark(), expandBookmark_) == 0;
}

// Only the record under the toggling box reads as expanded while the grid handles it.
void TQuilColumn::ToggleExpandBox() {
  TQuilCustomDBGrid* grid = Grid();
  if (!(p_.expandBox || p_.expandBoxTree) || !grid || !grid->DataLink()->Active() || grid->DataSet()->IsEmpty())
    return;
  if (p_.expandBoxTree) {
    if (GetKeyState(VK_CONTROL) < 0) grid->TreeView()->FocusRow();
    else grid->TreeView()->ToggleRow(GetKeyState(VK_SHIFT) < 0);
    return;
  }
  const int rawCol = grid->DataToRawColumn(Index());
  expandBookmark_ = grid->DataSet()->GetBookmark();
  TScopeExit clear([this, grid, rawCol] {
    expandBookmark_.clear();
    grid->InvalidateCol(rawCol);
  });
  grid->InvalidateCol(rawCol);
  grid->CellExpand(this);
}

// --- Record number

void TQuilColumn::SetAutoNumber(bool value) {
  if (Store(p_.autoNumber, value)) Changed(true);
}

bool TQuilColumn::CanEditShow() const {
  return p_.showEdit && !p_.checkBox && (!p_.expandBox || p_.imageMargin >= 1) && !p_.autoNumber;
}

// --- Images

// A box glyph is placed by alignment only; tiles and stretching are for pictures.
void TQuilColumn::SetImageDraw(TImageDraw value) {
  if ((p_.checkBox || p_.expandBox) && value != idAlignment && value != idOpposite && value != idCenter)
    value = idCenter;
  StoreAndRepaint(*this, p_.imageDraw, value);
}

void TQuilColumn::SetImageMargin(int value) {
  value = std::max(value, 0);
  if (!Store(p_.imageMargin, value)) return;
  if (value == 0 && p_.expandBoxTree) SetExpandBoxTree(false);
  Changed(false);
}

// At design time a list without background color draws transparently.
void TQuilColumn::SetImages(TImageList* value) {
  if (p_.images == value) return;
  p_.images = value;
  TQuilCustomDBGrid* grid = Grid();
  if (value && grid) {
    value->FreeNotification(grid);
    if (grid->ComponentState().Contains(csDesigning) && !grid->ComponentState().Contains(csLoading) &&
        value->BkColor() == clNone)
      p_.transparent = true;
  }
  Changed(false);
}

int TQuilColumn::GetImageIndex() const {
  if (p_.checkBox) return GetCheckBoxImageIndex();
  if (p_.expandBox) return GetExpandBoxImageIndex();
  TField* field = Field();
  if (!field) return -1;
  if (field->DataType() == ftBoolean) return field->AsBoolean() ? 1 : 0;
  const QString text = field->AsString();
  if (text == QLatin1String("False")) return 0;
  if (text == QLatin1String("True")) return 1;
  return StrToIntDef(text, -1);
}

std::unique_ptr<TBitmap> TQuilColumn::GetImage(int index) const {
  TImageList* images = p_.images;
  if (!images || index < 0 || index >= images->Count()) return nullptr;
  auto bitmap = std::make_unique<TBitmap>();
  TQuilCustomDBGrid* grid = Grid();
  if (grid && !grid->Enabled()) {
    bitmap->Canvas()->Brush()->SetColor(grid->FixedColor());
    bitmap->SetSize(images->Width(), images->Height());
    images->Draw(bitmap->Canvas(), 0, 0, index, false);
  } else {
    images->GetBitmap(index, bitmap.get());
  }
  if (p_.transparentColor != clNone) bitmap->SetTransparentColor(p_.transparentColor);
  return bitmap;
}

// FIXME: graphic fields make a picture of the class the field's data names, when the
// field is not the library's own graphic field.
TPersistent* TQuilColumn::GetGraphicImage() const {
  TField* field = Field();
  return field && field->DataType() == ftGraphic ? field : nullptr;
}

int TQuilColumn::GetImageLevel() const {
  TQuilCustomDBGrid* grid = Grid();
  return p_.expandBoxTree && grid && grid->TreeView()->Active() ? grid->TreeView()->RowLevel() : 0;
}

// --- Multi-select lists and pick options

bool TQuilColumn::GetMultiSelectList() const {
  TField* field = Field();
  return p_.listOptions.Contains(loMultiSelectList) && field && IsStringType(field->DataType()) &&
         (GetLookupColumn() == lcLookupKeyField || GetPickDataActive());
}

// An empty list cell shows "...", one with several items its first and " ...".
QString TQuilColumn::FormatText(const QString& text) const {
  if (!GetMultiSelectList() || p_.multiSelectText != mstEllipsis) return text;
  if (text.isEmpty()) return QStringLiteral("...");
  const QString delimiter = p_.delimiterLine ? QStringLiteral("\r\n") : QString(p_.delimiterChar);
  const qsizetype at = text.indexOf(delimiter);
  return at < 0 ? text : text.left(at) + QStringLiteral(" ...");
}

void TQuilColumn::SetDelimiterChar(QChar value) {
  if (Store(p_.delimiterChar, value) && GetMultiSelectList()) Changed(false);
}

void TQuilColumn::SetDelimiterLine(bool value) {
  if (Store(p_.delimiterLine, value) && GetMultiSelectList()) Changed(false);
}

void TQuilColumn::SetMultiSelectText(TMultiSelectText value) {
  if (Store(p_.multiSelectText, value) && GetMultiSelectList()) Changed(false);
}

void TQuilColumn::SetListOptions(TQuilListOptions value) {
  const bool multiSelect = GetMultiSelectList();
  p_.listOptions = value;
  if (GetMultiSelectList() != multiSelect) Changed(false);
}

void TQuilColumn::SwitchListOptions(TQuilListOptions options, bool on) {
  SetListOptions(on ? p_.listOptions + options : p_.listOptions - options);
}

// The grid fills an automatically loaded list, which holds values only.
void TQuilColumn::SetPickOptions(TQuilPickOptions value) {
  if (value.Contains(poSelectPickText) && value.Contains(poAutoLoadList)) value.Exclude(poSelectPickText);
  if (value.Contains(poStoreItemIndex)) value.Include(poAcceptItemIndex);
  const bool autoLoadOn = value.Contains(poAutoLoadList) && !p_.pickOptions.Contains(poAutoLoadList);
  if (!Store(p_.pickOptions, value)) return;
  PickDataChanged();
  if (autoLoadOn && ShowingGrid()) ShowingGrid()->UpdateListItems(false);
}

void TQuilColumn::SwitchPickOptions(TQuilPickOptions options, bool on) {
  SetPickOptions(on ? p_.pickOptions + options : p_.pickOptions - options);
}

// FIXME: pick lists refresh an open list here.
void TQuilColumn::PickDataChanged() { Changed(false); }

bool TQuilColumn::GetPickListActive() const { return pickList_ && pickList_->Count() > 0; }
// PickText while it is active, else PickList; an active list is never empty.
bool TQuilColumn::GetPickDataActive() const { return GetPickTextActive() || GetPickListActive(); }

bool TQuilColumn::GetPickTextActive() const {
  return p_.pickOptions.Contains(poSelectPickText) && pickText_ && pickText_->Count() > 0;
}

bool TQuilColumn::GetCalendarActive() const {
  TField* field = Field();
  return field && (field->DataType() == ftDate || field->DataType() == ftDateTime || field->DataType() == ftTimeStamp);
}

}  // namespace quil
