#pragma once
// TQuilCustomDBGrid: the frame of the data grid. It owns the columns, the data link
// and the option sets, runs every change of structure through the layout transaction,
// and maps the base grid's rows onto the data link's record window.

#include <memory>
#include <vector>

#include "framework/controls/Grids.h"
#include "framework/controls/Timer.h"
#include "framework/graphics/StyleServices.h"
#include "framework/rtl/FactoryPart.h"
#include "grid/QuilDBGridCellTypes.h"
#include "grid/QuilDBGridColumns.h"
#include "grid/QuilDBGridFilter.h"
#include "grid/QuilDBGridGlyphs.h"
#include "grid/QuilDBGridGradient.h"
#include "grid/QuilDBGridOptions.h"
#include "grid/QuilDBGridParts.h"
#include "grid/QuilDBGridSearch.h"
#include "grid/QuilDBGridSettings.h"
#include "grid/QuilDBGridStyle.h"
#include "grid/QuilDBGridTreeView.h"
#include "grid/QuilScrollProp.h"
#include "grid/QuilGridDataLink.h"

namespace quil {

class TDataLink;
class TDataSet;
struct TCellLook;
enum class TFixedCellState;
struct TCellTextMatch;
class TDataSource;
class TField;
class TPopupMenu;
class TReader;
class TWriter;

// Posted to the grid to lay it out later, when a layout cannot run now.
constexpr UINT CM_DEFERLAYOUT = WM_USER + 100;

// Milliseconds that the deferred work waits for the changes to stop; an application may
// change it before use.
extern int DelayInterval;

enum TQuilDelayTimer { dtEndSelect, dtListItems, dtSequence, dtTotals };

// Held while the columns are written to or read from a column stream.
enum TGridStreaming { gsReading, gsWriting };

// The three selection colors: those a generation of the system chose, or those painting
// resolves, with clNone where one is off.
struct TSelectionColors {
  TColor selection = clNone;
  TColor selectRow = clNone;
  TColor selectCell = clNone;
};
using TGridStreamingState = TSet<TGridStreaming>;

using TDBGridClickEvent = TEvent<void(TQuilColumn* column)>;
using TDBGridColumnScrollEvent = TEvent<void(int dataCol)>;

class TQuilCustomDBGrid : public TCustomGrid {
public:
  explicit TQuilCustomDBGrid(TComponent* owner);
  ~TQuilCustomDBGrid() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // --- Option sets; each setter keeps the sets' mutual constraints.
  TQuilDBGridOptions Options() const { return options_; }
  void SetOptions(TQuilDBGridOptions value);
  void SwitchOptions(TQuilDBGridOptions members, bool include);
  TQuilDBGridOptionsEx OptionsEx() const { return optionsEx_; }
  void SetOptionsEx(TQuilDBGridOptionsEx value);
  void SwitchOptionsEx(TQuilDBGridOptionsEx members, bool include);
  TQuilDBGridOptionsExt OptionsExt() const { return optionsExt_; }
  void SetOptionsExt(TQuilDBGridOptionsExt value);
  void SwitchOptionsExt(TQuilDBGridOptionsExt members, bool include);
  TGridDrawingOptions DrawingOptions() const { return drawingOptions_; }
  void SetDrawingOptions(TGridDrawingOptions value);
  void SwitchDrawingOptions(TGridDrawingOptions members, bool include);
  TQuilHintOptions HintOptions() const { return hintOptions_; }
  void SetHintOptions(TQuilHintOptions value) { hintOptions_ = value; }
  void SwitchHintOptions(TQuilHintOptions members, bool include);
  TQuilResizeOptions ResizeOptions() const { return resizeOptions_; }
  void SetResizeOptions(TQuilResizeOptions value);
  void SwitchResizeOptions(TQuilResizeOptions members, bool include);
  TMultiSelectOptions MultiSelectOptions() const { return multiSelectOptions_; }
  void SetMultiSelectOptions(TMultiSelectOptions value);
  void SwitchMultiSelectOptions(TMultiSelectOptions members, bool include);
  TSystemStyleElements SystemStyleElements() const { return systemStyleElements_; }
  void SetSystemStyleElements(TSystemStyleElements value);
  void SwitchSystemStyleElements(TSystemStyleElements members, bool include);

  // --- The layout transaction
  void BeginUpdate();
  void EndUpdate();
  void BeginLayout();
  void EndLayout();
  void CancelLayout();
  // Lays out later through CM_DEFERLAYOUT, and ends the running transaction without it.
  void DeferLayout();
  // Opens a transaction when none runs; false when one does.
  bool AcquireLayoutLock();
  // Lays out now, unless a transaction that will do it is running.
  virtual void LayoutChanged();
  void InternalLayout();
  int UpdateLock() const { return updateLock_; }
  int LayoutLock() const { return layoutLock_; }

  // --- Owned parts
  TQuilDBGridColumns* Columns() const { return columns_.get(); }
  // A new, empty collection of the grid's own column kind, owned by the caller.
  TQuilDBGridColumns* MakeColumns() { return CreateColumns(); }
  // False for a collection from MakeColumns: its changes must not reach the grid.
  bool OwnsColumns(const TQuilDBGridColumns* columns) const { return columns_.Made() && columns_.get() == columns; }
  TQuilGridDataLink* DataLink() const { return dataLink_.get(); }
  TQuilGridStyle* GridStyle() const { return gridStyle_.get(); }
  void SetGridStyle(const TQuilGridStyle* value) { gridStyle_->Assign(value); }
  TQuilDBGridTotals* Totals() const { return totals_.get(); }
  TFont* TitleFont() const { return titleFont_.get(); }
  TFont* HeaderFont() const { return headerFont_.get(); }
  TQuilDBGridFilter* FilterGrid() const { return filterGrid_.get(); }
  TQuilDBGridSearch* Search() const { return search_.get(); }
  TQuilDBGridTreeView* TreeView() const { return treeView_.get(); }
  TQuilDBGridSettings* Settings() const { return settings_.get(); }
  void SetSettings(const TQuilDBGridSettings* value) { settings_->Assign(value); }
  // Hears each layout the settings build (apply false) and apply (apply true).
  TQuilDBGridLayoutEvent OnLayout;
  TQuilScrollProp* ScrollProp() const { return scrollProp_.get(); }
  TQuilDBGridGradient* Gradient() const { return gradient_.get(); }
  // Takes the settings, and repaints when any differs.
  void SetGradient(const TQuilDBGridGradient* value) { gradient_->Change(value); }
  // The columns whose GetShowing holds, in column order.
  const std::vector<TQuilColumn*>& VisibleColumns() const { return visibleColumns_; }

