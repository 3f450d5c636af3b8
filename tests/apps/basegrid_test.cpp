#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

QImage RunScreenshot(const QTemporaryDir& dir, const QStringList& options) {
  const QString shot = dir.filePath("basegrid.png");
  QProcess app;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert("QT_QPA_PLATFORM", "offscreen");
  app.setProcessEnvironment(env);
  app.start(QUIL_BASEGRID_BINARY, QStringList(options) << "--screenshot" << shot);
  EXPECT_TRUE(app.waitForFinished(60000));
  EXPECT_EQ(app.exitCode(), 0) << app.readAllStandardError().toStdString();
  return QImage(shot);
}

// Pixels in the band of rows [top, bottom) that differ from the colour at (x0, top).
int InkInBand(const QImage& image, int top, int bottom, int x0) {
  const QRgb background = image.pixel(x0, top);
  int ink = 0;
  for (int y = top; y < bottom; ++y)
    for (int x = 0; x < image.width(); ++x) ink += image.pixel(x, y) != background;
  return ink;
}

}  // namespace

// The window lays out offscreen with the grid filling it: titles, numbers and cells show.
TEST(BaseGridDemo, TakesAScreenshotOfTheWholeGrid) {
  QTemporaryDir dir;
  ASSERT_TRUE(dir.isValid());
  const QImage image = RunScreenshot(dir, {});
  ASSERT_FALSE(image.isNull());
  EXPECT_EQ(image.size(), QSize(1024, 640));
  // The cells reach the bottom of the window (the grid is aligned to the client area).
  EXPECT_GT(InkInBand(image, 580, 600, 60), 100);
  // The title row and the first data row are not the same picture.
  EXPECT_NE(image.copy(60, 5, 300, 14), image.copy(60, 28, 300, 14));
}

// Scrolled far down and right with the editor open, the window still paints in full.
TEST(BaseGridDemo, ScrollsAndOpensTheEditor) {
  QTemporaryDir dir;
  ASSERT_TRUE(dir.isValid());
  const QImage top = RunScreenshot(dir, {});
  const QImage plain = RunScreenshot(dir, {"--top-row", "900", "--left-col", "40"});
  const QImage scrolled = RunScreenshot(dir, {"--top-row", "900", "--left-col", "40", "--edit"});
  ASSERT_FALSE(scrolled.isNull());
  ASSERT_FALSE(plain.isNull());
  EXPECT_NE(top.copy(0, 25, 1000, 500), scrolled.copy(0, 25, 1000, 500));
  EXPECT_GT(InkInBand(scrolled, 300, 320, 60), 100);
  // The editor covers the current cell, the first scrollable one, with its text selected;
  // the cells away from it are the same picture as without it.
  const QRect currentCell(52, 25, 72, 18);
  EXPECT_NE(plain.copy(currentCell), scrolled.copy(currentCell));
  EXPECT_EQ(plain.copy(300, 100, 600, 400), scrolled.copy(300, 100, 600, 400));
}

// A column border dragged in the titles widens the column, and a smaller window keeps its
// cells down to its new bottom; the wheel scrolls on from there.
TEST(BaseGridDemo, SizesAColumnAndTheWindowAndScrollsByWheel) {
  QTemporaryDir dir;
  ASSERT_TRUE(dir.isValid());
  const QString script = dir.filePath("steps.txt");
  QFile steps(script);
  ASSERT_TRUE(steps.open(QIODevice::WriteOnly));
  steps.write("drag 128 10 168 10\nresize 800 500\n");
  steps.close();
  const QImage plain = RunScreenshot(dir, {});
  const QImage sized = RunScreenshot(dir, {"--script", script});
  ASSERT_FALSE(sized.isNull());
  EXPECT_EQ(sized.size(), QSize(800, 500));
  EXPECT_EQ(plain.copy(129, 0, 80, 22), sized.copy(169, 0, 80, 22)) << "the second title moved by the 40 pixels dragged";
  EXPECT_GT(InkInBand(sized, 460, 480, 60), 100) << "cells reach the new bottom";

  ASSERT_TRUE(steps.open(QIODevice::WriteOnly | QIODevice::Truncate));
  steps.write("wheel 40\n");
  steps.close();
  const QImage wheeled = RunScreenshot(dir, {"--script", script});
  ASSERT_FALSE(wheeled.isNull());
  EXPECT_NE(plain.copy(0, 25, 1000, 500), wheeled.copy(0, 25, 1000, 500)) << "the wheel scrolled the rows";
}
