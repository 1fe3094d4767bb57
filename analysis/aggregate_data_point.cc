// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/aggregate_data_point.h"

#include <algorithm>

TGAggregateDataPoint::TGAggregateDataPoint(std::int32_t groupingId, std::int32_t phaseId, bool parent)
    : grouping(groupingId), phaseID(phaseId), isParent(parent) {}

TGAggregateDataPoint::~TGAggregateDataPoint() = default;

void TGAggregateDataPoint::addSelfTimes(const TGORRERYProcessedDataPoint& p) {
  wcSelf += p.wcElapsedTime;
  cpuSelf += p.cpuElapsedTime;
  if (p.basicMem) {
    procMemUsageDeltaSelf += p.basicMem->procMemUsageDelta;
    procMemUsagePeakDeltaSelf += p.basicMem->procMemUsagePeakDelta;
  }
}

void TGAggregateDataPoint::addPoint(const TGORRERYProcessedDataPoint& p) {
  if (p.numChildren == 0) addSelfTimes(p);
  wcTotal += p.wcElapsedTime;
  cpuTotal += p.cpuElapsedTime;
  // Maxima start at 0, so negative values never win.
  if (p.basicMem) {
    procMemUsageMax = std::max(procMemUsageMax, p.basicMem->procMemUsage);
    procMemUsagePeakMax = std::max(procMemUsagePeakMax, p.basicMem->procMemUsagePeak);
    procVMSizeMax = std::max(procVMSizeMax, p.basicMem->procVMSize);
  }
  if (p.detailedMem) {
    freeMemMax = std::max(freeMemMax, p.detailedMem->freeMem);
    resMemMax = std::max(resMemMax, p.detailedMem->resMem);
    commitMemMax = std::max(commitMemMax, p.detailedMem->commitMem);
    dllsMemMax = std::max(dllsMemMax, p.detailedMem->dllsMem);
    nonprocessMemMax = std::max(nonprocessMemMax, p.detailedMem->nonprocessMem);
  }
  ++hitCount;
}
