#include <gtest/gtest.h>

#include <climits>

#include "framework/graphics/Types.h"

namespace quil {
namespace {

struct MulDivCase {
  int number, numerator, denominator, expected;
};

class MulDivTest : public ::testing::TestWithParam<MulDivCase> {};

TEST_P(MulDivTest, RoundsHalfAwayFromZero) {
  const MulDivCase& row = GetParam();
  EXPECT_EQ(MulDiv(row.number, row.numerator, row.denominator), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, MulDivTest,
    ::testing::Values(MulDivCase{5, 1, 2, 3}, MulDivCase{-5, 1, 2, -3}, MulDivCase{5, -1, 2, -3},
                      MulDivCase{-5, -1, 2, 3}, MulDivCase{5, 1, -2, -3}, MulDivCase{6, 1, 4, 2},
                      MulDivCase{-6, 1, 4, -2}, MulDivCase{5, 1, 4, 1}, MulDivCase{7, 1, 4, 2},
                      MulDivCase{-7, 1, 4, -2}, MulDivCase{9, 96, 72, 12}, MulDivCase{9, 120, 72, 15},
                      MulDivCase{10, 96, 72, 13}, MulDivCase{-12, 72, 96, -9}, MulDivCase{13, 144, 96, 20},
                      MulDivCase{0, 5, 3, 0}, MulDivCase{1, 2, 0, -1}, MulDivCase{INT_MAX, 2, 1, -1},
                      MulDivCase{INT_MAX, 2, 2, INT_MAX}, MulDivCase{100000, 100000, 1000, 10000000}));

TEST(TRect, ExcludesRightAndBottom) {
  const TRect rect = Rect(10, 20, 30, 40);
  EXPECT_EQ(rect.Width(), 20);
  EXPECT_EQ(rect.Height(), 20);
  EXPECT_TRUE(PtInRect(rect, Point(10, 20)));
  EXPECT_TRUE(PtInRect(rect, Point(29, 39)));
  EXPECT_FALSE(PtInRect(rect, Point(30, 39)));
  EXPECT_FALSE(PtInRect(rect, Point(29, 40)));
  EXPECT_EQ(Bounds(10, 20, 20, 20), rect);
}

TEST(TRect, IsEmptyWhenFlatOrInverted) {
  EXPECT_TRUE(IsRectEmpty(Rect(5, 5, 5, 10)));
  EXPECT_TRUE(IsRectEmpty(Rect(5, 5, 10, 5)));
  EXPECT_TRUE(IsRectEmpty(Rect(10, 5, 5, 10)));
  EXPECT_FALSE(IsRectEmpty(Rect(5, 5, 6, 6)));
}

TEST(TRect, InflateAndOffsetMoveEveryEdge) {
  TRect rect = Rect(10, 10, 20, 20);
  InflateRect(rect, 2, -3);
  EXPECT_EQ(rect, Rect(8, 13, 22, 17));
  OffsetRect(rect, -8, 1);
  EXPECT_EQ(rect, Rect(0, 14, 14, 18));
}

TEST(TRect, IntersectGivesOverlapOrEmptiesTheResult) {
  TRect result = Rect(1, 1, 1, 1);
  EXPECT_TRUE(IntersectRect(result, Rect(0, 0, 10, 10), Rect(5, 6, 20, 20)));
  EXPECT_EQ(result, Rect(5, 6, 10, 10));
  EXPECT_FALSE(IntersectRect(result, Rect(0, 0, 10, 10), Rect(10, 0, 20, 10)));
  EXPECT_EQ(result, TRect{});
}

TEST(TRect, UnionSkipsEmptyRectangles) {
  TRect result;
  EXPECT_TRUE(UnionRect(result, Rect(0, 0, 0, 0), Rect(3, 4, 5, 6)));
  EXPECT_EQ(result, Rect(3, 4, 5, 6));
  EXPECT_TRUE(UnionRect(result, Rect(0, 0, 2, 2), Rect(3, 4, 5, 6)));
  EXPECT_EQ(result, Rect(0, 0, 5, 6));
}

}  // namespace
}  // namespace quil
