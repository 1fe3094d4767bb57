// SPDX-License-Identifier: BSD-3-Clause
// Processed points and aggregates made by hand for the comparison and report
// data tests.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "analysis/aggregate_data_point.h"
#include "analysis/processed_point.h"

namespace compare_test {

struct Site {
  int kind = 0;  // 0 host, 1 Cogwheel, 2 Loomchart
  int model = -1, target = -1, machine = -1, chart = -1;
};

inline ProcessedPointPtr point(int phase, int grouping, const std::string& number, Site site = {}) {
  ProcessedPointPtr p;
  if (site.kind == 2) {
    TGLoomchartDataPoint raw;
    raw.modelId = site.model, raw.targetId = site.target, raw.machineId = site.machine, raw.chartId = site.chart;
    raw.phaseId = phase, raw.groupingId = grouping;
    p = makeProcessedPoint(raw, 1, 0);
  } else if (site.kind == 1) {
    TGCWGENDataPoint raw;
    raw.modelId = site.model, raw.targetId = site.target;
    raw.phaseId = phase, raw.groupingId = grouping;
    p = makeProcessedPoint(raw, 1, 0);
  } else {
    TGORRERYDataPoint raw;
    raw.phaseId = phase, raw.groupingId = grouping;
    p = makeProcessedPoint(raw, 1, 0);
  }
  p->HTMLPhaseNumString = number;
  return p;
}

inline ProcessedPointPtr timed(ProcessedPointPtr p, double wcStart, double wcElapsed, double cpuStart,
                               double cpuElapsed) {
  p->wcStartTime = wcStart, p->wcElapsedTime = wcElapsed, p->cpuStartTime = cpuStart, p->cpuElapsedTime = cpuElapsed;
  return p;
}

// Gives the point children: numChildren and childrenIDs.
inline ProcessedPointPtr parent(ProcessedPointPtr p, std::vector<std::int32_t> children) {
  p->numChildren = static_cast<std::int32_t>(children.size());
  p->childrenIDs = std::move(children);
  return p;
}

inline void setBasic(TGORRERYProcessedDataPoint& p, double usageDelta, double usage, double peakDelta, double peak,
                     double vmDelta) {
  p.basicMem->procMemUsageDelta = usageDelta, p.basicMem->procMemUsage = usage;
  p.basicMem->procMemUsagePeakDelta = peakDelta, p.basicMem->procMemUsagePeak = peak;
  p.basicMem->procVMSizeDelta = vmDelta;
}

inline void setDetailed(tg::DetailedMemStats& d, double free, double reserved, double committed, double dlls,
                        double nonprocess) {
  d.freeMem = free, d.resMem = reserved, d.commitMem = committed, d.dllsMem = dlls, d.nonprocessMem = nonprocess;
}

inline std::unique_ptr<TGAggregateDataPoint> aggregate(int phase, bool isParent, int hits, double wcSelf,
                                                       double wcTotal) {
  auto a = std::make_unique<TGAggregateDataPoint>(0, phase, isParent);
  a->hitCount = hits, a->wcSelf = wcSelf, a->wcTotal = wcTotal;
  return a;
}

}  // namespace compare_test
