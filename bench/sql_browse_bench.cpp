// Browsing a generated orders table through TSQLTable against the database running the
// same statement alone through QSqlQuery. One million orders by default; set
// QUIL_BENCH_LARGE=1 for ten million, and QUIL_BENCH_HUGE=1 to add the first and last
// screens of a hundred million (about 8 GB on disk). The million is generated as the
// demo's database is; the larger tables copy its orders. The SQLite files are kept
// beside the program in the build folder and reused by later runs.
//
//   first_screen/{quil,peer}/<rows>  open and read the first screen (peer: LIMIT)
//   last_screen/{quil,peer}/<rows>   open, jump to the last record and read the screen
//                                    above it (peer: the order reversed, LIMIT)
//   order_unindexed/{quil,peer}      order by amount, which has no index
//   filter_like/{quil,peer}          a LIKE filter on the notes
//   record_count/{quil,peer}         RecordCount of the filtered table (peer: count(*))
//
// Each peer gives the same rows as the data set: its order ends with the key, as the data
// set's does to make it total, and a case-sensitive LIKE is SQLite's GLOB, since the
// database's LIKE ignores case.

#include <QCoreApplication>
#include <QFile>
#include <QStorageInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "DemoDatabase.h"
#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/Fields.h"
#include "framework/db/SqlTable.h"

using namespace quil;

namespace {

constexpr int kScreen = 40;
constexpr int64_t kSmallRows = 1000;

constexpr int64_t kMillion = 1000000;
constexpr int64_t kHugeRows = 100 * kMillion;
constexpr int64_t kHugeBytes = 20LL * 1024 * 1024 * 1024;  // the file, its journal and room to spare

int64_t LargeRows() { return qEnvironmentVariableIsSet("QUIL_BENCH_LARGE") ? 10 * kMillion : kMillion; }

QString PathFor(int64_t rows) {
  return QCoreApplication::applicationDirPath() + QStringLiteral("/sql_browse_%1.sqlite").arg(rows);
}

void Exec(QSqlDatabase& db, const QString& sql) {
  QSqlQuery query(db);
  if (!query.exec(sql)) throw std::runtime_error(("cannot " + sql).toStdString());
}

// Ten or a hundred million: the million's orders copied with shifted keys, by SQLite
// itself, without the secondary indexes that browsing does not use.
void MultiplyOrders(const QString& file, const QString& source, int64_t rows) {
  QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("multiply"));
  db.setDatabaseName(file);
  if (!db.open()) throw std::runtime_error("cannot open the copy of the bench database");
  Exec(db, QStringLiteral("PRAGMA journal_mode = OFF"));
  Exec(db, QStringLiteral("PRAGMA synchronous = OFF"));
  Exec(db, QStringLiteral("DROP INDEX IF EXISTS orders_customer"));
  Exec(db, QStringLiteral("DROP INDEX IF EXISTS orders_parent"));
  Exec(db, QStringLiteral("ATTACH DATABASE '%1' AS source").arg(source));
  for (int64_t copy = 1; copy < rows / kMillion; ++copy) {
    const int64_t shift = copy * kMillion;
    Exec(db, QStringLiteral("INSERT INTO orders SELECT id + %1, customer_id, parent_id + %1, order_date, ship_date, "
                            "status, paid, amount, notes FROM source.orders")
                 .arg(shift));
  }
  db.close();
  db = QSqlDatabase();
  QSqlDatabase::removeDatabase(QStringLiteral("multiply"));
}

QString DatabaseFile(int64_t rows) {
  const QString path = PathFor(rows);
  if (QFile::exists(path)) return path;
  const QString partial = path + QStringLiteral(".partial");
  QFile::remove(partial);
  std::fprintf(stderr, "generating %lld orders into %s (once)\n", static_cast<long long>(rows), qPrintable(path));
  if (rows > kMillion) {
    const QString million = DatabaseFile(kMillion);
    QFile::copy(million, partial);
    MultiplyOrders(partial, million, rows);
    QFile::rename(partial, path);
    return path;
  }
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

// The hundred million only on request, and only where it fits.
bool Skipped(benchmark::State& state, int64_t rows) {
  if (rows != kHugeRows || QFile::exists(PathFor(rows))) return false;
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

void LastScreenQuil(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  TOrders orders(Bench(state.range(0)));
  Browse(state, orders.table, TStart::Last);
}

void LastScreenPeer(benchmark::State& state) {
  if (Skipped(state, state.range(0))) return;
  Peer(state, state.range(0), QStringLiteral("SELECT * FROM orders ORDER BY id DESC") + kScreenLimit);
}

void OrderUnindexedQuil(benchmark::State& state) {
  TOrders orders(Bench(LargeRows()));
  TSQLTable* table = &orders.table;
  table->SetIndexFieldNames(QStringLiteral("amount"));
  Browse(state, *table, TStart::First);
}

void OrderUnindexedPeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT * FROM orders ORDER BY amount, id") + kScreenLimit);
}

void FilterLikeQuil(benchmark::State& state) {
  TOrders orders(Bench(LargeRows()));
  TSQLTable* table = &orders.table;
  table->SetFilter(QStringLiteral("notes LIKE '%express%'"));
  table->SetFiltered(true);
  Browse(state, *table, TStart::First);
}

void FilterLikePeer(benchmark::State& state) {
  Peer(state, LargeRows(), QStringLiteral("SELECT * FROM orders WHERE notes GLOB '*express*' ORDER BY id") + kScreenLimit);
}

void RecordCountQuil(benchmark::State& state) {
  TOrders orders(Bench(LargeRows()));
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
  Peer(state, LargeRows(), QStringLiteral("SELECT count(*) FROM orders WHERE status = 'Returned'"));
}

// Both ends at each size: the screens must cost the same whatever the table's size.
void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Arg(kSmallRows)->Arg(LargeRows());
  if (qEnvironmentVariableIsSet("QUIL_BENCH_HUGE")) bench->Arg(kHugeRows);
  bench->Unit(benchmark::kMicrosecond);
}

}  // namespace

BENCHMARK(FirstScreenQuil)->Name("first_screen/quil")->Apply(Sizes);
BENCHMARK(FirstScreenPeer)->Name("first_screen/peer")->Apply(Sizes);
BENCHMARK(LastScreenQuil)->Name("last_screen/quil")->Apply(Sizes);
BENCHMARK(LastScreenPeer)->Name("last_screen/peer")->Apply(Sizes);
BENCHMARK(OrderUnindexedQuil)->Name("order_unindexed/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(OrderUnindexedPeer)->Name("order_unindexed/peer")->Unit(benchmark::kMillisecond);
BENCHMARK(FilterLikeQuil)->Name("filter_like/quil")->Unit(benchmark::kMicrosecond);
BENCHMARK(FilterLikePeer)->Name("filter_like/peer")->Unit(benchmark::kMicrosecond);
BENCHMARK(RecordCountQuil)->Name("record_count/quil")->Unit(benchmark::kMillisecond);
BENCHMARK(RecordCountPeer)->Name("record_count/peer")->Unit(benchmark::kMillisecond);
