#include "framework/db/ClientDataSet.h"
#include "framework/db/ClientDataSet_p.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "framework/db/Field.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/Fields.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TCustomClientDataSet::StaticClass() {
  static const TMetaClass meta("TCustomClientDataSet", &TDataSet::StaticClass());
  return meta;
}

const TMetaClass& TCustomClientDataSet::ClassType() const { return StaticClass(); }

const TMetaClass& TClientDataSet::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TClientDataSet", &TCustomClientDataSet::StaticClass())
          .Creates<TClientDataSet>()
          .Published(StrProp("CommandText", &TClientDataSet::CommandText, &TClientDataSet::SetCommandText))
          .Published(StrProp("FileName", &TClientDataSet::FileName, &TClientDataSet::SetFileName))
          .Published(StrProp("IndexFieldNames", &TClientDataSet::IndexFieldNames, &TClientDataSet::SetIndexFieldNames))
          .Published(StrProp("IndexName", &TClientDataSet::IndexName, &TClientDataSet::SetIndexName))
          .Published(ObjectProp("IndexDefs", &TClientDataSet::IndexDefs))
          .Published(BoolProp("ReadOnly", &TClientDataSet::ReadOnly, &TClientDataSet::SetReadOnly).Default(false));
  return meta;
}

const TMetaClass& TClientDataSet::ClassType() const { return StaticClass(); }

TCustomClientDataSet::TCustomClientDataSet(TComponent* owner)
    : TDataSet(owner), indexDefs_(std::make_unique<TIndexDefs>(this)) {
  SetObjectView(true);
}

TCustomClientDataSet::~TCustomClientDataSet() {
  Destroying();
  try {
    SetActive(false);
  } catch (...) {
    // Nothing can be reported from a destructor; the buffers are freed all the same.
  }
}

void TCustomClientDataSet::SetReadOnly(bool readOnly) {
  if (readOnly == readOnly_) return;
  if (Active()) CheckBrowseMode();
  readOnly_ = readOnly;
  if (Active()) DataEvent(deDataSetChange, 0);
}

// --- The data -------------------------------------------------------------------------

void TCustomClientDataSet::CreateDataSet() {
  CheckInactive();
  InitFieldDefsFromFields();
  if (FieldDefs()->Count() == 0) DatabaseError(SNoFieldDefs, this);
  const std::vector<TFieldDef*> list = FieldDefs()->FieldDefList();
  std::vector<TColumnDef> defs;
  for (const TFieldDef* def : list) {
    const auto parent = std::find(list.begin(), list.end(), def->ParentDef());
    const int size = def->DataType() == ftArray && def->HasChildDefs() ? def->ChildDefs()->Count() : def->Size();
    defs.push_back({def->DataType(), def->Name(), size, def->Required(),
                    parent == list.end() ? -1 : int(parent - list.begin())});
  }
  TakeColumnDefs(std::move(defs));
  ResetStore();
  Open();
}

void TCustomClientDataSet::TakeColumnDefs(std::vector<TColumnDef> defs) {
  columnDefs_ = std::move(defs);
  columnNames_.clear();
  for (const TColumnDef& def : columnDefs_) {
    if (def.parent < 0) {
      columnNames_.push_back(def.name);
      continue;
    }
    const TColumnDef& parent = columnDefs_[size_t(def.parent)];
    columnNames_.push_back(ChildFullName(columnNames_[size_t(def.parent)], parent.name, parent.type, def.name));
  }
}

void TCustomClientDataSet::MakeFieldDefs() {
  FieldDefs()->Clear();
  std::vector<TFieldDef*> made;
  for (const TColumnDef& def : columnDefs_) {
    TFieldDefs* defs = def.parent < 0 ? FieldDefs() : made[size_t(def.parent)]->ChildDefs();
    made.push_back(defs->Add(def.name, def.type, def.size, def.required));
  }
}

void TCustomClientDataSet::ResetStore() {
  columns_.clear();
  for (const TColumnDef& def : columnDefs_) columns_.emplace_back(NativeKindOf(def.type));
  deleted_.clear();
  natural_.clear();
  hasData_ = true;
  ViewChanged();
}

