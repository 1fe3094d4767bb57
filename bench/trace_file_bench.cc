// SPDX-License-Identifier: BSD-3-Clause
// Saved trace files of a million raw points (a mix of the three classes,
// with memory figures that change from point to point): saving the store as
// saveToFile does, loading a file into the store as loadTracerData does, and
// loading it as points for a report. Each figure is taken in a fresh process
// that holds the store or the file and nothing else. Goal: under 2 s each.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>

#include "collect/tempo_gauge.h"
#include "fresh_process.h"
#include "host/clock.h"
#include "tempogauge/store.h"
#include "tempogauge/tempogauge.h"

namespace {

constexpr std::size_t kPoints = 1000000;

// Fills the store with kPoints points, mostly host points, as a run of
// nested phases would leave them.
void fillStore() {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  std::mt19937 rng(7);
  const std::int32_t grouping = tgGetId(tg::kGroupingKind, "BenchFileGrouping");
  const std::int32_t stats = tgGetId(tg::kStatisticsTypeKind, "");
  RawPointFields f;
  double wall = 1000.0;
  for (std::size_t i = 0; i < kPoints; ++i) {
    const unsigned kind = rng() % 10;
    f.pointClass = f.pointType = kind < 7 ? 0 : kind < 9 ? 1 : 2;
    f.groupingId = grouping;
    f.phaseId = tgGetId(tg::kPhaseKind, "toolbox/bench/phase_" + std::to_string(rng() % 200) + ".m");
    f.statisticsTypeId = f.pointClass == 0 ? -1 : stats;
    f.modelId = f.pointClass >= 1 ? tgGetId(tg::kModelKind, "bench_model") : -1;
    f.targetId = f.pointClass >= 1 ? tgGetId(tg::kTargetKind, "bench_target") : -1;
    f.machineId = f.pointClass == 2 ? tgGetId(tg::kMachineKind, "bench_machine") : -1;
    f.chartId = f.pointClass == 2 ? tgGetId(tg::kChartKind, "bench_chart") : -1;
    f.isStart = i % 2 == 0;
    wall += 1e-4 * (rng() % 1000);
    f.wallTime = wall;
    f.cpuTime = wall * 0.8;
    f.basic = {1e8 + rng() % 100000, 2e8, 4e9 + rng() % 1000};
    store->rawData->append(f);
  }
}

std::string benchFile(const char* name) {
  return (std::filesystem::temp_directory_path() / (std::string(name) + std::to_string(::getpid()) + ".orf"))
      .string();
}

// A saved file of kPoints points, made in a process of its own, removed when
// the benchmarks end.
const std::string& savedFile() {
  struct Saved {
    Saved() {
      tgbench::inFreshProcess<1>([&]() -> std::array<double, 1> {
        fillStore();
        saveStoreTraceFile(name);
        return {0.0};
      });
    }
    ~Saved() { std::filesystem::remove(name); }
    const std::string name = benchFile("tg_bench_load_");
  };
  static const Saved saved;
  return saved.name;
}

void BM_SaveTraceFile(benchmark::State& state) {
  const std::string file = benchFile("tg_bench_save_");
  for (auto _ : state) {
    const auto seconds = tgbench::inFreshProcess<1>([&]() -> std::array<double, 1> {
      fillStore();
      getCachedSystemInfo();  // collected once per process, not part of a save
      const double start = huRealtime();
      saveStoreTraceFile(file);
      return {huRealtime() - start};
    });
    state.SetIterationTime(seconds[0]);
  }
  state.counters["points"] = static_cast<double>(kPoints);
  state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(file));
  std::filesystem::remove(file);
}

// Arg 0: into the store; 1: as points for a report.
void BM_LoadTraceFile(benchmark::State& state) {
  const std::string& file = savedFile();
  for (auto _ : state) {
    const auto figures = tgbench::inFreshProcess<2>([&]() -> std::array<double, 2> {
      RawPointVector points;
      TempoGaugingSystemInfo info;
      std::string root;
      const double start = huRealtime();
      if (state.range(0) == 0) {
        loadTraceIntoStore(file);
      } else {
        loadTraceFile(file, points, info, root);
      }
      const double seconds = huRealtime() - start;
      std::lock_guard lock(TempoGauge::instance()->mutex());
      return {seconds, static_cast<double>(state.range(0) ? points.size() : TempoGauge::instance()->rawData->size())};
    });
    if (figures[1] != kPoints) state.SkipWithError("the file did not load whole");
    state.SetIterationTime(figures[0]);
  }
  state.counters["points"] = static_cast<double>(kPoints);
  state.SetLabel(state.range(0) ? "as points" : "into the store");
}

}  // namespace

BENCHMARK(BM_SaveTraceFile)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();
BENCHMARK(BM_LoadTraceFile)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

