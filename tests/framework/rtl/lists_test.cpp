#include <gtest/gtest.h>

#include <QStringList>
#include <vector>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Lists.h"
#include "framework/rtl/RtlTestSupport.h"

using namespace quil;
using rtltest::TTracked;

namespace {

int a = 1, b = 2, c = 3, d = 4;

// Records Notify as "added:1", "deleted:2", "extracted:3".
class TRecordingList : public TList {
public:
  QStringList notes;

protected:
  void Notify(void* item, TListNotification action) override {
    static const char* names[] = {"added", "extracted", "deleted"};
    notes << QStringLiteral("%1:%2").arg(QLatin1String(names[action])).arg(*static_cast<int*>(item));
  }
};

std::vector<void*> Items(const TList& list) {
  std::vector<void*> items;
  for (int index = 0; index < list.Count(); ++index) items.push_back(list.Items(index));
  return items;
}

}  // namespace

TEST(TList, AddInsertAndDeleteNotifyNonNilItems) {
  TRecordingList list;
  EXPECT_EQ(list.Add(&a), 0);
  EXPECT_EQ(list.Add(nullptr), 1);
  list.Insert(0, &b);
  list.Insert(3, &c);
  EXPECT_EQ(Items(list), (std::vector<void*>{&b, &a, nullptr, &c}));
  list.Delete(2);
  list.Delete(0);
  EXPECT_EQ(list.notes, QStringList({"added:1", "added:2", "added:3", "deleted:2"}));
}

TEST(TList, IndexErrorsNameTheIndex) {
  TList list;
  list.Add(&a);
  try {
    list.Items(1);
    FAIL() << "expected EListError";
  } catch (const EListError& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("List index out of bounds (1)"));
  }
  EXPECT_THROW(list.Items(-1), EListError);
  EXPECT_THROW(list.Insert(2, &b), EListError);
  EXPECT_THROW(list.Delete(1), EListError);
  EXPECT_THROW(list.Move(0, 1), EListError);
  EXPECT_THROW(list.Exchange(1, 0), EListError);
  EXPECT_THROW(list.SetItems(1, &b), EListError);
  list.Clear();
  EXPECT_THROW(list.First(), EListError);
  EXPECT_THROW(list.Last(), EListError);
}

TEST(TList, RemoveAndExtractTakeTheFirstOccurrence) {
  TRecordingList list;
  for (int* item : {&a, &b, &a, &c}) list.Add(item);
  list.notes.clear();
  EXPECT_EQ(list.Remove(&a), 0);
  EXPECT_EQ(list.Extract(&a), &a);
  EXPECT_EQ(list.Remove(&d), -1);
  EXPECT_EQ(list.Extract(&d), nullptr);
  EXPECT_EQ(Items(list), (std::vector<void*>{&b, &c}));
  EXPECT_EQ(list.notes, QStringList({"deleted:1", "extracted:1"}));
}

TEST(TList, SetItemsReplacesWithNotifications) {
  TRecordingList list;
  list.Add(&a);
  list.notes.clear();
  list.SetItems(0, &a);
  EXPECT_TRUE(list.notes.isEmpty());
  list.SetItems(0, &b);
  EXPECT_EQ(list.notes, QStringList({"deleted:1", "added:2"}));
}

TEST(TList, MoveExchangeFirstAndLast) {
  TList list;
  for (int* item : {&a, &b, &c, &d}) list.Add(item);
  list.Move(0, 2);
  EXPECT_EQ(Items(list), (std::vector<void*>{&b, &c, &a, &d}));
  list.Move(3, 0);
  EXPECT_EQ(Items(list), (std::vector<void*>{&d, &b, &c, &a}));
  list.Exchange(0, 3);
  EXPECT_EQ(list.First(), &a);
  EXPECT_EQ(list.Last(), &d);
  EXPECT_EQ(list.IndexOf(&c), 2);
  EXPECT_EQ(list.IndexOf(nullptr), -1);
}

TEST(TList, SortIsStable) {
  struct Entry {
    int key;
    int order;
  };
  Entry entries[] = {{2, 0}, {1, 1}, {2, 2}, {1, 3}, {0, 4}};
  TList list;
  for (Entry& entry : entries) list.Add(&entry);
  list.Sort([](void* item1, void* item2) {
    return static_cast<Entry*>(item1)->key - static_cast<Entry*>(item2)->key;
  });
  std::vector<int> orders;
  for (int index = 0; index < list.Count(); ++index) orders.push_back(static_cast<Entry*>(list.Items(index))->order);
  EXPECT_EQ(orders, (std::vector<int>{4, 1, 3, 0, 2}));
}

TEST(TList, CountGrowsWithNilsAndShrinksByDeleting) {
  TRecordingList list;
  list.Add(&a);
  list.SetCount(3);
  EXPECT_EQ(Items(list), (std::vector<void*>{&a, nullptr, nullptr}));
  list.Add(&b);
  list.Pack();
  EXPECT_EQ(Items(list), (std::vector<void*>{&a, &b}));
  list.notes.clear();
  list.SetCount(0);
  EXPECT_EQ(list.notes, QStringList({"deleted:2", "deleted:1"}));
  try {
    list.SetCount(-1);
    FAIL() << "expected EListError";
  } catch (const EListError& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("List count out of bounds (-1)"));
  }
}

TEST(TList, CapacityCannotDropBelowCount) {
  TList list;
  list.SetCapacity(10);
  EXPECT_GE(list.Capacity(), 10);
  list.Add(&a);
  list.Add(&b);
  EXPECT_THROW(list.SetCapacity(1), EListError);
  list.SetCapacity(2);
  EXPECT_EQ(Items(list), (std::vector<void*>{&a, &b}));
}

TEST(TObjectList, OwningListFreesWhatItDeletesButNotWhatItExtracts) {
  int live = 0;
  auto* extracted = new TTracked(live);
  {
    TObjectList list;
    auto* removed = new TTracked(live);
    list.Add(new TTracked(live));
    list.Add(removed);
    list.Add(extracted);
    list.Add(new TTracked(live));
    list.Delete(0);
    EXPECT_EQ(live, 3);
    EXPECT_EQ(list.Remove(removed), 0);
    EXPECT_EQ(list.Extract(extracted), extracted);
    EXPECT_EQ(live, 2);
    list.SetItems(0, new TTracked(live));
    EXPECT_EQ(live, 2);
  }
  EXPECT_EQ(live, 1);
  delete extracted;
}

TEST(TObjectList, ListThatDoesNotOwnLeavesObjectsAlone) {
  int live = 0;
  TTracked kept(live);
  {
    TObjectList list(false);
    list.Add(&kept);
    list.Add(&kept);
    list.Delete(0);
    EXPECT_EQ(list.IndexOf(&kept), 0);
  }
  EXPECT_EQ(live, 1);
}
