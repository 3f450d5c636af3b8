#include <gtest/gtest.h>

#include "QtPrinters.h"

#include "framework/db/ClientDataSet.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/FieldNames.h"
#include "framework/rtl/Strings.h"
#include "order/OrderText.h"

using namespace quil;

namespace {
QStringList Lines(const TStringList& list) {
  QStringList lines;
  for (int index = 0; index < list.Count(); ++index) lines << list.Strings(index);
  return lines;
}

void SetLines(TStringList& list, const QStringList& lines) {
  list.Clear();
  for (const QString& line : lines) list.Add(line);
}
}  // namespace

struct SplitCase {
  const char* order;
  const char* fields;
  const char* descFields;
};

class SplitOrderFieldsTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitOrderFieldsTest, SplitsNamesAndDescendingNames) {
  QString fields = "junk", descFields = "junk";
  SplitOrderFields(GetParam().order, fields, descFields);
  EXPECT_EQ(fields, GetParam().fields);
  EXPECT_EQ(descFields, GetParam().descFields);
}

INSTANTIATE_TEST_SUITE_P(Table, SplitOrderFieldsTest, ::testing::Values(
    SplitCase{"A DESC,B", "A;B", "A"},
    SplitCase{"a desc", "a desc", ""},            // only upper-case DESC marks a direction
    SplitCase{"", "", ""},
    SplitCase{" Name , Age DESC ;City DESC", "Name;Age;City", "Age;City"},
    SplitCase{"Name ASC", "Name ASC", ""},        // ASC is not read here
    SplitCase{"My DESCRIPTION", "My", "My"},      // a name holding " DESC" is cut there
    SplitCase{"A,,B", "A;;B", ""}));

TEST(UnifyOrderFields, MarksDescendingNames) {
  EXPECT_EQ(UnifyOrderFields("A;B", "", true), "A DESC,B DESC");
  EXPECT_EQ(UnifyOrderFields("A;B", "", false), "A,B");
  EXPECT_EQ(UnifyOrderFields("A;B;C", "C; A", false), "A DESC,B,C DESC");
  // Exact comparison: case counts, and a prefix of a name is not the name.
  EXPECT_EQ(UnifyOrderFields("Name;NameX", "name;Name", false), "Name DESC,NameX");
  // Descending only stands in for an empty list of descending names.
  EXPECT_EQ(UnifyOrderFields("A;B", "B", true), "A,B DESC");
}

TEST(UnifyOrderFields, InvertsSplit) {
  for (const char* order : {"Name,Age DESC", "A DESC,B DESC,C", "X"}) {
    QString fields, descFields;
    SplitOrderFields(order, fields, descFields);
    EXPECT_EQ(UnifyOrderFields(fields, descFields, false), order);
  }
}

struct IndexCase {
  const char* order;
  const char* modifiers;
  const char* index;
};

class OrderIndexConversion : public ::testing::TestWithParam<IndexCase> {};

TEST_P(OrderIndexConversion, OrderToIndex) {
  EXPECT_EQ(OrderFieldsToIndexFields(GetParam().order, GetParam().modifiers), GetParam().index);
}

INSTANTIATE_TEST_SUITE_P(Table, OrderIndexConversion, ::testing::Values(
    IndexCase{"Name,Age DESC", ":A;:D;:N", "Name;Age:D"},
    IndexCase{"Name,Age DESC", "", "Name;Age DESC"},
    IndexCase{"Name DESC", ";DESC", "NameDESC"},
    IndexCase{"a desc,B", ":A;:D", "a desc;B"},
    IndexCase{"Name ASC", ":A;:D;:N", "Name ASC"},                   // no " DESC": left alone
    IndexCase{"My DESCRIPTION,B", ":A;:D;:N", "My:D;B"}));          // cut at " DESC"

