// The cell text pipeline: field text, record numbers, pick lists, lookups and
// multi-select values on their way to a cell or an editor and back, with the events
// that get the last and the first word.
#include "GridTestKit.h"
#include "framework/db/Field.h"
#include "framework/rtl/Strings.h"
#include "order/OrderText.h"

using namespace quil;
using gridtest::GridFixture;

namespace {

// The people grid with customized columns; the City column has the pick list
// B, O, P for the texts Berlin, Oslo, Paris.
class GridText : public GridFixture {
protected:
  void SetUp() override {
    Open(5);
    grid->Columns()->SetState(csCustomized);
    city = Column("City");
    city->PickList()->SetText("B\nO\nP");
    city->PickText()->SetText("Berlin\nOslo\nParis");
  }
  TQuilColumn* Column(const char* fieldName) { return grid->ColumnByName(QString::fromLatin1(fieldName)); }
  TField* Field(const char* fieldName) { return dataSet->FieldByName(QString::fromLatin1(fieldName)); }

  TQuilColumn* city = nullptr;
};

TEST_F(GridText, CellAndEditorTextComeFromTheField) {
  TQuilColumn* amount = Column("Amount");
  Field("Amount")->OnGetText = [](TField*, QString& text, bool displayText) { text = displayText ? "shown" : "edited"; };
  EXPECT_EQ(amount->GetDisplayText(), QStringLiteral("shown"));
  EXPECT_EQ(amount->GetEditText(), QStringLiteral("edited"));
  EXPECT_EQ(grid->GetFieldValue(amount->Index()), QStringLiteral("shown"));
  EXPECT_EQ(grid->GetFieldValue(-1), QString());
  EXPECT_EQ(grid->GetFieldValue(grid->Columns()->Count()), QString());
}

TEST_F(GridText, ARecordNumberColumnNumbersCellsAndEditorsButNotReports) {
  TQuilColumn* name = Column("Name");
  name->SetAutoNumber(true);
  dataSet->Next();
  EXPECT_EQ(name->GetDisplayText(), QStringLiteral("2."));
  EXPECT_EQ(name->GetEditText(), QStringLiteral("2."));
  EXPECT_EQ(grid->ColGetText(name, QStringLiteral("as given"), tkReport), QStringLiteral("as given"));
}

TEST_F(GridText, WithoutAColumnTheTextPassesUnchanged) {
  EXPECT_EQ(grid->ColGetText(nullptr, QStringLiteral("O"), tkDisplay), QStringLiteral("O"));
  EXPECT_EQ(grid->ColSetText(nullptr, QStringLiteral("Oslo")), QStringLiteral("Oslo"));
}

// --- Pick lists, read and stored

struct PickCase {
  const char* name;
  TQuilPickOptions options;
  const char* text;
  const char* expected;
};

void PrintTo(const PickCase& pick, std::ostream* out) { *out << pick.name; }

class PickRead : public GridText, public ::testing::WithParamInterface<PickCase> {};

TEST_P(PickRead, ShowsTheTextOfTheStoredValue) {
  const PickCase& pick = GetParam();
  city->SetPickOptions(pick.options);
  EXPECT_EQ(grid->ColGetItem(city, QString::fromUtf8(pick.text), tkDisplay), QString::fromUtf8(pick.expected));
}

constexpr TQuilPickOptions Defaults = DefaultPickOptions;

INSTANTIATE_TEST_SUITE_P(
    GridText, PickRead,
    ::testing::Values(PickCase{"ValueShowsItsText", Defaults, "O", "Oslo"},
                      PickCase{"UnknownValueStays", Defaults, "X", "X"},
                      PickCase{"UnknownValueEmptiesWithListItemsOnly", Defaults + poListItemsOnly, "X", ""},
                      PickCase{"StoredIndexIsTrimmedAndRead", Defaults + poStoreItemIndex, " 2", "Paris"},
                      PickCase{"StoredIndexPastTheListStaysAsNumber", Defaults + poStoreItemIndex, " 09", "9"},
                      PickCase{"FormattedRowShowsValueAndText", Defaults + poFormatPickText, "O", "O - Oslo"},
                      PickCase{"FormatForTheListOnly", Defaults + poFormatPickText + poFormatListOnly, "O", "Oslo"},
                      PickCase{"WithoutPickTextTheListAlone", TQuilPickOptions{}, "o", "O"},
                      PickCase{"NoIndexKeepsTheTextUntrimmed", Defaults + poStoreItemIndex, " X ", " X "},
                      PickCase{"ListAloneNoIndexKeepsTheTextUntrimmed", {poStoreItemIndex}, " X ", " X "},
                      PickCase{"ListAloneReadsAStoredIndex", {poStoreItemIndex}, " 1 ", "O"}),
    [](const ::testing::TestParamInfo<PickCase>& info) { return std::string(info.param.name); });

class PickStore : public GridText, public ::testing::WithParamInterface<PickCase> {};

TEST_P(PickStore, StoresTheValueOfTheTypedText) {
  const PickCase& pick = GetParam();
  city->SetPickOptions(pick.options);
  EXPECT_EQ(grid->ColSetItem(city, QString::fromUtf8(pick.text)), QString::fromUtf8(pick.expected));
}

INSTANTIATE_TEST_SUITE_P(
    GridText, PickStore,
    ::testing::Values(PickCase{"TextGivesItsValue", Defaults, "Oslo", "O"},
                      PickCase{"AValueIsAccepted", Defaults, "P", "P"},
                      PickCase{"AValueIsTextWithoutAcceptPickList", Defaults - poAcceptPickList, "P", "P"},
                      PickCase{"UnknownEmptiesWithListItemsOnly", Defaults - poAcceptPickList + poListItemsOnly, "P", ""},
                      PickCase{"AnIndexIsAccepted", Defaults + poAcceptItemIndex, "1", "O"},
                      PickCase{"AnIndexPastTheTextsIsRefused", Defaults + poAcceptItemIndex + poListItemsOnly, "3", ""},
                      PickCase{"AFormattedRowGivesItsValue", Defaults + poFormatPickText, "P - Paris", "P"},
                      PickCase{"WithoutPickTextTheListAlone", TQuilPickOptions{poListItemsOnly}, "Oslo", ""},
                      PickCase{"ListAloneStoresTheIndexOfAValue", {poStoreItemIndex}, "P", "                   2"},
                      PickCase{"ListAloneAcceptsAnIndex", {poAcceptItemIndex}, "1", "O"},
                      PickCase{"ListAloneRefusesAnIndexPastItsEnd", {poAcceptItemIndex, poListItemsOnly}, "3", ""}),
    [](const ::testing::TestParamInfo<PickCase>& info) { return std::string(info.param.name); });

TEST_F(GridText, AStoredIndexIsRightAlignedInTheWidthOfAStringField) {
  city->SwitchPickOptions({poStoreItemIndex}, true);
  EXPECT_TRUE(city->PickOptions().Contains(poAcceptItemIndex));
  const TQuilColumn* name = Column("Name");
  ASSERT_EQ(name->Field()->Size(), 20);
  EXPECT_EQ(grid->ColSetItem(city, QStringLiteral("Paris")), QStringLiteral("2").rightJustified(20));
  EXPECT_EQ(grid->ColGetItem(city, QStringLiteral("2").rightJustified(20), tkDisplay), QStringLiteral("Paris"));
}

TEST_F(GridText, AnIndexPastAShorterPickListIsNoValue) {
  city->PickList()->Delete(2);
  city->SwitchPickOptions({poAcceptItemIndex}, true);
  EXPECT_EQ(grid->ColSetItem(city, QStringLiteral("2")), QStringLiteral("2")) << "not Paris, which has no value";
  city->SwitchPickOptions({poListItemsOnly}, true);
  EXPECT_EQ(grid->ColSetItem(city, QStringLiteral("2")), QString());
}

TEST_F(GridText, ANumberFieldStoresThePlainIndex) {
  TQuilColumn* id = Column("ID");
  id->PickList()->SetText("10\n20");
  id->PickText()->SetText("ten\ntwenty");
  id->SwitchPickOptions({poStoreItemIndex}, true);
  EXPECT_EQ(grid->ColSetItem(id, QStringLiteral("twenty")), QStringLiteral("1"));
}

TEST_F(GridText, AFormatOfItsOwnTakesTextValueAndIndex) {
  city->SetPickTextFormat(QStringLiteral("%2:d %0:s (%1:s)"));
  EXPECT_EQ(city->FormatPickText(1), QStringLiteral("1 Oslo (O)"));
  EXPECT_EQ(city->FormatPickText(-1), QString());
  city->PickList()->Delete(2);
  EXPECT_EQ(city->FormatPickText(2), QStringLiteral("2 Paris ()")) << "past a list's end its part is empty";
}

// --- Multi-select values

TEST_F(GridText, EachItemOfAMultiSelectValuePassesAndEmptyItemsDrop) {
  city->SwitchListOptions({loMultiSelectList}, true);
  ASSERT_TRUE(city->GetMultiSelectList());
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("B,,P"), tkEdit), QStringLiteral("Berlin,Paris"));
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("B,,P"), tkDisplay), QStringLiteral("Berlin ..."));
  EXPECT_EQ(grid->ColSetText(city, QStringLiteral("Oslo,Paris,")), QStringLiteral("O,P"));
  city->SwitchPickOptions({poListItemsOnly}, true);
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("X,O"), tkEdit), QStringLiteral("Oslo")) << "an empty result drops";
}

