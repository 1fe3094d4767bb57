// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/processed_mem_stats.h"

#include "collect/constants.h"

namespace tg {

BasicProcessedMemStats::BasicProcessedMemStats(const BasicMemStats* sample) {
  if (!sample) return;
  procMemUsage = sample->procMemUsage * kBytesToMegabytes;
  procMemUsagePeak = sample->procMemUsagePeak * kBytesToMegabytes;
  procVMSize = sample->procVMSize * kBytesToMegabytes;
}

BasicProcessedMemStats::~BasicProcessedMemStats() = default;

void BasicProcessedMemStats::computeDeltas(const BasicMemStats* start) {
  if (!start) return;
  procMemUsageDelta = procMemUsage - start->procMemUsage * kBytesToMegabytes;
  procMemUsagePeakDelta = procMemUsagePeak - start->procMemUsagePeak * kBytesToMegabytes;
  procMemPeakOverStart = procMemUsagePeak - start->procMemUsage * kBytesToMegabytes;
  procVMSizeDelta = procVMSize - start->procVMSize * kBytesToMegabytes;
}

DetailedProcessedMemStats::DetailedProcessedMemStats(const DetailedMemStats* sample) {
  if (!sample) return;
  DetailedMemStats::operator=(*sample);
  DetailedMemStats::scaleToMegabytes();
}

DetailedProcessedMemStats::~DetailedProcessedMemStats() = default;

void DetailedProcessedMemStats::computeDeltas(const DetailedMemStats* start) {
  if (!start) return;
  commitMemDelta = commitMem - start->commitMem * kBytesToMegabytes;
  resMemDelta = resMem - start->resMem * kBytesToMegabytes;
  freeMemDelta = freeMem - start->freeMem * kBytesToMegabytes;
  dllsMemDelta = dllsMem - start->dllsMem * kBytesToMegabytes;
  nonprocessMemDelta = nonprocessMem - start->nonprocessMem * kBytesToMegabytes;
}

}  // namespace tg
