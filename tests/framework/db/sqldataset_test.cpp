// The SQL data set cases on SQLite, the embedded database.

#include "SqlDataSetCases.h"

void ConnectBackend(quil::TSQLConnection& connection) {
  connection.SetDriverName(QStringLiteral("QSQLITE"));
  connection.SetDatabaseName(QStringLiteral(":memory:"));
  connection.Open();
}
