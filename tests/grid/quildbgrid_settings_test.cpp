// The user's layout between runs: the text lines built from the grid and applied to it,
// the ini file and registry stores, and the automatic load and save of the grid.
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include "ColumnTestKit.h"
#include "framework/controls/Application.h"
#include "framework/rtl/IniFiles.h"
#include "framework/rtl/StreamTextProbe.h"
#include "framework/rtl/Strings.h"
#include "framework/rtl/Streams.h"

using namespace quil;
using gridtest::FieldNames;

namespace {

// A grid with an order text of its own, which notes each order applied to it.
class TSettingsGrid : public gridtest::TProbeGrid {
public:
  using TProbeGrid::TProbeGrid;
  using TProbeGrid::Loaded;
  QString orderFields;
  QStringList ordersApplied;

  QString GetOrderFields() const override { return orderFields; }
  void SetOrderFields(const QString& value) override { ordersApplied << value; }
};

// Grid1 on Form1 over the people table, with the people's columns made the
// application's own: ID owning Name, City, Amount. Its layout goes to an ini file in a
// temporary folder, and the registry form is kept in that folder too.
class SettingsTest : public gridtest::ColumnFixture {
protected:
  void SetUp() override {
    ASSERT_TRUE(dir_.isValid());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir_.path());
    Open<TSettingsGrid>(10);
    form->SetName("Form1");
    Design(Grid());
  }

  TSettingsGrid* Grid() const { return static_cast<TSettingsGrid*>(grid); }
  TQuilDBGridSettings* Settings() const { return grid->Settings(); }
  QString IniPath() const { return dir_.filePath("layout.ini"); }

  void Name(TSettingsGrid* target) {
    target->SetName("Grid1");
    target->Settings()->SetIniFile(true);
    target->Settings()->SetFileName(IniPath());
  }
  void Design(TSettingsGrid* target) {
    Name(target);
    target->Columns()->SetState(csCustomized);
    target->Columns()->Items(0)->SetExpandCols(1);
  }
  // Grid1 made anew as the application designed it, in place of the grid.
  void Rebuild() {
    delete grid;
    auto* made = new TSettingsGrid(form);
    made->SetParent(form);
    made->SetBounds(10, 10, 480, 240);
    made->SetDataSource(source);
    Design(made);
    grid = made;
    Settle();
  }
  // The user's arrangement: Amount first and wider, ID's group collapsed and hidden,
  // two lines a row, stretched.
  void Arrange() {
    ColumnOf("Amount")->MoveTo(0);
    ColumnOf("Amount")->SetWidth(150);
    ColumnOf("ID")->SetExpanded(false);
    ColumnOf("ID")->SetVisible(false);
    grid->SetLinesCount(2);
    grid->SetStretchMode(true);
  }
  void WriteIniFile(const QString& text) {
    QFile file(IniPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
  }
  QStringList IniFileLines() const {
    QFile file(IniPath());
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split(QRegularExpression("\r?\n"), Qt::SkipEmptyParts);
  }
  QStringList Widths() const {
    QStringList widths;
    for (TQuilColumn* column : *grid->Columns()) widths << QString::number(column->WidthBase());
    return widths;
  }

  QTemporaryDir dir_;
};

TEST_F(SettingsTest, ASavedLayoutComesBackOnARebuiltGrid) {
  Settings()->SwitchOptions({soLinesCount, soStretchMode}, true);
  Arrange();
  Settings()->SaveLayout();
  Rebuild();
  ASSERT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  Settings()->SwitchOptions({soLinesCount, soStretchMode}, true);
  Settings()->LoadLayout();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Amount", "ID", "Name", "City"}));
  EXPECT_EQ(ColumnOf("Amount")->WidthBase(), 150);
  EXPECT_FALSE(ColumnOf("ID")->Visible());
  EXPECT_FALSE(ColumnOf("ID")->GetExpandedFlag());
  EXPECT_FALSE(ColumnOf("Name")->Visible());
  EXPECT_TRUE(ColumnOf("Name")->GetVisibility()) << "the hidden group alone hides it";
  EXPECT_EQ(grid->LinesCount(), 2);
  EXPECT_TRUE(grid->StretchMode());
  grid->Columns()->CheckConsistency();
}

TEST_F(SettingsTest, TheGridsOwnColumnsMoveWithTheirFields) {
  grid->Columns()->SetState(csDefault);
  Settle();
  WriteIniFile("[Form1.Grid1]\nColumns=4\nColumn1=City,70,1,1\nColumn2=ID,40,1,1\n"
               "Column3=Amount,90,0,1\nColumn4=Name,80,1,1\n");
  Settings()->LoadLayout();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"City", "ID", "Amount", "Name"}));
  EXPECT_EQ(dataSet->FieldByName("City")->Index(), 0);
  EXPECT_EQ(Widths(), QStringList({"70", "40", "90", "80"}));
  EXPECT_FALSE(ColumnOf("Amount")->Visible());
  EXPECT_EQ(grid->Columns()->State(), csDefault);
}