TEST_F(GridText, AMultiSelectValueMayHoldOneItemALine) {
  city->SwitchListOptions({loMultiSelectList}, true);
  city->SetDelimiterLine(true);
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("B\r\nO"), tkEdit), QStringLiteral("Berlin\r\nOslo"));
  EXPECT_EQ(grid->ColSetText(city, QStringLiteral("Paris\r\n\r\nBerlin")), QStringLiteral("P\r\nB"));
}

TEST_F(GridText, AMultiSelectValueOverPickTextAloneIsSplitToo) {
  city->PickList()->Clear();
  city->SwitchPickOptions({poStoreItemIndex}, true);
  city->SwitchListOptions({loMultiSelectList}, true);
  ASSERT_TRUE(city->GetPickDataActive());
  ASSERT_TRUE(city->GetMultiSelectList());
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("0,2"), tkEdit), QStringLiteral("Berlin,Paris"));
  EXPECT_EQ(grid->ColSetText(city, QStringLiteral("Paris,Berlin")),
            QStringLiteral("2").rightJustified(20) + "," + QStringLiteral("0").rightJustified(20));
}

// --- Lookups

class GridLookupText : public GridText {
protected:
  void SetUp() override {
    GridText::SetUp();
    cities.FieldDefs()->Add("Code", ftString, 20);
    cities.FieldDefs()->Add("Title", ftString, 20);
    cities.CreateDataSet();
    cities.AppendRecord({QStringLiteral("Berlin"), QStringLiteral("City of Berlin")});
    cities.AppendRecord({QStringLiteral("Oslo"), QStringLiteral("City of Oslo")});
    city->PickList()->Clear();
    city->SetLookupDataSet(&cities);
    city->SetLookupKeyField("Code");
    city->SetLookupResultField("Title");
  }
  dbtest::TWindowCheckedDataSet cities{nullptr};
};

