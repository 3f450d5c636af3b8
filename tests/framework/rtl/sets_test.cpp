#include <gtest/gtest.h>

#include "framework/rtl/Sets.h"

using namespace quil;

namespace {
enum TColour { cRed, cGreen, cBlue, cAlpha, cWide = 40, cLast = 63 };
using TColours = TSet<TColour>;
}  // namespace

TEST(TSet, AlgebraFollowsSetSemantics) {
  const TColours warm{cRed, cAlpha};
  const TColours cool{cGreen, cBlue, cAlpha};
  EXPECT_EQ(warm + cool, (TColours{cRed, cGreen, cBlue, cAlpha}));
  EXPECT_EQ(warm * cool, TColours{cAlpha});
  EXPECT_EQ(warm - cool, TColours{cRed});
  EXPECT_EQ(cool - warm, (TColours{cGreen, cBlue}));
  EXPECT_TRUE(TColours{cAlpha}.SubsetOf(warm));
  EXPECT_FALSE(warm.SubsetOf(cool));
  EXPECT_TRUE(warm.Intersects(cool));
  EXPECT_FALSE((warm - cAlpha).Intersects(cool));
}

TEST(TSet, IncludeExcludeAndSwitch) {
  TColours set;
  EXPECT_TRUE(set.Empty());
  set.Include(cBlue).Include(cBlue);
  EXPECT_EQ(set.Count(), 1);
  set.Switch(cRed, true).Switch(cBlue, false);
  EXPECT_EQ(set, TColours{cRed});
  set -= cRed;
  EXPECT_TRUE(set.Empty());
}

TEST(TSet, IntegerFormIsOneBitPerOrdinalUpToSixtyFour) {
  EXPECT_EQ((TColours{cRed, cBlue}).ToInt(), 5u);
  EXPECT_EQ(TColours{cWide}.ToInt(), uint64_t{1} << 40);
  EXPECT_EQ(TColours{cLast}.ToInt(), uint64_t{1} << 63);
  EXPECT_TRUE(TColours::FromInt(uint64_t{1} << 63).Contains(cLast));
  EXPECT_EQ(TColours::FromInt(10u), (TColours{cGreen, cAlpha}));
}
