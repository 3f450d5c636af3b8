#pragma once
// Controls: the framework's control contract over Qt Widgets.
//
// How input travels: Qt delivers an event to the QWidget of a TWinControl (made in
// CreateWnd). The widget first delivers the posted messages that are waiting, records the
// key and button state (GetKeyState), then turns the event into a window message and
// calls Perform: a key press becomes CM_CHILDKEY to the parents, CM_DIALOGKEY to the form
// for keys the control does not claim (WM_GETDLGCODE), then WM_KEYDOWN, and its characters
// are posted as WM_CHAR. A mouse press becomes WM_SETCURSOR and WM_LBUTTONDOWN... with the
// client point. Perform runs WndProc, which runs Dispatch: a switch from message number
// to the virtual message handler (WMKeyDown, WMLButtonDown, CMMouseWheel...). Those call
// the dynamic handlers (KeyDown, MouseDown, DoMouseWheelDown...), which fire the events.
// A message nobody handles reaches DefaultHandler, which hands the original Qt event to
// the widget's own class, so that a line edit still edits.
//
// How a paint travels: Qt's paint event becomes WM_PAINT, and WMPaint opens a QPainter
// clipped to the update region, binds the control's canvas to it and calls Paint. The
// frame outside the client area is WM_NCPAINT; WM_NCCALCSIZE decides where the client
// area lies (inside the border and the scroll bars).

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "framework/controls/Messages.h"
#include "framework/graphics/Colors.h"
#include "framework/graphics/Types.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"

class QWidget;

namespace quil {

class TCanvas;
class TFont;
class TPopupMenu;
class TWinControl;
class TBasicAction;
class TCustomHint;
class TControl;
class TEnumTypeInfo;
class TWinControlPrivate;

enum TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom };
const TEnumTypeInfo& TypeInfo(TAlign);
enum TBiDiMode { bdLeftToRight, bdRightToLeft, bdRightToLeftNoAlign, bdRightToLeftReadingOnly };
const TEnumTypeInfo& TypeInfo(TBiDiMode);
enum TBorderStyle { bsNone, bsSingle };
const TEnumTypeInfo& TypeInfo(TBorderStyle);

// The sides of its parent a control keeps its distance to while the parent is sized.
enum TAnchorKind { akLeft, akTop, akRight, akBottom };
using TAnchors = TSet<TAnchorKind>;
const TEnumTypeInfo& TypeInfo(TAnchorKind);
// dkDock marks a control made to dock into another, such as a dropped-down list.
enum TDragKind { dkDrag, dkDock };
const TEnumTypeInfo& TypeInfo(TDragKind);
enum TDragMode { dmManual, dmAutomatic };
const TEnumTypeInfo& TypeInfo(TDragMode);
// How a window's input method starts. Qt has it on or off: imDisable and imClose turn it
// off, the rest leave it on.
enum TImeMode {
  imDisable, imClose, imOpen, imDontCare, imSAlpha, imAlpha, imHira, imSKata, imKata, imChinese,
  imSHanguel, imHanguel
};
const TEnumTypeInfo& TypeInfo(TImeMode);

using TCursor = int16_t;
constexpr TCursor crDefault = 0;
constexpr TCursor crNone = -1;
constexpr TCursor crArrow = -2;
constexpr TCursor crCross = -3;
constexpr TCursor crIBeam = -4;
constexpr TCursor crSizeNESW = -6;
constexpr TCursor crSizeNS = -7;
constexpr TCursor crSizeNWSE = -8;
constexpr TCursor crSizeWE = -9;
constexpr TCursor crUpArrow = -10;
constexpr TCursor crHourGlass = -11;
constexpr TCursor crDrag = -12;
constexpr TCursor crNoDrop = -13;
constexpr TCursor crHSplit = -14;
constexpr TCursor crVSplit = -15;
constexpr TCursor crMultiDrag = -16;
constexpr TCursor crSQLWait = -17;
constexpr TCursor crNo = -18;
constexpr TCursor crAppStart = -19;
constexpr TCursor crHelp = -20;
constexpr TCursor crHandPoint = -21;
constexpr TCursor crSizeAll = -22;

