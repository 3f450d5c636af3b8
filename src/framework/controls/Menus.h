#pragma once
// Menus: a TPopupMenu holds a tree of TMenuItem and pops up as a QMenu built from it
// at the moment it shows, so that items changed since show as they are now.

#include <QString>
#include <memory>
#include <vector>

#include "framework/graphics/Types.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"

namespace quil {

class TMenuItem : public TComponent {
public:
  explicit TMenuItem(TComponent* owner);
  ~TMenuItem() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // "-" makes a separator.
  const QString& Caption() const { return caption_; }
  void SetCaption(const QString& caption) { caption_ = caption; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { visible_ = visible; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { checked_ = checked; }
  bool IsLine() const { return caption_ == QStringLiteral("-"); }

  int Count() const { return int(items_.size()); }
  TMenuItem* Items(int index) const { return items_.at(size_t(index)); }
  TMenuItem* Parent() const { return parent_; }
  // Takes ownership of item as a sub-item.
  void Add(TMenuItem* item);
  void Remove(TMenuItem* item);
  void Clear();

  // Fires OnClick, as choosing the item does.
  virtual void Click();
  const TNotifyEvent& OnClick() const { return onClick_; }
  void SetOnClick(const TNotifyEvent& handler) { onClick_ = handler; }

private:
  QString caption_;
  bool enabled_ = true;
  bool visible_ = true;
  bool checked_ = false;
  TMenuItem* parent_ = nullptr;
  std::vector<TMenuItem*> items_;
  TNotifyEvent onClick_;
};

class TPopupMenu : public TComponent {
public:
  explicit TPopupMenu(TComponent* owner);
  ~TPopupMenu() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TMenuItem* Items() const { return items_.get(); }
  // The component the menu was shown for, until the next popup.
  TComponent* PopupComponent() const { return popupComponent_; }
  void SetPopupComponent(TComponent* component) { popupComponent_ = component; }

  // Shows the menu at a screen point and returns when it closes; the chosen item's
  // OnClick has run by then.
  virtual void Popup(int x, int y);

  const TNotifyEvent& OnPopup() const { return onPopup_; }
  void SetOnPopup(const TNotifyEvent& handler) { onPopup_ = handler; }

private:
  std::unique_ptr<TMenuItem> items_;
  TComponent* popupComponent_ = nullptr;
  TNotifyEvent onPopup_;
};

}  // namespace quil
