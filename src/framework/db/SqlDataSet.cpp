#include "framework/db/SqlDataSet.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>
#include <QSqlRecord>
#include <algorithm>
#include <map>

#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/SqlCounter_p.h"
#include "framework/db/SqlFilter.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

const TMetaClass& TCustomSQLDataSet::StaticClass() {
  static const TMetaClass meta("TCustomSQLDataSet", &TDataSet::StaticClass());
  return meta;
}

const TMetaClass& TCustomSQLDataSet::ClassType() const { return StaticClass(); }

TCustomSQLDataSet::TCustomSQLDataSet(TComponent* owner) : TDataSet(owner) {}

TCustomSQLDataSet::~TCustomSQLDataSet() {
  Destroying();
  try {
    SetActive(false);
  } catch (...) {
    // Nothing can be reported from a destructor; the buffers are freed all the same.
  }
}

void TCustomSQLDataSet::SetConnection(TSQLConnection* connection) {
  if (connection == connection_) return;
  CheckInactive();
  if (connection_) connection_->RemoveFreeNotification(this);
  connection_ = connection;
  catalogKey_.clear();
  if (connection_) connection_->FreeNotification(this);
}

void TCustomSQLDataSet::Notification(TComponent* component, TOperation operation) {
  TDataSet::Notification(component, operation);
  if (operation == opRemove && component == connection_) {
    Close();
    connection_ = nullptr;
    catalogKey_.clear();
  }
}

void TCustomSQLDataSet::SetKeyFields(const QString& fields) {
  if (fields == keyFields_) return;
  keyFields_ = fields;
  Reopen();
}

void TCustomSQLDataSet::SetFetchSize(int rows) {
  if (rows < 1) DatabaseError(QStringLiteral("FetchSize must be at least 1"), this);
  fetchSize_ = rows;
}

void TCustomSQLDataSet::SetCacheFetches(int fetches) {
  if (fetches < 2) DatabaseError(QStringLiteral("CacheFetches must be at least 2"), this);
  cacheFetches_ = fetches;
}

void TCustomSQLDataSet::Reopen() {
  if (!Active()) return;
  Close();
  Open();
}

TSQLConnection& TCustomSQLDataSet::CheckConnection() const {
  if (!connection_) DatabaseError(QStringLiteral("Missing Connection"), this);
  return *connection_;
}

// --- Opening --------------------------------------------------------------------------

void TCustomSQLDataSet::InternalInitFieldDefs() {
  FieldDefs()->Clear();
  for (const TSQLColumn& column : columns_) FieldDefs()->Add(column.name, column.type, column.size, false);
}

void TCustomSQLDataSet::InternalOpen() {
  const TSQLSource source = Source();
  table_ = source.table;
  statement_ = QStringLiteral("SELECT * FROM (%1) q").arg(source.select.body);
  statementValues_ = source.values;
  ResolveColumns(source);
  if (Dialect() == TSQLDialect::SQLite) {
    if (!checkColumns_) {
      QStringList names;
      for (const TSQLColumn& column : columns_) names.append(QuoteIdentifier(column.name));
      catalogStatement_ = QStringLiteral("SELECT %1 FROM (%2) q").arg(names.join(QLatin1String(", ")), source.select.body);
    }
    statement_ = catalogStatement_;
  }
  filter_ = CurrentFilterClause(Filter(), FilterOptions(), Filtered());
  FieldDefs()->SetUpdated(false);
  FieldDefs()->Update();
  if (DefaultFields()) CreateFields();
  BindFields(true);
  SetBookmarkSize(int(sizeof(int64_t)));
  filterRecord_ = CreateRecordBuffer();
  counter_ = std::make_unique<TSQLCounter>(CheckConnection(),
                                           [this](const TSQLClause& statement) { return CountHere(statement); });
  cursorOpen_ = true;
  ResetCache(true, false);
}

void TCustomSQLDataSet::InternalClose() {
  if (filterRecord_) DestroyRecordBuffer(filterRecord_);
  filterRecord_ = nullptr;
  rows_.clear();
  count_.reset();
  counter_.reset();
  firstPosition_.reset();
  BindFields(false);
  if (DefaultFields()) DestroyFields();
  FieldDefs()->SetUpdated(false);
  cursorOpen_ = false;
}

