// Locate and Lookup of TCustomSQLDataSet: the key test becomes a condition the database
// runs, with the values bound, and the first match in the data set's order comes back
// in one indexed read. Only OnFilterRecord is left to the client, on the matches.

#include "framework/db/Field.h"
#include "framework/db/SqlDataSet.h"

namespace quil {

namespace {

bool IsTextColumn(const TSQLColumn& column) { return NativeKindOf(column.type) == TNativeKind::String; }

}  // namespace

// The same test as the in-memory walk: on text, loCaseInsensitive compares folded
// texts and loPartialKey compares the last key's value with as many leading characters
// of the column; anything else is equality, a Null key matching a Null value. Empty
// when a key field is not a column of the statement (a calculated or lookup field).
std::optional<TSQLClause> TCustomSQLDataSet::LocateCondition(const QString& keyFields, const Variant& keyValues,
                                                             TLocateOptions options) const {
  const std::vector<TField*> fields = GetFieldList(keyFields);
  std::vector<Variant> values;
  if (VarIsArray(keyValues))
    for (int index = keyValues.LowBound(); index <= keyValues.HighBound(); ++index) values.push_back(keyValues[index]);
  else
    values.push_back(keyValues);
  if (values.size() != fields.size()) return TSQLClause{QStringLiteral("1=0"), {}};
  TSQLClause clause;
  QStringList terms;
  for (size_t index = 0; index < fields.size(); ++index) {
    const int fieldNo = fields[index]->FieldNo();
    if (fieldNo <= 0 || fieldNo > int(columns_.size())) return std::nullopt;
    const TSQLColumn& column = columns_[size_t(fieldNo - 1)];
    const Variant& value = values[index];
    QString operand = QuoteIdentifier(column.name);
    if (VarIsNull(value) || VarIsEmpty(value)) {
      terms.append(operand + QLatin1String(" IS NULL"));
      continue;
    }
    const bool text = IsTextColumn(column) && VarIsStr(value);
    QString mark = QStringLiteral("?");
    if (text && options.Contains(loPartialKey) && index + 1 == fields.size()) {
      operand = QStringLiteral("substr(%1, 1, %2)").arg(operand).arg(value.AsString().size());
    }
    if (text && options.Contains(loCaseInsensitive)) {
      operand = QStringLiteral("LOWER(%1)").arg(operand);
      mark = QStringLiteral("LOWER(?)");
    }
    terms.append(QStringLiteral("%1 = %2").arg(operand, mark));
    clause.values.push_back(text ? QVariant(value.AsString()) : ToSqlValue(value, column.type, Dialect()));
  }
  clause.sql = terms.join(QLatin1String(" AND "));
  return clause;
}

// Matches come in the data set's order, a fetch at a time only when OnFilterRecord may
// refuse some.
TCustomSQLDataSet::TRowPtr TCustomSQLDataSet::FirstMatch(const TSQLClause& condition) {
  const int limit = HandlerFilters() ? fetchSize_ : 1;
  TRowPtr anchor;
  for (;;) {
    std::vector<TSQLClause> conditions{condition};
    if (anchor) conditions.push_back(keyset_.Condition(OrderValues(*anchor), TSQLKeyset::TDirection::After));
    const TSQLClause select = Select(conditions);
    const std::vector<TRowPtr> rows =
        FetchRows(select.sql + keyset_.OrderBy(false) + QStringLiteral(" LIMIT %1").arg(limit), select.values);
    for (const TRowPtr& row : rows)
      if (Accepts(row)) return row;
    if (int(rows.size()) < limit) return nullptr;
    anchor = rows.back();
  }
}

bool TCustomSQLDataSet::LocateRecord(const QString& keyFields, const Variant& keyValues, TLocateOptions options,
                                     bool syncCursor) {
  CheckSearchAllowed();
  CheckBrowseMode();
  const std::optional<TSQLClause> condition = LocateCondition(keyFields, keyValues, options);
  if (!condition) return TDataSet::LocateRecord(keyFields, keyValues, options, syncCursor);
  const TRowPtr found = FirstMatch(*condition);
  if (!found) return false;
  if (syncCursor) {
    CursorPosChanged();
    const int index = IndexOfRow(found);
    if (index >= 0) cursor_ = index;
    else Seek(*found);
    return true;
  }
  TRecord* record = Record(TempBuffer());
  record->row = found;
  record->flag = bfCurrent;
  record->pending.reset();
  return true;
}

}  // namespace quil
