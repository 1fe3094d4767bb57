// SPDX-License-Identifier: BSD-3-Clause
// The four report drivers: the order of the pieces of each report kind and
// the pages that stand in for a report (their failures: file_safety_test.cc).
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "golden_text.h"
#include "report_doc_trace.h"
#include "scratch_files.h"
#include "tempogauge/report.h"

namespace {

using tgtest::countOf;
using tgtest::expectHas;
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
  return {std::string(processor), "", "", "", "", "", "", "products of " + std::string(processor)};
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

// The skeleton of a page, in order: title, body, the elements with ids, the
// end of the document, the script elements and the data arrays.
std::string outline(const std::string& page) {
  static const std::regex piece(
      R"(^\s*(<title>.*|<body.*|<\w+[^>]*? id = "[^"]*"|</html>|<script.*|</script>|)"
      R"(var (procData|aggData|callTreeArray|Phase|Grouping|Model|Target|Machine|Chart|\w*[sS]truct) = ))");
  std::string out, line;
  std::istringstream in(page);
  std::smatch match;
  while (std::getline(in, line))
    if (std::regex_search(line, match, piece)) out += match[1].str() + "\n";
  return out;
}

// Each report kind: its skeleton (tests/golden/report_doc_drivers.txt), its
// scripts, and none of another kind's pieces.
TEST_F(ReportDriverTest, EachReportKindHoldsItsPiecesInOrderAndNothingElse) {
  tgtest::GoldenFile golden("report_doc_drivers");
  ASSERT_TRUE(single(true, "aggregate.html", "time", nestedRun(false), "GLOBAL"));
  ASSERT_TRUE(single(false, "detail.html", "time", nestedRun(false)));
  ASSERT_TRUE(comparison(false, "diff.html", "time", nestedRun(false), nestedRun(false, true), "GLOBAL"));
  ASSERT_TRUE(comparison(true, "aggdiff.html", "basicmemory", nestedRun(false), nestedRun(false, true)));
  for (const auto* name : {"aggregate.html", "detail.html", "diff.html", "aggdiff.html"}) {
    const auto text = readFile(path(name));
    golden.expect(std::string("outline of ") + name, outline(text));
    EXPECT_TRUE(text.starts_with("<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n")) << name;
    EXPECT_EQ(countOf(text, "<script"), countOf(text, "</script>")) << name;
    expectHas(text, {"function ShowTable(", "function quicksort("});
  }
  expectHas(readFile(path("aggregate.html")), {"function sortAggData(", "var ABSMAXNUMPHASES = 32;"},
            {"openDetailTab", "'Detail'", "td.GT50"});
  // The indent rules follow the depth of the call tree: Outer > Middle > Inner.
  expectHas(readFile(path("detail.html")),
            {"function filterCTDataView(", "function openDetailTab(nodeIndex)", "td.phaseNameCell2 {"},
            {"td.phaseNameCell7 {", "MemChart"});
  expectHas(readFile(path("diff.html")), {"td.GT50 {", "function openDetailTab(phaseName)"},
            {"Call Tree", "callTreeHeader"});
  expectHas(readFile(path("aggdiff.html")), {"function sortAggData("}, {"openDetailTab"});
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
