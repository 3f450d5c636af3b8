// TDataSet's record window, navigation, edit cycle and notifications, driven through
// the in-memory data set.

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "framework/db/DbTestKit.h"
#include "framework/db/Fields.h"
#include "framework/db/NumericFields.h"
#include "framework/db/StringFields.h"

using namespace quil;
using dbtest::TPeople;

namespace {

QStringList Words(std::initializer_list<const char*> words) {
  QStringList list;
  for (const char* word : words) list << word;
  return list;
}

TEST(DataSetNavigation, EmptyDataSetIsBofEofAndEmpty) {
  TPeople people(0, 4);
  TDataSet& dataSet = people.dataSet;
  EXPECT_TRUE(dataSet.IsEmpty());
  EXPECT_TRUE(dataSet.Bof());
  EXPECT_TRUE(dataSet.Eof());
  EXPECT_EQ(dataSet.RecNo(), -1);
  EXPECT_EQ(dataSet.RecordCount(), 0);
  EXPECT_EQ(dataSet.MoveBy(3), 0);
  EXPECT_EQ(dataSet.MoveBy(-3), 0);
  dataSet.Last();
  EXPECT_TRUE(dataSet.Bof() && dataSet.Eof());
  EXPECT_TRUE(dataSet.FieldByName("ID")->IsNull());
  EXPECT_TRUE(dataSet.GetBookmark().empty());
  EXPECT_THROW(dataSet.Delete(), EDatabaseError);
  dataSet.CheckConsistency();
}

TEST(DataSetNavigation, FirstAndLastSetBofAndEof) {
  TPeople people(10, 4);
  TDataSet& dataSet = people.dataSet;
  dataSet.Last();
  EXPECT_TRUE(dataSet.Eof());
  EXPECT_FALSE(dataSet.Bof());
  EXPECT_EQ(people.Id(), 10);
  EXPECT_EQ(dataSet.RecNo(), 10);
  EXPECT_EQ(dataSet.MoveBy(1), 0);
  EXPECT_EQ(people.Id(), 10);
  dataSet.First();
  EXPECT_TRUE(dataSet.Bof());
  EXPECT_FALSE(dataSet.Eof());
  EXPECT_EQ(people.Id(), 1);
  dataSet.Next();
  EXPECT_FALSE(dataSet.Bof());
  dataSet.Prior();
  dataSet.Prior();
  EXPECT_TRUE(dataSet.Bof());
  EXPECT_EQ(people.Id(), 1);
}

struct TMoveCase {
  int start;  // RecNo before
  int distance;
  int moved;
  int recNo;  // after
  bool bof, eof;
};

void PrintTo(const TMoveCase& move, std::ostream* out) {
  *out << "from " << move.start << " by " << move.distance;
}

class DataSetMoveBy : public testing::TestWithParam<TMoveCase> {};

TEST_P(DataSetMoveBy, CrossesTheWindowEdges) {
  const TMoveCase move = GetParam();
  TPeople people(20, 4);
  people.dataSet.SetRecNo(move.start);
  ASSERT_EQ(people.dataSet.RecNo(), move.start);
  EXPECT_EQ(people.dataSet.MoveBy(move.distance), move.moved);
  EXPECT_EQ(people.dataSet.RecNo(), move.recNo);
  EXPECT_EQ(people.Id(), move.recNo);
  EXPECT_EQ(people.dataSet.Bof(), move.bof);
  EXPECT_EQ(people.dataSet.Eof(), move.eof);
  EXPECT_EQ(people.dataSet.BufferedCount(), 4);
  people.dataSet.CheckConsistency();
}

INSTANTIATE_TEST_SUITE_P(Moves, DataSetMoveBy, testing::Values(
    TMoveCase{1, 3, 3, 4, false, false}, TMoveCase{1, 4, 4, 5, false, false},
    TMoveCase{1, 9, 9, 10, false, false}, TMoveCase{10, -9, -9, 1, false, false},
    TMoveCase{10, -10, -9, 1, true, false}, TMoveCase{10, 10, 10, 20, false, false},
    TMoveCase{10, 11, 10, 20, false, true}, TMoveCase{20, -19, -19, 1, false, false},
    TMoveCase{5, 100, 15, 20, false, true}, TMoveCase{15, -100, -14, 1, true, false},
    TMoveCase{3, 0, 0, 3, false, false}));

TEST(DataSetNavigation, WalkReadsEveryRecordInsideTheWindow) {
  TPeople people(30, 5);
  int sum = 0;
  int count = 0;
  for (people.dataSet.First(); !people.dataSet.Eof(); people.dataSet.Next()) {
    sum += people.Id();
    ++count;
  }
  EXPECT_EQ(count, 30);
  EXPECT_EQ(sum, 30 * 31 / 2);
  int backwards = 0;
  for (people.dataSet.Last(); !people.dataSet.Bof(); people.dataSet.Prior()) backwards += people.Id();
  EXPECT_EQ(backwards, sum);
}

class DataSetWalk : public testing::TestWithParam<int> {};

// With controls disabled a step forward skips the browse-mode check and turns the ring
// of buffers at the window's end: the smallest window turns it on every record.
TEST_P(DataSetWalk, WithControlsDisabledReadsEveryRecordOnceInOrder) {
  const int bufferCount = GetParam();
  TPeople people(23, bufferCount);
  TDataSet& dataSet = people.dataSet;
  std::vector<int> ids;
  dataSet.DisableControls();
  for (dataSet.First(); !dataSet.Eof(); dataSet.Next()) {
    ids.push_back(people.Id());
    dataSet.CheckConsistency();
  }
  dataSet.EnableControls();
  std::vector<int> expected(23);
  std::iota(expected.begin(), expected.end(), 1);
  EXPECT_EQ(ids, expected);
  EXPECT_EQ(people.Id(), 23);
  EXPECT_EQ(people.dataSet.BufferedCount(), bufferCount);
  dataSet.Prior();
  EXPECT_EQ(people.Id(), 22);
  dataSet.CheckConsistency();
}

// The way a step takes is picked after BeforeScroll, whose handler may move the cursor.
TEST_P(DataSetWalk, AScrollHandlerThatMovesTheCursorLeavesTheWalkInOrder) {
  TPeople people(8, GetParam());
  TDataSet& dataSet = people.dataSet;
  dataSet.BeforeScroll = [](TDataSet* moved) { moved->Lookup("ID", 2, "Name"); };
  std::vector<int> ids;
  dataSet.DisableControls();
  for (dataSet.First(); !dataSet.Eof() && ids.size() <= 8; dataSet.Next()) ids.push_back(people.Id());
  dataSet.EnableControls();
  EXPECT_EQ(ids, std::vector<int>({1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_P(DataSetWalk, AScrollHandlerThatGoesLastLeavesNothingToStepTo) {
  TPeople people(8, GetParam());
  TDataSet& dataSet = people.dataSet;
  dataSet.DisableControls();
  dataSet.MoveBy(GetParam());
  int afterScrolls = 0;
  bool wentLast = false;
  dataSet.BeforeScroll = [&](TDataSet* moved) {
    if (!std::exchange(wentLast, true)) moved->Last();  // Last scrolls too
  };
  dataSet.AfterScroll = [&](TDataSet*) { ++afterScrolls; };
  EXPECT_EQ(dataSet.MoveBy(1), 0);
  EXPECT_EQ(people.Id(), 8);
  EXPECT_EQ(afterScrolls, 1) << "Last's own, none for a step that found Eof before it began";
  dataSet.EnableControls();
}

INSTANTIATE_TEST_SUITE_P(Windows, DataSetWalk, testing::Values(1, 2, 5));

// Answers Eof going forward once its allowance is spent, as a source still fetching
// its rows would; a negative allowance never runs out. Fails the next forward fetch
// when told to, as a source that loses its connection.
class TStallingDataSet : public dbtest::TWindowCheckedDataSet {
public:
  using TWindowCheckedDataSet::TWindowCheckedDataSet;
  int forwardFetchesLeft = -1;
  bool failNext = false;

protected:
  TGetResult GetRecord(TRecordBuffer buffer, TGetMode mode, bool doCheck) override {
    if (mode == gmNext && std::exchange(failNext, false)) throw EDatabaseError("connection lost");
    if (mode == gmNext && forwardFetchesLeft == 0) return grEOF;
    if (mode == gmNext && forwardFetchesLeft > 0) --forwardFetchesLeft;
    return TWindowCheckedDataSet::GetRecord(buffer, mode, doCheck);
  }
};

TEST(DataSetWalk, AFetchFailingPastAFullWindowStillEndsTheScrollAndKeepsTheRecord) {
  dbtest::TPeopleIn<TStallingDataSet> people(6, 2);
  TStallingDataSet& dataSet = people.dataSet;
  QStringList events;
  dataSet.BeforeScroll = [&](TDataSet*) { events << "before"; };
  dataSet.AfterScroll = [&](TDataSet*) { events << "after"; };
  dataSet.DisableControls();
  dataSet.Next();
  dataSet.Next();
  ASSERT_EQ(dataSet.FieldByName("ID")->AsInteger(), 3);
  events.clear();

  dataSet.failNext = true;
  EXPECT_THROW(dataSet.Next(), EDatabaseError);
  EXPECT_EQ(events, Words({"before", "after"}));
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 3);
  EXPECT_FALSE(dataSet.Eof());
  dataSet.CheckConsistency();

  events.clear();
  EXPECT_EQ(dataSet.MoveBy(1), 1);
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 4);
  dataSet.MoveBy(1);
  dataSet.MoveBy(1);
  EXPECT_EQ(dataSet.MoveBy(1), 0) << "past the last record";
  EXPECT_TRUE(dataSet.Eof());
  EXPECT_EQ(events, Words({"before", "after", "before", "after", "before", "after", "before", "after"}));
  dataSet.EnableControls();
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 6);
}

TEST(DataSetNavigation, FindMovesThroughTheFilteredRecords) {
  TPeople people(8, 3);
  people.dataSet.SetFilter("City = 'Oslo'");
  people.dataSet.SetFiltered(true);
  EXPECT_TRUE(people.dataSet.FindLast());
  EXPECT_EQ(people.Id(), 6);
  EXPECT_FALSE(people.dataSet.FindNext());
  EXPECT_TRUE(people.dataSet.FindPrior());
  EXPECT_EQ(people.Id(), 2);
  EXPECT_FALSE(people.dataSet.FindPrior());
  EXPECT_FALSE(people.dataSet.Found());
  people.dataSet.SetFilter("City = 'Rome'");
  EXPECT_FALSE(people.dataSet.FindFirst());
}

TEST(DataSetNavigation, SetRecNoCentresAndIgnoresOutOfRange) {
  TPeople people(20, 5);
  people.dataSet.SetRecNo(12);
  EXPECT_EQ(people.Id(), 12);
  people.dataSet.SetRecNo(0);
  people.dataSet.SetRecNo(21);
  EXPECT_EQ(people.dataSet.RecNo(), 12);
  people.dataSet.CheckConsistency();
}

// --- The data link's events ------------------------------------------------------------

TEST(DataLinkEvents, ScrollDistanceFollowsTheLinksRows) {
  TPeople people(10, 3);
  TDataSet& dataSet = people.dataSet;
  dataSet.Next();
  dataSet.Next();
  EXPECT_EQ(people.link.log, Words({"scrolled:0", "scrolled:0"}));
  EXPECT_EQ(people.link.ActiveRecord(), 2);
  people.link.Clear();
  dataSet.Next();
  EXPECT_EQ(people.link.log, Words({"scrolled:1"}));
  EXPECT_EQ(people.link.ActiveRecord(), 2);
  people.link.Clear();
  dataSet.MoveBy(4);
  EXPECT_EQ(people.link.log, Words({"scrolled:4"}));
  people.link.Clear();
  dataSet.MoveBy(-2);
  EXPECT_EQ(people.link.log, Words({"scrolled:0"}));
  EXPECT_EQ(people.link.ActiveRecord(), 0);
  people.link.Clear();
  dataSet.Prior();
  EXPECT_EQ(people.link.log, Words({"scrolled:-1"}));
  EXPECT_EQ(people.link.ActiveRecord(), 0);
  EXPECT_EQ(people.Id(), 5);
}

TEST(DataLinkEvents, FirstAndLastAreDataSetChanges) {
  TPeople people(10, 3);
  people.dataSet.Last();
  EXPECT_EQ(people.link.log, Words({"changed"}));
  EXPECT_EQ(people.link.ActiveRecord(), 2);
  EXPECT_EQ(people.link.RecordCount(), 3);
  people.link.Clear();
  EXPECT_EQ(people.dataSet.MoveBy(1), 0);
  EXPECT_TRUE(people.link.log.isEmpty());
  people.dataSet.Prior();
  EXPECT_EQ(people.link.log, Words({"scrolled:0"}));
}

TEST(DataLinkEvents, AMoveThatFillsAPartWindowIsADataSetChange) {
  dbtest::TPeopleIn<TStallingDataSet> people(10, 4);
  TStallingDataSet& dataSet = people.dataSet;
  dbtest::TRecordingLink& link = people.link;
  dataSet.forwardFetchesLeft = 2;
  dataSet.First();
  dataSet.Next();
  ASSERT_EQ(link.RecordCount(), 2);
  link.Clear();
  dataSet.forwardFetchesLeft = -1;
  EXPECT_EQ(dataSet.MoveBy(1), 1);
  EXPECT_EQ(link.log, Words({"changed"}));
  EXPECT_EQ(link.RecordCount(), 3);
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 3);
  link.Clear();
  dataSet.MoveBy(2);
  EXPECT_EQ(link.log, Words({"changed"}));
  link.Clear();
  dataSet.MoveBy(1);  // the window is full now: a plain rotation
  EXPECT_EQ(link.log, Words({"scrolled:1"}));
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 6);
  dataSet.CheckConsistency();
}

