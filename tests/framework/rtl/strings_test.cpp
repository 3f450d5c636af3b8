#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTextStream>
#include <vector>

#include "framework/rtl/Exceptions.h"
#include "framework/rtl/RtlTestSupport.h"
#include "framework/rtl/Streams.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/UpdateGuard.h"

using namespace quil;
using rtltest::TTracked;
using rtltest::Lines;

namespace {

void Fill(TStrings& strings, const QStringList& lines) {
  for (const QString& line : lines) strings.Add(line);
}

// Counts OnChanging and OnChange.
struct ChangeCounter {
  explicit ChangeCounter(TStringList& list) {
    list.SetOnChanging([this](TObject*) { ++changing; });
    list.SetOnChange([this](TObject*) { ++changed; });
  }
  int changing = 0;
  int changed = 0;
};

// Counts the comparisons a search makes.
class TCountingList : public TStringList {
public:
  mutable int compares = 0;

protected:
  int CompareStrings(const QString& string1, const QString& string2) const override {
    ++compares;
    return TStringList::CompareStrings(string1, string2);
  }
};

}  // namespace

struct SortedAddCase {
  TDuplicates duplicates;
  bool caseSensitive;
  QStringList added;
  QStringList expected;  // empty when the last Add raises
};

class SortedAdd : public ::testing::TestWithParam<SortedAddCase> {};

