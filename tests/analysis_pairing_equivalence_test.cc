// The pairing walk against the plain walk of the tests, on many random traces:
// identical processed points, totals, flags, maps and walked vectors.
#include <gtest/gtest.h>

#include <random>

#include "analysis/pairing_gap.h"
#include "analysis_random_trace.h"
#include "analysis_reference_walk.h"

namespace {

RawPointVector deepCopy(const RawPointVector& v) {
  RawPointVector out;
  for (const auto& p : v) out.push_back(p ? cloneRawPoint(*p) : nullptr);
  return out;
}

void expectSameMem(const tg::BasicMemStats* a, const tg::BasicMemStats* b) {
  ASSERT_EQ(a == nullptr, b == nullptr);
  if (!a) return;
  EXPECT_EQ(a->procMemUsage, b->procMemUsage);
  EXPECT_EQ(a->procMemUsagePeak, b->procMemUsagePeak);
  EXPECT_EQ(a->procVMSize, b->procVMSize);
}

void expectSameMem(const tg::DetailedMemStats* a, const tg::DetailedMemStats* b) {
  ASSERT_EQ(a == nullptr, b == nullptr);
  if (!a) return;
  EXPECT_EQ(a->freeMem, b->freeMem);
  EXPECT_EQ(a->resMem, b->resMem);
  EXPECT_EQ(a->commitMem, b->commitMem);
  EXPECT_EQ(a->dllsMem, b->dllsMem);
  EXPECT_EQ(a->nonprocessMem, b->nonprocessMem);
}

void expectSamePoint(const TGORRERYProcessedDataPoint& a, const TGORRERYProcessedDataPoint& b) {
  EXPECT_EQ(a.pointType, b.pointType);
  EXPECT_EQ(a.grouping, b.grouping);
  EXPECT_EQ(a.phaseID, b.phaseID);
  EXPECT_EQ(a.statisticsType, b.statisticsType);
  EXPECT_EQ(a.getModel(), b.getModel());
  EXPECT_EQ(a.getTarget(), b.getTarget());
  EXPECT_EQ(a.getMachine(), b.getMachine());
  EXPECT_EQ(a.getChart(), b.getChart());
  EXPECT_EQ(a.wcStartTime, b.wcStartTime);
  EXPECT_EQ(a.wcElapsedTime, b.wcElapsedTime);
  EXPECT_EQ(a.cpuStartTime, b.cpuStartTime);
  EXPECT_EQ(a.cpuElapsedTime, b.cpuElapsedTime);
  expectSameMem(a.basicMem.get(), b.basicMem.get());
  expectSameMem(a.detailedMem.get(), b.detailedMem.get());
  expectSameMem(a.detailedStartMem.get(), b.detailedStartMem.get());
  EXPECT_EQ(a.basicMem->procMemUsageDelta, b.basicMem->procMemUsageDelta);
  EXPECT_EQ(a.basicMem->procVMSizeDelta, b.basicMem->procVMSizeDelta);
  EXPECT_EQ(a.detailedMem->freeMemDelta, b.detailedMem->freeMemDelta);
  EXPECT_EQ(a.flags.errorRow, b.flags.errorRow);
  EXPECT_EQ(a.flags.gapRow, b.flags.gapRow);
  EXPECT_EQ(a.HTMLPhaseNumString, b.HTMLPhaseNumString);
  EXPECT_EQ(a.HTMLRowNumber, b.HTMLRowNumber);
  EXPECT_EQ(a.numChildren, b.numChildren);
  EXPECT_EQ(a.stackDepth, b.stackDepth);
  EXPECT_EQ(a.childrenIDs, b.childrenIDs);
  EXPECT_EQ(a.parentPhaseID, b.parentPhaseID);
}

void expectSameResult(const TGProcessedDataStruct& a, const ProcessedPointVector& aPoints,
                      const TGProcessedDataStruct& b, const ProcessedPointVector& bPoints) {
  EXPECT_EQ(a.hasErrors, b.hasErrors);
  EXPECT_EQ(a.hasDetailedMemStats, b.hasDetailedMemStats);
  EXPECT_EQ(a.maxDepth, b.maxDepth);
  EXPECT_EQ(a.topWCTotal, b.topWCTotal);
  EXPECT_EQ(a.topCPUTotal, b.topCPUTotal);
  EXPECT_EQ(a.topWCTotalCopy, b.topWCTotalCopy);
  EXPECT_EQ(a.topCPUTotalCopy, b.topCPUTotalCopy);
  EXPECT_EQ(a.baseWCTime, b.baseWCTime);
  EXPECT_EQ(a.baseCPUTime, b.baseCPUTime);
  ASSERT_EQ(aPoints.size(), bPoints.size());
  for (std::size_t i = 0; i < aPoints.size(); ++i) {
    SCOPED_TRACE(i);
    expectSamePoint(*aPoints[i], *bPoints[i]);
  }
}

void expectSameVector(const RawPointVector& a, const RawPointVector& b) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    ASSERT_EQ(a[i] == nullptr, b[i] == nullptr);
    if (!a[i]) continue;
    EXPECT_EQ(a[i]->pointType, b[i]->pointType) << i;
    EXPECT_EQ(a[i]->groupingId, b[i]->groupingId) << i;
    EXPECT_EQ(a[i]->phaseId, b[i]->phaseId) << i;
    EXPECT_EQ(a[i]->isStart(), b[i]->isStart()) << i;
    EXPECT_EQ(a[i]->isGap(), b[i]->isGap()) << i;
    EXPECT_EQ(a[i]->wallTime, b[i]->wallTime) << i;
    EXPECT_EQ(a[i]->cpuTime, b[i]->cpuTime) << i;
    expectSameMem(a[i]->basicMemStats.get(), b[i]->basicMemStats.get());
    expectSameMem(a[i]->detailedMemStats.get(), b[i]->detailedMemStats.get());
  }
}

