// SPDX-License-Identifier: BSD-3-Clause
// Pairing: numbering, gaps, totals, mismatches and selection. The rows of
// each case are compared with tests/golden/analysis_pairing.txt.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "analysis/pairing_gap.h"
#include "analysis_trace_builder.h"
#include "golden_text.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::PointSite;
using tgtest::rowsText;
using tgtest::TraceBuilder;

std::vector<std::string> rowNames(const TGProcessedDataStruct& r) {
  std::vector<std::string> names;
  for (const auto& p : r.processedPoints) names.push_back(tgGetNameStr(tg::kPhaseKind, p->phaseID));
  return names;
}

// Walks with the given selection and keeps the processed points of a failed
// walk, to look at their error flags.
TGProcessedDataStruct walkKeepingErrors(RawPointVector& raw, std::function<bool(const TGORRERYDataPoint&)> select,
                                        RawToProcessedMap* map = nullptr) {
  TGProcessedDataStruct result;
  walkRawPoints(raw, {std::move(select), map, true}, result);
  return result;
}

// A Cogwheel phase "A" around "B" whose first point has no basic sample,
// so that the gap after it is an unaccounted host phase.
RawPointVector unsampledStart(bool unsampledStop) {
  PointSite cw{1, "G", "A", "M", "T"}, b{1, "G", "B", "M", "T"};
  RawPointVector v{tgtest::makeRawPoint(cw, true, 0.0, 0.0), tgtest::makeRawPoint(b, true, 0.3, 0.1),
                   tgtest::makeRawPoint(b, false, 0.35, 0.1), tgtest::makeRawPoint(cw, false, 1.2, 0.1)};
  v[0]->basicMemStats.reset();
  if (unsampledStop) v[2]->basicMemStats.reset();
  return v;
}

// Traces that pair cleanly: the rows, gaps and totals of each.
TEST(Pairing, RowsOfCleanTraces) {
  tgtest::GoldenFile golden("analysis_pairing");
  const auto rows = [](TraceBuilder& t, std::vector<std::string> names = {"G"}) {
    return rowsText(analyzeRawPoints(t.points, names, false));
  };
  // Every stop asks for a counter one level below it: depth 4 for three levels.
  TraceBuilder leaf;
  leaf.start("A").start("B", 0.05).start("C", 0.05).stop("C", 5.0).stop("B", 0.01).stop("A", 0.01);
  golden.expect("a long leaf has no gap, numbers nest", rows(leaf));
  EXPECT_EQ(leaf.points.size(), 6u);

  TraceBuilder gaps;
  gaps.start("A").start("B", 0.2).stop("B", 0.05).stop("A", 0.2);
  golden.expect("self and post gaps are children of the open phase", rows(gaps));
  // The gap points stay in the vector, in place: start, stop, then the point.
  ASSERT_EQ(gaps.points.size(), 8u);
  EXPECT_TRUE(gaps.points[1]->isGap() && gaps.points[1]->isStart());
  EXPECT_TRUE(gaps.points[2]->isGap() && !gaps.points[2]->isStart());
  EXPECT_EQ(gaps.points[3]->phaseId, tgGetId(tg::kPhaseKind, "B"));

  TraceBuilder top;
  top.start("A").stop("A", 1.0).start("B", 0.2).stop("B", 2.0);
  golden.expect("top-level phases get no gap, totals add up", rows(top));

  TraceBuilder numbers;
  numbers.start("A").stop("A", 0.01).start("B", 0.01).start("C", 0.01).stop("C", 0.01).start("D", 0.01)
      .stop("D", 0.01).stop("B", 0.01).start("E", 0.01).stop("E", 0.01);
  golden.expect("numbers use only the open levels", rows(numbers));

  RawPointVector unsampled = unsampledStart(false);
  golden.expect("a gap without basic sample is an unaccounted host phase",
                rowsText(analyzeRawPoints(unsampled, {"GLOBAL"}, false)));

  // The time spent in grouping Y counts as A's own; with Y selected too, its
  // phase is a child and leaves no gap.
  for (const auto& names : {std::vector<std::string>{"G"}, {"G", "Y"}}) {
    TraceBuilder other;
    other.start("A");
    other.add({0, "Y", "Other"}, true, 0.05).add({0, "Y", "Other"}, false, 0.05);
    other.start("B", 0.15).stop("B", 0.01).stop("A", 0.01);
    golden.expect("other groupings, selecting " + std::to_string(names.size()), rows(other, names));
  }

  // Base times come from the vector, start times from the first selected start.
  TraceBuilder base;
  base.now = 10.0;
  base.add({0, "Y", "Other"}, true, 0.0).add({0, "Y", "Other"}, false, 0.05);
  base.start("A", 1.0).stop("A", 1.0);
  golden.expect("base times", rows(base));

  TraceBuilder byModel;
  byModel.add({1, "G", "M1run", "M1", "T"}, true, 0.0);
  byModel.add({2, "G", "chart step", "M1", "T", "Mach", "Chart"}, true, 0.01);
  byModel.add({2, "G", "chart step", "M1", "T", "Mach", "Chart"}, false, 0.01);
  byModel.add({0, "G", "host"}, true, 0.01).add({0, "G", "host"}, false, 0.01);
  byModel.add({1, "G", "M2run", "M2", "T"}, true, 0.01).add({1, "G", "M2run", "M2", "T"}, false, 0.01);
  byModel.add({1, "G", "M1run", "M1", "T"}, false, 0.01);
  RawPointVector copy = tgtest::deepCopy(byModel.points);
  golden.expect("by model M1: no host points, no other models",
                rowsText(analyzeRawPoints(byModel.points, {"M1"}, true)));
  golden.expect("by model GLOBAL", rowsText(analyzeRawPoints(copy, {"GLOBAL"}, true)));
}