enum TControlStateMember {
  csLButtonDown, csClicked, csPalette, csReadingState, csAlignmentNeeded, csFocusing,
  csCreating, csPaintCopy, csCustomPaint, csDestroyingHandle, csDocking
};
using TControlState = TSet<TControlStateMember>;

enum TControlStyleMember {
  csAcceptsControls, csCaptureMouse, csDesignInteractive, csClickEvents, csFramed,
  csSetCaption, csOpaque, csDoubleClicks, csFixedWidth, csFixedHeight, csNoDesignVisible,
  csReplicatable, csNoStdEvents, csDisplayDragImage, csReflector, csActionClient,
  csMenuEvents, csNeedsBorderPaint, csParentBackground
};
using TControlStyle = TSet<TControlStyleMember>;

// The parts of a control that follow a custom style; the others keep the control's own.
enum TStyleElement { seFont, seClient, seBorder };
using TStyleElements = TSet<TStyleElement>;
const TEnumTypeInfo& TypeInfo(TStyleElement);

using TMouseEvent = TEvent<void(TObject* sender, TMouseButton button, TShiftState shift, int x, int y)>;
using TMouseMoveEvent = TEvent<void(TObject* sender, TShiftState shift, int x, int y)>;
using TKeyEvent = TEvent<void(TObject* sender, uint16_t& key, TShiftState shift)>;
using TKeyPressEvent = TEvent<void(TObject* sender, QChar& key)>;
using TMouseWheelEvent =
    TEvent<void(TObject* sender, TShiftState shift, int wheelDelta, TPoint mousePos, bool& handled)>;
using TMouseWheelUpDownEvent =
    TEvent<void(TObject* sender, TShiftState shift, TPoint mousePos, bool& handled)>;

// Limits of a control's size in pixels; 0 leaves a limit open. A change applies at once.
class TSizeConstraints : public TPersistent {
public:
  explicit TSizeConstraints(TControl* control) : control_(control) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int MaxHeight() const { return maxHeight_; }
  void SetMaxHeight(int value) { Store(maxHeight_, value); }
  int MaxWidth() const { return maxWidth_; }
  void SetMaxWidth(int value) { Store(maxWidth_, value); }
  int MinHeight() const { return minHeight_; }
  void SetMinHeight(int value) { Store(minHeight_, value); }
  int MinWidth() const { return minWidth_; }
  void SetMinWidth(int value) { Store(minWidth_, value); }
  // Brings a size within the limits.
  void Constrain(int& width, int& height) const;
  void Assign(const TPersistent* source) override;
  TPersistent* GetOwner() const override;

private:
  void Store(int& member, int value);

  TControl* control_;
  int maxHeight_ = 0;
  int maxWidth_ = 0;
  int minHeight_ = 0;
  int minWidth_ = 0;
};

class TControl : public TComponent {
public:
  explicit TControl(TComponent* owner);
  ~TControl() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TWinControl* Parent() const { return parent_; }
  virtual void SetParent(TWinControl* parent);

  int Left() const { return bounds_.Left; }
  int Top() const { return bounds_.Top; }
  int Width() const { return bounds_.Width(); }
  int Height() const { return bounds_.Height(); }
  void SetLeft(int left) { SetBounds(left, Top(), Width(), Height()); }
  void SetTop(int top) { SetBounds(Left(), top, Width(), Height()); }
  void SetWidth(int width) { SetBounds(Left(), Top(), width, Height()); }
  void SetHeight(int height) { SetBounds(Left(), Top(), Width(), height); }
  // In the parent's client coordinates.
  virtual void SetBounds(int left, int top, int width, int height);
  TRect BoundsRect() const { return bounds_; }
  void SetBoundsRect(const TRect& rect) { SetBounds(rect.Left, rect.Top, rect.Width(), rect.Height()); }

