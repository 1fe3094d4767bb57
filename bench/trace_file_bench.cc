// SPDX-License-Identifier: BSD-3-Clause
// Saved trace files: saving and loading 100 000 raw points (a mix of the
// three classes, with memory figures), and the size of the file.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>

#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"
#include "tempogauge/store.h"

namespace {

constexpr std::size_t kPoints = 100000;

RawPointVector buildPoints(std::size_t count) {
  std::mt19937 rng(7);
  RawPointVector points;
  points.reserve(count);
  double wall = 1000.0;
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned kind = rng() % 10;  // mostly host points
    const tgtest::PointSite site(kind < 7 ? 0 : kind < 9 ? 1 : 2, "BenchFileGrouping",
                                 "toolbox/bench/phase_" + std::to_string(rng() % 200) + ".m", "bench_model",
                                 "bench_target", "bench_machine", "bench_chart");
    wall += 1e-4 * (rng() % 1000);
    auto p = tgtest::makeRawPoint(site, i % 2 == 0, wall, wall * 0.8);
    p->basicMemStats = std::make_shared<tg::BasicMemStats>(1e8 + rng() % 100000, 2e8, 4e9 + rng() % 1000);
    p->detailedMemStats.reset();
    points.push_back(std::move(p));
  }
  return points;
}

const RawPointVector& points() {
  static const RawPointVector all = buildPoints(kPoints);
  return all;
}

std::string benchFile(const char* name) {
  return (std::filesystem::temp_directory_path() / (std::string(name) + std::to_string(::getpid()) + ".orf"))
      .string();
}

void BM_SaveTraceFile(benchmark::State& state) {
  const auto& all = points();
  const std::string file = benchFile("tg_bench_save_");
  getCachedSystemInfo();  // collected once per process, not part of a save
  for (auto _ : state) saveTraceFile(file, all);
  state.counters["points"] = static_cast<double>(all.size());
  state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(file));
  state.counters["bytes_per_point"] = static_cast<double>(std::filesystem::file_size(file)) / all.size();
  std::filesystem::remove(file);
}

void BM_LoadTraceFile(benchmark::State& state) {
  const std::string file = benchFile("tg_bench_load_");
  saveTraceFile(file, points());
  std::size_t loaded = 0;
  for (auto _ : state) {
    RawPointVector back;
    TempoGaugingSystemInfo info;
    std::string root;
    loadTraceFile(file, back, info, root);
    loaded = back.size();
    benchmark::DoNotOptimize(back.data());
  }
  state.counters["points"] = static_cast<double>(loaded);
  state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(file));
  std::filesystem::remove(file);
}

// The conversion alone, without the file.
void BM_RawPointsToCellArray(benchmark::State& state) {
  const auto& all = points();
  for (auto _ : state) benchmark::DoNotOptimize(rawPointsToCellArray(all));
}

}  // namespace

BENCHMARK(BM_SaveTraceFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_LoadTraceFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RawPointsToCellArray)->Unit(benchmark::kMillisecond)->Iterations(3);
