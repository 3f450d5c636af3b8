#pragma once
// TComponent: the owned, named, notified object. An owner frees what it owns; a
// component told of another's freeing (FreeNotification) hears opRemove first.

#include <QString>
#include <functional>
#include <vector>

#include "framework/rtl/Persistent.h"
#include "framework/rtl/Sets.h"

namespace quil {

enum TComponentStateMember {
  csLoading, csReading, csWriting, csDestroying, csDesigning, csAncestor,
  csUpdating, csFixups, csFreeNotification, csInline, csDesignInstance
};
using TComponentState = TSet<TComponentStateMember>;

enum TOperation { opInsert, opRemove };

class TComponent : public TPersistent {
public:
  explicit TComponent(TComponent* owner);
  ~TComponent() override;
  TComponent(const TComponent&) = delete;
  TComponent& operator=(const TComponent&) = delete;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TComponent* Owner() const { return owner_; }
  int ComponentCount() const { return int(components_.size()); }
  TComponent* Components(int index) const { return components_.at(size_t(index)); }
  // Index of this component in its owner's list, -1 without an owner.
  int ComponentIndex() const;
  TComponent* FindComponent(const QString& name) const;  // case-insensitive, owned only

  const QString& Name() const { return name_; }
  // Raises EComponentError when the name is no identifier or the owner has it already.
  virtual void SetName(const QString& name);
  intptr_t Tag() const { return tag_; }
  void SetTag(intptr_t tag) { tag_ = tag; }

  TComponentState ComponentState() const { return state_; }
  // Spreads to every owned component; a component inserted later takes csDesigning too.
  void SetDesigning(bool designing);

  // Raises EComponentError, leaving the component where it was, when its name is taken.
  void InsertComponent(TComponent* component);
  void RemoveComponent(TComponent* component);

  // Asks to hear opRemove in Notification when component is freed; both directions
  // are kept, so either side may go first.
  void FreeNotification(TComponent* component);
  void RemoveFreeNotification(TComponent* component);
  // Points reference at value, moving this component's free notification from the
  // component it pointed at; false when it pointed at value already.
  template <typename T>
  bool ReplaceReference(T*& reference, T* value) {
    if (reference == value) return false;
    if (reference) reference->RemoveFreeNotification(this);
    reference = value;
    if (value) value->FreeNotification(this);
    return true;
  }

  // Sets csDestroying here and in every owned component before anything is freed.
  virtual void Destroying();

  // Loading brackets: a reader calls Loading before and Loaded after the properties.
  void Loading() { state_.Include(csLoading); }
  virtual void Loaded() { state_.Exclude(csLoading); }

  QString GetNamePath() const override { return name_; }

  // Component streams: the writer writes the components GetChildren lists after this
  // one's properties (none here); the reader makes each
  // child with GetChildOwner (null: the root) as owner and hands it GetChildParent.
  using TGetChildProc = std::function<void(TComponent* child)>;
  virtual void GetChildren(const TGetChildProc& proc, TComponent* root) {}
  virtual TComponent* GetChildOwner() { return nullptr; }
  virtual TComponent* GetChildParent() { return this; }
  virtual void SetParentComponent(TComponent* parent) {}

  // Test builds check that owner and notification links are mutual.
  void CheckConsistency() const;

protected:
  virtual void Notification(TComponent* component, TOperation operation);
  // Sends opRemove to the listeners now. An owner calls it before it frees an owned
  // component. A descendant freed on its own that wants the listeners to see its class
  // (a dynamic_cast in Notification) calls it before it unwinds; ~TComponent otherwise.
  void NotifyFreeing();
  void SetComponentState(TComponentState state) { state_ = state; }
  void IncludeState(TComponentStateMember member) { state_.Include(member); }
  void ExcludeState(TComponentStateMember member) { state_.Exclude(member); }

private:
  friend class TReader;  // sets csReading and csLoading while it reads
  friend class TWriter;  // sets csWriting while it writes

  void Insert(TComponent* component);
  void Remove(TComponent* component);
  void AddFreeLink(TComponent* component);
  void DropFreeLink(TComponent* component);

  TComponent* owner_ = nullptr;
  std::vector<TComponent*> components_;
  std::vector<TComponent*> freeNotifies_;
  QString name_;
  intptr_t tag_ = 0;
  TComponentState state_;
};

bool IsValidIdent(const QString& ident);

}  // namespace quil
