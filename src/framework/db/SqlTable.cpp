#include "framework/db/SqlTable.h"

#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TSQLTable::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TSQLTable", &TCustomSQLDataSet::StaticClass())
          .Creates<TSQLTable>()
          .Published(ObjectProp("Connection", &TSQLTable::Connection, &TSQLTable::SetConnection))
          .Published(StrProp("TableName", &TSQLTable::TableName, &TSQLTable::SetTableName))
          .Published(StrProp("IndexFieldNames", &TSQLTable::IndexFieldNames, &TSQLTable::SetIndexFieldNames))
          .Published(StrProp("KeyFields", &TSQLTable::KeyFields, &TSQLTable::SetKeyFields))
          .Published(BoolProp("ReadOnly", &TSQLTable::ReadOnly, &TSQLTable::SetReadOnly).Default(false));
  return meta;
}

const TMetaClass& TSQLTable::ClassType() const { return StaticClass(); }

void TSQLTable::SetTableName(const QString& name) {
  if (name == tableName_) return;
  tableName_ = name;
  Reopen();
}

void TSQLTable::SetIndexFieldNames(const QString& fieldNames) {
  if (fieldNames == indexFieldNames_) return;
  indexFieldNames_ = fieldNames;
  Reopen();
}

TCustomSQLDataSet::TSQLSource TSQLTable::Source() const {
  if (tableName_.isEmpty()) DatabaseError(QStringLiteral("Missing TableName"), this);
  TSQLSource source;
  source.select.body = QStringLiteral("SELECT * FROM %1").arg(QuoteIdentifier(tableName_));
  source.select.order = ParseOrderItems(indexFieldNames_);
  source.table = tableName_;
  source.wholeTable = true;
  return source;
}

}  // namespace quil
