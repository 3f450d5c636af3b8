#pragma once
// TCustomSQLDataSet: a data set over a SELECT that fetches what the grid shows, not
// the table. TSQLQuery (SqlQuery.h) and TSQLTable (SqlTable.h) give it the statement.
//
// Fetch design: keyset paging. The statement runs wrapped as
//   SELECT <columns> FROM (<statement without ORDER BY>) q [WHERE <filter>] ORDER BY <order>, <key>
// where <order> is the statement's ORDER BY (or the table's IndexFieldNames) and <key>
// the primary key (or KeyFields), so that the order is total and every row has one
// place. A statement without a key (a join, a grouping, a table without a declared
// primary key) needs KeyFields; opening it otherwise raises. A fetch reads FetchSize rows after the last cached row ("WHERE (order, key) >
// (that row's values) ... LIMIT n") or before the first (the order reversed), so that
// scrolling anywhere costs one indexed range read, never an OFFSET from the start.
//
// The cache is one run of consecutive rows, at most CacheFetches fetches long; a fetch
// at one end drops rows at the other. Record buffers hold their own row, so dropping
// cached rows never touches what is on screen. Memory is the rows shown plus the cache,
// whatever the table's size.
//
// Opening runs only the first fetch (no count). First and Last jump to the ends:
// Last fetches with the order reversed and LIMIT, so it costs what the first screen
// costs. RecNo(n) far from the cache reads "LIMIT FetchSize OFFSET n", from whichever
// end is nearer once the count is known. Bookmarks and edits re-seek with "at or after
// this row".
//
// RecordCount and RecNo are exact. The count comes free when the cache has reached both
// ends; otherwise it is "SELECT count(*)" over the same filtered statement, kept until
// the statement, filter or data change (insert and delete adjust it). The position of
// the first cached row is known when the cache grew from either end; otherwise RecNo
// asks "SELECT count(*) ... WHERE (order, key) < (row)" once. Each count runs on an index
// where the database has one, but may still scan millions of rows, so it runs on a
// worker thread over a connection of its own (SqlCounter_p.h says when it cannot).
// RecordCount and RecNo wait for it with the event loop running: the GUI paints and
// answers input, and the answer is exact, never an estimate. A caller that must not
// wait (a scroll bar, a grid that numbers its rows) asks IsSequenced or
// RecordCountKnown, calls RequestRecordCount, and hears OnRecordCount when the count
// has arrived. Opening, scrolling, First and Last count
// nothing.
//
// Editing writes back by primary key with generated INSERT, UPDATE and DELETE inside a
// transaction (a savepoint in the application's own one), and reads the row back
// through RETURNING, so that the buffer holds what the database stored. A failed write
// raises EDatabaseError with the database's message, rolls back, and leaves the record
// in its edit state with the user's values.
//
// Locate and Lookup run the key test in the database (SqlDataSetLocate.cpp) and seek
// to the first match as a bookmark does.
//
// OnFilterRecord runs on every fetched row on top of the database's filter. While it
// does, RecNo and RecordCount are known only for rows the cache walked from the start
// (else -1): the database cannot count what the handler refuses.

#include <QString>
#include <QVariant>
#include <deque>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "framework/db/DataSet.h"
#include "framework/db/SqlStatement.h"
#include "framework/db/SqlTypes.h"

class QSqlQuery;

namespace quil {
class TSQLCounter;
}

namespace quil {

class TCustomSQLDataSet : public TDataSet {
public:
  explicit TCustomSQLDataSet(TComponent* owner);
  ~TCustomSQLDataSet() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TSQLConnection* Connection() const { return connection_; }
  void SetConnection(TSQLConnection* connection);
  // ";"-separated columns that identify a row; empty takes the table's primary key.
  const QString& KeyFields() const { return keyFields_; }
  void SetKeyFields(const QString& fields);
  // Rows read by one fetch, and how many fetches the cache keeps.
  int FetchSize() const { return fetchSize_; }
  void SetFetchSize(int rows);
  int CacheFetches() const { return cacheFetches_; }
  void SetCacheFetches(int fetches);
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }

