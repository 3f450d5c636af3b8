#pragma once
// The values of one field over all rows of an in-memory data set, stored in the
// field's native form so that a read copies one value and converts nothing.

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/db/FieldStore.h"
#include "framework/rtl/Currency.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TClientColumn {
public:
  explicit TClientColumn(TNativeKind kind);
  // Moving keeps the values' storage, and so the byte view of it; a copy would not.
  TClientColumn(const TClientColumn&) = delete;
  TClientColumn& operator=(const TClientColumn&) = delete;
  TClientColumn(TClientColumn&&) = default;
  TClientColumn& operator=(TClientColumn&&) = default;

  TNativeKind Kind() const { return kind_; }
  int RowCount() const { return int(nulls_.size()); }
  // Adds a row without a value.
  void AppendNull();
  // The native value into buffer (may be null); false without a value.
  bool Read(int row, void* buffer) const {
    if (store_.size) return store_.Read(row, buffer);
    if (nulls_[size_t(row)]) return false;
    return !buffer || ReadValue(row, buffer);
  }
  // The values as a field may read them itself; null for values of no fixed size.
  const TFieldStore* Store() const { return store_.size ? &store_ : nullptr; }
  Variant Value(int row) const;
  bool IsNull(int row) const { return nulls_[size_t(row)] != 0; }
  // The stored value of a row, for a column whose kind stores T; reads nothing else.
  template <typename T>
  const T& At(int row) const {
    return (*std::get_if<std::vector<T>>(&values_))[size_t(row)];
  }
  // Null or Unassigned clears the value; raises EVariantError when value does not fit.
  void Write(int row, const Variant& value);
  // Null first; text code unit by code unit, or without case.
  int Compare(int rowA, int rowB, bool caseInsensitive) const;
  void Clear();

private:
  void UpdateStore();
  // Values of no fixed size; out of line, so that Read's callers stay small. True.
  bool ReadValue(int row, void* buffer) const;

  TNativeKind kind_;
  std::vector<uint8_t> nulls_;
  std::variant<std::vector<int32_t>, std::vector<int64_t>, std::vector<double>, std::vector<Currency>,
               std::vector<uint8_t>, std::vector<QString>, std::vector<QByteArray>, std::vector<Variant>>
      values_;
  // The values as bytes when their kind has a fixed size, so that a read is one copy
  // (a walk reads every field of every record); size 0 for the other kinds. Kept
  // pointing at the vectors' storage whenever they grow.
  TFieldStore store_;
};

}  // namespace quil
