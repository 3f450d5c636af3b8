#pragma once
// TDataSet: the buffered cursor over records that every data-aware part reads through.
//
// The record window. The data set keeps BufferCount record buffers, the largest
// BufferCount of its data links, and a spare one. Buffers 0 .. RecordCount-1 hold
// consecutive records; ActiveRecord is the current one, and the buffer at index
// RecordCount is free (TempBuffer). Moving the cursor past either edge of the window
// fetches one record through GetRecord into the spare buffer and rotates the window,
// reporting the rotation to the data links in deDataSetScroll, from which each link
// works out how far its own rows moved (TDataLink::DataSetScrolled).
//
// The descendant's cursor (its own position among the records) is separate from the
// window: CurrentRecord names the buffer that the descendant's cursor stands on, -1
// when unknown, and SetCurrentRecord puts the cursor back on a buffer before a fetch.
//
// Which buffer a field reads and writes follows State: the active buffer in dsBrowse,
// dsEdit and dsInsert, CalcBuffer in dsCalcFields, FilterBuffer in dsFilter
// (StateBuffer). Calculated and lookup fields keep their values beside each buffer,
// in storage that this class manages, unless a descendant handles them itself.
//
// Notifications go out through DataEvent to the data sources and on to their links;
// while controls are disabled they are held back, and the last EnableControls sends
// one deDataSetChange (or deLayoutChange) instead.

#include <QString>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/rtl/Component.h"
#include "framework/rtl/Events.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TDataLink;
class TDataSource;
class TField;
class TFieldDef;
class TFieldDefs;
class TFieldList;
class TFields;
struct TFieldStore;

class TDataSet;
using TDataSetNotifyEvent = TEvent<void(TDataSet* dataSet)>;
using TFilterRecordEvent = TEvent<void(TDataSet* dataSet, bool& accept)>;

class TDataSet : public TComponent {
public:
  explicit TDataSet(TComponent* owner);
  ~TDataSet() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  // --- Opening and state
  bool Active() const { return state_ != dsInactive && state_ != dsOpening; }
  void SetActive(bool active);
  void Open() { SetActive(true); }
  void Close() { SetActive(false); }
  TDataSetState State() const { return state_; }
  bool Bof() const { return bof_; }
  bool Eof() const { return eof_; }
  bool IsEmpty() const { return bof_ && eof_ && state_ != dsInsert; }
  // A field was written since the record entered dsEdit or dsInsert.
  bool Modified() const { return modified_; }
  bool CanModify() const { return GetCanModify(); }
  bool IsUniDirectional() const { return uniDirectional_; }
  // The fields were made from the definitions at opening, not kept from before.
  bool DefaultFields() const { return defaultFields_; }
  bool AutoCalcFields() const { return autoCalcFields_; }
  void SetAutoCalcFields(bool value) { autoCalcFields_ = value; }
  // Whether the last Locate or Find... found a record.
  bool Found() const { return found_; }
  // Structured fields show in Fields as one field with children, rather than with their
  // children flat behind them (Fields.h). Changes only while closed.
  bool ObjectView() const { return objectView_; }
  void SetObjectView(bool value);
  // The byte size of one record buffer as the descendant lays it out; 0 for one that
  // keeps no fixed layout. Nothing in this class sizes buffers by it: a descendant
  // allocates its own through AllocRecordBuffer.
  int RecordSize() const { return GetRecordSize(); }
  void Loaded() override;

  // --- Controls
  void DisableControls();
  void EnableControls();
  bool ControlsDisabled() const { return disableCount_ != 0; }

  // --- Navigation
  void First();
  void Last();
  void Next() { MoveBy(1); }
  void Prior() { MoveBy(-1); }
  // Returns the number of records moved, negative backwards.
  int MoveBy(int distance);
  // 1-based position of the active record, -1 when unknown.
  int RecNo() const { return GetRecNo(); }
  virtual void SetRecNo(int value) {}
  // The records of the data set (-1 when the descendant cannot tell).
  int RecordCount() const { return GetRecordCount(); }
  // Whether RecNo and RecordCount answer at once. Controls that read them while they
  // paint or scroll ask this first: a data set that must count on the server answers
  // false until it has counted, rather than make them wait.
  virtual bool IsSequenced() const { return true; }
  void Refresh();
  void Resync(TResyncMode mode);
  // Posts a modified record, cancels an unmodified one.
  void CheckBrowseMode();
  void UpdateCursorPos();
  void CursorPosChanged() { currentRecord_ = -1; }