  // --- Data binding
  TDataSource* DataSource() const;
  void SetDataSource(TDataSource* value);
  TDataSet* DataSet() const;

  // --- Columns: raw columns count the indicator, data columns index Columns.
  int RawToDataColumn(int raw) const { return raw - indicatorOffset_; }
  int DataToRawColumn(int data) const { return data + indicatorOffset_; }
  int SelectedIndex() const { return RawToDataColumn(Col()); }
  // The data column at LeftCol: the first that scrolls, as the base grid keeps LeftCol past the frozen ones.
  int GetDataLeftCol() const { return RawToDataColumn(LeftCol()); }
  void SetSelectedIndex(int dataCol);
  TQuilColumn* SelectedColumn() const;
  void SetSelectedColumn(TQuilColumn* column);
  TField* SelectedField() const;
  void SetSelectedField(TField* field);
  // Frozen data columns; negative counts as 0, and a layout keeps one scrollable.
  int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int value);

  // FIXME: master/detail grids keep the detail on its master's record here.
  void Synchronize() {}

  // --- Columns and their streams
  TGridStreamingState StreamingState() const { return streamingState_; }
  void SetStreamingState(TGridStreamingState value) { streamingState_ = value; }
  // Lets an automatic column write a new width back to its field as DisplayWidth.
  bool UpdateFields() const { return updateFields_; }
  void SetUpdateFields(bool value) { updateFields_ = value; }
  // The first column from startIndex on whose FieldName is fieldName, any case; none
  // when no column has it. ColumnByName raises EInvalidGridOperation instead.
  TQuilColumn* FindColumn(const QString& fieldName, int startIndex = 0) const;
  TQuilColumn* ColumnByName(const QString& fieldName, int startIndex = 0) const;
  TQuilColumn* ColumnNames(const QString& fieldName) const { return ColumnByName(fieldName, 0); }
  // Walks up from column to its ancestor at depth; none past the top.
  TQuilColumn* ColumnAtDepth(TQuilColumn* column, int depth) const;
  // The column under the pressed title, of the hot title button and of the open filter
  // list; nullptr when none.
  TQuilColumn* PressedColumn() const { return pressedColumn_; }
  void SetPressedColumn(TQuilColumn* column) { pressedColumn_ = column; }
  TQuilColumn* HotColumn() const { return hotColumn_; }
  void SetHotColumn(TQuilColumn* column) { hotColumn_ = column; }
  TQuilColumn* FilterListColumn() const { return filterListColumn_; }
  void SetFilterListColumn(TQuilColumn* column) { filterListColumn_ = column; }
  // Clears every reference to a column that leaves the collection.
  void ForgetColumn(TQuilColumn* column);
  // An expandable column was expanded or collapsed; fires OnColExpand.
  virtual void ColExpand(TQuilColumn* column);
  // An expand box was toggled; fires OnCellExpand.
  virtual void CellExpand(TQuilColumn* column);
  // The first scrollable column shown changed; fires OnColumnScroll with its data column.
  virtual void ColumnScroll(int dataCol);
  // Tells a form designer that the columns changed; a design-time host overrides it.
  virtual void UpdateDesigner() {}
  TDBGridClickEvent OnColExpand;
  TDBGridClickEvent OnCellExpand;
  TDBGridColumnScrollEvent OnColumnScroll;

  // FIXME: column sizing stretches the visible columns over the client width; until
  // then StretchMode is only stored and stretch never becomes active.
  bool StretchMode() const { return stretchMode_; }
  void SetStretchMode(bool value) { stretchMode_ = value; }
  bool StretchActive() const { return false; }
  bool StretchRunning() const { return stretchRunning_; }
  void SetStretchRunning(bool value) { stretchRunning_ = value; }
  int StretchPixelsLeft() const { return 0; }
  int StretchBasesLeft() const { return 0; }
  virtual void StretchGrid() {}
  // Starts or ends stretching as StretchMode and the link say.
  void SetStretchActive() {}
  // The raw column whose width changed last; -1 once the base grid took it in.
  int ResizedCol() const { return resizedCol_; }
  void SetResizedCol(int rawCol) { resizedCol_ = rawCol; }

  // FIXME: ordering brackets marker changes and applies the order at the end.
  void BeginOrderUpdate() {}
  void EndOrderUpdate() {}
  virtual void SetOrderFields(const QString&) {}