void TCustomSQLDataSet::ResolveColumns(const TSQLSource& source) {
  const QString key = QStringList{statement_, source.table, keyFields_, QString::number(CheckConnection().SchemaSerial())}
                          .join(QLatin1Char('\x1f'));
  checkColumns_ = key == catalogKey_;
  if (checkColumns_) {
    columns_ = catalogColumns_;
    ResolveKeys(source, catalogKeyNames_);
    return;
  }
  catalogKey_.clear();
  filterMemo_.reset();
  if (Dialect() == TSQLDialect::SQLite) catalogSchema_ = CheckConnection().SchemaVersion();
  ResolveKeys(source, ReadColumns(source));
  catalogColumns_ = columns_;
  catalogKeyNames_.clear();
  for (int column : keyColumns_) catalogKeyNames_.append(columns_[size_t(column)].name);
  catalogKey_ = key;
}

void TCustomSQLDataSet::CheckColumnsUnchanged(const QSqlQuery& query) const {
  checkColumns_ = false;
  const QSqlRecord record = query.record();
  bool same = record.count() == int(columns_.size());
  for (int index = 0; same && index < record.count(); ++index) same = record.fieldName(index) == columns_[size_t(index)].name;
  if (same) return;
  const_cast<QString&>(catalogKey_).clear();
  DatabaseError(QStringLiteral("The columns of the statement changed since it was opened: close and open it again"), this);
}

void TCustomSQLDataSet::CheckSchemaUnchanged(qlonglong version) const {
  checkColumns_ = false;
  if (version == catalogSchema_) return;
  const_cast<QString&>(catalogKey_).clear();
  DatabaseError(QStringLiteral("The columns of the statement changed since it was opened: close and open it again"), this);
}

// The columns as the statement gives them; on SQLite, the declared types of the table
// they come from, since its driver reports most columns as text. Answers the table's
// primary key where the same look-up gives it.
QStringList TCustomSQLDataSet::ReadColumns(const TSQLSource& source) {
  std::vector<TSQLColumn> declared;  // in the table's order
  std::map<int, QString> primaryKey;  // by position in the key
  if (Dialect() == TSQLDialect::SQLite && !source.table.isEmpty()) {
    QSqlQuery& info =
        CheckConnection().RunRead(QStringLiteral("PRAGMA table_info(%1)").arg(QuoteIdentifier(source.table)), {});
    while (info.next()) {
      declared.push_back(ColumnForDeclaredType(info.value(1).toString(), info.value(2).toString()));
      if (info.value(5).toInt() > 0) primaryKey[info.value(5).toInt()] = info.value(1).toString();
    }
    info.finish();
  }
  QStringList keyNames;
  for (const auto& [position, name] : primaryKey) keyNames.append(name);
  // A whole table gives its columns as the catalog lists them: no probe needed.
  if (source.wholeTable && !declared.empty()) {
    columns_ = std::move(declared);
    return keyNames;
  }
  QSqlQuery& probe = CheckConnection().RunRead(statement_ + QStringLiteral(" LIMIT 0"), statementValues_);
  const QSqlRecord record = probe.record();
  probe.finish();
  columns_.clear();
  for (int index = 0; index < record.count(); ++index) {
    const QSqlField field = record.field(index);
    const auto found = std::find_if(declared.begin(), declared.end(), [&](const TSQLColumn& column) {
      return column.name.compare(field.name(), Qt::CaseInsensitive) == 0;
    });
    columns_.push_back(found != declared.end() ? TSQLColumn{field.name(), found->type, found->size} : ColumnForSqlField(field));
  }
  return keyNames;
}

void TCustomSQLDataSet::ResolveKeys(const TSQLSource& source, QStringList keyNames) {
  if (!keyFields_.isEmpty()) {
    keyNames.clear();
    for (const TSQLOrderItem& item : ParseOrderItems(keyFields_)) keyNames.append(item.column);
  } else if (keyNames.isEmpty() && !source.table.isEmpty()) {
    const QSqlIndex primary = CheckConnection().Database().primaryIndex(source.table);
    for (int index = 0; index < primary.count(); ++index) keyNames.append(primary.fieldName(index));
  }
  if (keyNames.isEmpty())
    DatabaseError(QStringLiteral("No key identifies the rows of the statement: set KeyFields"), this);
  const auto columnOf = [&](const QString& name) {
    for (size_t index = 0; index < columns_.size(); ++index)
      if (columns_[index].name.compare(name, Qt::CaseInsensitive) == 0) return int(index);
    DatabaseError(QStringLiteral("Column '%1' is not in the result of the statement").arg(name), this);
  };
  std::vector<TSQLOrderItem> order;
  orderColumns_.clear();
  keyColumns_.clear();
  for (const TSQLOrderItem& item : source.select.order) {
    orderColumns_.push_back(columnOf(item.column));
    order.push_back({columns_[size_t(orderColumns_.back())].name, item.descending});
  }
  for (const QString& name : keyNames) {
    const int column = columnOf(name);
    keyColumns_.push_back(column);
    if (std::find(orderColumns_.begin(), orderColumns_.end(), column) != orderColumns_.end()) continue;
    orderColumns_.push_back(column);
    order.push_back({columns_[size_t(column)].name, false});
  }
  keyset_ = TSQLKeyset(std::move(order));
}