TEST_F(SettingsTest, ALayoutHandedOverInMemoryArrangesAnotherGridAndStaysForReuse) {
  Settings()->SwitchOptions({soLinesCount}, true);
  Arrange();
  TStringList copy;
  copy.Assign(Settings()->Layout());
  Rebuild();
  Settings()->SwitchOptions({soLinesCount}, true);
  Settings()->SetLayout(&copy);
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"Amount", "ID", "Name", "City"}));
  EXPECT_EQ(grid->LinesCount(), 2);
  EXPECT_EQ(Settings()->LayoutList()->Text(), copy.Text());
  ColumnOf("ID")->MoveTo(0);
  grid->SetLinesCount(1);
  Settings()->ApplyLayout();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount") << "the list held in memory applies again";
  EXPECT_EQ(grid->LinesCount(), 2);
  EXPECT_FALSE(QFile::exists(IniPath())) << "no store was touched";
}

TEST_F(SettingsTest, TheFileIsAnOrdinaryIniFileInTheDocumentedForm) {
  grid->Columns()->Delete(3);
  grid->Columns()->Delete(0);
  ColumnOf("Name")->SetWidth(120);
  ColumnOf("City")->SetWidth(64);
  ColumnOf("City")->SetExpanded(false);
  Settings()->SaveLayout();
  EXPECT_EQ(IniFileLines(), QStringList({"[Form1.Grid1]", "Columns=2", "Column1=Name,120,1,1", "Column2=City,64,1,0"}));
  QSettings reader(IniPath(), QSettings::IniFormat);
  ASSERT_EQ(reader.status(), QSettings::NoError);
  reader.beginGroup("Form1.Grid1");
  EXPECT_EQ(reader.childKeys().size(), 3);
  EXPECT_EQ(reader.value("Columns").toInt(), 2);
  EXPECT_EQ(reader.value("Column1").toStringList(), QStringList({"Name", "120", "1", "1"}));
  EXPECT_EQ(reader.value("Column2").toStringList(), QStringList({"City", "64", "1", "0"}));
}

TEST_F(SettingsTest, TheOptionalLinesFollowTheColumnsInTheirOrder) {
  Grid()->orderFields = "Name DESC;ID";
  grid->SetLinesCount(3);
  Settings()->SetOptions({soUserSettings, soSaveLayout, soOrderFields, soLinesCount, soStretchMode});
  const QStringList lines = Settings()->GetLayout()->Text().split("\r\n", Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 10);
  EXPECT_EQ(lines.mid(0, 3), QStringList({"AutoLoadLayout=0", "AutoSaveLayout=1", "Columns=4"}));
  EXPECT_EQ(lines.mid(7), QStringList({"OrderFields=Name DESC;ID", "LinesCount=3", "StretchMode=0"}));
  Settings()->ApplyLayout();
  EXPECT_EQ(Grid()->ordersApplied, QStringList({"Name DESC;ID"}));
  Settings()->SwitchOptions({soOrderFields}, false);
  Settings()->ApplyLayout();
  EXPECT_EQ(Grid()->ordersApplied.size(), 1) << "the options in force decide what is read, not the text";
  Settings()->SetOptions({});
  EXPECT_EQ(Settings()->GetLayout()->Count(), 5);
}

