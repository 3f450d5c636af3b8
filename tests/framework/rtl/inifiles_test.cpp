#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <optional>

#include "framework/rtl/DateFormat.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/IniFiles.h"
#include "framework/rtl/RtlTestSupport.h"
#include "framework/rtl/Strings.h"

using namespace quil;
using rtltest::Lines;

namespace {

class IniFileTest : public ::testing::Test {
protected:
  QString Path(const QString& name = QStringLiteral("layout.ini")) const { return dir_.filePath(name); }

  void WriteRaw(const QByteArray& bytes, const QString& name = QStringLiteral("layout.ini")) const {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  QStringList RawLines(const QString& name = QStringLiteral("layout.ini")) const {
    QFile file(Path(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split(QStringLiteral("\r\n"));
  }

  // As a plain text reader sees the file, line by line.
  QStringList TextStreamLines() const {
    QFile file(Path());
    if (!file.open(QIODevice::ReadOnly)) return {};
    QTextStream stream(&file);
    QStringList lines;
    while (!stream.atEnd()) lines << stream.readLine();
    return lines;
  }

  QTemporaryDir dir_;
};

QStringList SectionValues(const TCustomIniFile& ini, const QString& section) {
  TStringList values;
  ini.ReadSectionValues(section, &values);
  return Lines(values);
}

}  // namespace

TEST_F(IniFileTest, MemIniFileRoundTripsThroughAFile) {
  {
    TMemIniFile ini(Path());
    ini.WriteString(QStringLiteral("Grid.Layout"), QStringLiteral("Columns"), QStringLiteral("2"));
    ini.WriteString(QStringLiteral("Grid.Layout"), QStringLiteral("Column1"), QStringLiteral("Name,120,1,1"));
    ini.WriteString(QStringLiteral("Grid.Layout"), QStringLiteral("Filter"), QStringLiteral("City = 'Oslo'"));
    ini.WriteString(QStringLiteral("Grid.Layout"), QStringLiteral("Empty"), QString());
    ini.WriteString(QStringLiteral("Other"), QStringLiteral("Padded"), QStringLiteral("  two words  "));
    ini.WriteInteger(QStringLiteral("Other"), QStringLiteral("Width"), -42);
    ini.WriteBool(QStringLiteral("Other"), QStringLiteral("Active"), true);
    ini.WriteFloat(QStringLiteral("Other"), QStringLiteral("Ratio"), 2.5);
    EXPECT_EQ(ini.ReadString(QStringLiteral("Other"), QStringLiteral("Padded"), QString()),
              QStringLiteral("  two words  "));
    EXPECT_FALSE(QFile::exists(Path()));
    ini.UpdateFile();
  }
  TMemIniFile read(Path());
  EXPECT_EQ(SectionValues(read, QStringLiteral("Grid.Layout")),
            QStringList({"Columns=2", "Column1=Name,120,1,1", "Filter=City = 'Oslo'", "Empty="}));
  EXPECT_EQ(read.ReadString(QStringLiteral("Other"), QStringLiteral("Padded"), QString()),
            QStringLiteral("two words"));
  EXPECT_EQ(read.ReadInteger(QStringLiteral("Other"), QStringLiteral("Width"), 0), -42);
  EXPECT_TRUE(read.ReadBool(QStringLiteral("Other"), QStringLiteral("Active"), false));
  EXPECT_DOUBLE_EQ(read.ReadFloat(QStringLiteral("Other"), QStringLiteral("Ratio"), 0), 2.5);
  TStringList sections;
  read.ReadSections(&sections);
  EXPECT_EQ(Lines(sections), QStringList({"Grid.Layout", "Other"}));
}

TEST_F(IniFileTest, WrittenFileIsPlainIniText) {
  TMemIniFile ini(Path());
  ini.WriteString(QStringLiteral("Main"), QStringLiteral("Columns"), QStringLiteral("2"));
  ini.WriteString(QStringLiteral("Main"), QStringLiteral("Title"), QStringLiteral("Sales by city"));
  ini.WriteString(QStringLiteral("Second"), QStringLiteral("Count"), QStringLiteral("7"));
  ini.UpdateFile();
  EXPECT_EQ(RawLines(), QStringList({"[Main]", "Columns=2", "Title=Sales by city", "", "[Second]", "Count=7", "", ""}))
      << "every line ends with CR LF";
  EXPECT_EQ(TextStreamLines(), QStringList({"[Main]", "Columns=2", "Title=Sales by city", "", "[Second]", "Count=7", ""}));
  QSettings other(Path(), QSettings::IniFormat);
  EXPECT_EQ(other.value(QStringLiteral("Main/Title")).toString(), QStringLiteral("Sales by city"));
  EXPECT_EQ(other.value(QStringLiteral("Second/Count")).toInt(), 7);
}

TEST_F(IniFileTest, ReadingSkipsCommentsAndDamagedLines) {
  WriteRaw("\xEF\xBB\xBF"
           "orphan=before any section\r\n"
           "; a comment\r\n"
           "[ Layout ]\r\n"
           "  Columns  =  3  \r\n"
           "this line is damaged\r\n"
           "[unclosed\r\n"
           "Formula=a=b+c\r\n"
           "\r\n"
           "[Second]\n"
           "Key=1\n"
           "[layout]\n"
           "Extra=merged");
  TMemIniFile ini(Path());
  TStringList sections;
  ini.ReadSections(&sections);
  EXPECT_EQ(Lines(sections), QStringList({"Layout", "Second"}));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Layout")),
            QStringList({"Columns=3", "Formula=a=b+c", "Extra=merged"}));
  EXPECT_EQ(ini.ReadString(QStringLiteral("Layout"), QStringLiteral("Formula"), QString()),
            QStringLiteral("a=b+c"));
  EXPECT_FALSE(ini.ValueExists(QStringLiteral("Layout"), QStringLiteral("this line is damaged")));
}

TEST_F(IniFileTest, LinesWithoutAnEqualsSignStayInTheirSection) {
  WriteRaw("[Files]\n  first.txt  \nCount=2\nsecond.txt\n[Empty]\nno value here\n");
  TMemIniFile ini(Path());
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Files")), QStringList({"Count=2"}));
  TStringList keys;
  ini.ReadSection(QStringLiteral("Files"), &keys);
  EXPECT_EQ(Lines(keys), QStringList({"Count"}));
  EXPECT_FALSE(ini.SectionExists(QStringLiteral("Empty"))) << "a section exists by its keys";
  EXPECT_EQ(ini.ReadString(QStringLiteral("Empty"), QStringLiteral("no value here"), QStringLiteral("none")),
            QStringLiteral("none"));
  ini.WriteString(QStringLiteral("Files"), QStringLiteral("Count"), QStringLiteral("3"));
  ini.UpdateFile();
  EXPECT_EQ(RawLines(), QStringList({"[Files]", "first.txt", "Count=3", "second.txt", "", "[Empty]", "no value here", "", ""}));

  TIniFile direct(Path());
  direct.DeleteKey(QStringLiteral("Files"), QStringLiteral("Count"));
  EXPECT_EQ(RawLines(), QStringList({"[Files]", "first.txt", "second.txt", "", "[Empty]", "no value here", "", ""}));
}

TEST_F(IniFileTest, AByteOrderMarkDoesNotHideTheFirstSection) {
  WriteRaw("\xEF\xBB\xBF[First]\nk=\xC3\xA9t\xC3\xA9\n");
  TMemIniFile ini(Path());
  EXPECT_EQ(ini.ReadString(QStringLiteral("First"), QStringLiteral("k"), QString()), QStringLiteral("\u00e9t\u00e9"));
}

TEST_F(IniFileTest, CommentsDoNotSurviveARewrite) {
  WriteRaw("; kept?\n[A]\nx=1\n");
  TMemIniFile ini(Path());
  ini.UpdateFile();
  EXPECT_EQ(RawLines(), QStringList({"[A]", "x=1", "", ""}));
}

TEST_F(IniFileTest, LookupIgnoresCaseAndKeepsTheStoredSpelling) {
  TMemIniFile ini(Path());
  ini.WriteString(QStringLiteral("Layout"), QStringLiteral("Columns"), QStringLiteral("1"));
  ini.WriteString(QStringLiteral("LAYOUT"), QStringLiteral("COLUMNS"), QStringLiteral("2"));
  EXPECT_EQ(ini.ReadString(QStringLiteral("layout"), QStringLiteral("columns"), QString()), QStringLiteral("2"));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Layout")), QStringList({"COLUMNS=2"}));
  TStringList sections;
  ini.ReadSections(&sections);
  EXPECT_EQ(Lines(sections), QStringList({"Layout"}));
}

TEST_F(IniFileTest, CaseSensitiveFileTellsNamesApart) {
  TMemIniFile ini(Path());
  ini.SetCaseSensitive(true);
  ini.WriteString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("lower"));
  ini.WriteString(QStringLiteral("A"), QStringLiteral("K"), QStringLiteral("upper"));
  EXPECT_EQ(ini.ReadString(QStringLiteral("A"), QStringLiteral("k"), QString()), QStringLiteral("lower"));
  EXPECT_EQ(ini.ReadString(QStringLiteral("a"), QStringLiteral("K"), QStringLiteral("none")), QStringLiteral("none"));
}

TEST_F(IniFileTest, ExistenceEraseAndDelete) {
  WriteRaw("[Empty]\n[Full]\na=1\nb=\n");
  TMemIniFile ini(Path());
  EXPECT_FALSE(ini.SectionExists(QStringLiteral("Empty")));
  EXPECT_TRUE(ini.SectionExists(QStringLiteral("full")));
  EXPECT_TRUE(ini.ValueExists(QStringLiteral("Full"), QStringLiteral("B")));
  EXPECT_EQ(ini.ReadString(QStringLiteral("Full"), QStringLiteral("b"), QStringLiteral("default")), QString());
  EXPECT_EQ(ini.ReadString(QStringLiteral("Full"), QStringLiteral("c"), QStringLiteral("default")),
            QStringLiteral("default"));
  ini.DeleteKey(QStringLiteral("Full"), QStringLiteral("A"));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Full")), QStringList({"b="}));
  ini.EraseSection(QStringLiteral("FULL"));
  ini.DeleteKey(QStringLiteral("Missing"), QStringLiteral("a"));
  EXPECT_FALSE(ini.SectionExists(QStringLiteral("Full")));
  TStringList sections;
  ini.ReadSections(&sections);
  EXPECT_EQ(Lines(sections), QStringList({"Empty"}));
}

TEST_F(IniFileTest, ReadListsReplaceWhatTheListHeld) {
  TMemIniFile ini(Path());
  ini.WriteString(QStringLiteral("S"), QStringLiteral("a"), QStringLiteral("1"));
  TStringList list;
  list.Add(QStringLiteral("stale"));
  ini.ReadSection(QStringLiteral("S"), &list);
  EXPECT_EQ(Lines(list), QStringList({"a"}));
  ini.ReadSectionValues(QStringLiteral("missing"), &list);
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(IniFileTest, MissingFileReadsEmptyAndUnreadableFileRaises) {
  TMemIniFile missing(Path(QStringLiteral("none.ini")));
  EXPECT_FALSE(missing.SectionExists(QStringLiteral("A")));
  QDir(dir_.path()).mkdir(QStringLiteral("folder.ini"));
  EXPECT_THROW(TMemIniFile(Path(QStringLiteral("folder.ini"))), EFOpenError);
}

struct NumberCase {
  QString text;
  std::optional<int> number;  // none: the text is no number and the default comes back
};

class ReadInteger : public IniFileTest, public ::testing::WithParamInterface<NumberCase> {};

TEST_P(ReadInteger, ReadsDecimalAndHexOrGivesTheDefault) {
  TMemIniFile ini(Path());
  ini.WriteString(QStringLiteral("N"), QStringLiteral("v"), GetParam().text);
  const std::optional<int> number = GetParam().number;
  EXPECT_EQ(ini.ReadInteger(QStringLiteral("N"), QStringLiteral("v"), 99), number.value_or(99));
  EXPECT_EQ(ini.ReadBool(QStringLiteral("N"), QStringLiteral("v"), false), number.value_or(0) != 0);
  EXPECT_EQ(ini.ReadBool(QStringLiteral("N"), QStringLiteral("v"), true), number.value_or(1) != 0);
}

INSTANTIATE_TEST_SUITE_P(TCustomIniFile, ReadInteger,
                         ::testing::Values(NumberCase{"12", 12}, NumberCase{"-7", -7}, NumberCase{"0x1F", 31},
                                           NumberCase{"0X10", 16}, NumberCase{"$ff", 255}, NumberCase{"0", 0},
                                           NumberCase{"", {}}, NumberCase{"12abc", {}},
                                           NumberCase{"True", {}}, NumberCase{"0x", {}}));

TEST_F(IniFileTest, FloatThatIsNoNumberGivesTheDefault) {
  TMemIniFile ini(Path());
  ini.WriteString(QStringLiteral("N"), QStringLiteral("v"), QStringLiteral("wide"));
  EXPECT_DOUBLE_EQ(ini.ReadFloat(QStringLiteral("N"), QStringLiteral("v"), 1.25), 1.25);
  EXPECT_DOUBLE_EQ(ini.ReadFloat(QStringLiteral("N"), QStringLiteral("missing"), 1.25), 1.25);
}

TEST_F(IniFileTest, DatesAndTimesRoundTripInTheFormatSettings) {
  const TDateTime date = EncodeDate(2024, 2, 29);
  const TDateTime time = EncodeTime(13, 45, 30, 0);
  TMemIniFile ini(Path());
  ini.WriteDate(QStringLiteral("D"), QStringLiteral("date"), date);
  ini.WriteTime(QStringLiteral("D"), QStringLiteral("time"), time);
  ini.WriteDateTime(QStringLiteral("D"), QStringLiteral("both"), date + time);
  ini.WriteString(QStringLiteral("D"), QStringLiteral("bad"), QStringLiteral("someday"));
  EXPECT_EQ(ini.ReadString(QStringLiteral("D"), QStringLiteral("date"), QString()), DateToStr(date));
  EXPECT_DOUBLE_EQ(ini.ReadDate(QStringLiteral("D"), QStringLiteral("date"), 0), date);
  EXPECT_NEAR(ini.ReadTime(QStringLiteral("D"), QStringLiteral("time"), 0), time, 1e-9);
  EXPECT_NEAR(ini.ReadDateTime(QStringLiteral("D"), QStringLiteral("both"), 0), date + time, 1e-9);
  EXPECT_DOUBLE_EQ(ini.ReadDate(QStringLiteral("D"), QStringLiteral("bad"), 7.0), 7.0);
  EXPECT_DOUBLE_EQ(ini.ReadDateTime(QStringLiteral("D"), QStringLiteral("missing"), 7.0), 7.0);
}

TEST_F(IniFileTest, IniFileWritesThroughOnEveryCall) {
  TIniFile first(Path());
  TIniFile second(Path());
  first.WriteString(QStringLiteral("A"), QStringLiteral("one"), QStringLiteral("1"));
  second.WriteString(QStringLiteral("A"), QStringLiteral("two"), QStringLiteral("2"));
  EXPECT_EQ(TMemIniFile(Path()).ReadString(QStringLiteral("A"), QStringLiteral("one"), QString()),
            QStringLiteral("1"));
  EXPECT_EQ(SectionValues(first, QStringLiteral("a")), QStringList({"one=1", "two=2"}));
  second.DeleteKey(QStringLiteral("A"), QStringLiteral("ONE"));
  EXPECT_FALSE(first.ValueExists(QStringLiteral("A"), QStringLiteral("one")));
  first.EraseSection(QStringLiteral("A"));
  EXPECT_FALSE(second.SectionExists(QStringLiteral("A")));
}

TEST_F(IniFileTest, IniFileSeesChangesMadeBehindItsBack) {
  TIniFile ini(Path());
  EXPECT_EQ(ini.ReadString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("none")), QStringLiteral("none"));
  WriteRaw("[A]\nk=outside\n");
  EXPECT_EQ(ini.ReadString(QStringLiteral("A"), QStringLiteral("k"), QString()), QStringLiteral("outside"));
}

TEST_F(IniFileTest, WritingWhereNoFileCanBeRaisesIniFileException) {
  TIniFile ini(dir_.filePath(QStringLiteral("no/such/dir/layout.ini")));
  try {
    ini.WriteString(QStringLiteral("A"), QStringLiteral("k"), QStringLiteral("v"));
    FAIL() << "expected EIniFileException";
  } catch (const EIniFileException& error) {
    EXPECT_TRUE(error.Message().startsWith(QStringLiteral("Unable to write to ")));
  }
}

namespace {

// Points the user-scope native settings at a temporary directory for one test.
class RegistryIniFileTest : public IniFileTest {
protected:
  void SetUp() override { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dir_.path()); }
  const QString root_ = QStringLiteral("\\Software\\Quil Test\\Grid");
};

}  // namespace

