// The in-memory data set: filters by text and by event, Locate and Lookup, indexes and
// the bookmarks that live through them, calculated and lookup fields, and its file.

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "framework/db/DbTestKit.h"
#include "framework/db/Fields.h"
#include "framework/db/NumericFields.h"
#include "framework/db/StringFields.h"
#include "framework/rtl/DateTime.h"
#include "framework/rtl/ExceptionHandler.h"
#include "framework/rtl/FormatSettings.h"
#include "framework/rtl/RtlConsts.h"
#include "framework/rtl/TypInfo.h"

using namespace quil;
using dbtest::TPeople;

namespace {

QList<int> Ids(TDataSet& dataSet) {
  QList<int> ids;
  for (dataSet.First(); !dataSet.Eof(); dataSet.Next()) ids << dataSet.FieldByName("ID")->AsInteger();
  return ids;
}

// --- Filters ---------------------------------------------------------------------------

struct TFilterCase {
  const char* text;
  QList<int> ids;
};

void PrintTo(const TFilterCase& filter, std::ostream* out) { *out << filter.text; }

class ClientFilterText : public testing::TestWithParam<TFilterCase> {};

TEST_P(ClientFilterText, KeepsTheMatchingRows) {
  TPeople people(8, 3);
  people.dataSet.SetFilter(GetParam().text);
  people.dataSet.SetFiltered(true);
  EXPECT_EQ(Ids(people.dataSet), GetParam().ids);
  EXPECT_EQ(people.dataSet.RecordCount(), GetParam().ids.size());
  people.dataSet.CheckConsistency();
}

INSTANTIATE_TEST_SUITE_P(Texts, ClientFilterText, testing::Values(
    TFilterCase{"City = 'Oslo'", {2, 6}},
    TFilterCase{"City LIKE 'P%' OR ID > 7", {3, 7, 8}},
    TFilterCase{"[City] IN ('Berlin', 'Paris') AND NOT ID = 1", {3, 5, 7}},
    TFilterCase{"City IS NULL", {4, 8}},
    TFilterCase{"City IS NOT NULL AND Amount >= 9", {6, 7}},
    TFilterCase{"Name LIKE 'Name00_'", {1, 2, 3, 4, 5, 6, 7, 8}},
    TFilterCase{"(ID < 3 OR ID > 6) AND City <> 'Berlin'", {2, 7}},
    TFilterCase{"NOT (City = 'Oslo' OR City LIKE 'P%')", {1, 4, 5, 8}},
    TFilterCase{"NOT City LIKE '%l%'", {3, 4, 7, 8}},
    TFilterCase{"ID IN (1,2,3)", {1, 2, 3}},
    TFilterCase{"", {1, 2, 3, 4, 5, 6, 7, 8}}));

TEST(ClientFilter, TextAndEventTogether) {
  TPeople people(12, 3);
  people.dataSet.SetFilter("City = 'Oslo' OR City = 'Paris'");
  people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = dataSet->FieldByName("ID")->AsInteger() % 2 == 0;
  });
  EXPECT_EQ(Ids(people.dataSet).size(), 12);  // nothing filters until Filtered
  people.dataSet.SetFiltered(true);
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{2, 6, 10}));
  people.dataSet.SetFilter("");
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{2, 4, 6, 8, 10, 12}));
  people.dataSet.SetFiltered(false);
  EXPECT_EQ(Ids(people.dataSet).size(), 12);
}

TEST(ClientFilter, TurningItOnLandsOnTheFirstAcceptedRecord) {
  TPeople people(8, 3);
  people.dataSet.SetRecNo(5);
  people.dataSet.SetFilter("City = 'Paris'");
  people.dataSet.SetFiltered(true);
  EXPECT_EQ(people.Id(), 3);
  EXPECT_TRUE(people.dataSet.Bof());
}

TEST(ClientFilter, CaseInsensitiveOption) {
  TPeople people(8);
  people.dataSet.SetFilter("City = 'oslo'");
  people.dataSet.SetFiltered(true);
  EXPECT_TRUE(people.dataSet.IsEmpty());
  people.dataSet.SetFilterOptions(TFilterOptions{foCaseInsensitive});
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{2, 6}));
}