TEST(DataLinkEvents, SettingActiveRecordReadsOtherBufferedRecords) {
  TPeople people(10, 4);
  people.dataSet.MoveBy(5);
  const int saved = people.link.ActiveRecord();
  QStringList ids;
  for (int row = 0; row < people.link.RecordCount(); ++row) {
    people.link.SetActiveRecord(row);
    ids << people.dataSet.FieldByName("ID")->AsString();
  }
  people.link.SetActiveRecord(saved);
  EXPECT_EQ(ids, Words({"3", "4", "5", "6"}));
  EXPECT_EQ(people.Id(), 6);
}

TEST(DataLinkEvents, BufferCountOfTheLargestLinkSizesTheWindow) {
  TPeople people(10, 2);
  dbtest::TRecordingLink wide;
  wide.SetDataSource(&people.source);
  wide.SetBufferCount(6);
  EXPECT_EQ(people.dataSet.BufferCount(), 6);
  EXPECT_EQ(wide.RecordCount(), 6);
  people.dataSet.CheckConsistency();
  wide.SetDataSource(nullptr);
  EXPECT_EQ(people.dataSet.BufferCount(), 2);
  people.dataSet.CheckConsistency();
}

TEST(DataLinkEvents, DisabledControlsHearOneChangeAtTheLastEnable) {
  TPeople people(10, 3);
  people.dataSet.DisableControls();
  people.dataSet.DisableControls();
  EXPECT_TRUE(people.dataSet.ControlsDisabled());
  people.dataSet.MoveBy(5);
  people.dataSet.Edit();
  people.dataSet.FieldByName("Name")->SetAsString("X");
  people.dataSet.Post();
  people.dataSet.EnableControls();
  EXPECT_TRUE(people.link.log.isEmpty());
  people.dataSet.EnableControls();
  EXPECT_FALSE(people.dataSet.ControlsDisabled());
  EXPECT_EQ(people.link.log, Words({"changed"}));
  people.dataSet.EnableControls();  // an unpaired enable changes nothing
  EXPECT_FALSE(people.dataSet.ControlsDisabled());
}

