// The field kinds beyond numbers and strings: dates and times under a known locale,
// blobs and memos, GUIDs and exact decimals, as text both ways and as Null; their
// display widths and the display properties that reach a data link.

#include <gtest/gtest.h>

#include "framework/db/BinaryFields.h"
#include "framework/db/DbTestKit.h"
#include "framework/db/DateTimeFields.h"
#include "framework/db/NumericFields.h"
#include "framework/db/VariantField.h"
#include "framework/rtl/DateTime.h"

using namespace quil;

namespace {

class TKindsTable : public testing::Test {
protected:
  void SetUp() override {
    for (auto [name, type, size] :
         {std::tuple{"Day", ftDate, 0}, {"Clock", ftTime, 0}, {"Stamp", ftDateTime, 0}, {"Data", ftBlob, 0},
          {"Note", ftMemo, 0}, {"Key", ftGuid, 38}, {"Price", ftBCD, 4}, {"Name", ftString, 10}})
      dataSet.FieldDefs()->Add(name, type, size);
    dataSet.CreateDataSet();
    dataSet.Append();
  }
  TField* Field(const char* name) { return dataSet.FieldByName(name); }

  dbtest::TDottedDateLocale locale;
  TClientDataSet dataSet{nullptr};
};

struct TKindText {
  const char* field;
  const char* text;
  const char* stored;  // the text read back; null: the text is refused
};

void PrintTo(const TKindText& text, std::ostream* out) { *out << text.field << " <- " << text.text; }

class KindText : public TKindsTable, public testing::WithParamInterface<TKindText> {};

TEST_P(KindText, RoundTripsOrRefusesLeavingNull) {
  const TKindText text = GetParam();
  TField* field = Field(text.field);
  if (!text.stored) {
    EXPECT_THROW(field->SetText(text.text), Exception);
    EXPECT_TRUE(field->IsNull());
    EXPECT_FALSE(dataSet.Modified());
    return;
  }
  field->SetText(text.text);
  EXPECT_FALSE(field->IsNull());
  EXPECT_EQ(field->Text(), text.stored);
  // What was stored survives the trip through the row.
  dataSet.Post();
  EXPECT_EQ(field->Text(), text.stored);
}

INSTANTIATE_TEST_SUITE_P(Texts, KindText, testing::Values(
    TKindText{"Day", "03.02.2024", "03.02.2024"}, TKindText{"Day", "3.2.2024", "03.02.2024"},
    TKindText{"Day", "31.02.2024", nullptr}, TKindText{"Day", "someday", nullptr},
    TKindText{"Clock", "14:05:30", "14:05:30"}, TKindText{"Clock", "25:00:00", nullptr},
    TKindText{"Stamp", "03.02.2024 14:05:30", "03.02.2024 14:05:30"},
    TKindText{"Stamp", "03.02.2024", "03.02.2024"}, TKindText{"Stamp", "2024-02-03", nullptr},
    TKindText{"Note", "line one\nline two", "line one\nline two"}, TKindText{"Data", "bytes", "bytes"},
    TKindText{"Key", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}"},
    TKindText{"Key", "{6f9619ff-8b86-d011-b42d-00c04fc964ff}", "{6f9619ff-8b86-d011-b42d-00c04fc964ff}"},
    TKindText{"Key", "6F9619FF-8B86-D011-B42D-00C04FC964FF", nullptr},
    TKindText{"Key", "{6F9619FF-8B86-D011-B42D-00C04FC964F}", nullptr},
    TKindText{"Key", "{6F9619FF-8B86-D011-B42D-00C04FC964FG}", nullptr},
    TKindText{"Key", "{6F9619FF-8B86-D011-B42D+00C04FC964FF}", nullptr},
    TKindText{"Key", "{6F9619FF-8B86-D011-B42D-00C04FC964FF} ", nullptr},
    TKindText{"Price", "12.3456", "12.3456"}, TKindText{"Price", "-0.5", "-0.5000"},
    TKindText{"Price", "twelve", nullptr}));

TEST_F(TKindsTable, EmptyTextMakesDatesAndDecimalsNull) {
  for (auto [name, text] : {std::pair{"Day", "03.02.2024"}, {"Clock", "14:05:30"}, {"Stamp", "03.02.2024"},
                            {"Price", "1"}}) {
    TField* field = Field(name);
    field->SetText(text);
    ASSERT_FALSE(field->IsNull()) << name;
    field->SetText("");
    EXPECT_TRUE(field->IsNull()) << name;
    EXPECT_TRUE(VarIsNull(field->AsVariant())) << name;
    EXPECT_EQ(field->DisplayText(), "") << name;
  }
}

TEST_F(TKindsTable, EmptyTextMakesBlobsMemosAndGuidsNullButAStringKeepsIt) {
  for (auto [name, text] : {std::pair{"Data", "bytes"}, {"Note", "line"},
                            {"Key", "{6F9619FF-8B86-D011-B42D-00C04FC964FF}"}}) {
    TField* field = Field(name);
    field->SetText(text);
    ASSERT_FALSE(field->IsNull()) << name;
    field->SetText("");
    EXPECT_TRUE(field->IsNull()) << name;
    EXPECT_TRUE(VarIsNull(field->AsVariant())) << name;
    field->SetText(text);
    field->SetAsVariant(QString());
    EXPECT_TRUE(field->IsNull()) << name << " as a variant";
  }
  auto* data = static_cast<TBlobField*>(Field("Data"));
  data->SetAsBytes("x");
  data->SetAsBytes(QByteArray());
  EXPECT_TRUE(data->IsNull());
  Field("Name")->SetText("");
  EXPECT_FALSE(Field("Name")->IsNull());
  EXPECT_EQ(Field("Name")->AsString(), "");
  dataSet.Post();
  EXPECT_TRUE(Field("Data")->IsNull());
  EXPECT_TRUE(Field("Key")->IsNull());
  EXPECT_FALSE(Field("Name")->IsNull());
}

TEST_F(TKindsTable, ARefusedGuidNamesTheTextAndKeepsTheOldValue) {
  const QString good = QStringLiteral("{6F9619FF-8B86-D011-B42D-00C04FC964FF}");
  Field("Key")->SetText(good);
  try {
    Field("Key")->SetText("{not-a-guid}");
    FAIL() << "a malformed GUID was taken";
  } catch (const EConvertError& error) {
    EXPECT_EQ(error.Message(), "'{not-a-guid}' is not a valid GUID value");
  }
  EXPECT_EQ(Field("Key")->AsString(), good);
}

TEST_F(TKindsTable, DatesKeepOnlyTheirPartOfTheValue) {
  const TDateTime moment = EncodeDate(2024, 2, 3) + EncodeTime(14, 5, 30, 0);
  for (const char* name : {"Day", "Clock", "Stamp"}) Field(name)->SetAsDateTime(moment);
  EXPECT_EQ(Field("Day")->AsDateTime(), EncodeDate(2024, 2, 3));
  // The time of day is what is left of the moment, exact to far below a millisecond.
  EXPECT_NEAR(Field("Clock")->AsDateTime(), EncodeTime(14, 5, 30, 0), 1e-9);
  EXPECT_DOUBLE_EQ(Field("Stamp")->AsDateTime(), moment);
}

struct TDateFormatCase {
  const char* field;
  const char* format;
  const char* text;
};

void PrintTo(const TDateFormatCase& format, std::ostream* out) { *out << format.field << " " << format.format; }

class DateDisplayFormat : public TKindsTable, public testing::WithParamInterface<TDateFormatCase> {};

TEST_P(DateDisplayFormat, ShapesTheDisplayTextButNotTheEditText) {
  auto* field = static_cast<TDateTimeField*>(Field(GetParam().field));
  field->SetAsDateTime(EncodeDate(2024, 2, 3) + EncodeTime(14, 5, 30, 0));
  const QString editText = field->Text();
  field->SetDisplayFormat(GetParam().format);
  EXPECT_EQ(field->DisplayText(), GetParam().text);
  EXPECT_EQ(field->Text(), editText);
}

INSTANTIATE_TEST_SUITE_P(Formats, DateDisplayFormat, testing::Values(
    TDateFormatCase{"Day", "yyyy-mm-dd", "2024-02-03"}, TDateFormatCase{"Day", "d mmm yy", "3 Feb 24"},
    TDateFormatCase{"Day", "dddd", "Saturday"}, TDateFormatCase{"Clock", "hh:nn", "14:05"},
    TDateFormatCase{"Clock", "h:nn ampm", "2:05 PM"}, TDateFormatCase{"Stamp", "dd.mm. hh:nn", "03.02. 14:05"},
    TDateFormatCase{"Stamp", "", "03.02.2024 14:05:30"}));

TEST_F(TKindsTable, BlobsShowTheirKindAndKeepTheirBytes) {
  EXPECT_EQ(Field("Data")->DisplayText(), "(blob)");
  EXPECT_EQ(Field("Note")->DisplayText(), "(memo)");
  Field("Data")->SetAsString(QString::fromLatin1("\x01\x02\xff"));
  Field("Note")->SetAsString("text");
  EXPECT_EQ(Field("Data")->DisplayText(), "(BLOB)");
  EXPECT_EQ(Field("Note")->DisplayText(), "(MEMO)");
  EXPECT_EQ(Field("Data")->AsString().toLatin1(), QByteArray("\x01\x02\xff"));
  EXPECT_EQ(Field("Note")->AsString(), "text");
}

TEST(VariantField, HoldsEachValueAsGivenAndConvertsOnReading) {
  TClientDataSet dataSet(nullptr);
  dataSet.FieldDefs()->Add("ID", ftInteger);
  dataSet.FieldDefs()->Add("Any", ftVariant);
  dataSet.CreateDataSet();
  TField* any = dataSet.FieldByName("Any");
  EXPECT_EQ(&any->ClassType(), &TVariantField::StaticClass());
  dataSet.AppendRecord({1, 42});
  dataSet.AppendRecord({2, "text"});
  dataSet.AppendRecord({3, Null()});
  dataSet.First();
  EXPECT_EQ(any->AsInteger(), 42);
  EXPECT_EQ(any->AsString(), "42");
  EXPECT_DOUBLE_EQ(any->AsFloat(), 42.0);
  dataSet.Next();
  EXPECT_EQ(any->AsString(), "text");
  EXPECT_EQ(any->AsVariant().AsString(), "text");
  EXPECT_ANY_THROW(any->AsInteger());
  dataSet.Next();
  EXPECT_TRUE(any->IsNull());
  dataSet.Edit();
  any->SetAsBoolean(true);
  dataSet.Post();
  EXPECT_TRUE(any->AsBoolean());
  EXPECT_FALSE(any->IsNull());
}

TEST_F(TKindsTable, ExactDecimalsKeepFourPlaces) {
  auto* price = static_cast<TBCDField*>(Field("Price"));
  price->SetAsFloat(0.1 + 0.2);
  EXPECT_EQ(price->AsCurrency(), Currency::FromScaled(3000));
  price->SetAsCurrency(Currency::FromScaled(12345678));
  EXPECT_EQ(price->AsInteger(), 1235);
  price->SetDisplayFormat("#,##0.00");
  EXPECT_EQ(price->DisplayText(), "1,234.57");
}

TEST_F(TKindsTable, DisplayWidthFollowsTheKindUntilSet) {
  EXPECT_EQ(Field("Day")->DisplayWidth(), 10);
  EXPECT_EQ(Field("Clock")->DisplayWidth(), 10);
  EXPECT_EQ(Field("Stamp")->DisplayWidth(), 18);
  EXPECT_EQ(Field("Key")->DisplayWidth(), 38);
  Field("Key")->SetDisplayWidth(12);
  EXPECT_EQ(Field("Key")->DisplayWidth(), 12);
  EXPECT_TRUE(Field("Key")->IsDisplayWidthStored());
  EXPECT_FALSE(Field("Day")->IsDisplayWidthStored());
}

TEST_F(TKindsTable, DisplayPropertiesReachTheLinkAsLayoutOrData) {
  dataSet.Cancel();
  TDataSource source(nullptr);
  source.SetDataSet(&dataSet);
  dbtest::TRecordingLink link;
  link.SetDataSource(&source);
  link.Clear();
  Field("Day")->SetDisplayWidth(14);
  Field("Day")->SetDisplayLabel("Date");
  Field("Day")->SetEditMask("!99/99/0000;1;_");
  Field("Day")->SetEditMask("!99/99/0000;1;_");
  EXPECT_EQ(link.log, QStringList({"layout", "layout", "changed"}));
  EXPECT_EQ(Field("Day")->EditMask(), "!99/99/0000;1;_");
}

}  // namespace