  virtual TRect ClientRect() const;
  int ClientWidth() const { return ClientRect().Width(); }
  int ClientHeight() const { return ClientRect().Height(); }
  // The screen point of the client area's top left corner.
  virtual TPoint ClientOrigin() const;
  TPoint ScreenToClient(TPoint point) const;
  TPoint ClientToScreen(TPoint point) const;

  TAlign Align() const { return align_; }
  void SetAlign(TAlign align);

  // The text a control shows: a label's, a button's, a form's title.
  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& caption);

  bool Visible() const { return visible_; }
  virtual void SetVisible(bool visible);
  void Show() { SetVisible(true); }
  void Hide() { SetVisible(false); }
  // Visible, and so is every parent up to a shown window.
  virtual bool Showing() const;

  bool Enabled() const { return enabled_; }
  virtual void SetEnabled(bool enabled);

  TFont* Font() const { return font_.get(); }
  void SetFont(const TFont* font);
  bool ParentFont() const { return parentFont_; }
  void SetParentFont(bool parentFont);
  TColor Color() const { return color_; }
  void SetColor(TColor color);
  bool ParentColor() const { return parentColor_; }
  void SetParentColor(bool parentColor);
  // What follows the parent is stored only once the control has its own.
  bool IsFontStored() const { return !parentFont_; }
  bool IsColorStored() const { return !parentColor_; }
  bool IsBiDiModeStored() const { return !parentBiDiMode_; }
  bool IsShowHintStored() const { return !parentShowHint_; }

  TStyleElements StyleElements() const { return styleElements_; }
  // Repaints through CM_STYLECHANGED, as a switch of style does.
  void SetStyleElements(TStyleElements elements);

  TBiDiMode BiDiMode() const { return biDiMode_; }
  void SetBiDiMode(TBiDiMode mode);
  bool ParentBiDiMode() const { return parentBiDiMode_; }
  void SetParentBiDiMode(bool parentBiDiMode);
  virtual bool UseRightToLeftAlignment() const { return biDiMode_ == bdRightToLeft; }
  virtual bool UseRightToLeftReading() const { return biDiMode_ != bdLeftToRight; }
  virtual bool UseRightToLeftScrollBar() const;

  const QString& Hint() const { return hint_; }
  void SetHint(const QString& hint) { hint_ = hint; }
  bool ShowHint() const { return showHint_; }
  void SetShowHint(bool showHint);
  bool ParentShowHint() const { return parentShowHint_; }
  void SetParentShowHint(bool parentShowHint);

  TPopupMenu* PopupMenu() const { return popupMenu_; }
  void SetPopupMenu(TPopupMenu* menu);

  TCursor Cursor() const { return cursor_; }
  void SetCursor(TCursor cursor);

  TAnchors Anchors() const { return anchors_; }
  void SetAnchors(TAnchors anchors);
  TSizeConstraints* Constraints() const { return constraints_.get(); }
  void SetConstraints(const TSizeConstraints* constraints) { constraints_->Assign(constraints); }
  // Stored for dragging; the framework starts no drag of its own.
  TCursor DragCursor() const { return dragCursor_; }
  void SetDragCursor(TCursor cursor) { dragCursor_ = cursor; }
  TDragKind DragKind() const { return dragKind_; }
  void SetDragKind(TDragKind kind) { dragKind_ = kind; }
  TDragMode DragMode() const { return dragMode_; }
  void SetDragMode(TDragMode mode) { dragMode_ = mode; }
  // The component that shows the control's hints in place of the plain hint window.
  TCustomHint* CustomHint() const { return customHint_; }
  void SetCustomHint(TCustomHint* hint);
  bool ParentCustomHint() const { return parentCustomHint_; }
  void SetParentCustomHint(bool parentCustomHint) { parentCustomHint_ = parentCustomHint; }

  TControlState ControlState() const { return controlState_; }
  TControlStyle ControlStyle() const { return controlStyle_; }
  void SetControlStyle(TControlStyle style) { controlStyle_ = style; }

  // Delivers a message at once through WndProc and answers its Result.
  LRESULT Perform(UINT msg, WPARAM wParam, LPARAM lParam);
  virtual void Dispatch(TMessage& message);
  virtual void DefaultHandler(TMessage& message) {}

  // Standard actions: a control handles none itself; a descendant that does answers true.
  virtual bool ExecuteAction(TBasicAction* action) { return false; }
  virtual bool UpdateAction(TBasicAction* action) { return false; }

  virtual void Invalidate();
  // Paints what is invalid now, without waiting for the event loop.
  virtual void Update();
  virtual void Repaint();
  void Refresh() { Repaint(); }
  void BringToFront();

  // Pixels per inch of the screen the control is on, or of Screen's test override.
  int GetCurrentPPI() const;
  void ScaleBy(int multiplier, int divider) { ChangeScale(multiplier, divider); }

  bool MouseCapture() const;
  void SetMouseCapture(bool capture);

  const TNotifyEvent& OnClick() const { return onClick_; }
  void SetOnClick(const TNotifyEvent& handler) { onClick_ = handler; }
  const TNotifyEvent& OnDblClick() const { return onDblClick_; }
  void SetOnDblClick(const TNotifyEvent& handler) { onDblClick_ = handler; }
  const TMouseEvent& OnMouseDown() const { return onMouseDown_; }
  void SetOnMouseDown(const TMouseEvent& handler) { onMouseDown_ = handler; }
  const TMouseMoveEvent& OnMouseMove() const { return onMouseMove_; }
  void SetOnMouseMove(const TMouseMoveEvent& handler) { onMouseMove_ = handler; }
  const TMouseEvent& OnMouseUp() const { return onMouseUp_; }
  void SetOnMouseUp(const TMouseEvent& handler) { onMouseUp_ = handler; }
  const TMouseWheelEvent& OnMouseWheel() const { return onMouseWheel_; }
  void SetOnMouseWheel(const TMouseWheelEvent& handler) { onMouseWheel_ = handler; }
  const TMouseWheelUpDownEvent& OnMouseWheelDown() const { return onMouseWheelDown_; }
  void SetOnMouseWheelDown(const TMouseWheelUpDownEvent& handler) { onMouseWheelDown_ = handler; }
  const TMouseWheelUpDownEvent& OnMouseWheelUp() const { return onMouseWheelUp_; }
  void SetOnMouseWheelUp(const TMouseWheelUpDownEvent& handler) { onMouseWheelUp_ = handler; }
  const TNotifyEvent& OnMouseEnter() const { return onMouseEnter_; }
  void SetOnMouseEnter(const TNotifyEvent& handler) { onMouseEnter_ = handler; }
  const TNotifyEvent& OnMouseLeave() const { return onMouseLeave_; }
  void SetOnMouseLeave(const TNotifyEvent& handler) { onMouseLeave_ = handler; }
  const TNotifyEvent& OnResize() const { return onResize_; }
  void SetOnResize(const TNotifyEvent& handler) { onResize_ = handler; }

