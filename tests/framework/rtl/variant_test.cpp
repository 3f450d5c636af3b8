#include <gtest/gtest.h>

#include <climits>
#include <functional>

#include "QtPrinters.h"
#include "framework/rtl/DateUtils.h"
#include "framework/rtl/Exceptions.h"
#include "framework/rtl/Variants.h"

using namespace quil;

namespace {

Variant Money(double value) { return Variant(Currency::FromDouble(value)); }

TEST(Variant, TakesItsTypeFromTheValue) {
  EXPECT_EQ(VarType(Variant()), varEmpty);
  EXPECT_EQ(VarType(Null()), varNull);
  EXPECT_EQ(VarType(Variant(short(5))), varSmallint);
  EXPECT_EQ(VarType(Variant(5)), varInteger);
  EXPECT_EQ(VarType(Variant(int64_t(5))), varInt64);
  EXPECT_EQ(VarType(Variant(qint64(5))), varInt64);
  EXPECT_EQ(VarType(Variant(1.5)), varDouble);
  EXPECT_EQ(VarType(Variant(true)), varBoolean);
  EXPECT_EQ(VarType(Variant("a")), varString);
  EXPECT_EQ(VarType(Money(1)), varCurrency);
  EXPECT_EQ(VarType(VarFromDateTime(1)), varDate);
  EXPECT_EQ(VarType(VarArrayOf({1, 2})), varArray | varVariant);
}

TEST(Variant, ClassifiesValues) {
  EXPECT_TRUE(VarIsEmpty(Unassigned()));
  EXPECT_TRUE(VarIsClear(Variant()));
  EXPECT_FALSE(VarIsEmpty(Null()));
  EXPECT_TRUE(VarIsNull(Null()));
  EXPECT_FALSE(VarIsNull(Variant(0)));
  EXPECT_TRUE(VarIsArray(VarArrayOf({})));
  EXPECT_FALSE(VarIsArray(Variant("a")));
  EXPECT_TRUE(VarIsStr(Variant("")));
  EXPECT_TRUE(VarIsNumeric(Variant(true)));
  EXPECT_TRUE(VarIsNumeric(Money(2)));
  EXPECT_FALSE(VarIsNumeric(VarFromDateTime(2)));
  EXPECT_FALSE(VarIsNumeric(Variant("1")));
  EXPECT_TRUE(VarIsOrdinal(Variant(int64_t(1))));
  EXPECT_FALSE(VarIsOrdinal(Variant(1.0)));
  EXPECT_TRUE(VarIsFloat(Variant(1.0)));
}

struct IntegerRow {
  const char* name;
  std::function<Variant()> value;
  std::optional<int> expected;  // nullopt: EVariantError
};

class AsIntegerTable : public testing::TestWithParam<IntegerRow> {};

TEST_P(AsIntegerTable, ConvertsOrRaises) {
  const IntegerRow& row = GetParam();
  if (row.expected) EXPECT_EQ(row.value().AsInteger(), *row.expected) << row.name;
  else EXPECT_THROW(row.value().AsInteger(), EVariantError) << row.name;
}

INSTANTIATE_TEST_SUITE_P(
    Values, AsIntegerTable,
    testing::Values(IntegerRow{"empty", [] { return Variant(); }, 0},
                    IntegerRow{"null", [] { return Null(); }, std::nullopt},
                    IntegerRow{"true", [] { return Variant(true); }, -1},
                    IntegerRow{"false", [] { return Variant(false); }, 0},
                    IntegerRow{"2.5", [] { return Variant(2.5); }, 2},
                    IntegerRow{"3.5", [] { return Variant(3.5); }, 4},
                    IntegerRow{"-2.5", [] { return Variant(-2.5); }, -2},
                    IntegerRow{"'42'", [] { return Variant("42"); }, 42},
                    IntegerRow{"'$10'", [] { return Variant("$10"); }, 16},
                    IntegerRow{"'4.6'", [] { return Variant("4.6"); }, 5},
                    IntegerRow{"'True'", [] { return Variant("True"); }, -1},
                    IntegerRow{"'abc'", [] { return Variant("abc"); }, std::nullopt},
                    IntegerRow{"''", [] { return Variant(""); }, std::nullopt},
                    IntegerRow{"currency 2.5", [] { return Money(2.5); }, 2},
                    IntegerRow{"currency -7.75", [] { return Money(-7.75); }, -8},
                    IntegerRow{"date", [] { return VarFromDateTime(45351.75); }, 45352},
                    IntegerRow{"3e10", [] { return Variant(3e10); }, std::nullopt},
                    IntegerRow{"int64 max", [] { return Variant(int64_t(INT64_MAX)); }, std::nullopt},
                    IntegerRow{"array", [] { return VarArrayOf({1}); }, std::nullopt}),
    [](const testing::TestParamInfo<IntegerRow>& info) { return "Row" + std::to_string(info.index); });

TEST(Variant, ConvertsToText) {
  EXPECT_EQ(Variant().AsString(), "");
  EXPECT_THROW(Null().AsString(), EVariantError);
  EXPECT_EQ(Variant(true).AsString(), "True");
  EXPECT_EQ(Variant(false).AsString(), "False");
  EXPECT_EQ(Variant(-17).AsString(), "-17");
  EXPECT_EQ(Variant(int64_t(INT64_MAX)).AsString(), "9223372036854775807");
  EXPECT_EQ(Variant(1.5).AsString(), "1.5");
  EXPECT_EQ(Variant(0.1 + 0.2).AsString(), "0.3");
  EXPECT_EQ(Money(12.34).AsString(), "12.34");
  EXPECT_EQ(VarFromDateTime(EncodeDate(2024, 3, 5)).AsString(), "3/5/2024");
  EXPECT_EQ(VarFromDateTime(EncodeDateTime(2024, 3, 5, 14, 7, 9, 0)).AsString(), "3/5/2024 2:07:09 PM");
  EXPECT_THROW(VarArrayOf({1}).AsString(), EVariantError);
}

TEST(VarToStr, GivesNullAsEmptyText) {
  EXPECT_EQ(VarToStr(Null()), "");
  EXPECT_EQ(VarToStr(Variant(5)), "5");
  EXPECT_EQ(VarToStrDef(Null(), "none"), "none");
  EXPECT_EQ(VarToStrDef(Unassigned(), "none"), "") << "only Null takes the default";
  EXPECT_EQ(VarToStrDef(Variant("x"), "none"), "x");
}

TEST(Variant, ConvertsToBooleanRealAndDate) {
  EXPECT_TRUE(Variant("true").AsBoolean());
  EXPECT_FALSE(Variant("0").AsBoolean());
  EXPECT_TRUE(Variant("2").AsBoolean());
  EXPECT_FALSE(Variant(0.0).AsBoolean());
  EXPECT_TRUE(Money(0.0001).AsBoolean());
  EXPECT_THROW(Variant("yes").AsBoolean(), EVariantError);
  EXPECT_THROW(Null().AsBoolean(), EVariantError);
  EXPECT_EQ(Variant("1.5").AsDouble(), 1.5);
  EXPECT_EQ(Variant(true).AsDouble(), -1);
  EXPECT_EQ(Money(2.25).AsDouble(), 2.25);
  EXPECT_THROW(Variant("1,5").AsDouble(), EVariantError);
  EXPECT_EQ(Variant("3/5/2024").AsDateTime(), EncodeDate(2024, 3, 5));
  EXPECT_EQ(VarToDateTime(Variant(45351)), 45351);
  EXPECT_THROW(VarToDateTime(Null()), EVariantError);
  EXPECT_THROW(Variant("soon").AsDateTime(), EVariantError);
  EXPECT_EQ(Variant(7).AsInt64(), 7);
  EXPECT_EQ(Variant(2.5).AsCurrency(), Currency::FromScaled(25000));
}

TEST(VarAsType, ConvertsBetweenTypes) {
  const Variant integer = VarAsType(Variant("12"), varInteger);
  EXPECT_EQ(VarType(integer), varInteger);
  EXPECT_EQ(integer.AsInteger(), 12);
  EXPECT_EQ(VarType(VarAsType(Variant(12), varString)), varString);
  EXPECT_EQ(VarAsType(Variant(true), varString).AsString(), "True");
  const Variant money = VarAsType(Variant(1.23456), varCurrency);
  EXPECT_EQ(VarType(money), varCurrency);
  EXPECT_EQ(money.AsCurrency().scaled, 12346);
  EXPECT_EQ(VarType(VarAsType(Variant(45351.5), varDate)), varDate);
  EXPECT_EQ(VarType(VarAsType(Variant(5), varSmallint)), varSmallint);
  EXPECT_THROW(VarAsType(Variant(70000), varSmallint), EVariantError);
  EXPECT_THROW(VarAsType(Null(), varInteger), EVariantError);
  EXPECT_THROW(VarAsType(Null(), varString), EVariantError);
  EXPECT_TRUE(VarIsNull(VarAsType(Variant(5), varNull)));
  EXPECT_TRUE(VarIsEmpty(VarAsType(Null(), varEmpty)));
  EXPECT_EQ(VarType(VarAsType(Variant(5), varVariant)), varInteger);
}

struct CompareRow {
  const char* name;
  std::function<Variant()> a, b;
  TVariantRelationship expected;
};

class VarCompareValueTable : public testing::TestWithParam<CompareRow> {};

TEST_P(VarCompareValueTable, RelatesTheTwoValues) {
  const CompareRow& row = GetParam();
  EXPECT_EQ(VarCompareValue(row.a(), row.b()), row.expected) << row.name;
  EXPECT_EQ(row.a() == row.b(), row.expected == vrEqual) << row.name;
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, VarCompareValueTable,
    testing::Values(CompareRow{"null null", [] { return Null(); }, [] { return Null(); }, vrEqual},
                    CompareRow{"null 0", [] { return Null(); }, [] { return Variant(0); }, vrNotEqual},
                    CompareRow{"1 null", [] { return Variant(1); }, [] { return Null(); }, vrNotEqual},
                    CompareRow{"empty empty", [] { return Variant(); }, [] { return Variant(); }, vrEqual},
                    CompareRow{"empty 0", [] { return Variant(); }, [] { return Variant(0); }, vrNotEqual},
                    CompareRow{"empty null", [] { return Variant(); }, [] { return Null(); }, vrNotEqual},
                    CompareRow{"1 1.0", [] { return Variant(1); }, [] { return Variant(1.0); }, vrEqual},
                    CompareRow{"int int64", [] { return Variant(5); }, [] { return Variant(int64_t(5)); }, vrEqual},
                    CompareRow{"2 10", [] { return Variant(2); }, [] { return Variant(10); }, vrLessThan},
                    CompareRow{"big int64", [] { return Variant(int64_t(INT64_MAX)); },
                               [] { return Variant(int64_t(INT64_MAX - 1)); }, vrGreaterThan},
                    CompareRow{"'5' 5", [] { return Variant("5"); }, [] { return Variant(5); }, vrEqual},
                    CompareRow{"'10' '9'", [] { return Variant("10"); }, [] { return Variant("9"); }, vrLessThan},
                    CompareRow{"'a' 'b'", [] { return Variant("a"); }, [] { return Variant("b"); }, vrLessThan},
                    CompareRow{"'a' 'A'", [] { return Variant("a"); }, [] { return Variant("A"); }, vrLessThan},
                    CompareRow{"'b' 'A'", [] { return Variant("b"); }, [] { return Variant("A"); }, vrGreaterThan},
                    CompareRow{"money 1.5", [] { return Money(1.5); }, [] { return Variant(1.5); }, vrEqual},
                    CompareRow{"money money", [] { return Money(0.1); }, [] { return Money(0.2); }, vrLessThan},
                    CompareRow{"true true", [] { return Variant(true); }, [] { return Variant(true); }, vrEqual},
                    CompareRow{"false true", [] { return Variant(false); }, [] { return Variant(true); }, vrLessThan},
                    CompareRow{"'True' true", [] { return Variant("True"); }, [] { return Variant(true); }, vrEqual},
                    CompareRow{"date date", [] { return VarFromDateTime(2); }, [] { return VarFromDateTime(1); },
                               vrGreaterThan},
                    CompareRow{"date text", [] { return VarFromDateTime(EncodeDate(2024, 3, 5)); },
                               [] { return Variant("3/5/2024"); }, vrEqual},
                    CompareRow{"arrays", [] { return VarArrayOf({1, "a", Null()}); },
                               [] { return VarArrayOf({1.0, "a", Null()}); }, vrEqual},
                    CompareRow{"array element", [] { return VarArrayOf({1, "a"}); },
                               [] { return VarArrayOf({1, "b"}); }, vrNotEqual},
                    CompareRow{"array length", [] { return VarArrayOf({1}); }, [] { return VarArrayOf({1, 2}); },
                               vrNotEqual},
                    CompareRow{"array scalar", [] { return VarArrayOf({1}); }, [] { return Variant(1); },
                               vrNotEqual}),
    [](const testing::TestParamInfo<CompareRow>& info) { return "Row" + std::to_string(info.index); });

TEST(VarCompareValue, RaisesForTextThatIsNoNumber) {
  EXPECT_THROW(VarCompareValue(Variant("abc"), Variant(5)), EVariantError);
  EXPECT_THROW((void)(Variant(5) == Variant("abc")), EVariantError);
  EXPECT_TRUE(VarSameValue(Variant("x"), Variant("x")));
  EXPECT_FALSE(VarSameValue(Variant("x"), Null()));
}

TEST(Arithmetic, NullPropagatesAndUnassignedCountsAsZero) {
  EXPECT_TRUE(VarIsNull(Null() + Variant(1)));
  EXPECT_TRUE(VarIsNull(Variant(1) * Null()));
  EXPECT_TRUE(VarIsNull(Null() / Variant(0)));
  EXPECT_TRUE(VarIsNull(-Null()));
  const Variant sum = Unassigned() + Variant(5);
  EXPECT_EQ(VarType(sum), varInteger);
  EXPECT_EQ(sum.AsInteger(), 5);
  EXPECT_TRUE(VarIsEmpty(Unassigned() + Unassigned()));
  EXPECT_EQ((Variant("a") + Unassigned()).AsString(), "a");
}

TEST(Arithmetic, KeepsIntegersExactAndWidensOnOverflow) {
  const Variant sum = Variant(2) + Variant(3);
  EXPECT_EQ(VarType(sum), varInteger);
  EXPECT_EQ(sum.AsInteger(), 5);
  const Variant wide = Variant(INT_MAX) + Variant(1);
  EXPECT_EQ(VarType(wide), varInt64);
  EXPECT_EQ(wide.AsInt64(), int64_t(INT_MAX) + 1);
  EXPECT_EQ(VarType(Variant(int64_t(1)) + Variant(1)), varInt64);
  EXPECT_THROW(Variant(int64_t(INT64_MAX)) + Variant(1), EVariantError);
  EXPECT_EQ((Variant(6) * Variant(-7)).AsInteger(), -42);
  EXPECT_EQ((Variant(true) + Variant(true)).AsInteger(), -2);
  const Variant negated = -Variant(INT_MIN);
  EXPECT_EQ(negated.AsInt64(), -int64_t(INT_MIN));
}

TEST(Arithmetic, MixesRealsStringsAndText) {
  const Variant mixed = Variant(2) + Variant(1.5);
  EXPECT_EQ(VarType(mixed), varDouble);
  EXPECT_EQ(mixed.AsDouble(), 3.5);
  const Variant read = Variant("2") + Variant(3);
  EXPECT_EQ(VarType(read), varDouble);
  EXPECT_EQ(read.AsDouble(), 5);
  EXPECT_EQ((Variant("a") + Variant("b")).AsString(), "ab");
  EXPECT_THROW(Variant("a") + Variant(1), EVariantError);
  EXPECT_EQ((Variant(7) / Variant(2)).AsDouble(), 3.5);
  EXPECT_EQ(VarType(Variant(8) / Variant(2)), varDouble);
  EXPECT_THROW(Variant(1) / Variant(0), EVariantError);
  EXPECT_THROW(Variant(1.5) / Variant(0.0), EVariantError);
  EXPECT_THROW(VarArrayOf({1}) + Variant(1), EVariantError);
}

TEST(Arithmetic, KeepsCurrencyExact) {
  const Variant sum = Money(0.1) + Money(0.2);
  EXPECT_EQ(VarType(sum), varCurrency);
  EXPECT_EQ(sum.AsCurrency(), Currency::FromScaled(3000));
  EXPECT_EQ((Money(1.5) + Variant(2)).AsCurrency(), Currency::FromScaled(35000));
  EXPECT_EQ((Money(1.5) * Money(1.5)).AsCurrency(), Currency::FromScaled(22500));
  EXPECT_EQ((Money(10) / Variant(3)).AsCurrency(), Currency::FromScaled(33333));
  EXPECT_EQ((Money(0.0001) / Variant(2)).AsCurrency(), Currency::FromScaled(0)) << "half to even";
  EXPECT_EQ((Money(0.0003) / Variant(2)).AsCurrency(), Currency::FromScaled(2));
  EXPECT_EQ((Money(-0.0003) / Variant(2)).AsCurrency(), Currency::FromScaled(-2));
  EXPECT_EQ(VarType(Money(1) + Variant(0.5)), varDouble);
  EXPECT_EQ((-Money(2)).AsCurrency(), Currency::FromScaled(-20000));
  EXPECT_THROW(Money(1) / Money(0), EVariantError);
}

TEST(Arithmetic, MovesDates) {
  const Variant day = VarFromDateTime(EncodeDate(2024, 2, 28));
  const Variant next = day + Variant(1);
  EXPECT_EQ(VarType(next), varDate);
  EXPECT_EQ(next.AsDateTime(), EncodeDate(2024, 2, 29));
  const Variant span = VarFromDateTime(EncodeDate(2024, 3, 1)) - day;
  EXPECT_EQ(VarType(span), varDouble);
  EXPECT_EQ(span.AsDouble(), 2);
}

TEST(Arithmetic, SumsLikeATotal) {
  Variant total;
  for (const Variant& value : {Variant(1), Variant(int64_t(2)), Variant(2.5)}) total += value;
  EXPECT_EQ(VarType(total), varDouble);
  EXPECT_EQ(total.AsDouble(), 5.5);
  total += Null();
  EXPECT_TRUE(VarIsNull(total));
}

TEST(VariantArray, HasBoundsAndElements) {
  const Variant keys = VarArrayOf({1, "a", Null()});
  EXPECT_EQ(VarArrayDimCount(keys), 1);
  EXPECT_EQ(VarArrayLowBound(keys), 0);
  EXPECT_EQ(VarArrayHighBound(keys), 2);
  EXPECT_EQ(keys[1].AsString(), "a");
  EXPECT_TRUE(VarIsNull(keys[2]));
  EXPECT_THROW((void)keys[3], EVariantError);
  EXPECT_THROW((void)keys[-1], EVariantError);
  EXPECT_THROW(VarArrayHighBound(keys, 2), EVariantError);
  EXPECT_THROW(VarArrayHighBound(Variant(1)), EVariantError);
  EXPECT_EQ(VarArrayDimCount(Variant(1)), 0);
  EXPECT_EQ(VarArrayHighBound(VarArrayOf({})), -1);
}

TEST(VariantArray, CreatesWithBoundsAndCopiesOnWrite) {
  Variant created = VarArrayCreate(1, 3);
  EXPECT_EQ(VarArrayLowBound(created), 1);
  EXPECT_EQ(VarArrayHighBound(created), 3);
  EXPECT_TRUE(VarIsEmpty(created[1]));
  EXPECT_THROW((void)created[0], EVariantError);
  created[3] = "last";
  Variant copy = created;
  copy[3] = 9;
  EXPECT_EQ(created[3].AsString(), "last");
  EXPECT_EQ(copy[3].AsInteger(), 9);
  EXPECT_THROW((void)Variant(5)[0], EVariantError);
}

}  // namespace
