#pragma once
// Exact counts that may scan a whole table, run where they keep the GUI responsive.
//
// A count runs on a pool thread over a connection of its own, opened with the data
// set's connection settings (Qt SQL connections belong to the thread that opened
// them). Its result comes back as an event posted to the application, so that it is
// taken up on the GUI thread and in event order. Waiting for it spins the event loop,
// so that the GUI paints and answers input meanwhile.
//
// Where a second connection would not see the same rows, the count runs on the calling
// connection instead: an SQLite ":memory:" database (it cannot be opened twice), and a
// connection inside a transaction the application started (its uncommitted rows are
// visible only to itself). So it does without a running QCoreApplication.

#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "framework/db/SqlStatement.h"

namespace quil {

class TSQLCounter {
public:
  // Answers the count of the statement on the calling connection, for the cases above.
  using TLocalCount = std::function<int64_t(const TSQLClause& statement)>;

  TSQLCounter(TSQLConnection& connection, TLocalCount localCount);
  ~TSQLCounter();
  TSQLCounter(const TSQLCounter&) = delete;
  TSQLCounter& operator=(const TSQLCounter&) = delete;

  // Starts counting the statement's rows unless it runs already; `done` runs on the GUI
  // thread with the count, unless Forget came first. A count the calling connection
  // must make is made at once.
  void Start(const TSQLClause& statement, std::function<void(int64_t)> done);
  // The count of the statement, waiting for it with the event loop alive. Raises
  // EDatabaseError with the database's message when the count failed; empty when Forget
  // came first, for the caller to ask again about what is now current.
  std::optional<int64_t> Await(const TSQLClause& statement);
  bool Running(const TSQLClause& statement) const;
  // Drops the counts under way: the data changed, their answers would be stale.
  void Forget();

  struct TJob;

private:
  bool RunsLocally() const;
  std::shared_ptr<TJob> Launch(const TSQLClause& statement);

  TSQLConnection& connection_;
  TLocalCount localCount_;
  std::map<QString, std::shared_ptr<TJob>> jobs_;  // by statement and values
};

}  // namespace quil
