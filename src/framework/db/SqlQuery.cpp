#include "framework/db/SqlQuery.h"

#include <QSqlError>
#include <QSqlQuery>

#include "framework/rtl/TypInfo.h"

namespace quil {

const TMetaClass& TSQLQuery::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TSQLQuery", &TCustomSQLDataSet::StaticClass())
          .Creates<TSQLQuery>()
          .Published(ObjectProp("Connection", &TSQLQuery::Connection, &TSQLQuery::SetConnection))
          .Published(ObjectProp("SQL", &TSQLQuery::SQL, &TSQLQuery::SetSQL))
          .Published(ObjectProp("Params", &TSQLQuery::Params, &TSQLQuery::SetParams))
          .Published(StrProp("KeyFields", &TSQLQuery::KeyFields, &TSQLQuery::SetKeyFields))
          .Published(BoolProp("ReadOnly", &TSQLQuery::ReadOnly, &TSQLQuery::SetReadOnly).Default(false));
  return meta;
}

const TMetaClass& TSQLQuery::ClassType() const { return StaticClass(); }

TSQLQuery::TSQLQuery(TComponent* owner)
    : TCustomSQLDataSet(owner), sql_(std::make_unique<TStringList>()), params_(std::make_unique<TSQLParams>(this)) {
  sql_->SetOnChange(TNotifyEvent(this, &TSQLQuery::SQLChanged));
}

void TSQLQuery::SQLChanged(TObject*) {
  params_->Update(ParsedSQL().names);
  Reopen();
}

TSQLParamText TSQLQuery::ParsedSQL() const { return ParseParams(sql_->Text().trimmed()); }

TCustomSQLDataSet::TSQLSource TSQLQuery::Source() const {
  const TSQLParamText parsed = ParsedSQL();
  if (parsed.sql.isEmpty()) DatabaseError(QStringLiteral("The SQL of the query is empty"), this);
  TSQLSource source;
  source.select = SplitOrderBy(parsed.sql);
  source.values = params_->Values(parsed.names, Connection() ? Connection()->Dialect() : TSQLDialect::SQLite);
  source.table = SingleTableOf(source.select.body);
  return source;
}

int TSQLQuery::ExecSQL() {
  if (!Connection()) DatabaseError(QStringLiteral("Missing Connection"), this);
  const TSQLParamText parsed = ParsedSQL();
  QSqlQuery query(Connection()->Database());
  Connection()->SchemaMayHaveChanged();
  if (!query.prepare(parsed.sql)) Connection()->StatementFailed(query.lastError(), parsed.sql);
  const std::vector<QVariant> values = params_->Values(parsed.names, Connection()->Dialect());
  for (size_t index = 0; index < values.size(); ++index) query.bindValue(int(index), values[index]);
  if (!query.exec()) Connection()->StatementFailed(query.lastError(), parsed.sql);
  return query.numRowsAffected();
}

}  // namespace quil