struct Selection {
  std::vector<std::string> names;
  bool byModel;
};

const std::vector<Selection>& selections() {
  static const std::vector<Selection> all{
      {{"X"}, false}, {{"X", "Y"}, false}, {{"GLOBAL"}, false}, {{""}, false}, {{"Z", "none"}, false},
      {{"M1"}, true}, {{"M1", "M2"}, true}, {{"GLOBAL"}, true},  {{""}, true}};
  return all;
}

// The walk machinery alone, with one selection rule for both walks, while no
// "Unaccounted Phase" id is known before the walk: its gap pairs go unselected.
TEST(PairingEquivalence, WalksAgreeOnRandomTracesWithErrorsKept) {
  std::mt19937 rng(20261121);
  int withGaps = 0;
  int withErrors = 0;
  for (int n = 0; n < 1500; ++n) {
    const RawPointVector trace = tgtest::randomTrace(rng, 4 + n % 90);
    const Selection& s = selections()[n % selections().size()];
    RawPointVector plainVector = deepCopy(trace);
    RawPointVector fastVector = deepCopy(trace);
    tgtest::ReferenceWalk plain(s.names, s.byModel, -1);
    plain.walkOnly(plainVector);
    RawToProcessedMap map;
    TGProcessedDataStruct fast;
    walkRawPoints(fastVector,
                  {[&plain](const TGORRERYDataPoint& p) { return plain.selected(p); }, &map, true}, fast);
    SCOPED_TRACE("trace " + std::to_string(n));
    expectSameResult(fast, fast.processedPoints, plain.result(), plain.startPointsInOrder(plainVector));
    expectSameVector(fastVector, plainVector);
    ASSERT_EQ(fastVector.size(), plainVector.size());
    for (std::size_t i = 0; i < fastVector.size(); ++i) {
      const auto f = fastVector[i] ? map.find(fastVector[i].get()) : map.end();
      const auto p = plainVector[i] ? plain.map().find(plainVector[i].get()) : plain.map().end();
      ASSERT_EQ(f == map.end(), p == plain.map().end()) << i;
      if (f == map.end()) continue;
      EXPECT_EQ(f->second->HTMLRowNumber, p->second->HTMLRowNumber) << i;
      EXPECT_EQ(f->second->isErrorRow(), p->second->isErrorRow()) << i;
    }
    withGaps += fastVector.size() > trace.size();
    withErrors += fast.hasErrors;
    if (HasFailure()) break;
  }
  // The traces exercise both sides.
  EXPECT_GT(withGaps, 300);
  EXPECT_GT(withErrors, 300);
  EXPECT_LT(withErrors, 1400);
}

// The exported path with the name selections, once "Unaccounted Phase" is known.
TEST(PairingEquivalence, AnalyzeAgreesWithThePlainWalkByGroupingAndByModel) {
  tgGetId(tg::kPhaseKind, "Unaccounted Phase");
  const std::int32_t unaccounted = tgGetId(tg::kPhaseKind, "Unaccounted Phase");
  std::mt19937 rng(7);
  int clean = 0;
  for (int n = 0; n < 1500; ++n) {
    const RawPointVector trace = tgtest::randomTrace(rng, 4 + n % 70);
    const Selection& s = selections()[n % selections().size()];
    RawPointVector plainVector = deepCopy(trace);
    RawPointVector fastVector = deepCopy(trace);
    tgtest::ReferenceWalk plain(s.names, s.byModel, unaccounted);
    const TGProcessedDataStruct expected = plain.analyze(plainVector);
    const TGProcessedDataStruct actual = analyzeRawPoints(fastVector, s.names, s.byModel);
    SCOPED_TRACE("trace " + std::to_string(n));
    expectSameResult(actual, actual.processedPoints, expected, expected.processedPoints);
    expectSameVector(fastVector, plainVector);
    clean += !actual.hasErrors && !actual.processedPoints.empty();
    if (HasFailure()) break;
  }
  EXPECT_GT(clean, 100);
}

}  // namespace
