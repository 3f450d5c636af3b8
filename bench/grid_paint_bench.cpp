// Painting one full 1920x1080 frame of the base grid's demo (1,000 x 50 text cells, a
// title row and a row-number column), against a QTableView over a table model that
// answers the same texts, with the same column widths and row heights.

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QTableView>
#include <benchmark/benchmark.h>

#include "../apps/basegrid/CellGrid.h"
#include "GridBench.h"
#include "framework/controls/Forms.h"

namespace {

constexpr int kFrameWidth = 1920;
constexpr int kFrameHeight = 1080;

class CellModel : public QAbstractTableModel {
public:
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : quil::demo::kDataRows; }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : quil::demo::kDataCols; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return QVariant();
    return quil::demo::GeneratedCellText(index.row(), index.column());
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole) return QVariant();
    return orientation == Qt::Horizontal ? quil::demo::ColumnTitle(section) : QVariant(section + 1);
  }
};

void BM_FullFrameQuil(benchmark::State& state) {
  quil::TForm form(nullptr);
  form.SetBounds(0, 0, kFrameWidth, kFrameHeight);
  auto* grid = new quil::demo::TCellGrid(&form);
  grid->SetParent(&form);
  grid->SetAlign(quil::alClient);
  form.Show();
  quil::bench::PaintFrames(state, grid->Handle(), "grid_paint_quil");
}

void BM_FullFramePeer(benchmark::State& state) {
  CellModel model;
  QTableView view;
  view.setModel(&model);
  view.horizontalHeader()->setDefaultSectionSize(80);
  view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view.verticalHeader()->setMinimumSectionSize(1);
  view.verticalHeader()->setDefaultSectionSize(22);
  view.verticalHeader()->setFixedWidth(48);
  view.resize(kFrameWidth, kFrameHeight);
  view.setCurrentIndex(model.index(0, 0));
  view.show();
  quil::bench::PaintFrames(state, &view, "grid_paint_peer");
}

}  // namespace

BENCHMARK(BM_FullFrameQuil)->Name("grid_paint_1920x1080/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FullFramePeer)->Name("grid_paint_1920x1080/peer")->Unit(benchmark::kMillisecond);
