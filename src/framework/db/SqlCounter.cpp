#include "framework/db/SqlCounter_p.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThreadPool>
#include <atomic>

#include "framework/db/DataTypes.h"

namespace quil {

// The settings travel by value: the worker must not touch the component.
struct TSQLCounter::TJob {
  TSQLClause statement;
  QString driver, database, host, user, password;
  int port = -1;
  // Written by the worker before it posts the delivery, read on the GUI thread after.
  std::optional<int64_t> result;
  QString error;
  // GUI thread only.
  bool delivered = false;
  bool forgotten = false;
  std::vector<std::function<void(int64_t)>> done;
};

namespace {

QString KeyOf(const TSQLClause& statement) {
  QString key = statement.sql;
  for (const QVariant& value : statement.values) key += QLatin1Char('\x1f') + value.typeName() + value.toString();
  return key;
}

QThreadPool& Pool() {
  static QThreadPool pool;
  return pool;
}

void CountOnOwnConnection(TSQLCounter::TJob& job) {
  static std::atomic<int> serial{0};
  const QString name = QStringLiteral("quil-count-%1").arg(++serial);
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(job.driver, name);
    db.setDatabaseName(job.database);
    db.setHostName(job.host);
    db.setPort(job.port);
    db.setUserName(job.user);
    db.setPassword(job.password);
    if (!db.open()) {
      job.error = QStringLiteral("Cannot connect to count rows: %1").arg(db.lastError().text());
    } else {
      QSqlQuery query(db);
      query.setForwardOnly(true);
      query.prepare(job.statement.sql);
      for (size_t index = 0; index < job.statement.values.size(); ++index)
        query.bindValue(int(index), job.statement.values[index]);
      if (query.exec() && query.next()) job.result = query.value(0).toLongLong();
      else job.error = QStringLiteral("%1\nin: %2").arg(query.lastError().text(), job.statement.sql);
    }
  }
  QSqlDatabase::removeDatabase(name);
}

void Deliver(const std::shared_ptr<TSQLCounter::TJob>& job) {
  job->delivered = true;
  if (job->forgotten || !job->result) return;
  for (const auto& done : job->done) done(*job->result);
}

}  // namespace

TSQLCounter::TSQLCounter(TSQLConnection& connection, TLocalCount localCount)
    : connection_(connection), localCount_(std::move(localCount)) {}

TSQLCounter::~TSQLCounter() { Forget(); }

bool TSQLCounter::RunsLocally() const {
  if (!QCoreApplication::instance() || connection_.InTransaction()) return true;
  const QString& name = connection_.DatabaseName();
  return connection_.Dialect() == TSQLDialect::SQLite &&
         (name.isEmpty() || name == QLatin1String(":memory:") || name.contains(QLatin1String("mode=memory")));
}

std::shared_ptr<TSQLCounter::TJob> TSQLCounter::Launch(const TSQLClause& statement) {
  std::erase_if(jobs_, [](const auto& entry) { return entry.second->delivered; });
  std::shared_ptr<TJob>& job = jobs_[KeyOf(statement)];
  if (job) return job;
  job = std::make_shared<TJob>();
  job->statement = statement;
  job->driver = connection_.DriverName();
  job->database = connection_.DatabaseName();
  job->host = connection_.HostName();
  job->port = connection_.Port();
  job->user = connection_.UserName();
  job->password = connection_.Password();
  Pool().start([job] {
    CountOnOwnConnection(*job);
    if (QCoreApplication* app = QCoreApplication::instance())
      QMetaObject::invokeMethod(app, [job] { Deliver(job); }, Qt::QueuedConnection);
  });
  return job;
}

void TSQLCounter::Start(const TSQLClause& statement, std::function<void(int64_t)> done) {
  if (RunsLocally()) {
    done(localCount_(statement));
    return;
  }
  Launch(statement)->done.push_back(std::move(done));
}

std::optional<int64_t> TSQLCounter::Await(const TSQLClause& statement) {
  if (RunsLocally()) return localCount_(statement);
  const std::shared_ptr<TJob> job = Launch(statement);
  // Nothing of this object is touched after the wait: the event loop may destroy it.
  while (!job->delivered) QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  if (job->forgotten) return std::nullopt;
  if (!job->result) DatabaseError(job->error, nullptr);
  return job->result;
}

bool TSQLCounter::Running(const TSQLClause& statement) const {
  const auto found = jobs_.find(KeyOf(statement));
  return found != jobs_.end() && !found->second->delivered;
}

void TSQLCounter::Forget() {
  for (auto& [key, job] : jobs_) job->forgotten = true;
  jobs_.clear();
}

}  // namespace quil
