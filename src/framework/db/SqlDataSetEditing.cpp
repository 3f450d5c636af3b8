// Editing, bookmarks, field values and the filter of TCustomSQLDataSet.

#include <QSqlQuery>
#include <QSqlRecord>
#include <cstring>

#include "framework/db/Field.h"
#include "framework/db/SqlDataSet.h"
#include "framework/db/SqlFilter.h"
#include "framework/rtl/RtlConsts.h"

namespace quil {

// --- Field values ---------------------------------------------------------------------

bool TCustomSQLDataSet::GetFieldData(TField* field, void* buffer) {
  if (field->FieldNo() <= 0) return TDataSet::GetFieldData(field, buffer);
  TRecordBuffer recordBuffer = StateBuffer();
  if (!recordBuffer) return false;
  const TRecord* record = Record(recordBuffer);
  const TRow* row = record->pending ? record->pending.get() : record->row.get();
  if (!row) return false;
  const Variant& value = (*row)[size_t(field->FieldNo() - 1)];
  if (VarIsNull(value) || VarIsEmpty(value)) return false;
  if (buffer) VariantToNative(field->NativeKind(), value, buffer);
  return true;
}

void TCustomSQLDataSet::SetFieldData(TField* field, const void* buffer) {
  if (field->FieldNo() <= 0) {
    TDataSet::SetFieldData(field, buffer);
    return;
  }
  CheckFieldWrite(field, buffer);
  TRecord* record = Record(StateBuffer());
  if (!record->pending) record->pending = std::make_unique<TRow>(record->row ? *record->row : TRow(columns_.size(), Null()));
  (*record->pending)[size_t(field->FieldNo() - 1)] = buffer ? NativeToVariant(field->NativeKind(), buffer) : Null();
  FieldWritten(field);
}

// --- Editing --------------------------------------------------------------------------

void TCustomSQLDataSet::InternalInitRecord(TRecordBuffer buffer) {
  Record(buffer)->pending = std::make_unique<TRow>(columns_.size(), Null());
}

void TCustomSQLDataSet::InternalEdit() {
  TRecord* record = Record(ActiveBuffer());
  record->pending = std::make_unique<TRow>(*record->row);
}

void TCustomSQLDataSet::InternalCancel() { Record(ActiveBuffer())->pending.reset(); }

void TCustomSQLDataSet::InternalPost() {
  TDataSet::InternalPost();
  TRecord* record = Record(ActiveBuffer());
  if (!record->pending) return;
  const TRowPtr written = State() == dsInsert ? Insert(*record->pending) : Update(*record->row, *record->pending);
  record->pending.reset();
  record->row = written;
  record->flag = bfCurrent;
  ForgetCount();
  Seek(*written);
}

void TCustomSQLDataSet::InternalAddRecord(TRecordBuffer buffer, bool append) {
  TRecord* record = Record(buffer);
  const TRowPtr written = Insert(record->pending ? *record->pending : TRow(columns_.size(), Null()));
  (void)append;  // the row takes its place in the order, wherever it was added
  ForgetCount();
  Seek(*written);
}

void TCustomSQLDataSet::InternalDelete() {
  const TRecord* record = Record(ActiveBuffer());
  const TSQLClause key = KeyCondition(KeyValues(*record->row));
  TSQLWriteTransaction transaction(CheckConnection());
  QSqlQuery query = Run(QStringLiteral("DELETE FROM %1 WHERE %2").arg(QuoteIdentifier(table_), key.sql), key.values);
  if (query.numRowsAffected() == 0) DatabaseError(SRecordNotFound, this);
  transaction.Commit();
  const int index = IndexOfRow(record->row);
  if (index >= 0) {
    rows_.erase(rows_.begin() + index);
    cursor_ = index;
  }
  const std::optional<int64_t> count = count_;
  ForgetCount();
  if (count && *count > 0) count_ = *count - 1;
}

// Runs an INSERT or UPDATE ... RETURNING * and gives the row as stored, in the order of
// the data set's columns; a column the table does not return keeps the written value.
TCustomSQLDataSet::TRowPtr TCustomSQLDataSet::Write(const QString& sql, const std::vector<QVariant>& values) {
  TSQLWriteTransaction transaction(CheckConnection());
  QSqlQuery query = Run(sql + QStringLiteral(" RETURNING *"), values);
  if (!query.next()) DatabaseError(QStringLiteral("The record was changed or deleted by another user"), this);
  const QSqlRecord returned = query.record();
  auto row = std::make_shared<TRow>();
  for (const TSQLColumn& column : columns_) {
    const int index = returned.indexOf(column.name);
    row->push_back(index < 0 ? Null() : FromSqlValue(query.value(index), column.type));
  }
  query.finish();
  transaction.Commit();
  return row;
}

TCustomSQLDataSet::TRowPtr TCustomSQLDataSet::Insert(const TRow& values) {
  QStringList names;
  QStringList marks;
  std::vector<QVariant> bound;
  for (size_t column = 0; column < columns_.size(); ++column) {
    if (VarIsNull(values[column]) || VarIsEmpty(values[column])) continue;
    names.append(QuoteIdentifier(columns_[column].name));
    marks.append(QStringLiteral("?"));
    bound.push_back(ToSqlValue(values[column], columns_[column].type, Dialect()));
  }
  const QString sql = names.isEmpty()
                          ? QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(QuoteIdentifier(table_))
                          : QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                .arg(QuoteIdentifier(table_), names.join(QLatin1String(", ")), marks.join(QLatin1String(", ")));
  return Write(sql, bound);
}

TCustomSQLDataSet::TRowPtr TCustomSQLDataSet::Update(const TRow& original, const TRow& values) {
  QStringList assignments;
  std::vector<QVariant> bound;
  for (size_t column = 0; column < columns_.size(); ++column) {
    if (values[column] == original[column] && VarIsNull(values[column]) == VarIsNull(original[column])) continue;
    assignments.append(QuoteIdentifier(columns_[column].name) + QLatin1String(" = ?"));
    bound.push_back(ToSqlValue(values[column], columns_[column].type, Dialect()));
  }
  if (assignments.isEmpty()) return std::make_shared<TRow>(original);
  const TSQLClause key = KeyCondition(KeyValues(original));
  bound.insert(bound.end(), key.values.begin(), key.values.end());
  return Write(QStringLiteral("UPDATE %1 SET %2 WHERE %3")
                   .arg(QuoteIdentifier(table_), assignments.join(QLatin1String(", ")), key.sql),
               bound);
}

void TCustomSQLDataSet::InternalRefresh() {
  const TRowPtr current = cursor_ >= 0 && cursor_ < int(rows_.size()) ? rows_[size_t(cursor_)] : nullptr;
  ForgetCount();
  if (current) Seek(*current);
  else ResetCache(true, false);
}

// --- Bookmarks ------------------------------------------------------------------------

namespace {

std::string KeyText(const std::vector<QVariant>& key) {
  QString text;
  for (const QVariant& value : key)
    text += (value.isNull() ? QStringLiteral("\x01") : value.toString()) + QLatin1Char('\x1f');
  return text.toStdString();
}

}  // namespace

void TCustomSQLDataSet::GetBookmarkData(TRecordBuffer buffer, uint8_t* data) const {
  const std::vector<QVariant> key = KeyValues(*Record(buffer)->row);
  const std::string text = KeyText(key);
  auto found = bookmarkIds_.find(text);
  if (found == bookmarkIds_.end()) {
    found = bookmarkIds_.emplace(text, int64_t(bookmarkKeys_.size())).first;
    bookmarkKeys_.push_back(key);
  }
  std::memcpy(data, &found->second, sizeof(int64_t));
}

std::vector<QVariant> TCustomSQLDataSet::BookmarkKey(const uint8_t* bookmark) const {
  int64_t id = -1;
  std::memcpy(&id, bookmark, sizeof(id));
  if (id < 0 || id >= int64_t(bookmarkKeys_.size())) return {};
  return bookmarkKeys_[size_t(id)];
}

void TCustomSQLDataSet::SetBookmarkData(TRecordBuffer buffer, const uint8_t* data) {
  const std::vector<QVariant> key = BookmarkKey(data);
  Record(buffer)->row = key.empty() ? nullptr : RowByKey(key);
}

void TCustomSQLDataSet::InternalGotoBookmark(const uint8_t* bookmark) {
  const std::vector<QVariant> key = BookmarkKey(bookmark);
  const TRowPtr row = key.empty() ? nullptr : RowByKey(key);
  if (!row) DatabaseError(SRecordNotFound, this);
  const int index = IndexOfRow(row);
  if (index >= 0) cursor_ = index;
  else Seek(*row);
}

TBookmarkFlag TCustomSQLDataSet::GetBookmarkFlag(TRecordBuffer buffer) const { return Record(buffer)->flag; }
void TCustomSQLDataSet::SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag flag) { Record(buffer)->flag = flag; }

