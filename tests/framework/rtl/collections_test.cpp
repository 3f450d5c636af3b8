#include <gtest/gtest.h>

#include <QStringList>
#include <vector>

#include "framework/rtl/Collections.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"
#include "QtPrinters.h"

using namespace quil;

namespace {

int liveItems = 0;

class TTestItem : public TCollectionItem {
public:
  TTestItem() { ++liveItems; }
  ~TTestItem() override { --liveItems; }

  static const TMetaClass& StaticClass() {
    static const TMetaClass meta =
        TMetaClass("TTestItem", &TCollectionItem::StaticClass()).Creates<TTestItem>();
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  void Assign(const TPersistent* source) override {
    if (const auto* item = dynamic_cast<const TTestItem*>(source)) {
      SetText(item->text);
      return;
    }
    TCollectionItem::Assign(source);
  }
  void SetText(const QString& value) {
    text = value;
    Changed(false);
  }
  QString GetDisplayName() const override { return text; }

  QString text;
};

// Records every Update and Notify, with the item's text at the time it was heard.
class TRecordingCollection : public TOwnedCollection {
public:
  explicit TRecordingCollection(TPersistent* owner = nullptr)
      : TOwnedCollection(owner, TTestItem::StaticClass()) {}
  ~TRecordingCollection() override { Clear(); }

  TTestItem* Add() { return static_cast<TTestItem*>(TCollection::Add()); }
  TTestItem* Item(int index) const { return static_cast<TTestItem*>(Items(index)); }
  TTestItem* AddText(const QString& text) {
    TTestItem* item = Add();
    item->SetText(text);
    return item;
  }
  QStringList Texts() const {
    QStringList texts;
    for (int index = 0; index < Count(); ++index) texts << Item(index)->text;
    return texts;
  }
  void ForgetEvents() {
    updates.clear();
    notes.clear();
  }

  std::vector<TCollectionItem*> updates;
  QStringList notes;  // "added:A", "extracting:A", "deleting:A"

protected:
  void Update(TCollectionItem* item) override { updates.push_back(item); }
  void Notify(TCollectionItem* item, TCollectionNotification action) override {
    static const char* names[] = {"added", "extracting", "deleting"};
    const auto* testItem = dynamic_cast<TTestItem*>(item);
    notes << QString::fromLatin1(names[action]) + QLatin1Char(':') +
                 (testItem ? testItem->text : QStringLiteral("<partial>"));
  }
};

TRecordingCollection* Filled(TRecordingCollection& collection, const QStringList& texts) {
  for (const QString& text : texts) collection.AddText(text);
  collection.ForgetEvents();
  return &collection;
}

}  // namespace

TEST(TCollection, AddMakesItemsOfTheItemClassWithRisingIDs) {
  TRecordingCollection collection;
  TTestItem* first = collection.Add();
  TTestItem* second = collection.Add();
  collection.CheckConsistency();
  EXPECT_EQ(collection.Count(), 2);
  EXPECT_EQ(first->Collection(), &collection);
  EXPECT_EQ(second->Index(), 1);
  EXPECT_LT(first->ID(), second->ID());
  EXPECT_EQ(collection.FindItemID(second->ID()), second);
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr, nullptr}));
}

TEST(TCollection, IDsAreNotReusedAfterADelete) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  const int lastID = collection.Item(1)->ID();
  collection.Delete(1);
  const TTestItem* added = collection.Add();
  collection.CheckConsistency();
  EXPECT_GT(added->ID(), lastID);
  EXPECT_EQ(collection.FindItemID(lastID), nullptr);
}

TEST(TCollection, SetIndexReordersAndReportsOneWholeUpdate) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B", "C", "D"});
  collection.Item(3)->SetIndex(1);
  collection.CheckConsistency();
  EXPECT_EQ(collection.Texts(), QStringList({"A", "D", "B", "C"}));
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr}));
  collection.Item(1)->SetIndex(3);
  EXPECT_EQ(collection.Texts(), QStringList({"A", "B", "C", "D"}));
  EXPECT_TRUE(collection.notes.isEmpty());
}

TEST(TCollection, SetIndexToItsOwnPlaceChangesNothing) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  collection.Item(1)->SetIndex(1);
  EXPECT_TRUE(collection.updates.empty());
}

TEST(TCollection, SetIndexOutOfRangeRaisesAndKeepsTheOrder) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B", "C"});
  try {
    collection.Item(0)->SetIndex(3);
    FAIL() << "expected EListError";
  } catch (const EListError& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("List index out of bounds (3)"));
  }
  EXPECT_THROW(collection.Item(0)->SetIndex(-1), EListError);
  collection.CheckConsistency();
  EXPECT_EQ(collection.Texts(), QStringList({"A", "B", "C"}));
  EXPECT_TRUE(collection.updates.empty());
}

TEST(TCollection, ItemChangeReportsTheItemAlone) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  collection.Item(1)->SetText(QStringLiteral("b"));
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{collection.Item(1)}));
}