protected:
  friend class TWinControl;
  friend class TWinControlPrivate;
  friend class TSizeConstraints;

  virtual void WndProc(TMessage& message);

  virtual void Click();
  virtual void DblClick();
  virtual void MouseDown(TMouseButton button, TShiftState shift, int x, int y);
  virtual void MouseMove(TShiftState shift, int x, int y);
  virtual void MouseUp(TMouseButton button, TShiftState shift, int x, int y);
  virtual bool DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos);
  virtual bool DoMouseWheelDown(TShiftState shift, TPoint mousePos);
  virtual bool DoMouseWheelUp(TShiftState shift, TPoint mousePos);
  virtual void Resize();
  // Scales bounds and font by multiplier / divider, as a change of resolution does.
  virtual void ChangeScale(int multiplier, int divider);
  virtual void BoundsChanged() {}

  virtual void WMMouseMove(TMessage& message);
  virtual void WMLButtonDown(TMessage& message);
  virtual void WMLButtonUp(TMessage& message);
  virtual void WMLButtonDblClk(TMessage& message);
  virtual void WMRButtonDown(TMessage& message);
  virtual void WMRButtonUp(TMessage& message);
  // Pops up PopupMenu at the screen point; a control without one asks its parent.
  virtual void WMContextMenu(TMessage& message);
  virtual void WMMButtonDown(TMessage& message);
  virtual void WMMButtonUp(TMessage& message);
  virtual void WMMouseWheel(TMessage& message);
  virtual void WMCancelMode(TMessage& message);
  virtual void CMMouseWheel(TMessage& message);
  virtual void CMMouseEnter(TMessage& message);
  virtual void CMMouseLeave(TMessage& message);
  virtual void CMEnabledChanged(TMessage& message);
  virtual void CMVisibleChanged(TMessage& message);
  virtual void CMFontChanged(TMessage& message);
  virtual void CMParentFontChanged(TMessage& message);
  virtual void CMColorChanged(TMessage& message);
  virtual void CMParentColorChanged(TMessage& message);
  virtual void CMParentShowHintChanged(TMessage& message);
  virtual void CMBiDiModeChanged(TMessage& message);
  virtual void CMParentBiDiModeChanged(TMessage& message);
  virtual void CMHintShow(TMessage& message) {}
  // The window came into view or went out of it, itself or with a parent.
  virtual void CMShowingChanged(TMessage& message) {}
  // Another control takes the mouse capture (LParam: it) or a modal window starts: a
  // control ends what it tracks, such as a dropped-down list.
  virtual void CMCancelMode(TMessage& message) {}
  // WParam: a hint was showing; LParam: int* to the pause in milliseconds, to change.
  virtual void CMHintShowPause(TMessage& message) {}
  virtual void CMStyleChanged(TMessage& message) { Invalidate(); }
  virtual void CMTextChanged(TMessage& message) { Invalidate(); }

  void Notification(TComponent* component, TOperation operation) override;
  // Applies the Constraints to the bounds now, as after a change of a limit.
  virtual void ConstraintsChanged();
  // For constructors: sets Visible without telling anyone.
  void SetInitialVisible(bool visible) { visible_ = visible; }
  void IncludeControlState(TControlStateMember member) { controlState_.Include(member); }
  void ExcludeControlState(TControlStateMember member) { controlState_.Exclude(member); }
  // The rectangle a parent paints for this control, in the parent's client coordinates.
  virtual void InvalidateControl(bool isVisible, bool isOpaque);

