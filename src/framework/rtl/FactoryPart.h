#pragma once
// A part that its owner makes through a factory operation on first use.
//
// An owner whose descendants may substitute a part's class names a virtual factory for
// it. Called from the owner's constructor, that factory would always be the owner's own:
// the descendant's override is not in reach until its constructor runs. The holder
// therefore makes the part when it is first asked for, which is after construction
// unless the owner's constructor asks (it must not) or the descendant's does (then the
// descendant's factory runs, as it should).

#include <memory>

namespace quil {

template <typename Owner, typename Part>
class TFactoryPart {
public:
  using Factory = Part* (Owner::*)();

  TFactoryPart(Owner* owner, Factory factory) : owner_(owner), factory_(factory) {}
  TFactoryPart(const TFactoryPart&) = delete;
  TFactoryPart& operator=(const TFactoryPart&) = delete;

  Part* get() const {
    if (!part_) part_.reset((owner_->*factory_)());
    return part_.get();
  }
  Part* operator->() const { return get(); }
  Part& operator*() const { return *get(); }
  // Made already; asking this makes nothing.
  bool Made() const { return part_ != nullptr; }
  explicit operator bool() const { return Made(); }
  // Frees the part; the next use makes a new one.
  void reset() { part_.reset(); }

private:
  Owner* owner_;
  Factory factory_;
  mutable std::unique_ptr<Part> part_;
};

}  // namespace quil
