#pragma once
// Runs a function when the scope ends, also when an exception passes: a
// try..finally, for state that no other guard restores.

#include <utility>

namespace quil {

template <typename F>
class TScopeExit {
public:
  explicit TScopeExit(F onExit) : onExit_(std::move(onExit)) {}
  TScopeExit(const TScopeExit&) = delete;
  TScopeExit& operator=(const TScopeExit&) = delete;
  ~TScopeExit() { onExit_(); }

private:
  F onExit_;
};

}  // namespace quil
