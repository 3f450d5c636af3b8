#include <QPainter>
#include <QScrollBar>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/Cursors_p.h"
#include "framework/controls/KeyMapping.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Font_p.h"
#include "framework/graphics/Types_p.h"

namespace quil {

const TMetaClass& TWinControl::StaticClass() {
  static const TMetaClass meta = TMetaClass("TWinControl", &TControl::StaticClass());
  return meta;
}

const TMetaClass& TWinControl::ClassType() const { return StaticClass(); }

TWinControl::TWinControl(TComponent* owner)
    : TControl(owner), d_(std::make_unique<TWinControlPrivate>(this)) {}

TWinControl::~TWinControl() {
  Destroying();
  // The framework's parent frees its child controls with it.
  while (!controls_.empty()) {
    TControl* child = controls_.back();
    RemoveControl(child);
    delete child;
  }
  if (Parent()) SetParent(nullptr);
  DestroyWnd();
}

bool TWinControl::HandleAllocated() const { return d_->Widget() != nullptr; }

bool TWinControl::ImeComposing() const { return d_->Composing(); }

void TWinControl::HandleNeeded() {
  if (HandleAllocated()) return;
  if (Parent()) Parent()->HandleNeeded();
  if (!HandleAllocated()) CreateHandle();
}

QWidget* TWinControl::Handle() {
  HandleNeeded();
  return d_->Widget();
}

void TWinControl::CreateHandle() {
  CreateWnd();
  CreateChildHandles();
  ApplyTabOrder();
}

void TWinControl::CreateChildHandles() {
  for (TControl* child : controls_)
    if (auto* window = dynamic_cast<TWinControl*>(child)) window->HandleNeeded();
}

QWidget* TWinControl::CreateWidget() { return new TWindowWidget<QWidget>(d_.get()); }

void TWinControl::CreateWnd() {
  QWidget* widget = CreateWidget();
  if (Parent()) widget->setParent(Parent()->Handle());
  widget->setMouseTracking(true);
  widget->setFocusPolicy(tabStop_ ? Qt::StrongFocus : Qt::ClickFocus);
  widget->setEnabled(Enabled());
  widget->setFont(TFontPrivate::QtFont(*Font()));
  widget->setLayoutDirection(UseRightToLeftAlignment() ? Qt::RightToLeft : Qt::LeftToRight);
  // Painting covers every pixel (an opaque control) or fills the background first, so
  // Qt need not erase; the pixels of a validated area stay as they were.
  widget->setAttribute(Qt::WA_OpaquePaintEvent);
  UpdateInputMethod();
  UpdateWidgetGeometry();
  d_->RecalcClientArea();
  d_->ApplyScrollInfo(SB_HORZ, false);
  d_->ApplyScrollInfo(SB_VERT, false);
  if (Parent()) {
    widget->setVisible(Visible());
  } else {
    ApplyStylePalette(widget);
    ConstraintsChanged();
  }
  WatchFocusChanges();
  WatchStyleChanges();
}

void TWinControl::DestroyWnd() {
  QWidget* widget = d_->Widget();
  if (!widget) return;
  IncludeControlState(csDestroyingHandle);
  d_->Detach();
  delete widget;
  ExcludeControlState(csDestroyingHandle);
}

void TWinControl::RecreateWnd() {
  if (!HandleAllocated()) return;
  bool shown = d_->Widget()->isVisible();
  DestroyWnd();
  CreateHandle();
  if (!Parent() && shown) d_->Widget()->show();
}

void TWinControl::SetParent(TWinControl* parent) {
  if (parent == Parent()) return;
  DestroyWnd();
  TControl::SetParent(parent);
  if (parent && parent->HandleAllocated()) HandleNeeded();
}

void TWinControl::UpdateWidgetGeometry() {
  QWidget* widget = d_->Widget();
  if (!widget) return;
  TRect bounds = BoundsRect();
  if (Parent() && Parent()->HandleAllocated()) {
    TPoint origin = Parent()->d_->ClientArea().TopLeft();
    bounds.Offset(origin.X, origin.Y);
  }
  widget->setGeometry(ToQRect(bounds));
}

void TWinControl::SetBounds(int left, int top, int width, int height) {
  Constraints()->Constrain(width, height);
  TRect bounds = Bounds(left, top, std::max(width, 0), std::max(height, 0));
  if (bounds == bounds_) {
    RecordAnchorRules();
    return;
  }
  bool resized = bounds.Size() != bounds_.Size();
  bounds_ = bounds;
  RecordAnchorRules();
  QWidget* widget = d_->Widget();
  if (!widget) {
    if (resized) Resize();
    return;
  }
  UpdateWidgetGeometry();
  // A hidden widget hears of its new size only when shown; the control must know now.
  if (resized && !widget->isVisible()) {
    d_->RecalcClientArea();
    Perform(WM_SIZE, SIZE_RESTORED, MAKELPARAM(ClientWidth(), ClientHeight()));
  }
}

void TWinControl::SetVisible(bool visible) {
  if (visible == Visible()) return;
  TControl::SetVisible(visible);
  if (visible && (!Parent() || Parent()->HandleAllocated())) HandleNeeded();
  if (QWidget* widget = d_->Widget()) widget->setVisible(visible);
}

bool TWinControl::Showing() const {
  QWidget* widget = d_->Widget();
  return widget && widget->isVisible();
}

TRect TWinControl::ClientRect() const {
  if (!HandleAllocated()) return TControl::ClientRect();
  TRect area = d_->ClientArea();
  return Rect(0, 0, area.Width(), area.Height());
}

TPoint TWinControl::ClientOrigin() const {
  QWidget* widget = d_->Widget();
  if (!widget) return TControl::ClientOrigin();
  return FromQPoint(widget->mapToGlobal(ToQPoint(d_->ClientArea().TopLeft())));
}

void TWinControl::InsertControl(TControl* control) {
  controls_.push_back(control);
  control->parent_ = this;
  if (auto* window = dynamic_cast<TWinControl*>(control)) {
    tabList_.push_back(window);
    if (window->pendingTabOrder_ >= 0) window->SetTabOrder(std::exchange(window->pendingTabOrder_, -1));
    if (HandleAllocated()) window->HandleNeeded();
    ApplyTabOrder();
  }
  control->Invalidate();
  if (control->Align() != alNone) Realign();
}

void TWinControl::RemoveControl(TControl* control) {
  auto found = std::find(controls_.begin(), controls_.end(), control);
  if (found == controls_.end()) return;
  control->InvalidateControl(control->Visible(), false);
  d_->ForgetHover(control);
  controls_.erase(found);
  tabList_.erase(std::remove(tabList_.begin(), tabList_.end(), control), tabList_.end());
  control->parent_ = nullptr;
}

TControl* TWinControl::ControlAtPos(TPoint point) const {
  for (auto child = controls_.rbegin(); child != controls_.rend(); ++child)
    if ((*child)->Visible() && (*child)->BoundsRect().Contains(point)) return *child;
  return nullptr;
}

void TWinControl::SetCtl3D(bool ctl3D) {
  if (ctl3D_ == ctl3D) return;
  ctl3D_ = ctl3D;
  Perform(CM_CTL3DCHANGED, 0, 0);
  RecalcClientArea();
  Invalidate();
}

bool TWinControl::Focused() const {
  QWidget* widget = d_->Widget();
  return widget && widget->hasFocus();
}

bool TWinControl::CanFocus() const {
  for (const TWinControl* control = this; control; control = control->Parent())
    if (!control->Visible() || !control->Enabled()) return false;
  return true;
}

void TWinControl::SetFocus() {
  HandleNeeded();
  d_->Widget()->setFocus(Qt::OtherFocusReason);
}

void TWinControl::Invalidate() {
  if (QWidget* widget = d_->Widget()) {
    d_->InvalidateClient(QRegion(ToQRect(ClientRect())));
    widget->update();
  }
}

void TWinControl::Update() {
  if (HandleAllocated()) d_->UpdateNow();
}

void TWinControl::Repaint() {
  Invalidate();
  Update();
}

void TWinControl::InvalidateRect(const TRect& rect) {
  if (HandleAllocated() && !rect.IsEmpty()) d_->InvalidateClient(QRegion(ToQRect(rect)));
}

void TWinControl::ValidateRect(const TRect& rect) {
  if (HandleAllocated()) d_->ValidateClient(rect);
}

std::vector<TRect> TWinControl::UpdateRects() const {
  std::vector<TRect> rects;
  if (HandleAllocated())
    for (const QRect& rect : d_->PendingRegion()) rects.push_back(FromQRect(rect));
  return rects;
}

void TWinControl::ScrollWindowEx(int dx, int dy, const TRect* scrollRect, const TRect* clipRect) {
  QWidget* widget = d_->Widget();
  if (!widget) return;
  TRect area = scrollRect ? *scrollRect : ClientRect();
  if (clipRect) IntersectRect(area, area, *clipRect);
  IntersectRect(area, area, ClientRect());
  if (area.IsEmpty()) return;
  TPoint origin = d_->ClientArea().TopLeft();
  TRect windowArea = area;
  windowArea.Offset(origin.X, origin.Y);
  widget->scroll(dx, dy, ToQRect(windowArea));
}

void TWinControl::RecalcClientArea() {
  if (HandleAllocated()) d_->RecalcClientArea();
}

void TWinControl::Dispatch(TMessage& message) {
  switch (message.Msg) {
    case WM_PAINT: WMPaint(message); break;
    case WM_NCPAINT: WMNCPaint(message); break;
    case WM_NCCALCSIZE: WMNCCalcSize(message); break;
    case WM_ERASEBKGND: WMEraseBkgnd(message); break;
    case WM_SIZE: WMSize(message); break;
    case WM_MOVE: WMMove(message); break;
    case WM_SETFOCUS: WMSetFocus(message); break;
    case WM_KILLFOCUS: WMKillFocus(message); break;
    case WM_SETCURSOR: WMSetCursor(message); break;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: WMKeyDown(message); break;
    case WM_KEYUP:
    case WM_SYSKEYUP: WMKeyUp(message); break;
    case WM_CHAR: WMChar(message); break;
    case WM_GETDLGCODE: WMGetDlgCode(message); break;
    case WM_HSCROLL: WMHScroll(message); break;
    case WM_VSCROLL: WMVScroll(message); break;
    case WM_IME_STARTCOMPOSITION: WMImeStartComposition(message); break;
    case WM_IME_COMPOSITION: WMImeComposition(message); break;
    case WM_IME_ENDCOMPOSITION: WMImeEndComposition(message); break;
    case CM_ENTER: CMEnter(message); break;
    case CM_EXIT: CMExit(message); break;
    case CM_CHILDKEY: CMChildKey(message); break;
    case CM_DIALOGKEY: CMDialogKey(message); break;
    case CM_WANTSPECIALKEY: CMWantSpecialKey(message); break;
    case CM_BORDERCHANGED: CMBorderChanged(message); break;
    default: TControl::Dispatch(message); break;
  }
}

void TWinControl::DefaultHandler(TMessage& message) { d_->DefaultHandling(message); }

void TWinControl::KeyDown(uint16_t& key, TShiftState shift) {
  if (onKeyDown_) onKeyDown_(this, key, shift);
}

void TWinControl::KeyPress(QChar& key) {
  if (onKeyPress_) onKeyPress_(this, key);
}

void TWinControl::KeyUp(uint16_t& key, TShiftState shift) {
  if (onKeyUp_) onKeyUp_(this, key, shift);
}

void TWinControl::DoEnter() {
  if (onEnter_) onEnter_(this);
}

void TWinControl::DoExit() {
  if (onExit_) onExit_(this);
}

bool TWinControl::DoKeyDown(TMessage& message) {
  if (ControlStyle().Contains(csNoStdEvents)) return false;
  uint16_t key = uint16_t(message.WParam);
  KeyDown(key, KeyDataToShiftState(message.LParam));
  message.WParam = key;
  return key == 0;
}

bool TWinControl::DoKeyPress(TMessage& message) {
  if (ControlStyle().Contains(csNoStdEvents)) return false;
  QChar key(char16_t(message.WParam));
  KeyPress(key);
  message.WParam = key.unicode();
  return key.unicode() == 0;
}

bool TWinControl::DoKeyUp(TMessage& message) {
  if (ControlStyle().Contains(csNoStdEvents)) return false;
  uint16_t key = uint16_t(message.WParam);
  KeyUp(key, KeyDataToShiftState(message.LParam));
  message.WParam = key;
  return key == 0;
}

void TWinControl::WMKeyDown(TMessage& message) {
  if (!DoKeyDown(message)) DefaultHandler(message);
}

void TWinControl::WMKeyUp(TMessage& message) {
  if (!DoKeyUp(message)) DefaultHandler(message);
}

void TWinControl::WMChar(TMessage& message) {
  if (!DoKeyPress(message)) DefaultHandler(message);
}

void TWinControl::WMPaint(TMessage& message) {
  if (!ControlState().Contains(csCustomPaint) && controls_.empty()) {
    DefaultHandler(message);
    return;
  }
  QPainter* painter = d_->BeginClientPaint();
  if (!painter) return;
  TCanvas canvas;
  {
    TCanvasPaintScope scope(&canvas, painter, ClientWidth());
    if (!ControlStyle().Contains(csOpaque)) {
      canvas.Brush()->SetColor(Color());
      canvas.FillRect(ClientRect());
    }
    PaintWindow(&canvas);
    PaintControls(&canvas);
  }
  d_->EndClientPaint();
}

void TWinControl::PaintControls(TCanvas* canvas) {
  QPainter* painter = TCanvasPrivate::Get(canvas)->Painter();
  if (!painter) return;
  for (TControl* child : controls_) {
    auto* graphic = dynamic_cast<TGraphicControl*>(child);
    if (!graphic || !graphic->Visible()) continue;
    TRect bounds = graphic->BoundsRect();
    if (!canvas->ClipRect().IsEmpty() && !IntersectRect(bounds, bounds, canvas->ClipRect())) continue;
    painter->save();
    painter->translate(graphic->Left(), graphic->Top());
    painter->setClipRect(QRect(0, 0, graphic->Width(), graphic->Height()), Qt::IntersectClip);
    {
      TCanvasPaintScope scope(graphic->Canvas(), painter, graphic->Width());
      graphic->PaintWithParent();
    }
    painter->restore();
  }
}

void TWinControl::WMNCPaint(TMessage& message) {
  auto* canvas = reinterpret_cast<TCanvas*>(message.WParam);
  TWindowScrollBar& horz = d_->ScrollBar(SB_HORZ);
  TWindowScrollBar& vert = d_->ScrollBar(SB_VERT);
  if (!canvas || !horz.shown || !vert.shown) return;
  TRect area = d_->ClientArea();
  int left = UseRightToLeftScrollBar() ? area.Left - vert.bar->width() : area.Right;
  canvas->Brush()->SetColor(clBtnFace);
  canvas->FillRect(Bounds(left, area.Bottom, vert.bar->width(), horz.bar->height()));
}

void TWinControl::WMNCCalcSize(TMessage& message) {
  auto* rect = reinterpret_cast<TRect*>(message.LParam);
  TWindowScrollBar& horz = d_->ScrollBar(SB_HORZ);
  TWindowScrollBar& vert = d_->ScrollBar(SB_VERT);
  if (vert.shown) {
    int width = GetSystemMetrics(SM_CXVSCROLL);
    if (UseRightToLeftScrollBar()) rect->Left += width;
    else rect->Right -= width;
  }
  if (horz.shown) rect->Bottom -= GetSystemMetrics(SM_CYHSCROLL);
  if (rect->Right < rect->Left) rect->Right = rect->Left;
  if (rect->Bottom < rect->Top) rect->Bottom = rect->Top;
}

void TWinControl::WMSize(TMessage& message) {
  Realign();
  if (!ComponentState().Contains(csLoading)) Resize();
}

void TWinControl::WMSetCursor(TMessage& message) {
  auto* target = reinterpret_cast<TControl*>(message.WParam);
  TCursor cursor = Screen->Cursor();
  if (cursor == crDefault) cursor = target ? target->Cursor() : Cursor();
  ApplyCursor(cursor);
  message.Result = 1;
}

void TWinControl::ApplyCursor(TCursor cursor) {
  if (QWidget* widget = d_->Widget()) widget->setCursor(QCursor(CursorShapeOf(cursor)));
}

void TWinControl::NotifyChildren(UINT msg) {
  for (TControl* child : controls_) child->Perform(msg, 0, 0);
}

void TWinControl::CMEnabledChanged(TMessage& message) {
  if (QWidget* widget = d_->Widget()) widget->setEnabled(Enabled());
  TControl::CMEnabledChanged(message);
}

void TWinControl::CMFontChanged(TMessage& message) {
  if (QWidget* widget = d_->Widget()) widget->setFont(TFontPrivate::QtFont(*Font()));
  TControl::CMFontChanged(message);
  NotifyChildren(CM_PARENTFONTCHANGED);
}

void TWinControl::CMColorChanged(TMessage& message) {
  TControl::CMColorChanged(message);
  NotifyChildren(CM_PARENTCOLORCHANGED);
}

void TWinControl::CMVisibleChanged(TMessage& message) {}

void TWinControl::CMBiDiModeChanged(TMessage& message) {
  if (QWidget* widget = d_->Widget())
    widget->setLayoutDirection(UseRightToLeftAlignment() ? Qt::RightToLeft : Qt::LeftToRight);
  RecalcClientArea();
  TControl::CMBiDiModeChanged(message);
  NotifyChildren(CM_PARENTBIDIMODECHANGED);
}

void TWinControl::ChangeScale(int multiplier, int divider) {
  TControl::ChangeScale(multiplier, divider);
  for (TControl* child : std::vector<TControl*>(controls_)) child->ChangeScale(multiplier, divider);
}

void TWinControl::InvalidateControl(bool isVisible, bool isOpaque) {}

void TWinControl::CMChildKey(TMessage& message) {
  if (Parent()) message.Result = Parent()->Perform(message.Msg, message.WParam, message.LParam);
}

void TWinControl::CMDialogKey(TMessage& message) {
  if (message.WParam != VK_TAB || Parent() || !HandleAllocated()) return;
  if (KeyDataToShiftState(message.LParam).Intersects({ssCtrl, ssAlt})) return;
  auto* window = dynamic_cast<TWindowBridge*>(d_->Widget());
  bool forward = GetKeyState(VK_SHIFT) >= 0;
  if (window && window->BaseFocusNextPrevChild(forward)) message.Result = 1;
}

TWinControl* FindControl(const QWidget* widget) {
  auto* bridge = dynamic_cast<const TWindowBridge*>(widget);
  return bridge ? bridge->Owner() : nullptr;
}

}  // namespace quil
