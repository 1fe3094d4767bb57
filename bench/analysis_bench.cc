// SPDX-License-Identifier: BSD-3-Clause
// Pairing, aggregate table and call tree on long traces: 1 000 000 and
// 2 000 000 raw points with nesting up to depth 6, a gap every few phases, and
// loops that repeat subtrees.
#include <benchmark/benchmark.h>

#include <map>
#include <random>

#include "analysis/pairing.h"
#include "analysis/pairing_gap.h"
#include "analysis_trace_builder.h"
#include "host/md5.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::deepCopy;

struct Event {
  std::int32_t phase;
  bool start;
};

// A subtree shape: starts and stops nested up to `maxDepth` levels.
void shape(std::mt19937& rng, const std::vector<std::int32_t>& phases, int depth, int maxDepth,
           std::vector<Event>& out) {
  const std::int32_t phase = phases[std::uniform_int_distribution<std::size_t>(0, phases.size() - 1)(rng)];
  out.push_back({phase, true});
  if (depth < maxDepth) {
    const int children = std::uniform_int_distribution<int>(0, depth < 3 ? 3 : 2)(rng);
    for (int c = 0; c < children; ++c) shape(rng, phases, depth + 1, maxDepth, out);
  }
  out.push_back({phase, false});
}

RawPointVector buildTrace(std::size_t length) {
  std::mt19937 rng(42);
  std::vector<std::int32_t> phases;
  for (int i = 0; i < 40; ++i) phases.push_back(tgGetId(tg::kPhaseKind, "bench phase " + std::to_string(i)));
  const std::int32_t grouping = tgGetId(tg::kGroupingKind, "BenchGrouping");
  const std::int32_t run = tgGetId(tg::kPhaseKind, "bench run");
  std::vector<std::vector<Event>> shapes(60);
  for (auto& s : shapes) shape(rng, phases, 2, 6, s);  // below "run" and a loop phase: depth up to 6

  RawPointVector trace;
  trace.reserve(length + 16);
  double now = 0.0;
  std::size_t sinceGap = 0;
  auto emit = [&](std::int32_t phase, bool start) {
    // A gap of 0.2 s every few points, otherwise 1 ms.
    now += (++sinceGap % 7 == 0) ? 0.2 : 0.001;
    auto p = std::make_shared<TGORRERYDataPoint>();
    p->groupingId = grouping;
    p->phaseId = phase;
    p->flags.isStart = start ? 1 : 0;
    p->wallTime = now;
    p->cpuTime = now * 0.9;
    p->basicMemStats->procMemUsage = 1e8 + static_cast<double>(trace.size());
    p->detailedMemStats.reset();
    trace.push_back(std::move(p));
  };
  emit(run, true);
  std::size_t loop = 0;
  while (trace.size() + 2 < length) {
    const auto& body = shapes[loop % shapes.size()];
    const int repeats = std::uniform_int_distribution<int>(3, 40)(rng);
    const std::int32_t loopPhase = phases[loop % phases.size()];
    emit(loopPhase, true);
    for (int r = 0; r < repeats && trace.size() + body.size() + 3 < length; ++r)
      for (const Event& e : body) emit(e.phase, e.start);
    emit(loopPhase, false);
    ++loop;
  }
  emit(run, false);
  return trace;
}

const RawPointVector& traceOf(std::size_t length) {
  static std::map<std::size_t, RawPointVector> traces;
  auto it = traces.find(length);
  if (it == traces.end()) it = traces.emplace(length, buildTrace(length)).first;
  return it->second;
}

const TGProcessedDataStruct& pairedOf(std::size_t length) {
  static std::map<std::size_t, TGProcessedDataStruct> results;
  auto it = results.find(length);
  if (it == results.end()) {
    RawPointVector copy = deepCopy(traceOf(length));
    it = results.emplace(length, analyzeRawPoints(copy, {"BenchGrouping"}, false)).first;
  }
  return it->second;
}

void BM_Pairing(benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  const RawPointVector& trace = traceOf(length);
  for (auto _ : state) {
    state.PauseTiming();
    RawPointVector copy = deepCopy(trace);
    state.ResumeTiming();
    TGProcessedDataStruct r = analyzeRawPoints(copy, {"BenchGrouping"}, false);
    benchmark::DoNotOptimize(r.processedPoints.data());
    state.counters["rows"] = static_cast<double>(r.processedPoints.size());
    state.counters["errors"] = r.hasErrors;
    state.PauseTiming();
    r = {};
    copy.clear();
    state.ResumeTiming();
  }
}

void BM_AggregateTable(benchmark::State& state) {
  const TGProcessedDataStruct& paired = pairedOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    AggregateTable table = buildAggregateTable(paired.processedPoints);
    benchmark::DoNotOptimize(table.size());
    state.counters["entries"] = static_cast<double>(table.size());
  }
}

void BM_CallTree(benchmark::State& state) {
  const TGProcessedDataStruct& paired = pairedOf(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    CallTree roots = buildCallTree(paired.processedPoints);
    benchmark::DoNotOptimize(roots.data());
    state.counters["roots"] = static_cast<double>(roots.size());
    state.PauseTiming();
    roots.clear();
    state.ResumeTiming();
  }
}

}  // namespace

BENCHMARK(BM_Pairing)->Arg(1'000'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_AggregateTable)->Arg(1'000'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CallTree)->Arg(1'000'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond)->Iterations(1);

namespace {

// One digest of a 4-byte value, as hashID computes it the first time it meets an id.
void BM_Md5OfFourBytes(benchmark::State& state) {
  tg::Md5Checksum md5;
  std::int32_t value = 0;
  for (auto _ : state) {
    ++value;
    md5.addn(&value, sizeof value);
    benchmark::DoNotOptimize(md5.getValueAndReset());
  }
}

}  // namespace

BENCHMARK(BM_Md5OfFourBytes);
