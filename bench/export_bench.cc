// Trace Event export of a run of 1M points (500 000 phase executions, nested
// three deep, with memory samples): time to write the file, and its size.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "analysis/pairing.h"
#include "report_doc_trace.h"
#include "tempogauge/tempogauge.h"

namespace {

TGProcessedDataStruct millionPointRun() {
  tgreport::RunBuilder run(false, "G");
  for (int i = 0; i < 1'000'002 / 6; ++i)
    run.open("outer").open("middle").phase("inner", 0.002).close("middle", 0.001).close("outer", 0.001);
  RawPointVector points = run.take();
  return analyzeRawPoints(points, {"G"}, false);
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
