#include <cassert>
#include <cstdlib>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/Hints.h"
#include "framework/controls/KeyMapping.h"
#include "framework/controls/Menus.h"
#include "framework/controls/MessageQueue.h"
#include "framework/graphics/Font.h"

namespace quil {

namespace {
TControl* captureControl = nullptr;
}

TControl* GetCaptureControl() { return captureControl; }
// The control that held the capture hears first that another one takes it.
void SetCaptureControl(TControl* control) {
  TControl* old = captureControl;
  if (old && old != control) old->Perform(CM_CANCELMODE, 0, LPARAM(control));
  captureControl = control;
}

const TMetaClass& TControl::StaticClass() {
  static const TMetaClass meta = TMetaClass("TControl", &TComponent::StaticClass());
  return meta;
}

const TMetaClass& TControl::ClassType() const { return StaticClass(); }

TControl::TControl(TComponent* owner)
    : TComponent(owner), font_(std::make_unique<TFont>()), constraints_(std::make_unique<TSizeConstraints>(this)) {
  controlStyle_ = {csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
  font_->SetOnChange(TNotifyEvent(this, &TControl::FontChanged));
  bounds_ = Bounds(0, 0, 0, 0);
}

TControl::~TControl() {
  Destroying();
  if (captureControl == this) captureControl = nullptr;
  DiscardPostedMessages(this);
  if (parent_) SetParent(nullptr);
}

void TControl::SetParent(TWinControl* parent) {
  if (parent_ == parent) return;
  assert(parent != this && "a control cannot be its own parent");
  if (parent_) parent_->RemoveControl(this);
  if (parent) {
    parent->InsertControl(this);
    RecordAnchorRules();
    NotifyParentChanged(CM_PARENTFONTCHANGED);
    NotifyParentChanged(CM_PARENTCOLORCHANGED);
    NotifyParentChanged(CM_PARENTBIDIMODECHANGED);
    NotifyParentChanged(CM_PARENTSHOWHINTCHANGED);
  }
}

void TControl::NotifyParentChanged(UINT msg) { Perform(msg, 0, 0); }

void TControl::SetBounds(int left, int top, int width, int height) {
  constraints_->Constrain(width, height);
  TRect bounds = Bounds(left, top, std::max(width, 0), std::max(height, 0));
  if (bounds == bounds_) {
    RecordAnchorRules();
    return;
  }
  InvalidateControl(visible_, false);
  bool resized = bounds.Size() != bounds_.Size();
  bounds_ = bounds;
  RecordAnchorRules();
  InvalidateControl(visible_, false);
  BoundsChanged();
  if (resized) Resize();
}

TRect TControl::ClientRect() const { return Rect(0, 0, Width(), Height()); }

TPoint TControl::ClientOrigin() const {
  if (!parent_) return Point(Left(), Top());
  TPoint origin = parent_->ClientOrigin();
  return Point(origin.X + Left(), origin.Y + Top());
}

TPoint TControl::ScreenToClient(TPoint point) const {
  TPoint origin = ClientOrigin();
  return Point(point.X - origin.X, point.Y - origin.Y);
}

TPoint TControl::ClientToScreen(TPoint point) const {
  TPoint origin = ClientOrigin();
  return Point(point.X + origin.X, point.Y + origin.Y);
}

void TControl::SetAlign(TAlign align) {
  if (align_ == align) return;
  align_ = align;
  if (parent_) parent_->Realign();
}

void TControl::SetCaption(const QString& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Perform(CM_TEXTCHANGED, 0, 0);
}

void TControl::SetVisible(bool visible) {
  if (visible_ == visible) return;
  InvalidateControl(true, false);
  visible_ = visible;
  Perform(CM_VISIBLECHANGED, WPARAM(visible), 0);
  if (parent_ && align_ != alNone) parent_->Realign();
}

bool TControl::Showing() const { return visible_ && parent_ && parent_->Showing(); }

void TControl::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Perform(CM_ENABLEDCHANGED, 0, 0);
}

void TControl::SetFont(const TFont* font) { font_->Assign(font); }

void TControl::FontChanged(TObject*) {
  if (!takingParentFont_) parentFont_ = false;
  Perform(CM_FONTCHANGED, 0, 0);
}

void TControl::SetParentFont(bool parentFont) {
  if (parentFont_ == parentFont) return;
  parentFont_ = parentFont;
  if (parentFont) Perform(CM_PARENTFONTCHANGED, 0, 0);
}

void TControl::SetColor(TColor color) {
  if (color_ == color) return;
  color_ = color;
  parentColor_ = false;
  Perform(CM_COLORCHANGED, 0, 0);
}

void TControl::SetParentColor(bool parentColor) {
  if (parentColor_ == parentColor) return;
  parentColor_ = parentColor;
  if (parentColor) Perform(CM_PARENTCOLORCHANGED, 0, 0);
}

void TControl::SetStyleElements(TStyleElements elements) {
  if (elements == styleElements_) return;
  styleElements_ = elements;
  Perform(CM_STYLECHANGED, 0, 0);
}

void TControl::SetBiDiMode(TBiDiMode mode) {
  if (biDiMode_ == mode) return;
  biDiMode_ = mode;
  parentBiDiMode_ = false;
  Perform(CM_BIDIMODECHANGED, 0, 0);
}

void TControl::SetParentBiDiMode(bool parentBiDiMode) {
  if (parentBiDiMode_ == parentBiDiMode) return;
  parentBiDiMode_ = parentBiDiMode;
  if (parentBiDiMode) Perform(CM_PARENTBIDIMODECHANGED, 0, 0);
}

bool TControl::UseRightToLeftScrollBar() const {
  return biDiMode_ == bdRightToLeft || biDiMode_ == bdRightToLeftNoAlign;
}

void TControl::SetShowHint(bool showHint) {
  if (showHint_ == showHint) return;
  showHint_ = showHint;
  parentShowHint_ = false;
}

void TControl::SetParentShowHint(bool parentShowHint) {
  if (parentShowHint_ == parentShowHint) return;
  parentShowHint_ = parentShowHint;
  if (parentShowHint) Perform(CM_PARENTSHOWHINTCHANGED, 0, 0);
}

void TControl::SetPopupMenu(TPopupMenu* menu) {
  if (popupMenu_ == menu) return;
  if (popupMenu_) RemoveFreeNotification(popupMenu_);
  popupMenu_ = menu;
  if (menu) FreeNotification(menu);
}

void TControl::Notification(TComponent* component, TOperation operation) {
  TComponent::Notification(component, operation);
  if (operation == opRemove && component == popupMenu_) popupMenu_ = nullptr;
  if (operation == opRemove && component == static_cast<TComponent*>(customHint_)) customHint_ = nullptr;
}

void TControl::SetCursor(TCursor cursor) {
  if (cursor_ == cursor) return;
  cursor_ = cursor;
  Perform(CM_CURSORCHANGED, 0, 0);
}

LRESULT TControl::Perform(UINT msg, WPARAM wParam, LPARAM lParam) {
  TMessage message{msg, wParam, lParam, 0};
  WndProc(message);
  return message.Result;
}

void TControl::WndProc(TMessage& message) {
  if (message.Msg == WM_LBUTTONDOWN || message.Msg == WM_LBUTTONDBLCLK) {
    if (controlStyle_.Contains(csCaptureMouse)) SetMouseCapture(true);
    if (controlStyle_.Contains(csClickEvents)) controlState_.Include(csClicked);
  } else if (message.Msg == WM_LBUTTONUP) {
    if (controlStyle_.Contains(csCaptureMouse)) SetMouseCapture(false);
  }
  Dispatch(message);
}

void TControl::Dispatch(TMessage& message) {
  switch (message.Msg) {
    case WM_MOUSEMOVE: WMMouseMove(message); break;
    case WM_LBUTTONDOWN: WMLButtonDown(message); break;
    case WM_LBUTTONUP: WMLButtonUp(message); break;
    case WM_LBUTTONDBLCLK: WMLButtonDblClk(message); break;
    case WM_RBUTTONDOWN: WMRButtonDown(message); break;
    case WM_RBUTTONUP: WMRButtonUp(message); break;
    case WM_CONTEXTMENU: WMContextMenu(message); break;
    case WM_MBUTTONDOWN: WMMButtonDown(message); break;
    case WM_MBUTTONUP: WMMButtonUp(message); break;
    case WM_MOUSEWHEEL: WMMouseWheel(message); break;
    case WM_CANCELMODE: WMCancelMode(message); break;
    case CM_MOUSEWHEEL: CMMouseWheel(message); break;
    case CM_MOUSEENTER: CMMouseEnter(message); break;
    case CM_MOUSELEAVE: CMMouseLeave(message); break;
    case CM_ENABLEDCHANGED: CMEnabledChanged(message); break;
    case CM_VISIBLECHANGED: CMVisibleChanged(message); break;
    case CM_FONTCHANGED: CMFontChanged(message); break;
    case CM_PARENTFONTCHANGED: CMParentFontChanged(message); break;
    case CM_COLORCHANGED: CMColorChanged(message); break;
    case CM_PARENTCOLORCHANGED: CMParentColorChanged(message); break;
    case CM_PARENTSHOWHINTCHANGED: CMParentShowHintChanged(message); break;
    case CM_BIDIMODECHANGED: CMBiDiModeChanged(message); break;
    case CM_PARENTBIDIMODECHANGED: CMParentBiDiModeChanged(message); break;
    case CM_HINTSHOW: CMHintShow(message); break;
    case CM_SHOWINGCHANGED: CMShowingChanged(message); break;
    case CM_CANCELMODE: CMCancelMode(message); break;
    case CM_HINTSHOWPAUSE: CMHintShowPause(message); break;
    case CM_STYLECHANGED: CMStyleChanged(message); break;
    case CM_TEXTCHANGED: CMTextChanged(message); break;
    default: DefaultHandler(message); break;
  }
}

void TControl::Invalidate() { InvalidateControl(visible_, controlStyle_.Contains(csOpaque)); }

void TControl::InvalidateControl(bool isVisible, bool isOpaque) {
  if (isVisible && parent_ && parent_->HandleAllocated()) parent_->InvalidateRect(bounds_);
}

void TControl::Update() {
  if (parent_) parent_->Update();
}

void TControl::Repaint() {
  Invalidate();
  Update();
}

void TControl::BringToFront() {
  // FIXME: z-order among siblings is the order of creation; nothing reorders it yet.
}

int TControl::GetCurrentPPI() const { return Screen->PixelsPerInch(); }

bool TControl::MouseCapture() const { return captureControl == this; }

void TControl::SetMouseCapture(bool capture) {
  if (capture) SetCaptureControl(this);
  else if (captureControl == this) captureControl = nullptr;
}

void TControl::Click() {
  if (onClick_) onClick_(this);
}

void TControl::DblClick() {
  if (onDblClick_) onDblClick_(this);
}

void TControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
  if (onMouseDown_) onMouseDown_(this, button, shift, x, y);
}