TEST_F(RegistryIniFileTest, RoundTripsThroughTheSettingsStore) {
  {
    TRegistryIniFile ini(root_);
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("Columns"), QStringLiteral("2"));
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("Column1"), QStringLiteral("Name,120,1,1"));
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("Filter"), QStringLiteral(" a=b "));
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("Empty"), QString());
    ini.WriteInteger(QStringLiteral("Other"), QStringLiteral("Width"), 64);
    ini.WriteBool(QStringLiteral("Other"), QStringLiteral("Active"), true);
    ini.UpdateFile();
  }
  TRegistryIniFile read(root_);
  EXPECT_EQ(read.FileName(), root_);
  EXPECT_EQ(read.ReadString(QStringLiteral("Form1.Grid1"), QStringLiteral("Column1"), QString()),
            QStringLiteral("Name,120,1,1"));
  EXPECT_EQ(read.ReadString(QStringLiteral("Form1.Grid1"), QStringLiteral("Filter"), QString()),
            QStringLiteral(" a=b "));
  EXPECT_EQ(read.ReadString(QStringLiteral("Form1.Grid1"), QStringLiteral("Empty"), QStringLiteral("x")), QString());
  EXPECT_EQ(read.ReadInteger(QStringLiteral("Other"), QStringLiteral("Width"), 0), 64);
  EXPECT_TRUE(read.ReadBool(QStringLiteral("Other"), QStringLiteral("Active"), false));
  TStringList values;
  read.ReadSectionValues(QStringLiteral("Form1.Grid1"), &values);
  EXPECT_EQ(values.Count(), 4);
  EXPECT_EQ(values.Values(QStringLiteral("Columns")), QStringLiteral("2"));
  EXPECT_EQ(values.Values(QStringLiteral("Column1")), QStringLiteral("Name,120,1,1"));
  TStringList sections;
  read.ReadSections(&sections);
  sections.Sort();
  EXPECT_EQ(Lines(sections), QStringList({"Form1.Grid1", "Other"}));
}