TEST_F(GridLookupText, AKeyShowsTheLookedUpText) {
  ASSERT_EQ(city->GetLookupColumn(), lcLookupValueField);
  cities.FieldByName("Title")->OnGetText = [](TField* field, QString& text, bool displayText) {
    text = (displayText ? "shown " : "edited ") + field->AsString();
  };
  EXPECT_EQ(city->GetDisplayText(), QStringLiteral("shown City of Berlin"));
  EXPECT_EQ(grid->ColGetItem(city, QStringLiteral("Oslo"), tkEdit), QStringLiteral("edited City of Oslo"));
}

TEST_F(GridLookupText, AKeyNotFoundShowsAnEmptyCell) {
  EXPECT_EQ(grid->ColGetItem(city, QStringLiteral("Paris"), tkDisplay), QString());
}

TEST_F(GridLookupText, AClosedLookupIsOpened) {
  cities.Close();
  EXPECT_EQ(grid->ColGetItem(city, QStringLiteral("Oslo"), tkDisplay), QStringLiteral("City of Oslo"));
  EXPECT_TRUE(cities.Active());
}

TEST_F(GridLookupText, AnEmptyKeyStaysEmptyWithoutTouchingTheLookup) {
  const int reads = cities.reads;
  EXPECT_EQ(grid->ColGetItem(city, QString(), tkDisplay), QString());
  EXPECT_EQ(cities.reads, reads);
}

// --- The events

TEST_F(GridText, OnColGetTextSeesTheFinishedTextAndHasTheLastWord) {
  city->SwitchListOptions({loMultiSelectList}, true);
  QString seen;
  grid->OnColGetText = [&](TQuilColumn* column, QString& text, TTextKind kind) {
    EXPECT_EQ(column, city);
    EXPECT_EQ(kind, tkDisplay);
    seen = text;
    text = QStringLiteral("two cities");
  };
  EXPECT_EQ(grid->ColGetText(city, QStringLiteral("B,O"), tkDisplay), QStringLiteral("two cities"));
  EXPECT_EQ(seen, QStringLiteral("Berlin ...")) << "after FormatText";
}

