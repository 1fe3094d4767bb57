// SPDX-License-Identifier: BSD-3-Clause
// Raw points: defaults, copies, sites, row cells and cell rows.
#include <gtest/gtest.h>

#include "scratch_files.h"
#include "tempogauge/tempogauge.h"

namespace {

struct ErrorInfo : TGDiagnosticInfo {
  explicit ErrorInfo(bool e) : error(e) {}
  bool isErrorRow() const override { return error; }
  bool error;
};

TEST(RawPoint, SameSiteIgnoresFlagsButNotKindOrTarget) {
  auto start = std::make_shared<TGORRERYDataPoint>();
  start->groupingId = 3;
  start->phaseId = 5;
  start->flags.isStart = 1;
  auto end = std::make_shared<TGORRERYDataPoint>(*start);
  end->flags.isStart = 0;
  end->wallTime = 9.0;
  EXPECT_TRUE(start->isSameSite(end));
  auto cw = std::make_shared<TGCWGENDataPoint>();
  cw->groupingId = 3;
  cw->phaseId = 5;
  EXPECT_FALSE(start->isSameSite(cw));
  auto cw2 = std::make_shared<TGCWGENDataPoint>(*cw);
  cw2->targetId = 7;
  EXPECT_FALSE(cw->isSameSite(cw2));
}

TEST(RawPoint, NamesInCellsAreTextNotMarkup) {
  TGCWGENDataPoint p;
  p.phaseId = tgGetId(tg::kPhaseKind, "a<b>&\"c\"");
  p.modelId = tgGetId(tg::kModelKind, "plain model_1.x/y-z");
  EXPECT_EQ(p.writePhaseCell(), "                <td>a&lt;b&gt;&amp;&quot;c&quot;</td>\n");
  EXPECT_EQ(p.writeModelCell(), "                <td>plain model_1.x/y-z</td>\n");
}

TEST(RawPoint, LoomchartRowOnlyInWidestMode) {
  const TGLoomchartDataPoint p;
  const auto info = std::make_shared<const ErrorInfo>(false);
  EXPECT_EQ(p.writeDiagnosticRow(1, info), "");
  EXPECT_NE(p.writeDiagnosticRow(2, info), "");
  EXPECT_EQ(TGORRERYDataPoint().writeDiagnosticRow(0, nullptr), "");
}

TEST(RawPoint, StatsCellsWithoutDetailedRecord) {
  TGORRERYDataPoint p;
  p.detailedMemStats.reset();
  p.wallTime = 1.234;
  const std::string cells = p.writeStatsCells();
  EXPECT_TRUE(cells.starts_with("                <td>1.2                </td>\n"));
  EXPECT_EQ(tgtest::countOf(cells, "<td>0.0</td>"), 5u);
}

}  // namespace
