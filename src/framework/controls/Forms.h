#pragma once
// TForm: a top-level window control. Show opens it; ShowModal runs a local event loop
// until ModalResult is set or the window closes.

#include <QString>

#include "framework/controls/Controls.h"

namespace quil {

using TModalResult = int;
constexpr TModalResult mrNone = 0;
constexpr TModalResult mrOk = 1;
constexpr TModalResult mrCancel = 2;
constexpr TModalResult mrAbort = 3;
constexpr TModalResult mrRetry = 4;
constexpr TModalResult mrIgnore = 5;
constexpr TModalResult mrYes = 6;
constexpr TModalResult mrNo = 7;
constexpr TModalResult mrClose = 8;

class TForm : public TWinControl {
public:
  explicit TForm(TComponent* owner);
  ~TForm() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // The control that had the focus last, or gets it when the form shows.
  TWinControl* ActiveControl() const;
  void SetActiveControl(TWinControl* control);

  TModalResult ModalResult() const { return modalResult_; }
  void SetModalResult(TModalResult result) { modalResult_ = result; }
  TModalResult ShowModal();
  void Close();

protected:
  void CreateWnd() override;
  void CMDialogKey(TMessage& message) override;
  void CMTextChanged(TMessage& message) override;

private:
  TModalResult modalResult_ = mrNone;
  bool inModalLoop_ = false;
};

}  // namespace quil
