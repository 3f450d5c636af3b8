#pragma once
// TList: the list of untyped pointers, with range-checked access that raises
// EListError, and TObjectList, which may own (free) the objects it holds.

#include <functional>
#include <vector>

#include "framework/rtl/Format.h"
#include "framework/rtl/Object.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

enum TListNotification { lnAdded, lnExtracted, lnDeleted };

// Negative when item1 sorts before item2, 0 when equal, positive after.
using TListSortCompare = std::function<int(void* item1, void* item2)>;

// Raises E with SListIndexError and the index: the one message of every indexed list.
template <typename E>
[[noreturn]] void RaiseListIndexError(int index) {
  throw E(Format(SListIndexError, {index}));
}

class TList : public TObject {
public:
  TList() = default;
  // A descendant whose Notify matters clears itself in its own destructor: by the
  // time this one runs, only TList's Notify is left.
  ~TList() override = default;
  TList(const TList&) = delete;
  TList& operator=(const TList&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  int Count() const { return int(items_.size()); }
  // Growing appends nil entries; shrinking deletes from the end.
  void SetCount(int count);
  int Capacity() const { return int(items_.capacity()); }
  void SetCapacity(int capacity);

  void* Items(int index) const;
  void SetItems(int index, void* item);
  void* First() const { return Items(0); }
  void* Last() const { return Items(Count() - 1); }

  int Add(void* item);
  void Insert(int index, void* item);  // index may equal Count
  void Delete(int index);
  // Deletes the first occurrence; its former index, or -1 when it was not there.
  int Remove(void* item);
  // Takes the first occurrence out without lnDeleted; nil when it was not there.
  void* Extract(void* item);
  void Clear();
  // Drops the nil entries.
  void Pack();

  int IndexOf(const void* item) const;
  void Exchange(int index1, int index2);
  void Move(int curIndex, int newIndex);
  // Stable, so items that compare equal keep their order.
  void Sort(const TListSortCompare& compare);

protected:
  // Called for every non-nil item that enters or leaves the list.
  virtual void Notify(void* item, TListNotification action) {}

private:
  void CheckIndex(int index) const;

  std::vector<void*> items_;
};

class TObjectList : public TList {
public:
  explicit TObjectList(bool ownsObjects = true) : ownsObjects_(ownsObjects) {}
  ~TObjectList() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // When true, an object deleted from the list (not extracted) is freed.
  bool OwnsObjects() const { return ownsObjects_; }
  void SetOwnsObjects(bool owns) { ownsObjects_ = owns; }

  TObject* Items(int index) const { return static_cast<TObject*>(TList::Items(index)); }
  void SetItems(int index, TObject* item) { TList::SetItems(index, item); }
  TObject* First() const { return Items(0); }
  TObject* Last() const { return Items(Count() - 1); }
  int Add(TObject* item) { return TList::Add(item); }
  void Insert(int index, TObject* item) { TList::Insert(index, item); }
  int Remove(TObject* item) { return TList::Remove(item); }
  TObject* Extract(TObject* item) { return static_cast<TObject*>(TList::Extract(item)); }
  int IndexOf(const TObject* item) const { return TList::IndexOf(item); }

protected:
  void Notify(void* item, TListNotification action) override;

private:
  bool ownsObjects_;
};

}  // namespace quil
