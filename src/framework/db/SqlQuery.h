#pragma once
// TSQLQuery: a data set over the SELECT in its SQL, with named parameters (":name"),
// and ExecSQL for statements that return no rows. Changing the SQL of an open query
// re-opens it, so that an order strategy that rewrites the ORDER BY makes the database
// sort. Edits write to the table of a single-table SELECT (see SqlDataSet.h). The
// parameters follow the SQL's names; both are published and streamed.

#include <memory>

#include "framework/db/SqlDataSet.h"
#include "framework/db/SqlParams.h"
#include "framework/rtl/Strings.h"

namespace quil {

class TSQLQuery : public TCustomSQLDataSet {
public:
  explicit TSQLQuery(TComponent* owner);

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  TStrings* SQL() const { return sql_.get(); }
  void SetSQL(TStrings* sql) { sql_->Assign(sql); }
  TSQLParams* Params() const { return params_.get(); }
  void SetParams(TSQLParams* params) { params_->Assign(params); }
  TSQLParam* ParamByName(const QString& name) const { return params_->ParamByName(name); }
  // Runs the SQL, which returns no rows; answers the rows affected.
  int ExecSQL();

protected:
  TSQLSource Source() const override;

private:
  void SQLChanged(TObject* sender);
  TSQLParamText ParsedSQL() const;

  std::unique_ptr<TStringList> sql_;
  std::unique_ptr<TSQLParams> params_;
};

}  // namespace quil