TEST_F(SettingsTest, AnOtherColumnCountTouchesNoColumnButTheRestApplies) {
  Settings()->SwitchOptions({soOrderFields, soLinesCount, soStretchMode}, true);
  WriteIniFile("[Form1.Grid1]\nColumns=5\nColumn1=Amount,150,0,0\nColumn2=ID,40,1,1\n"
               "OrderFields=City\nLinesCount=3\nStretchMode=1\n");
  const QStringList widths = Widths();
  Settings()->LoadLayout();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Name", "City", "Amount"}));
  EXPECT_EQ(Widths(), widths);
  EXPECT_TRUE(ColumnOf("Amount")->Visible());
  EXPECT_EQ(Grid()->ordersApplied, QStringList({"City"}));
  EXPECT_EQ(grid->LinesCount(), 3);
  EXPECT_TRUE(grid->StretchMode());
}

TEST_F(SettingsTest, AnUnknownFieldPassesOverItsColumnAndTheOthersApply) {
  WriteIniFile("[Form1.Grid1]\nColumns=4\nColumn1=Renamed,90,1,1\nColumn2=Amount,77,1,1\n"
               "Column3=Name,55,1,1\nColumn4=City,66,0,1\n");
  const int idWidth = ColumnOf("ID")->Width();
  Settings()->LoadLayout();
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"ID", "Amount", "Name", "City"}));
  EXPECT_EQ(ColumnOf("ID")->Width(), idWidth);
  EXPECT_EQ(Widths().mid(1), QStringList({"77", "55", "66"}));
  EXPECT_FALSE(ColumnOf("City")->GetShowing()) << "hidden at its new place";
}

TEST_F(SettingsTest, DamagedEntriesFallBackToWhatTheGridHas) {
  Settings()->SwitchOptions({soLinesCount, soStretchMode}, true);
  grid->SetLinesCount(2);
  WriteIniFile("[Form1.Grid1]\nColumns=4\nColumn1=City,wide,yes,1\nColumn3=Name,80\n"
               "Column4=Amount,,0,x\nno equals sign here\n=orphan value\nLinesCount=many\nStretchMode=\n");
  const int cityWidth = ColumnOf("City")->WidthBase();
  const int amountWidth = ColumnOf("Amount")->WidthBase();
  EXPECT_NO_THROW(Settings()->LoadLayout());
  EXPECT_EQ(FieldNames(grid->Columns()), QStringList({"City", "ID", "Name", "Amount"}))
      << "a missing line names no column and moves none";
  EXPECT_EQ(ColumnOf("City")->WidthBase(), cityWidth);
  EXPECT_TRUE(ColumnOf("City")->Visible());
  EXPECT_EQ(ColumnOf("Name")->WidthBase(), 80);
  EXPECT_TRUE(ColumnOf("Name")->Visible());
  EXPECT_EQ(ColumnOf("Amount")->WidthBase(), amountWidth);
  EXPECT_FALSE(ColumnOf("Amount")->Visible());
  EXPECT_TRUE(ColumnOf("Amount")->GetExpandedFlag());
  EXPECT_EQ(grid->LinesCount(), 2);
  EXPECT_FALSE(grid->StretchMode());
}

TEST_F(SettingsTest, TwoColumnsOfOneFieldKeepTheirOrder) {
  grid->Columns()->Add()->SetFieldName("Name");
  Settings()->SaveLayout();
  TQuilColumn* first = ColumnOf("Name");
  TQuilColumn* second = grid->Columns()->Items(4);
  const int firstWidth = first->WidthBase();
  first->SetWidth(91);
  second->SetWidth(33);
  WriteIniFile(IniFileLines().join("\n").replace(QRegularExpression("Column5=Name,\\d+"), "Column5=Name,44"));
  Settings()->LoadLayout();
  EXPECT_EQ(first->Index(), 1);
  EXPECT_EQ(first->WidthBase(), firstWidth);
  EXPECT_EQ(second->Index(), 4);
  EXPECT_EQ(second->WidthBase(), 44);
}