// --- Running statements ---------------------------------------------------------------

QSqlQuery TCustomSQLDataSet::Run(const QString& sql, const std::vector<QVariant>& values) const {
  QSqlQuery query(CheckConnection().Database());
  query.setForwardOnly(true);
  if (!query.prepare(sql)) CheckConnection().StatementFailed(query.lastError(), sql);
  for (size_t index = 0; index < values.size(); ++index) query.bindValue(int(index), values[index]);
  if (!query.exec()) CheckConnection().StatementFailed(query.lastError(), sql);
  return query;
}

std::vector<TCustomSQLDataSet::TRowPtr> TCustomSQLDataSet::FetchRows(const QString& sql,
                                                                     const std::vector<QVariant>& values) const {
  // The first fetch after reopening with the catalog's columns checks them: on SQLite
  // by the schema version, read with the rows in the same read transaction.
  const bool sqlite = Dialect() == TSQLDialect::SQLite;
  const int first = checkColumns_ && sqlite ? 1 : 0;
  const QString text = first ? QStringLiteral("SELECT (SELECT schema_version FROM pragma_schema_version), ") + sql.mid(7) : sql;
  QSqlQuery* run = nullptr;
  try {
    run = &CheckConnection().RunRead(text, values);
  } catch (const EDatabaseError&) {
    // A column the catalog named may be gone: the next opening reads the catalog anew.
    if (checkColumns_) const_cast<QString&>(catalogKey_).clear();
    throw;
  }
  QSqlQuery& query = *run;
  if (checkColumns_ && !sqlite) CheckColumnsUnchanged(query);
  std::vector<TRowPtr> rows;
  try {
    while (query.next()) {
      if (first && rows.empty()) CheckSchemaUnchanged(query.value(0).toLongLong());
      auto row = std::make_shared<TRow>();
      row->reserve(columns_.size());
      for (size_t column = 0; column < columns_.size(); ++column)
        row->push_back(FromSqlValue(query.value(int(column) + first), columns_[column].type));
      rows.push_back(std::move(row));
    }
  } catch (...) {
    query.finish();
    throw;
  }
  query.finish();
  if (first && checkColumns_) CheckSchemaUnchanged(CheckConnection().SchemaVersion());
  return rows;
}

TSQLClause TCustomSQLDataSet::Select(const std::vector<TSQLClause>& conditions) const {
  TSQLClause select{statement_, statementValues_};
  QStringList terms;
  const auto add = [&](const TSQLClause& condition) {
    if (condition.sql.isEmpty()) return;
    terms.append(condition.sql);
    select.values.insert(select.values.end(), condition.values.begin(), condition.values.end());
  };
  add(filter_);
  for (const TSQLClause& condition : conditions) add(condition);
  if (!terms.isEmpty()) select.sql += QStringLiteral(" WHERE ") + terms.join(QLatin1String(" AND "));
  return select;
}

TSQLClause TCustomSQLDataSet::KeyCondition(const std::vector<QVariant>& key) const {
  QStringList terms;
  for (int column : keyColumns_) terms.append(QuoteIdentifier(columns_[size_t(column)].name) + QLatin1String(" = ?"));
  return {terms.join(QLatin1String(" AND ")), key};
}

TSQLClause TCustomSQLDataSet::CountStatement(const std::vector<TSQLClause>& conditions) const {
  const TSQLClause select = Select(conditions);
  return {QStringLiteral("SELECT count(*) FROM (%1) c").arg(select.sql), select.values};
}

int64_t TCustomSQLDataSet::CountHere(const TSQLClause& statement) const {
  QSqlQuery& query = CheckConnection().RunRead(statement.sql, statement.values);
  query.next();
  const int64_t count = query.value(0).toLongLong();
  query.finish();
  return count;
}

