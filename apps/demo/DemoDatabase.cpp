#include "DemoDatabase.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDateTime>
#include <QImage>
#include <QPainter>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QVariant>
#include <stdexcept>

#include "DemoNames.h"

namespace demo {
namespace {

// SplitMix64: tiny, fast and the same everywhere, unlike the standard distributions.
class Random {
public:
  explicit Random(uint64_t seed) : state_(seed) {}
  uint64_t Next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  int Below(int bound) { return int(Next() % uint64_t(bound)); }
  int Between(int low, int high) { return low + Below(high - low + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename List>
  const auto& Pick(const List& list) { return list[Below(int(std::size(list)))]; }

private:
  uint64_t state_;
};

[[noreturn]] void Fail(const QSqlQuery& query, const char* what) {
  throw std::runtime_error(std::string(what) + ": " + query.lastError().text().toStdString());
}

void Exec(QSqlDatabase& db, const QString& sql) {
  QSqlQuery query(db);
  if (!query.exec(sql)) Fail(query, sql.toUtf8().constData());
}

class Writer {
public:
  Writer(QSqlDatabase db, const GenerateOptions& options)
      : db_(std::move(db)), options_(options), random_(options.seed),
        postgres_(db_.driverName().startsWith(QLatin1String("QPSQL"))) {}

  void Run() {
    CreateTables();
    Transaction([&] { WriteCustomers(); });
    Transaction([&] { WriteProducts(); });
    WriteOrders();
    CreateIndexes();
  }

private:
  static constexpr int kCustomers = 1500;
  static constexpr int kProducts = 240;

  template <typename Body>
  void Transaction(Body body) {
    db_.transaction();
    body();
    if (!db_.commit()) throw std::runtime_error(db_.lastError().text().toStdString());
  }

  QString Blob() const { return postgres_ ? QStringLiteral("BYTEA") : QStringLiteral("BLOB"); }

  void CreateTables() {
    for (const char* table : {"order_lines", "orders", "products", "customers"})
      Exec(db_, QStringLiteral("DROP TABLE IF EXISTS %1").arg(QLatin1String(table)));
    Exec(db_, "CREATE TABLE customers (id INTEGER PRIMARY KEY, name VARCHAR(60) NOT NULL, "
              "city VARCHAR(40), country VARCHAR(40), email VARCHAR(80), phone VARCHAR(30), "
              "since DATE, vip BOOLEAN, credit_limit NUMERIC(12,2), notes TEXT)");
    Exec(db_, QStringLiteral("CREATE TABLE products (id INTEGER PRIMARY KEY, name VARCHAR(60) NOT NULL, "
                             "category VARCHAR(30), unit_price NUMERIC(10,2), in_stock BOOLEAN, "
                             "picture %1)").arg(Blob()));
    Exec(db_, "CREATE TABLE orders (id INTEGER PRIMARY KEY, customer_id INTEGER NOT NULL, "
              "parent_id INTEGER, order_date TIMESTAMP, ship_date DATE, status VARCHAR(12), "
              "paid BOOLEAN, amount NUMERIC(12,2), notes TEXT)");
    Exec(db_, "CREATE TABLE order_lines (id INTEGER PRIMARY KEY, order_id INTEGER NOT NULL, "
              "product_id INTEGER NOT NULL, quantity INTEGER, unit_price NUMERIC(10,2), "
              "discount NUMERIC(4,2))");
  }

  void CreateIndexes() {
    Exec(db_, "CREATE INDEX orders_customer ON orders (customer_id)");
    Exec(db_, "CREATE INDEX orders_parent ON orders (parent_id)");
    Exec(db_, "CREATE INDEX order_lines_order ON order_lines (order_id)");
  }

  // Dates bind as text on SQLite, so that its date functions and a reader see
  // "2024-03-05 14:30:00" rather than an ISO form with a 'T'.
  QVariant DateValue(const QDate& date) const {
    return postgres_ ? QVariant(date) : QVariant(date.toString(Qt::ISODate));
  }
  QVariant DateTimeValue(const QDateTime& moment) const {
    return postgres_ ? QVariant(moment) : QVariant(moment.toString("yyyy-MM-dd HH:mm:ss"));
  }

  QSqlQuery Prepare(const QString& sql) {
    QSqlQuery query(db_);
    if (!query.prepare(sql)) Fail(query, "prepare");
    return query;
  }

  static void Run(QSqlQuery& query) {
    if (!query.exec()) Fail(query, "insert");
  }

  void WriteCustomers() {
    QSqlQuery query = Prepare("INSERT INTO customers VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (int id = 1; id <= kCustomers; ++id) {
      const QString first = random_.Pick(kFirstNames), last = random_.Pick(kLastNames);
      const City& city = random_.Pick(kCities);
      query.bindValue(0, id);
      query.bindValue(1, first + ' ' + last);
      query.bindValue(2, city.name);
      query.bindValue(3, city.country);
      query.bindValue(4, QStringLiteral("%1.%2@%3").arg(first.toLower(), last.toLower(), random_.Pick(kMailHosts)));
      query.bindValue(5, QStringLiteral("+%1 %2 %3").arg(random_.Between(1, 99)).arg(random_.Between(100, 999))
                             .arg(random_.Between(100000, 999999)));
      query.bindValue(6, DateValue(QDate(2012, 1, 1).addDays(random_.Below(365 * 8))));
      query.bindValue(7, random_.Chance(12));
      query.bindValue(8, random_.Between(10, 500) * 100.0);
      query.bindValue(9, random_.Chance(30) ? QVariant(random_.Pick(kCustomerNotes)) : QVariant(QString()));
      Run(query);
    }
  }

  static QByteArray Picture(int id, uint64_t bits) {
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor color = QColor::fromHsv(int(bits % 360), 150 + int(bits >> 9) % 100, 200);
    painter.setBrush(color);
    painter.setPen(color.darker(150));
    switch (id % 3) {
      case 0: painter.drawEllipse(3, 3, 26, 26); break;
      case 1: painter.drawRoundedRect(4, 4, 24, 24, 5, 5); break;
      default: painter.drawPolygon(QPolygon({QPoint(16, 2), QPoint(30, 29), QPoint(2, 29)})); break;
    }
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
  }

  void WriteProducts() {
    QSqlQuery query = Prepare("INSERT INTO products VALUES (?, ?, ?, ?, ?, ?)");
    for (int id = 1; id <= kProducts; ++id) {
      const Product& kind = random_.Pick(kProductKinds);
      query.bindValue(0, id);
      query.bindValue(1, QStringLiteral("%1 %2").arg(random_.Pick(kProductAdjectives), kind.noun));
      query.bindValue(2, kind.category);
      const int cents = random_.Between(kind.minPrice * 100, kind.maxPrice * 100);
      prices_.push_back(cents);
      query.bindValue(3, cents / 100.0);
      query.bindValue(4, random_.Chance(85));
      query.bindValue(5, Picture(id, random_.Next()));
      Run(query);
    }
  }

  void WriteOrders() {
    QSqlQuery orders = Prepare("INSERT INTO orders VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    QSqlQuery lines = Prepare("INSERT INTO order_lines VALUES (?, ?, ?, ?, ?, ?)");
    std::vector<int64_t> lastOrderOf(kCustomers + 1, 0);
    const QDateTime start(QDate(2019, 1, 1), QTime(8, 0));
    const int64_t span = int64_t(QDate(2019, 1, 1).daysTo(QDate(2026, 10, 31))) * 24 * 3600;
    int64_t lineId = 0;
    constexpr int64_t kBatch = 20000;
    for (int64_t first = 1; first <= options_.orders; first += kBatch) {
      Transaction([&] {
        const int64_t last = std::min(options_.orders, first + kBatch - 1);
        for (int64_t id = first; id <= last; ++id) {
          // Orders come in date order, as an order book does.
          const QDateTime when = start.addSecs(span * (id - 1) / std::max<int64_t>(options_.orders, 1) +
                                               random_.Below(3600));
          const int customer = random_.Between(1, kCustomers);
          const bool followUp = lastOrderOf[customer] != 0 && random_.Chance(20);
          int64_t cents = 0;
          if (id <= options_.ordersWithLines) cents = WriteLines(lines, id, lineId);
          else cents = random_.Between(500, 250000);
          orders.bindValue(0, qlonglong(id));
          orders.bindValue(1, customer);
          orders.bindValue(2, followUp ? QVariant(qlonglong(lastOrderOf[customer])) : QVariant(QMetaType(QMetaType::LongLong)));
          orders.bindValue(3, DateTimeValue(when));
          const QString status = random_.Pick(kStatuses);
          orders.bindValue(4, status == QLatin1String("New") ? QVariant(QMetaType(QMetaType::QString))
                                                             : DateValue(when.date().addDays(random_.Between(1, 12))));
          orders.bindValue(5, status);
          orders.bindValue(6, status != QLatin1String("New") && random_.Chance(90));
          orders.bindValue(7, cents / 100.0);
          orders.bindValue(8, random_.Chance(15) ? QVariant(random_.Pick(kOrderNotes)) : QVariant(QString()));
          Run(orders);
          lastOrderOf[customer] = id;
        }
      });
    }
  }

  // Writes one to five lines of the order and returns their total in cents.
  int64_t WriteLines(QSqlQuery& query, int64_t orderId, int64_t& lineId) {
    int64_t total = 0;
    const int count = random_.Between(1, 5);
    for (int line = 0; line < count; ++line) {
      const int product = random_.Between(1, kProducts);
      const int quantity = random_.Between(1, 12);
      const int discount = random_.Chance(25) ? random_.Pick(kDiscounts) : 0;
      const int64_t price = prices_[size_t(product - 1)];
      total += price * quantity * (100 - discount) / 100;
      query.bindValue(0, qlonglong(++lineId));
      query.bindValue(1, qlonglong(orderId));
      query.bindValue(2, product);
      query.bindValue(3, quantity);
      query.bindValue(4, price / 100.0);
      query.bindValue(5, discount / 100.0);
      Run(query);
    }
    return total;
  }

  QSqlDatabase db_;
  GenerateOptions options_;
  Random random_;
  bool postgres_;
  std::vector<int64_t> prices_;
};

}  // namespace

void GenerateDemoDatabase(const QString& connectionName, const GenerateOptions& options) {
  QSqlDatabase db = QSqlDatabase::database(connectionName);
  if (!db.isOpen()) throw std::runtime_error("the demo database is not open");
  Writer(db, options).Run();
}

QString DemoDatabaseChecksum(const QString& connectionName) {
  QSqlDatabase db = QSqlDatabase::database(connectionName);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  for (const char* table : {"customers", "products", "orders", "order_lines"}) {
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT * FROM %1 ORDER BY id").arg(QLatin1String(table))))
      Fail(query, table);
    while (query.next()) {
      const QSqlRecord record = query.record();
      for (int column = 0; column < record.count(); ++column) {
        const QVariant value = query.value(column);
        hash.addData(value.metaType().id() == QMetaType::QByteArray ? value.toByteArray()
                                                                    : value.toString().toUtf8());
        hash.addData(QByteArrayView("\x1f", 1));
      }
    }
  }
  return QString::fromLatin1(hash.result().toHex());
}

}  // namespace demo
