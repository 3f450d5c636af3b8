#include <QApplication>
#include <QEventLoop>
#include <QWidget>

#include "framework/controls/Application.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/Forms.h"

namespace quil {

const TMetaClass& TForm::StaticClass() {
  static const TMetaClass meta = TMetaClass("TForm", &TWinControl::StaticClass()).Creates<TForm>();
  return meta;
}

const TMetaClass& TForm::ClassType() const { return StaticClass(); }

TForm::TForm(TComponent* owner) : TWinControl(owner) {
  SetInitialVisible(false);
  SetColor(clBtnFace);
  SetBounds(0, 0, 640, 480);
}

TForm::~TForm() = default;

void TForm::CreateWnd() {
  TWinControl::CreateWnd();
  Handle()->setWindowTitle(Caption());
}

void TForm::CMTextChanged(TMessage& message) {
  if (HandleAllocated()) Handle()->setWindowTitle(Caption());
}

TWinControl* TForm::ActiveControl() const {
  if (!HandleAllocated()) return nullptr;
  return FindControl(Private()->Widget()->focusWidget());
}

void TForm::SetActiveControl(TWinControl* control) {
  if (control && control->CanFocus()) control->SetFocus();
}

TModalResult TForm::ShowModal() {
  modalResult_ = mrNone;
  // A drag or dropped-down list under way elsewhere ends before the modal window opens.
  if (TControl* capture = GetCaptureControl()) {
    capture->Perform(CM_CANCELMODE, 0, LPARAM(this));
    capture->Perform(WM_CANCELMODE, 0, 0);
  }
  HandleNeeded();
  Handle()->setWindowModality(Qt::ApplicationModal);
  Show();
  QEventLoop loop;
  inModalLoop_ = true;
  while (modalResult_ == mrNone && Showing()) {
    loop.processEvents(QEventLoop::WaitForMoreEvents);
    Application->ProcessMessages();
  }
  inModalLoop_ = false;
  Hide();
  Handle()->setWindowModality(Qt::NonModal);
  if (modalResult_ == mrNone) modalResult_ = mrCancel;
  return modalResult_;
}

void TForm::Close() {
  if (inModalLoop_) modalResult_ = mrCancel;
  Hide();
}

namespace {

// Offers a dialog key to every control on the form until one takes it.
bool OfferDialogKey(TWinControl* parent, TMessage& message) {
  for (int index = 0; index < parent->ControlCount(); ++index) {
    auto* child = dynamic_cast<TWinControl*>(parent->Controls(index));
    if (!child) continue;
    if (child->Perform(CM_DIALOGKEY, message.WParam, message.LParam) != 0 || OfferDialogKey(child, message)) {
      message.Result = 1;
      return true;
    }
  }
  return false;
}

}  // namespace

void TForm::CMDialogKey(TMessage& message) {
  if ((message.WParam == VK_RETURN || message.WParam == VK_ESCAPE) && OfferDialogKey(this, message)) return;
  if (message.WParam == VK_ESCAPE && inModalLoop_) {
    modalResult_ = mrCancel;
    message.Result = 1;
    return;
  }
  TWinControl::CMDialogKey(message);
}

}  // namespace quil
