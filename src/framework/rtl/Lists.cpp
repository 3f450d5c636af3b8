#include "framework/rtl/Lists.h"

#include <algorithm>

#include "framework/rtl/Exceptions.h"

namespace quil {

const TMetaClass& TList::StaticClass() {
  static const TMetaClass meta = TMetaClass("TList", &TObject::StaticClass()).Creates<TList>();
  return meta;
}

const TMetaClass& TList::ClassType() const { return StaticClass(); }

void TList::CheckIndex(int index) const {
  if (index < 0 || index >= Count()) RaiseListIndexError<EListError>(index);
}

void TList::SetCount(int count) {
  if (count < 0) throw EListError(Format(SListCountError, {count}));
  if (count > Count()) {
    items_.resize(size_t(count), nullptr);
    return;
  }
  while (Count() > count) Delete(Count() - 1);
}

void TList::SetCapacity(int capacity) {
  if (capacity < Count()) throw EListError(Format(SListCapacityError, {capacity}));
  if (size_t(capacity) < items_.capacity()) items_.shrink_to_fit();
  items_.reserve(size_t(capacity));
}

void* TList::Items(int index) const {
  CheckIndex(index);
  return items_[size_t(index)];
}

void TList::SetItems(int index, void* item) {
  CheckIndex(index);
  void* old = items_[size_t(index)];
  if (old == item) return;
  items_[size_t(index)] = item;
  if (old) Notify(old, lnDeleted);
  if (item) Notify(item, lnAdded);
}

int TList::Add(void* item) {
  items_.push_back(item);
  if (item) Notify(item, lnAdded);
  return Count() - 1;
}

void TList::Insert(int index, void* item) {
  if (index < 0 || index > Count()) RaiseListIndexError<EListError>(index);
  items_.insert(items_.begin() + index, item);
  if (item) Notify(item, lnAdded);
}

void TList::Delete(int index) {
  CheckIndex(index);
  void* item = items_[size_t(index)];
  items_.erase(items_.begin() + index);
  if (item) Notify(item, lnDeleted);
}

int TList::Remove(void* item) {
  const int index = IndexOf(item);
  if (index >= 0) Delete(index);
  return index;
}

void* TList::Extract(void* item) {
  const int index = IndexOf(item);
  if (index < 0) return nullptr;
  items_.erase(items_.begin() + index);
  if (item) Notify(item, lnExtracted);
  return item;
}

void TList::Clear() {
  SetCount(0);
  items_.shrink_to_fit();
}

void TList::Pack() { std::erase(items_, nullptr); }

int TList::IndexOf(const void* item) const {
  auto found = std::find(items_.begin(), items_.end(), item);
  return found == items_.end() ? -1 : int(found - items_.begin());
}

void TList::Exchange(int index1, int index2) {
  CheckIndex(index1);
  CheckIndex(index2);
  std::swap(items_[size_t(index1)], items_[size_t(index2)]);
}

void TList::Move(int curIndex, int newIndex) {
  if (curIndex == newIndex) return;
  CheckIndex(curIndex);
  CheckIndex(newIndex);
  void* item = items_[size_t(curIndex)];
  items_.erase(items_.begin() + curIndex);
  items_.insert(items_.begin() + newIndex, item);
}

void TList::Sort(const TListSortCompare& compare) {
  std::stable_sort(items_.begin(), items_.end(),
                   [&](void* item1, void* item2) { return compare(item1, item2) < 0; });
}

const TMetaClass& TObjectList::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TObjectList", &TList::StaticClass()).Creates<TObjectList>();
  return meta;
}

const TMetaClass& TObjectList::ClassType() const { return StaticClass(); }

TObjectList::~TObjectList() { Clear(); }

void TObjectList::Notify(void* item, TListNotification action) {
  if (ownsObjects_ && action == lnDeleted) delete static_cast<TObject*>(item);
}

}  // namespace quil
