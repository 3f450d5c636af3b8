#include "framework/db/SqlStatement.h"

#include <QRegularExpression>

#include "framework/db/DataTypes.h"

namespace quil {

namespace {

// Top-level text: the positions outside quotes, brackets and comments, with a callback
// per character that may stop the walk by answering false.
template <typename Visit>
void WalkTopLevel(const QString& sql, Visit visit) {
  int depth = 0;
  for (qsizetype at = 0; at < sql.size(); ++at) {
    const QChar ch = sql[at];
    if (ch == QLatin1Char('\'') || ch == QLatin1Char('"')) {
      const qsizetype close = sql.indexOf(ch, at + 1);
      at = close < 0 ? sql.size() : close;
    } else if (ch == QLatin1Char('-') && sql.mid(at, 2) == QLatin1String("--")) {
      const qsizetype end = sql.indexOf(QLatin1Char('\n'), at);
      at = end < 0 ? sql.size() : end;
    } else if (ch == QLatin1Char('(')) {
      ++depth;
    } else if (ch == QLatin1Char(')')) {
      --depth;
    } else if (depth == 0 && !visit(at)) {
      return;
    }
  }
}

bool WordAt(const QString& sql, qsizetype at, QLatin1String word) {
  if (sql.mid(at, word.size()).compare(word, Qt::CaseInsensitive) != 0) return false;
  const auto boundary = [&](qsizetype pos) { return pos < 0 || pos >= sql.size() || !sql[pos].isLetterOrNumber(); };
  return boundary(at - 1) && boundary(at + word.size());
}

QString Unqualified(QString column) {
  column = column.trimmed();
  const qsizetype dot = column.lastIndexOf(QLatin1Char('.'));
  if (dot >= 0 && !column.endsWith(QLatin1Char('"'))) column = column.mid(dot + 1);
  else if (dot >= 0 && column.lastIndexOf(QLatin1String(".\"")) >= 0) column = column.mid(column.lastIndexOf(QLatin1String(".\"")) + 1);
  if (column.size() >= 2 && column.startsWith(QLatin1Char('"')) && column.endsWith(QLatin1Char('"')))
    column = column.mid(1, column.size() - 2).replace(QLatin1String("\"\""), QLatin1String("\""));
  return column;
}

}  // namespace

TSQLSelectParts SplitOrderBy(const QString& sql) {
  qsizetype orderAt = -1;
  qsizetype limitAt = -1;
  WalkTopLevel(sql, [&](qsizetype at) {
    if (WordAt(sql, at, QLatin1String("order"))) orderAt = at;
    if (WordAt(sql, at, QLatin1String("limit")) || WordAt(sql, at, QLatin1String("offset"))) limitAt = at;
    return true;
  });
  if (limitAt >= 0)
    DatabaseError(QStringLiteral("The statement of a data set may not have LIMIT or OFFSET: %1").arg(sql), nullptr);
  QString body = sql.trimmed();
  while (body.endsWith(QLatin1Char(';'))) body.chop(1);
  if (orderAt < 0) return {body, {}};
  static const QRegularExpression orderBy(QStringLiteral("^order\\s+by\\s+"), QRegularExpression::CaseInsensitiveOption);
  QString tail = sql.mid(orderAt).trimmed();
  while (tail.endsWith(QLatin1Char(';'))) tail.chop(1);
  const QRegularExpressionMatch match = orderBy.match(tail);
  if (!match.hasMatch()) return {body, {}};
  return {sql.left(orderAt).trimmed(), ParseOrderItems(tail.mid(match.capturedLength()))};
}

std::vector<TSQLOrderItem> ParseOrderItems(const QString& list) {
  std::vector<TSQLOrderItem> items;
  static const QRegularExpression separator(QStringLiteral("[,;]"));
  static const QRegularExpression direction(QStringLiteral("\\s+(asc|desc)$"), QRegularExpression::CaseInsensitiveOption);
  for (QString part : list.split(separator, Qt::SkipEmptyParts)) {
    part = part.trimmed();
    if (part.isEmpty()) continue;
    TSQLOrderItem item;
    const QRegularExpressionMatch match = direction.match(part);
    if (match.hasMatch()) {
      item.descending = match.captured(1).compare(QLatin1String("desc"), Qt::CaseInsensitive) == 0;
      part.chop(match.capturedLength());
    }
    item.column = Unqualified(part);
    items.push_back(item);
  }
  return items;
}

QString SingleTableOf(const QString& selectBody) {
  static const QRegularExpression from(
      QStringLiteral("\\bfrom\\s+(\"[^\"]+\"|[A-Za-z_][A-Za-z0-9_.]*)(\\s+(as\\s+)?[A-Za-z_][A-Za-z0-9_]*)?\\s*(\\bwhere\\b.*)?$"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpressionMatch match = from.match(selectBody);
  if (!match.hasMatch()) return {};
  const QString alias = match.captured(2).trimmed();
  if (alias.compare(QLatin1String("where"), Qt::CaseInsensitive) == 0) return {};
  if (selectBody.left(match.capturedStart()).contains(QLatin1Char('('))) return {};
  return Unqualified(match.captured(1));
}

QString QuoteIdentifier(const QString& name) {
  QString quoted = name;
  return QLatin1Char('"') + quoted.replace(QLatin1String("\""), QLatin1String("\"\"")) + QLatin1Char('"');
}

QString QuoteText(const QString& text) {
  QString quoted = text;
  return QLatin1Char('\'') + quoted.replace(QLatin1String("'"), QLatin1String("''")) + QLatin1Char('\'');
}

TSQLParamText ParseParams(const QString& sql) {
  TSQLParamText result;
  qsizetype copied = 0;
  for (qsizetype at = 0; at < sql.size(); ++at) {
    const QChar ch = sql[at];
    if (ch == QLatin1Char('\'') || ch == QLatin1Char('"')) {
      const qsizetype close = sql.indexOf(ch, at + 1);
      at = close < 0 ? sql.size() : close;
      continue;
    }
    if (ch != QLatin1Char(':')) continue;
    if (at + 1 < sql.size() && sql[at + 1] == QLatin1Char(':')) {
      ++at;
      continue;
    }
    qsizetype end = at + 1;
    while (end < sql.size() && (sql[end].isLetterOrNumber() || sql[end] == QLatin1Char('_'))) ++end;
    if (end == at + 1) continue;
    result.sql += sql.mid(copied, at - copied) + QLatin1Char('?');
    result.names.append(sql.mid(at + 1, end - at - 1));
    copied = end;
    at = end - 1;
  }
  result.sql += sql.mid(copied);
  return result;
}

QString TSQLKeyset::OrderBy(bool reversed) const {
  QStringList items;
  for (const TSQLOrderItem& item : order_) {
    const bool descending = item.descending != reversed;
    items.append(QuoteIdentifier(item.column) +
                 (descending ? QLatin1String(" DESC NULLS LAST") : QLatin1String(" ASC NULLS FIRST")));
  }
  return QStringLiteral(" ORDER BY ") + items.join(QLatin1String(", "));
}

// Expanded lexicographic comparison: (a after x) OR (a = x AND (b after y)) ..., written
// per column so that descending columns and nulls take their place in the one order.
// The last column needs no tail, so that a key alone reads "id > ?" and uses its index.
TSQLClause TSQLKeyset::Condition(const std::vector<QVariant>& values, TDirection direction) const {
  TSQLClause clause;
  for (size_t index = order_.size(); index-- > 0;) {
    const QString column = QuoteIdentifier(order_[index].column);
    const QVariant& value = values[index];
    const bool later = (direction != TDirection::Before) != order_[index].descending;
    const bool last = index + 1 == order_.size();
    const bool inclusive = last && direction == TDirection::AtOrAfter;
    TSQLClause step;
    QString beyond;
    if (value.isNull()) {
      beyond = later ? column + QLatin1String(" IS NOT NULL") : QStringLiteral("1=0");
      if (inclusive) beyond = QStringLiteral("1=1");
    } else {
      const QString op = QLatin1String(later ? ">" : "<") + QLatin1String(inclusive ? "=" : "");
      beyond = later ? QStringLiteral("%1 %2 ?").arg(column, op) : QStringLiteral("(%1 %2 ? OR %1 IS NULL)").arg(column, op);
      step.values.push_back(value);
    }
    if (last) {
      step.sql = beyond;
    } else {
      const QString equal = value.isNull() ? column + QLatin1String(" IS NULL") : column + QLatin1String(" = ?");
      step.sql = QStringLiteral("(%1 OR (%2 AND %3))").arg(beyond, equal, clause.sql);
      if (!value.isNull()) step.values.push_back(value);
      step.values.insert(step.values.end(), clause.values.begin(), clause.values.end());
    }
    clause = std::move(step);
  }
  return clause;
}

}  // namespace quil