// The wait runs the event loop, which may close the data set or change its data; a
// count that no longer holds is asked again.
int64_t TCustomSQLDataSet::RowsBefore(const TRowPtr& row) const {
  for (;;) {
    CheckActive();
    const std::optional<int64_t> before =
        counter_->Await(CountStatement({keyset_.Condition(OrderValues(*row), TSQLKeyset::TDirection::Before)}));
    if (before) return *before;
  }
}

std::vector<QVariant> TCustomSQLDataSet::OrderValues(const TRow& row) const {
  std::vector<QVariant> values;
  for (int column : orderColumns_) values.push_back(ToSqlValue(row[size_t(column)], columns_[size_t(column)].type, Dialect()));
  return values;
}

std::vector<QVariant> TCustomSQLDataSet::KeyValues(const TRow& row) const {
  std::vector<QVariant> values;
  for (int column : keyColumns_) values.push_back(ToSqlValue(row[size_t(column)], columns_[size_t(column)].type, Dialect()));
  return values;
}

TCustomSQLDataSet::TRowPtr TCustomSQLDataSet::RowByKey(const std::vector<QVariant>& key) const {
  const TSQLClause select = Select({KeyCondition(key)});
  const auto rows = FetchRows(select.sql, select.values);
  return rows.empty() ? nullptr : rows.front();
}

// --- The cache ------------------------------------------------------------------------

void TCustomSQLDataSet::ResetCache(bool atStart, bool atEnd) {
  rows_.clear();
  atStart_ = atStart;
  atEnd_ = atEnd;
  cursor_ = atEnd && !atStart ? 0 : -1;
  firstPosition_.reset();
  if (atStart) firstPosition_ = 0;
}

// One fetch of at most `limit` rows beyond `anchor` toward `end`, nearest first; without
// an anchor, the first (or last) rows of the result.
std::vector<TCustomSQLDataSet::TRowPtr> TCustomSQLDataSet::FetchBeyond(const TRowPtr& anchor, TEnd end, int limit) const {
  const bool back = end == TEnd::Back;
  std::vector<TSQLClause> conditions;
  if (anchor)
    conditions.push_back(keyset_.Condition(OrderValues(*anchor),
                                           back ? TSQLKeyset::TDirection::After : TSQLKeyset::TDirection::Before));
  const TSQLClause select = Select(conditions);
  return FetchRows(select.sql + keyset_.OrderBy(!back) + QStringLiteral(" LIMIT %1").arg(limit), select.values);
}

// Starting at an end of the result, the record window is all that is needed: a grid
// opening on forty rows waits for forty. Reading on from the cache takes FetchSize.
int TCustomSQLDataSet::FetchLimit() const {
  return rows_.empty() ? std::clamp(BufferCount(), 1, fetchSize_) : fetchSize_;
}

// Reads beyond one end of the cache until a row passes OnFilterRecord or the result
// ends; false when nothing was added.
bool TCustomSQLDataSet::Extend(TEnd end) {
  const bool back = end == TEnd::Back;
  if (back ? atEnd_ : atStart_) return false;
  TRowPtr anchor = rows_.empty() ? nullptr : (back ? rows_.back() : rows_.front());
  int added = 0;
  bool reachedEnd = false;
  for (int limit = FetchLimit(); added == 0 && !reachedEnd; limit = fetchSize_) {
    const std::vector<TRowPtr> fetched = FetchBeyond(anchor, end, limit);
    reachedEnd = int(fetched.size()) < limit;
    for (const TRowPtr& row : fetched) {
      if (!Accepts(row)) continue;
      ++added;
      if (back) {
        rows_.push_back(row);
      } else {
        rows_.push_front(row);
        ++cursor_;
      }
    }
    if (!fetched.empty()) anchor = fetched.back();
  }
  if (!back && firstPosition_) *firstPosition_ -= added;
  if (back) atEnd_ = reachedEnd;
  else atStart_ = reachedEnd;
  if (atStart_) firstPosition_ = 0;
  if (atStart_ && atEnd_) count_ = int64_t(rows_.size());
  else if (atEnd_ && firstPosition_ && !HandlerFilters()) count_ = *firstPosition_ + int64_t(rows_.size());
  Trim(end);
  return added > 0;
}

// Drops rows at the end opposite `keep` beyond the cache's bound.
void TCustomSQLDataSet::Trim(TEnd keep) {
  const size_t limit = size_t(fetchSize_) * size_t(cacheFetches_);
  // Leaving the end behind would forget where the cache stands.
  if (rows_.size() > limit && !firstPosition_ && atEnd_ && count_ && *count_ >= 0)
    firstPosition_ = *count_ - int64_t(rows_.size());
  while (rows_.size() > limit) {
    if (keep == TEnd::Back) {
      rows_.pop_front();
      --cursor_;
      atStart_ = false;
      if (firstPosition_) ++*firstPosition_;
    } else {
      rows_.pop_back();
      atEnd_ = false;
    }
  }
}