TEST(ClientFilter, AnUnparsableTextRaisesAndKeepsTheOldFilter) {
  TPeople people(8);
  people.dataSet.SetFilter("City = 'Oslo'");
  people.dataSet.SetFiltered(true);
  for (const char* bad : {"City = ", "Nope = 1", "ID = 'abc'", "(ID = 1", "City LIKE"}) {
    EXPECT_THROW(people.dataSet.SetFilter(bad), EDatabaseError) << bad;
    EXPECT_EQ(people.dataSet.Filter(), "City = 'Oslo'");
    EXPECT_EQ(Ids(people.dataSet), (QList<int>{2, 6})) << bad;
  }
}

TEST(ClientFilter, AnUnparsableTextOnAClosedDataSetRaisesAtOnce) {
  TPeople people(8);
  people.dataSet.Close();
  people.dataSet.SetFilter("City = 'Oslo'");
  people.dataSet.SetFiltered(true);
  for (const char* bad : {"City = ", "(ID = 1", "City LIKE", "ID IN (1,"}) {
    EXPECT_THROW(people.dataSet.SetFilter(bad), EDatabaseError) << bad;
    EXPECT_EQ(people.dataSet.Filter(), "City = 'Oslo'");
  }
  people.dataSet.Open();
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{2, 6}));
}

// Texts as the filter builder writes them under a locale whose decimal separator is a
// comma: a number in a list then reads "1,5, 2,5".
TEST(ClientFilter, RealNumbersUnderACommaDecimalLocale) {
  const TFormatSettings saved = FormatSettings;
  FormatSettings.DecimalSeparator = QLatin1Char(',');
  TFinally restore([&saved] { FormatSettings = saved; });
  TClientDataSet prices(nullptr);
  prices.FieldDefs()->Add("Id", ftInteger);
  prices.FieldDefs()->Add("Unit Price", ftFloat);
  prices.CreateDataSet();
  for (int id = 1; id <= 4; ++id) prices.AppendRecord({id, id + 0.5});
  const struct {
    const char* text;
    QList<int> ids;
  } cases[] = {{"[Unit Price] > 3,5", {4}},
               {"[Unit Price] IN (1,5, 2,5)", {1, 2}},
               {"Id IN (1,2,3)", {1, 2, 3}}};
  prices.SetFiltered(true);
  for (const auto& filter : cases) {
    prices.SetFilter(filter.text);
    QList<int> ids;
    for (prices.First(); !prices.Eof(); prices.Next()) ids << prices.FieldByName("Id")->AsInteger();
    EXPECT_EQ(ids, filter.ids) << filter.text;
  }
}

TEST(ClientFilter, APostedRowThatNoLongerMatchesLeavesTheView) {
  TPeople people(8, 3);
  people.dataSet.SetFilter("City = 'Oslo'");
  people.dataSet.SetFiltered(true);
  people.dataSet.Edit();
  people.dataSet.FieldByName("City")->SetAsString("Rome");
  people.dataSet.Post();
  EXPECT_EQ(people.dataSet.RecordCount(), 1);
  EXPECT_EQ(people.Id(), 6);
  people.dataSet.CheckConsistency();
}

// --- Locate and Lookup -----------------------------------------------------------------

struct TLocateCase {
  const char* fields;
  Variant values;
  TLocateOptions options;
  int id;  // 0: not found
};

void PrintTo(const TLocateCase& locate, std::ostream* out) { *out << locate.fields; }

class ClientLocate : public testing::TestWithParam<TLocateCase> {};

TEST_P(ClientLocate, FindsTheFirstMatchOrStays) {
  const TLocateCase locate = GetParam();
  TPeople people(12, 3);
  people.dataSet.SetRecNo(9);
  EXPECT_EQ(people.dataSet.Locate(locate.fields, locate.values, locate.options), locate.id != 0);
  EXPECT_EQ(people.dataSet.Found(), locate.id != 0);
  EXPECT_EQ(people.Id(), locate.id != 0 ? locate.id : 9);
  people.dataSet.CheckConsistency();
}

