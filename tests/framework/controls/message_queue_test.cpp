#include <gtest/gtest.h>

#include <vector>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/MessageQueue.h"

using namespace quil;

namespace {

constexpr UINT CM_DEFERLAYOUT = WM_USER + 100;  // 1124, the grid's deferred layout

// Records the messages of the user range that reach it.
class Recorder : public TControl {
public:
  using TControl::TControl;
  std::vector<TMessage> received;

protected:
  void Dispatch(TMessage& message) override {
    if (message.Msg >= WM_USER && message.Msg < CM_BASE) {
      received.push_back(message);
      message.Result = LRESULT(message.WParam) * 2;
      return;
    }
    TControl::Dispatch(message);
  }
};

}  // namespace

TEST(MessageQueue, PostedMessageWaitsUntilTheEventLoopDeliversIt) {
  Recorder control(nullptr);
  ASSERT_EQ(CM_DEFERLAYOUT, 1124u);
  PostMessage(&control, CM_DEFERLAYOUT, 7, 9);
  EXPECT_TRUE(control.received.empty());
  TMessage peeked;
  EXPECT_TRUE(PeekMessage(&peeked, &control, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE));
  EXPECT_EQ(peeked.WParam, 7u);
  EXPECT_EQ(peeked.LParam, 9);
  Application->ProcessMessages();
  ASSERT_EQ(control.received.size(), 1u);
  EXPECT_EQ(control.received[0].Msg, CM_DEFERLAYOUT);
  EXPECT_FALSE(PeekMessage(nullptr, &control, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE));
}

TEST(MessageQueue, PeekWithRemoveTakesTheMessageOut) {
  Recorder control(nullptr);
  PostMessage(&control, CM_DEFERLAYOUT, 1, 0);
  PostMessage(&control, WM_USER + 1, 2, 0);
  EXPECT_TRUE(PeekMessage(nullptr, &control, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_REMOVE));
  EXPECT_FALSE(PeekMessage(nullptr, &control, CM_DEFERLAYOUT, CM_DEFERLAYOUT, PM_NOREMOVE));
  Application->ProcessMessages();
  ASSERT_EQ(control.received.size(), 1u);
  EXPECT_EQ(control.received[0].Msg, WM_USER + 1);
}

TEST(MessageQueue, PeekLooksOnlyAtTheGivenControlAndRange) {
  Recorder first(nullptr), second(nullptr);
  PostMessage(&first, WM_USER + 5, 0, 0);
  EXPECT_FALSE(PeekMessage(nullptr, &second, 0, 0, PM_NOREMOVE));
  EXPECT_FALSE(PeekMessage(nullptr, &first, WM_USER + 6, WM_USER + 9, PM_NOREMOVE));
  EXPECT_TRUE(PeekMessage(nullptr, nullptr, WM_USER, WM_USER + 5, PM_NOREMOVE));
  EXPECT_TRUE(PeekMessage(nullptr, &first, 0, 0, PM_REMOVE));
}

TEST(MessageQueue, MessagesArriveInTheOrderPosted) {
  Recorder control(nullptr);
  for (WPARAM index = 0; index < 5; ++index) PostMessage(&control, WM_USER + 2, index, 0);
  Application->ProcessMessages();
  ASSERT_EQ(control.received.size(), 5u);
  for (size_t index = 0; index < 5; ++index) EXPECT_EQ(control.received[index].WParam, index);
}

TEST(MessageQueue, AFreedControlGetsNothing) {
  auto* control = new Recorder(nullptr);
  PostMessage(control, WM_USER + 3, 0, 0);
  delete control;
  EXPECT_FALSE(PeekMessage(nullptr, nullptr, WM_USER + 3, WM_USER + 3, PM_NOREMOVE));
  Application->ProcessMessages();
}

TEST(MessageQueue, SendMessageDeliversAtOnceAndAnswersTheResult) {
  Recorder control(nullptr);
  EXPECT_EQ(SendMessage(&control, WM_USER + 4, 21, 0), 42);
  EXPECT_EQ(control.Perform(WM_USER + 4, 5, 0), 10);
  EXPECT_EQ(control.received.size(), 2u);
}
