#include "BenchDatabase.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <cstdio>
#include <stdexcept>

#include "DemoDatabase.h"

namespace quil::bench {
namespace {

void Exec(QSqlDatabase& db, const QString& sql) {
  QSqlQuery query(db);
  if (!query.exec(sql)) throw std::runtime_error(("cannot " + sql).toStdString());
}

// The million's orders copied with shifted keys, by SQLite itself, without the secondary
// indexes that browsing does not use.
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

void Generate(const QString& file, const demo::GenerateOptions& options) {
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("generate"));
    db.setDatabaseName(file);
    if (!db.open()) throw std::runtime_error("cannot create the bench database");
    demo::GenerateDemoDatabase(QStringLiteral("generate"), options);
    db.close();
  }
  QSqlDatabase::removeDatabase(QStringLiteral("generate"));
}

// Makes the file under a partial name first, so that an interrupted run leaves nothing
// that a later run would take for finished.
template <typename Make>
QString Made(const QString& path, int64_t rows, Make make) {
  if (QFile::exists(path)) return path;
  const QString partial = path + QStringLiteral(".partial");
  QFile::remove(partial);
  std::fprintf(stderr, "generating %lld orders into %s (once)\n", static_cast<long long>(rows), qPrintable(path));
  make(partial);
  QFile::rename(partial, path);
  return path;
}

}  // namespace

int64_t LargeRows() { return qEnvironmentVariableIsSet("QUIL_BENCH_LARGE") ? 10 * kMillion : kMillion; }

QString OrdersDatabasePath(int64_t rows) {
  return QCoreApplication::applicationDirPath() + QStringLiteral("/sql_browse_%1.sqlite").arg(rows);
}

QString OrdersDatabase(int64_t rows) {
  return Made(OrdersDatabasePath(rows), rows, [rows](const QString& partial) {
    if (rows > kMillion) {
      const QString million = OrdersDatabase(kMillion);
      QFile::copy(million, partial);
      MultiplyOrders(partial, million, rows);
      return;
    }
    demo::GenerateOptions options;
    options.orders = rows;
    options.ordersWithLines = 1000;
    Generate(partial, options);
  });
}

QString DemoDatabase() {
  const demo::GenerateOptions options;
  return Made(QCoreApplication::applicationDirPath() + QStringLiteral("/demo.sqlite"), options.orders,
              [&](const QString& partial) { Generate(partial, options); });
}

}  // namespace quil::bench
