#include <gtest/gtest.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

#include "DemoDatabase.h"
#include "QtPrinters.h"

namespace {

class DemoDatabaseTest : public ::testing::Test {
protected:
  QString Open(const QString& name) {
    QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", name);
    db.setDatabaseName(":memory:");
    EXPECT_TRUE(db.open());
    names_ << name;
    return name;
  }
  void TearDown() override {
    for (const QString& name : names_) {
      QSqlDatabase::database(name).close();
      QSqlDatabase::removeDatabase(name);
    }
  }
  static qint64 Scalar(const QString& connection, const QString& sql) {
    QSqlQuery query(QSqlDatabase::database(connection));
    EXPECT_TRUE(query.exec(sql) && query.next()) << sql.toStdString();
    return query.value(0).toLongLong();
  }
  QStringList names_;
};

demo::GenerateOptions Small(uint64_t seed) {
  demo::GenerateOptions options;
  options.orders = 600;
  options.ordersWithLines = 400;
  options.seed = seed;
  return options;
}

}  // namespace

TEST_F(DemoDatabaseTest, SameSeedGivesTheSameContent) {
  const QString first = Open("gen1"), second = Open("gen2"), other = Open("gen3");
  demo::GenerateDemoDatabase(first, Small(7));
  demo::GenerateDemoDatabase(second, Small(7));
  demo::GenerateDemoDatabase(other, Small(8));
  EXPECT_EQ(demo::DemoDatabaseChecksum(first), demo::DemoDatabaseChecksum(second));
  EXPECT_NE(demo::DemoDatabaseChecksum(first), demo::DemoDatabaseChecksum(other));
}

TEST_F(DemoDatabaseTest, RegeneratingReplacesTheTables) {
  const QString db = Open("regen");
  demo::GenerateDemoDatabase(db, Small(7));
  const QString digest = demo::DemoDatabaseChecksum(db);
  demo::GenerateDemoDatabase(db, Small(7));
  EXPECT_EQ(demo::DemoDatabaseChecksum(db), digest);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders"), 600);
}

TEST_F(DemoDatabaseTest, RowsHangTogether) {
  const QString db = Open("links");
  demo::GenerateDemoDatabase(db, Small(11));
  // Every order names a customer, every line an order and a product.
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders o LEFT JOIN customers c ON c.id = o.customer_id "
                       "WHERE c.id IS NULL"), 0);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM order_lines l LEFT JOIN products p ON p.id = l.product_id "
                       "WHERE p.id IS NULL"), 0);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(DISTINCT order_id) FROM order_lines"), 400);
  // A follow-up is a child of an earlier order of the same customer.
  EXPECT_GT(Scalar(db, "SELECT COUNT(*) FROM orders WHERE parent_id IS NOT NULL"), 0);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders o JOIN orders p ON p.id = o.parent_id "
                       "WHERE p.customer_id <> o.customer_id OR p.id >= o.id"), 0);
  // An order's amount is the sum of its lines, to the cent.
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders o WHERE o.id <= 400 AND ABS(o.amount - "
                       "(SELECT SUM(CAST(quantity * unit_price * 100 * (1 - discount) AS INTEGER)) / 100.0 "
                       "FROM order_lines WHERE order_id = o.id)) > 0.011 * "
                       "(SELECT COUNT(*) FROM order_lines WHERE order_id = o.id)"), 0);
  // Dates are text that SQLite's date functions read, in date order with the ids.
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders WHERE datetime(order_date) IS NULL"), 0);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM orders a JOIN orders b ON b.id = a.id + 1 "
                       "WHERE b.order_date < date(a.order_date, '-1 day')"), 0);
  EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM products WHERE length(picture) < 100"), 0);
}
