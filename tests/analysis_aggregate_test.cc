// SPDX-License-Identifier: BSD-3-Clause
// The aggregate table: sums, self values through "_self" gaps, maxima. The
// tables are compared with tests/golden/analysis_aggregate.txt.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "analysis_trace_builder.h"
#include "golden_text.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::TraceBuilder;

// The entries by phase name, one line each.
std::string tableText(const AggregateTable& table) {
  std::map<std::string, std::string> lines;
  for (const auto& [id, e] : table) {
    std::ostringstream line;
    line << ": hits " << e->hitCount << ", " << (e->isParent ? "parent" : "leaf") << ", kind " << e->pointType
         << ", grouping " << tgGetNameStr(tg::kGroupingKind, e->grouping) << ", wc " << e->wcTotal << "/"
         << e->wcSelf << ", cpu " << e->cpuTotal << "/" << e->cpuSelf << ", usage " << e->procMemUsageMax << " d"
         << e->procMemUsageDeltaSelf << ", peak " << e->procMemUsagePeakMax << " d" << e->procMemUsagePeakDeltaSelf
         << ", vm " << e->procVMSizeMax << ", detailed " << e->freeMemMax << " " << e->resMemMax << " "
         << e->commitMemMax << " " << e->dllsMemMax << " " << e->nonprocessMemMax << "\n";
    lines[tgGetNameStr(tg::kPhaseKind, id)] = line.str();
  }
  std::string out;
  for (const auto& [name, line] : lines) out += name + line;
  return out;
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

TEST(AggregateTable, EntriesOfPairedTraces) {
  tgtest::GoldenFile golden("analysis_aggregate");
  TraceBuilder leaf;
  leaf.start("Leaf").stop("Leaf", 0.5).start("Leaf", 0.01).stop("Leaf", 0.25).start("Leaf", 0.01).stop("Leaf", 1.0);
  golden.expect("a repeated leaf sums and counts hits",
                tableText(buildAggregateTable(analyzeRawPoints(leaf.points, {"G"}, false).processedPoints)));
  // The 0.05 between the kids is below the threshold: no gap.
  TraceBuilder parent;
  parent.start("Parent").start("Kid", 0.3).stop("Kid", 2.0).start("Kid", 0.05).stop("Kid", 1.0).stop("Parent", 0.2);
  golden.expect("a parent's self time is the sum of its self gaps",
                tableText(buildAggregateTable(analyzeRawPoints(parent.points, {"G"}, false).processedPoints)));
  EXPECT_TRUE(buildAggregateTable({}).empty());
}

TEST(AggregateTable, SelfFoldingByNameAndItsLimits) {
  tgtest::GoldenFile("analysis_aggregate").expect("self folding", tableText(buildAggregateTable({
      processed("Outer", 5.0, 2),
      processed("Outer_self", 0.5, 0, true),
      processed("Outer_self", 0.25, 0),      // a user's phase of such a name folds too
      processed("Orphan_self", 0.4, 0),      // no entry to fold into: dropped
      processed("_self", 0.1, 0),            // at the front: an ordinary phase
      processed("_selfish", 0.1, 0),
      processed("GapParent", 1.0, 1, true),  // a gap with children is skipped
  })));
}

// The first point decides parent and grouping; maxima only rise; the second
// point had children, so its time and deltas are not its own.
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
  tgtest::GoldenFile("analysis_aggregate")
      .expect("first point decides", tableText(buildAggregateTable({first, second})));
}

}  // namespace
