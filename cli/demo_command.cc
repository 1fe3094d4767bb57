// SPDX-License-Identifier: BSD-3-Clause
// The demo subcommand: runs the instrumented workload in two variants, saves
// both traces, writes every report kind for each metric that has data and a
// diagnostic report, and says which report to open first.
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/command_options.h"
#include "cli/commands.h"
#include "cli/demo_guide.h"
#include "cli/demo_workload.h"
#include "cli/progress.h"
#include "cli/tracer_call.h"
#include "tempogauge/tempogauge.h"

namespace tg::cli {
namespace {

namespace fs = std::filesystem;

struct ReportKind {
  const char* method;
  const char* suffix;
  bool comparison;
};

constexpr ReportKind kReportKinds[] = {
    {"generateHTMLReport", "detail", false},
    {"generateAggregateReport", "aggregate", false},
    {"generateDifferenceReport", "difference", true},
    {"generateAggregateDifferenceReport", "aggregate-difference", true},
};

// Whether any stored point carries a detailed memory sample with figures.
bool hasDetailedMemory() {
  const std::unique_ptr<RawPointVector> points = TempoGauge::instance()->copyRawPoints();
  for (const RawPointPtr& point : *points) {
    const auto& detail = point->detailedMemStats;
    if (detail && detail->freeMem + detail->resMem + detail->commitMem > 0.0) return true;
  }
  return false;
}

std::string shown(const fs::path& path) { return fs::absolute(path).lexically_normal().string(); }

void runDemo(const fs::path& outDir) {
  fs::create_directories(outDir);
  const fs::path baseline = outDir / "baseline.orf";
  const fs::path changed = outDir / "changed.orf";

  // Per run: its stages and its save; then up to 3 metrics times 4 report
  // kinds, and the diagnostic report.
  Progress progress(demoStageCount(DemoVariant::Baseline) + demoStageCount(DemoVariant::Changed) + 2 + 3 * 4 + 1);
  const std::string grouping(kDemoGrouping);
  callTracer("enable", std::move(MethodArgs().text(grouping).flag(true)));
  callTracer("enableDetailedMemStats", std::move(MethodArgs().flag(true)));

  std::vector<std::string> metrics{"time", "basicmemory"};
  const struct {
    DemoVariant variant;
    const fs::path* file;
    const char* label;
  } runs[] = {{DemoVariant::Baseline, &baseline, "baseline"}, {DemoVariant::Changed, &changed, "changed"}};
  RunFigures figures[2];
  for (const auto& run : runs) {
    callTracer("clearRawData", MethodArgs());
    runDemoWorkload(run.variant, [&](std::string_view stage) {
      progress.step(std::string("running the ") + run.label + " workload: " + std::string(stage));
    });
    if (run.variant == DemoVariant::Baseline && hasDetailedMemory()) metrics.push_back("detailedmemory");
    figures[&run - runs] = collectRunFigures(grouping);
    progress.step("saving " + shown(*run.file));
    callTracer("saveToFile", std::move(MethodArgs().text(run.file->string())));
  }
  callTracer("clearRawData", MethodArgs());

  std::vector<fs::path> written{baseline, changed};
  for (const std::string& metric : metrics) {
    for (const ReportKind& kind : kReportKinds) {
      const fs::path html = outDir / (metric + "-" + kind.suffix + ".html");
      progress.step("writing " + shown(html));
      MethodArgs call;
      call.option("htmlfile", html.string());
      if (kind.comparison)
        call.option("lhsfile", baseline.string())
            .option("rhsfile", changed.string())
            .option("lhslabel", "baseline")
            .option("rhslabel", "changed");
      else
        call.option("orffile", baseline.string()).option("grouping", grouping);
      call.option("metric", metric);
      callTracer(kind.method, std::move(call));
      written.push_back(html);
    }
  }
  const fs::path diagnostic = outDir / "diagnostic.html";
  progress.step("writing " + shown(diagnostic));
  callTracer("diagnosticReport",
             std::move(MethodArgs().option("htmlfile", diagnostic.string()).option("orffile", baseline.string())));
  written.push_back(diagnostic);

  std::cout << "tempogauge demo: two runs of the workload, saved and reported (metrics:";
  for (const std::string& metric : metrics) std::cout << " " << metric;
  std::cout << ")\n";
  for (const fs::path& path : written) std::cout << "  " << shown(path) << "\n";
  printDemoGuide(std::cout, outDir, figures[0], figures[1]);
}

}  // namespace

void addDemoCommand(CLI::App& app) {
  auto out = std::make_shared<std::string>("tempogauge-demo");
  CLI::App* command = app.add_subcommand(
      "demo", "Run a built-in workload twice (a baseline and a changed variant) and write every report kind");
  command->add_option("--out", *out, "the folder to write into")->type_name("DIR")->capture_default_str();
  command->callback([out] { runDemo(*out); });
}

}  // namespace tg::cli