TEST(DataLinkEvents, CloseAndOpenTellTheLink) {
  TPeople people(3, 2);
  people.dataSet.Close();
  EXPECT_FALSE(people.link.Active());
  EXPECT_EQ(people.link.log, Words({"active:0"}));
  people.link.Clear();
  people.dataSet.Open();
  EXPECT_EQ(people.link.log.first(), "active:1");
  EXPECT_EQ(people.Id(), 1);
}

// --- The edit cycle --------------------------------------------------------------------

class DataSetEditCycle : public testing::Test {
protected:
  void SetUp() override {
    TDataSet& dataSet = people.dataSet;
    for (auto [event, name] : {std::pair{&dataSet.BeforeEdit, "BeforeEdit"}, {&dataSet.AfterEdit, "AfterEdit"},
                               {&dataSet.BeforePost, "BeforePost"}, {&dataSet.AfterPost, "AfterPost"},
                               {&dataSet.BeforeCancel, "BeforeCancel"}, {&dataSet.AfterCancel, "AfterCancel"},
                               {&dataSet.BeforeInsert, "BeforeInsert"}, {&dataSet.AfterInsert, "AfterInsert"},
                               {&dataSet.BeforeDelete, "BeforeDelete"}, {&dataSet.AfterDelete, "AfterDelete"},
                               {&dataSet.OnNewRecord, "OnNewRecord"}}) {
      const QString word = name;
      *event = TDataSetNotifyEvent([this, word](TDataSet*) { events << word; });
    }
    people.dataSet.SetRecNo(3);
    people.link.Clear();
  }
  TField* Name() const { return people.dataSet.FieldByName("Name"); }

