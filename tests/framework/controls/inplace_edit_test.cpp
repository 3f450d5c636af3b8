#include <gtest/gtest.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include "GridProbe.h"
#include "framework/controls/Application.h"
#include "framework/controls/Clipboard.h"
#include "framework/controls/VirtualKeys.h"

using namespace quil;
using quil::test::GridTest;

namespace {

class InplaceEditTest : public GridTest {
protected:
  // Opens the editor on the current cell with "abc", all selected.
  void OpenEditor() {
    grid->SetOptions(grid->Options() + goEditing);
    grid->editText = QStringLiteral("abc");
    Key(Qt::Key_F2);
    ASSERT_NE(grid->Editor(), nullptr);
    ASSERT_TRUE(grid->Editor()->Focused());
  }
  // Right-clicks the editor and picks the named action of the menu it shows.
  void PickFromEditMenu(const char* name) {
    QTimer::singleShot(0, [name] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      for (QAction* action : menu->actions())
        if (action->objectName() == QLatin1String(name)) action->trigger();
      menu->close();
    });
    TInplaceEdit* editor = grid->Editor();
    TPoint at = quil::test::Center(editor->ClientRect());
    quil::test::SendMouse(editor, QEvent::MouseButtonPress, at, Qt::RightButton, Qt::RightButton);
    quil::test::SendMouse(editor, QEvent::MouseButtonRelease, at, Qt::NoButton, Qt::RightButton);
    Application->ProcessMessages();
  }
};

struct CommandCase {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers;
  UINT message;
};

class InplaceEditCommandTest : public InplaceEditTest, public ::testing::WithParamInterface<CommandCase> {};

}  // namespace

TEST_P(InplaceEditCommandTest, KeyArrivesAsItsMessageAndIsRefusedWhenTheCellMayNotChange) {
  Clipboard()->SetAsText(QStringLiteral("zz"));
  OpenEditor();
  grid->modifiable = false;
  Key(GetParam().key, GetParam().modifiers);
  EXPECT_EQ(grid->Editor()->commands, std::vector<UINT>{GetParam().message});
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("abc"));
  grid->modifiable = true;
  Key(GetParam().key, GetParam().modifiers);
  EXPECT_NE(grid->Editor()->Text(), QStringLiteral("abc"));
}

INSTANTIATE_TEST_SUITE_P(Keys, InplaceEditCommandTest, ::testing::Values(
    CommandCase{Qt::Key_V, Qt::ControlModifier, WM_PASTE},
    CommandCase{Qt::Key_Insert, Qt::ShiftModifier, WM_PASTE},
    CommandCase{Qt::Key_X, Qt::ControlModifier, WM_CUT},
    CommandCase{Qt::Key_Delete, Qt::ShiftModifier, WM_CUT}));

TEST_F(InplaceEditTest, UndoIsRefusedWhenTheCellMayNotChange) {
  OpenEditor();
  QTest::keyClicks(grid->Editor()->Handle(), "x");
  ASSERT_EQ(grid->Editor()->Text(), QStringLiteral("x"));
  grid->modifiable = false;
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(grid->Editor()->commands, std::vector<UINT>{WM_UNDO});
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("x"));
  grid->modifiable = true;
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("abc"));
}

TEST_F(InplaceEditTest, EditMenuSendsItsMessagesAndRespectsCanEditModify) {
  Clipboard()->SetAsText(QStringLiteral("zz"));
  OpenEditor();
  grid->modifiable = false;
  PickFromEditMenu("edit-paste");
  PickFromEditMenu("edit-delete");
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("abc"));
  grid->modifiable = true;
  PickFromEditMenu("edit-paste");
  EXPECT_EQ(grid->Editor()->commands, std::vector<UINT>{WM_PASTE});
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("zz"));
  grid->Editor()->SelectAll();
  PickFromEditMenu("edit-delete");
  EXPECT_EQ(grid->Editor()->commands.back(), WM_CLEAR);
  EXPECT_EQ(grid->Editor()->Text(), QString());
}

TEST_F(InplaceEditTest, LimitOfMinusOneForbidsAnyChange) {
  Clipboard()->SetAsText(QStringLiteral("zz"));
  grid->editLimit = -1;
  OpenEditor();
  EXPECT_FALSE(grid->CanEditModify());
  QTest::keyClicks(grid->Editor()->Handle(), "xy");
  Key(Qt::Key_Delete);
  Key(Qt::Key_Backspace);
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("abc"));
  Key(Qt::Key_Escape);
  grid->editLimit = 0;
  grid->MoveColRow(2, 1, true, true);
  Key(Qt::Key_F2);
  EXPECT_TRUE(grid->CanEditModify());
}

TEST_F(InplaceEditTest, FocusMessagesNameTheOtherWindow) {
  auto* other = new quil::test::GridProbe(form);
  other->SetParent(form);
  other->SetBounds(0, 250, 100, 50);
  OpenEditor();
  const WPARAM editor = WPARAM(static_cast<TWinControl*>(grid->Editor()));
  ASSERT_FALSE(grid->focusMessages.empty());
  EXPECT_EQ(grid->focusMessages.back(), std::make_pair(WM_KILLFOCUS, editor));
  // The editor gives the focus back when Enter closes it; the grid sees where it came from.
  Key(Qt::Key_Return);
  EXPECT_EQ(grid->focusMessages.back(), std::make_pair(WM_SETFOCUS, editor));
  Key(Qt::Key_F2);
  other->SetFocus();
  Application->ProcessMessages();
  grid->focusMessages.clear();
  EXPECT_EQ(other->focusMessages.back(), std::make_pair(WM_SETFOCUS, editor));
  // Focus coming from elsewhere goes on to the open editor.
  grid->SetFocus();
  Application->ProcessMessages();
  EXPECT_EQ(other->focusMessages.back(), std::make_pair(WM_KILLFOCUS, WPARAM(static_cast<TWinControl*>(grid))));
  EXPECT_EQ(grid->focusMessages.at(0), std::make_pair(WM_SETFOCUS, WPARAM(static_cast<TWinControl*>(other))));
  EXPECT_TRUE(grid->Editor()->Focused());
}