void TCustomClientDataSet::EmptyDataSet() {
  CheckActive();
  CheckBrowseMode();
  for (TClientColumn& column : columns_) column.Clear();
  deleted_.clear();
  natural_.clear();
  RebuildView();
  First();
}

int TCustomClientDataSet::AppendRow(const std::vector<Variant>& values) {
  const int row = int(deleted_.size());
  deleted_.push_back(0);
  for (TClientColumn& column : columns_) column.AppendNull();
  WriteRow(row, values);
  return row;
}

void TCustomClientDataSet::WriteRow(int row, const std::vector<Variant>& values) {
  for (size_t column = 0; column < columns_.size() && column < values.size(); ++column)
    columns_[column].Write(row, values[column]);
}

std::vector<Variant> TCustomClientDataSet::RowValues(int row) const {
  std::vector<Variant> values;
  values.reserve(columns_.size());
  for (const TClientColumn& column : columns_) values.push_back(column.Value(row));
  return values;
}

// --- Opening --------------------------------------------------------------------------

void TCustomClientDataSet::InternalInitFieldDefs() {
  if (hasData_) MakeFieldDefs();
}

void TCustomClientDataSet::InternalOpen() {
  if (!hasData_ && !fileName_.isEmpty()) ReadFile(fileName_);
  if (!hasData_) DatabaseError(SMissingDataPacket, this);
  FieldDefs()->Update();
  if (DefaultFields()) CreateFields();
  BindFields(true);
  UpdateFieldStores();
  SetBookmarkSize(int(sizeof(int32_t)));
  cursorOpen_ = true;
  try {
    filterRecord_ = CreateRecordBuffer();
    filter_ = CompileFilter(Filter(), FilterOptions());
    indexKeys_ = KeysFor(indexFieldNames_, indexName_);
    RebuildView();
  } catch (...) {
    InternalClose();
    throw;
  }
  cursor_ = -1;
}

void TCustomClientDataSet::InternalClose() {
  if (filterRecord_) DestroyRecordBuffer(filterRecord_);
  filterRecord_ = nullptr;
  filter_ = TFilterExpression();
  filterFields_.clear();
  view_.clear();
  ViewChanged();
  BindFields(false);
  if (DefaultFields()) DestroyFields();
  FieldDefs()->SetUpdated(false);
  cursorOpen_ = false;
}

void TCustomClientDataSet::SetDirectFieldReads(bool value) {
  directFieldReads_ = value;
  if (Active()) UpdateFieldStores();
}

void TCustomClientDataSet::UpdateFieldStores() {
  for (int index = 0; index < FieldList()->Count(); ++index) {
    TField* field = FieldList()->Fields(index);
    if (field->FieldNo() > 0)
      SetFieldStore(field, directFieldReads_ ? columns_[size_t(field->FieldNo() - 1)].Store() : nullptr);
  }
}

// --- Buffers and the cursor -----------------------------------------------------------

int TCustomClientDataSet::GetRecordSize() const { return int(sizeof(TRecord)); }

TRecordBuffer TCustomClientDataSet::AllocRecordBuffer() {
  // TDataSet reads the direct row at the start of the buffer: first member of a
  // standard-layout class, it lies there.
  static_assert(std::is_standard_layout_v<TRecord>);
  return reinterpret_cast<TRecordBuffer>(new TRecord);
}

void TCustomClientDataSet::FreeRecordBuffer(TRecordBuffer& buffer) {
  delete Record(buffer);
  buffer = nullptr;
}

TGetResult TCustomClientDataSet::GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) {
  const int count = int(view_.size());
  int position = cursor_;
  if (mode == gmNext) [[likely]] position = std::min(cursor_ + 1, count);
  else if (mode == gmPrior) position = std::max(cursor_ - 1, -1);
  if (position < 0) [[unlikely]] {
    cursor_ = -1;
    return grBOF;
  }
  if (position >= count) [[unlikely]] {
    cursor_ = count;
    return grEOF;
  }
  cursor_ = position;
  TRecord* record = Record(buffer);
  // A fetch that calls nothing needs no frame, and a walk fetches once per record.
  if (record->Pending() || CalcFieldsCount() != 0) [[unlikely]] return ShowCalculated(buffer, position);
  record->Show(view_[size_t(position)], position, viewVersion_);
  return grOK;
}

