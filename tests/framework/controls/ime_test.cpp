// Input methods: Qt's composition events reach the in-place editor, which composes the
// text, and its composition shows as WM_IME_... messages to the editor and the grid.
#include <gtest/gtest.h>

#include <QInputMethodEvent>

#include "GridProbe.h"

using namespace quil;
using quil::test::GridTest;

namespace {

void Compose(QWidget* widget, const QString& preedit, const QString& commit = QString()) {
  QInputMethodEvent event(preedit, {});
  if (!commit.isEmpty()) event.setCommitString(commit);
  QApplication::sendEvent(widget, &event);
}

class ImeTest : public GridTest {
protected:
  void SetUp() override {
    GridTest::SetUp();
    grid->SetOptions(grid->Options() + goEditing);
  }
};

TEST_F(ImeTest, EditorComposesAndReportsEachStep) {
  Key(Qt::Key_F2);
  ASSERT_TRUE(grid->EditorMode());
  auto* editor = grid->Editor();
  editor->SelectAll();
  Compose(editor->Handle(), QStringLiteral("ㅎ"));
  EXPECT_TRUE(editor->ImeComposing());
  Compose(editor->Handle(), QStringLiteral("하"));
  Compose(editor->Handle(), QString(), QStringLiteral("한"));
  EXPECT_FALSE(editor->ImeComposing());
  EXPECT_EQ(editor->Text(), QStringLiteral("한"));
  const std::vector<std::pair<UINT, LPARAM>> expected{
      {WM_IME_STARTCOMPOSITION, 0}, {WM_IME_COMPOSITION, GCS_COMPSTR}, {WM_IME_COMPOSITION, GCS_COMPSTR},
      {WM_IME_COMPOSITION, GCS_RESULTSTR}, {WM_IME_ENDCOMPOSITION, 0}};
  EXPECT_EQ(editor->imeMessages, expected);
  ASSERT_FALSE(grid->edits.empty());
  EXPECT_EQ(grid->edits.back().second, QStringLiteral("한"));
}

// A composition that starts on the grid opens the editor and goes on there.
TEST_F(ImeTest, CompositionStartedOnTheGridContinuesInTheEditor) {
  EXPECT_TRUE(grid->Handle()->testAttribute(Qt::WA_InputMethodEnabled));
  grid->editOnComposition = true;
  Compose(grid->Handle(), QStringLiteral("ㅎ"));
  ASSERT_TRUE(grid->EditorMode());
  auto* editor = grid->Editor();
  EXPECT_TRUE(editor->Focused());
  EXPECT_FALSE(grid->ImeComposing());
  EXPECT_TRUE(editor->ImeComposing());
  Compose(QApplication::focusWidget(), QString(), QStringLiteral("한"));
  EXPECT_TRUE(editor->Text().contains(QStringLiteral("한")));
  EXPECT_EQ(grid->imeStarts, 1);
}

TEST_F(ImeTest, GridTakesNoInputMethodWithoutEditingOrWithItDisabled) {
  grid->SetOptions(grid->Options() - goEditing);
  EXPECT_FALSE(grid->Handle()->testAttribute(Qt::WA_InputMethodEnabled));
  grid->SetOptions(grid->Options() + goEditing);
  grid->SetImeMode(imDisable);
  EXPECT_FALSE(grid->Handle()->testAttribute(Qt::WA_InputMethodEnabled));
}

}  // namespace
