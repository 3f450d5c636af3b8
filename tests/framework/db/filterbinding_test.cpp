#include <gtest/gtest.h>

#include "framework/db/FilterBinding.h"
#include "framework/rtl/Exceptions.h"

using namespace quil;

namespace {

struct TKindCase {
  TFieldType type;
  TFilterFieldKind kind;
};

void PrintTo(const TKindCase& kindCase, std::ostream* out) { *out << "field type " << int(kindCase.type); }

class FilterFieldKinds : public testing::TestWithParam<TKindCase> {};

TEST_P(FilterFieldKinds, FollowTheFieldType) { EXPECT_EQ(FilterFieldKind(GetParam().type), GetParam().kind); }

INSTANTIATE_TEST_SUITE_P(Types, FilterFieldKinds, testing::Values(
    TKindCase{ftString, TFilterFieldKind::Text}, TKindCase{ftWideString, TFilterFieldKind::Text},
    TKindCase{ftFixedChar, TFilterFieldKind::Text}, TKindCase{ftGuid, TFilterFieldKind::Text},
    TKindCase{ftWideMemo, TFilterFieldKind::Text}, TKindCase{ftSmallint, TFilterFieldKind::Integer},
    TKindCase{ftAutoInc, TFilterFieldKind::Integer}, TKindCase{ftLargeint, TFilterFieldKind::Integer},
    TKindCase{ftLongWord, TFilterFieldKind::Integer}, TKindCase{ftByte, TFilterFieldKind::Integer},
    TKindCase{ftFloat, TFilterFieldKind::Real}, TKindCase{ftCurrency, TFilterFieldKind::Real},
    TKindCase{ftBCD, TFilterFieldKind::Real}, TKindCase{ftFMTBcd, TFilterFieldKind::Real},
    TKindCase{ftSingle, TFilterFieldKind::Real}, TKindCase{ftBoolean, TFilterFieldKind::Boolean},
    TKindCase{ftDate, TFilterFieldKind::Date}, TKindCase{ftTime, TFilterFieldKind::Time},
    TKindCase{ftDateTime, TFilterFieldKind::DateTime}, TKindCase{ftTimeStamp, TFilterFieldKind::DateTime},
    TKindCase{ftBlob, TFilterFieldKind::Other}, TKindCase{ftGraphic, TFilterFieldKind::Other},
    TKindCase{ftVariant, TFilterFieldKind::Other}));

class TOneName : public TFilterValueSource {
public:
  explicit TOneName(const char* name) : name_(name) {}
  Variant FieldValue(int) const override { return name_; }

private:
  Variant name_;
};

bool NameMatches(const char* filter, TFilterOptions options, const char* name) {
  const TFilterFieldResolver resolver = [](const QString&) { return TFilterField{0, TFilterFieldKind::Text}; };
  return TFilterExpression::Compile(QString::fromUtf8(filter), resolver, FilterSettingsFor(options))
      .Matches(TOneName(name));
}

TEST(FilterSettingsFor, PartialCompareUnlessSwitchedOff) {
  EXPECT_TRUE(NameMatches("Name = 'Ca*'", {}, "Carl"));
  EXPECT_FALSE(NameMatches("Name = 'Ca*'", {foNoPartialCompare}, "Carl"));
  EXPECT_TRUE(NameMatches("Name = 'Ca*'", {foNoPartialCompare}, "Ca*"));
}

TEST(FilterSettingsFor, CaseInsensitiveOption) {
  EXPECT_FALSE(NameMatches("Name = 'carl'", {}, "Carl"));
  EXPECT_TRUE(NameMatches("Name = 'carl'", {foCaseInsensitive}, "Carl"));
  EXPECT_TRUE(NameMatches("Name LIKE '%AR%'", {foCaseInsensitive, foNoPartialCompare}, "Carl"));
  EXPECT_TRUE(NameMatches("Name = 'ca*'", {foCaseInsensitive}, "Carl"));
}

}  // namespace
