#include <QApplication>
#include <QDir>
#include <gtest/gtest.h>

// Every test program runs headless: the platform is chosen here, not by the caller.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", QDir::tempPath().toUtf8());
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
