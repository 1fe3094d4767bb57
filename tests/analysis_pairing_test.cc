// SPDX-License-Identifier: BSD-3-Clause
// Pairing: numbering, gaps, totals, mismatches and selection.
#include <gtest/gtest.h>

#include <cmath>

#include "analysis/pairing_gap.h"
#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::PointSite;
using tgtest::TraceBuilder;

std::string phaseName(const ProcessedPointPtr& p) { return tgGetNameStr(tg::kPhaseKind, p->phaseID); }

std::vector<std::string> rowNames(const TGProcessedDataStruct& r) {
  std::vector<std::string> names;
  for (const auto& p : r.processedPoints) names.push_back(phaseName(p));
  return names;
}

std::vector<std::string> numbers(const TGProcessedDataStruct& r) {
  std::vector<std::string> out;
  for (const auto& p : r.processedPoints) out.push_back(p->HTMLPhaseNumString);
  return out;
}

// Walks with the given selection and keeps the processed points of a failed
// walk, to look at their error flags.
TGProcessedDataStruct walkKeepingErrors(RawPointVector& raw, std::function<bool(const TGORRERYDataPoint&)> select,
                                        RawToProcessedMap* map = nullptr) {
  TGProcessedDataStruct result;
  walkRawPoints(raw, {std::move(select), map, true}, result);
  return result;
}

TEST(Pairing, LeafOfAnyLengthHasNoGapAndNumbersNest) {
  TraceBuilder t;
  t.start("A").start("B", 0.05).start("C", 0.05).stop("C", 5.0).stop("B", 0.01).stop("A", 0.01);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_FALSE(r.hasErrors);
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(numbers(r), (std::vector<std::string>{"1", "1.1", "1.1.1"}));
  EXPECT_EQ(r.maxDepth, 4);  // each stop asks for a counter one level below it
  EXPECT_DOUBLE_EQ(r.processedPoints[2]->wcElapsedTime, 5.0);
  EXPECT_EQ(r.processedPoints[0]->childrenIDs, (std::vector<std::int32_t>{2, 3}));
  EXPECT_EQ(r.processedPoints[0]->numChildren, 1);
  EXPECT_EQ(r.processedPoints[1]->childrenIDs, (std::vector<std::int32_t>{3}));
  EXPECT_EQ(r.processedPoints[2]->stackDepth, 2);
  EXPECT_EQ(r.processedPoints[1]->parentPhaseID, tgGetId(tg::kPhaseKind, "A"));
  EXPECT_EQ(r.processedPoints[0]->parentPhaseID, -1);
  EXPECT_EQ(t.points.size(), 6u);
}

TEST(Pairing, SelfAndPostGapsAreChildrenOfTheOpenPhase) {
  TraceBuilder t;
  t.start("A").start("B", 0.2).stop("B", 0.05).stop("A", 0.2);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_FALSE(r.hasErrors);
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "A_self", "B", "B_post"}));
  EXPECT_EQ(numbers(r), (std::vector<std::string>{"1", "1.1", "1.2", "1.3"}));
  for (std::size_t i = 0; i < r.processedPoints.size(); ++i)
    EXPECT_EQ(r.processedPoints[i]->HTMLRowNumber, static_cast<std::int32_t>(i + 1));
  const auto& a = *r.processedPoints[0];
  EXPECT_EQ(a.numChildren, 3);
  EXPECT_EQ(a.childrenIDs, (std::vector<std::int32_t>{2, 3, 4}));
  EXPECT_TRUE(r.processedPoints[1]->isGapRow());
  EXPECT_TRUE(r.processedPoints[3]->isGapRow());
  EXPECT_FALSE(r.processedPoints[2]->isGapRow());
  EXPECT_NEAR(r.processedPoints[1]->wcElapsedTime, 0.2, 1e-12);
  EXPECT_NEAR(r.processedPoints[3]->wcElapsedTime, 0.2, 1e-12);
  EXPECT_NEAR(r.processedPoints[3]->wcStartTime, 0.25, 1e-12);
  EXPECT_EQ(r.processedPoints[1]->grouping, tgGetId(tg::kGroupingKind, "G"));
  // The gap points stay in the vector, in place: start, stop, then the point.
  ASSERT_EQ(t.points.size(), 8u);
  EXPECT_TRUE(t.points[1]->isGap() && t.points[1]->isStart());
  EXPECT_TRUE(t.points[2]->isGap() && !t.points[2]->isStart());
  EXPECT_EQ(t.points[3]->phaseId, tgGetId(tg::kPhaseKind, "B"));
  EXPECT_NEAR(r.topWCTotal, 0.45, 1e-12);
  EXPECT_EQ(r.topWCTotalCopy, r.topWCTotal);
  EXPECT_EQ(r.topCPUTotalCopy, r.topCPUTotal);
}

