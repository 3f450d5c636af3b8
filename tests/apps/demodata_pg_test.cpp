#include <gtest/gtest.h>

#include <QDateTime>
#include <QVariant>

#include "DemoDatabase.h"
#include "PgTestServer.h"

// The generator loads PostgreSQL with the same rows it writes to SQLite.
TEST(DemoDatabasePostgres, LoadsTheSameRowsAsSqlite) {
  demo::GenerateOptions options;
  options.orders = 300;
  options.ordersWithLines = 300;
  {
    QSqlDatabase pg = OpenTestPostgres("pgdemo", "demo_gen");
    ASSERT_TRUE(pg.isOpen());
    QSqlDatabase lite = QSqlDatabase::addDatabase("QSQLITE", "litedemo");
    lite.setDatabaseName(":memory:");
    ASSERT_TRUE(lite.open());
    demo::GenerateDemoDatabase("pgdemo", options);
    demo::GenerateDemoDatabase("litedemo", options);
    for (const char* sql : {"SELECT COUNT(*) FROM orders", "SELECT COUNT(*) FROM order_lines",
                            "SELECT COUNT(parent_id) FROM orders", "SELECT SUM(quantity) FROM order_lines",
                            "SELECT COUNT(*) FROM orders WHERE paid", "SELECT MAX(customer_id) FROM orders"}) {
      QSqlQuery onPg(pg), onLite(lite);
      ASSERT_TRUE(onPg.exec(sql) && onPg.next()) << sql;
      ASSERT_TRUE(onLite.exec(sql) && onLite.next()) << sql;
      EXPECT_EQ(onPg.value(0).toLongLong(), onLite.value(0).toLongLong()) << sql;
    }
    QSqlQuery dates(pg);
    ASSERT_TRUE(dates.exec("SELECT MIN(order_date), MAX(order_date) FROM orders") && dates.next());
    EXPECT_EQ(dates.value(0).toDateTime().date().year(), 2019);
    EXPECT_EQ(dates.value(1).toDateTime().date().year(), 2026);
    pg.close();
    lite.close();
  }
  QSqlDatabase::removeDatabase("pgdemo");
  QSqlDatabase::removeDatabase("litedemo");
}