TGetResult TCustomClientDataSet::ShowCalculated(TRecordBuffer buffer, int position) {
  TRecord* record = Record(buffer);
  record->DropPending();
  record->Show(view_[size_t(position)], position, viewVersion_);
  GetCalcFields(buffer);
  return grOK;
}

int TCustomClientDataSet::RecordPosition(const TRecord* record) const {
  return record->Version() == viewVersion_ && record->Position() >= 0 ? record->Position() : PositionOf(record->Row());
}

void TCustomClientDataSet::InternalSetToRecord(TRecordBuffer buffer) {
  const int position = RecordPosition(Record(buffer));
  if (position >= 0) cursor_ = position;
}

void TCustomClientDataSet::InternalGotoBookmark(const uint8_t* bookmark) {
  int32_t row = 0;
  std::memcpy(&row, bookmark, sizeof(row));
  const int position = PositionOf(row);
  if (position < 0) DatabaseError(SRecordNotFound, this);
  cursor_ = position;
}

void TCustomClientDataSet::GetBookmarkData(TRecordBuffer buffer, uint8_t* data) const {
  const int32_t row = Record(buffer)->Row();
  std::memcpy(data, &row, sizeof(row));
}

void TCustomClientDataSet::SetBookmarkData(TRecordBuffer buffer, const uint8_t* data) {
  int32_t row = 0;
  std::memcpy(&row, data, sizeof(row));
  TRecord* record = Record(buffer);
  record->SetRow(row);
  record->SetVersion(viewVersion_ - 1);
}

TBookmarkFlag TCustomClientDataSet::GetBookmarkFlag(TRecordBuffer buffer) const { return Record(buffer)->Flag(); }
void TCustomClientDataSet::SetBookmarkFlag(TRecordBuffer buffer, TBookmarkFlag flag) { Record(buffer)->SetFlag(flag); }

bool TCustomClientDataSet::BookmarkValid(const TBookmark& bookmark) const {
  if (!Active() || bookmark.size() != sizeof(int32_t)) return false;
  int32_t row = 0;
  std::memcpy(&row, bookmark.data(), sizeof(row));
  return PositionOf(row) >= 0;
}

int TCustomClientDataSet::CompareBookmarks(const TBookmark& a, const TBookmark& b) const {
  if (a.empty() || b.empty()) return a.empty() == b.empty() ? 0 : (a.empty() ? 1 : -1);
  int32_t rowA = 0;
  int32_t rowB = 0;
  std::memcpy(&rowA, a.data(), sizeof(rowA));
  std::memcpy(&rowB, b.data(), sizeof(rowB));
  const int positionA = PositionOf(rowA);
  const int positionB = PositionOf(rowB);
  if (positionA != positionB) return positionA < positionB ? -1 : 1;
  return rowA < rowB ? -1 : (rowA > rowB ? 1 : 0);
}

int TCustomClientDataSet::GetRecordCount() const {
  CheckActive();
  return int(view_.size());
}

int TCustomClientDataSet::GetRecNo() const {
  CheckActive();
  if (IsEmpty()) return -1;
  TRecordBuffer buffer = State() == dsCalcFields ? CalcBuffer() : ActiveBuffer();
  const TRecord* record = Record(buffer);
  if (record->Flag() != bfCurrent) return -1;
  const int position = RecordPosition(record);
  return position < 0 ? -1 : position + 1;
}

void TCustomClientDataSet::SetRecNo(int value) {
  CheckBrowseMode();
  if (value < 1 || value > int(view_.size()) || value == GetRecNo()) return;
  DoBeforeScroll();
  cursor_ = value - 1;
  Resync({rmCenter});
  DoAfterScroll();
}

