#include "framework/db/SqlConnection.h"

#include <QSqlError>
#include <QSqlQuery>
#include <atomic>

#include "framework/db/DataTypes.h"
#include "framework/rtl/TypInfo.h"

namespace quil {

namespace {

QString NextConnectionName() {
  static std::atomic<int> counter{0};
  return QStringLiteral("quil-sql-%1").arg(++counter);
}

}  // namespace

const TMetaClass& TSQLConnection::StaticClass() {
  static const TMetaClass meta =
      TMetaClass("TSQLConnection", &TComponent::StaticClass())
          .Creates<TSQLConnection>()
          .Published(StrProp("DriverName", &TSQLConnection::DriverName, &TSQLConnection::SetDriverName))
          .Published(StrProp("DatabaseName", &TSQLConnection::DatabaseName, &TSQLConnection::SetDatabaseName))
          .Published(StrProp("HostName", &TSQLConnection::HostName, &TSQLConnection::SetHostName))
          .Published(IntProp("Port", &TSQLConnection::Port, &TSQLConnection::SetPort).Default(-1))
          .Published(StrProp("UserName", &TSQLConnection::UserName, &TSQLConnection::SetUserName))
          .Published(StrProp("Password", &TSQLConnection::Password, &TSQLConnection::SetPassword))
          .Published(BoolProp("Connected", &TSQLConnection::Connected, &TSQLConnection::SetConnected).Default(false));
  return meta;
}

const TMetaClass& TSQLConnection::ClassType() const { return StaticClass(); }

TSQLConnection::TSQLConnection(TComponent* owner) : TComponent(owner), connectionName_(NextConnectionName()) {}

TSQLConnection::~TSQLConnection() {
  reads_.clear();
  schemaVersion_.reset();
  if (QSqlDatabase::contains(connectionName_)) {
    QSqlDatabase::database(connectionName_, false).close();
    QSqlDatabase::removeDatabase(connectionName_);
  }
}

void TSQLConnection::SetSetting(QString& setting, const QString& value) {
  if (setting == value) return;
  Close();
  setting = value;
}

void TSQLConnection::SetPort(int value) {
  if (port_ == value) return;
  Close();
  port_ = value;
}

bool TSQLConnection::Connected() const {
  return QSqlDatabase::contains(connectionName_) && QSqlDatabase::database(connectionName_, false).isOpen();
}

// Also after a lost connection, which no longer counts as connected but still holds
// its prepared statements.
void TSQLConnection::Disconnect() {
  reads_.clear();
  schemaVersion_.reset();
  if (QSqlDatabase::contains(connectionName_)) QSqlDatabase::database(connectionName_, false).close();
  inTransaction_ = false;
}

void TSQLConnection::SetConnected(bool value) {
  if (!value) return Disconnect();
  if (Connected()) return;
  Disconnect();
  if (!QSqlDatabase::isDriverAvailable(driverName_))
    DatabaseError(QStringLiteral("The database driver '%1' is not available").arg(driverName_), this);
  if (!QSqlDatabase::contains(connectionName_)) QSqlDatabase::addDatabase(driverName_, connectionName_);
  QSqlDatabase db = QSqlDatabase::database(connectionName_, false);
  db.setDatabaseName(databaseName_);
  db.setHostName(hostName_);
  db.setPort(port_);
  db.setUserName(userName_);
  db.setPassword(password_);
  if (!db.open())
    DatabaseError(QStringLiteral("Cannot connect to '%1': %2").arg(databaseName_, db.lastError().text()), this);
  SchemaMayHaveChanged();
}

QSqlDatabase TSQLConnection::Database() {
  Open();
  return QSqlDatabase::database(connectionName_, false);
}

TSQLDialect TSQLConnection::Dialect() const {
  return driverName_.startsWith(QLatin1String("QPSQL")) ? TSQLDialect::PostgreSQL : TSQLDialect::SQLite;
}

void TSQLConnection::StartTransaction() {
  if (inTransaction_) DatabaseError(QStringLiteral("A transaction is already active"), this);
  QSqlDatabase db = Database();
  if (!db.transaction()) {
    if (Lost(db.lastError())) StatementFailed(db.lastError(), QStringLiteral("BEGIN"));
    DatabaseError(QStringLiteral("Cannot start a transaction: %1").arg(db.lastError().text()), this);
  }
  inTransaction_ = true;
}

void TSQLConnection::Commit() {
  if (!inTransaction_) DatabaseError(QStringLiteral("No transaction is active"), this);
  QSqlDatabase db = Database();
  if (!db.commit()) {
    if (Lost(db.lastError())) StatementFailed(db.lastError(), QStringLiteral("COMMIT"));
    const QString message = db.lastError().text();
    db.rollback();
    inTransaction_ = false;
    DatabaseError(QStringLiteral("Cannot commit, the transaction was rolled back: %1").arg(message), this);
  }
  inTransaction_ = false;
}

void TSQLConnection::Rollback() {
  if (!inTransaction_) DatabaseError(QStringLiteral("No transaction is active"), this);
  inTransaction_ = false;
  QSqlDatabase db = Database();
  if (!db.rollback()) DatabaseError(QStringLiteral("Cannot roll back: %1").arg(db.lastError().text()), this);
}

qlonglong TSQLConnection::SchemaVersion() {
  if (!schemaVersion_) schemaVersion_ = std::make_unique<QSqlQuery>(Database());
  QSqlQuery& version = *schemaVersion_;
  if (!version.exec(QStringLiteral("PRAGMA schema_version")) || !version.next())
    StatementFailed(version.lastError(), QStringLiteral("PRAGMA schema_version"));
  const qlonglong current = version.value(0).toLongLong();
  version.finish();
  return current;
}

// A statement prepared before a change of the schema may refuse to run (PostgreSQL:
// "cached plan must not change result type"); it is prepared once more before raising.
QSqlQuery& TSQLConnection::RunRead(const QString& sql, const std::vector<QVariant>& values) {
  // A bound on texts that carry their own numbers, such as the offsets of far jumps.
  if (reads_.size() >= 64) reads_.clear();
  for (bool retry : {true, false}) {
    auto [entry, added] = reads_.try_emplace(sql, Database());
    QSqlQuery& query = entry->second;
    if (added) query.setForwardOnly(true);
    bool ok = !added || query.prepare(sql);
    if (ok) {
      for (size_t index = 0; index < values.size(); ++index) query.bindValue(int(index), values[index]);
      ok = query.exec();
    }
    if (ok) return query;
    const QSqlError error = query.lastError();
    reads_.erase(entry);
    if (!retry || added || Lost(error)) StatementFailed(error, sql);
  }
  Q_UNREACHABLE();
}

int TSQLConnection::ExecuteDirect(const QString& sql) {
  QSqlQuery query(Database());
  SchemaMayHaveChanged();
  if (!query.exec(sql)) StatementFailed(query.lastError(), sql);
  return query.numRowsAffected();
}

// A PostgreSQL session that the server ended leaves the driver closed; a failure that
// leaves it open is asked once more with the smallest statement, which only a dead
// session refuses without an SQLSTATE of its own. An SQLite file cannot go away.
bool TSQLConnection::Lost(const QSqlError& error) {
  if (Dialect() != TSQLDialect::PostgreSQL || !QSqlDatabase::contains(connectionName_)) return false;
  QSqlDatabase db = QSqlDatabase::database(connectionName_, false);
  if (!db.isOpen()) return true;
  const QString state = error.nativeErrorCode();
  if (state.startsWith(QLatin1String("08")) || state.startsWith(QLatin1String("57P"))) return true;
  if (!state.isEmpty()) return false;
  QSqlQuery probe(db);
  if (probe.exec(QStringLiteral("SELECT 1"))) return false;
  return !db.isOpen() || probe.lastError().nativeErrorCode().isEmpty();
}

void TSQLConnection::StatementFailed(const QSqlError& error, const QString& sql) {
  if (Lost(error)) {
    Disconnect();
    DatabaseError(QStringLiteral("The connection to the database was lost: %1\nin: %2").arg(error.text(), sql), this);
  }
  DatabaseError(QStringLiteral("%1\nin: %2").arg(error.text(), sql), this);
}

TSQLWriteTransaction::TSQLWriteTransaction(TSQLConnection& connection)
    : connection_(connection), own_(!connection.InTransaction()) {
  if (own_) connection_.StartTransaction();
  else connection_.ExecuteDirect(QStringLiteral("SAVEPOINT quil_write"));
}

TSQLWriteTransaction::~TSQLWriteTransaction() {
  if (done_) return;
  try {
    if (own_ && connection_.InTransaction()) connection_.Rollback();
    if (!own_) connection_.ExecuteDirect(QStringLiteral("ROLLBACK TO SAVEPOINT quil_write"));
  } catch (...) {
    // The write's own error is the one to report.
  }
}

void TSQLWriteTransaction::Commit() {
  done_ = true;
  if (own_) connection_.Commit();
  else connection_.ExecuteDirect(QStringLiteral("RELEASE SAVEPOINT quil_write"));
}

}  // namespace quil