void TControl::MouseMove(TShiftState shift, int x, int y) {
  if (onMouseMove_) onMouseMove_(this, shift, x, y);
}

void TControl::MouseUp(TMouseButton button, TShiftState shift, int x, int y) {
  if (onMouseUp_) onMouseUp_(this, button, shift, x, y);
}

bool TControl::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
  bool handled = false;
  if (onMouseWheel_) onMouseWheel_(this, shift, wheelDelta, mousePos, handled);
  if (handled) return true;
  // Fine-grained wheels send small deltas; a notch is WHEEL_DELTA however it arrives.
  wheelAccumulator_ += wheelDelta;
  while (std::abs(wheelAccumulator_) >= WHEEL_DELTA) {
    bool down = wheelAccumulator_ < 0;
    wheelAccumulator_ += down ? WHEEL_DELTA : -WHEEL_DELTA;
    handled = down ? DoMouseWheelDown(shift, mousePos) : DoMouseWheelUp(shift, mousePos);
  }
  return handled;
}

bool TControl::DoMouseWheelDown(TShiftState shift, TPoint mousePos) {
  bool handled = false;
  if (onMouseWheelDown_) onMouseWheelDown_(this, shift, mousePos, handled);
  return handled;
}

bool TControl::DoMouseWheelUp(TShiftState shift, TPoint mousePos) {
  bool handled = false;
  if (onMouseWheelUp_) onMouseWheelUp_(this, shift, mousePos, handled);
  return handled;
}