private:
  void FontChanged(TObject* sender);
  void MouseButtonDown(TMessage& message, TMouseButton button, TShiftState extra);
  void MouseButtonUp(TMessage& message, TMouseButton button);
  void NotifyParentChanged(UINT msg);
  // Notes the distances to the parent's sides that the anchors keep.
  void RecordAnchorRules();
  // Places the control by its anchors in a parent whose client area is now clientSize.
  void ApplyAnchors(TPoint clientSize);

  TWinControl* parent_ = nullptr;
  TRect bounds_;
  TAlign align_ = alNone;
  QString caption_;
  bool visible_ = true;
  bool enabled_ = true;
  std::unique_ptr<TFont> font_;
  bool parentFont_ = true;
  // Set while the font is taken from the parent, so that the change keeps ParentFont.
  bool takingParentFont_ = false;
  TColor color_ = clWindow;
  bool parentColor_ = true;
  TStyleElements styleElements_{seFont, seClient, seBorder};
  TBiDiMode biDiMode_ = bdLeftToRight;
  bool parentBiDiMode_ = true;
  QString hint_;
  bool showHint_ = false;
  bool parentShowHint_ = true;
  TPopupMenu* popupMenu_ = nullptr;
  TCursor cursor_ = crDefault;
  TAnchors anchors_ = {akLeft, akTop};
  // The bounds and the parent's client size when the control was last placed by hand;
  // anchoring works from them.
  TRect anchorBounds_;
  TPoint anchorClientSize_;
  bool anchoring_ = false;
  std::unique_ptr<TSizeConstraints> constraints_;
  TCursor dragCursor_ = crDrag;
  TDragKind dragKind_ = dkDrag;
  TDragMode dragMode_ = dmManual;
  TCustomHint* customHint_ = nullptr;
  bool parentCustomHint_ = true;
  TControlState controlState_;
  TControlStyle controlStyle_;
  int wheelAccumulator_ = 0;

  TNotifyEvent onClick_, onDblClick_, onMouseEnter_, onMouseLeave_, onResize_;
  TMouseEvent onMouseDown_, onMouseUp_;
  TMouseMoveEvent onMouseMove_;
  TMouseWheelEvent onMouseWheel_;
  TMouseWheelUpDownEvent onMouseWheelDown_, onMouseWheelUp_;
};

