#include "framework/db/ClientColumn.h"

namespace quil {

TClientColumn::TClientColumn(TNativeKind kind) : kind_(kind) {
  switch (kind) {
    case TNativeKind::Int32: values_.emplace<std::vector<int32_t>>(); break;
    case TNativeKind::Int64: values_.emplace<std::vector<int64_t>>(); break;
    case TNativeKind::Double: values_.emplace<std::vector<double>>(); break;
    case TNativeKind::Currency: values_.emplace<std::vector<Currency>>(); break;
    case TNativeKind::Boolean: values_.emplace<std::vector<uint8_t>>(); break;
    case TNativeKind::String: values_.emplace<std::vector<QString>>(); break;
    case TNativeKind::Bytes: values_.emplace<std::vector<QByteArray>>(); break;
    case TNativeKind::Variant: case TNativeKind::None: values_.emplace<std::vector<Variant>>(); break;
  }
  UpdateStore();
}

void TClientColumn::AppendNull() {
  nulls_.push_back(1);
  std::visit([](auto& values) { values.emplace_back(); }, values_);
  UpdateStore();
}

void TClientColumn::Clear() {
  nulls_.clear();
  std::visit([](auto& values) { values.clear(); }, values_);
  UpdateStore();
}

void TClientColumn::UpdateStore() {
  store_.nulls = nulls_.data();
  std::visit(
      [this](const auto& values) {
        using T = typename std::decay_t<decltype(values)>::value_type;
        // Booleans are stored as 0 and 1, which is how a bool is laid out.
        if constexpr (std::is_trivially_copyable_v<T>) {
          store_.values = reinterpret_cast<const uint8_t*>(values.data());
          store_.size = sizeof(T);
        }
      },
      values_);
}

bool TClientColumn::ReadValue(int row, void* buffer) const {
  std::visit(
      [&](const auto& values) {
        using T = typename std::decay_t<decltype(values)>::value_type;
        if constexpr (std::is_same_v<T, uint8_t>) *static_cast<bool*>(buffer) = values[size_t(row)] != 0;
        else *static_cast<T*>(buffer) = values[size_t(row)];
      },
      values_);
  return true;
}

Variant TClientColumn::Value(int row) const {
  if (nulls_[size_t(row)]) return Null();
  TNativeValue value(kind_);
  ReadValue(row, value.Data());
  return NativeToVariant(kind_, value.Data());
}

void TClientColumn::Write(int row, const Variant& value) {
  if (VarIsNull(value) || VarIsEmpty(value)) {
    nulls_[size_t(row)] = 1;
    std::visit([&](auto& values) { values[size_t(row)] = {}; }, values_);
    return;
  }
  std::visit(
      [&](auto& values) {
        using T = typename std::decay_t<decltype(values)>::value_type;
        if constexpr (std::is_same_v<T, uint8_t>) {
          bool flag = false;
          VariantToNative(kind_, value, &flag);
          values[size_t(row)] = flag;
        } else {
          VariantToNative(kind_, value, &values[size_t(row)]);
        }
      },
      values_);
  nulls_[size_t(row)] = 0;
}

int TClientColumn::Compare(int rowA, int rowB, bool caseInsensitive) const {
  const bool nullA = nulls_[size_t(rowA)];
  const bool nullB = nulls_[size_t(rowB)];
  if (nullA || nullB) return int(nullB) - int(nullA);
  return std::visit(
      [&](const auto& values) -> int {
        using T = typename std::decay_t<decltype(values)>::value_type;
        const T& a = values[size_t(rowA)];
        const T& b = values[size_t(rowB)];
        if constexpr (std::is_same_v<T, QString>)
          return a.compare(b, caseInsensitive ? Qt::CaseInsensitive : Qt::CaseSensitive);
        else if constexpr (std::is_same_v<T, QByteArray>) return a.compare(b);
        else if constexpr (std::is_same_v<T, Variant>) {
          switch (VarCompareValue(a, b)) {
            case vrLessThan: return -1;
            case vrGreaterThan: return 1;
            default: return 0;
          }
        } else return a < b ? -1 : (b < a ? 1 : 0);
      },
      values_);
}

}  // namespace quil