INSTANTIATE_TEST_SUITE_P(Keys, ClientLocate, testing::Values(
    TLocateCase{"City", "Paris", {}, 3}, TLocateCase{"City", "paris", {}, 0},
    TLocateCase{"City", "paris", {loCaseInsensitive}, 3}, TLocateCase{"City", "Par", {}, 0},
    TLocateCase{"City", "Par", {loPartialKey}, 3}, TLocateCase{"City", "par", {loPartialKey}, 0},
    TLocateCase{"City", "par", {loPartialKey, loCaseInsensitive}, 3},
    TLocateCase{"ID", 11, {}, 11}, TLocateCase{"ID", "11", {}, 11}, TLocateCase{"Amount", 4.5, {}, 3},
    TLocateCase{"City;ID", VarArrayOf({"Oslo", 6}), {}, 6},
    TLocateCase{"City;Name", VarArrayOf({"Oslo", "Name01"}), {loPartialKey}, 10},
    TLocateCase{"Name;City", VarArrayOf({"Name0", "Oslo"}), {loPartialKey}, 0},
    TLocateCase{"City", Null(), {}, 4}, TLocateCase{"ID", 99, {}, 0}));

TEST(ClientLocate, AMissingFieldRaisesAndKeepsThePosition) {
  TPeople people(6, 3);
  people.dataSet.SetRecNo(4);
  EXPECT_THROW(people.dataSet.Locate("Nope", 1, {}), EDatabaseError);
  EXPECT_EQ(people.Id(), 4);
  people.dataSet.Next();
  EXPECT_EQ(people.Id(), 5);
  people.dataSet.CheckConsistency();
}

TEST(ClientLocate, HonoursTheFilter) {
  TPeople people(8);
  people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = dataSet->FieldByName("ID")->AsInteger() != 2;
  });
  people.dataSet.SetFiltered(true);
  EXPECT_TRUE(people.dataSet.Locate("City", "Oslo", {}));
  EXPECT_EQ(people.Id(), 6);
  EXPECT_FALSE(people.dataSet.Locate("ID", 2, {}));
}

TEST(ClientLookup, AnswersWithoutMoving) {
  TPeople people(8, 3);
  people.dataSet.SetRecNo(5);
  people.link.Clear();
  EXPECT_EQ(people.dataSet.Lookup("ID", 3, "City").AsString(), "Paris");
  const Variant both = people.dataSet.Lookup("City;ID", VarArrayOf({"Oslo", 6}), "Name;Amount");
  EXPECT_EQ(both[0].AsString(), "Name006");
  EXPECT_EQ(both[1].AsDouble(), 9.0);
  EXPECT_TRUE(VarIsNull(people.dataSet.Lookup("ID", 42, "City")));
  EXPECT_EQ(people.Id(), 5);
  EXPECT_TRUE(people.link.log.isEmpty());
  people.dataSet.Next();
  EXPECT_EQ(people.Id(), 6);
}

// A search of the data set from its own filter handler would fetch into the record being
// filtered and come back through the handler.
TEST(ClientLookup, FromTheDataSetsOwnFilterHandlerIsRefusedAndChangesNothing) {
  TPeople people(8, 3);
  people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = !VarIsNull(dataSet->Lookup("ID", 2, "City"));
  });
  try {
    people.dataSet.SetFiltered(true);
    ADD_FAILURE() << "no error";
  } catch (const EDatabaseError& error) {
    EXPECT_EQ(error.Message(), SSearchWhileFetching);
  }
  EXPECT_FALSE(people.dataSet.Filtered());
  EXPECT_EQ(people.dataSet.RecordCount(), 8);
  EXPECT_EQ(people.dataSet.Lookup("ID", 2, "City").AsString(), "Oslo");
}

// --- Indexes and bookmarks -------------------------------------------------------------

TEST(ClientIndex, IndexFieldNamesSortsAscendingAndKeepsTheRecord) {
  TPeople people(8, 3);
  people.dataSet.SetRecNo(6);
  people.dataSet.SetIndexFieldNames("City;ID");
  EXPECT_EQ(people.Id(), 6);
  people.dataSet.CheckConsistency();
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{4, 8, 1, 5, 2, 6, 3, 7}));
  people.dataSet.SetIndexFieldNames("");
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ClientIndex, AddIndexWithDescendingFields) {
  TPeople people(8);
  people.dataSet.AddIndex("ByCityDescId", "City;ID", {}, "ID");
  people.dataSet.AddIndex("Backwards", "ID", {ixDescending});
  people.dataSet.SetIndexName("ByCityDescId");
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{8, 4, 5, 1, 6, 2, 7, 3}));
  people.dataSet.SetIndexName("Backwards");
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{8, 7, 6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(people.dataSet.IndexFieldNames(), "");
  people.dataSet.DeleteIndex("Backwards");
  EXPECT_EQ(people.dataSet.IndexName(), "");
  EXPECT_EQ(Ids(people.dataSet).first(), 1);
  EXPECT_EQ(people.dataSet.IndexDefs()->Count(), 1);
}