  void SetRecNo(int value) override;
  bool BookmarkValid(const TBookmark& bookmark) const override;
  int CompareBookmarks(const TBookmark& a, const TBookmark& b) const override;
  bool GetFieldData(TField* field, void* buffer) override;
  void SetFieldData(TField* field, const void* buffer) override;
  void SetFiltered(bool value) override;
  void SetFilterOptions(TFilterOptions options) override;

  // Whether RecordCount answers without counting.
  bool RecordCountKnown() const;
  // Whether RecordCount and the active record's RecNo both answer without counting.
  bool IsSequenced() const override;
  // Starts counting in the background; OnRecordCount fires when the count is known.
  void RequestRecordCount();
  const TDataSetNotifyEvent& OnRecordCount() const { return onRecordCount_; }
  void SetOnRecordCount(const TDataSetNotifyEvent& handler) { onRecordCount_ = handler; }

  // Rows held by the cache, for tests of its bound.
  int CachedRowCount() const { return int(rows_.size()); }
  // Raises std::logic_error when the cache is not one ordered run.
  void CheckCacheConsistency() const;

protected:
  // The SELECT and the values of its "?" placeholders; the table edits write to.
  struct TSQLSource {
    TSQLSelectParts select;
    std::vector<QVariant> values;
    QString table;
    bool wholeTable = false;  // the body is "SELECT * FROM table"
  };
  virtual TSQLSource Source() const = 0;
  // Closes and opens again, for a change of statement or order.
  void Reopen();

  TRecordBuffer AllocRecordBuffer() override;
  void FreeRecordBuffer(TRecordBuffer& buffer) override;
  TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) override;
  void InternalOpen() override;
  void InternalClose() override;
  bool IsCursorOpen() const override { return cursorOpen_; }
  void InternalFirst() override;
  void InternalLast() override;
  void InternalInitFieldDefs() override;
  void InternalInitRecord(TRecordBuffer buffer) override;
  void InternalSetToRecord(TRecordBuffer buffer) override;
  void InternalGotoBookmark(const uint8_t* bookmark) override;
  void GetBookmarkData(TRecordBuffer buffer, uint8_t* data) const override;
  void SetBookmarkData(TRecordBuffer buffer, const uint8_t* data) override;
  TBookmarkFlag GetBookmarkFlag(TRecordBuffer buffer) const override;
  void SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag flag) override;
  void InternalPost() override;
  void InternalDelete() override;
  void InternalAddRecord(TRecordBuffer buffer, bool append) override;
  void InternalEdit() override;
  void InternalCancel() override;
  void InternalRefresh() override;
  int GetRecordCount() const override;
  int GetRecNo() const override;
  bool GetCanModify() const override { return !readOnly_ && !table_.isEmpty(); }
  void SetFilterText(const QString& text) override;
  bool LocateRecord(const QString& keyFields, const Variant& keyValues, TLocateOptions options,
                    bool syncCursor) override;
  void Notification(TComponent* component, TOperation operation) override;

