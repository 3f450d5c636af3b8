#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <QWidget>
#include <vector>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/Forms.h"
#include "framework/controls/ScrollBars.h"
#include "framework/controls/MessageQueue.h"
#include "framework/graphics/Canvas.h"

using namespace quil;

namespace {

// Records what reaches its dynamic handlers and paints itself in one color.
class Probe : public TCustomControl {
public:
  explicit Probe(TComponent* owner) : TCustomControl(owner) { SetTabStop(true); }

  struct Key { uint16_t key; TShiftState shift; };
  std::vector<Key> keysDown, keysUp;
  QString typed;
  std::vector<std::pair<TMouseButton, TShiftState>> mouseDowns;
  std::vector<TPoint> mouseDownPoints;
  int clicks = 0, enters = 0, exits = 0, wheelDowns = 0, wheelUps = 0, paints = 0;
  std::vector<bool> showings;        // Showing() at each CMShowingChanged
  std::vector<LPARAM> cancelModes;   // LParam of each CMCancelMode
  bool takeCharsOnEnter = false;
  TColor fill = clRed;

protected:
  void KeyDown(uint16_t& key, TShiftState shift) override {
    keysDown.push_back({key, shift});
    if (takeCharsOnEnter && key == VK_RETURN) {
      while (PeekMessage(nullptr, this, WM_CHAR, WM_CHAR, PM_REMOVE)) {}
      key = 0;
    }
    TCustomControl::KeyDown(key, shift);
  }
  void KeyUp(uint16_t& key, TShiftState shift) override { keysUp.push_back({key, shift}); }
  void KeyPress(QChar& key) override { typed += key; }
  void MouseDown(TMouseButton button, TShiftState shift, int x, int y) override {
    mouseDowns.emplace_back(button, shift);
    mouseDownPoints.push_back(Point(x, y));
  }
  void Click() override { ++clicks; }
  void CMShowingChanged(TMessage&) override { showings.push_back(Showing()); }
  void CMCancelMode(TMessage& message) override { cancelModes.push_back(message.LParam); }
  void DoEnter() override { ++enters; }
  void DoExit() override { ++exits; }
  bool DoMouseWheelDown(TShiftState, TPoint) override { ++wheelDowns; return true; }
  bool DoMouseWheelUp(TShiftState, TPoint) override { ++wheelUps; return true; }
  void Paint() override {
    ++paints;
    Canvas()->Brush()->SetColor(fill);
    Canvas()->FillRect(ClientRect());
  }
};

class WinControlTest : public ::testing::Test {
protected:
  void SetUp() override {
    form = new TForm(nullptr);
    form->SetBounds(0, 0, 300, 200);
    first = new Probe(form);
    first->SetParent(form);
    first->SetBounds(10, 10, 100, 80);
    second = new Probe(form);
    second->SetParent(form);
    second->SetBounds(150, 10, 100, 80);
    second->fill = clBlue;
    form->Show();
    QWidget* window = form->Handle();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }
  void TearDown() override { delete form; }

  TForm* form = nullptr;
  Probe* first = nullptr;
  Probe* second = nullptr;
};

}  // namespace