void TControl::Resize() {
  if (onResize_) onResize_(this);
}

void TControl::ChangeScale(int multiplier, int divider) {
  if (multiplier == divider) return;
  TRect bounds = bounds_;
  SetBounds(MulDiv(bounds.Left, multiplier, divider), MulDiv(bounds.Top, multiplier, divider),
            MulDiv(bounds.Right, multiplier, divider) - MulDiv(bounds.Left, multiplier, divider),
            MulDiv(bounds.Bottom, multiplier, divider) - MulDiv(bounds.Top, multiplier, divider));
  if (!parentFont_) font_->SetHeight(MulDiv(font_->Height(), multiplier, divider));
}

void TControl::MouseButtonDown(TMessage& message, TMouseButton button, TShiftState extra) {
  TPoint point = LParamToPoint(message.LParam);
  MouseDown(button, KeysToShiftState(message.WParam) + extra, point.X, point.Y);
  // A window over one of Qt's own widgets still places the caret, presses the button...
  DefaultHandler(message);
}

void TControl::MouseButtonUp(TMessage& message, TMouseButton button) {
  TPoint point = LParamToPoint(message.LParam);
  MouseUp(button, KeysToShiftState(message.WParam), point.X, point.Y);
  DefaultHandler(message);
}

void TControl::WMMouseMove(TMessage& message) {
  TPoint point = LParamToPoint(message.LParam);
  MouseMove(KeysToShiftState(message.WParam), point.X, point.Y);
  DefaultHandler(message);
}

