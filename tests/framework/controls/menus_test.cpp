#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QTimer>

#include "ControlForm.h"
#include "framework/controls/Menus.h"

using namespace quil;

namespace {

// A menu of: Open, a line, Save (disabled), Print (hidden), View > Grid (checked).
class PopupMenuTest : public ::testing::Test {
protected:
  void SetUp() override {
    for (const char* caption : {"Open", "-", "Save", "Print", "View"}) {
      auto* item = new TMenuItem(&menu);
      item->SetCaption(QString::fromLatin1(caption));
      item->SetOnClick(chosen.Handler());
      menu.Items()->Add(item);
    }
    menu.Items()->Items(2)->SetEnabled(false);
    menu.Items()->Items(3)->SetVisible(false);
    grid = new TMenuItem(&menu);
    grid->SetCaption(QStringLiteral("Grid"));
    grid->SetChecked(true);
    grid->SetOnClick(gridChosen.Handler());
    menu.Items()->Items(4)->Add(grid);
  }

  // Pops the menu up and lets keys act on it once it shows; answers what it showed.
  QStringList PopupWithKeys(const std::vector<Qt::Key>& keys) {
    QStringList shown;
    QTimer::singleShot(0, [&] {
      auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!popup) return;
      for (QAction* action : popup->actions())
        shown << (action->isSeparator() ? QStringLiteral("-") : action->text()) +
                     (action->isEnabled() ? QString() : QStringLiteral(" (off)"));
      for (Qt::Key key : keys) QTest::keyClick(QApplication::activePopupWidget(), key);
    });
    menu.Popup(50, 50);
    return shown;
  }

  TPopupMenu menu{nullptr};
  TMenuItem* grid = nullptr;
  quil::test::EventCounter chosen, gridChosen;
};

}  // namespace

TEST_F(PopupMenuTest, ShowsTheItemsAsTheyAreNow) {
  QStringList shown = PopupWithKeys({Qt::Key_Escape});
  EXPECT_EQ(shown, (QStringList{"Open", "-", "Save (off)", "View"}));
  EXPECT_EQ(chosen.count, 0);
}

TEST_F(PopupMenuTest, ChoosingAnItemRunsItsOnClickBeforePopupReturns) {
  PopupWithKeys({Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(chosen.count, 1);
}

TEST_F(PopupMenuTest, SubItemsShowInASubMenu) {
  PopupWithKeys({Qt::Key_Up, Qt::Key_Right, Qt::Key_Return});
  EXPECT_EQ(gridChosen.count, 1);
  EXPECT_EQ(chosen.count, 0);
}

TEST(MenuItem, TreeOwnsAndRemovesItsItems) {
  TMenuItem root(nullptr);
  auto* child = new TMenuItem(nullptr);
  root.Add(child);
  EXPECT_EQ(child->Parent(), &root);
  EXPECT_EQ(root.Count(), 1);
  auto* line = new TMenuItem(nullptr);
  line->SetCaption(QStringLiteral("-"));
  root.Add(line);
  EXPECT_TRUE(line->IsLine());
  root.Remove(child);
  EXPECT_EQ(root.Count(), 1);
  EXPECT_EQ(child->Parent(), nullptr);
  delete child;
  root.Clear();
  EXPECT_EQ(root.Count(), 0);
}

TEST_F(PopupMenuTest, RightClickPopsUpTheMenuOfTheControlOrItsParent) {
  quil::test::ControlForm host;
  auto* child = new TCustomControl(host.form);
  child->SetParent(host.form);
  child->SetBounds(10, 10, 100, 50);
  host.form->SetPopupMenu(&menu);
  ASSERT_TRUE(host.Show());
  QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
                             QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return); });
  QTest::mouseClick(child->Handle(), Qt::RightButton, Qt::NoModifier, QPoint(20, 20));
  EXPECT_EQ(chosen.count, 1);
  EXPECT_EQ(menu.PopupComponent(), host.form);
}