// The way the grid's order adapter works: everything by published property name.
TEST(ClientIndex, AnIndexAddedAndReadBackThroughPublishedProperties) {
  TPeople people(8);
  TClientDataSet& dataSet = people.dataSet;
  EXPECT_EQ(GetStrProp(&dataSet, "CommandText"), "");
  EXPECT_EQ(GetStrProp(&dataSet, "FileName"), "");
  SetStrProp(&dataSet, "CommandText", "people");
  EXPECT_EQ(dataSet.CommandText(), "people");
  SetStrProp(&dataSet, "IndexFieldNames", "City;ID");
  EXPECT_EQ(dataSet.IndexFieldNames(), "City;ID");
  EXPECT_EQ(Ids(dataSet), (QList<int>{4, 8, 1, 5, 2, 6, 3, 7}));
  SetStrProp(&dataSet, "IndexFieldNames", "");

  dataSet.AddIndex("TQuilDBGridIndex", "City;ID", {}, "ID", "", 0);
  auto* defs = static_cast<TIndexDefs*>(GetObjectProp(&dataSet, "IndexDefs", &TIndexDefs::StaticClass()));
  ASSERT_EQ(defs, dataSet.IndexDefs());
  EXPECT_FALSE(defs->Updated());
  defs->Update();
  EXPECT_TRUE(defs->Updated());
  SetStrProp(&dataSet, "IndexName", "TQuilDBGridIndex");
  EXPECT_EQ(Ids(dataSet), (QList<int>{8, 4, 5, 1, 6, 2, 7, 3}));

  const TIndexDef* def = defs->Find(GetStrProp(&dataSet, "IndexName"));
  EXPECT_EQ(def->Fields(), "City;ID");
  EXPECT_EQ(def->DescFields(), "ID");
  EXPECT_FALSE(def->Options().Contains(ixDescending));
  SetStrProp(&dataSet, "IndexName", "");
  dataSet.DeleteIndex("TQuilDBGridIndex");
  EXPECT_FALSE(defs->Updated());
  EXPECT_EQ(Ids(dataSet).first(), 1);
}

TEST(ClientIndex, BadIndexesRaiseAndChangeNothing) {
  TPeople people(8);
  people.dataSet.SetIndexFieldNames("Name");
  people.dataSet.SetRecNo(3);
  EXPECT_THROW(people.dataSet.SetIndexFieldNames("Nope"), EDatabaseError);
  EXPECT_THROW(people.dataSet.SetIndexName("Nope"), EDatabaseError);
  EXPECT_THROW(people.dataSet.AddIndex("X", "Nope", {}), EDatabaseError);
  EXPECT_THROW(people.dataSet.DeleteIndex("Nope"), EDatabaseError);
  people.dataSet.AddIndex("X", "ID", {});
  EXPECT_THROW(people.dataSet.AddIndex("x", "ID", {}), EDatabaseError);
  EXPECT_EQ(people.dataSet.IndexFieldNames(), "Name");
  EXPECT_EQ(people.Id(), 3);
}