// A control with a window of its own: a QWidget made by CreateWnd, which owns focus,
// keys, child controls and scroll bars.
class TWinControl : public TControl {
public:
  explicit TWinControl(TComponent* owner);
  ~TWinControl() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The window exists.
  bool HandleAllocated() const;
  void HandleNeeded();
  // The window, made when asked for.
  QWidget* Handle();
  void RecreateWnd();

  void SetParent(TWinControl* parent) override;
  void SetBounds(int left, int top, int width, int height) override;
  void SetVisible(bool visible) override;
  bool Showing() const override;
  TRect ClientRect() const override;
  TPoint ClientOrigin() const override;

  int ControlCount() const { return int(controls_.size()); }
  TControl* Controls(int index) const { return controls_.at(size_t(index)); }
  void InsertControl(TControl* control);
  void RemoveControl(TControl* control);
  // The child control at a client point, null when none is there.
  TControl* ControlAtPos(TPoint point) const;
  // Lays the aligned children out again in the client area.
  void Realign();

  bool TabStop() const { return tabStop_; }
  void SetTabStop(bool tabStop) { tabStop_ = tabStop; }
  // The place among the parent's window controls that Tab follows; -1 without a parent.
  // Set before the control has a parent, it is taken when it gets one.
  int TabOrder() const;
  void SetTabOrder(int order);
  TImeMode ImeMode() const { return imeMode_; }
  void SetImeMode(TImeMode mode);
  // An input method is composing text in this window (between WM_IME_STARTCOMPOSITION
  // and WM_IME_ENDCOMPOSITION).
  bool ImeComposing() const;
  // The input method the control asks for; Qt chooses it, so the name is kept only.
  const QString& ImeName() const { return imeName_; }
  void SetImeName(const QString& name) { imeName_ = name; }
  bool Ctl3D() const { return ctl3D_; }
  void SetCtl3D(bool ctl3D);
  // Qt paints every window through a back buffer whatever this says; a control reads it
  // to choose how much it repaints itself.
  bool DoubleBuffered() const { return doubleBuffered_; }
  void SetDoubleBuffered(bool value) { doubleBuffered_ = value; }
  bool Focused() const;
  virtual bool CanFocus() const;
  virtual void SetFocus();

  void Invalidate() override;
  void Update() override;
  void Repaint() override;
  // In client coordinates. ValidateRect takes a rectangle out of what the next paint
  // draws; InvalidateRect puts it back.
  void InvalidateRect(const TRect& rect);
  void ValidateRect(const TRect& rect);
  // The window's update region: what is invalid and not painted yet, in client
  // coordinates, as disjoint rectangles.
  std::vector<TRect> UpdateRects() const;
  // Moves the pixels of scrollRect (the whole client area when null) by dx, dy, clipped
  // to clipRect, and invalidates what was uncovered.
  void ScrollWindowEx(int dx, int dy, const TRect* scrollRect, const TRect* clipRect);
  // Runs WM_NCCALCSIZE again, as when the frame or a scroll bar changed.
  void RecalcClientArea();

