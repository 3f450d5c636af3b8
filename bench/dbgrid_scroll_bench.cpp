// Scrolling a data grid by one record at its bottom edge, over 100,000 records: the data
// set moves, the row window follows and the exposed row paints. The peer is a QTableView
// over a table model of the same texts, moving its current index down by one row and
// painting what that exposes.

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QTableView>
#include <benchmark/benchmark.h>

#include "GridBench.h"
#include "framework/controls/Forms.h"
#include "framework/db/ClientDataSet.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "grid/QuilDBGrids.h"

namespace {

constexpr int kRecords = 100000;
constexpr int kWidth = 800;
constexpr int kHeight = 600;
const char* const kCities[] = {"Berlin", "Oslo", "Paris", ""};

QString NameText(int id) { return QStringLiteral("Name%1").arg(id, 6, 10, QChar('0')); }

void Fill(quil::TClientDataSet& dataSet) {
  dataSet.FieldDefs()->Add("ID", quil::ftInteger);
  dataSet.FieldDefs()->Add("Name", quil::ftString, 20);
  dataSet.FieldDefs()->Add("City", quil::ftString, 20);
  dataSet.FieldDefs()->Add("Amount", quil::ftFloat);
  dataSet.CreateDataSet();
  dataSet.DisableControls();
  for (int id = 1; id <= kRecords; ++id)
    dataSet.AppendRecord({id, NameText(id), QString::fromLatin1(kCities[(id - 1) % 4]), id * 1.5});
  dataSet.EnableControls();
  dataSet.First();
}

class PeopleModel : public QAbstractTableModel {
public:
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : kRecords; }
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 4; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return QVariant();
    const int id = index.row() + 1;
    switch (index.column()) {
      case 0: return id;
      case 1: return NameText(id);
      case 2: return QString::fromLatin1(kCities[(id - 1) % 4]);
      default: return id * 1.5;
    }
  }
};

void BM_ScrollQuil(benchmark::State& state) {
  quil::TForm form(nullptr);
  form.SetBounds(0, 0, kWidth, kHeight);
  quil::TClientDataSet dataSet(&form);
  Fill(dataSet);
  quil::TDataSource source(&form);
  source.SetDataSet(&dataSet);
  auto* grid = new quil::TQuilDBGrid(&form);
  grid->SetParent(&form);
  grid->SetAlign(quil::alClient);
  grid->SetDataSource(&source);
  form.Show();
  quil::bench::ScrollGridByOne(state, *grid);
}

void BM_ScrollPeer(benchmark::State& state) {
  PeopleModel model;
  QTableView view;
  view.setModel(&model);
  view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view.resize(kWidth, kHeight);
  view.show();
  quil::bench::ScrollViewByOne(state, view);
}

}  // namespace

BENCHMARK(BM_ScrollQuil)->Name("dbgrid_scroll_by_one_100k/quil")->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ScrollPeer)->Name("dbgrid_scroll_by_one_100k/peer")->Unit(benchmark::kMicrosecond);
