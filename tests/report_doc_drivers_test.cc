// SPDX-License-Identifier: BSD-3-Clause
// The four report drivers: the order of the pieces of each report kind, the
// pages that stand in for a report, and the results of each failure.
#include <gtest/gtest.h>

#include <fstream>

#include "golden_text.h"
#include "report_doc_trace.h"
#include "scratch_files.h"
#include "tempogauge/report.h"

namespace {

namespace fs = std::filesystem;
using tgtest::countOf;
using tgtest::expectHas;
using tgtest::expectInOrder;
using tgtest::readFile;

RawPointVector nestedRun(bool detailed, bool slower = false) {
  tgreport::RunBuilder run(detailed);
  run.open("Outer").open("Middle").phase("Inner", slower ? 2.0 : 1.0).close("Middle", 0.01);
  run.phase(slower ? "Right only" : "Left only", 0.5);
  run.close("Outer", 0.01);
  return run.take();
}

RawPointVector unpairedRun() {
  tgreport::RunBuilder run(false);
  run.phase("Fine", 1.0).open("Never stopped");
  return run.take();
}

TempoGaugingSystemInfo record(std::string_view processor) {
  TempoGaugingSystemInfo info;
  info.processorStr = std::string(processor);
  info.installedProductsStr = "products of " + std::string(processor);
  return info;
}

class ReportDriverTest : public ::testing::Test {
 protected:
  std::string path(std::string_view name) const { return scratch_.path(name); }

  bool single(bool aggregateOnly, std::string_view file, std::string_view metric, RawPointVector raw,
              std::string_view title = "Workload") {
    const auto info = record("Only CPU");
    const auto write = aggregateOnly ? writeAggregateReport : writeDetailReport;
    return write(TempoGauge::instance(), path(file), "Workload", title, metric, false, &raw, &info);
  }

  bool comparison(bool aggregateOnly, std::string_view file, std::string_view metric, RawPointVector lhs,
                  RawPointVector rhs, std::string_view grouping = "Workload") {
    const auto lhsInfo = record("Left CPU");
    const auto rhsInfo = record("Right CPU");
    const auto write = aggregateOnly ? writeAggregateDifferenceReport : writeDifferenceReport;
    return write(TempoGauge::instance(), path(file), grouping, "Left run", "Right run", &lhs, &rhs, &lhsInfo,
                 &rhsInfo, metric);
  }

