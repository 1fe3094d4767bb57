// SPDX-License-Identifier: BSD-3-Clause
// Costs of the logging path: a call whose grouping is off, a stored point with
// the basic memory sample and with the detailed walk, and the floor that a
// stored point can't go below (its clock reads and memory read, done bare).
#include <benchmark/benchmark.h>

#include <string>

#include "host/clock.h"
#include "host/process_memory.h"
#include "tempogauge/tempogauge.h"

namespace {

// Points stored between clears, so the stored-point runs don't grow without bound.
constexpr std::int64_t kPointsPerClear = 1 << 14;

const std::string kPhase = "bench/phase/with/a/path/like/name.m";

std::int32_t groupingId(const std::string& name) { return tgAddGrouping(name); }

void BM_DisabledLogById(benchmark::State& state) {
  const std::int32_t id = groupingId("bench.off");
  tgEnableTracer("bench.off", false);
  for (auto _ : state) benchmark::DoNotOptimize(tgLogORRERYData(id, kPhase, true));
}
BENCHMARK(BM_DisabledLogById);

void BM_DisabledLogByName(benchmark::State& state) {
  const std::string grouping = "bench.off";
  groupingId(grouping);
  tgEnableTracer(grouping, false);
  for (auto _ : state) benchmark::DoNotOptimize(tgLogORRERYData(grouping, kPhase, true));
}
BENCHMARK(BM_DisabledLogByName);

// Another grouping is on, so the gate has to look the name up.
void BM_DisabledLogByNameWhileOthersLog(benchmark::State& state) {
  const std::string grouping = "bench.off";
  groupingId(grouping);
  tgEnableTracer(grouping, false);
  tgEnableTracer("bench.elsewhere", true);
  for (auto _ : state) benchmark::DoNotOptimize(tgLogORRERYData(grouping, kPhase, true));
  tgRemoveGrouping("bench.elsewhere");
}
BENCHMARK(BM_DisabledLogByNameWhileOthersLog);

void BM_Floor(benchmark::State& state) {
  tg::host::ProcessCounters counters;
  for (auto _ : state) {
    benchmark::DoNotOptimize(tg::host::readProcessCounters(counters));
    benchmark::DoNotOptimize(huRealtime());
    benchmark::DoNotOptimize(huCPUtime());
  }
}
BENCHMARK(BM_Floor);

void storedPoints(benchmark::State& state, bool detailed) {
  const std::int32_t id = groupingId("bench.on");
  tgEnableTracer("bench.on", true);
  tgEnableDetailedMemStats(detailed);
  tgClearRawData();
  std::int64_t sinceClear = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(tgLogORRERYData(id, kPhase, true));
    if (++sinceClear == kPointsPerClear) {
      state.PauseTiming();
      tgClearRawData();
      sinceClear = 0;
      state.ResumeTiming();
    }
  }
  tgEnableDetailedMemStats(false);
  tgEnableTracer("bench.on", false);
  tgClearRawData();
}

void BM_StoredPointBasic(benchmark::State& state) { storedPoints(state, false); }
BENCHMARK(BM_StoredPointBasic);

void BM_StoredPointDetailed(benchmark::State& state) { storedPoints(state, true); }
BENCHMARK(BM_StoredPointDetailed);

}  // namespace
