#pragma once
// TSQLTable: a data set over one table, ordered by IndexFieldNames (";"-separated
// columns, each optionally followed by DESC). Changing either property on an open
// table re-opens it, so that a title click makes the database sort.

#include "framework/db/SqlDataSet.h"

namespace quil {

class TSQLTable : public TCustomSQLDataSet {
public:
  explicit TSQLTable(TComponent* owner) : TCustomSQLDataSet(owner) {}

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& TableName() const { return tableName_; }
  void SetTableName(const QString& name);
  const QString& IndexFieldNames() const { return indexFieldNames_; }
  void SetIndexFieldNames(const QString& fieldNames);

protected:
  TSQLSource Source() const override;

private:
  QString tableName_;
  QString indexFieldNames_;
};

}  // namespace quil
