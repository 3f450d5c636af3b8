#pragma once
// The statement text that the SQL data sets read and write: the ORDER BY at the end
// of a SELECT, named parameters, and the keyset clauses of windowed fetching.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

#include "framework/db/SqlConnection.h"

namespace quil {

struct TSQLOrderItem {
  QString column;  // a column of the result, unqualified and unquoted
  bool descending = false;
};

struct TSQLSelectParts {
  QString body;  // the statement without its trailing ORDER BY
  std::vector<TSQLOrderItem> order;
};

// Splits a top-level ORDER BY off the end of a SELECT (one inside brackets, quotes or
// comments stays in the body). A LIMIT after the ORDER BY raises EDatabaseError: the
// data set fetches its own windows.
TSQLSelectParts SplitOrderBy(const QString& sql);
// "Name DESC, t.City" or "Name;City": the items of an ORDER BY or of IndexFieldNames.
std::vector<TSQLOrderItem> ParseOrderItems(const QString& list);
// The table of "SELECT ... FROM name [alias] [WHERE ...]", empty for joins and the like.
QString SingleTableOf(const QString& selectBody);
QString QuoteIdentifier(const QString& name);
// A text as an SQL string literal: in single quotes, each quote doubled.
QString QuoteText(const QString& text);

// A statement with ":name" parameters rewritten to "?" placeholders, and the names in
// the order they bind. "::" (a PostgreSQL cast) and text in quotes are left alone.
struct TSQLParamText {
  QString sql;
  QStringList names;
};
TSQLParamText ParseParams(const QString& sql);

// A clause with its values, bound to its "?" placeholders in order.
struct TSQLClause {
  QString sql;
  std::vector<QVariant> values;
};

// Keyset paging over an order that ends with a unique key: the clause that selects the
// rows after (or before) a given row's values. Null sorts before any value, in both
// databases, so that the order is one order.
class TSQLKeyset {
public:
  enum class TDirection { After, AtOrAfter, Before };

  TSQLKeyset() = default;
  explicit TSQLKeyset(std::vector<TSQLOrderItem> order) : order_(std::move(order)) {}

  const std::vector<TSQLOrderItem>& Order() const { return order_; }
  // "ORDER BY ..." forwards, or backwards for fetching from the end.
  QString OrderBy(bool reversed) const;
  // The condition on the order columns; values holds the row's value of each item.
  TSQLClause Condition(const std::vector<QVariant>& values, TDirection direction) const;

private:
  std::vector<TSQLOrderItem> order_;
};

}  // namespace quil
