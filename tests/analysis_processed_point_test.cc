// SPDX-License-Identifier: BSD-3-Clause
// Processed points: memory records, host forms, identity and detail rows.
// The host forms and detail rows are compared with
// tests/golden/analysis_processed_point.txt.
#include <gtest/gtest.h>

#include "analysis_trace_builder.h"
#include "golden_text.h"
#include "host_array_text.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::arrayText;
using tgtest::PointSite;

ProcessedPointPtr make(const PointSite& site) {
  return makeProcessedPoint(*tgtest::makeRawPoint(site, true, 0.0, 0.0), 3, 1);
}

TEST(ProcessedMemStats, SamplesScaleToMebibytesAndDeltasNeedAStart) {
  const tg::BasicMemStats end(3.0 * 1048576, 5.0 * 1048576, 7.0 * 1048576);
  const tg::BasicMemStats start(1.0 * 1048576, 2.0 * 1048576, 4.0 * 1048576);
  tg::BasicProcessedMemStats basic(&end);
  basic.computeDeltas(&start);
  const tg::DetailedMemStats sample(1048576.0, 2097152.0, 0.0, 0.0, 524288.0);
  tg::DetailedProcessedMemStats detailed(&sample);
  // The peak over start is the peak over usage, crossed on purpose.
  for (const auto& [value, expected] :
       {std::pair{basic.procMemUsage, 3.0}, {basic.procMemUsageDelta, 2.0}, {basic.procMemUsagePeakDelta, 3.0},
        {basic.procMemPeakOverStart, 4.0}, {basic.procVMSizeDelta, 3.0}, {detailed.freeMem, 1.0},
        {detailed.resMem, 2.0}, {detailed.nonprocessMem, 0.5}})
    EXPECT_DOUBLE_EQ(value, expected);
  detailed.computeDeltas(nullptr);
  EXPECT_DOUBLE_EQ(detailed.freeMemDelta, 0.0);
  detailed.computeDeltas(&sample);
  EXPECT_DOUBLE_EQ(detailed.freeMemDelta, 0.0);
  const tg::DetailedProcessedMemStats none(nullptr);
  EXPECT_DOUBLE_EQ(none.freeMem + none.resMem + none.commitMem + none.dllsMem + none.nonprocessMem, 0.0);
}

TEST(ProcessedPoint, FactoryPicksTheClassAndCopiesIds) {
  auto raw = tgtest::makeRawPoint({2, "G", "Chart step", "Mdl", "Tgt", "Mach", "Chart"}, true, 0.0, 0.0);
  raw->statisticsTypeId = tgGetId(tg::kStatisticsTypeKind, "Stats");
  raw->flags.isGap = 1;
  const auto p = makeProcessedPoint(*raw, 7, 2);
  ASSERT_NE(dynamic_cast<TGLCProcessedDataPoint*>(p.get()), nullptr);
  tgtest::GoldenFile("analysis_processed_point").expect("a loomchart gap's struct", arrayText(p->toStruct().get()));
  ASSERT_TRUE(p->detailedStartMem);
  EXPECT_EQ(p->detailedStartMem->freeMem, 0.0);
  std::int32_t phase = 0, model = 0, chart = 0;
  make({0, "G", "H"})->phaseIdentity(phase, model, chart);
  EXPECT_EQ(std::tuple(phase, model, chart), std::tuple(tgGetId(tg::kPhaseKind, "H"), -1, -1));
  p->phaseIdentity(phase, model, chart);
  EXPECT_EQ(std::tuple(model, chart), std::tuple(tgGetId(tg::kModelKind, "Mdl"), tgGetId(tg::kChartKind, "Chart")));
}

