// Statements laid out one clause per line, as applications write them, rewritten by
// ModifyOrderFields and run on SQLite: each must run, return the rows it returned
// before, and return them in the order asked; and it must still run once the clause
// is removed again.

#include <gtest/gtest.h>

#include "QtPrinters.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>

#include "framework/rtl/Strings.h"
#include "order/OrderText.h"

using namespace quil;

namespace {

using Row = QVariantList;

struct Result {
  QSqlRecord columns;
  QList<Row> rows;
};

// NULL sorts first, as SQLite sorts it; numbers by value, texts by code unit.
int CompareValues(const QVariant& a, const QVariant& b) {
  if (a.isNull() || b.isNull()) return int(b.isNull()) - int(a.isNull());
  const auto isNumber = [](const QVariant& v) {
    const int type = v.typeId();
    return type == QMetaType::LongLong || type == QMetaType::Int || type == QMetaType::Double;
  };
  if (isNumber(a) && isNumber(b)) return a.toDouble() < b.toDouble() ? -1 : a.toDouble() > b.toDouble() ? 1 : 0;
  return QString::compare(a.toString(), b.toString());
}

// The result column an order item names: "p.name" is column "name", "\"id\"" is "id".
QString ColumnOf(QString item) {
  item = item.mid(item.lastIndexOf(u'.') + 1);
  item.remove(u'"');
  return item;
}

struct SortKey {
  int column;
  bool descending;
};

std::vector<SortKey> KeysOf(const QString& order, const QSqlRecord& columns) {
  QString fields, descFields;
  SplitOrderFields(order, fields, descFields);
  const QStringList desc = descFields.split(u';', Qt::SkipEmptyParts);
  std::vector<SortKey> keys;
  for (const QString& name : fields.split(u';')) {
    const int column = columns.indexOf(ColumnOf(name));
    EXPECT_GE(column, 0) << "no result column for " << name.toStdString();
    keys.push_back({column, desc.contains(name)});
  }
  return keys;
}

// The first pair of neighbouring rows that the order puts the wrong way round, or -1.
int FirstMisorderedRow(const Result& result, const QString& order) {
  const std::vector<SortKey> keys = KeysOf(order, result.columns);
  for (int rowIndex = 1; rowIndex < result.rows.size(); ++rowIndex) {
    for (const SortKey& key : keys) {
      if (key.column < 0) return rowIndex;
      int cmp = CompareValues(result.rows[rowIndex - 1][key.column], result.rows[rowIndex][key.column]);
      if (key.descending) cmp = -cmp;
      if (cmp < 0) break;
      if (cmp > 0) return rowIndex;
    }
  }
  return -1;
}

QList<Row> Sorted(QList<Row> rows) {
  std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
    for (qsizetype column = 0; column < a.size(); ++column)
      if (const int cmp = CompareValues(a[column], b[column])) return cmp < 0;
    return false;
  });
  return rows;
}

struct Statement {
  QStringList lines;
  QStringList orders;
  // A LIMIT picks other rows under another order; only their number stays.
  bool limited = false;
  // What ExtractOrderFields reads once the outer clause is gone: the functions are
  // line-based, so a sub-select's clause is then the last one in the text.
  const char* leftOver = "";
};

