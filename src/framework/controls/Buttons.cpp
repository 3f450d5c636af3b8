// TButtonControl, TButton, TCheckBox and TRadioButton over Qt's buttons.

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "framework/controls/Controls_p.h"
#include "framework/controls/StdCtrls.h"
#include "framework/controls/StdCtrls_p.h"
#include "framework/controls/VirtualKeys.h"

namespace quil {

namespace {

QAbstractButton* ButtonWidget(const TWinControl* control) {
  return static_cast<QAbstractButton*>(control->Private()->Widget());
}

TForm* ParentForm(TControl* control) {
  while (control->Parent()) control = control->Parent();
  return dynamic_cast<TForm*>(control);
}

}  // namespace

const TMetaClass& TButtonControl::StaticClass() {
  static const TMetaClass meta = TMetaClass("TButtonControl", &TWinControl::StaticClass());
  return meta;
}

const TMetaClass& TButtonControl::ClassType() const { return StaticClass(); }

TButtonControl::TButtonControl(TComponent* owner) : TWinControl(owner) {
  // Qt's button decides what is a click; the generic mouse-up click would come twice.
  SetControlStyle({csSetCaption, csDoubleClicks});
  SetTabStop(true);
}

TButtonControl::~TButtonControl() = default;

void TButtonControl::CreateWnd() {
  TWinControl::CreateWnd();
  QAbstractButton* button = ButtonWidget(this);
  button->setAttribute(Qt::WA_OpaquePaintEvent, false);
  button->setText(Caption());
  QObject::connect(button, &QAbstractButton::clicked, button, [this] { WidgetClicked(); });
}

void TButtonControl::CMTextChanged(TMessage& message) {
  if (HandleAllocated()) ButtonWidget(this)->setText(Caption());
}

const TMetaClass& TButton::StaticClass() {
  static const TMetaClass meta = TMetaClass("TButton", &TButtonControl::StaticClass());
  return meta;
}

const TMetaClass& TButton::ClassType() const { return StaticClass(); }

TButton::TButton(TComponent* owner) : TButtonControl(owner) { SetBounds(0, 0, 75, 25); }

TButton::~TButton() = default;

QWidget* TButton::CreateWidget() { return new TWindowWidget<QPushButton>(Private()); }

void TButton::CreateWnd() {
  TButtonControl::CreateWnd();
  static_cast<QPushButton*>(ButtonWidget(this))->setDefault(default_);
}

void TButton::SetDefault(bool isDefault) {
  default_ = isDefault;
  if (HandleAllocated()) static_cast<QPushButton*>(ButtonWidget(this))->setDefault(isDefault);
}

void TButton::Click() {
  if (TForm* form = ParentForm(this); form && modalResult_ != mrNone) form->SetModalResult(modalResult_);
  TButtonControl::Click();
}

void TButton::CMDialogKey(TMessage& message) {
  bool mine = (message.WParam == VK_RETURN && default_) || (message.WParam == VK_ESCAPE && cancel_);
  if (!mine || !Visible() || !Enabled()) return TButtonControl::CMDialogKey(message);
  Click();
  message.Result = 1;
}

const TMetaClass& TCheckBox::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCheckBox", &TButtonControl::StaticClass());
  return meta;
}

const TMetaClass& TCheckBox::ClassType() const { return StaticClass(); }

TCheckBox::TCheckBox(TComponent* owner) : TButtonControl(owner) { SetBounds(0, 0, 97, 17); }

TCheckBox::~TCheckBox() = default;

QWidget* TCheckBox::CreateWidget() { return new TWindowWidget<QCheckBox>(Private()); }

void TCheckBox::CreateWnd() {
  TButtonControl::CreateWnd();
  auto* box = static_cast<QCheckBox*>(ButtonWidget(this));
  box->setTristate(allowGrayed_);
  box->setCheckState(QtCheckState(state_));
}

void TCheckBox::SetState(TCheckBoxState state) {
  if (state == state_) return;
  state_ = state;
  if (HandleAllocated()) {
    auto* box = static_cast<QCheckBox*>(ButtonWidget(this));
    if (state == cbGrayed) box->setTristate(true);
    box->setCheckState(QtCheckState(state));
  }
  Click();
}

void TCheckBox::SetAllowGrayed(bool allow) {
  allowGrayed_ = allow;
  if (HandleAllocated()) static_cast<QCheckBox*>(ButtonWidget(this))->setTristate(allow);
}

// Qt's own cycle goes through grayed before checked; the framework's goes after.
void TCheckBox::WidgetClicked() {
  state_ = NextCheckBoxState(state_, allowGrayed_);
  static_cast<QCheckBox*>(ButtonWidget(this))->setCheckState(QtCheckState(state_));
  Click();
}

const TMetaClass& TRadioButton::StaticClass() {
  static const TMetaClass meta = TMetaClass("TRadioButton", &TButtonControl::StaticClass());
  return meta;
}

const TMetaClass& TRadioButton::ClassType() const { return StaticClass(); }

TRadioButton::TRadioButton(TComponent* owner) : TButtonControl(owner) { SetBounds(0, 0, 113, 17); }

TRadioButton::~TRadioButton() = default;

QWidget* TRadioButton::CreateWidget() { return new TWindowWidget<QRadioButton>(Private()); }

void TRadioButton::CreateWnd() {
  TButtonControl::CreateWnd();
  // The exclusion is kept here, so that it holds with or without windows.
  ButtonWidget(this)->setAutoExclusive(false);
  ButtonWidget(this)->setChecked(checked_);
}

void TRadioButton::SetChecked(bool checked) {
  if (checked == checked_) return;
  checked_ = checked;
  if (HandleAllocated()) ButtonWidget(this)->setChecked(checked);
  if (!checked) return;
  if (Parent())
    for (int index = 0; index < Parent()->ControlCount(); ++index)
      if (auto* other = dynamic_cast<TRadioButton*>(Parent()->Controls(index)); other && other != this)
        other->SetChecked(false);
  Click();
}

// A click on a checked radio button leaves it checked.
void TRadioButton::WidgetClicked() {
  if (checked_) {
    ButtonWidget(this)->setChecked(true);
    return;
  }
  SetChecked(true);
}

}  // namespace quil