TEST(ProcessedPoint, SamePhaseLooksAtTheOthersKindOnlyFromTheWiderClass) {
  const auto host = make({0, "G", "Same"});
  const auto cw = make({1, "G", "Same", "Mdl", "Tgt"});
  const auto cwOtherTarget = make({1, "G", "Same", "Mdl", "Other"});
  const auto lc = make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart"});
  for (const auto& [a, b, same] :
       {std::tuple{host, cw, true}, {cw, host, false}, {cw, cwOtherTarget, false},
        {cw, make({1, "G", "Same", "Mdl", "Tgt"}), true}, {cw, lc, false},
        {lc, make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart2"}), false},
        {lc, make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart"}), true}, {host, make({0, "G2", "Same"}), false}})
    EXPECT_EQ(a->isSamePhase(*b), same) << a->pointType << " " << b->pointType;
}

TEST(ProcessedPoint, ComparisonKeyJoinsCleanedNamesWithoutSeparators) {
  EXPECT_EQ(make({0, "Grp", "/lib/phase/cw_customization"})->comparisonKey(), "lib/phaseGrp");
  EXPECT_EQ(make({1, "Grp", "P", "Mdl", "Tgt"})->comparisonKey(), "PGrpMdlTgt");
  EXPECT_EQ(make({2, "Grp", "P", "Mdl", "Tgt", "Mach", "Chart"})->comparisonKey(), "PGrpMdlTgtMachChart");
}

// The cell row and struct of each kind, and the detail rows that name
// missing parts differently.
TEST(ProcessedPoint, HostFormsAndDetailRows) {
  tgtest::GoldenFile golden("analysis_processed_point");
  const auto host = make({0, "Grp", "/a/phase"});
  host->wcElapsedTime = 1.5;
  host->basicMem->procMemUsage = 12.0;
  host->detailedMem->freeMem = 3.0;
  host->detailedMem->freeMemDelta = -1.0;
  host->flags.errorRow = 1;
  host->HTMLPhaseNumString = "1.2";
  host->childrenIDs = {4, 5};
  host->numChildren = 1;
  const auto cw = make({1, "Grp", "/raw/name", "Mdl", "Tgt"});
  cw->basicMem->procVMSizeDelta = 2.5;
  cw->childrenIDs = {9};
  const auto lc = make({2, "Grp", "P", "Mdl", "Tgt", "Mach", "Chart"});
  for (const auto& [kind, p] : {std::pair{"host", host}, {"cogwheel", cw}, {"loomchart", lc}}) {
    golden.expect(std::string(kind) + " cell row", arrayText(p->toCellRow().get()));
    golden.expect(std::string(kind) + " struct", arrayText(p->toStruct().get()));
  }

  // Id 0 counts as not specified: give every table a first name.
  for (const auto kind : {tg::kModelKind, tg::kTargetKind, tg::kMachineKind, tg::kChartKind}) tgGetId(kind, "first");
  auto bare = std::dynamic_pointer_cast<TGCWGENProcessedDataPoint>(make({1, "Grp", "P", "DMdl", "DTgt"}));
  golden.expect("cogwheel detail row", bare->phaseDetailRow());
  bare->model = -1;
  bare->target = 0;  // the first name of a table is not shown
  golden.expect("cogwheel detail row without model and target", bare->phaseDetailRow());
  auto detail =
      std::dynamic_pointer_cast<TGLCProcessedDataPoint>(make({2, "Grp", "P", "DMdl", "DTgt", "DMach", "DChart"}));
  golden.expect("loomchart detail row", detail->phaseDetailRow());
  detail->machine = -1;
  detail->chart = -1;
  golden.expect("loomchart detail row without machine and chart", detail->phaseDetailRow());
}

TEST(ProcessedPoint, UnstoppedPhaseKeepsItsStartMemoryAndIsAnError) {
  tgtest::TraceBuilder t;
  t.start("Open");
  *t.points[0]->basicMemStats = tg::BasicMemStats(2.0 * 1048576, 3.0 * 1048576, 4.0 * 1048576);
  TGProcessedDataStruct r;
  walkRawPoints(t.points, {selectByGroupings({"G"}), nullptr, true}, r);
  ASSERT_EQ(r.processedPoints.size(), 1u);
  const auto& p = *r.processedPoints[0];
  EXPECT_TRUE(p.isErrorRow());
  EXPECT_DOUBLE_EQ(p.basicMem->procMemUsage, 2.0);
  EXPECT_DOUBLE_EQ(p.basicMem->procMemUsageDelta, 0.0);
}

}  // namespace
