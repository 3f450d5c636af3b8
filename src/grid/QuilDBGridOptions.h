#pragma once
// The grid's option sets. Members are in their published order, so a set's integer
// form is the one stored in forms and layouts (the defaults below are those integers).

#include "framework/rtl/Sets.h"

namespace quil {

class TEnumTypeInfo;

enum TQuilDBGridOption {
  dgEditing, dgAlwaysShowEditor, dgTitles, dgIndicator, dgColumnResize, dgColLines,
  dgRowLines, dgTabs, dgRowSelect, dgAlwaysShowSelection, dgConfirmDelete, dgCancelOnExit,
  dgMultiSelect, dgExtendedSelect, dgInternalSelect, dgRowResize, dgRowScroll, dgHotButtons,
  dgTitleButtons, dgTitleHeaders, dgTitleWidthOff, dgAllowDeleteOff, dgAllowInsertOff,
  dgAutoUnselectOff, dgIndicatorMarkOff, dgMarkerAutoAlign, dgMarkerAutoSwitch,
  dgMarkerAutoToggle, dgMarkerAscendOnly, dgForceSequence, dgThumbTracking, dgRightMoving
};
using TQuilDBGridOptions = TSet<TQuilDBGridOption>;
const TEnumTypeInfo& TypeInfo(TQuilDBGridOption);

enum TQuilDBGridOptionEx {
  dgBlankRow, dgTotalHeader, dgTotalValues, dgTotalFields, dgTotalFooter, dgTotalColLines,
  dgTotalHeaderBox, dgTotalValuesBox, dgTotalFieldsBox, dgTotalFooterBox, dgTotalDataBoxOnly,
  dgLoadCurrentOrder, dgAutoUpdateOrder, dgAutoAscendOrder, dgAutoKeepSelection,
  dgAutoUpdateSequence, dgDelayUpdateSequence, dgAutoUpdateTotals, dgDelayUpdateTotals,
  dgCalcInvisibleRows, dgCalcWholeDataSet, dgCalcSelectedRows, dgDelaySelectedRows,
  dgTotalHeaderSelected, dgTotalValuesSelected, dgTotalFooterSelected, dgSelectedAutoHidden,
  dgClickSelectOff, dgShowEditorByCharOff
};
using TQuilDBGridOptionsEx = TSet<TQuilDBGridOptionEx>;
const TEnumTypeInfo& TypeInfo(TQuilDBGridOptionEx);

enum TQuilDBGridOptionExt {
  dgAutoNumberColumn, dgAutoSelectColumn, dgAutoExpandColumn, dgAutoUpdateListItems,
  dgDelayUpdateListItems, dgGridStyleLists, dgMouseScrolling, dgMouseTracking,
  dgMarkerClearAllowed, dgScrollGridMode, dgScrollPageMode, dgScrollRowsMode,
  dgForceSystemTheme, dgForceSystemButton, dgForceSystemMarker, dgForceCustomized,
  dgScaleByParentFont, dgIncrementalList
};
using TQuilDBGridOptionsExt = TSet<TQuilDBGridOptionExt>;
const TEnumTypeInfo& TypeInfo(TQuilDBGridOptionExt);

enum TGridDrawingOption {
  gdoHighlightText, gdoDataColLines, gdoDataRowLines, gdoSelectedCell, gdoSelectedRow,
  gdoMultiSelected, gdoTotalSelected, gdoStripedRows, gdoEditorColor
};
using TGridDrawingOptions = TSet<TGridDrawingOption>;

enum TQuilHintOption {
  hoTitleHints, hoShowTitleHints, hoEditorHints, hoShowEditorHints, hoShowToolTips,
  hoKeepShowToolTips, hoAlwaysShowToolTips, hoDataHints, hoShowDataHints, hoAllowForGraphics,
  hoTotalHints, hoShowTotalHints, hoShowTotalToolTips
};
using TQuilHintOptions = TSet<TQuilHintOption>;

enum TQuilResizeOption { roColumnResize, roOptimalWidth, roDefaultWidth, roColumnMoving };
using TQuilResizeOptions = TSet<TQuilResizeOption>;

enum TMultiSelection { msNone, msRows, msCols, msCells, msFixed };
using TMultiSelectOptions = TSet<TMultiSelection>;

enum TSystemStyleElement {
  sseFixed, sseText, sseButton, sseMarker, sseData, sseFont, sseClient, sseSearch
};
using TSystemStyleElements = TSet<TSystemStyleElement>;

inline constexpr TQuilDBGridOptions DefaultGridOptions{
    dgEditing, dgTitles, dgIndicator, dgColumnResize, dgColLines, dgRowLines, dgTabs,
    dgConfirmDelete, dgCancelOnExit, dgExtendedSelect, dgInternalSelect, dgRowResize,
    dgRowScroll, dgHotButtons, dgTitleButtons, dgTitleHeaders, dgTitleWidthOff,
    dgMarkerAutoAlign, dgMarkerAutoToggle};

inline constexpr TQuilDBGridOptionsEx DefaultGridOptionsEx{
    dgTotalHeaderBox, dgTotalValuesBox, dgTotalFieldsBox, dgTotalFooterBox, dgAutoAscendOrder,
    dgAutoUpdateSequence, dgDelayUpdateSequence, dgAutoUpdateTotals, dgDelayUpdateTotals,
    dgCalcWholeDataSet, dgCalcSelectedRows, dgDelaySelectedRows, dgSelectedAutoHidden};

inline constexpr TQuilDBGridOptionsExt DefaultGridOptionsExt{
    dgAutoUpdateListItems, dgDelayUpdateListItems, dgGridStyleLists, dgMouseScrolling,
    dgForceSystemButton, dgForceSystemMarker};

inline constexpr TGridDrawingOptions DefaultDrawingOptions =
    TGridDrawingOptions::FromInt((1u << (gdoEditorColor + 1)) - 1) - gdoStripedRows - gdoEditorColor;

inline constexpr TQuilHintOptions DefaultHintOptions{
    hoTitleHints, hoShowTitleHints, hoEditorHints, hoShowToolTips, hoShowTotalToolTips};

inline constexpr TQuilResizeOptions DefaultResizeOptions{
    roColumnResize, roOptimalWidth, roDefaultWidth, roColumnMoving};

inline constexpr TMultiSelectOptions DefaultMultiSelectOptions{msRows};

inline constexpr TSystemStyleElements DefaultSystemStyleElements{
    sseFixed, sseText, sseButton, sseMarker, sseData};

}  // namespace quil
