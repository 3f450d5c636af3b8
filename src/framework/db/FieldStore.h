#pragma once
// The values of one field over the stored rows of a data set, laid out so that the
// field reads a row's value without asking the data set (TDataSet::SetFieldStore).

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quil {

struct TFieldStore {
  const uint8_t* nulls = nullptr;   // per row, nonzero when the row has no value
  const uint8_t* values = nullptr;  // per row, size bytes in the field's native form
  size_t size = 0;

  // The native value of row into buffer (may be null); false without a value.
  bool Read(int row, void* buffer) const {
    if (nulls[size_t(row)]) return false;
    if (!buffer) return true;
    const uint8_t* value = values + size_t(row) * size;
    // Copies of a size known here compile to one move; a library call would cost more.
    switch (size) {
      case 1: std::memcpy(buffer, value, 1); break;
      case 4: std::memcpy(buffer, value, 4); break;
      case 8: std::memcpy(buffer, value, 8); break;
      default: std::memcpy(buffer, value, size); break;
    }
    return true;
  }
  // The same for a buffer of the values' own type, one move; size is sizeof(T).
  template <typename T>
  bool ReadAs(int row, T* buffer) const {
    if (nulls[size_t(row)]) return false;
    std::memcpy(buffer, values + size_t(row) * sizeof(T), sizeof(T));
    return true;
  }
  // The value of row, T's zero without one.
  template <typename T>
  T ValueAs(int row) const {
    T value{};
    if (!nulls[size_t(row)]) std::memcpy(&value, values + size_t(row) * sizeof(T), sizeof(T));
    return value;
  }
};

}  // namespace quil