void TControl::WMLButtonDown(TMessage& message) {
  if (controlStyle_.Contains(csClickEvents)) controlState_.Include(csClicked);
  MouseButtonDown(message, mbLeft, {});
}

void TControl::WMLButtonUp(TMessage& message) {
  bool clicked = controlState_.Contains(csClicked);
  controlState_.Exclude(csClicked);
  TPoint point = LParamToPoint(message.LParam);
  if (clicked && ClientRect().Contains(point)) Click();
  MouseButtonUp(message, mbLeft);
}

void TControl::WMLButtonDblClk(TMessage& message) {
  if (controlStyle_.Contains(csClickEvents)) DblClick();
  MouseButtonDown(message, mbLeft, {ssDouble});
}

void TControl::WMRButtonDown(TMessage& message) { MouseButtonDown(message, mbRight, {}); }
void TControl::WMRButtonUp(TMessage& message) {
  MouseButtonUp(message, mbRight);
  TPoint screen = ClientToScreen(LParamToPoint(message.LParam));
  Perform(WM_CONTEXTMENU, 0, PointToLParam(screen));
}

void TControl::WMContextMenu(TMessage& message) {
  if (!popupMenu_) {
    if (parent_) message.Result = parent_->Perform(WM_CONTEXTMENU, message.WParam, message.LParam);
    return;
  }
  TPoint screen = LParamToPoint(message.LParam);
  popupMenu_->SetPopupComponent(this);
  popupMenu_->Popup(screen.X, screen.Y);
  message.Result = 1;
}
void TControl::WMMButtonDown(TMessage& message) { MouseButtonDown(message, mbMiddle, {}); }
void TControl::WMMButtonUp(TMessage& message) { MouseButtonUp(message, mbMiddle); }

void TControl::WMMouseWheel(TMessage& message) {
  message.Result = Perform(CM_MOUSEWHEEL, message.WParam, message.LParam);
}

void TControl::WMCancelMode(TMessage& message) {
  if (MouseCapture()) {
    SetMouseCapture(false);
    if (controlState_.Contains(csLButtonDown)) Perform(WM_LBUTTONUP, 0, MAKELPARAM(-1, -1));
  }
  controlState_.Exclude(csClicked);
}

void TControl::CMMouseWheel(TMessage& message) {
  TShiftState shift = KeysToShiftState(LOWORD(message.WParam));
  int delta = int16_t(HIWORD(message.WParam));
  message.Result = DoMouseWheel(shift, delta, LParamToPoint(message.LParam)) ? 1 : 0;
}

void TControl::CMMouseEnter(TMessage& message) {
  if (onMouseEnter_) onMouseEnter_(this);
}

void TControl::CMMouseLeave(TMessage& message) {
  if (onMouseLeave_) onMouseLeave_(this);
}

void TControl::CMEnabledChanged(TMessage& message) { Invalidate(); }

void TControl::CMVisibleChanged(TMessage& message) { InvalidateControl(true, false); }

void TControl::CMFontChanged(TMessage& message) { Invalidate(); }

void TControl::CMParentFontChanged(TMessage& message) {
  if (!parentFont_ || !parent_) return;
  takingParentFont_ = true;
  font_->Assign(parent_->Font());
  takingParentFont_ = false;
}

void TControl::CMColorChanged(TMessage& message) { Invalidate(); }

void TControl::CMParentColorChanged(TMessage& message) {
  if (!parentColor_ || !parent_) return;
  color_ = parent_->Color();
  Perform(CM_COLORCHANGED, 0, 0);
}

void TControl::CMParentShowHintChanged(TMessage& message) {
  if (parentShowHint_ && parent_) showHint_ = parent_->ShowHint();
}

void TControl::CMBiDiModeChanged(TMessage& message) { Invalidate(); }

void TControl::CMParentBiDiModeChanged(TMessage& message) {
  if (!parentBiDiMode_ || !parent_) return;
  biDiMode_ = parent_->BiDiMode();
  Perform(CM_BIDIMODECHANGED, 0, 0);
}

}  // namespace quil
