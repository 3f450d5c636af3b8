// The grid's frame: construction and destruction, owned parts, option sets and the
// properties that shape the layout.
#include "framework/controls/Hints.h"
#include "framework/controls/Menus.h"
#include "framework/db/DataSet.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/graphics/ColorProps.h"
#include "framework/rtl/ExceptionHandler.h"
#include "framework/rtl/SystemInfo.h"
#include "framework/rtl/TypInfo.h"
#include "grid/QuilDBGrid.h"

namespace quil {

namespace {

template <typename E>
TSet<E> ChangedMembers(TSet<E> before, TSet<E> after) {
  return (before - after) + (after - before);
}

bool KoreanSystem() { return SysLocale.PriLangID == LANG_KOREAN; }

}  // namespace

const TMetaClass& TQuilCustomDBGrid::StaticClass() {
  static const TMetaClass meta("TQuilCustomDBGrid", &TCustomGrid::StaticClass());
  return meta;
}

const TMetaClass& TQuilCustomDBGrid::ClassType() const { return StaticClass(); }

const TMetaClass& TQuilDBGrid::StaticClass() {
  using G = TQuilDBGrid;
  static const TMetaClass meta =
      TMetaClass("TQuilDBGrid", &TQuilCustomDBGrid::StaticClass())
          .Creates<TQuilDBGrid>()
          .Published(ObjectProp("DataSource", &TQuilDBGrid::DataSource, &TQuilDBGrid::SetDataSource))
          .Published(SetProp("Options", &TQuilDBGrid::Options, &TQuilDBGrid::SetOptions).Default(DefaultGridOptions))
          .Published(SetProp("OptionsEx", &TQuilDBGrid::OptionsEx, &TQuilDBGrid::SetOptionsEx)
                         .Default(DefaultGridOptionsEx))
          .Published(SetProp("OptionsExt", &TQuilDBGrid::OptionsExt, &TQuilDBGrid::SetOptionsExt)
                         .Default(DefaultGridOptionsExt))
          .Published(EnumProp("BorderStyle", &TQuilDBGrid::BorderStyle, &TQuilDBGrid::SetBorderStyle).Default(bsSingle))
          .Published(IntProp("GridLineWidth", &TQuilDBGrid::GridLineWidth, &TQuilDBGrid::SetGridLineWidth).Default(1))
          .Published(BoolProp("DefaultDrawing", &TQuilDBGrid::DefaultDrawing, &TQuilDBGrid::SetDefaultDrawing)
                         .Default(true))
          // The framework's own, as a placed control has them.
          .Published(IntProp("Left", &TQuilDBGrid::Left, &TQuilDBGrid::SetLeft))
          .Published(IntProp("Top", &TQuilDBGrid::Top, &TQuilDBGrid::SetTop))
          .Published(IntProp("Width", &TQuilDBGrid::Width, &TQuilDBGrid::SetWidth))
          .Published(IntProp("Height", &TQuilDBGrid::Height, &TQuilDBGrid::SetHeight))
          .Published(EnumProp("Align", &TQuilDBGrid::Align, &TQuilDBGrid::SetAlign).Default(alNone))
          .Published(EnumProp("BiDiMode", &TQuilDBGrid::BiDiMode, &TQuilDBGrid::SetBiDiMode)
                         .Default(bdLeftToRight)
                         .StoredBy(&TQuilDBGrid::IsBiDiModeStored))
          .Published(BoolProp("ParentBiDiMode", &TQuilDBGrid::ParentBiDiMode, &TQuilDBGrid::SetParentBiDiMode)
                         .Default(true))
          .Published(IntProp("Color", &TQuilDBGrid::Color, &TQuilDBGrid::SetColor)
                         .OfType(ColorTypeInfo())
                         .Default(clWindow)
                         .StoredBy(&TQuilDBGrid::IsColorStored))
          .Published(BoolProp("ParentColor", &TQuilDBGrid::ParentColor, &TQuilDBGrid::SetParentColor).Default(false))
          .Published(ObjectProp("Font", &TQuilDBGrid::Font, &TQuilDBGrid::SetFont).StoredBy(&TQuilDBGrid::IsFontStored))
          .Published(BoolProp("ParentFont", &TQuilDBGrid::ParentFont, &TQuilDBGrid::SetParentFont).Default(true))
          .Published(BoolProp("ParentCtl3D", &TQuilDBGrid::ParentCtl3D, &TQuilDBGrid::SetParentCtl3D).Default(true))
          .Published(ObjectProp("PopupMenu", &TQuilDBGrid::PopupMenu, &TQuilDBGrid::SetPopupMenu))
          .Published(BoolProp("ShowHint", &TQuilDBGrid::ShowHint, &TQuilDBGrid::SetShowHint)
                         .Default(false)
                         .StoredBy(&TQuilDBGrid::IsShowHintStored))
          .Published(BoolProp("ParentShowHint", &TQuilDBGrid::ParentShowHint, &TQuilDBGrid::SetParentShowHint)
                         .Default(true))
          .Published(BoolProp("TabStop", &TQuilDBGrid::TabStop, &TQuilDBGrid::SetTabStop).Default(true))
          .Published(BoolProp("Visible", &TQuilDBGrid::Visible, &TQuilDBGrid::SetVisible).Default(true))
          .Published(EventProp("OnClick", &TQuilDBGrid::OnClick, &TQuilDBGrid::SetOnClick))
          .Published(EventProp("OnDblClick", &TQuilDBGrid::OnDblClick, &TQuilDBGrid::SetOnDblClick))
          .Published(EventProp("OnEnter", &TQuilDBGrid::OnEnter, &TQuilDBGrid::SetOnEnter))
          .Published(EventProp("OnExit", &TQuilDBGrid::OnExit, &TQuilDBGrid::SetOnExit))
          .Published(EventProp("OnKeyDown", &TQuilDBGrid::OnKeyDown, &TQuilDBGrid::SetOnKeyDown))
          .Published(EventProp("OnKeyPress", &TQuilDBGrid::OnKeyPress, &TQuilDBGrid::SetOnKeyPress))
          .Published(EventProp("OnKeyUp", &TQuilDBGrid::OnKeyUp, &TQuilDBGrid::SetOnKeyUp))
          .Published(EventProp("OnMouseDown", &TQuilDBGrid::OnMouseDown, &TQuilDBGrid::SetOnMouseDown))
          .Published(EventProp("OnMouseEnter", &TQuilDBGrid::OnMouseEnter, &TQuilDBGrid::SetOnMouseEnter))
          .Published(EventProp("OnMouseLeave", &TQuilDBGrid::OnMouseLeave, &TQuilDBGrid::SetOnMouseLeave))
          .Published(EventProp("OnMouseMove", &TQuilDBGrid::OnMouseMove, &TQuilDBGrid::SetOnMouseMove))
          .Published(EventProp("OnMouseUp", &TQuilDBGrid::OnMouseUp, &TQuilDBGrid::SetOnMouseUp))
          .Published(EventProp("OnMouseWheel", &TQuilDBGrid::OnMouseWheel, &TQuilDBGrid::SetOnMouseWheel))
          .Published(EventProp("OnMouseWheelDown", &TQuilDBGrid::OnMouseWheelDown, &TQuilDBGrid::SetOnMouseWheelDown))
          .Published(EventProp("OnMouseWheelUp", &TQuilDBGrid::OnMouseWheelUp, &TQuilDBGrid::SetOnMouseWheelUp))
          .Published(BoolProp("Ctl3D", &TQuilDBGrid::GridCtl3D, &TQuilDBGrid::SetCtl3D)
                         .StoredBy(&TQuilDBGrid::IsCtl3DStored))
          .Published(BoolProp("Ctl3DAuto", &TQuilDBGrid::Ctl3DAuto, &TQuilDBGrid::SetCtl3DAuto).Default(true))
          .Published(BoolProp("DoubleBuffered", &TQuilDBGrid::DoubleBuffered, &TQuilDBGrid::SetDoubleBuffered)
                         .Default(true))
          .Published(BoolProp("DragRows", &TQuilDBGrid::DragRows, &TQuilDBGrid::SetDragRows).Default(false))
          .Published(BoolProp("Enabled", &TQuilDBGrid::GridEnabled, &TQuilDBGrid::SetEnabled).Default(true))
          .Published(IntProp("FixedCols", &TQuilDBGrid::FixedCols, &TQuilDBGrid::SetFixedCols).Default(0))
          .Published(BoolProp("ReadOnly", &TQuilDBGrid::ReadOnly, &TQuilDBGrid::SetReadOnly).Default(false))
          .Published(StrProp("Hint", &TQuilDBGrid::Hint, &TQuilDBGrid::SetHint))
          .Published(EnumProp("MarkerStyle", &TQuilDBGrid::MarkerStyle, &TQuilDBGrid::SetMarkerStyle).Default(msAuto))
          .Published(EnumProp("MarkerTransparent", &TQuilDBGrid::MarkerTransparent, &TQuilDBGrid::SetMarkerTransparent)
                         .Default(mtAuto))
          .Published(SetProp("Anchors", &TQuilDBGrid::Anchors, &TQuilDBGrid::SetAnchors).Default(TAnchors{akLeft, akTop}))
          .Published(ObjectProp("Constraints", &TQuilDBGrid::Constraints, &TQuilDBGrid::SetConstraints))
          .Published(ObjectProp("CustomHint", &TQuilDBGrid::CustomHint, &TQuilDBGrid::SetCustomHint))
          .Published(BoolProp("ParentCustomHint", &TQuilDBGrid::ParentCustomHint, &TQuilDBGrid::SetParentCustomHint)
                         .Default(false))
          .Published(IntProp("DragCursor", &TQuilDBGrid::DragCursor, &TQuilDBGrid::SetDragCursor).Default(crDrag))
          .Published(EnumProp("DragKind", &TQuilDBGrid::DragKind, &TQuilDBGrid::SetDragKind).Default(dkDrag))
          .Published(EnumProp("DragMode", &TQuilDBGrid::DragMode, &TQuilDBGrid::SetDragMode).Default(dmManual))
          .Published(EnumProp("ImeMode", &TQuilDBGrid::ImeMode, &TQuilDBGrid::SetImeMode).Default(imDontCare))
          .Published(StrProp("ImeName", &TQuilDBGrid::ImeName, &TQuilDBGrid::SetImeName))
          .Published(SetProp("StyleElements", &TQuilDBGrid::StyleElements, &TQuilDBGrid::SetStyleElements)
                         .Default(TStyleElements{seFont, seClient, seBorder}))
          .Published(IntProp("TabOrder", &TQuilDBGrid::TabOrder, &TQuilDBGrid::SetTabOrder))
          .Published(ObjectProp("Settings", &G::Settings, &G::SetSettings))
          // The look. DrawingStyle is worked out from FixedTheme and Gradient.Active,
          // which the stream holds.
          .Published(EnumProp("DrawingStyle", &G::DrawingStyle, &G::SetDrawingStyle).Stored(false))
          .Published(EnumProp("FixedStyle", &G::FixedStyle, &G::SetFixedStyle).Default(fsDefault))
          .Published(EnumProp("FixedTheme", &G::FixedTheme, &G::SetFixedTheme).Default(ftDefault))
          .Published(ColorProp("FixedColor", &G::FixedColor, &G::SetFixedColor).Default(clBtnFace))
          .Published(ColorProp("FillerColor", &G::FillerColor, &G::SetFillerColor).StoredBy(&G::IsFillerColorStored))
          .Published(SetProp("SystemStyleElements", &G::SystemStyleElements, &G::SetSystemStyleElements)
                         .Default(DefaultSystemStyleElements))
          .Published(ObjectProp("Gradient", &G::Gradient, &G::SetGradient))
          .Published(ObjectProp("GridStyle", &G::GridStyle, &G::SetGridStyle))
          .Published(EnumProp("FocusRect", &G::FocusRect, &G::SetFocusRect).Default(frAuto))
          .Published(EnumProp("HotButtons", &G::HotButtons, &G::SetHotButtons).Default(hbAuto))
          .Published(EnumProp("ListBorder", &G::ListBorder, &G::SetListBorder).Default(lbAuto))
          .Published(ColorProp("HighlightText", &G::HighlightText, &G::SetHighlightText).Default(clDefault))
          .Published(ColorProp("SelectCellColor", &G::SelectCellColor, &G::SetSelectCellColor).Default(clDefault))
          .Published(ColorProp("SelectRowColor", &G::SelectRowColor, &G::SetSelectRowColor).Default(clDefault))
          .Published(ColorProp("SelectionColor", &G::SelectionColor, &G::SetSelectionColor).Default(clDefault))
          .Published(ColorProp("StripeColor", &G::StripeColor, &G::SetStripeColor).Default(clNone))
          .Published(ColorProp("EditorColor", &G::EditorColor, &G::SetEditorColor).Default(clNone))
          .Published(ColorProp("DataColLineColor", &G::DataColLineColor, &G::SetDataColLineColor).Default(clDefault))
          .Published(ColorProp("DataRowLineColor", &G::DataRowLineColor, &G::SetDataRowLineColor).Default(clDefault))
          // Titles, bands, the indicator and the corner.
          .Published(ObjectProp("TitleFont", &G::TitleFont, &G::SetTitleFont).StoredBy(&G::IsTitleFontStored))
          .Published(ObjectProp("HeaderFont", &G::HeaderFont, &G::SetHeaderFont).StoredBy(&G::IsHeaderFontStored))
          .Published(ColorProp("HeaderColor", &G::HeaderColor, &G::SetHeaderColor).StoredBy(&G::IsHeaderColorStored))
          .Published(ObjectProp("TitleImages", &G::TitleImages, &G::SetTitleImages))
          .Published(ObjectProp("TitleMarkers", &G::TitleMarkers, &G::SetTitleMarkers))
          .Published(ObjectProp("IndicatorImages", &G::IndicatorImages, &G::SetIndicatorImages))
          .Published(IntProp("IndicatorWidth", &G::IndicatorWidth, &G::SetIndicatorWidth).Default(20))
          .Published(StrProp("IndicatorHint", &G::IndicatorHint, &G::SetIndicatorHint))
          .Published(ObjectProp("IndicatorPopupMenu", &G::IndicatorPopupMenu, &G::SetIndicatorPopupMenu))
          .Published(BoolProp("FillerButton", &G::FillerButton, &G::SetFillerButton).Default(true))
          .Published(StrProp("FillerHint", &G::FillerHint, &G::SetFillerHint))
          .Published(IntProp("FillerIndex", &G::FillerIndex, &G::SetFillerIndex).Default(-7))
          .Published(ObjectProp("FillerPopupMenu", &G::FillerPopupMenu, &G::SetFillerPopupMenu));
  return meta;
}

const TMetaClass& TQuilDBGrid::ClassType() const { return StaticClass(); }

TQuilCustomDBGrid::TQuilCustomDBGrid(TComponent* owner)
    : TCustomGrid(owner),
      drawingOptions_(DefaultDrawingOptions),
      hintOptions_(DefaultHintOptions),
      resizeOptions_(DefaultResizeOptions),
      multiSelectOptions_(DefaultMultiSelectOptions),
      systemStyleElements_(DefaultSystemStyleElements) {
  options_ = DefaultGridOptions;
  if (KoreanSystem()) options_ += dgAlwaysShowEditor;
  optionsEx_ = DefaultGridOptionsEx;
  optionsExt_ = DefaultGridOptionsExt;
  SetDoubleBuffered(true);
  SetParentCustomHint(false);
  LoadIndicatorList(GetCurrentPPI(), GlyphStyleName());
  LoadBoxLists(GetCurrentPPI());
  SetDesignOptionsBoost({goRowSizing, goColSizing});
  // The vertical scroll bar belongs to the record window, not to the base grid's rows.
  TCustomGrid::SetScrollBars(ssHorizontal);
  TCustomGrid::SetOptions({goVertLine, goHorzLine, goRowSizing, goColSizing, goColMoving, goEditing, goTabs});
  // The parts made by the Create... factories are made on first use, after construction
  // (TFactoryPart): nothing here may touch them.
  SetRowCount(2);
  SetColCount(2);
  SetColor(clWindow);
  SetParentColor(false);
  titleFont_ = std::make_unique<TFont>();
  titleFont_->SetOnChange(TNotifyEvent(this, &TQuilCustomDBGrid::TitleFontChanged));
  SetDefaultDrawing(true);
  headerFont_ = std::make_unique<TFont>();
  headerFont_->SetOnChange(TNotifyEvent(this, &TQuilCustomDBGrid::TitleFontChanged));
  SetTabStop(true);
  HideEditor();
}

TQuilCustomDBGrid::~TQuilCustomDBGrid() {
  // Notifications that come while the parts go find the grid destroying, and leave it.
  Destroying();
  for (auto& timer : timers_) timer.reset();
  if (settings_ && settings_->Active() && !ComponentState().Contains(csDesigning)) {
    // A destructor cannot pass a failed save on: the application hears of it instead.
    try {
      settings_->AutoSaveLayout();
    } catch (...) {
      if (ApplicationHandleException()) ApplicationHandleException()(this);
    }
  }
  // The link goes first, so that no data event reaches a grid without its parts.
  if (dataLink_) dataLink_->SetDataSource(nullptr);
  totals_.reset();
  gradient_.reset();
  settings_.reset();
  scrollProp_.reset();
  gridStyle_.reset();
  headerFont_.reset();
  treeView_.reset();
  search_.reset();
  filterGrid_.reset();
  columns_.reset();
  dataLink_.reset();
  titleFont_.reset();
}

TQuilDBGridColumns* TQuilCustomDBGrid::CreateColumns() { return new TQuilDBGridColumns(this); }
TQuilGridDataLink* TQuilCustomDBGrid::CreateDataLink() { return new TQuilGridDataLink(this); }
TQuilGridStyle* TQuilCustomDBGrid::CreateGridStyle() { return new TQuilGridStyle(this); }
TQuilDBGridTotals* TQuilCustomDBGrid::CreateTotals() { return new TQuilDBGridTotals(this); }
TDataLink* TQuilCustomDBGrid::CreateTotalDataLink() { return new TDataLink(); }
TQuilDBGridFilter* TQuilCustomDBGrid::CreateFilter() { return new TQuilDBGridFilter(this); }
TQuilDBGridSearch* TQuilCustomDBGrid::CreateSearch() { return new TQuilDBGridSearch(this); }
TQuilDBGridTreeView* TQuilCustomDBGrid::CreateTreeView() { return new TQuilDBGridTreeView(this); }
TQuilDBGridSettings* TQuilCustomDBGrid::CreateSettings() { return new TQuilDBGridSettings(this); }
TQuilScrollProp* TQuilCustomDBGrid::CreateScrollProp() { return new TQuilScrollProp(this); }
TQuilDBGridGradient* TQuilCustomDBGrid::CreateGradient() { return new TQuilDBGridGradient(this); }

TQuilDBGridGradient* TQuilCustomDBGrid::MakeGradient() {
  TQuilDBGridGradient* gradient = CreateGradient();
  gradient->SetOnChange(TNotifyEvent(this, &TQuilCustomDBGrid::GradientChanged));
  return gradient;
}
// FIXME: the grid editor replaces the base editor with its buttons and lists.
TInplaceEdit* TQuilCustomDBGrid::CreateEditor() { return TCustomGrid::CreateEditor(); }

// FIXME: column sizing's parent font sync copies the parent's font into TitleFont and
// HeaderFont without turning ParentFont off.
void TQuilCustomDBGrid::TitleFontChanged(TObject*) {
  if (!ComponentState().Contains(csLoading)) SetParentFont(false);
  if (options_.Contains(dgTitles)) LayoutChanged();
}

void TQuilCustomDBGrid::GradientChanged(TObject*) { Invalidate(); }

TPersistent* TQuilGridPart::GetOwner() const { return grid_; }

// --- Option sets

void TQuilCustomDBGrid::ApplyBaseOptions(TQuilDBGridOptions value) {
  TGridOptions base;
  base.Switch(goEditing, value.Contains(dgEditing));
  base.Switch(goAlwaysShowEditor, value.Contains(dgAlwaysShowEditor));
  base.Switch(goColSizing, value.Contains(dgColumnResize));
  base.Switch(goColMoving, value.Contains(dgColumnResize));
  base.Switch(goVertLine, value.Contains(dgColLines));
  base.Switch(goHorzLine, value.Contains(dgRowLines));
  const bool fixedLines = FixedLinesShown();
  base.Switch(goFixedVertLine, fixedLines && value.Contains(dgColLines));
  base.Switch(goFixedHorzLine, fixedLines && value.Contains(dgRowLines));
  base.Switch(goTabs, value.Contains(dgTabs));
  base.Switch(goRowSelect, value.Contains(dgRowSelect));
  base.Switch(goRowSizing, value.Contains(dgRowResize));
  base.Switch(goThumbTracking, value.Contains(dgThumbTracking));
  TCustomGrid::SetOptions(base);
}

void TQuilCustomDBGrid::SetOptions(TQuilDBGridOptions value) {
  if (value.Contains(dgRowSelect)) value -= TQuilDBGridOptions{dgEditing, dgAlwaysShowEditor};
  if (value == options_) return;
  ApplyBaseOptions(value);
  const TQuilDBGridOptions turnedOn = value - options_;
  const TQuilDBGridOptions turnedOff = options_ - value;
  if (turnedOff.Contains(dgMultiSelect) || (turnedOn.Contains(dgRowSelect) && GetColsSelection())) ClearSelection();
  const TQuilDBGridOptions changed = turnedOn + turnedOff;
  options_ = value;
  if (changed.Contains(dgForceSequence)) UpdateSequence(false);
  if (changed.Intersects({dgEditing, dgAlwaysShowEditor, dgTitles, dgIndicator, dgColLines, dgRowLines,
                          dgRowSelect, dgAlwaysShowSelection, dgMultiSelect, dgInternalSelect, dgTitleHeaders,
                          dgTitleWidthOff, dgIndicatorMarkOff, dgMarkerAutoAlign, dgForceSequence}))
    LayoutChanged();
  if (changed.Intersects({dgTitles, dgIndicator, dgColLines, dgRowLines, dgTitleHeaders, dgTitleWidthOff}))
    InvalidateEditor();
  if (changed.Intersects({dgIndicator, dgColLines, dgTitleWidthOff})) StretchGrid();
  if (changed.Intersects({dgMarkerAutoSwitch, dgMarkerAutoToggle, dgMarkerAscendOnly})) columns_->UpdateMarkers();
  if (changed.Intersects({dgColLines, dgRowLines}))
    UpdateBorder(IsGridThemed(false) || fixedStyle_ == fsSoft || fixedStyle_ == fsGreat ||
                 fixedStyle_ == fsGray || fixedStyle_ == fsFine || fixedStyle_ == fsMild);
}

void TQuilCustomDBGrid::SwitchOptions(TQuilDBGridOptions members, bool include) {
  SetOptions(include ? options_ + members : options_ - members);
}

void TQuilCustomDBGrid::SetOptionsEx(TQuilDBGridOptionsEx value) {
  if (!ComponentState().Contains(csDesigning) && value.Contains(dgSelectedAutoHidden)) {
    TQuilDBGridOptionsEx selectedRows;
    if (value.Contains(dgTotalHeaderSelected)) selectedRows += dgTotalHeader;
    if (value.Contains(dgTotalValuesSelected)) selectedRows += dgTotalValues;
    if (value.Contains(dgTotalFooterSelected)) selectedRows += dgTotalFooter;
    value = totals_->GetSelected() ? value + selectedRows : value - selectedRows;
  }
  if (value == optionsEx_) return;
  if (value.Intersects({dgTotalHeader, dgTotalValues, dgTotalFields, dgTotalFooter})) value += dgBlankRow;
  if (value.Intersects({dgTotalHeaderSelected, dgTotalValuesSelected, dgTotalFooterSelected}))
    value -= dgCalcSelectedRows;
  const TQuilDBGridOptionsEx changed = ChangedMembers(optionsEx_, value);
  const TQuilDBGridOptionsEx turnedOn = value - optionsEx_;
  optionsEx_ = value;
  if (changed.Intersects({dgLoadCurrentOrder, dgAutoUpdateOrder, dgAutoAscendOrder})) UpdateOrder(true);
  if (changed.Contains(dgAutoUpdateSequence)) UpdateSequence(true);
  if (turnedOn.Intersects({dgTotalHeader, dgTotalValues, dgTotalFooter, dgCalcInvisibleRows}) ||
      changed.Intersects({dgAutoUpdateTotals, dgCalcWholeDataSet, dgCalcSelectedRows, dgTotalHeaderSelected,
                          dgTotalValuesSelected, dgTotalFooterSelected}))
    UpdateTotals(true);
  if (changed.Intersects({dgBlankRow, dgTotalHeader, dgTotalValues, dgTotalFields, dgTotalFooter, dgTotalColLines,
                          dgTotalHeaderBox, dgTotalValuesBox, dgTotalFieldsBox, dgTotalFooterBox,
                          dgTotalDataBoxOnly}))
    LayoutChanged();
  if (changed.Intersects({dgBlankRow, dgTotalHeader, dgTotalValues, dgTotalFields, dgTotalFooter}))
    InvalidateEditor();
}

void TQuilCustomDBGrid::SwitchOptionsEx(TQuilDBGridOptionsEx members, bool include) {
  SetOptionsEx(include ? optionsEx_ + members : optionsEx_ - members);
}

void TQuilCustomDBGrid::SetOptionsExt(TQuilDBGridOptionsExt value) {
  if (value == optionsExt_) return;
  const TQuilDBGridOptionsExt changed = ChangedMembers(optionsExt_, value);
  optionsExt_ = value;
  if (changed.Contains(dgAutoUpdateListItems)) UpdateListItems(true);
  if (changed.Intersects({dgAutoNumberColumn, dgAutoSelectColumn, dgAutoExpandColumn, dgForceSystemTheme,
                          dgForceSystemButton, dgForceSystemMarker}))
    LayoutChanged();
  if (changed.Intersects({dgScrollGridMode, dgScrollPageMode})) UpdateScrollBar();
}

void TQuilCustomDBGrid::SwitchOptionsExt(TQuilDBGridOptionsExt members, bool include) {
  SetOptionsExt(include ? optionsExt_ + members : optionsExt_ - members);
}

// Each member stands for its color: turning one on gives the color its default, turning
// it off gives clNone.
void TQuilCustomDBGrid::SetDrawingOptions(TGridDrawingOptions value) {
  const TGridDrawingOptions changed = ChangedMembers(drawingOptions_, value);
  if (changed.Empty()) return;
  drawingOptions_ = value;
  auto follow = [&](TGridDrawingOption option, TColor& color) {
    if (changed.Contains(option)) color = value.Contains(option) ? clDefault : clNone;
  };
  follow(gdoHighlightText, highlightText_);
  follow(gdoDataColLines, dataColLineColor_);
  follow(gdoDataRowLines, dataRowLineColor_);
  follow(gdoSelectedCell, selectCellColor_);
  follow(gdoSelectedRow, selectRowColor_);
  follow(gdoMultiSelected, selectionColor_);
  follow(gdoStripedRows, stripeColor_);
  follow(gdoEditorColor, editorColor_);
  // FIXME: totals keep gdoTotalSelected in step with Totals.SelectedColor.
  Invalidate();
}

void TQuilCustomDBGrid::SwitchDrawingOptions(TGridDrawingOptions members, bool include) {
  SetDrawingOptions(include ? drawingOptions_ + members : drawingOptions_ - members);
}

void TQuilCustomDBGrid::SwitchHintOptions(TQuilHintOptions members, bool include) {
  SetHintOptions(include ? hintOptions_ + members : hintOptions_ - members);
}

void TQuilCustomDBGrid::SetResizeOptions(TQuilResizeOptions value) {
  if (!value.Contains(roColumnResize)) value -= TQuilResizeOptions{roOptimalWidth, roDefaultWidth};
  resizeOptions_ = value;
}

void TQuilCustomDBGrid::SwitchResizeOptions(TQuilResizeOptions members, bool include) {
  SetResizeOptions(include ? resizeOptions_ + members : resizeOptions_ - members);
}

void TQuilCustomDBGrid::SetMultiSelectOptions(TMultiSelectOptions value) {
  value -= msNone;
  if (value == multiSelectOptions_) return;
  ClearSelection();
  PerformDelayed();
  multiSelectOptions_ = value;
  UpdateMultiSelect();
  UpdateSelectionOffset();
}

void TQuilCustomDBGrid::SwitchMultiSelectOptions(TMultiSelectOptions members, bool include) {
  SetMultiSelectOptions(include ? multiSelectOptions_ + members : multiSelectOptions_ - members);
}

void TQuilCustomDBGrid::SetSystemStyleElements(TSystemStyleElements value) {
  if (value == systemStyleElements_) return;
  systemStyleElements_ = value;
  // The glyphs follow the system's look through sseFixed and sseMarker.
  if (IsSystemStyle({})) RecreateMarkers();
  Invalidate();
}

void TQuilCustomDBGrid::SwitchSystemStyleElements(TSystemStyleElements members, bool include) {
  SetSystemStyleElements(include ? systemStyleElements_ + members : systemStyleElements_ - members);
}

// --- Properties

void TQuilCustomDBGrid::SetFixedCols(int value) {
  value = std::max(value, 0);
  if (value == fixedCols_) return;
  fixedCols_ = value;
  LayoutChanged();
  InvalidateEditor();
  Synchronize();
}

// The indicator needs room for its mark: narrower values are widened.
void TQuilCustomDBGrid::SetIndicatorWidth(int value) {
  value = std::max(value, 11);
  if (value == indicatorWidth_) return;
  indicatorWidth_ = value;
  Synchronize();
  if (!options_.Contains(dgIndicator)) return;
  LayoutChanged();
  InvalidateEditor();
}

void TQuilCustomDBGrid::SetLinesCount(int value) {
  if (value < 1 || value == linesCount_) return;
  linesCount_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetTitleLinesCount(int value) {
  if (value < 1 || value == titleLinesCount_) return;
  titleLinesCount_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetHeaderLinesCount(int value) {
  if (value < 1 || value == headerLinesCount_) return;
  headerLinesCount_ = value;
  LayoutChanged();
}

void TQuilCustomDBGrid::SetGridLineWidth(int value) {
  value = std::max(value, 1);
  if (value == GridLineWidth()) return;
  TCustomGrid::SetGridLineWidth(value);
  ApplyBaseOptions(options_);
  Perform(CM_STYLECHANGED, 0, 0);
  LayoutChanged();
}

void TQuilCustomDBGrid::SetBorderStyle(TBorderStyle value) {
  if (value == BorderStyle()) return;
  TCustomGrid::SetBorderStyle(value);
  UpdateHorzFlatSB();
  UpdateSearchPanel();
  if (!ComponentState().Contains(csLoading)) UpdateRowCount();
  LayoutChanged();
}

void TQuilCustomDBGrid::SetCtl3D(bool value) {
  ctl3DAuto_ = false;
  parentCtl3D_ = false;
  if (value == Ctl3D()) return;
  TCustomGrid::SetCtl3D(value);
  if (!ComponentState().Contains(csLoading)) UpdateRowCount();
  LayoutChanged();
}

void TQuilCustomDBGrid::SetCtl3DAuto(bool value) {
  if (value == ctl3DAuto_) return;
  ctl3DAuto_ = value;
  if (value) parentCtl3D_ = false;
  UpdateBorder(false);
  LayoutChanged();
}

void TQuilCustomDBGrid::SetEnabled(bool value) {
  if (value == Enabled()) return;
  TCustomGrid::SetEnabled(value);
  Invalidate();
  LayoutChanged();
}

void TQuilCustomDBGrid::CMBiDiModeChanged(TMessage& message) {
  // The base turns the existing window's layout direction, which is what recreating
  // the window would achieve; recreating it would also drop the scroll bars' state.
  TCustomGrid::CMBiDiModeChanged(message);
  InvalidateEditor();
  LayoutChanged();
}

void TQuilCustomDBGrid::SetHint(const QString& value) {
  hint_ = value;
  TCustomGrid::SetHint(value);
}


// FIXME: column sizing applies the line and width limits.
void TQuilCustomDBGrid::SetLimit(int& member, int value) {
  value = std::max(value, -1);
  if (value == member) return;
  member = value;
  LayoutChanged();
}

// --- Columns and fields

void TQuilCustomDBGrid::SetSelectedIndex(int dataCol) { MoveCol(DataToRawColumn(dataCol), 0); }

TQuilColumn* TQuilCustomDBGrid::SelectedColumn() const {
  int dataCol = SelectedIndex();
  return dataCol >= 0 && dataCol < columns_->Count() ? columns_->Items(dataCol) : nullptr;
}

void TQuilCustomDBGrid::SetSelectedColumn(TQuilColumn* column) {
  if (column) MoveCol(DataToRawColumn(column->Index()), 0);
}

TField* TQuilCustomDBGrid::SelectedField() const {
  TQuilColumn* column = SelectedColumn();
  return column ? column->Field() : nullptr;
}

void TQuilCustomDBGrid::SetSelectedField(TField* field) {
  if (!field) return;
  for (int dataCol = 0; dataCol < columns_->Count(); ++dataCol) {
    if (columns_->Items(dataCol)->Field() != field) continue;
    MoveCol(DataToRawColumn(dataCol), 0);
    return;
  }
}

// --- Totals part

TQuilDBGridTotals::TQuilDBGridTotals(TQuilCustomDBGrid* grid) : grid_(grid), font_(std::make_unique<TFont>()) {}

TQuilDBGridTotals::~TQuilDBGridTotals() = default;

}  // namespace quil
