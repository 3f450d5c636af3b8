#pragma once
// TCustomGrid: the base grid of fixed and scrollable cells, and TInplaceEdit, its editor.
//
// How a paint travels: WM_PAINT -> Paint -> CalcDrawInfo (the axes from the first fixed
// cell to the last cell that shows) -> four blocks of cells (fixed corner, fixed rows,
// fixed columns, scrollable cells) -> for each cell that meets the clip region, the
// background (DefaultDrawing) and DrawCell -> grid lines -> focus rectangle. Only cells on
// screen are visited: nothing loops over all rows, and row heights are stored sparsely.
//
// How a key travels: WM_KEYDOWN -> KeyDown: the arrows, pages, Home/End and Tab give a new
// current cell -> FocusCell -> MoveCurrent (SelectCell may refuse) -> ClampInView scrolls
// -> TopLeftMoved (ScrollWindowEx over the scrolled part) -> TopLeftChanged. F2, Enter and
// typed characters (WM_CHAR) open the editor with goEditing.
//
// How a click travels: MouseDown -> CalcSizingState (near a line in the fixed area:
// sizing), a fixed cell with goColMoving (BeginColumnDrag: moving), else the cell becomes
// current and a drag selects; MouseMove follows; MouseUp applies the size (ColWidths) or
// the move (EndColumnDrag -> MoveColumn -> ColumnMoved).
//
// How an edit travels: ShowEditor -> UpdateEdit -> CreateEditor once -> the editor's
// UpdateContents takes GetEditText, GetEditLimit and GetEditMask and is placed on
// CellRect. Each change and the closing of the editor hand the text to SetEditText.

#include <map>
#include <memory>

#include "framework/controls/MaskEdit.h"
#include "framework/controls/Timer.h"

namespace quil {

enum TGridOption {
  goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect, goDrawFocusSelected,
  goRowSizing, goColSizing, goRowMoving, goColMoving, goEditing, goTabs, goRowSelect,
  goAlwaysShowEditor, goThumbTracking
};
using TGridOptions = TSet<TGridOption>;

enum TGridDrawStateMember { gdSelected, gdFocused, gdFixed };
using TGridDrawState = TSet<TGridDrawStateMember>;

// How a grid paints its cells: the raised look, the theme's elements, or gradients.
enum TGridDrawingStyle { gdsClassic, gdsThemed, gdsGradient };
const TEnumTypeInfo& TypeInfo(TGridDrawingStyle);

enum TGridState { gsNormal, gsSelecting, gsRowSizing, gsColSizing, gsRowMoving, gsColMoving };
enum TScrollStyle { ssNone, ssHorizontal, ssVertical, ssBoth };

enum TGridScrollDirectionMember { sdLeft, sdRight, sdUp, sdDown };
using TGridScrollDirection = TSet<TGridScrollDirectionMember>;

struct TGridCoord {
  int X = 0;
  int Y = 0;
  friend constexpr bool operator==(const TGridCoord&, const TGridCoord&) = default;
};

struct TGridRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  friend constexpr bool operator==(const TGridRect&, const TGridRect&) = default;
};

// The sizes of the cells along one axis: a default and the few that differ, so that a
// grid of millions of rows keeps only what was set.
class TGridExtents {
public:
  explicit TGridExtents(int defaultSize) : default_(defaultSize) {}
  int Get(int index) const {
    auto found = custom_.find(index);
    return found == custom_.end() ? default_ : found->second;
  }
  void Set(int index, int size);
  int Default() const { return default_; }
  // Resets every cell to the new default.
  void SetDefault(int size);
  // Forgets the sizes of cells at or past count.
  void Truncate(int count);
  // Moves the size at from to to, shifting the cells in between by one.
  void Move(int from, int to);
  void Scale(int multiplier, int divider);
  bool HasCustom() const { return !custom_.empty(); }

private:
  int default_;
  std::map<int, int> custom_;
};

// One axis of the grid as it shows: pixels along the axis and the cells they hold.
struct TGridAxisDrawInfo {
  int EffectiveLineWidth = 0;   // 0 when the axis draws no lines
  int FixedBoundary = 0;        // end of the fixed cells and their lines
  int GridBoundary = 0;         // end of the last cell shown, at most GridExtent
  int GridExtent = 0;           // the client extent along the axis
  int LastFullVisibleCell = 0;  // the last cell shown whole
  int FullVisBoundary = 0;      // end of the last cell shown whole, with its line
  int FixedCellCount = 0;
  int FirstGridCell = 0;        // LeftCol or TopRow
  int GridCellCount = 0;
  const TGridExtents* Extents = nullptr;
  int GetExtent(int index) const { return Extents->Get(index); }
};

