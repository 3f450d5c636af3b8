#include <QApplication>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {
// Qt wants a private runtime directory; CI machines often have none.
void EnsureRuntimeDir() {
  if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) return;
  const QString dir = QDir::tempPath() + QStringLiteral("/quil-runtime-%1").arg(getuid());
  QDir().mkpath(dir);
  QFile::setPermissions(dir, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("XDG_RUNTIME_DIR", dir.toUtf8());
}
}  // namespace

// Every test program runs headless: the platform is chosen here, not by the caller.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  EnsureRuntimeDir();
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