TEST(ClientBookmarks, SurviveAChangeOfIndexAPostAndADelete) {
  TPeople people(8, 3);
  people.dataSet.SetRecNo(5);
  const TBookmark five = people.dataSet.GetBookmark();
  people.dataSet.SetRecNo(2);
  const TBookmark two = people.dataSet.GetBookmark();
  EXPECT_LT(people.dataSet.CompareBookmarks(two, five), 0);
  people.dataSet.AddIndex("Backwards", "ID", {ixDescending});
  people.dataSet.SetIndexName("Backwards");
  EXPECT_GT(people.dataSet.CompareBookmarks(two, five), 0);
  people.dataSet.First();
  people.dataSet.GotoBookmark(five);
  EXPECT_EQ(people.Id(), 5);
  EXPECT_EQ(people.dataSet.RecNo(), 4);
  people.dataSet.CheckConsistency();

  people.dataSet.Edit();
  people.dataSet.FieldByName("ID")->SetAsInteger(50);  // moves to the top of the order
  people.dataSet.Post();
  EXPECT_EQ(people.dataSet.RecNo(), 1);
  people.dataSet.Last();
  people.dataSet.GotoBookmark(five);
  EXPECT_EQ(people.Id(), 50);

  people.dataSet.GotoBookmark(two);
  people.dataSet.Delete();
  EXPECT_FALSE(people.dataSet.BookmarkValid(two));
  EXPECT_TRUE(people.dataSet.BookmarkValid(five));
  EXPECT_THROW(people.dataSet.GotoBookmark(two), EDatabaseError);
  EXPECT_EQ(people.dataSet.CompareBookmarks(TBookmark(), five), 1);
  EXPECT_EQ(people.dataSet.CompareBookmarks(five, five), 0);
  people.dataSet.CheckConsistency();
}

TEST(ClientBookmarks, AFilteredOutRecordHasNoValidBookmark) {
  TPeople people(8);
  people.dataSet.SetRecNo(2);
  const TBookmark two = people.dataSet.GetBookmark();
  people.dataSet.SetFilter("City = 'Paris'");
  people.dataSet.SetFiltered(true);
  EXPECT_FALSE(people.dataSet.BookmarkValid(two));
  people.dataSet.SetFiltered(false);
  EXPECT_TRUE(people.dataSet.BookmarkValid(two));
}

// --- Calculated and lookup fields ------------------------------------------------------

class ClientCalcFields : public testing::Test {
protected:
  void SetUp() override {
    cities.FieldDefs()->Add("Code", ftString, 20);
    cities.FieldDefs()->Add("Country", ftString, 20);
    cities.CreateDataSet();
    for (auto [code, country] : {std::pair{"Berlin", "Germany"}, {"Oslo", "Norway"}, {"Paris", "France"}})
      cities.AppendRecord({code, country});

    dbtest::AddDataFields(people, {{"ID", ftInteger}, {"City", ftString}, {"Amount", ftFloat}});
    auto* doubled = new TFloatField(&people);
    doubled->SetFieldName("Doubled");
    doubled->SetFieldKind(fkCalculated);
    doubled->SetDataSet(&people);
    dbtest::AddLookupField(people, "Country", "City", &cities, "Code", "Country");
    people.OnCalcFields = [this](TDataSet* dataSet) {
      ++calcCalls;
      dataSet->FieldByName("Doubled")->SetAsFloat(dataSet->FieldByName("Amount")->AsFloat() * 2);
    };
    people.CreateDataSet();
    people.AppendRecord({1, "Oslo", 2.0});
    people.AppendRecord({2, "Paris", 3.5});
    people.AppendRecord({3, "Rome", 1.0});
    people.First();
  }

  TClientDataSet cities{nullptr};
  TClientDataSet people{nullptr};
  int calcCalls = 0;
};

TEST_F(ClientCalcFields, AreWorkedOutForEveryFetchedRecord) {
  EXPECT_EQ(people.FieldByName("Doubled")->AsFloat(), 4.0);
  EXPECT_EQ(people.FieldByName("Country")->AsString(), "Norway");
  people.Next();
  EXPECT_EQ(people.FieldByName("Doubled")->AsFloat(), 7.0);
  EXPECT_EQ(people.FieldByName("Country")->AsString(), "France");
  people.Next();
  EXPECT_TRUE(people.FieldByName("Country")->IsNull());
  EXPECT_EQ(people.Fields()->LifeCycles(), TFieldLifeCycles{lcPersistent});
}

TEST_F(ClientCalcFields, FollowAnEditAsItHappens) {
  people.Edit();
  people.FieldByName("Amount")->SetAsFloat(10);
  people.FieldByName("City")->SetAsString("Berlin");
  EXPECT_EQ(people.FieldByName("Doubled")->AsFloat(), 20.0);
  EXPECT_EQ(people.FieldByName("Country")->AsString(), "Germany");
  people.Cancel();
  EXPECT_EQ(people.FieldByName("Doubled")->AsFloat(), 4.0);
  EXPECT_EQ(people.FieldByName("Country")->AsString(), "Norway");
}

