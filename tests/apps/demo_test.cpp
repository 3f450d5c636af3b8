#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct DemoRun {
  int exitCode = -1;
  QString errors;
};

// The demo runs offscreen on a small database that the first run of the suite makes.
class Demo : public ::testing::Test {
protected:
  static void SetUpTestSuite() { dir_ = new QTemporaryDir; }
  static void TearDownTestSuite() {
    delete dir_;
    dir_ = nullptr;
  }

  static QString PathOf(const QString& name) { return dir_->filePath(name); }

  static DemoRun RunDemo(const QStringList& arguments) {
    QStringList all{"--db", PathOf("demo.db")};
    if (!QFile::exists(PathOf("demo.db"))) all << "--rows" << "300";
    QProcess demo;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    demo.setProcessEnvironment(env);
    demo.start(QUIL_DEMO_BINARY, all << arguments);
    EXPECT_TRUE(demo.waitForFinished(120000));
    return {demo.exitCode(), QString::fromLocal8Bit(demo.readAllStandardError())};
  }

  static QImage Screenshot(const QStringList& arguments) {
    const QString shot = PathOf("demo.png");
    QFile::remove(shot);
    const DemoRun run = RunDemo(QStringList(arguments) << "--screenshot" << shot);
    EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
    return QImage(shot);
  }

  static QString WriteScript(const QString& text) {
    QFile file(PathOf("steps.txt"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(text.toUtf8());
    return file.fileName();
  }

private:
  static inline QTemporaryDir* dir_ = nullptr;
};

}  // namespace

// The demo starts on a database it makes itself, lays out offscreen and writes a
// screenshot that shows something.
TEST_F(Demo, StartsAndTakesAScreenshot) {
  const QImage image = Screenshot({});
  ASSERT_FALSE(image.isNull());
  EXPECT_GE(image.width(), 800);
  // Text means pixels that differ from the background colour in the top-left corner.
  const QRgb background = image.pixel(2, 2);
  int differing = 0;
  for (int y = 0; y < image.height(); y += 2)
    for (int x = 0; x < image.width(); x += 2) differing += image.pixel(x, y) != background;
  EXPECT_GT(differing, 50);
}

// The script's keys reach the grid before the shot: the current cell leaves the first
// rows (below the titles and their bands), and the rows further down are the same picture.
TEST_F(Demo, ReplaysAScriptBeforeTheScreenshot) {
  const QImage plain = Screenshot({});
  const QImage moved = Screenshot({"--script", WriteScript("# to the fifth row\nkey Down 4\nwait\n")});
  ASSERT_FALSE(plain.isNull());
  ASSERT_FALSE(moved.isNull());
  EXPECT_NE(plain.copy(0, 20, 900, 160), moved.copy(0, 20, 900, 160));
  EXPECT_EQ(plain.copy(0, 200, 900, 400), moved.copy(0, 200, 900, 400));
}

TEST_F(Demo, AScriptWithABadLineStopsItNamingTheLine) {
  const DemoRun run = RunDemo({"--script", WriteScript("key Down\nkey Sideways\n"), "--screenshot", PathOf("no.png")});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(run.errors.contains("steps.txt:2: unknown key \"Sideways\"")) << run.errors.toStdString();
  EXPECT_FALSE(QFile::exists(PathOf("no.png")));
}
