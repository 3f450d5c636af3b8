#include <gtest/gtest.h>

#include <climits>
#include <optional>

#include "QtPrinters.h"
#include "framework/rtl/SysUtils.h"

using namespace quil;

namespace {

struct IntRow {
  const char* text;
  std::optional<int64_t> expected;  // nullopt: not an integer
};

class StrToIntTable : public testing::TestWithParam<IntRow> {};

TEST_P(StrToIntTable, ReadsDecimalAndHexadecimalIntegers) {
  const IntRow& row = GetParam();
  int value = 12345;
  EXPECT_EQ(TryStrToInt(row.text, value), row.expected.has_value()) << row.text;
  if (row.expected) {
    EXPECT_EQ(value, *row.expected) << row.text;
    EXPECT_EQ(StrToInt(row.text), *row.expected);
  } else {
    EXPECT_EQ(value, 12345) << "a failed read must leave the value alone";
    EXPECT_EQ(StrToIntDef(row.text, -9), -9);
    EXPECT_THROW(StrToInt(row.text), EConvertError);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, StrToIntTable,
    testing::Values(IntRow{"0", 0}, IntRow{"  42", 42}, IntRow{"+7", 7}, IntRow{"-2147483648", INT_MIN},
                    IntRow{"2147483647", INT_MAX}, IntRow{"$FF", 255}, IntRow{"0x1f", 31}, IntRow{"x10", 16},
                    IntRow{"-$10", -16}, IntRow{"$FFFFFFFF", -1}, IntRow{"$80000000", INT_MIN},
                    IntRow{"007", 7}, IntRow{"", std::nullopt}, IntRow{" ", std::nullopt},
                    IntRow{"42 ", std::nullopt}, IntRow{"2147483648", std::nullopt},
                    IntRow{"-2147483649", std::nullopt}, IntRow{"$100000000", std::nullopt},
                    IntRow{"1.5", std::nullopt}, IntRow{"abc", std::nullopt}, IntRow{"$", std::nullopt},
                    IntRow{"--1", std::nullopt}, IntRow{"- 1", std::nullopt}, IntRow{"1e3", std::nullopt},
                    IntRow{"$G", std::nullopt}, IntRow{"\t1", std::nullopt}));

TEST(StrToInt, NamesTheTextInItsMessage) {
  try {
    StrToInt("12a");
    FAIL() << "no exception";
  } catch (const EConvertError& error) {
    EXPECT_EQ(error.Message(), "'12a' is not a valid integer value");
  }
}

TEST(StrToInt64, CoversTheWholeRange) {
  EXPECT_EQ(StrToInt64("9223372036854775807"), INT64_MAX);
  EXPECT_EQ(StrToInt64("-9223372036854775808"), INT64_MIN);
  EXPECT_EQ(StrToInt64("$FFFFFFFFFFFFFFFF"), -1);
  EXPECT_EQ(StrToInt64("$FFFFFFFF"), 4294967295);
  EXPECT_THROW(StrToInt64("9223372036854775808"), EConvertError);
  EXPECT_EQ(StrToInt64Def("x", 5), 5);
}

TEST(IntToHex, UsesTheWidthOfTheArgument) {
  EXPECT_EQ(IntToHex(255, 4), "00FF");
  EXPECT_EQ(IntToHex(0x1234, 2), "1234");
  EXPECT_EQ(IntToHex(-1, 2), "FFFFFFFF");
  EXPECT_EQ(IntToHex(int64_t(-1), 4), "FFFFFFFFFFFFFFFF");
  EXPECT_EQ(IntToHex(short(-1), 0), "FFFF");
  EXPECT_EQ(IntToStr(INT64_MIN), "-9223372036854775808");
}

struct FloatRow {
  const char* text;
  std::optional<double> expected;
};

class StrToFloatTable : public testing::TestWithParam<FloatRow> {};

TEST_P(StrToFloatTable, ReadsTheRealSyntax) {
  const FloatRow& row = GetParam();
  double value = 0;
  EXPECT_EQ(TryStrToFloat(row.text, value), row.expected.has_value()) << row.text;
  if (row.expected) EXPECT_DOUBLE_EQ(value, *row.expected) << row.text;
  else EXPECT_THROW(StrToFloat(row.text), EConvertError);
}

INSTANTIATE_TEST_SUITE_P(Texts, StrToFloatTable,
                         testing::Values(FloatRow{"1.5", 1.5}, FloatRow{" -2.5e3 ", -2500}, FloatRow{".5", 0.5},
                                         FloatRow{"5.", 5}, FloatRow{"1E-2", 0.01}, FloatRow{"+3", 3},
                                         FloatRow{"1,5", std::nullopt}, FloatRow{"", std::nullopt},
                                         FloatRow{"1e", std::nullopt}, FloatRow{"e5", std::nullopt},
                                         FloatRow{"1.2.3", std::nullopt}, FloatRow{"1 2", std::nullopt},
                                         FloatRow{".", std::nullopt}, FloatRow{"1,000.5", std::nullopt},
                                         FloatRow{"inf", std::nullopt}, FloatRow{"1e999", std::nullopt}));

TEST(StrToFloat, UsesTheDecimalSeparatorOfTheSettings) {
  TFormatSettings settings;
  settings.DecimalSeparator = u',';
  EXPECT_DOUBLE_EQ(StrToFloat("1,5", settings), 1.5);
  EXPECT_DOUBLE_EQ(StrToFloatDef("1.5", -1, settings), -1);
}

struct FloatTextRow {
  double value;
  const char* expected;
};

class FloatToStrTable : public testing::TestWithParam<FloatTextRow> {};

TEST_P(FloatToStrTable, WritesFifteenSignificantDigits) {
  EXPECT_EQ(FloatToStr(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Values, FloatToStrTable,
    testing::Values(FloatTextRow{0, "0"}, FloatTextRow{-0.0, "0"}, FloatTextRow{0.1, "0.1"},
                    FloatTextRow{1.0 / 3, "0.333333333333333"}, FloatTextRow{2.0 / 3, "0.666666666666667"},
                    FloatTextRow{100, "100"}, FloatTextRow{-123.456, "-123.456"}, FloatTextRow{1e15, "1E15"},
                    FloatTextRow{999999999999999.0, "999999999999999"}, FloatTextRow{9999999999999999.0, "1E16"},
                    FloatTextRow{1.5e-7, "1.5E-7"}, FloatTextRow{0.00001, "0.00001"}, FloatTextRow{0.000001, "1E-6"},
                    FloatTextRow{0.1 + 0.2, "0.3"}, FloatTextRow{1e100, "1E100"}, FloatTextRow{-2.5e-300, "-2.5E-300"}));

TEST(FloatToStrF, LaysOutEachFormat) {
  EXPECT_EQ(FloatToStrF(1234.5, ffExponent, 4, 2), "1.235E+03");
  EXPECT_EQ(FloatToStrF(0, ffExponent, 3, 0), "0.00E+0");
  EXPECT_EQ(FloatToStrF(0.125, ffFixed, 15, 2), "0.13");
  EXPECT_EQ(FloatToStrF(1234.5678, ffFixed, 4, 2), "1235.00");
  EXPECT_EQ(FloatToStrF(123456.0, ffFixed, 4, 2), "1.235E5");
  EXPECT_EQ(FloatToStrF(-1234567.0, ffNumber, 15, 0), "-1,234,567");
  EXPECT_EQ(FloatToStrF(999.999, ffNumber, 15, 2), "1,000.00");
  EXPECT_EQ(FloatToStrF(-5, ffCurrency, 15, 2), "($5.00)");
  EXPECT_EQ(FloatToStrF(std::nan(""), ffFixed, 15, 2), "NAN");
  EXPECT_EQ(FloatToStrF(-HUGE_VAL, ffGeneral, 15, 0), "-INF");
}

TEST(CurrToStr, WritesTheExactFourDecimalValue) {
  EXPECT_EQ(CurrToStr(Currency::FromScaled(123400)), "12.34");
  EXPECT_EQ(CurrToStr(Currency::FromScaled(-1)), "-0.0001");
  EXPECT_EQ(CurrToStr(Currency::FromScaled(INT64_MIN)), "-922337203685477.5808");
  EXPECT_EQ(CurrToStr(Currency::FromScaled(50000)), "5");
}

TEST(StrToBool, AcceptsTheBooleanWordsAndNumbers) {
  EXPECT_TRUE(StrToBool("true"));
  EXPECT_FALSE(StrToBool("FALSE"));
  EXPECT_TRUE(StrToBool("-1"));
  EXPECT_TRUE(StrToBool("0.5"));
  EXPECT_FALSE(StrToBool("0"));
  EXPECT_THROW(StrToBool("yes"), EConvertError);
  EXPECT_TRUE(StrToBoolDef("", true));
  EXPECT_EQ(BoolToStr(true), "-1");
  EXPECT_EQ(BoolToStr(false, true), "False");
}

TEST(Trim, RemovesBlanksAndControlCharactersOnly) {
  EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
  EXPECT_EQ(TrimLeft("  a "), "a ");
  EXPECT_EQ(TrimRight("  a "), "  a");
  EXPECT_EQ(Trim(QStringLiteral("\u00A0a\u00A0")), QStringLiteral("\u00A0a\u00A0"));
  EXPECT_EQ(Trim("   "), "");
}

TEST(CaseConversion, PlainFunctionsTouchOnlyAsciiLetters) {
  EXPECT_EQ(UpperCase(QStringLiteral("äbc-z")), QStringLiteral("äBC-Z"));
  EXPECT_EQ(LowerCase(QStringLiteral("ÄBC")), QStringLiteral("Äbc"));
  EXPECT_EQ(AnsiUpperCase(QStringLiteral("äbc")), QStringLiteral("ÄBC"));
  EXPECT_EQ(AnsiLowerCase(QStringLiteral("ÄBC")), QStringLiteral("äbc"));
}

// A position found in the upper-cased text must be the same position in the text.
TEST(CaseConversion, AnsiFunctionsKeepTheLength) {
  EXPECT_EQ(AnsiUpperCase(QStringLiteral("straße order by x")), QStringLiteral("STRAßE ORDER BY X"));
  EXPECT_EQ(AnsiUpperCase(QStringLiteral("ﬁle")), QStringLiteral("ﬁLE"));
  EXPECT_EQ(AnsiLowerCase(QStringLiteral("İSTANBUL")).size(), 8);
  EXPECT_EQ(AnsiUpperCase(QStringLiteral("\U00010428x")), QStringLiteral("\U00010400X")) << "Deseret, outside the BMP";
  const QString loneSurrogate(QChar(0xD801));
  EXPECT_EQ(AnsiUpperCase(loneSurrogate + "a"), loneSurrogate + "A");
}

TEST(Comparison, PlainFunctionsCompareCodeUnits) {
  EXPECT_LT(CompareStr("a", "b"), 0);
  EXPECT_LT(CompareStr("B", "a"), 0);
  EXPECT_GT(CompareStr("ab", "a"), 0);
  EXPECT_EQ(CompareStr("", ""), 0);
  EXPECT_LT(CompareText("a", "B"), 0);
  EXPECT_EQ(CompareText("Hello", "hELLO"), 0);
  EXPECT_NE(CompareText(QStringLiteral("ä"), QStringLiteral("Ä")), 0);
  EXPECT_TRUE(SameText("ABC", "abc"));
  EXPECT_FALSE(SameText("ABC", "abd"));
}

TEST(Comparison, AnsiFunctionsCollateAndFoldAllLetters) {
  EXPECT_TRUE(AnsiSameText(QStringLiteral("ÄBC"), QStringLiteral("äbc")));
  EXPECT_LT(AnsiCompareText("a", "B"), 0);
  EXPECT_GT(AnsiCompareText("B", "a"), 0);
  EXPECT_LT(AnsiCompareText(QStringLiteral("é"), "f"), 0);
  EXPECT_LT(AnsiCompareStr("a", "B"), 0);
  EXPECT_NE(AnsiCompareStr("a", "A"), 0);
  EXPECT_EQ(AnsiCompareText("abc", "ABC"), 0);
  EXPECT_EQ(WideCompareText("Name", "NAME"), 0);
}

TEST(Quoting, DoublesAndUndoublesTheQuote) {
  EXPECT_EQ(QuotedStr("it's"), "'it''s'");
  EXPECT_EQ(QuotedStr(""), "''");
  EXPECT_EQ(AnsiQuotedStr("say \"hi\"", u'"'), "\"say \"\"hi\"\"\"");
}

struct DequoteRow {
  const char* text;
  const char* expected;
};

class AnsiDequotedStrTable : public testing::TestWithParam<DequoteRow> {};

TEST_P(AnsiDequotedStrTable, FollowsTheQuotingRules) {
  EXPECT_EQ(AnsiDequotedStr(GetParam().text, u'\''), GetParam().expected) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Texts, AnsiDequotedStrTable,
                         testing::Values(DequoteRow{"'abc'", "abc"}, DequoteRow{"'it''s'", "it's"},
                                         DequoteRow{"abc", "abc"}, DequoteRow{"'abc", "'abc"},
                                         DequoteRow{"'abc'def", "abc"}, DequoteRow{"''", ""},
                                         DequoteRow{"'", ""}, DequoteRow{"", ""}, DequoteRow{"''x", "''x"},
                                         DequoteRow{"'ab''", "ab'"}, DequoteRow{" 'a'", " 'a'"}));

struct ReplaceRow {
  const char* text;
  const char* oldPattern;
  const char* newPattern;
  TReplaceFlags flags;
  const char* expected;
};

class StringReplaceTable : public testing::TestWithParam<ReplaceRow> {};

TEST_P(StringReplaceTable, ReplacesAsFlagged) {
  const ReplaceRow& row = GetParam();
  EXPECT_EQ(StringReplace(row.text, row.oldPattern, row.newPattern, row.flags), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, StringReplaceTable,
    testing::Values(ReplaceRow{"a,b,c", ",", ";", {}, "a;b,c"},
                    ReplaceRow{"a,b,c", ",", ";", {rfReplaceAll}, "a;b;c"},
                    ReplaceRow{"Abc abc", "abc", "x", {}, "Abc x"},
                    ReplaceRow{"Abc abc", "abc", "x", {rfIgnoreCase}, "x abc"},
                    ReplaceRow{"Abc abc", "ABC", "x", {rfReplaceAll, rfIgnoreCase}, "x x"},
                    ReplaceRow{"aaa", "aa", "b", {rfReplaceAll}, "ba"},
                    ReplaceRow{"aaa", "a", "aa", {rfReplaceAll}, "aaaaaa"},
                    ReplaceRow{"abc", "", "x", {rfReplaceAll}, "abc"},
                    ReplaceRow{"abc", "b", "", {rfReplaceAll}, "ac"},
                    ReplaceRow{"", "a", "b", {rfReplaceAll}, ""}));

TEST(Pos, IsOneBasedAndZeroWhenMissing) {
  EXPECT_EQ(Pos("b", "abc"), 2);
  EXPECT_EQ(Pos("x", "abc"), 0);
  EXPECT_EQ(Pos("", "abc"), 0);
  EXPECT_EQ(Pos("a", "abca", 2), 4);
  EXPECT_EQ(Pos("B", "abc"), 0);
  EXPECT_EQ(Pos("abcd", "abc"), 0);
}

TEST(Copy, ClampsIndexAndCount) {
  EXPECT_EQ(Copy("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Copy("abcdef", 0, 2), "ab");
  EXPECT_EQ(Copy("abcdef", -5, 2), "ab");
  EXPECT_EQ(Copy("abcdef", 5, 100), "ef");
  EXPECT_EQ(Copy("abcdef", 7, 1), "");
  EXPECT_EQ(Copy("abcdef", 2, -1), "");
  EXPECT_EQ(Copy("abcdef", 3), "cdef");
}

TEST(Delimiters, FindDelimiterCharacters) {
  EXPECT_TRUE(IsDelimiter(",;", "a;b", 2));
  EXPECT_FALSE(IsDelimiter(",;", "a;b", 1));
  EXPECT_FALSE(IsDelimiter(",;", "a;b", 0));
  EXPECT_FALSE(IsDelimiter(",;", "a;b", 4));
  EXPECT_EQ(LastDelimiter("\\.", "C:\\dir\\file.txt"), 12);
  EXPECT_EQ(LastDelimiter("\\:", "C:\\dir\\file.txt"), 7);
  EXPECT_EQ(LastDelimiter("/", "abc"), 0);
}

TEST(Delimiters, ChangeFileExtReplacesOnlyTheExtensionOfTheNamePart) {
  EXPECT_EQ(ChangeFileExt("/opt/app/run.exe", ".ini"), "/opt/app/run.ini");
  EXPECT_EQ(ChangeFileExt("/opt/app.d/run", ".ini"), "/opt/app.d/run.ini");
  EXPECT_EQ(ChangeFileExt("C:\\app.d\\run", ".ini"), "C:\\app.d\\run.ini");
  EXPECT_EQ(ChangeFileExt("run.tar.gz", ".ini"), "run.tar.ini");
  EXPECT_EQ(ChangeFileExt("run.exe", ""), "run");
}

struct ScanRow {
  const char* text;
  const char* delimiter;
  const char* item;
  const char* rest;
};

class ScanStrTable : public testing::TestWithParam<ScanRow> {};

TEST_P(ScanStrTable, CutsTheFirstItem) {
  const ScanRow& row = GetParam();
  QString text = row.text;
  EXPECT_EQ(ScanStr(text, row.delimiter), row.item);
  EXPECT_EQ(text, row.rest);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ScanStrTable,
    testing::Values(ScanRow{"a,b,c", "", "a", "b,c"}, ScanRow{"abc", "", "abc", ""}, ScanRow{"", "", "", ""},
                    ScanRow{"", ";", "", ""}, ScanRow{"a;;b", ";", "a", ";b"}, ScanRow{";b", ";", "", "b"},
                    ScanRow{"a, b", ",", "a", " b"}, ScanRow{" a ,b", ",", " a ", "b"},
                    ScanRow{"a::b:c", "::", "a", "b:c"}, ScanRow{"a,", ",", "a", ""},
                    ScanRow{"aXbxc", "x", "aXb", "c"}, ScanRow{"a;b,c", ";", "a", "b,c"},
                    ScanRow{"a;b", "", "a;b", ""}));

TEST(ScanStr, EmptyDelimiterMeansTheDefaultDelimiter) {
  const QString saved = DefaultDelimiter;
  DefaultDelimiter = ";";
  QString text = "a;b,c";
  const QString item = ScanStr(text);
  DefaultDelimiter = saved;
  EXPECT_EQ(item, "a");
  EXPECT_EQ(text, "b,c");
}

TEST(ScanInt, ConsumesItemsThatAreNoNumber) {
  QString text = "10,x,30, 7,7 ,";
  EXPECT_EQ(ScanInt(text, 5), 10);
  EXPECT_EQ(ScanInt(text, 5), 5);
  EXPECT_EQ(text, "30, 7,7 ,");
  EXPECT_EQ(ScanInt(text, 5), 30);
  EXPECT_EQ(ScanInt(text, 5), 7);
  EXPECT_EQ(ScanInt(text, 5), 5) << "a trailing blank makes no number";
  EXPECT_EQ(ScanInt(text, 5), 5) << "the empty last item";
  EXPECT_EQ(text, "");
  EXPECT_EQ(ScanInt(text, -1), -1);
}

TEST(ScanInt, ReadsWithTheGivenDelimiter) {
  QString text = "20;2;1";
  EXPECT_EQ(ScanInt(text, 0, ";"), 20);
  EXPECT_EQ(ScanInt(text, 0, ";"), 2);
  EXPECT_EQ(ScanInt(text, 0, ";"), 1);
  EXPECT_TRUE(text.isEmpty());
}

}  // namespace
