// SPDX-License-Identifier: BSD-3-Clause
// The aggregate table: sums, self values through "_self" gaps, maxima.
#include <gtest/gtest.h>

#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::TraceBuilder;

const TGAggregateDataPoint* entry(const AggregateTable& table, const std::string& phase) {
  const auto it = table.find(tgGetId(tg::kPhaseKind, phase));
  return it == table.end() ? nullptr : it->second.get();
}

ProcessedPointPtr processed(const std::string& phase, double wc, std::int32_t children, bool gap = false) {
  auto raw = tgtest::makeRawPoint({0, "G", phase}, true, 0.0, 0.0);
  raw->flags.isGap = gap ? 1 : 0;
  auto p = makeProcessedPoint(*raw, 1, 0);
  p->wcElapsedTime = wc;
  p->cpuElapsedTime = wc / 2;
  p->numChildren = children;
  return p;
}

TEST(AggregateTable, RepeatedLeafSumsAndCountsHits) {
  TraceBuilder t;
  t.start("Leaf").stop("Leaf", 0.5).start("Leaf", 0.01).stop("Leaf", 0.25).start("Leaf", 0.01).stop("Leaf", 1.0);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  const auto table = buildAggregateTable(r.processedPoints);
  ASSERT_EQ(table.size(), 1u);
  const auto* leaf = entry(table, "Leaf");
  ASSERT_TRUE(leaf);
  EXPECT_EQ(leaf->hitCount, 3);
  EXPECT_DOUBLE_EQ(leaf->wcTotal, 1.75);
  EXPECT_DOUBLE_EQ(leaf->wcSelf, leaf->wcTotal);
  EXPECT_DOUBLE_EQ(leaf->cpuSelf, leaf->cpuTotal);
  EXPECT_FALSE(leaf->isParent);
  EXPECT_EQ(leaf->pointType, 0);
  EXPECT_EQ(leaf->grouping, tgGetId(tg::kGroupingKind, "G"));
}

TEST(AggregateTable, ParentSelfTimeIsTheSumOfItsSelfGaps) {
  TraceBuilder t;
  t.start("Parent").start("Kid", 0.3).stop("Kid", 2.0).start("Kid", 0.05).stop("Kid", 1.0).stop("Parent", 0.2);
  const auto r = analyzeRawPoints(t.points, {"G"}, false);
  ASSERT_FALSE(r.hasErrors);
  const auto table = buildAggregateTable(r.processedPoints);
  const auto* parent = entry(table, "Parent");
  ASSERT_TRUE(parent);
  EXPECT_NEAR(parent->wcSelf, 0.3, 1e-12);  // the 0.05 between the kids is below the threshold
  EXPECT_NEAR(parent->wcTotal, 3.55, 1e-12);
  EXPECT_EQ(parent->hitCount, 1);
  EXPECT_TRUE(parent->isParent);
  EXPECT_EQ(entry(table, "Parent_self"), nullptr);
  const auto* post = entry(table, "Kid_post");
  ASSERT_TRUE(post);
  EXPECT_EQ(post->hitCount, 1);
  EXPECT_NEAR(post->wcTotal, 0.2, 1e-12);
  EXPECT_EQ(entry(table, "Kid")->hitCount, 2);
}

TEST(AggregateTable, SelfFoldingByNameAndItsLimits) {
  const AggregateTable table = buildAggregateTable({
      processed("Outer", 5.0, 2),
      processed("Outer_self", 0.5, 0, true),
      processed("Outer_self", 0.25, 0),      // a user's phase of such a name folds too
      processed("Orphan_self", 0.4, 0),      // no entry to fold into: dropped
      processed("_self", 0.1, 0),            // at the front: an ordinary phase
      processed("_selfish", 0.1, 0),
      processed("GapParent", 1.0, 1, true),  // a gap with children is skipped
  });
  EXPECT_DOUBLE_EQ(entry(table, "Outer")->wcSelf, 0.75);
  EXPECT_DOUBLE_EQ(entry(table, "Outer")->cpuSelf, 0.375);
  EXPECT_EQ(entry(table, "Outer")->hitCount, 1);
  EXPECT_EQ(entry(table, "Orphan"), nullptr);
  EXPECT_EQ(entry(table, "Orphan_self"), nullptr);
  ASSERT_TRUE(entry(table, "_self"));
  EXPECT_EQ(entry(table, "_self")->hitCount, 1);
  ASSERT_TRUE(entry(table, "_selfish"));
  EXPECT_EQ(entry(table, "GapParent"), nullptr);
  EXPECT_EQ(table.size(), 3u);
  EXPECT_TRUE(buildAggregateTable({}).empty());
}

TEST(AggregateTable, FirstPointDecidesParentAndGroupingWhileMaximaOnlyRise) {
  auto first = processed("Shape", 1.0, 0);
  first->basicMem->procMemUsage = -5.0;
  first->detailedMem->freeMem = -1.0;
  auto second = processed("Shape", 1.0, 3);
  second->grouping = tgGetId(tg::kGroupingKind, "OtherGrouping");
  second->basicMem->procMemUsage = 7.0;
  second->basicMem->procVMSize = 9.0;
  second->detailedMem->commitMem = 4.0;
  second->basicMem->procMemUsageDelta = 2.0;
  const auto table = buildAggregateTable({first, second});
  const auto* shape = entry(table, "Shape");
  EXPECT_FALSE(shape->isParent);
  EXPECT_EQ(shape->grouping, tgGetId(tg::kGroupingKind, "G"));
  EXPECT_EQ(shape->hitCount, 2);
  EXPECT_DOUBLE_EQ(shape->wcSelf, 1.0);  // the second had children
  EXPECT_DOUBLE_EQ(shape->procMemUsageMax, 7.0);
  EXPECT_DOUBLE_EQ(shape->procVMSizeMax, 9.0);
  EXPECT_DOUBLE_EQ(shape->commitMemMax, 4.0);
  EXPECT_DOUBLE_EQ(shape->freeMemMax, 0.0);
  EXPECT_DOUBLE_EQ(shape->procMemUsageDeltaSelf, 0.0);
}

}  // namespace
