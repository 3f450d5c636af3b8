// Structured fields: ADT members and array elements as child fields, their definitions,
// names, values and lists, in the in-memory data set with and without ObjectView; the
// nested data set and reference fields; time stamps with an offset.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "framework/db/DateTimeFields.h"
#include "framework/db/DbTestKit.h"
#include "framework/db/NumericFields.h"
#include "framework/db/ObjectFields.h"
#include "framework/db/StringFields.h"
#include "framework/rtl/DateTime.h"

using namespace quil;

namespace {

QStringList FullNames(const TFieldList& list) {
  QStringList names;
  for (int index = 0; index < list.Count(); ++index) names << list.Fields(index)->FullName();
  return names;
}

QStringList Names(const TFields& fields) {
  QStringList names;
  for (const TField* field : fields) names << field->FieldName();
  return names;
}

// ID, Address (Street, City) and Scores[0..2], made from definitions.
void DefineCustomers(TClientDataSet& dataSet) {
  dataSet.FieldDefs()->Add("ID", ftInteger);
  TFieldDef* address = dataSet.FieldDefs()->Add("Address", ftADT);
  address->ChildDefs()->Add("Street", ftString, 30);
  address->ChildDefs()->Add("City", ftString, 20);
  TFieldDef* scores = dataSet.FieldDefs()->Add("Scores", ftArray);
  for (int element = 0; element < 3; ++element)
    scores->ChildDefs()->Add(QString("Scores[%1]").arg(element), ftInteger);
}

class TCustomers : public testing::Test {
protected:
  void SetUp() override {
    DefineCustomers(dataSet);
    dataSet.CreateDataSet();
    dataSet.AppendRecord({1, VarArrayOf({"Main Street 1", "Oslo"}), VarArrayOf({3, 1, 2})});
    dataSet.AppendRecord({2, VarArrayOf({"Rue Haute 9", "Brussels"}), Null()});
    dataSet.AppendRecord({3, Null(), VarArrayOf({7, 8, 9})});
    dataSet.First();
  }
  TField* Field(const char* name) { return dataSet.FieldByName(name); }
  TObjectField* Address() { return static_cast<TObjectField*>(Field("Address")); }

