#include "framework/rtl/Collections.h"

#include <algorithm>
#include <cassert>
#include <stdexcept>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Lists.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"

namespace quil {

const TMetaClass& TCollectionItem::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TCollectionItem", &TPersistent::StaticClass()).Creates<TCollectionItem>();
  return meta;
}

const TMetaClass& TCollectionItem::ClassType() const { return StaticClass(); }

TCollectionItem::~TCollectionItem() { SetCollection(nullptr); }

void TCollectionItem::SetCollection(TCollection* value) {
  if (collection_ == value) return;
  if (collection_) collection_->RemoveItem(this);
  if (value) value->InsertItem(this);
}

int TCollectionItem::Index() const {
  if (!collection_) return -1;
  const auto& items = collection_->items_;
  return int(std::find(items.begin(), items.end(), this) - items.begin());
}

void TCollectionItem::SetIndex(int value) {
  const int current = Index();
  if (current < 0 || current == value) return;
  collection_->MoveItem(current, value);
  Changed(true);
}

QString TCollectionItem::GetNamePath() const {
  if (!collection_) return ClassName();
  return collection_->GetNamePath() + QStringLiteral("[%1]").arg(Index());
}

TPersistent* TCollectionItem::GetOwner() const { return collection_; }

void TCollectionItem::Changed(bool allItems) {
  if (collection_ && collection_->updateCount_ == 0) collection_->Update(allItems ? nullptr : this);
}

const TMetaClass& TCollection::StaticClass() {
  static const TMetaClass meta("TCollection", &TPersistent::StaticClass());
  return meta;
}

const TMetaClass& TCollection::ClassType() const { return StaticClass(); }

TCollection::TCollection(const TMetaClass& itemClass) : itemClass_(itemClass) {
  assert(itemClass.InheritsFrom(TCollectionItem::StaticClass()) &&
         "a collection holds collection items");
}

TCollection::~TCollection() {
  updateCount_ = 1;
  Clear();
}

TCollectionItem* TCollection::Items(int index) const {
  if (index < 0 || index >= Count()) RaiseListIndexError<EListError>(index);
  return items_[size_t(index)];
}

void TCollection::SetItems(int index, const TCollectionItem* value) { Items(index)->Assign(value); }

TCollectionItem* TCollection::CreateItem() const {
  auto* item = dynamic_cast<TCollectionItem*>(itemClass_.Create(nullptr));
  assert(item && "the item class's factory makes collection items");
  return item;
}

TCollectionItem* TCollection::Add() {
  TCollectionItem* item = CreateItem();
  InsertItem(item);
  return item;
}

TCollectionItem* TCollection::Insert(int index) {
  if (index < 0 || index > Count()) RaiseListIndexError<EListError>(index);
  TCollectionItem* item = Add();
  item->SetIndex(index);
  return item;
}

void TCollection::Delete(int index) {
  TCollectionItem* item = Items(index);
  Notify(item, cnDeleting);
  RemoveItem(item);
  delete item;
}

void TCollection::Clear() {
  if (items_.empty()) return;
  TUpdateGuard guard(*this);
  while (!items_.empty()) {
    TCollectionItem* item = items_.back();
    RemoveItem(item);
    delete item;
  }
}

void TCollection::Exchange(int index1, int index2) {
  TCollectionItem* item1 = Items(index1);
  TCollectionItem* item2 = Items(index2);
  items_[size_t(index1)] = item2;
  items_[size_t(index2)] = item1;
  Changed();
}

TCollectionItem* TCollection::FindItemID(int id) const {
  auto found = std::find_if(items_.begin(), items_.end(),
                            [id](const TCollectionItem* item) { return item->id_ == id; });
  return found == items_.end() ? nullptr : *found;
}

void TCollection::EndUpdate() {
  assert(updateCount_ > 0 && "EndUpdate without BeginUpdate");
  --updateCount_;
  Changed();
}

void TCollection::Changed() {
  if (updateCount_ == 0) Update(nullptr);
}

void TCollection::Assign(const TPersistent* source) {
  const auto* collection = dynamic_cast<const TCollection*>(source);
  if (!collection) {
    TPersistent::Assign(source);
    return;
  }
  if (collection == this) return;
  TUpdateGuard guard(*this);
  Clear();
  for (const TCollectionItem* item : collection->items_) Add()->Assign(item);
}

QString TCollection::GetNamePath() const {
  const TPersistent* owner = GetOwner();
  if (!owner) return ClassName();
  const QString ownerPath = owner->GetNamePath();
  const QString propName = PropName();
  if (ownerPath.isEmpty() || propName.isEmpty()) return ClassName();
  return ownerPath + QLatin1Char('.') + propName;
}

QString TCollection::PropName() const {
  const TPersistent* owner = GetOwner();
  if (!propName_.isEmpty() || !owner) return propName_;
  // The last such property names it.
  const TMetaClass& meta = owner->ClassType();
  for (int index = meta.PropertyCount() - 1; index >= 0; --index) {
    const TPropInfo* prop = meta.Property(index);
    if (prop->Kind() == tkClass && GetObjectProp(owner, prop) == this) return prop->Name();
  }
  return QString();
}

void TCollection::InsertItem(TCollectionItem* item) {
  assert(item->InheritsFrom(itemClass_) && "an item of the collection's item class");
  items_.push_back(item);
  item->collection_ = this;
  item->id_ = nextID_++;
  Notify(item, cnAdded);
  Changed();
}

void TCollection::RemoveItem(TCollectionItem* item) {
  Notify(item, cnExtracting);
  items_.erase(std::find(items_.begin(), items_.end(), item));
  item->collection_ = nullptr;
  Changed();
}

void TCollection::MoveItem(int curIndex, int newIndex) {
  if (newIndex < 0 || newIndex >= Count()) RaiseListIndexError<EListError>(newIndex);
  TCollectionItem* item = items_[size_t(curIndex)];
  items_.erase(items_.begin() + curIndex);
  items_.insert(items_.begin() + newIndex, item);
}

void TCollection::CheckConsistency() const {
  auto fail = [](const char* why) { throw std::logic_error(why); };
  if (updateCount_ < 0) fail("negative update count");
  std::vector<int> ids;
  for (const TCollectionItem* item : items_) {
    if (!item) fail("a nil item");
    if (item->collection_ != this) fail("an item names another collection");
    if (!item->InheritsFrom(itemClass_)) fail("an item not of the item class");
    if (item->id_ < 0 || item->id_ >= nextID_) fail("an item ID that was never given out");
    ids.push_back(item->id_);
  }
  std::sort(ids.begin(), ids.end());
  if (std::adjacent_find(ids.begin(), ids.end()) != ids.end()) fail("two items share an ID");
}

const TMetaClass& TOwnedCollection::StaticClass() {
  static const TMetaClass meta("TOwnedCollection", &TCollection::StaticClass());
  return meta;
}

const TMetaClass& TOwnedCollection::ClassType() const { return StaticClass(); }

}  // namespace quil