  const TKeyEvent& OnKeyDown() const { return onKeyDown_; }
  void SetOnKeyDown(const TKeyEvent& handler) { onKeyDown_ = handler; }
  const TKeyPressEvent& OnKeyPress() const { return onKeyPress_; }
  void SetOnKeyPress(const TKeyPressEvent& handler) { onKeyPress_ = handler; }
  const TKeyEvent& OnKeyUp() const { return onKeyUp_; }
  void SetOnKeyUp(const TKeyEvent& handler) { onKeyUp_ = handler; }
  const TNotifyEvent& OnEnter() const { return onEnter_; }
  void SetOnEnter(const TNotifyEvent& handler) { onEnter_ = handler; }
  const TNotifyEvent& OnExit() const { return onExit_; }
  void SetOnExit(const TNotifyEvent& handler) { onExit_ = handler; }

  // The private window state; for the framework's own files only.
  TWinControlPrivate* Private() const { return d_.get(); }

protected:
  friend class TWinControlPrivate;

  virtual void CreateHandle();
  virtual void CreateWnd();
  virtual void DestroyWnd();
  // Makes the QWidget of this control; a native control makes its own kind.
  virtual QWidget* CreateWidget();
  // Places the aligned children in rect and takes what they use off it.
  virtual void AlignControls(TControl* control, TRect& rect);

  void Dispatch(TMessage& message) override;
  void DefaultHandler(TMessage& message) override;

  virtual void KeyDown(uint16_t& key, TShiftState shift);
  virtual void KeyPress(QChar& key);
  virtual void KeyUp(uint16_t& key, TShiftState shift);
  virtual void DoEnter();
  virtual void DoExit();
  // Paints into canvas, already clipped to the update region in client coordinates.
  virtual void PaintWindow(TCanvas* canvas) {}
  // Paints the graphic child controls over this window.
  void PaintControls(TCanvas* canvas);
  // Sets the mouse cursor of the window now, as a WM_SETCURSOR handler does.
  void ApplyCursor(TCursor cursor);

  virtual void WMPaint(TMessage& message);
  virtual void WMNCPaint(TMessage& message);
  virtual void WMNCCalcSize(TMessage& message);
  virtual void WMEraseBkgnd(TMessage& message) { message.Result = 1; }
  virtual void WMSize(TMessage& message);
  virtual void WMMove(TMessage& message) {}
  virtual void WMSetFocus(TMessage& message) {}
  virtual void WMKillFocus(TMessage& message) {}
  virtual void WMSetCursor(TMessage& message);
  virtual void WMKeyDown(TMessage& message);
  virtual void WMKeyUp(TMessage& message);
  virtual void WMChar(TMessage& message);
  virtual void WMGetDlgCode(TMessage& message) {}
  virtual void WMHScroll(TMessage& message) {}
  virtual void WMVScroll(TMessage& message) {}
  // Qt's input method events arrive as these, before the widget's own class takes the
  // event (a line edit composes with it).
  virtual void WMImeStartComposition(TMessage& message) {}
  virtual void WMImeComposition(TMessage& message) {}
  virtual void WMImeEndComposition(TMessage& message) {}
  // Turns Qt's input method on or off for the window as ImeMode says; imDontCare leaves
  // the widget class's own choice.
  virtual void UpdateInputMethod();
  virtual void CMEnter(TMessage& message) { DoEnter(); }
  virtual void CMExit(TMessage& message) { DoExit(); }
  // Hands the key to the parent, which may take it (Result not 0).
  virtual void CMChildKey(TMessage& message);
  // The top-level window moves the focus on Tab.
  virtual void CMDialogKey(TMessage& message);
  virtual void CMWantSpecialKey(TMessage& message) {}
  virtual void CMBorderChanged(TMessage& message) { RecalcClientArea(); }