private:
  using TRow = std::vector<Variant>;
  using TRowPtr = std::shared_ptr<const TRow>;
  // One record buffer: the row it shows and, while editing or inserting, the values
  // being written, which reach the database at Post.
  struct TRecord {
    TRowPtr row;
    TBookmarkFlag flag = bfCurrent;
    std::unique_ptr<TRow> pending;
  };
  enum class TEnd { Front, Back };

  static TRecord* Record(TRecordBuffer buffer) { return reinterpret_cast<TRecord*>(buffer); }
  TSQLConnection& CheckConnection() const;
  TSQLDialect Dialect() const { return CheckConnection().Dialect(); }

  // Opening
  QStringList ReadColumns(const TSQLSource& source);
  // The columns and key: read from the catalog, or as the last opening read them.
  void ResolveColumns(const TSQLSource& source);
  void CheckColumnsUnchanged(const QSqlQuery& query) const;
  void CheckSchemaUnchanged(qlonglong version) const;
  // The key is KeyFields, else the table's primary key (keyNames when already known).
  void ResolveKeys(const TSQLSource& source, QStringList keyNames);
  void BuildStatement(const TSQLClause& filter);
  TSQLClause CurrentFilterClause(const QString& text, TFilterOptions options, bool filtered) const;
  void ApplyFilter(const QString& text, TFilterOptions options, bool filtered);

  // Running statements
  QSqlQuery Run(const QString& sql, const std::vector<QVariant>& values) const;
  std::vector<TRowPtr> FetchRows(const QString& sql, const std::vector<QVariant>& values) const;
  // The wrapped statement restricted by the filter and the conditions, with all values.
  TSQLClause Select(const std::vector<TSQLClause>& conditions) const;
  TSQLClause KeyCondition(const std::vector<QVariant>& key) const;
  TSQLClause CountStatement(const std::vector<TSQLClause>& conditions) const;
  int64_t CountHere(const TSQLClause& statement) const;
  // The rows before `row` in the order, counted as the design note says.
  int64_t RowsBefore(const TRowPtr& row) const;
  // The count and the counts under way no longer hold: the data or the filter changed.
  void ForgetCount();
  std::vector<QVariant> OrderValues(const TRow& row) const;
  std::vector<QVariant> KeyValues(const TRow& row) const;
  TRowPtr RowByKey(const std::vector<QVariant>& key) const;

  // The cache
  void ResetCache(bool atStart, bool atEnd);
  std::vector<TRowPtr> FetchBeyond(const TRowPtr& anchor, TEnd end, int limit) const;
  int FetchLimit() const;
  bool Extend(TEnd end);
  void Trim(TEnd keep);
  void Seek(const TRow& row);
  void LoadAt(int64_t position);
  int IndexOfRow(const TRowPtr& row) const;
  int64_t FirstPosition() const;
  int64_t Count() const;
  bool HandlerFilters() const;
  bool Accepts(const TRowPtr& row);

  // Locating
  std::optional<TSQLClause> LocateCondition(const QString& keyFields, const Variant& keyValues,
                                            TLocateOptions options) const;
  TRowPtr FirstMatch(const TSQLClause& condition);

  // Writing
  TRowPtr Write(const QString& sql, const std::vector<QVariant>& values);
  TRowPtr Insert(const TRow& values);
  TRowPtr Update(const TRow& original, const TRow& values);
  std::vector<QVariant> BookmarkKey(const uint8_t* bookmark) const;

  TSQLConnection* connection_ = nullptr;
  QString keyFields_;
  int fetchSize_ = 100;
  int cacheFetches_ = 8;
  bool readOnly_ = false;

  // Fixed at opening
  std::vector<TSQLColumn> columns_;
  std::vector<int> orderColumns_;  // column of each keyset item
  std::vector<int> keyColumns_;
  TSQLKeyset keyset_;
  QString table_;
  QString statement_;  // the wrapped SELECT without ORDER BY, naming its columns on SQLite
  std::vector<QVariant> statementValues_;
  TSQLClause filter_;
  bool cursorOpen_ = false;
  TRecordBuffer filterRecord_ = nullptr;
  std::unique_ptr<TSQLCounter> counter_;

  // What the catalog said at the last opening, kept across closing, so that reopening
  // (for a new order, filter or parameter) reads no catalog. Another connection may
  // change the schema unseen: the first fetch compares the columns it gets.
  QString catalogKey_;
  std::vector<TSQLColumn> catalogColumns_;
  QStringList catalogKeyNames_;
  QString catalogStatement_;  // statement_ as it named the catalog's columns
  // The last filter translated, with what it was translated from.
  struct TFilterMemo {
    QString text, catalogKey;
    TFilterOptions options;
    TSQLClause clause;
  };
  mutable std::optional<TFilterMemo> filterMemo_;
  qlonglong catalogSchema_ = -1;  // SQLite's schema version when the catalog was read
  mutable bool checkColumns_ = false;
  TDataSetNotifyEvent onRecordCount_;

  // The cache: consecutive rows in order; cursor_ indexes it, -1 before its first row
  // and rows_.size() after its last.
  std::deque<TRowPtr> rows_;
  bool atStart_ = true;  // rows_ begins with the first row of the result
  bool atEnd_ = false;   // rows_ ends with the last row of the result
  int cursor_ = -1;
  mutable std::optional<int64_t> firstPosition_;  // 0-based position of rows_.front()
  mutable std::optional<int64_t> count_;

  // Bookmarks name a key through this registry, so that they are of one size and stay
  // valid across closing and re-opening; it grows with the bookmarks handed out.
  mutable std::vector<std::vector<QVariant>> bookmarkKeys_;
  mutable std::unordered_map<std::string, int64_t> bookmarkIds_;
};

}  // namespace quil