// Default columns make their automatic ones anew at each layout, with the default width:
// the layout finds the number column by its empty name and arranges the rest around it.
TEST_F(SettingsTest, AnAutomaticNumberColumnIsFoundByItsEmptyName) {
  grid->Columns()->SetState(csDefault);
  grid->SwitchOptionsExt({dgAutoNumberColumn}, true);
  Settle();
  TQuilColumn* number = grid->Columns()->Items(0);
  ASSERT_TRUE(number->AutoNumber());
  ASSERT_TRUE(number->FieldName().isEmpty());
  ColumnOf("ID")->SetWidth(120);
  Settings()->SaveLayout();
  EXPECT_TRUE(IniFileLines().contains(QString("Column1=,%1,1,1").arg(DefAutoNumberWidth)));
  EXPECT_TRUE(IniFileLines().contains("Column2=ID,120,1,1"));
  ColumnOf("ID")->SetWidth(60);
  Settings()->LoadLayout();
  Settle();
  EXPECT_TRUE(grid->Columns()->Items(0)->AutoNumber());
  EXPECT_EQ(grid->Columns()->Items(1), ColumnOf("ID"));
  EXPECT_EQ(ColumnOf("ID")->WidthBase(), 120);
}

TEST_F(SettingsTest, SavingAfterColumnsWentLeavesNoOldLine) {
  Settings()->SaveLayout();
  grid->Columns()->Delete(3);
  grid->Columns()->Delete(2);
  Settings()->SaveLayout();
  QSettings reader(IniPath(), QSettings::IniFormat);
  reader.beginGroup("Form1.Grid1");
  EXPECT_EQ(reader.childKeys(), QStringList({"Column1", "Column2", "Columns"}));
}

TEST_F(SettingsTest, ApplicationLinesFromOnLayoutAreWrittenAndReadBack) {
  QStringList seen;
  grid->OnLayout = [&](TObject* sender, TStrings* layout, bool apply) {
    EXPECT_EQ(sender, grid);
    if (!apply) layout->Add("Filter=City='Oslo'");
    if (!apply) layout->Add("a line with no name");
    else seen << layout->Values("Filter");
  };
  Settings()->SaveLayout();
  EXPECT_EQ(IniFileLines().filter(QRegularExpression("^=|no name")), QStringList()) << "a nameless line makes no entry";
  EXPECT_EQ(QSettings(IniPath(), QSettings::IniFormat).value("Form1.Grid1/Filter").toString(), "City='Oslo'");
  Settings()->LayoutList()->Clear();
  Settings()->LoadLayout();
  EXPECT_EQ(seen, QStringList({"City='Oslo'"}));
}

TEST_F(SettingsTest, WithoutAGridNameNothingIsFoundLoadedSavedOrErased) {
  WriteIniFile("[Form1.Grid1]\nColumns=4\nColumn1=Amount,64,1,0\n");
  grid->SetName("");
  EXPECT_TRUE(Settings()->GetSection().isEmpty()) << "no owner's name without the grid's";
  EXPECT_FALSE(Settings()->LayoutExists());
  Settings()->LayoutList()->Add("kept=1");
  Settings()->ReadLayout();
  EXPECT_EQ(Settings()->LayoutList()->Count(), 1);
  Settings()->SetFileName(dir_.filePath("other.ini"));
  Settings()->SaveLayout();
  Settings()->EraseLayout();
  EXPECT_FALSE(QFile::exists(dir_.filePath("other.ini")));
}

TEST_F(SettingsTest, TheDefaultSectionFollowsTheNamesAndIsNeverStored) {
  EXPECT_EQ(Settings()->GetDefaultSection(), "Form1.Grid1");
  Settings()->SetSection("Form1.Grid1");
  EXPECT_FALSE(Settings()->IsSectionStored());
  grid->SetName("People");
  EXPECT_EQ(Settings()->Section(), "Form1.People");
  form->SetName("");
  EXPECT_EQ(Settings()->Section(), "People");
  Settings()->SetSection("Shared");
  EXPECT_EQ(Settings()->Section(), "Shared");
  Settings()->SaveLayout();
  EXPECT_EQ(IniFileLines().front(), "[Shared]");
  EXPECT_TRUE(Settings()->LayoutExists());
  Settings()->EraseLayout();
  EXPECT_FALSE(Settings()->LayoutExists());
}

