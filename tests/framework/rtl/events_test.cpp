#include <gtest/gtest.h>

#include <memory>

#include "framework/rtl/Events.h"

using namespace quil;

namespace {
struct Handler {
  int calls = 0;
  bool Accept(int value) { ++calls; return value > 0; }
  bool Reject(int) { return false; }
  virtual ~Handler() = default;
  virtual bool Virtual(int) { return false; }
};
struct Derived : Handler {
  bool Virtual(int) override { return true; }
};
using TFilter = TEvent<bool(int)>;
}  // namespace

TEST(TEvent, UnassignedByDefault) {
  TFilter event;
  EXPECT_FALSE(event.Assigned());
  EXPECT_FALSE(event);
  EXPECT_EQ(event, TFilter(nullptr));
}

TEST(TEvent, CallsTheBoundMethodOnItsObject) {
  Handler handler;
  TFilter event(&handler, &Handler::Accept);
  EXPECT_TRUE(event(3));
  EXPECT_FALSE(event(-3));
  EXPECT_EQ(handler.calls, 2);
  EXPECT_EQ(event.Object(), &handler);
}

TEST(TEvent, EqualOnlyForTheSameObjectAndMethod) {
  Handler first, second;
  const TFilter accept(&first, &Handler::Accept);
  EXPECT_EQ(accept, TFilter(&first, &Handler::Accept));
  EXPECT_NE(accept, TFilter(&first, &Handler::Reject));
  EXPECT_NE(accept, TFilter(&second, &Handler::Accept));
  EXPECT_NE(accept, TFilter());
  TFilter copy = accept;
  copy.Clear();
  EXPECT_FALSE(copy.Assigned());
  EXPECT_TRUE(accept.Assigned());
}

TEST(TEvent, VirtualMethodsDispatchDynamically) {
  Derived derived;
  Handler* base = &derived;
  TFilter event(base, &Handler::Virtual);
  EXPECT_TRUE(event(0));
}

TEST(TEvent, CallablesCompareByIdentity) {
  int seen = 0;
  TFilter lambda([&seen](int value) { seen = value; return true; });
  TFilter copy = lambda;
  EXPECT_EQ(lambda, copy);
  EXPECT_NE(lambda, TFilter([](int) { return true; }));
  copy(7);
  EXPECT_EQ(seen, 7);
}

// A handler lives as long as any event that holds it, the one moved from included.
TEST(TEvent, ACallableOutlivesTheEventItCameFrom) {
  int seen = 0;
  auto original = std::make_unique<TFilter>([&seen](int value) { seen = value; return true; });
  TFilter moved = std::move(*original);
  EXPECT_TRUE(original->Assigned());
  EXPECT_EQ(moved, *original);
  original.reset();
  EXPECT_TRUE(moved(5));
  EXPECT_EQ(seen, 5);
}
