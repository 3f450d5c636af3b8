#include "GridBench.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>

#include "framework/db/DataSource.h"
#include "framework/db/SqlConnection.h"

namespace quil::bench {

TOrdersForm::TOrdersForm(const QString& database, int width, int height) {
  form.SetBounds(0, 0, width, height);
  auto* connection = new TSQLConnection(&form);
  connection->SetDatabaseName(database);
  orders = new TSQLTable(&form);
  orders->SetConnection(connection);
  orders->SetTableName(QStringLiteral("orders"));
  auto* source = new TDataSource(&form);
  source->SetDataSet(orders);
  grid = new TQuilDBGrid(&form);
  grid->SetParent(&form);
  grid->SetAlign(alClient);
  grid->SetDataSource(source);
  orders->Open();
  form.Show();
}

namespace {
const QString kPeerConnection = QStringLiteral("orders-view");
}

TOrdersView::TOrdersView(const QString& database, int width, int height) {
  db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kPeerConnection);
  db.setDatabaseName(database);
  db.open();
  model = std::make_unique<QSqlQueryModel>();
  model->setQuery(QStringLiteral("SELECT * FROM orders ORDER BY id"), db);
  view = std::make_unique<QTableView>();
  view->setModel(model.get());
  view->resize(width, height);
  view->setCurrentIndex(model->index(0, 0));
  view->show();
}

TOrdersView::~TOrdersView() {
  view.reset();
  model.reset();
  db.close();
  db = QSqlDatabase();
  QSqlDatabase::removeDatabase(kPeerConnection);
}

// A view's section holds its grid line; a grid's cell size leaves the line out.
void TOrdersView::MatchCells(const TQuilCustomDBGrid& grid) {
  const int line = grid.GridLineWidth();
  for (int dataCol = 0; dataCol < model->columnCount(); ++dataCol)
    view->setColumnWidth(dataCol, grid.ColWidths(grid.DataToRawColumn(dataCol)) + line);
  view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view->verticalHeader()->setMinimumSectionSize(1);
  view->verticalHeader()->setDefaultSectionSize(grid.DefaultRowHeight() + line);
  view->verticalHeader()->setFixedWidth(grid.ColWidths(0) + line);
}

void PaintFrames(benchmark::State& state, QWidget* widget, const char* snapshot) {
  QApplication::processEvents();
  QImage frame(widget->size(), QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    widget->render(&frame);
    benchmark::DoNotOptimize(frame.constBits());
  }
  const QString folder = qEnvironmentVariable("QUIL_BENCH_SNAPSHOTS");
  if (!folder.isEmpty()) frame.save(folder + QStringLiteral("/%1.png").arg(QLatin1String(snapshot)));
  state.counters["frames/s"] = benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}

void RepaintGrid(benchmark::State& state, TQuilCustomDBGrid& grid) {
  QApplication::processEvents();
  for (auto _ : state) grid.Repaint();
}

// QWidget::repaint paints the view's frame alone: the cells and the headers are child
// widgets, each of which has to be made dirty itself.
void RepaintView(benchmark::State& state, QTableView& view) {
  QApplication::processEvents();
  const QList<QWidget*> parts = view.findChildren<QWidget*>();
  for (auto _ : state) {
    view.update();
    for (QWidget* part : parts) part->update();
    QApplication::sendPostedEvents(&view, QEvent::UpdateRequest);
  }
}

void ScrollGridByOne(benchmark::State& state, TQuilCustomDBGrid& grid) {
  QApplication::processEvents();
  TDataSet& dataSet = *grid.DataSet();
  auto toBottomRow = [&] {
    dataSet.First();
    grid.MoveBy(grid.DataLink()->BufferCount() - 1);
    grid.Update();
  };
  toBottomRow();
  for (auto _ : state) {
    if (dataSet.Eof()) {
      state.PauseTiming();
      toBottomRow();
      state.ResumeTiming();
    }
    dataSet.Next();
    grid.Update();
  }
}

void ScrollViewByOne(benchmark::State& state, QTableView& view) {
  QApplication::processEvents();
  QAbstractItemModel& model = *view.model();
  const int bottomRow = view.rowAt(view.viewport()->height() - 1);
  int row = bottomRow;
  auto toBottomRow = [&] {
    row = bottomRow;
    view.setCurrentIndex(model.index(row, 0));
    view.repaint();
  };
  toBottomRow();
  for (auto _ : state) {
    if (row + 1 >= model.rowCount()) {
      state.PauseTiming();
      toBottomRow();
      state.ResumeTiming();
    }
    view.setCurrentIndex(model.index(++row, 0));
    // Paints what the scroll left dirty, as the event loop would next.
    QApplication::sendPostedEvents(&view, QEvent::UpdateRequest);
  }
}

}  // namespace quil::bench
