// SPDX-License-Identifier: BSD-3-Clause
// Alignment of processed points and aggregates by their keys, and the value
// pairs that each aligned row compares.
#include <gtest/gtest.h>

#include <string>

#include "analysis/alignment.h"
#include "analysis/deviation_rows.h"
#include "collect/tempo_gauge.h"
#include "compare_test_points.h"

namespace {

using namespace compare_test;

int phaseId(const char* name) { return tgGetId(tg::kPhaseKind, name); }
int groupingId(const char* name) { return tgGetId(tg::kGroupingKind, name); }

TEST(CompareRows, ProcessedPointsAlignByNameAndSite) {
  const int g = groupingId("CmpGrouping");
  const int model1 = tgGetId(tg::kModelKind, "cmpModel1");
  const int model2 = tgGetId(tg::kModelKind, "cmpModel2");
  const ProcessedPointVector lhs{point(phaseId("cmpA"), g, "1"), point(phaseId("cmpB"), g, "2"),
                                 point(phaseId("cmpC"), g, "3", {1, model1, -1}), point(phaseId("cmpD"), g, "4")};
  // D moved under another phase: its number differs, it still matches.
  const ProcessedPointVector rhs{point(phaseId("cmpA"), g, "1"), point(phaseId("cmpX"), g, "2"),
                                 point(phaseId("cmpC"), g, "3", {1, model2, -1}), point(phaseId("cmpD"), g, "3.1")};
  const auto rows = alignProcessedData(lhs, rhs);
  ASSERT_EQ(rows.size(), 6u);
  // The unmatched run of the LHS (B, C of model 1) comes before that of the RHS.
  const int sides[] = {0, 1, 1, 2, 2, 0};
  const ProcessedPointPtr lhsOf[] = {lhs[0], lhs[1], lhs[2], nullptr, nullptr, lhs[3]};
  const ProcessedPointPtr rhsOf[] = {rhs[0], nullptr, nullptr, rhs[1], rhs[2], rhs[3]};
  for (std::size_t k = 0; k < rows.size(); ++k) {
    EXPECT_EQ(rows[k].side, sides[k]) << k;
    EXPECT_EQ(rows[k].lhs, lhsOf[k]) << k;
    EXPECT_EQ(rows[k].rhs, rhsOf[k]) << k;
  }
}

TEST(CompareRows, IdenticalRunsHaveNoDeviation) {
  const int g = groupingId("CmpGrouping");
  ProcessedPointVector run;
  for (int k = 0; k < 5; ++k) {
    auto p = timed(point(phaseId(k % 2 ? "cmpA" : "cmpB"), g, std::to_string(k + 1)), k, 1.5 * k, k, 0.5 * k);
    setBasic(*p, k, 10 * k, 1, 12 * k, 0);
    run.push_back(p);
  }
  const auto rows = alignProcessedData(run, run);
  ASSERT_EQ(rows.size(), run.size());
  for (const auto& row : rows) {
    EXPECT_EQ(row.side, 0);
    for (const char* metric : {"time", "basicmemory", "detailedmemory"}) {
      const RowDeviations d = compareProcessedRow(row, metric);
      for (std::size_t k = 0; k < d.count; ++k) {
        EXPECT_EQ(d.pairs[k].absDev, 0.0);
        EXPECT_EQ(d.pairs[k].bkgColor, " BETWN_M5_0");
      }
    }
  }
  EXPECT_TRUE(alignProcessedData({}, {}).empty());
  const auto onlyRhs = alignProcessedData({}, run);
  ASSERT_EQ(onlyRhs.size(), run.size());
  for (const auto& row : onlyRhs) EXPECT_TRUE(row.side == 2 && !row.lhs && row.rhs);
}

TEST(CompareRows, PairsPerMetric) {
  auto lhs = parent(timed(point(1, 0, "1"), 0, 4, 0, 2), {2});
  setDetailed(*lhs->detailedMem, 10, 10, 10, 10, 10);
  setDetailed(*lhs->detailedStartMem, 5, 5, 5, 5, 5);
  auto rhs = timed(point(1, 0, "1"), 0, 5, 0, 3);
  setDetailed(*rhs->detailedMem, 10, 10, 10, 10, 10);
  const ProcessedComparisonRow row{lhs, rhs, 0};
  const RowDeviations time = compareProcessedRow(row, "time");
  ASSERT_EQ(time.count, 4u);
  EXPECT_EQ(time.pairs[0].relDev, 100);  // self: parent 0 against leaf 5
  EXPECT_EQ(time.pairs[1].relDev, 25);
  EXPECT_EQ(time.pairs[2].absDev, 3);
  EXPECT_EQ(time.pairs[3].relDev, 50);
  const RowDeviations detailed = compareProcessedRow(row, "detailedmemory");
  ASSERT_EQ(detailed.count, 10u);
  EXPECT_EQ(detailed.pairs[0].absDev, 0);
  EXPECT_EQ(detailed.pairs[5].absDev, 5);  // start: the parent's start sample against the leaf's end
  EXPECT_EQ(detailed.pairs[5].relDev, 100);
  rhs->detailedMem.reset();
  EXPECT_EQ(compareProcessedRow(row, "detailedmemory").pairs[9].absDev, -5);
  EXPECT_EQ(compareProcessedRow(row, "other").count, 0u);
}

TEST(CompareRows, AggregatesAlignByCleanedName) {
  AggregateTable lhs;
  AggregateTable rhs;
  lhs.emplace(phaseId("cmpAggA"), aggregate(phaseId("cmpAggA"), false, 1, 1, 1));
  lhs.emplace(phaseId("cmpAggB"), aggregate(phaseId("cmpAggB"), false, 1, 1, 1));
  rhs.emplace(phaseId("/cmpAggA"), aggregate(phaseId("/cmpAggA"), false, 2, 2, 2));  // same once cleaned
  rhs.emplace(phaseId("cmpAggC"), aggregate(phaseId("cmpAggC"), false, 1, 1, 1));
  const auto rows = alignAggregates(lhs, rhs);
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].side, 0);
  EXPECT_EQ(rows[0].lhs->phaseID, phaseId("cmpAggA"));
  EXPECT_EQ(rows[0].rhs->phaseID, phaseId("/cmpAggA"));
  EXPECT_EQ(rows[1].side, 1);
  EXPECT_EQ(rows[1].lhs->phaseID, phaseId("cmpAggB"));
  EXPECT_EQ(rows[2].side, 2);
  EXPECT_EQ(rows[2].rhs->phaseID, phaseId("cmpAggC"));
  const RowDeviations time = compareAggregateRow(rows[0], "time");
  ASSERT_EQ(time.count, 2u);
  EXPECT_EQ(time.pairs[0].relDev, 100);
  EXPECT_EQ(compareAggregateRow({nullptr, nullptr, 0}, "detailedmemory").count, 5u);
}

// Tables of different sizes list shared phases in the same order, so a run
// with one extra phase costs one row and every other phase matches.
TEST(CompareRows, AggregatesOfRunsWithAnExtraPhaseMatchEveryOtherPhase) {
  AggregateTable lhs;
  AggregateTable rhs;
  for (int i = 0; i < 60; ++i) {
    const std::string name = "cmpAggLoop" + std::to_string(i);
    lhs.emplace(phaseId(name.c_str()), aggregate(phaseId(name.c_str()), false, 1, 1, 1));
    rhs.emplace(phaseId(name.c_str()), aggregate(phaseId(name.c_str()), false, 2, 2, 2));
    if (i == 30) rhs.emplace(phaseId("cmpAggExtra"), aggregate(phaseId("cmpAggExtra"), false, 1, 1, 1));
  }
  const auto rows = alignAggregates(lhs, rhs);
  ASSERT_EQ(rows.size(), 61u);
  int oneSided = 0;
  for (const auto& row : rows) oneSided += row.side != 0;
  EXPECT_EQ(oneSided, 1);
}

}  // namespace
