#include "bench/ratio.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace sorvane::bench {
namespace {

Result WithRatio(double ratio, double aim) { return {"it", "that", aim, "s", {{ratio, 1}}}; }

TEST(Ratio, TheMedianIsTheMiddleOneOrLiesBetweenTheTwoInTheMiddle) {
  EXPECT_EQ(Median({5, 1, 100}), 5);
  EXPECT_EQ(Median({1, 100, 2, 4}), 3);
  EXPECT_THROW(Median({}), std::invalid_argument);
}

TEST(Ratio, EachRepeatHasARatioOfItsOwn) {
  const Result result{"it", "that", 1, "s", {{3, 2}, {10, 5}, {1, 4}}};
  EXPECT_EQ(Ratios(result), (std::vector<double>{1.5, 2, 0.25}));
}

TEST(Ratio, OneSlowRepeatDecidesNothing) {
  EXPECT_EQ(Judge({"it", "that", 1, "s", {{1, 1}, {90, 1}, {1, 1}}}), Verdict::kReached);
}

TEST(Ratio, UpToItsAimItIsReachedUpToTwiceMissedAboveThatFailed) {
  EXPECT_EQ(Judge(WithRatio(1.5, 1.5)), Verdict::kReached);
  EXPECT_EQ(Judge(WithRatio(1.51, 1.5)), Verdict::kMissed);
  EXPECT_EQ(Judge(WithRatio(3, 1.5)), Verdict::kMissed);
  EXPECT_EQ(Judge(WithRatio(3.01, 1.5)), Verdict::kFailed);
}

TEST(Ratio, WhatIsNoNumberHasFailed) {
  EXPECT_EQ(Judge(WithRatio(std::nan(""), 1.5)), Verdict::kFailed);
}

TEST(Ratio, BothSidesRunInTurnAndTheFirstRoundIsNotCounted) {
  std::string order;
  double ours = 0;
  const auto samples = Interleave(
      2,
      [&] {
        order += 'o';
        return ++ours;
      },
      [&] {
        order += 't';
        return 7;
      });
  EXPECT_EQ(order, "ototot");
  ASSERT_EQ(samples.size(), 2U);
  EXPECT_EQ(samples[0].ours, 2);
  EXPECT_EQ(samples[1].ours, 3);
  EXPECT_EQ(samples[1].theirs, 7);
}

TEST(Ratio, ALineTellsMediansRatioSpreadAimRepeatsAndVerdict) {
  const Result result{"it", "that", 1.3, "us", {{4, 4}, {6, 4}, {20, 5}}};
  std::string words;
  for (const char c : Line(result)) {
    if (c != ' ') words += c;
  }
  EXPECT_EQ(words, "it|that|6us|4us|1.500|1.000-4.000|1.3|3|missed");
}

}  // namespace
}  // namespace sorvane::bench
