#pragma once
// Events are delegates: an object and one of its member functions, or a plain callable.
// Two events are equal when they name the same object and method (or are copies of the
// same callable), so that code can ask "is the data set's handler ours?".

#include <cstring>
#include <functional>
#include <memory>
#include <type_traits>

namespace quil {

template <typename Signature>
class TEvent;

template <typename R, typename... Args>
class TEvent<R(Args...)> {
public:
  TEvent() = default;
  TEvent(std::nullptr_t) {}
  // No moves: a moved-from event would keep a thunk to a handler it no longer owns.
  TEvent(const TEvent&) = default;
  TEvent& operator=(const TEvent&) = default;

  template <typename C>
  TEvent(C* object, R (C::*method)(Args...)) : object_(object) {
    static_assert(sizeof(method) <= sizeof(method_), "member pointer too large");
    std::memcpy(method_, &method, sizeof(method));
    thunk_ = [](void* target, const unsigned char* stored, Args... args) -> R {
      R (C::*bound)(Args...);
      std::memcpy(&bound, stored, sizeof(bound));
      return (static_cast<C*>(target)->*bound)(std::forward<Args>(args)...);
    };
  }

  // A callable handler; copies of this event compare equal, other events do not.
  template <typename F,
            typename = std::enable_if_t<std::is_invocable_r_v<R, F&, Args...> &&
                                        !std::is_same_v<std::decay_t<F>, TEvent>>>
  TEvent(F callable)
      : callable_(std::make_shared<std::function<R(Args...)>>(std::move(callable))) {
    // Called through a thunk too, so that one pointer says whether there is a handler:
    // a data set asks that of several events on every record it moves to.
    const std::function<R(Args...)>* function = callable_.get();
    std::memcpy(method_, &function, sizeof(function));
    thunk_ = [](void*, const unsigned char* stored, Args... args) -> R {
      const std::function<R(Args...)>* bound;
      std::memcpy(&bound, stored, sizeof(bound));
      return (*bound)(std::forward<Args>(args)...);
    };
  }

  bool Assigned() const { return thunk_ != nullptr; }
  explicit operator bool() const { return Assigned(); }
  void Clear() { *this = TEvent(); }
  const void* Object() const { return object_; }

  R operator()(Args... args) const { return thunk_(object_, method_, std::forward<Args>(args)...); }

  friend bool operator==(const TEvent& a, const TEvent& b) {
    return a.object_ == b.object_ && a.thunk_ == b.thunk_ && a.callable_ == b.callable_ &&
           std::memcmp(a.method_, b.method_, sizeof(method_)) == 0;
  }

private:
  void* object_ = nullptr;
  R (*thunk_)(void*, const unsigned char*, Args...) = nullptr;
  alignas(void*) unsigned char method_[3 * sizeof(void*)] = {};
  // Owns a callable handler, which method_ points at.
  std::shared_ptr<std::function<R(Args...)>> callable_;
};

class TObject;
using TNotifyEvent = TEvent<void(TObject* sender)>;

}  // namespace quil