  TPeople people{6, 3};
  QStringList events;
};

TEST_F(DataSetEditCycle, EditAndPostStoreTheValue) {
  people.dataSet.Edit();
  EXPECT_EQ(people.dataSet.State(), dsEdit);
  EXPECT_EQ(people.link.log, Words({"editing:1", "record"}));
  Name()->SetAsString("Changed");
  EXPECT_TRUE(people.dataSet.Modified());
  people.dataSet.Post();
  EXPECT_EQ(events, Words({"BeforeEdit", "AfterEdit", "BeforePost", "AfterPost"}));
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_EQ(Name()->AsString(), "Changed");
  EXPECT_EQ(people.Id(), 3);
  people.dataSet.First();
  people.dataSet.SetRecNo(3);
  EXPECT_EQ(Name()->AsString(), "Changed");
  people.dataSet.CheckConsistency();
}

TEST_F(DataSetEditCycle, CancelRestoresTheRecord) {
  people.dataSet.Edit();
  Name()->SetAsString("Changed");
  EXPECT_TRUE(people.link.log.contains("field:Name"));
  people.dataSet.Cancel();
  EXPECT_EQ(events, Words({"BeforeEdit", "AfterEdit", "BeforeCancel", "AfterCancel"}));
  EXPECT_EQ(Name()->AsString(), "Name003");
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
}

