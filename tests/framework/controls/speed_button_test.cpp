#include <gtest/gtest.h>

#include "ControlForm.h"
#include "GridProbe.h"
#include "framework/controls/Buttons.h"
#include "framework/graphics/Bitmap.h"
#include "framework/graphics/Canvas.h"

using namespace quil;
using quil::test::ControlForm;

namespace {

class SpeedButtonTest : public ::testing::Test {
protected:
  TSpeedButton* AddButton(int left, int group = 0) {
    auto* button = new TSpeedButton(host.form);
    button->SetParent(host.form);
    button->SetBounds(left, 10, 40, 30);
    button->SetGroupIndex(group);
    button->SetOnClick(counter.Handler());
    return button;
  }
  void ClickOn(TSpeedButton* button) {
    TPoint center = Point(button->Left() + 20, button->Top() + 15);
    QTest::mouseClick(host.form->Handle(), Qt::LeftButton, Qt::NoModifier, quil::test::WidgetPoint(host.form, center));
  }

  ControlForm host;
  quil::test::EventCounter counter;
};

}  // namespace

TEST_F(SpeedButtonTest, ClickInsideClicksAndLetGoOutsideDoesNot) {
  TSpeedButton* button = AddButton(10);
  ASSERT_TRUE(host.Show());
  ClickOn(button);
  EXPECT_EQ(counter.count, 1);
  EXPECT_FALSE(button->Down());
  // Pressed, dragged off and let go: no click, and the button is up again.
  quil::test::Drag(host.form, Point(30, 25), Point(150, 120));
  EXPECT_EQ(counter.count, 1);
  EXPECT_EQ(button->State(), bsUp);
}

TEST_F(SpeedButtonTest, GroupKeepsOneButtonDown) {
  TSpeedButton* first = AddButton(10, 1);
  TSpeedButton* second = AddButton(60, 1);
  TSpeedButton* other = AddButton(110, 2);
  ASSERT_TRUE(host.Show());
  ClickOn(first);
  EXPECT_TRUE(first->Down());
  ClickOn(second);
  EXPECT_TRUE(second->Down());
  EXPECT_FALSE(first->Down());
  // Without AllowAllUp the last one stays down.
  ClickOn(second);
  EXPECT_TRUE(second->Down());
  ClickOn(other);
  EXPECT_TRUE(other->Down());
  EXPECT_TRUE(second->Down());
  ClickOn(other);
  EXPECT_TRUE(other->Down());
  other->SetAllowAllUp(true);
  ClickOn(other);
  EXPECT_FALSE(other->Down());
  EXPECT_EQ(counter.count, 6);
}

TEST_F(SpeedButtonTest, FlatButtonShowsItsFrameOnlyUnderTheMouse) {
  TSpeedButton* button = AddButton(10);
  button->SetFlat(true);
  ASSERT_TRUE(host.Show());
  QImage before = host.Grab().copy(10, 10, 40, 30);
  QMouseEvent move(QEvent::MouseMove, QPointF(quil::test::WidgetPoint(host.form, Point(30, 25))),
                   QPointF(host.form->Handle()->mapToGlobal(quil::test::WidgetPoint(host.form, Point(30, 25)))),
                   Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(host.form->Handle(), &move);
  EXPECT_TRUE(button->MouseInControl());
  QApplication::processEvents();
  EXPECT_NE(host.Grab().copy(10, 10, 40, 30), before);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(host.form->Handle(), &leave);
  EXPECT_FALSE(button->MouseInControl());
}

TEST_F(SpeedButtonTest, PaintsItsGlyphWithoutTheTransparentColor) {
  TBitmap glyph;
  glyph.SetSize(16, 16);
  glyph.Canvas()->Brush()->SetColor(clFuchsia);
  glyph.Canvas()->FillRect(Rect(0, 0, 16, 16));
  glyph.Canvas()->Brush()->SetColor(clRed);
  glyph.Canvas()->FillRect(Rect(4, 4, 12, 12));
  TSpeedButton* button = AddButton(10);
  button->SetGlyph(&glyph);
  ASSERT_TRUE(host.Show());
  QImage image = host.Grab();
  int red = 0, fuchsia = 0;
  for (int y = 10; y < 40; ++y)
    for (int x = 10; x < 50; ++x) {
      red += image.pixelColor(x, y) == QColor(Qt::red);
      fuchsia += image.pixelColor(x, y) == QColor(Qt::magenta);
    }
  EXPECT_EQ(red, 64);
  EXPECT_EQ(fuchsia, 0);
}
