// Browsing a generated orders table through TSQLTable against the database running the
// same statement alone through QSqlQuery, and against QSqlQueryModel, which a QTableView
// reads. The screens are measured on a thousand and a million orders; QUIL_BENCH_LARGE=1
// adds ten million (and runs the other figures on it), QUIL_BENCH_HUGE=1 a hundred
// million (about 8 GB on disk). BenchDatabase.h makes and keeps the tables.
//
//   first_screen/{quil,peer,model}/<rows>  open and read the first screen (peer: LIMIT)
//   last_screen/{quil,peer,model}/<rows>   open, jump to the last record and read the
//                                          screen above it (peer: the order reversed,
//                                          LIMIT; model: it fetches every row first)
//   order_unindexed/{quil,peer}            order by amount, which has no index
//   filter_like/{quil,peer}                a LIKE filter on the notes
//   record_count/{quil,peer}               RecordCount of the filtered table (peer: count(*))
//
// Besides quil/peer, the ratios set each larger table's screens over the thousand's (a
// screen should cost the same at any size), the model's first screen over LIMIT, and the
// data set's jump to the last record over the model's.
//
// Each peer gives the same rows as the data set: its order ends with the key, as the data
// set's does to make it total, and a case-sensitive LIKE is SQLite's GLOB, since the
// database's LIKE ignores case.

#include <QCoreApplication>
#include <QFile>
#include <QStorageInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "BenchDatabase.h"
#include "BenchFigures.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/db/SqlTable.h"

using namespace quil;

namespace {

constexpr int kScreen = 40;
constexpr int64_t kSmallRows = 1000;

constexpr int64_t kMillion = bench::kMillion;
constexpr int64_t kHugeRows = 100 * kMillion;
constexpr int64_t kHugeBytes = 20LL * 1024 * 1024 * 1024;  // the file, its journal and room to spare

// One connection for the data set and one for the peer, on the same file.
struct TBench {
  explicit TBench(int64_t rows) : file(bench::OrdersDatabase(rows)) {
    connection.SetDatabaseName(file);
    connection.Open();
    peer = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("peer-%1").arg(rows));
    peer.setDatabaseName(file);
    peer.open();
  }

  QString file;
  TSQLConnection connection{nullptr};
  QSqlDatabase peer;
};

// The connections close while the application still stands, not at static destruction.
TBench& Bench(int64_t rows) {
  static std::map<int64_t, std::unique_ptr<TBench>> benches;
  if (benches.empty()) qAddPostRoutine([] { benches.clear(); });
  auto& bench = benches[rows];
  if (!bench) bench = std::make_unique<TBench>(rows);
  return *bench;
}

// The orders table with a screenful of record buffers, as a grid's link keeps them.
struct TOrders {
  explicit TOrders(TBench& bench) {
    table.SetConnection(&bench.connection);
    table.SetTableName(QStringLiteral("orders"));
    source.SetDataSet(&table);
    link.SetBufferCount(kScreen);
    link.SetDataSource(&source);
  }
  ~TOrders() { link.SetDataSource(nullptr); }

  TSQLTable table{nullptr};
  TDataSource source{nullptr};
  TDataLink link;
};

// Reads every value of a screen of records, moving by `step`; it stops on the screen's
// last record, as a grid's window does. Both sides read values: turning them into
// display text is the grid's work, whoever supplies them.
void ReadScreen(TDataSet& dataSet, int step) {
  for (int row = 0; row < kScreen; ++row) {
    for (TField* field : *dataSet.Fields()) benchmark::DoNotOptimize(field->AsVariant());
    if (row + 1 < kScreen && dataSet.MoveBy(step) == 0) break;
  }
}

void ReadPeer(QSqlDatabase& db, const QString& sql) {
  QSqlQuery query(db);
  query.setForwardOnly(true);
  if (!query.exec(sql)) throw std::runtime_error("the peer statement failed");
  const int columns = query.record().count();
  while (query.next())
    for (int column = 0; column < columns; ++column) benchmark::DoNotOptimize(query.value(column));
}

enum class TStart { First, Last };

// Opens the table and reads the screen at one end, as a grid does.
void Browse(benchmark::State& state, TSQLTable& table, TStart start) {
  for (auto _ : state) {
    table.Open();
    if (start == TStart::Last) table.Last();
    ReadScreen(table, start == TStart::Last ? -1 : 1);
    table.Close();
  }
}

void Peer(benchmark::State& state, int64_t rows, const QString& sql) {
  TBench& bench = Bench(rows);
  for (auto _ : state) ReadPeer(bench.peer, sql);
}

// The model runs the statement and fetches as far as the screen's rows, or all of them
// for the last screen, then gives the screen's values as a table view asks for them.
void Model(benchmark::State& state, int64_t rows, TStart start) {
  TBench& bench = Bench(rows);
  for (auto _ : state) {
    QSqlQueryModel model;
    model.setQuery(QStringLiteral("SELECT * FROM orders ORDER BY id"), bench.peer);
    if (start == TStart::Last)
      while (model.canFetchMore()) model.fetchMore();
    const int first = start == TStart::Last ? std::max(0, model.rowCount() - kScreen) : 0;
    for (int row = first; row < std::min(first + kScreen, model.rowCount()); ++row)
      for (int column = 0; column < model.columnCount(); ++column)
        benchmark::DoNotOptimize(model.data(model.index(row, column)));
  }
}

