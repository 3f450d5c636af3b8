#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

// The demo starts on a database it makes itself, lays out offscreen and writes a
// screenshot that shows something.
TEST(Demo, StartsAndTakesAScreenshot) {
  QTemporaryDir dir;
  ASSERT_TRUE(dir.isValid());
  const QString shot = dir.filePath("demo.png");
  QProcess demo;
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  env.insert("QT_QPA_PLATFORM", "offscreen");
  demo.setProcessEnvironment(env);
  demo.start(QUIL_DEMO_BINARY, {"--db", dir.filePath("demo.db"), "--rows", "300", "--screenshot", shot});
  ASSERT_TRUE(demo.waitForFinished(120000));
  EXPECT_EQ(demo.exitCode(), 0) << demo.readAllStandardError().toStdString();
  const QImage image(shot);
  ASSERT_FALSE(image.isNull());
  EXPECT_GE(image.width(), 800);
  // Text means pixels that differ from the background colour in the top-left corner.
  const QRgb background = image.pixel(2, 2);
  int differing = 0;
  for (int y = 0; y < image.height(); y += 2)
    for (int x = 0; x < image.width(); x += 2) differing += image.pixel(x, y) != background;
  EXPECT_GT(differing, 50);
}
