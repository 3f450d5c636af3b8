// A million in-memory records walked, searched and filtered through the data set,
// against the same rows in a std::vector: the walk First..Eof with controls disabled
// reading two fields per record, Locate on a field that no index covers, and a Filter
// text. A data link with a screenful of rows is attached throughout, as a grid would be.

#include <benchmark/benchmark.h>

#include <QString>
#include <algorithm>
#include <vector>

#include "framework/db/ClientDataSet.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"

using namespace quil;

namespace {

constexpr int kRows = 1000000;

QString NameOf(int id) { return QStringLiteral("Name%1").arg(id, 7, 10, QChar('0')); }

struct TPeerRow {
  int id;
  QString name;
  double amount;
};

const std::vector<TPeerRow>& PeerRows() {
  static const std::vector<TPeerRow> rows = [] {
    std::vector<TPeerRow> made;
    made.reserve(kRows);
    for (int id = 1; id <= kRows; ++id) made.push_back({id, NameOf(id), id * 0.5});
    return made;
  }();
  return rows;
}

class TGridLikeLink : public TDataLink {};

// The data set, opened once and shared by the benchmarks of this program.
struct TTable {
  TTable() {
    dataSet.FieldDefs()->Add("ID", ftInteger);
    dataSet.FieldDefs()->Add("Name", ftString, 20);
    dataSet.FieldDefs()->Add("Amount", ftFloat);
    dataSet.CreateDataSet();
    source.SetDataSet(&dataSet);
    link.SetDataSource(&source);
    link.SetBufferCount(30);
    dataSet.DisableControls();
    for (const TPeerRow& row : PeerRows()) dataSet.AppendRecord({row.id, row.name, row.amount});
    dataSet.EnableControls();
    dataSet.First();
    id = dataSet.FieldByName("ID");
    amount = dataSet.FieldByName("Amount");
  }
  TClientDataSet dataSet{nullptr};
  TDataSource source{nullptr};
  TGridLikeLink link;
  TField* id = nullptr;
  TField* amount = nullptr;
};

TTable& Table() {
  static TTable table;
  return table;
}

void WalkQuil(benchmark::State& state) {
  TTable& table = Table();
  for (auto _ : state) {
    double sum = 0;
    table.dataSet.DisableControls();
    for (table.dataSet.First(); !table.dataSet.Eof(); table.dataSet.Next())
      sum += table.id->AsInteger() + table.amount->AsFloat();
    table.dataSet.EnableControls();
    benchmark::DoNotOptimize(sum);
  }
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

void WalkPeer(benchmark::State& state) {
  const std::vector<TPeerRow>& rows = PeerRows();
  for (auto _ : state) {
    double sum = 0;
    for (const TPeerRow& row : rows) {
      benchmark::DoNotOptimize(&row);
      sum += row.id + row.amount;
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

// The key is on the last record, so both sides look at every row.
void LocateQuil(benchmark::State& state) {
  TTable& table = Table();
  const QString key = NameOf(kRows);
  for (auto _ : state) {
    table.dataSet.First();
    if (!table.dataSet.Locate("Name", key, {})) state.SkipWithError("not found");
  }
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

void LocatePeer(benchmark::State& state) {
  const std::vector<TPeerRow>& rows = PeerRows();
  const QString key = NameOf(kRows);
  for (auto _ : state) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const TPeerRow& row) { return row.name == key; });
    benchmark::DoNotOptimize(found);
  }
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

// Both sides keep the rows that pass, in order, as the data set's view does.
constexpr const char* kFilter = "Amount >= 25000 AND Name LIKE 'Name009%'";

void FilterQuil(benchmark::State& state) {
  TTable& table = Table();
  table.dataSet.SetFilter(kFilter);
  for (auto _ : state) {
    table.dataSet.SetFiltered(true);
    if (table.dataSet.RecordCount() == 0) state.SkipWithError("nothing passed");
    state.PauseTiming();
    table.dataSet.SetFiltered(false);
    state.ResumeTiming();
  }
  table.dataSet.SetFilter("");
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

void FilterPeer(benchmark::State& state) {
  const std::vector<TPeerRow>& rows = PeerRows();
  const QString prefix = QStringLiteral("Name009");
  for (auto _ : state) {
    std::vector<int> passed;
    passed.reserve(rows.size());
    for (size_t rowIndex = 0; rowIndex < rows.size(); ++rowIndex)
      if (rows[rowIndex].amount >= 25000 && rows[rowIndex].name.startsWith(prefix)) passed.push_back(int(rowIndex));
    benchmark::DoNotOptimize(passed.data());
  }
  state.counters["records/s"] = benchmark::Counter(double(kRows), benchmark::Counter::kIsIterationInvariantRate);
}

}  // namespace

// The peer's millisecond is at the mercy of any other work on the machine: both sides
// run five times and keep their fastest.
BENCHMARK(WalkQuil)->Name("walk_1m_two_fields/quil")->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(WalkPeer)->Name("walk_1m_two_fields/peer")->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK(LocateQuil)->Name("locate_1m_unindexed/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(LocatePeer)->Name("locate_1m_unindexed/peer")->Unit(benchmark::kMillisecond);
BENCHMARK(FilterQuil)->Name("filter_1m_text/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(FilterPeer)->Name("filter_1m_text/peer")->Unit(benchmark::kMillisecond);
