// A column's lookup: its kind from the key and result fields, read from a lookup field
// or kept on the column, the checks of its setters, and the result field's look.
#include "ColumnTestKit.h"
#include "framework/db/StringFields.h"
#include "framework/graphics/Canvas.h"

using namespace quil;

namespace {

class QuilColumnLookup : public gridtest::ColumnFixture {
protected:
  // The people table, and a table of cities by Code with their Country and Population.
  void OpenWithCities() {
    Open(5);
    cities = new dbtest::TWindowCheckedDataSet(form);
    cities->FieldDefs()->Add("Code", ftString, 20);
    cities->FieldDefs()->Add("Country", ftString, 20);
    cities->FieldDefs()->Add("Population", ftInteger);
    cities->CreateDataSet();
    cities->AppendRecord({"Berlin", "Germany", 3800000});
    cities->AppendRecord({"Oslo", "Norway", 700000});
  }
  // The same with fields of the people table's own, and a lookup field Country that
  // finds the country of the person's city.
  void OpenWithCountryField() {
    OpenWithCities();
    dataSet->Close();
    dbtest::AddDataFields(*dataSet, {{"ID", ftInteger}, {"Name", ftString}, {"City", ftString}, {"Amount", ftFloat}});
    dbtest::AddLookupField(*dataSet, "Country", "City", cities, "Code", "Country");
    dataSet->Open();
    grid->Columns()->SetState(csCustomized);
  }
  dbtest::TWindowCheckedDataSet* cities = nullptr;
};

TEST_F(QuilColumnLookup, LookupKindFollowsKeyAndResultFields) {
  OpenWithCities();
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* city = ColumnOf("City");
  EXPECT_EQ(city->GetLookupColumn(), lcNotDefined);
  EXPECT_FALSE(city->GetLookupActive());
  city->SetLookupDataSet(cities);
  city->SetLookupKeyField("Code");
  EXPECT_EQ(city->GetLookupColumn(), lcLookupKeyField) << "the key field is the column's own";
  EXPECT_TRUE(city->GetLookupActive());
  EXPECT_EQ(city->LookupResultField(), QStringLiteral("Code"));
  city->SetLookupResultField("Country");
  EXPECT_EQ(city->GetLookupColumn(), lcLookupValueField);
  EXPECT_EQ(city->GetDisplayName(), QStringLiteral("Country[City]"));
  EXPECT_EQ(city->LookupListFields(), QStringLiteral("Country"));
  city->SetKeyField("Name");
  EXPECT_EQ(city->KeyField(), QStringLiteral("Name"));
  EXPECT_EQ(city->LookupKeyField(), QStringLiteral("Code"));
  EXPECT_EQ(city->LookupResultField(), QStringLiteral("Country"));
  EXPECT_EQ(city->LookupDataSet(), cities);
  EXPECT_EQ(city->GetLookupColumn(), lcLookupResultField);
  city->SetKeyField("City");
  EXPECT_EQ(city->KeyField(), QStringLiteral("City"));
  EXPECT_FALSE(city->IsKeyFieldStored()) << "a key equal to the column's field is not kept";
  EXPECT_THROW(city->SetLookupDataSet(dataSet), EDatabaseError);
  city->SetLookupDataSet(nullptr);
  EXPECT_EQ(city->GetLookupColumn(), lcNotDefined);
}

TEST_F(QuilColumnLookup, ALookupFieldsColumnReadsItsLookupFromTheField) {
  OpenWithCountryField();
  TQuilColumn* country = ColumnOf("Country");
  EXPECT_EQ(country->GetLookupColumn(), lcLookupField);
  EXPECT_EQ(country->LookupDataSet(), cities);
  EXPECT_EQ(country->KeyField(), QStringLiteral("City"));
  EXPECT_EQ(country->LookupKeyField(), QStringLiteral("Code"));
  EXPECT_EQ(country->LookupResultField(), QStringLiteral("Country"));
  EXPECT_EQ(dataSet->FieldByName("Country")->AsString(), QStringLiteral("Germany"));
}

// The field holds the lookup, so the column keeps nothing that would only repeat it.
TEST_F(QuilColumnLookup, ALookupFieldsColumnKeepsNoLookupOfItsOwn) {
  OpenWithCountryField();
  TQuilColumn* country = ColumnOf("Country");
  country->SetKeyField("City");
  EXPECT_FALSE(country->IsKeyFieldStored()) << "the key the field gives anyway";
  country->SetKeyField("Name");
  EXPECT_TRUE(country->IsKeyFieldStored());
  country->SetLookupDataSet(cities);
  EXPECT_FALSE(country->IsLookupDataSetStored());
  country->SetFieldName("City");
  EXPECT_EQ(country->LookupDataSet(), nullptr) << "nothing was kept for a field of another kind";
}

TEST_F(QuilColumnLookup, ALoadingGridTakesItsOwnDataSetForALookup) {
  OpenWithCities();
  grid->Columns()->SetState(csCustomized);
  TQuilColumn* city = ColumnOf("City");
  grid->Loading();
  EXPECT_NO_THROW(city->SetLookupDataSet(dataSet)) << "the grid's data set may come later";
  city->SetLookupDataSet(nullptr);
  static_cast<TComponent*>(grid)->Loaded();
  EXPECT_THROW(city->SetLookupDataSet(dataSet), EDatabaseError);
}

TEST_F(QuilColumnLookup, AValueColumnLooksLikeItsResultField) {
  OpenWithCities();
  grid->SwitchOptions({dgTitles}, false);
  grid->Columns()->SetState(csCustomized);
  cities->FieldByName("Population")->SetDisplayWidth(3);
  TQuilColumn* city = ColumnOf("City");
  EXPECT_EQ(city->DefaultAlignment(), taLeftJustify);
  city->SetLookupDataSet(cities);
  city->SetLookupKeyField("Code");
  city->SetLookupResultField("Population");
  ASSERT_EQ(city->GetLookupColumn(), lcLookupValueField);
  EXPECT_EQ(city->DefaultAlignment(), taRightJustify);
  TCanvas* canvas = grid->Canvas();
  canvas->SetFont(city->Font());
  EXPECT_EQ(city->DefaultWidth(), 3 * canvas->TextWidth("0") + 4);
  cities->FieldByName("Population")->SetDisplayLabel("Inhabitants");
  EXPECT_EQ(city->Title()->Caption(), QStringLiteral("Inhabitants"));
  city->SetLookupResultField("Code");
  EXPECT_EQ(city->Title()->Caption(), QStringLiteral("City")) << "a key column is titled by its own field";
}

}  // namespace