TEST_P(SortedAdd, KeepsOrderAndObeysDuplicates) {
  const SortedAddCase& row = GetParam();
  TStringList list;
  list.SetSorted(true);
  list.SetDuplicates(row.duplicates);
  list.SetCaseSensitive(row.caseSensitive);
  if (row.expected.isEmpty()) {
    Fill(list, row.added.mid(0, row.added.size() - 1));
    const QStringList before = Lines(list);
    try {
      list.Add(row.added.last());
      FAIL() << "expected EStringListError";
    } catch (const EStringListError& error) {
      EXPECT_EQ(error.Message(), QStringLiteral("String list does not allow duplicates"));
    }
    EXPECT_EQ(Lines(list), before);
    return;
  }
  Fill(list, row.added);
  EXPECT_EQ(Lines(list), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    TStringList, SortedAdd,
    ::testing::Values(
        SortedAddCase{dupIgnore, false, {"b", "a", "c"}, {"a", "b", "c"}},
        SortedAddCase{dupIgnore, false, {"b", "a", "B", "c"}, {"a", "b", "c"}},
        SortedAddCase{dupAccept, false, {"b", "a", "B", "c"}, {"a", "B", "b", "c"}},
        SortedAddCase{dupError, false, {"b", "a", "B"}, {}},
        SortedAddCase{dupIgnore, true, {"b", "a", "B", "c", "b"}, {"a", "b", "B", "c"}},
        SortedAddCase{dupError, true, {"B", "b", "A", "a"}, {"a", "A", "b", "B"}},
        SortedAddCase{dupError, true, {"B", "b", "b"}, {}},
        SortedAddCase{dupAccept, true, {"x", "x", "X", "x"}, {"x", "x", "x", "X"}},
        SortedAddCase{dupIgnore, false, {"ab", "a", "", "abc", "b"}, {"", "a", "ab", "abc", "b"}}));

TEST(TStringList, AddToASortedListReturnsTheIndexOfTheLine) {
  TStringList list;
  list.SetSorted(true);
  Fill(list, {"d", "b"});
  EXPECT_EQ(list.Add(QStringLiteral("c")), 1);
  EXPECT_EQ(list.Add(QStringLiteral("C")), 1);  // ignored duplicate: the existing line
  EXPECT_EQ(list.Add(QStringLiteral("a")), 0);
}

TEST(TStringList, FindGivesTheMatchOrTheInsertionPoint) {
  TStringList list;
  list.SetSorted(true);
  Fill(list, {"b", "d", "f"});
  int index = -1;
  EXPECT_TRUE(list.Find(QStringLiteral("D"), index));
  EXPECT_EQ(index, 1);
  EXPECT_FALSE(list.Find(QStringLiteral("e"), index));
  EXPECT_EQ(index, 2);
  EXPECT_FALSE(list.Find(QStringLiteral("z"), index));
  EXPECT_EQ(index, 3);
  EXPECT_FALSE(list.Find(QStringLiteral("a"), index));
  EXPECT_EQ(index, 0);
}

TEST(TStringList, FindWithDuplicatesGivesTheFirstOfThem) {
  TStringList list;
  list.SetDuplicates(dupAccept);
  list.SetSorted(true);
  Fill(list, {"a", "m", "m", "m", "m", "m", "z"});
  int index = -1;
  EXPECT_TRUE(list.Find(QStringLiteral("m"), index));
  EXPECT_EQ(index, 1);
  EXPECT_EQ(list.IndexOf(QStringLiteral("M")), 1);
}

TEST(TStringList, IndexOfASortedListSearchesBinary) {
  TCountingList list;
  for (int number = 0; number < 1000; ++number) list.Add(QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0')));
  list.SetSorted(true);
  list.compares = 0;
  EXPECT_EQ(list.IndexOf(QStringLiteral("0777")), 777);
  EXPECT_LE(list.compares, 11);
  list.compares = 0;
  EXPECT_EQ(list.IndexOf(QStringLiteral("0777x")), -1);
  EXPECT_LE(list.compares, 11);
}

TEST(TStringList, IndexOfIsCaseInsensitiveByDefault) {
  TStringList list;
  Fill(list, {"Alpha", "beta"});
  EXPECT_EQ(list.IndexOf(QStringLiteral("BETA")), 1);
  list.SetCaseSensitive(true);
  EXPECT_EQ(list.IndexOf(QStringLiteral("BETA")), -1);
  EXPECT_EQ(list.IndexOf(QStringLiteral("beta")), 1);
}

TEST(TStringList, ChangingCaseSensitivityResortsASortedList) {
  TStringList list;
  list.SetDuplicates(dupAccept);
  list.SetSorted(true);
  Fill(list, {"B", "a", "A", "b"});
  list.SetCaseSensitive(true);
  EXPECT_EQ(Lines(list), QStringList({"a", "A", "b", "B"}));
  EXPECT_TRUE(list.Sorted());
  EXPECT_EQ(list.IndexOf(QStringLiteral("B")), 3);
}

TEST(TStringList, SortedRefusesPositionalChanges) {
  TStringList list;
  Fill(list, {"b", "a"});
  list.SetSorted(true);
  EXPECT_EQ(Lines(list), QStringList({"a", "b"}));
  try {
    list.Insert(0, QStringLiteral("c"));
    FAIL() << "expected EStringListError";
  } catch (const EStringListError& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("Operation not allowed on sorted list"));
  }
  EXPECT_THROW(list.SetStrings(0, QStringLiteral("z")), EStringListError);
  EXPECT_THROW(list.Move(0, 1), EStringListError);
  EXPECT_EQ(Lines(list), QStringList({"a", "b"}));
}

TEST(TStringList, CustomSortOrdersByTheGivenComparison) {
  TStringList list;
  Fill(list, {"ccc", "a", "bb", "dd"});
  list.CustomSort([](TStringList* sorted, int index1, int index2) {
    return int(sorted->Strings(index1).size() - sorted->Strings(index2).size());
  });
  EXPECT_EQ(Lines(list), QStringList({"a", "bb", "dd", "ccc"}));
}

TEST(TStringList, IndexErrorsNameTheIndex) {
  TStringList list;
  Fill(list, {"a"});
  try {
    list.Strings(5);
    FAIL() << "expected EStringListError";
  } catch (const EStringListError& error) {
    EXPECT_EQ(error.Message(), QStringLiteral("List index out of bounds (5)"));
  }
  EXPECT_THROW(list.Delete(-1), EStringListError);
  EXPECT_THROW(list.Objects(1), EStringListError);
  EXPECT_THROW(list.Insert(2, QString()), EStringListError);
  EXPECT_THROW(list.Exchange(0, 1), EStringListError);
  EXPECT_THROW(list.Delete(3), EListError) << "a list handler catches string-list errors too";
}

TEST(TStringList, NamesAndValuesReadNameValuePairs) {
  TStringList list;
  Fill(list, {"Width=120", "Filter=a=b", "plain", "=nameless", "Empty="});
  EXPECT_EQ(list.Names(0), QStringLiteral("Width"));
  EXPECT_EQ(list.Names(2), QString());
  EXPECT_EQ(list.Names(3), QString());
  EXPECT_EQ(list.Values(QStringLiteral("width")), QStringLiteral("120"));
  EXPECT_EQ(list.Values(QStringLiteral("Filter")), QStringLiteral("a=b"));
  EXPECT_EQ(list.Values(QStringLiteral("plain")), QString());
  EXPECT_EQ(list.Values(QString()), QStringLiteral("nameless"));
  EXPECT_EQ(list.ValueFromIndex(1), QStringLiteral("a=b"));
  EXPECT_EQ(list.ValueFromIndex(2), QString());
  EXPECT_EQ(list.IndexOfName(QStringLiteral("EMPTY")), 4);
  EXPECT_EQ(list.IndexOfName(QStringLiteral("plain")), -1);
}

TEST(TStringList, SetValuesReplacesAddsAndDeletes) {
  TStringList list;
  Fill(list, {"a=1", "b=2", "c=3"});
  list.SetValues(QStringLiteral("B"), QStringLiteral("two"));
  list.SetValues(QStringLiteral("d"), QStringLiteral("4"));
  list.SetValues(QStringLiteral("a"), QString());
  list.SetValues(QStringLiteral("missing"), QString());
  EXPECT_EQ(Lines(list), QStringList({"B=two", "c=3", "d=4"}));
  list.SetValueFromIndex(1, QStringLiteral("three"));
  EXPECT_EQ(list.Strings(1), QStringLiteral("c=three"));
}

TEST(TStringList, NameValueSeparatorCanChange) {
  TStringList list;
  list.SetNameValueSeparator(QLatin1Char(':'));
  Fill(list, {"host:example:80", "a=b"});
  EXPECT_EQ(list.Values(QStringLiteral("host")), QStringLiteral("example:80"));
  EXPECT_EQ(list.Names(1), QString());
}

struct DelimitedCase {
  QStringList lines;
  QString commaText;
};

class CommaText : public ::testing::TestWithParam<DelimitedCase> {};

TEST_P(CommaText, WritesQuotedTextThatReadsBack) {
  TStringList list;
  Fill(list, GetParam().lines);
  EXPECT_EQ(list.CommaText(), GetParam().commaText);
  TStringList read;
  read.Add(QStringLiteral("left over"));
  read.SetCommaText(list.CommaText());
  EXPECT_EQ(Lines(read), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    TStringList, CommaText,
    ::testing::Values(DelimitedCase{{}, ""},
                      DelimitedCase{{"a", "b"}, "a,b"},
                      DelimitedCase{{"two words", "x"}, "\"two words\",x"},
                      DelimitedCase{{"say \"hi\""}, "\"say \"\"hi\"\"\""},
                      DelimitedCase{{"x,y", "z"}, "\"x,y\",z"},
                      DelimitedCase{{""}, "\"\""},
                      DelimitedCase{{"a", "", "b"}, "a,,b"},
                      DelimitedCase{{"a", ""}, "a,"},
                      DelimitedCase{{"", "a"}, ",a"},
                      DelimitedCase{{"", ""}, ","},
                      DelimitedCase{{" lead", "trail "}, "\" lead\",\"trail \""},
                      DelimitedCase{{"tab\there"}, "\"tab\there\""},
                      DelimitedCase{{"\""}, "\"\"\"\""},
                      DelimitedCase{{"a=1", "b=x y"}, "a=1,\"b=x y\""}));

struct ParseCase {
  QString text;
  QChar delimiter;
  bool strict;
  QStringList lines;
};

class DelimitedTextParse : public ::testing::TestWithParam<ParseCase> {};

TEST_P(DelimitedTextParse, SplitsTheText) {
  const ParseCase& row = GetParam();
  TStringList list;
  list.SetDelimiter(row.delimiter);
  list.SetStrictDelimiter(row.strict);
  list.SetDelimitedText(row.text);
  EXPECT_EQ(Lines(list), row.lines);
}

INSTANTIATE_TEST_SUITE_P(
    TStringList, DelimitedTextParse,
    ::testing::Values(ParseCase{"a b,c", ',', false, {"a", "b", "c"}},
                      ParseCase{"  a ,  b  ", ',', false, {"a", "b"}},
                      ParseCase{"a b,c", ',', true, {"a b", "c"}},
                      ParseCase{" a , b", ',', true, {" a ", " b"}},
                      ParseCase{"a;b;", ';', false, {"a", "b", ""}},
                      ParseCase{"\"x;y\";z", ';', true, {"x;y", "z"}},
                      ParseCase{"\"a\"\"b\",c", ',', false, {"a\"b", "c"}},
                      ParseCase{"\"open", ',', false, {"open"}},
                      ParseCase{"\"ab\"cd,e", ',', false, {"ab", "cd", "e"}},
                      ParseCase{QString("a,b") + QChar(0) + QString(",c"), ',', false, {"a", "b"}},
                      ParseCase{"", ',', false, {}},
                      ParseCase{"   ", ',', false, {}}));

TEST(TStringList, StrictDelimitedTextRoundTripsBlanks) {
  TStringList list;
  list.SetDelimiter(QLatin1Char(';'));
  list.SetStrictDelimiter(true);
  Fill(list, {"a b", " c ", "d;e", ""});
  EXPECT_EQ(list.DelimitedText(), QStringLiteral("a b; c ;\"d;e\";"));
  TStringList read;
  read.SetDelimiter(QLatin1Char(';'));
  read.SetStrictDelimiter(true);
  read.SetDelimitedText(list.DelimitedText());
  EXPECT_EQ(Lines(read), Lines(list));
}

TEST(TStringList, CommaTextIgnoresTheListsDelimiterSettings) {
  TStringList list;
  list.SetDelimiter(QLatin1Char(';'));
  list.SetQuoteChar(QLatin1Char('\''));
  list.SetStrictDelimiter(true);
  Fill(list, {"a b", "c"});
  EXPECT_EQ(list.CommaText(), QStringLiteral("\"a b\",c"));
  EXPECT_EQ(list.DelimitedText(), QStringLiteral("a b;c"));
}

struct TextCase {
  QString text;
  QStringList lines;
};

class TextSplit : public ::testing::TestWithParam<TextCase> {};

TEST_P(TextSplit, BreaksAtCrLfAndCrLf) {
  TStringList list;
  list.Add(QStringLiteral("left over"));
  list.SetText(GetParam().text);
  EXPECT_EQ(Lines(list), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(TStringList, TextSplit,
                         ::testing::Values(TextCase{"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
                                           TextCase{"a\n", {"a"}},
                                           TextCase{"a\n\n", {"a", ""}},
                                           TextCase{"", {}},
                                           TextCase{"\r\n", {""}},
                                           TextCase{"a\r\r\nb", {"a", "", "b"}},
                                           TextCase{"a\n\rb", {"a", "", "b"}},
                                           TextCase{"  spaced  \r\nx=1", {"  spaced  ", "x=1"}}));

TEST(TStringList, TextEndsEveryLineWithTheLineBreak) {
  TStringList list;
  EXPECT_EQ(list.Text(), QString());
  Fill(list, {"a", "", "b"});
  EXPECT_EQ(list.Text(), QStringLiteral("a") + sLineBreak + sLineBreak + QStringLiteral("b") + sLineBreak);
  EXPECT_EQ(list.Text(), QStringLiteral("a\r\n\r\nb\r\n")) << "CR LF on every platform";
}

TEST(TStringList, SavedFileReadsBackAndReadsAsPlainText) {
  QTemporaryDir dir;
  const QString path = dir.filePath(QStringLiteral("lines.txt"));
  TStringList list;
  Fill(list, {"first", "", "caf\u00e9 = 1"});
  list.SaveToFile(path);
  TStringList read;
  read.LoadFromFile(path);
  EXPECT_EQ(Lines(read), Lines(list));

  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QTextStream stream(&file);
  QStringList plain;
  while (!stream.atEnd()) plain << stream.readLine();
  EXPECT_EQ(plain, Lines(list));
}

TEST(TStringList, StreamsTextAsUtf8AndReadsFromThePosition) {
  TStringList list;
  Fill(list, {"caf\u00e9", "", "x=1"});
  TMemoryStream stream;
  stream.WriteBuffer("head", 4);
  list.SaveToStream(stream);
  EXPECT_EQ(stream.Size(), 4 + (QStringLiteral("caf\u00e9") + sLineBreak + sLineBreak + QStringLiteral("x=1") + sLineBreak).toUtf8().size());
  stream.SetPosition(4);
  TStringList read;
  read.Add(QStringLiteral("left over"));
  read.LoadFromStream(stream);
  EXPECT_EQ(Lines(read), Lines(list));
}

TEST(TStringList, LoadingHonoursAByteOrderMark) {
  TStringList list;
  TMemoryStream utf8;
  utf8.WriteBuffer("\xEF\xBB\xBF" "a\r\nb", 7);
  utf8.SetPosition(0);
  list.LoadFromStream(utf8);
  EXPECT_EQ(Lines(list), QStringList({"a", "b"}));
  TMemoryStream utf16;
  utf16.WriteBuffer("\xFF\xFE" "a\0\n\0\xE9\0", 8);
  utf16.SetPosition(0);
  list.LoadFromStream(utf16);
  EXPECT_EQ(Lines(list), QStringList({"a", "\u00e9"}));
}

TEST(TStringList, EachChangeFiresOnChangingAndOnChange) {
  TStringList list;
  ChangeCounter counter(list);
  list.Add(QStringLiteral("a"));
  list.Add(QStringLiteral("b"));
  list.Delete(0);
  EXPECT_EQ(counter.changing, 3);
  EXPECT_EQ(counter.changed, 3);
}

TEST(TStringList, NestedUpdatesFireOnceAtTheOutermostBounds) {
  TStringList list;
  ChangeCounter counter(list);
  list.BeginUpdate();
  EXPECT_EQ(counter.changing, 1);
  {
    TUpdateGuard inner(list);
    list.Add(QStringLiteral("a"));
    list.SetCommaText(QStringLiteral("x,y,z"));
    list.Exchange(0, 2);
  }
  list.SetText(QStringLiteral("1\n2"));
  EXPECT_EQ(counter.changed, 0);
  list.EndUpdate();
  EXPECT_EQ(counter.changing, 1);
  EXPECT_EQ(counter.changed, 1);
  EXPECT_EQ(list.UpdateCount(), 0);
}

TEST(TStringList, BulkSettersFireOnce) {
  TStringList list;
  Fill(list, {"old"});
  ChangeCounter counter(list);
  list.SetCommaText(QStringLiteral("a,b,c"));
  list.SetText(QStringLiteral("d\ne"));
  EXPECT_EQ(counter.changing, 2);
  EXPECT_EQ(counter.changed, 2);
}

TEST(TStringList, ClearingAnEmptyListFiresNothing) {
  TStringList list;
  ChangeCounter counter(list);
  list.Clear();
  EXPECT_EQ(counter.changing + counter.changed, 0);
}

TEST(TStringList, AFailedBulkAddStillEndsTheUpdate) {
  TStringList source;
  Fill(source, {"a", "b", "a", "c"});
  TStringList list;
  list.SetSorted(true);
  list.SetDuplicates(dupError);
  ChangeCounter counter(list);
  EXPECT_THROW(list.AddStrings(&source), EStringListError);
  EXPECT_EQ(list.UpdateCount(), 0);
  EXPECT_EQ(counter.changed, 1);
  EXPECT_EQ(Lines(list), QStringList({"a", "b"}));
}

TEST(TStringList, AssignCopiesLinesObjectsAndSortSettings) {
  TObject marker;
  TStringList source;
  source.SetCaseSensitive(true);
  source.SetDuplicates(dupAccept);
  source.SetSorted(true);
  source.SetDelimiter(QLatin1Char(';'));
  Fill(source, {"b", "B", "a"});
  source.SetObjects(1, &marker);
  TStringList copy;
  Fill(copy, {"old"});
  ChangeCounter counter(copy);
  copy.Assign(&source);
  EXPECT_EQ(Lines(copy), QStringList({"a", "b", "B"}));
  EXPECT_TRUE(copy.Equals(&source));
  EXPECT_EQ(copy.Objects(1), &marker);
  EXPECT_TRUE(copy.Sorted());
  EXPECT_TRUE(copy.CaseSensitive());
  EXPECT_EQ(copy.Duplicates(), dupAccept);
  EXPECT_EQ(copy.Delimiter(), QLatin1Char(';'));
  EXPECT_EQ(counter.changed, 1);
  copy.Add(QStringLiteral("A"));
  EXPECT_EQ(Lines(copy), QStringList({"a", "A", "b", "B"}));
}

TEST(TStringList, EqualsComparesExactly) {
  TStringList one, other;
  Fill(one, {"a", "b"});
  Fill(other, {"a", "B"});
  EXPECT_FALSE(one.Equals(&other));
  other.Delete(1);
  EXPECT_FALSE(one.Equals(&other));
  other.Add(QStringLiteral("b"));
  EXPECT_TRUE(one.Equals(&other));
}

TEST(TStringList, MoveAndExchangeCarryTheObjects) {
  TObject first, third;
  TStringList list;
  list.AddObject(QStringLiteral("a"), &first);
  list.Add(QStringLiteral("b"));
  list.AddObject(QStringLiteral("c"), &third);
  list.Move(0, 2);
  EXPECT_EQ(Lines(list), QStringList({"b", "c", "a"}));
  EXPECT_EQ(list.Objects(2), &first);
  list.Exchange(1, 2);
  EXPECT_EQ(Lines(list), QStringList({"b", "a", "c"}));
  EXPECT_EQ(list.Objects(2), &third);
  EXPECT_EQ(list.IndexOfObject(&first), 1);
}

TEST(TStringList, OwnedObjectsAreFreedWithTheirLines) {
  int live = 0;
  {
    TStringList list;
    list.SetOwnsObjects(true);
    list.AddObject(QStringLiteral("a"), new TTracked(live));
    list.AddObject(QStringLiteral("b"), new TTracked(live));
    list.AddObject(QStringLiteral("c"), new TTracked(live));
    list.Delete(0);
    EXPECT_EQ(live, 2);
    list.Clear();
    EXPECT_EQ(live, 0);
    list.AddObject(QStringLiteral("d"), new TTracked(live));
  }
  EXPECT_EQ(live, 0);
  TTracked kept(live);
  {
    TStringList list;
    list.AddObject(QStringLiteral("a"), &kept);
    list.Delete(0);
  }
  EXPECT_EQ(live, 1);
}

namespace {

// The smallest TStrings, so that the base class's own operations are what runs.
class TPlainStrings : public TStrings {
public:
  void Insert(int index, const QString& value) override {
    lines.insert(lines.begin() + index, {value, nullptr});
  }
  void Delete(int index) override { lines.erase(lines.begin() + index); }
  void Clear() override { lines.clear(); }
  std::vector<std::pair<QString, TObject*>> lines;

protected:
  int GetCount() const override { return int(lines.size()); }
  QString Get(int index) const override { return lines.at(size_t(index)).first; }
  TObject* GetObject(int index) const override { return lines.at(size_t(index)).second; }
  void PutObject(int index, TObject* object) override { lines.at(size_t(index)).second = object; }
};

}  // namespace

TEST(TStrings, BaseOperationsWorkThroughInsertAndDelete) {
  TObject first, second;
  TPlainStrings strings;
  strings.AddObject(QStringLiteral("a=1"), &first);
  strings.AddObject(QStringLiteral("b=2"), &second);
  strings.Add(QStringLiteral("c=3"));
  strings.SetStrings(0, QStringLiteral("A=1"));
  EXPECT_EQ(strings.Objects(0), &first);
  strings.Exchange(0, 1);
  EXPECT_EQ(Lines(strings), QStringList({"b=2", "A=1", "c=3"}));
  EXPECT_EQ(strings.Objects(0), &second);
  strings.Move(0, 2);
  EXPECT_EQ(Lines(strings), QStringList({"A=1", "c=3", "b=2"}));
  EXPECT_EQ(strings.Objects(2), &second);
  strings.SetValues(QStringLiteral("C"), QStringLiteral("three"));
  EXPECT_EQ(strings.IndexOf(QStringLiteral("c=THREE")), 1);
  TStringList copy;
  copy.Assign(&strings);
  EXPECT_EQ(Lines(copy), Lines(strings));
}
