// THintWindow and TCustomHint.

#include <QWidget>

#include "framework/controls/Hints.h"
#include "framework/controls/Timer.h"
#include "framework/graphics/Canvas.h"
#include "framework/graphics/DrawText.h"

namespace quil {

namespace {

constexpr unsigned kHintTextFlags = DT_LEFT | DT_WORDBREAK | DT_NOPREFIX;
constexpr int kHintMargin = 3;  // pixels between the frame and the text

}  // namespace

const TMetaClass& THintWindow::StaticClass() {
  static const TMetaClass meta = TMetaClass("THintWindow", &TCustomControl::StaticClass());
  return meta;
}

const TMetaClass& THintWindow::ClassType() const { return StaticClass(); }

THintWindow::THintWindow(TComponent* owner) : TCustomControl(owner) {
  SetColor(clInfoBk);
  SetParentColor(false);
  Font()->SetColor(clInfoText);
  SetVisible(false);
}

THintWindow::~THintWindow() = default;

void THintWindow::CreateWnd() {
  TCustomControl::CreateWnd();
  QWidget* widget = Handle();
  widget->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
  widget->setAttribute(Qt::WA_ShowWithoutActivating);
  widget->setFocusPolicy(Qt::NoFocus);
}

TRect THintWindow::CalcHintRect(int maxWidth, const QString& hint, void* data) {
  Canvas()->SetFont(Font());
  TRect rect = Rect(0, 0, maxWidth > 0 ? maxWidth : 0, 0);
  DrawText(Canvas(), hint, -1, rect, kHintTextFlags | DT_CALCRECT);
  rect.Right += 2 * kHintMargin + 2;
  rect.Bottom += 2 * kHintMargin;
  return rect;
}

void THintWindow::ActivateHint(const TRect& rect, const QString& hint) { ActivateHintData(rect, hint, nullptr); }

void THintWindow::ActivateHintData(const TRect& rect, const QString& hint, void* data) {
  SetCaption(hint);
  SetBoundsRect(rect);
  Show();
  Handle()->show();
  Repaint();
}

void THintWindow::ReleaseHandle() {
  Hide();
  if (HandleAllocated()) Handle()->hide();
}

void THintWindow::Paint() {
  TRect rect = ClientRect();
  Canvas()->FillRect(rect);
  Canvas()->Brush()->SetColor(clWindowFrame);
  Canvas()->FrameRect(rect);
  rect.Inflate(-kHintMargin, -kHintMargin);
  rect.Left += 1;
  Canvas()->Brush()->SetStyle(bsClear);
  DrawText(Canvas(), Caption(), -1, rect, kHintTextFlags);
}

const TMetaClass& TCustomHint::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCustomHint", &TComponent::StaticClass());
  return meta;
}

const TMetaClass& TCustomHint::ClassType() const { return StaticClass(); }

TCustomHint::TCustomHint(TComponent* owner) : TComponent(owner) {}

TCustomHint::~TCustomHint() = default;

QString TCustomHint::Text() const {
  if (title_.isEmpty()) return description_;
  if (description_.isEmpty()) return title_;
  return title_ + QLatin1Char('\n') + description_;
}

void TCustomHint::ShowHint(TPoint screenPoint) {
  if (Text().isEmpty()) return HideHint();
  if (!window_) window_ = std::make_unique<THintWindow>(nullptr);
  TRect rect = window_->CalcHintRect(300, Text(), nullptr);
  rect.Offset(screenPoint.X, screenPoint.Y);
  window_->ActivateHint(rect, Text());
  if (hideAfter_ <= 0) return;
  if (!hideTimer_) {
    hideTimer_ = std::make_unique<TTimer>(nullptr);
    hideTimer_->SetOnTimer(TNotifyEvent(this, &TCustomHint::HideTimerTick));
  }
  hideTimer_->SetInterval(hideAfter_);
  hideTimer_->SetEnabled(false);
  hideTimer_->SetEnabled(true);
}

void TCustomHint::ShowHint(const TRect& screenRect) { ShowHint(Point(screenRect.Left, screenRect.Bottom + 2)); }

void TCustomHint::ShowHint(TControl* control) {
  TPoint origin = control->ClientToScreen(Point(0, 0));
  ShowHint(Bounds(origin.X, origin.Y, control->Width(), control->Height()));
}

void TCustomHint::HideHint() {
  if (hideTimer_) hideTimer_->SetEnabled(false);
  if (window_) window_->ReleaseHandle();
}

bool TCustomHint::Showing() const { return window_ && window_->Visible(); }

void TCustomHint::HideTimerTick(TObject*) { HideHint(); }

}  // namespace quil
