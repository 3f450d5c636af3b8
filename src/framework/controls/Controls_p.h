#pragma once
// The Qt side of a TWinControl: its QWidget, the translation of Qt events into window
// messages, the update region bookkeeping and the control's own scroll bars.

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QWidget>
#include <array>
#include <memory>

#include "framework/controls/Controls.h"
#include "framework/controls/ScrollBars.h"

class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QPaintEvent;
class QPainter;
class QScrollBar;
class QWheelEvent;

namespace quil {

// What a window's widget offers back to the translation: its class's own handling.
class TWindowBridge {
public:
  virtual ~TWindowBridge() = default;
  virtual bool BaseEvent(QEvent* event) = 0;
  // Qt's own move of the focus to the next or previous widget of the window.
  virtual bool BaseFocusNextPrevChild(bool next) = 0;
  virtual QWidget* Widget() = 0;
  virtual TWinControl* Owner() const = 0;
};

// One scroll bar of a window, with the scroll information it shows.
struct TWindowScrollBar {
  QScrollBar* bar = nullptr;  // a child of the window, made on first use
  TScrollInfo info{sizeof(TScrollInfo), 0, 0, 0, 0, 0, 0};
  bool shown = false;
};

class TWinControlPrivate {
public:
  explicit TWinControlPrivate(TWinControl* control) : control_(control) {}

  TWinControl* Control() const { return control_; }
  QWidget* Widget() const { return window_ ? window_->Widget() : nullptr; }
  void Attach(TWindowBridge* window) { window_ = window; }
  // The scroll bars are children of the window and go with it; their settings stay for
  // the next window, which starts with nothing to paint.
  void Detach() {
    window_ = nullptr;
    for (TWindowScrollBar& state : bars_) {
      state.bar = nullptr;
      state.shown = false;
    }
    pending_ = QRegion();
    validated_ = QRegion();
    hover_ = nullptr;
  }

  // Translates one Qt event; answers what QWidget::event should answer.
  bool HandleEvent(QEvent* event);
  // Hands the event being translated to the widget's own class (the default handling).
  void DefaultHandling(TMessage& message);

  // The client area in window coordinates, as WM_NCCALCSIZE last gave it.
  TRect ClientArea() const { return clientArea_; }
  void RecalcClientArea();
  void InvalidateClient(const QRegion& region);
  void ValidateClient(const TRect& rect);
  const QRegion& PendingRegion() const { return pending_; }
  void UpdateNow();
  // The painter of the paint being handled, already clipped and moved to the client.
  QPainter* BeginClientPaint();
  void EndClientPaint();
  bool InPaint() const { return paintEvent_ != nullptr; }
  bool Composing() const { return composing_; }

  TWindowScrollBar& ScrollBar(int bar) { return bars_[size_t(bar)]; }
  QScrollBar* EnsureScrollBar(int bar);
  void ApplyScrollInfo(int bar, bool redraw);
  void SetScrollBarShown(int bar, bool shown);
  void LayoutScrollBars();

  // The graphic child under the mouse hears CM_MOUSEENTER and CM_MOUSELEAVE as it changes;
  // null for none, or the window itself.
  void TrackHover(TControl* target);
  // A child that goes away is no longer under the mouse.
  void ForgetHover(TControl* child);

private:
  bool HandleKey(QKeyEvent* event);
  bool HandleMouse(QMouseEvent* event);
  bool HandleWheel(QWheelEvent* event);
  bool HandleInputMethod(QInputMethodEvent* event);
  // Ends a composition that the window leaves unfinished.
  void EndComposition();
  bool HandlePaint(QPaintEvent* event);
  bool HandleResize();
  bool TakenAsDialogKey(uint16_t virtualKey, LPARAM keyData);
  TControl* MouseTarget(TPoint clientPoint) const;
  void SendSetCursor(TControl* target, UINT mouseMsg);
  void ScrollBarAction(int bar, int action);
  void ScrollBarReleased(int bar);

  TWinControl* control_;
  TWindowBridge* window_ = nullptr;
  TRect clientArea_;
  QRegion validated_;  // client coordinates
  QRegion pending_;    // client coordinates: invalidated, not painted yet
  QEvent* currentEvent_ = nullptr;
  QPaintEvent* paintEvent_ = nullptr;
  QRegion paintRegion_;  // window coordinates: what the paint being handled draws
  std::unique_ptr<QPainter> painter_;
  std::array<TWindowScrollBar, 2> bars_;
  TControl* hover_ = nullptr;  // the graphic child under the mouse; null for none
  bool composing_ = false;     // between WM_IME_STARTCOMPOSITION and WM_IME_ENDCOMPOSITION
};

// The widget of a window control over any QWidget class: its events go through the
// control's messages first, and only the default handling reaches Base.
template <typename Base>
class TWindowWidget : public Base, public TWindowBridge {
public:
  explicit TWindowWidget(TWinControlPrivate* owner, QWidget* parent = nullptr)
      : Base(parent), owner_(owner) {
    owner_->Attach(this);
  }
  ~TWindowWidget() override {
    if (owner_) owner_->Detach();
  }
  bool BaseEvent(QEvent* event) override { return Base::event(event); }
  bool BaseFocusNextPrevChild(bool next) override { return Base::focusNextPrevChild(next); }
  QWidget* Widget() override { return this; }
  TWinControl* Owner() const override { return owner_ ? owner_->Control() : nullptr; }

protected:
  bool event(QEvent* event) override {
    return owner_ ? owner_->HandleEvent(event) : Base::event(event);
  }
  // Tab travels as a key message; the form moves the focus (CM_DIALOGKEY).
  bool focusNextPrevChild(bool) override { return false; }

private:
  TWinControlPrivate* owner_;
};

// Sends CM_EXIT and CM_ENTER to the controls that the focus leaves and enters.
void WatchFocusChanges();
// Repaints every window in the new style when the active style switches.
void WatchStyleChanges();
// Gives a top-level window the active style's palette.
void ApplyStylePalette(QWidget* window);

}  // namespace quil
