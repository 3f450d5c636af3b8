#include <gtest/gtest.h>

#include <QStringList>
#include <map>
#include <vector>

#include "framework/db/FilterExpression.h"
#include "framework/rtl/DateTime.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/FormatSettings.h"
#include "QtPrinters.h"

using namespace quil;

namespace {

enum TColumn { colName, colCity, colId, colPrice, colActive, colBorn, colStart, colStamp, colUnitPrice, colCount };

struct TFieldEntry {
  const char* name;
  TFilterFieldKind kind;
};

const TFieldEntry FieldTable[colCount] = {
    {"Name", TFilterFieldKind::Text},      {"City", TFilterFieldKind::Text},
    {"Id", TFilterFieldKind::Integer},     {"Price", TFilterFieldKind::Real},
    {"Active", TFilterFieldKind::Boolean}, {"Born", TFilterFieldKind::Date},
    {"Start", TFilterFieldKind::Time},     {"Stamp", TFilterFieldKind::DateTime},
    {"Unit Price", TFilterFieldKind::Real},
};

// Case-insensitive, as data sets find their fields; counts look-ups to show that names
// are resolved while compiling only.
struct TFakeFields {
  int lookups = 0;

  TFilterFieldResolver Resolver() {
    return [this](const QString& name) -> std::optional<TFilterField> {
      ++lookups;
      for (int column = 0; column < colCount; ++column)
        if (name.compare(QLatin1String(FieldTable[column].name), Qt::CaseInsensitive) == 0)
          return TFilterField{column, FieldTable[column].kind};
      return std::nullopt;
    };
  }
};

class TRow : public TFilterValueSource {
public:
  explicit TRow(std::vector<Variant> values) : values_(std::move(values)) {}
  Variant FieldValue(int fieldIndex) const override {
    reads_.push_back(fieldIndex);
    return values_.at(size_t(fieldIndex));
  }
  QString Name() const { return values_[colName].AsString(); }
  std::vector<int>& Reads() const { return reads_; }
  const Variant& At(int fieldIndex) const { return values_.at(size_t(fieldIndex)); }

private:
  std::vector<Variant> values_;
  mutable std::vector<int> reads_;
};

// The same row from a source that also answers native values, for the kinds that have
// them: a test must find the same rows either way.
class TNativeRow : public TFilterValueSource {
public:
  explicit TNativeRow(const TRow& row) : row_(row) {}
  Variant FieldValue(int fieldIndex) const override { return row_.At(fieldIndex); }
  TFilterNativeValue FieldNative(int fieldIndex) const override {
    const Variant& value = row_.At(fieldIndex);
    TFilterNativeValue native;
    switch (value.Type()) {
      case varNull: native.kind = TFilterNativeValue::TKind::Null; break;
      case varInteger: case varInt64:
        native.kind = TFilterNativeValue::TKind::Integer;
        native.integer = value.AsInt64();
        break;
      case varDouble:
        native.kind = TFilterNativeValue::TKind::Real;
        native.real = value.AsDouble();
        break;
      case varString:
        native.kind = TFilterNativeValue::TKind::Text;
        text_ = value.AsString();
        native.text = &text_;
        break;
      default: break;
    }
    return native;
  }

private:
  const TRow& row_;
  mutable QString text_;
};

Variant Day(int year, int month, int day) { return VarFromDateTime(EncodeDate(year, month, day)); }
Variant Clock(int hour, int minute) { return VarFromDateTime(EncodeTime(hour, minute, 0, 0)); }
Variant Moment(int year, int month, int day, int hour, int minute) {
  return VarFromDateTime(EncodeDate(year, month, day) + EncodeTime(hour, minute, 0, 0));
}

// Name, City, Id, Price, Active, Born, Start, Stamp, Unit Price. The row with the empty
// name is shown as "<empty>".
const std::vector<TRow>& Rows() {
  static const std::vector<TRow> rows = {
      TRow({"Anna", "Abbey", 1, 3.5, true, Day(2020, 2, 1), Clock(8, 30), Moment(2020, 2, 1, 13, 45), 10.25}),
      TRow({"Bert", "Cabot", 2, 12.0, false, Day(2020, 2, 3), Clock(13, 0), Moment(2020, 2, 3, 0, 0), 3.5}),
      TRow({"Carl", Null(), 3, Null(), Null(), Null(), Null(), Null(), Null()}),
      TRow({"O'Hara", "abbey road", 10, -2.25, true, Day(1999, 12, 31), Clock(23, 59), Moment(2020, 2, 2, 23, 59),
            1.5}),
      TRow({"", "Zug_%", 20, 0.0, false, Day(2020, 2, 2), Clock(0, 0), Moment(2020, 2, 2, 0, 0), 7.0}),
  };
  return rows;
}

enum class TLocale { German, English };

// The global settings as a user's locale sets them, restored after each test.
class TLocaleGuard {
public:
  explicit TLocaleGuard(TLocale locale) : saved_(FormatSettings) {
    if (locale == TLocale::English) return;
    FormatSettings.DecimalSeparator = QLatin1Char(',');
    FormatSettings.ThousandSeparator = QLatin1Char('.');
    FormatSettings.DateSeparator = QLatin1Char('.');
    FormatSettings.ShortDateFormat = QStringLiteral("dd.mm.yyyy");
    FormatSettings.ShortTimeFormat = QStringLiteral("hh:nn");
  }
  ~TLocaleGuard() { FormatSettings = saved_; }

private:
  TFormatSettings saved_;
};

QStringList MatchingNames(const TFilterExpression& expression) {
  QStringList names;
  for (const TRow& row : Rows()) {
    const bool matches = expression.Matches(row);
    if (matches) names << (row.Name().isEmpty() ? QStringLiteral("<empty>") : row.Name());
    if (expression.Matches(TNativeRow(row)) != matches) names << QStringLiteral("<native differs>");
  }
  return names;
}

QStringList Matching(const QString& text, const TFilterSettings& settings = {}) {
  TFakeFields fields;
  return MatchingNames(TFilterExpression::Compile(text, fields.Resolver(), settings));
}

QString CompileError(const QString& text) {
  TFakeFields fields;
  try {
    TFilterExpression::Compile(text, fields.Resolver());
  } catch (const EDatabaseError& error) {
    return error.Message();
  }
  return QStringLiteral("<no error>");
}

struct TMatchCase {
  const char* filter;
  QStringList expected;
  TLocale locale = TLocale::German;
};

void PrintTo(const TMatchCase& matchCase, std::ostream* out) { *out << matchCase.filter; }

class FilterMatches : public testing::TestWithParam<TMatchCase> {};

TEST_P(FilterMatches, SelectsTheExpectedRows) {
  const TLocaleGuard locale(GetParam().locale);
  EXPECT_EQ(Matching(QString::fromUtf8(GetParam().filter)), GetParam().expected);
}

const QStringList All = {"Anna", "Bert", "Carl", "O'Hara", "<empty>"};

INSTANTIATE_TEST_SUITE_P(Comparisons, FilterMatches, testing::Values(
    TMatchCase{"Id = 2", {"Bert"}},
    TMatchCase{"Id <> 2", {"Anna", "Carl", "O'Hara", "<empty>"}},
    TMatchCase{"Id < 3", {"Anna", "Bert"}},
    TMatchCase{"Id <= 3", {"Anna", "Bert", "Carl"}},
    TMatchCase{"Id > 3", {"O'Hara", "<empty>"}},
    TMatchCase{"Id >= 10", {"O'Hara", "<empty>"}},
    TMatchCase{"Price > 3.5", {"Bert"}},
    TMatchCase{"Price >= 3.5", {"Anna", "Bert"}},
    TMatchCase{"Price < 0", {"O'Hara"}},
    TMatchCase{"Price = -2.25", {"O'Hara"}},
    TMatchCase{"Price = 12", {"Bert"}},
    TMatchCase{"Id = 2.0", {"Bert"}},
    TMatchCase{"Id = '2'", {"Bert"}},
    TMatchCase{"2 < Id", {"Carl", "O'Hara", "<empty>"}},
    TMatchCase{"'Bert' = Name", {"Bert"}},
    TMatchCase{"Name = 'Bert'", {"Bert"}},
    TMatchCase{"Name = 'bert'", {}},
    TMatchCase{"Name > 'B'", {"Bert", "Carl", "O'Hara"}},
    TMatchCase{"Name < 'B'", {"Anna", "<empty>"}},
    TMatchCase{"Name = ''", {"<empty>"}},
    TMatchCase{"Name = 'O''Hara'", {"O'Hara"}},
    TMatchCase{"[Unit Price] > 3.5", {"Anna", "<empty>"}},
    TMatchCase{"[Unit Price] = 3.5", {"Bert"}},
    TMatchCase{"[Name] = 'Anna' OR [unit price] < 2", {"Anna", "O'Hara"}},
    TMatchCase{"Price > Id", {"Anna", "Bert"}},
    TMatchCase{"Id = 3 AND True", {"Carl"}},
    TMatchCase{"Id = 3 AND False", {}}));

INSTANTIATE_TEST_SUITE_P(Logic, FilterMatches, testing::Values(
    TMatchCase{"Id = 1 OR Id = 2 AND Name = 'Nobody'", {"Anna"}},
    TMatchCase{"Name = 'Nobody' AND Id = 1 OR Id = 2", {"Bert"}},
    TMatchCase{"(Id = 1 OR Id = 2) AND Name = 'Bert'", {"Bert"}},
    TMatchCase{"Id = 1 OR (Id = 2 AND Name = 'Nobody')", {"Anna"}},
    TMatchCase{"NOT Id = 1", {"Bert", "Carl", "O'Hara", "<empty>"}},
    TMatchCase{"NOT Id = 1 AND Id < 3", {"Bert"}},
    TMatchCase{"NOT (Id = 1 OR Id = 2)", {"Carl", "O'Hara", "<empty>"}},
    TMatchCase{"NOT NOT Id = 1", {"Anna"}},
    TMatchCase{"((Id = 1))", {"Anna"}},
    TMatchCase{"id = 1 or ID = 2 and not name = 'Bert'", {"Anna"}},
    TMatchCase{"Id=1Or Id=2", {"Anna", "Bert"}},
    TMatchCase{"  Id\t=\n1  ", {"Anna"}},
    TMatchCase{"Id > 0 AND Id < 20 AND Name <> 'Bert' AND Name <> 'Carl'", {"Anna", "O'Hara"}},
    TMatchCase{"Id = 20 OR Id = 10 OR Id = 1", {"Anna", "O'Hara", "<empty>"}}));

INSTANTIATE_TEST_SUITE_P(Like, FilterMatches, testing::Values(
    TMatchCase{"City LIKE '%ab%'", {"Bert", "O'Hara"}},
    TMatchCase{"City LIKE 'Ab%'", {"Anna"}},
    TMatchCase{"City LIKE '%y'", {"Anna"}},
    TMatchCase{"City LIKE 'Cabot'", {"Bert"}},
    TMatchCase{"City LIKE 'cabot'", {}},
    TMatchCase{"City LIKE 'Cab'", {}},
    TMatchCase{"City LIKE '_abot'", {"Bert"}},
    TMatchCase{"City LIKE '_____'", {"Anna", "Bert", "<empty>"}},
    TMatchCase{"City LIKE '_ab%'", {"Bert"}},
    TMatchCase{"City LIKE 'a%b%d'", {"O'Hara"}},
    TMatchCase{"City LIKE '%a_%d'", {"O'Hara"}},
    TMatchCase{"City LIKE '%b%y'", {"Anna"}},
    TMatchCase{"City LIKE '%%'", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"City LIKE '%'", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Name LIKE ''", {"<empty>"}},
    TMatchCase{"Name LIKE '%'", All},
    TMatchCase{"City LIKE 'Zug_%'", {"<empty>"}},
    TMatchCase{"City LIKE 'Zug%_'", {"<empty>"}},
    TMatchCase{"City LIKE 'Zug__'", {"<empty>"}},
    TMatchCase{"Name LIKE '%''%'", {"O'Hara"}},
    TMatchCase{"Id LIKE '1%'", {"Anna", "O'Hara"}},
    TMatchCase{"NOT City LIKE '%ab%'", {"Anna", "Carl", "<empty>"}},
    TMatchCase{"City NOT LIKE '%ab%'", {"Anna", "Carl", "<empty>"}},
    TMatchCase{"City like 'C%' or city LIKE 'Z%'", {"Bert", "<empty>"}}));

INSTANTIATE_TEST_SUITE_P(In, FilterMatches, testing::Values(
    TMatchCase{"Id IN (1,2,3)", {"Anna", "Bert", "Carl"}},
    TMatchCase{"Id IN (1, 20)", {"Anna", "<empty>"}},
    TMatchCase{"Id IN (2)", {"Bert"}},
    TMatchCase{"NOT Id IN (1,2,3)", {"O'Hara", "<empty>"}},
    TMatchCase{"Id NOT IN (1,2,3)", {"O'Hara", "<empty>"}},
    TMatchCase{"City IN ('Abbey','Cabot')", {"Anna", "Bert"}},
    TMatchCase{"City IN ('Abbey', 'Nowhere')", {"Anna"}},
    TMatchCase{"NOT City IN ('Abbey')", {"Bert", "Carl", "O'Hara", "<empty>"}},
    TMatchCase{"City IN ('Abbey', NULL)", {"Anna"}},
    TMatchCase{"Id IN ('2', 10, 3.0)", {"Bert", "Carl", "O'Hara"}},
    TMatchCase{"Name IN ('Bert', 1, -5)", {"Bert"}},
    TMatchCase{"Active IN (True)", {"Anna", "O'Hara"}},
    TMatchCase{"Price IN (-2.25, 12)", {"Bert", "O'Hara"}}));

INSTANTIATE_TEST_SUITE_P(Nulls, FilterMatches, testing::Values(
    TMatchCase{"City IS NULL", {"Carl"}},
    TMatchCase{"City is not null", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"City = NULL", {"Carl"}},
    TMatchCase{"City <> NULL", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"NULL = City", {"Carl"}},
    TMatchCase{"City <> 'Abbey'", {"Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Price <> 12", {"Anna", "O'Hara", "<empty>"}},
    TMatchCase{"Price < 100", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"City = City", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Price = 0 OR Price IS NULL", {"Carl", "<empty>"}},
    TMatchCase{"Price > NULL", {}},
    TMatchCase{"UPPER(City) IS NULL", {"Carl"}}));

// A field against a constant on either side, of the same kind or integer against real,
// as a source with native values answers them without a Variant.
INSTANTIATE_TEST_SUITE_P(FieldAgainstConstant, FilterMatches, testing::Values(
    TMatchCase{"12 = Price", {"Bert"}},
    TMatchCase{"0 > Price", {"O'Hara"}},
    TMatchCase{"Id < 2.5", {"Anna", "Bert"}},
    TMatchCase{"2.5 > Id", {"Anna", "Bert"}},
    TMatchCase{"Price >= 3", {"Anna", "Bert"}},
    TMatchCase{"'Bert' <= Name", {"Bert", "Carl", "O'Hara"}},
    TMatchCase{"Name IN (1, 'Carl')", {"Carl"}},
    TMatchCase{"Id IN (2.0, 20)", {"Bert", "<empty>"}},
    TMatchCase{"City NOT LIKE 'Ab%'", {"Bert", "Carl", "O'Hara", "<empty>"}},
    TMatchCase{"Price IS NULL OR Price < 1", {"Carl", "O'Hara", "<empty>"}}));

INSTANTIATE_TEST_SUITE_P(Booleans, FilterMatches, testing::Values(
    TMatchCase{"Active = True", {"Anna", "O'Hara"}},
    TMatchCase{"Active = FALSE", {"Bert", "<empty>"}},
    TMatchCase{"Active <> True", {"Bert", "<empty>"}},
    TMatchCase{"Active", {"Anna", "O'Hara"}},
    TMatchCase{"NOT Active", {"Bert", "Carl", "<empty>"}},
    TMatchCase{"Active AND Id > 1", {"O'Hara"}},
    TMatchCase{"Active = 1", {"Anna", "O'Hara"}},
    TMatchCase{"Active = 0", {"Bert", "<empty>"}},
    TMatchCase{"Active = 'true'", {"Anna", "O'Hara"}},
    TMatchCase{"Active = 'False'", {"Bert", "<empty>"}}));

INSTANTIATE_TEST_SUITE_P(Functions, FilterMatches, testing::Values(
    TMatchCase{"UPPER(Name) = 'BERT'", {"Bert"}},
    TMatchCase{"upper(Name) = 'Bert'", {}},
    TMatchCase{"LOWER(City) LIKE 'abbey%'", {"Anna", "O'Hara"}},
    TMatchCase{"Lower(City) = LOWER('ABBEY')", {"Anna"}}));

// Dates, times and decimals as typed under a locale with "dd.mm.yyyy", "hh:nn" and a
// decimal comma; the English rows read the same values in "m/d/yyyy" and a point.
INSTANTIATE_TEST_SUITE_P(LocaleTexts, FilterMatches, testing::Values(
    TMatchCase{"Born = '01.02.2020'", {"Anna"}},
    TMatchCase{"Born <> '01.02.2020'", {"Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Born >= '01.02.2020' AND Born < '03.02.2020'", {"Anna", "<empty>"}},
    TMatchCase{"Born < '1.1.2000'", {"O'Hara"}},
    TMatchCase{"Born IN ('01.02.2020','03.02.2020')", {"Anna", "Bert"}},
    TMatchCase{"Stamp >= '02.02.2020' AND Stamp < '03.02.2020'", {"O'Hara", "<empty>"}},
    TMatchCase{"Stamp >= '01.02.2020 13:45'", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Stamp > '01.02.2020 13:45'", {"Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Start >= '13:00'", {"Bert", "O'Hara"}},
    TMatchCase{"Start < '08:31' AND Start > '00:00'", {"Anna"}},
    TMatchCase{"Price > 3,5", {"Bert"}},
    TMatchCase{"Price = -2,25", {"O'Hara"}},
    TMatchCase{"Price = '3,5'", {"Anna"}},
    TMatchCase{"[Unit Price] IN (10,25, 3,5)", {"Anna", "Bert"}},
    TMatchCase{"[Unit Price] IN (10,25,3,5)", {"Anna", "Bert"}},
    TMatchCase{"Price IN (3.5,12)", {"Anna", "Bert"}},
    TMatchCase{"Id IN (1,2,3)", {"Anna", "Bert", "Carl"}},
    TMatchCase{"Id IN (1,20)", {"Anna", "<empty>"}},
    TMatchCase{"Born = '2/1/2020'", {"Anna"}, TLocale::English},
    TMatchCase{"Stamp < '2/1/2020 1:45 PM'", {}, TLocale::English},
    TMatchCase{"Stamp <= '2/1/2020 1:45 PM'", {"Anna"}, TLocale::English},
    TMatchCase{"Price > 3.5", {"Bert"}, TLocale::English},
    TMatchCase{"[Unit Price] IN (10.25,3.5)", {"Anna", "Bert"}, TLocale::English},
    TMatchCase{"Id IN (1,20)", {"Anna", "<empty>"}, TLocale::English}));

// Every form the grid's filter form writes, one clause after another, and the joins of
// two rows, the reversal and the joins of column filters with the application's filter.
INSTANTIATE_TEST_SUITE_P(BuilderForms, FilterMatches, testing::Values(
    TMatchCase{"City LIKE '%ab%'", {"Bert", "O'Hara"}},
    TMatchCase{"NOT City LIKE '%ab%'", {"Anna", "Carl", "<empty>"}},
    TMatchCase{"City LIKE 'ab%'", {"O'Hara"}},
    TMatchCase{"NOT City LIKE 'ab%'", {"Anna", "Bert", "Carl", "<empty>"}},
    TMatchCase{"City LIKE '%ot'", {"Bert"}},
    TMatchCase{"NOT City LIKE '%ot'", {"Anna", "Carl", "O'Hara", "<empty>"}},
    TMatchCase{"City = 'Cabot'", {"Bert"}},
    TMatchCase{"City <> 'Cabot'", {"Anna", "O'Hara", "<empty>"}},
    TMatchCase{"City > 'Cabot'", {"O'Hara", "<empty>"}},
    TMatchCase{"City >= 'Cabot'", {"Bert", "O'Hara", "<empty>"}},
    TMatchCase{"City < 'Cabot'", {"Anna"}},
    TMatchCase{"City <= 'Cabot'", {"Anna", "Bert"}},
    TMatchCase{"City IN ('Abbey','Zug_%')", {"Anna", "<empty>"}},
    TMatchCase{"NOT City IN ('Abbey','Zug_%')", {"Bert", "Carl", "O'Hara"}},
    TMatchCase{"City IS NULL", {"Carl"}},
    TMatchCase{"City IS NOT NULL", {"Anna", "Bert", "O'Hara", "<empty>"}},
    TMatchCase{"Id IN (1,2,3)", {"Anna", "Bert", "Carl"}},
    TMatchCase{"[Unit Price] > 3,5", {"Anna", "<empty>"}},
    TMatchCase{"Active = True", {"Anna", "O'Hara"}},
    TMatchCase{"Born >= '01.02.2020' AND Born < '03.02.2020'", {"Anna", "<empty>"}},
    TMatchCase{"City = 'Abbey' OR City LIKE 'C%'", {"Anna", "Bert"}},
    TMatchCase{"NOT (City = 'Abbey' OR City LIKE 'C%')", {"Carl", "O'Hara", "<empty>"}},
    TMatchCase{"(City LIKE '%a%') AND (Id > 1)", {"Bert", "O'Hara"}},
    TMatchCase{"(Id > 0) AND (NOT (Name = 'Bert')) AND (Active = True)", {"Anna", "O'Hara"}},
    TMatchCase{"(Id < 10) AND (City IS NOT NULL)", {"Anna", "Bert"}},
    TMatchCase{"City = NULL", {"Carl"}},
    TMatchCase{"City <> NULL", {"Anna", "Bert", "O'Hara", "<empty>"}}));

struct TSettingsCase {
  const char* filter;
  TFilterSettings settings;
  QStringList expected;
};

void PrintTo(const TSettingsCase& settingsCase, std::ostream* out) { *out << settingsCase.filter; }

class FilterSettingsMatches : public testing::TestWithParam<TSettingsCase> {};

TEST_P(FilterSettingsMatches, SelectsTheExpectedRows) {
  const TLocaleGuard locale(TLocale::German);
  EXPECT_EQ(Matching(QString::fromUtf8(GetParam().filter), GetParam().settings), GetParam().expected);
}

constexpr TFilterSettings IgnoreCase{TFilterCase::Insensitive, TFilterPartialCompare::Off};
constexpr TFilterSettings Partial{TFilterCase::Sensitive, TFilterPartialCompare::TrailingAsterisk};
constexpr TFilterSettings PartialIgnoringCase{TFilterCase::Insensitive, TFilterPartialCompare::TrailingAsterisk};

INSTANTIATE_TEST_SUITE_P(CaseAndPartial, FilterSettingsMatches, testing::Values(
    TSettingsCase{"Name = 'bert'", IgnoreCase, {"Bert"}},
    TSettingsCase{"Name > 'b'", IgnoreCase, {"Bert", "Carl", "O'Hara"}},
    TSettingsCase{"City IN ('ABBEY')", IgnoreCase, {"Anna"}},
    TSettingsCase{"City LIKE 'ABBEY%'", IgnoreCase, {"Anna", "O'Hara"}},
    TSettingsCase{"City LIKE '%AB%'", IgnoreCase, {"Anna", "Bert", "O'Hara"}},
    TSettingsCase{"City LIKE 'a_B%Y'", IgnoreCase, {"Anna"}},
    TSettingsCase{"City LIKE 'a_B%Y'", {}, {}},
    TSettingsCase{"Name = 'Ca*'", {}, {}},
    TSettingsCase{"Name = 'Ca*'", Partial, {"Carl"}},
    TSettingsCase{"Name <> 'Ca*'", Partial, {"Anna", "Bert", "O'Hara", "<empty>"}},
    TSettingsCase{"Name = 'ca*'", Partial, {}},
    TSettingsCase{"Name = 'ca*'", PartialIgnoringCase, {"Carl"}},
    TSettingsCase{"City = 'Zug_*'", Partial, {"<empty>"}},
    TSettingsCase{"Name = '*'", Partial, All},
    TSettingsCase{"Name > 'C*'", Partial, {"Carl", "O'Hara"}}));

struct TErrorCase {
  const char* filter;
  const char* message;
};

void PrintTo(const TErrorCase& errorCase, std::ostream* out) { *out << errorCase.filter; }

class FilterErrors : public testing::TestWithParam<TErrorCase> {};

TEST_P(FilterErrors, RaiseWithPositionAndWhatWasExpected) {
  const TLocaleGuard locale(TLocale::German);
  EXPECT_EQ(CompileError(QString::fromUtf8(GetParam().filter)), QString::fromUtf8(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(Syntax, FilterErrors, testing::Values(
    TErrorCase{"(Id = 1", "Missing ')' at position 8 to close the '(' at position 1, found the end of the filter"},
    TErrorCase{"((Id = 1) OR Id = 2", "Missing ')' at position 20 to close the '(' at position 1, found the end of the filter"},
    TErrorCase{"Name IN ('a' 'b')", "Missing ')' at position 14 to close the '(' at position 9, found the string 'b'"},
    TErrorCase{"Id = 1)", "Filter expression incorrectly terminated: unexpected ')' at position 7"},
    TErrorCase{"Id = 1 Name", "Filter expression incorrectly terminated: unexpected 'Name' at position 8"},
    TErrorCase{"Name = 'O'Hara'", "Filter expression incorrectly terminated: unexpected 'Hara' at position 11"},
    TErrorCase{"Id =", "Expected an operand at position 5, found the end of the filter"},
    TErrorCase{"Id = AND Id = 2", "Expected an operand at position 6, found 'AND'"},
    TErrorCase{"Id = 1 AND", "Expected an operand at position 11, found the end of the filter"},
    TErrorCase{"OR Id = 1", "Expected an operand at position 1, found 'OR'"},
    TErrorCase{"()", "Expected an operand at position 2, found ')'"},
    TErrorCase{"Id = -", "Expected a number after '-' at position 7, found the end of the filter"},
    TErrorCase{"Name", "Expected a comparison operator, LIKE, IN or IS after 'Name' at position 5, found the end of the filter"},
    TErrorCase{"Id 5", "Expected a comparison operator, LIKE, IN or IS after 'Id' at position 4, found '5'"},
    TErrorCase{"Name LIKE 5", "Expected a pattern in quotes after LIKE at position 11, found '5'"},
    TErrorCase{"Name NOT = 'x'", "Expected LIKE or IN after NOT at position 10, found '='"},
    TErrorCase{"Id IN 1,2", "Expected '(' after IN at position 7, found '1,2'"},
    TErrorCase{"Id IN ()", "Expected an operand at position 8, found ')'"},
    TErrorCase{"Id IN (1, Price)", "Expected a constant in the IN list at position 11, found 'Price'"},
    TErrorCase{"Name IN ('a', LOWER('B'))", "Expected a constant in the IN list at position 15, found 'LOWER'"},
    TErrorCase{"City IS 'x'", "Expected NULL or NOT after IS at position 9, found the string 'x'"},
    TErrorCase{"City IS NOT 5", "Expected NULL after IS NOT at position 13, found '5'"},
    TErrorCase{"Name = 'abc", "Missing closing quote of the string that starts at position 8"},
    TErrorCase{"[Unit Price > 1", "Missing ']' after the field name that starts at position 1"},
    TErrorCase{"Id = 1 # 2", "Invalid character '#' at position 8"},
    TErrorCase{"Id == 1", "Expected an operand at position 5, found '='"}));

INSTANTIATE_TEST_SUITE_P(Fields, FilterErrors, testing::Values(
    TErrorCase{"Nope = 1", "Field 'Nope' not found at position 1"},
    TErrorCase{"Id = 1 OR [Unit  Price] = 2", "Field 'Unit  Price' not found at position 11"},
    TErrorCase{"Unit Price = 2", "Field 'Unit' not found at position 1"},
    TErrorCase{"UPPER(Nope) = 'X'", "Field 'Nope' not found at position 7"},
    TErrorCase{"Born = 'someday'", "'someday' at position 8 is not a valid date for field 'Born'"},
    TErrorCase{"Born IN ('01.02.2020', '31.02.2020')", "'31.02.2020' at position 24 is not a valid date for field 'Born'"},
    TErrorCase{"Start = 'noon'", "'noon' at position 9 is not a valid time for field 'Start'"},
    TErrorCase{"Stamp < 'x'", "'x' at position 9 is not a valid date and time for field 'Stamp'"},
    TErrorCase{"Id = 'abc'", "'abc' at position 6 is not a valid number for field 'Id'"},
    TErrorCase{"'abc' < Price", "'abc' at position 1 is not a valid number for field 'Price'"},
    TErrorCase{"Active = 'maybe'", "'maybe' at position 10 is not a valid Boolean for field 'Active'"}));

TEST(TFilterExpression, BlankTextMatchesEveryRecord) {
  TFakeFields fields;
  for (const QString& text : {QString(), QStringLiteral("  \t ")}) {
    const TFilterExpression expression = TFilterExpression::Compile(text, fields.Resolver());
    EXPECT_TRUE(expression.IsEmpty());
    EXPECT_EQ(MatchingNames(expression), All);
  }
  EXPECT_TRUE(TFilterExpression().IsEmpty());
}

TEST(TFilterExpression, ErrorsAreDatabaseErrors) {
  TFakeFields fields;
  EXPECT_THROW(TFilterExpression::Compile(QStringLiteral("Nope = 1"), fields.Resolver()), EDatabaseError);
  EXPECT_THROW(TFilterExpression::Compile(QStringLiteral("Id = "), fields.Resolver()), EDatabaseError);
}

TEST(TFilterExpression, ResolvesNamesOnceWhileCompilingAndReadsByIndex) {
  TFakeFields fields;
  const TFilterExpression expression =
      TFilterExpression::Compile(QStringLiteral("Id > 2 AND [Unit Price] < 5"), fields.Resolver());
  EXPECT_EQ(fields.lookups, 2);
  const TRow& oHara = Rows()[3];
  oHara.Reads().clear();
  EXPECT_TRUE(expression.Matches(oHara));
  EXPECT_EQ(oHara.Reads(), (std::vector<int>{colId, colUnitPrice}));
  EXPECT_EQ(fields.lookups, 2);
}

TEST(TFilterExpression, StopsReadingOnceTheOutcomeIsKnown) {
  TFakeFields fields;
  const TRow& anna = Rows()[0];
  const auto readsFor = [&](const char* text) {
    const TFilterExpression expression = TFilterExpression::Compile(QString::fromUtf8(text), fields.Resolver());
    anna.Reads().clear();
    expression.Matches(anna);
    return anna.Reads();
  };
  EXPECT_EQ(readsFor("Id = 1 OR Name = 'x'"), std::vector<int>{colId});
  EXPECT_EQ(readsFor("Id = 2 AND Name = 'x'"), std::vector<int>{colId});
  EXPECT_EQ(readsFor("Id = 2 OR Name = 'x'"), (std::vector<int>{colId, colName}));
}

TEST(TFilterExpression, MovedExpressionKeepsItsTree) {
  TFakeFields fields;
  TFilterExpression expression = TFilterExpression::Compile(QStringLiteral("Id = 2"), fields.Resolver());
  TFilterExpression moved = std::move(expression);
  EXPECT_FALSE(moved.IsEmpty());
  EXPECT_EQ(MatchingNames(moved), QStringList{"Bert"});
  expression = TFilterExpression::Compile(QStringLiteral("Id = 1"), fields.Resolver());
  EXPECT_EQ(MatchingNames(expression), QStringList{"Anna"});
}

}  // namespace
