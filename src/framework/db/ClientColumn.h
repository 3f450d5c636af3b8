#pragma once
// The values of one field over all rows of an in-memory data set, stored in the
// field's native form so that a read copies one value and converts nothing.

#include <QByteArray>
#include <QString>
#include <cstring>
#include <variant>
#include <vector>

#include "framework/db/DataTypes.h"
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
    if (nulls_[size_t(row)]) return false;
    if (!buffer) return true;
    const uint8_t* value = fixedData_ + size_t(row) * fixedSize_;
    // Copies of a size known here compile to one move; a library call would cost more.
    switch (fixedSize_) {
      case 1: std::memcpy(buffer, value, 1); break;
      case 4: std::memcpy(buffer, value, 4); break;
      case 8: std::memcpy(buffer, value, 8); break;
      default: return ReadValue(row, buffer);
    }
    return true;
  }
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
  void UpdateFixedData();
  // Values of no fixed size; out of line, so that Read's callers stay small. True.
  bool ReadValue(int row, void* buffer) const;

  TNativeKind kind_;
  std::vector<uint8_t> nulls_;
  std::variant<std::vector<int32_t>, std::vector<int64_t>, std::vector<double>, std::vector<Currency>,
               std::vector<uint8_t>, std::vector<QString>, std::vector<QByteArray>, std::vector<Variant>>
      values_;
  // The values as bytes when their kind has a fixed size, so that a read is one copy
  // (a walk reads every field of every record); fixedSize_ is 0 for the other kinds.
  const uint8_t* fixedData_ = nullptr;
  size_t fixedSize_ = 0;
};

}  // namespace quil
