#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Format.h"
#include "framework/rtl/Variants.h"

using namespace quil;

namespace {

struct FormatRow {
  const char* format;
  std::vector<TVarRec> args;
  const char* expected;
};

// Format takes an initializer list; the table keeps its arguments in a vector.
QString FormatArgs(const QString& format, const std::vector<TVarRec>& args) {
  switch (args.size()) {
    case 0: return Format(format, {});
    case 1: return Format(format, {args[0]});
    case 2: return Format(format, {args[0], args[1]});
    case 3: return Format(format, {args[0], args[1], args[2]});
    default: return Format(format, {args[0], args[1], args[2], args[3]});
  }
}

class FormatTable : public testing::TestWithParam<FormatRow> {};

TEST_P(FormatTable, WritesTheExpectedText) {
  const FormatRow& row = GetParam();
  EXPECT_EQ(FormatArgs(row.format, row.args), QString::fromUtf8(row.expected)) << row.format;
}

INSTANTIATE_TEST_SUITE_P(
    Directives, FormatTable,
    testing::Values(
        FormatRow{"%0:s-%1:s-%0:s", {"a", "b"}, "a-b-a"},
        FormatRow{"%1:s %s", {"a", "b", "c"}, "b c"},
        FormatRow{"%2:s %0:s %s", {"a", "b", "c"}, "c a b"},
        FormatRow{"%1:s - %0:s", {"code", "name"}, "name - code"},
        FormatRow{"%1:5d|%0:-4s|%1:.3d", {"ab", 7}, "    7|ab  |007"},
        FormatRow{"%0:*d|%d", {4, 9, 1}, "   9|1"},
        FormatRow{"%1:31.15f|", {"x", 0.5}, "              0.500000000000000|"},
        FormatRow{"%d", {-42}, "-42"},
        FormatRow{"%5d|", {42}, "   42|"},
        FormatRow{"%-5d|", {42}, "42   |"},
        FormatRow{"%.5d", {-42}, "-00042"},
        FormatRow{"%3d", {12345}, "12345"},
        FormatRow{"%d.", {7}, "7."},
        FormatRow{"%x", {255}, "FF"},
        FormatRow{"%.8x", {255}, "000000FF"},
        FormatRow{"%.8x", {int64_t(-7) + 0x80000000LL}, "7FFFFFF9"},
        FormatRow{"%.16x", {int64_t(5) + int64_t(0x8000000000000000ULL)}, "8000000000000005"},
        FormatRow{"%x", {-1}, "FFFFFFFF"},
        FormatRow{"%x", {int64_t(-1)}, "FFFFFFFFFFFFFFFF"},
        FormatRow{"%u", {-1}, "4294967295"},
        FormatRow{"%*d|", {5, 42}, "   42|"},
        FormatRow{"%-*d|", {4, 7}, "7   |"},
        FormatRow{"%*.*f", {8, 3, 3.14159}, "   3.142"},
        FormatRow{"%.*d", {4, 7}, "0007"},
        FormatRow{"%%", {}, "%"},
        FormatRow{"100%% of %d", {3}, "100% of 3"},
        FormatRow{"%s", {"text"}, "text"},
        FormatRow{"%.3s", {"abcdef"}, "abc"},
        FormatRow{"%-10s|", {"ab"}, "ab        |"},
        FormatRow{"%10s|", {"ab"}, "        ab|"},
        FormatRow{"%S", {"upper type letter"}, "upper type letter"},
        FormatRow{"%31.15f", {1234.5}, "           1234.500000000000000"},
        FormatRow{"%f", {2.0 / 3}, "0.67"},
        FormatRow{"%.2f", {0.125}, "0.13"},
        FormatRow{"%.2f", {-0.125}, "-0.13"},
        FormatRow{"%.2f", {1.005}, "1.00"},
        FormatRow{"%.0f", {2.5}, "3"},
        FormatRow{"%.2f", {-0.001}, "0.00"},
        FormatRow{"%.1f", {9.96}, "10.0"},
        FormatRow{"%.3f", {1e-10}, "0.000"},
        FormatRow{"%e", {1234.5}, "1.23450000000000E+003"},
        FormatRow{"%.3e", {-0.000123456}, "-1.23E-004"},
        FormatRow{"%.2e", {9.99}, "1.0E+001"},
        FormatRow{"%g", {0.1}, "0.1"},
        FormatRow{"%g", {1e15}, "1E15"},
        FormatRow{"%g", {999999999999999.0}, "999999999999999"},
        FormatRow{"%g", {123456789012345678.0}, "1.23456789012346E17"},
        FormatRow{"%g", {0.00001}, "0.00001"},
        FormatRow{"%g", {0.000001}, "1E-6"},
        FormatRow{"%g", {-1.5e-10}, "-1.5E-10"},
        FormatRow{"%.3g", {1234.0}, "1.23E3"},
        FormatRow{"%g", {0.0}, "0"},
        FormatRow{"%n", {1234567.891}, "1,234,567.89"},
        FormatRow{"%.0n", {999.5}, "1,000"},
        FormatRow{"%n", {-1234.5}, "-1,234.50"},
        FormatRow{"%n", {12.0}, "12.00"},
        FormatRow{"%m", {1234.5}, "$1,234.50"},
        FormatRow{"%m", {-1234.5}, "($1,234.50)"},
        FormatRow{"%.0m", {-0.4}, "$0"},
        FormatRow{"[%s|%d|%.1f]", {"x", 2, 3.25}, "[x|2|3.3]"}));

TEST(Format, TakesDecimalAndGroupSeparatorsFromTheSettings) {
  TFormatSettings settings;
  settings.DecimalSeparator = u',';
  settings.ThousandSeparator = u'.';
  settings.CurrencyString = QStringLiteral("EUR");
  settings.CurrencyFormat = 3;
  settings.NegCurrFormat = 8;
  EXPECT_EQ(Format("%.2f", {1.5}, settings), "1,50");
  EXPECT_EQ(Format("%n", {1234567.5}, settings), "1.234.567,50");
  EXPECT_EQ(Format("%m", {1234.5}, settings), "1.234,50 EUR");
  EXPECT_EQ(Format("%m", {-2.0}, settings), "-2,00 EUR");
  EXPECT_EQ(Format("%g", {0.5}, settings), "0,5");
  EXPECT_EQ(Format("%e", {1.0}, settings), "1,00000000000000E+000");
}

TEST(Format, FollowsTheGlobalSettingsForMoney) {
  const TFormatSettings saved = FormatSettings;
  FormatSettings.CurrencyDecimals = 0;
  FormatSettings.NegCurrFormat = 1;
  const QString text = Format("%m", {-1234.5});
  FormatSettings = saved;
  EXPECT_EQ(text, "-$1,235");
}

TEST(Format, ConvertsVariantArgumentsToWhatTheDirectiveNeeds) {
  EXPECT_EQ(Format("%d", {Variant("12")}), "12");
  EXPECT_EQ(Format("%.2f", {Variant(3)}), "3.00");
  EXPECT_EQ(Format("%s", {Variant(2.5)}), "2.5");
  EXPECT_EQ(Format("[%s]", {Null()}), "[]");
  EXPECT_EQ(Format("%m", {Variant(Currency::FromScaled(15000))}), "$1.50");
  EXPECT_THROW(Format("%d", {Null()}), EVariantError);
}

struct BadFormat {
  const char* format;
  std::vector<TVarRec> args;
};

class FormatErrors : public testing::TestWithParam<BadFormat> {};

TEST_P(FormatErrors, RaiseConvertError) {
  EXPECT_THROW(FormatArgs(GetParam().format, GetParam().args), EConvertError) << GetParam().format;
}

INSTANTIATE_TEST_SUITE_P(Mismatches, FormatErrors,
                         testing::Values(BadFormat{"%d", {1.5}}, BadFormat{"%f", {1}}, BadFormat{"%s", {1}},
                                         BadFormat{"%d", {"1"}}, BadFormat{"%x", {2.0}}, BadFormat{"%p", {1}},
                                         BadFormat{"%d", {}}, BadFormat{"%d %d", {1}}, BadFormat{"%z", {1}},
                                         BadFormat{"abc%", {1}}, BadFormat{"%5", {1}}, BadFormat{"%*d", {"5", 1}},
                                         BadFormat{"%3:d", {1, 2}}));

TEST(Format, NamesTheFormatInItsMessages) {
  try {
    Format("%d", {"x"});
    FAIL() << "no exception";
  } catch (const EConvertError& error) {
    EXPECT_EQ(error.Message(), "Format '%d' invalid or incompatible with argument");
  }
  try {
    Format("%s %s", {"x"});
    FAIL() << "no exception";
  } catch (const EConvertError& error) {
    EXPECT_EQ(error.Message(), "No argument for format '%s %s'");
  }
}

TEST(Format, WritesPointersInFullWidthHexadecimal) {
  const void* pointer = reinterpret_cast<const void*>(quintptr(0xBEEF));
  EXPECT_EQ(Format("%p", {pointer}), QString("BEEF").rightJustified(int(2 * sizeof(void*)), u'0'));
}

}  // namespace
