#pragma once
// The SQL data set cases that run against each database. A test program defines
// ConnectBackend (how its TSQLConnection reaches the database) and includes this file.

#include <QCoreApplication>
#include <QDate>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "framework/db/DataSource.h"
#include "framework/db/Field.h"
#include "framework/db/SqlQuery.h"
#include "framework/db/SqlTable.h"
#include "framework/rtl/Exceptions.h"

void ConnectBackend(quil::TSQLConnection& connection);

namespace sqlcases {

using namespace quil;

constexpr int kRows = 57;

// The generated row i: nulls and awkward texts where the cases need them.
struct TPerson {
  int id;
  std::optional<QString> name;
  std::optional<int> group;
};

inline TPerson Person(int id) {
  TPerson person{id, QStringLiteral("Name%1").arg(id, 2, 10, QLatin1Char('0')), id % 4};
  if (id == 7) person.name = QStringLiteral("O'Brien");
  if (id == 8) person.name.reset();
  if (id == 9) person.name = QStringLiteral("[bracket] 50%");
  if (id == 10) person.name = QStringLiteral("alice");
  if (id == 11) person.name = QStringLiteral("Alice");
  if (id % 10 == 0) person.group.reset();
  return person;
}

class SqlDataSetTest : public testing::Test {
protected:
  void SetUp() override {
    ConnectBackend(connection_);
    const bool postgres = connection_.Dialect() == TSQLDialect::PostgreSQL;
    connection_.ExecuteDirect(QStringLiteral("DROP TABLE IF EXISTS people"));
    connection_.ExecuteDirect(QStringLiteral(
        "CREATE TABLE people (id INTEGER PRIMARY KEY, \"first name\" VARCHAR(40), grp INTEGER, "
        "amount NUMERIC(12,2), score DOUBLE PRECISION, active BOOLEAN, born DATE, seen TIMESTAMP, "
        "notes TEXT, photo %1, big BIGINT, code VARCHAR(8) UNIQUE)").arg(postgres ? "BYTEA" : "BLOB"));
    QSqlDatabase db = connection_.Database();
    db.transaction();
    QSqlQuery insert(db);
    insert.prepare(QStringLiteral("INSERT INTO people (id, \"first name\", grp, amount, score, active, born, seen, "
                                  "notes, photo, big, code) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (int id = 1; id <= kRows; ++id) {
      const TPerson person = Person(id);
      const QDate born = QDate(2000, 1, 1).addDays(id);
      insert.bindValue(0, id);
      insert.bindValue(1, person.name ? QVariant(*person.name) : QVariant(QMetaType(QMetaType::QString)));
      insert.bindValue(2, person.group ? QVariant(*person.group) : QVariant(QMetaType(QMetaType::Int)));
      insert.bindValue(3, id * 1.25);
      insert.bindValue(4, id / 8.0);
      insert.bindValue(5, id % 2 == 0);
      insert.bindValue(6, postgres ? QVariant(born) : QVariant(born.toString(Qt::ISODate)));
      const QString seen = born.toString(Qt::ISODate) + QStringLiteral(" %1:30:00").arg(id % 24, 2, 10, QLatin1Char('0'));
      insert.bindValue(7, seen);
      insert.bindValue(8, id % 3 == 0 ? QVariant(QMetaType(QMetaType::QString)) : QVariant(QStringLiteral("note %1").arg(id)));
      insert.bindValue(9, id == 1 ? QVariant(QByteArray("\x89PNG\0\x01", 6)) : QVariant(QMetaType(QMetaType::QByteArray)));
      insert.bindValue(10, qlonglong(id) * 10000000000LL);
      insert.bindValue(11, QStringLiteral("C%1").arg(id));
      ASSERT_TRUE(insert.exec()) << insert.lastError().text().toStdString();
    }
    db.commit();
  }

  std::unique_ptr<TSQLTable> Table(int fetchSize = 5) {
    auto table = std::make_unique<TSQLTable>(nullptr);
    table->SetConnection(&connection_);
    table->SetTableName(QStringLiteral("people"));
    table->SetFetchSize(fetchSize);
    table->SetCacheFetches(2);
    return table;
  }

  static int Id(const TDataSet& dataSet) { return dataSet.FieldByName(QStringLiteral("id"))->AsInteger(); }

  // Walks forward from First, checking RecNo and the cache's bound at every step.
  static std::vector<int> WalkForward(TCustomSQLDataSet& dataSet) {
    std::vector<int> ids;
    for (dataSet.First(); !dataSet.Eof(); dataSet.Next()) {
      ids.push_back(Id(dataSet));
      EXPECT_EQ(dataSet.RecNo(), int(ids.size()));
      dataSet.CheckCacheConsistency();
      dataSet.CheckConsistency();
    }
    return ids;
  }

  static std::vector<int> AllIds() {
    std::vector<int> ids(kRows);
    for (int id = 1; id <= kRows; ++id) ids[size_t(id - 1)] = id;
    return ids;
  }

  TSQLConnection connection_{nullptr};
};

TEST_F(SqlDataSetTest, WalksBothWaysAcrossFetchBoundariesWithExactPositions) {
  auto table = Table();
  table->Open();
  EXPECT_EQ(WalkForward(*table), AllIds());
  EXPECT_EQ(table->RecordCount(), kRows);
  EXPECT_LE(table->CachedRowCount(), 10);

  std::vector<int> backwards;
  for (table->Last(); !table->Bof(); table->Prior()) {
    backwards.push_back(Id(*table));
    EXPECT_EQ(table->RecNo(), kRows + 1 - int(backwards.size()));
    table->CheckCacheConsistency();
  }
  std::reverse(backwards.begin(), backwards.end());
  EXPECT_EQ(backwards, AllIds());
}

// A grid opening on a window of rows waits for that window alone, at either end; only
// reading on past it fetches FetchSize rows at a time.
TEST_F(SqlDataSetTest, OpeningFetchesTheLinksWindowAndReadingOnFetchesFetchSize) {
  auto table = Table(20);
  TDataSource source(nullptr);
  source.SetDataSet(table.get());
  TDataLink link;
  link.SetBufferCount(6);
  link.SetDataSource(&source);
  table->Open();
  EXPECT_EQ(table->CachedRowCount(), 6);
  link.MoveBy(6);
  EXPECT_EQ(Id(*table), 7);
  EXPECT_EQ(table->CachedRowCount(), 26);
  table->Last();
  EXPECT_EQ(table->CachedRowCount(), 6);
  EXPECT_EQ(Id(*table), kRows);
  link.MoveBy(-8);
  EXPECT_EQ(Id(*table), kRows - 8);
  table->CheckCacheConsistency();
  link.SetDataSource(nullptr);
}

// A grid's view: a link that keeps a window of rows while the cursor pages through.
// The cache (two fetches of two rows) is smaller than the link's window, so that the
// active record often lies outside it.
TEST_F(SqlDataSetTest, ALinkPagesItsWindowWhileTheCacheStaysBounded) {
  auto table = Table(2);
  TDataSource source(nullptr);
  source.SetDataSet(table.get());
  TDataLink link;
  link.SetBufferCount(8);
  link.SetDataSource(&source);
  table->Open();
  for (int page = 0; page < 4; ++page) link.MoveBy(8);
  EXPECT_EQ(Id(*table), 33);
  EXPECT_EQ(table->RecNo(), 33);
  link.MoveBy(-30);
  EXPECT_EQ(Id(*table), 3);
  table->CheckConsistency();
  table->CheckCacheConsistency();
  table->Last();
  EXPECT_EQ(table->RecNo(), kRows);
  EXPECT_EQ(table->RecordCount(), kRows);
  link.MoveBy(-9);
  EXPECT_EQ(table->RecNo(), kRows - 9);
  EXPECT_EQ(Id(*table), kRows - 9);
  table->CheckConsistency();
  link.SetDataSource(nullptr);
}

TEST_F(SqlDataSetTest, RefreshShowsAnotherWritersChangesAndKeepsTheRecord) {
  auto table = Table();
  table->Open();
  table->SetRecNo(25);
  connection_.ExecuteDirect(QStringLiteral("UPDATE people SET \"first name\" = 'Elsewhere' WHERE id = 25"));
  connection_.ExecuteDirect(QStringLiteral("DELETE FROM people WHERE id < 4"));
  table->Refresh();
  EXPECT_EQ(Id(*table), 25);
  EXPECT_EQ(table->FieldByName(QStringLiteral("first name"))->AsString(), QStringLiteral("Elsewhere"));
  EXPECT_EQ(table->RecNo(), 22);
  EXPECT_EQ(table->RecordCount(), kRows - 3);
}

TEST_F(SqlDataSetTest, LocateFindsARowBeyondTheCache) {
  auto table = Table(3);
  table->Open();
  EXPECT_TRUE(table->Locate(QStringLiteral("first name"), Variant(QStringLiteral("O'Brien")), {}));
  EXPECT_EQ(Id(*table), 7);
  EXPECT_TRUE(table->Locate(QStringLiteral("code"), Variant(QStringLiteral("C50")), {}));
  EXPECT_EQ(table->RecNo(), 50);
  EXPECT_FALSE(table->Locate(QStringLiteral("code"), Variant(QStringLiteral("none")), {}));
}

// The handler sees every row the data set fetches: a walk on the client would show it
// all the rows before the match.
TEST_F(SqlDataSetTest, LocateAsksTheDatabaseWithTheKeyOptions) {
  auto table = Table(3);
  int seen = 0;
  table->SetOnFilterRecord([&](TDataSet*, bool& accept) {
    ++seen;
    accept = true;
  });
  table->SetFiltered(true);
  table->Open();
  seen = 0;
  struct TCase {
    const char* fields;
    Variant values;
    TLocateOptions options;
    int id;  // 0: no match
  };
  const TCase cases[] = {
      {"first name", Variant(QStringLiteral("Alice")), {}, 11},
      {"first name", Variant(QStringLiteral("ALICE")), {loCaseInsensitive}, 10},
      {"first name", Variant(QStringLiteral("ALICE")), {}, 0},
      {"first name", Variant(QStringLiteral("Name4")), {loPartialKey}, 40},
      {"first name", Variant(QStringLiteral("name5")), {loPartialKey}, 0},
      {"first name", Variant(QStringLiteral("name5")), {loPartialKey, loCaseInsensitive}, 50},
      {"first name", Variant(QStringLiteral("[bracket] 5")), {loPartialKey}, 9},
      {"first name", Null(), {}, 8},
      {"grp;code", VarArrayOf({Variant(2), Variant(QStringLiteral("C46"))}), {}, 46},
      {"grp;code", VarArrayOf({Variant(3), Variant(QStringLiteral("C46"))}), {}, 0},
      {"grp;first name", VarArrayOf({Variant(1), Variant(QStringLiteral("Name2"))}), {loPartialKey}, 21},
      {"grp", Variant(2), {}, 2},
      {"amount", Variant(50.0), {}, 40},
      {"big", Variant(int64_t(570000000000LL)), {}, 57},
  };
  for (const TCase& each : cases) {
    SCOPED_TRACE(each.fields);
    table->First();
    seen = 0;
    EXPECT_EQ(table->Locate(QString::fromLatin1(each.fields), each.values, each.options), each.id != 0);
    EXPECT_LE(seen, 3 + 2 * 3) << "the match and the window around it, no more";
    if (each.id != 0) {
      EXPECT_EQ(Id(*table), each.id);
    }
    table->CheckCacheConsistency();
  }
}

TEST_F(SqlDataSetTest, LocateSkipsMatchesTheHandlerRefusesAndLookupLeavesTheCursor) {
  auto table = Table(2);
  table->SetOnFilterRecord([](TDataSet* dataSet, bool& accept) { accept = Id(*dataSet) != 2; });
  table->SetFiltered(true);
  table->Open();
  table->Next();
  ASSERT_EQ(Id(*table), 3);
  EXPECT_TRUE(table->Locate(QStringLiteral("grp"), Variant(2), {}));
  EXPECT_EQ(Id(*table), 6);
  EXPECT_EQ(VarToStr(table->Lookup(QStringLiteral("code"), Variant(QStringLiteral("C33")), QStringLiteral("first name"))),
            QStringLiteral("Name33"));
  EXPECT_EQ(Id(*table), 6);
  EXPECT_TRUE(VarIsNull(table->Lookup(QStringLiteral("code"), Variant(QStringLiteral("C2")), QStringLiteral("id"))));
}

TEST_F(SqlDataSetTest, LastRightAfterOpeningKnowsItsPositionAndTheCount) {
  auto table = Table();
  table->Open();
  table->Last();
  EXPECT_EQ(Id(*table), kRows);
  EXPECT_EQ(table->RecNo(), kRows);
  EXPECT_EQ(table->RecordCount(), kRows);
  EXPECT_EQ(table->MoveBy(-12), -12);
  EXPECT_EQ(Id(*table), kRows - 12);
  EXPECT_EQ(table->RecNo(), kRows - 12);
}

TEST_F(SqlDataSetTest, RecNoJumpsFromEitherEnd) {
  auto table = Table();
  table->Open();
  for (int recNo : {30, 3, 55, 29, 57, 1}) {
    table->SetRecNo(recNo);
    EXPECT_EQ(Id(*table), recNo);
    EXPECT_EQ(table->RecNo(), recNo);
    table->CheckCacheConsistency();
  }
  table->SetRecNo(40);
  table->Next();
  EXPECT_EQ(Id(*table), 41);
  table->MoveBy(-20);
  EXPECT_EQ(table->RecNo(), 21);
}

TEST_F(SqlDataSetTest, OrdersByIndexFieldNamesWithNullsFirstAndTheKeyAsTieBreak) {
  auto table = Table();
  table->SetIndexFieldNames(QStringLiteral("grp DESC;first name"));
  table->Open();
  std::vector<TPerson> people;
  for (int id = 1; id <= kRows; ++id) people.push_back(Person(id));
  std::vector<int> expected;
  for (const TPerson& person : people) expected.push_back(person.id);
  std::stable_sort(expected.begin(), expected.end(), [&people](int first, int second) {
    const TPerson& a = people[size_t(first - 1)];
    const TPerson& b = people[size_t(second - 1)];
    if (a.group != b.group) return a.group > b.group;  // descending: Null last
    if (a.name != b.name) return a.name < b.name;      // ascending: Null first
    return a.id < b.id;
  });
  EXPECT_EQ(WalkForward(*table), expected);

  table->SetIndexFieldNames(QStringLiteral("id DESC"));
  ASSERT_TRUE(table->Active());
  table->First();
  EXPECT_EQ(Id(*table), kRows);
}

TEST_F(SqlDataSetTest, BookmarksLeadBackAfterScrollingAndReopening) {
  auto table = Table();
  table->Open();
  table->SetRecNo(33);
  const TBookmark bookmark = table->GetBookmark();
  table->SetRecNo(4);
  const TBookmark early = table->GetBookmark();
  EXPECT_LT(table->CompareBookmarks(early, bookmark), 0);
  EXPECT_GT(table->CompareBookmarks(bookmark, early), 0);
  table->Last();
  table->GotoBookmark(bookmark);
  EXPECT_EQ(Id(*table), 33);
  EXPECT_EQ(table->RecNo(), 33);
  table->Close();
  table->Open();
  EXPECT_TRUE(table->BookmarkValid(bookmark));
  table->GotoBookmark(bookmark);
  EXPECT_EQ(Id(*table), 33);
  table->Next();
  EXPECT_EQ(Id(*table), 34);
}

TEST_F(SqlDataSetTest, EditInsertAndDeleteRoundTripThroughTheDatabase) {
  auto table = Table();
  table->Open();
  table->SetRecNo(20);
  table->Edit();
  table->FieldByName(QStringLiteral("first name"))->SetAsString(QStringLiteral("Changed"));
  table->FieldByName(QStringLiteral("notes"))->Clear();
  table->Post();
  EXPECT_EQ(Id(*table), 20);

  table->Append();
  table->FieldByName(QStringLiteral("id"))->SetAsInteger(100);
  table->FieldByName(QStringLiteral("first name"))->SetAsString(QStringLiteral("New"));
  table->Post();
  EXPECT_EQ(Id(*table), 100);
  EXPECT_EQ(table->RecNo(), kRows + 1);
  EXPECT_EQ(table->RecordCount(), kRows + 1);

  table->SetRecNo(5);
  table->Delete();
  EXPECT_EQ(Id(*table), 6);
  EXPECT_EQ(table->RecordCount(), kRows);

  auto check = Table();
  check->Open();
  check->SetRecNo(19);
  EXPECT_EQ(check->FieldByName(QStringLiteral("first name"))->AsString(), QStringLiteral("Changed"));
  EXPECT_TRUE(check->FieldByName(QStringLiteral("notes"))->IsNull());
  check->Last();
  EXPECT_EQ(check->FieldByName(QStringLiteral("first name"))->AsString(), QStringLiteral("New"));
  EXPECT_EQ(check->RecordCount(), kRows);
}

TEST_F(SqlDataSetTest, FailedPostRaisesKeepsTheEditAndWritesNothing) {
  auto table = Table();
  table->Open();
  table->SetRecNo(2);
  table->Edit();
  table->FieldByName(QStringLiteral("code"))->SetAsString(QStringLiteral("C1"));  // unique
  table->FieldByName(QStringLiteral("first name"))->SetAsString(QStringLiteral("Lost?"));
  EXPECT_THROW(table->Post(), EDatabaseError);
  EXPECT_EQ(table->State(), dsEdit);
  EXPECT_EQ(table->FieldByName(QStringLiteral("first name"))->AsString(), QStringLiteral("Lost?"));
  table->Cancel();
  EXPECT_EQ(table->FieldByName(QStringLiteral("first name"))->AsString(), QStringLiteral("Name02"));
  EXPECT_EQ(table->FieldByName(QStringLiteral("code"))->AsString(), QStringLiteral("C2"));

  table->Append();
  table->FieldByName(QStringLiteral("id"))->SetAsInteger(1);  // taken
  EXPECT_THROW(table->Post(), EDatabaseError);
  EXPECT_EQ(table->State(), dsInsert);
  table->Cancel();
  EXPECT_EQ(table->RecordCount(), kRows);
}

TEST_F(SqlDataSetTest, MapsEveryColumnTypeAndReadsNulls) {
  auto table = Table();
  table->Open();
  struct TTypeCase {
    const char* field;
    TFieldType type;
  };
  for (const TTypeCase& typeCase : {TTypeCase{"id", ftInteger}, TTypeCase{"first name", ftString},
                                    TTypeCase{"amount", ftBCD}, TTypeCase{"score", ftFloat},
                                    TTypeCase{"active", ftBoolean}, TTypeCase{"born", ftDate},
                                    TTypeCase{"seen", ftDateTime}, TTypeCase{"notes", ftMemo},
                                    TTypeCase{"photo", ftBlob}, TTypeCase{"big", ftLargeint}})
    EXPECT_EQ(table->FieldByName(QString::fromLatin1(typeCase.field))->DataType(), typeCase.type) << typeCase.field;
  table->First();
  EXPECT_EQ(table->FieldByName(QStringLiteral("amount"))->AsCurrency().ToDouble(), 1.25);
  EXPECT_EQ(table->FieldByName(QStringLiteral("score"))->AsFloat(), 0.125);
  EXPECT_FALSE(table->FieldByName(QStringLiteral("active"))->AsBoolean());
  EXPECT_EQ(table->FieldByName(QStringLiteral("born"))->AsDateTime(), EncodeDate(2000, 1, 2));
  EXPECT_EQ(table->FieldByName(QStringLiteral("seen"))->AsDateTime(),
            EncodeDate(2000, 1, 2) + EncodeTime(1, 30, 0, 0));
  EXPECT_EQ(table->FieldByName(QStringLiteral("big"))->AsLargeInt(), 10000000000LL);
  EXPECT_EQ(table->FieldByName(QStringLiteral("photo"))->AsVariant().AsString().toLatin1(), QByteArray("\x89PNG\0\x01", 6));
  table->SetRecNo(30);
  EXPECT_TRUE(table->FieldByName(QStringLiteral("grp"))->IsNull());
  EXPECT_TRUE(table->FieldByName(QStringLiteral("notes"))->IsNull());
  EXPECT_TRUE(table->FieldByName(QStringLiteral("photo"))->IsNull());

  table->Edit();
  table->FieldByName(QStringLiteral("born"))->SetAsDateTime(EncodeDate(2024, 2, 29));
  table->FieldByName(QStringLiteral("active"))->SetAsBoolean(true);
  table->FieldByName(QStringLiteral("amount"))->SetAsCurrency(Currency::FromDouble(12.34));
  table->Post();
  table->Close();
  table->Open();
  table->SetRecNo(30);
  EXPECT_EQ(table->FieldByName(QStringLiteral("born"))->AsDateTime(), EncodeDate(2024, 2, 29));
  EXPECT_TRUE(table->FieldByName(QStringLiteral("active"))->AsBoolean());
  EXPECT_EQ(table->FieldByName(QStringLiteral("amount"))->AsCurrency().ToDouble(), 12.34);
}

struct TFilterCase {
  const char* text;
  bool caseInsensitive;
  std::vector<int> ids;  // empty: compare the count only
  int count;
};

inline void PrintTo(const TFilterCase& filterCase, std::ostream* out) { *out << filterCase.text; }

class SqlFilterTest : public SqlDataSetTest, public testing::WithParamInterface<TFilterCase> {};

TEST_P(SqlFilterTest, RunsTheFilterInTheDatabase) {
  auto table = Table(4);
  table->Open();
  if (GetParam().caseInsensitive) table->SetFilterOptions(TFilterOptions{foCaseInsensitive});
  table->SetFilter(QString::fromUtf8(GetParam().text));
  table->SetFiltered(true);
  const std::vector<int> ids = WalkForward(*table);
  if (!GetParam().ids.empty()) {
    EXPECT_EQ(ids, GetParam().ids);
  }
  EXPECT_EQ(int(ids.size()), GetParam().count);
  EXPECT_EQ(table->RecordCount(), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Texts, SqlFilterTest, testing::Values(
    TFilterCase{"[first name] = 'O''Brien'", false, {7}, 1},
    TFilterCase{"[first name] LIKE '[bracket]%'", false, {9}, 1},
    TFilterCase{"[first name] LIKE '%''Br%'", false, {7}, 1},
    TFilterCase{"[first name] LIKE '%50\\%'", false, {}, 0},
    TFilterCase{"[first name] = 'ali*'", false, {10}, 1},
    TFilterCase{"[first name] = 'ALICE'", true, {10, 11}, 2},
    TFilterCase{"[first name] LIKE 'a%'", false, {10}, 1},
    TFilterCase{"[first name] LIKE 'A%'", true, {10, 11}, 2},
    TFilterCase{"NOT ([first name] LIKE 'Name%')", false, {7, 8, 9, 10, 11}, 5},
    TFilterCase{"[first name] IS NULL OR id IN (1, 2)", false, {1, 2, 8}, 3},
    TFilterCase{"grp <> 1 AND (id < 10 OR id > 50)", false, {2, 3, 4, 6, 7, 8, 51, 52, 54, 55, 56}, 11},
    TFilterCase{"NOT grp = 1", false, {}, 42},
    TFilterCase{"active AND amount >= 60", false, {48, 50, 52, 54, 56}, 5},
    TFilterCase{"born < '01/10/2000'", false, {}, 8},
    TFilterCase{"UPPER([first name]) = 'ALICE'", false, {10, 11}, 2}));

TEST_F(SqlDataSetTest, AnUntranslatableFilterRaisesAndLeavesThePreviousOne) {
  auto table = Table();
  table->Open();
  table->SetFilter(QStringLiteral("grp = 2"));
  table->SetFiltered(true);
  const int filtered = table->RecordCount();
  EXPECT_THROW(table->SetFilter(QStringLiteral("grp = = 2")), EDatabaseError);
  EXPECT_THROW(table->SetFilter(QStringLiteral("missing = 2")), EDatabaseError);
  EXPECT_EQ(table->Filter(), QStringLiteral("grp = 2"));
  EXPECT_EQ(table->RecordCount(), filtered);
  EXPECT_EQ(WalkForward(*table).size(), size_t(filtered));
}

TEST_F(SqlDataSetTest, OnFilterRecordRunsOnTopOfTheDatabaseFilter) {
  auto table = Table(4);
  table->SetFilter(QStringLiteral("grp = 2"));
  table->SetFiltered(true);
  table->SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = dataSet->FieldByName(QStringLiteral("id"))->AsInteger() > 20;
  });
  table->Open();
  std::vector<int> ids;
  for (table->First(); !table->Eof(); table->Next()) ids.push_back(Id(*table));
  EXPECT_EQ(ids, (std::vector<int>{22, 26, 34, 38, 42, 46, 54}));
}

// Counting may run on another connection (PostgreSQL) or on the data set's own one
// (SQLite in memory); either way the count is exact and told once.
TEST_F(SqlDataSetTest, RequestedCountIsToldOnceAndOpeningCountsNothing) {
  auto table = Table();
  int told = 0;
  table->SetOnRecordCount([&](TDataSet* dataSet) {
    ++told;
    EXPECT_EQ(dataSet->RecordCount(), kRows);
  });
  table->Open();
  table->Next();
  EXPECT_FALSE(table->RecordCountKnown());
  table->RequestRecordCount();
  table->RequestRecordCount();
  EXPECT_EQ(table->RecordCount(), kRows);
  QCoreApplication::processEvents();
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(table->RecordCountKnown());
}

// A count under way when the data change or the data set closes never lands: it
// counted rows that are no longer the data set's.
TEST_F(SqlDataSetTest, ACountUnderWayIsDroppedByAWriteAndByClosing) {
  auto table = Table();
  int told = 0;
  table->SetOnRecordCount([&](TDataSet*) { ++told; });
  table->Open();
  table->RequestRecordCount();
  const int toldBefore = told;
  table->Delete();
  QCoreApplication::processEvents();
  EXPECT_EQ(told, toldBefore);
  EXPECT_EQ(table->RecordCount(), kRows - 1);

  table->SetFilter(QStringLiteral("grp = 1"));
  table->SetFiltered(true);
  table->RequestRecordCount();
  table->Close();
  QCoreApplication::processEvents();
  table->Open();
  EXPECT_EQ(table->RecordCount(), 14);
}

// Reopening reuses what the catalog said; a change of the schema made behind the
// connection's back is caught by the first fetch, and the next opening reads it anew.
TEST_F(SqlDataSetTest, ReopeningNoticesColumnsChangedBehindItsBack) {
  auto table = Table();
  table->Open();
  table->Close();
  QSqlQuery alter(connection_.Database());
  ASSERT_TRUE(alter.exec(QStringLiteral("ALTER TABLE people ADD COLUMN extra INTEGER")));
  EXPECT_THROW(table->Open(), EDatabaseError);
  table->Open();
  EXPECT_NE(table->FindField(QStringLiteral("extra")), nullptr);
  EXPECT_EQ(table->RecordCount(), kRows);
}

// Through the connection, a change of the schema is known before anything is fetched.
TEST_F(SqlDataSetTest, ASchemaChangeThroughTheConnectionIsReadAtTheNextOpening) {
  auto table = Table();
  table->Open();
  table->Close();
  connection_.ExecuteDirect(QStringLiteral("ALTER TABLE people ADD COLUMN extra INTEGER"));
  table->Open();
  EXPECT_NE(table->FindField(QStringLiteral("extra")), nullptr);
}

// Another connection would not see the rows of an open transaction.
TEST_F(SqlDataSetTest, InsideATransactionTheCountSeesItsUncommittedRows) {
  auto table = Table();
  table->Open();
  connection_.StartTransaction();
  connection_.ExecuteDirect(QStringLiteral("INSERT INTO people (id, code) VALUES (100, 'X100')"));
  EXPECT_EQ(table->RecordCount(), kRows + 1);
  connection_.Rollback();
  table->Refresh();
  EXPECT_EQ(table->RecordCount(), kRows);
}

TEST_F(SqlDataSetTest, QueryBindsTypedParametersAndReopensWhenItsOrderChanges) {
  TSQLQuery query(nullptr);
  query.SetConnection(&connection_);
  query.SetFetchSize(4);
  query.SQL()->SetText(QStringLiteral("SELECT id, \"first name\", grp FROM people WHERE id > :low AND grp = :grp ORDER BY id"));
  ASSERT_EQ(query.Params()->Count(), 2);
  query.ParamByName(QStringLiteral("low"))->SetDataType(ftInteger);
  query.ParamByName(QStringLiteral("low"))->SetValue(Variant(QStringLiteral("40")));
  query.ParamByName(QStringLiteral("grp"))->SetValue(Variant(1));
  query.Open();
  EXPECT_EQ(WalkForward(query), (std::vector<int>{41, 45, 49, 53, 57}));

  query.SQL()->SetText(QStringLiteral("SELECT id, \"first name\", grp FROM people WHERE id > :low AND grp = :grp ORDER BY id DESC"));
  ASSERT_TRUE(query.Active());
  EXPECT_EQ(WalkForward(query), (std::vector<int>{57, 53, 49, 45, 41}));

  query.Close();
  query.ParamByName(QStringLiteral("low"))->SetValue(Variant(QStringLiteral("forty")));
  EXPECT_THROW(query.Open(), EDatabaseError);
  EXPECT_FALSE(query.Active());
}

TEST_F(SqlDataSetTest, BadStatementsRaiseDatabaseErrorsThatSayWhat) {
  TSQLQuery query(nullptr);
  query.SetConnection(&connection_);
  const auto messageOf = [&](const QString& sql) {
    query.SQL()->SetText(sql);
    try {
      query.Open();
    } catch (const EDatabaseError& error) {
      return error.Message();
    }
    return QString();
  };
  EXPECT_TRUE(messageOf(QStringLiteral("SELEC id FROM people")).contains(QStringLiteral("SELEC")));
  EXPECT_TRUE(messageOf(QStringLiteral("SELECT * FROM nowhere")).contains(QStringLiteral("nowhere")));
  EXPECT_TRUE(messageOf(QStringLiteral("SELECT grp FROM people GROUP BY grp")).contains(QStringLiteral("KeyFields")));
  EXPECT_FALSE(query.Active());

  query.SQL()->SetText(QStringLiteral("UPDATE people SET grp = :grp WHERE id < :id"));
  query.ParamByName(QStringLiteral("grp"))->SetValue(Variant(9));
  query.ParamByName(QStringLiteral("id"))->SetValue(Variant(4));
  EXPECT_EQ(query.ExecSQL(), 3);
}

TEST_F(SqlDataSetTest, EditsJoinTheApplicationsTransactionAndRollBackWithIt) {
  auto table = Table();
  table->Open();
  connection_.StartTransaction();
  EXPECT_THROW(connection_.StartTransaction(), EDatabaseError);
  table->SetRecNo(3);
  table->Delete();
  table->Edit();
  table->FieldByName(QStringLiteral("grp"))->SetAsInteger(99);
  table->Post();
  connection_.Rollback();
  EXPECT_FALSE(connection_.InTransaction());

  connection_.StartTransaction();
  table->SetRecNo(5);
  table->Edit();
  table->FieldByName(QStringLiteral("code"))->SetAsString(QStringLiteral("C1"));  // unique
  EXPECT_THROW(table->Post(), EDatabaseError);
  table->Cancel();
  table->Edit();
  table->FieldByName(QStringLiteral("grp"))->SetAsInteger(77);
  table->Post();  // the failed write did not spoil the transaction
  connection_.Commit();
  EXPECT_THROW(connection_.Commit(), EDatabaseError);
  table->Close();
  table->Open();
  EXPECT_EQ(table->RecordCount(), kRows);
  table->SetRecNo(4);
  EXPECT_EQ(table->FieldByName(QStringLiteral("grp"))->AsInteger(), 0);
  table->Next();
  EXPECT_EQ(table->FieldByName(QStringLiteral("grp"))->AsInteger(), 77);
}

TEST_F(SqlDataSetTest, ALostConnectionRaisesOnTheNextFetch) {
  auto table = Table(2);
  table->Open();
  connection_.Close();
  connection_.SetDatabaseName(connection_.DatabaseName() + QStringLiteral("-gone/none"));
  EXPECT_THROW(table->SetRecNo(40), EDatabaseError);
}

}  // namespace sqlcases
