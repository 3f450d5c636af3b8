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

namespace sqlcases {

// The server ends the session under an open table: the next fetch says the connection
// was lost, and opening again connects anew, without a new connection component.
TEST_F(SqlDataSetTest, ASessionTheServerEndedIsReportedAndTheNextOpenReconnects) {
  auto table = Table(2);
  table->Open();
  QSqlQuery pid(connection_.Database());
  ASSERT_TRUE(pid.exec(QStringLiteral("SELECT pg_backend_pid()")) && pid.next());
  const int backend = pid.value(0).toInt();
  pid.finish();
  {
    QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), QStringLiteral("terminator"));
    other.setHostName(QStringLiteral("127.0.0.1"));
    other.setPort(QUIL_PG_PORT);
    other.setUserName(QStringLiteral("postgres"));
    other.setDatabaseName(QStringLiteral("quil_sqlcases"));
    ASSERT_TRUE(other.open());
    QSqlQuery terminate(other);
    ASSERT_TRUE(terminate.exec(QStringLiteral("SELECT pg_terminate_backend(%1)").arg(backend)));
    other.close();
  }
  QSqlDatabase::removeDatabase(QStringLiteral("terminator"));

  try {
    table->SetRecNo(40);
    ADD_FAILURE() << "the fetch on a dead session succeeded";
  } catch (const EDatabaseError& error) {
    EXPECT_TRUE(error.Message().contains(QStringLiteral("connection to the database was lost"))) << error.Message().toStdString();
  }
  EXPECT_FALSE(connection_.Connected());
  table->Close();
  table->Open();
  table->SetRecNo(40);
  EXPECT_EQ(Id(*table), 40);
  EXPECT_TRUE(connection_.Connected());
  table->Edit();
  table->FieldByName(QStringLiteral("grp"))->SetAsInteger(5);
  table->Post();
  EXPECT_EQ(table->FieldByName(QStringLiteral("grp"))->AsInteger(), 5);
}

}  // namespace sqlcases
