#pragma once
// The named parameters of a query. A value always travels as a bound parameter, never
// pasted into the text. A parameter with a DataType converts its value to that type
// before binding and raises EDatabaseError, naming the parameter, when it cannot.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/db/SqlConnection.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TSQLParam {
public:
  explicit TSQLParam(const QString& name) : name_(name) {}

  const QString& Name() const { return name_; }
  // ftUnknown binds the value in its own type.
  TFieldType DataType() const { return dataType_; }
  void SetDataType(TFieldType type) { dataType_ = type; }
  const Variant& Value() const { return value_; }
  void SetValue(const Variant& value) { value_ = value; }
  bool IsNull() const { return VarIsNull(value_) || VarIsEmpty(value_); }
  void Clear() { value_ = Null(); }

  QVariant Bound(TSQLDialect dialect) const;

private:
  QString name_;
  TFieldType dataType_ = ftUnknown;
  Variant value_ = Null();
};

class TSQLParams {
public:
  int Count() const { return int(items_.size()); }
  TSQLParam* Items(int index) const { return items_.at(size_t(index)).get(); }
  TSQLParam* FindParam(const QString& name) const;
  // Raises EDatabaseError when there is no such parameter.
  TSQLParam* ParamByName(const QString& name) const;
  // Keeps the parameters of these names, with their values, and adds the new ones.
  void Update(const QStringList& names);
  // The values for the placeholders, in the order of names.
  std::vector<QVariant> Values(const QStringList& names, TSQLDialect dialect) const;

private:
  std::vector<std::unique_ptr<TSQLParam>> items_;
};

}  // namespace quil
