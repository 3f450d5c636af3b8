#include <gtest/gtest.h>

#include <vector>

#include "framework/rtl/Component.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

// Records every notification it hears, and whether it was destroyed.
class Listener : public TComponent {
public:
  using TComponent::TComponent;
  ~Listener() override { if (destroyed) *destroyed = true; }
  std::vector<std::pair<TComponent*, TOperation>> heard;
  TComponent* reference = nullptr;
  bool* destroyed = nullptr;

protected:
  void Notification(TComponent* component, TOperation operation) override {
    TComponent::Notification(component, operation);
    heard.emplace_back(component, operation);
    if (operation == opRemove && component == reference) reference = nullptr;
  }
};

}  // namespace

TEST(TComponent, OwnerFreesOwnedComponents) {
  bool childGone = false, grandchildGone = false;
  auto* owner = new TComponent(nullptr);
  auto* child = new Listener(owner);
  auto* grandchild = new Listener(child);
  child->destroyed = &childGone;
  grandchild->destroyed = &grandchildGone;
  EXPECT_EQ(owner->ComponentCount(), 1);
  EXPECT_EQ(child->Owner(), owner);
  EXPECT_EQ(grandchild->ComponentIndex(), 0);
  owner->CheckConsistency();
  delete owner;
  EXPECT_TRUE(childGone);
  EXPECT_TRUE(grandchildGone);
}

TEST(TComponent, FreeingAnOwnedComponentLeavesItsOwnersList) {
  TComponent owner(nullptr);
  auto* first = new TComponent(&owner);
  auto* second = new TComponent(&owner);
  delete first;
  ASSERT_EQ(owner.ComponentCount(), 1);
  EXPECT_EQ(owner.Components(0), second);
  EXPECT_EQ(second->ComponentIndex(), 0);
}

TEST(TComponent, FreeNotificationClearsAReferenceEitherWayRound) {
  Listener grid(nullptr);
  auto* source = new TComponent(nullptr);
  grid.reference = source;
  grid.FreeNotification(source);
  grid.CheckConsistency();
  delete source;
  EXPECT_EQ(grid.reference, nullptr);
  ASSERT_EQ(grid.heard.size(), 1u);
  EXPECT_EQ(grid.heard[0].second, opRemove);

  // The listener going first must leave no dangling link in the other.
  auto* listener = new Listener(nullptr);
  TComponent target(nullptr);
  listener->FreeNotification(&target);
  delete listener;
  target.CheckConsistency();
  EXPECT_FALSE(target.ComponentState().Contains(csFreeNotification));
}

TEST(TComponent, RemoveFreeNotificationStopsTheMessage) {
  Listener grid(nullptr);
  auto* source = new TComponent(nullptr);
  grid.FreeNotification(source);
  grid.RemoveFreeNotification(source);
  delete source;
  EXPECT_TRUE(grid.heard.empty());
}

TEST(TComponent, OwnedComponentsHearOfTheirSiblings) {
  TComponent form(nullptr);
  auto* grid = new Listener(&form);
  auto* source = new TComponent(&form);
  ASSERT_FALSE(grid->heard.empty());
  EXPECT_EQ(grid->heard.back(), std::make_pair(source, opInsert));
  grid->reference = source;
  delete source;
  EXPECT_EQ(grid->reference, nullptr);
  EXPECT_EQ(grid->heard.back(), std::make_pair(source, opRemove));
}

TEST(TComponent, NamesAreIdentifiersAndUniqueUnderOneOwner) {
  TComponent form(nullptr);
  auto* first = new TComponent(&form);
  auto* second = new TComponent(&form);
  first->SetName("Grid1");
  EXPECT_EQ(form.FindComponent("grid1"), first);
  EXPECT_THROW(second->SetName("GRID1"), EComponentError);
  EXPECT_THROW(second->SetName("1Grid"), EComponentError);
  EXPECT_THROW(second->SetName("Grid 2"), EComponentError);
  EXPECT_TRUE(second->Name().isEmpty());
  second->SetName("_Grid2");
  EXPECT_EQ(second->Name(), "_Grid2");
}

TEST(TComponent, DestroyingMarksOwnedComponentsFirst) {
  bool sawState = false;
  struct Recorder : TComponent {
    using TComponent::TComponent;
    bool* out = nullptr;
    ~Recorder() override { *out = ComponentState().Contains(csDestroying); }
  };
  auto* owner = new TComponent(nullptr);
  auto* owned = new Recorder(owner);
  owned->out = &sawState;
  delete owner;
  EXPECT_TRUE(sawState);
}

