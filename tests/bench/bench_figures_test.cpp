#include <gtest/gtest.h>

#include "BenchFigures.h"

using quil::bench::TFigures;
using quil::bench::TRatio;
using quil::bench::TUnit;

namespace {

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

}  // namespace

TEST(BenchFigures, PairsQuilWithPeerByNameWithTheirArguments) {
  TFigures figures;
  figures.Record("first_screen/quil/1000", 3.0, TUnit::Seconds);
  figures.Record("first_screen/peer/1000", 2.0, TUnit::Seconds);
  figures.Record("walk/quil", 1.0, TUnit::Seconds);
  figures.Record("walk/peer", 4.0, TUnit::Seconds);
  const auto ratios = figures.Ratios({});
  ASSERT_EQ(ratios.size(), 2u);
  EXPECT_DOUBLE_EQ(ratios.at("first_screen/1000 quil/peer"), 1.5);
  EXPECT_DOUBLE_EQ(ratios.at("walk quil/peer"), 0.25);
}

TEST(BenchFigures, ASideWithoutItsPartnerGivesNoRatio) {
  TFigures figures;
  figures.Record("lonely/quil", 1.0, TUnit::Seconds);
  figures.Record("quilted/peer", 1.0, TUnit::Seconds);
  figures.Record("quilted/quiltwork", 1.0, TUnit::Seconds);
  EXPECT_TRUE(figures.Ratios({}).empty());
}

TEST(BenchFigures, AskedRatiosSetAnyTwoOfTheSameUnit) {
  TFigures figures;
  figures.Record("scroll/quil", 2.0, TUnit::Seconds);
  figures.Record("repaint/quil", 8.0, TUnit::Seconds);
  figures.Record("resident/quil", 100.0, TUnit::Bytes);
  const std::vector<TRatio> asked{{"scroll/quil", "scroll/whole", "scroll/quil", "repaint/quil"},
                                  {"odd", "time/bytes", "scroll/quil", "resident/quil"},
                                  {"unmeasured", "a/b", "scroll/quil", "never/ran"}};
  const auto ratios = figures.Ratios(asked);
  ASSERT_EQ(ratios.size(), 1u);
  EXPECT_DOUBLE_EQ(ratios.at("scroll/quil scroll/whole"), 0.25);
}

// Whatever repeats a benchmark's report (repetitions, a later run of the same name), each
// ratio is one line.
TEST(BenchFigures, EachRatioIsOneLine) {
  TFigures figures;
  figures.Record("walk/quil", 9.0, TUnit::Seconds);
  figures.Record("walk/quil", 3.0, TUnit::Seconds);
  figures.Record("walk/peer", 1.0, TUnit::Seconds);
  const std::vector<TRatio> asked{{"walk", "quil/peer", "walk/quil", "walk/peer"}};
  const std::string lines = figures.RatioLines(asked, {});
  EXPECT_EQ(Count(lines, "RATIO"), 1) << lines;
  EXPECT_EQ(Count(lines, "\n"), 1) << lines;
  EXPECT_NE(lines.find("walk quil/peer"), std::string::npos) << lines;
  EXPECT_NE(lines.find(" 3\n"), std::string::npos) << lines;
}

TEST(BenchFigures, ALineTellsTheLastRunsValue) {
  TFigures figures;
  figures.Record("walk/quil", 3.0, TUnit::Seconds);
  figures.Record("walk/peer", 2.0, TUnit::Seconds);
  figures.Record("locate/quil", 1.0, TUnit::Seconds);
  figures.Record("locate/peer", 1.0, TUnit::Seconds);
  const QJsonObject last{{"ratios", QJsonObject{{"walk quil/peer", 1.25}}}};
  const std::string lines = figures.RatioLines({}, last);
  EXPECT_NE(lines.find(" 1.5   (last run 1.25)"), std::string::npos) << lines;
  EXPECT_EQ(Count(lines, "last run"), 1) << lines;
}

TEST(BenchFigures, TheJsonHoldsFiguresWithUnitsAndRatios) {
  TFigures figures;
  figures.Record("resident/quil/1000000", 300.0, TUnit::Bytes);
  figures.Record("resident/peer/1000000", 1200.0, TUnit::Bytes);
  const QJsonObject json = figures.ToJson("resident_bench", {});
  EXPECT_EQ(json.value("program").toString(), "resident_bench");
  const QJsonObject figuresJson = json.value("figures").toObject();
  EXPECT_DOUBLE_EQ(figuresJson.value("resident/quil/1000000").toObject().value("bytes").toDouble(), 300.0);
  EXPECT_TRUE(figuresJson.value("resident/peer/1000000").toObject().contains("bytes"));
  EXPECT_DOUBLE_EQ(json.value("ratios").toObject().value("resident/1000000 quil/peer").toDouble(), 0.25);
}

TEST(BenchFigures, RepeatedTimesKeepTheFastestAndSizesTheLast) {
  TFigures figures;
  for (double seconds : {3.0, 2.0, 5.0}) figures.Record("scan/quil", seconds, TUnit::Seconds);
  figures.Record("scan/peer", 1.0, TUnit::Seconds);
  for (double bytes : {100.0, 300.0, 200.0}) figures.Record("memory/quil", bytes, TUnit::Bytes);
  figures.Record("memory/peer", 100.0, TUnit::Bytes);
  const auto ratios = figures.Ratios({});
  EXPECT_DOUBLE_EQ(ratios.at("scan quil/peer"), 2.0);
  EXPECT_DOUBLE_EQ(ratios.at("memory quil/peer"), 2.0);
}