  // --- Bookmarks: empty when there is no current record.
  TBookmark GetBookmark() const;
  void GotoBookmark(const TBookmark& bookmark);
  virtual bool BookmarkValid(const TBookmark& bookmark) const { return false; }
  // Below 0 when a comes first; an empty bookmark comes after any other.
  virtual int CompareBookmarks(const TBookmark& a, const TBookmark& b) const { return 0; }
  bool BookmarkAvailable() const;

  // --- Editing
  void Edit();
  void Insert();
  void Append();
  void Post();
  void Cancel();
  void Delete();
  // Asks the data links to write their pending edits into the fields.
  void UpdateRecord();
  void ClearFields();
  // Appends or inserts a record with the values for the first fields, and posts it.
  void AppendRecord(const std::vector<Variant>& values);
  void InsertRecord(const std::vector<Variant>& values);
  // Writes the values into the first fields; Unassigned leaves a field alone.
  void SetFields(const std::vector<Variant>& values);

  // --- Filter and search
  const QString& Filter() const { return filterText_; }
  void SetFilter(const QString& text) { SetFilterText(text); }
  bool Filtered() const { return filtered_; }
  virtual void SetFiltered(bool value) { filtered_ = value; }
  TFilterOptions FilterOptions() const { return filterOptions_; }
  virtual void SetFilterOptions(TFilterOptions options) { filterOptions_ = options; }
  const TFilterRecordEvent& OnFilterRecord() const { return onFilterRecord_; }
  virtual void SetOnFilterRecord(const TFilterRecordEvent& handler) { onFilterRecord_ = handler; }
  // Moves to the first, last, next or prior record that the filter accepts; answers
  // whether there was one. The move itself is the descendant's (FindRecord).
  bool FindFirst() { return FindRecord(true, true); }
  bool FindLast() { return FindRecord(true, false); }
  bool FindNext() { return FindRecord(false, true); }
  bool FindPrior() { return FindRecord(false, false); }
  // keyValues holds one value per field of keyFields (";"-separated), an array for
  // several. Moves to the first matching record and answers whether there was one.
  virtual bool Locate(const QString& keyFields, const Variant& keyValues, TLocateOptions options);
  // The values of resultFields in the first record that matches, Null when none; the
  // cursor does not move.
  virtual Variant Lookup(const QString& keyFields, const Variant& keyValues, const QString& resultFields);

  // --- Fields
  TFields* Fields() const { return fields_.get(); }
  TFieldList* FieldList() const;
  TFieldDefs* FieldDefs() const { return fieldDefs_.get(); }
  int FieldCount() const;
  TField* FieldByName(const QString& fieldName) const;  // raises when absent
  TField* FindField(const QString& fieldName) const;    // null when absent
  TField* FieldByNumber(int fieldNo) const;
  // The fields named in a ";"-separated list, in its order; raises for a missing one.
  std::vector<TField*> GetFieldList(const QString& fieldNames) const;
  // One field's value, or an array of the values of several.
  Variant FieldValues(const QString& fieldNames) const;
  void SetFieldValues(const QString& fieldNames, const Variant& value);

  // --- Notification
  virtual void DataEvent(TDataEvent event, intptr_t info);
  // The master source of a detail data set; null here.
  virtual TDataSource* GetDataSource() const { return nullptr; }
  // Whether dataSource reaches this data set through master links.
  bool IsLinkedTo(const TDataSource* dataSource) const;

  // --- Field values, for fields. Buffer holds the field's native form (DataTypes.h).
  virtual bool GetFieldData(TField* field, void* buffer);
  virtual void SetFieldData(TField* field, const void* buffer);

  TDataSetNotifyEvent BeforeOpen, AfterOpen, BeforeClose, AfterClose;
  TDataSetNotifyEvent BeforeInsert, AfterInsert, BeforeEdit, AfterEdit;
  TDataSetNotifyEvent BeforePost, AfterPost, BeforeCancel, AfterCancel;
  TDataSetNotifyEvent BeforeDelete, AfterDelete, BeforeScroll, AfterScroll;
  TDataSetNotifyEvent BeforeRefresh, AfterRefresh, OnCalcFields, OnNewRecord;

