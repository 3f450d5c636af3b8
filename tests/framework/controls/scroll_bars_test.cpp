// A window's own scroll bars through the flat scroll bar calls: what they keep, when a
// bar shows and takes room from the client area, how it looks, and the messages that the
// user's clicks post. QUIL_GRAPHICS_SNAPSHOTS=<folder> keeps the grabbed windows.
#include <gtest/gtest.h>

#include <QImage>
#include <QScrollBar>
#include <QTest>

#include "framework/controls/Application.h"
#include "framework/controls/Controls.h"
#include "framework/controls/Forms.h"
#include "framework/controls/MessageQueue.h"
#include "framework/controls/ScrollBars.h"
#include "framework/graphics/Canvas.h"

using namespace quil;

namespace {

class Painted : public TCustomControl {
public:
  using TCustomControl::TCustomControl;

protected:
  void Paint() override {
    Canvas()->Brush()->SetColor(clRed);
    Canvas()->FillRect(ClientRect());
  }
};

class FlatScrollBarTest : public ::testing::Test {
protected:
  void SetUp() override {
    form = new TForm(nullptr);
    form->SetBounds(0, 0, 300, 240);
    control = new Painted(form);
    control->SetParent(form);
    control->SetBounds(10, 10, 200, 150);
    form->Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form->Handle()));
  }
  void TearDown() override { delete form; }

  void SetVertical(int minPos, int maxPos, int page, int pos) {
    TScrollInfo info;
    info.fMask = SIF_ALL;
    info.nMin = minPos;
    info.nMax = maxPos;
    info.nPage = UINT(page);
    info.nPos = pos;
    FlatSB_SetScrollInfo(control, SB_VERT, info, true);
  }
  QScrollBar* Bar(Qt::Orientation orientation) const {
    for (QScrollBar* bar : control->Handle()->findChildren<QScrollBar*>())
      if (bar->orientation() == orientation) return bar;
    return nullptr;
  }
  QImage Grab(const QString& name) {
    control->Repaint();
    const QImage image = control->Handle()->grab().toImage();
    const QString folder = qEnvironmentVariable("QUIL_GRAPHICS_SNAPSHOTS");
    if (!folder.isEmpty()) image.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
    return image;
  }

  TForm* form = nullptr;
  Painted* control = nullptr;
};

TEST_F(FlatScrollBarTest, KeepsWhatIsSetAndClampsThePosition) {
  EXPECT_TRUE(InitializeFlatSB(control));
  SetVertical(0, 99, 10, 30);
  TScrollInfo info;
  info.fMask = SIF_ALL;
  ASSERT_TRUE(FlatSB_GetScrollInfo(control, SB_VERT, info));
  EXPECT_EQ(info.nMin, 0);
  EXPECT_EQ(info.nMax, 99);
  EXPECT_EQ(info.nPage, 10u);
  EXPECT_EQ(info.nPos, 30);
  // The last page starts at 90.
  EXPECT_EQ(FlatSB_SetScrollPos(control, SB_VERT, 200, true), 30);
  info.fMask = SIF_POS;
  FlatSB_GetScrollInfo(control, SB_VERT, info);
  EXPECT_EQ(info.nPos, 90);
  ASSERT_TRUE(FlatSB_SetScrollRange(control, SB_VERT, 0, 49, true));
  int minPos = -1, maxPos = -1;
  ASSERT_TRUE(FlatSB_GetScrollRange(control, SB_VERT, minPos, maxPos));
  EXPECT_EQ(minPos, 0);
  EXPECT_EQ(maxPos, 49);
  FlatSB_GetScrollInfo(control, SB_VERT, info);
  EXPECT_EQ(info.nPos, 40) << "a shorter range pulls the position in";
  int width = 0;
  ASSERT_TRUE(FlatSB_GetScrollProp(control, WSB_PROP_CXVSCROLL, width));
  EXPECT_EQ(width, GetSystemMetrics(SM_CXVSCROLL));
  EXPECT_TRUE(FlatSB_SetScrollProp(control, WSB_PROP_VSTYLE, 0, true));
  EXPECT_FALSE(FlatSB_GetScrollInfo(control, 7, info)) << "no such bar";
}

TEST_F(FlatScrollBarTest, BarShowsWhileTheRangeExceedsAPageAndTakesItsRoom) {
  const int fullWidth = control->ClientWidth();
  SetVertical(0, 99, 10, 0);
  QScrollBar* bar = Bar(Qt::Vertical);
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->isVisible());
  EXPECT_EQ(control->ClientWidth(), fullWidth - GetSystemMetrics(SM_CXVSCROLL));
  const QImage shown = Grab(QStringLiteral("flat_sb_shown"));
  // The client is red up to the bar; the bar's strip is not.
  EXPECT_EQ(shown.pixelColor(control->ClientWidth() - 2, 75), QColor(Qt::red));
  EXPECT_NE(shown.pixelColor(control->ClientWidth() + 4, 75), QColor(Qt::red));
  // The thumb moves with the position: the strip looks different at the other end.
  const QImage top = shown.copy(control->ClientWidth(), 0, GetSystemMetrics(SM_CXVSCROLL), 150);
  FlatSB_SetScrollPos(control, SB_VERT, 90, true);
  const QImage bottom =
      Grab(QStringLiteral("flat_sb_bottom")).copy(control->ClientWidth(), 0, GetSystemMetrics(SM_CXVSCROLL), 150);
  EXPECT_NE(top, bottom);
  // A page that holds the whole range hides the bar and gives the room back.
  SetVertical(0, 9, 10, 0);
  EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(control->ClientWidth(), fullWidth);
  EXPECT_EQ(Grab(QStringLiteral("flat_sb_hidden")).pixelColor(fullWidth - 2, 75), QColor(Qt::red));
  // ShowScrollBar forces it until the next range change.
  ASSERT_TRUE(ShowScrollBar(control, SB_VERT, true));
  EXPECT_TRUE(bar->isVisible());
  ASSERT_TRUE(ShowScrollBar(control, SB_BOTH, false));
  EXPECT_FALSE(bar->isVisible());
}

TEST_F(FlatScrollBarTest, UserClicksPostScrollMessagesAndLeaveThePositionToTheControl) {
  SetVertical(0, 99, 10, 0);
  QScrollBar* bar = Bar(Qt::Vertical);
  ASSERT_NE(bar, nullptr);
  DiscardPostedMessages(control);
  // A click in the trough below the thumb pages down.
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar->width() / 2, bar->height() - bar->width() - 4));
  TMessage message{};
  ASSERT_TRUE(PeekMessage(&message, control, WM_VSCROLL, WM_VSCROLL, PM_REMOVE));
  EXPECT_EQ(message.WParam & 0xFFFF, WPARAM(SB_PAGEDOWN));
  ASSERT_TRUE(PeekMessage(&message, control, WM_VSCROLL, WM_VSCROLL, PM_REMOVE));
  EXPECT_EQ(message.WParam & 0xFFFF, WPARAM(SB_ENDSCROLL));
  TScrollInfo info;
  info.fMask = SIF_POS;
  FlatSB_GetScrollInfo(control, SB_VERT, info);
  EXPECT_EQ(info.nPos, 0);
  EXPECT_EQ(bar->value(), 0);
}

TEST(FlatScrollBar, CallsOnAControlWithoutWindowAnswerFalse) {
  TForm form(nullptr);
  auto* control = new Painted(&form);
  EXPECT_FALSE(InitializeFlatSB(control));
  EXPECT_FALSE(ShowScrollBar(control, SB_VERT, true));
  EXPECT_FALSE(InitializeFlatSB(nullptr));
}

}  // namespace
