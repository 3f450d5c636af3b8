// Fields read and write through their data set: text both ways, events, validation,
// order; and TFieldDataLink, the link of a control that shows one field.

#include <gtest/gtest.h>

#include "framework/db/DbTestKit.h"
#include "framework/db/FieldDataLink.h"
#include "framework/db/Fields.h"
#include "framework/db/NumericFields.h"

using namespace quil;
using dbtest::TPeople;

namespace {

class TTypedTable : public testing::Test {
protected:
  void SetUp() override {
    for (auto [name, type] : {std::pair{"Int", ftInteger}, {"Small", ftSmallint}, {"Big", ftLargeint},
                              {"Real", ftFloat}, {"Flag", ftBoolean}, {"Text", ftString}, {"Wide", ftWideString}})
      dataSet.FieldDefs()->Add(name, type, type == ftString || type == ftWideString ? 5 : 0);
    dataSet.CreateDataSet();
    dataSet.Append();
  }
  TField* Field(const char* name) { return dataSet.FieldByName(name); }

  TClientDataSet dataSet{nullptr};
};

struct TTextCase {
  const char* field;
  const char* text;
  const char* stored;  // the text read back; null: the text is refused
};

void PrintTo(const TTextCase& text, std::ostream* out) { *out << text.field << " <- " << text.text; }

class FieldText : public TTypedTable, public testing::WithParamInterface<TTextCase> {};

TEST_P(FieldText, RoundTripsOrRefusesLeavingTheValue) {
  const TTextCase text = GetParam();
  TField* field = Field(text.field);
  if (!text.stored) {
    EXPECT_THROW(field->SetText(text.text), EDatabaseError);
    EXPECT_TRUE(field->IsNull());
    EXPECT_FALSE(dataSet.Modified());
    return;
  }
  field->SetText(text.text);
  EXPECT_EQ(field->Text(), text.stored);
  EXPECT_FALSE(field->IsNull());
}

INSTANTIATE_TEST_SUITE_P(Texts, FieldText, testing::Values(
    TTextCase{"Int", "42", "42"}, TTextCase{"Int", "-7", "-7"}, TTextCase{"Int", "4x", nullptr},
    TTextCase{"Int", "99999999999", nullptr}, TTextCase{"Small", "40000", nullptr},
    TTextCase{"Small", "-32768", "-32768"}, TTextCase{"Big", "9000000000", "9000000000"},
    TTextCase{"Big", "1e3", nullptr}, TTextCase{"Real", "2.5", "2.5"}, TTextCase{"Real", "abc", nullptr},
    TTextCase{"Flag", "True", "True"}, TTextCase{"Flag", "false", "False"}, TTextCase{"Flag", "maybe", nullptr},
    TTextCase{"Text", "abc", "abc"}, TTextCase{"Text", "abcdefgh", "abcde"}, TTextCase{"Wide", "\u00e4\u00f6\u00fc", "\u00e4\u00f6\u00fc"}));

TEST_F(TTypedTable, EmptyTextClearsAndClearMakesNull) {
  Field("Int")->SetAsInteger(5);
  Field("Int")->SetText("");
  EXPECT_TRUE(Field("Int")->IsNull());
  Field("Text")->SetAsString("x");
  Field("Text")->Clear();
  EXPECT_TRUE(Field("Text")->IsNull());
  EXPECT_TRUE(VarIsNull(Field("Text")->AsVariant()));
}

TEST_F(TTypedTable, IsValidCharFollowsTheType) {
  EXPECT_TRUE(Field("Int")->IsValidChar('7'));
  EXPECT_TRUE(Field("Int")->IsValidChar('-'));
  EXPECT_FALSE(Field("Int")->IsValidChar('a'));
  EXPECT_FALSE(Field("Int")->IsValidChar('.'));
  EXPECT_TRUE(Field("Real")->IsValidChar('e'));
  EXPECT_TRUE(Field("Text")->IsValidChar('a'));
}

TEST_F(TTypedTable, AlignmentAndDisplay) {
  EXPECT_EQ(Field("Int")->Alignment(), taRightJustify);
  EXPECT_EQ(Field("Text")->Alignment(), taLeftJustify);
  Field("Real")->SetAsFloat(1234.5);
  static_cast<TFloatField*>(Field("Real"))->SetDisplayFormat("0.00");
  EXPECT_EQ(Field("Real")->DisplayText(), "1234.50");
  EXPECT_EQ(Field("Real")->Text(), "1234.50");
  static_cast<TFloatField*>(Field("Real"))->SetEditFormat("0");
  EXPECT_EQ(Field("Real")->Text(), "1235");
  Field("Real")->SetDisplayLabel("Amount");
  EXPECT_EQ(Field("Real")->DisplayName(), "Amount");
  EXPECT_EQ(Field("Real")->FieldName(), "Real");
}

TEST_F(TTypedTable, GetTextAndSetTextEventsStandBetween) {
  Field("Text")->OnGetText = [](TField* sender, QString& text, bool displayText) {
    text = (displayText ? "<" : "[") + sender->AsString() + (displayText ? ">" : "]");
  };
  Field("Text")->OnSetText = [](TField* sender, const QString& text) { sender->SetAsString(text.toUpper()); };
  Field("Text")->SetText("ab");
  EXPECT_EQ(Field("Text")->AsString(), "AB");
  EXPECT_EQ(Field("Text")->Text(), "[AB]");
  EXPECT_EQ(Field("Text")->DisplayText(), "<AB>");
}

TEST_F(TTypedTable, ValidateCanRefuseAndChangeFollowsAWrite) {
  int changes = 0;
  Field("Int")->OnChange = [&](TField*) { ++changes; };
  Field("Int")->OnValidate = [](TField* sender) {
    if (sender->AsInteger() < 0) DatabaseError("negative");
  };
  Field("Int")->SetAsInteger(3);
  EXPECT_EQ(changes, 1);
  EXPECT_THROW(Field("Int")->SetAsInteger(-1), EDatabaseError);
  EXPECT_EQ(Field("Int")->AsInteger(), 3);
  EXPECT_EQ(changes, 1);
}

struct TFormatCase {
  const char* format;
  double value;
  const char* text;
};

void PrintTo(const TFormatCase& format, std::ostream* out) { *out << format.format << " " << format.value; }

class NumericDisplayFormat : public TTypedTable, public testing::WithParamInterface<TFormatCase> {};

TEST_P(NumericDisplayFormat, ShapesTheDisplayText) {
  auto* field = static_cast<TNumericField*>(Field(GetParam().value == int(GetParam().value) ? "Int" : "Real"));
  field->SetAsFloat(GetParam().value);
  field->SetDisplayFormat(GetParam().format);
  EXPECT_EQ(field->DisplayText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Formats, NumericDisplayFormat, testing::Values(
    TFormatCase{"0.00", 2.5, "2.50"}, TFormatCase{"#,##0", 1234567, "1,234,567"},
    TFormatCase{"#,##0.##", 1234.5, "1,234.5"}, TFormatCase{"000", 7, "007"}, TFormatCase{"#.##", 0.25, ".25"},
    TFormatCase{"0.0", -1.25, "-1.3"}, TFormatCase{"0;(0)", -3, "(3)"}, TFormatCase{"0;-0;'none'", 0, "none"},
    TFormatCase{"0 'pcs'", 12, "12 pcs"}));

TEST(FieldOrder, IndexReordersTheFields) {
  TPeople people(2);
  TField* city = people.dataSet.FieldByName("City");
  EXPECT_EQ(city->Index(), 2);
  city->SetIndex(0);
  EXPECT_EQ(people.dataSet.Fields()->Fields(0), city);
  EXPECT_EQ(people.dataSet.FieldByName("ID")->Index(), 1);
  EXPECT_EQ(city->DataSet(), &people.dataSet);
  EXPECT_EQ(city->ParentField(), nullptr);
  EXPECT_EQ(city->FieldKind(), fkData);
}

TEST(FieldOrder, ValueOfTheWrongTypeRaises) {
  TPeople people(2);
  people.dataSet.Edit();
  EXPECT_THROW(people.dataSet.FieldByName("ID")->SetAsVariant("abc"), Exception);
  EXPECT_EQ(people.Id(), 1);
  EXPECT_FALSE(people.dataSet.Modified());
}

// --- TFieldDataLink --------------------------------------------------------------------

class FieldDataLink : public testing::Test {
protected:
  void SetUp() override {
    link.OnDataChange = [this](TObject*) { log << "data:" + (link.Field() ? link.Field()->AsString() : "-"); };
    link.OnEditingChange = [this](TObject*) { log << QString("editing:%1").arg(link.Editing()); };
    link.OnUpdateData = [this](TObject*) { link.Field()->SetAsString("typed"); };
    link.SetDataSource(&people.source);
    link.SetFieldName("Name");
    log.clear();
  }

  TPeople people{3};
  TFieldDataLink link;
  QStringList log;
};

TEST_F(FieldDataLink, FollowsTheRecordAndItsField) {
  EXPECT_EQ(link.Field(), people.dataSet.FieldByName("Name"));
  people.dataSet.Next();
  EXPECT_EQ(log, QStringList{"data:Name002"});
  log.clear();
  people.dataSet.Edit();
  people.dataSet.FieldByName("City")->SetAsString("Rome");
  EXPECT_EQ(log, (QStringList{"editing:1", "data:Name002"}));
  log.clear();
  people.dataSet.FieldByName("Name")->SetAsString("Renamed");
  EXPECT_EQ(log, QStringList{"data:Renamed"});
  people.dataSet.Cancel();
}

TEST_F(FieldDataLink, WritesAModifiedControlAtPost) {
  EXPECT_TRUE(link.Edit());
  link.SetModified();
  people.dataSet.Post();
  EXPECT_EQ(people.dataSet.FieldByName("Name")->AsString(), "typed");
  EXPECT_FALSE(link.Modified());
}

TEST_F(FieldDataLink, AnUnmodifiedControlWritesNothing) {
  link.Edit();
  people.dataSet.Post();
  EXPECT_EQ(people.dataSet.FieldByName("Name")->AsString(), "Name001");
}

TEST_F(FieldDataLink, ReadOnlyFieldOrLinkCannotEdit) {
  people.dataSet.FieldByName("Name")->SetReadOnly(true);
  EXPECT_FALSE(link.CanModify());
  EXPECT_FALSE(link.Edit());
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  people.dataSet.FieldByName("Name")->SetReadOnly(false);
  link.SetReadOnly(true);
  EXPECT_FALSE(link.Edit());
}

TEST_F(FieldDataLink, AMissingRequiredFieldFocusesTheFirstControlThatTakesIt) {
  QStringList focused;
  const auto control = [&focused](const char* name, bool takes) {
    return TEvent<bool(TFieldDataLink*)>([&focused, name, takes](TFieldDataLink*) {
      focused << name;
      return takes;
    });
  };
  TFieldDataLink cityLink, taking, second;
  for (TFieldDataLink* other : {&cityLink, &taking, &second}) other->SetDataSource(&people.source);
  cityLink.SetFieldName("City");
  taking.SetFieldName("Name");
  second.SetFieldName("Name");
  cityLink.OnFocusControl = control("city", true);
  link.OnFocusControl = control("refusing", false);
  taking.OnFocusControl = control("taking", true);
  second.OnFocusControl = control("second", true);
  people.dataSet.FieldByName("Name")->SetRequired(true);
  people.dataSet.Edit();
  people.dataSet.FieldByName("Name")->Clear();
  EXPECT_THROW(people.dataSet.Post(), EDatabaseError);
  // Links hear the request in the order they joined the source; the one that took the
  // focus cleared the field, so the link after it was not asked.
  EXPECT_EQ(focused, (QStringList{"refusing", "taking"}));
  EXPECT_EQ(people.dataSet.State(), dsEdit);
  people.dataSet.Cancel();
}

TEST_F(FieldDataLink, AMissingFieldNameRaises) {
  EXPECT_THROW(link.SetFieldName("Nope"), EDatabaseError);
}

}  // namespace
