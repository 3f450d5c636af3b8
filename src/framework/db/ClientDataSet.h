#pragma once
// TCustomClientDataSet: an in-memory data set of typed rows, on TDataSet's contract.
//
// Rows live in columns (TClientColumn), one per field definition, and are named by a
// row number that never changes while the data is loaded: that number is the
// bookmark, so a bookmark survives posting, deleting other rows and changing the
// index. A deleted row keeps its number, unused. The cursor walks the view: the live
// rows in their natural order (as appended or inserted), sorted by the current index
// (IndexFieldNames or IndexName; stable, so equal keys keep the natural order), and
// without the rows that the filter refuses (Filter text and OnFilterRecord, both
// while Filtered). A post puts the row back into the view where the index wants it.
//
// The data outlives Close; CreateDataSet, LoadFromFile and EmptyDataSet replace it.
//
// Structured fields (ftADT, ftArray) keep their children's values in the children's
// columns, one per definition of FieldDefList; ObjectView is on from construction.
//
// File format (SaveToFile, LoadFromFile): UTF-8 JSON,
//   {"format": "quil-dataset", "version": 1,
//    "fields": [{"name": "ID", "type": "ftInteger", "size": 0, "required": false}, ...],
//    "indexes": [{"name": "ByName", "fields": "Name", "descFields": "", "caseInsFields": "",
//                 "options": ["ixDescending"]}, ...],
//    "rows": [[1, "Smith", null, ...], ...]}
// Fields as FieldDefList lists them; a child names its structured parent by its index
// in "fields" ("parent": 2), a top-level field has no "parent".
// Rows in natural order, one value per field (null for a structured one): null for no value; integers, reals,
// currency (as a real) and dates (TDateTime days as a real) as JSON numbers, 64-bit
// integers beyond 2^53 as decimal strings; Booleans as true and false; text as strings;
// bytes as Base64 strings.

#include <QString>
#include <memory>
#include <vector>

#include "framework/db/ClientColumn.h"
#include "framework/db/DataSet.h"
#include "framework/db/FilterExpression.h"
#include "framework/db/IndexDefs.h"

namespace quil {

class TCustomClientDataSet : public TDataSet {
public:
  explicit TCustomClientDataSet(TComponent* owner);
  ~TCustomClientDataSet() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // Makes empty data from FieldDefs (or from the persistent fields) and opens.
  void CreateDataSet();
  // Removes every row.
  void EmptyDataSet();
  void SaveToFile(const QString& fileName = {});
  // Replaces definitions, indexes and rows with the file's, and opens.
  void LoadFromFile(const QString& fileName = {});

  // Where the data comes from; empty for data made in code.
  const QString& CommandText() const { return commandText_; }
  void SetCommandText(const QString& text) { commandText_ = text; }
  // Opening without data loads this file.
  const QString& FileName() const { return fileName_; }
  void SetFileName(const QString& fileName) { fileName_ = fileName; }
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);

  // ";"-separated fields of an ascending order; clears IndexName.
  const QString& IndexFieldNames() const { return indexFieldNames_; }
  void SetIndexFieldNames(const QString& fieldNames);
  // A definition of IndexDefs; clears IndexFieldNames.
  const QString& IndexName() const { return indexName_; }
  void SetIndexName(const QString& name);
  TIndexDefs* IndexDefs() const { return indexDefs_.get(); }
  void AddIndex(const QString& name, const QString& fields, TIndexOptions options,
                const QString& descFields = {}, const QString& caseInsFields = {}, int groupingLevel = 0);
  // Deleting the current index returns to the natural order.
  void DeleteIndex(const QString& name);

