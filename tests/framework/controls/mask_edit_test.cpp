#include <gtest/gtest.h>

#include <QTest>

#include "ControlForm.h"
#include "framework/controls/MaskEdit.h"
#include "framework/controls/MaskEdit_p.h"
#include "framework/rtl/FormatSettings.h"

using namespace quil;

namespace {

struct TMaskCase {
  const char* editMask;
  const char* inputMask;  // what Qt's line edit is given
  const char* literals;   // 'L' where the mask holds a literal
  bool saveLiterals;
};

class ParseEditMaskTest : public testing::TestWithParam<TMaskCase> {};

TEST_P(ParseEditMaskTest, TranslatesTheMaskForTheLineEdit) {
  const TMaskCase& row = GetParam();
  const TEditMaskInfo info = ParseEditMask(QString::fromUtf8(row.editMask));
  EXPECT_EQ(info.InputMask, QString::fromUtf8(row.inputMask));
  EXPECT_EQ(info.LiteralPositions, QString::fromUtf8(row.literals));
  EXPECT_EQ(info.SaveLiterals, row.saveLiterals);
}

INSTANTIATE_TEST_SUITE_P(
    Masks, ParseEditMaskTest,
    testing::Values(
        TMaskCase{"000;0;_", "999;_", "   ", false},
        // Required and optional letters, alphanumerics and characters; digits and signs.
        TMaskCase{"LlAaCc#9;1;*", "AaNnXx#0;*", "        ", true},
        // Case conversion, and "<>" switching it off.
        TMaskCase{">LL<>l;1;_", ">AA!a;_", "   ", true},
        // An escaped code is a literal; a literal that Qt reads as a code is escaped for it.
        TMaskCase{"\\0-0H;1;_", "\\0-9\\H;_", "LL L", true},
        // '_' is a blank, ':' and '/' the separators of the format settings.
        TMaskCase{"00_00;1;*", "99 99;*", "  L  ", true},
        TMaskCase{"!90:00;1;_", "09:99;_", "  L  ", true},
        TMaskCase{"99/99/0000;1;_", "00/00/9999;_", "  L  L    ", true},
        // Without a mask there is nothing for the line edit.
        TMaskCase{"", "", "", true}));

TEST(ParseEditMask, TakesTheSeparatorsOfTheFormatSettingsInForce) {
  const TFormatSettings saved = FormatSettings;
  FormatSettings.DateSeparator = QLatin1Char('.');
  FormatSettings.TimeSeparator = QLatin1Char('-');
  const TEditMaskInfo date = ParseEditMask(QStringLiteral("99/99/0000;1;_"));
  const TEditMaskInfo time = ParseEditMask(QStringLiteral("90:00;1;_"));
  const TEditMaskInfo escaped = ParseEditMask(QStringLiteral("99\\/99;1;_"));
  FormatSettings = saved;
  EXPECT_EQ(date.InputMask, QStringLiteral("00.00.9999;_"));
  EXPECT_EQ(time.InputMask, QStringLiteral("09-99;_"));
  EXPECT_EQ(escaped.InputMask, QStringLiteral("00/00;_")) << "an escaped slash stays a slash";
}

// Typing into a date mask under other separators: the value carries the locale's
// literals, or none of them where the mask does not save literals.
TEST(MaskEdit, TypedDigitsTakeTheLiteralsOfTheMask) {
  quil::test::ControlForm host;
  auto* edit = new TCustomMaskEdit(host.form);
  edit->SetParent(host.form);
  const TFormatSettings saved = FormatSettings;
  FormatSettings.DateSeparator = QLatin1Char('.');
  edit->SetEditMask(QStringLiteral("99/99/0000;1;_"));
  FormatSettings = saved;
  ASSERT_TRUE(host.Show());
  edit->SetFocus();
  QTest::keyClicks(LineEdit(edit), QStringLiteral("24112026"));
  EXPECT_EQ(edit->Text(), QStringLiteral("24.11.2026"));

  edit->SetEditMask(QStringLiteral("000_000;0;*"));
  edit->SetText(QString());
  LineEdit(edit)->home(false);
  QTest::keyClicks(LineEdit(edit), QStringLiteral("123456"));
  EXPECT_EQ(edit->EditText(), QStringLiteral("123 456"));
  EXPECT_EQ(edit->Text(), QStringLiteral("123456"));
}

}  // namespace
