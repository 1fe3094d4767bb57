// SPDX-License-Identifier: BSD-3-Clause
// Writes the reports that the browser tests open, from traces built through
// the library, and the script text of every report variant for the linter.
//
//   tg_make_reports reports DIR     the reports, named as listed in DIR/index.txt
//   tg_make_reports scripts DIR     each script asset as every variant selects it
//   tg_make_reports bench DIR [N]   the memory chart pages of the browser benchmarks
//   tg_make_reports bench-tables DIR  the detail and call tree pages of the browser benchmarks
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "collect/tempo_gauge.h"
#include "report/chart_markup.h"
#include "report/report_assets.h"
#include "report/report_scripts.h"
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

// `prefix` followed by `n` in `digits` digits.
std::string numbered(const char* prefix, int n, int digits) {
  char text[48];
  std::snprintf(text, sizeof text, "%s%0*d", prefix, digits, n);
  return text;
}

// A run of `count` phase executions, named "Step 000" ... (repeating after
// `names`), with times that vary from one execution to the next.
RawPointVector manyPhases(int count, int names, bool detailed) {
  tgreport::RunBuilder run(detailed);
  std::uint32_t state = 12345;
  for (int i = 0; i < count; ++i) {
    state = state * 1664525u + 1013904223u;
    run.phase(numbered("Step ", i % names, 3), 0.05 * static_cast<double>(state >> 16) / 65536.0);
  }
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

// A run for the memory charts: `count` phases with detailed samples small
// enough that no band is zoomed away, each band varying from phase to phase;
// `extra` names a phase added before phase `extraAt` (for comparisons), and
// the last phase gets a very long name. Phase names repeat after `names`.
RawPointVector chartRun(int count, double scale, std::string_view extra = "", int extraAt = 0, int names = 100000) {
  tgreport::RunBuilder run(true);
  int step = 0;
  run.sample = [&](TGORRERYDataPoint& point) {
    const double mb = 1024.0 * 1024.0 * scale;
    const int k = step++ % 7;
    point.basicMemStats = std::make_shared<tg::BasicMemStats>(100 * mb, 150 * mb, 300 * mb);
    point.detailedMemStats = std::make_shared<tg::DetailedMemStats>(
        (500 + 40 * k) * mb, (300 + 20 * k) * mb, (400 + 30 * k) * mb, (100 + 10 * k) * mb, (200 + 25 * k) * mb);
  };
  for (int i = 0; i < count; ++i) {
    if (!extra.empty() && i == extraAt) run.phase(extra, 0.01);
    run.phase(i == count - 1 ? "A phase whose name is far too long to stand above its column " + std::string(120, 'x')
                             : numbered("Step ", i % names, 5),
              0.01);
  }
  return run.take();
}

// Nested phases with loops the call tree merges, gaps that become "_self" and
// "_post" rows, and a deep path to one "Needle".
RawPointVector nestedRun(bool detailed) {
  tgreport::RunBuilder run(detailed);
  run.open("Outer");
  for (int i = 0; i < 5; ++i) {
    run.open("Loop");
    run.phase("Inner", 0.05 * (i + 1));
    run.close("Loop", 0.3);
  }
  run.close("Outer", 0.5);
  const char* const path[] = {"Deep 1", "Deep 2", "Deep 3", "Deep 4", "Deep 5", "Deep 6"};
  for (const char* name : path) run.open(name);
  run.phase("Needle", 0.01);
  for (int i = 5; i >= 0; --i) run.close(path[i], 0.001);
  run.phase("Tail", 0.2);
  return run.take();
}

// The call trees of the table benchmarks: `branches` chains `depth` levels
// deep under one root.
RawPointVector chains(int branches, int depth) {
  tgreport::RunBuilder run(false);
  run.open("Root");
  for (int b = 0; b < branches; ++b) {
    std::vector<std::string> names{numbered("Branch ", b, 5)};
    for (int level = 1; level < depth; ++level) names.push_back(numbered("Level ", level, 4));
    for (const auto& n : names) run.open(n);
    for (auto it = names.rbegin(); it != names.rend(); ++it) run.close(*it, 0.00001);
  }
  run.close("Root", 0.0);
  return run.take();
}

TempoGaugingSystemInfo recordNamed(std::string_view processor) {
  return {std::string(processor), "2.6 GHz", "2", "24576", "Test OS <1.0> & friends", "9.4.0", "none",
          "Product A 1.0\n<script>window.injected = true;</script>\nProduct B 2.0\n"};
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

using Run = std::function<RawPointVector()>;

// One page: a report of one run (no `rhs`) or a comparison, with or without
// its detail views.
struct Page {
  std::string name;
  std::string metric;
  bool aggregateOnly;
  Run lhs;
  Run rhs = {};
  std::string lhsLabel = "Before";
  std::string rhsLabel = "After";
  bool twoRecords = true;  // each run with a record of its own
};

bool writePage(const fs::path& dir, const Page& page) {
  static const auto record = recordNamed("Test CPU <model> \"X\"");
  static const auto lhsRecord = recordNamed("Left CPU");
  static const auto rhsRecord = recordNamed("Right CPU");
  TempoGauge* store = TempoGauge::instance();
  const std::string file = (dir / page.name).string();
  RawPointVector lhs = page.lhs();
  if (!page.rhs) {
    const auto write = page.aggregateOnly ? writeAggregateReport : writeDetailReport;
    return write(store, file, "Workload", "Workload", page.metric, false, &lhs, &record);
  }
  RawPointVector rhs = page.rhs();
  const auto write = page.aggregateOnly ? writeAggregateDifferenceReport : writeDifferenceReport;
  return write(store, file, "Workload", page.lhsLabel, page.rhsLabel, &lhs, &rhs,
               page.twoRecords ? &lhsRecord : &record, page.twoRecords ? &rhsRecord : &record, page.metric);
}

// Writes the pages and lists them in DIR/index.txt, each failed one marked.
int writePages(const fs::path& dir, const std::vector<Page>& pages) {
  std::ofstream index(dir / "index.txt");
  bool ok = true;
  for (const Page& page : pages) {
    const bool written = writePage(dir, page);
    index << page.name << (written ? "" : " FAILED") << "\n";
    if (!written) std::fprintf(stderr, "tg_make_reports: %s was not written\n", page.name.c_str());
    ok = ok && written;
  }
  return ok ? 0 : 1;
}

int writeReports(const fs::path& dir) {
  const auto compared = [](bool right, bool detailed) { return [=] { return comparedRun(right, detailed); }; };
  std::vector<Page> pages;
  for (const std::string metric : {"time", "basicmemory", "detailedmemory"}) {
    pages.push_back({"aggregate_" + metric + ".html", metric, true, [] { return manyPhases(150, 150, true); }});
    pages.push_back({"detail_" + metric + ".html", metric, false, [] { return manyPhases(40, 40, true); }});
    pages.push_back({"nested_" + metric + ".html", metric, false, [] { return nestedRun(true); }});
    pages.push_back({"aggdiff_" + metric + ".html", metric, true, compared(false, true), compared(true, true),
                     "Before <run>"});
    pages.push_back({"diff_" + metric + ".html", metric, false, compared(false, true), compared(true, true)});
  }
  // A metric word without columns of its own still gives working pages.
  pages.push_back({"aggregate_unknown_metric.html", "cycles", true, [] { return manyPhases(50, 50, false); }});
  pages.push_back({"aggdiff_unknown_metric.html", "cycles", true, compared(false, false), compared(true, false),
                   "Before", "After", false});
  pages.push_back({"memchart.html", "detailedmemory", false, [] { return chartRun(300, 1.0); }});
  pages.push_back({"diffchart.html", "detailedmemory", false, [] { return chartRun(300, 1.0, "Only left", 100); },
                   [] { return chartRun(300, 1.25, "Only right", 200); }});
  pages.push_back({"detail_hostile_names.html", "time", false, hostileRun});
  pages.push_back({"aggregate_hostile_names.html", "time", true, hostileRun});
  pages.push_back({"diff_hostile_names.html", "time", false, hostileRun, hostileRun, "<b>left</b>", "right's", false});
  // The chart's notice for a trace without detailed statistics, in a page of
  // its own (not in the index: it has no views), since the drivers write the
  // page of the missing detail instead.
  std::string notice = "<html><body></body></html>\n" + writeMemChartMarkup(false);
  writeMemChartScript(notice, false);
  std::ofstream(dir / "memchart_notice.html") << notice;
  return writePages(dir, pages);
}

// The pages of the chart benchmarks: one run of `count` executions, and two
// runs of `count / 2` each, of a hundred phases in turn; and of the table
// benchmarks: a detail report of a million raw points and the call trees of
// 100 000 nodes, one deep and one wide.
int writeBenchReports(const fs::path& dir, int count) {
  return writePages(dir, {{"memchart.html", "detailedmemory", false, [=] { return chartRun(count, 1.0, "", 0, 100); }},
                          {"diffchart.html", "detailedmemory", false,
                           [=] { return chartRun(count / 2, 1.0, "Only left", count / 6, 100); },
                           [=] { return chartRun(count / 2, 1.25, "Only right", count / 3, 100); }}});
}

int writeTableBenchReports(const fs::path& dir) {
  return writePages(dir, {{"details_1m.html", "time", false, [] { return manyPhases(500000, 100, false); }},
                          {"tree_deep.html", "time", false, [] { return chains(100, 1000); }},
                          {"tree_wide.html", "time", false, [] { return chains(50000, 2); }}});
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
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "usage: %s reports|scripts|bench DIR [COUNT]\n", argv[0]);
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
    if (mode == "bench-tables") return writeTableBenchReports(dir);
    if (mode == "bench") return writeBenchReports(dir, argc > 3 ? std::atoi(argv[3]) : 100000);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "tg_make_reports: %s\n", e.what());
    return 1;
  }
  std::fprintf(stderr, "tg_make_reports: unknown mode '%s'\n", argv[1]);
  return 2;
}