  // --- Properties that shape rows and columns
  int IndicatorWidth() const { return indicatorWidth_; }
  void SetIndicatorWidth(int value);
  int LinesCount() const { return linesCount_; }
  void SetLinesCount(int value);
  int TitleLinesCount() const { return titleLinesCount_; }
  void SetTitleLinesCount(int value);
  int HeaderLinesCount() const { return headerLinesCount_; }
  void SetHeaderLinesCount(int value);
  // Below 1 counts as 1; rows and the buffer follow the new line width.
  void SetGridLineWidth(int value);
  // The client area changes, and the rows that fit with it.
  void SetBorderStyle(TBorderStyle value);
  // FIXME: scrolling owns the bars the grid asks for, both by default; the base grid's
  // bar is only the horizontal one, since the vertical bar belongs to the record window.
  TScrollStyle ScrollBars() const { return ssBoth; }
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool value) { readOnly_ = value; }
  // Setting Ctl3D takes the choice away from the fixed style.
  bool GridCtl3D() const { return Ctl3D(); }
  void SetCtl3D(bool value);
  bool Ctl3DAuto() const { return ctl3DAuto_; }
  void SetCtl3DAuto(bool value);
  bool ParentCtl3D() const { return parentCtl3D_; }
  void SetParentCtl3D(bool value) { parentCtl3D_ = value; }
  bool IsCtl3DStored() const { return !parentCtl3D_ && !ctl3DAuto_; }
  bool DragRows() const { return dragRows_; }
  void SetDragRows(bool value) { dragRows_ = value; }
  bool GridEnabled() const { return Enabled(); }
  void SetEnabled(bool value) override;
  // The control's own hint, kept apart from the base one that cell hints overwrite.
  const QString& Hint() const { return hint_; }
  void SetHint(const QString& value);
  TColor HeaderColor() const { return headerColor_; }
  void SetHeaderColor(TColor value);
  // -1 leaves a limit open.
  int LinesCountMax() const { return linesCountMax_; }
  void SetLinesCountMax(int value) { SetLimit(linesCountMax_, value); }
  int LinesCountMin() const { return linesCountMin_; }
  void SetLinesCountMin(int value) { SetLimit(linesCountMin_, value); }
  int DefaultWidthMax() const { return defaultWidthMax_; }
  void SetDefaultWidthMax(int value) { SetLimit(defaultWidthMax_, value); }
  int DefaultWidthMin() const { return defaultWidthMin_; }
  void SetDefaultWidthMin(int value) { SetLimit(defaultWidthMin_, value); }
  int StretchWidthMax() const { return stretchWidthMax_; }
  void SetStretchWidthMax(int value) { SetLimit(stretchWidthMax_, value); }
  int StretchWidthMin() const { return stretchWidthMin_; }
  void SetStretchWidthMin(int value) { SetLimit(stretchWidthMin_, value); }

  // --- Glyphs (QuilDBGridMarkers.cpp); the look changes call LayoutChanged.
  TMarkerStyle MarkerStyle() const { return markerStyle_; }
  void SetMarkerStyle(TMarkerStyle value);
  TMarkerTransparent MarkerTransparent() const { return markerTransparent_; }
  void SetMarkerTransparent(TMarkerTransparent value);
  // An application's lists in place of the built-in row marks and sort markers.
  TImageList* IndicatorImages() const { return indicatorImages_; }
  void SetIndicatorImages(TImageList* value);
  TImageList* TitleMarkers() const { return titleMarkers_; }
  void SetTitleMarkers(TImageList* value);
  TImageList* GetIndicators() const;
  TImageList* GetMarkers() const;
  // The built-in lists; the marker list exists from the first layout on.
  TImageList* Indicators() const { return indicators_.get(); }
  TImageList* Markers() const { return markers_.get(); }
  TImageList* CheckBoxes() const { return checkBoxes_.get(); }
  TImageList* ExpandBoxes() const { return expandBoxes_.get(); }
  // Rebuilds the built-in lists when the look or the pixels per inch changed.
  void RecreateMarkers();
  // The frame of a box around rect, in style resolved by CheckBoxStyle.
  void DrawCheckBox(TCanvas* canvas, const TRect& rect, TCheckBoxStyle style) const;
  // The data cell whose check box the pointer is on (the track cell), whether the
  // pointer is over it (hot) and whether a press on it is held; a themed box shows them.
  // FIXME: mouse tracking keeps these as the pointer moves over and presses check box
  // cells; until then no cell is hot.
  TGridCoord TrackCell() const { return trackCell_; }
  void SetTrackCell(TGridCoord cell) { trackCell_ = cell; }
  bool CellHot() const { return cellHot_; }
  void SetCellHot(bool value) { cellHot_ = value; }
  bool CellPressed() const { return cellPressed_; }
  void SetCellPressed(bool value) { cellPressed_ = value; }

  // --- Titles, header bands, the indicator and the corner (QuilDBGridFixedCells.cpp,
  // QuilDBGridTitleRects.cpp). The fonts take a copy; a change relays out.
  void SetTitleFont(const TFont* value);
  void SetHeaderFont(const TFont* value);
  bool IsTitleFontStored() const;
  bool IsHeaderFontStored() const;
  bool IsHeaderColorStored() const { return headerColor_ != FixedColor(); }
  // The source of the titles' ImageIndex and of a FillerIndex of 0 and above.
  TImageList* TitleImages() const { return titleImages_; }
  void SetTitleImages(TImageList* value);
  // What the corner shows: an image of TitleImages from 0 on, nothing for -1, the
  // built-in indicator |value| - 2 below that.
  int FillerIndex() const { return fillerIndex_; }
  void SetFillerIndex(int value);
  // The corner acts as a button.
  bool FillerButton() const { return fillerButton_; }
  void SetFillerButton(bool value) { fillerButton_ = value; }
  const QString& FillerHint() const { return fillerHint_; }
  void SetFillerHint(const QString& value) { fillerHint_ = value; }
  const QString& IndicatorHint() const { return indicatorHint_; }
  void SetIndicatorHint(const QString& value) { indicatorHint_ = value; }
  TPopupMenu* FillerPopupMenu() const { return fillerPopupMenu_; }
  void SetFillerPopupMenu(TPopupMenu* value);
  TPopupMenu* IndicatorPopupMenu() const { return indicatorPopupMenu_; }
  void SetIndicatorPopupMenu(TPopupMenu* value);
  // The visible part of the title that stands for column in title row (the title of its
  // ancestor there, master), across the columns of that title; empty without a master.
  TRect CalcTitleRect(TQuilColumn* column, int row, TQuilColumn*& master) const;
  // The same title whole, which may reach out of sight: its text is laid out in it.
  TRect FullTitleRect(TQuilColumn* column, int row, TQuilColumn*& master) const;
  // Band row of column's title within titleRect, across the neighbours that share it;
  // visibleRect gets its part on the screen.
  TRect HeaderRect(TQuilColumn* column, int row, const TRect& titleRect, TRect& visibleRect) const;
  // The band of column's title at client pixel row y; -1 outside the bands.
  int HeaderRow(int y, TQuilColumn* column) const;
  // How the tracking title (HotColumn, none for the corner) is drawn: pressed, under the
  // mouse, and with the press or the mouse on its button. The mouse sets them.
  bool TitlePressed() const { return titlePressed_; }
  void SetTitlePressed(bool value) { titlePressed_ = value; }
  bool HotTitle() const { return hotTitle_; }
  void SetHotTitle(bool value) { hotTitle_ = value; }
  bool HotExpand() const { return hotExpand_; }
  void SetHotExpand(bool value) { hotExpand_ = value; }

  // --- The row window
  int TitleOffset() const { return titleOffset_; }
  int IndicatorOffset() const { return indicatorOffset_; }
  // The blank row and the total rows below the data.
  int TotalRows() const { return totalRows_; }
  int TotalHeaderRows() const { return totalHeaderRows_; }
  int TotalValuesRows() const { return totalValuesRows_; }
  int TotalFooterRows() const { return totalFooterRows_; }
  int TotalRowHeight() const { return totalRowHeight_; }
  int DataLineHeight() const { return dataLineHeight_; }
  // One header band above the titles; 0 without dgTitleHeaders.
  int TitleLineHeight() const { return titleLineHeight_; }
  // The layout change comes from the data set (its fields), not from the grid.
  bool LayoutFromDataSet() const { return layoutFromDataSet_; }
  int GetTotalRowCount() const;
  int GetTotalFieldsRowCount() const;
  int GetRowLineWidth() const;
  int GetColLineWidth() const;
  int GetRowHeight() const;
  int GetTitleHeight() const;
  int GetTotalHeight() const;
  int GetDataRowsHeight() const;
  int GetDataHeight() const;
  int GetBlankHeight() const;
  bool GetAlignTotalsToBorder() const;
  bool GetAlignStretchToBorder() const;
  int GetVisibleRowCount() const;
  int GetDataRowCount() const;
  int GetColsWidth(int count) const;
  int GetColumnsWidth() const;
  int GetFixedColsWidth() const;
  // Sizes the link's buffer to the rows that fit and composes the base grid's rows.
  void UpdateRowCount();

  // --- Following the data
  void DataChanged();
  void RecordChanged(TField* field);
  void EditingChanged();
  void UpdateActive();
  void UpdateData();
  virtual void Scroll(int distance);
  virtual void LinkActive(bool value);
  virtual void DefineFieldMap();

  // --- Movement
  // Moves the record window with the cursor held on its screen row, within the data.
  bool GetScrollGridMode() const;
  int MoveBy(int distance, bool force = false);
  void MoveCol(int rawCol, int direction);
  int GetPosition() const;
  void SetPosition(int index);
  // The active record's number from 1, -1 when none is known; the count, 0 when unknown.
  int GetRecNumber() const;
  void SetRecNumber(int value);
  int GetRecCount() const;
  void SetupRecNumber(int value);
  void SetupRecCount(int value);

  // --- Field access
  int GetFieldCount() const;
  TField* GetFields(int index) const;
  bool ValidFieldIndex(int index) const;
  TField* GetColField(int dataCol) const;
  // The column's display text; empty where GetColField has no field.
  QString GetFieldValue(int dataCol) const;

  // --- Cell text (QuilDBGridText.cpp): each text between a field and a cell, an editor,
  // a list or the clipboard passes ColGetText or ColSetText with its kind.
  virtual QString ColGetText(TQuilColumn* column, const QString& text, TTextKind textKind);
  virtual QString ColSetText(TQuilColumn* column, const QString& text);
  // One item between its stored and its shown form: lookup, pick list, record number.
  virtual QString ColGetItem(TQuilColumn* column, const QString& text, TTextKind textKind);
  virtual QString ColSetItem(TQuilColumn* column, const QString& text);
  // An edit reached the column's field; fires OnColTextChanged.
  virtual void ColTextChanged(TQuilColumn* column);
  // Whether a check box or a list may write into the column now; puts the data set in
  // edit state and marks the record modified when it may.
  bool CanColumnModify(TQuilColumn* column);
  // The text last given to or taken from the in-place editor.
  const QString& CellEditText() const { return editText_; }
  void SetCellEditText(const QString& value) { editText_ = value; }
  TColGetTextEvent OnColGetText;
  TColSetTextEvent OnColSetText;
  TDBGridClickEvent OnColTextChanged;
  TNotifyEvent OnColEnter;
  TNotifyEvent OnColExit;

  // FIXME: row and column selection keep the selected rows and columns; until then the
  // kind stays msRows, no column restricts a selection and no cell is multi-selected.
  TMultiSelection MultiSelect() const { return msRows; }
  bool IsColMultiSelected(int dataCol) const;
  bool IsCellMultiSelected(int dataCol) const;

  // --- Painting (QuilDBGridPaint*.cpp). While a cell paints, the grid holds its raw
  // cell, the row offset of its record from the active one, Highlight and Selections;
  // outside a paint the cell is -1, -1.
  int PaintedCol() const { return paint_.rawCol; }
  int PaintedRow() const { return paint_.rawRow; }
  int PaintedRowOffset() const { return paint_.rowOffset; }
  bool CellHighlight() const { return paint_.highlight; }
  TSelections CellSelections() const { return paint_.selections; }
  // Whether the cell's text takes the selection's text color.
  virtual bool HighlightCell(int dataCol, int dataRow, const QString& value, TGridDrawState state);
  // The default drawing of a data cell again, as an OnDrawColumnCell handler may call it.
  void DefaultDrawColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, TGridDrawState state);
  // The field's display text, alone, with the field's alignment.
  void DefaultDrawDataCell(const TRect& rect, TField* field, TGridDrawState state);
  bool UseRightToLeftAlignmentForField(const TField* field, TAlignment alignment) const;
  bool UseRightToLeftAlignmentForColumn(const TQuilColumn* column) const;
  TCalcImageIndexEvent OnCalcImageIndex;
  TDrawColumnCellEvent OnDrawColumnCell;
  TDrawDataCellEvent OnDrawDataCell;
  TPaintColumnCellEvent OnPaintColumnCell;

  // --- Deferred work
  void UpdateTotals(bool automatic);
  void UpdateSequence(bool automatic);
  void UpdateListItems(bool automatic);
  // Settles every delayed task, as before the data set changes.
  virtual void PerformDelayed();
  bool GetUpdateInProgress() const { return busyCount_ > 0; }
  TTimer* DelayTimer(TQuilDelayTimer which) const { return timers_[which].get(); }
  // The base grid row that was current when last drawn; -1 before any paint.
  int LastDrawnCurrentRow() const { return lastDrawnCurrentRow_; }
  // The position lock: raised while the grid moves the data set itself.
  int PositionLock() const { return positionLock_; }

  // The base grid row of a buffered record.
  int DataRowToRaw(int bufferRow) const { return bufferRow + titleOffset_; }

  // --- Visual styles and colors (QuilDBGridStyle.cpp, QuilDBGridColors.cpp,
  // QuilDBGridInvalidate.cpp). A color property may hold clNone (none) or clDefault
  // (the default of its Default... operation).
  TFixedStyle FixedStyle() const { return fixedStyle_; }
  void SetFixedStyle(TFixedStyle value);
  TFixedTheme FixedTheme() const { return fixedTheme_; }
  void SetFixedTheme(TFixedTheme value);
  // Also moves FillerColor, HeaderColor and Totals.Color that still follow it.
  void SetFixedColor(TColor value);
  TColor FillerColor() const { return fillerColor_; }
  void SetFillerColor(TColor value);
  bool IsFillerColorStored() const { return fillerColor_ != FixedColor(); }
  // Worked out from FixedTheme and Gradient.Active; setting it sets those.
  TGridDrawingStyle DrawingStyle() const { return GetDrawingStyle(); }
  void SetDrawingStyle(TGridDrawingStyle value);
  TGridDrawingStyle GetDrawingStyle() const;
  TFocusRect FocusRect() const { return focusRect_; }
  void SetFocusRect(TFocusRect value);
  THotButtons HotButtons() const { return hotButtons_; }
  void SetHotButtons(THotButtons value);
  TListBorder ListBorder() const { return listBorder_; }
  void SetListBorder(TListBorder value);
  TColor HighlightText() const { return highlightText_; }
  void SetHighlightText(TColor value) { SetDrawingColor(highlightText_, value, gdoHighlightText); }
  TColor SelectCellColor() const { return selectCellColor_; }
  void SetSelectCellColor(TColor value) { SetDrawingColor(selectCellColor_, value, gdoSelectedCell); }
  TColor SelectRowColor() const { return selectRowColor_; }
  void SetSelectRowColor(TColor value) { SetDrawingColor(selectRowColor_, value, gdoSelectedRow); }
  TColor SelectionColor() const { return selectionColor_; }
  void SetSelectionColor(TColor value) { SetDrawingColor(selectionColor_, value, gdoMultiSelected); }
  // Every second row; stripes keep to the screen rows, so scrolling repaints the data.
  TColor StripeColor() const { return stripeColor_; }
  void SetStripeColor(TColor value) { SetDrawingColor(stripeColor_, value, gdoStripedRows); }
  TColor EditorColor() const { return editorColor_; }
  void SetEditorColor(TColor value);
  TColor DataColLineColor() const { return dataColLineColor_; }
  void SetDataColLineColor(TColor value) { SetDrawingColor(dataColLineColor_, value, gdoDataColLines); }
  TColor DataRowLineColor() const { return dataRowLineColor_; }
  void SetDataRowLineColor(TColor value) { SetDrawingColor(dataRowLineColor_, value, gdoDataRowLines); }

  // Questions of style that painting asks.
  bool IsGridThemed(bool force) const;
  bool IsCustomStyle(TStyleElements elements) const;
  bool IsSystemStyle(TSystemStyleElements elements) const;
  bool IsSystemTheme() const;
  bool IsThemeTransparent() const;
  virtual THotButtons HotButtonsStyle() const;
  virtual TFocusRect FocusRectStyle() const;
  virtual TListBorder ListBorderStyle() const;
  // The automatic members by FixedStyle; the others stay.
  virtual TCheckBoxStyle CheckBoxStyle(TCheckBoxStyle style) const;

  // Default colors, for GetTrueColor.
  TColor DefaultSelectCellColor() const;
  TColor DefaultSelectRowColor() const;
  TColor DefaultSelectionColor() const;
  // Those three as a generation of the system chose them; the ones above ask for the
  // running system's.
  static TSelectionColors DefaultSelectionColors(TSystemGeneration generation, bool gradientActive);
  TColor DefaultHighlightText() const { return clHighlightText; }
  TColor DefaultStripeColor() const { return cl3DLight; }
  TColor DefaultEditorColor() const { return clInfoBk; }
  TColor DefaultDataLineColor() const;
  TColor GetFixedLineColor() const;
  // The grid element's text color when the style gives one, else the style's font.
  TColor GetStyleFontColor(TStyleFont styleFont, TThemedGrid element) const;

  // The named style tables, shared by all grids: a shade for ShadowColor (FixedText,
  // SelectRow), the pixels a selection overlaps its cell (CellFrame), flatness (Flat).
  // A name absent from a table gives 0, false.
  static int GetCellFrameStyle(const QString& name);
  static void SetCellFrameStyle(const QString& name, int value);
  static int GetFixedTextStyle(const QString& name);
  static void SetFixedTextStyle(const QString& name, int value);
  static int GetSelectRowStyle(const QString& name);
  static void SetSelectRowStyle(const QString& name, int value);
  static bool GetFlatStyle(const QString& name);
  static void SetFlatStyle(const QString& name, bool value);
  // The same for the active style.
  static int GetCellFrameActiveStyle();
  static void SetCellFrameActiveStyle(int value);
  static int GetFixedTextActiveStyle();
  static void SetFixedTextActiveStyle(int value);
  static int GetSelectRowActiveStyle();
  static void SetSelectRowActiveStyle(int value);
  static bool GetFlatActiveStyle();
  static void SetFlatActiveStyle(bool value);
  static void GetCellFrameRect(TRect& rect);
  static bool IsFlatStyle() { return GetFlatActiveStyle(); }
  static TColor GetFixedTextSelected();
  static TColor GetSelectRowSelected();
  // False keeps the system's own look out of the grids (IsSystemStyle).
  static bool SystemStyleEnabled();
  static void SetSystemStyleEnabled(bool value);

  // The border: Ctl3D chosen by the look while Ctl3DAuto holds, and the frame drawn
  // over the base's under the softer fixed styles.
  void UpdateBorder(bool recreate);
  // Draws that frame; only inside the paint of the window's frame, which calls it.
  virtual void InvalidateBorder();
  // The square between the scroll bars, in the same paint; the base fills it.
  virtual void InvalidateCorner();

  // Each invalidates exactly what its change touches; none without a window.
  // Without double buffering, stands still while the row count is being worked out:
  // that paints once at its end.
  void Invalidate() override;
  void InvalidateBox(int rawCol, int rawRow);
  void InvalidateCol(int rawCol);
  void InvalidateRow(int rawRow);
  void InvalidateData();
  // Null: the whole title area.
  void InvalidateTitle(TQuilColumn* column);
  void InvalidateTitles();
  void InvalidateTotals();
  // The whole grid when a showing column's image tiles by kind or over the grid; true
  // when it did.
  bool InvalidateTile(TImageDraw kind);

  void DefineProperties(TFiler* filer) override;
  // True when a field is referenced by more than one column or total cell, so that
  // dropping one reference must keep the field's free notification.
  virtual bool NeedsNotification(TComponent* component) const;
  // FIXME: ordering composes the text from the titles' markers.
  virtual QString GetOrderFields() const { return QString(); }

