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
#include "framework/graphics/Types.h"

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
  std::vector<std::pair<UINT, WPARAM>> focusMessages;  // WM_SETFOCUS/WM_KILLFOCUS, other window
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
  void WMSetFocus(TMessage& message) override { focusMessages.emplace_back(WM_SETFOCUS, message.WParam); }
  void WMKillFocus(TMessage& message) override { focusMessages.emplace_back(WM_KILLFOCUS, message.WParam); }
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

TEST_F(WinControlTest, FocusMovingOnCancelsTheModeOfTheControlItLeaves) {
  first->SetFocus();
  Application->ProcessMessages();
  first->cancelModes.clear();
  second->SetFocus();
  Application->ProcessMessages();
  EXPECT_EQ(first->cancelModes, std::vector<LPARAM>{LPARAM(static_cast<TControl*>(second))});
  EXPECT_TRUE(second->cancelModes.empty());
  EXPECT_EQ(first->focusMessages.back(), std::make_pair(UINT(WM_KILLFOCUS), WPARAM(static_cast<TWinControl*>(second))));
  EXPECT_EQ(second->focusMessages.back(), std::make_pair(UINT(WM_SETFOCUS), WPARAM(static_cast<TWinControl*>(first))));
}

// Another top-level window taking the focus deactivates this one: the focused control
// ends its mode with no sender, and neither side names a window of the other.
TEST_F(WinControlTest, AnotherWindowTakingTheFocusCancelsWithoutSenderAndNamesNoWindow) {
  first->SetFocus();
  Application->ProcessMessages();
  first->cancelModes.clear();
  first->focusMessages.clear();
  TForm other(nullptr);
  other.SetBounds(320, 0, 200, 120);
  auto* elsewhere = new Probe(&other);
  elsewhere->SetParent(&other);
  elsewhere->SetBounds(10, 10, 100, 80);
  other.Show();
  other.Handle()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(other.Handle()));
  elsewhere->SetFocus();
  Application->ProcessMessages();
  ASSERT_TRUE(elsewhere->Focused());
  EXPECT_EQ(first->cancelModes, std::vector<LPARAM>{0});
  ASSERT_FALSE(first->focusMessages.empty());
  EXPECT_EQ(first->focusMessages.back(), std::make_pair(UINT(WM_KILLFOCUS), WPARAM(0)));
  ASSERT_FALSE(elsewhere->focusMessages.empty());
  EXPECT_EQ(elsewhere->focusMessages.back(), std::make_pair(UINT(WM_SETFOCUS), WPARAM(0)));
}

// Counts WM_NCCALCSIZE, which works the client area out.
class FrameProbe : public Probe {
public:
  using Probe::Probe;
  int clientCalcs = 0;

protected:
  void WMNCCalcSize(TMessage& message) override {
    ++clientCalcs;
    Probe::WMNCCalcSize(message);
  }
};