TEST(TCollection, NestedUpdatesCollapseIntoOneWholeUpdate) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  collection.BeginUpdate();
  {
    TUpdateGuard inner(collection);
    collection.AddText(QStringLiteral("C"));
    collection.Item(0)->SetIndex(2);
    collection.Item(0)->SetText(QStringLiteral("b"));
    collection.Delete(0);
    EXPECT_EQ(collection.UpdateCount(), 2);
  }
  EXPECT_TRUE(collection.updates.empty());
  collection.EndUpdate();
  collection.CheckConsistency();
  EXPECT_EQ(collection.UpdateCount(), 0);
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr}));
  EXPECT_EQ(collection.Texts(), QStringList({"C", "A"}));
}

TEST(TCollection, UpdateGuardRestoresTheCountWhenAnExceptionPasses) {
  TRecordingCollection collection;
  Filled(collection, {"A"});
  EXPECT_THROW(
      {
        TUpdateGuard guard(collection);
        collection.Item(0)->SetIndex(5);
      },
      EListError);
  EXPECT_EQ(collection.UpdateCount(), 0);
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr}));
}

TEST(TCollection, DeleteAnnouncesDeletingThenExtractingOfTheWholeItem) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B", "C"});
  const int before = liveItems;
  collection.Delete(1);
  collection.CheckConsistency();
  EXPECT_EQ(collection.notes, QStringList({"deleting:B", "extracting:B"}));
  EXPECT_EQ(collection.Texts(), QStringList({"A", "C"}));
  EXPECT_EQ(liveItems, before - 1);
  EXPECT_EQ(collection.Item(1)->Index(), 1);
}

TEST(TCollection, DeleteOutOfRangeRaises) {
  TRecordingCollection collection;
  Filled(collection, {"A"});
  EXPECT_THROW(collection.Delete(1), EListError);
  EXPECT_THROW(collection.Items(-1), EListError);
  EXPECT_TRUE(collection.notes.isEmpty());
}

TEST(TCollection, FreeingAnItemTakesItOutOfItsCollection) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  delete collection.Item(0);
  collection.CheckConsistency();
  EXPECT_EQ(collection.Texts(), QStringList({"B"}));
  EXPECT_EQ(collection.notes, QStringList({"extracting:<partial>"}));
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr}));
}

TEST(TCollection, ClearFreesEveryItemWithOneUpdate) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B", "C"});
  const int before = liveItems;
  collection.Clear();
  collection.CheckConsistency();
  EXPECT_EQ(collection.Count(), 0);
  EXPECT_EQ(liveItems, before - 3);
  EXPECT_EQ(collection.notes, QStringList({"extracting:C", "extracting:B", "extracting:A"}));
  EXPECT_EQ(collection.updates, (std::vector<TCollectionItem*>{nullptr}));
  collection.Clear();
  EXPECT_EQ(collection.updates.size(), 1u);
}

TEST(TCollection, DestructorFreesTheItems) {
  const int before = liveItems;
  {
    TCollection collection(TTestItem::StaticClass());
    collection.Add();
    collection.Add();
    EXPECT_EQ(liveItems, before + 2);
  }
  EXPECT_EQ(liveItems, before);
}

TEST(TCollection, InsertPlacesTheNewItem) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  static_cast<TTestItem*>(collection.Insert(1))->text = QStringLiteral("new");
  static_cast<TTestItem*>(collection.Insert(3))->text = QStringLiteral("end");
  collection.CheckConsistency();
  EXPECT_EQ(collection.Texts(), QStringList({"A", "new", "B", "end"}));
}

TEST(TCollection, InsertOutOfRangeAddsNothing) {
  TRecordingCollection collection;
  Filled(collection, {"A"});
  EXPECT_THROW(collection.Insert(2), EListError);
  EXPECT_THROW(collection.Insert(-1), EListError);
  EXPECT_EQ(collection.Count(), 1);
  EXPECT_TRUE(collection.notes.isEmpty());
}

TEST(TCollection, ExchangeSwapsTwoItems) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B", "C"});
  collection.Exchange(0, 2);
  collection.CheckConsistency();
  EXPECT_EQ(collection.Texts(), QStringList({"C", "B", "A"}));
  EXPECT_EQ(collection.Item(0)->Index(), 0);
  EXPECT_EQ(collection.updates.size(), 1u);
  EXPECT_THROW(collection.Exchange(0, 3), EListError);
}

TEST(TCollection, SetCollectionMovesAnItemBetweenCollections) {
  TRecordingCollection source, target;
  Filled(source, {"A", "B"});
  Filled(target, {"X"});
  TTestItem* moved = source.Item(0);
  moved->SetCollection(&target);
  source.CheckConsistency();
  target.CheckConsistency();
  EXPECT_EQ(source.Texts(), QStringList({"B"}));
  EXPECT_EQ(target.Texts(), QStringList({"X", "A"}));
  EXPECT_EQ(moved->Collection(), &target);
  EXPECT_EQ(target.FindItemID(moved->ID()), moved);
  EXPECT_EQ(source.notes, QStringList({"extracting:A"}));
  EXPECT_EQ(target.notes, QStringList({"added:A"}));
  moved->SetCollection(nullptr);
  EXPECT_EQ(moved->Index(), -1);
  delete moved;
  EXPECT_EQ(target.Count(), 1);
}