TEST_F(DataSetEditCycle, InsertCancelLeavesTheRecordsAsTheyWere) {
  people.dataSet.Insert();
  EXPECT_EQ(people.dataSet.State(), dsInsert);
  EXPECT_TRUE(Name()->IsNull());
  Name()->SetAsString("New");
  people.dataSet.Cancel();
  EXPECT_EQ(events, Words({"BeforeInsert", "OnNewRecord", "AfterInsert", "BeforeCancel", "AfterCancel"}));
  EXPECT_EQ(people.dataSet.RecordCount(), 6);
  EXPECT_EQ(people.Id(), 3);
  people.dataSet.CheckConsistency();
}

TEST_F(DataSetEditCycle, InsertPostsBeforeTheActiveRecord) {
  people.dataSet.Insert();
  people.dataSet.FieldByName("ID")->SetAsInteger(100);
  people.dataSet.Post();
  EXPECT_EQ(people.dataSet.RecordCount(), 7);
  EXPECT_EQ(people.Id(), 100);
  EXPECT_EQ(people.dataSet.RecNo(), 3);
  people.dataSet.Next();
  EXPECT_EQ(people.Id(), 3);
  people.dataSet.CheckConsistency();
}

TEST_F(DataSetEditCycle, AppendPostsAtTheEnd) {
  people.dataSet.Append();
  people.dataSet.FieldByName("ID")->SetAsInteger(200);
  people.dataSet.CheckBrowseMode();
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_EQ(people.dataSet.RecordCount(), 7);
  EXPECT_EQ(people.Id(), 200);
  people.dataSet.Last();
  EXPECT_EQ(people.Id(), 200);
  people.dataSet.CheckConsistency();
}

TEST_F(DataSetEditCycle, CheckBrowseModeCancelsAnUnmodifiedEdit) {
  people.dataSet.Edit();
  people.dataSet.CheckBrowseMode();
  EXPECT_EQ(events, Words({"BeforeEdit", "AfterEdit", "BeforeCancel", "AfterCancel"}));
}

TEST_F(DataSetEditCycle, DeleteMovesToTheNextRecord) {
  people.dataSet.Delete();
  EXPECT_EQ(events, Words({"BeforeDelete", "AfterDelete"}));
  EXPECT_EQ(people.dataSet.RecordCount(), 5);
  EXPECT_EQ(people.Id(), 4);
  people.dataSet.Last();
  people.dataSet.Delete();
  EXPECT_EQ(people.Id(), 5);
  EXPECT_TRUE(people.dataSet.Eof() || people.dataSet.RecNo() == 4);
  people.dataSet.CheckConsistency();
}

TEST_F(DataSetEditCycle, ScrollingPostsAPendingEdit) {
  people.dataSet.Edit();
  Name()->SetAsString("Scrolled");
  people.dataSet.Next();
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  people.dataSet.Prior();
  EXPECT_EQ(Name()->AsString(), "Scrolled");
}

TEST_F(DataSetEditCycle, TheDataLinkEditsThroughAutoEdit) {
  EXPECT_TRUE(people.link.Edit());
  EXPECT_EQ(people.dataSet.State(), dsEdit);
  people.dataSet.Cancel();
  people.source.SetAutoEdit(false);
  EXPECT_FALSE(people.link.Edit());
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
}

// --- Bad input leaves the data set as it was ------------------------------------------

TEST(DataSetBadInput, PostInBrowseStateRaises) {
  TPeople people(3);
  EXPECT_THROW(people.dataSet.Post(), EDatabaseError);
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_EQ(people.Id(), 1);
}

