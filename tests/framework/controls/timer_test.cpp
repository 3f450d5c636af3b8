#include <gtest/gtest.h>

#include "ControlForm.h"
#include "framework/controls/Timer.h"

using namespace quil;

TEST(Timer, FiresWhileEnabledAndStopsWhenDisabled) {
  TTimer timer(nullptr);
  quil::test::EventCounter ticks;
  timer.SetInterval(1);
  timer.SetOnTimer(ticks.Handler());
  ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.count >= 3; }, 5000));
  timer.SetEnabled(false);
  QApplication::processEvents();
  int stopped = ticks.count;
  QTest::qWait(20);
  EXPECT_EQ(ticks.count, stopped);
}

TEST(Timer, WithoutHandlerOrIntervalItDoesNotRun) {
  TTimer timer(nullptr);
  quil::test::EventCounter ticks;
  timer.SetInterval(0);
  timer.SetOnTimer(ticks.Handler());
  QTest::qWait(20);
  EXPECT_EQ(ticks.count, 0);
}
