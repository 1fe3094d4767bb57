// Trace Event export of a run of 1M points (500 000 phase executions, nested
// three deep, with memory samples): time to write the file, and its size.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>

#include "analysis/pairing.h"
#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"

namespace {

TGProcessedDataStruct millionPointRun() {
  tgtest::TraceBuilder t;
  const char* names[] = {"outer", "middle", "inner"};
  while (t.points.size() < 1'000'000) {
    t.start(names[0], 0.001).start(names[1], 0.001).start(names[2], 0.001);
    t.stop(names[2], 0.002).stop(names[1], 0.001).stop(names[0], 0.001);
  }
  double kib = 0;
  for (auto& p : t.points) {
    kib += 1;
    p->basicMemStats = std::make_shared<tg::BasicMemStats>(kib * 1024, kib * 2048, kib);
  }
  return analyzeRawPoints(t.points, {"G"}, false);
}

void BM_ExportMillionPoints(benchmark::State& state) {
  static const TGProcessedDataStruct run = millionPointRun();
  const auto file = std::filesystem::temp_directory_path() / "tg_export_bench.json";
  for (auto _ : state) {
    if (!writeTraceEventFile(file.string(), run, {}, "bench")) state.SkipWithError("could not write");
  }
  state.counters["MiB"] = static_cast<double>(std::filesystem::file_size(file)) / 1048576.0;
  state.counters["events"] = static_cast<double>(run.processedPoints.size());
  std::filesystem::remove(file);
}
BENCHMARK(BM_ExportMillionPoints)->Unit(benchmark::kSecond)->Iterations(3);

}  // namespace
