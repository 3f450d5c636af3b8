// Statements laid out one clause per line, as applications write them, rewritten by
// ModifyOrderFields and run on SQLite: each must run and order as asked.

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>
#include <algorithm>
#include <vector>

#include "framework/rtl/Strings.h"
#include "order/OrderText.h"

using namespace quil;

namespace {

struct Row {
  int id;
  QString name;
  int age;
  QString city;
};

const std::vector<Row> kRows = {
    {1, "Berg", 40, "Oslo"},  {2, "Adams", 31, "Lima"},  {3, "Cruz", 40, "Lima"},
    {4, "Dahl", 25, "Oslo"},  {5, "Adams", 52, "Kyiv"},  {6, "Eno", 31, "Oslo"},
    {7, "Fox", 25, "Kyiv"},   {8, "Berg", 19, "Lima"}};

class OrderedStatements : public ::testing::Test {
protected:
  void SetUp() override {
    db_ = QSqlDatabase::addDatabase("QSQLITE", "ordersql");
    db_.setDatabaseName(":memory:");
    ASSERT_TRUE(db_.open());
    QSqlQuery query(db_);
    ASSERT_TRUE(query.exec("CREATE TABLE people (id INTEGER PRIMARY KEY, name TEXT, age INTEGER, city TEXT)"));
    for (const Row& row : kRows) {
      query.prepare("INSERT INTO people VALUES (?, ?, ?, ?)");
      query.addBindValue(row.id);
      query.addBindValue(row.name);
      query.addBindValue(row.age);
      query.addBindValue(row.city);
      ASSERT_TRUE(query.exec());
    }
  }
  void TearDown() override {
    db_.close();
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase("ordersql");
  }

  std::vector<int> Run(const TStringList& sql) {
    QSqlQuery query(db_);
    EXPECT_TRUE(query.exec(sql.Text())) << query.lastError().text().toStdString() << "\n"
                                        << sql.Text().toStdString();
    std::vector<int> ids;
    while (query.next()) ids.push_back(query.value(0).toInt());
    return ids;
  }

  // The ids in the order the order-fields text asks, ties broken by id as the
  // statements below do by always ending on "id".
  static std::vector<int> Expected(const QString& order, const std::vector<int>& ids) {
    QString fields, descFields;
    SplitOrderFields(order, fields, descFields);
    const QStringList names = fields.split(';');
    const QStringList desc = descFields.split(';', Qt::SkipEmptyParts);
    std::vector<Row> rows;
    for (int id : ids) rows.push_back(kRows[size_t(id - 1)]);
    std::stable_sort(rows.begin(), rows.end(), [&](const Row& a, const Row& b) {
      for (const QString& name : names) {
        int cmp = 0;
        if (name == "name") cmp = QString::compare(a.name, b.name);
        else if (name == "age") cmp = a.age - b.age;
        else if (name == "city") cmp = QString::compare(a.city, b.city);
        else if (name == "id") cmp = a.id - b.id;
        if (desc.contains(name)) cmp = -cmp;
        if (cmp != 0) return cmp < 0;
      }
      return false;
    });
    std::vector<int> result;
    for (const Row& row : rows) result.push_back(row.id);
    return result;
  }

  QSqlDatabase db_;
};

const QList<QStringList> kStatements = {
    {"SELECT id", "FROM people"},
    {"SELECT id", "FROM people;"},
    {"SELECT id, name", "FROM people", "WHERE age > 20"},
    {"SELECT id", "FROM people", "WHERE city <> 'Kyiv'", ""},
    {"SELECT id", "FROM people", "ORDER BY name"},
    {"select id", "from people", "where age < 50", "order by city desc;"},
    {"SELECT id,", "  name,", "  age", "FROM people", "GROUP BY id, name, age, city", "ORDER BY age, id;  "},
    {"SELECT id FROM people ORDER BY id DESC"},
};

const QStringList kOrders = {"name,id", "age DESC,id", "city,name DESC,id", "id DESC",
                             "city DESC,age,id"};

}  // namespace

TEST_F(OrderedStatements, RewrittenStatementsRunAndOrderAsAsked) {
  int statementsRun = 0;
  for (const QStringList& statement : kStatements) {
    TStringList sql;
    for (const QString& line : statement) sql.Add(line);
    const std::vector<int> unordered = Run(sql);
    ASSERT_FALSE(unordered.empty());
    for (const QString& order : kOrders) {
      ModifyOrderFields(&sql, order);
      EXPECT_EQ(ExtractOrderFields(&sql), order);
      EXPECT_EQ(Run(sql), Expected(order, unordered)) << sql.Text().toStdString();
      ++statementsRun;
    }
    ModifyOrderFields(&sql, "");
    EXPECT_EQ(ExtractOrderFields(&sql), "");
    EXPECT_EQ(Run(sql).size(), unordered.size());
  }
  EXPECT_EQ(statementsRun, int(kStatements.size() * kOrders.size()));
}
