// Browsing a generated orders table through TSQLTable against the database running the
// same statement alone through QSqlQuery. One million orders by default; set
// QUIL_BENCH_LARGE=1 for ten million. The generated SQLite files are kept beside the
// program in the build folder and reused by later runs.
//
//   first_screen/{quil,peer}/<rows>  open and read the first screen (peer: LIMIT)
//   last_screen/{quil,peer}          jump to the last record and read the screen above it
//   order_unindexed/{quil,peer}      order by amount, which has no index
//   filter_like/{quil,peer}          a LIKE filter on the notes
//   record_count/{quil,peer}         RecordCount of the filtered table (peer: count(*))

#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <benchmark/benchmark.h>
#include <map>
#include <memory>
#include <stdexcept>

#include "DemoDatabase.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/db/SqlTable.h"

using namespace quil;

namespace {

constexpr int kScreen = 40;
constexpr int64_t kSmallRows = 1000;

int64_t LargeRows() { return qEnvironmentVariableIsSet("QUIL_BENCH_LARGE") ? 10000000 : 1000000; }

QString DatabaseFile(int64_t rows) {
  const QString path = QCoreApplication::applicationDirPath() + QStringLiteral("/sql_browse_%1.sqlite").arg(rows);
  if (QFile::exists(path)) return path;
  const QString partial = path + QStringLiteral(".partial");
  QFile::remove(partial);
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("generate"));
    db.setDatabaseName(partial);
    if (!db.open()) throw std::runtime_error("cannot create the bench database");
    demo::GenerateOptions options;
    options.orders = rows;
    options.ordersWithLines = 1000;
    demo::GenerateDemoDatabase(QStringLiteral("generate"), options);
    db.close();
  }
  QSqlDatabase::removeDatabase(QStringLiteral("generate"));
  QFile::rename(partial, path);
  return path;
}

// One connection for the data set and one for the peer, on the same file.
struct TBench {
  explicit TBench(int64_t rows) : file(DatabaseFile(rows)) {
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

std::unique_ptr<TSQLTable> Orders(TBench& bench) {
  auto table = std::make_unique<TSQLTable>(nullptr);
  table->SetConnection(&bench.connection);
  table->SetTableName(QStringLiteral("orders"));
  table->SetFetchSize(kScreen);
  return table;
}

// Reads every field of a screen of records, moving by `step`, as a grid paints them; it
// stops on the screen's last record, as the grid's window does.
void ReadScreen(TDataSet& dataSet, int step) {
  for (int row = 0; row < kScreen; ++row) {
    for (TField* field : *dataSet.Fields()) benchmark::DoNotOptimize(field->AsString());
    if (row + 1 < kScreen && dataSet.MoveBy(step) == 0) break;
  }
}

void ReadPeer(QSqlDatabase& db, const QString& sql) {
  QSqlQuery query(db);
  query.setForwardOnly(true);
  if (!query.exec(sql)) throw std::runtime_error("the peer statement failed");
  const int columns = query.record().count();
  while (query.next())
    for (int column = 0; column < columns; ++column) benchmark::DoNotOptimize(query.value(column).toString());
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

const QString kScreenLimit = QStringLiteral(" LIMIT %1").arg(kScreen);

void FirstScreenQuil(benchmark::State& state) { Browse(state, *Orders(Bench(state.range(0))), TStart::First); }

void FirstScreenPeer(benchmark::State& state) {
  Peer(state, state.range(0), QStringLiteral("SELECT * FROM orders ORDER BY id") + kScreenLimit);
}

void LastScreenQuil(benchmark::State& state) { Browse(state, *Orders(Bench(LargeRows())), TStart::Last); }

void LastScreenPeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT * FROM orders ORDER BY id DESC") + kScreenLimit);
}

void OrderUnindexedQuil(benchmark::State& state) {
  auto table = Orders(Bench(LargeRows()));
  table->SetIndexFieldNames(QStringLiteral("amount"));
  Browse(state, *table, TStart::First);
}

void OrderUnindexedPeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT * FROM orders ORDER BY amount") + kScreenLimit);
}

void FilterLikeQuil(benchmark::State& state) {
  auto table = Orders(Bench(LargeRows()));
  table->SetFilter(QStringLiteral("notes LIKE '%express%'"));
  table->SetFiltered(true);
  Browse(state, *table, TStart::First);
}

void FilterLikePeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT * FROM orders WHERE notes LIKE '%express%' ORDER BY id") + kScreenLimit);
}

void RecordCountQuil(benchmark::State& state) {
  auto table = Orders(Bench(LargeRows()));
  table->SetFilter(QStringLiteral("status = 'Returned'"));
  table->SetFiltered(true);
  for (auto _ : state) {
    table->Open();
    benchmark::DoNotOptimize(table->RecordCount());
    table->Close();
  }
}

void RecordCountPeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT count(*) FROM orders WHERE status = 'Returned'"));
}

}  // namespace

BENCHMARK(FirstScreenQuil)->Name("first_screen/quil")->Arg(kSmallRows)->Arg(LargeRows())->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstScreenPeer)->Name("first_screen/peer")->Arg(kSmallRows)->Arg(LargeRows())->Unit(benchmark::kMicrosecond);
BENCHMARK(LastScreenQuil)->Name("last_screen/quil")->Unit(benchmark::kMicrosecond);
BENCHMARK(LastScreenPeer)->Name("last_screen/peer")->Unit(benchmark::kMicrosecond);
BENCHMARK(OrderUnindexedQuil)->Name("order_unindexed/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(OrderUnindexedPeer)->Name("order_unindexed/peer")->Unit(benchmark::kMillisecond);
BENCHMARK(FilterLikeQuil)->Name("filter_like/quil")->Unit(benchmark::kMicrosecond);
BENCHMARK(FilterLikePeer)->Name("filter_like/peer")->Unit(benchmark::kMicrosecond);
BENCHMARK(RecordCountQuil)->Name("record_count/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(RecordCountPeer)->Name("record_count/peer")->Unit(benchmark::kMillisecond);