TEST_F(GridText, OnColSetTextRunsFirstOnTheTypedText) {
  grid->OnColSetText = [](TQuilColumn*, QString& text) { text = text.trimmed(); };
  EXPECT_EQ(grid->ColSetText(city, QStringLiteral("  Oslo ")), QStringLiteral("O"));
}

// --- Writing through a column

TEST_F(GridText, SetEditTextWritesTheStoredFormAndTellsOnce) {
  int changes = 0;
  grid->OnColTextChanged = [&](TQuilColumn* column) {
    EXPECT_EQ(column, city);
    ++changes;
  };
  dataSet->Edit();
  city->SetEditText(QStringLiteral("Berlin"));
  EXPECT_EQ(changes, 0) << "the text it already has";
  city->SetEditText(QStringLiteral("Paris"));
  EXPECT_EQ(Field("City")->AsString(), QStringLiteral("P"));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(city->GetEditText(), QStringLiteral("Paris"));
}

// In the editor, a text written through a column with an editor that closes by itself
// becomes the editor's text, so that the closing editor does not write it again.
struct AutoCloseCase {
  const char* name;
  bool editorMode;
  TQuilDBGridOptions options;
  TQuilListOptions listOptions;
  bool taken;
};

void PrintTo(const AutoCloseCase& autoClose, std::ostream* out) { *out << autoClose.name; }

class AutoCloseEditText : public GridText, public ::testing::WithParamInterface<AutoCloseCase> {};

TEST_P(AutoCloseEditText, TheWrittenTextBecomesTheEditorsText) {
  const AutoCloseCase& autoClose = GetParam();
  grid->SwitchOptions(autoClose.options, true);
  city->SetListOptions(autoClose.listOptions);
  grid->SetSelectedColumn(city);
  grid->SetEditorMode(autoClose.editorMode);
  ASSERT_EQ(grid->EditorMode(), autoClose.editorMode);
  const QString before = grid->CellEditText();
  // The field's change reaches an open editor afterwards; what counts is the edit text
  // as the field is written.
  QString whileWriting;
  grid->OnColSetText = [&](TQuilColumn*, QString&) { whileWriting = grid->CellEditText(); };
  dataSet->Edit();
  city->SetEditText(QStringLiteral("Paris"));
  EXPECT_EQ(Field("City")->AsString(), QStringLiteral("P")) << "written in every case";
  EXPECT_EQ(whileWriting, autoClose.taken ? QStringLiteral("Paris") : before);
}

constexpr TQuilListOptions AutoClose = DefaultColumnListOptions;

INSTANTIATE_TEST_SUITE_P(
    GridText, AutoCloseEditText,
    ::testing::Values(
        AutoCloseCase{"InTheEditor", true, {}, AutoClose, true},
        AutoCloseCase{"OutsideTheEditor", false, {}, AutoClose, false},
        AutoCloseCase{"WithoutAutoClose", true, {}, AutoClose - loAutoCloseEditor, false},
        AutoCloseCase{"WithAnEditorAlwaysShown", true, {dgAlwaysShowEditor}, AutoClose, false},
        AutoCloseCase{"MultiSelectListThatAppliesItself", true, {}, AutoClose + loMultiSelectList + loAutoApplyList,
                      false},
        AutoCloseCase{"MultiSelectListAlone", true, {}, AutoClose + loMultiSelectList, true}),
    [](const ::testing::TestParamInfo<AutoCloseCase>& info) { return std::string(info.param.name); });

TEST_F(GridText, AFieldThatRefusesTheTextRaises) {
  dataSet->Edit();
  EXPECT_ANY_THROW(Column("ID")->SetEditText(QStringLiteral("not a number")));
}

TEST_F(GridText, ACheckBoxReadsAndWritesThroughThePipeline) {
  dataSet->Edit();
  Field("City")->SetAsString(QStringLiteral("B"));
  city->SetCheckBox(true);
  city->SetCheckBoxValues(QStringLiteral("Berlin;Oslo"));
  EXPECT_TRUE(city->IsCheckBoxValue(true)) << "B shows as Berlin";
  city->ToggleCheckBoxValue();
  EXPECT_EQ(Field("City")->AsString(), QStringLiteral("O"));
  EXPECT_TRUE(city->IsCheckBoxValue(false));
}