bool TCustomSQLDataSet::BookmarkValid(const TBookmark& bookmark) const {
  if (!Active() || bookmark.size() != sizeof(int64_t)) return false;
  const std::vector<QVariant> key = BookmarkKey(bookmark.data());
  return !key.empty() && RowByKey(key) != nullptr;
}

int TCustomSQLDataSet::CompareBookmarks(const TBookmark& a, const TBookmark& b) const {
  if (a.empty() || b.empty()) return a.empty() == b.empty() ? 0 : (a.empty() ? 1 : -1);
  if (a == b) return 0;
  const TRowPtr rowA = RowByKey(BookmarkKey(a.data()));
  const TRowPtr rowB = RowByKey(BookmarkKey(b.data()));
  if (!rowA || !rowB) return rowA == rowB ? 0 : (rowA ? -1 : 1);
  // a comes first when its row lies before b's in the order.
  const TSQLClause before = keyset_.Condition(OrderValues(*rowB), TSQLKeyset::TDirection::Before);
  return CountHere(CountStatement({KeyCondition(KeyValues(*rowA)), before})) > 0 ? -1 : 1;
}

// --- The filter -----------------------------------------------------------------------

// Reopening with the same filter over the catalog's columns parses nothing again.
TSQLClause TCustomSQLDataSet::CurrentFilterClause(const QString& text, TFilterOptions options, bool filtered) const {
  if (!filtered || text.trimmed().isEmpty()) return {};
  if (filterMemo_ && filterMemo_->catalogKey == catalogKey_ && filterMemo_->text == text && filterMemo_->options == options)
    return filterMemo_->clause;
  TSQLClause clause = TranslateFilter(text, columns_, options, Dialect());
  filterMemo_ = TFilterMemo{text, catalogKey_, options, clause};
  return clause;
}

// Translates before anything changes, so that a text the database cannot run raises
// and leaves the filter in force as it was.
void TCustomSQLDataSet::ApplyFilter(const QString& text, TFilterOptions options, bool filtered) {
  if (!Active()) return;
  TSQLClause clause = CurrentFilterClause(text, options, filtered);
  CheckBrowseMode();
  filter_ = std::move(clause);
  ForgetCount();
  ResetCache(true, false);
}

void TCustomSQLDataSet::SetFilterText(const QString& text) {
  ApplyFilter(text, FilterOptions(), Filtered());
  TDataSet::SetFilterText(text);
  if (Active()) First();
}

void TCustomSQLDataSet::SetFiltered(bool value) {
  ApplyFilter(Filter(), FilterOptions(), value);
  TDataSet::SetFiltered(value);
  if (Active()) First();
}

void TCustomSQLDataSet::SetFilterOptions(TFilterOptions options) {
  ApplyFilter(Filter(), options, Filtered());
  TDataSet::SetFilterOptions(options);
  if (Active()) First();
}

}  // namespace quil
