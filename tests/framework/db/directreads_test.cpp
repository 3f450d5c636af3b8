// Fields of fixed-size values read a browsed record straight from the in-memory data
// set's columns. Whatever the data set goes through, each read must answer what the
// data set answers when asked (GetFieldData): twin data sets, one reading directly and
// one always asking, take the same steps and are compared after each.

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>

#include "framework/db/DataSource.h"
#include "framework/db/DbTestKit.h"
#include "framework/db/FieldDefs.h"
#include "framework/db/Fields.h"
#include "framework/rtl/DateTime.h"

using namespace quil;
using dbtest::TWindowCheckedDataSet;

namespace {

// A value of every store size (1, 4 and 8 bytes) and two texts for contrast; "Maybe"
// and "Big" are null in every third row.
void FillKinds(TClientDataSet& dataSet, int rows) {
  dataSet.FieldDefs()->Add("ID", ftInteger);
  dataSet.FieldDefs()->Add("Name", ftString, 20);
  dataSet.FieldDefs()->Add("Maybe", ftBoolean);
  dataSet.FieldDefs()->Add("Small", ftSmallint);
  dataSet.FieldDefs()->Add("Big", ftLargeint);
  dataSet.FieldDefs()->Add("Price", ftBCD);
  dataSet.FieldDefs()->Add("Amount", ftFloat);
  dataSet.FieldDefs()->Add("Day", ftDate);
  dataSet.CreateDataSet();
  for (int id = 1; id <= rows; ++id) {
    const bool gap = id % 3 == 0;
    dataSet.AppendRecord({id, QString("N%1").arg(id), gap ? Null() : Variant(id % 2 == 0), id * 10,
                          gap ? Null() : Variant(static_cast<long long>(id) << 40), Variant(Currency::FromDouble(id * 1.25)),
                          id * 0.5, VarFromDateTime(EncodeDate(2026, 1, id))});
  }
  dataSet.First();
}

// Every field of a record as the data set shows it, with its null-ness.
QStringList Shown(TDataSet& dataSet) {
  QStringList shown;
  for (int index = 0; index < dataSet.Fields()->Count(); ++index) {
    const TField* field = dataSet.Fields()->Fields(index);
    shown << (field->IsNull() ? QString("null") : field->AsString());
  }
  return shown;
}

class DirectReads : public testing::Test {
protected:
  DirectReads() {
    direct.SetDirectFieldReads(true);
    for (Twin* twin : {&direct, &asking}) {
      twin->source.SetDataSet(twin);
      twin->link.SetDataSource(&twin->source);
      twin->link.SetBufferCount(4);
      FillKinds(*twin, 9);
    }
  }

  struct Twin : TWindowCheckedDataSet {
    Twin() : TWindowCheckedDataSet(nullptr) {}
    TDataSource source{nullptr};
    dbtest::TRecordingLink link;
  };

  void Both(const std::function<void(Twin&)>& step) {
    step(direct);
    step(asking);
  }

  // The active record, then each row of the link's window as a grid paints them.
  void ExpectAlike() {
    ASSERT_EQ(direct.State(), asking.State());
    EXPECT_EQ(Shown(direct), Shown(asking)) << "active record";
    ASSERT_EQ(direct.link.RecordCount(), asking.link.RecordCount());
    for (int row = 0; row < direct.link.RecordCount(); ++row) {
      const int directActive = direct.link.ActiveRecord();
      const int askingActive = asking.link.ActiveRecord();
      direct.link.SetActiveRecord(row);
      asking.link.SetActiveRecord(row);
      EXPECT_EQ(Shown(direct), Shown(asking)) << "window row " << row;
      direct.link.SetActiveRecord(directActive);
      asking.link.SetActiveRecord(askingActive);
    }
  }

