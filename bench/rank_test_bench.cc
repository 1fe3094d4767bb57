// SPDX-License-Identifier: BSD-3-Clause
// The Mann-Whitney U test per phase of a repeated-runs comparison: exact for
// small samples (the distribution of U is counted once per pair of sizes),
// the normal approximation for ties and large samples.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "analysis/rank_test.h"

namespace {

std::vector<double> sample(std::mt19937& rng, int size, double mean) {
  std::normal_distribution<double> figure(mean, 0.1);
  std::vector<double> values;
  for (int k = 0; k < size; ++k) values.push_back(figure(rng));
  return values;
}

void BM_RankTest(benchmark::State& state) {
  std::mt19937 rng(7);
  const int runs = static_cast<int>(state.range(0));
  const std::vector<double> a = sample(rng, runs, 1.0), b = sample(rng, runs, 1.05);
  for (auto _ : state) benchmark::DoNotOptimize(mannWhitneyUTest(a, b));
}
BENCHMARK(BM_RankTest)->Arg(5)->Arg(20)->Arg(49)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace
