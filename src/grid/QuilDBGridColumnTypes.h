#pragma once
// The enumerations and sets that columns, their titles and the lists they open publish.
// Members are in their published order: a set's integer form is the one stored.

#include <cstdint>

#include "framework/rtl/Sets.h"

namespace quil {

class TEnumTypeInfo;

// Which of a column's values were set on it and no longer follow their default.
enum TQuilColumnValue {
  cvColor, cvWidth, cvFont, cvAlignment, cvReadOnly, cvTitleColor, cvTitleCaption,
  cvTitleAlignment, cvTitleFont, cvImeMode, cvImeName, cvTotalColor, cvTotalCaption,
  cvTotalAlignment, cvTotalFont
};
using TQuilColumnValues = TSet<TQuilColumnValue>;

enum TQuilColumnButtonStyle {
  cbsAuto, cbsEllipsis, cbsNone, cbsDropDown, cbsDropDownMenu, cbsCalendar, cbsCalculator
};
enum TQuilColumnExpandStyle {
  cesAuto, cesNone, cesDropDown, cesDropDownMenu, cesFilterList, cesFilterForm
};
enum TQuilLookupColumn {
  lcNotDefined, lcLookupField, lcLookupKeyField, lcLookupResultField, lcLookupValueField
};
enum TCheckBoxKind { ckCheck, ckCross, cbBox };
enum TCheckBoxStyle {
  cbAuto, cbAutoGray, cbAutoLowered, cbDefault, cbSoft, cbLoweredDark, cbLoweredGray,
  cbLoweredMild, cbFlat, cbGray, cbMild
};
enum TCheckBoxToggle { ctCustomToggle, ctKeyPressOnly, ctOnCellClick, ctSelectClick };
enum TExpandBoxSize { ebSmall, ebMedium, ebLarge };
enum TExpandBoxToggle { etCustomToggle, etKeyPressOnly, etOnCellClick, etSelectClick };
enum TImageDraw {
  idAlignment, idOpposite, idCenter, idScaled, idStretch, idTileCell, idTileGrid, idTileCol,
  idTileRow
};
enum TVAlignment { tvTopJustify, tvBottomJustify, tvCenter };
enum TToolTipsWidth { ttAutoWidth, ttFixedWidth };
enum TDialogOption { doShowColumn, doItemEnabled };
using TDialogOptions = TSet<TDialogOption>;
enum TCalendarDepth { cdMonth, cdYear, cdDecade, cdCentury };
enum TMultiSelectText { mstDefault, mstEllipsis };
enum TMarker { tmNone, tmAscend, tmDescend };
enum TFilterStyle { fsFilterList, fsFilterForm };
using TFilterStyles = TSet<TFilterStyle>;

// The options of every drop-down list.
enum TQuilListOption {
  loAutoComplete, loAutoDropDown, loAutoCloseEditor, loSelectNextValue, loAllowClearValue,
  loShowToday, loShowTodayCircle, loShowWeekNumbers, loAutoTodayClose, loBoldSundays,
  loShowImages, loShowLookupListTitles, loAllowAdjustOrder, loAllowChangeOrder,
  loAllowColumnResize, loAllowColumnMoving, loExpandFirstColumn, loFirstColumnExpanded,
  loMultiSelectList, loAutoApplyList, loTreeViewCellExpand, loIncrementalList
};
using TQuilListOptions = TSet<TQuilListOption>;
// 24637, the integer a form stores.
constexpr TQuilListOptions DefaultColumnListOptions = {
    loAutoComplete, loAutoCloseEditor, loSelectNextValue, loAllowClearValue,
    loShowToday, loAllowChangeOrder, loAllowColumnResize};

// The options of pick lists.
enum TQuilPickOption {
  poDropDownList, poListItemsOnly, poSelectPickText, poStoreItemIndex, poAcceptPickList,
  poAcceptItemIndex, poAutoLoadList, poAppendToList, poSortedByText, poFormatPickText,
  poFormatListOnly
};
using TQuilPickOptions = TSet<TQuilPickOption>;
constexpr TQuilPickOptions DefaultPickOptions = {poSelectPickText, poAcceptPickList};

const TEnumTypeInfo& TypeInfo(TQuilColumnButtonStyle);
const TEnumTypeInfo& TypeInfo(TQuilColumnExpandStyle);
const TEnumTypeInfo& TypeInfo(TQuilLookupColumn);
const TEnumTypeInfo& TypeInfo(TCheckBoxKind);
const TEnumTypeInfo& TypeInfo(TCheckBoxStyle);
const TEnumTypeInfo& TypeInfo(TCheckBoxToggle);
const TEnumTypeInfo& TypeInfo(TExpandBoxSize);
const TEnumTypeInfo& TypeInfo(TExpandBoxToggle);
const TEnumTypeInfo& TypeInfo(TImageDraw);
const TEnumTypeInfo& TypeInfo(TVAlignment);
const TEnumTypeInfo& TypeInfo(TToolTipsWidth);
const TEnumTypeInfo& TypeInfo(TDialogOption);
const TEnumTypeInfo& TypeInfo(TCalendarDepth);
const TEnumTypeInfo& TypeInfo(TMultiSelectText);
const TEnumTypeInfo& TypeInfo(TMarker);
const TEnumTypeInfo& TypeInfo(TFilterStyle);
const TEnumTypeInfo& TypeInfo(TQuilListOption);
const TEnumTypeInfo& TypeInfo(TQuilPickOption);

}  // namespace quil
