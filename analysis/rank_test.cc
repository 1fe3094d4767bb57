// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/rank_test.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <numeric>
#include <utility>

#include <boost/math/distributions/normal.hpp>

namespace {

constexpr std::size_t kExactLimit = 50;

// The number of orderings of n values of the first sample among m of the
// second that give each U = 0 .. n*m. The largest of i + j values belongs
// either to the first sample, and then beats all j of the second, or to the
// second: f(i, j, u) = f(i - 1, j, u - j) + f(i, j - 1, u). Only sums of
// positive counts, so the counts stay exact up to 2^53 and precise beyond.
std::vector<double> orderingsPerU(std::size_t n, std::size_t m) {
  // rows[j]: the counts of (i, j) for the i of the current pass.
  std::vector<std::vector<double>> rows(m + 1, std::vector<double>(n * m + 1, 0.0));
  for (auto& row : rows) row[0] = 1.0;  // i = 0: one ordering, U = 0
  for (std::size_t i = 1; i <= n; ++i) {
    for (std::size_t j = 1; j <= m; ++j) {
      std::vector<double>& row = rows[j];
      const std::vector<double>& fewer = rows[j - 1];  // (i, j - 1), already of this pass
      // Downwards, so that row[u - j] still holds the count of (i - 1, j).
      for (std::size_t u = i * j + 1; u-- > 0;) row[u] = (u >= j ? row[u - j] : 0.0) + fewer[u];
    }
  }
  return rows[m];
}

// P(U <= u) for u = 0 .. n*m. Every phase of a comparison has the same
// sample sizes, so each pair of sizes is counted once per process.
const std::vector<double>& cumulativeDistribution(std::size_t n, std::size_t m) {
  static std::mutex mutex;
  static std::map<std::pair<std::size_t, std::size_t>, std::vector<double>> known;
  const std::lock_guard lock(mutex);
  auto [at, added] = known.try_emplace({n, m});
  if (added) {
    std::vector<double> counts = orderingsPerU(n, m);
    std::partial_sum(counts.begin(), counts.end(), counts.begin());
    const double total = counts.back();
    for (double& c : counts) c /= total;
    at->second = std::move(counts);
  }
  return at->second;
}

double exactTwoSidedP(double u, std::size_t n, std::size_t m) {
  const std::vector<double>& cdf = cumulativeDistribution(n, m);
  const auto observed = static_cast<std::size_t>(u);
  // U is symmetric about n*m/2: P(U >= u) = P(U <= n*m - u), which keeps
  // the small probabilities of the upper tail precise.
  const double below = cdf[observed];
  const double above = cdf[n * m - observed];
  return std::min(1.0, 2.0 * std::min(below, above));
}

}  // namespace

RankTestResult mannWhitneyUTest(const std::vector<double>& a, const std::vector<double>& b) {
  // Every value with its sample (true: the first), in ascending order.
  std::vector<std::pair<double, bool>> all;
  all.reserve(a.size() + b.size());
  for (const double x : a)
    if (!std::isnan(x)) all.emplace_back(x, true);
  for (const double x : b)
    if (!std::isnan(x)) all.emplace_back(x, false);
  std::sort(all.begin(), all.end(), [](const auto& l, const auto& r) { return l.first < r.first; });
  const auto n = static_cast<std::size_t>(std::count_if(all.begin(), all.end(), [](const auto& v) { return v.second; }));
  const std::size_t m = all.size() - n;
  RankTestResult result;
  if (n == 0 || m == 0) return result;

  // Mid-ranks: each run of equal values shares the mean of its ranks.
  double rankSumA = 0.0;
  double tieTerm = 0.0;  // the sum of t^3 - t over the runs of t equal values
  for (std::size_t first = 0; first < all.size();) {
    std::size_t last = first;
    while (last + 1 < all.size() && all[last + 1].first == all[first].first) ++last;
    const double midRank = (static_cast<double>(first + last) + 2.0) / 2.0;
    for (std::size_t k = first; k <= last; ++k)
      if (all[k].second) rankSumA += midRank;
    const double t = static_cast<double>(last - first + 1);
    tieTerm += t * t * t - t;
    first = last + 1;
  }
  const double dn = static_cast<double>(n), dm = static_cast<double>(m), total = dn + dm;
  result.u = rankSumA - dn * (dn + 1.0) / 2.0;

  if (tieTerm == 0.0 && n < kExactLimit && m < kExactLimit) {
    result.exact = true;
    result.p = exactTwoSidedP(result.u, n, m);
    return result;
  }
  const double variance = dn * dm / 12.0 * ((total + 1.0) - tieTerm / (total * (total - 1.0)));
  if (variance <= 0.0) return result;  // every value equal: no evidence either way
  const double deviation = result.u - dn * dm / 2.0;
  const double corrected = std::max(0.0, std::fabs(deviation) - 0.5);
  const boost::math::normal standard;
  result.p = std::min(1.0, 2.0 * boost::math::cdf(boost::math::complement(standard, corrected / std::sqrt(variance))));
  return result;
}

double smallestRankTestP(std::size_t n, std::size_t m) {
  if (n == 0 || m == 0) return 1.0;
  double orderings = 1.0;  // C(n + m, n), built up as a product
  for (std::size_t k = 1; k <= n; ++k) orderings = orderings * static_cast<double>(m + k) / static_cast<double>(k);
  return std::min(1.0, 2.0 / orderings);
}

std::size_t samplesNeededForRankTest(double alpha) {
  std::size_t k = 1;
  while (smallestRankTestP(k, k) > alpha && k < 1000) ++k;
  return k;
}
