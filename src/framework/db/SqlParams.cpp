#include "framework/db/SqlParams.h"

#include "framework/db/SqlTypes.h"
#include "framework/rtl/Exceptions.h"

namespace quil {

namespace {

TFieldType TypeOfValue(const Variant& value) {
  switch (value.Type()) {
    case varBoolean: return ftBoolean;
    case varDate: return ftDateTime;
    case varDouble: return ftFloat;
    case varCurrency: return ftBCD;
    case varSmallint: case varInteger: case varInt64: return ftLargeint;
    default: return ftString;
  }
}

}  // namespace

QVariant TSQLParam::Bound(TSQLDialect dialect) const {
  if (dataType_ == ftUnknown || IsNull()) return ToSqlValue(value_, TypeOfValue(value_), dialect);
  try {
    TNativeValue native(NativeKindOf(dataType_));
    VariantToNative(NativeKindOf(dataType_), value_, native.Data());
    return ToSqlValue(NativeToVariant(NativeKindOf(dataType_), native.Data()), dataType_, dialect);
  } catch (const Exception&) {
    DatabaseError(QStringLiteral("Parameter '%1': '%2' is not a valid %3")
                      .arg(name_, VarToStr(value_), FieldTypeName(dataType_)),
                  nullptr);
  }
}

TSQLParam* TSQLParams::FindParam(const QString& name) const {
  for (const auto& param : items_)
    if (param->Name().compare(name, Qt::CaseInsensitive) == 0) return param.get();
  return nullptr;
}

TSQLParam* TSQLParams::ParamByName(const QString& name) const {
  TSQLParam* param = FindParam(name);
  if (!param) DatabaseError(QStringLiteral("Parameter '%1' not found").arg(name), nullptr);
  return param;
}

void TSQLParams::Update(const QStringList& names) {
  std::vector<std::unique_ptr<TSQLParam>> kept;
  for (const QString& name : names) {
    const bool seen = std::any_of(kept.begin(), kept.end(), [&](const auto& param) {
      return param->Name().compare(name, Qt::CaseInsensitive) == 0;
    });
    if (seen) continue;
    auto existing = std::find_if(items_.begin(), items_.end(), [&](const auto& param) {
      return param && param->Name().compare(name, Qt::CaseInsensitive) == 0;
    });
    kept.push_back(existing != items_.end() ? std::move(*existing) : std::make_unique<TSQLParam>(name));
  }
  items_ = std::move(kept);
}

std::vector<QVariant> TSQLParams::Values(const QStringList& names, TSQLDialect dialect) const {
  std::vector<QVariant> values;
  for (const QString& name : names) values.push_back(ParamByName(name)->Bound(dialect));
  return values;
}

}  // namespace quil