TEST(Pairing, TopLevelPhasesGetNoGapAndTotalsAddUp) {
  TraceBuilder t;
  t.start("A").stop("A", 1.0).start("B", 0.2).stop("B", 2.0);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(numbers(r), (std::vector<std::string>{"1", "2"}));
  EXPECT_DOUBLE_EQ(r.topWCTotal, 3.0);
  EXPECT_DOUBLE_EQ(r.topCPUTotal, 1.5);
  EXPECT_DOUBLE_EQ(r.processedPoints[1]->wcStartTime, 1.2);
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

TEST(Pairing, GapWithoutBasicSampleIsUnaccountedHostPhase) {
  PointSite cw{1, "G", "A", "M", "T"};
  RawPointVector v{tgtest::makeRawPoint(cw, true, 0.0, 0.0)};
  v[0]->basicMemStats.reset();
  cw.phase = "B";
  v.push_back(tgtest::makeRawPoint(cw, true, 0.3, 0.1));
  v.push_back(tgtest::makeRawPoint(cw, false, 0.35, 0.1));
  cw.phase = "A";
  v.push_back(tgtest::makeRawPoint(cw, false, 0.36, 0.1));
  const auto r = analyzeRawPoints(v, {"GLOBAL"}, false);
  ASSERT_FALSE(r.hasErrors);
  ASSERT_EQ(rowNames(r), (std::vector<std::string>{"A", "Unaccounted Phase", "B"}));
  const auto& gap = *r.processedPoints[1];
  EXPECT_EQ(gap.grouping, -1);
  EXPECT_EQ(gap.pointType, 0);
  EXPECT_TRUE(gap.isGapRow());
  EXPECT_NEAR(gap.wcElapsedTime, 0.3, 1e-12);
  EXPECT_EQ(gap.HTMLPhaseNumString, "1.1");
}

TEST(Pairing, PointsOfOtherGroupingsAreNotPreviousPoints) {
  TraceBuilder t;
  t.start("A");
  t.add({0, "Y", "Other"}, true, 0.05).add({0, "Y", "Other"}, false, 0.05);
  t.start("B", 0.15).stop("B", 0.01).stop("A", 0.01);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_EQ(rowNames(r), (std::vector<std::string>{"A", "A_self", "B"}));
  EXPECT_NEAR(r.processedPoints[1]->wcElapsedTime, 0.25, 1e-12);  // the time in Y counts as A's own
  // Both groupings together: Y's phase is a child and leaves no gap.
  TraceBuilder both;
  both.start("A");
  both.add({0, "Y", "Other"}, true, 0.05).add({0, "Y", "Other"}, false, 0.05);
  both.start("B", 0.05).stop("B", 0.01).stop("A", 0.01);
  EXPECT_EQ(rowNames(analyzeRawPoints(both.points, {"G", "Y"}, false)),
            (std::vector<std::string>{"A", "Other", "B"}));
}

TEST(Pairing, BaseTimesComeFromTheVectorAndStartTimesFromTheFirstSelectedStart) {
  TraceBuilder t;
  t.now = 10.0;
  t.add({0, "Y", "Other"}, true, 0.0).add({0, "Y", "Other"}, false, 0.05);
  t.start("A", 1.0).stop("A", 1.0);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_EQ(r.processedPoints.size(), 1u);
  EXPECT_DOUBLE_EQ(r.baseWCTime, 10.0);
  EXPECT_DOUBLE_EQ(r.baseCPUTime, 5.0);
  EXPECT_DOUBLE_EQ(r.processedPoints[0]->wcStartTime, 0.0);
}

TEST(Pairing, WrongStopMarksTheOpenPhaseWhichStaysOpen) {
  TraceBuilder t;
  t.start("A").stop("B", 0.01).start("C", 0.01).stop("C", 0.01).stop("A", 0.01);
  RawToProcessedMap map;
  const auto kept = walkKeepingErrors(t.points, selectByGroupings({"G"}), &map);
  EXPECT_TRUE(kept.hasErrors);
  ASSERT_EQ(kept.processedPoints.size(), 2u);
  EXPECT_TRUE(kept.processedPoints[0]->isErrorRow());   // A
  EXPECT_FALSE(kept.processedPoints[1]->isErrorRow());  // C, a child of A that stayed open
  EXPECT_EQ(kept.processedPoints[1]->HTMLPhaseNumString, "1.1");
  EXPECT_EQ(map.at(t.points[1].get()), kept.processedPoints[0]);  // the stray stop points at A
  EXPECT_EQ(map.at(t.points.back().get()), kept.processedPoints[0]);

  TraceBuilder again;
  again.start("A").stop("B", 0.01).start("C", 0.01).stop("C", 0.01).stop("A", 0.01);
  const auto r = analyzeRawPoints(again.points, {"G"}, false);
  EXPECT_TRUE(r.hasErrors);
  EXPECT_TRUE(r.processedPoints.empty());
}

TEST(Pairing, StartWithoutStopAndStrayStopsAreErrors) {
  TraceBuilder open;
  open.start("A").start("B", 0.01).stop("B", 0.01);
  const auto kept = walkKeepingErrors(open.points, selectByGroupings({"G"}));
  EXPECT_TRUE(kept.hasErrors);
  EXPECT_TRUE(kept.processedPoints[0]->isErrorRow());
  EXPECT_FALSE(kept.processedPoints[1]->isErrorRow());

  // A stop before anything: its row number is not used up.
  TraceBuilder stray;
  stray.stop("X").start("A", 0.01).stop("A", 0.01).stop("Z", 0.01);
  RawToProcessedMap map;
  const auto r = walkKeepingErrors(stray.points, selectByGroupings({"G"}), &map);
  EXPECT_TRUE(r.hasErrors);
  ASSERT_EQ(r.processedPoints.size(), 1u);
  EXPECT_EQ(r.processedPoints[0]->HTMLRowNumber, 1);
  EXPECT_EQ(map.at(stray.points[0].get())->HTMLRowNumber, 1);
  EXPECT_TRUE(map.at(stray.points[0].get())->isErrorRow());
  EXPECT_TRUE(map.at(stray.points[3].get())->isErrorRow());  // a stop with an empty stack

  RawPointVector empty;
  EXPECT_TRUE(analyzeRawPoints(empty, {"GLOBAL"}, false).hasErrors);
  // Points, none of them selected: nothing paired, nothing wrong.
  TraceBuilder other;
  other.start("A").start("B", 0.5).stop("B", 0.5).stop("A", 0.5);
  const auto none = analyzeRawPoints(other.points, {"NoSuchGrouping"}, false);
  EXPECT_FALSE(none.hasErrors);
  EXPECT_TRUE(none.processedPoints.empty());
  EXPECT_EQ(none.maxDepth, 0);
  EXPECT_EQ(other.points.size(), 4u);
}

TEST(Pairing, SelectionByModelSkipsHostPointsAndOtherModels) {
  TraceBuilder t;
  t.add({1, "G", "M1run", "M1", "T"}, true, 0.0);
  t.add({2, "G", "chart step", "M1", "T", "Mach", "Chart"}, true, 0.01);
  t.add({2, "G", "chart step", "M1", "T", "Mach", "Chart"}, false, 0.01);
  t.add({0, "G", "host"}, true, 0.01).add({0, "G", "host"}, false, 0.01);
  t.add({1, "G", "M2run", "M2", "T"}, true, 0.01).add({1, "G", "M2run", "M2", "T"}, false, 0.01);
  t.add({1, "G", "M1run", "M1", "T"}, false, 0.01);
  RawPointVector copy;
  for (const auto& p : t.points) copy.push_back(cloneRawPoint(*p));
  const auto m1 = analyzeRawPoints(t.points, {"M1"}, true);
  ASSERT_FALSE(m1.hasErrors);
  EXPECT_EQ(rowNames(m1), (std::vector<std::string>{"M1run", "chart step"}));
  EXPECT_EQ(m1.processedPoints[1]->pointType, 2);
  EXPECT_EQ(m1.processedPoints[0]->pointType, 1);
  const auto global = analyzeRawPoints(copy, {"GLOBAL"}, true);
  EXPECT_EQ(rowNames(global), (std::vector<std::string>{"M1run", "chart step", "M2run"}));
}

TEST(Pairing, WalkEndsWhenTheGapPairIsNotSelected) {
  // The gap after a point without a basic sample is a host point of grouping
  // -1. A walk by model never selects it; a walk that selects grouping G only
  // doesn't either. Both go on with the point itself.
  PointSite cw{1, "G", "A", "M", "T"};
  auto build = [&] {
    RawPointVector v{tgtest::makeRawPoint(cw, true, 0.0, 0.0)};
    v[0]->basicMemStats.reset();
    PointSite b = cw;
    b.phase = "B";
    v.push_back(tgtest::makeRawPoint(b, true, 0.5, 0.1));
    v.push_back(tgtest::makeRawPoint(b, false, 0.6, 0.1));
    v.back()->basicMemStats.reset();
    v.push_back(tgtest::makeRawPoint(cw, false, 1.2, 0.1));
    return v;
  };
  // A dropped pair leaves no name behind, so a second pairing of the same
  // trace selects no pair that the first dropped and gives the same rows.
  // (Whether the pairs are selected depends on whether the name was known
  // before the first pairing: another test in this process may have made it.)
  const bool knownBefore = TempoGauge::instance()->findId(tg::kPhaseKind, "Unaccounted Phase") >= 0;
  RawPointVector first = build(), second = build();
  const std::vector<std::string> rows = rowNames(analyzeRawPoints(first, {"G"}, false));
  EXPECT_EQ(rowNames(analyzeRawPoints(second, {"G"}, false)), rows);
  if (!knownBefore) {
    EXPECT_EQ(rows, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(TempoGauge::instance()->findId(tg::kPhaseKind, "Unaccounted Phase"), -1);
  }

  RawPointVector byModel = build();
  const auto r = analyzeRawPoints(byModel, {"M"}, true);
  ASSERT_FALSE(r.hasErrors);
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(byModel.size(), 4u);

  RawPointVector byGrouping = build();
  const std::int32_t g = tgGetId(tg::kGroupingKind, "G");
  TGProcessedDataStruct walked;
  EXPECT_FALSE(walkRawPoints(byGrouping, {[g](const TGORRERYDataPoint& p) { return p.groupingId == g; }, nullptr, true},
                             walked));
  EXPECT_FALSE(walked.hasErrors);
  EXPECT_EQ(rowNames(walked), (std::vector<std::string>{"A", "B"}));
}

TEST(Pairing, DetailedFlagFollowsTheLastWalkedPoint) {
  TraceBuilder t;
  t.start("A").stop("A", 0.01);
  t.points[0]->detailedMemStats->freeMem = 1000.0;
  EXPECT_FALSE(analyzeRawPoints(t.points, {"G"}, false).hasDetailedMemStats);
  TraceBuilder u;
  u.start("A").stop("A", 0.01);
  u.points[1]->detailedMemStats->freeMem = 1000.0;
  EXPECT_TRUE(analyzeRawPoints(u.points, {"G"}, false).hasDetailedMemStats);
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
  EXPECT_DOUBLE_EQ(a.basicMem->procMemUsage, 4.0);
  EXPECT_DOUBLE_EQ(a.basicMem->procMemUsageDelta, 3.0);
  EXPECT_DOUBLE_EQ(a.basicMem->procMemUsagePeakDelta, 3.0);
  EXPECT_DOUBLE_EQ(a.basicMem->procMemPeakOverStart, 4.0);
  EXPECT_DOUBLE_EQ(a.detailedMem->freeMem, 8.0);
  EXPECT_DOUBLE_EQ(a.detailedMem->freeMemDelta, 3.0);
  EXPECT_DOUBLE_EQ(a.detailedStartMem->freeMem, 5.0);  // a parent keeps its start sample
  const auto& b = *r.processedPoints[1];
  EXPECT_DOUBLE_EQ(b.detailedStartMem->freeMem, 0.0);  // a leaf doesn't
  EXPECT_DOUBLE_EQ(b.basicMem->procVMSizeDelta, 1.0);
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
  const auto r = tgGetProcessedDataForGroupings(nullptr, {"ExportGrouping"});
  EXPECT_EQ(rowNames(r), (std::vector<std::string>{"A", "A_self", "B"}));
  EXPECT_TRUE(tgGetProcessedDataForModels(nullptr, {"GLOBAL"}).hasErrors == false);
  {
    std::lock_guard lock(store->mutex());
    // The store's own vector has no gap points.
    EXPECT_EQ(std::count_if(store->rawData->begin(), store->rawData->end(), [](const RawPointPtr& p) { return p && p->isGap(); }), 0);
    store->rawData->clear();
  }
  // A tracer without points gives an all-zero result without errors.
  TempoGauge bare;
  const auto none = processedDataFor(&bare, nullptr, {"GLOBAL"}, false);
  EXPECT_FALSE(none.hasErrors);
  EXPECT_TRUE(none.processedPoints.empty());
  EXPECT_EQ(none.maxDepth, 0);
}

TEST(Pairing, NumberStringsUseOnlyTheOpenLevels) {
  EXPECT_EQ(makeHTMLPhaseNumString({2, 3, 7}, 2), "2.3");
  EXPECT_EQ(makeHTMLPhaseNumString({2}, 3), "2");
  EXPECT_EQ(makeHTMLPhaseNumString({2, 3}, 0), "");
  TraceBuilder t;
  t.start("A").stop("A", 0.01).start("B", 0.01).start("C", 0.01).stop("C", 0.01).start("D", 0.01).stop("D", 0.01)
      .stop("B", 0.01).start("E", 0.01).stop("E", 0.01);
  EXPECT_EQ(numbers(analyzeRawPoints(t.points, {"G"}, false)),
            (std::vector<std::string>{"1", "2", "2.1", "2.2", "3"}));
}

}  // namespace