TEST(TComponent, LoadingBracketsTheState) {
  TComponent component(nullptr);
  component.Loading();
  EXPECT_TRUE(component.ComponentState().Contains(csLoading));
  component.Loaded();
  EXPECT_FALSE(component.ComponentState().Contains(csLoading));
  EXPECT_EQ(component.ClassName(), "TComponent");
  EXPECT_TRUE(component.InheritsFrom(TPersistent::StaticClass()));
}

namespace {
class TNotifier : public TComponent {
public:
  using TComponent::TComponent;
};

// Tells its listeners of its freeing before its own part unwinds.
class TEarlyNotifier : public TNotifier {
public:
  using TNotifier::TNotifier;
  ~TEarlyNotifier() override { NotifyFreeing(); }
};

// Notes whether the component it hears of is still a TNotifier.
class ClassWitness : public TComponent {
public:
  using TComponent::TComponent;
  std::vector<bool> sawNotifier;

protected:
  void Notification(TComponent* component, TOperation operation) override {
    TComponent::Notification(component, operation);
    if (operation == opRemove) sawNotifier.push_back(dynamic_cast<TNotifier*>(component) != nullptr);
  }
};
}  // namespace

// Without NotifyFreeing the listeners hear from ~TComponent, when only that part is left.
TEST(TComponent, NotifyFreeingLetsListenersSeeTheDescendant) {
  ClassWitness witness(nullptr);
  auto* early = new TEarlyNotifier(nullptr);
  witness.FreeNotification(early);
  delete early;
  auto* late = new TNotifier(nullptr);
  witness.FreeNotification(late);
  delete late;
  EXPECT_EQ(witness.sawNotifier, (std::vector<bool>{true, false}));
  witness.CheckConsistency();
}

TEST(TComponent, DesigningSpreadsToOwnedAndLaterInsertedComponents) {
  TComponent form(nullptr);
  auto* early = new TComponent(&form);
  auto* grandchild = new TComponent(early);
  form.SetDesigning(true);
  EXPECT_TRUE(grandchild->ComponentState().Contains(csDesigning));
  auto* late = new TComponent(&form);
  auto* lateChild = new TComponent(late);
  EXPECT_TRUE(late->ComponentState().Contains(csDesigning));
  EXPECT_TRUE(lateChild->ComponentState().Contains(csDesigning));

  auto* moved = new TComponent(nullptr);
  new TComponent(moved);
  form.InsertComponent(moved);
  EXPECT_TRUE(moved->Components(0)->ComponentState().Contains(csDesigning));

  form.SetDesigning(false);
  EXPECT_FALSE(lateChild->ComponentState().Contains(csDesigning));
  auto* afterwards = new TComponent(&form);
  EXPECT_FALSE(afterwards->ComponentState().Contains(csDesigning));
}

TEST(TComponent, InsertingUnderATakenNameLeavesTheComponentWithItsOwner) {
  TComponent form(nullptr), other(nullptr);
  (new TComponent(&form))->SetName("Grid1");
  auto* grid = new TComponent(&other);
  grid->SetName("Grid1");
  EXPECT_THROW(form.InsertComponent(grid), EComponentError);
  EXPECT_EQ(grid->Owner(), &other);
  other.CheckConsistency();
}

namespace {
// Holds a reference to a sibling and logs, when told of its freeing, whether the
// sibling was still whole (still a TNotifier). The log outlives the watcher.
class SiblingWatcher : public TComponent {
public:
  using TComponent::TComponent;
  TComponent* watched = nullptr;
  std::vector<bool>* log = nullptr;

protected:
  void Notification(TComponent* component, TOperation operation) override {
    TComponent::Notification(component, operation);
    if (operation != opRemove || component != watched) return;
    log->push_back(dynamic_cast<TNotifier*>(component) != nullptr);
    watched = nullptr;
  }
};
}  // namespace

// The owner frees its components last-inserted first; both orders are tried.
TEST(TComponent, FreeingTheOwnerTellsASiblingWhileTheOtherIsWhole) {
  for (bool watcherFirst : {true, false}) {
    SCOPED_TRACE(watcherFirst ? "watcher inserted first" : "watched inserted first");
    std::vector<bool> log;
    auto* form = new TComponent(nullptr);
    SiblingWatcher* watcher = watcherFirst ? new SiblingWatcher(form) : nullptr;
    auto* watched = new TNotifier(form);
    if (!watcher) watcher = new SiblingWatcher(form);
    watcher->watched = watched;
    watcher->log = &log;
    watcher->FreeNotification(watched);
    delete form;
    if (watcherFirst) EXPECT_EQ(log, std::vector<bool>{true}) << "heard of the watched one while it was whole";
    else EXPECT_TRUE(log.empty()) << "the watcher went first and unlinked";
  }
}
