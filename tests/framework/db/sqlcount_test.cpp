// Counting an SQLite file database on a connection of its own while the GUI thread's
// event loop keeps running.

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

#include "framework/db/SqlTable.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

constexpr int kRows = 300;

class SqlCountTest : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    connection_.SetDatabaseName(folder_.filePath(QStringLiteral("count.sqlite")));
    connection_.ExecuteDirect(QStringLiteral("CREATE TABLE items (id INTEGER PRIMARY KEY, grp INTEGER)"));
    connection_.ExecuteDirect(QStringLiteral(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "INSERT INTO items SELECT i, i % 3 FROM n").arg(kRows));
    table_.SetConnection(&connection_);
    table_.SetTableName(QStringLiteral("items"));
    table_.SetFetchSize(10);
    table_.SetCacheFetches(2);
    table_.Open();
  }

  // Posts a marker that only an event loop running during the next call can see.
  void PostMarker() {
    marker_ = false;
    QMetaObject::invokeMethod(qApp, [this] { marker_ = true; }, Qt::QueuedConnection);
  }

  QTemporaryDir folder_;
  TSQLConnection connection_{nullptr};
  TSQLTable table_{nullptr};
  bool marker_ = false;
};

TEST_F(SqlCountTest, RecordCountWaitsWithTheEventLoopRunning) {
  PostMarker();
  EXPECT_EQ(table_.RecordCount(), kRows);
  EXPECT_TRUE(marker_);
  PostMarker();
  EXPECT_EQ(table_.RecordCount(), kRows);
  EXPECT_FALSE(marker_) << "a known count waits for nothing";
}

TEST_F(SqlCountTest, RecNoBeyondTheCacheIsCountedInTheBackground) {
  ASSERT_TRUE(table_.Locate(QStringLiteral("id"), 250, {}));
  const TBookmark bookmark = table_.GetBookmark();
  table_.Close();
  table_.Open();
  table_.GotoBookmark(bookmark);
  PostMarker();
  EXPECT_EQ(table_.RecNo(), 250);
  EXPECT_TRUE(marker_);
  table_.Next();
  EXPECT_EQ(table_.RecNo(), 251);
}

TEST_F(SqlCountTest, TheBackgroundCountTellsWhenItArrives) {
  int told = 0;
  table_.SetOnRecordCount([&](TDataSet*) { ++told; });
  table_.RequestRecordCount();
  EXPECT_FALSE(table_.RecordCountKnown());
  EXPECT_EQ(told, 0);
  while (!table_.RecordCountKnown()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(table_.RecordCount(), kRows);
}

TEST_F(SqlCountTest, AFailedBackgroundCountRaisesWithTheDatabasesMessage) {
  TSQLConnection other(nullptr);
  other.SetDatabaseName(connection_.DatabaseName());
  other.ExecuteDirect(QStringLiteral("ALTER TABLE items RENAME TO gone"));
  try {
    (void)table_.RecordCount();
    FAIL() << "the count ran on a missing table";
  } catch (const EDatabaseError& error) {
    EXPECT_TRUE(QString::fromUtf8(error.what()).contains(QStringLiteral("items"))) << error.what();
  }
}

}  // namespace

namespace {

// A control that must not wait asks IsSequenced before it reads the numbers.
TEST_F(SqlCountTest, IsSequencedOnlyWhileBothNumbersAnswerAtOnce) {
  EXPECT_FALSE(table_.IsSequenced()) << "nothing counted yet";
  table_.Last();
  table_.RequestRecordCount();
  EXPECT_FALSE(table_.IsSequenced());
  while (!table_.RecordCountKnown()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_TRUE(table_.IsSequenced());
  PostMarker();
  EXPECT_EQ(table_.RecNo(), kRows);
  EXPECT_EQ(table_.MoveBy(-45), -45);
  EXPECT_TRUE(table_.IsSequenced()) << "the cache left the end but kept its place";
  EXPECT_EQ(table_.RecNo(), kRows - 45);
  EXPECT_FALSE(marker_) << "no number waited";
  table_.CheckCacheConsistency();

  ASSERT_TRUE(table_.Locate(QStringLiteral("id"), 150, {}));
  EXPECT_FALSE(table_.IsSequenced()) << "a row found by its key has no known position";
  EXPECT_EQ(table_.RecNo(), 150);
  EXPECT_TRUE(table_.IsSequenced());
}

}  // namespace
