#pragma once
// The protected block around BeginUpdate/EndUpdate: the count is restored when an
// exception passes, so a failed operation never leaves an object locked.

#include <exception>

namespace quil {

template <typename T>
class TUpdateGuard {
public:
  explicit TUpdateGuard(T& target) : target_(target), exceptions_(std::uncaught_exceptions()) {
    target_.BeginUpdate();
  }
  TUpdateGuard(const TUpdateGuard&) = delete;
  TUpdateGuard& operator=(const TUpdateGuard&) = delete;

  // The update at the end may raise; while another exception unwinds, that one wins.
  ~TUpdateGuard() noexcept(false) {
    if (std::uncaught_exceptions() == exceptions_) {
      target_.EndUpdate();
      return;
    }
    try {
      target_.EndUpdate();
    } catch (...) {
    }
  }

private:
  T& target_;
  int exceptions_;
};

}  // namespace quil