TEST(Pairing, ThresholdIsSinglePrecisionTenthAndExclusive) {
  const double threshold = 0.10000000149011612;
  for (const auto& [after, gaps] : std::vector<std::pair<double, bool>>{
           {threshold, false}, {0.1, false}, {std::nextafter(threshold, 1.0), true}}) {
    RawPointVector v{tgtest::makeRawPoint({}, true, 0.0, 0.0),
                     tgtest::makeRawPoint({0, "G", "B"}, true, after, 0.0),
                     tgtest::makeRawPoint({0, "G", "B"}, false, after, 0.0),
                     tgtest::makeRawPoint({}, false, after, 0.0)};
    const auto r = analyzeRawPoints(v, {"G"}, false);
    EXPECT_EQ(r.processedPoints.size(), gaps ? 3u : 2u) << "interval " << after;
  }
}

TEST(Pairing, MismatchesAreErrors) {
  tgtest::GoldenFile golden("analysis_pairing");
  // A wrong stop marks the open phase, which stays open; C is its child.
  TraceBuilder wrong;
  wrong.start("A").stop("B", 0.01).start("C", 0.01).stop("C", 0.01).stop("A", 0.01);
  RawPointVector again = tgtest::deepCopy(wrong.points);
  RawToProcessedMap map;
  const auto kept = walkKeepingErrors(wrong.points, selectByGroupings({"G"}), &map);
  golden.expect("a wrong stop, errors kept", rowsText(kept));
  EXPECT_EQ(map.at(wrong.points[1].get()), kept.processedPoints[0]);  // the stray stop points at A
  EXPECT_EQ(map.at(wrong.points.back().get()), kept.processedPoints[0]);
  golden.expect("a wrong stop", rowsText(analyzeRawPoints(again, {"G"}, false)));

  TraceBuilder open;
  open.start("A").start("B", 0.01).stop("B", 0.01);
  golden.expect("a start without stop, errors kept",
                rowsText(walkKeepingErrors(open.points, selectByGroupings({"G"}))));

  // A stop before anything: its row number is not used up.
  TraceBuilder stray;
  stray.stop("X").start("A", 0.01).stop("A", 0.01).stop("Z", 0.01);
  RawToProcessedMap strayMap;
  golden.expect("stray stops, errors kept",
                rowsText(walkKeepingErrors(stray.points, selectByGroupings({"G"}), &strayMap)));
  EXPECT_EQ(strayMap.at(stray.points[0].get())->HTMLRowNumber, 1);
  EXPECT_TRUE(strayMap.at(stray.points[0].get())->isErrorRow());
  EXPECT_TRUE(strayMap.at(stray.points[3].get())->isErrorRow());  // a stop with an empty stack

  RawPointVector empty;
  EXPECT_TRUE(analyzeRawPoints(empty, {"GLOBAL"}, false).hasErrors);
  // Points, none of them selected: nothing paired, nothing wrong.
  TraceBuilder other;
  other.start("A").start("B", 0.5).stop("B", 0.5).stop("A", 0.5);
  golden.expect("nothing selected", rowsText(analyzeRawPoints(other.points, {"NoSuchGrouping"}, false)));
  EXPECT_EQ(other.points.size(), 4u);
}