TEST_F(ClientCalcFields, CanBeFilteredAndLookedUp) {
  people.SetFilter("Doubled > 5 OR Country = 'Norway'");
  people.SetFiltered(true);
  EXPECT_EQ(Ids(people), (QList<int>{1, 2}));
  EXPECT_EQ(people.Lookup("ID", 2, "Doubled").AsDouble(), 7.0);
}

TEST_F(ClientCalcFields, ALookupCacheKeepsAnswersUntilRefreshed) {
  TField* country = people.FieldByName("Country");
  country->SetLookupCache(true);
  people.Refresh();
  EXPECT_EQ(country->AsString(), "Norway");
  ASSERT_TRUE(cities.Locate("Code", "Oslo", {}));
  cities.Edit();
  cities.FieldByName("Country")->SetAsString("Noreg");
  cities.Post();
  people.Refresh();
  EXPECT_EQ(country->AsString(), "Norway");
  country->RefreshLookupList();
  people.Refresh();
  EXPECT_EQ(country->AsString(), "Noreg");
  // Without the cache every fetch asks the lookup data set.
  country->SetLookupCache(false);
  cities.Edit();
  cities.FieldByName("Country")->SetAsString("Norge");
  cities.Post();
  people.Refresh();
  EXPECT_EQ(country->AsString(), "Norge");
}

TEST_F(ClientCalcFields, AreNotModifiableByControls) {
  people.Edit();
  EXPECT_FALSE(people.FieldByName("Doubled")->CanModify());
  EXPECT_FALSE(people.FieldByName("Country")->CanModify());
  EXPECT_TRUE(people.FieldByName("Amount")->CanModify());
  people.Cancel();
}

TEST_F(ClientCalcFields, PersistentFieldsOutliveClosing) {
  people.Close();
  EXPECT_EQ(people.Fields()->Count(), 5);
  people.Open();
  EXPECT_EQ(people.FieldByName("Country")->AsString(), "Norway");
}

// --- The file --------------------------------------------------------------------------

TEST(ClientFile, SavesAndLoadsDefinitionsIndexesAndRows) {
  QTemporaryDir dir;
  const QString path = dir.filePath("people.json");
  TPeople people(5);
  people.dataSet.AddIndex("ByCity", "City", {ixCaseInsensitive}, {}, "City");
  people.dataSet.SaveToFile(path);

  TClientDataSet loaded(nullptr);
  loaded.LoadFromFile(path);
  EXPECT_TRUE(loaded.Active());
  EXPECT_EQ(loaded.RecordCount(), 5);
  EXPECT_EQ(loaded.FieldByName("Name")->Size(), 20);
  EXPECT_EQ(loaded.IndexDefs()->Count(), 1);
  EXPECT_TRUE(loaded.IndexDefs()->Items(0)->Options().Contains(ixCaseInsensitive));
  loaded.SetIndexName("ByCity");
  EXPECT_EQ(Ids(loaded), (QList<int>{4, 1, 5, 2, 3}));
  loaded.SetIndexName("");
  loaded.Last();
  EXPECT_EQ(loaded.FieldByName("Name")->AsString(), "Name005");
  EXPECT_EQ(loaded.FieldByName("Amount")->AsFloat(), 7.5);
  loaded.SetRecNo(4);
  EXPECT_TRUE(loaded.FieldByName("City")->IsNull());

  TClientDataSet byName(nullptr);
  byName.SetFileName(path);
  byName.Open();
  EXPECT_EQ(byName.RecordCount(), 5);
  EXPECT_TRUE(byName.CommandText().isEmpty());
}

TEST(ClientFile, ADamagedFileRaisesAndKeepsTheData) {
  QTemporaryDir dir;
  const QString path = dir.filePath("bad.json");
  for (const char* content : {"not json", R"({"format": "other", "version": 1})",
                              R"({"format": "quil-dataset", "version": 1, "fields": []})",
                              R"({"format": "quil-dataset", "version": 1,
                                  "fields": [{"name": "ID", "type": "ftInteger"}], "rows": [["x"]]})"}) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();
    TPeople people(3);
    people.dataSet.SetRecNo(2);
    EXPECT_THROW(people.dataSet.LoadFromFile(path), EDatabaseError) << content;
    EXPECT_TRUE(people.dataSet.Active());
    EXPECT_EQ(people.dataSet.RecordCount(), 3);
    EXPECT_EQ(people.Id(), 2);
  }
  TClientDataSet missing(nullptr);
  EXPECT_THROW(missing.LoadFromFile(dir.filePath("none.json")), EDatabaseError);
  EXPECT_THROW(missing.Open(), EDatabaseError);
  EXPECT_FALSE(missing.Active());
}