struct TGridDrawInfo {
  TGridAxisDrawInfo Horz;
  TGridAxisDrawInfo Vert;
};

class TCustomGrid;

// The grid's editor: a mask edit that lives on the current cell, talks to the grid and
// hands it the keys that move the cursor.
class TInplaceEdit : public TCustomMaskEdit {
public:
  explicit TInplaceEdit(TComponent* owner);
  ~TInplaceEdit() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TCustomGrid* Grid() const { return grid_; }
  void SetGrid(TCustomGrid* grid) { grid_ = grid; }

  // Places the editor on the cell's rectangle, shows it and gives it the focus.
  void Move(const TRect& rect);
  void Hide();
  // Repaints the cell under the editor as well, for what shows around its text.
  void Invalidate() override;
  void UpdateLoc(const TRect& rect);
  bool PosEqual(const TRect& rect) const;
  // Takes text, limit and mask from the grid for its current cell.
  virtual void UpdateContents();
  void Deselect();
  void SetFocus() override;

protected:
  void KeyDown(uint16_t& key, TShiftState shift) override;
  void KeyPress(QChar& key) override;
  void KeyUp(uint16_t& key, TShiftState shift) override;
  void DblClick() override;
  bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) override;
  bool EditCanModify() override;
  void Change() override;
  void WMGetDlgCode(TMessage& message) override;

private:
  void SendToParent(uint16_t& key, TShiftState shift);
  bool CaretAtStart() const;
  bool CaretAtEnd() const;

  TCustomGrid* grid_ = nullptr;
};

class TCustomGrid : public TCustomControl {
public:
  explicit TCustomGrid(TComponent* owner);
  ~TCustomGrid() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int Col() const { return current_.X; }
  void SetCol(int col);
  int Row() const { return current_.Y; }
  void SetRow(int row);
  int ColCount() const { return colCount_; }
  void SetColCount(int count);
  int RowCount() const { return rowCount_; }
  void SetRowCount(int count);
  int FixedCols() const { return fixedCols_; }
  void SetFixedCols(int count);
  int FixedRows() const { return fixedRows_; }
  void SetFixedRows(int count);
  int LeftCol() const { return topLeft_.X; }
  virtual void SetLeftCol(int col);
  int TopRow() const { return topLeft_.Y; }
  void SetTopRow(int row);
  // Scrollable columns and rows shown whole, at least 1... when any shows.
  int VisibleColCount() const;
  int VisibleRowCount() const;
  // Pixels that the cells take, up to the client extent.
  int GridWidth() const;
  int GridHeight() const;

  int DefaultColWidth() const { return colWidths_.Default(); }
  void SetDefaultColWidth(int width);
  int DefaultRowHeight() const { return rowHeights_.Default(); }
  void SetDefaultRowHeight(int height);
  int ColWidths(int col) const { return colWidths_.Get(col); }
  void SetColWidths(int col, int width);
  int RowHeights(int row) const { return rowHeights_.Get(row); }
  void SetRowHeights(int row, int height);
  // Whether Tab stops at the column.
  bool TabStops(int col) const;
  void SetTabStops(int col, bool stops);
  int GridLineWidth() const { return gridLineWidth_; }
  void SetGridLineWidth(int width);

  TColor FixedColor() const { return fixedColor_; }
  void SetFixedColor(TColor color);
  TGridOptions Options() const { return options_; }
  void SetOptions(TGridOptions options);
  // Options that hold as well while the grid is designed, so that a designer can size
  // what the user may not.
  TGridOptions DesignOptionsBoost() const { return designOptionsBoost_; }
  void SetDesignOptionsBoost(TGridOptions boost) { designOptionsBoost_ = boost; }
  TScrollStyle ScrollBars() const { return scrollBars_; }
  void SetScrollBars(TScrollStyle scrollBars);
  TBorderStyle BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(TBorderStyle style);
  // Fill each cell's background before DrawCell, and draw the focus rectangle.
  bool DefaultDrawing() const { return defaultDrawing_; }
  void SetDefaultDrawing(bool defaultDrawing);

  bool EditorMode() const { return editorMode_; }
  void SetEditorMode(bool editorMode);
  TInplaceEdit* InplaceEditor() const { return inplaceEdit_; }
  TGridState GridState() const { return gridState_; }