TEST(DataSetBadInput, FieldByNameOnAMissingFieldNamesIt) {
  TPeople people(3);
  try {
    people.dataSet.FieldByName("Nope");
    FAIL() << "no exception";
  } catch (const EDatabaseError& error) {
    EXPECT_TRUE(error.Message().contains("Nope"));
  }
  EXPECT_EQ(people.dataSet.FindField("Nope"), nullptr);
  EXPECT_NE(people.dataSet.FindField("name"), nullptr);
}

TEST(DataSetBadInput, WritingAReadOnlyFieldRaisesAndKeepsTheValue) {
  TPeople people(3);
  TField* name = people.dataSet.FieldByName("Name");
  name->SetReadOnly(true);
  EXPECT_FALSE(name->CanModify());
  people.dataSet.Edit();
  EXPECT_THROW(name->SetAsString("X"), EDatabaseError);
  EXPECT_EQ(name->AsString(), "Name001");
  EXPECT_EQ(people.dataSet.State(), dsEdit);
  EXPECT_FALSE(people.dataSet.Modified());
}

TEST(DataSetBadInput, WritingInBrowseStateRaises) {
  TPeople people(3);
  EXPECT_THROW(people.dataSet.FieldByName("Name")->SetAsString("X"), EDatabaseError);
  EXPECT_EQ(people.dataSet.FieldByName("Name")->AsString(), "Name001");
}

TEST(DataSetBadInput, TextOfTheWrongTypeRaisesAndKeepsTheValue) {
  TPeople people(3);
  people.dataSet.Edit();
  for (const char* field : {"ID", "Amount"}) {
    EXPECT_THROW(people.dataSet.FieldByName(field)->SetText("abc"), EDatabaseError) << field;
  }
  EXPECT_EQ(people.Id(), 1);
  EXPECT_EQ(people.dataSet.FieldByName("Amount")->AsFloat(), 1.5);
  EXPECT_FALSE(people.dataSet.Modified());
}

TEST(DataSetBadInput, EditOfAReadOnlyDataSetRaises) {
  TPeople people(3);
  people.dataSet.SetReadOnly(true);
  EXPECT_FALSE(people.dataSet.CanModify());
  EXPECT_THROW(people.dataSet.Edit(), EDatabaseError);
  EXPECT_THROW(people.dataSet.Insert(), EDatabaseError);
  EXPECT_THROW(people.dataSet.Delete(), EDatabaseError);
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_EQ(people.dataSet.RecordCount(), 3);
}

TEST(DataSetBadInput, RequiredFieldBlocksThePost) {
  TPeople people(3);
  people.dataSet.FieldByName("Name")->SetRequired(true);
  people.dataSet.Append();
  EXPECT_THROW(people.dataSet.Post(), EDatabaseError);
  EXPECT_EQ(people.dataSet.State(), dsInsert);
  people.dataSet.Cancel();
  EXPECT_EQ(people.dataSet.RecordCount(), 3);
}

// Hears DefChanged and shows the flag it sets.
class TDefWatchingDataSet : public TClientDataSet {
public:
  using TClientDataSet::TClientDataSet;
  using TClientDataSet::DefsChanged;
  int defChanges = 0;
  TObject* sender = nullptr;

protected:
  void DefChanged(TObject* changed) override {
    ++defChanges;
    sender = changed;
    TClientDataSet::DefChanged(changed);
  }
};

TEST(DataSetFields, ChangedDefinitionsReachDefChanged) {
  TDefWatchingDataSet dataSet(nullptr);
  EXPECT_FALSE(dataSet.DefsChanged());
  dataSet.FieldDefs()->Add("ID", ftInteger);
  EXPECT_GT(dataSet.defChanges, 0);
  EXPECT_EQ(dataSet.sender, dataSet.FieldDefs());
  EXPECT_TRUE(dataSet.DefsChanged());
  dataSet.FieldDefs()->Add("Name", ftString, 10);
  dataSet.CreateDataSet();
  EXPECT_FALSE(dataSet.DefsChanged());  // read again at opening
  const int before = dataSet.defChanges;
  dataSet.FieldDefs()->Items(1)->SetSize(30);
  EXPECT_EQ(dataSet.defChanges, before + 1);
  EXPECT_TRUE(dataSet.DefsChanged());
  dataSet.FieldDefs()->Delete(0);
  EXPECT_EQ(dataSet.defChanges, before + 2);
  EXPECT_GT(dataSet.RecordSize(), 0);
}

