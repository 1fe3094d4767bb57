// SPDX-License-Identifier: BSD-3-Clause
// Costs of the logging path: a call whose grouping is off, a stored point with
// the basic memory sample and with the detailed walk, and the floor that a
// stored point can't go below (its clock reads and memory read, done bare);
// and what a stored point costs the traced process's memory.
#include <benchmark/benchmark.h>

#include <string>

#include "fresh_process.h"
#include "host/clock.h"
#include "host/process_memory.h"
#include "collect/tempo_gauge.h"
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

// With Arg 1 another grouping is on, so the gate has to look the name up.
void BM_DisabledLogByName(benchmark::State& state) {
  const std::string grouping = "bench.off";
  groupingId(grouping);
  tgEnableTracer(grouping, false);
  if (state.range(0)) tgEnableTracer("bench.elsewhere", true);
  for (auto _ : state) benchmark::DoNotOptimize(tgLogORRERYData(grouping, kPhase, true));
  tgRemoveGrouping("bench.elsewhere");
}
BENCHMARK(BM_DisabledLogByName)->Arg(0)->Arg(1);

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

// Resident growth of the process over a million stored points, per point,
// taken in a fresh process: 0 basic points, 1 Cogwheel points, 2 basic points
// with detailed figures (stored as the walk gives them, without the walk).
void BM_StoreBytesPerPoint(benchmark::State& state) {
  constexpr int kPoints = 1000000;
  const int kind = static_cast<int>(state.range(0));
  double bytesPerPoint = 0;
  for (auto _ : state) {
    const auto figures = tgbench::inFreshProcess<2>([kind]() -> std::array<double, 2> {
      const std::int32_t id = tgAddGrouping("bench.memory");
      tgEnableTracer("bench.memory", true);
      tgLogORRERYData(id, kPhase, true);  // names and the first chunk exist before the count starts
      tgLogCogwheelData(id, "model", "target", kPhase, true);
      tg::host::ProcessCounters before, after;
      tg::host::readProcessCounters(before);
      const double start = huRealtime();
      RawPointFields detailed;
      detailed.phaseId = 0;
      for (int i = 0; i < kPoints; ++i) {
        if (kind == 0) {
          tgLogORRERYData(id, kPhase, i % 2 == 0);
        } else if (kind == 1) {
          tgLogCogwheelData(id, "model", "target", kPhase, i % 2 == 0);
        } else {
          detailed.detailedState = RawPointFields::Detailed::kFigures;
          detailed.detailed = {1e9 + i, 2e9, 3e9, 4e9, 5e9};
          std::lock_guard lock(TempoGauge::instance()->mutex());
          TempoGauge::instance()->rawData->append(detailed);
        }
      }
      const double seconds = huRealtime() - start;
      tg::host::readProcessCounters(after);
      return {static_cast<double>(after.residentBytes - before.residentBytes) / kPoints, seconds};
    });
    bytesPerPoint = figures[0];
    state.SetIterationTime(figures[1]);
  }
  state.counters["bytes_per_point"] = bytesPerPoint;
  state.SetLabel(kind == 0 ? "basic (goal <= 64)" : kind == 1 ? "Cogwheel" : "basic + detailed");
}
BENCHMARK(BM_StoreBytesPerPoint)->Arg(0)->Arg(1)->Arg(2)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
