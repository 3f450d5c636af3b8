// The names of the option sets' members, as forms and layouts store them.
#include "grid/QuilDBGridOptions.h"

#include "framework/rtl/TypInfo.h"

namespace quil {

const TEnumTypeInfo& TypeInfo(TQuilDBGridOption) {
  static const TEnumTypeInfo info(
      "TQuilDBGridOption",
      {"dgEditing", "dgAlwaysShowEditor", "dgTitles", "dgIndicator", "dgColumnResize", "dgColLines", "dgRowLines",
       "dgTabs", "dgRowSelect", "dgAlwaysShowSelection", "dgConfirmDelete", "dgCancelOnExit", "dgMultiSelect",
       "dgExtendedSelect", "dgInternalSelect", "dgRowResize", "dgRowScroll", "dgHotButtons", "dgTitleButtons",
       "dgTitleHeaders", "dgTitleWidthOff", "dgAllowDeleteOff", "dgAllowInsertOff", "dgAutoUnselectOff",
       "dgIndicatorMarkOff", "dgMarkerAutoAlign", "dgMarkerAutoSwitch", "dgMarkerAutoToggle", "dgMarkerAscendOnly",
       "dgForceSequence", "dgThumbTracking", "dgRightMoving"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilDBGridOptionEx) {
  static const TEnumTypeInfo info(
      "TQuilDBGridOptionEx",
      {"dgBlankRow", "dgTotalHeader", "dgTotalValues", "dgTotalFields", "dgTotalFooter", "dgTotalColLines",
       "dgTotalHeaderBox", "dgTotalValuesBox", "dgTotalFieldsBox", "dgTotalFooterBox", "dgTotalDataBoxOnly",
       "dgLoadCurrentOrder", "dgAutoUpdateOrder", "dgAutoAscendOrder", "dgAutoKeepSelection", "dgAutoUpdateSequence",
       "dgDelayUpdateSequence", "dgAutoUpdateTotals", "dgDelayUpdateTotals", "dgCalcInvisibleRows",
       "dgCalcWholeDataSet", "dgCalcSelectedRows", "dgDelaySelectedRows", "dgTotalHeaderSelected",
       "dgTotalValuesSelected", "dgTotalFooterSelected", "dgSelectedAutoHidden", "dgClickSelectOff",
       "dgShowEditorByCharOff"});
  return info;
}

const TEnumTypeInfo& TypeInfo(TQuilDBGridOptionExt) {
  static const TEnumTypeInfo info(
      "TQuilDBGridOptionExt",
      {"dgAutoNumberColumn", "dgAutoSelectColumn", "dgAutoExpandColumn", "dgAutoUpdateListItems",
       "dgDelayUpdateListItems", "dgGridStyleLists", "dgMouseScrolling", "dgMouseTracking", "dgMarkerClearAllowed",
       "dgScrollGridMode", "dgScrollPageMode", "dgScrollRowsMode", "dgForceSystemTheme", "dgForceSystemButton",
       "dgForceSystemMarker", "dgForceCustomized", "dgScaleByParentFont", "dgIncrementalList"});
  return info;
}

}  // namespace quil