TEST_F(WinControlTest, SetWindowPosMovesSizesOrdersAndShowsAsFlagsSay) {
  ASSERT_TRUE(SetWindowPos(first, HWND_TOP, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER));
  EXPECT_EQ(first->BoundsRect(), Bounds(20, 30, 100, 80));
  EXPECT_EQ(first->Handle()->geometry().topLeft(), QPoint(20, 30));
  SetWindowPos(first, HWND_TOP, 0, 0, 60, 40, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(first->BoundsRect(), Bounds(20, 30, 60, 40));
  // Order among siblings: the top one is the last child of the parent window.
  QWidget* parent = form->Handle();
  SetWindowPos(first, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_EQ(parent->children().last(), first->Handle());
  SetWindowPos(first, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_LT(parent->children().indexOf(first->Handle()), parent->children().indexOf(second->Handle()));
  // Hiding and showing act on the window and leave Visible alone.
  SetWindowPos(first, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_HIDEWINDOW);
  EXPECT_FALSE(first->Showing());
  EXPECT_TRUE(first->Visible());
  SetWindowPos(first, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
  EXPECT_TRUE(first->Showing());
  TForm hidden(nullptr);
  EXPECT_FALSE(SetWindowPos(&hidden, HWND_TOP, 0, 0, 10, 10, 0)) << "no window yet";
}

TEST_F(WinControlTest, SetWindowPosWorksTheFrameOutAgainAndKeepsATopMostWindowUp) {
  auto* framed = new FrameProbe(form);
  framed->SetParent(form);
  framed->SetBounds(10, 100, 50, 50);
  const int calcs = framed->clientCalcs;
  SetWindowPos(framed, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
  EXPECT_EQ(framed->clientCalcs, calcs + 1);
  TForm popup(nullptr);
  popup.SetBounds(50, 50, 80, 60);
  popup.Show();
  SetWindowPos(&popup, HWND_TOPMOST, 70, 80, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  EXPECT_TRUE(popup.Handle()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(popup.Showing());
  EXPECT_EQ(popup.BoundsRect(), Bounds(70, 80, 80, 60));
  SetWindowPos(&popup, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  EXPECT_FALSE(popup.Handle()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
  EXPECT_TRUE(popup.Showing());
}

TEST_F(WinControlTest, TabFollowsTheTabOrderAndTakesAnOrderSetBeforeTheParent) {
  auto* third = new Probe(nullptr);
  third->SetTabOrder(0);
  third->SetParent(form);
  third->SetBounds(10, 100, 100, 60);
  EXPECT_EQ(third->TabOrder(), 0);
  EXPECT_EQ(first->TabOrder(), 1);
  EXPECT_EQ(second->TabOrder(), 2);
  third->SetFocus();
  QTest::keyClick(third->Handle(), Qt::Key_Tab);
  EXPECT_TRUE(first->Focused());
  second->SetTabOrder(1);
  EXPECT_EQ(first->TabOrder(), 2);
  QTest::keyClick(first->Handle(), Qt::Key_Tab);
  EXPECT_TRUE(third->Focused()) << "the last goes round to the first";
  QTest::keyClick(third->Handle(), Qt::Key_Tab);
  EXPECT_TRUE(second->Focused());
  second->SetTabOrder(99);
  EXPECT_EQ(second->TabOrder(), 2) << "past the end is the end";
  Probe orphan(nullptr);
  EXPECT_EQ(orphan.TabOrder(), -1);
}

struct AnchorCase {
  const char* name;
  TAnchors anchors;
  TRect expected;  // bounds of a control at (10, 10, 100 x 80) after the form grows by 100 x 60
};

class WinControlAnchors : public WinControlTest, public ::testing::WithParamInterface<AnchorCase> {};

TEST_P(WinControlAnchors, KeepTheDistancesTheyName) {
  first->SetAnchors(GetParam().anchors);
  const TRect client = form->ClientRect();
  form->SetBounds(form->Left(), form->Top(), form->Width() + 100, form->Height() + 60);
  Application->ProcessMessages();
  ASSERT_EQ(form->ClientWidth(), client.Width() + 100);
  EXPECT_EQ(first->BoundsRect(), GetParam().expected);
  // Back to the first size, back to the first place.
  form->SetBounds(form->Left(), form->Top(), form->Width() - 100, form->Height() - 60);
  Application->ProcessMessages();
  EXPECT_EQ(first->BoundsRect(), Bounds(10, 10, 100, 80));
}

INSTANTIATE_TEST_SUITE_P(Anchors, WinControlAnchors, ::testing::Values(
    AnchorCase{"LeftTop", {akLeft, akTop}, Bounds(10, 10, 100, 80)},
    AnchorCase{"All", {akLeft, akTop, akRight, akBottom}, Bounds(10, 10, 200, 140)},
    AnchorCase{"RightBottom", {akRight, akBottom}, Bounds(110, 70, 100, 80)},
    AnchorCase{"LeftRight", {akLeft, akRight}, Bounds(10, 40, 200, 80)},
    AnchorCase{"None", {}, Bounds(60, 40, 100, 80)}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(WinControlTest, ConstraintsLimitTheSizeAndApplyAtOnce) {
  TSizeConstraints* limits = first->Constraints();
  limits->SetMinWidth(120);
  EXPECT_EQ(first->Width(), 120) << "a new limit applies to the size there is";
  limits->SetMaxHeight(50);
  EXPECT_EQ(first->Height(), 50);
  first->SetBounds(0, 0, 20, 400);
  EXPECT_EQ(first->BoundsRect(), Bounds(0, 0, 120, 50));
  EXPECT_EQ(first->Handle()->size(), QSize(120, 50));
  limits->SetMinWidth(-5);
  first->SetWidth(20);
  EXPECT_EQ(first->Width(), 20) << "below 0 leaves the limit open";
  // A window the user sizes keeps its limits in Qt as well.
  form->Constraints()->SetMinWidth(250);
  form->Constraints()->SetMaxHeight(300);
  EXPECT_EQ(form->Handle()->minimumWidth(), 250);
  EXPECT_EQ(form->Handle()->maximumHeight(), 300);
}

TEST_F(WinControlTest, ImeModeTurnsTheInputMethodOffOrOn) {
  first->SetImeMode(imDisable);
  EXPECT_FALSE(first->Handle()->testAttribute(Qt::WA_InputMethodEnabled));
  first->SetImeMode(imHanguel);
  EXPECT_TRUE(first->Handle()->testAttribute(Qt::WA_InputMethodEnabled));
  first->SetImeMode(imClose);
  first->RecreateWnd();
  EXPECT_FALSE(first->Handle()->testAttribute(Qt::WA_InputMethodEnabled)) << "a new window keeps it";
}