// --- The data set's own events ---------------------------------------------------------

// Logs the data set's before and after events by name.
struct TEventLog {
  explicit TEventLog(TDataSet& dataSet) {
    const auto note = [this](const char* name) {
      return TDataSetNotifyEvent([this, name](TDataSet*) { names << name; });
    };
    dataSet.BeforeScroll = note("BeforeScroll");
    dataSet.AfterScroll = note("AfterScroll");
    dataSet.BeforeOpen = note("BeforeOpen");
    dataSet.AfterOpen = note("AfterOpen");
    dataSet.BeforeClose = note("BeforeClose");
    dataSet.AfterClose = note("AfterClose");
    dataSet.BeforeRefresh = note("BeforeRefresh");
    dataSet.AfterRefresh = note("AfterRefresh");
  }
  QStringList Take() { return std::exchange(names, {}); }
  QStringList names;
};

TEST(DataSetEvents, InsertItsCancelAndDeleteScroll) {
  TPeople people(5, 3);
  TEventLog events(people.dataSet);
  people.dataSet.Insert();
  EXPECT_EQ(events.Take(), Words({"BeforeScroll", "AfterScroll"}));
  people.dataSet.Cancel();
  EXPECT_EQ(events.Take(), Words({"BeforeScroll", "AfterScroll"}));
  people.dataSet.Edit();
  people.dataSet.Cancel();  // an edit stays on its record
  EXPECT_EQ(events.Take(), QStringList());
  people.dataSet.Delete();
  EXPECT_EQ(events.Take(), Words({"BeforeScroll", "AfterScroll"}));
  EXPECT_EQ(people.Id(), 2);
}

TEST(DataSetEvents, OpenCloseAndRefresh) {
  TPeople people(5, 3);
  TEventLog events(people.dataSet);
  people.dataSet.Close();
  EXPECT_EQ(events.Take(), Words({"BeforeClose", "AfterClose"}));
  people.dataSet.Open();
  const QStringList opened = events.Take();
  ASSERT_GE(opened.size(), 2);
  EXPECT_EQ(opened.mid(0, 2), Words({"BeforeOpen", "AfterOpen"}));
  people.dataSet.MoveBy(3);
  events.Take();
  people.dataSet.Refresh();
  EXPECT_EQ(events.Take(), Words({"BeforeRefresh", "AfterRefresh"}));
  EXPECT_EQ(people.Id(), 4);  // Refresh keeps the record
  people.dataSet.CheckConsistency();
}

// A forward-only data set: it can go to the first record and onwards only.
class TForwardOnlyDataSet : public dbtest::TWindowCheckedDataSet {
public:
  using TWindowCheckedDataSet::TWindowCheckedDataSet;
  void MakeForwardOnly() { SetUniDirectional(true); }
};

TEST(DataSetNavigation, AUniDirectionalDataSetRefusesToGoBack) {
  TForwardOnlyDataSet dataSet(nullptr);
  dbtest::FillPeople(dataSet, 5);
  dataSet.MakeForwardOnly();
  EXPECT_TRUE(dataSet.IsUniDirectional());
  dataSet.First();
  dataSet.Next();
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 2);
  EXPECT_THROW(dataSet.Prior(), EDatabaseError);
  EXPECT_THROW(dataSet.Last(), EDatabaseError);
  EXPECT_THROW(dataSet.First(), EDatabaseError);
  EXPECT_EQ(dataSet.FieldByName("ID")->AsInteger(), 2);
}

TEST(DataSourceState, EnabledAndOnStateChange) {
  TPeople people(5, 3);
  int stateChanges = 0;
  people.source.OnStateChange = [&stateChanges](TObject*) { ++stateChanges; };
  people.dataSet.Edit();
  EXPECT_EQ(people.source.State(), dsEdit);
  EXPECT_EQ(stateChanges, 1);
  people.dataSet.Cancel();
  EXPECT_EQ(stateChanges, 2);
  people.link.Clear();
  people.source.SetEnabled(false);
  EXPECT_FALSE(people.link.Active());
  EXPECT_EQ(people.source.State(), dsInactive);
  people.dataSet.Next();
  EXPECT_EQ(people.link.log, Words({"active:0"}));  // a disabled source passes nothing on
  people.source.SetEnabled(true);
  EXPECT_TRUE(people.link.Active());
  EXPECT_EQ(people.source.State(), dsBrowse);
}

