// TCheckListBox over QListWidget.

#include <QListWidget>

#include "framework/controls/CheckLst.h"
#include "framework/controls/Controls_p.h"
#include "framework/controls/StdCtrls_p.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/Strings.h"

namespace quil {

namespace {

QListWidget* ListWidget(const TWinControl* control) {
  return static_cast<QListWidget*>(control->Private()->Widget());
}

}  // namespace

const TMetaClass& TCheckListBox::StaticClass() {
  static const TMetaClass meta = TMetaClass("TCheckListBox", &TWinControl::StaticClass());
  return meta;
}

const TMetaClass& TCheckListBox::ClassType() const { return StaticClass(); }

TCheckListBox::TCheckListBox(TComponent* owner) : TWinControl(owner), items_(std::make_unique<TStringList>()) {
  SetTabStop(true);
  SetColor(clWindow);
  SetParentColor(false);
  SetBounds(0, 0, 121, 97);
  items_->SetOnChange(TNotifyEvent(this, &TCheckListBox::ItemsChanged));
}

TCheckListBox::~TCheckListBox() = default;

TStrings* TCheckListBox::Items() const { return items_.get(); }

int TCheckListBox::Count() const { return items_->Count(); }

void TCheckListBox::CheckIndex(int index) const {
  if (index < 0 || index >= items_->Count())
    throw EListError(Format(QStringLiteral("List index out of bounds (%d)"), {index}));
}

TCheckBoxState TCheckListBox::State(int index) const {
  CheckIndex(index);
  return states_[size_t(index)].state;
}

void TCheckListBox::SetState(int index, TCheckBoxState state) {
  CheckIndex(index);
  states_[size_t(index)].state = state;
  ShowItem(index);
}

bool TCheckListBox::ItemEnabled(int index) const {
  CheckIndex(index);
  return states_[size_t(index)].enabled;
}

void TCheckListBox::SetItemEnabled(int index, bool enabled) {
  CheckIndex(index);
  states_[size_t(index)].enabled = enabled;
  ShowItem(index);
}

void TCheckListBox::CheckAll(TCheckBoxState state) {
  for (int index = 0; index < Count(); ++index) SetState(index, state);
}

void TCheckListBox::SetItemIndex(int index) {
  if (index < -1 || index >= Count()) index = -1;
  itemIndex_ = index;
  if (HandleAllocated()) ListWidget(this)->setCurrentRow(index);
}

// States are kept by position: a changed list keeps those of the positions it still has,
// and new positions start unchecked. FIXME: a sorted insert shifts states onto other
// strings; the string list does not say which positions moved.
void TCheckListBox::ItemsChanged(TObject*) {
  states_.resize(size_t(items_->Count()));
  if (itemIndex_ >= Count()) itemIndex_ = -1;
  if (HandleAllocated()) FillWidget();
}

QWidget* TCheckListBox::CreateWidget() { return new TWindowWidget<QListWidget>(Private()); }

void TCheckListBox::CreateWnd() {
  TWinControl::CreateWnd();
  QListWidget* list = ListWidget(this);
  list->setAttribute(Qt::WA_OpaquePaintEvent, false);
  FillWidget();
  QObject::connect(list, &QListWidget::itemChanged, list, [this, list](QListWidgetItem* item) {
    if (!filling_) UserToggled(list->row(item));
  });
  QObject::connect(list, &QListWidget::currentRowChanged, list, [this](int row) {
    if (!filling_) itemIndex_ = row;
  });
}

void TCheckListBox::FillWidget() {
  QListWidget* list = ListWidget(this);
  filling_ = true;
  list->clear();
  for (int index = 0; index < Count(); ++index) list->addItem(items_->Strings(index));
  filling_ = false;
  for (int index = 0; index < Count(); ++index) ShowItem(index);
  filling_ = true;
  list->setCurrentRow(itemIndex_);
  filling_ = false;
}

void TCheckListBox::ShowItem(int index) {
  if (!HandleAllocated()) return;
  QListWidgetItem* item = ListWidget(this)->item(index);
  if (!item) return;
  filling_ = true;
  const ItemState& state = states_[size_t(index)];
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
  if (!state.enabled) flags &= ~Qt::ItemIsUserCheckable;
  item->setFlags(flags);
  item->setCheckState(QtCheckState(state.state));
  filling_ = false;
}

// Qt toggles between two states; the list decides the next one itself.
void TCheckListBox::UserToggled(int index) {
  if (index < 0 || index >= Count()) return;
  ItemState& state = states_[size_t(index)];
  state.state = NextCheckBoxState(state.state, allowGrayed_);
  ShowItem(index);
  SetItemIndex(index);
  ClickCheck();
}

void TCheckListBox::ClickCheck() {
  if (onClickCheck_) onClickCheck_(this);
}

}  // namespace quil