TEST_F(RegistryIniFileTest, StoresUnderTheRootKeysNames) {
  TRegistryIniFile ini(root_);
  ini.WriteString(QStringLiteral("Layout"), QStringLiteral("Columns"), QStringLiteral("3"));
  ini.UpdateFile();
  QSettings store(dir_.filePath(QStringLiteral("Quil Test/Grid.conf")), QSettings::IniFormat);
  EXPECT_EQ(store.value(QStringLiteral("Layout/Columns")).toString(), QStringLiteral("3"));
}

TEST_F(RegistryIniFileTest, NamesMatchWhateverTheirCase) {
  TRegistryIniFile ini(root_);
  ini.WriteString(QStringLiteral("Layout"), QStringLiteral("Columns"), QStringLiteral("1"));
  ini.WriteString(QStringLiteral("LAYOUT"), QStringLiteral("columns"), QStringLiteral("2"));
  EXPECT_EQ(ini.ReadString(QStringLiteral("layout"), QStringLiteral("COLUMNS"), QString()), QStringLiteral("2"));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("lAyOuT")), QStringList({"Columns=2"}));
  EXPECT_TRUE(ini.ValueExists(QStringLiteral("layout"), QStringLiteral("columns")));
}

TEST_F(RegistryIniFileTest, EraseAndDeleteRemoveOnlyTheirTarget) {
  TRegistryIniFile ini(root_);
  ini.WriteString(QStringLiteral("Keep"), QStringLiteral("a"), QStringLiteral("1"));
  ini.WriteString(QStringLiteral("Drop"), QStringLiteral("a"), QStringLiteral("1"));
  ini.WriteString(QStringLiteral("Drop"), QStringLiteral("b"), QStringLiteral("2"));
  ini.DeleteKey(QStringLiteral("drop"), QStringLiteral("A"));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Drop")), QStringList({"b=2"}));
  ini.EraseSection(QStringLiteral("DROP"));
  ini.EraseSection(QString());
  EXPECT_FALSE(ini.SectionExists(QStringLiteral("Drop")));
  EXPECT_TRUE(ini.SectionExists(QStringLiteral("Keep")));
  EXPECT_EQ(ini.ReadString(QStringLiteral("Keep"), QStringLiteral("a"), QString()), QStringLiteral("1"));
}

