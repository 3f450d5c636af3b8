#pragma once
// The loops that the grid benchmarks share, so that the library and its peer, and one
// program and the next, measure a paint or a scroll in the same way.

#include <QSqlDatabase>
#include <QSqlQueryModel>
#include <QTableView>
#include <benchmark/benchmark.h>
#include <memory>

#include "framework/controls/Forms.h"
#include "framework/db/SqlTable.h"
#include "grid/QuilDBGrids.h"

namespace quil::bench {

// The demo's main form over a database: the orders in the data grid through TSQLTable,
// in a shown window of the given size.
struct TOrdersForm {
  TOrdersForm(const QString& database, int width, int height);

  TForm form{nullptr};
  TSQLTable* orders = nullptr;  // owned by form
  TQuilDBGrid* grid = nullptr;  // owned by form
};

// The peer of TOrdersForm: a QTableView over a QSqlQueryModel of the orders in key order,
// on a connection of its own, shown.
struct TOrdersView {
  TOrdersView(const QString& database, int width, int height);
  ~TOrdersView();
  // Sizes the view cell for cell as the grid: its column widths, its indicator column as
  // the row header, its row height; so that both show the same cells.
  void MatchCells(const TQuilCustomDBGrid& grid);

  QSqlDatabase db;
  std::unique_ptr<QSqlQueryModel> model;
  std::unique_ptr<QTableView> view;
};

// Renders the widget into a frame of its size, as a paint of the whole window does. The
// last frame is saved for a look by eye when QUIL_BENCH_SNAPSHOTS names a folder, as
// "<snapshot>.png".
void PaintFrames(benchmark::State& state, QWidget* widget, const char* snapshot);

// Repaints the whole window through the window system's path, as an exposed window does.
void RepaintGrid(benchmark::State& state, TQuilCustomDBGrid& grid);
void RepaintView(benchmark::State& state, QTableView& view);

// Moves the data set one record on from the grid's bottom row and paints what that
// exposes, going back to the top when the data set ends.
void ScrollGridByOne(benchmark::State& state, TQuilCustomDBGrid& grid);
// The same for a table view: its current index one row down, from the bottom row on.
void ScrollViewByOne(benchmark::State& state, QTableView& view);

}  // namespace quil::bench
