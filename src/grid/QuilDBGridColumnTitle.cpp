#include "grid/QuilDBGridColumnTitle.h"

#include <QStringList>

#include "framework/controls/Menus.h"
#include "framework/db/DataSet.h"
#include "framework/db/Field.h"
#include "framework/graphics/Font.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrid.h"
#include "grid/QuilDBGridColumn.h"
#include "grid/QuilDBGridColumn_p.h"

namespace quil {

const TMetaClass& TQuilColumnTitle::StaticClass() {
  using T = TQuilColumnTitle;
  static const TMetaClass meta =
      TMetaClass("TQuilColumnTitle", &TPersistent::StaticClass())
          .Published(EnumProp("Alignment", &T::Alignment, &T::SetAlignment).StoredBy(&T::IsAlignmentStored))
          .Published(BoolProp("AutoFilter", &T::AutoFilter, &T::SetAutoFilter).Default(true))
          .Published(SetProp("AutoFilters", &T::AutoFilters, &T::SetAutoFilters)
                         .Default({fsFilterList, fsFilterForm}))
          .Published(BoolProp("AutoToggle", &T::AutoToggle, &T::SetAutoToggle).Default(true))
          .Published(BoolProp("Button", &T::Button, &T::SetButton).Default(true))
          .Published(StrProp("Caption", &T::Caption, &T::SetCaption).NoDefault().StoredBy(&T::IsCaptionStored))
          .Published(IntProp("Color", &T::Color, &T::SetColor).OfType(ColorTypeInfo()).StoredBy(&T::IsColorStored))
          .Published(ObjectProp("DropDownMenu", &T::DropDownMenu, &T::SetDropDownMenu))
          .Published(BoolProp("Ellipsis", &T::Ellipsis, &T::SetEllipsis).Default(true))
          .Published(ObjectProp("Font", &T::Font, &T::SetFont).StoredBy(&T::IsFontStored))
          .Published(StrProp("Header", &T::Header, &T::SetHeader))
          .Published(StrProp("HeaderHint", &T::HeaderHint, &T::SetHeaderHint))
          .Published(StrProp("Hint", &T::Hint, &T::SetHint))
          .Published(IntProp("ImageIndex", &T::ImageIndex, &T::SetImageIndex).Default(-1))
          .Published(EnumProp("Marker", &T::Marker, &T::SetMarker).Default(tmNone))
          .Published(IntProp("MarkerIndex", &T::MarkerIndex, &T::SetMarkerIndex).Default(-1))
          .Published(IntProp("OrderIndex", &T::OrderIndex).Stored(false))
          .Published(ObjectProp("PopupMenu", &T::PopupMenu, &T::SetPopupMenu))
          .Published(EnumProp("VAlignment", &T::VAlignment, &T::SetVAlignment).Default(tvCenter))
          .Published(BoolProp("WordWrap", &T::WordWrap, &T::SetWordWrap).Default(true));
  return meta;
}

const TMetaClass& TQuilColumnTitle::ClassType() const { return StaticClass(); }

TQuilColumnTitle::TQuilColumnTitle(TQuilColumn* column) : column_(column), font_(std::make_unique<TFont>()) {
  font_->SetOnChange(TNotifyEvent(this, &TQuilColumnTitle::FontChanged));
}

TQuilColumnTitle::~TQuilColumnTitle() = default;

TQuilCustomDBGrid* TQuilColumnTitle::Grid() const { return column_ ? column_->Grid() : nullptr; }
TPersistent* TQuilColumnTitle::GetOwner() const { return column_; }

bool TQuilColumnTitle::IsAssigned(TQuilColumnValue member) const {
  return column_ && column_->IsAssigned(member);
}

void TQuilColumnTitle::MarkAssigned(TQuilColumnValue member) {
  if (column_) column_->MarkAssigned(member);
}

void TQuilColumnTitle::Changed(bool allItems) {
  if (column_) column_->Changed(allItems);
}

void TQuilColumnTitle::ChangedLook() { Changed(column_ && column_->GetExpanded()); }

// --- Defaults

TColor TQuilColumnTitle::DefaultColor() const {
  TQuilCustomDBGrid* grid = Grid();
  return grid ? grid->FixedColor() : clBtnFace;
}

TFont* TQuilColumnTitle::DefaultFont() const {
  TQuilCustomDBGrid* grid = Grid();
  if (grid) return grid->TitleFont();
  return column_ ? column_->Font() : font_.get();
}

QString TQuilColumnTitle::DefaultCaption() const {
  if (!column_) return QString();
  TField* field = column_->Field();
  if (field && column_->GetLookupColumn() == lcLookupValueField) {
    if (TField* result = column_->LookupDataSet()->FindField(column_->LookupResultField())) return result->DisplayName();
  }
  return field ? field->DisplayName() : column_->FieldName();
}

TAlignment TQuilColumnTitle::Alignment() const {
  return IsAssigned(cvTitleAlignment) ? alignment_ : DefaultAlignment();
}

QString TQuilColumnTitle::Caption() const { return IsAssigned(cvTitleCaption) ? caption_ : DefaultCaption(); }
TColor TQuilColumnTitle::Color() const { return IsAssigned(cvTitleColor) ? color_ : DefaultColor(); }

bool TQuilColumnTitle::IsAlignmentStored() const {
  return IsAssigned(cvTitleAlignment) && alignment_ != DefaultAlignment();
}
bool TQuilColumnTitle::IsCaptionStored() const { return IsAssigned(cvTitleCaption) && caption_ != DefaultCaption(); }
bool TQuilColumnTitle::IsColorStored() const { return IsAssigned(cvTitleColor) && color_ != DefaultColor(); }

bool TQuilColumnTitle::IsFontStored() const {
  if (!IsAssigned(cvTitleFont)) return false;
  const TFont* defaultFont = DefaultFont();
  return defaultFont == font_.get() || !SameFont(*font_, *defaultFont);
}

TFont* TQuilColumnTitle::Font() const {
  RefreshDefaultFont();
  return font_.get();
}

void TQuilColumnTitle::RefreshDefaultFont() const {
  if (IsAssigned(cvTitleFont)) return;
  const TFont* defaultFont = DefaultFont();
  if (defaultFont == font_.get() || SameFont(*font_, *defaultFont)) return;
  CopyFontSilently(*font_, *defaultFont);
}

void TQuilColumnTitle::FontChanged(TObject*) {
  MarkAssigned(cvTitleFont);
  Changed(true);
  if (TQuilCustomDBGrid* grid = Grid()) grid->InvalidateEditor();
}

// --- Setters

void TQuilColumnTitle::SetAlignment(TAlignment value) {
  if (IsAssigned(cvTitleAlignment) && alignment_ == value) return;
  alignment_ = value;
  MarkAssigned(cvTitleAlignment);
  ChangedLook();
}

// An automatic column of an active grid keeps its caption as the field's label.
void TQuilColumnTitle::SetCaption(const QString& value) {
  TQuilCustomDBGrid* grid = Grid();
  TField* field = column_ ? column_->Field() : nullptr;
  if (column_ && !column_->Stored() && grid && grid->DataLink()->Active() && field) {
    field->SetDisplayLabel(value);
  } else {
    if (IsAssigned(cvTitleCaption) && caption_ == value) return;
    caption_ = value;
    MarkAssigned(cvTitleCaption);
  }
  ChangedLook();
}

// Under a transparent theme the titles paint as one header, so a new color of one of
// them lays them all out.
void TQuilColumnTitle::SetColor(TColor value) {
  if (IsAssigned(cvTitleColor) && color_ == value) return;
  color_ = value;
  MarkAssigned(cvTitleColor);
  TQuilCustomDBGrid* grid = Grid();
  if (grid && grid->IsGridThemed(false) && grid->IsThemeTransparent()) Changed(true);
  else ChangedLook();
}

void TQuilColumnTitle::SetFont(TFont* value) {
  font_->Assign(value);
  MarkAssigned(cvTitleFont);
}

void TQuilColumnTitle::SetAutoFilter(bool value) {
  if (Store(autoFilter_, value)) Changed(false);
}

void TQuilColumnTitle::SetAutoFilters(TFilterStyles value) {
  if (Store(autoFilters_, value)) Changed(false);
}

void TQuilColumnTitle::SwitchAutoFilters(TFilterStyles filters, bool on) {
  SetAutoFilters(on ? autoFilters_ + filters : autoFilters_ - filters);
}

void TQuilColumnTitle::SetButton(bool value) {
  if (Store(button_, value)) Changed(false);
}

void TQuilColumnTitle::SetEllipsis(bool value) {
  if (Store(ellipsis_, value)) ChangedLook();
}

void TQuilColumnTitle::SetImageIndex(int value) {
  if (Store(imageIndex_, value)) ChangedLook();
}

void TQuilColumnTitle::SetVAlignment(TVAlignment value) {
  if (Store(vAlignment_, value)) ChangedLook();
}

void TQuilColumnTitle::SetWordWrap(bool value) {
  if (Store(wordWrap_, value)) ChangedLook();
}

void TQuilColumnTitle::SetHeader(const QString& value) {
  if (Store(header_, value)) Changed(true);
}

// FIXME: ordering keeps the order list and the order text in step with the marker.
void TQuilColumnTitle::SetMarker(TMarker value) {
  if (Store(marker_, value)) Changed(false);
}

void TQuilColumnTitle::SetMarkerIndex(int value) {
  if (Store(markerIndex_, value)) Changed(false);
}

void TQuilColumnTitle::SetPopupMenu(TPopupMenu* value) {
  popupMenu_ = value;
  if (value && Grid()) value->FreeNotification(Grid());
}

// A menu gives the title a drop-down button, and its loss takes it away.
void TQuilColumnTitle::SetDropDownMenu(TPopupMenu* value) {
  dropDownMenu_ = value;
  if (!column_) return;
  if (value) {
    if (Grid()) value->FreeNotification(Grid());
    if (column_->ExpandStyle() == cesAuto) column_->SetExpandStyle(cesDropDownMenu);
  } else if (column_->ExpandStyle() == cesDropDownMenu) {
    column_->SetExpandStyle(cesAuto);
  }
}

// --- Bands

int TQuilColumnTitle::GetHeaderRowCount() const {
  return header_.isEmpty() ? 0 : 1 + int(header_.count(QLatin1Char('|')));
}

QString TQuilColumnTitle::GetHeaderText(const QString& text, int index) {
  if (index < 0) return QString();
  const QStringList bands = text.split(QLatin1Char('|'));
  return index < bands.size() ? bands[index] : QString();
}

// --- Restore and assign

void TQuilColumnTitle::RestoreDefaults() {
  const bool fontWasAssigned = IsAssigned(cvTitleFont);
  if (column_) column_->assignedValues_ -= TQuilColumnValues{cvTitleColor, cvTitleCaption, cvTitleAlignment, cvTitleFont};
  alignment_ = taLeftJustify;
  color_ = clBtnFace;
  caption_.clear();
  header_.clear();
  hint_.clear();
  headerHint_.clear();
  popupMenu_ = nullptr;
  // A restored column keeps none of its menus, and its expand button goes back to the
  // automatic one with the drop-down menu.
  SetDropDownMenu(nullptr);
  button_ = ellipsis_ = wordWrap_ = autoToggle_ = autoFilter_ = true;
  vAlignment_ = tvCenter;
  marker_ = tmNone;
  imageIndex_ = -1;
  SetMarkerIndex(-1);
  autoFilters_ = {fsFilterList, fsFilterForm};
  RefreshDefaultFont();
  Changed(fontWasAssigned);
}

void TQuilColumnTitle::Assign(const TPersistent* source) {
  const auto* title = dynamic_cast<const TQuilColumnTitle*>(source);
  if (!title) {
    TPersistent::Assign(source);
    return;
  }
  if (title->IsAssigned(cvTitleAlignment)) SetAlignment(title->Alignment());
  if (title->IsAssigned(cvTitleColor)) SetColor(title->Color());
  if (title->IsAssigned(cvTitleCaption)) SetCaption(title->Caption());
  if (title->IsAssigned(cvTitleFont)) SetFont(title->Font());
  SetButton(title->Button());
  SetEllipsis(title->Ellipsis());
  SetMarker(title->Marker());
  SetHeader(title->Header());
  SetWordWrap(title->WordWrap());
  SetVAlignment(title->VAlignment());
  SetHint(title->Hint());
  SetHeaderHint(title->HeaderHint());
  SetImageIndex(title->ImageIndex());
  SetMarkerIndex(title->MarkerIndex());
  SetAutoToggle(title->AutoToggle());
  SetAutoFilter(title->AutoFilter());
  SetAutoFilters(title->AutoFilters());
  SetPopupMenu(title->PopupMenu());
  SetDropDownMenu(title->DropDownMenu());
}

}  // namespace quil