// --- Dates in filter texts ---------------------------------------------------------------

class ClientDateFilter : public testing::Test {
protected:
  void SetUp() override {
    dataSet.FieldDefs()->Add("ID", ftInteger);
    dataSet.FieldDefs()->Add("Born", ftDate);
    dataSet.CreateDataSet();
    dataSet.AppendRecord({1, VarFromDateTime(EncodeDate(2020, 2, 1))});
    dataSet.AppendRecord({2, VarFromDateTime(EncodeDate(2021, 6, 15))});
    dataSet.AppendRecord({3, Null()});
  }

  dbtest::TDottedDateLocale locale;
  TClientDataSet dataSet{nullptr};
};

TEST_F(ClientDateFilter, TakesDatesInTheLocaleShortFormat) {
  dataSet.SetFiltered(true);
  for (const TFilterCase& filter :
       {TFilterCase{"Born >= '01.01.2021'", {2}}, TFilterCase{"Born < '15.06.2021' OR Born IS NULL", {1, 3}},
        TFilterCase{"Born IN ('01.02.2020', '15.06.2021')", {1, 2}}, TFilterCase{"Born <> '1.2.2020'", {2}}}) {
    dataSet.SetFilter(filter.text);
    EXPECT_EQ(Ids(dataSet), filter.ids) << filter.text;
  }
}

TEST_F(ClientDateFilter, ADateInAnotherFormatRaisesAndKeepsTheOldFilter) {
  dataSet.SetFilter("Born > '01.01.2021'");
  dataSet.SetFiltered(true);
  for (const char* text : {"Born = '2021-06-15'", "Born = '06/15/2021'", "Born = '31.02.2021'"})
    EXPECT_THROW(dataSet.SetFilter(text), EDatabaseError) << text;
  EXPECT_EQ(dataSet.Filter(), "Born > '01.01.2021'");
  EXPECT_EQ(Ids(dataSet), QList<int>{2});
}

// --- Exceptions while filtering ------------------------------------------------------------

// Installs an application handler for one test and notes what it hears.
class ClientFilterException : public testing::Test {
protected:
  void TearDown() override { ApplicationHandleException() = nullptr; }
  void InstallHandler() {
    ApplicationHandleException() = [this](TObject* sender) {
      senders << sender;
      try {
        throw;
      } catch (const Exception& error) {
        messages << error.Message();
      }
    };
  }
  // Raises on the record with ID 2 and refuses the one with ID 3.
  void FilterByEvent() {
    people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
      const int id = dataSet->FieldByName("ID")->AsInteger();
      if (id == 2) DatabaseError("no record 2");
      accept = id != 3;
    });
  }

  TPeople people{4};
  QList<TObject*> senders;
  QStringList messages;
};

TEST_F(ClientFilterException, GoesToTheApplicationHandlerAndTheWalkGoesOn) {
  InstallHandler();
  FilterByEvent();
  people.dataSet.SetFiltered(true);
  EXPECT_EQ(messages, QStringList{"no record 2"});
  EXPECT_EQ(senders, QList<TObject*>{&people.dataSet});
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  // The record that raised keeps the answer it had when the event began.
  EXPECT_EQ(Ids(people.dataSet), (QList<int>{1, 2, 4}));
  people.dataSet.CheckConsistency();
}

TEST_F(ClientFilterException, WithoutAHandlerReachesTheCallerAndChangesNothing) {
  FilterByEvent();
  EXPECT_THROW(people.dataSet.SetFiltered(true), EDatabaseError);
  EXPECT_FALSE(people.dataSet.Filtered());
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_EQ(people.dataSet.RecordCount(), 4);
  EXPECT_EQ(people.Id(), 1);
}

}  // namespace
