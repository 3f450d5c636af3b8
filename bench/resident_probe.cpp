// One side of the resident-memory figure, in a process of its own so that neither side
// counts what the other left behind: opens the orders of a database in a 1920x1080
// window, jumps to the last record, paints, and prints the process's resident bytes
// before opening and after the jump.
//   resident_probe quil|peer DATABASE
// quil: the data grid over TSQLTable, which reads the screens it shows. peer: QTableView
// over QSqlQueryModel, which fetches every row before it can show the last.

#include <QApplication>
#include <cstdio>
#include <unistd.h>

#include "GridBench.h"

namespace {

constexpr int kFrameWidth = 1920;
constexpr int kFrameHeight = 1080;

// The second number of /proc/self/statm: the pages resident now.
long long ResidentBytes() {
  long long pages = 0, resident = 0;
  FILE* statm = std::fopen("/proc/self/statm", "r");
  if (!statm) return -1;
  const bool read = std::fscanf(statm, "%lld %lld", &pages, &resident) == 2;
  std::fclose(statm);
  return read ? resident * sysconf(_SC_PAGESIZE) : -1;
}

long long JumpWithGrid(const QString& database) {
  quil::bench::TOrdersForm demo(database, kFrameWidth, kFrameHeight);
  QApplication::processEvents();
  demo.orders->Last();
  demo.grid->Repaint();
  QApplication::processEvents();
  return ResidentBytes();
}

long long JumpWithView(const QString& database) {
  quil::bench::TOrdersView peer(database, kFrameWidth, kFrameHeight);
  QApplication::processEvents();
  while (peer.model->canFetchMore()) peer.model->fetchMore();
  peer.view->setCurrentIndex(peer.model->index(peer.model->rowCount() - 1, 0));
  peer.view->repaint();
  QApplication::processEvents();
  return ResidentBytes();
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const QStringList arguments = app.arguments();
  if (arguments.size() != 3 || (arguments[1] != "quil" && arguments[1] != "peer")) {
    std::fprintf(stderr, "usage: resident_probe quil|peer DATABASE\n");
    return 2;
  }
  const long long before = ResidentBytes();
  const long long after = arguments[1] == "quil" ? JumpWithGrid(arguments[2]) : JumpWithView(arguments[2]);
  std::printf("%lld %lld\n", before, after);
  return after > 0 ? 0 : 1;
}