TEST_F(InplaceEditTest, CharacterOnACellThatRefusesAnEditorIsAKeyPressOfTheGrid) {
  grid->SetOptions(grid->Options() + goEditing);
  grid->editShow = false;
  Key(Qt::Key_X);
  EXPECT_EQ(grid->pressed, QStringLiteral("x"));
  EXPECT_FALSE(grid->EditorMode());
  EXPECT_TRUE(grid->InplaceEditor() == nullptr || !grid->InplaceEditor()->Visible());
  EXPECT_TRUE(grid->Focused());
  // Once the cell takes an editor, the character opens it.
  grid->editShow = true;
  Key(Qt::Key_Y);
  ASSERT_TRUE(grid->EditorMode());
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("y"));
}

TEST_F(InplaceEditTest, F2InTheEditorLeavesTheCaretAfterTheText) {
  OpenEditor();
  ASSERT_EQ(grid->Editor()->SelLength(), 3);
  Key(Qt::Key_F2);
  EXPECT_EQ(grid->Editor()->SelLength(), 0);
  EXPECT_EQ(grid->Editor()->SelStart(), 3);
  EXPECT_TRUE(grid->EditorMode());
}

TEST_F(InplaceEditTest, EnterTogglesTheSelectionWhereTheEditorAlwaysShows) {
  grid->editText = QStringLiteral("abc");
  grid->SetOptions(grid->Options() + TGridOptions{goEditing, goAlwaysShowEditor});
  ASSERT_NE(grid->Editor(), nullptr);
  grid->Editor()->SetFocus();
  Application->ProcessMessages();
  ASSERT_EQ(grid->Editor()->SelLength(), 3);
  Key(Qt::Key_Return);
  EXPECT_EQ(grid->Editor()->SelLength(), 0);
  Key(Qt::Key_Return);
  EXPECT_EQ(grid->Editor()->SelLength(), 3);
  EXPECT_TRUE(grid->Editor()->Visible());
}

TEST_F(InplaceEditTest, PlacingTheEditorReportsItsNewBounds) {
  OpenEditor();
  int changes = grid->Editor()->boundsChanges;
  EXPECT_GT(changes, 0);
  grid->SetColWidths(1, 100);
  EXPECT_EQ(grid->Editor()->BoundsRect(), grid->CellRect(1, 1));
  EXPECT_GT(grid->Editor()->boundsChanges, changes);
}

TEST_F(InplaceEditTest, NavigationKeysInTheEditorReachTheGrid) {
  grid->SetOptions(grid->Options() + goTabs);
  OpenEditor();
  grid->keysDown.clear();
  for (Qt::Key key : {Qt::Key_Escape, Qt::Key_Down, Qt::Key_Up, Qt::Key_Tab}) Key(key);
  std::vector<uint16_t> reached;
  for (const auto& key : grid->keysDown) reached.push_back(key.key);
  EXPECT_EQ(reached, (std::vector<uint16_t>{VK_ESCAPE, VK_DOWN, VK_UP, VK_TAB}));
  EXPECT_EQ(grid->Col(), 2);
}

TEST_F(InplaceEditTest, KeyTheCellRefusesIsNotTyped) {
  grid->refused = QStringLiteral("x");
  OpenEditor();
  const int beeps = MessageBeepCount();
  QTest::keyClicks(grid->Editor()->Handle(), "xyx");
  EXPECT_EQ(grid->Editor()->Text(), QStringLiteral("y"));
  EXPECT_EQ(MessageBeepCount(), beeps + 2) << "each refused key beeps";
}

TEST_F(InplaceEditTest, KeysTheEditorKeepsReachTheGridsOnKeyDown) {
  std::vector<uint16_t> seen;
  grid->SetOnKeyDown([&seen](TObject*, uint16_t& key, TShiftState) {
    seen.push_back(key);
    if (key == VK_HOME) key = 0;  // the handler may take a key
  });
  OpenEditor();
  seen.clear();
  grid->keysDown.clear();
  Key(Qt::Key_End);
  Key(Qt::Key_Home);
  EXPECT_EQ(seen, (std::vector<uint16_t>{VK_END, VK_HOME}));
  EXPECT_TRUE(grid->keysDown.empty());  // not moved between cells
  EXPECT_EQ(grid->Editor()->SelStart(), 3);  // Home was taken: the caret stays at the end
  grid->SetOnKeyDown(nullptr);
}

TEST_F(InplaceEditTest, InvalidatingTheEditorRepaintsTheCellUnderIt) {
  OpenEditor();
  grid->Update();
  grid->drawn.clear();
  grid->Editor()->Invalidate();
  grid->Update();
  EXPECT_TRUE(grid->drawn.count({1, 1}));
  EXPECT_FALSE(grid->drawn.count({3, 3}));
}
