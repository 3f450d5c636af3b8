// Qt's events of a window control as window messages.

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/KeyMapping.h"
#include "framework/controls/MessageQueue.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/Canvas_p.h"
#include "framework/graphics/Types_p.h"

namespace quil {

namespace {

WPARAM MouseKeys(const QSinglePointEvent& event) {
  WPARAM keys = 0;
  Qt::MouseButtons buttons = event.buttons();
  if (buttons & Qt::LeftButton) keys |= MK_LBUTTON;
  if (buttons & Qt::RightButton) keys |= MK_RBUTTON;
  if (buttons & Qt::MiddleButton) keys |= MK_MBUTTON;
  if (event.modifiers() & Qt::ShiftModifier) keys |= MK_SHIFT;
  if (event.modifiers() & Qt::ControlModifier) keys |= MK_CONTROL;
  return keys;
}

// The message of a mouse event; 0 for a button the framework's messages do not name.
UINT MouseMessage(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseMove) return WM_MOUSEMOVE;
  int offset = event.type() == QEvent::MouseButtonPress     ? 0
               : event.type() == QEvent::MouseButtonRelease ? 1
                                                             : 2;
  switch (event.button()) {
    case Qt::LeftButton: return WM_LBUTTONDOWN + offset;
    case Qt::RightButton: return WM_RBUTTONDOWN + offset;
    case Qt::MiddleButton: return WM_MBUTTONDOWN + offset;
    default: return 0;
  }
}

// The dialog-navigation claim a key makes; 0 for keys that are never dialog keys.
LRESULT DialogCodeMask(uint16_t virtualKey) {
  switch (virtualKey) {
    case VK_TAB: return DLGC_WANTTAB;
    case VK_LEFT: case VK_RIGHT: case VK_UP: case VK_DOWN: return DLGC_WANTARROWS;
    case VK_RETURN: case VK_EXECUTE: case VK_ESCAPE: case VK_CANCEL: return DLGC_WANTALLKEYS;
    default: return 0;
  }
}

// The window that last lost the focus to another window of the application; Qt sends
// the focus-out before the focus-in of one change and names neither in the events.
QPointer<QWidget>& FocusLeaver() {
  static QPointer<QWidget> leaver;
  return leaver;
}

WPARAM FocusOtherWindow(QEvent::Type type, QWidget* self) {
  QWidget* other = nullptr;
  if (type == QEvent::FocusOut) {
    // Qt names the new focus window before it sends the focus-out of the old one.
    other = QApplication::focusWidget();
    FocusLeaver() = other && other != self ? self : nullptr;
  } else {
    other = FocusLeaver();
    FocusLeaver() = nullptr;
  }
  // A window of another top-level window is not named: the focus came from outside.
  if (!other || other == self || other->window() != self->window()) return 0;
  return WPARAM(FindControl(other));
}

TWinControl* TopLevelControl(TWinControl* control) {
  while (control->Parent()) control = control->Parent();
  return control;
}

}  // namespace