protected:
  friend class TQuilGridDataLink;
  // An expand box's state passes CalcImageIndex.
  friend class TQuilColumn;

  void CMBiDiModeChanged(TMessage& message) override;
  void WMNCPaint(TMessage& message) override;
  void CMStyleChanged(TMessage& message) override;

  void Loaded() override;
  void Notification(TComponent* component, TOperation operation) override;
  void Dispatch(TMessage& message) override;
  void DrawCell(int col, int row, const TRect& rect, TGridDrawState state) override;
  void WMSize(TMessage& message) override;
  void RowHeightsChanged() override;
  void TopLeftChanged() override;
  void CMExit(TMessage& message) override;

  virtual TQuilDBGridColumns* CreateColumns();
  virtual TQuilGridDataLink* CreateDataLink();
  virtual TQuilGridStyle* CreateGridStyle();
  virtual TQuilDBGridTotals* CreateTotals();
  virtual TDataLink* CreateTotalDataLink();
  virtual TQuilDBGridFilter* CreateFilter();
  virtual TQuilDBGridSearch* CreateSearch();
  virtual TQuilDBGridTreeView* CreateTreeView();
  virtual TQuilDBGridSettings* CreateSettings();
  virtual TQuilScrollProp* CreateScrollProp();
  virtual TQuilDBGridGradient* CreateGradient();
  TInplaceEdit* CreateEditor() override;
  // The selected column's edit text, kept as the edit text too.
  QString GetEditText(int col, int row) override;
  void SetEditText(int col, int row, const QString& value) override;
  int GetEditLimit() override;
  QString GetEditMask(int col, int row) override;
  bool CanEditModify() override;
  bool CanEditShow() override;
  // Painting hooks; each fires the event of its name.
  virtual void CalcImageIndex(TQuilColumn* column, int& index);
  virtual void PaintColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, bool highlight,
                               TSelections selections, TColor& color, TFont* font, TPersistent*& image);
  virtual void DrawDataCell(const TRect& rect, TField* field, TGridDrawState state);
  virtual void DrawColumnCell(const TRect& rect, int dataCol, TQuilColumn* column, TGridDrawState state);
  // Keeps the font color that PaintColumnCell chose under a style; cleared per cell.
  bool StyleLock() const { return paint_.styleLock; }
  void SetStyleLock(bool value) { paint_.styleLock = value; }
  // The cells draw their own focus frame; the base draws only the one of a whole row.
  void DrawFocus(const TGridDrawInfo& info) override;
  void TitleFontChanged(TObject* sender);
  void GradientChanged(TObject* sender);
  virtual TTimer* CreateTimer(TQuilDelayTimer which);
  virtual void SetColumnAttributes();
  // Recomputes the record numbers; true when any changed.
  virtual bool UpdateSequenceValues();
  virtual void UpdateScrollBar();
  // The total cells that show totalResult of field, or of any field when it is null,
  // have a new value.
  virtual void TotalsChanged(TTotalResult totalResult, TField* field);
  virtual void ColEnter();
  virtual void ColExit();

  void CMDeferLayout(TMessage& message);
  void DelayUpdateTotals(TObject* sender);
  void DelayUpdateSequence(TObject* sender);
  void DelayUpdateListItems(TObject* sender);
  void DelayEndSelect(TObject* sender);

  // The data set walks under the position lock without the user noticing.
  void DisablePosition();
  void EnablePosition(bool keep);
  void AlwaysShowEditor();
  // FIXME: row and column selection clear the selection lists here.
  void ClearSelection() {}
  // FIXME: row and column selection derive the live kind from MultiSelectOptions, keep
  // the frozen columns out of a column selection unless msFixed, and tell whether
  // columns are selected.
  void UpdateMultiSelect() {}
  void UpdateSelectionOffset() {}
  bool GetColsSelection() const { return false; }
  // FIXME: scrolling shows the horizontal flat scroll bar while the columns are wider
  // than the window.
  void UpdateHorzFlatSB() {}
  // FIXME: search shows its panel and places it beside the grid.
  virtual void ShowSearchPanel() {}
  virtual void UpdateSearchPanel() {}
  // FIXME: column filters take the data set's filter over and give it back, write each
  // column's filter text, and filter the rows.
  void UpdateFilter() {}
  void UpdateFilterText() {}
  virtual void FilterChanged() {}
  // FIXME: ordering reads the data set's order into the markers, or applies the grid's.
  void SetupCurrentOrder() {}
  void UpdateOrder(bool) {}

