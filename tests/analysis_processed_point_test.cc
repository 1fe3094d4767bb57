// SPDX-License-Identifier: BSD-3-Clause
// Processed points: memory records, host forms, identity and detail rows.
#include <gtest/gtest.h>

#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"

namespace {

using tgtest::PointSite;

ProcessedPointPtr make(const PointSite& site) {
  return makeProcessedPoint(*tgtest::makeRawPoint(site, true, 0.0, 0.0), 3, 1);
}

TEST(ProcessedMemStats, SamplesScaleToMebibytesAndDeltasNeedAStart) {
  const tg::BasicMemStats end(3.0 * 1048576, 5.0 * 1048576, 7.0 * 1048576);
  const tg::BasicMemStats start(1.0 * 1048576, 2.0 * 1048576, 4.0 * 1048576);
  tg::BasicProcessedMemStats basic(&end);
  EXPECT_DOUBLE_EQ(basic.procMemUsage, 3.0);
  basic.computeDeltas(&start);
  EXPECT_DOUBLE_EQ(basic.procMemUsageDelta, 2.0);
  EXPECT_DOUBLE_EQ(basic.procMemUsagePeakDelta, 3.0);
  EXPECT_DOUBLE_EQ(basic.procMemPeakOverStart, 4.0);  // peak over usage, crossed on purpose
  EXPECT_DOUBLE_EQ(basic.procVMSizeDelta, 3.0);

  const tg::DetailedMemStats sample(1048576.0, 2097152.0, 0.0, 0.0, 524288.0);
  tg::DetailedProcessedMemStats detailed(&sample);
  EXPECT_DOUBLE_EQ(detailed.freeMem, 1.0);
  EXPECT_DOUBLE_EQ(detailed.resMem, 2.0);
  EXPECT_DOUBLE_EQ(detailed.nonprocessMem, 0.5);
  detailed.computeDeltas(nullptr);
  EXPECT_DOUBLE_EQ(detailed.freeMemDelta, 0.0);
  detailed.computeDeltas(&sample);
  EXPECT_DOUBLE_EQ(detailed.freeMemDelta, 0.0);
  const tg::DetailedProcessedMemStats none(nullptr);
  EXPECT_DOUBLE_EQ(none.freeMem + none.resMem + none.commitMem + none.dllsMem + none.nonprocessMem, 0.0);
}

TEST(ProcessedPoint, FactoryPicksTheClassAndCopiesIds) {
  auto raw = tgtest::makeRawPoint({2, "G", "Chart step", "Mdl", "Tgt", "Mach", "Chart"}, true, 0.0, 0.0);
  raw->statisticsTypeId = 4;
  raw->flags.isGap = 1;
  const auto p = makeProcessedPoint(*raw, 7, 2);
  ASSERT_NE(dynamic_cast<TGLCProcessedDataPoint*>(p.get()), nullptr);
  EXPECT_EQ(p->pointType, 2);
  EXPECT_EQ(p->HTMLRowNumber, 7);
  EXPECT_EQ(p->stackDepth, 2);
  EXPECT_EQ(p->statisticsType, 4);
  EXPECT_TRUE(p->isGapRow());
  EXPECT_FALSE(p->isErrorRow());
  EXPECT_EQ(p->getModel(), tgGetId(tg::kModelKind, "Mdl"));
  EXPECT_EQ(p->getChart(), tgGetId(tg::kChartKind, "Chart"));
  std::int32_t phase = 0, model = 0, chart = 0;
  make({0, "G", "H"})->phaseIdentity(phase, model, chart);
  EXPECT_EQ(phase, tgGetId(tg::kPhaseKind, "H"));
  EXPECT_EQ(model, -1);
  EXPECT_EQ(chart, -1);
  EXPECT_EQ(make({1, "G", "C", "Mdl", "Tgt"})->pointType, 1);
  EXPECT_EQ(make({0, "G", "H"})->getTarget(), -1);
  ASSERT_TRUE(p->detailedStartMem);
  EXPECT_EQ(p->detailedStartMem->freeMem, 0.0);
}

TEST(ProcessedPoint, SamePhaseLooksAtTheOthersKindOnlyFromTheWiderClass) {
  const auto host = make({0, "G", "Same"});
  const auto cw = make({1, "G", "Same", "Mdl", "Tgt"});
  const auto cwOtherTarget = make({1, "G", "Same", "Mdl", "Other"});
  const auto lc = make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart"});
  EXPECT_TRUE(host->isSamePhase(*cw));
  EXPECT_FALSE(cw->isSamePhase(*host));
  EXPECT_FALSE(cw->isSamePhase(*cwOtherTarget));
  EXPECT_TRUE(cw->isSamePhase(*make({1, "G", "Same", "Mdl", "Tgt"})));
  EXPECT_FALSE(cw->isSamePhase(*lc));
  EXPECT_FALSE(lc->isSamePhase(*make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart2"})));
  EXPECT_TRUE(lc->isSamePhase(*make({2, "G", "Same", "Mdl", "Tgt", "Mach", "Chart"})));
  EXPECT_FALSE(host->isSamePhase(*make({0, "G2", "Same"})));
}

TEST(ProcessedPoint, ComparisonKeyJoinsCleanedNamesWithoutSeparators) {
  EXPECT_EQ(make({0, "Grp", "/lib/phase/cw_customization"})->comparisonKey(), "lib/phaseGrp");
  EXPECT_EQ(make({1, "Grp", "P", "Mdl", "Tgt"})->comparisonKey(), "PGrpMdlTgt");
  EXPECT_EQ(make({2, "Grp", "P", "Mdl", "Tgt", "Mach", "Chart"})->comparisonKey(), "PGrpMdlTgtMachChart");
}

TEST(ProcessedPoint, CellRowsHaveTheirWidthAndOrder) {
  const auto host = make({0, "Grp", "/a/phase"});
  host->wcElapsedTime = 1.5;
  host->basicMem->procMemUsage = 12.0;
  host->detailedMem->freeMem = 3.0;
  host->detailedMem->freeMemDelta = -1.0;
  host->flags.errorRow = 1;
  host->HTMLPhaseNumString = "1.2";
  host->childrenIDs = {4, 5};
  host->numChildren = 1;
  const oxArrayPtr row = host->toCellRow();
  ASSERT_EQ(row->cols(), 31u);
  EXPECT_EQ(row->cell(0)->classID(), oxINT32_CLASS);
  EXPECT_EQ(oxArrayToStdString(row->cell(1)), "Grp");
  EXPECT_EQ(oxArrayToStdString(row->cell(2)), "a/phase");
  // wcElapsedTime, free, free delta, usage; row number, children, depth.
  for (const auto& [column, value] : {std::pair{5, 1.5}, {8, 3.0}, {13, -1.0}, {18, 12.0}})
    EXPECT_DOUBLE_EQ(oxGetScalar(row->cell(column)), value) << column;
  for (const auto& [column, value] : {std::pair{27, 3}, {28, 1}, {29, 1}})
    EXPECT_EQ(row->cell(column)->int32s()[0], value) << column;
  EXPECT_TRUE(oxIsLogicalScalarTrue(row->cell(24)));   // errorRow
  EXPECT_FALSE(oxIsLogicalScalarTrue(row->cell(25)));  // gapRow
  EXPECT_EQ(oxArrayToStdString(row->cell(26)), "1.2");
  ASSERT_TRUE(oxIsCell(row->cell(30)));
  EXPECT_EQ(oxGetNumberOfElements(row->cell(30)), 2u);
  EXPECT_EQ(row->cell(30)->cell(1)->int32s()[0], 5);

  const oxArrayPtr lcRow = make({2, "Grp", "P", "Mdl", "Tgt", "Mach", "Chart"})->toCellRow();
  ASSERT_EQ(lcRow->cols(), 35u);
  EXPECT_EQ(oxArrayToStdString(lcRow->cell(3)), "Mdl");
  EXPECT_EQ(oxArrayToStdString(lcRow->cell(6)), "Chart");
  EXPECT_EQ(make({1, "Grp", "P", "Mdl", "Tgt"})->toCellRow()->cols(), 33u);
}

TEST(ProcessedPoint, StructsHaveTheirFieldsAndUnsignedBookkeeping) {
  const auto cw = make({1, "Grp", "/raw/name", "Mdl", "Tgt"});
  cw->basicMem->procVMSizeDelta = 2.5;
  cw->childrenIDs = {9};
  const oxArrayPtr s = cw->toStruct();
  ASSERT_EQ(s->fieldNames().size(), 33u);
  EXPECT_EQ(s->fieldNames()[3], "modelStr");
  EXPECT_EQ(s->fieldNames()[5], "statisticsTypeStr");
  EXPECT_EQ(s->fieldNames().back(), "childrenIDs");
  EXPECT_EQ(oxGetClassID(oxGetField(s.get(), 0, "pointType")), oxUINT32_CLASS);
  EXPECT_EQ(oxArrayToStdString(oxGetField(s.get(), 0, "phaseIDStr")), "/raw/name");  // uncleaned
  EXPECT_EQ(oxArrayToStdString(oxGetField(s.get(), 0, "targetStr")), "Tgt");
  EXPECT_DOUBLE_EQ(oxGetScalar(oxGetField(s.get(), 0, "procVMSizeDelta")), 2.5);
  EXPECT_EQ(oxGetClassID(oxGetField(s.get(), 0, "HTMLRowNumber")), oxUINT32_CLASS);
  EXPECT_EQ(oxGetField(s.get(), 0, "HTMLRowNumber")->uint32s()[0], 3u);
  EXPECT_TRUE(oxIsLogicalScalar(oxGetField(s.get(), 0, "gapRow")));
  const oxArray* kids = oxGetField(s.get(), 0, "childrenIDs");
  ASSERT_TRUE(oxIsCell(kids));
  EXPECT_EQ(kids->cell(0)->int32s()[0], 9);
  EXPECT_EQ(make({0, "G", "H"})->toStruct()->fieldNames().size(), 31u);
  const auto lc = make({2, "G", "H", "Mdl", "Tgt", "Mach", "Chart"})->toStruct();
  ASSERT_EQ(lc->fieldNames().size(), 35u);
  EXPECT_EQ(oxArrayToStdString(oxGetField(lc.get(), 0, "machineStr")), "Mach");
  EXPECT_EQ(lc->fieldNames()[12], "freeMem");
}

TEST(ProcessedPoint, DetailRowsNameMissingPartsDifferently) {
  // Id 0 counts as not specified: give every table a first name.
  for (const auto kind : {tg::kModelKind, tg::kTargetKind, tg::kMachineKind, tg::kChartKind}) tgGetId(kind, "first");
  const auto cw = std::dynamic_pointer_cast<TGCWGENProcessedDataPoint>(make({1, "Grp", "P", "DMdl", "DTgt"}));
  const std::string row = cw->phaseDetailRow();
  EXPECT_EQ(row.find("                            <tr>\n"), 0u);
  EXPECT_NE(row.find("width:25px"), std::string::npos);
  EXPECT_NE(row.find(">Grp/DMdl/DTgt</td>\n                            </tr>\n"), std::string::npos);
  auto bare = std::dynamic_pointer_cast<TGCWGENProcessedDataPoint>(make({1, "Grp", "P", "DMdl", "DTgt"}));
  bare->model = -1;
  bare->target = 0;  // the first name of a table is not shown
  EXPECT_NE(bare->phaseDetailRow().find(">Grp </td>"), std::string::npos);
  auto lc = std::dynamic_pointer_cast<TGLCProcessedDataPoint>(make({2, "Grp", "P", "DMdl", "DTgt", "DMach", "DChart"}));
  EXPECT_NE(lc->phaseDetailRow().find("width:15%"), std::string::npos);
  EXPECT_NE(lc->phaseDetailRow().find(">Grp/DMdl/DTgt/DMach/DChart</td>"), std::string::npos);
  lc->machine = -1;
  lc->chart = -1;
  EXPECT_NE(lc->phaseDetailRow().find("/DTgt/NO MACHINE SPECIFIED/NO CHART SPECIFIED</td>"), std::string::npos);
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