bool TWinControlPrivate::HandleEvent(QEvent* event) {
  if (!window_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return HandleKey(static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      return HandleMouse(static_cast<QMouseEvent*>(event));
    case QEvent::Wheel:
      return HandleWheel(static_cast<QWheelEvent*>(event));
    case QEvent::InputMethod:
      return HandleInputMethod(static_cast<QInputMethodEvent*>(event));
    case QEvent::Paint:
      return HandlePaint(static_cast<QPaintEvent*>(event));
    case QEvent::Resize:
      window_->BaseEvent(event);
      return HandleResize();
    default:
      break;
  }
  bool result = window_->BaseEvent(event);
  switch (event->type()) {
    case QEvent::Move: {
      QPoint pos = Widget()->pos();
      control_->Perform(WM_MOVE, 0, MAKELPARAM(pos.x(), pos.y()));
      break;
    }
    case QEvent::FocusIn: control_->Perform(WM_SETFOCUS, FocusOtherWindow(event->type(), Widget()), 0); break;
    case QEvent::FocusOut:
      EndComposition();
      control_->Perform(WM_KILLFOCUS, FocusOtherWindow(event->type(), Widget()), 0);
      break;
    case QEvent::Show:
    case QEvent::Hide:
      if (!event->spontaneous()) control_->Perform(CM_SHOWINGCHANGED, 0, 0);
      break;
    case QEvent::Enter: control_->Perform(CM_MOUSEENTER, 0, 0); break;
    case QEvent::Leave:
      TrackHover(nullptr);
      control_->Perform(CM_MOUSELEAVE, 0, 0);
      break;
    default: break;
  }
  return result;
}

// A composition travels as messages around Qt's own handling of the event. A start
// handler may hand the focus on (a grid opens its editor): the event then goes to the
// window that has the focus now, and the composition goes on there, not here.
bool TWinControlPrivate::HandleInputMethod(QInputMethodEvent* event) {
  const bool showing = !event->preeditString().isEmpty();
  if (showing && !composing_) {
    composing_ = true;
    control_->Perform(WM_IME_STARTCOMPOSITION, 0, 0);
  }
  // The start handler's focus change has ended the composition here already.
  QWidget* focus = QApplication::focusWidget();
  if (focus && focus != Widget() && FindControl(focus)) {
    EndComposition();
    return QApplication::sendEvent(focus, event);
  }
  if (composing_)
    control_->Perform(WM_IME_COMPOSITION, 0,
                      (showing ? GCS_COMPSTR : 0) | (event->commitString().isEmpty() ? 0 : GCS_RESULTSTR));
  const bool result = window_->BaseEvent(event);
  if (!showing) EndComposition();
  return result;
}

void TWinControlPrivate::EndComposition() {
  if (!composing_) return;
  composing_ = false;
  control_->Perform(WM_IME_ENDCOMPOSITION, 0, 0);
}

// Keys the control does not claim go to its parents (CM_CHILDKEY) and, for dialog keys,
// to the top-level window (CM_DIALOGKEY); a key taken there makes no key message.
bool TWinControlPrivate::TakenAsDialogKey(uint16_t virtualKey, LPARAM keyData) {
  if (control_->Perform(CM_CHILDKEY, virtualKey, LPARAM(control_)) != 0) return true;
  LRESULT mask = DialogCodeMask(virtualKey);
  if (mask == 0 || control_->Perform(CM_WANTSPECIALKEY, virtualKey, 0) != 0) return false;
  if ((control_->Perform(WM_GETDLGCODE, 0, 0) & mask) != 0) return false;
  return TopLevelControl(control_)->Perform(CM_DIALOGKEY, virtualKey, keyData) != 0;
}

bool TWinControlPrivate::HandleKey(QKeyEvent* event) {
  DeliverPostedMessages();
  RecordInputState(*event);
  if (event->type() == QEvent::KeyPress) Application->HideHint();
  TKeyStroke stroke = TranslateKeyEvent(*event);
  if (stroke.VirtualKey == 0) return window_->BaseEvent(event);
  QPointer<QWidget> alive(Widget());
  currentEvent_ = event;
  if (event->type() == QEvent::KeyRelease) {
    control_->Perform(stroke.System ? WM_SYSKEYUP : WM_KEYUP, stroke.VirtualKey, stroke.KeyData);
  } else if (!TakenAsDialogKey(stroke.VirtualKey, stroke.KeyData)) {
    // The characters are queued before the key is handled, so that a key handler can
    // still take them out of the queue.
    UINT charMsg = stroke.System ? WM_SYSCHAR : WM_CHAR;
    for (QChar ch : stroke.Chars) PostMessage(control_, charMsg, ch.unicode(), stroke.KeyData);
    control_->Perform(stroke.System ? WM_SYSKEYDOWN : WM_KEYDOWN, stroke.VirtualKey, stroke.KeyData);
  }
  if (alive) currentEvent_ = nullptr;
  event->accept();
  return true;
}

TControl* TWinControlPrivate::MouseTarget(TPoint clientPoint) const {
  TControl* capture = GetCaptureControl();
  if (capture && (capture == control_ || capture->Parent() == control_)) return capture;
  TControl* child = control_->ControlAtPos(clientPoint);
  if (dynamic_cast<TGraphicControl*>(child) && child->Enabled()) return child;
  return control_;
}

void TWinControlPrivate::TrackHover(TControl* target) {
  TControl* child = target == control_ ? nullptr : target;
  if (child == hover_) return;
  TControl* left = hover_;
  hover_ = child;
  if (left) left->Perform(CM_MOUSELEAVE, 0, 0);
  if (child) child->Perform(CM_MOUSEENTER, 0, 0);
}

void TWinControlPrivate::ForgetHover(TControl* child) {
  if (hover_ == child) hover_ = nullptr;
}

void TWinControlPrivate::SendSetCursor(TControl* target, UINT mouseMsg) {
  control_->Perform(WM_SETCURSOR, WPARAM(target), LPARAM(1 | (mouseMsg << 16)));
}

bool TWinControlPrivate::HandleMouse(QMouseEvent* event) {
  DeliverPostedMessages();
  RecordInputState(*event);
  UINT msg = MouseMessage(*event);
  if (msg == 0) return window_->BaseEvent(event);
  TPoint client = FromQPoint(event->position().toPoint());
  client.X -= clientArea_.Left;
  client.Y -= clientArea_.Top;
  bool inside = control_->ClientRect().Contains(client);
  bool held = event->buttons() != Qt::NoButton || GetCaptureControl() != nullptr;
  bool buttonUp = msg == WM_LBUTTONUP || msg == WM_RBUTTONUP || msg == WM_MBUTTONUP;
  // Presses on the frame and free moves over it belong to the frame, not the client.
  if (!inside && !buttonUp && !(msg == WM_MOUSEMOVE && held)) return window_->BaseEvent(event);
  TControl* target = MouseTarget(client);
  if (msg == WM_MOUSEMOVE) TrackHover(inside ? target : nullptr);
  if (msg == WM_MOUSEMOVE || msg == WM_LBUTTONDOWN || msg == WM_RBUTTONDOWN) SendSetCursor(target, msg);
  if (target != control_) {
    client.X -= target->Left();
    client.Y -= target->Top();
  }
  if (msg == WM_MOUSEMOVE) Application->HintMouseMessage(target, client);
  else if (!buttonUp) Application->HideHint();
  QPointer<QWidget> alive(Widget());
  currentEvent_ = event;
  target->Perform(msg, MouseKeys(*event), PointToLParam(client));
  if (alive) currentEvent_ = nullptr;
  event->accept();
  return true;
}

bool TWinControlPrivate::HandleWheel(QWheelEvent* event) {
  DeliverPostedMessages();
  RecordInputState(*event);
  Application->HideHint();
  int delta = event->angleDelta().y();
  if (delta == 0) return window_->BaseEvent(event);
  QPoint global = event->globalPosition().toPoint();
  QPointer<QWidget> alive(Widget());
  currentEvent_ = event;
  control_->Perform(WM_MOUSEWHEEL, MouseKeys(*event) | (WPARAM(uint16_t(int16_t(delta))) << 16),
                    MAKELPARAM(global.x(), global.y()));
  if (alive) currentEvent_ = nullptr;
  event->accept();
  return true;
}

bool TWinControlPrivate::HandlePaint(QPaintEvent* event) {
  QRegion region = event->region();
  QPoint origin = ToQPoint(clientArea_.TopLeft());
  if (!validated_.isEmpty()) {
    region -= validated_.translated(origin);
    validated_ = QRegion();
  }
  pending_ -= region.translated(-origin);
  if (region.isEmpty()) return true;
  QPointer<QWidget> alive(Widget());
  paintEvent_ = event;
  paintRegion_ = region;
  control_->Perform(WM_PAINT, 0, 0);
  if (!alive) return true;
  if (!region.subtracted(QRegion(ToQRect(clientArea_))).isEmpty()) {
    QPainter painter(Widget());
    TCanvas canvas;
    TCanvasPaintScope scope(&canvas, &painter);
    control_->Perform(WM_NCPAINT, WPARAM(&canvas), 0);
  }
  paintEvent_ = nullptr;
  return true;
}

QPainter* TWinControlPrivate::BeginClientPaint() {
  if (!paintEvent_) return nullptr;
  painter_ = std::make_unique<QPainter>(Widget());
  painter_->setClipRegion(paintRegion_.intersected(ToQRect(clientArea_)));
  painter_->translate(clientArea_.Left, clientArea_.Top);
  return painter_.get();
}

void TWinControlPrivate::EndClientPaint() { painter_.reset(); }

bool TWinControlPrivate::HandleResize() {
  QWidget* widget = Widget();
  QRect geometry = widget->geometry();
  TWinControl* parent = control_->Parent();
  if (parent && parent->HandleAllocated()) {
    TRect parentArea = parent->Private()->ClientArea();
    geometry.translate(-parentArea.Left, -parentArea.Top);
  }
  control_->bounds_ = FromQRect(geometry);
  RecalcClientArea();
  control_->Perform(WM_SIZE, SIZE_RESTORED, MAKELPARAM(control_->ClientWidth(), control_->ClientHeight()));
  return true;
}

void TWinControlPrivate::RecalcClientArea() {
  QWidget* widget = Widget();
  if (!widget) return;
  TRect area = Rect(0, 0, widget->width(), widget->height());
  control_->Perform(WM_NCCALCSIZE, 0, LPARAM(&area));
  bool moved = area.TopLeft() != clientArea_.TopLeft();
  clientArea_ = area;
  LayoutScrollBars();
  if (!moved) return;
  for (int index = 0; index < control_->ControlCount(); ++index)
    if (auto* child = dynamic_cast<TWinControl*>(control_->Controls(index))) child->UpdateWidgetGeometry();
  widget->update();
}

void TWinControlPrivate::InvalidateClient(const QRegion& region) {
  QWidget* widget = Widget();
  if (!widget) return;
  QRegion clipped = region.intersected(QRect(0, 0, clientArea_.Width(), clientArea_.Height()));
  validated_ -= clipped;
  pending_ += clipped;
  widget->update(clipped.translated(clientArea_.Left, clientArea_.Top));
}

void TWinControlPrivate::ValidateClient(const TRect& rect) {
  QRegion region(ToQRect(rect));
  validated_ += region.intersected(pending_);
  pending_ -= region;
}

void TWinControlPrivate::UpdateNow() {
  QWidget* widget = Widget();
  if (!widget || !widget->isVisible() || pending_.isEmpty()) return;
  QRegion region = pending_.translated(clientArea_.Left, clientArea_.Top);
  widget->repaint(region);
}

void TWinControlPrivate::DefaultHandling(TMessage& message) {
  if (!window_) return;
  UINT msg = message.Msg;
  if (msg == WM_CHAR && message.WParam >= 0x20) {
    // Typed text reaches the widget's own class as a key event that carries only text.
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(QChar(char16_t(message.WParam))));
    window_->BaseEvent(&typed);
  } else if (msg == WM_PAINT && paintEvent_) {
    window_->BaseEvent(paintEvent_);
  } else if ((msg == WM_KEYDOWN || msg == WM_SYSKEYDOWN) && currentEvent_ &&
             currentEvent_->type() == QEvent::KeyPress) {
    // The text arrives separately as WM_CHAR, so the key itself goes without it.
    auto* key = static_cast<QKeyEvent*>(currentEvent_);
    QKeyEvent bare(QEvent::KeyPress, key->key(), key->modifiers(), key->nativeScanCode(),
                   key->nativeVirtualKey(), key->nativeModifiers(), QString(), key->isAutoRepeat());
    window_->BaseEvent(&bare);
  } else if (currentEvent_ && ((msg >= WM_MOUSEFIRST && msg <= WM_MOUSELAST) || msg == WM_KEYUP ||
                               msg == WM_SYSKEYUP)) {
    window_->BaseEvent(currentEvent_);
  }
}

}  // namespace quil