TEST(TCollection, AssignCopiesTheItemsInOneUpdate) {
  TRecordingCollection source, target;
  Filled(source, {"A", "B", "C"});
  Filled(target, {"old1", "old2"});
  target.Assign(&source);
  target.CheckConsistency();
  EXPECT_EQ(target.Texts(), QStringList({"A", "B", "C"}));
  EXPECT_EQ(source.Texts(), QStringList({"A", "B", "C"}));
  EXPECT_NE(target.Item(0), source.Item(0));
  EXPECT_EQ(target.updates, (std::vector<TCollectionItem*>{nullptr}));
}

TEST(TCollection, AssignToItselfKeepsTheItems) {
  TRecordingCollection collection;
  Filled(collection, {"A", "B"});
  collection.Assign(&collection);
  EXPECT_EQ(collection.Texts(), QStringList({"A", "B"}));
}

TEST(TCollection, AssignFromAnotherKindRaises) {
  TRecordingCollection collection;
  TComponent component(nullptr);
  EXPECT_THROW(collection.Assign(&component), EConvertError);
}

TEST(TCollection, NamePathJoinsOwnerPropertyAndIndex) {
  TComponent grid(nullptr);
  grid.SetName(QStringLiteral("Grid1"));
  TRecordingCollection columns(&grid);
  Filled(columns, {"A", "B", "C"});
  EXPECT_EQ(columns.Item(2)->GetNamePath(), QStringLiteral("TOwnedCollection[2]"));
  columns.SetPropName(QStringLiteral("Columns"));
  EXPECT_EQ(columns.GetNamePath(), QStringLiteral("Grid1.Columns"));
  EXPECT_EQ(columns.Item(2)->GetNamePath(), QStringLiteral("Grid1.Columns[2]"));
  EXPECT_EQ(columns.Owner(), &grid);
  EXPECT_EQ(columns.Item(0)->GetOwner(), &columns);
}

TEST(TCollection, NamePathWithoutANamedOwnerIsTheClassName) {
  TComponent unnamed(nullptr);
  TRecordingCollection columns(&unnamed);
  columns.SetPropName(QStringLiteral("Columns"));
  EXPECT_EQ(columns.GetNamePath(), QStringLiteral("TOwnedCollection"));
  TTestItem loose;
  EXPECT_EQ(loose.GetNamePath(), QStringLiteral("TTestItem"));
}

namespace {

// Items that need their collection's help to be made.
class TTaggedItem : public TCollectionItem {
public:
  explicit TTaggedItem(int tag) : tag(tag) {}
  int tag;
};

class TTaggedCollection : public TCollection {
public:
  TTaggedCollection() : TCollection(TCollectionItem::StaticClass()) {}

protected:
  TCollectionItem* CreateItem() const override { return new TTaggedItem(Count() + 100); }
};

}  // namespace

TEST(TCollection, ADescendantMakesItsOwnItems) {
  TTaggedCollection collection;
  collection.Add();
  auto* second = dynamic_cast<TTaggedItem*>(collection.Add());
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->tag, 101);
  collection.CheckConsistency();
}

namespace {

// An owner that publishes its collection, as a grid publishes its columns.
class TGridLike : public TComponent {
public:
  using TComponent::TComponent;

  static const TMetaClass& StaticClass() {
    static const TMetaClass meta = TMetaClass("TGridLike", &TComponent::StaticClass())
                                       .Published(ObjectProp("Other", &TGridLike::Other))
                                       .Published(ObjectProp("Columns", &TGridLike::Columns));
    return meta;
  }
  const TMetaClass& ClassType() const override { return StaticClass(); }

  TCollection* Other() const { return other_; }
  TCollection* Columns() const { return columns_; }

  TRecordingCollection* other_ = nullptr;
  TRecordingCollection* columns_ = nullptr;
};

}  // namespace

TEST(TCollection, PropNameIsFoundAmongTheOwnersPublishedProperties) {
  TGridLike grid(nullptr);
  grid.SetName(QStringLiteral("Grid1"));
  TRecordingCollection columns(&grid), other(&grid), stray(&grid);
  grid.columns_ = &columns;
  grid.other_ = &other;
  Filled(columns, {"A", "B", "C"});
  EXPECT_EQ(columns.PropName(), QStringLiteral("Columns"));
  EXPECT_EQ(columns.Item(2)->GetNamePath(), QStringLiteral("Grid1.Columns[2]"));
  EXPECT_EQ(other.GetNamePath(), QStringLiteral("Grid1.Other"));
  EXPECT_EQ(stray.PropName(), QString());
  EXPECT_EQ(stray.GetNamePath(), QStringLiteral("TOwnedCollection"));
  stray.SetPropName(QStringLiteral("Stray"));
  EXPECT_EQ(stray.GetNamePath(), QStringLiteral("Grid1.Stray"));
}