// The hundred million only on request, and only where it fits.
bool Skipped(benchmark::State& state, int64_t rows) {
  if (rows != kHugeRows || QFile::exists(bench::OrdersDatabasePath(rows))) return false;
  const QStorageInfo storage(QCoreApplication::applicationDirPath());
  if (storage.bytesAvailable() >= kHugeBytes) return false;
  static std::string message;
  message = QStringLiteral("a hundred million rows need %1 GB free beside the program, %2 GB are")
                .arg(kHugeBytes >> 30)
                .arg(storage.bytesAvailable() >> 30)
                .toStdString();
  state.SkipWithError(message.c_str());
  return true;
}

const QString kScreenLimit = QStringLiteral(" LIMIT %1").arg(kScreen);

void FirstScreenQuil(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  TOrders orders(Bench(state.range(0)));
  Browse(state, orders.table, TStart::First);
}

void FirstScreenPeer(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  Peer(state, state.range(0), QStringLiteral("SELECT * FROM orders ORDER BY id") + kScreenLimit);
}

void FirstScreenModel(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  Model(state, state.range(0), TStart::First);
}

void LastScreenQuil(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  TOrders orders(Bench(state.range(0)));
  Browse(state, orders.table, TStart::Last);
}

void LastScreenPeer(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  Peer(state, state.range(0), QStringLiteral("SELECT * FROM orders ORDER BY id DESC") + kScreenLimit);
}

void LastScreenModel(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  // The model keeps every row it fetched: about 50 bytes a value, 4.5 GB for ten million.
  if (state.range(0) > 10 * kMillion) {
    state.SkipWithError("the model would hold every row of the table in memory");
    return;
  }
  Model(state, state.range(0), TStart::Last);
}

void OrderUnindexedQuil(benchmark::State& state) {
  TOrders orders(Bench(bench::LargeRows()));
  TSQLTable* table = &orders.table;
  table->SetIndexFieldNames(QStringLiteral("amount"));
  Browse(state, *table, TStart::First);
}

void OrderUnindexedPeer(benchmark::State& state) {
  Peer(state, bench::LargeRows(), QStringLiteral("SELECT * FROM orders ORDER BY amount, id") + kScreenLimit);
}

void FilterLikeQuil(benchmark::State& state) {
  TOrders orders(Bench(bench::LargeRows()));
  TSQLTable* table = &orders.table;
  table->SetFilter(QStringLiteral("notes LIKE '%express%'"));
  table->SetFiltered(true);
  Browse(state, *table, TStart::First);
}

void FilterLikePeer(benchmark::State& state) {
  Peer(state, bench::LargeRows(),
       QStringLiteral("SELECT * FROM orders WHERE notes GLOB '*express*' ORDER BY id") + kScreenLimit);
}

void RecordCountQuil(benchmark::State& state) {
  TOrders orders(Bench(bench::LargeRows()));
  TSQLTable* table = &orders.table;
  table->SetFilter(QStringLiteral("status = 'Returned'"));
  table->SetFiltered(true);
  for (auto _ : state) {
    table->Open();
    benchmark::DoNotOptimize(table->RecordCount());
    table->Close();
  }
}

void RecordCountPeer(benchmark::State& state) {
  Peer(state, bench::LargeRows(), QStringLiteral("SELECT count(*) FROM orders WHERE status = 'Returned'"));
}

// Both ends at each size: the screens must cost the same whatever the table's size.
void Sizes(benchmark::internal::Benchmark* registered) {
  registered->Arg(kSmallRows)->Arg(kMillion);
  if (bench::LargeRows() > kMillion) registered->Arg(bench::LargeRows());
  if (qEnvironmentVariableIsSet("QUIL_BENCH_HUGE")) registered->Arg(kHugeRows);
  registered->Unit(benchmark::kMicrosecond);
}

// The ratios beyond quil/peer, for every size that may run; those not measured print none.
bool AskRatios() {
  for (const int64_t rows : {kSmallRows, kMillion, 10 * kMillion, kHugeRows}) {
    const std::string size = '/' + std::to_string(rows);
    bench::AddRatio({"first_screen" + size, "model/LIMIT", "first_screen/model" + size, "first_screen/peer" + size});
    bench::AddRatio({"last_screen" + size, "quil/model", "last_screen/quil" + size, "last_screen/model" + size});
    if (rows == kSmallRows) continue;
    for (const char* screen : {"first_screen/quil", "first_screen/model", "last_screen/quil", "last_screen/model"})
      bench::AddRatio({screen + size, std::to_string(rows / kMillion) + "m/1k", screen + size,
                       screen + ('/' + std::to_string(kSmallRows))});
  }
  return true;
}
const bool kRatiosAsked = AskRatios();

}  // namespace

BENCHMARK(FirstScreenQuil)->Name("first_screen/quil")->Apply(Sizes);
BENCHMARK(FirstScreenPeer)->Name("first_screen/peer")->Apply(Sizes);
BENCHMARK(FirstScreenModel)->Name("first_screen/model")->Apply(Sizes);
BENCHMARK(LastScreenQuil)->Name("last_screen/quil")->Apply(Sizes);
BENCHMARK(LastScreenPeer)->Name("last_screen/peer")->Apply(Sizes);
BENCHMARK(LastScreenModel)->Name("last_screen/model")->Apply(Sizes);
BENCHMARK(OrderUnindexedQuil)->Name("order_unindexed/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(OrderUnindexedPeer)->Name("order_unindexed/peer")->Unit(benchmark::kMillisecond);
// A fifth of a millisecond each: repeated, so that a stray busy moment does not decide.
BENCHMARK(FilterLikeQuil)->Name("filter_like/quil")->Unit(benchmark::kMicrosecond)->Repetitions(5);
BENCHMARK(FilterLikePeer)->Name("filter_like/peer")->Unit(benchmark::kMicrosecond)->Repetitions(5);
BENCHMARK(RecordCountQuil)->Name("record_count/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(RecordCountPeer)->Name("record_count/peer")->Unit(benchmark::kMillisecond);
