#include <gtest/gtest.h>

#include "ControlForm.h"
#include "framework/controls/ExtCtrls.h"
#include "framework/graphics/Brush.h"
#include "framework/graphics/Pen.h"

using namespace quil;
using quil::test::ControlForm;
using quil::test::Rgb;

TEST(Panel, AlignedChildrenShareTheAreaInsideTheBevels) {
  ControlForm host(400, 300);
  auto* panel = new TPanel(host.form);
  panel->SetParent(host.form);
  panel->SetAlign(alClient);
  panel->SetBevelWidth(2);
  panel->SetBorderWidth(3);
  auto* top = new TPanel(panel);
  top->SetParent(panel);
  top->SetHeight(30);
  top->SetAlign(alTop);
  auto* left = new TPanel(panel);
  left->SetParent(panel);
  left->SetWidth(50);
  left->SetAlign(alLeft);
  auto* rest = new TPanel(panel);
  rest->SetParent(panel);
  rest->SetAlign(alClient);
  ASSERT_TRUE(host.Show());
  EXPECT_EQ(panel->BoundsRect(), host.form->ClientRect());
  TRect inner = panel->InnerRect();
  EXPECT_EQ(inner.Left, 2 + 3);
  EXPECT_EQ(top->BoundsRect(), Rect(inner.Left, inner.Top, inner.Right, inner.Top + 30));
  EXPECT_EQ(left->BoundsRect(), Rect(inner.Left, inner.Top + 30, inner.Left + 50, inner.Bottom));
  EXPECT_EQ(rest->BoundsRect(), Rect(inner.Left + 50, inner.Top + 30, inner.Right, inner.Bottom));
  // Hiding a child gives its room to the others.
  top->Hide();
  EXPECT_EQ(rest->Top(), inner.Top);
  // The form resized: the panel follows.
  host.form->SetBounds(0, 0, 500, 350);
  QApplication::processEvents();
  EXPECT_EQ(panel->Width(), host.form->ClientWidth());
}

TEST(Panel, PaintsItsFaceBevelAndCaption) {
  ControlForm host;
  auto* panel = new TPanel(host.form);
  panel->SetParent(host.form);
  panel->SetBounds(10, 10, 200, 60);
  panel->SetColor(clYellow);
  ASSERT_TRUE(host.Show());
  QImage image = host.Grab();
  EXPECT_EQ(image.pixelColor(100, 20), QColor(Qt::yellow));
  EXPECT_EQ(image.pixelColor(10, 30), Rgb(clBtnHighlight));   // the raised bevel's light edge
  EXPECT_EQ(image.pixelColor(209, 30), Rgb(clBtnShadow));     // and its shadow
  int plain = host.Ink(Rect(60, 20, 160, 60), clYellow);
  panel->SetCaption(QStringLiteral("Caption"));
  panel->Repaint();
  EXPECT_GT(host.Ink(Rect(60, 20, 160, 60), clYellow), plain + 20);
}

struct ShapeCase {
  TShapeType shape;
  bool cornerInked;   // the top-left pixel of the shape's box gets the pen
  bool squared;       // drawn in a square in the middle of a wide box
};

class ShapeTest : public ::testing::TestWithParam<ShapeCase> {};

TEST_P(ShapeTest, DrawsItsFigureWithPenAndBrush) {
  ControlForm host;
  auto* shape = new TShape(host.form);
  shape->SetParent(host.form);
  shape->SetBounds(20, 20, 120, 60);
  shape->SetShape(GetParam().shape);
  shape->Brush()->SetColor(clBlue);
  shape->Pen()->SetColor(clRed);
  ASSERT_TRUE(host.Show());
  QImage image = host.Grab();
  EXPECT_EQ(image.pixelColor(80, 50), QColor(Qt::blue));
  EXPECT_EQ(image.pixelColor(20, 20) == QColor(Qt::red), GetParam().cornerInked);
  // A square figure leaves the sides of a wide box empty.
  EXPECT_EQ(image.pixelColor(30, 50) == QColor(Qt::white), GetParam().squared);
  shape->Brush()->SetColor(clLime);
  QApplication::processEvents();
  EXPECT_EQ(host.Grab().pixelColor(80, 50), QColor(Qt::green));
}

INSTANTIATE_TEST_SUITE_P(Shapes, ShapeTest, ::testing::Values(
    ShapeCase{stRectangle, true, false}, ShapeCase{stSquare, false, true},
    ShapeCase{stRoundRect, false, false}, ShapeCase{stEllipse, false, false},
    ShapeCase{stCircle, false, true}));