  TClientDataSet dataSet{nullptr};
};

TEST_F(TCustomers, DefinitionsNumberDepthFirstWithTheirParentsNames) {
  const std::vector<TFieldDef*> list = dataSet.FieldDefs()->FieldDefList();
  QStringList fullNames;
  for (const TFieldDef* def : list) fullNames << def->FullName();
  EXPECT_EQ(fullNames, (QStringList{"ID", "Address", "Address.Street", "Address.City", "Scores", "Scores[0]",
                                    "Scores[1]", "Scores[2]"}));
  for (size_t index = 0; index < list.size(); ++index) EXPECT_EQ(list[index]->FieldNo(), int(index) + 1);
  EXPECT_EQ(list[3]->ParentDef(), list[1]);
  EXPECT_EQ(list[1]->ParentDef(), nullptr);
  EXPECT_TRUE(list[4]->HasChildDefs());
  EXPECT_FALSE(list[0]->HasChildDefs());
}

TEST_F(TCustomers, ObjectViewShowsTheTopLevelAndTheFieldListEveryField) {
  EXPECT_TRUE(dataSet.ObjectView());
  EXPECT_EQ(Names(*dataSet.Fields()), (QStringList{"ID", "Address", "Scores"}));
  EXPECT_EQ(FullNames(*dataSet.FieldList()), (QStringList{"ID", "Address", "Address.Street", "Address.City",
                                                          "Scores", "Scores[0]", "Scores[1]", "Scores[2]"}));
  EXPECT_EQ(&Address()->ClassType(), &TADTField::StaticClass());
  EXPECT_EQ(&Field("Scores")->ClassType(), &TArrayField::StaticClass());
  EXPECT_EQ(Field("Scores")->Size(), 3);
  EXPECT_EQ(Names(*Address()->Fields()), (QStringList{"Street", "City"}));
  TField* city = Field("Address.City");
  EXPECT_EQ(city->ParentField(), Address());
  EXPECT_EQ(city->FieldName(), "City");
  EXPECT_EQ(city->Index(), 1);
  EXPECT_EQ(city->DataSet(), &dataSet);
  EXPECT_EQ(Field("Scores[2]")->ParentField(), Field("Scores"));
  EXPECT_EQ(dataSet.FindField("City"), nullptr);
}

TEST_F(TCustomers, ChildrenHoldTheValuesAndTheParentTheirArray) {
  EXPECT_EQ(Field("Address.City")->AsString(), "Oslo");
  EXPECT_EQ(Field("Scores[0]")->AsInteger(), 3);
  const Variant address = Address()->AsVariant();
  ASSERT_TRUE(VarIsArray(address));
  EXPECT_EQ(address[address.LowBound() + 1].AsString(), "Oslo");
  EXPECT_EQ(Address()->FieldValues(0).AsString(), "Main Street 1");
  EXPECT_EQ(Address()->DisplayText(), "(Main Street 1, Oslo)");
  EXPECT_EQ(Field("Scores")->AsString(), "(3, 1, 2)");
  dataSet.Next();
  EXPECT_TRUE(Field("Scores")->IsNull());
  EXPECT_TRUE(VarIsNull(Field("Scores")->AsVariant()));
  EXPECT_FALSE(Address()->IsNull());
  dataSet.Next();
  EXPECT_TRUE(Address()->IsNull());
  EXPECT_TRUE(Field("Address.Street")->IsNull());
}

TEST_F(TCustomers, AChildIsEditedAndCancelledLikeAnyField) {
  dataSet.Edit();
  Field("Address.City")->SetAsString("Bergen");
  EXPECT_TRUE(dataSet.Modified());
  dataSet.Cancel();
  EXPECT_EQ(Field("Address.City")->AsString(), "Oslo");
  dataSet.Edit();
  Address()->SetFieldValues(1, "Bergen");
  Field("Scores")->SetAsVariant(VarArrayOf({4, 5, 6}));
  dataSet.Post();
  EXPECT_EQ(Field("Address.City")->AsString(), "Bergen");
  EXPECT_EQ(Field("Scores[2]")->AsInteger(), 6);
  dataSet.Edit();
  EXPECT_THROW(Address()->SetAsVariant(5), EDatabaseError);
  dataSet.Cancel();
}

TEST_F(TCustomers, IndexesAndLocateReachAChildByItsFullName) {
  dataSet.SetIndexFieldNames("Address.City");
  dataSet.First();
  EXPECT_EQ(Field("ID")->AsInteger(), 3);  // no city comes first
  dataSet.Next();
  EXPECT_EQ(Field("Address.City")->AsString(), "Brussels");
  EXPECT_TRUE(dataSet.Locate("Address.City", "oslo", {loCaseInsensitive}));
  EXPECT_EQ(Field("ID")->AsInteger(), 1);
  EXPECT_EQ(dataSet.Lookup("ID", 2, "Address.Street").AsString(), "Rue Haute 9");
}

TEST_F(TCustomers, WithoutObjectViewTheChildrenStandFlatBehindTheirParents) {
  EXPECT_THROW(dataSet.SetObjectView(false), EDatabaseError);
  dataSet.Close();
  dataSet.SetObjectView(false);
  dataSet.Open();
  EXPECT_EQ(Names(*dataSet.Fields()), (QStringList{"ID", "Address", "Street", "City", "Scores", "Scores[0]",
                                                   "Scores[1]", "Scores[2]"}));
  EXPECT_EQ(dataSet.FieldList()->Count(), 8);
  EXPECT_EQ(dataSet.FieldByName("City")->AsString(), "Oslo");
  EXPECT_EQ(dataSet.FieldByName("City")->FullName(), "Address.City");
  EXPECT_EQ(Address()->FieldCount(), 2);
  dataSet.Close();
  dataSet.SetObjectView(true);
  dataSet.Open();
  EXPECT_EQ(dataSet.Fields()->Count(), 3);
}

TEST_F(TCustomers, AFileKeepsTheTreeAndTheValues) {
  QTemporaryDir dir;
  const QString path = dir.filePath("customers.json");
  dataSet.SaveToFile(path);
  TClientDataSet loaded(nullptr);
  loaded.LoadFromFile(path);
  EXPECT_EQ(FullNames(*loaded.FieldList()), FullNames(*dataSet.FieldList()));
  EXPECT_EQ(loaded.FieldDefs()->Items(1)->ChildDefs()->Count(), 2);
  EXPECT_EQ(loaded.FieldByName("Address.City")->AsString(), "Oslo");
  EXPECT_EQ(loaded.FieldByName("Scores[1]")->AsInteger(), 1);
  loaded.Last();
  EXPECT_TRUE(loaded.FieldByName("Address")->IsNull());
}

TEST(ObjectField, PersistentChildrenMakeTheDefinitionsOfTheirParent) {
  TClientDataSet dataSet(nullptr);
  auto* id = new TIntegerField(&dataSet);
  id->SetFieldName("ID");
  id->SetDataSet(&dataSet);
  auto* point = new TADTField(&dataSet);
  point->SetFieldName("Point");
  point->SetDataSet(&dataSet);
  auto* tags = new TArrayField(&dataSet);
  tags->SetFieldName("Tags");
  tags->SetDataSet(&dataSet);
  for (const char* name : {"X", "Y"}) {
    auto* child = new TIntegerField(&dataSet);
    child->SetFieldName(name);
    child->SetParentField(point);
  }
  for (const char* name : {"Tags[0]", "Tags[1]"}) {
    auto* child = new TStringField(&dataSet);
    child->SetFieldName(name);
    child->SetParentField(tags);
  }
  EXPECT_EQ(Names(*dataSet.Fields()), (QStringList{"ID", "Point", "Tags"}));
  dataSet.CreateDataSet();
  EXPECT_EQ(dataSet.FieldDefs()->Count(), 3);
  EXPECT_EQ(dataSet.FieldDefs()->Items(1)->ChildDefs()->Count(), 2);
  EXPECT_EQ(dataSet.FieldDefs()->Items(2)->Size(), 2);
  dataSet.AppendRecord({1, VarArrayOf({4, 5}), VarArrayOf({"a", "b"})});
  EXPECT_EQ(dataSet.FieldByName("Point.Y")->AsInteger(), 5);
  EXPECT_EQ(dataSet.FieldByName("Tags[1]")->AsString(), "b");
  // The persistent fields outlive closing; freeing a parent frees its children.
  dataSet.Close();
  EXPECT_EQ(dataSet.FieldList()->Count(), 7);
  delete point;
  EXPECT_EQ(FullNames(*dataSet.FieldList()), (QStringList{"ID", "Tags", "Tags[0]", "Tags[1]"}));
}

TEST(ObjectField, NamesAreUniqueAmongSiblingsAndAFieldCannotHoldItself) {
  TClientDataSet dataSet(nullptr);
  auto* outer = new TADTField(&dataSet);
  outer->SetFieldName("Outer");
  outer->SetDataSet(&dataSet);
  auto* inner = new TADTField(&dataSet);
  inner->SetFieldName("Inner");
  inner->SetParentField(outer);
  auto* name = new TStringField(&dataSet);
  name->SetFieldName("Outer");  // a child may share a name with a field above it
  name->SetParentField(inner);
  auto* twin = new TStringField(&dataSet);
  twin->SetFieldName("Outer");
  EXPECT_THROW(twin->SetParentField(inner), EDatabaseError);
  EXPECT_EQ(twin->ParentField(), nullptr);
  EXPECT_THROW(outer->SetParentField(inner), EDatabaseError);
  EXPECT_EQ(outer->ParentField(), nullptr);
  EXPECT_EQ(name->FullName(), "Outer.Inner.Outer");
  // Back to the top, where its name is taken already; then under a name of its own.
  EXPECT_THROW(name->SetParentField(nullptr), EDatabaseError);
  EXPECT_EQ(name->ParentField(), inner);
  name->SetFieldName("Title");
  name->SetParentField(nullptr);
  EXPECT_EQ(inner->FieldCount(), 0);
  EXPECT_EQ(name->DataSet(), &dataSet);
  EXPECT_EQ(dataSet.Fields()->Count(), 2);
  delete twin;
}

TEST(ObjectField, NestedDataSetsAndReferencesHaveTheirClassesAndNoValue) {
  TClientDataSet master(nullptr);
  master.FieldDefs()->Add("ID", ftInteger);
  master.FieldDefs()->Add("Lines", ftDataSet);
  master.FieldDefs()->Add("Owner", ftReference);
  master.CreateDataSet();
  auto* lines = dynamic_cast<TDataSetField*>(master.FieldByName("Lines"));
  ASSERT_NE(lines, nullptr);
  EXPECT_EQ(&master.FieldByName("Owner")->ClassType(), &TReferenceField::StaticClass());
  EXPECT_TRUE(lines->IsNull());
  EXPECT_EQ(lines->DisplayText(), "(DATASET)");
  EXPECT_EQ(master.FieldByName("Owner")->DisplayText(), "(REFERENCE)");
  {
    TClientDataSet detail(nullptr);
    detail.FieldDefs()->Add("Item", ftString, 10);
    detail.CreateDataSet();
    lines->SetNestedDataSet(&detail);
    EXPECT_TRUE(lines->IsNull());
    detail.AppendRecord({"bolt"});
    EXPECT_FALSE(lines->IsNull());
    EXPECT_THROW(lines->SetNestedDataSet(&master), EDatabaseError);
  }
  EXPECT_EQ(lines->NestedDataSet(), nullptr);
}

TEST(TimeStampOffsetField, HoldsADateTimeAndFiltersAsOne) {
  dbtest::TDottedDateLocale locale;
  TClientDataSet dataSet(nullptr);
  dataSet.FieldDefs()->Add("At", ftTimeStampOffset);
  dataSet.CreateDataSet();
  TField* at = dataSet.FieldByName("At");
  EXPECT_EQ(&at->ClassType(), &TSQLTimeStampOffsetField::StaticClass());
  dataSet.AppendRecord({Variant::FromDateTime(EncodeDate(2024, 2, 3) + EncodeTime(14, 5, 0, 0))});
  dataSet.AppendRecord({Variant::FromDateTime(EncodeDate(2024, 3, 1))});
  EXPECT_EQ(at->Text(), "01.03.2024");
  dataSet.SetFilter("At < '01.03.2024'");
  dataSet.SetFiltered(true);
  EXPECT_EQ(dataSet.RecordCount(), 1);
  EXPECT_EQ(at->Text(), "03.02.2024 14:05:00");
}

}  // namespace