// --- The grid's side of editing

TEST_F(GridText, CanColumnModifyAsksGridLinkColumnAndFieldInTurn) {
  grid->SetReadOnly(true);
  EXPECT_FALSE(grid->CanColumnModify(city));
  grid->SetReadOnly(false);
  city->SetReadOnly(true);
  EXPECT_FALSE(grid->CanColumnModify(city));
  city->SetReadOnly(false);
  EXPECT_FALSE(grid->CanColumnModify(nullptr));
  EXPECT_EQ(dataSet->State(), dsBrowse) << "no refusal edits";
  EXPECT_TRUE(grid->CanColumnModify(city));
  EXPECT_EQ(dataSet->State(), dsEdit);
  EXPECT_TRUE(grid->DataLink()->IsModified());
}

TEST_F(GridText, TheEditorsTextIsKeptAndUpdateDataWritesIt) {
  grid->SetSelectedColumn(Column("Name"));
  EXPECT_EQ(grid->GetEditText(grid->Col(), grid->Row()), QStringLiteral("Name001"));
  EXPECT_EQ(grid->CellEditText(), QStringLiteral("Name001"));
  grid->SetEditText(grid->Col(), grid->Row(), QStringLiteral("Zed"));
  EXPECT_EQ(Field("Name")->AsString(), QStringLiteral("Name001")) << "SetEditText only keeps the text";
  dataSet->Edit();
  grid->UpdateData();
  EXPECT_EQ(Field("Name")->AsString(), QStringLiteral("Zed"));
}

TEST_F(GridText, CanColumnModifyNeedsAWritableLinkAndAnEdit) {
  grid->DataLink()->SetReadOnly(true);
  EXPECT_FALSE(grid->CanColumnModify(city));
  grid->DataLink()->SetReadOnly(false);
  source->SetAutoEdit(false);
  EXPECT_FALSE(grid->CanColumnModify(city)) << "the edit does not start";
  EXPECT_FALSE(grid->DataLink()->IsModified());
}

TEST_F(GridText, TheEditorShowsOnlyOutsideALayoutAndWhereTheColumnAllows) {
  grid->SwitchOptions({dgAlwaysShowEditor}, true);
  grid->SetSelectedColumn(city);
  ASSERT_TRUE(grid->CanEditShow());
  grid->BeginLayout();
  EXPECT_FALSE(grid->CanEditShow());
  grid->EndLayout();
  city->SetAutoNumber(true);
  EXPECT_FALSE(grid->CanEditShow());
}

TEST_F(GridText, EnteringAColumnShowsTheEditorAgainOrHidesIt) {
  grid->SwitchOptions({dgAlwaysShowEditor}, true);
  grid->SetSelectedColumn(Column("ID"));
  int enters = 0;
  grid->OnColEnter = [&](TObject* sender) {
    EXPECT_EQ(sender, grid);
    ++enters;
  };
  grid->MoveCol(grid->DataToRawColumn(city->Index()), 0);
  EXPECT_EQ(enters, 1);
  EXPECT_TRUE(grid->EditorMode());
  EXPECT_TRUE(grid->InplaceEditor() && grid->InplaceEditor()->Visible());
  Column("Amount")->SetCheckBox(true);
  grid->MoveCol(grid->DataToRawColumn(Column("Amount")->Index()), 0);
  EXPECT_EQ(enters, 2);
  EXPECT_FALSE(grid->InplaceEditor()->Visible()) << "a check box is not edited as text";
}

TEST_F(GridText, LeavingAColumnClearsASearchOfTheCurrentColumn) {
  int exits = 0;
  grid->OnColExit = [&](TObject* sender) {
    EXPECT_EQ(sender, grid);
    ++exits;
  };
  grid->Search()->SetActive(true);
  grid->Search()->SetText(QStringLiteral("Os"));
  grid->MoveCol(grid->Col() + 1, 0);
  EXPECT_EQ(exits, 1);
  EXPECT_EQ(grid->Search()->Text(), QStringLiteral("Os")) << "a search over all columns stays";
  grid->Search()->SetOptions(grid->Search()->Options() + soCurrentCol);
  grid->MoveCol(grid->Col() + 1, 0);
  EXPECT_EQ(exits, 2);
  EXPECT_EQ(grid->Search()->Text(), QString());
}