TEST_F(SettingsTest, UserSettingsDecideWhetherTheNextStartLoadsAndSaves) {
  Settings()->SetOptions({soUserSettings, soLoadLayout, soSaveLayout, soLinesCount});
  WriteIniFile("[Form1.Grid1]\nAutoLoadLayout=0\nAutoSaveLayout=1\nColumns=4\nColumn1=Amount,64,1,0\nLinesCount=3\n");
  Settings()->AutoLoadLayout();
  EXPECT_EQ(Settings()->Options(), TQuilSettingsOptions({soUserSettings, soSaveLayout, soLinesCount}));
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "ID");
  EXPECT_EQ(grid->LinesCount(), 1);

  WriteIniFile("[Form1.Grid1]\nAutoLoadLayout=1\nAutoSaveLayout=0\nColumns=4\nColumn1=Amount,64,1,0\nLinesCount=3\n");
  Settings()->AutoLoadLayout();
  EXPECT_EQ(Settings()->Options(), TQuilSettingsOptions({soUserSettings, soLoadLayout, soLinesCount}));
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount");
  EXPECT_EQ(grid->LinesCount(), 3);
  const QStringList before = IniFileLines();
  Settings()->AutoSaveLayout();
  EXPECT_EQ(IniFileLines(), before) << "the stored choice not to save holds";
}

TEST_F(SettingsTest, WithoutUserSettingsTheOptionsAloneDecide) {
  WriteIniFile("[Form1.Grid1]\nAutoLoadLayout=0\nColumns=4\nColumn1=Amount,64,1,0\n");
  Settings()->SwitchOptions({soSaveLayout}, false);
  Settings()->AutoLoadLayout();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount");
  const QStringList before = IniFileLines();
  Settings()->AutoSaveLayout();
  EXPECT_EQ(IniFileLines(), before);
  Settings()->SetOptions({soSaveLayout});
  ColumnOf("ID")->MoveTo(0);
  Settings()->AutoLoadLayout();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "ID");
  Settings()->AutoSaveLayout();
  EXPECT_EQ(IniFileLines().size(), 2 + grid->Columns()->Count());
}

TEST_F(SettingsTest, AGivenStoreIsUsedAndLeftToTheCaller) {
  TMemIniFile store(dir_.filePath("memory.ini"));
  TCustomIniFile* given = &store;
  EXPECT_FALSE(Settings()->CreateIniFile(given));
  EXPECT_EQ(given, &store);
  Arrange();
  Settings()->SaveLayout(&store);
  EXPECT_TRUE(Settings()->LayoutExists(&store));
  EXPECT_FALSE(Settings()->LayoutExists());
  EXPECT_FALSE(QFile::exists(store.FileName()));
  Rebuild();
  Settings()->LoadLayout(&store);
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount");
  Settings()->EraseLayout(&store);
  EXPECT_FALSE(Settings()->LayoutExists(&store));
}

TEST_F(SettingsTest, TheOwnStoreIsAnIniFileOrTheRegistryByName) {
  TCustomIniFile* made = nullptr;
  ASSERT_TRUE(Settings()->CreateIniFile(made));
  std::unique_ptr<TCustomIniFile> own(made);
  EXPECT_NE(dynamic_cast<TIniFile*>(made), nullptr);
  EXPECT_EQ(made->FileName(), IniPath());
  Settings()->SetFileName("");
  EXPECT_EQ(Settings()->GetDefaultFileName(), ChangeFileExt(Application->ExeName(), ".ini"));
  const QString savedIniName = DefaultIniFileName;
  DefaultIniFileName = IniPath();
  EXPECT_EQ(Settings()->GetDefaultFileName(), IniPath());
  DefaultIniFileName = savedIniName;
  Settings()->SetIniFile(false);
  EXPECT_EQ(Settings()->GetDefaultFileName(), "\\Software\\Marl Software\\QuilDBGrid");
  made = nullptr;
  ASSERT_TRUE(Settings()->CreateIniFile(made));
  own.reset(made);
  EXPECT_NE(dynamic_cast<TRegistryIniFile*>(made), nullptr);
  EXPECT_EQ(made->FileName(), DefaultRegistryKey);
}

TEST_F(SettingsTest, TheRegistryFormKeepsTheLayoutUnderItsKey) {
  Settings()->SetIniFile(false);
  Settings()->SetFileName("");
  Arrange();
  Settings()->SaveLayout();
  QSettings store(dir_.filePath("Marl Software/QuilDBGrid.conf"), QSettings::IniFormat);
  EXPECT_EQ(store.value("Form1.Grid1/Columns").toString(), "4");
  const QString savedKey = DefaultRegistryKey;
  DefaultRegistryKey = "\\Software\\Quil Test\\Layouts";
  EXPECT_FALSE(Settings()->LayoutExists());
  DefaultRegistryKey = savedKey;
  Rebuild();
  Settings()->SetIniFile(false);
  Settings()->SetFileName("");
  Settings()->LoadLayout();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount");
}

