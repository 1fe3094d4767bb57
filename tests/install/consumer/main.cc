// SPDX-License-Identifier: BSD-3-Clause
// Uses the installed library as a C++ caller would: logs a nested run, pairs
// it, folds it, writes a report and a saved trace, and reads the trace back.
// Prints what it found; exits non-zero on the first thing that is wrong.
#include <tempogauge/tempogauge.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace {

int fail(const char* what) {
  std::fprintf(stderr, "consumer: %s\n", what);
  return 1;
}

}  // namespace

int run(const std::filesystem::path& out) {
  tgEnableTracer("Consumer", true);
  for (int i = 0; i < 3; ++i) {
    tgLogORRERYData("Consumer", "outer", true);
    tgLogORRERYData("Consumer", "inner", true);
    tgLogORRERYData("Consumer", "inner", false);
    tgLogORRERYData("Consumer", "outer", false);
  }

  const TGProcessedDataStruct run = tgGetProcessedDataForGroupings(nullptr, {"Consumer"});
  if (run.hasErrors) return fail("pairing reported errors");
  if (run.processedPoints.size() != 6) return fail("expected six phase executions");
  const AggregateTable perPhase = buildAggregateTable(run.processedPoints);
  if (perPhase.size() != 2) return fail("expected two phases in the aggregate table");
  if (buildCallTree(run.processedPoints).size() != 1) return fail("expected one merged root");

  const std::string html = (out / "consumer.html").string();
  if (!writeDetailReport(TempoGauge::instance(), html, "Consumer", "Consumer", "time", true, nullptr, nullptr))
    return fail("the report was not written");
  if (std::filesystem::file_size(html) < 1000) return fail("the report is too small");

  const std::string trace = (out / "consumer.orf").string();
  saveTraceFile(trace, *TempoGauge::instance()->copyRawPoints());
  RawPointVector points;
  TempoGaugingSystemInfo info;
  std::string root;
  if (!loadTraceFile(trace, points, info, root) || points.size() != 12) return fail("the trace did not load back");

  std::printf("tempogauge %s: %zu executions, %zu phases, report and trace written\n", tempogauge_version,
              run.processedPoints.size(), perPhase.size());
  return 0;
}

int main(int argc, char** argv) {
  if (argc != 2) return fail("usage: consumer OUTPUT_DIR");
  try {
    return run(argv[1]);
  } catch (const hfnd::except::IMsgIDException& e) {
    std::fprintf(stderr, "consumer: %s: %s\n", e.get_error_id().c_str(), e.what());
    return 1;
  }
}