  TGridRect Selection() const;
  void SetSelection(const TGridRect& selection);

  // Pixels of a cell or a box of cells in client coordinates; empty when not shown.
  TRect CellRect(int col, int row) const;
  TRect BoxRect(int left, int top, int right, int bottom) const;
  // The cell at a client point; -1, -1 when none is there.
  TGridCoord MouseCoord(int x, int y) const;

  void MoveColRow(int col, int row, bool moveAnchor, bool show);
  void MoveColumn(int fromIndex, int toIndex);
  void MoveRow(int fromIndex, int toIndex);
  void ShowEditor();
  void HideEditor();
  void InvalidateEditor();
  void InvalidateCell(int col, int row);
  void InvalidateRow(int row);
  void InvalidateCol(int col);
  void InvalidateGrid() { Invalidate(); }

  void CalcDrawInfo(TGridDrawInfo& drawInfo) const;
  void CalcDrawInfoXY(TGridDrawInfo& drawInfo, int useWidth, int useHeight) const;
  void CalcFixedInfo(TGridDrawInfo& drawInfo) const;

  // For the editor: the text goes back to the grid.
  void UpdateText();

protected:
  friend class TInplaceEdit;

  void Loaded() override;
  void CreateWnd() override;
  void Paint() override;
  virtual void DrawCell(int col, int row, const TRect& rect, TGridDrawState state) {}
  // Mirrors the canvas for right-to-left drawing, and back.
  virtual void ChangeGridOrientation(bool rightToLeft);

  virtual void CalcSizingState(int x, int y, TGridState& state, int& index, int& sizingPos,
                               int& sizingOfs, const TGridDrawInfo& fixedInfo);
  // Whether a press at the client point would size (or is sizing) a column or row.
  bool Sizing(int x, int y);
  virtual TInplaceEdit* CreateEditor();
  virtual bool CanEditShow();
  virtual bool CanEditAcceptKey(QChar key) { return true; }
  virtual bool CanGridAcceptKey(uint16_t key, TShiftState shift) { return true; }
  virtual bool CanEditModify() { return canEditModify_; }
  // -1 forbids any change, 0 is no limit.
  virtual int GetEditLimit() { return 0; }
  virtual QString GetEditMask(int col, int row) { return QString(); }
  virtual QString GetEditText(int col, int row) { return QString(); }
  virtual void SetEditText(int col, int row, const QString& value) {}
  virtual bool SelectCell(int col, int row) { return true; }
  // The dotted frame of the current cell, or of the row with goRowSelect, after the
  // cells; a grid whose cells draw their own frame draws only what they leave.
  virtual void DrawFocus(const TGridDrawInfo& info);

  virtual void ColumnMoved(int fromIndex, int toIndex) {}
  virtual void RowMoved(int fromIndex, int toIndex) {}
  virtual void ColWidthsChanged();
  virtual void RowHeightsChanged();
  virtual void TopLeftChanged();
  virtual void SizeChanged(int oldColCount, int oldRowCount) {}
  virtual void TimedScroll(TGridScrollDirection direction);
  virtual bool BeginColumnDrag(int& origin, int& destination, TPoint mousePt) { return true; }
  virtual bool CheckColumnDrag(int& origin, int& destination, TPoint mousePt) { return true; }
  virtual bool EndColumnDrag(int& origin, int& destination, TPoint mousePt) { return true; }
  virtual bool BeginRowDrag(int& origin, int& destination, TPoint mousePt) { return true; }
  virtual bool CheckRowDrag(int& origin, int& destination, TPoint mousePt) { return true; }
  virtual bool EndRowDrag(int& origin, int& destination, TPoint mousePt) { return true; }

  void KeyDown(uint16_t& key, TShiftState shift) override;
  void KeyPress(QChar& key) override;
  void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void MouseUp(TMouseButton button, TShiftState shift, int x, int y) override;
  bool DoMouseWheelDown(TShiftState shift, TPoint mousePos) override;
  bool DoMouseWheelUp(TShiftState shift, TPoint mousePos) override;
  void ChangeScale(int multiplier, int divider) override;

