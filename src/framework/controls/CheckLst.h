#pragma once
// TCheckListBox: a list of items with a check box each, over QListWidget. The check
// states live here too, so that they are there before the window exists.

#include <QString>
#include <memory>
#include <vector>

#include "framework/controls/StdCtrls.h"

namespace quil {

class TCheckListBox : public TWinControl {
public:
  explicit TCheckListBox(TComponent* owner);
  ~TCheckListBox() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Changes to the list show at once; a new item starts unchecked.
  TStrings* Items() const;
  int Count() const;
  bool Checked(int index) const { return State(index) == cbChecked; }
  void SetChecked(int index, bool checked) { SetState(index, checked ? cbChecked : cbUnchecked); }
  TCheckBoxState State(int index) const;
  void SetState(int index, TCheckBoxState state);
  // A disabled item cannot be checked by the user.
  bool ItemEnabled(int index) const;
  void SetItemEnabled(int index, bool enabled);
  bool AllowGrayed() const { return allowGrayed_; }
  void SetAllowGrayed(bool allow) { allowGrayed_ = allow; }
  void CheckAll(TCheckBoxState state);
  // -1 when no item is current.
  int ItemIndex() const { return itemIndex_; }
  void SetItemIndex(int index);

  // The user checked or unchecked an item (ItemIndex is that item).
  const TNotifyEvent& OnClickCheck() const { return onClickCheck_; }
  void SetOnClickCheck(const TNotifyEvent& handler) { onClickCheck_ = handler; }

protected:
  QWidget* CreateWidget() override;
  void CreateWnd() override;
  virtual void ClickCheck();

private:
  struct ItemState {
    TCheckBoxState state = cbUnchecked;
    bool enabled = true;
  };

  void ItemsChanged(TObject* sender);
  void FillWidget();
  void ShowItem(int index);
  void UserToggled(int index);
  void CheckIndex(int index) const;

  std::unique_ptr<TStringList> items_;
  std::vector<ItemState> states_;  // one for each item, kept in step by ItemsChanged
  int itemIndex_ = -1;
  bool allowGrayed_ = false;
  bool filling_ = false;
  TNotifyEvent onClickCheck_;
};

}  // namespace quil
