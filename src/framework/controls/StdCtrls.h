#pragma once
// The standard window controls over Qt's own widgets: TButton (QPushButton), TCheckBox
// (QCheckBox), TRadioButton (QRadioButton) and TComboBox (QComboBox). Qt draws and
// handles them; the framework's state (Checked, State, ItemIndex, Text) lives here as well,
// so that it is there before the window and after it. A user's change fires OnClick or
// OnChange; so does the program's, as it does in the framework.

#include <QString>
#include <memory>

#include "framework/controls/Controls.h"
#include "framework/controls/Forms.h"

namespace quil {

class TStringList;
class TStrings;

// The widget is Qt's button; a click reaches Click once, from the widget.
class TButtonControl : public TWinControl {
public:
  explicit TButtonControl(TComponent* owner);
  ~TButtonControl() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

protected:
  void CreateWnd() override;
  void CMTextChanged(TMessage& message) override;
  // The widget was clicked, and has taken its new check state.
  virtual void WidgetClicked() { Click(); }
};

class TButton : public TButtonControl {
public:
  explicit TButton(TComponent* owner);
  ~TButton() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Enter anywhere on the form clicks the default button, Escape the cancel button.
  bool Default() const { return default_; }
  void SetDefault(bool isDefault);
  bool Cancel() const { return cancel_; }
  void SetCancel(bool cancel) { cancel_ = cancel; }
  // Set as the form's ModalResult when clicked; mrNone leaves the form alone.
  TModalResult ModalResult() const { return modalResult_; }
  void SetModalResult(TModalResult result) { modalResult_ = result; }

  using TButtonControl::Click;

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  void Click() override;
  void CMDialogKey(TMessage& message) override;

private:
  bool default_ = false;
  bool cancel_ = false;
  TModalResult modalResult_ = mrNone;
};

enum TCheckBoxState { cbUnchecked, cbChecked, cbGrayed };

class TCheckBox : public TButtonControl {
public:
  explicit TCheckBox(TComponent* owner);
  ~TCheckBox() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Checked() const { return state_ == cbChecked; }
  void SetChecked(bool checked) { SetState(checked ? cbChecked : cbUnchecked); }
  TCheckBoxState State() const { return state_; }
  void SetState(TCheckBoxState state);
  // The user's clicks go through the grayed state too.
  bool AllowGrayed() const { return allowGrayed_; }
  void SetAllowGrayed(bool allow);

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  void WidgetClicked() override;

private:
  TCheckBoxState state_ = cbUnchecked;
  bool allowGrayed_ = false;
};

// Of the radio buttons of one parent, at most one is checked.
class TRadioButton : public TButtonControl {
public:
  explicit TRadioButton(TComponent* owner);
  ~TRadioButton() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  bool Checked() const { return checked_; }
  void SetChecked(bool checked);

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  void WidgetClicked() override;

private:
  bool checked_ = false;
};

enum TComboBoxStyle { csDropDown, csDropDownList };

class TComboBox : public TWinControl {
public:
  explicit TComboBox(TComponent* owner);
  ~TComboBox() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Changes to the list show at once.
  TStrings* Items() const;
  void SetItems(const TStrings* items);
  // -1 when no item is chosen.
  int ItemIndex() const { return itemIndex_; }
  void SetItemIndex(int index);
  // The edited text with csDropDown, the chosen item's with csDropDownList.
  QString Text() const;
  void SetText(const QString& text);
  TComboBoxStyle Style() const { return style_; }
  void SetStyle(TComboBoxStyle style);
  // Typing completes the text inline to the first item that starts with it.
  bool AutoComplete() const { return autoComplete_; }
  void SetAutoComplete(bool autoComplete);
  int DropDownCount() const { return dropDownCount_; }
  void SetDropDownCount(int count);
  bool DroppedDown() const;
  void SetDroppedDown(bool dropped);

  const TNotifyEvent& OnChange() const { return onChange_; }
  void SetOnChange(const TNotifyEvent& handler) { onChange_ = handler; }
  const TNotifyEvent& OnSelect() const { return onSelect_; }
  void SetOnSelect(const TNotifyEvent& handler) { onSelect_ = handler; }

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  virtual void Change();
  virtual void Select();

private:
  void ItemsChanged(TObject* sender);
  void FillWidget();

  std::unique_ptr<TStringList> items_;
  int itemIndex_ = -1;
  QString text_;
  TComboBoxStyle style_ = csDropDown;
  int dropDownCount_ = 8;
  bool autoComplete_ = true;
  bool filling_ = false;  // the program, not the user, changes the widget
  TNotifyEvent onChange_, onSelect_;
};

}  // namespace quil
