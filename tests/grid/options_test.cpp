#include <gtest/gtest.h>

#include "grid/QuilDBGridOptions.h"

using namespace quil;

// The integer forms are what forms and saved layouts hold: they must not drift.
TEST(GridOptions, DefaultsHaveTheirStoredIntegers) {
  EXPECT_EQ(DefaultGridOptions.ToInt(), 169864445u);
  EXPECT_EQ(DefaultGridOptionsEx.ToInt(), 74949568u);
  EXPECT_EQ(DefaultGridOptionsExt.ToInt(), 24696u);
  EXPECT_EQ(DefaultDrawingOptions.ToInt(), 127u);
  EXPECT_EQ(DefaultHintOptions.ToInt(), 4119u);
  EXPECT_EQ(DefaultResizeOptions.ToInt(), 15u);
  EXPECT_EQ(DefaultMultiSelectOptions.ToInt(), 2u);
  EXPECT_EQ(DefaultSystemStyleElements.ToInt(), 31u);
}

TEST(GridOptions, EnumerationsHaveTheirMemberCounts) {
  EXPECT_EQ(int(dgRightMoving) + 1, 32);
  EXPECT_EQ(int(dgShowEditorByCharOff) + 1, 29);
  EXPECT_EQ(int(dgIncrementalList) + 1, 18);
}

TEST(GridOptions, IntegerFormRoundTrips) {
  const auto options = TQuilDBGridOptions::FromInt(169864445u);
  EXPECT_EQ(options, DefaultGridOptions);
  EXPECT_TRUE(options.Contains(dgMarkerAutoToggle));
  EXPECT_FALSE(options.Contains(dgRowSelect));
  const auto all = TQuilDBGridOptions::FromInt(0xFFFFFFFFu);
  EXPECT_EQ(all.Count(), 32);
  EXPECT_TRUE(all.Contains(dgRightMoving));
}
