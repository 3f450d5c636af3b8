#include "framework/rtl/Component.h"

#include <algorithm>
#include <cassert>

#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {
template <typename T>
bool Erase(std::vector<T*>& list, T* item) {
  auto found = std::find(list.begin(), list.end(), item);
  if (found == list.end()) return false;
  list.erase(found);
  return true;
}

template <typename T>
bool Has(const std::vector<T*>& list, const T* item) {
  return std::find(list.begin(), list.end(), item) != list.end();
}
}  // namespace

const TMetaClass& TComponent::StaticClass() {
  // Name is published for access by name; streams carry it in the component's header.
  static const TMetaClass meta = TMetaClass("TComponent", &TPersistent::StaticClass())
      .Creates<TComponent>()
      .Published(StrProp("Name", &TComponent::Name, &TComponent::SetName).Stored(false))
      .Published(IntProp("Tag", &TComponent::Tag, &TComponent::SetTag).Default(0));
  return meta;
}

const TMetaClass& TComponent::ClassType() const { return StaticClass(); }

TComponent::TComponent(TComponent* owner) {
  if (owner) owner->InsertComponent(this);
}

TComponent::~TComponent() {
  Destroying();
  NotifyFreeing();
  while (!components_.empty()) {
    TComponent* owned = components_.back();
    Remove(owned);
    // Its listeners hear while it is still whole, whichever sibling goes first.
    owned->NotifyFreeing();
    delete owned;
  }
  if (owner_) owner_->RemoveComponent(this);
}

int TComponent::ComponentIndex() const {
  if (!owner_) return -1;
  auto& list = owner_->components_;
  return int(std::find(list.begin(), list.end(), this) - list.begin());
}

TComponent* TComponent::FindComponent(const QString& name) const {
  if (name.isEmpty()) return nullptr;
  for (TComponent* component : components_)
    if (component->name_.compare(name, Qt::CaseInsensitive) == 0) return component;
  return nullptr;
}

void TComponent::SetName(const QString& name) {
  if (name_ == name) return;
  if (!name.isEmpty() && !IsValidIdent(name)) throw EComponentError(Format(SInvalidName, {name}));
  if (owner_ && !name.isEmpty()) {
    TComponent* other = owner_->FindComponent(name);
    if (other && other != this) throw EComponentError(Format(SDuplicateName, {name}));
  }
  name_ = name;
}

void TComponent::SetDesigning(bool designing) {
  state_.Switch(csDesigning, designing);
  for (TComponent* component : components_) component->SetDesigning(designing);
}

void TComponent::InsertComponent(TComponent* component) {
  assert(component && component != this && "a component cannot own itself");
  if (!component->name_.isEmpty() && FindComponent(component->name_))
    throw EComponentError(Format(SDuplicateName, {component->name_}));
  if (component->owner_) component->owner_->RemoveComponent(component);
  Insert(component);
  if (state_.Contains(csDesigning)) component->SetDesigning(true);
  Notification(component, opInsert);
}

void TComponent::RemoveComponent(TComponent* component) {
  if (component->owner_ != this) return;
  Notification(component, opRemove);
  Remove(component);
}

void TComponent::FreeNotification(TComponent* component) {
  if (!component || component == this) return;
  AddFreeLink(component);
  component->AddFreeLink(this);
  state_.Include(csFreeNotification);
}

void TComponent::RemoveFreeNotification(TComponent* component) {
  if (!component) return;
  DropFreeLink(component);
  component->DropFreeLink(this);
}

void TComponent::NotifyFreeing() {
  while (!freeNotifies_.empty()) {
    TComponent* listener = freeNotifies_.back();
    freeNotifies_.pop_back();
    Erase(listener->freeNotifies_, this);
    listener->Notification(this, opRemove);
  }
}

void TComponent::Destroying() {
  if (state_.Contains(csDestroying)) return;
  state_.Include(csDestroying);
  for (TComponent* component : components_) component->Destroying();
}

void TComponent::Notification(TComponent* component, TOperation operation) {
  if (operation == opRemove && component) RemoveFreeNotification(component);
  // Owned components hear of what their owner hears.
  for (size_t index = components_.size(); index-- > 0;)
    if (index < components_.size()) components_[index]->Notification(component, operation);
}

void TComponent::Insert(TComponent* component) {
  components_.push_back(component);
  component->owner_ = this;
}

void TComponent::Remove(TComponent* component) {
  Erase(components_, component);
  component->owner_ = nullptr;
}

void TComponent::AddFreeLink(TComponent* component) {
  if (!Has(freeNotifies_, component)) freeNotifies_.push_back(component);
}

void TComponent::DropFreeLink(TComponent* component) {
  Erase(freeNotifies_, component);
  if (freeNotifies_.empty()) state_.Exclude(csFreeNotification);
}

void TComponent::CheckConsistency() const {
  for ([[maybe_unused]] const TComponent* owned : components_)
    assert(owned->owner_ == this && "an owned component names another owner");
  for ([[maybe_unused]] const TComponent* listener : freeNotifies_)
    assert(Has(listener->freeNotifies_, this) && "free notification links are one-sided");
  if (owner_) assert(Has(owner_->components_, this) && "owner does not list this component");
}

bool IsValidIdent(const QString& ident) {
  if (ident.isEmpty()) return false;
  auto isStart = [](QChar ch) { return ch == QLatin1Char('_') || (ch.unicode() < 128 && ch.isLetter()); };
  if (!isStart(ident[0])) return false;
  return std::all_of(ident.begin() + 1, ident.end(),
                     [&](QChar ch) { return isStart(ch) || (ch.unicode() < 128 && ch.isDigit()); });
}

}  // namespace quil