// A name is the application's text: a slash or backslash in a key must not open a
// group of the store, and a backslash in a section names a subkey as in the registry.
TEST_F(RegistryIniFileTest, SeparatorsInNamesKeepTheirMeaning) {
  {
    TRegistryIniFile ini(root_);
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("Price/Unit"), QStringLiteral("1"));
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("A\\B"), QStringLiteral("2"));
    ini.WriteString(QStringLiteral("Form1.Grid1"), QStringLiteral("50%"), QStringLiteral("3"));
    ini.WriteString(QStringLiteral("Layouts\\Main"), QStringLiteral("Columns"), QStringLiteral("4"));
    ini.UpdateFile();
  }
  QSettings store(dir_.filePath(QStringLiteral("Quil Test/Grid.conf")), QSettings::IniFormat);
  EXPECT_EQ(store.value(QStringLiteral("Form1.Grid1/Price%2FUnit")).toString(), "1") << "escaped, not a group";
  TRegistryIniFile ini(root_);
  EXPECT_EQ(ini.ReadString(QStringLiteral("Form1.Grid1"), QStringLiteral("price/unit"), QString()), "1");
  EXPECT_EQ(ini.ReadString(QStringLiteral("Form1.Grid1"), QStringLiteral("A\\B"), QString()), "2");
  QStringList values = SectionValues(ini, QStringLiteral("Form1.Grid1"));
  values.sort();
  EXPECT_EQ(values, QStringList({"50%=3", "A\\B=2", "Price/Unit=1"}));
  EXPECT_TRUE(ini.SectionExists(QStringLiteral("layouts\\main")));
  EXPECT_EQ(SectionValues(ini, QStringLiteral("Layouts\\Main")), QStringList({"Columns=4"}));
  ini.EraseSection(QStringLiteral("Layouts\\Main"));
  EXPECT_FALSE(ini.SectionExists(QStringLiteral("Layouts\\Main")));
}