  Twin direct;
  Twin asking;
};

TEST_F(DirectReads, AnswerAsTheDataSetThroughEditsInsertsAndDeletes) {
  ExpectAlike();
  Both([](Twin& set) { set.MoveBy(4); });
  ExpectAlike();

  Both([](Twin& set) {
    set.Edit();
    set.FieldByName("Amount")->SetAsFloat(99);
    set.FieldByName("Big")->Clear();
  });
  ExpectAlike();
  Both([](Twin& set) { set.Cancel(); });
  ExpectAlike();

  Both([](Twin& set) {
    set.Edit();
    set.FieldByName("Amount")->Clear();
    set.FieldByName("Maybe")->SetAsBoolean(true);
    set.Post();
  });
  ExpectAlike();

  Both([](Twin& set) {
    set.Insert();
    set.FieldByName("ID")->SetAsInteger(50);
  });
  ExpectAlike();
  Both([](Twin& set) { set.Post(); });
  ExpectAlike();

  Both([](Twin& set) { set.Append(); });
  ExpectAlike();
  Both([](Twin& set) { set.Cancel(); });
  ExpectAlike();

  Both([](Twin& set) { set.Delete(); });
  ExpectAlike();
  Both([](Twin& set) { set.Last(); set.Delete(); });
  ExpectAlike();
}

TEST_F(DirectReads, AnswerAsTheDataSetThroughOrdersFiltersAndReopening) {
  Both([](Twin& set) { set.SetIndexFieldNames("Maybe;Amount"); });
  ExpectAlike();
  Both([](Twin& set) { set.MoveBy(5); });
  ExpectAlike();

  QList<double> seenByFilter[2];
  Both([&](Twin& set) {
    QList<double>* seen = &seenByFilter[&set == &asking];
    set.SetOnFilterRecord([seen](TDataSet* dataSet, bool& accept) {
      *seen << dataSet->FieldByName("Amount")->AsFloat();
      accept = !dataSet->FieldByName("Big")->IsNull();
    });
    set.SetFiltered(true);
  });
  EXPECT_EQ(seenByFilter[0], seenByFilter[1]);
  EXPECT_EQ(seenByFilter[0].size(), 9);
  ExpectAlike();

  Both([](Twin& set) { set.SetFilter("ID > 100"); });
  ASSERT_TRUE(direct.IsEmpty());
  ExpectAlike();
  EXPECT_TRUE(direct.FieldByName("ID")->IsNull());

  Both([](Twin& set) {
    set.SetFiltered(false);
    set.Close();
    set.Open();
    set.MoveBy(2);
  });
  ExpectAlike();

  Both([](Twin& set) {
    const TBookmark mark = set.GetBookmark();
    set.Last();
    set.GotoBookmark(mark);
  });
  ExpectAlike();

  // Loading replaces the columns the fields read from.
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  const QString file = folder.filePath("kinds.json");
  direct.SaveToFile(file);
  Both([&](Twin& set) {
    set.LoadFromFile(file);
    set.MoveBy(6);
  });
  ExpectAlike();
}

TEST_F(DirectReads, AnEmptiedDataSetShowsNoValues) {
  Both([](Twin& set) { set.EmptyDataSet(); });
  ExpectAlike();
  EXPECT_TRUE(direct.FieldByName("Amount")->IsNull());
  EXPECT_EQ(direct.FieldByName("ID")->AsInteger(), 0);
}

TEST_F(DirectReads, OnlyReadsThatNeedTheDataSetReachIt) {
  const int before = direct.reads;
  direct.FieldByName("ID")->AsInteger();
  direct.FieldByName("Price")->AsCurrency();
  EXPECT_EQ(direct.reads, before) << "fixed-size values of a browsed row come from the columns";
  direct.FieldByName("Name")->AsString();
  EXPECT_EQ(direct.reads, before + 1) << "texts are asked for";

  // A descendant that overrides GetFieldData turns direct reads off, open or not.
  direct.SetDirectFieldReads(false);
  direct.FieldByName("ID")->AsInteger();
  EXPECT_EQ(direct.reads, before + 2);
  direct.SetDirectFieldReads(true);
  direct.FieldByName("ID")->AsInteger();
  EXPECT_EQ(direct.reads, before + 2);

  // Out of browse state every read asks: an edited value is not in the columns yet.
  direct.Edit();
  direct.FieldByName("ID")->SetAsInteger(77);
  EXPECT_EQ(direct.FieldByName("ID")->AsInteger(), 77);
  EXPECT_GT(direct.reads, before + 2);
}

TEST_F(DirectReads, AFieldBeingValidatedReadsTheValueOnTrialEvenWhileBrowsing) {
  TField* amount = direct.FieldByName("Amount");
  const double stored = amount->AsFloat();
  double seen = -1;
  amount->OnValidate = [&](TField* field) { seen = field->AsFloat(); };
  const double trial = 12.5;
  amount->Validate(&trial);
  EXPECT_EQ(seen, trial);
  EXPECT_EQ(amount->AsFloat(), stored);
}

}  // namespace