  tgtest::ScratchDir scratch_{"tg_report_drivers"};
};

TEST_F(ReportDriverTest, AggregateReportHoldsItsPiecesInOrderAndNothingElse) {
  ASSERT_TRUE(single(true, "aggregate.html", "time", nestedRun(false), "GLOBAL"));
  const auto text = readFile(path("aggregate.html"));
  EXPECT_EQ(text.rfind("<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n", 0), 0u);
  expectInOrder(text, {"<html xmlns=\"http://www.w3.org/1999/xhtml\"xml:lang=\"en\" lang=\"en\">\n",
                       "    <head>\n", "<title>Full Tracer Report</title>",
                       "    <body onresize=\"onResizeAction()\" onload=\"ShowTable('aggregateSummary'); "
                       "onResizeAction();\">\n",
                       "        <div align=\"center\">\n", "id = \"headerTable\"", "id = \"aggregateSummaryDiv\"",
                       "id = \"systemInfoTableDiv\"", "Only CPU", "        </div>\n",
                       "id = \"aggregateSummaryScrollTableDiv\"", "id = \"FakeSpan\"", "    </body>\n</html>\n",
                       "function ShowTable(", "function quicksort(", "var ABSMAXNUMPHASES = 32;",
                       "function sortAggData(", "    </script>\n    <script type=\"text/javascript\">\n",
                       "var Phase = [", "var aggData = [", "    </script>\n"});
  EXPECT_TRUE(text.ends_with("];\n\n    </script>\n"));
  EXPECT_EQ(countOf(text, "<div id=\"header\""), 2u);
  expectHas(text, {}, {"phaseSummaryDiv", "callTreeSummaryDiv", "var procData", "var callTreeArray", "openDetailTab",
                       "'Detail'", "td.GT50"});
  EXPECT_EQ(countOf(text, "<script"), countOf(text, "</script>"));
}

TEST_F(ReportDriverTest, DetailReportCarriesAllThreeViews) {
  ASSERT_TRUE(single(false, "detail.html", "time", nestedRun(false)));
  const auto text = readFile(path("detail.html"));
  expectInOrder(text, {"<title>Workload</title>", "<li><span>Aggregate</span></li>",
                       "ShowTable('callTreeSummary')\">Call Tree</a>", "ShowTable('phaseSummary')\">Details</a>",
                       "ShowTable('systemInfo')\">System Info</a>", "id = \"aggregateSummaryDiv\"",
                       "id = \"callTreeSummaryDiv\"", "id = \"phaseSummaryDiv\"", "id = \"systemInfoTableDiv\"",
                       "'Aggregate');\"></div>", "'Detail');\"></div>", "'CallTree');\"></div>", "</html>\n",
                       "function ShowTable(", "function quicksort(", "function filterCTDataView(",
                       "function openDetailTab(nodeIndex)", "var callTreeArray", "var procData = [",
                       "var Phase = [", "var aggData = ["});
  EXPECT_EQ(countOf(text, "<script"), countOf(text, "</script>"));
  // The indent rules follow the depth of the call tree: Outer > Middle > Inner.
  expectHas(text, {"td.phaseNameCell2 {"}, {"td.phaseNameCell7 {", "MemChart"});
}

TEST_F(ReportDriverTest, DifferenceReportHasNoCallTreePieces) {
  ASSERT_TRUE(comparison(false, "diff.html", "time", nestedRun(false), nestedRun(false, true), "GLOBAL"));
  const auto text = readFile(path("diff.html"));
  expectInOrder(text, {"<title>Performance Comparison</title>", "td.GT50 {", "id = \"headerTable\"",
                       "id = \"phaseSummaryDiv\"", "id = \"aggregateSummaryDiv\"", "id = \"systemInfoTableDiv\"",
                       "Left CPU", "Right CPU", "function ShowTable(", "'Aggregate');\"></div>",
                       "'Detail');\"></div>", "    </body>\n</html>\n", "function quicksort(",
                       "var lhsLabel = \"Left run\"", "var procData = [", "function openDetailTab(phaseName)",
                       "var Phase = [", "var aggData = ["});
  expectHas(text, {}, {"id = \"callTreeSummaryDiv\"", "id = \"callTreeSummaryScrollTableDiv\"", "Call Tree",
                       "var callTreeArray", "callTreeHeader"});
  EXPECT_EQ(countOf(text, "<script"), countOf(text, "</script>"));
}

TEST_F(ReportDriverTest, AggregateDifferenceReportKeepsTheDetailScroller) {
  ASSERT_TRUE(comparison(true, "aggdiff.html", "basicmemory", nestedRun(false), nestedRun(false, true)));
  const auto text = readFile(path("aggdiff.html"));
  expectInOrder(text, {"<title>Workload Performance Comparison</title>", "id = \"aggregateSummaryDiv\"",
                       "id = \"systemInfoTableDiv\"", "function ShowTable(", "'Aggregate');\"></div>",
                       "id = \"FakeSpan\"", "id = \"phaseSummaryScrollTableDiv\"", "    </body>\n</html>\n",
                       "function quicksort(", "var rhsLabel = \"Right run\";", "function sortAggData(",
                       "    </script>\n", "var Phase = [", "var aggDataStruct = makeStruct(\"IsParent Phase LHS_Count",
                       "    </script>\n"});
  EXPECT_EQ(countOf(text, "<div id=\"header\""), 2u);
  expectHas(text, {}, {"id = \"phaseSummaryDiv\"", "var procData", "openDetailTab"});
}

TEST_F(ReportDriverTest, ComparisonHeadTakesTheDeeperRun) {
  const auto flatRun = [] {
    tgreport::RunBuilder flat(false);
    flat.phase("Inner", 1.0);
    return flat.take();
  };
  const auto indentRules = [&](RawPointVector lhs, RawPointVector rhs) {
    EXPECT_TRUE(comparison(true, "depth.html", "time", std::move(lhs), std::move(rhs)));
    const auto text = readFile(path("depth.html"));
    std::size_t rules = 0;
    while (text.find("td.phaseNameCell" + std::to_string(rules) + " {") != std::string::npos) ++rules;
    return rules;
  };
  const auto flat = indentRules(flatRun(), flatRun());
  const auto deepRight = indentRules(flatRun(), nestedRun(false));
  EXPECT_GT(deepRight, flat);
  EXPECT_EQ(indentRules(nestedRun(false), flatRun()), deepRight);
}

TEST_F(ReportDriverTest, DetailedMetricWithDetailUsesTheDialogBody) {
  ASSERT_TRUE(single(true, "detailed.html", "detailedmemory", nestedRun(true)));
  expectHas(readFile(path("detailed.html")), {"    <body onresize=\"onResizeAction()\" onmousemove=\"dialogMove(event)\" "
                                              "onload=\"ShowTable('aggregateSummary'); onResizeAction();\">\n",
                                              "function dialogMove(event)"});
  ASSERT_TRUE(single(true, "basic.html", "basicmemory", nestedRun(true)));
  expectHas(readFile(path("basic.html")), {}, {"onmousemove"});
}

// Unpaired phases give the error page in single-run reports; a detailed
// metric without detail gives a notice, in a comparison unless both runs
// have detail.
TEST_F(ReportDriverTest, PagesThatStandInForAReport) {
  tgtest::GoldenFile golden("report_doc_drivers");
  for (const bool aggregateOnly : {false, true}) {
    ASSERT_TRUE(single(aggregateOnly, "error.html", "time", unpairedRun()));
    golden.expect("unpaired phases", readFile(path("error.html")));
  }
  ASSERT_TRUE(single(false, "nodetail.html", "detailedmemory", nestedRun(false)));
  golden.expect("no detail", readFile(path("nodetail.html")));
  ASSERT_TRUE(comparison(true, "nodetail2.html", "detailedmemory", nestedRun(true), nestedRun(false)));
  golden.expect("no detail in one run of a comparison", readFile(path("nodetail2.html")));
}

TEST_F(ReportDriverTest, AFileThatCannotBeOpenedFailsEveryDriver) {
  for (const bool aggregateOnly : {false, true}) {
    EXPECT_FALSE(single(aggregateOnly, "no such dir/report.html", "time", nestedRun(false)));
    EXPECT_FALSE(comparison(aggregateOnly, "no such dir/report.html", "time", nestedRun(false), nestedRun(false)));
  }
  EXPECT_FALSE(fs::exists(scratch_.dir() / "no such dir"));
}

TEST_F(ReportDriverTest, UserTextCannotBreakTheReport) {
  const auto hostileRun = [] {
    tgreport::RunBuilder run(false, "Group</script>");
    run.phase("Phase \"quoted\" </script><b>", 1.0);
    return run.take();
  };
  auto lhs = hostileRun();
  auto raw = hostileRun();
  const auto info = record("<script>alert(1)</script>");
  ASSERT_TRUE(writeAggregateDifferenceReport(TempoGauge::instance(), path("hostile.html"), "Group</script>",
                                             "left \"</script>", "right\n'x'", &lhs, &raw, &info, &info, "time"));
  const auto text = readFile(path("hostile.html"));
  EXPECT_EQ(countOf(text, "<script"), countOf(text, "</script>"));
  EXPECT_EQ(countOf(text, "<script"), 4u);
  EXPECT_NE(text.find("<title>Group&lt;/script&gt; Performance Comparison</title>"), std::string::npos);
}

}  // namespace