void TCustomSQLDataSet::Seek(const TRow& row) {
  ResetCache(false, false);
  const TSQLClause select = Select({keyset_.Condition(OrderValues(row), TSQLKeyset::TDirection::AtOrAfter)});
  const std::vector<TRowPtr> fetched =
      FetchRows(select.sql + keyset_.OrderBy(false) + QStringLiteral(" LIMIT %1").arg(fetchSize_), select.values);
  for (const TRowPtr& fetchedRow : fetched)
    if (Accepts(fetchedRow)) rows_.push_back(fetchedRow);
  atEnd_ = int(fetched.size()) < fetchSize_;
  cursor_ = 0;
}

// The window of rows around a position, read with OFFSET from the nearer end.
void TCustomSQLDataSet::LoadAt(int64_t position) {
  const int64_t count = Count();
  const bool fromEnd = position >= count / 2;
  const int64_t first = fromEnd ? std::max<int64_t>(0, position - fetchSize_ + 1) : std::max<int64_t>(0, position - fetchSize_ / 2);
  const int64_t offset = fromEnd ? count - 1 - std::min(count - 1, first + fetchSize_ - 1) : first;
  const TSQLClause select = Select({});
  std::vector<TRowPtr> fetched = FetchRows(
      select.sql + keyset_.OrderBy(fromEnd) + QStringLiteral(" LIMIT %1 OFFSET %2").arg(fetchSize_).arg(offset),
      select.values);
  if (fromEnd) std::reverse(fetched.begin(), fetched.end());
  ResetCache(false, false);
  rows_.assign(fetched.begin(), fetched.end());
  firstPosition_ = fromEnd ? count - offset - int64_t(fetched.size()) : offset;
  atStart_ = *firstPosition_ == 0;
  atEnd_ = *firstPosition_ + int64_t(rows_.size()) >= count;
  cursor_ = int(position - *firstPosition_);
}

int TCustomSQLDataSet::IndexOfRow(const TRowPtr& row) const {
  for (size_t index = 0; index < rows_.size(); ++index)
    if (rows_[index] == row) return int(index);
  if (!row) return -1;
  const std::vector<QVariant> key = KeyValues(*row);
  for (size_t index = 0; index < rows_.size(); ++index)
    if (KeyValues(*rows_[index]) == key) return int(index);
  return -1;
}

int64_t TCustomSQLDataSet::Count() const {
  while (!count_) {
    CheckActive();
    if (HandlerFilters()) return *(count_ = -1);
    const std::optional<int64_t> counted = counter_->Await(CountStatement({}));
    if (counted && !count_ && Active()) count_ = *counted;
  }
  return *count_;
}

bool TCustomSQLDataSet::RecordCountKnown() const { return Active() && (count_ || HandlerFilters()); }

// The position is known for a cached row once the front's is, which the cache learns
// from the start, or from the end with the count.
bool TCustomSQLDataSet::IsSequenced() const {
  if (!Active() || HandlerFilters() || !count_) return false;
  if (IsEmpty()) return true;
  const TRecord* record = Record(ActiveBuffer());
  if (record->flag != bfCurrent || !record->row) return true;
  return IndexOfRow(record->row) >= 0 && (firstPosition_ || atEnd_);
}

void TCustomSQLDataSet::RequestRecordCount() {
  CheckActive();
  if (RecordCountKnown()) return;
  counter_->Start(CountStatement({}), [this](int64_t count) {
    if (count_) return;
    count_ = count;
    if (onRecordCount_) onRecordCount_(this);
  });
}

void TCustomSQLDataSet::ForgetCount() {
  count_.reset();
  if (counter_) counter_->Forget();
}

// The cache may change while a count is awaited; the position is taken only for the
// front row it was counted for.
int64_t TCustomSQLDataSet::FirstPosition() const {
  while (!firstPosition_) {
    if (rows_.empty() || HandlerFilters()) return -1;
    const TRowPtr front = rows_.front();
    const bool atEnd = atEnd_;
    const int64_t counted = atEnd ? Count() : RowsBefore(front);
    if (firstPosition_ || rows_.empty() || rows_.front() != front || atEnd_ != atEnd) continue;
    firstPosition_ = atEnd ? counted - int64_t(rows_.size()) : counted;
  }
  return *firstPosition_;
}

