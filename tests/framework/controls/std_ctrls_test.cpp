#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QTimer>

#include "ControlForm.h"
#include "GridProbe.h"
#include "framework/controls/StdCtrls.h"
#include "framework/rtl/Strings.h"

using namespace quil;
using quil::test::ControlForm;

namespace {

template <typename T>
T* Place(ControlForm& host, const TRect& bounds) {
  auto* control = new T(host.form);
  control->SetParent(host.form);
  control->SetBoundsRect(bounds);
  return control;
}

void ClickCenter(TWinControl* control) {
  QTest::mouseClick(control->Handle(), Qt::LeftButton, Qt::NoModifier, control->Handle()->rect().center());
}

// On the indicator of a check box or radio button, which is what Qt takes clicks on.
void ClickIndicator(TWinControl* control) {
  QTest::mouseClick(control->Handle(), Qt::LeftButton, Qt::NoModifier, QPoint(7, control->Height() / 2));
}

}  // namespace

TEST(Button, MouseClickClicksOnceAndSetsTheFormsModalResult) {
  ControlForm host;
  auto* button = Place<TButton>(host, Rect(10, 10, 90, 40));
  button->SetCaption(QStringLiteral("OK"));
  button->SetModalResult(mrOk);
  quil::test::EventCounter clicks;
  button->SetOnClick(clicks.Handler());
  ASSERT_TRUE(host.Show());
  EXPECT_EQ(static_cast<QAbstractButton*>(button->Handle())->text(), QStringLiteral("OK"));
  ClickCenter(button);
  EXPECT_EQ(clicks.count, 1);
  EXPECT_EQ(host.form->ModalResult(), mrOk);
}

TEST(Button, EnterAndEscapeClickTheDefaultAndCancelButtons) {
  ControlForm host;
  auto* ok = Place<TButton>(host, Rect(10, 10, 90, 40));
  ok->SetDefault(true);
  ok->SetModalResult(mrOk);
  auto* cancel = Place<TButton>(host, Rect(100, 10, 180, 40));
  cancel->SetCancel(true);
  cancel->SetModalResult(mrCancel);
  auto* other = Place<quil::test::GridProbe>(host, Rect(10, 50, 290, 190));
  ASSERT_TRUE(host.Show());
  other->SetFocus();
  // The modal loop ends with the result of the button that the key clicked.
  QTimer::singleShot(0, [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
  EXPECT_EQ(host.form->ShowModal(), mrCancel);
  other->SetFocus();
  QTimer::singleShot(0, [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); });
  EXPECT_EQ(host.form->ShowModal(), mrOk);
}

TEST(CheckBox, UserAndProgramChangesClickAndStayInStep) {
  ControlForm host;
  auto* box = Place<TCheckBox>(host, Rect(10, 10, 150, 30));
  box->SetCaption(QStringLiteral("Check me"));
  quil::test::EventCounter clicks;
  box->SetOnClick(clicks.Handler());
  box->SetChecked(true);  // before the window: the window starts checked
  ASSERT_TRUE(host.Show());
  EXPECT_TRUE(static_cast<QAbstractButton*>(box->Handle())->isChecked());
  ClickIndicator(box);
  EXPECT_FALSE(box->Checked());
  EXPECT_EQ(clicks.count, 2);
  box->SetAllowGrayed(true);
  ClickIndicator(box);
  ClickIndicator(box);
  EXPECT_EQ(box->State(), cbGrayed);
  EXPECT_EQ(static_cast<QCheckBox*>(box->Handle())->checkState(), Qt::PartiallyChecked);
  box->SetState(cbUnchecked);
  EXPECT_FALSE(static_cast<QAbstractButton*>(box->Handle())->isChecked());
  EXPECT_EQ(clicks.count, 5);
}

TEST(RadioButton, OneOfAParentIsChecked) {
  ControlForm host;
  auto* first = Place<TRadioButton>(host, Rect(10, 10, 150, 30));
  auto* second = Place<TRadioButton>(host, Rect(10, 40, 150, 60));
  auto* elsewhere = Place<TRadioButton>(host, Rect(0, 0, 100, 20));
  auto* panel = Place<TWinControl>(host, Rect(160, 10, 290, 100));
  elsewhere->SetParent(panel);
  elsewhere->SetChecked(true);
  first->SetChecked(true);
  ASSERT_TRUE(host.Show());
  ClickIndicator(second);
  EXPECT_TRUE(second->Checked());
  EXPECT_FALSE(first->Checked());
  EXPECT_FALSE(static_cast<QAbstractButton*>(first->Handle())->isChecked());
  EXPECT_TRUE(elsewhere->Checked());
  // Clicking the checked one leaves it checked.
  ClickIndicator(second);
  EXPECT_TRUE(second->Checked());
}

TEST(ComboBox, ChoosingAnItemSetsIndexAndTextAndTellsOnce) {
  ControlForm host;
  auto* combo = Place<TComboBox>(host, Rect(10, 10, 200, 35));
  combo->Items()->Add(QStringLiteral("apple"));
  combo->Items()->Add(QStringLiteral("pear"));
  combo->Items()->Add(QStringLiteral("plum"));
  combo->SetStyle(csDropDownList);
  quil::test::EventCounter changes, selects;
  combo->SetOnChange(changes.Handler());
  combo->SetOnSelect(selects.Handler());
  ASSERT_TRUE(host.Show());
  auto* widget = static_cast<QComboBox*>(combo->Handle());
  EXPECT_EQ(widget->count(), 3);
  combo->SetFocus();
  QTest::keyClick(widget, Qt::Key_Down);
  EXPECT_EQ(combo->ItemIndex(), 0);
  EXPECT_EQ(combo->Text(), QStringLiteral("apple"));
  EXPECT_EQ(changes.count, 1);
  EXPECT_EQ(selects.count, 1);
  combo->Items()->Delete(0);
  EXPECT_EQ(widget->count(), 2);
  EXPECT_EQ(combo->ItemIndex(), 0);
  combo->SetText(QStringLiteral("nothing of the list"));
  EXPECT_EQ(combo->ItemIndex(), -1);
}

TEST(ComboBox, EditedTextIsTheText) {
  ControlForm host;
  auto* combo = Place<TComboBox>(host, Rect(10, 10, 200, 35));
  combo->Items()->Add(QStringLiteral("pear"));
  combo->SetAutoComplete(false);
  quil::test::EventCounter changes;
  combo->SetOnChange(changes.Handler());
  ASSERT_TRUE(host.Show());
  combo->SetFocus();
  QTest::keyClicks(QApplication::focusWidget(), "pe");
  EXPECT_EQ(combo->Text(), QStringLiteral("pe"));
  EXPECT_EQ(combo->ItemIndex(), -1);
  QTest::keyClicks(QApplication::focusWidget(), "ar");
  EXPECT_EQ(combo->ItemIndex(), 0);
  EXPECT_EQ(changes.count, 4);
}

TEST(ComboBox, AutoCompleteTakesTheFirstItemThatStartsWithTheTypedText) {
  ControlForm host;
  auto* combo = Place<TComboBox>(host, Rect(10, 10, 200, 35));
  combo->Items()->Add(QStringLiteral("apple"));
  combo->Items()->Add(QStringLiteral("Pear"));
  ASSERT_TRUE(host.Show());
  combo->SetFocus();
  QTest::keyClicks(QApplication::focusWidget(), "pe");
  // The typed letters keep their case; the item is matched regardless of it.
  EXPECT_EQ(combo->Text(), QStringLiteral("pear"));
  EXPECT_EQ(combo->ItemIndex(), 1);
}