  // Raises std::logic_error when the record window or a link's view of it is broken.
  void CheckConsistency() const;

protected:
  // A temporary state, as while calculating or filtering a record: controls hear
  // nothing meanwhile, and state and Modified come back when the scope ends.
  class TStateScope {
  public:
    TStateScope(TDataSet& dataSet, TDataSetState state);
    ~TStateScope();
    TStateScope(const TStateScope&) = delete;
    TStateScope& operator=(const TStateScope&) = delete;

  private:
    TDataSet& dataSet_;
    TDataSetState saved_;
    bool savedModified_;
  };

  // --- The descendant's part: records and the cursor
  virtual TRecordBuffer AllocRecordBuffer() = 0;
  virtual void FreeRecordBuffer(TRecordBuffer& buffer) = 0;
  // Fetches the record at, after or before the cursor into buffer and moves the cursor
  // there. A descendant calls GetCalcFields(buffer) on grOK and raises on grError when
  // doCheck holds.
  virtual TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) = 0;
  virtual void InternalOpen() = 0;
  virtual void InternalClose() = 0;
  virtual bool IsCursorOpen() const = 0;
  virtual void InternalFirst() = 0;  // before the first record
  virtual void InternalLast() = 0;   // after the last record
  virtual void InternalInitFieldDefs() = 0;
  virtual void InternalInitRecord(TRecordBuffer buffer) = 0;
  virtual void InternalSetToRecord(TRecordBuffer buffer) = 0;
  virtual void InternalGotoBookmark(const uint8_t* bookmark) = 0;
  virtual void GetBookmarkData(TRecordBuffer buffer, uint8_t* data) const = 0;
  virtual void SetBookmarkData(TRecordBuffer buffer, const uint8_t* data) = 0;
  virtual TBookmarkFlag GetBookmarkFlag(TRecordBuffer buffer) const = 0;
  virtual void SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag flag) = 0;
  // Checks the required fields; a descendant stores the active buffer after that.
  virtual void InternalPost();
  virtual void InternalDelete() = 0;
  virtual void InternalAddRecord(TRecordBuffer buffer, bool append) = 0;
  virtual void InternalEdit() {}
  virtual void InternalCancel() {}
  virtual void InternalInsert() {}
  virtual void InternalRefresh() {}
  // Called inside a catch block for an exception that a fetch must not pass on: it goes
  // to the application's handler, or on to the caller when there is none.
  virtual void InternalHandleException();
  virtual int GetRecordCount() const { return -1; }
  virtual int GetRecNo() const { return -1; }
  // The byte size of a record buffer, for descendants that lay one out; 0 when unknown.
  virtual int GetRecordSize() const { return 0; }
  // FieldDefs changed (sender is the definitions); sets DefsChanged. A descendant that
  // derived something from the definitions drops it here, calling this too.
  virtual void DefChanged(TObject* sender) { defsChanged_ = true; }
  // The definitions changed since the data set last read them (InitFieldDefs).
  bool DefsChanged() const { return defsChanged_; }
  virtual bool FindRecord(bool restart, bool goForward);
  virtual bool GetCanModify() const { return true; }
  virtual void SetFilterText(const QString& text) { filterText_ = text; }
  // Clears the calculated and lookup values of buffer.
  virtual void ClearCalcFields(TRecordBuffer buffer);
  // Raises while the data set calculates or filters a record of its own, as from an
  // OnCalcFields or OnFilterRecord handler: descendants' LocateRecord calls it first.
  void CheckSearchAllowed() const;
  // Finds the first record that matches; with syncCursor the descendant's cursor stays
  // on it, else TempBuffer holds it and the cursor is left unknown.
  virtual bool LocateRecord(const QString& keyFields, const Variant& keyValues,
                            TLocateOptions options, bool syncCursor);

  // --- Fields
  virtual void InitFieldDefs();
  // Definitions from the persistent fields, for a data set that has no others.
  void InitFieldDefsFromFields();
  void CreateFields();
  void DestroyFields();
  // Ties each field to its definition (FieldNo) and numbers the calculated ones; takes
  // every field store away.
  void BindFields(bool binding);
  // Lets a bound data field read a browsed record's value from store, without calling
  // GetFieldData, which must answer the same. A descendant that gives stores keeps
  // at the start of each record buffer the int32_t row of the stores that holds the
  // record's values, or -1 while they must come through GetFieldData (being edited,
  // inserted, not stored). Null takes the store away.
  void SetFieldStore(TField* field, const TFieldStore* store);
  // The definition of FieldDefList with the full name; raises when there is none.
  const TFieldDef* FindFieldDef(const QString& fullName) const;
  int CalcFieldsCount() const { return calcFieldsCount_; }
  void GetCalcFields(TRecordBuffer buffer) {
    if (calcFieldsCount_ != 0) CalculateFieldsIn(buffer);
  }
  void CalculateFields(TRecordBuffer buffer);
  // The state checks of a write and the field's OnValidate; descendants call it first
  // in SetFieldData, and FieldWritten last.
  void CheckFieldWrite(TField* field, const void* buffer);
  void FieldWritten(TField* field);

  // --- The window, for descendants
  TRecordBuffer ActiveBuffer() const {
    return size_t(activeRecord_) < RingSize() ? Slot(activeRecord_) : nullptr;
  }
  TRecordBuffer CalcBuffer() const { return calcBuffer_; }
  TRecordBuffer FilterBuffer() const { return filterBuffer_; }
  void SetFilterBuffer(TRecordBuffer buffer) { filterBuffer_ = buffer; }
  TRecordBuffer TempBuffer() const {
    return size_t(recordCount_) < RingSize() ? Slot(recordCount_) : nullptr;
  }
  // The buffer that field access goes to in the present state; null when none.
  TRecordBuffer StateBuffer() const {
    // Browsing comes first: every field read of a walk asks this. A browsed data set is
    // open, so its window has the buffers and the active record lies in it: the slot
    // needs no bounds check.
    if (state_ == dsBrowse) return IsEmpty() ? nullptr : Slot(activeRecord_);
    return OtherStateBuffer();
  }
  int BufferCount() const { return bufferCount_; }
  int ActiveRecord() const { return activeRecord_; }
  int CurrentRecord() const { return currentRecord_; }
  // Records in the window.
  int BufferedCount() const { return recordCount_; }
  TRecordBuffer Buffers(int index) const {
    if (size_t(index) >= RingSize()) throw std::out_of_range("no such buffer in the record window");
    return Slot(index);
  }
  int BookmarkSize() const { return bookmarkSize_; }
  void SetBookmarkSize(int size) { bookmarkSize_ = size; }
  void SetCurrentRecord(int index) {
    if (currentRecord_ != index) MoveCursorTo(index);
  }
  void InitRecord(TRecordBuffer buffer);
  // A buffer of the descendant's with storage for calculated values, for a descendant
  // that tests records outside the window; give it back with DestroyRecordBuffer.
  TRecordBuffer CreateRecordBuffer();
  void DestroyRecordBuffer(TRecordBuffer buffer);

  void SetState(TDataSetState state);
  void SetModified(bool value) { modified_ = value; }
  void SetFound(bool value) { found_ = value; }
  void SetUniDirectional(bool value) { uniDirectional_ = value; }
  void CheckActive() const;
  void CheckInactive() const;
  void CheckBiDirectional() const;
  void CheckCanModify() const;

  virtual void DoBeforeScroll() { Fire(BeforeScroll); }
  virtual void DoAfterScroll() { Fire(AfterScroll); }
  virtual void DoOnNewRecord() { Fire(OnNewRecord); }
  virtual void DoOnCalcFields() { Fire(OnCalcFields); }

  void Notification(TComponent* component, TOperation operation) override;