  void WMSize(TMessage& message) override;
  void WMNCCalcSize(TMessage& message) override;
  void WMNCPaint(TMessage& message) override;
  void WMHScroll(TMessage& message) override;
  void WMVScroll(TMessage& message) override;
  void WMSetFocus(TMessage& message) override;
  void WMKillFocus(TMessage& message) override;
  void WMSetCursor(TMessage& message) override;
  void WMChar(TMessage& message) override;
  void WMGetDlgCode(TMessage& message) override;
  void WMCancelMode(TMessage& message) override;
  void CMFontChanged(TMessage& message) override;
  // A grid that edits takes the input method, so that a composition can open its editor.
  void UpdateInputMethod() override;

  // The focus is on the grid or its editor.
  bool IsActiveControl() const;
  void FocusCell(int col, int row, bool moveAnchor);
  void MoveCurrent(int col, int row, bool moveAnchor, bool show);
  void MoveTopLeft(int left, int top);
  void ClampInView(const TGridCoord& coord);
  void MoveAnchor(const TGridCoord& cell);
  void UpdateScrollRange();
  void UpdateScrollPos();
  void UpdateEdit();
  void HideEdit();
  TGridCoord CalcMaxTopLeft(const TGridCoord& coord, const TGridDrawInfo& drawInfo) const;
  TGridCoord CalcCoordFromPoint(int x, int y, const TGridDrawInfo& drawInfo) const;

private:
  void ChangeSize(int newColCount, int newRowCount);
  void Initialize();
  void SelectionMoved(const TGridRect& oldSel);
  void InvalidateGridRect(const TGridRect& rect);
  void TopLeftMoved(const TGridCoord& oldTopLeft);
  // thumbPos: the 16-bit thumb place a scroll message carries.
  void ScrollBy(int bar, int code, int thumbPos);
  void DrawBlock(const TGridDrawInfo& info, int firstCol, int colOrigin, int colLimit, int firstRow,
                 int rowOrigin, int rowLimit, bool fixed);
  void DrawLines(const TGridDrawInfo& info, int firstCol, int colOrigin, int colLimit, int firstRow,
                 int rowOrigin, int rowLimit, TColor color);
  TGridDrawState CellState(int col, int row, bool fixed, bool focused) const;
  void DrawDragMarks(const TGridDrawInfo& info);
  TRect SizingLineRect() const;
  TRect MoveMarkRect() const;
  void StartSizing(const TGridDrawInfo& info, int x, int y);
  bool StartMoving(const TGridCoord& cell, int x, int y);
  void TrackMove(int x, int y);
  void FinishMove(int x, int y);
  void FinishSizing();
  void ScrollTimerTick(TObject* sender);
  TRect MirrorRect(const TRect& rect) const;
  int MirrorX(int x) const;
  // Whether the window a focus message names is this grid's in-place editor.
  bool IsInplaceEditor(WPARAM window) const;
  void TopLeftReset(const TGridCoord& oldTopLeft, const TGridCoord& reset);
  // Whether the editor is shown on the current cell.
  bool EditorShowing() const;
  // Options, with the design boost while designing.
  TGridOptions SizingOptions() const;

  int colCount_ = 5;
  int rowCount_ = 5;
  int fixedCols_ = 1;
  int fixedRows_ = 1;
  int gridLineWidth_ = 1;
  TGridExtents colWidths_{64};
  TGridExtents rowHeights_{24};
  std::map<int, bool> tabStops_;  // only the columns without a tab stop
  TColor fixedColor_ = clBtnFace;
  TGridOptions options_ = {goFixedVertLine, goFixedHorzLine, goVertLine, goHorzLine, goRangeSelect};
  TGridOptions designOptionsBoost_;
  TScrollStyle scrollBars_ = ssBoth;
  TBorderStyle borderStyle_ = bsSingle;
  bool defaultDrawing_ = true;

  TGridCoord topLeft_{1, 1};
  TGridCoord current_{1, 1};
  TGridCoord anchor_{1, 1};
  TGridState gridState_ = gsNormal;
  // Sizing: the cell whose far line moves, its line's client position and the offset of
  // the mouse from it. Moving: the cell picked up and where it would go; -1 when idle.
  int sizingIndex_ = -1;
  int sizingPos_ = 0;
  int sizingOfs_ = 0;
  int moveIndex_ = -1;
  int movePos_ = -1;
  TPoint lastMouse_;

  bool editorMode_ = false;
  bool canEditModify_ = true;
  TInplaceEdit* inplaceEdit_ = nullptr;
  int inplaceCol_ = -1;  // the cell the editor shows; -1 when it shows none
  int inplaceRow_ = -1;
  bool updatingScrollBars_ = false;
  std::unique_ptr<TTimer> scrollTimer_;
};

}  // namespace quil