TEST_F(WinControlTest, KeyPressReachesKeyDownWithVirtualKeyAndShift) {
  QTest::keyClick(first->Handle(), Qt::Key_Down, Qt::ShiftModifier);
  // The modifier comes as a key of its own, down first and up last, as on the framework's keyboard.
  ASSERT_EQ(first->keysDown.size(), 2u);
  EXPECT_EQ(first->keysDown[0].key, VK_SHIFT);
  EXPECT_EQ(first->keysDown[1].key, VK_DOWN);
  EXPECT_EQ(first->keysDown[1].shift, TShiftState{ssShift});
  ASSERT_EQ(first->keysUp.size(), 2u);
  EXPECT_EQ(first->keysUp[0].key, VK_DOWN);
  EXPECT_EQ(first->keysUp[1].key, VK_SHIFT);
  QTest::keyClick(first->Handle(), Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(first->keysDown.back().key, VK_HOME);
  EXPECT_EQ(first->keysDown.back().shift, TShiftState{ssCtrl});
}

TEST_F(WinControlTest, TypedCharactersArriveAsKeyPressThroughTheQueue) {
  QTest::keyClicks(first->Handle(), "ab");
  Application->ProcessMessages();
  EXPECT_EQ(first->typed, QStringLiteral("ab"));
  ASSERT_EQ(first->keysDown.size(), 2u);
  EXPECT_EQ(first->keysDown[1].key, 'B');
}

TEST_F(WinControlTest, KeyHandlerCanTakeThePendingCharacterOut) {
  first->takeCharsOnEnter = true;
  QTest::keyClick(first->Handle(), Qt::Key_Return);
  QTest::keyClick(first->Handle(), Qt::Key_X);
  Application->ProcessMessages();
  EXPECT_EQ(first->typed, QStringLiteral("x"));
}

TEST_F(WinControlTest, ClickReachesMouseDownAtTheClientPointAndClicks) {
  QTest::mouseClick(first->Handle(), Qt::LeftButton, Qt::ControlModifier, QPoint(12, 34));
  ASSERT_EQ(first->mouseDowns.size(), 1u);
  EXPECT_EQ(first->mouseDowns[0].first, mbLeft);
  EXPECT_EQ(first->mouseDowns[0].second, (TShiftState{ssLeft, ssCtrl}));
  EXPECT_EQ(first->mouseDownPoints[0], Point(12, 34));
  EXPECT_EQ(first->clicks, 1);
  EXPECT_FALSE(first->MouseCapture());
  QTest::mouseClick(first->Handle(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
  EXPECT_EQ(first->mouseDowns.back().first, mbRight);
  EXPECT_EQ(first->clicks, 1);
}

TEST_F(WinControlTest, PaintDrawsThroughTheCanvas) {
  first->Repaint();
  QImage image = form->Handle()->grab().toImage();
  EXPECT_EQ(image.pixelColor(50, 50), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(200, 50), QColor(Qt::blue));
  EXPECT_GT(first->paints, 0);
}

TEST_F(WinControlTest, ValidatedRectangleIsNotPaintedAgain) {
  first->Repaint();
  int before = first->paints;
  first->InvalidateRect(Rect(0, 0, 10, 10));
  first->ValidateRect(Rect(0, 0, 100, 80));
  first->Update();
  EXPECT_EQ(first->paints, before);
  first->InvalidateRect(Rect(0, 0, 10, 10));
  first->Update();
  EXPECT_EQ(first->paints, before + 1);
}

TEST_F(WinControlTest, UpdateRectsAreWhatIsInvalidAndNotPaintedYet) {
  first->Repaint();
  EXPECT_TRUE(first->UpdateRects().empty());
  first->InvalidateRect(Rect(10, 20, 30, 40));
  first->InvalidateRect(Rect(50, 20, 60, 40));
  first->ValidateRect(Rect(0, 0, 15, 100));
  const std::vector<TRect> rects = first->UpdateRects();
  ASSERT_EQ(rects.size(), 2u);
  EXPECT_EQ(rects[0], Rect(15, 20, 30, 40));
  EXPECT_EQ(rects[1], Rect(50, 20, 60, 40));
  first->Update();
  EXPECT_TRUE(first->UpdateRects().empty());
}

TEST_F(WinControlTest, RecreatedWindowKeepsItsScrollBarSettings) {
  TScrollInfo info{sizeof(TScrollInfo), SIF_ALL, 0, 99, 10, 40, 0};
  SetScrollInfo(first, SB_VERT, info, true);
  const int clientWidth = first->ClientWidth();
  first->RecreateWnd();
  ASSERT_TRUE(first->HandleAllocated());
  TScrollInfo after{sizeof(TScrollInfo), SIF_ALL, 0, 0, 0, 0, 0};
  ASSERT_TRUE(GetScrollInfo(first, SB_VERT, after));
  EXPECT_EQ(after.nPos, 40);
  EXPECT_EQ(after.nMax, 99);
  EXPECT_EQ(first->ClientWidth(), clientWidth);
  first->Repaint();
  EXPECT_TRUE(first->UpdateRects().empty());
}

TEST_F(WinControlTest, FocusMovesSendExitAndEnter) {
  first->SetFocus();
  ASSERT_TRUE(first->Focused());
  EXPECT_EQ(first->enters, 1);
  second->SetFocus();
  EXPECT_TRUE(second->Focused());
  EXPECT_EQ(first->exits, 1);
  EXPECT_EQ(second->enters, 1);
}

TEST_F(WinControlTest, TabMovesTheFocusThroughTheForm) {
  first->SetFocus();
  QTest::keyClick(first->Handle(), Qt::Key_Tab);
  EXPECT_TRUE(second->Focused());
  EXPECT_TRUE(first->keysDown.empty());
}

TEST_F(WinControlTest, WheelTurnsIntoWheelDownAndUp) {
  QWidget* widget = first->Handle();
  QPoint local(20, 20);
  QWheelEvent down(local, widget->mapToGlobal(local), QPoint(), QPoint(0, -120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget, &down);
  QWheelEvent up(local, widget->mapToGlobal(local), QPoint(), QPoint(0, 240), Qt::NoButton,
                 Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget, &up);
  EXPECT_EQ(first->wheelDowns, 1);
  EXPECT_EQ(first->wheelUps, 2);
}

TEST_F(WinControlTest, FontAndColorFollowTheParentUntilSetOwn) {
  form->Font()->SetSize(14);
  EXPECT_EQ(first->Font()->Size(), 14);
  EXPECT_TRUE(first->ParentFont());
  first->Font()->SetSize(8);
  EXPECT_FALSE(first->ParentFont());
  form->Font()->SetSize(20);
  EXPECT_EQ(first->Font()->Size(), 8);
  form->SetColor(clYellow);
  EXPECT_EQ(first->Color(), clYellow);
}

TEST_F(WinControlTest, ShowingAndHidingSendShowingChanged) {
  first->showings.clear();
  first->SetVisible(false);
  first->SetVisible(true);
  form->Hide();
  EXPECT_EQ(first->showings, (std::vector<bool>{false, true, false}));
}

TEST_F(WinControlTest, TakingTheCaptureCancelsTheModeOfItsHolder) {
  first->SetMouseCapture(true);
  second->SetMouseCapture(true);
  EXPECT_EQ(first->cancelModes, std::vector<LPARAM>{LPARAM(static_cast<TControl*>(second))});
  EXPECT_TRUE(second->cancelModes.empty());
  second->SetMouseCapture(false);
  first->SetMouseCapture(true);
  EXPECT_TRUE(second->cancelModes.empty());
  first->SetMouseCapture(false);
}
