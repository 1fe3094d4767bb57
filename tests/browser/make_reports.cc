// Writes the reports that the browser tests open, from traces built through
// the library, and the script text of every report variant for the linter.
//
//   tg_make_reports reports DIR     the reports, named as listed in DIR/index.txt
//   tg_make_reports scripts DIR     each script asset as every variant selects it
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "collect/tempo_gauge.h"
#include "report/report_assets.h"
#include "report/variant_text.h"
#include "report_doc_trace.h"
#include "tempogauge/report.h"

namespace {

namespace fs = std::filesystem;

const char* const kHostileNames[] = {
    "<img src=x onerror=\"window.injected = 1\">",
    "it's \"quoted\" back",
    "100% done %27",
    "</script><script>window.injected = 2;</script>",
    "<!--<script>window.injected = 3;",
};

// A run with many distinct phases: "Phase 000" ... with growing times, and an
// outer phase that holds them all.
RawPointVector manyPhases(int count, bool detailed) {
  tgreport::RunBuilder run(detailed);
  run.open("All phases");
  for (int i = 0; i < count; ++i) {
    char name[32];
    std::snprintf(name, sizeof name, "Phase %03d", i);
    run.phase(name, 0.01 * (i + 1));
  }
  run.close("All phases", 0.05);
  return run.take();
}

// Two runs to compare: "Shared" phases in both (the right run slower), "Only
// left" in the left run alone and "Only right" in the right run alone.
RawPointVector comparedRun(bool right, bool detailed) {
  tgreport::RunBuilder run(detailed);
  run.open("Compared run");
  run.phase("Shared fast", right ? 0.5 : 1.0);
  run.phase("Shared slow", right ? 3.0 : 1.0);
  run.phase("Shared same", 2.0);
  run.phase(right ? "Only right" : "Only left", 0.7);
  run.close("Compared run", 0.1);
  return run.take();
}

TempoGaugingSystemInfo recordNamed(std::string_view processor) {
  TempoGaugingSystemInfo record;
  record.processorStr = std::string(processor);
  record.cpuSpeedStr = "2.6 GHz";
  record.numCoresStr = "2";
  record.totalPhysMemStr = "24576";
  record.operatingSystemStr = "Test OS <1.0> & friends";
  record.ORRERYVersionStr = "9.4.0";
  record.javaVMVersionStr = "none";
  record.installedProductsStr = "Product A 1.0\n<script>window.injected = true;</script>\nProduct B 2.0\n";
  return record;
}

// Names made of markup, quotes, backslashes and percent signs, to be shown as
// text and never run.
RawPointVector hostileRun() {
  tgreport::RunBuilder run(false);
  run.open("Hostile names");
  for (const char* name : kHostileNames) run.phase(name, 0.25);
  run.close("Hostile names", 0.0);
  return run.take();
}

int writeReports(const fs::path& dir) {
  TempoGauge* store = TempoGauge::instance();
  std::ofstream index(dir / "index.txt");
  bool ok = true;
  const auto note = [&](const std::string& name, bool written) {
    index << name << (written ? "" : " FAILED") << "\n";
    if (!written) std::fprintf(stderr, "tg_make_reports: %s was not written\n", name.c_str());
    ok = ok && written;
  };
  const auto record = recordNamed("Test CPU <model> \"X\"");
  const auto lhsRecord = recordNamed("Left CPU");
  const auto rhsRecord = recordNamed("Right CPU");
  const auto single = [&](const std::string& name, bool aggregateOnly, const std::string& metric, RawPointVector raw) {
    const auto write = aggregateOnly ? writeAggregateReport : writeDetailReport;
    note(name, write(store, (dir / name).string(), "Workload", "Workload", metric, false, &raw, &record));
  };
  const auto comparison = [&](const std::string& name, bool aggregateOnly, const std::string& metric,
                              RawPointVector lhs, RawPointVector rhs, std::string_view lhsLabel,
                              std::string_view rhsLabel, bool twoRecords) {
    const auto write = aggregateOnly ? writeAggregateDifferenceReport : writeDifferenceReport;
    note(name, write(store, (dir / name).string(), "Workload", lhsLabel, rhsLabel, &lhs, &rhs,
                     twoRecords ? &lhsRecord : &record, twoRecords ? &rhsRecord : &record, metric));
  };
  for (const std::string metric : {"time", "basicmemory", "detailedmemory"}) {
    single("aggregate_" + metric + ".html", true, metric, manyPhases(150, true));
    single("detail_" + metric + ".html", false, metric, manyPhases(40, true));
    comparison("aggdiff_" + metric + ".html", true, metric, comparedRun(false, true), comparedRun(true, true),
               "Before <run>", "After", true);
    comparison("diff_" + metric + ".html", false, metric, comparedRun(false, true), comparedRun(true, true), "Before",
               "After", true);
  }
  // A metric word without columns of its own still gives working pages.
  single("aggregate_unknown_metric.html", true, "cycles", manyPhases(50, false));
  comparison("aggdiff_unknown_metric.html", true, "cycles", comparedRun(false, false), comparedRun(true, false),
             "Before", "After", false);
  single("aggregate_hostile_names.html", true, "time", hostileRun());
  comparison("diff_hostile_names.html", false, "time", hostileRun(), hostileRun(), "<b>left</b>", "right's", false);
  return ok ? 0 : 1;
}

int writeScriptVariants(const fs::path& dir) {
  int written = 0;
  for (std::size_t i = 0; i < tg::assets::kAllCount; ++i) {
    const auto& [name, text] = tg::assets::kAll[i];
    if (!name.ends_with(".js")) continue;
    for (const std::string_view metric : {"time", "basicmemory", "detailedmemory", "cycles"}) {
      for (int bits = 0; bits < 8; ++bits) {
        ReportVariant variant;
        variant.metric = metric;
        variant.isComparison = (bits & 1) != 0;
        variant.aggregateOnly = (bits & 2) != 0;
        variant.hasDetailedMemStats = (bits & 4) != 0;
        std::string out;
        appendVariantText(out, text, variant);
        const auto file = dir / (std::string(name) + "." + std::string(metric) + "." + std::to_string(bits) + ".js");
        std::ofstream(file) << out;
        ++written;
      }
    }
  }
  return written > 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s reports|scripts DIR\n", argv[0]);
    return 2;
  }
  const std::string_view mode = argv[1];
  const fs::path dir = argv[2];
  std::error_code error;
  fs::create_directories(dir, error);
  if (error) {
    std::fprintf(stderr, "tg_make_reports: cannot create %s: %s\n", dir.c_str(), error.message().c_str());
    return 1;
  }
  try {
    if (mode == "reports") return writeReports(dir);
    if (mode == "scripts") return writeScriptVariants(dir);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "tg_make_reports: %s\n", e.what());
    return 1;
  }
  std::fprintf(stderr, "tg_make_reports: unknown mode '%s'\n", argv[1]);
  return 2;
}