TEST_F(GridText, WithoutAnActiveLinkNoTextMaskOrRecordNumber) {
  grid->SetSelectedColumn(Column("Name"));
  Field("Name")->SetEditMask(QStringLiteral("LLLL;0;_"));
  TQuilColumn* name = Column("Name");
  name->SetAutoNumber(true);
  EXPECT_EQ(AutoNumberStr(0), QString());
  EXPECT_EQ(AutoNumberStr(1), QStringLiteral("1."));
  dataSet->Close();
  EXPECT_EQ(grid->GetEditText(grid->Col(), grid->Row()), QString());
  EXPECT_EQ(grid->GetEditMask(grid->Col(), grid->Row()), QString());
  EXPECT_EQ(grid->GetRecNumber(), -1);
  EXPECT_EQ(grid->ColGetItem(name, QStringLiteral("7"), tkDisplay), QString());
}

TEST_F(GridText, EditLimitAndMaskFollowTheSelectedField) {
  grid->SetSelectedColumn(Column("Name"));
  EXPECT_EQ(grid->GetEditLimit(), 20);
  Field("Name")->SetEditMask(QStringLiteral("LLLL;0;_"));
  EXPECT_EQ(grid->GetEditMask(grid->Col(), grid->Row()), QStringLiteral("LLLL;0;_"));
  grid->SetSelectedColumn(city);
  EXPECT_EQ(grid->GetEditLimit(), 0) << "a pick text is no field text";
  EXPECT_EQ(grid->GetEditMask(grid->Col(), grid->Row()), QString());
  grid->SetSelectedColumn(Column("Amount"));
  EXPECT_EQ(grid->GetEditLimit(), 0);
}

// --- Memo fields: a grid over one record with a note, whose column starts with neither
// ShowBlob nor EditMemo.

class GridMemoText : public GridFixture {
protected:
  void SetUp() override {
    Open(1);
    notes.FieldDefs()->Add("Note", ftMemo);
    notes.CreateDataSet();
    notes.AppendRecord({QStringLiteral("first line")});
    source->SetDataSet(&notes);
    Settle();
    grid->Columns()->SetState(csCustomized);
    note = grid->ColumnByName("Note");
    note->SetShowBlob(false);
    note->SetEditMemo(false);
  }
  void TearDown() override {
    source->SetDataSet(nullptr);
    GridFixture::TearDown();
  }
  TField* NoteField() { return notes.FieldByName("Note"); }

  dbtest::TWindowCheckedDataSet notes{nullptr};
  TQuilColumn* note = nullptr;
};

TEST_F(GridMemoText, AMemoShowsItsTextWithShowBlobAndEditsItWithEditMemo) {
  ASSERT_TRUE(note);
  const QString fieldText = NoteField()->DisplayText();
  ASSERT_NE(fieldText, QStringLiteral("first line"));
  EXPECT_EQ(note->GetDisplayText(), fieldText);
  EXPECT_EQ(note->GetEditText(), NoteField()->Text());
  note->SetShowBlob(true);
  EXPECT_EQ(note->GetDisplayText(), QStringLiteral("first line"));
  note->SetEditMemo(true);
  EXPECT_EQ(note->GetEditText(), QStringLiteral("first line"));
  NoteField()->OnGetText = [](TField*, QString& text, bool) { text = QStringLiteral("own"); };
  EXPECT_EQ(note->GetEditText(), QStringLiteral("own")) << "the field's own text wins";
}

TEST_F(GridMemoText, EditMemoWritesTheMemoAsText) {
  note->SetEditMemo(true);
  notes.Edit();
  note->SetEditText(QStringLiteral("second line"));
  EXPECT_EQ(NoteField()->AsString(), QStringLiteral("second line"));
}

TEST_F(GridMemoText, AMemoIsModifiedAsTextOnlyThroughOnSetTextOrEditMemo) {
  grid->SetSelectedColumn(note);
  EXPECT_FALSE(grid->CanColumnModify(note));
  EXPECT_FALSE(grid->CanEditModify());
  EXPECT_EQ(notes.State(), dsBrowse);
  note->SetEditMemo(true);
  EXPECT_FALSE(grid->CanColumnModify(note)) << "EditMemo is the editor's way alone";
  EXPECT_TRUE(grid->CanEditModify());
  notes.Cancel();
  note->SetEditMemo(false);
  NoteField()->OnSetText = [](TField* field, const QString& text) { field->SetAsString(text); };
  EXPECT_TRUE(grid->CanColumnModify(note));
}

}  // namespace
