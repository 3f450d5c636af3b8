#include "grid/QuilDBGridColumnTypes.h"

#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TQuilColumnButtonStyle) {
  static const TEnumTypeInfo info("TQuilColumnButtonStyle", {"cbsAuto", "cbsEllipsis", "cbsNone", "cbsDropDown", "cbsDropDownMenu", "cbsCalendar", "cbsCalculator"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilColumnExpandStyle) {
  static const TEnumTypeInfo info("TQuilColumnExpandStyle", {"cesAuto", "cesNone", "cesDropDown", "cesDropDownMenu", "cesFilterList", "cesFilterForm"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilLookupColumn) {
  static const TEnumTypeInfo info("TQuilLookupColumn", {"lcNotDefined", "lcLookupField", "lcLookupKeyField", "lcLookupResultField", "lcLookupValueField"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TCheckBoxKind) {
  static const TEnumTypeInfo info("TCheckBoxKind", {"ckCheck", "ckCross", "cbBox"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TCheckBoxStyle) {
  static const TEnumTypeInfo info("TCheckBoxStyle", {"cbAuto", "cbAutoGray", "cbAutoLowered", "cbDefault", "cbSoft", "cbLoweredDark", "cbLoweredGray", "cbLoweredMild", "cbFlat", "cbGray", "cbMild"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TCheckBoxToggle) {
  static const TEnumTypeInfo info("TCheckBoxToggle", {"ctCustomToggle", "ctKeyPressOnly", "ctOnCellClick", "ctSelectClick"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TExpandBoxSize) {
  static const TEnumTypeInfo info("TExpandBoxSize", {"ebSmall", "ebMedium", "ebLarge"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TExpandBoxToggle) {
  static const TEnumTypeInfo info("TExpandBoxToggle", {"etCustomToggle", "etKeyPressOnly", "etOnCellClick", "etSelectClick"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TImageDraw) {
  static const TEnumTypeInfo info("TImageDraw", {"idAlignment", "idOpposite", "idCenter", "idScaled", "idStretch", "idTileCell", "idTileGrid", "idTileCol", "idTileRow"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TVAlignment) {
  static const TEnumTypeInfo info("TVAlignment", {"tvTopJustify", "tvBottomJustify", "tvCenter"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TToolTipsWidth) {
  static const TEnumTypeInfo info("TToolTipsWidth", {"ttAutoWidth", "ttFixedWidth"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TDialogOption) {
  static const TEnumTypeInfo info("TDialogOption", {"doShowColumn", "doItemEnabled"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TCalendarDepth) {
  static const TEnumTypeInfo info("TCalendarDepth", {"cdMonth", "cdYear", "cdDecade", "cdCentury"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TMultiSelectText) {
  static const TEnumTypeInfo info("TMultiSelectText", {"mstDefault", "mstEllipsis"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TMarker) {
  static const TEnumTypeInfo info("TMarker", {"tmNone", "tmAscend", "tmDescend"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TFilterStyle) {
  static const TEnumTypeInfo info("TFilterStyle", {"fsFilterList", "fsFilterForm"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilListOption) {
  static const TEnumTypeInfo info("TQuilListOption", {"loAutoComplete", "loAutoDropDown", "loAutoCloseEditor", "loSelectNextValue", "loAllowClearValue", "loShowToday", "loShowTodayCircle", "loShowWeekNumbers", "loAutoTodayClose", "loBoldSundays", "loShowImages", "loShowLookupListTitles", "loAllowAdjustOrder", "loAllowChangeOrder", "loAllowColumnResize", "loAllowColumnMoving", "loExpandFirstColumn", "loFirstColumnExpanded", "loMultiSelectList", "loAutoApplyList", "loTreeViewCellExpand", "loIncrementalList"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilPickOption) {
  static const TEnumTypeInfo info("TQuilPickOption", {"poDropDownList", "poListItemsOnly", "poSelectPickText", "poStoreItemIndex", "poAcceptPickList", "poAcceptItemIndex", "poAutoLoadList", "poAppendToList", "poSortedByText", "poFormatPickText", "poFormatListOnly"});
  return info;
}

}  // namespace quil