// --- Field values ---------------------------------------------------------------------

bool TCustomClientDataSet::GetFieldData(TField* field, void* buffer) {
  // Fields with a column store read a browsed stored row themselves: what comes here
  // is a field of another kind or a record in another state.
  if (field->FieldNo() <= 0) return TDataSet::GetFieldData(field, buffer);
  const TRecordBuffer recordBuffer = StateBuffer();
  if (!recordBuffer) return false;
  const TRecord* record = Record(recordBuffer);
  const size_t column = size_t(field->FieldNo() - 1);
  if (const std::vector<Variant>* pending = record->Pending()) {
    const Variant& value = (*pending)[column];
    if (VarIsNull(value) || VarIsEmpty(value)) return false;
    if (buffer) VariantToNative(field->NativeKind(), value, buffer);
    return true;
  }
  if (record->Row() < 0 || record->Flag() != bfCurrent) return false;
  return columns_[column].Read(record->Row(), buffer);
}

void TCustomClientDataSet::SetFieldData(TField* field, const void* buffer) {
  if (field->FieldNo() <= 0) {
    TDataSet::SetFieldData(field, buffer);
    return;
  }
  CheckFieldWrite(field, buffer);
  TRecord* record = Record(StateBuffer());
  if (!record->Pending()) record->SetPending(RowValues(record->Row()));
  (*record->Pending())[size_t(field->FieldNo() - 1)] = buffer ? NativeToVariant(field->NativeKind(), buffer) : Null();
  FieldWritten(field);
}

// --- Editing --------------------------------------------------------------------------

void TCustomClientDataSet::InternalInitRecord(TRecordBuffer buffer) {
  Record(buffer)->SetPending(std::vector<Variant>(columns_.size(), Null()));
}

void TCustomClientDataSet::InternalEdit() {
  TRecord* record = Record(ActiveBuffer());
  record->SetPending(RowValues(record->Row()));
}

void TCustomClientDataSet::InternalCancel() { Record(ActiveBuffer())->DropPending(); }

int TCustomClientDataSet::InsertPosition(const TRecord* record) const {
  switch (record->Flag()) {
    case bfBOF: return 0;
    case bfEOF: return int(view_.size());
    default: {
      const int position = RecordPosition(record);
      return position < 0 ? int(view_.size()) : position;
    }
  }
}

void TCustomClientDataSet::InternalPost() {
  TDataSet::InternalPost();
  TRecord* record = Record(ActiveBuffer());
  const std::vector<Variant>* pending = record->Pending();
  if (!pending) return;
  int row = record->Row();
  int position = 0;
  int current = -1;
  if (State() == dsInsert) {
    position = InsertPosition(record);
    const bool before = record->Flag() == bfInserted && row >= 0;
    const int followingRow = row;
    row = AppendRow(*pending);
    auto next = before ? std::find(natural_.begin(), natural_.end(), followingRow) : natural_.end();
    natural_.insert(next, row);
  } else {
    position = RecordPosition(record);
    current = position;
    WriteRow(row, *pending);
  }
  record->DropPending();
  record->SetRow(row);
  record->SetFlag(bfCurrent);
  PlaceRow(row, position, current);
}

void TCustomClientDataSet::InternalAddRecord(TRecordBuffer buffer, bool append) {
  TRecord* record = Record(buffer);
  record->SetFlag(append ? bfEOF : bfInserted);
  const int position = InsertPosition(record);
  const int row = AppendRow(record->Pending() ? *record->Pending() : std::vector<Variant>());
  natural_.push_back(row);
  PlaceRow(row, position, -1);
}

void TCustomClientDataSet::InternalDelete() {
  const TRecord* record = Record(ActiveBuffer());
  const int row = record->Row();
  const int position = RecordPosition(record);
  deleted_[size_t(row)] = 1;
  natural_.erase(std::find(natural_.begin(), natural_.end(), row));
  if (position >= 0) view_.erase(view_.begin() + position);
  ViewChanged();
  cursor_ = std::min(std::max(position, 0), int(view_.size()));
}

}  // namespace quil