// --- At the grid

TEST_F(SettingsTest, TheFirstActivationAfterLoadingLoadsOnceAndOnlyWhenActive) {
  Arrange();
  Settings()->SaveLayout();
  Rebuild();
  dataSet->Close();
  Grid()->Loaded();
  dataSet->Open();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "ID") << "settings that are not active load nothing";

  dataSet->Close();
  Grid()->Loaded();
  Settings()->SetActive(true);
  dataSet->Open();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "Amount");
  EXPECT_FALSE(dataSet->ControlsDisabled());
  EXPECT_FALSE(Settings()->AutoLoadPending());

  ColumnOf("ID")->MoveTo(0);
  dataSet->Close();
  dataSet->Open();
  EXPECT_EQ(grid->Columns()->Items(0)->FieldName(), "ID") << "reopening does not load again";
}

TEST_F(SettingsTest, AFailedAutomaticLoadLeavesTheDataSetsControlsEnabled) {
  Settings()->SaveLayout();
  Settings()->SetActive(true);
  grid->OnLayout = [](TObject*, TStrings*, bool apply) {
    if (apply) throw EInvalidGridOperation("refused");
  };
  dataSet->Close();
  Grid()->Loaded();
  EXPECT_THROW(dataSet->Open(), EInvalidGridOperation);
  EXPECT_FALSE(dataSet->ControlsDisabled());
}

TEST_F(SettingsTest, TheGridSavesWhenItGoesUnlessDesigned) {
  Settings()->SetActive(true);
  Arrange();
  delete grid;
  grid = nullptr;
  EXPECT_TRUE(IniFileLines().contains("Column1=Amount,150,1,1"));

  QFile::remove(IniPath());
  auto* designed = new TSettingsGrid(form);
  Name(designed);
  designed->Settings()->SetActive(true);
  designed->SetDesigning(true);
  delete designed;
  EXPECT_FALSE(QFile::exists(IniPath()));
}

TEST_F(SettingsTest, AFailedSaveAtDestructionReachesTheApplication) {
  Settings()->SetActive(true);
  Settings()->SetFileName(dir_.filePath("missing/folder/layout.ini"));
  QStringList messages;
  const TExceptionEvent saved = Application->OnException();
  Application->SetOnException([&](TObject* sender, const Exception& error) {
    EXPECT_EQ(sender, grid);
    messages << error.Message();
  });
  delete grid;
  grid = nullptr;
  Application->SetOnException(saved);
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages.front().startsWith("Unable to write to "));
}

TEST_F(SettingsTest, TheSettingsTravelInTheFormStreamWithoutTheirLayout) {
  Settings()->SetActive(true);
  Settings()->SetOptions({soLoadLayout, soLinesCount});
  Settings()->SetSection("Shared");
  TMemoryStream binary;
  binary.WriteComponent(grid);
  const QString text = test::ObjectText(binary);
  EXPECT_TRUE(text.contains("Settings.Options = [soLoadLayout, soLinesCount]")) << text.toStdString();
  EXPECT_FALSE(text.contains("Settings.Layout")) << text.toStdString();
  binary.Seek(0, soBeginning);
  TQuilDBGrid copy(nullptr);
  binary.ReadComponent(&copy);
  EXPECT_TRUE(copy.Settings()->Active());
  EXPECT_TRUE(copy.Settings()->IniFile());
  EXPECT_EQ(copy.Settings()->FileName(), IniPath());
  EXPECT_EQ(copy.Settings()->Options(), TQuilSettingsOptions({soLoadLayout, soLinesCount}));
  EXPECT_EQ(copy.Settings()->Section(), "Shared");

  Settings()->SetSection("");
  Settings()->SetIniFile(false);
  Settings()->SetFileName("");
  Settings()->SetActive(false);
  Settings()->SetOptions(DefaultSettingsOptions);
  TMemoryStream plain;
  plain.WriteComponent(grid);
  EXPECT_FALSE(test::ObjectText(plain).contains("Settings")) << test::ObjectText(plain).toStdString();
}

}  // namespace
