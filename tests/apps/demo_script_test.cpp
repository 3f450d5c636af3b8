#include <gtest/gtest.h>

#include <QApplication>
#include <tuple>

#include "CellGrid.h"
#include "DemoScript.h"
#include "framework/controls/Forms.h"
#include "framework/db/ClientDataSet.h"
#include "framework/db/DataSource.h"
#include "framework/db/FieldDefs.h"
#include "grid/QuilDBGrids.h"

using demo::ParseScript;
using demo::ScriptError;
using demo::ScriptStep;

namespace {

// The message of the error a script raises; empty when it raises none.
std::string ErrorOf(const QString& text) {
  try {
    ParseScript(text, "steps.txt");
  } catch (const ScriptError& error) {
    return error.what();
  }
  return {};
}

}  // namespace

TEST(DemoScript, ReadsEachKindOfStep) {
  const demo::Script script = ParseScript("# a comment\n"
                                          "key Ctrl+End\n"
                                          "\n"
                                          "key Down 3\n"
                                          "type Two words\n"
                                          "click 2 5\n"
                                          "clickat 120 48\n"
                                          "wait\n"
                                          "wait 40\n",
                                          "steps.txt");
  ASSERT_EQ(script.steps.size(), 7u);
  EXPECT_EQ(script.steps[0].kind, ScriptStep::Kind::Key);
  EXPECT_EQ(script.steps[0].key, QKeyCombination(Qt::ControlModifier, Qt::Key_End));
  EXPECT_EQ(script.steps[0].line, 2);
  EXPECT_EQ(script.steps[1].key, QKeyCombination(Qt::Key_Down));
  EXPECT_EQ(script.steps[1].count, 3);
  EXPECT_EQ(script.steps[1].line, 4);
  EXPECT_EQ(script.steps[2].kind, ScriptStep::Kind::Type);
  EXPECT_EQ(script.steps[2].text, "Two words");
  EXPECT_EQ(script.steps[3].kind, ScriptStep::Kind::Click);
  EXPECT_EQ(std::pair(script.steps[3].x, script.steps[3].y), std::pair(2, 5));
  EXPECT_EQ(script.steps[4].kind, ScriptStep::Kind::ClickAt);
  EXPECT_EQ(std::pair(script.steps[4].x, script.steps[4].y), std::pair(120, 48));
  EXPECT_EQ(script.steps[5].milliseconds, 0);
  EXPECT_EQ(script.steps[6].milliseconds, 40);
}

struct BadLine {
  const char* text;
  const char* message;  // a part of the error, after the file and line
};

class DemoScriptBadLine : public ::testing::TestWithParam<BadLine> {};

TEST_P(DemoScriptBadLine, NamesTheFileAndLine) {
  const std::string error = ErrorOf(QStringLiteral("key Down\n%1\n").arg(QLatin1String(GetParam().text)));
  EXPECT_EQ(error.rfind("steps.txt:2: ", 0), 0u) << error;
  EXPECT_NE(error.find(GetParam().message), std::string::npos) << error;
}

INSTANTIATE_TEST_SUITE_P(Lines, DemoScriptBadLine,
                         ::testing::Values(BadLine{"press Down", "unknown step \"press\""},
                                           BadLine{"key Dwon", "unknown key \"Dwon\""},
                                           BadLine{"key", "key wants a key"},
                                           BadLine{"key Down 0", "\"0\" is not a whole number of 1 or more"},
                                           BadLine{"type", "type wants the text"},
                                           BadLine{"click 2", "click wants a column and a row"},
                                           BadLine{"click two 5", "\"two\" is not a whole number"},
                                           BadLine{"clickat -3 4", "\"-3\" is not a whole number of 0"},
                                           BadLine{"wait soon", "\"soon\" is not a whole number"},
                                           BadLine{"drag 1 2 3", "drag wants two points"},
                                           BadLine{"wheel 0", "other than 0"},
                                           BadLine{"wheel", "wheel wants a number of notches"},
                                           BadLine{"resize 800 0", "\"0\" is not a whole number of 1 or more"}));

