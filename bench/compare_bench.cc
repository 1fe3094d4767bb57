// SPDX-License-Identifier: BSD-3-Clause
// Comparison and report data: aligning two long runs that differ in 1% of their
// rows (time and peak memory), and writing procData for a million points.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <random>
#include <string>

#include "analysis/alignment.h"
#include "analysis/report_data.h"
#include "collect/tempo_gauge.h"

namespace {

// Resident set figures of this process, in KiB.
long statusField(const char* name) {
  std::ifstream status("/proc/self/status");
  std::string line;
  const std::size_t length = std::strlen(name);
  while (std::getline(status, line))
    if (line.compare(0, length, name) == 0 && line.size() > length && line[length] == ':')
      return std::stol(line.substr(length + 1));
  return -1;
}

// Starts a peak measurement: returns the resident size, with the kernel's
// high-water mark reset to it.
long startPeak() {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";
  return statusField("VmRSS");
}

// Keys of a run: a loop of 50 iterations of 20 steps repeated, so that names
// repeat as in real traces (1000 distinct keys).
std::vector<std::string> baseNames(std::size_t rows) {
  std::vector<std::string> names;
  names.reserve(rows);
  for (std::size_t r = 0; names.size() < rows; ++r)
    names.push_back("loop_" + std::to_string((r / 20) % 50) + "/step_" + std::to_string(r % 20));
  return names;
}

// The same run with 1% of its rows removed, inserted or renamed.
std::vector<std::string> editedNames(std::vector<std::string> names, double share, unsigned seed) {
  std::mt19937 rng(seed);
  const std::size_t edits = static_cast<std::size_t>(static_cast<double>(names.size()) * share);
  for (std::size_t e = 0; e < edits; ++e) {
    const std::size_t at = std::uniform_int_distribution<std::size_t>(0, names.size() - 1)(rng);
    switch (e % 3) {
      case 0: names.erase(names.begin() + static_cast<std::ptrdiff_t>(at)); break;
      case 1: names.insert(names.begin() + static_cast<std::ptrdiff_t>(at), "inserted_" + std::to_string(e)); break;
      default: names[at] = "renamed_" + std::to_string(e);
    }
  }
  return names;
}

ProcessedPointVector pointsNamed(const std::vector<std::string>& names) {
  const std::int32_t grouping = tgGetId(tg::kGroupingKind, "BenchGrouping");
  ProcessedPointVector points;
  points.reserve(names.size());
  TGORRERYDataPoint raw;
  raw.groupingId = grouping;
  for (std::size_t k = 0; k < names.size(); ++k) {
    raw.phaseId = tgGetId(tg::kPhaseKind, names[k]);
    auto p = makeProcessedPoint(raw, static_cast<std::int32_t>(k + 1), 0);
    p->wcElapsedTime = 0.001 * static_cast<double>(k % 97);
    points.push_back(std::move(p));
  }
  return points;
}

void BM_AlignProcessed_1pctDiff(benchmark::State& state) {
  const auto rows = static_cast<std::size_t>(state.range(0));
  const auto lhsNames = baseNames(rows);
  const auto lhs = pointsNamed(lhsNames);
  const auto rhs = pointsNamed(editedNames(lhsNames, 0.01, 42));
  long peakKiB = 0;
  std::size_t aligned = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const long before = startPeak();
    state.ResumeTiming();
    auto result = alignProcessedData(lhs, rhs);
    benchmark::DoNotOptimize(result.data());
    state.PauseTiming();
    peakKiB = std::max(peakKiB, statusField("VmHWM") - before);
    aligned = result.size();
    result = {};
    state.ResumeTiming();
  }
  state.counters["peak_MB"] = static_cast<double>(peakKiB) / 1024.0;
  state.counters["rows_out"] = static_cast<double>(aligned);
}
BENCHMARK(BM_AlignProcessed_1pctDiff)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_WriteProcData_Time(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  ProcessedPointVector points;
  points.reserve(count);
  TGORRERYDataPoint raw;
  raw.groupingId = 0;
  for (std::size_t k = 0; k < count; ++k) {
    raw.phaseId = static_cast<std::int32_t>(k % 5000);
    auto p = makeProcessedPoint(raw, static_cast<std::int32_t>(k + 1), 2);
    p->HTMLPhaseNumString = std::to_string(k / 400 + 1) + "." + std::to_string(k % 400 / 20 + 1) + "." +
                            std::to_string(k % 20 + 1);
    p->numChildren = k % 20 == 0 ? 3 : 0;
    p->wcStartTime = 0.0123 * static_cast<double>(k);
    p->wcElapsedTime = 0.000012345678 * static_cast<double>(k % 977);
    p->cpuStartTime = 0.0101 * static_cast<double>(k);
    p->cpuElapsedTime = 0.00001 * static_cast<double>(k % 613);
    points.push_back(std::move(p));
  }
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::string text = writeProcData(points, "time");
    bytes = text.size();
    benchmark::DoNotOptimize(text.data());
  }
  state.counters["MB_out"] = static_cast<double>(bytes) / (1024.0 * 1024.0);
}
BENCHMARK(BM_WriteProcData_Time)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
