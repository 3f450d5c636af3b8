#include <gtest/gtest.h>

#include <QLocale>

#include "framework/rtl/SystemInfo.h"

using namespace quil;

namespace {

struct LocaleCase {
  QLocale::Language language;
  int priLangID;
  bool farEast;
  bool middleEast;
};

class SysLocaleOfTest : public ::testing::TestWithParam<LocaleCase> {};

TEST_P(SysLocaleOfTest, GivesTheLanguageIdAndItsScriptGroup) {
  const TSysLocale locale = SysLocaleOf(GetParam().language);
  EXPECT_EQ(locale.PriLangID, GetParam().priLangID);
  EXPECT_EQ(locale.FarEast, GetParam().farEast);
  EXPECT_EQ(locale.MiddleEast, GetParam().middleEast);
  EXPECT_EQ(locale.DefaultLCID & 0x3FF, GetParam().priLangID);
}

INSTANTIATE_TEST_SUITE_P(Languages, SysLocaleOfTest, ::testing::Values(
    LocaleCase{QLocale::Korean, 18, true, false}, LocaleCase{QLocale::Japanese, 0x11, true, false},
    LocaleCase{QLocale::Chinese, 0x04, true, false}, LocaleCase{QLocale::Arabic, 0x01, false, true},
    LocaleCase{QLocale::Hebrew, 0x0D, false, true}, LocaleCase{QLocale::English, 0x09, false, false},
    LocaleCase{QLocale::German, 0x07, false, false}, LocaleCase{QLocale::Swahili, 0, false, false}));

TEST(SysLocale, StartsAsTheSystemsLocale) {
  EXPECT_EQ(SysLocale.PriLangID, SysLocaleOf(QLocale::system().language()).PriLangID);
}

TEST(VersionInfo, AnswersOnlyForTheRecordOfItsSize) {
  TOSVersionInfoEx info;
  info.dwMajorVersion = 99;
  ASSERT_TRUE(GetVersionEx(info));
  EXPECT_EQ(info.dwOSVersionInfoSize, 284u);
#ifndef Q_OS_WIN
  EXPECT_EQ(info.dwMajorVersion, 0u) << "no Windows version elsewhere";
  EXPECT_FALSE(CheckWin32Version(6, 2));
#endif
  EXPECT_TRUE(CheckWin32Version(0, 0));
  TOSVersionInfoEx shorter;
  shorter.dwOSVersionInfoSize = 148;
  EXPECT_FALSE(GetVersionEx(shorter));
}

}  // namespace
