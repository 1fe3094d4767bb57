// SPDX-License-Identifier: BSD-3-Clause
// The diagnostic report: columns by the kinds of points in the grouping, one
// row per logged start and stop, red rows for broken phases, hidden gap rows,
// and a walk that always ends.
#include <gtest/gtest.h>

#include "analysis/diagnostic_report.h"
#include "analysis_trace_builder.h"
#include "collect/tempo_gauge.h"
#include "golden_text.h"
#include "scratch_files.h"

namespace {

constexpr const char* kRedRow = "            <tr style=\"background:#FF1A00\">\n";
constexpr const char* kPlainRow = "            <tr>\n";

class DiagnosticReport : public ::testing::Test {
 protected:
  static RawPointPtr host(const char* phase, bool start, double time) {
    return tgtest::makeRawPoint({0, "DiagGrouping", phase}, start, time, time / 2);
  }
  static RawPointPtr cogwheel(const char* phase, bool start, double time) {
    return tgtest::makeRawPoint({1, "DiagGrouping", phase, "diagModel", "diagTarget"}, start, time, time / 2);
  }
  // Model, target and chart never set: they show as blanks.
  static RawPointPtr loomchart(const char* phase, bool start, double time) {
    const auto p = std::static_pointer_cast<TGLoomchartDataPoint>(
        tgtest::makeRawPoint({2, "DiagOther", phase, "", "", "diagMachine"}, start, time, time / 2));
    p->modelId = p->targetId = p->chartId = -1;
    return p;
  }

  std::string report(RawPointVector raw, std::string_view grouping = "DiagGrouping") {
    EXPECT_TRUE(writeDiagnosticReport(TempoGauge::instance(), path_, grouping, &raw));
    return tgtest::readFile(path_);
  }
  static std::size_t count(const std::string& text, const std::string& what) { return tgtest::countOf(text, what); }

  tgtest::ScratchDir scratch_{"tg_diagnostic"};
  std::string path_ = scratch_.path("report.html");
};

TEST_F(DiagnosticReport, HostOnlyBalancedTrace) {
  const std::string text = report({host("diagA", true, 0), host("diagB", true, 0.05), host("diagB", false, 0.08),
                                   host("diagA", false, 0.1)});
  tgtest::GoldenFile("diagnostic_report").expect("balanced host trace", text);
}

TEST_F(DiagnosticReport, ColumnsWidenWithTheKindsOfTheGrouping) {
  RawPointVector raw{host("diagA", true, 0), cogwheel("diagC", true, 0.01), cogwheel("diagC", false, 0.02),
                     host("diagA", false, 0.03), loomchart("diagL", true, 0.04),
                     loomchart("diagL", false, 0.05)};
  const TempoGauge* tracer = TempoGauge::instance();
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "DiagGrouping"), 1);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "DiagOther"), 2);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "GLOBAL"), 2);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "NoSuchDiagGrouping"), 0);
  EXPECT_EQ(diagnosticColumns(tracer, nullptr, "GLOBAL"), 0);

  // Model and target columns for the grouping (blank on host rows), machine
  // and chart too for all groupings.
  tgtest::GoldenFile golden("diagnostic_report");
  golden.expect("grouping with Cogwheel points", report(raw));
  golden.expect("GLOBAL with every kind", report(raw, "GLOBAL"));
}

TEST_F(DiagnosticReport, BrokenPhasesAreRedAndAnUnknownGroupingGivesAnEmptyTable) {
  const std::string open = report({host("diagA", true, 0), host("diagB", true, 0.01), host("diagB", false, 0.02)});
  EXPECT_EQ(count(open, kRedRow), 1u);
  EXPECT_NE(open.find(kRedRow + std::string("                <td>ORRERY</td>\n"
                                            "                <td>DiagGrouping</td>\n"
                                            "                <td>diagA</td>\n"
                                            "                <td>Start</td>\n")),
            std::string::npos);
  EXPECT_EQ(count(report({host("diagA", false, 0)}), kRedRow), 1u);
  // A stray stop of B while A is open: A's rows and B's stop turn red together.
  const std::string stray = report({host("diagA", true, 0), host("diagB", false, 0.01), host("diagA", false, 0.02)});
  EXPECT_EQ(count(stray, kRedRow), 3u);
  EXPECT_EQ(count(stray, kPlainRow), 1u);
  const std::string unknown = report({host("diagA", true, 0), host("diagA", false, 1)}, "NoSuchDiagGrouping");
  EXPECT_EQ(count(unknown, "<tr"), 1u);
  EXPECT_NE(unknown.find("<th>Non-process</th>"), std::string::npos);
}

TEST_F(DiagnosticReport, GapRowsAreHiddenAndTheWalkEnds) {
  // Gaps inside A (before and after B), and top-level phases far apart with
  // nothing open between them.
  RawPointVector raw{host("diagA", true, 0),   host("diagB", true, 0.5),  host("diagB", false, 0.6),
                     host("diagA", false, 1.2), host("diagC", true, 5.0), host("diagC", false, 6.0)};
  RawToProcessedMap map;
  TGProcessedDataStruct result;
  RawPointVector walked = raw;
  EXPECT_EQ(walkForDiagnostic(TempoGauge::instance(), &walked, "DiagGrouping", map, result), 0);
  EXPECT_EQ(walked.size(), raw.size() + 4);  // two gap pairs: diagA_self and diagB_post
  EXPECT_EQ(map.size(), walked.size());
  EXPECT_FALSE(result.hasErrors);
  EXPECT_EQ(result.topWCTotalCopy, 0.0);
  EXPECT_EQ(result.topCPUTotalCopy, 0.0);
  EXPECT_GT(result.topWCTotal, 0.0);

  const std::string text = report(raw);
  EXPECT_EQ(count(text, kPlainRow), 7u);
  tgtest::expectHas(text, {}, {"_self", "_post"});
}

TEST_F(DiagnosticReport, WalkResultsForEmptyAndOpenTraces) {
  RawToProcessedMap map;
  TGProcessedDataStruct result;
  EXPECT_EQ(walkForDiagnostic(TempoGauge::instance(), nullptr, "GLOBAL", map, result), 1);
  RawPointVector empty;
  EXPECT_EQ(walkForDiagnostic(TempoGauge::instance(), &empty, "GLOBAL", map, result), 1);
  RawPointVector open{host("diagA", true, 0)};
  EXPECT_EQ(walkForDiagnostic(TempoGauge::instance(), &open, "GLOBAL", map, result), 1);
  EXPECT_FALSE(result.hasErrors);  // left open: red, but not a failed walk
  ASSERT_EQ(map.size(), 1u);
  EXPECT_TRUE(map.begin()->second->isErrorRow());
}

TEST_F(DiagnosticReport, UnopenableFileAndNoPoints) {
  RawPointVector raw{host("diagA", true, 0)};
  EXPECT_FALSE(writeDiagnosticReport(TempoGauge::instance(), "/nonexistent-dir/x/report.html", "GLOBAL", &raw));
  EXPECT_TRUE(writeDiagnosticReport(TempoGauge::instance(), path_, "GLOBAL", nullptr));
  EXPECT_TRUE(std::filesystem::exists(path_));
}

}  // namespace