TEST(DemoScript, ReadsDragsWheelTurnsAndResizes) {
  const demo::Script script = ParseScript("drag 128 10 168 12\nwheel -3\nresize 800 500\n", "steps.txt");
  ASSERT_EQ(script.steps.size(), 3u);
  EXPECT_EQ(script.steps[0].kind, ScriptStep::Kind::Drag);
  EXPECT_EQ(std::tuple(script.steps[0].x, script.steps[0].y, script.steps[0].x2, script.steps[0].y2),
            std::tuple(128, 10, 168, 12));
  EXPECT_EQ(script.steps[1].kind, ScriptStep::Kind::Wheel);
  EXPECT_EQ(script.steps[1].count, -3);
  EXPECT_EQ(script.steps[2].kind, ScriptStep::Kind::Resize);
  EXPECT_EQ(std::pair(script.steps[2].x, script.steps[2].y), std::pair(800, 500));
}

TEST(DemoScript, AFileThatIsMissingIsAnError) {
  EXPECT_THROW(demo::LoadScript("/nonexistent/steps.txt"), ScriptError);
}

namespace {

// A shown form with the grid filling it, as the demo has.
template <typename Grid>
struct Shown {
  Shown() {
    form.SetBounds(0, 0, 640, 400);
    grid = new Grid(&form);
    grid->SetParent(&form);
    grid->SetAlign(quil::alClient);
  }
  void Show() {
    form.Show();
    QApplication::processEvents();
  }
  void Play(const QString& text) { demo::PlayScript(ParseScript(text, "steps.txt"), *grid); }

  quil::TForm form{nullptr};
  Grid* grid = nullptr;
};

}  // namespace

TEST(DemoScript, KeysMoveTheDataGridsCurrentRow) {
  Shown<quil::TQuilDBGrid> shown;
  quil::TClientDataSet orders(&shown.form);
  orders.FieldDefs()->Add("ID", quil::ftInteger);
  orders.CreateDataSet();
  for (int id = 1; id <= 50; ++id) orders.AppendRecord({id});
  orders.First();
  quil::TDataSource source(&shown.form);
  source.SetDataSet(&orders);
  shown.grid->SetDataSource(&source);
  shown.Show();
  const int firstRow = shown.grid->Row();
  shown.Play("key Down 3\nkey Up\n");
  EXPECT_EQ(shown.grid->Row(), firstRow + 2);
  // FIXME: the data grid answers keys as the base grid still: the current cell moves but
  // the record stays. Expect RecNo 3 here once the grid's own keyboard moves the data set.
}

TEST(DemoScript, AClickMakesTheCellCurrent) {
  Shown<quil::demo::TCellGrid> shown;
  shown.Show();
  shown.Play("click 3 4\n");
  EXPECT_EQ(shown.grid->Col(), 3);
  EXPECT_EQ(shown.grid->Row(), 4);
  const quil::TRect cell = shown.grid->CellRect(2, 6);
  shown.Play(QStringLiteral("clickat %1 %2\n").arg(cell.Left + 2).arg(cell.Top + 2));
  EXPECT_EQ(shown.grid->Col(), 2);
  EXPECT_EQ(shown.grid->Row(), 6);
}

TEST(DemoScript, TypedTextGoesToTheEditorThatF2Opened) {
  Shown<quil::demo::TCellGrid> shown;
  shown.Show();
  shown.Play("click 1 1\nkey F2\nkey Ctrl+A\ntype New Text\nkey Return\n");
  EXPECT_EQ(shown.grid->CellText(1, 1), "New Text");
}

TEST(DemoScript, AClickOnACellOffScreenNamesTheLine) {
  Shown<quil::demo::TCellGrid> shown;
  shown.Show();
  try {
    shown.Play("key Down\n\nclick 3 900\n");
    FAIL() << "the click played";
  } catch (const ScriptError& error) {
    EXPECT_STREQ(error.what(), "steps.txt:3: cell 3 900 is not on screen");
  }
}