private:
  class TBusyScope;

  // CreateGradient, with the grid listening to the new gradient.
  TQuilDBGridGradient* MakeGradient();

  // Layout steps
  void FreeMixedColumns();
  void BindColumns();
  void BindDefaultColumns();
  void AddAutomaticColumns();
  void ListVisibleColumns();
  void RepairExpandCols();
  void RepairFixedCols();
  // Read-only for the grid: by its own rule, or a lookup whose key field cannot be written.
  bool ColumnReadOnly(TQuilColumn* column) const;
  int ComputeTitleOffset() const;
  void ComputeTotalRows();
  void MeasureRows();
  void MeasureTitleRows();
  void MeasureTotalRows();
  void ShapeTotalRows(bool forCounting);
  void ApplyBaseOptions(TQuilDBGridOptions value);
  void SetLimit(int& member, int value);
  void FreeDockedGrids();
  // The selected column's edit text is not what the editor holds.
  bool EditTextDiffers();
  void CopyLookupResults(TField* field);
  void WriteColumns(TWriter& writer);
  void ReadColumns(TReader& reader);
  bool ColumnsDiffer(const TFiler* filer) const;
  // Deferred work
  bool StartDelay(TQuilDelayTimer which, bool delayed);
  std::unique_ptr<TTimer> TakeTimer(TQuilDelayTimer which);
  void RecalcTotals();
  bool RecalcSequence();
  void ReloadListItems();
  // Glyphs
  void LoadIndicatorList(int ppi, const QString& styleName);
  void LoadBoxLists(int ppi);
  QString GlyphStyleName() const;
  // Painting: the frame (QuilDBGridPaint.cpp)
  TCellLook MakeCellLook(TGridDrawState state) const;
  void FitCellRect(TRect& rect, const TCellLook& look) const;
  void MergeTotalCell(TRect& rect, TCellLook& look) const;
  bool FocusTest(TGridDrawState state) const;
  // The face every fixed cell shares: background and frame (QuilDBGridPaintFixed.cpp)
  void FixedLook(TCellLook& look) const;
  TFixedCellState FixedState(const TQuilColumn* column, bool pressable, const TCellLook& look) const;
  // Themed or gradient; false leaves the plain fill to the caller.
  bool FixedBackground(const TRect& rect, TQuilColumn* column, bool pressable, const TCellLook& look);
  void ThemedFixedBackground(TRect rect, const TQuilColumn* column, bool pressable, const TCellLook& look);
  void StyledFixedBackground(TRect rect, TFixedCellState state, const TCellLook& look);
  void TabFixedBackground(TRect rect, const TQuilColumn* column, TFixedCellState state, const TCellLook& look);
  void ButtonFixedBackground(TRect rect, TFixedCellState state, const TCellLook& look);
  void DrawFixedElement(const TThemedElementDetails& details, const TRect& rect, TFixedCellState state,
                        const TCellLook& look);
  void GradientFixedBackground(TRect rect, const TQuilColumn* column, bool pressable, const TCellLook& look);
  void DrawFixedFrame(TRect rect, const TQuilColumn* column, bool title, const TCellLook& look);
  void DrawFrameEdges(const TRect& rect, bool mirrored, const TCellLook& look);
  void DrawMergedEdges(const TRect& rect, bool mirrored, const TCellLook& look);
  void DrawTitleStateFrame(TRect rect, bool mirrored, const TCellLook& look);
  bool MirroredEdgeFix(const TCellLook& look) const;
  // The indicator, the corner and the totals (QuilDBGridPaintIndicator.cpp)
  void DrawIndicatorCell(const TRect& rect, const TCellLook& look);
  void DrawFillerImage(TRect rect, const TCellLook& look);
  int RowMarkIndex(const TCellLook& look);
  void DrawRowMark(const TRect& rect, const TCellLook& look);
  void DrawTotalCell(const TRect& rect, TQuilColumn* column, TCellLook& look);
  bool TotalRowBoxed(int totalRow) const;
  // FIXME: row selection tells whether the active record is the selection's anchor.
  bool IsSelectionAnchor() const { return false; }
  // Titles with their bands, buttons, images and markers (QuilDBGridPaintTitle.cpp)
  void DrawTitleCell(const TRect& rect, TQuilColumn* column, const TCellLook& look);
  void DrawHeaderBand(TQuilColumn* master, int band, const TRect& titleRect, int shift, const TCellLook& look);
  void DrawBandLines(TRect rect, const TCellLook& look);
  TPoint TitlePressOffset(const TCellLook& look) const;
  void DrawTitleButton(TRect rect, TQuilColumn* column, const TCellLook& look);
  void DrawButton(TRect rect, TQuilColumn* column, bool pressable, const TCellLook& look);
  void DrawTitleImage(TRect& textRect, const TRect& titleRect, const TQuilColumnTitle* title, bool hasMarker,
                      const TCellLook& look);
  void DrawTitleMarker(TRect& textRect, const TRect& titleRect, const TQuilColumnTitle* title, const TCellLook& look);
  void DrawThemeArrows(const TRect& rect, int markerIndex, const TCellLook& look);
  // A cell as the canvas draws it, and in place for a column without width.
  TRect TitleCellRect(int rawCol, int row) const;
  // Rows 0 to L (QuilDBGridPaintData.cpp)
  void DrawRowCell(TRect rect, TQuilColumn* column, TGridDrawState state, TCellLook& look);
  void FirstColors(const TRect& rect, TQuilColumn* column, TCellLook& look);
  void StripeBrush(TCellLook& look);
  void DrawDataRowCell(TRect rect, TQuilColumn* column, TGridDrawState state, TCellLook& look);
  void ChooseDataBrush(const TCellLook& look, TQuilColumn* column);
  void FrozenSelectionColors(const TRect& rect, const TCellLook& look);
  bool DataGradientFlag(const TCellLook& look) const;
  void DefaultDrawCell(const TRect& rect, TQuilColumn* column, const QString& text, TCellLook& look);
  void StyleFontColor(const TCellLook& look);
  void StyleBackground(TCellLook& look);
  void DrawCellContent(const TRect& rect, TQuilColumn* column, const QString& text, TPersistent* image,
                       const TCellLook& look);
  // Lines, selection fill, search match, focus frame (QuilDBGridPaintLines.cpp)
  // The data cell element of the drawing style in force.
  TThemedGrid GridElement(TThemedGrid element) const;
  TColor OpenEdgeLineColor(const TCellLook& look) const;
  bool LineLeftOut(TColor color, const TCellLook& look, bool& skipped) const;
  void DrawRowLine(const TRect& rect, TCellLook& look);
  void DrawColLine(const TRect& rect, TCellLook& look);
  void DrawLineRun(TColor color, const TCellLook& look, TPoint from, TPoint to, TPoint step, int count);
  bool CellEndsLeft() const;
  TRect GrowOverSkippedLines(TRect rect) const;
  void SelectionFill(TRect rect, const TCellLook& look);
  void GradientFill(const TRect& rect, TColor color);
  void SelectionElement(TRect rect, const TCellLook& look);
  void DrawSelectionElement(TThemedGrid element, const TRect& rect, const TRect& clip, const TCellLook& look);
  void SearchHighlight(const TCellTextMatch& match, const TCellLook& look);
  void DrawCellFocus(TRect rect, const TCellLook& look);
  TRect RowBox(int row) const;
  void ScrollDataRows(int distance);
  // Visual styles
  void SetDrawingColor(TColor& member, TColor value, TGridDrawingOption option);
  bool Ctl3DWanted() const;
  // The base grid's fixed lines: with wide lines, or under a custom style.
  bool FixedLinesShown() const;
  TCanvas* frameCanvas_ = nullptr;  // the window frame's canvas while WMNCPaint runs

  // Parts made by their Create... factories on first use, so that a descendant's
  // factories are the ones that run.
  template <typename Part>
  using TPart = TFactoryPart<TQuilCustomDBGrid, Part>;
  TPart<TQuilDBGridColumns> columns_{this, &TQuilCustomDBGrid::CreateColumns};
  std::vector<TQuilColumn*> visibleColumns_;
  TPart<TQuilGridDataLink> dataLink_{this, &TQuilCustomDBGrid::CreateDataLink};
  TPart<TQuilGridStyle> gridStyle_{this, &TQuilCustomDBGrid::CreateGridStyle};
  TPart<TQuilDBGridTotals> totals_{this, &TQuilCustomDBGrid::CreateTotals};
  std::unique_ptr<TFont> titleFont_;
  std::unique_ptr<TFont> headerFont_;
  TPart<TQuilDBGridFilter> filterGrid_{this, &TQuilCustomDBGrid::CreateFilter};
  TPart<TQuilDBGridSearch> search_{this, &TQuilCustomDBGrid::CreateSearch};
  TPart<TQuilDBGridTreeView> treeView_{this, &TQuilCustomDBGrid::CreateTreeView};
  TPart<TQuilDBGridSettings> settings_{this, &TQuilCustomDBGrid::CreateSettings};
  TPart<TQuilScrollProp> scrollProp_{this, &TQuilCustomDBGrid::CreateScrollProp};
  TPart<TQuilDBGridGradient> gradient_{this, &TQuilCustomDBGrid::MakeGradient};
  std::unique_ptr<TTimer> timers_[4];

  TQuilDBGridOptions options_;
  TQuilDBGridOptionsEx optionsEx_;
  TQuilDBGridOptionsExt optionsExt_;
  TGridDrawingOptions drawingOptions_;
  TQuilHintOptions hintOptions_;
  TQuilResizeOptions resizeOptions_;
  TMultiSelectOptions multiSelectOptions_;
  TSystemStyleElements systemStyleElements_;

  uint8_t updateLock_ = 0;
  uint8_t layoutLock_ = 0;
  uint8_t titleOffset_ = 1;       // title rows; equals the base FixedRows
  uint8_t indicatorOffset_ = 1;   // 1 with dgIndicator
  int totalRows_ = 0;             // blank row plus total rows
  int totalHeaderRows_ = 0;
  int totalValuesRows_ = 0;
  int totalFooterRows_ = 0;
  int totalRowHeight_ = 0;
  int titleLineHeight_ = 0;       // one header band; 0 without dgTitleHeaders
  int dataLineHeight_ = 0;
  bool layoutFromDataSet_ = false;
  int rowCountLock_ = 0;
  int positionLock_ = 0;
  int busyCount_ = 0;
  bool inColExit_ = false;
  int lastDrawnCurrentRow_ = -1;
  QString editText_;
  // What the grid holds while a cell paints.
  struct TCellPaint {
    int rawCol = -1;
    int rawRow = -1;
    int rowOffset = 0;
    bool highlight = false;
    TSelections selections;
    bool colLineSkipped = false;
    bool rowLineSkipped = false;
    bool styleLock = false;
  };
  TCellPaint paint_;
  int lastLeftCol_ = 0;  // the raw LeftCol that OnColumnScroll last heard of

  TGridStreamingState streamingState_;
  bool updateFields_ = true;
  bool stretchMode_ = false;
  bool stretchRunning_ = false;
  int resizedCol_ = -1;
  TQuilColumn* pressedColumn_ = nullptr;
  TQuilColumn* hotColumn_ = nullptr;
  TQuilColumn* filterListColumn_ = nullptr;
  bool titlePressed_ = false;
  bool hotTitle_ = false;
  bool hotExpand_ = false;
  TImageList* titleImages_ = nullptr;
  int fillerIndex_ = -7;
  bool fillerButton_ = true;
  QString fillerHint_;
  QString indicatorHint_;
  TPopupMenu* fillerPopupMenu_ = nullptr;
  TPopupMenu* indicatorPopupMenu_ = nullptr;

  int fixedCols_ = 0;
  int indicatorWidth_ = 20;
  int linesCount_ = 1;
  int titleLinesCount_ = 1;
  int headerLinesCount_ = 1;
  TFixedStyle fixedStyle_ = fsDefault;
  TFixedTheme fixedTheme_ = ftDefault;
  TColor fillerColor_ = clBtnFace;
  TFocusRect focusRect_ = frAuto;
  THotButtons hotButtons_ = hbAuto;
  TListBorder listBorder_ = lbAuto;
  TColor highlightText_ = clDefault;
  TColor selectCellColor_ = clDefault;
  TColor selectRowColor_ = clDefault;
  TColor selectionColor_ = clDefault;
  TColor stripeColor_ = clNone;
  TColor editorColor_ = clNone;
  TColor dataColLineColor_ = clDefault;
  TColor dataRowLineColor_ = clDefault;
  bool readOnly_ = false;
  bool ctl3DAuto_ = true;
  bool parentCtl3D_ = true;
  bool dragRows_ = false;
  QString hint_;
  TColor headerColor_ = clBtnFace;
  int linesCountMax_ = -1;
  int linesCountMin_ = 1;
  int defaultWidthMax_ = -1;
  int defaultWidthMin_ = -1;
  int stretchWidthMax_ = -1;
  int stretchWidthMin_ = -1;

  TMarkerStyle markerStyle_ = msAuto;
  TMarkerTransparent markerTransparent_ = mtAuto;
  TImageList* indicatorImages_ = nullptr;
  TImageList* titleMarkers_ = nullptr;
  std::unique_ptr<TImageList> indicators_;
  std::unique_ptr<TImageList> markers_;
  std::unique_ptr<TImageList> checkBoxes_;
  std::unique_ptr<TImageList> expandBoxes_;
  // What the built-in lists were made for; key -1 before the first RecreateMarkers.
  int markersKey_ = -1;
  QString markersStyleName_;
  int markersPPI_ = 0;
  TGridCoord trackCell_{-1, -1};
  bool cellHot_ = false;
  bool cellPressed_ = false;
};

// The grid as placed on a form: it only publishes.
class TQuilDBGrid : public TQuilCustomDBGrid {
public:
  explicit TQuilDBGrid(TComponent* owner) : TQuilCustomDBGrid(owner) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

}  // namespace quil