bool TCustomSQLDataSet::HandlerFilters() const { return Filtered() && bool(OnFilterRecord()); }

bool TCustomSQLDataSet::Accepts(const TRowPtr& row) {
  if (!HandlerFilters()) return true;
  Record(filterRecord_)->row = row;
  TStateScope scope(*this, dsFilter);
  SetFilterBuffer(filterRecord_);
  bool accept = true;
  OnFilterRecord()(this, accept);
  return accept;
}

void TCustomSQLDataSet::CheckCacheConsistency() const {
  if (cursor_ < -1 || cursor_ > int(rows_.size())) throw std::logic_error("the cursor is outside the cache");
  if (rows_.size() > size_t(fetchSize_) * size_t(cacheFetches_)) throw std::logic_error("the cache outgrew its bound");
  for (size_t index = 1; index < rows_.size(); ++index)
    if (KeyValues(*rows_[index - 1]) == KeyValues(*rows_[index])) throw std::logic_error("a row is cached twice");
  if (count_ && firstPosition_ && *count_ >= 0 && *firstPosition_ + int64_t(rows_.size()) > *count_)
    throw std::logic_error("the cache reaches past the counted rows");
}

// --- Buffers and the cursor -----------------------------------------------------------

TRecordBuffer TCustomSQLDataSet::AllocRecordBuffer() { return reinterpret_cast<TRecordBuffer>(new TRecord); }

void TCustomSQLDataSet::FreeRecordBuffer(TRecordBuffer& buffer) {
  delete Record(buffer);
  buffer = nullptr;
}

TGetResult TCustomSQLDataSet::GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
  if (mode == gmNext) {
    cursor_ = std::min(cursor_ + 1, int(rows_.size()));
    while (cursor_ >= int(rows_.size()))
      if (!Extend(TEnd::Back)) return grEOF;
  } else if (mode == gmPrior) {
    cursor_ = std::max(cursor_ - 1, -1);
    while (cursor_ < 0)
      if (!Extend(TEnd::Front)) return grBOF;
  } else if (cursor_ >= int(rows_.size()) && !atEnd_) {
    Extend(TEnd::Back);
  }
  if (cursor_ < 0) return grBOF;
  if (cursor_ >= int(rows_.size())) return grEOF;
  TRecord* record = Record(buffer);
  record->row = rows_[size_t(cursor_)];
  record->flag = bfCurrent;
  record->pending.reset();
  GetCalcFields(buffer);
  (void)doCheck;  // a fetch that fails raises whatever doCheck says
  return grOK;
}

void TCustomSQLDataSet::InternalFirst() {
  if (!atStart_) ResetCache(true, false);
  cursor_ = -1;
}

void TCustomSQLDataSet::InternalLast() {
  if (!atEnd_) ResetCache(false, true);
  cursor_ = int(rows_.size());
}

void TCustomSQLDataSet::InternalSetToRecord(TRecordBuffer buffer) {
  const TRowPtr& row = Record(buffer)->row;
  if (!row) return;
  const int index = IndexOfRow(row);
  if (index >= 0) cursor_ = index;
  else Seek(*row);
}

int TCustomSQLDataSet::GetRecordCount() const {
  CheckActive();
  return int(Count());
}

int TCustomSQLDataSet::GetRecNo() const {
  CheckActive();
  if (IsEmpty()) return -1;
  const TRecord* record = Record(State() == dsCalcFields ? CalcBuffer() : ActiveBuffer());
  if (record->flag != bfCurrent || !record->row) return -1;
  const int index = IndexOfRow(record->row);
  if (index < 0 && HandlerFilters()) return -1;
  if (index < 0) return int(RowsBefore(record->row) + 1);
  const int64_t first = FirstPosition();
  return first < 0 ? -1 : int(first + index + 1);
}

void TCustomSQLDataSet::SetRecNo(int value) {
  CheckBrowseMode();
  if (value < 1 || value == GetRecNo() || HandlerFilters() || value > Count()) return;
  DoBeforeScroll();
  const int64_t position = value - 1;
  const int64_t first = rows_.empty() ? -1 : FirstPosition();
  if (first >= 0 && position >= first && position < first + int64_t(rows_.size())) cursor_ = int(position - first);
  else LoadAt(position);
  Resync({rmCenter});
  DoAfterScroll();
}

}  // namespace quil
