// SPDX-License-Identifier: BSD-3-Clause
// Writing a detail report of a large trace: pairing, aggregate table, call
// tree and the page itself, for one million raw points.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "report_doc_trace.h"
#include "tempogauge/report.h"

namespace {

// 5000 steps of 99 tasks each (50 distinct task names) inside one outer
// phase per step: 500 000 phase executions, 1 000 000 raw points.
RawPointVector millionPointTrace() {
  tgreport::RunBuilder run(false, "Bench");
  char name[32];
  for (int step = 0; step < 5000; ++step) {
    run.open("Step");
    for (int task = 0; task < 99; ++task) {
      std::snprintf(name, sizeof name, "Task %02d", task % 50);
      run.phase(name, 0.001);
    }
    run.close("Step", 0.0);
  }
  return run.take();
}

void BM_DetailReportOfOneMillionPoints(benchmark::State& state) {
  const auto file = (std::filesystem::temp_directory_path() / "tg_report_bench.html").string();
  TempoGaugingSystemInfo info;
  info.processorStr = "bench";
  std::uintmax_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto raw = millionPointTrace();
    if (raw.size() != 1000000) state.SkipWithError("the trace does not hold one million points");
    state.ResumeTiming();
    const bool written =
        writeDetailReport(TempoGauge::instance(), file, "Bench", "Bench", "time", false, &raw, &info);
    state.PauseTiming();
    if (!written) state.SkipWithError("the report was not written");
    bytes = std::filesystem::file_size(file);
    raw.clear();
    state.ResumeTiming();
  }
  state.counters["file_MB"] = static_cast<double>(bytes) / (1024.0 * 1024.0);
  state.counters["points"] = 1e6;
  std::filesystem::remove(file);
}
BENCHMARK(BM_DetailReportOfOneMillionPoints)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