TEST(Pairing, WalkEndsWhenTheGapPairIsNotSelected) {
  // The gap after a point without a basic sample is a host point of grouping
  // -1. A walk by model never selects it; a walk that selects grouping G only
  // doesn't either. Both go on with the point itself.
  // A dropped pair leaves no name behind, so a second pairing of the same
  // trace selects no pair that the first dropped and gives the same rows.
  // (Whether the pairs are selected depends on whether the name was known
  // before the first pairing: another test in this process may have made it.)
  const bool knownBefore = TempoGauge::instance()->findId(tg::kPhaseKind, "Unaccounted Phase") >= 0;
  RawPointVector first = unsampledStart(true), second = unsampledStart(true);
  const std::vector<std::string> rows = rowNames(analyzeRawPoints(first, {"G"}, false));
  EXPECT_EQ(rowNames(analyzeRawPoints(second, {"G"}, false)), rows);
  if (!knownBefore) {
    EXPECT_EQ(rows, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(TempoGauge::instance()->findId(tg::kPhaseKind, "Unaccounted Phase"), -1);
  }

  RawPointVector byModel = unsampledStart(true);
  const auto r = analyzeRawPoints(byModel, {"M"}, true);
  ASSERT_FALSE(r.hasErrors);
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(byModel.size(), 4u);

  RawPointVector byGrouping = unsampledStart(true);
  const std::int32_t g = tgGetId(tg::kGroupingKind, "G");
  TGProcessedDataStruct walked;
  EXPECT_FALSE(walkRawPoints(byGrouping, {[g](const TGORRERYDataPoint& p) { return p.groupingId == g; }, nullptr, true},
                             walked));
  EXPECT_FALSE(walked.hasErrors);
  EXPECT_EQ(rowNames(walked), (std::vector<std::string>{"A", "B"}));
}

TEST(Pairing, MemoryAtTheEndWithDeltasAndStartMemoryForParents) {
  TraceBuilder t;
  t.start("A").start("B", 0.01).stop("B", 0.01).stop("A", 0.01);
  const double mb = 1048576.0;
  for (std::size_t i = 0; i < 4; ++i) {
    *t.points[i]->basicMemStats = tg::BasicMemStats((i + 1) * mb, (i + 2) * mb, (i + 10) * mb);
    *t.points[i]->detailedMemStats = tg::DetailedMemStats((i + 5) * mb, 1.0 * mb, 2.0 * mb, 3.0 * mb, 4.0 * mb);
  }
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  const auto& a = *r.processedPoints[0];
  const auto& b = *r.processedPoints[1];
  // A parent keeps its start sample, a leaf doesn't.
  for (const auto& [value, expected] :
       {std::pair{a.basicMem->procMemUsage, 4.0}, {a.basicMem->procMemUsageDelta, 3.0},
        {a.basicMem->procMemUsagePeakDelta, 3.0}, {a.basicMem->procMemPeakOverStart, 4.0},
        {a.detailedMem->freeMem, 8.0}, {a.detailedMem->freeMemDelta, 3.0}, {a.detailedStartMem->freeMem, 5.0},
        {b.detailedStartMem->freeMem, 0.0}, {b.basicMem->procVMSizeDelta, 1.0}})
    EXPECT_DOUBLE_EQ(value, expected);
  // The detailed flag follows the last walked point.
  for (const std::size_t last : {0u, 1u}) {
    TraceBuilder u;
    u.start("A").stop("A", 0.01);
    u.points[last]->detailedMemStats->freeMem = 1000.0;
    EXPECT_EQ(analyzeRawPoints(u.points, {"G"}, false).hasDetailedMemStats, last == 1);
  }
}

TEST(Pairing, ExportsPairACopyOfTheTracersPoints) {
  TempoGauge* store = TempoGauge::instance();
  TraceBuilder t;
  t.defaults.grouping = "ExportGrouping";
  t.start("A").start("B", 0.3).stop("B", 0.01).stop("A", 0.01);
  {
    std::lock_guard lock(store->mutex());
    store->rawData->insert(store->rawData->end(), t.points.begin(), t.points.end());
  }
  EXPECT_EQ(rowNames(tgGetProcessedDataForGroupings(nullptr, {"ExportGrouping"})),
            (std::vector<std::string>{"A", "A_self", "B"}));
  EXPECT_FALSE(tgGetProcessedDataForModels(nullptr, {"GLOBAL"}).hasErrors);
  {
    std::lock_guard lock(store->mutex());
    // The store's own vector has no gap points.
    EXPECT_EQ(std::ranges::count_if(*store->rawData, [](const RawPointPtr& p) { return p && p->isGap(); }), 0);
    store->rawData->clear();
  }
  // A tracer without points gives an all-zero result without errors.
  TempoGauge bare;
  const auto none = processedDataFor(&bare, nullptr, {"GLOBAL"}, false);
  EXPECT_FALSE(none.hasErrors);
  EXPECT_TRUE(none.processedPoints.empty());
  EXPECT_EQ(none.maxDepth, 0);
  EXPECT_EQ(makeHTMLPhaseNumString({2, 3, 7}, 2), "2.3");
  EXPECT_EQ(makeHTMLPhaseNumString({2}, 3), "2");
  EXPECT_EQ(makeHTMLPhaseNumString({2, 3}, 0), "");
}

}  // namespace
