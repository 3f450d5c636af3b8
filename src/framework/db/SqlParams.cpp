#include "framework/db/SqlParams.h"

#include "framework/db/SqlTypes.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/TypInfo.h"
#include "framework/rtl/UpdateGuard.h"

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

bool SameName(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

}  // namespace

const TMetaClass& TSQLParam::StaticClass() {
  static const TMetaClass meta = TMetaClass("TSQLParam", &TCollectionItem::StaticClass())
      .Creates<TSQLParam>()
      .Published(StrProp("Name", &TSQLParam::Name, &TSQLParam::SetName))
      .Published(EnumProp("DataType", &TSQLParam::DataType, &TSQLParam::SetDataType).Default(ftUnknown))
      .Published(VariantProp("Value", &TSQLParam::Value, &TSQLParam::SetValue));
  return meta;
}

const TMetaClass& TSQLParam::ClassType() const { return StaticClass(); }

void TSQLParam::SetName(const QString& name) {
  if (name == name_) return;
  name_ = name;
  Changed(false);
}

void TSQLParam::SetDataType(TFieldType type) {
  if (type == dataType_) return;
  dataType_ = type;
  Changed(false);
}

void TSQLParam::SetValue(const Variant& value) {
  value_ = value;
  Changed(false);
}

void TSQLParam::Assign(const TPersistent* source) {
  const auto* param = dynamic_cast<const TSQLParam*>(source);
  if (!param) return TCollectionItem::Assign(source);
  name_ = param->name_;
  dataType_ = param->dataType_;
  value_ = param->value_;
  Changed(false);
}

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

const TMetaClass& TSQLParams::StaticClass() {
  static const TMetaClass meta("TSQLParams", &TOwnedCollection::StaticClass());
  return meta;
}

const TMetaClass& TSQLParams::ClassType() const { return StaticClass(); }

TSQLParams::TSQLParams(TPersistent* owner) : TOwnedCollection(owner, TSQLParam::StaticClass()) {}

TSQLParam* TSQLParams::FindParam(const QString& name) const {
  for (int index = 0; index < Count(); ++index)
    if (SameName(Items(index)->Name(), name)) return Items(index);
  return nullptr;
}

TSQLParam* TSQLParams::ParamByName(const QString& name) const {
  TSQLParam* param = FindParam(name);
  if (!param) DatabaseError(QStringLiteral("Parameter '%1' not found").arg(name), nullptr);
  return param;
}

void TSQLParams::Update(const QStringList& names) {
  TUpdateGuard<TCollection> update(*this);
  int placed = 0;  // the parameters before this index are in their final order
  for (const QString& name : names) {
    TSQLParam* param = FindParam(name);
    if (param && param->Index() < placed) continue;  // a name used twice
    if (!param) {
      param = AddParam();
      param->SetName(name);
    }
    param->SetIndex(placed++);
  }
  while (Count() > placed) Delete(Count() - 1);
}

std::vector<QVariant> TSQLParams::Values(const QStringList& names, TSQLDialect dialect) const {
  std::vector<QVariant> values;
  for (const QString& name : names) values.push_back(ParamByName(name)->Bound(dialect));
  return values;
}

}  // namespace quil