TEST(IndexFieldsToOrderFields, ReadsModifierSuffixes) {
  EXPECT_EQ(IndexFieldsToOrderFields("Name:A;Age:D;City:N", ":A;:D;:N"), "Name,Age DESC,City");
  EXPECT_EQ(IndexFieldsToOrderFields("Name;Age", ""), "Name,Age");
  EXPECT_EQ(IndexFieldsToOrderFields("name:a;age:d", ":A;:D;:N"), "name,age DESC");
  // The descending token is tested first, and an empty token marks nothing.
  EXPECT_EQ(IndexFieldsToOrderFields("X DESC;Y", " ASC; DESC"), "X DESC,Y");
  EXPECT_EQ(IndexFieldsToOrderFields("Code:D:A", ":A;:D;:N"), "Code DESC");
  // The cut falls where the token stands in the item, whatever upper case does to it.
  EXPECT_EQ(IndexFieldsToOrderFields("Straße:D;Maß:A", ":A;:D;:N"), "Straße DESC,Maß");
}

TEST(Separators, EveryOneIsReplacedAndNothingElse) {
  EXPECT_EQ(CommaToSemicolon(" a,,b DESC;c,"), " a;;b DESC;c;");
  EXPECT_EQ(SemicolonToComma(";a;b ,c"), ",a,b ,c");
}

TEST(SameFieldName, IgnoresCaseIncludingNonAscii) {
  EXPECT_TRUE(SameFieldName("customer_id", "CUSTOMER_ID"));
  // Case folding keeps the length, so "ß", which has no single upper-case letter, stays.
  EXPECT_TRUE(SameFieldText("Größe", "GRÖßE"));
  EXPECT_FALSE(SameFieldText("Größe", "GRÖSSE"));
  EXPECT_FALSE(SameFieldName("Name", "Name2"));
}

TEST(ExtractOrderFields, ReadsTheLastClause) {
  TStringList sql;
  EXPECT_EQ(ExtractOrderFields(nullptr), "");
  SetLines(sql, {"SELECT *", "FROM T", "order by Name desc;"});
  EXPECT_EQ(ExtractOrderFields(&sql), "Name desc");
  SetLines(sql, {"SELECT * FROM (SELECT * FROM T ORDER BY A)", "ORDER BY B, C  ;  "});
  EXPECT_EQ(ExtractOrderFields(&sql), "B, C");
  SetLines(sql, {"SELECT * FROM T ORDER BY A", "-- trailing"});
  EXPECT_EQ(ExtractOrderFields(&sql), "A");
  SetLines(sql, {"SELECT * FROM T"});
  EXPECT_EQ(ExtractOrderFields(&sql), "");
  // The first keyword of the last line that holds one.
  SetLines(sql, {"SELECT * FROM (SELECT * FROM T ORDER BY A) ORDER BY B"});
  EXPECT_EQ(ExtractOrderFields(&sql), "A) ORDER BY B");
  // A letter whose upper case is longer must not shift the keyword's position.
  SetLines(sql, {"SELECT * FROM T WHERE s = 'ßß' ORDER BY s DESC"});
  EXPECT_EQ(ExtractOrderFields(&sql), "s DESC");
}

struct ModifyCase {
  QStringList before;
  const char* fields;
  QStringList after;
};

class ModifyOrderFieldsTest : public ::testing::TestWithParam<ModifyCase> {};

