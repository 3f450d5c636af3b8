// TComboBox over QComboBox.

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>

#include "framework/controls/Controls_p.h"
#include "framework/controls/StdCtrls.h"
#include "framework/rtl/Strings.h"

namespace quil {

namespace {

QComboBox* ComboWidget(const TWinControl* control) {
  return static_cast<QComboBox*>(control->Private()->Widget());
}

// The completion an editable QComboBox makes by default, or none.
void ApplyAutoComplete(QComboBox* combo, bool complete) {
  if (!combo->isEditable() || (combo->completer() != nullptr) == complete) return;
  QCompleter* completer = nullptr;
  if (complete) {
    completer = new QCompleter(combo->model(), combo);
    completer->setCompletionMode(QCompleter::InlineCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
  }
  combo->setCompleter(completer);
}

}  // namespace

const TMetaClass& TComboBox::StaticClass() {
  static const TMetaClass meta = TMetaClass("TComboBox", &TWinControl::StaticClass());
  return meta;
}

const TMetaClass& TComboBox::ClassType() const { return StaticClass(); }

TComboBox::TComboBox(TComponent* owner) : TWinControl(owner), items_(std::make_unique<TStringList>()) {
  SetTabStop(true);
  SetColor(clWindow);
  SetParentColor(false);
  SetBounds(0, 0, 145, 23);
  items_->SetOnChange(TNotifyEvent(this, &TComboBox::ItemsChanged));
}

TComboBox::~TComboBox() = default;

TStrings* TComboBox::Items() const { return items_.get(); }

void TComboBox::SetItems(const TStrings* items) { items_->Assign(items); }

QWidget* TComboBox::CreateWidget() { return new TWindowWidget<QComboBox>(Private()); }

void TComboBox::CreateWnd() {
  TWinControl::CreateWnd();
  QComboBox* combo = ComboWidget(this);
  combo->setAttribute(Qt::WA_OpaquePaintEvent, false);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setMaxVisibleItems(dropDownCount_);
  FillWidget();
  // With an edit, the edit's text has changed (and said so) before the choice arrives.
  QObject::connect(combo, &QComboBox::activated, combo, [this](int index) {
    bool changed = index != itemIndex_;
    itemIndex_ = index;
    text_ = items_->Strings(index);
    Select();
    if (changed) Change();
  });
  QObject::connect(combo, &QComboBox::editTextChanged, combo, [this](const QString& text) {
    if (filling_ || style_ != csDropDown || text == text_) return;
    text_ = text;
    itemIndex_ = items_->IndexOf(text);
    Change();
  });
}

// Puts list, style, choice and text into the widget without telling anyone.
void TComboBox::FillWidget() {
  QComboBox* combo = ComboWidget(this);
  filling_ = true;
  combo->clear();
  combo->setEditable(style_ == csDropDown);
  ApplyAutoComplete(combo, style_ == csDropDown && autoComplete_);
  for (int index = 0; index < items_->Count(); ++index) combo->addItem(items_->Strings(index));
  combo->setCurrentIndex(itemIndex_);
  if (style_ == csDropDown) combo->setEditText(text_);
  filling_ = false;
}

void TComboBox::ItemsChanged(TObject*) {
  if (itemIndex_ >= items_->Count()) itemIndex_ = -1;
  if (itemIndex_ >= 0 && style_ == csDropDownList) text_ = items_->Strings(itemIndex_);
  if (HandleAllocated()) FillWidget();
}

void TComboBox::SetItemIndex(int index) {
  if (index < -1 || index >= items_->Count()) index = -1;
  if (index == itemIndex_) return;
  itemIndex_ = index;
  text_ = index >= 0 ? items_->Strings(index) : QString();
  if (HandleAllocated()) FillWidget();
}

QString TComboBox::Text() const { return text_; }

void TComboBox::SetText(const QString& text) {
  int index = items_->IndexOf(text);
  // A list without an edit shows only its items.
  if (style_ == csDropDownList && index < 0) return SetItemIndex(-1);
  text_ = text;
  itemIndex_ = index;
  if (HandleAllocated()) FillWidget();
  Change();
}

void TComboBox::SetStyle(TComboBoxStyle style) {
  if (style == style_) return;
  style_ = style;
  if (style == csDropDownList && itemIndex_ < 0) text_.clear();
  if (HandleAllocated()) FillWidget();
}

void TComboBox::SetAutoComplete(bool autoComplete) {
  autoComplete_ = autoComplete;
  if (HandleAllocated()) ApplyAutoComplete(ComboWidget(this), style_ == csDropDown && autoComplete);
}

void TComboBox::SetDropDownCount(int count) {
  dropDownCount_ = std::max(count, 1);
  if (HandleAllocated()) ComboWidget(this)->setMaxVisibleItems(dropDownCount_);
}

bool TComboBox::DroppedDown() const {
  QComboBox* combo = ComboWidget(this);
  return combo && combo->view()->isVisible();
}

void TComboBox::SetDroppedDown(bool dropped) {
  HandleNeeded();
  if (dropped) ComboWidget(this)->showPopup();
  else ComboWidget(this)->hidePopup();
}

void TComboBox::Change() {
  if (onChange_) onChange_(this);
}

void TComboBox::Select() {
  if (onSelect_) onSelect_(this);
}

}  // namespace quil