private:
  friend class TDataLink;
  friend class TDataSource;
  friend class TField;
  friend class TFieldDefs;
  friend class TFields;

  void Fire(const TDataSetNotifyEvent& event) { if (event) event(this); }
  void OpenCursor();
  void CloseCursor();
  void HandleFieldChange(TField* field);
  void RegisterDataSource(TDataSource* dataSource);
  void UnRegisterDataSource(TDataSource* dataSource);
  std::vector<TDataLink*> DataLinks() const;

  // The window
  // Slot 0 of the window is buffers_[firstBuffer_]: the buffers form a ring, so that a
  // scroll by one record over a full window turns the ring instead of shifting them all.
  // buffers_ holds the ring twice over, so that finding a slot needs no wrapping: every
  // field read of a walk finds one.
  size_t RingSize() const { return buffers_.size() / 2; }
  TRecordBuffer Slot(int index) const { return buffers_[firstBuffer_ + size_t(index)]; }
  void SetSlot(int index, TRecordBuffer buffer) {
    size_t at = firstBuffer_ + size_t(index);
    if (at >= RingSize()) at -= RingSize();
    buffers_[at] = buffer;
    buffers_[at + RingSize()] = buffer;
  }
  TRecordBuffer OtherStateBuffer() const;
  // The store row of the active record while browsing (SetFieldStore); -1 when none.
  int DirectRow() const {
    if (state_ != dsBrowse || IsEmpty()) [[unlikely]] return -1;
    int32_t row;
    std::memcpy(&row, Slot(activeRecord_), sizeof(row));
    return row;
  }
  void CalculateFieldsIn(TRecordBuffer buffer);
  void UpdateBufferCount();
  void SetBufListSize(int count);
  void ClearBuffers();
  void ActivateBuffers();
  void MoveBuffer(int fromIndex, int toIndex) {
    if (fromIndex == toIndex) return;
    const size_t lastIndex = RingSize() - 1;
    if (fromIndex == 0 && size_t(toIndex) == lastIndex) {
      TurnRingForward();
      return;
    }
    if (size_t(fromIndex) == lastIndex && toIndex == 0) {
      firstBuffer_ = firstBuffer_ == 0 ? lastIndex : firstBuffer_ - 1;
      return;
    }
    ShiftBuffers(fromIndex, toIndex);
  }
  // MoveBuffer(0, last) of an open window, whose last slot is BufferCount: slot 0 becomes
  // the spare. Every fetch past the end of a full window turns the ring so.
  void TurnRingForward() { firstBuffer_ = firstBuffer_ == size_t(bufferCount_) ? 0 : firstBuffer_ + 1; }
  // MoveBuffer over a part of the window: the buffers between shift by one.
  void ShiftBuffers(int fromIndex, int toIndex);
  void MoveCursorTo(int index);
  bool GetNextRecord();
  bool GetPriorRecord();
  // Browsing with controls disabled, the last buffer of a full window active and the
  // cursor on it: a step forward is one fetch, and nobody to tell.
  bool AtWalkStep() const {
    return state_ == dsBrowse && ControlsDisabled() && activeRecord_ == bufferCount_ - 1 &&
           recordCount_ == bufferCount_ && currentRecord_ == activeRecord_ && !eof_;
  }
  // MoveBy's two ways, out of line so that MoveBy needs no frame, and what follows
  // BeforeScroll on the general one. They answer how many records they moved, as do
  // the steps below.
  [[gnu::noinline]] int MoveAnyDistance(int distance);
  [[gnu::noinline]] int StepPastFullWindow();
  int MoveScrolled(int distance);
  int MoveForward(int distance, int& scrolled);
  int MoveBackward(int distance, int& scrolled);
  int GetNextRecords();
  int GetPriorRecords();
  void BeginInsertAppend();
  void EndInsertAppend();
  void DoInsertAppendRecord(const std::vector<Variant>& values, bool append);
  Variant* CalcSlot(const TField* field) const;
  void CheckLinksConsistency() const;

  std::unique_ptr<TFields> fields_;
  std::unique_ptr<TFieldList> fieldList_;
  std::unique_ptr<TFieldDefs> fieldDefs_;
  std::vector<TDataSource*> dataSources_;

  // bufferCount_ + 1 buffers while open, twice over (Slot); see the header comment.
  std::vector<TRecordBuffer> buffers_;
  size_t firstBuffer_ = 0;
  int bufferCount_ = 0;
  int recordCount_ = 0;
  int activeRecord_ = 0;
  int currentRecord_ = -1;  // the buffer under the descendant's cursor; -1 unknown
  TRecordBuffer calcBuffer_ = nullptr;
  TRecordBuffer filterBuffer_ = nullptr;
  int bookmarkSize_ = 0;
  bool defsChanged_ = false;
  // Calculated and lookup values of each buffer, one slot per such field.
  mutable std::unordered_map<TRecordBuffer, std::vector<Variant>> calcValues_;
  int calcFieldsCount_ = 0;

  TDataSetState state_ = dsInactive;
  bool bof_ = true;
  bool eof_ = true;
  bool modified_ = false;
  bool found_ = false;
  bool uniDirectional_ = false;
  bool objectView_ = false;
  bool defaultFields_ = false;
  bool autoCalcFields_ = true;
  bool streamedActive_ = false;
  int disableCount_ = 0;
  TDataSetState disableState_ = dsInactive;
  TDataEvent enableEvent_ = deDataSetChange;

  QString filterText_;
  bool filtered_ = false;
  TFilterOptions filterOptions_;
  TFilterRecordEvent onFilterRecord_;
};

}  // namespace quil
