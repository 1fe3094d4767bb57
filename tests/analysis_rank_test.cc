// SPDX-License-Identifier: BSD-3-Clause
// The Mann-Whitney U test against published figures: the critical values of
// U for a two-sided test at 0.05 from the standard tables, exact p-values
// that follow from counting orderings by hand, a textbook pair of samples,
// and the normal approximation with tied values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "analysis/rank_test.h"

namespace {

// Samples of n and m values without ties whose U (first over second) is
// `u`: the second sample is 1..m, and each value of the first beats as many
// of them as the count left allows, the largest first.
std::pair<std::vector<double>, std::vector<double>> samplesWithU(int n, int m, int u) {
  std::vector<double> a, b;
  for (int k = 1; k <= m; ++k) b.push_back(k);
  for (int k = 0; k < n; ++k) {
    const int beats = std::min(u, m);
    u -= beats;
    a.push_back(beats + 0.05 + 0.9 * k / n);
  }
  return {a, b};
}

TEST(RankTest, CriticalValuesOfPublishedTables) {
  // Two-sided, alpha 0.05: U at or below the critical value is significant,
  // one above it is not.
  const struct {
    int n, m, critical;
  } cases[] = {{2, 8, 0}, {3, 5, 0}, {3, 7, 1}, {4, 4, 0}, {4, 6, 2}, {4, 8, 4}, {5, 5, 2},  {5, 8, 6},
               {6, 6, 5}, {6, 9, 10}, {7, 7, 8}, {7, 10, 14}, {8, 8, 13}, {9, 10, 20}, {10, 10, 23}, {20, 20, 127}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.n << " and " << c.m << " values");
    const auto [a, b] = samplesWithU(c.n, c.m, c.critical);
    const RankTestResult at = mannWhitneyUTest(a, b);
    EXPECT_TRUE(at.exact);
    EXPECT_DOUBLE_EQ(at.u, c.critical);
    EXPECT_LE(at.p, 0.05);
    const auto [a1, b1] = samplesWithU(c.n, c.m, c.critical + 1);
    EXPECT_GT(mannWhitneyUTest(a1, b1).p, 0.05);
    // Swapped, U becomes n*m - U and the p-value stays.
    const RankTestResult swapped = mannWhitneyUTest(b, a);
    EXPECT_DOUBLE_EQ(swapped.u, c.n * c.m - c.critical);
    EXPECT_NEAR(swapped.p, at.p, 1e-12);
  }
}

TEST(RankTest, ReferenceValues) {
  const struct {
    const char* what;
    std::vector<double> a, b;
    double u, p;
    bool exact;
  } cases[] = {
      // All of one above all of the other: 2 / C(n + m, n).
      {"3 against 3, apart", {4, 5, 6}, {1, 2, 3}, 9, 0.1, true},
      {"5 against 5, apart", {1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, 0, 2.0 / 252, true},
      // 3 against 4, U = 1: orderings with U <= 1 are 2 of 35.
      {"3 against 4, U 1", {1, 2, 4.5}, {3, 5, 6, 7}, 1, 4.0 / 35, true},
      {"equal medians", {1, 4}, {2, 3}, 2, 1.0, true},
      // The two-sample example of R's wilcox.test help: W = 35, one-sided
      // p 0.1272, so two-sided 0.2544 (exact: 0.254412254...).
      {"textbook", {0.80, 0.83, 1.89, 1.04, 1.45, 1.38, 1.91, 1.64, 0.73, 1.46}, {1.15, 0.88, 0.90, 0.74, 1.21},
       35, 0.2544122544122544, true},
      // Ties: mid-ranks, tie-corrected variance, continuity correction.
      {"ties", {1, 2, 2, 3, 4}, {2, 3, 5, 6, 7, 7}, 4.5, 0.06414661873440443, false},
      {"ties only", {1, 1, 1}, {2, 2, 2}, 0, 0.046854177603873774, false},
      {"all equal", {3, 3}, {3, 3, 3}, 3, 1.0, false},
      {"NaN left out, empty", {std::nan("")}, {1, 2}, 0, 1.0, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const RankTestResult r = mannWhitneyUTest(c.a, c.b);
    EXPECT_DOUBLE_EQ(r.u, c.u);
    EXPECT_NEAR(r.p, c.p, 1e-12);
    EXPECT_EQ(r.exact, c.exact);
  }
  // 60 values a side take the normal approximation: 0..118 even against
  // 20.5..138.5, U 1225 of 3600.
  std::vector<double> a, b;
  for (int k = 0; k < 60; ++k) a.push_back(2.0 * k), b.push_back(2.0 * k + 20.5);
  const RankTestResult large = mannWhitneyUTest(a, b);
  EXPECT_FALSE(large.exact);
  EXPECT_NEAR(large.p, 0.0025668879435241797, 1e-12);
  // The smallest p-values and the runs that reach alpha: 2/70 = 0.029 for
  // 4 a side, 2/252 = 0.0079 for 5.
  EXPECT_DOUBLE_EQ(smallestRankTestP(3, 4), 2.0 / 35);
  EXPECT_EQ(samplesNeededForRankTest(0.05), 4u);
  EXPECT_EQ(samplesNeededForRankTest(0.01), 5u);
}

}  // namespace
