#include <gtest/gtest.h>

#include "framework/db/SqlStatement.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

struct TSplitCase {
  const char* sql;
  const char* body;
  const char* order;  // items as "column[-]" joined by ",", "-" for descending
};

void PrintTo(const TSplitCase& splitCase, std::ostream* out) { *out << splitCase.sql; }

QString OrderText(const std::vector<TSQLOrderItem>& items) {
  QStringList parts;
  for (const TSQLOrderItem& item : items) parts.append(item.column + (item.descending ? QStringLiteral("-") : QString()));
  return parts.join(QLatin1Char(','));
}

class SplitOrderByCases : public testing::TestWithParam<TSplitCase> {};

TEST_P(SplitOrderByCases, SplitsOnlyTheTopLevelTrailingOrderBy) {
  const TSQLSelectParts parts = SplitOrderBy(QString::fromUtf8(GetParam().sql));
  EXPECT_EQ(parts.body, QString::fromUtf8(GetParam().body));
  EXPECT_EQ(OrderText(parts.order), QString::fromUtf8(GetParam().order));
}

INSTANTIATE_TEST_SUITE_P(Statements, SplitOrderByCases, testing::Values(
    TSplitCase{"SELECT * FROM t", "SELECT * FROM t", ""},
    TSplitCase{"SELECT * FROM t ORDER BY a;", "SELECT * FROM t", "a"},
    TSplitCase{"select * from t order by t.a desc, \"Unit Price\" ASC", "select * from t", "a-,Unit Price"},
    TSplitCase{"SELECT * FROM (SELECT * FROM t ORDER BY b) s", "SELECT * FROM (SELECT * FROM t ORDER BY b) s", ""},
    TSplitCase{"SELECT 'order by x' AS o FROM t", "SELECT 'order by x' AS o FROM t", ""},
    TSplitCase{"SELECT a AS border FROM t ORDER BY border", "SELECT a AS border FROM t", "border"}));

TEST(SplitOrderBy, RefusesAStatementThatLimitsItsRows) {
  EXPECT_THROW(SplitOrderBy(QStringLiteral("SELECT * FROM t ORDER BY a LIMIT 5")), EDatabaseError);
  EXPECT_NO_THROW(SplitOrderBy(QStringLiteral("SELECT * FROM (SELECT * FROM t LIMIT 5) s")));
}

TEST(ParseOrderItems, ReadsIndexFieldNamesWithSemicolons) {
  EXPECT_EQ(OrderText(ParseOrderItems(QStringLiteral("grp DESC;first name; id"))), QStringLiteral("grp-,first name,id"));
}

TEST(SingleTableOf, NamesTheTableOnlyOfASimpleSelect) {
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT id, name FROM people")), QStringLiteral("people"));
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT * FROM people p WHERE p.id > ?")), QStringLiteral("people"));
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT * FROM \"Order Lines\" WHERE x = 1")), QStringLiteral("Order Lines"));
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT * FROM a JOIN b ON a.id = b.a")), QString());
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT grp FROM people GROUP BY grp")), QString());
  EXPECT_EQ(SingleTableOf(QStringLiteral("SELECT (SELECT 1 FROM x) FROM people")), QString());
}

TEST(ParseParams, RewritesNamesToPlaceholdersOutsideQuotesAndCasts) {
  const TSQLParamText parsed =
      ParseParams(QStringLiteral("SELECT ':no', x::text FROM t WHERE a = :low AND b < :high OR c = :low"));
  EXPECT_EQ(parsed.sql, QStringLiteral("SELECT ':no', x::text FROM t WHERE a = ? AND b < ? OR c = ?"));
  EXPECT_EQ(parsed.names, (QStringList{"low", "high", "low"}));
}

TEST(TSQLKeyset, WritesOneRangeForAKeyAndAnExpandedOneForSeveralColumns) {
  const TSQLKeyset key({{QStringLiteral("id"), false}});
  EXPECT_EQ(key.Condition({QVariant(5)}, TSQLKeyset::TDirection::After).sql, QStringLiteral("\"id\" > ?"));
  EXPECT_EQ(key.Condition({QVariant(5)}, TSQLKeyset::TDirection::AtOrAfter).sql, QStringLiteral("\"id\" >= ?"));
  EXPECT_EQ(key.OrderBy(true), QStringLiteral(" ORDER BY \"id\" DESC NULLS LAST"));

  const TSQLKeyset two({{QStringLiteral("grp"), true}, {QStringLiteral("id"), false}});
  const TSQLClause after = two.Condition({QVariant(2), QVariant(7)}, TSQLKeyset::TDirection::After);
  EXPECT_EQ(after.sql, QStringLiteral("((\"grp\" < ? OR \"grp\" IS NULL) OR (\"grp\" = ? AND \"id\" > ?))"));
  EXPECT_EQ(after.values, (std::vector<QVariant>{2, 2, 7}));
  const TSQLClause nullBefore =
      two.Condition({QVariant(QMetaType(QMetaType::Int)), QVariant(7)}, TSQLKeyset::TDirection::Before);
  EXPECT_EQ(nullBefore.sql, QStringLiteral("(\"grp\" IS NOT NULL OR (\"grp\" IS NULL AND (\"id\" < ? OR \"id\" IS NULL)))"));
}

}  // namespace