// clang-format off
const QList<Statement> kStatements = {
    {{"SELECT id, name, age, city", "FROM people"}, {"name,id", "age DESC,name", "city DESC,age"}},
    {{"SELECT id, name, age", "FROM people;"}, {"age,name DESC", "name DESC,id"}},
    {{"SELECT id, name, age", "FROM people", "WHERE age > 20"}, {"age DESC,id", "name"}},
    {{"SELECT id, name, city", "FROM people", "WHERE city <> 'Kyiv'", "  AND age BETWEEN 20 AND 50", ""}, {"city,name DESC"}},
    {{"SELECT id, name, age", "FROM people", "ORDER BY name"}, {"age,id", "name DESC,age DESC"}},
    {{"select id, name, city", "from people", "where age < 50", "order by city desc;"}, {"city,id DESC", "name"}},
    {{"SELECT id,", "  name,", "  age", "FROM people", "GROUP BY id, name, age", "ORDER BY age, id;  "}, {"name,age DESC"}},
    {{"SELECT id, name FROM people ORDER BY id DESC"}, {"name DESC,id", "id"}},
    {{"SELECT p.id, p.name, c.country", "FROM people p", "JOIN cities c ON c.city = p.city"},
     {"c.country,p.name DESC,p.id", "p.name,c.country"}},
    {{"SELECT p.id, p.name, c.country", "FROM people p", "LEFT JOIN cities c", "  ON c.city = p.city", "WHERE p.age >= 25;"},
     {"c.country DESC,p.id", "c.country,p.name"}},
    {{"SELECT city, COUNT(*) AS total, MAX(age) AS oldest", "FROM people", "GROUP BY city", "HAVING COUNT(*) > 1"},
     {"total DESC,city", "oldest,city DESC"}},
    {{"SELECT id, name, age", "FROM people", "WHERE age > (SELECT AVG(age) FROM people)"}, {"age DESC,name", "name,id"}},
    {{"SELECT young.id, young.name, young.age", "FROM (SELECT id, name, age FROM people ORDER BY age LIMIT 6) young",
      "ORDER BY young.id"}, {"young.name DESC,young.id", "young.age,young.id"}, false, "age LIMIT 6) young"},
    {{"SELECT DISTINCT city", "FROM people", "WHERE city IS NOT NULL"}, {"city DESC", "city"}},
    {{"SELECT id, name FROM people WHERE age < 30", "UNION", "SELECT id, name FROM people WHERE city = 'Oslo'"},
     {"name DESC,id", "id DESC"}},
    {{"WITH adults AS (", "  SELECT id, name, age FROM people WHERE age >= 21", ")", "SELECT id, name, age", "FROM adults"},
     {"age,name", "name DESC"}},
    {{"SELECT id, name, age", "FROM people", "ORDER BY id", "LIMIT 5"}, {"age DESC,id", "name,id"}, true},
    {{"SELECT id, name AS person, age AS years", "FROM people"}, {"years DESC,person,id", "person"}},
    {{"SELECT \"id\", \"name\", \"age\"", "FROM \"people\""}, {"\"name\" DESC,\"id\"", "\"age\",\"name\""}},
    {{"-- everyone but the youngest", "SELECT id, name, age", "FROM people", "WHERE age > 19", "-- end of statement"},
     {"age,id", "name DESC,age"}},
    {{"SELECT id, name, age", "FROM people ;  ", "", "  "}, {"name,age DESC"}},
    {{"SELECT id, name, city", "\tFROM people", "\tWHERE name LIKE 'B%'"}, {"city DESC,id", "id DESC"}},
    {{"Select id, name, age", "From people", "Order By name COLLATE NOCASE"}, {"age,name", "name DESC,age"}},
    {{"SELECT id, name, city", "FROM people", "WHERE city IN ('Oslo',", "               'Lima')"}, {"city,name,id"}},
    {{"SELECT id, name, born", "FROM people", "WHERE born >= '1980-01-01'"}, {"born DESC,id", "born,name"}},
    {{"SELECT id, name,", "       CASE WHEN age < 30 THEN 'young'", "            ELSE 'older' END AS band", "FROM people"},
     {"band DESC,name,id", "band,id DESC"}},
    {{"SELECT id, name, age", "FROM people", ";"}, {"age DESC,name DESC", "id"}},
    {{"SELECT city, SUM(age) AS years", "FROM people", "GROUP BY city", "ORDER BY 1"}, {"years DESC", "city DESC"}},
    {{"SELECT p.id, p.name, country", "FROM people p", "JOIN cities USING (city)"}, {"country,p.id DESC", "p.name DESC,p.id"}},
    {{"SELECT id, name, age", "FROM people p", "WHERE EXISTS (", "  SELECT 1 FROM cities c", "  WHERE c.city = p.city",
      "    AND c.country = 'Norway')"}, {"age DESC,id", "name,age"}},
    {{"SELECT id, name, age, city", "FROM people", "WHERE age BETWEEN 20", "  AND 45", "ORDER BY city, name", "LIMIT 4;"},
     {"age,id", "city DESC,name DESC"}, true},
    {{"SELECT name, COUNT(*) AS namesakes", "FROM people", "GROUP BY name", "HAVING COUNT(*) >= 1"},
     {"namesakes DESC,name", "name DESC"}},
};
// clang-format on

