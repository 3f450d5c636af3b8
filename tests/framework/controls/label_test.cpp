#include <gtest/gtest.h>

#include "ControlForm.h"
#include "framework/controls/Labels.h"
#include "framework/graphics/Font.h"

using namespace quil;
using quil::test::ControlForm;

TEST(Label, SizesItselfToItsTextAndPaintsIt) {
  ControlForm host;
  auto* label = new TLabel(host.form);
  label->SetParent(host.form);
  label->SetBounds(10, 10, 5, 5);
  label->SetCaption(QStringLiteral("Hello there"));
  EXPECT_GT(label->Width(), 40);
  EXPECT_GT(label->Height(), 8);
  int oneLine = label->Height();
  label->Font()->SetSize(label->Font()->Size() * 2);
  EXPECT_GT(label->Height(), oneLine);
  ASSERT_TRUE(host.Show());
  EXPECT_GT(host.Ink(label->BoundsRect()), 30);
  // Nothing beyond the label.
  EXPECT_EQ(host.Ink(Rect(label->BoundsRect().Right + 2, 0, 300, 200)), 0);
}

TEST(Label, RightAlignedAutoSizeGrowsToTheLeft) {
  ControlForm host;
  auto* label = new TLabel(host.form);
  label->SetParent(host.form);
  label->SetAlignment(taRightJustify);
  label->SetBounds(100, 10, 50, 17);
  int right = label->BoundsRect().Right;
  label->SetCaption(QStringLiteral("a much longer caption"));
  EXPECT_EQ(label->BoundsRect().Right, right);
  EXPECT_LT(label->Left(), 100);
}

TEST(Label, WordWrapBreaksIntoLinesWithinTheWidth) {
  ControlForm host;
  auto* label = new TLabel(host.form);
  label->SetParent(host.form);
  label->SetCaption(QStringLiteral("one"));
  int oneLine = label->Height();
  label->SetWordWrap(true);
  label->SetBounds(10, 10, 60, 17);
  label->SetCaption(QStringLiteral("several words that cannot fit in one short line"));
  EXPECT_EQ(label->Width(), 60);
  EXPECT_GE(label->Height(), 3 * oneLine);
}

TEST(Label, ForgetsAFocusControlThatIsFreed) {
  ControlForm host;
  auto* label = new TLabel(host.form);
  auto* target = new TWinControl(host.form);
  label->SetFocusControl(target);
  EXPECT_EQ(label->FocusControl(), target);
  delete target;
  EXPECT_EQ(label->FocusControl(), nullptr);
}

struct Placement {
  TLabelPosition position;
  bool beside;  // left or right: vertically centred on the control
};

class BoundLabelTest : public ::testing::TestWithParam<Placement> {};

TEST_P(BoundLabelTest, KeepsItsPlaceBesideTheBoundControl) {
  ControlForm host;
  auto* edit = new TWinControl(host.form);
  edit->SetParent(host.form);
  edit->SetBounds(100, 80, 120, 24);
  auto* label = new TBoundLabel(edit);
  label->SetCaption(QStringLiteral("Name"));
  label->SetLabelSpacing(4);
  label->SetLabelPosition(GetParam().position);
  EXPECT_EQ(label->Parent(), host.form);
  EXPECT_EQ(label->Owner(), edit);
  TRect box = label->BoundsRect(), anchor = edit->BoundsRect();
  switch (GetParam().position) {
    case lpAbove: EXPECT_EQ(box.Bottom + 4, anchor.Top); EXPECT_EQ(box.Left, anchor.Left); break;
    case lpBelow: EXPECT_EQ(box.Top, anchor.Bottom + 4); EXPECT_EQ(box.Left, anchor.Left); break;
    case lpLeft: EXPECT_EQ(box.Right + 4, anchor.Left); break;
    case lpRight: EXPECT_EQ(box.Left, anchor.Right + 4); break;
  }
  if (GetParam().beside) {
    EXPECT_EQ(box.Top + box.Height() / 2, anchor.Top + anchor.Height() / 2);
  }
  edit->SetBounds(20, 30, 120, 24);
  label->UpdatePosition();
  EXPECT_EQ(label->BoundsRect().Width(), box.Width());
  EXPECT_EQ(label->Left() - edit->Left(), box.Left - anchor.Left);
  EXPECT_EQ(label->Top() - edit->Top(), box.Top - anchor.Top);
}

INSTANTIATE_TEST_SUITE_P(Positions, BoundLabelTest, ::testing::Values(
    Placement{lpAbove, false}, Placement{lpBelow, false}, Placement{lpLeft, true}, Placement{lpRight, true}));
