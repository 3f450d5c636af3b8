#include <gtest/gtest.h>

#include <QListWidget>

#include "ControlForm.h"
#include "framework/controls/CheckLst.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Strings.h"

using namespace quil;
using quil::test::ControlForm;

namespace {

class CheckListBoxTest : public ::testing::Test {
protected:
  void SetUp() override {
    list = new TCheckListBox(host.form);
    list->SetParent(host.form);
    list->SetBounds(10, 10, 200, 150);
    for (const char* name : {"red", "green", "blue"}) list->Items()->Add(QString::fromLatin1(name));
    list->SetOnClickCheck(counter.Handler());
  }
  // Clicks the check box of a row, as the user does.
  void ClickCheckOf(int row) {
    auto* widget = static_cast<QListWidget*>(list->Handle());
    QRect item = widget->visualItemRect(widget->item(row));
    QPoint box(item.left() + item.height() / 2 + 2, item.center().y());
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, Qt::NoModifier, box);
  }

  ControlForm host;
  TCheckListBox* list = nullptr;
  quil::test::EventCounter counter;
};

}  // namespace

TEST_F(CheckListBoxTest, StatesSetBeforeTheWindowShowInIt) {
  list->SetChecked(1, true);
  list->SetState(2, cbGrayed);
  ASSERT_TRUE(host.Show());
  auto* widget = static_cast<QListWidget*>(list->Handle());
  ASSERT_EQ(widget->count(), 3);
  EXPECT_EQ(widget->item(0)->checkState(), Qt::Unchecked);
  EXPECT_EQ(widget->item(1)->checkState(), Qt::Checked);
  EXPECT_EQ(widget->item(2)->checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(counter.count, 0);
}

TEST_F(CheckListBoxTest, UserClickChecksAndTells) {
  ASSERT_TRUE(host.Show());
  ClickCheckOf(1);
  EXPECT_TRUE(list->Checked(1));
  EXPECT_EQ(list->ItemIndex(), 1);
  EXPECT_EQ(counter.count, 1);
  ClickCheckOf(1);
  EXPECT_FALSE(list->Checked(1));
  list->SetAllowGrayed(true);
  ClickCheckOf(0);
  ClickCheckOf(0);
  EXPECT_EQ(list->State(0), cbGrayed);
  ClickCheckOf(0);
  EXPECT_EQ(list->State(0), cbUnchecked);
}

TEST_F(CheckListBoxTest, DisabledItemCannotBeChecked) {
  list->SetItemEnabled(2, false);
  ASSERT_TRUE(host.Show());
  ClickCheckOf(2);
  EXPECT_FALSE(list->Checked(2));
  EXPECT_EQ(counter.count, 0);
}

TEST_F(CheckListBoxTest, ListChangesKeepTheStatesInStep) {
  list->CheckAll(cbChecked);
  list->Items()->Add(QStringLiteral("black"));
  EXPECT_EQ(list->Count(), 4);
  EXPECT_FALSE(list->Checked(3));
  EXPECT_TRUE(list->Checked(2));
  EXPECT_THROW(list->Checked(4), EListError);
  EXPECT_THROW(list->SetChecked(-1, true), EListError);
  list->Items()->Clear();
  EXPECT_EQ(list->Count(), 0);
}
