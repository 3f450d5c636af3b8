#pragma once
// The named parameters of a query. A value always travels as a bound parameter, never
// pasted into the text. A parameter with a DataType converts its value to that type
// before binding and raises EDatabaseError, naming the parameter, when it cannot.
//
// The parameters are a collection, published by the query and written with it to the
// component stream: name, type and value of each. The query keeps them in step with its
// SQL; a stream read after the SQL replaces them with the values stored.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

#include "framework/db/DataTypes.h"
#include "framework/db/SqlConnection.h"
#include "framework/rtl/Collections.h"
#include "framework/rtl/Variants.h"

namespace quil {

class TSQLParam : public TCollectionItem {
public:
  TSQLParam() = default;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& Name() const { return name_; }
  void SetName(const QString& name);
  // ftUnknown binds the value in its own type.
  TFieldType DataType() const { return dataType_; }
  void SetDataType(TFieldType type);
  const Variant& Value() const { return value_; }
  void SetValue(const Variant& value);
  bool IsNull() const { return VarIsNull(value_) || VarIsEmpty(value_); }
  void Clear() { SetValue(Null()); }

  QVariant Bound(TSQLDialect dialect) const;

  QString GetDisplayName() const override { return name_; }
  void Assign(const TPersistent* source) override;

private:
  QString name_;
  TFieldType dataType_ = ftUnknown;
  Variant value_ = Null();
};

class TSQLParams : public TOwnedCollection {
public:
  explicit TSQLParams(TPersistent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TSQLParam* Items(int index) const { return static_cast<TSQLParam*>(TCollection::Items(index)); }
  TSQLParam* AddParam() { return static_cast<TSQLParam*>(TCollection::Add()); }
  TSQLParam* FindParam(const QString& name) const;
  // Raises EDatabaseError when there is no such parameter.
  TSQLParam* ParamByName(const QString& name) const;
  // Keeps the parameters of these names, with their values, and adds the new ones, in
  // the order of names.
  void Update(const QStringList& names);
  // The values for the placeholders, in the order of names.
  std::vector<QVariant> Values(const QStringList& names, TSQLDialect dialect) const;
};

}  // namespace quil