  void SetRecNo(int value) override;
  bool BookmarkValid(const TBookmark& bookmark) const override;
  int CompareBookmarks(const TBookmark& a, const TBookmark& b) const override;
  // Fields of fixed-size values read a browsed stored row from the columns without
  // asking this (DirectFieldReads).
  bool GetFieldData(TField* field, void* buffer) override;
  void SetFieldData(TField* field, const void* buffer) override;
  void SetFiltered(bool value) override;
  void SetFilterOptions(TFilterOptions options) override;
  void SetOnFilterRecord(const TFilterRecordEvent& handler) override;

protected:
  // Whether fields of fixed-size values read browsed stored rows straight from the
  // columns; on by default. A descendant that overrides GetFieldData turns it off, or
  // its override misses those reads.
  bool DirectFieldReads() const { return directFieldReads_; }
  void SetDirectFieldReads(bool value);
  TRecordBuffer AllocRecordBuffer() override;
  void FreeRecordBuffer(TRecordBuffer& buffer) override;
  TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) override;
  void InternalOpen() override;
  void InternalClose() override;
  bool IsCursorOpen() const override { return cursorOpen_; }
  void InternalFirst() override { cursor_ = -1; }
  void InternalLast() override { cursor_ = int(view_.size()); }
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
  int GetRecordCount() const override;
  int GetRecordSize() const override;
  int GetRecNo() const override;
  bool GetCanModify() const override { return !readOnly_; }
  void SetFilterText(const QString& text) override;

private:
  class TRecord;
  struct TIndexKey {
    int column;
    bool descending;
    bool caseInsensitive;
  };
  class TFilterRecord;

  static TRecord* Record(TRecordBuffer buffer) { return reinterpret_cast<TRecord*>(buffer); }

  // Data
  void ResetStore();
  // GetRecord's end for a buffer that held values being written or has calculated ones.
  TGetResult ShowCalculated(TRecordBuffer buffer, int position);
  // Gives each data field its column's store, or takes them away (DirectFieldReads).
  void UpdateFieldStores();
  // Replaces definitions, indexes and rows with the file's; raises before changing
  // anything when the file cannot be read.
  void ReadFile(const QString& fileName);
  int AppendRow(const std::vector<Variant>& values);
  void WriteRow(int row, const std::vector<Variant>& values);
  std::vector<Variant> RowValues(int row) const;
  // The view
  void RebuildView();
  bool Less(int rowA, int rowB) const;
  bool Accepts(int row);
  bool FilterActive() const;
  int PositionOf(int row) const;
  int RecordPosition(const TRecord* record) const;
  void ViewChanged();
  // Puts a posted row where the index and the filter want it, near position without an
  // index; current is its index in the view before, -1 for a new row.
  void PlaceRow(int row, int position, int current);
  int IndexedPosition(int row) const;
  void ChangeView(const std::vector<TIndexKey>& keys, const QString& fieldNames, const QString& indexName);
  std::vector<TIndexKey> KeysFor(const QString& fieldNames, const QString& indexName) const;
  void RefreshView();
  TFilterExpression CompileFilter(const QString& text, TFilterOptions options) const;
  int InsertPosition(const TRecord* record) const;

  // One per definition of FieldDefList, in its order; a structured one holds no values
  // of its own, its children do.
  struct TColumnDef {
    TFieldType type;
    QString name;
    int size;
    bool required;
    int parent;  // the column of the structured definition above; -1 at the top
  };
  // Columns from the definitions, and definitions from the columns.
  void TakeColumnDefs(std::vector<TColumnDef> defs);
  void MakeFieldDefs();

  // The rows
  std::vector<TColumnDef> columnDefs_;
  std::vector<TClientColumn> columns_;
  std::vector<QString> columnNames_;  // full names, as filters and indexes name the columns
  std::vector<uint8_t> deleted_;
  bool hasData_ = false;
  std::vector<int32_t> natural_;
  std::vector<int32_t> view_;
  mutable std::vector<int32_t> positions_;  // row -> index in view_, -1 outside it
  mutable bool positionsValid_ = false;
  uint32_t viewVersion_ = 0;
  int cursor_ = -1;  // index in view_: -1 before the first row, view_.size() after the last
  bool cursorOpen_ = false;

  std::vector<TIndexKey> indexKeys_;
  QString indexFieldNames_;
  QString indexName_;
  std::unique_ptr<TIndexDefs> indexDefs_;
  TFilterExpression filter_;
  // Calculated and lookup fields that the filter reads, after the columns.
  mutable std::vector<TField*> filterFields_;
  TRecordBuffer filterRecord_ = nullptr;

  QString commandText_;
  QString fileName_;
  bool readOnly_ = false;
  bool directFieldReads_ = true;

  friend class TClientDataSetFile;
};

class TClientDataSet : public TCustomClientDataSet {
public:
  explicit TClientDataSet(TComponent* owner) : TCustomClientDataSet(owner) {}
  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;
};

}  // namespace quil