class OrderedStatements : public ::testing::Test {
protected:
  void SetUp() override {
    db_ = QSqlDatabase::addDatabase("QSQLITE", "ordersql");
    db_.setDatabaseName(":memory:");
    ASSERT_TRUE(db_.open());
    for (const char* statement : {
             "CREATE TABLE people (id INTEGER PRIMARY KEY, name TEXT, age INTEGER, city TEXT, born TEXT)",
             "CREATE TABLE cities (city TEXT PRIMARY KEY, country TEXT)",
             "INSERT INTO people VALUES (1, 'Berg', 40, 'Oslo', '1984-02-29'), (2, 'Adams', 31, 'Lima', '1993-06-30'),"
             " (3, 'Cruz', 40, 'Lima', '1984-12-31'), (4, 'Dahl', 25, 'Oslo', '1999-03-31'),"
             " (5, 'adams', 52, 'Kyiv', '1972-01-01'), (6, 'Eno', 31, NULL, '1993-01-15'),"
             " (7, 'Fox', 25, 'Kyiv', '1999-12-31'), (8, 'Berg', 19, 'Lima', '2005-07-01'),"
             " (9, 'Öberg', 33, 'Bergen', '1991-09-09')",
             "INSERT INTO cities VALUES ('Oslo', 'Norway'), ('Bergen', 'Norway'), ('Lima', 'Peru'),"
             " ('Kyiv', 'Ukraine')"}) {
      QSqlQuery query(db_);
      ASSERT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    }
  }
  void TearDown() override {
    db_.close();
    db_ = QSqlDatabase();
    QSqlDatabase::removeDatabase("ordersql");
  }

  Result Run(const TStringList& sql) {
    QSqlQuery query(db_);
    Result result;
    EXPECT_TRUE(query.exec(sql.Text())) << query.lastError().text().toStdString() << "\n" << sql.Text().toStdString();
    result.columns = query.record();
    while (query.next()) {
      Row row;
      for (int column = 0; column < result.columns.count(); ++column) row << query.value(column);
      result.rows << row;
    }
    return result;
  }

  QSqlDatabase db_;
};

}  // namespace

TEST_F(OrderedStatements, RewrittenStatementsRunAndOrderAsAsked) {
  int rewrites = 0;
  for (const Statement& statement : kStatements) {
    TStringList sql;
    for (const QString& line : statement.lines) sql.Add(line);
    const Result before = Run(sql);
    ASSERT_GT(before.rows.size(), 1) << sql.Text().toStdString();
    for (const QString& order : statement.orders) {
      ModifyOrderFields(&sql, order);
      const std::string text = sql.Text().toStdString();
      EXPECT_EQ(ExtractOrderFields(&sql), order) << text;
      const Result after = Run(sql);
      EXPECT_EQ(FirstMisorderedRow(after, order), -1) << order.toStdString() << "\n" << text;
      if (statement.limited) EXPECT_EQ(after.rows.size(), before.rows.size()) << text;
      else EXPECT_EQ(Sorted(after.rows), Sorted(before.rows)) << text;
      ++rewrites;
    }
    ModifyOrderFields(&sql, "");
    EXPECT_EQ(ExtractOrderFields(&sql), statement.leftOver) << sql.Text().toStdString();
    EXPECT_EQ(Run(sql).rows.size(), before.rows.size()) << sql.Text().toStdString();
  }
}

// The check itself must see a wrong order, or the test above proves nothing.
TEST_F(OrderedStatements, TheOrderCheckCatchesAMisorderedResult) {
  TStringList sql;
  sql.Add("SELECT id, name, age");
  sql.Add("FROM people");
  sql.Add("ORDER BY age DESC, id");
  const Result result = Run(sql);
  EXPECT_EQ(FirstMisorderedRow(result, "age DESC,id"), -1);
  EXPECT_GT(FirstMisorderedRow(result, "age,id"), 0);
  EXPECT_GT(FirstMisorderedRow(result, "age DESC,id DESC"), 0);
}