TEST(DataSourceState, WithoutAutoEditALinkCannotStartAnEdit) {
  TPeople people(5, 3);
  people.source.SetAutoEdit(false);
  people.link.Edit();
  EXPECT_EQ(people.dataSet.State(), dsBrowse);
  EXPECT_FALSE(people.link.Editing());
  people.source.SetAutoEdit(true);
  people.link.Edit();
  EXPECT_TRUE(people.link.Editing());
  people.dataSet.Cancel();
}

TEST(DataLinkEvents, AFieldMovedIsALayoutChange) {
  TPeople people(5, 3);
  people.dataSet.FieldByName("City")->SetIndex(0);
  EXPECT_EQ(people.link.log, Words({"layout"}));
}

TEST(DataLinkEvents, AFieldMovedWhileDisabledIsALayoutChangeAtTheEnable) {
  TPeople people(5, 3);
  people.dataSet.DisableControls();
  people.dataSet.FieldByName("City")->SetIndex(0);
  EXPECT_TRUE(people.link.log.isEmpty());
  people.dataSet.EnableControls();
  EXPECT_EQ(people.link.log, Words({"layout"}));
  EXPECT_EQ(people.dataSet.Fields()->Fields(0)->FieldName(), "City");
}

TEST(DataSetLocate, SkipsAMatchTheFilterEventRefuses) {
  TPeople people(8, 3);
  people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = dataSet->FieldByName("ID")->AsInteger() != 2;
  });
  people.dataSet.SetFiltered(true);
  EXPECT_TRUE(people.dataSet.Locate("City", Variant("Oslo"), {}));
  EXPECT_EQ(people.Id(), 6);
  people.dataSet.SetOnFilterRecord([](TDataSet* dataSet, bool& accept) {
    accept = dataSet->FieldByName("City")->AsString() != "Oslo";
  });
  EXPECT_FALSE(people.dataSet.Locate("City", Variant("Oslo"), {}));
}

TEST(DataSetFields, PersistentFieldsOutliveClosing) {
  TClientDataSet dataSet(nullptr);
  dataSet.FieldDefs()->Add("ID", ftInteger);
  dataSet.FieldDefs()->Add("Name", ftString, 20);
  auto* id = new TIntegerField(&dataSet);
  id->SetFieldName("ID");
  id->SetDataSet(&dataSet);
  auto* name = new TStringField(&dataSet);
  name->SetFieldName("Name");
  name->SetSize(20);
  name->SetDisplayLabel("Full name");
  name->SetDataSet(&dataSet);
  dataSet.CreateDataSet();
  dataSet.AppendRecord({1, "Ann"});
  EXPECT_FALSE(dataSet.DefaultFields());
  EXPECT_EQ(dataSet.Fields()->LifeCycles(), TFieldLifeCycles{lcPersistent});
  dataSet.Close();
  ASSERT_EQ(dataSet.FieldCount(), 2);
  EXPECT_EQ(dataSet.FindField("Name"), name);
  dataSet.Open();
  EXPECT_EQ(name->AsString(), "Ann");
  EXPECT_EQ(name->FullName(), "Name");
  EXPECT_EQ(name->DisplayName(), "Full name");
  EXPECT_EQ(id->DisplayName(), "ID");
  EXPECT_EQ(name->Size(), 20);
  EXPECT_EQ(id->Size(), 0);
}

TEST(DataSetFields, DefaultFieldsComeAndGoWithOpening) {
  TPeople people(2);
  EXPECT_EQ(people.dataSet.Fields()->LifeCycles(), TFieldLifeCycles{lcAutomatic});
  EXPECT_TRUE(people.dataSet.DefaultFields());
  people.dataSet.Close();
  EXPECT_EQ(people.dataSet.Fields()->Count(), 0);
  people.dataSet.Open();
  EXPECT_EQ(people.dataSet.FieldCount(), 4);
  EXPECT_EQ(people.Id(), 1);
}

}  // namespace

TEST(DataSourceState, SwappingOneOpenDataSetForAnotherIsHeardAndFreesTheOldWindow) {
  TPeople people(20, 5);
  dbtest::TWindowCheckedDataSet other{nullptr};
  dbtest::FillPeople(other, 3);
  EXPECT_EQ(people.dataSet.BufferCount(), 5);
  people.source.SetDataSet(&other);
  EXPECT_EQ(people.link.log, Words({"active:0", "active:1"}));
  EXPECT_EQ(people.dataSet.BufferCount(), 1);
  EXPECT_EQ(other.BufferCount(), 5);
  EXPECT_EQ(people.link.RecordCount(), 3);
  other.Last();
  EXPECT_EQ(people.link.ActiveRecord(), 2);
}
