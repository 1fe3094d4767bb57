// SPDX-License-Identifier: BSD-3-Clause
// The Mann-Whitney U test (the Wilcoxon rank-sum test) of two independent
// samples, two-sided: whether the values of one sample tend to be larger than
// those of the other. It makes no assumption about their distribution, which
// suits timings of repeated runs (skewed, with outliers).
#pragma once

#include <cstddef>
#include <vector>

struct RankTestResult {
  double u = 0.0;      // U of the first sample: pairs (a, b) with a > b, a tie counting one half
  double p = 1.0;      // two-sided p-value
  bool exact = false;  // from the exact distribution of U, else from the normal approximation
};

// Samples without ties and of fewer than 50 values each get the exact
// distribution of U; others the normal approximation with the correction for
// ties and the continuity correction. NaN values are left out; an empty
// sample gives p = 1.
RankTestResult mannWhitneyUTest(const std::vector<double>& a, const std::vector<double>& b);

// The smallest two-sided p-value that the exact test can give for samples of
// n and m values (all of one above all of the other): 2 / C(n + m, n), at
// most 1.
double smallestRankTestP(std::size_t n, std::size_t m);

// The fewest values per sample, the same on both sides, for which that
// smallest p-value is at most alpha (0 < alpha).
std::size_t samplesNeededForRankTest(double alpha);
