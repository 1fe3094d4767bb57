// The diagnostic report: columns by the kinds of points in the grouping, one
// row per logged start and stop, red rows for broken phases, hidden gap rows,
// and a walk that always ends.
#include <gtest/gtest.h>

#include "analysis/diagnostic_report.h"
#include "collect/tempo_gauge.h"
#include "scratch_files.h"

namespace {

constexpr const char* kRedRow = "            <tr style=\"background:#FF1A00\">\n";
constexpr const char* kPlainRow = "            <tr>\n";

class DiagnosticReport : public ::testing::Test {
 protected:
  void SetUp() override {
    grouping_ = tgGetId(tg::kGroupingKind, "DiagGrouping");
    other_ = tgGetId(tg::kGroupingKind, "DiagOther");
  }

  RawPointPtr host(const char* phase, bool start, double time, int grouping = -2) {
    auto p = std::make_shared<TGORRERYDataPoint>();
    return fill(p, phase, start, time, grouping);
  }
  RawPointPtr cogwheel(const char* phase, bool start, double time) {
    auto p = std::make_shared<TGCWGENDataPoint>();
    p->modelId = tgGetId(tg::kModelKind, "diagModel");
    p->targetId = tgGetId(tg::kTargetKind, "diagTarget");
    return fill(p, phase, start, time, -2);
  }
  RawPointPtr loomchart(const char* phase, bool start, double time, int grouping) {
    auto p = std::make_shared<TGLoomchartDataPoint>();
    p->machineId = tgGetId(tg::kMachineKind, "diagMachine");
    return fill(p, phase, start, time, grouping);
  }
  RawPointPtr fill(RawPointPtr p, const char* phase, bool start, double time, int grouping) {
    p->phaseId = tgGetId(tg::kPhaseKind, phase);
    p->groupingId = grouping == -2 ? grouping_ : grouping;
    p->flags.isStart = start ? 1 : 0;
    p->wallTime = time;
    p->cpuTime = time / 2;
    return p;
  }

  std::string report(RawPointVector raw, std::string_view grouping = "DiagGrouping") {
    EXPECT_TRUE(writeDiagnosticReport(TempoGauge::instance(), path_, grouping, &raw));
    return tgtest::readFile(path_);
  }
  static std::size_t count(const std::string& text, const std::string& what) { return tgtest::countOf(text, what); }

  tgtest::ScratchDir scratch_{"tg_diagnostic"};
  std::string path_ = scratch_.path("report.html");
  int grouping_ = -1;
  int other_ = -1;
};

TEST_F(DiagnosticReport, HostOnlyBalancedTrace) {
  const std::string text = report({host("diagA", true, 0), host("diagB", true, 0.05), host("diagB", false, 0.08),
                                   host("diagA", false, 0.1)});
  const std::string head =
      "<html>\n"
      "    <body style=\"font-family:Courier New\">\n"
      "        <table border=\"1\" cellspacing=\"0\" width=\"1600px\">\n"
      "            <tr>\n"
      "                <th>Point Type</th>\n"
      "                <th>Grouping</th>\n"
      "                <th>Phase Name</th>\n"
      "                <th>isPhaseStart</th>\n"
      "                <th>WC Time</th>\n"
      "                <th>CPU Time</th>\n"
      "                <th>Free</th>\n"
      "                <th>Committed</th>\n"
      "                <th>Reserved</th>\n"
      "                <th>DLLs</th>\n"
      "                <th>Non-process</th>\n"
      "            </tr>\n";
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(count(text, kPlainRow), 5u);  // header and four rows
  EXPECT_EQ(count(text, kRedRow), 0u);
  EXPECT_LT(text.find("<td>Start</td>"), text.find("<td>End</td>"));
  EXPECT_NE(text.find(kPlainRow + std::string("                <td>ORRERY</td>\n"
                                              "                <td>DiagGrouping</td>\n"
                                              "                <td>diagA</td>\n"
                                              "                <td>Start</td>\n")),
            std::string::npos);
  EXPECT_TRUE(text.ends_with("        </table>\n    </body>\n</html>\n"));
}

TEST_F(DiagnosticReport, ColumnsWidenWithTheKindsOfTheGrouping) {
  RawPointVector raw{host("diagA", true, 0), cogwheel("diagC", true, 0.01), cogwheel("diagC", false, 0.02),
                     host("diagA", false, 0.03), loomchart("diagL", true, 0.04, other_),
                     loomchart("diagL", false, 0.05, other_)};
  const TempoGauge* tracer = TempoGauge::instance();
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "DiagGrouping"), 1);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "DiagOther"), 2);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "GLOBAL"), 2);
  EXPECT_EQ(diagnosticColumns(tracer, &raw, "NoSuchDiagGrouping"), 0);
  EXPECT_EQ(diagnosticColumns(tracer, nullptr, "GLOBAL"), 0);

  const std::string cw = report(raw);
  EXPECT_NE(cw.find("<th>Model</th>\n                <th>Target</th>\n                <th>Phase Name</th>"),
            std::string::npos);
  EXPECT_EQ(cw.find("<th>Machine</th>"), std::string::npos);
  EXPECT_EQ(count(cw, "<td>Loomchart</td>"), 0u);  // not in the grouping
  EXPECT_EQ(count(cw, "<td>Cogwheel</td>"), 2u);
  EXPECT_EQ(count(cw, "<td>&nbsp;</td>"), 4u);  // model and target of the two host rows

  const std::string all = report(raw, "GLOBAL");
  EXPECT_NE(all.find("<th>Target</th>\n                <th>Machine</th>\n                <th>Chart</th>"),
            std::string::npos);
  EXPECT_EQ(count(all, "<td>Loomchart</td>"), 2u);
  EXPECT_EQ(count(all, kRedRow), 0u);
}

TEST_F(DiagnosticReport, UnknownGroupingGivesAnEmptyTable) {
  const std::string text = report({host("diagA", true, 0), host("diagA", false, 1)}, "NoSuchDiagGrouping");
  EXPECT_EQ(count(text, "<tr"), 1u);
  EXPECT_NE(text.find("<th>Non-process</th>"), std::string::npos);
}

TEST_F(DiagnosticReport, StartWithoutStopIsRed) {
  const std::string text = report({host("diagA", true, 0), host("diagB", true, 0.01), host("diagB", false, 0.02)});
  EXPECT_EQ(count(text, kRedRow), 1u);
  EXPECT_NE(text.find(kRedRow + std::string("                <td>ORRERY</td>\n"
                                            "                <td>DiagGrouping</td>\n"
                                            "                <td>diagA</td>\n"
                                            "                <td>Start</td>\n")),
            std::string::npos);
}

TEST_F(DiagnosticReport, LoneStopFirstAndStrayStopAreRed) {
  EXPECT_EQ(count(report({host("diagA", false, 0)}), kRedRow), 1u);
  // A stray stop of B while A is open: A's rows and B's stop turn red together.
  const std::string text = report({host("diagA", true, 0), host("diagB", false, 0.01), host("diagA", false, 0.02)});
  EXPECT_EQ(count(text, kRedRow), 3u);
  EXPECT_EQ(count(text, kPlainRow), 1u);
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
  EXPECT_EQ(text.find("_self"), std::string::npos);
  EXPECT_EQ(text.find("_post"), std::string::npos);
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
