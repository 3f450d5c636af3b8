#pragma once
// TCollection and TCollectionItem: an ordered list of items of one class, each of
// which knows its collection, its index and a stable ID.
//
// A collection makes its own items (Add calls CreateItem), so a reader of a component
// stream rebuilds one item by item through Add and the items' published properties.
// A change reaches the collection's Update: with the item when only it changed, with
// nil when the whole collection did; inside BeginUpdate/EndUpdate the updates collapse
// into one Update(nullptr) at the outermost EndUpdate.

#include <QString>
#include <vector>

#include "framework/rtl/Persistent.h"

namespace quil {

class TCollection;

enum TCollectionNotification { cnAdded, cnExtracting, cnDeleting };

class TCollectionItem : public TPersistent {
public:
  // An item starts outside any collection; TCollection::Add or SetCollection puts it
  // in one once it is whole, so the collection's Notify always sees a complete item.
  TCollectionItem() = default;
  // Leaves the collection. Its Notify(cnExtracting) then sees only a TCollectionItem:
  // delete items through TCollection::Delete to have it see the whole item.
  ~TCollectionItem() override;
  TCollectionItem(const TCollectionItem&) = delete;
  TCollectionItem& operator=(const TCollectionItem&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TCollection* Collection() const { return collection_; }
  // Moves the item from its collection (if any) to the end of value (if any).
  virtual void SetCollection(TCollection* value);
  // Unique within the collection for the item's life in it; never reused there.
  int ID() const { return id_; }
  // Position in the collection, -1 outside one.
  int Index() const;
  // Moves the item within its collection; raises EListError when value is out of range.
  virtual void SetIndex(int value);
  virtual QString GetDisplayName() const { return ClassName(); }
  virtual void SetDisplayName(const QString& value) { Changed(false); }

  QString GetNamePath() const override;  // "Owner.Columns[2]"
  TPersistent* GetOwner() const override;

protected:
  // Tells the collection: Update(this), or Update(nullptr) with allItems.
  void Changed(bool allItems);

private:
  friend class TCollection;
  TCollection* collection_ = nullptr;
  int id_ = 0;
};

class TCollection : public TPersistent {
public:
  explicit TCollection(const TMetaClass& itemClass);
  // Frees the items. Notify and Update are not called: a descendant that must hear
  // of its items' removal clears itself in its own destructor.
  ~TCollection() override;
  TCollection(const TCollection&) = delete;
  TCollection& operator=(const TCollection&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const TMetaClass& ItemClass() const { return itemClass_; }
  TPersistent* Owner() const { return GetOwner(); }
  int Count() const { return int(items_.size()); }
  TCollectionItem* Items(int index) const;  // raises EListError out of range
  void SetItems(int index, const TCollectionItem* value);  // the item's Assign

  TCollectionItem* Add();
  // Raises EListError, adding nothing, unless 0 <= index <= Count.
  TCollectionItem* Insert(int index);
  // Notify(cnDeleting), then the item leaves (cnExtracting) and is freed.
  void Delete(int index);
  void Clear();
  void Exchange(int index1, int index2);
  TCollectionItem* FindItemID(int id) const;  // nullptr when none has it

  void BeginUpdate() { ++updateCount_; }
  void EndUpdate();
  int UpdateCount() const { return updateCount_; }

  // From another collection: clears and adds a copy of each item (the items' Assign),
  // with one Update at the end.
  void Assign(const TPersistent* source) override;
  // "Owner.PropName" when the owner has a name path and there is a PropName, else the
  // class name.
  QString GetNamePath() const override;
  // The name of the owner's property that holds this collection: the one set, else
  // the owner's published object property whose value is this collection, else empty.
  QString PropName() const;
  void SetPropName(const QString& name) { propName_ = name; }

  // Raises std::logic_error when the items and their back links disagree.
  void CheckConsistency() const;

protected:
  // Makes an item of ItemClass through its class factory; a collection whose items
  // need more than a default constructor overrides it.
  virtual TCollectionItem* CreateItem() const;
  // Something changed: item when only it, nullptr when the collection as a whole.
  virtual void Update(TCollectionItem* item) {}
  virtual void Notify(TCollectionItem* item, TCollectionNotification action) {}
  // Update(nullptr) unless inside BeginUpdate/EndUpdate.
  void Changed();

private:
  friend class TCollectionItem;
  void InsertItem(TCollectionItem* item);
  void RemoveItem(TCollectionItem* item);
  void MoveItem(int curIndex, int newIndex);

  const TMetaClass& itemClass_;
  std::vector<TCollectionItem*> items_;
  int updateCount_ = 0;
  int nextID_ = 0;
  QString propName_;
};

// A collection that belongs to an object, which is its GetOwner.
class TOwnedCollection : public TCollection {
public:
  TOwnedCollection(TPersistent* owner, const TMetaClass& itemClass)
      : TCollection(itemClass), owner_(owner) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TPersistent* GetOwner() const override { return owner_; }

private:
  TPersistent* owner_;
};

}  // namespace quil