  void CMEnabledChanged(TMessage& message) override;
  void CMFontChanged(TMessage& message) override;
  void CMColorChanged(TMessage& message) override;
  void CMVisibleChanged(TMessage& message) override;
  void CMBiDiModeChanged(TMessage& message) override;
  void ChangeScale(int multiplier, int divider) override;
  void InvalidateControl(bool isVisible, bool isOpaque) override;

  // Keys and character handlers: false when a handler took the key.
  bool DoKeyDown(TMessage& message);
  bool DoKeyPress(TMessage& message);
  bool DoKeyUp(TMessage& message);

private:
  void UpdateWidgetGeometry();
  void CreateChildHandles();
  void NotifyChildren(UINT msg);
  // Tells Qt the Tab order of the child windows that exist.
  void ApplyTabOrder();
  void ConstraintsChanged() override;

  std::unique_ptr<TWinControlPrivate> d_;
  std::vector<TControl*> controls_;
  std::vector<TWinControl*> tabList_;  // the child windows in Tab order
  int pendingTabOrder_ = -1;            // asked for before there was a parent; -1: none
  TImeMode imeMode_ = imDontCare;
  QString imeName_;
  bool tabStop_ = false;
  bool ctl3D_ = true;
  bool doubleBuffered_ = false;
  bool aligning_ = false;
  TKeyEvent onKeyDown_, onKeyUp_;
  TKeyPressEvent onKeyPress_;
  TNotifyEvent onEnter_, onExit_;
};

// A window control that paints itself through its own Canvas in Paint.
class TCustomControl : public TWinControl {
public:
  explicit TCustomControl(TComponent* owner);
  ~TCustomControl() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Bound to the window's painter during Paint; measuring works at any time.
  TCanvas* Canvas() const { return canvas_.get(); }

protected:
  virtual void Paint() {}
  void PaintWindow(TCanvas* canvas) override;
  void WMPaint(TMessage& message) override;

private:
  std::unique_ptr<TCanvas> canvas_;
};

// A control without a window: its parent paints it and hands it the mouse.
class TGraphicControl : public TControl {
public:
  explicit TGraphicControl(TComponent* owner);
  ~TGraphicControl() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TCanvas* Canvas() const { return canvas_.get(); }

protected:
  friend class TWinControl;
  virtual void Paint() {}

private:
  // Paints into Canvas, which the parent has bound to its painter.
  void PaintWithParent();

  std::unique_ptr<TCanvas> canvas_;
};

// A window, as the framework's window calls take it, and the places SetWindowPos can
// put a window in the order of its siblings.
using HWND = TWinControl*;
inline const HWND HWND_TOP = nullptr;
inline const HWND HWND_BOTTOM = reinterpret_cast<HWND>(intptr_t(1));
inline const HWND HWND_TOPMOST = reinterpret_cast<HWND>(intptr_t(-1));
inline const HWND HWND_NOTOPMOST = reinterpret_cast<HWND>(intptr_t(-2));

constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOREDRAW = 0x0008;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_FRAMECHANGED = 0x0020;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;

// Moves, sizes, orders, shows or hides a window as flags say, in its parent's client
// coordinates (the screen's for a top-level window). Showing and hiding act on the
// window alone: Visible does not change. SWP_FRAMECHANGED works out the client area
// again. HWND_TOPMOST keeps a top-level window above the others; insertAfter may also
// be a sibling, which the window then goes under. False without a window.
bool SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);

// The control of a window, null when the window belongs to none.
TWinControl* FindControl(const QWidget* widget);
// The control that holds the mouse, null when none does.
TControl* GetCaptureControl();
void SetCaptureControl(TControl* control);

}  // namespace quil
