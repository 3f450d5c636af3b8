#include <gtest/gtest.h>

#include "ControlForm.h"
#include "GridProbe.h"
#include "framework/controls/Application.h"
#include "framework/controls/Hints.h"

using namespace quil;
using quil::test::ControlForm;

namespace {

// A window class of its own, to see that the control's choice is used.
class WideHintWindow : public THintWindow {
public:
  using THintWindow::THintWindow;
  TRect CalcHintRect(int maxWidth, const QString& hint, void* data) override {
    TRect rect = THintWindow::CalcHintRect(maxWidth, hint, data);
    rect.Right += 100;
    return rect;
  }
};

// Answers the hint question per half: the left half has a hint of its own in a wide
// window, the right half none.
class HalfHinted : public TCustomControl {
public:
  using TCustomControl::TCustomControl;
  int asked = 0, pauses = 0;

protected:
  void CMHintShow(TMessage& message) override {
    ++asked;
    auto* info = reinterpret_cast<THintInfo*>(message.LParam);
    int half = Width() / 2;
    if (info->CursorPos.X >= half) {
      message.Result = 1;
      return;
    }
    info->HintStr = QStringLiteral("left half");
    info->CursorRect = Rect(0, 0, half, Height());
    info->HintWindowClass = HintWindowClassOf<WideHintWindow>();
  }
  void CMHintShowPause(TMessage& message) override {
    ++pauses;
    *reinterpret_cast<int*>(message.LParam) = 1;
  }
};

class HintTest : public ::testing::Test {
protected:
  void SetUp() override {
    Application->SetHintPause(1);
    control = new HalfHinted(host.form);
    control->SetParent(host.form);
    control->SetBounds(20, 20, 200, 100);
    control->SetShowHint(true);
    ASSERT_TRUE(host.Show());
  }
  void TearDown() override { Application->HideHint(); }

  void MoveTo(TPoint client) {
    quil::test::SendMouse(control, QEvent::MouseMove, client, Qt::NoButton, Qt::NoButton);
  }
  bool WaitForHint() {
    return QTest::qWaitFor([] { return Application->HintWindow() != nullptr; }, 5000);
  }

  ControlForm host;
  HalfHinted* control = nullptr;
};

}  // namespace

TEST_F(HintTest, ShowsTheControlsAnswerAfterThePause) {
  MoveTo(Point(30, 30));
  ASSERT_TRUE(WaitForHint());
  THintWindow* window = Application->HintWindow();
  EXPECT_EQ(window->Caption(), QStringLiteral("left half"));
  EXPECT_NE(dynamic_cast<WideHintWindow*>(window), nullptr);
  EXPECT_GT(control->pauses, 0);
  // Below the mouse, on the screen.
  TPoint mouse = control->ClientToScreen(Point(30, 30));
  EXPECT_GT(window->Top(), mouse.Y);
  EXPECT_GT(window->Width(), 100);
  QImage image = window->Handle()->grab().toImage();
  EXPECT_EQ(image.pixelColor(window->Width() - 5, window->Height() / 2), quil::test::Rgb(clInfoBk));
}

TEST_F(HintTest, LeavingTheCursorRectangleAsksAgain) {
  MoveTo(Point(30, 30));
  ASSERT_TRUE(WaitForHint());
  MoveTo(Point(60, 40));  // still in the left half: nothing changes
  EXPECT_NE(Application->HintWindow(), nullptr);
  int asked = control->asked;
  MoveTo(Point(150, 40));
  EXPECT_EQ(Application->HintWindow(), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return control->asked > asked; }, 5000));
  // The right half refuses: no hint shows.
  EXPECT_EQ(Application->HintWindow(), nullptr);
}

TEST_F(HintTest, KeyOrButtonHidesTheHint) {
  control->SetTabStop(true);
  control->SetFocus();
  MoveTo(Point(30, 30));
  ASSERT_TRUE(WaitForHint());
  QTest::keyClick(control->Handle(), Qt::Key_A);
  EXPECT_EQ(Application->HintWindow(), nullptr);
  MoveTo(Point(31, 30));
  ASSERT_TRUE(WaitForHint());
  quil::test::SendMouse(control, QEvent::MouseButtonPress, Point(31, 30), Qt::LeftButton);
  EXPECT_EQ(Application->HintWindow(), nullptr);
  quil::test::SendMouse(control, QEvent::MouseButtonRelease, Point(31, 30), Qt::NoButton);
}

TEST_F(HintTest, NoHintWithoutShowHint) {
  auto* quiet = new HalfHinted(host.form);
  quiet->SetParent(host.form);
  quiet->SetBounds(20, 130, 200, 50);
  quil::test::SendMouse(quiet, QEvent::MouseMove, Point(30, 30), Qt::NoButton, Qt::NoButton);
  // The hinted control, visited after, shows its hint; the quiet one was never asked.
  MoveTo(Point(30, 30));
  ASSERT_TRUE(WaitForHint());
  EXPECT_EQ(quiet->asked, 0);
  EXPECT_EQ(quiet->pauses, 0);
}

TEST(CustomHint, ShowsTitleAndDescriptionUnderTheControl) {
  ControlForm host;
  auto* target = new TCustomControl(host.form);
  target->SetParent(host.form);
  target->SetBounds(10, 10, 80, 30);
  ASSERT_TRUE(host.Show());
  TCustomHint hint(nullptr);
  hint.SetTitle(QStringLiteral("Title"));
  hint.SetDescription(QStringLiteral("What it says"));
  hint.SetHideAfter(1);
  hint.ShowHint(target);
  EXPECT_TRUE(hint.Showing());
  EXPECT_EQ(hint.Text(), QStringLiteral("Title\nWhat it says"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !hint.Showing(); }, 5000));
}
