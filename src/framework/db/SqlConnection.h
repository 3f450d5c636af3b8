#pragma once
// TSQLConnection: one database connection over Qt SQL, shared by the SQL data sets
// that name it. SQLite ("QSQLITE", the default) needs only DatabaseName, a file path or
// ":memory:"; PostgreSQL ("QPSQL") takes HostName, Port, UserName and Password too.
//
// Every failure raises EDatabaseError with the database's own message. A server that
// went away (restarted, or ended the session) is found on the statement that fails:
// the connection closes, the error says the connection was lost, and the next
// statement, Open or Connected = true connects again.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <memory>
#include <unordered_map>

#include "framework/rtl/Component.h"

class QSqlError;

namespace quil {

// The SQL that differs between the two databases the data sets speak.
enum class TSQLDialect { SQLite, PostgreSQL };

class TSQLConnection : public TComponent {
public:
  explicit TSQLConnection(TComponent* owner);
  ~TSQLConnection() override;

  static const TMetaClass& StaticClass();
  const TMetaClass& ClassType() const override;

  const QString& DriverName() const { return driverName_; }
  void SetDriverName(const QString& value) { SetSetting(driverName_, value); }
  const QString& DatabaseName() const { return databaseName_; }
  void SetDatabaseName(const QString& value) { SetSetting(databaseName_, value); }
  const QString& HostName() const { return hostName_; }
  void SetHostName(const QString& value) { SetSetting(hostName_, value); }
  int Port() const { return port_; }
  void SetPort(int value);
  const QString& UserName() const { return userName_; }
  void SetUserName(const QString& value) { SetSetting(userName_, value); }
  const QString& Password() const { return password_; }
  void SetPassword(const QString& value) { SetSetting(password_, value); }

  bool Connected() const;
  void SetConnected(bool value);
  void Open() { SetConnected(true); }
  void Close() { SetConnected(false); }

  bool InTransaction() const { return inTransaction_; }
  void StartTransaction();
  void Commit();
  void Rollback();

  // Runs a statement that returns no rows; answers the rows affected.
  int ExecuteDirect(const QString& sql);
  // Changes whenever the connection opens or runs a statement that may change the
  // schema, so that what a data set read from the catalog is known to still hold.
  int SchemaSerial() const { return schemaSerial_; }
  void SchemaMayHaveChanged() { ++schemaSerial_; }

  TSQLDialect Dialect() const;
  // The open connection; raises when it cannot be opened.
  QSqlDatabase Database();
  // A reading statement prepared once per connection and run again with new values,
  // so that reopening a data set or paging through it parses nothing twice. The caller
  // finishes it when done, so that it holds no read lock; raises as ExecuteDirect does.
  //
  // SQLite re-prepares a statement whose schema changed, but the Qt driver sizes its
  // row by the column count from before and overruns it when columns were added: a
  // statement that returns rows names its columns rather than "*" (LIMIT 0 returns none).
  QSqlQuery& RunRead(const QString& sql, const std::vector<QVariant>& values);
  // SQLite's schema version, which every change of the schema by any connection moves.
  qlonglong SchemaVersion();
  // Raises EDatabaseError for a statement that failed with error; when the connection
  // turns out to be lost, closes it first and says so.
  [[noreturn]] void StatementFailed(const QSqlError& error, const QString& sql);

private:
  void SetSetting(QString& setting, const QString& value);
  void Disconnect();
  bool Lost(const QSqlError& error);
  void DropReadsAfterSchemaChange();

  QString driverName_ = QStringLiteral("QSQLITE");
  QString databaseName_;
  QString hostName_;
  int port_ = -1;
  QString userName_;
  QString password_;
  QString connectionName_;  // unique per component, for QSqlDatabase's registry
  std::unordered_map<QString, QSqlQuery> reads_;  // dropped with the connection
  std::unique_ptr<QSqlQuery> schemaVersion_;
  bool inTransaction_ = false;
  int schemaSerial_ = 0;
};

// A write that commits when the scope ends normally and rolls back when it unwinds.
// Inside a transaction the application started it works in a savepoint, so that a
// failed write undoes only itself and leaves that transaction usable (PostgreSQL
// refuses every further statement of a transaction with a failed one in it).
class TSQLWriteTransaction {
public:
  explicit TSQLWriteTransaction(TSQLConnection& connection);
  ~TSQLWriteTransaction();
  TSQLWriteTransaction(const TSQLWriteTransaction&) = delete;
  TSQLWriteTransaction& operator=(const TSQLWriteTransaction&) = delete;
  void Commit();

private:
  TSQLConnection& connection_;
  bool own_;
  bool done_ = false;
};

}  // namespace quil
