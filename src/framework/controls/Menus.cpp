#include "framework/controls/Menus.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

namespace quil {

namespace {
void BuildMenu(QMenu& menu, const TMenuItem* parent) {
  for (int index = 0; index < parent->Count(); ++index) {
    TMenuItem* item = parent->Items(index);
    if (!item->Visible()) continue;
    if (item->IsLine()) {
      menu.addSeparator();
    } else if (item->Count() > 0) {
      QMenu* sub = menu.addMenu(item->Caption());
      sub->setEnabled(item->Enabled());
      BuildMenu(*sub, item);
    } else {
      QAction* action = menu.addAction(item->Caption());
      action->setEnabled(item->Enabled());
      action->setCheckable(item->Checked());
      action->setChecked(item->Checked());
      QObject::connect(action, &QAction::triggered, action, [item] { item->Click(); });
    }
  }
}
}  // namespace

const TMetaClass& TMenuItem::StaticClass() {
  static const TMetaClass meta = TMetaClass("TMenuItem", &TComponent::StaticClass()).Creates<TMenuItem>();
  return meta;
}

const TMetaClass& TMenuItem::ClassType() const { return StaticClass(); }

TMenuItem::TMenuItem(TComponent* owner) : TComponent(owner) {}

TMenuItem::~TMenuItem() {
  Clear();
  if (parent_) parent_->Remove(this);
}

void TMenuItem::Add(TMenuItem* item) {
  if (item->parent_) item->parent_->Remove(item);
  item->parent_ = this;
  items_.push_back(item);
}

void TMenuItem::Remove(TMenuItem* item) {
  auto found = std::find(items_.begin(), items_.end(), item);
  if (found == items_.end()) return;
  items_.erase(found);
  item->parent_ = nullptr;
}

void TMenuItem::Clear() {
  while (!items_.empty()) delete items_.back();
}

void TMenuItem::Click() {
  if (onClick_) onClick_(this);
}

const TMetaClass& TPopupMenu::StaticClass() {
  static const TMetaClass meta = TMetaClass("TPopupMenu", &TComponent::StaticClass()).Creates<TPopupMenu>();
  return meta;
}

const TMetaClass& TPopupMenu::ClassType() const { return StaticClass(); }

TPopupMenu::TPopupMenu(TComponent* owner) : TComponent(owner), items_(std::make_unique<TMenuItem>(nullptr)) {}

TPopupMenu::~TPopupMenu() = default;

void TPopupMenu::Popup(int x, int y) {
  if (onPopup_) onPopup_(this);
  QMenu menu;
  BuildMenu(menu, items_.get());
  menu.exec(QPoint(x, y));
}

}  // namespace quil
