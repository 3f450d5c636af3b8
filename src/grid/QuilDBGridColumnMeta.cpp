// The column's published properties, in the order of the class: a stream writes and
// reads them in this order, so a setter that depends on another comes after it.
#include "framework/controls/Menus.h"
#include "framework/db/DataSet.h"
#include "framework/graphics/Font.h"
#include "framework/graphics/ImageList.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGridColumn.h"

namespace quil {

const TMetaClass& TQuilColumn::StaticClass() {
  using T = TQuilColumn;
  static const TMetaClass meta =
      TMetaClass("TQuilColumn", &TCollectionItem::StaticClass())
          .Creates<TQuilColumn>()
          .Published(EnumProp("Alignment", &T::Alignment, &T::SetAlignment).StoredBy(&T::IsAlignmentStored))
          .Published(BoolProp("AutoNumber", &T::AutoNumber, &T::SetAutoNumber).Default(false))
          .Published(EnumProp("ButtonStyle", &T::ButtonStyle, &T::SetButtonStyle).Default(cbsAuto))
          .Published(EnumProp("CalendarDepth", &T::CalendarDepth, &T::SetCalendarDepth).Default(cdDecade))
          .Published(EnumProp("CharCase", &T::CharCase, &T::SetCharCase).Default(ecNormal))
          .Published(BoolProp("CheckBox", &T::CheckBox, &T::SetCheckBox).Default(false))
          .Published(EnumProp("CheckBoxKind", &T::CheckBoxKind, &T::SetCheckBoxKind).Default(ckCheck))
          .Published(EnumProp("CheckBoxStyle", &T::CheckBoxStyle, &T::SetCheckBoxStyle).Default(cbAuto))
          .Published(BoolProp("CheckBoxThemed", &T::CheckBoxThemed, &T::SetCheckBoxThemed).Default(false))
          .Published(EnumProp("CheckBoxToggle", &T::CheckBoxToggle, &T::SetCheckBoxToggle).Default(ctOnCellClick))
          .Published(StrProp("CheckBoxValues", &T::CheckBoxValues, &T::SetCheckBoxValues)
                         .NoDefault()
                         .StoredBy(&T::IsCheckBoxValuesStored))
          .Published(CharProp("DelimiterChar", &T::DelimiterChar, &T::SetDelimiterChar).Default(QLatin1Char(',')))
          .Published(BoolProp("DelimiterLine", &T::DelimiterLine, &T::SetDelimiterLine).Default(false))
          .Published(SetProp("DialogOptions", &T::DialogOptions, &T::SetDialogOptions)
                         .Default({doShowColumn, doItemEnabled}))
          .Published(IntProp("Color", &T::Color, &T::SetColor).OfType(ColorTypeInfo()).StoredBy(&T::IsColorStored))
          .Published(ObjectProp("DropDownMenu", &T::DropDownMenu, &T::SetDropDownMenu))
          .Published(IntProp("DropDownRows", &T::DropDownRows, &T::SetDropDownRows).Default(0))
          .Published(IntProp("DropDownWidth", &T::DropDownWidth, &T::SetDropDownWidth).Default(0))
          .Published(BoolProp("EditMemo", &T::EditMemo, &T::SetEditMemo).Default(true))
          .Published(StrProp("EditorHint", &T::EditorHint, &T::SetEditorHint))
          .Published(BoolProp("Ellipsis", &T::Ellipsis, &T::SetEllipsis).Default(true))
          .Published(BoolProp("ExpandBox", &T::ExpandBox, &T::SetExpandBox).Default(false))
          .Published(EnumProp("ExpandBoxSize", &T::ExpandBoxSize, &T::SetExpandBoxSize).Default(ebLarge))
          .Published(BoolProp("ExpandBoxThemed", &T::ExpandBoxThemed, &T::SetExpandBoxThemed).Default(false))
          .Published(EnumProp("ExpandBoxToggle", &T::ExpandBoxToggle, &T::SetExpandBoxToggle).Default(etOnCellClick))
          .Published(BoolProp("ExpandBoxTree", &T::ExpandBoxTree, &T::SetExpandBoxTree).Default(false))
          .Published(IntProp("ExpandCols", &T::ExpandCols, &T::SetExpandCols).Default(0))
          .Published(BoolProp("Expanded", &T::Expanded, &T::SetExpanded).Default(true))
          .Published(EnumProp("ExpandStyle", &T::ExpandStyle, &T::SetExpandStyle).Default(cesAuto))
          .Published(StrProp("FieldName", &T::FieldName, &T::SetFieldName))
          .Published(ObjectProp("FilterList", &T::FilterList, &T::SetFilterList).StoredBy(&T::IsFilterListStored))
          .Published(StrProp("FilterText", &T::FilterText, &T::SetFilterText))
          .Published(ObjectProp("Font", &T::Font, &T::SetFont).StoredBy(&T::IsFontStored))
          .Published(StrProp("Hint", &T::Hint, &T::SetHint))
          .Published(EnumProp("ImageDraw", &T::ImageDraw, &T::SetImageDraw).Default(idCenter))
          .Published(IntProp("ImageMargin", &T::ImageMargin, &T::SetImageMargin).Default(0))
          .Published(IntProp("ImageOffsetX", &T::ImageOffsetX, &T::SetImageOffsetX).Default(0))
          .Published(IntProp("ImageOffsetY", &T::ImageOffsetY, &T::SetImageOffsetY).Default(0))
          .Published(ObjectProp("Images", &T::Images, &T::SetImages))
          .Published(EnumProp("ImeMode", &T::ImeMode, &T::SetImeMode).StoredBy(&T::IsImeModeStored))
          .Published(StrProp("ImeName", &T::ImeName, &T::SetImeName).NoDefault().StoredBy(&T::IsImeNameStored))
          .Published(SetProp("ListOptions", &T::ListOptions, &T::SetListOptions).Default(DefaultColumnListOptions))
          .Published(EnumProp("LookupColumn", &T::LookupColumn))
          .Published(ObjectProp("LookupDataSet", &T::LookupDataSet, &T::SetLookupDataSet)
                         .StoredBy(&T::IsLookupDataSetStored))
          .Published(StrProp("KeyField", &T::KeyField, &T::SetKeyField).StoredBy(&T::IsKeyFieldStored))
          .Published(StrProp("LookupKeyField", &T::LookupKeyField, &T::SetLookupKeyField)
                         .StoredBy(&T::IsLookupKeyFieldStored))
          .Published(StrProp("LookupParentField", &T::LookupParentField, &T::SetLookupParentField))
          .Published(StrProp("LookupResultField", &T::LookupResultField, &T::SetLookupResultField)
                         .StoredBy(&T::IsLookupResultFieldStored))
          .Published(StrProp("LookupTreeViewField", &T::LookupTreeViewField, &T::SetLookupTreeViewField))
          .Published(StrProp("LookupListFields", &T::LookupListFields, &T::SetLookupListFields)
                         .StoredBy(&T::IsLookupListFieldsStored))
          .Published(StrProp("LookupListTitles", &T::LookupListTitles, &T::SetLookupListTitles))
          .Published(StrProp("LookupListWidths", &T::LookupListWidths, &T::SetLookupListWidths))
          .Published(BoolProp("MultiSelectList", &T::MultiSelectList))
          .Published(EnumProp("MultiSelectText", &T::MultiSelectText, &T::SetMultiSelectText).Default(mstEllipsis))
          .Published(ObjectProp("PickList", &T::PickList, &T::SetPickList).StoredBy(&T::IsPickListStored))
          .Published(SetProp("PickOptions", &T::PickOptions, &T::SetPickOptions).Default(DefaultPickOptions))
          .Published(ObjectProp("PickText", &T::PickText, &T::SetPickText).StoredBy(&T::IsPickTextStored))
          .Published(StrProp("PickTextFormat", &T::PickTextFormat, &T::SetPickTextFormat))
          .Published(ObjectProp("PopupMenu", &T::PopupMenu, &T::SetPopupMenu))
          .Published(BoolProp("QuickDraw", &T::QuickDraw, &T::SetQuickDraw).Default(true))
          .Published(BoolProp("ReadOnly", &T::ReadOnly, &T::SetReadOnly).StoredBy(&T::IsReadOnlyStored))
          .Published(BoolProp("ShowBlob", &T::ShowBlob, &T::SetShowBlob).Default(true))
          .Published(BoolProp("ShowEdit", &T::ShowEdit, &T::SetShowEdit).Default(true))
          .Published(BoolProp("SuppressRTL", &T::SuppressRTL, &T::SetSuppressRTL).Default(false))
          .Published(ObjectProp("Title", &T::Title, &T::SetTitle))
          .Published(BoolProp("ToolTips", &T::ToolTips, &T::SetToolTips).Default(true))
          .Published(EnumProp("ToolTipsWidth", &T::ToolTipsWidth, &T::SetToolTipsWidth).Default(ttAutoWidth))
          .Published(ObjectProp("TotalFields", &T::TotalFields, &T::SetTotalFields))
          .Published(ObjectProp("TotalFooter", &T::TotalFooter, &T::SetTotalFooter))
          .Published(ObjectProp("TotalHeader", &T::TotalHeader, &T::SetTotalHeader))
          .Published(ObjectProp("TotalValues", &T::TotalValues, &T::SetTotalValues).StoredBy(&T::IsTotalValuesStored))
          .Published(BoolProp("Transparent", &T::Transparent, &T::SetTransparent).Default(false))
          .Published(IntProp("TransparentColor", &T::TransparentColor, &T::SetTransparentColor)
                         .OfType(ColorTypeInfo())
                         .Default(clNone))
          .Published(EnumProp("VAlignment", &T::VAlignment, &T::SetVAlignment).Default(tvCenter))
          .Published(BoolProp("Visible", &T::Visible, &T::SetVisible).Default(true))
          .Published(BoolProp("Wallpaper", &T::Wallpaper, &T::SetWallpaper).Default(false))
          .Published(IntProp("Width", &T::Width, &T::SetWidth).StoredBy(&T::IsWidthStored))
          .Published(IntProp("WidthBase", &T::WidthBase, &T::SetWidthBase).Stored(false))
          .Published(IntProp("WidthMax", &T::WidthMax, &T::SetWidthMax).Default(-1))
          .Published(IntProp("WidthMin", &T::WidthMin, &T::SetWidthMin).Default(-1))
          .Published(BoolProp("WordWrap", &T::WordWrap, &T::SetWordWrap).Default(true));
  return meta;
}

const TMetaClass& TQuilColumn::ClassType() const { return StaticClass(); }

}  // namespace quil
