// The demos on a real X server: Xvfb through xvfb-run, with Qt's xcb platform. The
// offscreen runs of the other app tests do not go through a window system; these do.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

// Runs binary with its arguments on a private X server and answers the screenshot it
// wrote; a null image when it wrote none.
QImage RunOnXvfb(const QString& binary, const QStringList& arguments, const QTemporaryDir& dir) {
  const QString shot = dir.filePath("xvfb.png");
  QProcess run;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert("QT_QPA_PLATFORM", "xcb");
  run.setProcessEnvironment(env);
  run.start("xvfb-run", QStringList{"-a", "-s", "-screen 0 1280x1024x24", binary} << arguments << "--screenshot"
                                                                                    << shot);
  EXPECT_TRUE(run.waitForFinished(180000));
  EXPECT_EQ(run.exitCode(), 0) << run.readAllStandardError().toStdString();
  return QImage(shot);
}

// Pixels that differ from the one at the top-left corner, every other one counted.
int Ink(const QImage& image, const QRect& area) {
  const QRgb background = image.pixel(area.topLeft());
  int ink = 0;
  for (int y = area.top(); y <= area.bottom(); y += 2)
    for (int x = area.left(); x <= area.right(); x += 2) ink += image.pixel(x, y) != background;
  return ink;
}

class Xvfb : public ::testing::Test {
protected:
  void SetUp() override {
    if (QStandardPaths::findExecutable("xvfb-run").isEmpty() || QStandardPaths::findExecutable("Xvfb").isEmpty())
      GTEST_SKIP() << "Xvfb is missing; ./scripts/setup installs it (package xvfb)";
    ASSERT_TRUE(dir.isValid());
  }
  // Writes the steps into a script file and answers the arguments that play it.
  QStringList Script(const QByteArray& steps) {
    const QString file = dir.filePath("steps.txt");
    QFile out(file);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(steps);
    return {"--script", file};
  }
  QTemporaryDir dir;
};

TEST_F(Xvfb, BaseGridScrollsEditsAndPaintsOnAnXServer) {
  const QImage top = RunOnXvfb(QUIL_BASEGRID_BINARY, {}, dir);
  ASSERT_FALSE(top.isNull());
  EXPECT_EQ(top.size(), QSize(1024, 640));
  EXPECT_GT(Ink(top, QRect(60, 580, 900, 20)), 50) << "cells reach the bottom";
  const QImage plain = RunOnXvfb(QUIL_BASEGRID_BINARY, {"--top-row", "900", "--left-col", "40"}, dir);
  const QImage edited = RunOnXvfb(QUIL_BASEGRID_BINARY, {"--top-row", "900", "--left-col", "40", "--edit"}, dir);
  ASSERT_FALSE(plain.isNull());
  ASSERT_FALSE(edited.isNull());
  EXPECT_NE(top.copy(0, 25, 1000, 500), plain.copy(0, 25, 1000, 500)) << "scrolled cells show other texts";
  const QRect currentCell(52, 25, 72, 18);
  EXPECT_NE(plain.copy(currentCell), edited.copy(currentCell)) << "the editor covers the current cell";
  EXPECT_EQ(plain.copy(300, 100, 600, 400), edited.copy(300, 100, 600, 400));
}

// Many one-row scrolls down and back by keys and wheel leave the screen as a fresh paint of
// the same cells: every strip the grid moved instead of repainting came out right.
TEST_F(Xvfb, BaseGridScrolledThereAndBackShowsWhatAFreshPaintShows) {
  const QImage fresh = RunOnXvfb(QUIL_BASEGRID_BINARY, {}, dir);
  const QImage scrolled =
      RunOnXvfb(QUIL_BASEGRID_BINARY, Script("key Down 45\nwheel 12\nkey Up 45\nwheel -12\nkey Right 16\nkey Left 16\n"), dir);
  ASSERT_FALSE(fresh.isNull());
  ASSERT_FALSE(scrolled.isNull());
  EXPECT_TRUE(scrolled == fresh) << "the screen after scrolling differs from a fresh paint";
}

// A column border dragged in the titles widens the column; the window made smaller keeps
// its cells down to the new bottom.
TEST_F(Xvfb, BaseGridSizesAColumnAndTheWindow) {
  const QImage plain = RunOnXvfb(QUIL_BASEGRID_BINARY, {}, dir);
  const QImage sized = RunOnXvfb(QUIL_BASEGRID_BINARY, Script("drag 128 10 168 10\nresize 800 500\n"), dir);
  ASSERT_FALSE(sized.isNull());
  EXPECT_EQ(sized.size(), QSize(800, 500));
  EXPECT_GT(Ink(plain, QRect(132, 4, 30, 14)), 10) << "the second title starts here before";
  EXPECT_EQ(Ink(sized, QRect(132, 4, 30, 14)), 0) << "and is pushed right by the wider first column";
  EXPECT_EQ(plain.copy(129, 0, 80, 22), sized.copy(169, 0, 80, 22)) << "the second title moved by the 40 pixels dragged";
  EXPECT_GT(Ink(sized, QRect(60, 460, 700, 20)), 50) << "cells reach the new bottom";
}

TEST_F(Xvfb, DataGridDemoShowsItsOrdersOnAnXServer) {
  const QImage image = RunOnXvfb(QUIL_DEMO_BINARY, {"--db", dir.filePath("demo.db"), "--rows", "300"}, dir);
  ASSERT_FALSE(image.isNull());
  EXPECT_GE(image.width(), 800);
  EXPECT_GT(Ink(image, image.rect().adjusted(2, 2, -2, -2)), 50);
}

}  // namespace
