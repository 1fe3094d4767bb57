// SPDX-License-Identifier: BSD-3-Clause
// Report data of a comparison: procData and aggData rows with both sides, one
// side (-99.99) and the RHS-only parent that keeps the self times of the row
// before it; the hit-count deviation.
#include <gtest/gtest.h>

#include "analysis/deviation_rows.h"
#include "analysis/report_data.h"
#include "compare_test_points.h"
#include "golden_text.h"

namespace {

using namespace compare_test;

// Each emitter on hand-made aligned rows: both sides, one side, a parent on
// either side, every metric and an unknown one; the texts are kept in
// tests/golden.
TEST(ReportDataDiff, EmittedTextPerMetric) {
  tgtest::GoldenFile golden("report_data_diff");
  std::vector<ProcessedComparisonRow> rows;
  rows.push_back({timed(point(3, 0, "1"), 0, 2, 0, 1), timed(point(3, 0, "1"), 0, 2.006, 0, 1), 0});
  rows.push_back({nullptr, timed(point(4, 1, "2", {1, 5, 7}), 0, 3.2, 0, 0.5), 2});
  // A parent only in the RHS: its RHS self times stay those of the row above.
  rows.push_back({nullptr, parent(timed(point(5, 0, "3"), 0, 7, 0, 6), {9}), 2});
  rows.push_back({timed(point(6, 0, "4"), 0, 3.2, 0, 0), nullptr, 1});
  golden.expect("procData time", writeDiffProcData(rows, "time"));
  // isParent and GapRow are 1 when either side has them; the self values are 0
  // in the record, while the deviation compares each side by itself.
  auto leaf = timed(point(3, 0, "1"), 0, 4, 0, 2);
  auto top = parent(timed(point(3, 0, "1"), 0, 5, 0, 3), {2});
  leaf->flags.gapRow = 1;
  golden.expect("procData time parent on one side", writeDiffProcData({{leaf, top, 0}}, "time"));
  golden.expect("procData unknown metric", writeDiffProcData({{nullptr, point(2, 3, "1.2"), 2}}, "rss"));
  golden.expect("procData empty", writeDiffProcData({}, "time"));

  auto lhs = point(1, 0, "1");
  setBasic(*lhs, -2, 100, 1, 110, 0);
  auto rhs = point(1, 0, "1");
  setBasic(*rhs, 2, 100, 1, 110, 0);
  golden.expect("procData basicmemory", writeDiffProcData({{lhs, rhs, 0}, {nullptr, rhs, 2}}, "basicmemory"));
  // Detailed memory: a parent's start columns against a point without a record.
  auto detailed = parent(point(1, 0, "1"), {2});
  setDetailed(*detailed->detailedMem, 10, 20, 30, 40, 50);
  setDetailed(*detailed->detailedStartMem, 1, 2, 3, 4, 5);
  auto bare = point(1, 0, "1");
  bare->detailedMem.reset();
  golden.expect("procData detailedmemory",
                writeDiffProcData({{detailed, bare, 0}, {nullptr, detailed, 2}}, "detailedmemory"));

  const auto lhsAgg = aggregate(4, true, 3, 1, 10);
  const auto rhsAgg = aggregate(4, true, 5, 1, 13.2);
  const auto onlyLhs = aggregate(7, false, 2, 3.2, 3.2);
  const auto onlyRhs = aggregate(8, false, 4, 0.5, 0.5);
  const std::vector<AggregateComparisonRow> aggRows{
      {lhsAgg.get(), rhsAgg.get(), 0}, {onlyLhs.get(), nullptr, 1}, {nullptr, onlyRhs.get(), 2}};
  EXPECT_EQ(countAbsDev(aggRows[0]), 2);
  EXPECT_EQ(countAbsDev(aggRows[1]), 2);
  EXPECT_EQ(countAbsDev(aggRows[2]), 4);
  golden.expect("aggData time", writeDiffAggData(aggRows, "time"));
  auto memory = aggregate(1, false, 1, 0, 0);
  memory->freeMemMax = 100, memory->resMemMax = 10, memory->commitMemMax = 20, memory->dllsMemMax = 5;
  memory->nonprocessMemMax = 1, memory->procMemUsageDeltaSelf = -2, memory->procMemUsageMax = 50;
  const std::vector<AggregateComparisonRow> memoryRows{{memory.get(), nullptr, 1}};
  golden.expect("aggData detailedmemory", writeDiffAggData(memoryRows, "detailedmemory"));
  golden.expect("aggData basicmemory", writeDiffAggData(memoryRows, "basicmemory"));
}

}  // namespace
