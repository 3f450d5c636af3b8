// The view of TCustomClientDataSet: which rows the cursor walks and in what order, as
// the index and the filter decide. Every change computes the new view aside and only
// then takes it, so a failing filter or index leaves the old one in force.

#include <algorithm>

#include "framework/db/ClientDataSet.h"
#include "framework/db/ClientDataSet_p.h"
#include "framework/db/Field.h"
#include "framework/db/FieldNames.h"
#include "framework/db/FilterBinding.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/SysUtils.h"

namespace quil {

// The row under test, as the filter expression reads it: data fields straight from
// the columns, calculated and lookup fields through the fields in dsFilter.
class TCustomClientDataSet::TFilterRecord : public TFilterValueSource {
public:
  TFilterRecord(const TCustomClientDataSet& dataSet, int row) : dataSet_(dataSet), row_(row) {}
  Variant FieldValue(int fieldIndex) const override {
    const int columnCount = int(dataSet_.columns_.size());
    if (fieldIndex < columnCount) return dataSet_.columns_[size_t(fieldIndex)].Value(row_);
    return dataSet_.filterFields_[size_t(fieldIndex - columnCount)]->AsVariant();
  }
  TFilterNativeValue FieldNative(int fieldIndex) const override {
    TFilterNativeValue value;
    if (size_t(fieldIndex) >= dataSet_.columns_.size()) return value;
    const TClientColumn& column = dataSet_.columns_[size_t(fieldIndex)];
    using TKind = TFilterNativeValue::TKind;
    switch (column.Kind()) {
      case TNativeKind::Int32: value.kind = TKind::Integer; break;
      case TNativeKind::Int64: value.kind = TKind::Integer; break;
      case TNativeKind::Double: value.kind = TKind::Real; break;
      case TNativeKind::String: value.kind = TKind::Text; break;
      default: return value;
    }
    if (column.IsNull(row_)) {
      value.kind = TKind::Null;
      return value;
    }
    switch (column.Kind()) {
      case TNativeKind::Int32: value.integer = column.At<int32_t>(row_); break;
      case TNativeKind::Int64: value.integer = column.At<int64_t>(row_); break;
      case TNativeKind::Double: value.real = column.At<double>(row_); break;
      default: value.text = &column.At<QString>(row_); break;
    }
    return value;
  }

private:
  const TCustomClientDataSet& dataSet_;
  int row_;
};

// --- Positions ------------------------------------------------------------------------

void TCustomClientDataSet::ViewChanged() {
  ++viewVersion_;
  positionsValid_ = false;
}

int TCustomClientDataSet::PositionOf(int row) const {
  if (row < 0 || size_t(row) >= deleted_.size()) return -1;
  if (!positionsValid_ || positions_.size() != deleted_.size()) {
    positions_.assign(deleted_.size(), -1);
    for (size_t position = 0; position < view_.size(); ++position) positions_[size_t(view_[position])] = int32_t(position);
    positionsValid_ = true;
  }
  return positions_[size_t(row)];
}

// --- Order and filter -----------------------------------------------------------------

bool TCustomClientDataSet::Less(int rowA, int rowB) const {
  for (const TIndexKey& key : indexKeys_) {
    int sign = columns_[size_t(key.column)].Compare(rowA, rowB, key.caseInsensitive);
    if (key.descending) sign = -sign;
    if (sign != 0) return sign < 0;
  }
  return false;
}

bool TCustomClientDataSet::FilterActive() const {
  return Filtered() && (!filter_.IsEmpty() || OnFilterRecord());
}

bool TCustomClientDataSet::Accepts(int row) {
  TRecord* record = Record(filterRecord_);
  record->DropPending();
  record->SetRow(row);
  record->SetFlag(bfCurrent);
  TStateScope scope(*this, dsFilter);
  SetFilterBuffer(filterRecord_);
  bool accept = true;
  try {
    if (CalcFieldsCount() > 0) GetCalcFields(filterRecord_);
    accept = filter_.Matches(TFilterRecord(*this, row));
    if (accept && OnFilterRecord()) OnFilterRecord()(this, accept);
  } catch (...) {
    // A handled exception keeps the record as the test had left it.
    InternalHandleException();
  }
  return accept;
}

void TCustomClientDataSet::RebuildView() {
  std::vector<int32_t> view;
  view.reserve(natural_.size());
  const bool filtering = FilterActive();
  for (int32_t row : natural_)
    if (!filtering || Accepts(row)) view.push_back(row);
  if (!indexKeys_.empty())
    std::stable_sort(view.begin(), view.end(), [this](int32_t a, int32_t b) { return Less(a, b); });
  view_ = std::move(view);
  ViewChanged();
}

void TCustomClientDataSet::PlaceRow(int row, int position, int current) {
  if (current >= 0) view_.erase(view_.begin() + current);
  if (FilterActive() && !Accepts(row)) {
    ViewChanged();
    cursor_ = std::clamp(position, 0, int(view_.size()));
    return;
  }
  if (!indexKeys_.empty()) position = IndexedPosition(row);
  position = std::clamp(position, 0, int(view_.size()));
  view_.insert(view_.begin() + position, row);
  cursor_ = position;
  if (position == current) return;
  // Appending moves no other row, so the positions need not be worked out again.
  if (current < 0 && position + 1 == int(view_.size()) && positionsValid_) {
    positions_.resize(deleted_.size(), -1);
    positions_[size_t(row)] = position;
    ++viewVersion_;
    return;
  }
  ViewChanged();
}

int TCustomClientDataSet::IndexedPosition(int row) const {
  // Among equal keys the natural order decides, as in a view built afresh.
  const auto naturalRank = [this](int32_t of) {
    return std::find(natural_.begin(), natural_.end(), of) - natural_.begin();
  };
  const auto lower = std::partition_point(view_.begin(), view_.end(), [&](int32_t other) { return Less(other, row); });
  const auto upper = std::partition_point(lower, view_.end(), [&](int32_t other) { return !Less(row, other); });
  if (lower == upper) return int(lower - view_.begin());
  const auto rank = naturalRank(row);
  return int(std::partition_point(lower, upper, [&](int32_t other) { return naturalRank(other) < rank; }) -
             view_.begin());
}

// --- Indexes --------------------------------------------------------------------------

namespace {
bool NamedIn(const QString& name, const QString& fieldNames) {
  for (int pos = 1; pos <= fieldNames.size();)
    if (ExtractFieldName(fieldNames, pos).compare(name, Qt::CaseInsensitive) == 0) return true;
  return false;
}
}  // namespace

std::vector<TCustomClientDataSet::TIndexKey> TCustomClientDataSet::KeysFor(const QString& fieldNames,
                                                                            const QString& indexName) const {
  QString names = fieldNames;
  const TIndexDef* def = nullptr;
  if (!indexName.isEmpty()) {
    def = indexDefs_->Find(indexName);
    names = def->Fields();
  }
  std::vector<TIndexKey> keys;
  for (int pos = 1; pos <= names.size();) {
    const QString name = ExtractFieldName(names, pos);
    if (name.isEmpty()) continue;
    const auto column = std::find_if(columnNames_.begin(), columnNames_.end(), [&](const QString& columnName) {
      return columnName.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (column == columnNames_.end()) DatabaseError(Format(SFieldNotFound, {name}), this);
    TIndexKey key{int(column - columnNames_.begin()), false, false};
    if (def) {
      key.descending = def->Options().Contains(ixDescending) || NamedIn(name, def->DescFields());
      key.caseInsensitive = def->Options().Contains(ixCaseInsensitive) || NamedIn(name, def->CaseInsFields());
    }
    keys.push_back(key);
  }
  return keys;
}

void TCustomClientDataSet::ChangeView(const std::vector<TIndexKey>& keys, const QString& fieldNames,
                                      const QString& indexName) {
  indexFieldNames_ = fieldNames;
  indexName_ = indexName;
  if (!Active()) return;
  indexKeys_ = keys;
  // The active record stays current under the new order.
  const TBookmark bookmark = GetBookmark();
  RebuildView();
  if (!bookmark.empty() && BookmarkValid(bookmark)) {
    InternalGotoBookmark(bookmark.data());
    Resync({rmCenter});
  } else {
    First();
  }
}

void TCustomClientDataSet::SetIndexFieldNames(const QString& fieldNames) {
  if (fieldNames == indexFieldNames_ && indexName_.isEmpty()) return;
  if (!Active()) {
    ChangeView({}, fieldNames, {});
    return;
  }
  const std::vector<TIndexKey> keys = KeysFor(fieldNames, {});
  CheckBrowseMode();
  ChangeView(keys, fieldNames, {});
}

void TCustomClientDataSet::SetIndexName(const QString& name) {
  if (name.compare(indexName_, Qt::CaseInsensitive) == 0 && indexFieldNames_.isEmpty()) return;
  if (!Active()) {
    ChangeView({}, {}, name);
    return;
  }
  const std::vector<TIndexKey> keys = KeysFor({}, name);
  CheckBrowseMode();
  ChangeView(keys, {}, name);
}

void TCustomClientDataSet::AddIndex(const QString& name, const QString& fields, TIndexOptions options,
                                    const QString& descFields, const QString& caseInsFields, int groupingLevel) {
  if (name.isEmpty() || fields.isEmpty())
    DatabaseError(QStringLiteral("An index needs a name and at least one field"), this);
  if (indexDefs_->IndexOf(name) >= 0) DatabaseError(Format(SDuplicateIndexName, {name}), this);
  if (hasData_) KeysFor(fields, {});
  TIndexDef* def = indexDefs_->AddIndexDef();
  def->SetName(name);
  def->SetFields(fields);
  def->SetOptions(options);
  def->SetDescFields(descFields);
  def->SetCaseInsFields(caseInsFields);
  def->SetGroupingLevel(groupingLevel);
}

void TCustomClientDataSet::DeleteIndex(const QString& name) {
  const TIndexDef* def = indexDefs_->Find(name);
  if (!indexName_.isEmpty() && indexName_.compare(def->Name(), Qt::CaseInsensitive) == 0) {
    if (Active()) CheckBrowseMode();
    ChangeView({}, {}, {});
  }
  indexDefs_->Delete(indexDefs_->IndexOf(name));
}

// --- Filter ---------------------------------------------------------------------------

TFilterExpression TCustomClientDataSet::CompileFilter(const QString& text, TFilterOptions options) const {
  const TFilterFieldResolver resolver = [this](const QString& name) -> std::optional<TFilterField> {
    for (size_t column = 0; column < columnNames_.size(); ++column)
      if (columnNames_[column].compare(name, Qt::CaseInsensitive) == 0)
        return TFilterField{int(column), FilterFieldKind(columnDefs_[column].type)};
    // Closed, the fields may not exist yet: the text is checked for its form alone,
    // and an unknown name raises at opening.
    if (!IsCursorOpen()) return TFilterField{};
    const TField* field = FindField(name);
    if (!field) return std::nullopt;
    const auto known = std::find(filterFields_.begin(), filterFields_.end(), field);
    const int slot = int(known - filterFields_.begin());
    if (known == filterFields_.end()) filterFields_.push_back(const_cast<TField*>(field));
    return TFilterField{int(columnNames_.size()) + slot, FilterFieldKind(field->DataType())};
  };
  return TFilterExpression::Compile(text, resolver, FilterSettingsFor(options));
}

void TCustomClientDataSet::RefreshView() {
  if (!Active()) return;
  RebuildView();
  First();
}

void TCustomClientDataSet::SetFilterText(const QString& text) {
  if (!IsCursorOpen()) {
    CompileFilter(text, FilterOptions());
    TDataSet::SetFilterText(text);
    return;
  }
  CheckBrowseMode();
  TFilterExpression compiled = CompileFilter(text, FilterOptions());
  TDataSet::SetFilterText(text);
  filter_ = std::move(compiled);
  if (Filtered()) RefreshView();
}

void TCustomClientDataSet::SetFilterOptions(TFilterOptions options) {
  if (options == FilterOptions()) return;
  if (!IsCursorOpen()) {
    TDataSet::SetFilterOptions(options);
    return;
  }
  CheckBrowseMode();
  TFilterExpression compiled = CompileFilter(Filter(), options);
  TDataSet::SetFilterOptions(options);
  filter_ = std::move(compiled);
  if (Filtered()) RefreshView();
}

void TCustomClientDataSet::SetFiltered(bool value) {
  if (value == Filtered()) return;
  if (Active()) CheckBrowseMode();
  TDataSet::SetFiltered(value);
  try {
    RefreshView();
  } catch (...) {
    TDataSet::SetFiltered(!value);
    throw;
  }
}

void TCustomClientDataSet::SetOnFilterRecord(const TFilterRecordEvent& handler) {
  if (Active()) CheckBrowseMode();
  TDataSet::SetOnFilterRecord(handler);
  if (Filtered()) RefreshView();
}

}  // namespace quil
