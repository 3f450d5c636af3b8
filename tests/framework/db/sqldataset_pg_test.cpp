// The SQL data set cases on the throwaway PostgreSQL server.

#include "PgTestServer.h"
#include "SqlDataSetCases.h"

void ConnectBackend(quil::TSQLConnection& connection) {
  {
    QSqlDatabase setup = OpenTestPostgres(QStringLiteral("sqlcases_setup"), QStringLiteral("quil_sqlcases"));
    setup.close();
  }
  QSqlDatabase::removeDatabase(QStringLiteral("sqlcases_setup"));
  connection.SetDriverName(QStringLiteral("QPSQL"));
  connection.SetHostName(QStringLiteral("127.0.0.1"));
  connection.SetPort(QUIL_PG_PORT);
  connection.SetUserName(QStringLiteral("postgres"));
  connection.SetDatabaseName(QStringLiteral("quil_sqlcases"));
  connection.Open();
}
