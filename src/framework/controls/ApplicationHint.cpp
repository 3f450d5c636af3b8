// TApplication: the hints of the controls under the mouse (see Hints.h for the flow).

#include <QWidget>

#include "framework/controls/Application.h"
#include "framework/controls/Timer.h"

namespace quil {

namespace {

// The control under the mouse when it shows hints; null when it does not.
TControl* HintTarget(TControl* control) {
  if (!control || !control->ShowHint()) return nullptr;
  return control;
}

}  // namespace

THintWindow* TApplication::HintWindow() const {
  return hintWindow_ && hintWindow_->Visible() ? hintWindow_ : nullptr;
}

void TApplication::SetHintControl(TControl* control) {
  ReplaceReference(hintControl_, control);
}

void TApplication::Notification(TComponent* component, TOperation operation) {
  TComponent::Notification(component, operation);
  if (operation != opRemove) return;
  if (component == hintControl_) {
    hintControl_ = nullptr;
    HideHint();
  }
  if (component == hintWindow_) hintWindow_ = nullptr;
}

void TApplication::StartHintTimer(int milliseconds) {
  if (!hintTimer_) {
    hintTimer_ = new TTimer(this);
    hintTimer_->SetOnTimer(TNotifyEvent(this, &TApplication::HintTimerTick));
  }
  hintTimer_->SetEnabled(false);
  hintTimer_->SetInterval(std::max(milliseconds, 1));
  hintTimer_->SetEnabled(true);
}

void TApplication::HintMouseMessage(TControl* control, TPoint clientPos) {
  hintMousePos_ = control->ClientToScreen(clientPos);
  TControl* target = showHint_ ? HintTarget(control) : nullptr;
  bool showing = HintWindow() != nullptr;
  if (target == hintControl_ && target) {
    // Within the rectangle the hint is good for, nothing changes.
    if (!showing || hintCursorRect_.Contains(clientPos)) return;
  }
  HideHint();
  SetHintControl(target);
  if (!target) return;
  // From one hint to the next the pause is short.
  int pause = showing ? hintShortPause_ : hintPause_;
  target->Perform(CM_HINTSHOWPAUSE, WPARAM(showing), reinterpret_cast<LPARAM>(&pause));
  StartHintTimer(pause);
}

void TApplication::HintTimerTick(TObject*) {
  hintTimer_->SetEnabled(false);
  ActivateHint(hintMousePos_);
}

THintWindow* TApplication::MakeHintWindow(THintWindowClass windowClass) {
  if (!windowClass) windowClass = HintWindowClassOf<THintWindow>();
  if (hintWindow_ && hintWindowClass_ == windowClass) return hintWindow_;
  delete hintWindow_;
  hintWindow_ = windowClass(this);
  hintWindowClass_ = windowClass;
  return hintWindow_;
}

void TApplication::ActivateHint(TPoint cursorPos) {
  if (!hintControl_) return;
  THintInfo info;
  info.HintControl = hintControl_;
  info.HintStr = hintControl_->Hint();
  info.CursorPos = hintControl_->ScreenToClient(cursorPos);
  info.CursorRect = hintControl_->ClientRect();
  info.HintPos = Point(cursorPos.X, cursorPos.Y + 20);
  info.HintMaxWidth = Screen->Width();
  info.HideTimeout = hintHidePause_;
  if (hintControl_->Perform(CM_HINTSHOW, 0, reinterpret_cast<LPARAM>(&info)) != 0 || info.HintStr.isEmpty()) return;
  THintWindow* window = MakeHintWindow(info.HintWindowClass);
  window->SetColor(info.HintColor);
  TRect rect = window->CalcHintRect(info.HintMaxWidth, info.HintStr, info.HintData);
  rect.Offset(info.HintPos.X, info.HintPos.Y);
  window->ActivateHintData(rect, info.HintStr, info.HintData);
  hintCursorRect_ = info.CursorRect;
  if (!hideTimer_) {
    hideTimer_ = new TTimer(this);
    hideTimer_->SetOnTimer(TNotifyEvent(this, &TApplication::HideTimerTick));
  }
  hideTimer_->SetEnabled(false);
  hideTimer_->SetInterval(std::max(info.HideTimeout, 1));
  hideTimer_->SetEnabled(true);
}

void TApplication::HideTimerTick(TObject*) { HideHint(); }

void TApplication::HideHint() {
  SetHintControl(nullptr);
  if (hintTimer_) hintTimer_->SetEnabled(false);
  if (hideTimer_) hideTimer_->SetEnabled(false);
  if (hintWindow_) hintWindow_->ReleaseHandle();
}

}  // namespace quil