TEST_P(ModifyOrderFieldsTest, RewritesTheStatement) {
  TStringList sql;
  SetLines(sql, GetParam().before);
  ModifyOrderFields(&sql, GetParam().fields);
  EXPECT_EQ(Lines(sql), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(Table, ModifyOrderFieldsTest, ::testing::Values(
    ModifyCase{{"SELECT * FROM T;"}, "A", {"SELECT * FROM T", "ORDER BY A;"}},
    ModifyCase{{"SELECT * FROM T ORDER BY A;"}, "", {"SELECT * FROM T ;"}},
    ModifyCase{{"SELECT * FROM T ORDER BY A;"}, "desc", {"SELECT * FROM T ;"}},
    ModifyCase{{}, "A", {}},
    ModifyCase{{"", "  "}, "A", {}},
    ModifyCase{{"SELECT *", "FROM T", "", " "}, "B DESC", {"SELECT *", "FROM T", "ORDER BY B DESC"}},
    ModifyCase{{"SELECT *", "FROM T", "order by X  "}, " Y ", {"SELECT *", "FROM T", "order by Y"}},
    ModifyCase{{"SELECT *", "FROM T", "Order By X; "}, "Y,Z DESC", {"SELECT *", "FROM T", "Order By Y,Z DESC;"}},
    ModifyCase{{"SELECT * FROM T"}, "", {"SELECT * FROM T"}},
    // The semicolon goes, the blank before it stays.
    ModifyCase{{"SELECT * FROM T ;  "}, "A", {"SELECT * FROM T ", "ORDER BY A;"}},
    ModifyCase{{"SELECT 'Straße' AS s FROM T ORDER BY s"}, "x", {"SELECT 'Straße' AS s FROM T ORDER BY x"}},
    // Line-based by design: the last line holding "ORDER BY " is the clause, and all
    // behind the keyword on that line is replaced, a sub-select's parenthesis too.
    ModifyCase{{"SELECT * FROM (SELECT * FROM T", "ORDER BY A) x"}, "B", {"SELECT * FROM (SELECT * FROM T", "ORDER BY B"}},
    ModifyCase{{"SELECT * FROM (SELECT * FROM T ORDER BY A) x", "ORDER BY C"}, "B",
               {"SELECT * FROM (SELECT * FROM T ORDER BY A) x", "ORDER BY B"}},
    ModifyCase{{"SELECT * FROM (SELECT * FROM T ORDER BY A) ORDER BY C;"}, "B",
               {"SELECT * FROM (SELECT * FROM T ORDER BY B;"}},
    // The keyword counts only with its blank on the same line.
    ModifyCase{{"SELECT *", "FROM T", "ORDER BY"}, "B", {"SELECT *", "FROM T", "ORDER BY", "ORDER BY B"}}));

TEST(ModifyOrderFields, LeavesANilListAlone) {
  EXPECT_NO_THROW(ModifyOrderFields(nullptr, "A"));
}

TEST(ExtractFieldName, TrimsBlanksAndControlCharactersAndMovesBehindTheSemicolon) {
  const QString fields = QStringLiteral(" \x01" "A\x01 ;\u00a0" "B\u00a0;;C");
  int pos = 1;
  EXPECT_EQ(ExtractFieldName(fields, pos), "A");
  EXPECT_EQ(ExtractFieldName(fields, pos), QStringLiteral("\u00a0B\u00a0"));  // not a control character
  EXPECT_EQ(ExtractFieldName(fields, pos), "");
  EXPECT_EQ(ExtractFieldName(fields, pos), "C");
  EXPECT_GT(pos, fields.size());
}

TEST(ValidFieldNames, SpellsNamesAsTheFieldsDo) {
  TClientDataSet dataSet(nullptr);
  dataSet.FieldDefs()->Add("Customer_ID", ftInteger);
  dataSet.FieldDefs()->Add("Name", ftString, 20);
  dataSet.CreateDataSet();
  EXPECT_EQ(ValidFieldNames(nullptr, " name ;;x", false), " name ;;x");
  EXPECT_EQ(ValidFieldNames(&dataSet, "customer_id; NAME ;;Unknown;", false), "Customer_ID;Name;Unknown");
  EXPECT_EQ(ValidFieldNames(&dataSet, "name;customer_id", true), "Name");
  EXPECT_EQ(ValidFieldNames(&dataSet, " ;customer_id;name", true), "Customer_ID");
  EXPECT_EQ(ValidFieldNames(&dataSet, "", false), "");
}

TEST(AutoNumberStr, FormatsPositiveNumbersOnly) {
  EXPECT_EQ(AutoNumberStr(1), "1.");
  EXPECT_EQ(AutoNumberStr(1234567), "1234567.");
  EXPECT_EQ(AutoNumberStr(0), "");
  EXPECT_EQ(AutoNumberStr(-5), "");
  const QString saved = DefAutoNumberFormat;
  DefAutoNumberFormat = "#%d";
  EXPECT_EQ(AutoNumberStr(7), "#7");
  DefAutoNumberFormat = saved;
}
